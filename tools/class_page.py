#!/usr/bin/env python3
"""class_page.py [--check]: prints docs/classes.md, which is made from core/ClassList.inc and the headers of the classes;
with --check, tells whether the page in the tree is current."""

import collections
import re
import sys

from project_files import project_files, read_text

PAGE = "docs/classes.md"
LIST = "core/ClassList.inc"
HEAD = """# The classes

Made from `core/ClassList.inc` and the headers of the classes by `python3 tools/class_page.py >docs/classes.md`; change
those, not this page. Every class has the interface `IKvPiPropertyEditControl`; clients create it by its registered name or its
class id.
"""
ROW = re.compile(r'^KVPE_CLASS\((\w+), (\d+), "([-0-9A-F]+)", (\w+), (READY|LATER),\s*"[^"]*", \(([^)]*)\)\)$', re.MULTILINE)
ControlClass = collections.namedtuple("ControlClass", "name version id logic state interfaces")


def classes_in(text):
    found = [ControlClass(*groups) for groups in ROW.findall(text)]
    if len(found) != len(re.findall(r"^KVPE_CLASS", text, re.MULTILINE)):
        raise ValueError(f"{LIST}: a row is not written like the others")
    return found


def first_sentence(header, name):
    """The first sentence of the comment above a class."""
    match = re.search(r"((?:^///.*\n)+)class (?:KVPEX_API )?" + name + r"\b", header, re.MULTILINE)
    if not match:
        raise ValueError(f"{name}: its header has no comment above the class")
    text = " ".join(line.removeprefix("///").strip() for line in match.group(1).splitlines())
    return re.match(r".*?[.](?=\s|$)", text).group()


def interfaces_of(control):
    return ", ".join(f"`{name}`" for name in control.interfaces.split(", ") if name)


def table(heading, columns, rows):
    lines = [f"\n## {heading}\n", "| " + " | ".join(columns) + " |", "|---" * len(columns) + "|"]
    return "\n".join(lines + ["| " + " | ".join(row) + " |" for row in rows]) + "\n"


def page(controls, headers):
    """The page. `headers` maps the name of a logic class to the path and the text of its header."""
    ready = [control for control in controls if control.state == "READY"]
    later = [control for control in controls if control.state == "LATER"]
    text = HEAD
    text += table("Rows", ("class", "what it is", "further interfaces", "header"),
                  [(f"`{control.name}`", first_sentence(headers[control.logic][1], control.logic),
                    interfaces_of(control), f"`{headers[control.logic][0]}`") for control in ready])
    if later:
        text += table("Without logic yet", ("class", "further interfaces"),
                      [(f"`{control.name}`", interfaces_of(control)) for control in later])
    return text + table("Names and ids", ("registered name", "class id"),
                        [(f"`KvPEXCtl.{control.name}.{control.version}`", f"`{control.id}`") for control in controls])


def headers_by_class(controls):
    logic = {control.logic for control in controls if control.state == "READY"}
    paths = {path.rsplit("/", 1)[-1][:-len(".h")]: path for path in project_files(".h")}
    return {name: (paths[name], read_text(paths[name])) for name in logic}


def main(check):
    controls = classes_in(read_text(LIST))
    text = page(controls, headers_by_class(controls))
    if not check:
        print(text, end="")
        return 0
    if read_text(PAGE) == text:
        return 0
    print(f"{PAGE} is not what {LIST} and the headers say: python3 tools/class_page.py >{PAGE}")
    return 1


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:] == ["--check"]))
