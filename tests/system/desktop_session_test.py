#!/usr/bin/env python3
"""The end of the session, and where the keyboard is:
desktop_session_test.py WINDOWS_PROGRAMS NATIVE_PROGRAMS"""
import desktop
from desktop import (AUTO_POWER_OFF, CANCEL, DIALOG_CLASS, FILE_COMMENT, NO, OK, PREFERENCES,
                     YES, DesktopTest)
from qz7 import wait_for

ABOUT = 148
TRANSMIT_TIME_OUT = 104
LIMIT = desktop.LIMIT * 1000


class SessionEnd(DesktopTest):
    def may_end(self):
        return self.driver("may_end", LIMIT) == ["1"]

    def change_and_end_session(self):
        self.make_document("A.RDF", comment="as it was")
        self.start("a.rdf", name="A.RDF")
        self.main.set(FILE_COMMENT, "changed")
        self.driver("end_session", self.main.handle)

    def test_an_unchanged_document_lets_it_end(self):
        self.start()
        self.driver("end_session", self.main.handle)
        self.assertTrue(self.may_end())
        self.leave()

    def test_cancel_at_the_question_stops_it(self):
        self.change_and_end_session()
        self.answer_save_question(CANCEL, "A.RDF")
        self.assertFalse(self.may_end())
        self.assertEqual("changed", self.main.text(FILE_COMMENT))
        self.leave_unsaved("A.RDF")

    def test_no_at_the_question_lets_it_end(self):
        self.change_and_end_session()
        self.answer_save_question(NO, "A.RDF")
        self.assertTrue(self.may_end())
        self.assertEqual(b"as it was", self.read_bytes("A.RDF")[100:109])
        self.leave_unsaved("A.RDF")

    def test_yes_at_the_question_saves_and_lets_it_end(self):
        self.change_and_end_session()
        self.answer_save_question(YES, "A.RDF")
        self.assertTrue(self.may_end())
        self.assertEqual(b"changed\0", self.read_bytes("A.RDF")[100:108])
        self.leave_after_save()

    def leave_after_save(self):
        """The filler of a save differs from what is in memory, most of the time."""
        self.main.command(desktop.EXIT)
        titles = {desktop.TITLE}
        wait_for(lambda: self.program.poll() is not None or
                 any(title in titles and kind == DIALOG_CLASS for kind, title in self.windows()),
                 "the end or the question")
        if self.program.poll() is None:
            self.answer_save_question(NO, "A.RDF")
        self.assert_ends()


class Keyboard(DesktopTest):
    def assert_focus(self, control):
        wait_for(lambda: self.driver("focused", self.main.handle) == [str(control)],
                 f"the keyboard at {control}")

    def test_comes_back_to_its_control_after_a_dialog(self):
        self.start()
        for control in (TRANSMIT_TIME_OUT, AUTO_POWER_OFF, FILE_COMMENT):
            self.driver("tab_to", self.main.handle, control)
            self.assert_focus(control)
            for command, button in ((PREFERENCES, CANCEL), (ABOUT, OK)):
                self.main.command(command)
                dialog = self.window("", DIALOG_CLASS)
                self.driver("focus", dialog.handle, LIMIT)
                dialog.finish(button)
                self.assert_focus(control)
        self.leave()

    def test_comes_back_to_its_control_after_another_program(self):
        self.start()
        self.driver("tab_to", self.main.handle, TRANSMIT_TIME_OUT)
        self.assert_focus(TRANSMIT_TIME_OUT)
        other = self.start_program(program="notepad")
        window = self.window("", "Notepad")
        window.wait_until_in_front()
        self.driver("close", window.handle)
        other.wait(desktop.LIMIT)
        # A second start raises the first.
        self.start_program().wait(desktop.LIMIT)
        self.main.wait_until_in_front()
        self.assert_focus(TRANSMIT_TIME_OUT)
        self.leave()


if __name__ == "__main__":
    desktop.main()
