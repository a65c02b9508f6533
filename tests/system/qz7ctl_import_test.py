#!/usr/bin/env python3
"""Lists from outside: qz7ctl_import_test.py FOLDER_OF_THE_PROGRAMS"""
import json
import sys
import unittest

from qz7 import SystemTest

LIST = """RX Frequency,TX Frequency,Offset,Tone,Name,Town
146.94,,-,E,HILL,x
Call,,,,,
433.5,1500.5,,,"\u00c4RGER",
"""


class Doubts(SystemTest):
    def setUp(self):
        super().setUp()
        self.ok("new", "a.rdf")
        self.write_bytes("list.csv", b"\xef\xbb\xbf" + LIST.encode())

    EXPECTED = [
        'line 1: of these columns no field is known: "Town"',
        "line 3: no receive frequency; the line is left out",
        "line 4: the transmit frequency 1500.5000 is outside the bands"]

    def test_the_list_tells_the_records_and_writes_nothing(self):
        before = self.read_bytes("a.rdf")
        status, out, err = self.ctl("import", "a.rdf", "list.csv", "--headers", "--list")
        self.assertEqual(status, 0)
        self.assertEqual(err.splitlines(), self.EXPECTED)
        self.assertEqual(out.splitlines()[0],
                         "1\t146.9400\t146.3400\tminus\tTone Encode\t100.0\tHILL")
        self.assertTrue(out.splitlines()[1].endswith("\t\u00c4RGER"))
        self.assertEqual(self.read_bytes("a.rdf"), before)

    def test_the_import_tells_the_same_doubts_and_goes_on(self):
        status, _, err = self.ctl("import", "a.rdf", "list.csv", "b.rdf", "--headers")
        self.assertEqual(status, 0)
        self.assertEqual(err.splitlines()[:3], self.EXPECTED)
        self.assertIn("2 of 2 usable records imported", err)

    def test_a_record_becomes_what_the_list_says(self):
        line = self.ok("import", "a.rdf", "list.csv", "--headers", "--list").splitlines()[0]
        self.ok("import", "a.rdf", "list.csv", "b.rdf", "--headers")
        told = json.loads(self.ok("show", "b.rdf", "2", "--json"))
        self.assertEqual(line.split("\t")[1:], [told[name] for name in (
            "rx", "tx", "shift", "tone-mode", "tone", "name")])

    def test_the_list_takes_no_output_and_the_import_needs_one(self):
        self.assertEqual(self.ctl("import", "a.rdf", "list.csv", "b.rdf", "--list")[0], 2)
        self.assertEqual(self.ctl("import", "a.rdf", "list.csv")[0], 2)


class Recognition(SystemTest):
    def setUp(self):
        super().setUp()
        self.ok("new", "a.rdf")
        self.write_bytes("list.csv", "Freq;Input;Tone;Call;Town\n146,94;146,34;100;H\u00c4FEN;x\n"
                         "433,5;;D023;SIM;y\n".encode("utf-16"))

    def test_a_directory_is_imported_without_any_other_option(self):
        status, _, err = self.ctl("import", "a.rdf", "list.csv", "b.rdf", "--columns", "auto")
        self.assertEqual(status, 0)
        self.assertEqual(err.splitlines()[0], 'line 3: "D023" is a code, and no code is imported')
        told = json.loads(self.ok("show", "b.rdf", "2", "--json"))
        self.assertEqual((told["rx"], told["tx"], told["tone"], told["name"], told["comment"]),
                         ("146.9400", "146.3400", "100.0", "H\u00c4FEN", "x"))

    def test_a_list_without_a_header_line_is_refused(self):
        self.write_bytes("plain.csv", b"146.94,146.34\n")
        status, _, err = self.ctl("import", "a.rdf", "plain.csv", "b.rdf", "--columns", "auto")
        self.assertEqual((status, err), (1, "plain.csv: no header line names a receive frequency\n"))

    def test_what_it_finds_itself_is_not_told_to_it(self):
        for option in (["--headers"], ["--separator", ";"], ["--quote", "'"]):
            self.assertEqual(self.ctl("import", "a.rdf", "list.csv", "b.rdf", "--columns", "auto",
                                      *option)[0], 2)


if __name__ == "__main__":
    SystemTest.programs = sys.argv.pop(1)
    unittest.main()
