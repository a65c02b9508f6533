#!/usr/bin/env python3
"""Every fault of the stand-in radio, against the desktop program:
desktop_faults_test.py WINDOWS_PROGRAMS NATIVE_PROGRAMS"""
import os
import unittest

import desktop
from desktop import (CANCEL, DIALOG_CLASS, DONE_DIALOG, FILE_COMMENT, GET_DATA, MAIN_CLASS,
                     NEW_NAME, OK, READ_DIALOG, RETRY, SEND_DATA, TITLE, WRITE_DIALOG)
from desktop_exchange_test import ExchangeTest, block_to_send
from qz7 import BLOCK, wait_for

LINK_CAPTION = "Communications Error"


class FaultTest(ExchangeTest):
    def answer_link_error(self, button, text):
        self.answer(button, text, LINK_CAPTION, "Retry Cancel")

    def assert_waits_for_cancel(self, dialog):
        """No box and no end: the dialog is all there is, and Cancel all it can do."""
        self.assertEqual([(DIALOG_CLASS, dialog.title), self.main_entry],
                         sorted(self.windows()))
        self.assertEqual({"Cancel", "Help"}, dialog.usable_buttons())

    def cancel(self, dialog):
        dialog.finish(CANCEL)
        self.assertTrue(self.main.is_enabled())


class ReadFaults(FaultTest):
    main_entry = (MAIN_CLASS, f"{TITLE} - {NEW_NAME}")

    def setUp(self):
        super().setUp()
        self.memory = self.make_memory("radio.mem")
        self.make_document("A.RDF", comment="opened before")

    def begin_read(self, fault):
        self.connected = self.connect("--image", self.path("radio.mem"), "--fault", fault, "send")
        self.start("a.rdf", name="A.RDF")
        self.main.command(GET_DATA)
        dialog = self.window(READ_DIALOG)
        self.connected.wait_until_said("playing the fault " + fault)
        return dialog

    def assert_new_document(self):
        self.assert_title(NEW_NAME)
        self.assertEqual("", self.main.text(FILE_COMMENT))

    def assert_next_read_works(self):
        """What has come of the failed one makes the new document differ, and so the user is asked."""
        self.main.command(GET_DATA)
        self.answer_save_question(desktop.NO)
        self.window(READ_DIALOG).wait_until_gone()
        self.assertEqual(self.memory, self.save_as("NEXT.RDF")[BLOCK])
        self.leave()

    def fails_with(self, fault, text):
        dialog = self.begin_read(fault)
        self.answer_link_error(CANCEL, text)
        dialog.wait_until_gone()
        self.assert_new_document()
        self.assert_next_read_works()

    def test_noise_before_the_header_is_skipped(self):
        self.begin_read("noise").wait_until_gone()
        self.assertEqual(self.memory, self.save_as("READ.RDF")[BLOCK])
        self.leave()

    def test_a_stall_times_out(self):
        self.fails_with("stall@3000", "Receive Timeout")

    def test_a_stall_in_the_first_block_times_out(self):
        self.fails_with("stall@20", "Receive Timeout")

    def test_a_flipped_byte_is_a_checksum_error(self):
        self.fails_with("flip@3000", "Checksum Error")

    def test_a_doubled_byte_is_a_checksum_error(self):
        self.fails_with("double@3000", "Checksum Error")

    def test_a_wrong_checksum_is_told(self):
        self.fails_with("checksum", "Checksum Error")

    def test_a_flipped_echo_is_an_acknowledge_error(self):
        self.fails_with("flip-echo@0", "Acknowledge Error")

    def test_a_missing_echo_is_an_acknowledge_error(self):
        # The radio goes on, and its first data byte is taken for the echo.
        self.fails_with("no-echo", "Acknowledge Error")

    def waits_for_cancel(self, fault, said):
        dialog = self.begin_read(fault)
        self.connected.wait_until_said(said)
        self.connected.wait_until_taken()
        self.assert_waits_for_cancel(dialog)
        self.cancel(dialog)
        self.assert_new_document()
        self.assert_next_read_works()

    def test_a_dropped_byte_leaves_the_checksum_missing_and_waits_for_the_user(self):
        # The checksum byte takes the last data byte's place; there is no time-out behind it.
        self.waits_for_cancel("drop@3000", "everything sent")

    def test_a_stall_in_the_header_waits_for_the_user(self):
        self.waits_for_cancel("stall@4", "playing the fault")

    def test_retry_after_a_checksum_error_takes_the_next_byte_for_a_checksum(self):
        dialog = self.begin_read("checksum")
        # Listening again makes the radio start again; its header's first byte is no checksum.
        for _ in range(2):
            self.answer_link_error(RETRY, "Checksum Error")
        self.answer_link_error(CANCEL, "Checksum Error")
        dialog.wait_until_gone()
        self.assert_new_document()
        self.leave_unsaved()

    def test_retry_after_a_time_out_finds_no_header_again_and_waits_for_the_user(self):
        dialog = self.begin_read("stall@3000")
        starts = self.connected.said().count("sending the header")
        self.answer_link_error(RETRY, "Receive Timeout")
        wait_for(lambda: self.connected.said().count("sending the header") > starts,
                 "the radio to start again")
        self.assert_waits_for_cancel(dialog)
        self.cancel(dialog)
        self.assert_next_read_works()

    def test_a_terminal_that_vanishes_is_told_once_and_waits_for_the_user(self):
        dialog = self.begin_read("hangup@3000")
        self.answer(OK, "ERROR", "Read Error", "OK")
        self.assert_waits_for_cancel(dialog)
        self.cancel(dialog)
        self.assert_new_document()
        self.leave_unsaved()


class WriteFaults(FaultTest):
    main_entry = (MAIN_CLASS, f"{TITLE} - A.RDF")

    def setUp(self):
        super().setUp()
        self.template = self.make_template_file("t.tpl")
        self.document = self.make_document_to_send("A.RDF")

    def begin_write(self, fault):
        self.connected = self.connect("--image", self.path("got"), "--fault", fault, "receive")
        self.start("a.rdf", name="A.RDF")
        self.main.command(SEND_DATA)
        dialog = self.window(WRITE_DIALOG)
        dialog.press(OK)
        self.connected.wait_until_said("playing the fault " + fault)
        return dialog

    def finish_and_leave(self):
        self.leave_unsaved("A.RDF")
        self.assertEqual(self.document, self.read_bytes("A.RDF"))

    def assert_nothing_received(self):
        self.assertFalse(os.path.exists(self.path("got")))

    def assert_received(self):
        self.assertRegex(self.connected.line(), "^received 8123 bytes")
        self.assertEqual(block_to_send(self.document, self.template), self.read_bytes("got"))

    def assert_next_write_works(self):
        self.assert_nothing_received()
        self.send()
        self.assertRegex(self.connected.line(), "^exchange failed: ")
        self.assert_received()
        self.finish_and_leave()

    def fails_with(self, fault, text):
        dialog = self.begin_write(fault)
        self.answer_link_error(CANCEL, text)
        dialog.wait_until_gone()
        self.assert_next_write_works()

    def test_a_wrong_answer_to_the_header_is_an_acknowledge_error(self):
        self.fails_with("bad-ack@0", "Acknowledge Error")

    def test_a_wrong_answer_to_the_first_block_is_an_acknowledge_error(self):
        self.fails_with("bad-ack@1", "Acknowledge Error")

    def test_a_doubled_echo_of_the_header_is_taken_for_a_wrong_answer(self):
        self.fails_with("double@9", "Acknowledge Error")

    def test_retry_after_a_wrong_answer_leaves_only_cancel(self):
        dialog = self.begin_write("bad-ack@0")
        self.answer_link_error(RETRY, "Acknowledge Error")
        self.assert_waits_for_cancel(dialog)
        self.cancel(dialog)
        self.assert_next_write_works()

    def waits_for_cancel(self, fault):
        dialog = self.begin_write(fault)
        self.assert_waits_for_cancel(dialog)
        self.cancel(dialog)
        self.assert_next_write_works()

    def test_a_missing_answer_waits_for_the_user(self):
        self.waits_for_cancel("no-ack")

    def test_a_missing_echo_waits_for_the_user(self):
        self.waits_for_cancel("no-echo")

    def test_a_dropped_byte_waits_for_the_user(self):
        self.waits_for_cancel("drop@3000")

    def test_a_stall_waits_for_the_user(self):
        self.waits_for_cancel("stall@3000")

    def is_the_radios_to_find(self, fault):
        """The program sees a right echo and no more; the radio refuses by its checksum."""
        dialog = self.begin_write(fault)
        self.window(DONE_DIALOG).finish(OK)
        dialog.wait_until_gone()
        self.assertRegex(self.connected.line(), "^exchange failed: the checksum is wrong")
        self.assert_nothing_received()
        self.finish_and_leave()

    def test_a_byte_that_the_radio_gets_wrong_is_the_radios_to_find(self):
        self.is_the_radios_to_find("flip@3000")

    def test_a_checksum_that_the_radio_refuses_is_the_radios_to_find(self):
        self.is_the_radios_to_find("checksum")

    def test_a_flipped_echo_is_not_looked_at(self):
        dialog = self.begin_write("flip-echo@3000")
        self.window(DONE_DIALOG).finish(OK)
        dialog.wait_until_gone()
        self.assert_received()
        self.finish_and_leave()

    def assert_no_success(self, place):
        dialog = self.begin_write(f"hangup@{place}")
        self.answer(OK, "ERROR", "Read Error", "OK")
        self.assert_waits_for_cancel(dialog)
        self.cancel(dialog)
        self.assert_nothing_received()
        self.finish_and_leave()

    def test_a_terminal_that_vanishes_in_the_header_is_no_success(self):
        # Bytes that cannot be written are not told; their echo that cannot be read is.
        self.assert_no_success(5)

    def test_a_terminal_that_vanishes_in_the_middle_is_no_success(self):
        self.assert_no_success(3000)

    def test_a_terminal_that_vanishes_in_the_last_block_is_no_success(self):
        self.assert_no_success(8121)


if __name__ == "__main__":
    desktop.main()
