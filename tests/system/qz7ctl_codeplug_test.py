#!/usr/bin/env python3
"""The document as JSON, from outside: qz7ctl_codeplug_test.py FOLDER_OF_THE_PROGRAMS"""
import json
import os
import random
import shutil
import subprocess
import sys
import unittest

from qz7 import SystemTest, patched

HEADER_KEPT = [*range(8, 12), *range(16, 56), *range(58, 80), *range(100, 180)]


def without_filler(image):
    return image[:82] + bytes(18) + image[100:]


class Codeplug(SystemTest):
    def new(self, name, changes=None):
        self.ok("new", name)
        self.write_bytes(name, patched(self.read_bytes(name), changes or {}))

    def dump(self, name):
        return json.loads(self.ok("dump", name))

    def apply(self, name, patch, out):
        return self.ctl("apply", name, "-", out, stdin=json.dumps(patch).encode())


class Dump(Codeplug):
    def test_every_value_stands_on_a_line_of_its_own(self):
        self.new("a.rdf")
        lines = self.ok("dump", "a.rdf").splitlines()
        self.assertEqual(lines[:4], ["{", '  "document": {', '    "comment": ""', "  },"])
        self.assertIn('      "rx": "145.0000",', lines)
        self.assertTrue(all(line.count('": "') <= 1 for line in lines))

    def test_the_same_document_gives_the_same_text(self):
        self.new("a.rdf")
        self.ok("dump", "a.rdf", "a.json")
        self.ok("build", "a.json", "b.rdf")
        self.assertEqual(self.ok("dump", "b.rdf"), self.read_bytes("a.json").decode())

    def test_text_is_utf_8(self):
        self.new("a.rdf", {100: 0xC4, 101: 0x80, 102: 0x01, 103: 0x81})
        text = self.ok("dump", "a.rdf")
        self.assertIn('"comment": "\u00c4\u20ac\\u0001\u0081"', text)

    def test_an_output_that_is_there_is_replaced_with_yes_only(self):
        self.new("a.rdf")
        self.write_bytes("a.json", b"mine")
        self.assertEqual(self.ctl("dump", "a.rdf", "a.json")[0], 1)
        self.assertEqual(self.ctl("dump", "a.rdf", "a.rdf")[0], 1)
        self.assertEqual(self.read_bytes("a.json"), b"mine")
        self.ok("dump", "a.rdf", "a.json", "--yes")
        self.assertIn("channels", json.loads(self.read_bytes("a.json")))


class Build(Codeplug):
    def test_documents_of_random_bytes_come_back(self):
        dice = random.Random(7)
        self.new("new.rdf")
        for _ in range(12):
            image = self.read_bytes("new.rdf")
            changes = {at: dice.randrange(256) for at in [*HEADER_KEPT, *range(180, len(image))]}
            changes[3358] |= 3  # without channel 1 the memory list would not save
            self.write_bytes("a.rdf", patched(image, changes))
            # What a save makes anew is made once, so that the rest can be compared.
            self.ok("move", "a.rdf", "a.rdf", "clear", "2")
            text = self.ok("dump", "a.rdf")
            self.ctl("build", "-", "b.rdf", "--yes", stdin=text.encode())
            self.assertEqual(without_filler(self.read_bytes("a.rdf")),
                             without_filler(self.read_bytes("b.rdf")))

    def test_a_file_of_the_first_version_comes_back_as_the_second(self):
        self.new("a.rdf", {8: 1, 10203: 2})
        self.ok("dump", "a.rdf", "a.json")
        self.ok("build", "a.json", "b.rdf")
        image = self.read_bytes("b.rdf")
        self.assertEqual((image[8], image[10203]), (2, 2))

    def test_what_is_not_named_comes_from_the_base(self):
        self.new("base.rdf", {10203: 2, 10200: 1})
        self.write_bytes("a.json", b'{"settings": {"lock": "All"}}')
        self.ok("build", "a.json", "b.rdf", "--base", "base.rdf")
        image = self.read_bytes("b.rdf")
        self.assertEqual((image[10203], image[10200]), (2, 6))
        self.ok("build", "a.json", "c.rdf")
        self.assertEqual(self.read_bytes("c.rdf")[10203], 0)

    def test_every_error_is_told_and_nothing_is_written(self):
        self.write_bytes("a.json", """{"channels": {"12": {"rx": 145.5, "name": "\u4e2d"},
            "500": {}, "1": {"tone": "1", "tone": "2", "deep": [[{"x": [1]}], 2]}},
            "colour": "red", "settings": {"lamp": true}}""".encode())
        status, out, err = self.ctl("build", "a.json", "b.rdf")
        self.assertEqual((status, out), (1, ""))
        lines = err.splitlines()
        self.assertEqual(lines[:5], [
            "channels/12/rx: a text is wanted",
            'channels/12/name: the radio\'s texts have no character "\u4e2d"',
            "channels/1/tone: it is named twice",
            "channels/1/deep: a text is wanted",
            "settings/lamp: a text is wanted"])
        self.assertIn("channels/500: there is no such channel", lines)
        self.assertIn("colour: there is no such value", lines)
        self.assertEqual(self.ctl("info", "b.rdf")[0], 1)

    def test_what_is_no_json_is_told_with_its_line(self):
        for text in (b'{"channels":\n  oops}', b"", b'{"a": "\xff"}', b"[" * 100000):
            self.write_bytes("a.json", text)
            status, _, err = self.ctl("build", "a.json", "b.rdf")
            self.assertEqual(status, 1)
            self.assertRegex(err, r"^a\.json: parse error at line \d+, column \d+")

    def test_a_file_that_is_not_there_is_told(self):
        status, _, err = self.ctl("build", "no.json", "b.rdf")
        self.assertEqual((status, err), (1, "Cannot open file:\nno.json\n"))

    def test_the_json_is_not_replaced_by_its_document(self):
        self.write_bytes("a.json", b"{}")
        self.assertEqual(self.ctl("build", "a.json", "a.json")[0], 1)
        self.assertEqual(self.read_bytes("a.json"), b"{}")


class Apply(Codeplug):
    def test_a_patch_changes_what_it_names(self):
        self.new("a.rdf", {11178: 0x55})
        self.ok("set", "a.rdf", "a.rdf", "13", "rx=145.5")
        status, _, err = self.apply("a.rdf", {"settings": {"lamp": "Key"}, "channels": {
            "12": {"rx": "146.5", "name": "H\u00c4FEN"}, "13": None}}, "a.rdf")
        self.assertEqual((status, err), (0, ""))
        tree = self.dump("a.rdf")
        self.assertEqual(tree["settings"]["lamp"], "Key")
        self.assertEqual(tree["channels"]["12"]["name"], "H\u00c4FEN")
        self.assertNotIn("13", tree["channels"])
        self.assertEqual(self.read_bytes("a.rdf")[11178], 0x55)

    def test_what_show_prints_a_patch_takes(self):
        self.new("a.rdf")
        self.ok("set", "a.rdf", "a.rdf", "5", "rx=145.3375", "shift=minus", "comment=x=y \u00b1")
        shown = self.ok("show", "a.rdf", "5")
        told = dict(line.split("=", 1) for line in shown.splitlines())
        tree = self.dump("a.rdf")
        self.assertEqual({**told, **tree["channels"]["5"]}, told)
        self.assertEqual(set(told) - set(tree["channels"]["5"]), {"tx"})

    def test_an_empty_patch_gives_the_same_document(self):
        self.new("a.rdf", {at: at % 251 for at in range(3100, 11182, 3)})
        self.ok("move", "a.rdf", "a.rdf", "clear", "2")
        self.assertEqual(self.apply("a.rdf", {}, "b.rdf")[0], 0)
        self.assertEqual(without_filler(self.read_bytes("a.rdf")),
                         without_filler(self.read_bytes("b.rdf")))

    def test_a_patch_that_is_no_object_is_refused(self):
        self.new("a.rdf")
        for patch in (None, "x", 1, []):
            self.assertEqual(self.apply("a.rdf", patch, "b.rdf")[0], 1, patch)


class Json(Codeplug):
    def setUp(self):
        super().setUp()
        self.new("a.rdf", {10450: 7})
        self.ok("set", "a.rdf", "a.rdf", "1", "comment=\u00b1")
        self.ok("set", "a.rdf", "b.rdf", "1", "shift=minus", "name=A\u00c4", "comment=", "tone=88.5",
                "tone-mode=Tone Encode")
        self.write_bytes("b.rdf", patched(self.read_bytes("b.rdf"), {10203: 2, 10450: 8}))

    def test_show_tells_the_fields(self):
        told = json.loads(self.ok("show", "b.rdf", "1", "--json"))
        lines = [f"{name}={value}" for name, value in told.items()]
        self.assertEqual(lines, self.ok("show", "b.rdf", "1").splitlines())

    def test_rows_tell_the_columns_by_name(self):
        rows = json.loads(self.ok("rows", "b.rdf", "--json"))
        self.assertEqual(len(rows), 240)
        self.assertEqual(rows[0], {"channel": "1", "rx": "145.0000", "shift": "-", "tone": "E",
                                   "skip": "", "masked": "", "power": "H", "name": "A\u00c4"})
        self.assertEqual((rows[1], rows[220]), ({"channel": "2"}, {"channel": "L1"}))

    def test_differences_are_told_one_by_one(self):
        status, out, _ = self.ctl("diff", "a.rdf", "b.rdf", "--json")
        told = json.loads(out)
        self.assertEqual(status, 1)
        self.assertEqual(len(told), len(self.ctl("diff", "a.rdf", "b.rdf")[1].splitlines()))
        self.assertIn({"what": "channel 1", "field": "comment", "a": "\u00b1", "b": ""}, told)
        self.assertIn({"what": "Lamp", "a": "5 Second", "b": "Toggle"}, told)
        self.assertIn({"what": "byte 10450", "a": "0x07", "b": "0x08"}, told)
        self.assertEqual(self.ctl("diff", "a.rdf", "a.rdf", "--json")[:2], (0, "[]\n"))


@unittest.skipUnless(shutil.which("git"), "git is not installed")
class VersionControl(Codeplug):
    def test_git_shows_what_has_changed_by_name(self):
        program = os.path.join(self.programs, "qz7ctl")

        def git(*arguments):
            return subprocess.run(["git", "-c", f"diff.qz7.textconv={program} dump", *arguments],
                                  cwd=self.folder, check=True, capture_output=True,
                                  text=True).stdout

        self.new("a.rdf")
        git("init", "-q")
        self.write_bytes(".gitattributes", b"*.rdf diff=qz7\n")
        git("add", "a.rdf")
        self.apply("a.rdf", {"settings": {"lamp": "Key"}}, "a.rdf")
        changed = [line for line in git("diff", "a.rdf").splitlines() if line[0] in "+-"]
        self.assertEqual(changed[2:], ['-    "lamp": "5 Second",', '+    "lamp": "Key",'])


if __name__ == "__main__":
    SystemTest.programs = sys.argv.pop(1)
    unittest.main()
