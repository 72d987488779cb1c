#!/usr/bin/env python3
"""Runs kvpexctl-conform without the path of a module: it checks the one that is registered, or tells that none is."""

import json
import os
import subprocess
import sys

CLASS = "KvPePropertyEditorText"
CLASS_ID = "{E631D337-7F88-44C8-B63F-C9031292FB4E}"
SERVER_KEY = rf"HKCU\Software\Classes\CLSID\{CLASS_ID}\InprocServer32"


def run(runner, program, *arguments):
    done = subprocess.run([runner, program, *arguments], stdout=subprocess.PIPE, stderr=subprocess.PIPE, check=False)
    sys.stderr.buffer.write(done.stderr)
    return done.returncode, done.stdout.decode(), done.stderr.decode()


def main():
    runner, program, register, module = sys.argv[1:5]
    complaints = []

    def expect(what, holds):
        if not holds:
            complaints.append(what)

    def expect_none_registered(when):
        status, output, errors = run(runner, program)
        expect(f"{when}: status {status}", status == 3)
        expect(f"{when}: no report: {output}", output == "")
        expect(f"{when}: it tells that none is registered, and what to do: {errors}",
               "no module is registered" in errors and "kvpexctl-register" in errors)

    expect_none_registered("before")
    status, _, errors = run(runner, register, "Z:" + os.path.abspath(__file__))
    expect(f"no module: status {status}: {errors}", status == 1 and "failed with 0x" in errors)
    expect_none_registered("after what is no module")
    try:
        expect("the module is registered", run(runner, register)[0] == 0)

        # Each class is checked as with a path, and the entries of each class as with --registration.
        status, output, errors = run(runner, program, "--json")
        expect(f"registered: status {status}: {errors}", status == 0)
        report = json.loads(output) if output.startswith("{") else {"module": "", "subjects": []}
        expect(f"registered: the module is {report['module']}",
               os.path.basename(module).lower() == report["module"].split("\\")[-1].lower())
        broken = [finding for subject in report["subjects"] for finding in subject["findings"]]
        expect(f"registered: no rule is broken: {broken}", not broken)
        checks = {subject["name"]: subject["checks"] for subject in report["subjects"] if subject["available"]}
        expect(f"registered: {checks}", checks.get(CLASS, 0) > 100)
        status, output, errors = run(runner, program, "--json", module)
        given = json.loads(output) if output.startswith("{") else {"subjects": []}
        given = {subject["name"]: subject["checks"] for subject in given["subjects"] if subject["available"]}
        expect(f"registered: each class is checked as with a path: {given}, {checks}",
               [name for name in given if given[name] != checks.get(name)] == ["the module"])
        expect("registered: the entries of 49 classes are checked too",
               checks.get("the module", 0) >= given.get("the module", 0) + 49 * 7)

        # An entry that is damaged is found.
        run(runner, "reg.exe", "add", rf"HKCU\Software\Classes\CLSID\{CLASS_ID}", "/ve", "/d", "Nonsense", "/f")
        status, output, errors = run(runner, program)
        expect(f"damaged: status {status}: {errors}", status == 1)
        expect(f"damaged: {output[-2000:]}",
               f"registered: {CLASS} has its description" in output and "found:    Nonsense" in output)

        # The file that is registered is gone.
        run(runner, "reg.exe", "add", SERVER_KEY, "/ve", "/d", r"C:\gone\Gone.qmx", "/f")
        status, output, errors = run(runner, program)
        expect(f"gone: status {status}: {output}", status == 3)
        expect(f"gone: it names the file: {errors}", r"C:\gone\Gone.qmx" in errors and "cannot be loaded" in errors)
    finally:
        expect("the module is taken out again", run(runner, register, "/u")[0] == 0)
    expect_none_registered("afterwards")

    for complaint in complaints:
        print(complaint)
    return 1 if complaints else 0


if __name__ == "__main__":
    sys.exit(main())
