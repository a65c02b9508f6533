#!/usr/bin/env python3
"""Every fault of the stand-in radio, against the console program: faults_test.py FOLDER

For each the message and status, no output file, an untouched input, and a next exchange on
the same terminal that works."""
import os
import pty
import signal
import subprocess
import sys
import unittest

from qz7 import SystemTest, wait_for


def read_terminal(terminal):
    """What has come; nothing once the other side is closed."""
    try:
        return terminal.read(4096)
    except OSError:
        return b""


class ReadFaults(SystemTest):
    def fails_with(self, fault, message):
        radio = self.radio("--fault", fault, "send")
        status, out, err = self.ctl("read", "--port", radio.port, "a.rdf")
        self.assertEqual((1, ""), (status, out))
        self.assertIn(message + "\n", err)
        self.assertEqual([], os.listdir(self.folder))
        self.assert_next_read_works(radio)
        self.assertIn("fault " + fault, radio.finish()[1])

    def assert_next_read_works(self, radio):
        self.ok("read", "--port", radio.port, "next.rdf")
        self.ok("info", "next.rdf")

    def waits_for_ctrl_c(self, fault):
        radio = self.radio("--fault", fault, "send")
        program = self.start("read", "--port", radio.port, "--trace", "trace", "a.rdf")
        wait_for(lambda: os.path.exists(self.path("trace")), "the program to listen")
        wait_for(lambda: self.has_stopped_moving(radio), "the radio to fall silent")
        self.assertIsNone(program.poll())
        program.send_signal(signal.SIGINT)
        _, err = program.communicate(timeout=60)
        self.assertEqual(1, program.returncode)
        self.assertIn(b"Given up.\n", err)
        self.assertEqual(["trace"], os.listdir(self.folder))
        with open(self.path("trace"), encoding="ascii") as file:
            sent = [line.split()[2] for line in file if ">" in line]
        self.assertEqual("FF", sent[-1])
        self.assert_next_read_works(radio)

    def has_stopped_moving(self, radio):
        """No processor time was used by the radio for a while: it waits for the program."""
        def used():
            with open(f"/proc/{radio.process.pid}/stat", encoding="ascii") as file:
                return file.read().rsplit(")", 1)[1].split()[11:13]
        before = used()
        for _ in range(20):
            signal.sigtimedwait([], 0.01)
        return before == used()

    def test_noise_before_the_header_is_skipped(self):
        radio = self.radio("--fault", "noise", "send")
        _, _, err = self.ctl("read", "--port", radio.port, "a.rdf")
        self.assertNotIn("Error", err)
        self.assertTrue(os.path.exists(self.path("a.rdf")))

    def test_a_stall_times_out(self):
        self.fails_with("stall@3000", "Receive Timeout")

    def test_a_dropped_byte_leaves_the_checksum_missing_and_waits_for_the_user(self):
        # The checksum byte takes the last data byte's place; there is no time-out behind it.
        self.waits_for_ctrl_c("drop@3000")

    def test_a_flipped_byte_is_a_checksum_error(self):
        self.fails_with("flip@3000", "Checksum Error")

    def test_a_doubled_byte_is_a_checksum_error(self):
        self.fails_with("double@3000", "Checksum Error")

    def test_a_message_on_a_terminal_starts_a_line_of_its_own(self):
        radio = self.radio("--fault", "flip@3000", "send")
        master, slave = pty.openpty()
        shown = b""
        with subprocess.Popen(
                [os.path.join(self.programs, "qz7ctl"), "read", "--port", radio.port, "a.rdf"],
                cwd=self.folder, stdin=subprocess.DEVNULL, stderr=slave) as program:
            os.close(slave)
            with open(master, "rb", buffering=0) as terminal:
                while piece := read_terminal(terminal):
                    shown += piece
        self.assertEqual(1, program.returncode)
        self.assertRegex(shown, rb"\] 100%  \d+ of 8122 bytes  \d+\.\d s\r\nChecksum Error\r\n"
                                rb"The exchange was not completed\.\r\n$")

    def test_a_wrong_checksum_is_told(self):
        self.fails_with("checksum", "Checksum Error")

    def test_a_flipped_echo_is_an_acknowledge_error(self):
        self.fails_with("flip-echo@0", "Acknowledge Error")

    def test_a_missing_echo_is_an_acknowledge_error(self):
        # The radio goes on, and its first data byte is taken for the echo.
        self.fails_with("no-echo", "Acknowledge Error")

    def test_a_stall_in_the_header_waits_for_the_user(self):
        self.waits_for_ctrl_c("stall@4")

    def test_a_terminal_that_vanishes_ends_the_read(self):
        radio = self.radio("--fault", "hangup@3000", "send")
        status, out, err = self.ctl("read", "--port", radio.port, "a.rdf")
        self.assertEqual((1, ""), (status, out))
        self.assertIn("ERROR\n", err)
        self.assertIn(radio.port + " has gone away.\n", err)
        self.assertEqual([], os.listdir(self.folder))

    def test_random_faults_never_leave_a_file_that_is_not_whole(self):
        for seed in range(1, 13):
            radio = self.radio("--fault", "random", "--seed", str(seed), "send")
            program = self.start("read", "--port", radio.port, "a.rdf")
            try:
                program.communicate(timeout=4)
            except subprocess.TimeoutExpired:  # it waits for the user, as it may
                program.send_signal(signal.SIGINT)
                program.communicate(timeout=60)
            radio.stop()
            with self.subTest(seed=seed):
                self.assertIn(program.returncode, (0, 1))
                self.assertEqual(program.returncode == 0, os.path.exists(self.path("a.rdf")))
            if program.returncode == 0:
                self.ok("info", "a.rdf")
                os.unlink(self.path("a.rdf"))


class WriteFaults(SystemTest):
    def setUp(self):
        super().setUp()
        self.make_template("t.tpl")
        self.read_radio("a.rdf")
        self.before = self.read_bytes("a.rdf")

    def write_arguments(self, radio):
        return ["write", "--port", radio.port, "--template", "t.tpl", "a.rdf"]

    def assert_next_write_works(self, radio):
        self.ok(*self.write_arguments(radio))
        self.assertEqual(self.before, self.read_bytes("a.rdf"))

    def test_a_wrong_answer_is_an_acknowledge_error(self):
        for fault in ("bad-ack", "bad-ack@1"):
            radio = self.radio("--fault", fault, "--image", "got", "receive")
            status, out, err = self.ctl(*self.write_arguments(radio))
            self.assertEqual((1, ""), (status, out))
            self.assertIn("Acknowledge Error\n", err)
            self.assertIn("only a part", err)
            self.assertFalse(os.path.exists(self.path("got")))
            self.assert_next_write_works(radio)
            radio.finish()
            os.unlink(self.path("got"))

    def waits_for_ctrl_c(self, fault):
        radio = self.radio("--fault", fault, "--image", "got", "receive")
        program = self.start(*self.write_arguments(radio)[:-1], "--trace", "trace", "a.rdf")
        wait_for(lambda: os.path.exists(self.path("trace")), "the program to send")
        for _ in range(50):
            signal.sigtimedwait([], 0.01)
        self.assertIsNone(program.poll())
        program.send_signal(signal.SIGINT)
        _, err = program.communicate(timeout=60)
        self.assertEqual(1, program.returncode)
        self.assertIn(b"Given up.\n", err)
        self.assertFalse(os.path.exists(self.path("got")))
        self.assert_next_write_works(radio)

    def test_a_missing_answer_waits_for_the_user(self):
        self.waits_for_ctrl_c("no-ack")

    def test_a_missing_echo_waits_for_the_user(self):
        self.waits_for_ctrl_c("no-echo")

    def test_a_dropped_byte_waits_for_the_user(self):
        self.waits_for_ctrl_c("drop@3000")

    def test_a_stall_waits_for_the_user(self):
        self.waits_for_ctrl_c("stall@3000")

    def test_a_byte_that_the_radio_gets_wrong_is_the_radios_to_find(self):
        # The program sees a right echo and no more; the radio refuses by its checksum.
        radio = self.radio("--fault", "flip@3000", "--image", "got", "receive")
        self.assertEqual(0, self.ctl(*self.write_arguments(radio))[0])
        self.assertFalse(os.path.exists(self.path("got")))

    def test_a_flipped_echo_is_not_looked_at(self):
        radio = self.radio("--fault", "flip-echo@3000", "--image", "got", "receive")
        self.assertEqual(0, self.ctl(*self.write_arguments(radio))[0])
        self.assertEqual(0, radio.finish()[0])
        self.assertTrue(os.path.exists(self.path("got")))

    def test_a_terminal_that_vanishes_is_no_success(self):
        for place in ("5", "3000", "8100"):
            radio = self.radio("--fault", "hangup@" + place, "--image", "got", "receive")
            status, _, err = self.ctl(*self.write_arguments(radio))
            self.assertEqual(1, status, place)
            self.assertIn(radio.port + " has gone away.\n", err)
            self.assertIn("only a part", err)


def main():
    SystemTest.programs = os.path.abspath(sys.argv.pop(1))
    unittest.main()


if __name__ == "__main__":
    main()
