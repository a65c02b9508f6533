#!/usr/bin/env python3
"""Reading the radio, writing it and making a template, with the desktop program:
desktop_exchange_test.py WINDOWS_PROGRAMS NATIVE_PROGRAMS"""
import os
import unittest

import desktop
from desktop import (AUTO_POWER_OFF, CANCEL, CREATE_TEMPLATE, DONE_DIALOG, FILE_COMMENT, GET_DATA,
                     NEW_NAME, OK, PORT, PORT_SETUP, READ_DIALOG, SEND_DATA, TEMPLATE_DIALOG,
                     TITLE, WRITE_DIALOG, DesktopTest)
from qz7 import BLOCK, patched, wait_for

PORT_DIALOG = "Com Port Setup"
PORT_LIST = 101
TEMPLATE_NAME, CREATE, NEW_TEMPLATE_NAME = 104, 101, 102
MIRROR = 10456
NAMES, COMMENTS = 11202, 13602


def mirrored(image):
    """The operating state as a write refreshes it from the slot that the radio stands on."""
    image = bytearray(image)
    start = {0: 9178, 1: 9398}[image[10454]] + image[10455] * 22
    slot = image[start:start + 22]
    image[MIRROR:MIRROR + 8] = bytes([slot[0], slot[17] >> 2 & 3, slot[1], slot[17] & 3,
                                      slot[17] >> 4, slot[18], slot[19], slot[5] & 3])
    image[MIRROR + 8:MIRROR + 11] = slot[2:5]
    image[MIRROR + 12:MIRROR + 15] = slot[14:17]
    image[MIRROR + 16:MIRROR + 24] = slot[6:14]
    image[MIRROR + 24:MIRROR + 26] = slot[20:22]
    return image


def block_to_send(image, template):
    """What the radio gets: the document's block as the radio that the template is from."""
    block, identity = mirrored(image)[BLOCK], template[BLOCK]
    block[:10] = identity[:10]
    block[10:12] = identity[6:8]
    block[12:14] = identity[12:14]
    return bytes(block)


class ExchangeTest(DesktopTest):
    def make_template_file(self, name, seed=77):
        """A template of another radio; the program is set to use it."""
        self.make_memory("other.mem", seed)
        self.read_radio("other.rdf", "--image", self.path("other.mem"))
        radio = self.radio("--image", self.path("other.mem"), "send")
        self.ok("template", "--port", radio.port, name)
        radio.finish()
        self.template_path = self.windows_path(name)
        return self.read_bytes(name)

    def make_document_to_send(self, name):
        """With the radio on a VFO of the second bank whose record has no byte twice."""
        slot = dict(enumerate(range(0x81, 0x81 + 22), 9398 + 3 * 22))
        return self.make_document(name, comment="to send", changes={10454: 1, 10455: 3} | slot)

    def read_and_save(self, name):
        self.main.command(GET_DATA)
        self.window(READ_DIALOG).wait_until_gone()
        return self.save_as(name)

    def assert_told(self, what):
        """By the line at the main window's lower edge."""
        wait_for(lambda: self.main.status().startswith(what), what)

    def send(self):
        self.main.command(SEND_DATA)
        dialog = self.window(WRITE_DIALOG)
        dialog.press(OK)
        self.window(DONE_DIALOG).finish(OK)
        dialog.wait_until_gone()


class Reading(ExchangeTest):
    def setUp(self):
        super().setUp()
        self.memory = self.make_memory("radio.mem")

    def assert_reads_the_memory(self, speed):
        self.connect("--image", self.path("radio.mem"), "send", speed=speed)
        self.start()
        saved = self.read_and_save("READ.RDF")
        self.leave()
        self.assertEqual(self.memory, saved[BLOCK])
        # All the rest as the console program makes it.
        self.read_radio("console.rdf", "--image", self.path("radio.mem"))
        self.assertEqual(patched(self.read_bytes("console.rdf"), {}), patched(saved, {}))

    def test_the_saved_file_has_the_radios_memory_byte_for_byte(self):
        self.assert_reads_the_memory("fast")

    def test_a_radio_at_the_speed_of_the_wire_is_read_as_well(self):
        self.assert_reads_the_memory("wire")

    def test_what_was_read_is_an_unsaved_change(self):
        self.connect("send")
        self.start()
        self.main.press_keys("ctrl+g")
        self.window(READ_DIALOG).wait_until_gone()
        self.assert_told(f"8122 bytes read from COM{PORT}")
        self.leave_unsaved()

    def test_cancel_at_the_save_question_reads_nothing(self):
        self.make_document("A.RDF", comment="stays")
        self.connect("send")
        self.start("a.rdf", name="A.RDF")
        self.main.choose(AUTO_POWER_OFF, 2)
        self.main.command(GET_DATA)
        self.answer_save_question(CANCEL, "A.RDF")
        self.assertEqual("stays", self.main.text(FILE_COMMENT))
        self.assertEqual(1, len(self.windows()))
        self.leave_unsaved("A.RDF")

    def test_cancel_while_it_waits_for_the_radio_leaves_a_new_document(self):
        self.make_document("A.RDF", comment="opened")
        self.connect("receive")  # never sends
        self.start("a.rdf", name="A.RDF")
        self.main.command(GET_DATA)
        dialog = self.window(READ_DIALOG)
        self.assertFalse(self.main.is_enabled())
        dialog.finish(CANCEL)
        self.assert_title(NEW_NAME)
        self.assertEqual("", self.main.text(FILE_COMMENT))
        self.leave()


class Port(ExchangeTest):
    def test_without_a_port_the_user_is_asked_for_one(self):
        memory = self.make_memory("radio.mem")
        self.connect("--image", self.path("radio.mem"), "send")
        self.set_preferences(DataDir=self.windows_path(), TemplateFile=self.template_path)
        self.start()
        self.main.command(GET_DATA)
        ports = self.window(PORT_DIALOG)
        self.assertEqual((0, "None"), (ports.chosen(PORT_LIST), ports.text(PORT_LIST)))
        ports.choose(PORT_LIST, PORT)
        ports.finish(OK)
        self.window(READ_DIALOG).wait_until_gone()
        self.assertEqual(memory, self.save_as("READ.RDF")[BLOCK])
        self.leave()
        self.assertEqual(str(PORT), self.preference("Com"))

    def test_without_a_chosen_port_nothing_is_read(self):
        self.start()
        self.main.command(GET_DATA)
        self.window(PORT_DIALOG).finish(CANCEL)
        self.leave()

    def test_a_port_that_is_not_there_is_told_at_the_start(self):
        self.set_preferences(DataDir=self.windows_path(), TemplateFile=self.template_path, Com=8)
        self.program = self.start_program()
        self.answer(OK, "COM8: Invalid or unsupported port.", "Com port error", "OK")
        self.main = self.window(f"{TITLE} - {NEW_NAME}", desktop.MAIN_CLASS)
        self.leave()

    def test_the_port_that_is_open_stays_when_another_cannot_be_opened(self):
        memory = self.make_memory("radio.mem")
        self.connect("--image", self.path("radio.mem"), "send")
        self.start()
        self.main.command(PORT_SETUP)
        ports = self.window(PORT_DIALOG)
        ports.choose(PORT_LIST, 8)
        ports.finish(OK)
        self.answer(OK, "COM8: Invalid or unsupported port.", "Com port error", "OK")
        self.window(PORT_DIALOG).finish(CANCEL)
        self.assertEqual(memory, self.read_and_save("READ.RDF")[BLOCK])
        self.leave()
        self.assertEqual(str(PORT), self.preference("Com"))


class Writing(ExchangeTest):
    """The template and what the radio stands on go into the copy that changes are found by, so that
    leaving asks about a document whose own bytes are as they were."""

    def test_the_radio_gets_the_document_under_its_own_identity(self):
        template = self.make_template_file("t.tpl")
        document = self.make_document_to_send("A.RDF")
        radio = self.connect("--image", self.path("got"), "receive")
        self.start("a.rdf", name="A.RDF")
        self.send()
        self.assert_told(f"8122 bytes sent to COM{PORT}")
        self.assertRegex(radio.line(), "^received 8123 bytes")
        self.leave_unsaved("A.RDF")
        expected = block_to_send(document, template)
        self.assertEqual(expected, self.read_bytes("got"))
        self.assertNotEqual(document[BLOCK][:14], expected[:14])
        self.assertNotEqual(document[MIRROR:MIRROR + 26], mirrored(document)[MIRROR:MIRROR + 26])
        self.assertEqual(document, self.read_bytes("A.RDF"))

    def test_what_was_changed_and_not_saved_is_sent(self):
        template = self.make_template_file("t.tpl")
        document = bytearray(self.make_document_to_send("A.RDF"))
        radio = self.connect("--image", self.path("got"), "receive")
        self.start("a.rdf", name="A.RDF")
        self.main.choose(AUTO_POWER_OFF, 3)
        self.send()
        self.assertRegex(radio.line(), "^received 8123 bytes")
        self.leave_unsaved("A.RDF")
        document[10240] = 3
        self.assertEqual(block_to_send(document, template), self.read_bytes("got"))

    def test_the_template_is_named_without_its_folder(self):
        self.make_template_file("t.tpl")
        self.connect("receive")
        self.start()
        self.main.command(SEND_DATA)
        dialog = self.window(WRITE_DIALOG)
        self.assertEqual("t.tpl", dialog.text(TEMPLATE_NAME))
        dialog.finish(CANCEL)
        self.leave_unsaved()

    def test_without_a_template_nothing_is_sent(self):
        self.template_path = ""
        self.connect("--image", self.path("got"), "receive")
        self.start()
        self.answer(OK, desktop.ADVICE, TITLE, "OK")
        self.main.command(SEND_DATA)
        dialog = self.window(WRITE_DIALOG)
        dialog.press(OK)
        # The box shows no line for the last line feed.
        self.answer(OK, "No template file specified.\nUse Browse Template to select one\n"
                    "or Help for create instructions.\n", TITLE, "OK")
        dialog.finish(CANCEL)
        self.leave_unsaved()
        self.assertFalse(os.path.exists(self.path("got")))

    def test_a_radio_data_file_is_no_template(self):
        self.make_document("t.tpl")
        self.connect("receive")
        self.start()
        self.template_path = self.windows_path("t.tpl")
        self.main.command(SEND_DATA)
        dialog = self.window(WRITE_DIALOG)
        dialog.press(105)
        self.choose_file("Select Radio Template File", self.template_path)
        dialog.press(OK)
        self.answer(OK, f"Not a template file:\n{self.template_path}", TITLE, "OK")
        dialog.finish(CANCEL)
        self.leave_unsaved()
        self.assertEqual(self.template_path, self.preference("TemplateFile"))


class Template(ExchangeTest):
    def start_without_template(self):
        self.template_path = ""
        radio = self.connect("--image", self.path("radio.mem"), "send")
        self.start()
        self.answer(OK, desktop.ADVICE, TITLE, "OK")
        return radio

    def read_for_template(self):
        self.main.command(CREATE_TEMPLATE)
        self.window(READ_DIALOG).wait_until_gone()
        return self.window(TEMPLATE_DIALOG)

    def test_the_file_is_the_radio_that_was_read_and_is_used_from_then_on(self):
        memory = self.make_memory("radio.mem")
        self.start_without_template()
        dialog = self.read_for_template()
        self.assertEqual("Template", dialog.text(NEW_TEMPLATE_NAME))
        dialog.set(NEW_TEMPLATE_NAME, "my rad.x")
        dialog.finish(CREATE)
        self.leave_unsaved()
        made = self.read_bytes("my.tpl")
        self.assertEqual((21282, b"TPL\0QZ7H\2\0\0\0", bytes(18)),
                         (len(made), made[:12], made[82:100]))
        self.assertEqual((memory, sum(memory) % 256, 0),
                         (made[BLOCK], made[80], sum(made) % 256))
        self.assertEqual(self.windows_path("my.tpl"), self.preference("TemplateFile"))
        self.disconnect()
        self.start()
        self.leave()  # no advice was in the way

    def test_the_document_is_the_same_radio_and_has_no_name_yet(self):
        memory = self.make_memory("radio.mem")
        self.start_without_template()
        self.read_for_template().finish(CREATE)
        self.main.command(desktop.SAVE)
        self.choose_file("Save Radio File", self.windows_path("SAVED.RDF"))
        self.assert_title("SAVED.RDF")
        saved, made = self.read_bytes("SAVED.RDF"), self.read_bytes("Template.tpl")
        self.leave()
        self.assertEqual(memory, saved[BLOCK])
        self.assertEqual((b"RDF", b"TPL"), (saved[:3], made[:3]))
        saved = patched(saved, {})
        self.assertEqual((saved[100:NAMES], saved[COMMENTS:]), (made[100:NAMES], made[COMMENTS:]))
        # The names are taken out of the records when the document takes the radio's data.
        for place in range(240):
            name = saved[3678 + place * 22 + 6:][:8]
            self.assertEqual(name, saved[NAMES + place * 10:][:8])

    def test_cancel_at_the_name_makes_no_file_and_takes_nothing(self):
        self.make_memory("radio.mem")
        self.start_without_template()
        self.read_for_template().finish(CANCEL)
        self.leave_unsaved()
        self.assertEqual("", self.preference("TemplateFile"))
        self.assertEqual([], [name for name in os.listdir(self.folder) if name.endswith(".tpl")])


if __name__ == "__main__":
    desktop.main()
