#!/usr/bin/env python3
"""The console program from outside: qz7ctl_test.py FOLDER_OF_THE_PROGRAMS"""
import json
import os
import signal
import sys
import unittest

from qz7 import BLOCK, IMAGE_SIZE, SystemTest, fields, patched, wait_for


class Files(SystemTest):
    def test_new_writes_a_whole_document(self):
        self.ok("new", "a.rdf")
        image = self.read_bytes("a.rdf")
        self.assertEqual(IMAGE_SIZE, len(image))
        self.assertEqual(b"RDF\0QZ7H\x02\0\0\0", image[:12])
        self.assertEqual(5585, image[BLOCK].count(0xFF))

    def test_a_dash_is_the_standard_stream(self):
        self.ok("new", "a.rdf")
        status, out, _ = self.ctl("rows", "-", stdin=self.read_bytes("a.rdf"))
        self.assertEqual(0, status)
        self.assertEqual(240, len(out.splitlines()))

    def test_new_on_standard_output_is_a_document(self):
        process = self.start("new", "-")
        image = process.communicate()[0]
        self.assertEqual(IMAGE_SIZE, len(image))
        self.assertEqual(0, self.ctl("info", "-", stdin=image)[0])

    def test_an_output_that_cannot_be_made_says_so(self):
        status, out, err = self.ctl("new", "nowhere/a.rdf")
        self.assertEqual((1, "", "Cannot create file:\nnowhere/a.rdf\n"), (status, out, err))

    def test_info_tells_what_a_file_holds(self):
        self.ok("new", "a.rdf")
        comment = {100 + i: c for i, c in enumerate(b"my radio")}
        self.write_bytes("b.rdf", patched(self.read_bytes("a.rdf"), comment))
        told = fields(self.ok("info", "b.rdf"))
        self.assertEqual("radio data", told["kind"])
        self.assertEqual("Tamro QZ-7H", told["radio-name"])
        self.assertEqual("2", told["version"])
        self.assertEqual("my radio", told["comment"])
        self.assertEqual("1", told["programmed-channels"])
        self.assertEqual({"ok"}, {v for k, v in told.items() if k.startswith("check-")})

    def test_info_as_json_says_the_same(self):
        self.ok("new", "a.rdf")
        told = json.loads(self.ok("info", "--json", "a.rdf"))
        self.assertEqual("radio data", told["kind"])
        self.assertEqual(2, told["version"])
        self.assertEqual("ok", told["checks"]["file-checksum"])

    def test_info_of_a_damaged_file_tells_which_check_failed(self):
        self.ok("new", "a.rdf")
        image = bytearray(self.read_bytes("a.rdf"))
        image[5000] ^= 1
        self.write_bytes("b.rdf", image)
        status, out, err = self.ctl("info", "b.rdf")
        self.assertEqual(1, status)
        self.assertEqual("wrong", fields(out)["check-file-checksum"])
        self.assertEqual("wrong", fields(out)["check-radio-block-checksum"])
        self.assertEqual("Radio data file image is corrupted.\nError 1362\n", err)

    def test_a_damaged_radio_block_is_reported_and_still_used(self):
        self.ok("new", "a.rdf")
        image = bytearray(self.read_bytes("a.rdf"))
        image[82:100] = bytes(18)
        image[5000] = (image[5000] + 1) % 256
        image[81] = (image[81] - 1) % 256
        self.write_bytes("b.rdf", image)
        status, out, err = self.ctl("rows", "b.rdf")
        self.assertEqual(0, status)
        self.assertEqual("Radio data file image is corrupted.\nError 1377\n", err)
        self.assertEqual(240, len(out.splitlines()))

    def test_a_message_that_comes_twice_is_shown_twice(self):
        self.ok("new", "a.rdf")
        image = bytearray(self.read_bytes("a.rdf"))
        image[82:100] = bytes(18)
        image[80] = (image[80] + 1) % 256
        image[81] = (image[81] - 1) % 256
        self.write_bytes("b.rdf", image)
        self.assertEqual((0, "", "b.rdf: Radio data file image is corrupted.\nError 1377\n" * 2),
                         self.ctl("diff", "b.rdf", "b.rdf"))

    def test_of_two_files_the_damaged_one_is_named(self):
        self.ok("new", "a.rdf")
        self.write_bytes("bad.rdf", bytearray(self.read_bytes("a.rdf"))[:-1])
        message = "bad.rdf: Radio data file has invalid format\n"
        self.assertEqual((2, "", message), self.ctl("diff", "a.rdf", "bad.rdf"))
        self.assertEqual((2, "", message), self.ctl("diff", "bad.rdf", "a.rdf"))
        self.assertEqual((1, "", message), self.ctl("merge", "a.rdf", "bad.rdf", "b.rdf"))
        self.assertEqual((1, "", message), self.ctl("merge", "bad.rdf", "a.rdf", "b.rdf"))
        self.assertEqual((1, "", message), self.ctl("import", "bad.rdf", "list.csv", "b.rdf"))
        self.assertEqual((1, "", message), self.ctl("write", "--dry-run", "--template", "t.tpl",
                                                    "bad.rdf"))
        self.write_bytes("bad.tpl", b"TPL\0QZ7H" + self.read_bytes("a.rdf")[8:-1])
        self.assertEqual((1, "", "Template file has invalid format\n"),
                         self.ctl("write", "--dry-run", "--template", "bad.tpl", "a.rdf"))
        self.assertEqual((2, "", "Cannot open file:\nnone\n"), self.ctl("diff", "none", "a.rdf"))

    def test_info_reads_a_pipe(self):
        self.ok("new", "a.rdf")
        for name in ("-", "/dev/stdin"):
            with open(self.path("a.rdf"), "rb") as file:
                image = file.read()
            status, out, err = self.ctl("info", name, stdin=image)
            self.assertEqual((0, ""), (status, err))
            self.assertEqual("ok", fields(out)["check-file-checksum"])

    def test_a_file_of_another_kind_is_refused_with_its_path(self):
        self.write_bytes("x", b"hello")
        for command in ("info", "rows", "list"):
            status, out, err = self.ctl(command, "x")
            self.assertEqual((1, "", "Not a radio data file:\nx\n"), (status, out, err))

    def test_a_missing_file_is_told_with_its_path(self):
        self.assertEqual((1, "", "Cannot open file:\nnone.rdf\n"), self.ctl("rows", "none.rdf"))


class Texts(SystemTest):
    def setUp(self):
        super().setUp()
        self.read_radio("a.rdf")

    def test_rows_keep_their_tabs_and_show_the_split_mark_in_utf_8(self):
        rows = self.ok("rows", "a.rdf").splitlines()
        self.assertEqual(" 1 \t145.5000 \t   \t \t \tH\tSIMPLEX ", rows[0])
        self.assertEqual(1, sum("±" in row for row in rows))
        self.assertEqual("20", rows[19])

    def test_list_is_the_printed_listing(self):
        lines = self.ok("list", "a.rdf").split("\n")
        self.assertEqual("QZ-7H Programmer file: a.rdf", lines[0])
        self.assertEqual("-" * 27 + "Memories", lines[2])
        self.assertIn("-" * 27 + "Home Memories", lines)
        self.assertIn("-" * 27 + "Autodial Memorie-", lines)
        self.assertEqual("Ch 1 -- 555-0142", lines[-10])

    def test_the_heading_of_the_list_holds_the_file_name_as_it_is(self):
        name = "Stra\u00dfe \u03a9.rdf"
        self.write_bytes(name, self.read_bytes("a.rdf"))
        self.assertEqual("QZ-7H Programmer file: " + name, self.ok("list", name).split("\n")[0])

    def test_show_prints_every_field_in_order(self):
        told = fields(self.ok("show", "a.rdf", "3"))
        self.assertEqual(
            ["rx", "tx", "shift", "offset", "tone-mode", "tone", "dcs", "mode", "power", "step",
             "name", "comment", "icon", "skip", "masked", "option", "option-a", "option-b"],
            list(told))
        self.assertEqual("145.6000", told["rx"])
        self.assertEqual("minus", told["shift"])
        self.assertEqual("600 kHz", told["offset"])
        self.assertEqual("145.0000", told["tx"])

    def test_show_knows_the_vfo_and_home_slots(self):
        self.assertEqual("0.5400", fields(self.ok("show", "a.rdf", "-1"))["rx"])
        self.assertEqual("800.0000", fields(self.ok("show", "a.rdf", "-30"))["rx"])

    def test_diff_names_the_channels_and_settings_that_differ(self):
        image = self.read_bytes("a.rdf")
        changes = {3678 + 17: image[3678 + 17] & 0xF3, 10114: ord("X"), 10240: 3}
        self.write_bytes("b.rdf", patched(image, changes))
        status, out, _ = self.ctl("diff", "a.rdf", "b.rdf")
        self.assertEqual(1, status)
        self.assertEqual(['channel 1: power "High" -> "Low1"',
                          'WX name 1: "WX 1    " -> "XX 1    "',
                          "Auto power off: Off -> 3 hours"], out.splitlines())

    def test_diff_of_two_saves_of_one_document_finds_nothing(self):
        self.read_radio("b.rdf")
        self.assertNotEqual(self.read_bytes("a.rdf")[82:100], bytes(18))
        self.assertEqual((0, "", ""), self.ctl("diff", "a.rdf", "b.rdf"))

    def test_diff_with_a_file_that_cannot_be_read_is_trouble(self):
        self.assertEqual(2, self.ctl("diff", "a.rdf", "none.rdf")[0])


class Usage(SystemTest):
    def test_wrong_usage_ends_with_2_and_the_usage_line(self):
        for call in ([], ["fly"], ["new"], ["show", "a.rdf", "0"], ["show", "a.rdf", "241"],
                     ["show", "a.rdf", "x"], ["read", "--port", "p"], ["read", "a.rdf"],
                     ["write", "a.rdf"], ["new", "a.rdf", "--never"],
                     ["write", "--template", "t", "--gap", "-1", "--dry-run", "a.rdf"],
                     ["read", "--port", "p", "--compare", "b.rdf", "a.rdf"],
                     ["import", "a.rdf", "l", "b.rdf", "--columns", "rx=1", "--select", "2-1"],
                     ["import", "a.rdf", "l", "b.rdf", "--columns", "rx=1,name=2,rx=3"],
                     ["import", "a.rdf", "l", "b.rdf", "--columns", "rx=1,name=2,name=2"],
                     ["import", "--quote=", "a.rdf", "l", "b.rdf", "--columns", "rx=1"],
                     ["import", "a.rdf", "l", "b.rdf", "--columns", "rx=1", "--quote="],
                     ["import", "--separator=", "a.rdf", "l", "b.rdf"],
                     ["set", "a.rdf", "b.rdf", "1", "name=A", "skip=on", "name=A"]):
            with self.subTest(call):
                status, out, err = self.ctl(*call)
                self.assertEqual((2, ""), (status, out))
                self.assertIn("Usage: qz7ctl", err)

    def test_a_command_that_is_none_is_told(self):
        for call in (["rowz"], ["rowz", "a.rdf"], ["rowz", "a.rdf", "--json"]):
            status, out, err = self.ctl(*call)
            self.assertEqual((2, ""), (status, out))
            self.assertTrue(err.startswith("qz7ctl: there is no command \"rowz\"; do you mean "
                                           "\"rows\"?\nUsage: qz7ctl"), err)

    def test_help_and_version_go_to_standard_output(self):
        for call in (["--help"], ["read", "--help"], ["--version"]):
            status, out, err = self.ctl(*call)
            self.assertEqual((0, ""), (status, err))
            self.assertIn("qz7ctl", out)

    def test_options_stand_anywhere_and_two_dashes_end_them(self):
        self.ok("new", "--", "-a.rdf")
        self.assertTrue(os.path.exists(self.path("-a.rdf")))
        self.ok("info", "--json", "--", "-a.rdf")


class Ports(SystemTest):
    def test_ports_lists_a_port_a_line(self):
        for line in self.ok("ports").splitlines():
            name, _, state = line.split("\t")
            self.assertTrue(name)
            self.assertIn(state, ("free", "busy", "denied"))

    def test_ports_tells_the_same_as_json(self):
        lines = [line.split("\t") for line in self.ok("ports").splitlines()]
        listed = json.loads(self.ok("ports", "--json"))
        self.assertEqual(lines, [[port["name"], port["description"], port["status"]]
                                 for port in listed])

    def test_probed_ports_are_the_same_ports(self):
        def names(*options):
            return {line.split("\t")[0] for line in self.ok("ports", *options).splitlines()}
        self.assertLessEqual(names("--probe"), names())

    def test_an_absent_port_says_so(self):
        status, _, err = self.ctl("read", "--port", "/dev/none", "a.rdf")
        self.assertEqual((1, "/dev/none: there is no such serial port.\n"), (status, err))

    def test_a_port_that_is_no_terminal_is_absent(self):
        self.assertEqual(1, self.ctl("read", "--port", "/dev/null", "a.rdf")[0])

    def test_a_port_in_use_is_busy(self):
        radio = self.radio("--speed", "wire", "send")
        first = self.start("read", "--port", radio.port, "--trace", "t.txt", "a.rdf")
        wait_for(lambda: os.path.exists(self.path("t.txt")), "the first program to open the port")
        status, _, err = self.ctl("read", "--port", radio.port, "b.rdf")
        self.assertEqual(1, status)
        self.assertIn("the port is busy", err)
        first.send_signal(signal.SIGINT)
        first.communicate()


class Reading(SystemTest):
    def test_the_document_holds_what_the_radio_sent(self):
        memory = bytes([0x0A]) + bytes((i * 7 + 3) % 256 for i in range(8121))
        self.write_bytes("memory", memory)
        self.read_radio("a.rdf", "--image", "memory")
        self.assertEqual(memory, self.read_bytes("a.rdf")[BLOCK])
        self.assertEqual("ok", fields(self.ok("info", "a.rdf"))["check-file-checksum"])

    def test_progress_is_told_in_tens_of_percent(self):
        radio = self.radio("send")
        _, _, err = self.ctl("read", "--port", radio.port, "a.rdf")
        self.assertEqual([f"{n} %" for n in range(0, 101, 10)],
                         [line for line in err.splitlines() if line.endswith("%")])

    def test_the_trace_holds_every_byte_with_its_direction(self):
        radio = self.radio("send")
        self.ok("read", "--port", radio.port, "--trace", "t.txt", "a.rdf")
        with open(self.path("t.txt"), encoding="ascii") as file:
            lines = [line.split() for line in file]
        received = bytes(int(line[2], 16) for line in lines if line[1] == "<")
        sent = bytes(int(line[2], 16) for line in lines if line[1] == ">")
        block = self.read_bytes("a.rdf")[BLOCK]
        self.assertEqual(bytes([6, 6, 6]), sent)
        # The echoes of the first two acknowledgements stand behind the header and the first block.
        self.assertEqual(block[:10] + b"\x06" + block[10:26] + b"\x06" + block[26:]
                         + bytes([sum(block) % 256]), received[:8125])
        times = [float(line[0]) for line in lines]
        self.assertEqual(sorted(times), times)

    def test_a_trace_that_cannot_be_written_is_a_failure(self):
        radio = self.radio("send")
        status, _, err = self.ctl("read", "--port", radio.port, "--trace", "/dev/full", "a.rdf")
        self.assertEqual(1, status)
        self.assertIn("Error writing file:\n/dev/full\n", err)
        self.assertEqual([], os.listdir(self.folder))

    def test_a_template_is_the_image_with_its_own_magic(self):
        self.make_template("t.tpl")
        self.assertEqual(b"TPL\0", self.read_bytes("t.tpl")[:4])
        self.assertEqual("template", fields(self.ok("info", "t.tpl"))["kind"])

    def test_a_template_holds_no_names_of_unprogrammed_channels(self):
        self.read_radio("a.rdf")
        memory = bytearray(self.read_bytes("a.rdf")[BLOCK])
        name = b"UNUSED19"
        memory[3678 + 19 * 22 + 6 - 3060:3678 + 19 * 22 + 14 - 3060] = name
        self.write_bytes("memory", memory)
        radio = self.radio("--image", "memory", "send")
        self.ok("template", "--port", radio.port, "t.tpl")
        template = self.read_bytes("t.tpl")
        self.assertEqual(name, template[3678 + 19 * 22 + 6:][:8])
        self.assertNotEqual(name, template[11202 + 19 * 10:][:8])
        self.read_radio("b.rdf", "--image", "memory")
        self.assertEqual(name, self.read_bytes("b.rdf")[11202 + 19 * 10:][:8])

    def test_a_template_on_standard_output_is_the_same_file(self):
        self.make_template("t.tpl")
        radio = self.radio("send")
        program = self.start("template", "--port", radio.port, "-")
        out, _ = program.communicate()
        self.assertEqual(0, program.returncode)
        self.assertEqual(self.read_bytes("t.tpl"), out)
        self.assertEqual(["t.tpl"], os.listdir(self.folder))

    def test_compare_is_like_diff(self):
        self.read_radio("a.rdf")
        radio = self.radio("send")
        self.assertEqual(0, self.ctl("read", "--port", radio.port, "--compare", "a.rdf")[0])
        image = patched(self.read_bytes("a.rdf"), {3678 + 6: ord("Z"), 10240: 5})
        self.write_bytes("b.rdf", image)
        radio = self.radio("send")
        status, out, _ = self.ctl("read", "--port", radio.port, "--compare", "b.rdf")
        self.assertEqual(1, status)
        self.assertEqual(['channel 1: name "ZIMPLEX" -> "SIMPLEX"', "Auto power off: 8 hours -> Off"],
                         out.splitlines())

    def test_an_output_that_cannot_be_made_is_refused_before_the_exchange(self):
        radio = self.radio("send")
        status, _, err = self.ctl("read", "--port", radio.port, "nowhere/a.rdf")
        self.assertEqual((1, "Cannot create file:\nnowhere/a.rdf\n"), (status, err))


class Writing(SystemTest):
    def setUp(self):
        super().setUp()
        self.make_template("t.tpl")
        self.read_radio("a.rdf")

    def write(self, document, *radio_arguments):
        radio = self.radio(*radio_arguments, "--image", "got", "receive")
        result = self.ctl("write", "--port", radio.port, "--template", "t.tpl", document)
        return radio, result

    def test_reading_writing_and_reading_returns_the_block(self):
        # Everything comes back but the identity, which is the template's, and the operating state,
        # which follows the VFO slot that the radio stands on.
        image = self.read_bytes("a.rdf")
        changes = {3060 + i: 0x77 for i in range(14)}
        changes.update({10454: 1, 10455: 5, 10456: 0xEE, 10467: 0x21, 10471: 0x22, 10480: 0xEE})
        image = patched(image, changes)
        self.write_bytes("b.rdf", image)
        radio, (status, _, err) = self.write("b.rdf")
        self.assertEqual(0, status, err)
        self.assertEqual(0, radio.finish()[0])
        self.read_radio("c.rdf", "--image", "got")
        got = self.read_bytes("c.rdf")
        template = self.read_bytes("t.tpl")
        record = image[9398 + 5 * 22:9398 + 6 * 22]
        expected = bytearray(image[BLOCK])
        expected[0:10] = template[3060:3070]
        expected[10:12] = template[3066:3068]
        expected[12:14] = template[3072:3074]
        mirror = bytearray(image[10456:10482])
        mirror[0:8] = bytes([record[0], record[17] >> 2 & 3, record[1], record[17] & 3,
                             record[17] >> 4, record[18], record[19], record[5] & 3])
        mirror[8:11] = record[2:5]
        mirror[12:15] = record[14:17]
        mirror[16:24] = record[6:14]
        mirror[24:26] = record[20:22]
        expected[10456 - 3060:10482 - 3060] = mirror
        self.assertEqual(bytes(expected), got[BLOCK])
        self.assertEqual(image, self.read_bytes("b.rdf"))

    def test_a_template_of_the_japanese_version_is_refused(self):
        template = patched(self.read_bytes("t.tpl"), {3068: 1})
        self.write_bytes("j.tpl", template)
        status, out, err = self.ctl("write", "--port", "/dev/none", "--template", "j.tpl", "a.rdf")
        self.assertEqual((1, ""), (status, out))
        self.assertEqual(
            "Template file is for a Japanese Version of the QZ-7 Radio.\n\n"
            "This software does not work with that version of the radio.\n", err)

    def test_a_document_is_no_template(self):
        status, _, err = self.ctl("write", "--port", "/dev/none", "--template", "a.rdf", "a.rdf")
        self.assertEqual((1, "Not a template file:\na.rdf\n"), (status, err))

    def test_without_a_template_the_write_says_how_to_get_one(self):
        status, out, err = self.ctl("write", "--port", "/dev/none", "--template", "", "a.rdf")
        self.assertEqual((1, "", "No template file specified.\nUse Browse Template to select one\n"
                          "or Help for create instructions.\n\n"), (status, out, err))

    def test_the_template_is_loaded_once(self):
        # A pipe gives its bytes once.
        os.mkfifo(self.path("pipe"))
        radio = self.radio("--image", "got", "receive")
        program = self.start("write", "--port", radio.port, "--template", "pipe", "a.rdf")
        self.write_bytes("pipe", self.read_bytes("t.tpl"))
        _, err = program.communicate(timeout=60)
        self.assertEqual(0, program.returncode, err)

    def test_a_trace_that_cannot_be_written_fails_a_write_that_is_whole(self):
        radio = self.radio("--image", "got", "receive")
        status, _, err = self.ctl("write", "--port", radio.port, "--template", "t.tpl", "--trace",
                                  "/dev/full", "a.rdf")
        self.assertEqual(1, status)
        self.assertIn("Error writing file:\n/dev/full\n", err)
        self.assertNotIn("only a part", err)
        self.assertEqual(0, radio.finish()[0])

    def test_a_dry_run_checks_everything_and_opens_no_port(self):
        status, out, err = self.ctl("write", "--dry-run", "--template", "t.tpl", "a.rdf")
        self.assertEqual((0, ""), (status, err))
        self.assertIn("nothing was sent", out)
        self.assertIn("8123 bytes", out)
        self.assertEqual(
            1, self.ctl("write", "--dry-run", "--template", "none.tpl", "a.rdf")[0])

    def test_a_gap_pauses_between_blocks(self):
        radio = self.radio("--image", "got", "receive")
        self.ok("write", "--port", radio.port, "--template", "t.tpl", "--gap", "2", "--trace",
                "w.txt", "a.rdf")
        with open(self.path("w.txt"), encoding="ascii") as file:
            lines = [line.split() for line in file]
        times = [float(line[0]) for line in lines if line[1] == ">"]
        self.assertGreaterEqual(times[-1] - times[0], 507 * 2)


def main():
    SystemTest.programs = os.path.abspath(sys.argv.pop(1))
    unittest.main()


if __name__ == "__main__":
    main()
