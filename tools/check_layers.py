#!/usr/bin/env python3
"""Checks that includes go down the layers only. The table below is the architecture: change it on purpose."""

import re
import sys

from project_files import ROOT, own_project, project_files, read_text

# What a layer builds on; it may also include whatever those layers may.
BUILDS_ON = {
    "framework": [],
    "resources": [],
    "host_sdk": ["framework"],
    "core": ["framework", "host_sdk", "resources"],
    "families": ["core"],
    "preview": ["families"],
    "numeric": ["families"],
    "lists": ["preview"],
    "hatch": ["numeric"],
    "light": ["lists"],
    "refhost": ["framework", "host_sdk"],
    "palette": ["refhost"],
}

# Single headers of a layer above that a layer may name all the same.
ALSO = {
    "families": {"preview/CKvPePreviewAbleCtrlBase.h", "preview/KvRestorable.h"},
}

# Headers that the build makes from type libraries. Ours holds the COM interfaces and nothing of the classes.
GENERATED = {
    "KvPEXCtl_h.h": {"core", "families", "preview", "numeric", "lists", "hatch", "light", "palette"},
    "TestRow_h.h": set(),
}

EVERYTHING = {"tests", "benchmarks"}

INCLUDE = re.compile(r'^[ \t]*#[ \t]*include[ \t]*"([^"]+)"', re.MULTILINE)


def reachable(layer):
    found = {layer}
    for below in BUILDS_ON[layer]:
        found |= reachable(below)
    return found


def check_include(path, include, known_files):
    """The complaint about one include, or None."""
    layer = path.split("/")[0]
    if include.split("/")[-1] in GENERATED:
        allowed = GENERATED[include.split("/")[-1]]
        return None if layer in allowed | EVERYTHING else f"{layer} may not use the module's interfaces: {include}"
    if own_project(path) and own_project(path) + include in known_files:
        return None
    if include not in known_files:
        return f"include by the path from the root: {include}"
    target = include.split("/")[0]
    if layer in EVERYTHING:
        return None
    if layer not in BUILDS_ON:
        return f"{layer} is not a layer; add it to tools/check_layers.py"
    if target in reachable(layer) or include in ALSO.get(layer, ()):
        return None
    return f"{layer} may not include {target}: {include}"


def main():
    known = set(project_files())
    complaints = 0
    for path in project_files((".h", ".cpp", ".inc", ".rc")):
        if path.startswith("tools/"):
            continue
        for match in INCLUDE.finditer(text := read_text(path)):
            complaint = check_include(path, match.group(1), known)
            if complaint:
                print(f"{path}:{text.count(chr(10), 0, match.start(1)) + 1}: {complaint}")
                complaints += 1
    return 1 if complaints else 0


if __name__ == "__main__":
    sys.exit(main())
