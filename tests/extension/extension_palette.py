#!/usr/bin/env python3
"""Lets the kit's palette edit rows with the editor of the module of somebody else: extension_palette.py LAUNCHER BIN
SOURCE_DIR. BIN is the kit's bin/ with that module in it, which is registered for the time of the test."""

import json
import os
import subprocess
import sys
import tempfile
import unittest

LAUNCHER, BIN, SOURCE = (os.path.abspath(argument) for argument in sys.argv[1:4])
PROGRAM = os.path.join(BIN, "kvpalette.exe")
MODULE = "KvExtension.qmx"
SITE = os.path.join(SOURCE, "samples", "site.qxf")
EDITOR = "KvExtension.UnitEditor.1"
MARK = "-----"


def launch(*arguments, folder=None):
    done = subprocess.run(["sh", LAUNCHER, *arguments], cwd=folder, capture_output=True, check=False)
    sys.stderr.buffer.write(done.stderr)  # what a checked heap has found is looked for there
    return done


def two_texts():
    with open(SITE, encoding="utf-8") as file:
        return [entity["handle"] for entity in json.load(file)["entities"] if entity["type"] == "Text"][:2]


def row_named(report, name):
    return next(row for row in report["rows"] if row["name"] == name)


class KitTest(unittest.TestCase):
    def run_batch(self, *lines):
        with tempfile.TemporaryDirectory(prefix="kvpalette-") as folder:
            with open(os.path.join(folder, "commands.txt"), "w", encoding="utf-8") as file:
                file.write("\n".join(lines) + "\n")
            done = launch(PROGRAM, SITE, "--batch", "commands.txt", folder=folder)
        self.assertEqual(done.returncode, 0, done.stderr.decode())
        return [json.loads(part) for part in done.stdout.decode("utf-8").split(MARK + "\n")]


class Calculator(KitTest):
    def test_the_kit_has_what_is_loaded_at_first_use(self):
        first = two_texts()[0]
        (rows,) = self.run_batch(f"--select {first}", "--answer 3/2", "--click Height:calculator", "--rows --json")
        self.assertEqual(row_named(rows, "Height")["text"], "1.50")


class ExtensionInPalette(KitTest):
    def setUp(self):
        self.register()
        self.addCleanup(self.register, "/u")

    def register(self, *options):
        self.assertEqual(launch("regsvr32.exe", "/s", *options, MODULE, folder=BIN).returncode, 0)

    def contents(self, report):
        return row_named(report, "Contents")

    # Lets the first text say "12 mm" and the second "12mm", then looks at the row of both, and edits it.
    def read_and_edit(self, control):
        first, second = two_texts()
        rows, after, objects = self.run_batch(
            f"--select {first}", '--set "Contents=12 mm"', "--select none", f"--select {second}", "--set Contents=12mm",
            f'--setvar "ROWCONTROLS=Contents={control}"', "--select none", f"--select {first},{second}",
            "--rows --json", f"--say {MARK}", "--set Contents=inch", "--rows --json", f"--say {MARK}",
            "--objects --json")
        return self.contents(rows), self.contents(after), objects

    def test_the_palette_edits_with_the_registered_editor(self):
        row, after, objects = self.read_and_edit(EDITOR)
        self.assertEqual((row["control"], row["shownBy"]), (EDITOR, "control"))
        # To the plug-in's editor, texts that differ in blanks alone are the same.
        self.assertIn(row["text"], ("12 mm", "12mm"))
        self.assertEqual(after["text"], "inch")
        self.assertEqual(json.dumps(objects).count('"inch"'), 2)

    def test_the_modules_own_editor_tells_them_apart(self):
        row, _, _ = self.read_and_edit("KvPePropertyEditorText")
        self.assertEqual((row["control"], row["text"]), ("KvPePropertyEditorText", "*VARIES*"))

    def test_without_registration_the_row_falls_back_to_the_text_editor(self):
        self.register("/u")
        row, after, _ = self.read_and_edit(EDITOR)
        self.assertEqual((row["shownBy"], row["text"], after["text"]), ("text", "*VARIES*", "inch"))
        self.register()


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1] + sys.argv[4:])
