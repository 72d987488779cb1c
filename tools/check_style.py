#!/usr/bin/env python3
"""Checks of the text itself: words that have no place in the product, lengths, header guards, includes."""

import os
import re
import sys

from project_files import ROOT, own_project, project_files, read_text

# Each word is cut in two here, so that this file passes its own check.
UNWANTED = [
    (r"\bTO" r"DO\b", "finish it, or leave it out"),
    (r"\bX" r"XX\b", "finish it, or leave it out"),
    (r"\bHA" r"CK\b", "say why it is done this way"),
    (r"(?i)\bnot imple" r"mented\b", "do it, or name the result that callers get"),
    (r"(?i)\bplace" r"holder", "say what it is"),
    (r"DIS" r"ABLED_", "a test that is wrong is repaired"),
    (r"GTEST_" r"SKIP", "a test that is wrong is repaired"),
    (r"(?i)\bsp" r"ecs?\b", "give the reason instead"),
    (r"(?i)\bsp" r"ecification\b", "give the reason instead"),
    (r"(?i)\bas speci" r"fied\b", "give the reason instead"),
    (r"\bPa" r"rts? \d", "give the reason instead"),
    (r"/wo" r"rk/", "no paths of one machine"),
    (r"(?<!\w)/(tmp|root|home)/", "no paths of one machine"),
    (r"GLOB.* CONFIGURE_" r"DEPENDS", "use ${KV_WATCH_FOLDERS}: ./run is to know that nothing changed"),
]

PAGE_LIST = "docs/README.md"
MAX_LINES = {".cpp": 600, ".h": 250}


def has_file(path):
    return os.path.isfile(os.path.join(ROOT, path))


def complaints_about(path, text):
    """(line, complaint) for each thing wrong with one file."""
    found = []
    for pattern, advice in UNWANTED:
        for match in re.finditer(pattern, text):
            found.append((text.count("\n", 0, match.start()) + 1, f"'{match.group()}': {advice}"))
    first = re.search(r'^#include "([^"]+)"', text, re.MULTILINE)
    own = path[:-len(".cpp")] + ".h"
    named = own[len(own_project(path)):]
    if path.endswith(".cpp") and has_file(own) and (not first or first.group(1) != named):
        found.append((1, f"the first include is {named}, which proves that it compiles alone"))
    suffix = "." + path.rsplit(".", 1)[-1]
    lines = text.count("\n")
    if lines > MAX_LINES.get(suffix, lines):
        found.append((lines, f"{lines} lines; at {MAX_LINES[suffix]} it is two concepts"))
    if suffix == ".h" and "#pragma once" not in text:
        found.append((1, "a header begins with #pragma once"))
    if suffix == ".h":
        for match in re.finditer(r"^using namespace", text, re.MULTILINE):
            found.append((text.count("\n", 0, match.start()) + 1, "no using namespace in a header"))
    return found


def is_text(path):
    return not path.endswith((".png", ".bmp", ".ico", ".cur", ".qdf", ".geojson"))


def pages_not_listed(paths, listing):
    """Pages of docs/ that their list does not lead to."""
    pages = [path for path in paths if path.startswith("docs/") and path.endswith(".md") and path != PAGE_LIST]
    return [page for page in pages if f"({page.removeprefix('docs/')})" not in listing]


def main():
    count = 0
    for page in pages_not_listed(project_files(".md"), read_text(PAGE_LIST)):
        print(f"{page}: {PAGE_LIST} does not list this page")
        count += 1
    for path in filter(is_text, project_files()):
        for line, complaint in complaints_about(path, read_text(path)):
            print(f"{path}:{line}: {complaint}")
            count += 1
    return 1 if count else 0


if __name__ == "__main__":
    sys.exit(main())
