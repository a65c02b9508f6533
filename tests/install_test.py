#!/usr/bin/env python3
"""install_test.py BUILD_TREE [RUNNER]: what `cmake --install` puts into a folder.

RUNNER starts a program of the tree's target: "wine" for a tree for Windows.
"""
import os
import subprocess
import sys
import tempfile
import unittest

TOP = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))
sys.path.insert(0, os.path.join(TOP, "tests", "system"))

from qz7 import run_to_its_end

TREE = os.path.abspath(sys.argv.pop(1))
RUNNER = [sys.argv.pop(1)] if len(sys.argv) > 1 else []

SAMPLES = set(os.listdir(os.path.join(TOP, "samples")))
LINUX = {"bin/qz7ctl", "bin/qz7radio", "share/man/man1/qz7ctl.1", "share/man/man1/qz7radio.1",
         "share/bash-completion/completions/qz7ctl", "share/zsh/site-functions/_qz7ctl",
         "share/fish/vendor_completions.d/qz7ctl.fish", "share/qz7/codeplug.schema.json",
         *("share/doc/qz7/" + name
           for name in ("CHANGELOG.md", "README.md", "changelog", "copyright"))}
WINDOWS = {"qz7.exe", "qz732.dll", "qz7.fon", "qz7.hlp", "qz7ctl.exe",
           "codeplug.schema.json", "LICENSE", "CHANGES.txt"}
TOPICS = {os.path.splitext(name)[0] for name in os.listdir(os.path.join(TOP, "help"))
          if name.endswith(".md")}
PAGES = {*(f"help/{name}.html" for name in {*TOPICS, "search"}),
         *("help/" + name for name in ("help.css", "search.js", "search_index.js"))}


def installed_files(folder):
    return {os.path.relpath(os.path.join(root, name), folder)
            for root, _, names in os.walk(folder) for name in names}


class Installed(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        folder = tempfile.TemporaryDirectory()
        cls.addClassCleanup(folder.cleanup)
        cls.folder = folder.name
        subprocess.run(["cmake", "--install", TREE, "--prefix", cls.folder], check=True,
                       capture_output=True)

    def test_every_file_and_no_other(self):
        expected = ({*WINDOWS, *PAGES, *("samples/" + name for name in SAMPLES)} if RUNNER else
                    {*LINUX, *("share/qz7/samples/" + name for name in SAMPLES)})
        self.assertEqual(installed_files(self.folder), expected)

    def test_the_console_program_runs_from_there(self):
        program = "qz7ctl.exe" if RUNNER else "bin/qz7ctl"
        status, told, errors = run_to_its_end(
            [*RUNNER, os.path.join(self.folder, program), "--version"], cwd="/")
        self.assertEqual(0, status, errors)
        self.assertRegex(told.strip(), r"^qz7ctl \d+\.\d+\.\d+$")


if __name__ == "__main__":
    unittest.main()
