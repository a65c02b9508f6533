#!/usr/bin/env python3
"""What the shells complete, and what guides a user: completion_test.py FOLDER_OF_THE_PROGRAMS"""
import os
import pty
import re
import select
import shutil
import subprocess
import sys
import time
import unittest

from qz7 import LIMIT, SystemTest


class Guidance(SystemTest):
    def commands(self):
        listed = self.ok("--help").partition("Subcommands:")[2]
        return re.findall(r"^  ([a-z]\S*)", listed, re.MULTILINE)

    def test_the_program_alone_is_wrong_usage_and_lists_its_commands(self):
        self.assertEqual(self.ctl(), (2, "", self.ok("--help")))

    def test_help_explains_a_command(self):
        self.assertEqual(self.ok("help"), self.ok("--help"))
        self.assertEqual(self.ok("help", "show"), self.ok("show", "--help"))

    def test_a_wrong_name_is_answered_with_the_nearest_one(self):
        for wrong, right in (("shwo", "show"), ("buld", "build"), ("imports", "import"),
                             ("tempalte", "template"), ("ros", "rows")):
            for arguments in ([wrong], ["help", wrong]):
                status, out, err = self.ctl(*arguments)
                self.assertEqual((status, out), (2, ""))
                self.assertIn(f'there is no command "{wrong}"; do you mean "{right}"?\n', err)

    def test_what_is_like_no_command_is_answered_with_none(self):
        self.assertTrue(self.ctl("xyzzyx")[2].startswith('qz7ctl: there is no command "xyzzyx"\n'))

    def test_the_help_of_each_command_ends_with_an_example_of_it(self):
        self.assertGreater(len(self.commands()), 15)
        for command in self.commands():
            with self.subTest(command):
                example = self.ok(command, "--help").rstrip("\n").splitlines()[-2:]
                self.assertEqual(example[0], "Example:")
                self.assertTrue(example[1].startswith(f"  qz7ctl {command} "
                                                      if command not in ("ports",)
                                                      else "  qz7ctl ports"))

    def test_hidden_commands_are_not_listed(self):
        self.assertEqual({"schema", "completion"} & set(self.commands()), set())


class Shell(SystemTest):
    """Each shell completes a line; a test of all of them is a class of its own."""

    def setUp(self):
        super().setUp()
        for shell in ("bash", "zsh", "fish"):
            name = {"zsh": "_qz7ctl"}.get(shell, f"qz7ctl.{shell}")
            self.write_bytes(name, self.ok("completion", shell).encode())
        for name in ("memory.rdf", "a file.rdf"):
            self.write_bytes(name, b"")
        self.environment = {**os.environ, "PATH": self.programs + ":" + os.environ["PATH"],
                            "HOME": self.folder, "TERM": "dumb"}

    def run_shell(self, *words):
        return subprocess.run(words, cwd=self.folder, env=self.environment, check=True,
                              capture_output=True, text=True, timeout=LIMIT).stdout.splitlines()

    EXPECTED = {
        ("sh",): ["show"],
        ("re",): ["read"],
        ("help", "di"): ["diff"],
        ("read", "--co"): ["--compare"],
        ("show", "me"): ["memory.rdf"],
        ("show", "--js"): ["--json"],
        ("write", "--template", "me"): ["memory.rdf"],
        ("set", "memory.rdf", "b.rdf", "5", "na"): ["name="],
        ("set", "memory.rdf", "b.rdf", "5", "rx=1", "tone-"): ["tone-mode="],
        ("move", "memory.rdf", "b.rdf", "in"): ["insert"],
        ("import", "memory.rdf", "a"): ["a file.rdf"],
        ("schem",): [],
        ("wrong", "x"): [],
    }


@unittest.skipUnless(shutil.which("bash"), "bash is not installed")
class Bash(Shell):
    def complete(self, *words):
        script = ('source ./qz7ctl.bash; COMP_WORDS=(qz7ctl "$@"); COMP_CWORD=$#; _qz7ctl; '
                  '((${#COMPREPLY[@]})) && printf "%s\\n" "${COMPREPLY[@]}"; true')
        return self.run_shell("bash", "--norc", "-c", script, "bash", *words)

    def test_completes_words_and_files(self):
        for words, expected in self.EXPECTED.items():
            with self.subTest(words):
                self.assertEqual(self.complete(*words), expected)

    def test_completes_the_names_of_ports(self):
        ports = [line.split("\t")[0] for line in self.ok("ports").splitlines()]
        self.assertEqual(self.complete("read", "--port", ""), ports)

    def test_offers_every_command_and_every_option(self):
        self.assertIn("apply", self.complete(""))
        self.assertEqual(set(self.complete("build", "--")), {"--help", "--yes", "--base"})
        self.assertEqual(set(self.complete("build", "--yes", "--")), {"--help", "--base"})


@unittest.skipUnless(shutil.which("fish"), "fish is not installed")
class Fish(Shell):
    def test_completes_words_and_files(self):
        for words, expected in self.EXPECTED.items():
            line = " ".join(["qz7ctl", *words])
            with self.subTest(line):
                told = self.run_shell("fish", "--no-config", "-c",
                                      f"source ./qz7ctl.fish; complete -C '{line}'")
                self.assertEqual([text.split("\t")[0].replace("\\", "") for text in told], expected)


@unittest.skipUnless(shutil.which("zsh"), "zsh is not installed")
class Zsh(Shell):
    """The shell on a terminal of its own: only there it completes."""

    def setUp(self):
        super().setUp()
        child, self.terminal = pty.fork()
        if child == 0:
            os.chdir(self.folder)
            os.execvpe("zsh", ["zsh", "-f", "-i"], self.environment)
        self.addCleanup(os.waitpid, child, 0)
        self.addCleanup(os.close, self.terminal)
        self.type("unsetopt zle_bracketed_paste; PROMPT=; fpath=($PWD $fpath); bindkey -e; "
                  "autoload -U compinit; compinit -u -D; print -r REA''DY\n")
        self.wait("READY")

    def type(self, text):
        os.write(self.terminal, text.encode())

    def wait(self, text):
        shown = ""
        limit = time.monotonic() + LIMIT
        while text not in shown:
            if not select.select([self.terminal], [], [], limit - time.monotonic())[0]:
                raise AssertionError(f"{text!r} does not come: {shown!r}")
            shown += os.read(self.terminal, 4096).decode(errors="replace")

    def test_completes_words_and_files(self):
        for words, expected in self.EXPECTED.items():
            if expected:
                # What is completed is printed instead of run, one word a line.
                self.type(" ".join(["qz7ctl", *words]) + "\t")
                self.type("\x01print -rl -- \x05 EN''D\n")
                self.wait(f"\n{expected[0]}\r\nEND")


if __name__ == "__main__":
    SystemTest.programs = os.path.abspath(sys.argv.pop(1))
    unittest.main()
