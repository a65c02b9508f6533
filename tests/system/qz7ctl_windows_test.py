#!/usr/bin/env python3
"""Names and texts of every script in the console program for Windows:
qz7ctl_windows_test.py WINDOWS_PROGRAMS"""
import os
import signal
import subprocess
import sys
import unittest

from qz7 import SystemTest, fields, run_to_its_end

FOLDER = "Žluťoučký кот 日本"
DOCUMENT = FOLDER + "/кот 日本.rdf"


class RunToItsEnd(unittest.TestCase):
    def test_does_not_wait_for_what_the_program_has_left_running(self):
        status, told, _ = run_to_its_end(["sh", "-c", "sleep 1000 & echo $!"])
        os.kill(int(told), signal.SIGTERM)
        self.assertEqual(0, status)


class WindowsConsole(SystemTest):
    def setUp(self):
        super().setUp()
        os.mkdir(self.path(FOLDER))

    def ctl(self, *arguments):
        return run_to_its_end(
            ["wine", os.path.join(self.programs, "qz7ctl.exe"), *arguments], cwd=self.folder,
            stdin=subprocess.DEVNULL, env=dict(os.environ, LC_ALL="C.UTF-8"))

    def test_a_name_and_a_comment_are_set_as_they_are_typed_and_shown_as_they_were(self):
        self.ok("new", "a.rdf")
        self.ok("set", "a.rdf", "b.rdf", "5", "rx=145.5", "name=Straße", "comment=Ž±š “Köln”")
        told = fields(self.ok("show", "b.rdf", "5"))
        self.assertEqual(("Straße", "Ž±š “Köln”"), (told["name"], told["comment"]))
        self.assertIn(b"Stra\xdfe", self.read_bytes("b.rdf"))

    def test_a_character_without_a_byte_is_named(self):
        self.ok("new", "a.rdf")
        for value, unknown in (("Žluťoučký", "ť"), ("кот", "к"), ("日本", "日")):
            status, out, err = self.ctl("set", "a.rdf", "b.rdf", "5", "rx=145.5", "name=" + value)
            self.assertEqual((1, ""), (status, out))
            self.assertEqual(f'name: the radio\'s texts have no character "{unknown}"\n',
                             err.replace("\r", ""))
        self.assertEqual([FOLDER, "a.rdf"], sorted(os.listdir(self.folder), reverse=True))

    def test_files_lie_in_a_folder_of_any_script(self):
        self.ok("new", DOCUMENT)
        self.ok("set", DOCUMENT, FOLDER + "/Straße.rdf", "5", "rx=145.5")
        self.assertEqual({"кот 日本.rdf", "Straße.rdf"}, set(os.listdir(self.path(FOLDER))))
        self.ok("export", FOLDER + "/Straße.rdf", FOLDER + "/список.csv")
        self.ok("import", DOCUMENT, FOLDER + "/список.csv", FOLDER + "/čtení.rdf", "--headers")
        self.ok("merge", DOCUMENT, FOLDER + "/Straße.rdf", FOLDER + "/日本.rdf")
        self.assertEqual(1, self.ctl("diff", DOCUMENT, FOLDER + "/日本.rdf")[0])
        for name in ("čtení.rdf", "日本.rdf"):
            self.assertEqual("ok", fields(self.ok("info", f"{FOLDER}/{name}"))["check-length"])

    def test_an_existing_file_is_seen_and_named(self):
        self.ok("new", DOCUMENT)
        status, _, err = self.ctl("new", DOCUMENT)
        self.assertEqual((1, "The file is there already; --yes replaces it:\n" + DOCUMENT + "\n"),
                         (status, err.replace("\r", "")))
        self.ok("set", DOCUMENT, DOCUMENT, "5", "rx=145.5")

    def test_messages_name_the_file_as_it_was_given(self):
        missing = FOLDER + "/není 日本.rdf"
        status, _, err = self.ctl("rows", missing)
        self.assertEqual((1, "Cannot open file:\n" + missing + "\n"),
                         (status, err.replace("\r", "")))

    def test_a_path_may_be_longer_than_260_characters(self):
        folder = "/".join([FOLDER] + [letter * 90 for letter in "abc"])
        os.makedirs(self.path(folder))
        self.ok("new", folder + "/a.rdf")
        self.ok("set", folder + "/a.rdf", folder + "/a.rdf", "5", "rx=145.5")
        self.assertEqual(["a.rdf"], os.listdir(self.path(folder)))


if __name__ == "__main__":
    if len(sys.argv) < 2:
        sys.exit("usage: " + sys.argv[0] + " WINDOWS_PROGRAMS")
    SystemTest.programs = os.path.abspath(sys.argv.pop(1))
    unittest.main()
