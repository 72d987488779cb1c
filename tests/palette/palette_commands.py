#!/usr/bin/env python3
"""Drives kvpalette from outside, by its command line: palette_commands.py LAUNCHER PROGRAM SOURCE_DIR.

Starting the program costs more than most of what it does, so that each test does as much as belongs together in one
run. Work happens in a new folder, on copies.
"""

import json
import os
import shutil
import struct
import subprocess
import sys
import tempfile
import unittest

LAUNCHER, PROGRAM, SOURCE = (os.path.abspath(argument) for argument in sys.argv[1:4])
SITE = os.path.join(SOURCE, "samples", "site.qxf")
VILLAGE = os.path.join(SOURCE, "samples", "village.geojson")
MAPS = os.environ.get("KV_MAPS", os.path.normpath(os.path.join(SOURCE, "..", "shared", "data")))
MARK = "-----"


class Run:
    """One run of the program. Parts are what it printed between --say marks."""

    def __init__(self, folder, *arguments):
        done = subprocess.run(["sh", LAUNCHER, PROGRAM, *arguments], cwd=folder, capture_output=True)
        sys.stderr.buffer.write(done.stderr)  # what a checked heap has found is looked for there
        self.status = done.returncode
        self.output = done.stdout.decode("utf-8")
        self.errors = done.stderr.decode("utf-8")
        self.parts = self.output.split(MARK + "\n")

    def json(self, part=0):
        return json.loads(self.parts[part])


def rows_by_name(report):
    return {row["name"]: row for row in report["rows"]}


class PaletteTest(unittest.TestCase):
    def setUp(self):
        self.folder = tempfile.mkdtemp(prefix="kvpalette-")
        self.addCleanup(shutil.rmtree, self.folder)

    def path(self, name):
        return os.path.join(self.folder, name)

    def run_palette(self, *arguments):
        return Run(self.folder, *arguments)

    def run_batch(self, drawing, *lines):
        with open(self.path("commands.txt"), "w", encoding="utf-8") as file:
            file.write("\n".join(lines) + "\n")
        return self.run_palette(drawing, "--batch", "commands.txt")

    def succeed(self, run):
        self.assertEqual(run.status, 0, run.errors + run.output)
        return run

    def entities(self, name):
        with open(self.path(name), encoding="utf-8") as file:
            return {entity["handle"]: entity for entity in json.load(file)["entities"]}


def handles(cls, content=None):
    """Handles of the sample's entities of a class, with a content when one is given."""
    with open(SITE, encoding="utf-8") as file:
        entities = json.load(file)["entities"]
    return [e["handle"] for e in entities if e["type"] == cls and content in (None, e.get("content"))]


class Usage(PaletteTest):
    def test_help_is_printed_without_a_drawing(self):
        run = self.succeed(self.run_palette("--help"))
        self.assertIn("--select WHAT", run.output)
        self.assertEqual(run.errors, "")

    def test_bad_usage_is_told_before_anything_runs(self):
        for arguments in (["--frobnicate"], [SITE, "--rows", "--set", "Contents"], [SITE, "--batch", "absent.txt"]):
            run = self.run_palette(*arguments)
            self.assertEqual(run.status, 2, arguments)
            self.assertEqual(run.output, "", arguments)
            self.assertTrue(run.errors.startswith("kvpalette: "), run.errors)

    def test_unreadable_drawings_are_told_by_their_status(self):
        with open(SITE, "rb") as file:
            whole = file.read()
        with open(self.path("damaged.qxf"), "wb") as file:
            file.write(whole[: len(whole) // 2])
        for drawing in ("absent.qxf", "damaged.qxf"):
            run = self.run_palette(drawing, "--rows")
            self.assertEqual(run.status, 3, drawing + run.errors)
            self.assertEqual(run.output, "")
            self.assertIn(drawing, run.errors)

    def test_drawing_that_cannot_be_written_is_told_by_its_status(self):
        run = self.run_palette(SITE, "--save", "no/such/folder/a.qxf")
        self.assertEqual(run.status, 3, run.errors)
        self.assertIn("--save", run.errors)

    def test_other_failures_have_a_status_of_their_own(self):
        for command in (["--select", "layer=Nowhere"], ["--undo"], ["--setvar", "NOSUCHVAR=1"]):
            run = self.run_palette(SITE, *command)
            self.assertEqual(run.status, 5, command)
            self.assertIn(command[0], run.errors)


class Rows(PaletteTest):
    def test_states_of_one_object_and_of_several(self):
        hall = handles("Text", "Village hall")[0]
        unspecified = handles("Text", "House 3")[0]
        run = self.succeed(self.run_batch(
            SITE, "--rows --json", f"--say {MARK}",
            f"--select {hall}", "--rows --json", "--rows", f"--say {MARK}",
            "--select none", f"--select {unspecified}", "--rows --json", f"--say {MARK}",
            "--select none", "--select class=Text", "--rows --json"))
        empty = json.loads(run.parts[0])
        self.assertEqual((empty["class"], empty["count"], empty["rows"]), ("No selection", 0, []))

        one, _ = json.JSONDecoder().raw_decode(run.parts[1])
        self.assertEqual((one["class"], one["count"]), ("Text", 1))
        rows = rows_by_name(one)
        self.assertEqual(rows["Contents"], {
            "name": "Contents", "category": "Text", "control": "KvPePropertyEditorText", "text": "Village hall",
            "state": "specific", "readOnly": False, "shownBy": "control"})
        self.assertTrue(rows["Handle"]["readOnly"])
        self.assertEqual(rows["Handle"]["text"], hall)
        self.assertEqual(rows["Linetype"]["shownBy"], "text")
        self.assertEqual(rows["Height"]["shownBy"], "control")
        self.assertEqual(rows["Position"]["shownBy"], "palette")
        self.assertEqual(rows["Remarks"]["text"], "Keys at house 6")
        self.assertNotIn("4711", run.output)
        self.assertRegex(run.parts[1], r"(?m)^Contents +Text +KvPePropertyEditorText +Village hall +specific +no$")

        rows = rows_by_name(json.loads(run.parts[2]))
        self.assertEqual((rows["Description"]["state"], rows["Description"]["text"]), ("unspecified", "none"))

        many = json.loads(run.parts[3])
        self.assertEqual(many["count"], len(handles("Text")))
        rows = rows_by_name(many)
        self.assertEqual(rows["Contents"]["state"], "varies")
        self.assertEqual(rows["Style"]["state"], "specific")
        self.assertEqual(rows["Style"]["text"], "Standard")
        self.assertNotEqual(rows["Contents"]["text"], "Village hall")

    def test_different_classes_share_their_common_rows(self):
        run = self.succeed(self.run_palette(
            SITE, "--select", "class=Text", "--select", "class=Polyline", "--rows", "--json"))
        names = rows_by_name(run.json()).keys()
        self.assertIn("Layer", names)
        self.assertNotIn("Contents", names)

    def test_catalogue_lists_every_class(self):
        run = self.succeed(self.run_palette(SITE, "--catalogue", "--json"))
        classes = {entry["name"]: entry for entry in run.json()["classes"]}
        self.assertEqual(len(classes), 49)
        text = classes["KvPePropertyEditorText"]
        self.assertEqual(text["classId"], "{E631D337-7F88-44C8-B63F-C9031292FB4E}")
        self.assertTrue(text["creatable"])
        self.assertIn("Text/Contents", text["rows"])
        self.assertTrue(classes["KvPePropertyEditorPwdText"]["creatable"])


class Edits(PaletteTest):
    def test_edit_undo_redo_save_reopen(self):
        texts = handles("Text")[:3]
        chosen = ",".join(texts)
        run = self.succeed(self.run_batch(
            SITE, f"--select {chosen}", '--set "Contents=Ostflügel \\"A\\""', "--objects --json", f"--say {MARK}",
            "--undo", "--objects --json", f"--say {MARK}",
            "--redo", "--rows --json", f"--say {MARK}",
            "--save changed.qxf", "--open changed.qxf", f"--select {chosen}", "--objects --json"))
        changed = 'Ostflügel "A"'
        contents = [[o["properties"]["Contents"] for o in run.json(part)["objects"]] for part in (0, 1, 3)]
        with open(SITE, encoding="utf-8") as file:
            before = {e["handle"]: e for e in json.load(file)["entities"]}
        self.assertEqual(contents[0], [changed] * 3)
        self.assertEqual(contents[1], [before[handle]["content"] for handle in texts])
        self.assertEqual(contents[2], [changed] * 3)
        row = rows_by_name(run.json(2))["Contents"]
        self.assertEqual((row["text"], row["state"]), (changed, "specific"))
        after = self.entities("changed.qxf")
        for handle, entity in before.items():
            expected = dict(entity, content=changed) if handle in texts else entity
            self.assertEqual(after[handle].get("content"), expected.get("content"), handle)
            self.assertEqual(after[handle].get("layer", "0"), expected.get("layer", "0"), handle)

    def test_undo_restores_the_file_to_the_byte(self):
        free = ",".join(set(handles("Text")) - set(handles("Text", "Site boundary")))
        self.succeed(self.run_batch(
            SITE, "--save before.qxf", f"--select {free}", '--set "Style=Bold"', '--set "Access code=12 34"',
            '--set "Description=all"', "--unspecify Description", "--save changed.qxf", "--undo 4",
            "--save after.qxf"))
        with open(self.path("before.qxf"), "rb") as first, open(self.path("after.qxf"), "rb") as second:
            self.assertEqual(first.read(), second.read())
        with open(self.path("changed.qxf"), encoding="utf-8") as file:
            changed = json.load(file)
        texts = [e for e in changed["entities"] if e["handle"] in free.split(",")]
        self.assertTrue(all(e["style"] == "Bold" and e["passcode"] == "12 34" for e in texts))
        self.assertTrue(all("Description" in e["unspecified"] for e in texts))

    def test_refused_edits_name_row_and_reason(self):
        locked = handles("Text", "Site boundary")[0]
        hall = handles("Text", "Village hall")[0]
        for command, reason in (
            ("Handle=1", "read-only"),
            ("Position=3,4", "not available"),
            ("Height=tall", "keep their value"),
            ("Nothing=1", "no such row"),
            ("Layer=No such layer", ""),
        ):
            run = self.run_palette(SITE, "--select", hall, "--set", command)
            self.assertEqual(run.status, 4, command + run.errors)
            self.assertIn("--set " + command.split("=")[0] + ": ", run.errors)
            self.assertIn(reason, run.errors)
            self.assertRegex(run.errors, r": \S+.*\n$")
        run = self.run_palette(SITE, "--select", locked, "--set", "Contents=moved")
        self.assertEqual(run.status, 4, run.errors)
        self.assertIn("read-only", run.errors)

    def test_numbers_are_in_the_units_of_the_drawing(self):
        arc = "--select class=Arc"
        run = self.succeed(self.run_batch(
            SITE, arc, "--setvar LUNITS=4", "--setvar LUPREC=4", "--setvar AUNITS=1", "--setvar AUPREC=4",
            "--rows --json", f"--say {MARK}", '--set "Radius=1\'-6 1/2\\""', '--set "Start angle=N 30d E"',
            "--rows --json", f"--say {MARK}", "--objects --json", f"--say {MARK}", "--setvar LUNITS=2",
            "--rows --json", f"--say {MARK}", "--undo 3", "--rows --json"))
        before, changed, decimal, undone = (rows_by_name(json.loads(run.parts[i])) for i in (0, 1, 3, 4))
        self.assertEqual(before["Radius"]["text"], '9"')
        self.assertEqual(before["Start angle"]["text"], "176d24'0\"")
        self.assertEqual(changed["Radius"]["text"], "1'-6 1/2\"")
        self.assertEqual(changed["Start angle"]["text"], "60d0'0\"")
        self.assertEqual(json.loads(run.parts[2])["objects"][0]["properties"]["Radius"], 18.5)
        self.assertEqual(decimal["Radius"]["text"], "18.5000")
        self.assertEqual(undone["Radius"]["text"], '9"')

    def test_locked_objects_keep_their_value_among_others(self):
        # The contents differ before the locked text is reached, so that the row does not know of it.
        run = self.run_batch(SITE, "--select class=Text", '--set "Contents=same"')
        self.assertEqual(run.status, 4, run.errors)
        self.assertIn(f"1 of {len(handles('Text'))} objects lie on a locked layer", run.errors)

    def test_layers_follow_their_rules(self):
        hall = handles("Text", "Village hall")[0]
        with open(SITE, encoding="utf-8") as file:
            layers = json.load(file)["layers"]
        run = self.succeed(self.run_batch(
            SITE, f"--select {hall}", "--list Layer --json", f"--say {MARK}",
            '--hover "Layer=Sewer"', "--objects --json", f"--say {MARK}",
            "--escape", "--objects --json", f"--say {MARK}",
            "--select none", "--select layer=Sewer", '--select "layer=Setting out"', '--set "Layer=Paths"',
            "--objects --json", f"--say {MARK}", "--undo", "--objects --json", f"--say {MARK}",
            "--select none", "--select layer=Boundary", "--rows --json", f"--say {MARK}",
            "--select none", '--select "layer=Town|Contours"', "--rows --json"))
        listed = run.json(0)["entries"]
        self.assertEqual(sorted(entry["text"] for entry in listed), sorted(layer["name"] for layer in layers))
        self.assertEqual([entry["text"] for entry in listed if entry["current"]], ["Labels"])

        def layers_of(part):
            return [found["properties"]["Layer"] for found in run.json(part)["objects"]]
        self.assertEqual(layers_of(1), ["Sewer"], "previewed, frozen as it is")
        self.assertEqual(layers_of(2), ["Labels"])
        self.assertEqual(layers_of(3), ["Paths", "Paths"])
        self.assertEqual(layers_of(4), ["Sewer", "Setting out"])
        for part, layer in ((5, "Boundary"), (6, "Town|Contours")):
            row = rows_by_name(run.json(part))["Layer"]
            self.assertEqual((row["text"], row["readOnly"]), (layer, True))
        run = self.run_palette(SITE, "--select", hall, "--set", "Layer=Town|Contours")
        self.assertEqual(run.status, 4, run.errors)
        self.assertIn("--set Layer: ", run.errors)

    def test_rows_without_lists_buttons_and_points_say_so(self):
        hall = handles("Text", "Village hall")[0]
        for command in (["--list", "Linetype"], ["--hover", "Linetype=Continuous"], ["--click", "Linetype:0"], ["--pick", "1,2"],
                        ["--unspecify", "Contents"]):
            run = self.run_palette(SITE, "--select", hall, *command)
            self.assertEqual(run.status, 4, run.errors)

    def test_click_opens_the_dialog_behind_a_row(self):
        hall = handles("Text", "Village hall")[0]
        run = self.succeed(self.run_batch(
            SITE, f"--select {hall}", "--answer https://example.org/dance", "--click Hyperlink:dialog",
            "--answer Cancel", "--click Hyperlink:dialog", "--rows --json", f"--say {MARK}",
            "--answer \"by the road\"", "--click Description:dialog", "--objects --json", f"--say {MARK}",
            "--undo 2", "--objects --json"))
        self.assertEqual(rows_by_name(run.json())["Hyperlink"]["text"], "https://example.org/dance")
        changed = run.json(1)["objects"][0]["properties"]
        self.assertEqual((changed["Hyperlink"], changed["Description"]), ("https://example.org/dance", "by the road"))
        before = run.json(2)["objects"][0]["properties"]
        self.assertNotEqual(before["Hyperlink"], changed["Hyperlink"])
        self.assertNotEqual(before["Description"], changed["Description"])

    def test_click_without_such_a_button_is_refused(self):
        hall = handles("Text", "Village hall")[0]
        for click, reason in (("Hyperlink:pick", "no button 'pick'"), ("Contents:dialog", "no button"),
                              ("Color:pick", "not available"), ("Nothing:dialog", "no such row")):
            run = self.run_palette(SITE, "--select", hall, "--click", click)
            self.assertEqual(run.status, 4, click + run.errors)
            self.assertIn(reason, run.errors)

    def test_row_that_changes_by_its_dialog_takes_no_text(self):
        hall = handles("Text", "Village hall")[0]
        run = self.run_palette(SITE, "--select", hall, "--set", "Hyperlink=https://example.org")
        self.assertEqual(run.status, 4, run.errors)
        self.assertIn("through its button only", run.errors)

    def test_escape_takes_back_what_was_typed(self):
        hall = handles("Text", "Village hall")[0]
        run = self.succeed(self.run_batch(
            SITE, f"--select {hall}", "--edit Contents", '--type "half a word"', "--escape", "--objects --json"))
        self.assertEqual(run.json()["objects"][0]["properties"]["Contents"], "Village hall")

    def test_trace_holds_calls_and_events_in_order(self):
        hall = handles("Text", "Village hall")[0]
        self.succeed(self.run_palette(
            SITE, "--select", hall, "--trace", "trace.jsonl", "--set", "Contents=Hall"))
        with open(self.path("trace.jsonl"), encoding="utf-8") as file:
            lines = [json.loads(line) for line in file]
        self.assertTrue(all(set(line) == {"name", "arguments", "result"} for line in lines))
        names = [line["name"] for line in lines]
        order = [names.index(name) for name in (
            "kvedSendModelessOperationStart", "OnBeginPropertyUpdate", "kvedSendModelessOperationEnded",
            "OnEndPropertyUpdate", "OnKeyDown")]
        self.assertEqual(order, sorted(order))
        start = lines[names.index("kvedSendModelessOperationStart")]
        self.assertIn("ZRB_CHGPROP", start["arguments"])


class Lists(PaletteTest):
    def test_list_reports_its_entries(self):
        hall = handles("Text", "Village hall")[0]
        run = self.succeed(self.run_batch(
            SITE, f"--select {hall}", "--list Alignment --json", "--escape", f"--say {MARK}", "--list Visible"))
        report = run.json(0)
        self.assertEqual(report["row"], "Alignment")
        self.assertEqual(len(report["entries"]), 12)
        self.assertEqual(report["entries"][0], {"text": "Left", "current": True})
        self.assertEqual(report["entries"][4], {"text": "Middle center", "current": False})
        self.assertEqual(run.parts[1], "* Yes\n  No\n")

    def test_chosen_entry_is_written_and_undone_in_one_step(self):
        texts = handles("Text")[:3]
        run = self.succeed(self.run_batch(
            SITE, f"--select {','.join(texts)}", '--set "Alignment=top CENTER"', "--objects --json", f"--say {MARK}",
            "--rows --json", f"--say {MARK}", "--undo", "--objects --json", f"--say {MARK}",
            "--redo", "--save changed.qxf"))
        self.assertEqual([o["properties"]["Alignment"] for o in run.json(0)["objects"]], [7] * 3)
        row = rows_by_name(run.json(1))["Alignment"]
        self.assertEqual((row["text"], row["state"], row["shownBy"]), ("Top center", "specific", "control"))
        self.assertEqual([o["properties"]["Alignment"] for o in run.json(2)["objects"]], [0] * 3)
        changed = self.entities("changed.qxf")
        self.assertEqual([changed[handle]["alignment"] for handle in texts], ["top center"] * 3)

    def test_values_that_differ_are_an_entry_until_one_is_chosen(self):
        first, second = handles("Text")[:2]
        run = self.succeed(self.run_batch(
            SITE, f"--select {first}", "--set Lineweight=Default", f"--select {second}", "--list Lineweight --json",
            "--escape", f"--say {MARK}", '--set "Lineweight=0.70 mm"', "--list Lineweight --json"))
        differing = run.json(0)["entries"]
        self.assertEqual(len(differing), 28)
        self.assertTrue(differing[-1]["current"])
        agreed = run.json(1)["entries"]
        self.assertEqual(len(agreed), 27)
        self.assertEqual([entry["text"] for entry in agreed if entry["current"]], ["0.70 mm"])

    def test_hover_and_escape_write_nothing(self):
        hall = handles("Text", "Village hall")[0]
        self.succeed(self.run_batch(
            SITE, "--save before.qxf", f"--select {hall}", '--hover "Alignment=Right"',
            '--hover "Alignment=Bottom right"', "--screenshot hover.png", '--hover "Alignment=Center"', "--escape",
            '--hover "Lineweight=1.00 mm"', "--select none", "--save after.qxf"))
        with open(self.path("before.qxf"), "rb") as first, open(self.path("after.qxf"), "rb") as second:
            self.assertEqual(first.read(), second.read())

    def test_refusals_name_row_and_reason(self):
        hall = handles("Text", "Village hall")[0]
        locked = handles("Text", "Site boundary")[0]
        for selected, command, reason in (
            (hall, ["--set", "Alignment=Upside down"], "no entry Upside down"),
            (hall, ["--hover", "Alignment=Upside down"], "no entry Upside down"),
            (hall, ["--list", "Contents"], "no list"),
            (hall, ["--unspecify", "Alignment"], "no unspecified value"),
            (hall, ["--list", "Nothing"], "no such row"),
            (locked, ["--set", "Alignment=Right"], "read-only"),
            (locked, ["--list", "Alignment"], "read-only"),
        ):
            run = self.run_palette(SITE, "--select", selected, *command)
            self.assertEqual(run.status, 4, f"{command} {run.errors}")
            self.assertIn(reason, run.errors)
        run = self.run_batch(SITE, "--select class=Text", '--set "Alignment=Right"')
        self.assertEqual(run.status, 4, run.errors)

    def test_dynamic_values_two_names_and_elements(self):
        drawing = {"format": "qxf", "version": 1, "entities": [
            {"type": "Polyline", "handle": "20", "vertices": [[0, 0, 0], [9, 0, 0], [9, 9, 0]],
             "properties": {"Condition": "fair", "Public": "yes", "Storeys": "2"}},
            {"type": "Point", "handle": "21", "position": [1, 1]}]}
        with open(self.path("small.qxf"), "w", encoding="utf-8") as file:
            json.dump(drawing, file)
        run = self.succeed(self.run_batch(
            "small.qxf", "--select 20", "--rows --json", f"--say {MARK}", "--set Condition=Poor",
            "--set Public=Private", '--set "Storeys=Three storeys"', '--set "Segment=Arc, turning left"',
            "--set Direction=Clockwise", "--rows --json", f"--say {MARK}", "--unspecify Condition", "--rows --json",
            f"--say {MARK}", "--select none", "--select 21", "--set Style=Circle", "--save changed.qxf"))
        rows = rows_by_name(run.json(0))
        shown = {name: rows[name]["text"] for name in ("Condition", "Public", "Storeys", "Segment", "Direction")}
        self.assertEqual(shown, {"Condition": "Fair", "Public": "Open to all", "Storeys": "Two storeys",
                                 "Segment": "Straight", "Direction": "Counterclockwise"})
        rows = rows_by_name(run.json(1))
        self.assertEqual((rows["Condition"]["text"], rows["Public"]["text"], rows["Storeys"]["text"]),
                         ("Poor", "Private", "Three storeys"))
        self.assertEqual(rows_by_name(run.json(2))["Condition"]["state"], "unspecified")
        changed = self.entities("changed.qxf")
        self.assertEqual(changed["20"]["properties"], {"Condition": "poor", "Public": "no", "Storeys": "3"})
        self.assertEqual(changed["20"]["vertices"][0][:2], [9, 9])
        self.assertEqual(changed["21"]["style"], "circle")


class Numbers(PaletteTest):
    """Numbers of real objects, as a user meets them."""

    def setUp(self):
        super().setUp()
        drawing = {"format": "qxf", "version": 1, "entities": [
            {"type": "Circle", "handle": "20", "center": [0, 0, 0], "radius": 1.00004},
            {"type": "Circle", "handle": "21", "center": [5, 0, 0], "radius": 1.00003},
            {"type": "Arc", "handle": "22", "center": [0, 9, 0], "radius": 2, "startAngle": 0, "endAngle": 1}]}
        with open(self.path("round.qxf"), "w", encoding="utf-8") as file:
            json.dump(drawing, file)

    def radii(self, run, part):
        return [o["properties"]["Radius"] for o in json.loads(run.parts[part])["objects"]]

    def test_lengths_that_print_alike_count_as_one(self):
        run = self.succeed(self.run_batch(
            "round.qxf", "--select 20,21", "--rows --json", f"--say {MARK}", "--edit Radius", "--edit Diameter",
            "--objects --json", f"--say {MARK}", "--setvar LUPREC=5", "--rows --json"))
        row = rows_by_name(run.json(0))["Radius"]
        self.assertEqual((row["text"], row["state"]), ("1.0000", "specific"))
        self.assertEqual(self.radii(run, 1), [1.00004, 1.00003])  # a row that was only looked at writes nothing
        row = rows_by_name(run.json(2))["Radius"]
        self.assertEqual((row["text"], row["state"]), ("*VARIES*", "varies"))
        self.assertEqual(rows_by_name(run.json(2))["Circumference"]["state"], "varies")

    def test_expressions_are_taken_where_the_property_has_them(self):
        run = self.succeed(self.run_batch(
            "round.qxf", "--select 20,21", '--set "Radius=2*3+1"', "--rows --json", f"--say {MARK}",
            "--objects --json", f"--say {MARK}", "--set Radius=4", "--objects --json", f"--say {MARK}",
            "--undo 2", "--objects --json"))
        row = rows_by_name(run.json(0))["Radius"]
        self.assertEqual((row["text"], row["state"]), ("7.0000", "specific"))
        self.assertEqual([o["expressions"] for o in run.json(1)["objects"]], [{"Radius": "2*3+1"}] * 2)
        self.assertEqual(self.radii(run, 1), [7, 7])
        self.assertEqual([o["expressions"] for o in run.json(2)["objects"]], [{}, {}])
        self.assertEqual(self.radii(run, 2), [4, 4])
        self.assertEqual(self.radii(run, 3), [1.00004, 1.00003])

    def test_text_that_is_neither_number_nor_expression_is_refused(self):
        for edit in ("Radius=2*", "Diameter=2*3", "Start angle=45dd"):
            name = edit.split("=")[0]
            handle = "22" if name == "Start angle" else "20"
            run = self.run_palette("round.qxf", "--select", handle, "--set", edit)
            self.assertEqual(run.status, 4, edit + run.errors)
            self.assertIn(f"--set {name}: ", run.errors)

    def test_calculator_gives_its_result_to_the_row(self):
        run = self.succeed(self.run_batch(
            "round.qxf", "--select 20,21", "--answer 30*2+0.5", "--click Diameter:calculator", "--rows --json",
            f"--say {MARK}", "--answer Cancel", "--click Diameter:calculator", "--objects --json", f"--say {MARK}",
            "--undo", "--objects --json", f"--say {MARK}", "--select none", "--select 22", "--answer 45/2",
            '--click "Start angle:calculator"', "--setvar AUPREC=1", "--rows --json"))
        rows = rows_by_name(run.json(0))
        self.assertEqual((rows["Diameter"]["text"], rows["Radius"]["text"]), ("60.5000", "30.2500"))
        self.assertEqual(self.radii(run, 1), [30.25, 30.25])
        self.assertEqual(self.radii(run, 2), [1.00004, 1.00003])
        self.assertEqual(rows_by_name(run.json(3))["Start angle"]["text"], "22.5")


    def test_calculator_stands_beside_numbers_only(self):
        drawing = {"format": "qxf", "version": 1,
                   "blocks": [{"name": "Sign", "handle": "30", "entities": []}],
                   "entities": [{"type": "BlockReference", "handle": "31", "block": "Sign", "position": [0, 0],
                                 "attributes": [{"handle": "32", "tag": "NUMBER", "value": "12 b",
                                                 "position": [1, 1], "height": 1}]}]}
        with open(self.path("sign.qxf"), "w", encoding="utf-8") as file:
            json.dump(drawing, file)
        run = self.run_palette("sign.qxf", "--select", "32", "--click", "Value:calculator")
        self.assertEqual(run.status, 4, run.errors)
        self.assertIn("no button", run.errors)
        run = self.succeed(self.run_batch(
            "sign.qxf", "--select 32", "--answer 3/2", "--click Height:calculator", "--rows --json"))
        self.assertEqual(rows_by_name(run.json())["Height"]["text"], "1.5000")


class Pictures(PaletteTest):
    def size_of(self, name):
        with open(self.path(name), "rb") as file:
            head = file.read(24)
        self.assertEqual(head[:8], b"\x89PNG\r\n\x1a\n")
        return struct.unpack(">II", head[16:24])

    def test_screenshots_show_the_whole_window(self):
        hall = handles("Text", "Village hall")[0]
        self.succeed(self.run_batch(
            SITE, "--size 900x600", "--screenshot plain.png", f"--select {hall}", "--screenshot selected.png",
            "--edit Contents", "--screenshot edit.png"))
        self.assertEqual(self.size_of("plain.png"), (900, 600))
        pictures = []
        for name in ("plain.png", "selected.png", "edit.png"):
            with open(self.path(name), "rb") as file:
                pictures.append(file.read())
        self.assertEqual(len(set(pictures)), 3)


class Maps(PaletteTest):
    def test_a_small_map_is_edited_saved_and_reopened(self):
        self.edit_map(VILLAGE)

    @unittest.skipUnless(os.path.isdir(MAPS), "large maps lie beside the sources of the project only")
    def test_large_maps_are_edited_saved_and_reopened(self):
        for name in sorted(os.listdir(MAPS)):
            if name.endswith(".geojson"):
                with self.subTest(name):
                    self.edit_map(os.path.join(MAPS, name))

    def edit_map(self, path):
        with open(path, encoding="utf-8") as file:
            features = len(json.load(file)["features"])
        run = self.succeed(self.run_batch(
            path, "--select all", "--rows --json", f"--say {MARK}",
            "--save before.qxf", '--set "Description=gemessen 2024"', "--rows --json", f"--say {MARK}",
            "--save changed.qxf", "--undo", "--save undone.qxf", "--redo", "--save redone.qxf",
            "--open changed.qxf", "--save again.qxf", "--select all", "--rows --json"))
        self.assertGreaterEqual(run.json(0)["count"], features)
        for part in (1, 2):
            row = rows_by_name(run.json(part))["Description"]
            self.assertEqual((row["text"], row["state"]), ("gemessen 2024", "specific"))

        def content(name):
            with open(self.path(name), "rb") as file:
                return file.read()
        self.assertEqual(content("before.qxf"), content("undone.qxf"))
        self.assertEqual(content("changed.qxf"), content("redone.qxf"))
        self.assertEqual(content("changed.qxf"), content("again.qxf"))
        self.assertNotEqual(content("before.qxf"), content("changed.qxf"))
        entities = self.entities("changed.qxf").values()
        self.assertEqual(len(entities), run.json(0)["count"])
        self.assertTrue(all(entity["description"] == "gemessen 2024" for entity in entities))


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1] + sys.argv[4:])
