#!/usr/bin/env python3
"""Runs kvpexctl-conform --registration: on a module in a folder of its own, whose only fault is that no manifest lies
there; on one that disturbs its registration; and without the register program."""

import json
import os
import shutil
import subprocess
import sys
import tempfile

MANIFEST = "manifest: it lies beside the module and is well formed"
CLASSES = r"HKCU\Software\Classes"

# The module is asked for all of these faults, and this is what must be found.
FAULTS = ("leaves-key", "leaves-value", "takes-from-others")
BROKEN = {
    MANIFEST: "no",
    "removed: entries that are left":
        r"\KvConformLeft" "\n" r'\KvConformLeft "" = 1:left' "\n" r'\KvConformOther "left" = 1:left',
    "removed: entries of others that have gone": r"\KvConformTaken" "\n" r'\KvConformTaken "" = 1:',
}


def run(runner, program, *arguments, fault=""):
    environment = dict(os.environ, KV_CONFORM_FAULT=fault)
    done = subprocess.run([runner, program, *arguments], env=environment, stdout=subprocess.PIPE,
                          stderr=subprocess.PIPE, check=False)
    sys.stderr.buffer.write(done.stderr)
    return done.returncode, done.stdout.decode().replace("\r", ""), done.stderr.decode()


def broken_rules(output):
    report = json.loads(output) if output.startswith("{") else {"subjects": []}
    return [finding for subject in report["subjects"] for finding in subject["findings"]]


def main():
    runner, program, register, faulty = sys.argv[1:5]
    complaints = []

    def expect(what, holds):
        if not holds:
            complaints.append(what)

    with tempfile.TemporaryDirectory() as folder:
        shutil.copy(faulty, os.path.join(folder, "Apart.qmx"))
        module = "Z:" + os.path.join(folder, "Apart.qmx")
        # The module that the wrong one is made of.
        beside = os.path.dirname(program)
        os.symlink(os.path.join(beside, "KvPEXCtl.qmx"), os.path.join(folder, "KvPEXCtl.qmx"))
        status, output, errors = run(runner, program, "--json", "--registration", module)
        expect(f"a folder of its own: {status}, {errors}, {broken_rules(output)}",
               [finding["rule"] for finding in broken_rules(output)] == [MANIFEST])

        for key in ("KvConformOther", "KvConformTaken"):
            run(runner, "reg.exe", "add", rf"{CLASSES}\{key}", "/f")
        status, output, errors = run(runner, program, "--json", "--registration", module, fault=",".join(FAULTS))
        told = {finding["rule"]: finding["found"] for finding in broken_rules(output)}
        expect(f"all faults: {status}, {errors}, {told}", told == BROKEN)
        for key in ("KvConformLeft", "KvConformOther"):
            run(runner, "reg.exe", "delete", rf"{CLASSES}\{key}", "/f")

        # A path that leads nowhere must not cost the registration that stands.
        expect("the module is registered", run(runner, register, module)[0] == 0)
        status, output, errors = run(runner, register, f"Z:{folder}/Gone.qmx")
        expect(f"no module: {status}, {errors}", status == 1 and "there is no such module" in errors)
        status, output, errors = run(runner, program, "--json", "--class", "KvPePropertyEditorText")
        expect(f"the registration stands: {status}, {errors}, {output}", status == 0 and "Apart.qmx" in output)
        expect("the module is taken out again", run(runner, register, "/u", module)[0] == 0)
        expect("too many arguments", run(runner, register, module, module)[0] == 2)
        expect("no such option", run(runner, register, "/x")[0] == 2)

        # The program without the one that registers.
        for name in os.listdir(beside):
            if name.lower().endswith(".dll"):
                os.symlink(os.path.join(beside, name), os.path.join(folder, name))
        alone = os.path.join(folder, os.path.basename(program))
        os.symlink(program, alone)
        status, output, errors = run(runner, alone, "--registration", module)
        expect(f"alone: {status}, {output}, {errors}", status == 2 and "kvpexctl-register.exe" in errors)

    for complaint in complaints:
        print(complaint)
    return 1 if complaints else 0


if __name__ == "__main__":
    sys.exit(main())
