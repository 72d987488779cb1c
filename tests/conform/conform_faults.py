#!/usr/bin/env python3
"""Runs kvpexctl-conform against a server that is wrong on purpose: each fault must be found, and named."""

import json
import os
import subprocess
import sys

sys.path.insert(0, os.path.join(os.path.dirname(os.path.abspath(__file__)), "faulty"))
sys.dont_write_bytecode = True
import wrong_types

# The fault that the server is asked for, and rules of which one must be reported as broken.
FAULTS = {
    "drops-interface": "query: IQuickActivate is answered",
    "foreign-identity": "query: IOleWindow has the identity of the control",
    "leads-elsewhere": "query: IOleWindow leads to IQuickActivate of the same control",
    "leads-nowhere": "query: IOleWindow leads to IOleWindow, which leads on to all but",
    "extra-interface": "query: IKvPeColorCtrl, which the class table does not give the class, is refused",
    "quick-status": "quick: dwMiscStatus has the bits of an embedded control",
    "quick-policy": "quick: dwPointerActivationPolicy is cleared",
    "keeps-site": "activation: the site is let go",
    "site-order": "activation: in place calls the site in this order",
    "deaf-to-hide": "verbs: hide takes the control out of sight",
    "asks-for-all": "ambients: of other changes it takes no note",
    "fails-without-ambients": "ambients: a site without ambient properties is no failure",
    "ambient-as-method": "ambients: the back colour is taken",
    "ambient-with-argument": "ambients: the font is taken",
    "accelerators": "control information: no accelerators",
    "other-class": "create: the control names its own class",
    "first-sink": "connections: there is no point for the first sink interface",
    "tells-twice": "events: sinks are called in the order of their connection",
    "other-color-by-id": "dispatch: BackColor put through the interface is got by id",
    "swaps-arrays": "init: by id",
    "swaps-value": "dispatch: SetValue of a value that varies by id",
    "swaps-dialog": "dispatch: LaunchDialog without a flag by id",
    "keeps-module": "create: the module can be unloaded when no control lives",
}
CLASS = "KvPePropertyEditorText"
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

    for fault, rule in FAULTS.items():
        status, output = run(runner, program, faulty, fault, ["--json", "--class", CLASS])
        expect(f"{fault}: status {status}", status == 1)
        found = [entry for entry in findings(output, CLASS) if entry["rule"] == rule]
        expect(f"{fault}: not found among {findings(output, CLASS)}", len(found) > 0)
        expect(f"{fault}: what was expected is what was found",
               all(entry["expected"] != entry["found"] for entry in found))

    # The report for people names class, rule, expected and found.
    status, output = run(runner, program, faulty, "accelerators", ["--class", CLASS])
    expect(f"the text report: {output}",
           f"FAIL  {CLASS}: " in output and FAULTS["accelerators"] in output and "expected: yes" in output
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
