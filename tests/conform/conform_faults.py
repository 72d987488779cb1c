#!/usr/bin/env python3
"""Runs kvpexctl-conform against a server that is wrong on purpose: each fault must be found, and named."""

import json
import os
import shutil
import subprocess
import sys
import tempfile

sys.path.insert(0, os.path.join(os.path.dirname(os.path.abspath(__file__)), "faulty"))
sys.dont_write_bytecode = True
import row_faults
import wrong_types

CLASS = "KvPePropertyEditorText"
# What is changed in the manifest, and the rules that must be reported as broken.
MANIFEST_FAULTS = [
    ("KvPEXCtl.KvPePropertyEditorBool.16", "KvPEXCtl.KvPePropertyEditorBool.17"),
    ("KvPEXCtl.KvPePropertyEditorText.16", "KvPEXCtl.KvPePropertyEditorBool.16"),
    ("{7C21FF74-D9D0-4C6B-9C25-1D41B58F4776}", "{7C21FF75-D9D0-4C6B-9C25-1D41B58F4776}"),
]
MANIFEST_RULES = [
    "manifest: KvPePropertyEditorText is found by its name",
    "manifest: KvPePropertyEditorLWeight is created as the module does it",
    "manifest: KvPePropertyEditorBool is the class that its name creates",
]
OTHER_CLASS = "KvPePropertyEditorBool"  # ready, but not offered by the wrong server


def run(runner, program, module, fault="", options=()):
    environment = dict(os.environ, KV_CONFORM_FAULT=fault)
    done = subprocess.run([runner, program, *options, module], env=environment, stdout=subprocess.PIPE,
                          check=False)
    return done.returncode, done.stdout.decode().replace("\r", "")


def findings(output, subject):
    for entry in json.loads(output)["subjects"] if output.startswith("{") else []:
        if entry["name"] == subject:
            return entry["findings"]
    return []


def main():
    runner, program, faulty, wrong_library, plain_library = sys.argv[1:6]
    complaints = []

    def expect(what, holds):
        if not holds:
            complaints.append(what)

    status, output = run(runner, program, faulty, options=["--json", "--class", CLASS])
    expect(f"without a fault the class must conform: {output}", status == 0)

    broken = []
    for faults in row_faults.RUNS:
        status, output = run(runner, program, faulty, ",".join(faults), ["--json", "--class", CLASS])
        found = findings(output, CLASS)
        broken.append({entry["rule"] for entry in found})
        expect(f"{list(faults)}: status {status}", status == 1)
        for fault, rule in faults.items():
            expect(f"{fault}: not found among {sorted(broken[-1])}", rule in broken[-1])
        expect(f"{list(faults)}: what was expected is what was found",
               all(entry["expected"] != entry["found"] for entry in found))
    for faults in row_faults.RUNS:
        for fault, rule in faults.items():
            for others, rules in zip(row_faults.RUNS, broken):
                told = any(fault in row_faults.ALSO.get(other, ()) for other in others)
                expect(f"{fault}: breaks with {list(others)}, told {told}", (rule in rules) == (fault in others or told))
                expect(f"{fault}: hidden by {list(others)}", not (told and fault in others))

    # The report for people names class, rule, expected and found.
    status, output = run(runner, program, faulty, "accelerators", ["--class", CLASS])
    expect(f"the text report: {output}",
           f"FAIL  {CLASS}: " in output and "control information: no accelerators" in output and "expected: yes" in output
           and "found:    no" in output)

    # No manifest lies beside this one.
    status, output = run(runner, program, faulty, options=["--json"])
    rules = [entry["rule"] for entry in findings(output, "the module")]
    expect(f"the module: {rules}", rules == ["manifest: it lies beside the module and is well formed"])

    # Each fault of the type library breaks the rules of its subject, and no other.
    status, output = run(runner, program, wrong_library, options=["--json"])
    rules = {entry["rule"].removeprefix("type library: ") for entry in findings(output, "the module")}
    wanted = {rule for _, _, rules_of_fault in wrong_types.FAULTS for rule in rules_of_fault}
    wanted.add("manifest: it lies beside the module and is well formed")
    expect(f"the type library: not found {wanted - rules}, found {rules - wanted}", rules == wanted)

    # The manifest lies beside the module, but tells three classes wrongly.
    with tempfile.TemporaryDirectory() as folder:
        shutil.copy(faulty, os.path.join(folder, "Named.qmx"))
        os.symlink(os.path.join(os.path.dirname(program), "KvPEXCtl.qmx"), os.path.join(folder, "KvPEXCtl.qmx"))
        with open(os.path.join(os.path.dirname(program), "KvPEXCtl.manifest"), encoding="utf-8") as file:
            manifest = file.read().replace("KvPEXCtl.qmx", "Named.qmx")
        for right, wrong in MANIFEST_FAULTS:
            expect(f"the manifest: {right}", manifest.count(right) == 1)
            manifest = manifest.replace(right, wrong)
        with open(os.path.join(folder, "Named.manifest"), "w", encoding="utf-8") as file:
            file.write(manifest)
        status, output = run(runner, program, os.path.join(folder, "Named.qmx"), options=["--json"])
        rules = [entry["rule"] for entry in findings(output, "the module") if entry["rule"].startswith("manifest: ")]
        expect(f"the manifest: {rules}", rules == MANIFEST_RULES)

    status, output = run(runner, program, plain_library, options=["--json"])
    rules = [entry["rule"] for entry in findings(output, "the module")]
    expect(f"no component server: {rules}", status == 1 and "type library: the module carries one" in rules)

    # A class that was not checked is not called right.
    status, output = run(runner, program, faulty, options=["--class", OTHER_CLASS])
    expect(f"a class that is not offered: {status}, {output}", status == 4 and f"{OTHER_CLASS}: not offered" in output)
    status, output = run(runner, program, faulty, options=["--json", "--complete", "--class", OTHER_CLASS])
    rules = [entry["rule"] for entry in findings(output, OTHER_CLASS)]
    expect(f"a class that must be offered: {status}, {rules}", status == 1 and rules == ["create: the class is offered"])

    expect("no such file", run(runner, program, "no-such-file.qmx")[0] == 3)
    expect("no such option", run(runner, program, faulty, options=["--nonsense"])[0] == 2)
    expect("no such class", run(runner, program, faulty, options=["--class", "Nonsense"])[0] == 2)

    for complaint in complaints:
        print(complaint)
    return 1 if complaints else 0


if __name__ == "__main__":
    sys.exit(main())
