#!/usr/bin/env python3
"""version_test.py BUILD_TREE [RUNNER]: everything that names the version names the project's.

RUNNER starts a program of the tree's target: "wine" for a tree for Windows.
"""
import os
import re
import struct
import sys
import unittest

TOP = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))
sys.path.insert(0, os.path.join(TOP, "tests", "system"))

from qz7 import run_to_its_end

PROGRAMS = os.path.join(os.path.abspath(sys.argv.pop(1)), "bin")
RUNNER = [sys.argv.pop(1)] if len(sys.argv) > 1 else []
FIXED_SIGNATURE = struct.pack("<I", 0xFEEF04BD)


def read(*path):
    with open(os.path.join(TOP, *path), "rb") as file:
        return file.read()


def first(pattern, text):
    found = re.search(pattern, text, re.MULTILINE)
    return found and found.group(1)


def project_version():
    return first(r"^project\(.*VERSION (\S+)", read("CMakeLists.txt").decode())


def told_by(name):
    status, told, errors = run_to_its_end([*RUNNER, os.path.join(PROGRAMS, name), "--version"])
    return told.strip() if status == 0 else f"{status}: {errors}"


def record_of(program):
    """(the four numbers of the file and of the product, the record's texts)."""
    place = program.index(FIXED_SIGNATURE)
    fixed = struct.unpack_from("<2I4I", program, place)[2:]
    numbers = [(part >> 16, part & 0xFFFF) for part in fixed]
    texts = program[place + 52:place + 2000].decode("utf-16-le", "replace")
    return numbers[:2], numbers[2:], dict(
        re.findall(r"(FileVersion|ProductVersion|OriginalFilename)\0+([ -~]+)\0", texts))


class Version(unittest.TestCase):
    version = project_version()

    def test_is_one_of_three_numbers(self):
        self.assertRegex(self.version, r"^\d+\.\d+\.\d+$")

    def test_is_the_newest_of_the_changes(self):
        self.assertEqual(first(r"^## (\S+)$", read("CHANGELOG.md").decode()), self.version)

    def test_is_that_of_the_packages_in_the_readme(self):
        named = re.findall(r"qz7[-_][a-z-]*(\d+\.\d+\.\d+)", read("README.md").decode())
        self.assertEqual(named, [self.version] * 3)

    def test_stands_in_the_help(self):
        for name in ("qz7.hlp", os.path.join("help", "contents.html")):
            with self.subTest(name):
                self.assertIn(f"QZ-7H Programmer Help {self.version}".encode("ascii"),
                              read(PROGRAMS, name))

    def test_is_told_by_the_console_program(self):
        self.assertEqual(told_by("qz7ctl.exe" if RUNNER else "qz7ctl"), "qz7ctl " + self.version)

    @unittest.skipIf(RUNNER, "it is a program for Linux")
    def test_is_told_by_the_stand_in_radio(self):
        self.assertEqual(told_by("qz7radio"), "qz7radio " + self.version)

    @unittest.skipIf(RUNNER, "they are installed on Linux")
    def test_stands_at_the_foot_of_the_manual_pages(self):
        for name in ("qz7ctl", "qz7radio"):
            page = read(PROGRAMS, name + ".1").decode("ascii")
            self.assertEqual(first(r'^\.TH .* "QZ-7H Programmer ([0-9.]+)"', page), self.version)

    @unittest.skipUnless(RUNNER, "programs for Linux have no record")
    def test_stands_in_the_record_of_every_program_for_windows(self):
        expected = [*map(int, self.version.split(".")), 0]
        for name in ("qz7.exe", "qz7ctl.exe"):
            with self.subTest(name):
                file_numbers, product_numbers, texts = record_of(read(PROGRAMS, name))
                self.assertEqual([*sum(file_numbers, ())], expected)
                self.assertEqual([*sum(product_numbers, ())], expected)
                self.assertEqual(texts, {"FileVersion": self.version,
                                         "ProductVersion": self.version,
                                         "OriginalFilename": name})

    @unittest.skipUnless(RUNNER, "programs for Linux have no manifest")
    def test_stands_in_the_manifest(self):
        self.assertEqual(first(r'name="Tamro.QZ7HProgrammer" version="(\S+)\.0"',
                               read(PROGRAMS, "qz7.exe").decode("latin-1")), self.version)


if __name__ == "__main__":
    unittest.main()
