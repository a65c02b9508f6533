#!/usr/bin/env python3
"""Editing, importing, exporting and merging with the console program, from outside:
qz7ctl_edit_test.py FOLDER_OF_THE_PROGRAMS"""
import json
import os
import pty
import re
import subprocess
import sys
import unittest

from qz7 import SystemTest, fields, patched


class EditTest(SystemTest):
    def setUp(self):
        super().setUp()
        self.read_radio("a.rdf")

    def diff(self, name):
        return self.ctl("diff", "a.rdf", name)[1].splitlines()

    def refused(self, message, *arguments):
        status, out, err = self.ctl(*arguments)
        self.assertEqual((1, "", message + "\n"), (status, out, err))
        self.assertFalse(os.path.exists(self.path("b.rdf")))


class Setting(EditTest):
    def test_changes_the_named_fields_and_no_other(self):
        self.ok("set", "a.rdf", "b.rdf", "1", "name=HILL", "skip=on", "comment=on the hill")
        self.assertEqual(['channel 1: name "SIMPLEX" -> "HILL"',
                          'channel 1: comment "" -> "on the hill"',
                          'channel 1: skip "off" -> "on"'], self.diff("b.rdf"))

    def test_takes_what_show_prints(self):
        told = self.ok("show", "a.rdf", "3").splitlines()
        self.ok("set", "a.rdf", "b.rdf", "3", *told)
        self.assertEqual([], self.diff("b.rdf"))

    def test_starts_an_unprogrammed_channel_from_the_defaults(self):
        self.ok("set", "a.rdf", "b.rdf", "100", "rx=145.5")
        told = fields(self.ok("show", "b.rdf", "100"))
        self.assertEqual(("145.5000", "600 kHz", "100.0", "High", "off"),
                         (told["rx"], told["offset"], told["tone"], told["power"],
                          told["masked"]))

    def test_follows_the_shift_with_the_transmit_frequency(self):
        self.ok("set", "a.rdf", "b.rdf", "100", "rx=146.94", "shift=minus")
        self.assertEqual("146.3400", fields(self.ok("show", "b.rdf", "100"))["tx"])

    def test_an_offset_is_exact(self):
        self.ok("set", "a.rdf", "b.rdf", "100", "rx=145.5", "offset=1.05 MHz")
        self.assertEqual("1.05 MHz", fields(self.ok("show", "b.rdf", "100"))["offset"])

    def test_an_odd_split_transmits_where_it_receives_until_told_otherwise(self):
        self.ok("set", "a.rdf", "b.rdf", "100", "shift=split", "rx=433.5")
        self.assertEqual("433.5000", fields(self.ok("show", "b.rdf", "100"))["tx"])

    def test_refuses_in_the_editors_words(self):
        self.refused("A valid receive frequency is required",
                     "set", "a.rdf", "b.rdf", "5", "rx=2000")
        self.refused("A valid receive frequency is required",
                     "set", "a.rdf", "b.rdf", "-26", "rx=180")
        self.refused("Tx Shift must be less than 99.95MHz.",
                     "set", "a.rdf", "b.rdf", "5", "offset=100 MHz")
        self.refused("Tx Shift must be a 50kHz step.",
                     "set", "a.rdf", "b.rdf", "5", "offset=601 kHz")

    def test_an_empty_channel_wants_a_receive_frequency(self):
        for value in ("name=HILL", "skip=on", "rx=abc"):
            self.refused("A valid receive frequency is required", "set", "a.rdf", "b.rdf", "100",
                         value)

    def test_a_receive_frequency_that_is_none_is_refused_as_by_the_editor(self):
        for value in ("rx=abc", "rx=x0"):
            self.refused("A valid receive frequency is required",
                         "set", "a.rdf", "b.rdf", "5", value)

    def test_zero_clears_a_channel_as_in_the_editor(self):
        self.ok("set", "a.rdf", "b.rdf", "5", "rx=0")
        self.ok("move", "a.rdf", "c.rdf", "clear", "5")
        self.assertEqual("", fields(self.ok("show", "b.rdf", "5"))["rx"])
        self.assertEqual(0, self.ctl("diff", "b.rdf", "c.rdf")[0])

    def test_an_odd_split_that_transmits_on_0_is_stored_with_a_warning(self):
        status, _, err = self.ctl("set", "a.rdf", "b.rdf", "5", "shift=split", "tx=0")
        self.assertEqual((0, "The transmit frequency of the odd split is 0.\n"), (status, err))
        self.assertEqual(bytes(3), self.read_bytes("b.rdf")[3678 + 4 * 22 + 14:][:3])

    def test_keeps_channel_1_programmed(self):
        self.refused("Memory channel 1 must always be programmed",
                     "set", "a.rdf", "b.rdf", "1", "rx=")

    def test_refuses_a_field_that_is_none(self):
        status, _, err = self.ctl("set", "a.rdf", "b.rdf", "1", "colour=red")
        self.assertEqual(1, status)
        self.assertIn("colour", err)

    def test_the_input_stays_as_it_was_unless_it_is_the_output(self):
        before = self.read_bytes("a.rdf")
        self.ok("set", "a.rdf", "b.rdf", "1", "name=HILL")
        self.assertEqual(before, self.read_bytes("a.rdf"))
        self.ok("set", "a.rdf", "a.rdf", "1", "name=HILL")
        self.assertEqual("HILL", fields(self.ok("show", "a.rdf", "1"))["name"])


class SettingTexts(EditTest):
    NAME, COMMENT = 3678 + 6, 13602

    def document_with(self, name, comment):
        changes = {self.NAME + i: c for i, c in enumerate(name.ljust(8))}
        changes.update({self.COMMENT + i: c for i, c in enumerate(comment.ljust(32, b"\0"))})
        self.write_bytes("n.rdf", patched(self.read_bytes("a.rdf"), changes))

    def shown(self, file, n):
        told = self.ok("show", file, n)
        return re.search("^(name=.*)\n(comment=.*)\nicon=", told, re.DOTALL | re.MULTILINE).groups()

    def stored(self, file, n):
        data = self.read_bytes(file)
        record, comment = self.NAME + 22 * (n - 1), self.COMMENT + 32 * (n - 1)
        return data[record:record + 8], data[comment:comment + 32]

    def test_every_byte_comes_back_as_show_prints_it(self):
        for first in range(1, 256, 6):
            text = b"<" + bytes(range(first, min(first + 6, 256))) + b">"
            with self.subTest(first):
                self.document_with(text, text * 3)
                told = self.shown("n.rdf", "1")
                self.ok("set", "n.rdf", "b.rdf", "--yes", "1", "rx=146", *told)
                self.assertEqual(self.stored("n.rdf", 1), self.stored("b.rdf", 1))
                if first > 0x20 and not set(text) & set(b"\x7F\x81\x8D\x8F\x90\x9D"):
                    self.ok("set", "n.rdf", "b.rdf", "--yes", "100", "rx=146", *told)
                    self.assertEqual(self.stored("n.rdf", 1), self.stored("b.rdf", 100))

    def test_a_character_without_a_byte_is_refused_by_name(self):
        self.refused("name: the radio's texts have no character \"\u03a9\"",
                     "set", "a.rdf", "b.rdf", "1", "name=5 \u03a9")
        self.refused("comment: the radio's texts have no character \"\U0001f4fb\"",
                     "set", "a.rdf", "b.rdf", "1", "comment=\U0001f4fb")
        self.refused("--key: the radio's texts have no character \"\u03a9\"",
                     "merge", "a.rdf", "a.rdf", "b.rdf", "--key", "\u03a9", "--start", "100")

    def test_a_control_byte_is_not_stored(self):
        for value in ("name=\x1b[0m", "comment=a\nb", "name=\x81"):
            self.refused(value[:value.index("=")] + ": a control character cannot be stored",
                         "set", "a.rdf", "b.rdf", "1", value)

    def test_the_texts_of_a_refusal_are_utf_8(self):
        self.refused("offset: \"Stra\u00dfe\" is not a frequency",
                     "set", "a.rdf", "b.rdf", "1", "offset=Stra\u00dfe")

    def test_a_merge_key_is_the_text_of_the_comments(self):
        self.ok("set", "a.rdf", "k.rdf", "9", "comment=Hauptstra\u00dfe")
        self.ok("new", "empty.rdf")
        self.ok("merge", "empty.rdf", "k.rdf", "b.rdf", "--key", "STRA\u00dfE", "--start", "7")
        self.assertEqual("2", fields(self.ok("info", "b.rdf"))["programmed-channels"])

    def test_a_separator_is_one_character(self):
        self.write_bytes("l.txt", b"145.5\xa7A\n")
        self.ok("import", "a.rdf", "l.txt", "b.rdf", "--separator", "\u00a7", "--columns",
                "rx=1,name=2", "--start", "100")
        self.assertEqual("A", fields(self.ok("show", "b.rdf", "100"))["name"])


class Terminal(EditTest):
    def on_terminal(self, *arguments, stream="stdout", status=0):
        """What the program prints on a terminal."""
        terminal, slave = pty.openpty()
        process = subprocess.Popen([os.path.join(self.programs, "qz7ctl"), *arguments],
                                   cwd=self.folder, **{stream: slave})
        os.close(slave)
        shown = b""
        try:
            while part := os.read(terminal, 4096):
                shown += part
        except OSError:  # the program has ended
            pass
        os.close(terminal)
        self.assertEqual(status, process.wait(60))
        return shown.replace(b"\r\n", b"\n").decode()

    def test_messages_on_a_terminal_have_question_marks_for_control_bytes(self):
        image = bytearray(self.read_bytes("a.rdf"))
        image[4:8] = b"QZ2H"
        image[16:25] = b"\x1b[A\n\x9d\x90\xb1\x7f\0"
        self.write_bytes("n\x1b\x01.rdf", image)
        refused = "Radio data file for for different radio:\n"
        self.assertEqual(refused + "?[A???\u00b1?\n",
                         self.on_terminal("rows", "n\x1b\x01.rdf", stream="stderr", status=1))
        self.assertEqual("Cannot open file:\nm?.rdf\n",
                         self.on_terminal("rows", "m\x1b.rdf", stream="stderr", status=1))
        self.assertEqual(refused + "\x1b[A\n\x9d\x90\u00b1\x7f\n",
                         self.ctl("rows", "n\x1b\x01.rdf")[2])

    def test_a_terminal_is_shown_question_marks_for_control_bytes(self):
        changes = {3678 + 6 + i: c for i, c in enumerate(b"\x1b[A\x7f\x9b\x9d\x81\xb1")}
        changes.update({100 + i: c for i, c in enumerate(b"\x1bc\x90")})
        self.write_bytes("n.rdf", patched(self.read_bytes("a.rdf"), changes))
        shown = "?[A?\u203a??\u00b1"
        self.assertEqual(shown, fields(self.on_terminal("show", "n.rdf", "1"))["name"])
        self.assertEqual(" 1 \t145.5000 \t   \t \t \tH\t" + shown,
                         self.on_terminal("rows", "n.rdf").split("\n")[0])
        self.assertIn(shown, self.on_terminal("list", "n.rdf"))
        self.assertEqual("?c?", fields(self.on_terminal("info", "n.rdf"))["comment"])
        self.assertEqual("\x1bc\x90", json.loads(self.on_terminal("info", "n.rdf", "--json"))[
            "comment"])
        self.assertIn("\x1b[A\x7f", self.ok("show", "n.rdf", "1"))


class Replacing(EditTest):
    def test_an_output_that_is_there_is_replaced_with_yes_only(self):
        self.write_bytes("l.txt", b"145.5,A\n")
        for call in (["new", "b.rdf"], ["set", "a.rdf", "b.rdf", "1", "name=A"],
                     ["move", "a.rdf", "b.rdf", "down", "1"], ["export", "a.rdf", "b.rdf"],
                     ["import", "a.rdf", "l.txt", "b.rdf", "--columns", "rx=1"],
                     ["merge", "a.rdf", "a.rdf", "b.rdf", "--start", "100"],
                     ["read", "--port", "/dev/none", "b.rdf"],
                     ["template", "--port", "/dev/none", "b.rdf"]):
            with self.subTest(call[0]):
                self.write_bytes("b.rdf", b"mine")
                self.assertEqual(
                    (1, "", "The file is there already; --yes replaces it:\nb.rdf\n"),
                    self.ctl(*call))
                self.assertEqual(b"mine", self.read_bytes("b.rdf"))
                if "--port" not in call:
                    self.ok(*call, "--yes")
                    self.assertNotEqual(b"mine", self.read_bytes("b.rdf"))

    def test_an_input_may_be_the_output(self):
        self.ok("set", "a.rdf", "./a.rdf", "1", "name=A")
        self.ok("merge", "a.rdf", "a.rdf", "a.rdf", "--start", "100")

    def test_a_device_is_no_file_to_replace(self):
        self.ok("new", "/dev/null")


class Moving(EditTest):
    def name_of(self, file, n):
        return fields(self.ok("show", file, str(n)))["name"]

    def test_moves_up_and_down(self):
        self.ok("move", "a.rdf", "b.rdf", "down", "1")
        self.assertEqual(("SIMPLEX2", "SIMPLEX"),
                         (self.name_of("b.rdf", 1), self.name_of("b.rdf", 2)))
        self.ok("move", "b.rdf", "b.rdf", "up", "2")
        self.assertEqual([], self.diff("b.rdf"))

    def test_deletes_and_inserts(self):
        self.ok("move", "a.rdf", "b.rdf", "delete", "2")
        self.assertEqual("RPT 1", self.name_of("b.rdf", 2))
        self.ok("move", "b.rdf", "b.rdf", "insert", "2")
        self.assertEqual("", fields(self.ok("show", "b.rdf", "2"))["rx"])
        self.assertEqual("RPT 1", self.name_of("b.rdf", 3))

    def test_refuses_what_the_list_refuses(self):
        self.refused("Channel 1 does not allow up.", "move", "a.rdf", "b.rdf", "up", "1")
        self.refused("Channel 240 does not allow clear.", "move", "a.rdf", "b.rdf", "clear", "240")
        self.refused("Channel 221 does not allow delete.",
                     "move", "a.rdf", "b.rdf", "delete", "221")
        self.refused("Memory channel 1 must always be programmed",
                     "move", "a.rdf", "b.rdf", "clear", "1")

    def test_lets_the_last_channel_fall_off_only_with_yes(self):
        self.ok("set", "a.rdf", "full.rdf", "220", "rx=145.5")
        self.refused("Memory channel 220 is active and will be deleted\nProceed?",
                     "move", "full.rdf", "b.rdf", "insert", "5")
        self.ok("move", "full.rdf", "b.rdf", "insert", "5", "--yes")
        self.assertEqual("", fields(self.ok("show", "b.rdf", "220"))["rx"])

    def test_takes_several_channels_at_once(self):
        names = [self.name_of("a.rdf", n) for n in (1, 2, 3, 4)]
        self.ok("move", "a.rdf", "b.rdf", "up", "3-4,2")
        self.assertEqual(names[1:] + names[:1], [self.name_of("b.rdf", n) for n in (1, 2, 3, 4)])
        self.ok("move", "b.rdf", "b.rdf", "down", "1-3")
        self.assertEqual([], self.diff("b.rdf"))
        self.ok("move", "b.rdf", "b.rdf", "delete", "2,4")
        self.assertEqual([names[0], names[2]], [self.name_of("b.rdf", n) for n in (1, 2)])
        self.ok("move", "b.rdf", "b.rdf", "insert", "2,40")
        self.assertEqual([names[0], "", names[2]], [self.name_of("b.rdf", n) for n in (1, 2, 3)])

    def test_clears_several_channels_and_no_other(self):
        self.ok("move", "a.rdf", "b.rdf", "clear", "12-15,2")
        cleared = [2, 12, 13, 14, 15]
        self.assertTrue(all(self.name_of("a.rdf", n) for n in cleared))
        self.assertEqual([self.name_of("a.rdf", n) if n not in cleared else ""
                          for n in range(1, 20)],
                         [self.name_of("b.rdf", n) for n in range(1, 20)])

    def test_does_all_of_several_channels_or_none(self):
        self.refused("One of the channels does not allow up: nothing is changed.",
                     "move", "a.rdf", "b.rdf", "up", "1,5")

    def test_refuses_what_names_no_channels(self):
        for text in ("0", "241", "5-241", "7-5", "", "1,,2", "a", "-1"):
            with self.subTest(text):
                status, out, err = self.ctl("move", "a.rdf", "b.rdf", "up", text)
                self.assertEqual((2, ""), (status, out))
                self.assertIn("qz7ctl move", err)


class Interchange(EditTest):
    def test_export_writes_crlf_lines_and_the_single_byte_sign(self):
        self.ok("export", "a.rdf", "a.csv")
        lines = self.read_bytes("a.csv").split(b"\r\n")
        self.assertTrue(lines[0].startswith(b'"RX Frequency","TX Frequency","Offset"'))
        self.assertEqual(1 + 18 + 1, len(lines))
        self.assertEqual(b"", lines[-1])
        self.assertIn(b'"436.7950"', lines[12])
        self.assertIn(b'"\xb1"', lines[12])

    def test_an_export_comes_back_through_import(self):
        self.ok("export", "a.rdf", "a.csv")
        self.ok("new", "empty.rdf")
        self.ok("import", "empty.rdf", "a.csv", "b.rdf", "--headers", "--start", "1")
        for n in (1, 3, 7, 12, 15):
            before = fields(self.ok("show", "a.rdf", str(n)))
            after = fields(self.ok("show", "b.rdf", str(n)))
            for name in ("rx", "tx", "shift", "name", "skip"):
                with self.subTest(channel=n, field=name):
                    self.assertEqual(before[name], after[name])

    def test_import_places_the_selected_records_from_the_start_on(self):
        self.write_bytes("l.txt", b"145.5;A\n146.5;B\n2000;C\n147.5;D\n148.5;E\n")
        self.ok("import", "a.rdf", "l.txt", "b.rdf", "--separator", ";", "--columns", "rx=1,name=2",
                "--select", "1,3-4", "--start", "100")
        names = [fields(self.ok("show", "b.rdf", str(n)))["name"] for n in range(100, 104)]
        self.assertEqual(["A", "D", "E", ""], names)

    def test_import_refuses_in_the_systems_words(self):
        self.write_bytes("l.txt", b"145.5,A\n146.5,B\n")
        self.refused("Too many frequencies are selected.\nDeselect some of the frequencies so that\n"
                     "Selected is less that Available - Start.",
                     "import", "a.rdf", "l.txt", "b.rdf", "--columns", "rx=1", "--start", "240")
        self.refused("Illegal Start Channel",
                     "import", "a.rdf", "l.txt", "b.rdf", "--columns", "rx=1", "--start", "0")
        self.refused("Error opening file: none.txt",
                     "import", "a.rdf", "none.txt", "b.rdf", "--columns", "rx=1")
        self.refused("The list has only 2 usable records.",
                     "import", "a.rdf", "l.txt", "b.rdf", "--columns", "rx=1", "--select", "3")

    def test_merge_takes_the_channels_of_another_file(self):
        self.ok("new", "empty.rdf")
        self.ok("merge", "empty.rdf", "a.rdf", "b.rdf", "--start", "50")
        self.assertEqual("SIMPLEX", fields(self.ok("show", "b.rdf", "50"))["name"])
        self.ok("merge", "empty.rdf", "a.rdf", "c.rdf", "--start", "50", "--ham-only")
        told = [fields(self.ok("show", "c.rdf", str(n)))["rx"] for n in range(50, 70)]
        self.assertNotIn("123.4500", told)
        self.assertIn("145.5000", told)

    def test_merge_reads_the_standard_input(self):
        self.ok("new", "empty.rdf")
        status, _, err = self.ctl("merge", "empty.rdf", "-", "b.rdf", "--start", "50",
                                  stdin=self.read_bytes("a.rdf"))
        self.assertEqual(0, status, err)
        self.assertEqual("SIMPLEX", fields(self.ok("show", "b.rdf", "50"))["name"])
        status, _, err = self.ctl("merge", "empty.rdf", "-", "c.rdf", stdin=b"x")
        self.assertEqual((1, "Not a radio data file:\nstandard input\n"), (status, err))

    def test_a_list_that_is_none_is_told(self):
        os.mkdir(self.path("folder"))
        self.refused("Error opening file: folder",
                     "import", "a.rdf", "folder", "b.rdf", "--columns", "rx=1")
        self.refused("Out of memory",
                     "import", "a.rdf", "/dev/zero", "b.rdf", "--columns", "rx=1")

    def test_merge_by_key_looks_into_the_comments(self):
        self.ok("set", "a.rdf", "k.rdf", "9", "comment=Local RPT north")
        self.ok("new", "empty.rdf")
        self.ok("merge", "empty.rdf", "k.rdf", "b.rdf", "--key", "rpt", "--start", "7")
        self.assertEqual("CALL 2M", fields(self.ok("show", "b.rdf", "7"))["name"])
        self.assertEqual("2", fields(self.ok("info", "b.rdf"))["programmed-channels"])

    def test_merge_refuses_in_the_systems_words(self):
        self.refused("Illegal Start Channel",
                     "merge", "a.rdf", "a.rdf", "b.rdf", "--start", "240")
        self.refused("No memories selected for merge",
                     "merge", "a.rdf", "a.rdf", "b.rdf", "--key", "nowhere", "--start", "100")
        self.refused("Cannot fit selected memories.\nUse lower start channel, and/or select "
                     "overwrite.", "merge", "a.rdf", "a.rdf", "b.rdf", "--start", "10")
        self.write_bytes("big", patched(self.read_bytes("a.rdf"), {15: 0x7F}))
        self.refused("big: Out of Memory", "merge", "a.rdf", "big", "b.rdf", "--start", "100")


def main():
    SystemTest.programs = os.path.abspath(sys.argv.pop(1))
    unittest.main()


if __name__ == "__main__":
    main()
