#!/usr/bin/env python3
"""The zip for Windows: it starts where it is unpacked and leaves nothing but what the user made.

zip_test.py DIST WINDOWS_PROGRAMS NATIVE_PROGRAMS
"""
import os
import shutil

import support
from support import OTHER_LETTERS, PackageTest, files_below


class Zip(PackageTest):
    def setUp(self):
        super().setUp()
        self.unpacked = self.path(OTHER_LETTERS)
        with support.unpacked_zip() as folder:
            shutil.copytree(folder, self.unpacked)

    def test_has_the_programs_help_and_samples(self):
        files = files_below(self.unpacked)
        self.assertLessEqual({"qz7.exe", "qz732.dll", "qz7.fon", "qz7.hlp", "qz7ctl.exe", "LICENSE",
                              "CHANGES.txt", "samples/journey.tpe"}, files)
        self.assertIn(True, {name.endswith(".html") for name in files})

    def test_its_programs_ask_for_nothing_beyond_windows_7(self):
        programs = [name for name in files_below(self.unpacked) if name.endswith((".exe", ".dll"))]
        self.assertEqual(len(programs), 3)
        for name in programs:
            with self.subTest(name):
                self.assert_needs_windows_7_only(os.path.join(self.unpacked, name))

    def files_of_the_system(self):
        return files_below(os.path.join(self.desktop.prefix, "drive_c"))

    def test_starts_from_a_folder_of_any_name_and_opens_a_document_there(self):
        self.make_document("hill.rdf", comment="on the hill")
        name = os.path.join(OTHER_LETTERS, OTHER_LETTERS + ".rdf")
        os.rename(self.path("hill.rdf"), self.path(name))
        before = files_below(self.folder), self.files_of_the_system()
        self.start_program(self.windows_path(OTHER_LETTERS, OTHER_LETTERS + ".rdf"),
                           program=os.path.join(self.unpacked, "qz7.exe"))
        self.assert_shows("on the hill")
        self.leave_and_wait()
        self.assertEqual(before, (files_below(self.folder), self.files_of_the_system()))

    def test_its_console_program_runs_there(self):
        told = self.wine(os.path.join(self.unpacked, "qz7ctl.exe"), "--version")
        self.assertEqual("qz7ctl " + support.version(), told.strip())


if __name__ == "__main__":
    support.main()
