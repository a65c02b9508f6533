#!/usr/bin/env python3
"""The schema of the document as JSON: codeplug_schema_test.py FOLDER_OF_THE_PROGRAMS"""
import json
import os
import random
import sys
import unittest

from jsonschema import Draft202012Validator

from qz7 import SystemTest, patched

TOP = os.path.dirname(os.path.dirname(os.path.dirname(os.path.abspath(__file__))))

# A codeplug that is right, value by value, and what would be wrong in each value's place.
RIGHT = {
    "document": {"comment": "Club"},
    "identity": {"version-type": "0"},
    "channels": {"12": {"rx": "145.5", "shift": "plus", "offset": "600 kHz", "tone": "88.5",
                        "name": "HARBOUR", "icon": "26", "skip": "on",
                        "other": {"kept": "80ffffF0"}}, "13": None},
    "pms": {"L1": {"rx": "144", "shift": "split", "tx": "433.1"}},
    "vfo-a": {"V Ham": {"rx": "145.5"}},
    "home": {"FM": {"rx": "100.5", "name": "MUSIC"}},
    "groups": {"1": "12 L1"},
    "settings": {"lamp": "Key", "number-a": "123", "time-of-day": "02:10"},
    "vorn": {"vorn-identifier": "QZ7"},
    "autodial": {"autodial-1": "555-1234"},
    "wx-names": {"wx-name-1": "Storm"},
    "icons": {"icon-15": "ZZ"},
    "other": {"10300": "00ff"},
}
WRONG = {
    "documents": {}, "document/comments": "", "document/comment": "x" * 81,
    "identity/version-type": "256", "identity/wide-coverage": 1,
    "channels": [], "channels/0": {}, "channels/221": {}, "channels/L1": {}, "channels/12": "x",
    "channels/12/rx": "high", "channels/12/tx": None, "channels/12/shift": "",
    "channels/12/offset": "far", "channels/12/tone": "88", "channels/12/dcs": "24",
    "channels/12/mode": "FM", "channels/12/power": "Mid", "channels/12/step": "7 kHz",
    "channels/12/name": "NINE CHAR", "channels/12/icon": "64", "channels/12/skip": "yes",
    "channels/12/colour": "red", "channels/12/other/kept": "80ffff", "channels/12/other/bits": "0",
    "pms/L11": {}, "vfo-a/Marine": {}, "vfo-b/MW/name": "", "home/MW/skip": "on", "home/MW": None,
    "groups/6": "", "groups/1": "twelve", "settings/lamp": "Off", "settings/bell": None,
    "settings/number-a": "123456", "settings/time-of-day": "2:10", "settings/color": "x",
    "vorn/vorn-identifier": "x" * 17, "autodial/autodial-10": "1", "wx-names/wx-name-1": "x" * 9,
    "icons/icon-16": "A", "icons/icon-1": "AA", "other/21x": "00", "other/3100": "0",
}


def put(tree, place, value):
    name, _, rest = place.partition("/")
    if rest:
        child = tree.get(name)
        put(tree.setdefault(name, {}) if isinstance(child, dict) or child is None else child,
            rest, value)
    else:
        tree[name] = value


class Schema(SystemTest):
    def setUp(self):
        super().setUp()
        with open(os.path.join(TOP, "docs", "codeplug.schema.json"), encoding="utf-8") as file:
            self.text = file.read()
        self.validator = Draft202012Validator(json.loads(self.text))

    def errors(self, tree):
        return [f"{list(error.path)}: {error.message}"[:200]
                for error in self.validator.iter_errors(tree)]

    def build(self, tree):
        return self.ctl("build", "-", "b.rdf", "--yes", stdin=json.dumps(tree).encode())

    def test_the_committed_file_is_what_the_program_prints(self):
        self.assertEqual(self.text, self.ok("schema"))

    def test_it_is_a_schema(self):
        Draft202012Validator.check_schema(json.loads(self.text))

    def test_a_dump_of_any_document_is_valid(self):
        dice = random.Random(11)
        self.ok("new", "a.rdf")
        new = self.read_bytes("a.rdf")
        self.assertEqual(self.errors(json.loads(self.ok("dump", "a.rdf"))), [])
        for _ in range(6):
            changes = {at: dice.randrange(256) for at in [*range(16, 56), *range(100, len(new))]}
            self.write_bytes("a.rdf", patched(new, changes))
            self.assertEqual(self.errors(json.loads(self.ok("dump", "a.rdf"))), [])

    def test_it_takes_what_build_takes(self):
        self.assertEqual(self.errors(RIGHT), [])
        self.assertEqual(self.build(RIGHT)[2], "")

    def test_neither_takes_what_is_wrong(self):
        for place, value in WRONG.items():
            with self.subTest(place):
                tree = json.loads(json.dumps(RIGHT))
                put(tree, place, value)
                self.assertNotEqual(self.errors(tree), [])
                status, _, err = self.build(tree)
                self.assertEqual(status, 1)
                self.assertIn(place.split("/")[0], err)

    def test_every_value_of_a_dump_is_described(self):
        self.ok("new", "a.rdf")
        tree = json.loads(self.ok("dump", "a.rdf"))
        described = json.loads(self.text)["properties"]
        self.assertLessEqual(set(tree), set(described))
        for part in ("document", "identity", "groups", "settings", "vorn", "autodial", "wx-names",
                     "icons"):
            self.assertEqual(list(tree[part]), list(described[part]["properties"]))


if __name__ == "__main__":
    SystemTest.programs = sys.argv.pop(1)
    unittest.main()
