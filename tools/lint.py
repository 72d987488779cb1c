#!/usr/bin/env python3
"""lint.py BUILD_DIR [FILE...]: runs clang-tidy on the sources that changed since they last passed, and finds sources
that no target compiles.

A source's key is the content of the source, of the project headers it reaches, of .clang-tidy and of its compile
command; a key that passed is remembered in build/lint."""

import concurrent.futures
import hashlib
import json
import os
import re
import subprocess
import sys

from project_files import ROOT, project_files

RUNTIME = "/usr/lib/gcc/x86_64-w64-mingw32/12-posix/include/c++"
# clang knows the target but not where this compiler keeps its C++ library.
ARGUMENTS = ["clang-tidy", "--quiet", "--extra-arg-before=--target=x86_64-w64-windows-gnu", "--extra-arg=-nostdinc++",
             f"--extra-arg=-isystem{RUNTIME}", f"--extra-arg=-isystem{RUNTIME}/x86_64-w64-mingw32",
             # Options that only the compiler of the build knows.
             "--extra-arg=-Wno-unknown-warning-option"]
STAMPS = os.path.join(ROOT, "build", "lint")
# Precompiled headers are another compiler's; without them, a source shows which includes it lacks.
PRECOMPILED = re.compile(r"(-Winvalid-pch|-include \S+/cmake_pch\.hxx) ")
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


def key_of(path, command):
    digest = hashlib.sha256(command.encode() + read(".clang-tidy"))
    for file in sorted(included_files(path)):
        digest.update(file.encode() + read(file))
    return digest.hexdigest()


def sources(build):
    """(path from the root, compile command) of our own sources."""
    with open(os.path.join(build, "compile_commands.json"), encoding="utf-8") as file:
        commands = json.loads(PRECOMPILED.sub("", file.read()))
    with open(os.path.join(STAMPS, "compile_commands.json"), "w", encoding="utf-8") as file:
        json.dump(commands, file)
    build_prefix = os.path.join(ROOT, "build") + os.sep
    for command in commands:
        path = command["file"]
        if path.startswith(ROOT + os.sep) and not path.startswith(build_prefix) and path.endswith(".cpp"):
            yield os.path.relpath(path, ROOT), command["command"]


def unused_sources(compiled):
    """Sources that no target compiles: nothing would notice when they stop being right."""
    return [path for path in project_files(".cpp") if path not in compiled]


def lint(path, key):
    """The findings in one source; remembers the key when there are none."""
    result = subprocess.run(ARGUMENTS + ["-p", STAMPS, path], cwd=ROOT, capture_output=True, text=True, check=False)
    if result.returncode == 0:
        with open(os.path.join(STAMPS, key), "w", encoding="utf-8"):
            return ""
    return result.stdout or result.stderr


def main(build, only):
    os.makedirs(STAMPS, exist_ok=True)
    work = {}
    commands = list(sources(build))
    unused = unused_sources({path for path, _ in commands})
    for path in unused:
        print(f"{path}: no target compiles this source")
    for path, command in commands:
        if path not in only if only else path.startswith(NOT_SHIPPED):
            continue
        key = key_of(path, command)
        if not os.path.exists(os.path.join(STAMPS, key)):
            work.setdefault(path, key)
    failed = 0
    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        for findings in pool.map(lambda item: lint(*item), work.items()):
            if findings:
                print(findings, flush=True)
                failed += 1
    if work:
        print(f"clang-tidy: {len(work)} sources looked at, {failed} with findings")
    return 1 if failed or unused else 0


if __name__ == "__main__":
    sys.exit(main(os.path.abspath(sys.argv[1]), set(sys.argv[2:])))
