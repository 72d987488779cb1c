#!/usr/bin/env python3
"""lint.py BUILD_DIR [FILE...]: runs clang-tidy on the sources that changed since they last passed, and finds sources
that no target compiles.

A source's key is the content of the source, of the project headers it reaches, of .clang-tidy and of its compile
options; a key that passed is remembered in build/lint."""

import concurrent.futures
import hashlib
import json
import os
import re
import shlex
import subprocess
import sys

from project_files import ROOT, own_project, project_files

RUNTIME = "/usr/lib/gcc/x86_64-w64-mingw32/12-posix/include/c++"
# clang knows the target but not where this compiler keeps its C++ library.
ARGUMENTS = ["clang-tidy", "--quiet", "--extra-arg-before=--target=x86_64-w64-windows-gnu", "--extra-arg=-nostdinc++",
             f"--extra-arg=-isystem{RUNTIME}", f"--extra-arg=-isystem{RUNTIME}/x86_64-w64-mingw32",
             # Options that only the compiler of the build knows.
             "--extra-arg=-Wno-unknown-warning-option"]
STAMPS = os.path.join(ROOT, "build", "lint")
# Most of the time goes into the system's headers, which all sources share.
SOURCES_AT_ONCE = 8
# What names the files of one compilation, and precompiled headers, which are another compiler's.
OF_ONE_FILE = re.compile(r" (-o|-c|-MT|-MF|-include) \S+| -MD\b| -Winvalid-pch\b")
# Tests and workloads are left to the compiler's warnings and to cppcheck: linting them too would take as long again as
# all the rest of ./test. Name a file to lint it all the same.
NOT_SHIPPED = ("tests/", "benchmarks/")
INCLUDE = re.compile(r'^[ \t]*#[ \t]*include[ \t]*"([^"]+)"', re.MULTILINE)


def read(path):
    with open(os.path.join(ROOT, path), "rb") as file:
        return file.read()


def included_files(path, found=None):
    """The source and every project file that it includes, directly or not."""
    found = {path} if found is None else found
    for include in INCLUDE.findall(read(path).decode("utf-8", "replace")):
        if include not in found and os.path.isfile(os.path.join(ROOT, include)):
            found.add(include)
            included_files(include, found)
    return found


def key_of(path, options):
    digest = hashlib.sha256(options.encode() + read(".clang-tidy"))
    for file in sorted(included_files(path)):
        digest.update(file.encode() + read(file))
    return digest.hexdigest()


def options_of(command):
    """What a compile command says beside its compiler and files: alike for the sources of a target."""
    return OF_ONE_FILE.sub("", command).partition(" ")[2]


def sources(build):
    """{path from the root: compile options} of our own sources, those of one target where several compile it."""
    found = {}
    with open(os.path.join(build, "compile_commands.json"), encoding="utf-8") as file:
        commands = json.load(file)
    build_prefix = os.path.join(ROOT, "build") + os.sep
    for command in commands:
        path = command["file"]
        if path.startswith(ROOT + os.sep) and not path.startswith(build_prefix) and path.endswith(".cpp"):
            found.setdefault(os.path.relpath(path, ROOT), options_of(command["command"]))
    return found


def unused_sources(compiled):
    """Sources that no target compiles: nothing would notice when they stop being right. A project of its own that forgets
    one does not link."""
    return [path for path in project_files(".cpp") if path not in compiled and not own_project(path)]


def batches_of(work):
    """[(paths, options)]: sources to be looked at together. Neighbours are spread, for they share names."""
    alike = {}
    for path, (options, _) in work.items():
        alike.setdefault(options, []).append(path)
    batches = []
    for options, paths in alike.items():
        count = -(-len(paths) // SOURCES_AT_ONCE)
        batches += [(paths[first::count], options) for first in range(count)]
    return batches


def tidy(source, options):
    """clang-tidy's findings in one source, empty when there are none."""
    arguments = ARGUMENTS + [source, "--", *shlex.split(options)]
    result = subprocess.run(arguments, cwd=ROOT, capture_output=True, text=True, check=False)
    return "" if result.returncode == 0 else result.stdout or result.stderr


def tidy_together(paths, options):
    """As tidy, for a source that includes all the others."""
    joined = "".join(f'#include "{path}" // NOLINT(bugprone-suspicious-include)\n' for path in paths)
    source = os.path.join(STAMPS, hashlib.sha256(joined.encode()).hexdigest() + ".cpp")
    with open(source, "w", encoding="utf-8") as file:
        file.write(joined)
    findings = tidy(source, options)
    os.remove(source)
    return findings


def lint(paths, options, work):
    """[findings of a source], for those that have some; remembers the keys of the others. What stops a batch, be it a
    finding or a name that two of its sources have, is looked for in its halves."""
    findings = tidy(paths[0], options) if len(paths) == 1 else tidy_together(paths, options)
    if not findings:
        for path in paths:
            with open(os.path.join(STAMPS, work[path][1]), "w", encoding="utf-8"):
                pass
        return []
    if len(paths) == 1:
        return [findings]
    middle = len(paths) // 2
    return lint(paths[:middle], options, work) + lint(paths[middle:], options, work)


def main(build, only):
    os.makedirs(STAMPS, exist_ok=True)
    compiled = sources(build)
    unused = unused_sources(compiled)
    for path in unused:
        print(f"{path}: no target compiles this source")
    work = {}  # path: (options, key)
    for path, options in compiled.items():
        if path not in only if only else path.startswith(NOT_SHIPPED):
            continue
        key = key_of(path, options)
        if not os.path.exists(os.path.join(STAMPS, key)):
            work[path] = (options, key)
    failed = 0
    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        for findings in pool.map(lambda batch: lint(*batch, work), batches_of(work)):
            for finding in findings:
                print(finding, flush=True)
            failed += len(findings)
    if work:
        print(f"clang-tidy: {len(work)} sources looked at, {failed} with findings")
    return 1 if failed or unused else 0


if __name__ == "__main__":
    sys.exit(main(os.path.abspath(sys.argv[1]), set(sys.argv[2:])))
