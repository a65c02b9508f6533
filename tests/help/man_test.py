"""The manual pages name every command and every option of the programs, and no others."""
import os
import re
import shutil
import subprocess
import unittest

from support import built, read_built

OPTION = r"(?<![\w-])--[a-z][a-z-]*"


def manual(name):
    """A page's text as a reader sees it, in one long line a paragraph."""
    text = read_built(f"{name}.1").decode("ascii")
    text = re.sub(r"\\f[BR]|\\[&:]", "", text)
    return text.replace("\\-", "-").replace("\\e", "\\").replace("\\(aq", "'")


def sections(name):
    """{section: its text}."""
    pieces = re.split(r'^\.SH "?([^"\n]+)"?$', manual(name), flags=re.MULTILINE)
    return dict(zip(pieces[1::2], pieces[2::2]))


def entries(text):
    """The (tag, text) of the tagged paragraphs."""
    return re.findall(r"^\.TP\n(.+)\n((?:[^.].*\n)*)", text, re.MULTILINE)


def option_lines(text):
    """The lines of a program's help that begin with an option."""
    return "\n".join(re.findall(r"^  (-\S+)", text, re.MULTILINE))


def told(program, *arguments):
    path = os.path.join(built["programs"], program)
    return subprocess.run([path, *arguments, "--help"], capture_output=True, text=True,
                          check=True).stdout


def commands():
    listed = told("qz7ctl").partition("Subcommands:")[2]
    return re.findall(r"^  ([a-z]\S*)", listed, re.MULTILINE)


class Pages(unittest.TestCase):
    def test_have_the_usual_sections(self):
        for name in ("qz7ctl", "qz7radio"):
            with self.subTest(name):
                found = list(sections(name))
                self.assertEqual(found[:3], ["NAME", "SYNOPSIS", "DESCRIPTION"])
                self.assertIn("OPTIONS", found)
                self.assertIn("EXIT STATUS", found)

    @unittest.skipUnless(shutil.which("mandoc"), "mandoc is not installed")
    def test_a_checker_of_manuals_finds_nothing(self):
        for name in ("qz7ctl", "qz7radio"):
            with self.subTest(name):
                result = subprocess.run(["mandoc", "-Tlint", "-Wwarning"], capture_output=True,
                                        input=read_built(f"{name}.1"), check=False)
                self.assertEqual(result.stdout.decode(), "")

    @unittest.skipUnless(shutil.which("groff"), "groff is not installed")
    def test_the_formatter_warns_of_nothing(self):
        for name in ("qz7ctl", "qz7radio"):
            with self.subTest(name):
                result = subprocess.run(["groff", "-t", "-man", "-ww", "-Tutf8", "-z"],
                                        capture_output=True, input=read_built(f"{name}.1"),
                                        check=False)
                self.assertEqual(result.stderr.decode(), "")


class Options(unittest.TestCase):
    def setUp(self):
        if built["programs"] is None:
            self.skipTest("the programs are not there")

    def test_the_commands_of_the_console_program_are_those_of_its_page(self):
        self.assertGreater(len(commands()), 10)
        tags = [tag.split()[0] for tag, _ in entries(sections("qz7ctl")["COMMANDS"])]
        self.assertEqual(tags, commands())

    def test_the_arguments_of_each_command_are_those_of_the_page(self):
        for tag, _ in entries(sections("qz7ctl")["COMMANDS"]):
            command, *arguments = tag.split()
            usage = re.search(r"Usage: \S+ \S+ \[OPTIONS\](.*)", told("qz7ctl", command)).group(1)
            with self.subTest(command):
                self.assertEqual([argument.strip("[].") for argument in usage.split()],
                                 [argument.strip("[].") for argument in arguments])

    def test_the_options_of_each_command_are_those_of_the_page(self):
        everywhere, *parts = re.split(r'^\.SS "(.+)"$', sections("qz7ctl")["OPTIONS"],
                                      flags=re.MULTILINE)
        page = {command: set() for command in commands()}
        for title, text in zip(parts[::2], parts[1::2]):
            for tag, meaning in entries(text):
                only = re.match(r"(\w+) only\b", meaning)
                for command in [only.group(1)] if only else re.split(r", | and ", title):
                    page[command] |= set(re.findall(OPTION, tag))
        for command in commands():
            with self.subTest(command):
                self.assertEqual(page[command] | {"--help"},
                                 set(re.findall(OPTION, option_lines(told("qz7ctl", command)))))
        self.assertEqual(set(re.findall(OPTION, everywhere)),
                         set(re.findall(OPTION, option_lines(told("qz7ctl")))))

    def test_the_options_of_the_stand_in_radio_are_those_of_its_page(self):
        found = {option for tag, _ in entries(sections("qz7radio")["OPTIONS"])
                 for option in re.findall(OPTION, tag)}
        self.assertEqual(found, set(re.findall(OPTION, told("qz7radio"))))

    def test_no_other_option_is_mentioned_anywhere(self):
        known = set(re.findall(OPTION, told("qz7radio") + told("qz7ctl")))
        for command in commands():
            known |= set(re.findall(OPTION, told("qz7ctl", command)))
        for name in ("qz7ctl", "qz7radio"):
            self.assertEqual(set(re.findall(OPTION, manual(name))) - known, set())

    def test_every_fault_of_the_stand_in_radio_is_told(self):
        faults = re.findall(r"^  ([a-z-]+)(?:@POS)? ", told("qz7radio").partition("Faults;")[2],
                            re.MULTILINE)
        self.assertGreater(len(faults), 8)
        for fault in faults:
            with self.subTest(fault):
                self.assertTrue(re.search(rf"(?<![\w-]){fault}(?![\w-])", manual("qz7radio")))
