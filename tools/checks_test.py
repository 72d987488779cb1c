#!/usr/bin/env python3
"""Tests of the checks: each must be able to fail."""

import unittest

from check_layers import check_include
from check_style import complaints_about, pages_not_listed
from class_page import classes_in, page
from lint import SOURCES_AT_ONCE, batches_of, included_files, options_of

KNOWN = {"core/A.h", "families/B.h", "framework/base/C.h", "preview/CKvPePreviewAbleCtrlBase.h", "preview/P.h"}


class CheckLayers(unittest.TestCase):
    def test_include_of_a_lower_layer_is_accepted(self):
        self.assertIsNone(check_include("families/B.cpp", "framework/base/C.h", KNOWN))

    def test_include_of_an_upper_layer_is_refused(self):
        self.assertIn("core may not include families", check_include("core/A.cpp", "families/B.h", KNOWN))

    def test_only_the_named_headers_of_preview_are_open_to_families(self):
        self.assertIsNone(check_include("families/B.cpp", "preview/CKvPePreviewAbleCtrlBase.h", KNOWN))
        self.assertIsNotNone(check_include("families/B.cpp", "preview/P.h", KNOWN))

    def test_palette_sees_the_interfaces_but_no_class_of_the_module(self):
        self.assertIsNone(check_include("palette/Row.cpp", "KvPEXCtl_h.h", KNOWN))
        self.assertIsNotNone(check_include("palette/Row.cpp", "core/A.h", KNOWN))

    def test_host_never_sees_the_module(self):
        self.assertIsNotNone(check_include("refhost/H.cpp", "core/A.h", KNOWN))
        self.assertIsNotNone(check_include("refhost/H.cpp", "KvPEXCtl_h.h", KNOWN))

    def test_relative_include_is_refused(self):
        self.assertIn("path from the root", check_include("core/A.cpp", "A.h", KNOWN))

    def test_tests_may_include_all(self):
        self.assertIsNone(check_include("tests/unit/X_test.cpp", "families/B.h", KNOWN))

    def test_a_project_of_its_own_includes_its_headers_by_name(self):
        header = "tests/extension/plugin/UnitEditor.h"
        self.assertIsNone(check_include("tests/extension/plugin/Module.cpp", "UnitEditor.h", KNOWN | {header}))
        self.assertIsNotNone(check_include("tests/extension/X_test.cpp", "UnitEditor.h", KNOWN | {header}))
        self.assertIsNotNone(check_include("tests/extension/plugin/Module.cpp", "Absent.h", KNOWN | {header}))


class CheckStyle(unittest.TestCase):
    def test_clean_header_has_no_complaint(self):
        self.assertEqual(complaints_about("core/A.h", "#pragma once\nint Unspecified();\n"), [])

    def test_unwanted_word_is_found_with_its_line(self):
        self.assertEqual(complaints_about("core/A.cpp", "int a;\n// TO" "DO\n")[0][0], 2)

    def test_paths_of_one_machine_are_found(self):
        for folder in ("/wo" "rk/a", "/t" "mp/a", "/ro" "ot/a", "Z:/ho" "me/a"):
            self.assertEqual(len(complaints_about("docs/a.md", f"see {folder}\n")), 1, folder)
        for path in ("build/tmp/a", "~/kit", "$HOME/kit", "-I/root -O1"):
            self.assertEqual(complaints_about("docs/a.md", f"see {path}\n"), [], path)

    def test_folder_that_every_build_watches_is_found(self):
        self.assertEqual(len(complaints_about("x/CMakeLists.txt", "file(GLOB a CONFIGURE_" "DEPENDS *.bmp)\n")), 1)
        self.assertEqual(complaints_about("x/CMakeLists.txt", "file(GLOB a ${KV_WATCH_FOLDERS} *.bmp)\n"), [])

    def test_page_that_is_not_listed_is_found(self):
        paths = ["README.md", "docs/README.md", "docs/a.md", "docs/adr/b.md", "docs/c.md"]
        self.assertEqual(pages_not_listed(paths, "[a](a.md), [b](adr/b.md)"), ["docs/c.md"])

    def test_long_header_and_missing_pragma_are_found(self):
        self.assertEqual(len(complaints_about("core/A.h", "\n" * 251)), 2)

    def test_source_that_includes_something_before_its_own_header_is_found(self):
        source = "tests/support/LeakCheck.cpp"
        first = '#include "tests/support/LeakCheck.h"\n'
        self.assertEqual(complaints_about(source, first), [])
        self.assertEqual(len(complaints_about(source, '#include "framework/base/Export.h"\n' + first)), 1)

    def test_a_project_of_its_own_names_its_header_without_a_folder(self):
        source = "tests/extension/plugin/UnitEditor.cpp"
        self.assertEqual(complaints_about(source, '#include "UnitEditor.h"\n'), [])
        self.assertEqual(len(complaints_about(source, '#include "tests/extension/plugin/UnitEditor.h"\n')), 1)


class ClassPage(unittest.TestCase):
    READY = 'KVPE_CLASS(Row, 16, "E631D337-7F88", CRow, READY,\n           "Row Class", (IOne, ITwo))\n'
    LATER = 'KVPE_CLASS(Other, 17, "7C21FF74-D9D0", COther, LATER,\n           "Other Class", ())\n'
    HEADERS = {"CRow": ("lists/CRow.h", "/// A row: it has\n/// two lines. More.\nclass KVPEX_API CRow final : public B {\n")}

    def test_page_tells_of_each_class(self):
        text = page(classes_in(self.READY + self.LATER), self.HEADERS)
        self.assertIn("| `Row` | A row: it has two lines. | `IOne`, `ITwo` | `lists/CRow.h` |\n", text)
        self.assertIn("| `Other` |  |\n", text)
        self.assertIn("| `KvPEXCtl.Other.17` | `7C21FF74-D9D0` |\n", text)

    def test_row_of_another_shape_and_class_without_comment_are_found(self):
        with self.assertRaises(ValueError):
            classes_in(self.READY.replace("READY", "SOON"))
        with self.assertRaises(ValueError):
            page(classes_in(self.READY), {"CRow": ("lists/CRow.h", "class CRow final {\n")})


class Lint(unittest.TestCase):
    def test_key_of_a_source_covers_the_headers_it_reaches(self):
        self.assertIn("tests/support/MessagePump.h", included_files("tests/support/LeakCheck.cpp"))

    def test_options_are_alike_for_the_sources_of_a_target(self):
        command = "/bin/g++ -DA -I/root -std=c++20 -Winvalid-pch -include /b/cmake_pch.hxx -MD -MT {0}.obj -MF {0}.d -o {0}.obj -c {0}"
        self.assertEqual(options_of(command.format("/a.cpp")), "-DA -I/root -std=c++20")
        self.assertEqual(options_of(command.format("/b.cpp")), options_of(command.format("/a.cpp")))

    def test_every_source_is_in_one_batch_with_its_likes(self):
        work = {f"{number}.cpp": ("odd" if number % 2 else "even", "key") for number in range(50)}
        batches = batches_of(work)
        self.assertEqual(sorted(path for paths, _ in batches for path in paths), sorted(work))
        for paths, options in batches:
            self.assertLessEqual(len(paths), SOURCES_AT_ONCE)
            self.assertEqual({work[path][0] for path in paths}, {options})


if __name__ == "__main__":
    unittest.main()
