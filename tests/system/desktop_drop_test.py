#!/usr/bin/env python3
"""Files dropped on the main window by another program of the screen:
desktop_drop_test.py WINDOWS_PROGRAMS NATIVE_PROGRAMS"""
import os
import subprocess
import sys

import desktop
from desktop import CANCEL, FILE_COMMENT, NO, TITLE, YES, DesktopTest
from memory_list import middle

DRAG_SOURCE = os.path.join(os.path.dirname(os.path.abspath(__file__)), "drag_source.py")
IMPORT_FILE = 101


class Dropping(DesktopTest):
    def drop(self, *names):
        self.main.wait_until_in_front()
        number = self.driver("screen_window", self.main.handle)[0]
        subprocess.run([sys.executable, DRAG_SOURCE, number, *map(str, middle(self.main.area())),
                        *map(self.path, names)], env=self.desktop.environment, check=True,
                       timeout=2 * desktop.LIMIT)

    def assert_note(self, note):
        self.main.wait_to_be(note, lambda: self.main.status().split(" | ")[0])

    def test_a_radio_file_is_opened_after_the_question_about_changes(self):
        os.mkdir(self.path("TWO WORDS"))
        self.make_document("TWO WORDS/Žlutý кот.rdf", comment="of the cat")
        self.start()
        self.main.press_keys("alt+n", "h")
        self.drop("TWO WORDS/Žlutý кот.rdf")
        self.answer_save_question(CANCEL)
        self.assert_note("Nothing opened")
        self.drop("TWO WORDS/Žlutý кот.rdf")
        self.answer_save_question(NO)
        self.assert_title("Žlutý ???.rdf")
        self.assertEqual("of the cat", self.main.text(FILE_COMMENT))
        self.leave()

    def test_a_list_starts_the_import_with_that_file(self):
        self.write_bytes("list.csv", b"RX Frequency,Name\r\n145.5,ULM\r\n")
        self.start()
        self.drop("list.csv")
        window = self.window("Import")
        self.assertEqual(self.windows_path("list.csv"), window.text(IMPORT_FILE))
        window.press_keys("Escape")
        self.assert_note("Import cancelled")
        self.leave()

    def test_a_template_is_taken_after_a_question(self):
        self.make_template("mine.tpl")
        self.start()
        path = self.windows_path("mine.tpl")
        for answer, taken in ((NO, self.template_path), (YES, path)):
            self.drop("mine.tpl")
            self.answer(answer, f"Use this template when data is sent?\n{path}", TITLE, "Yes No")
            self.assert_note("mine.tpl is the template" if answer == YES else
                             "mine.tpl did not become the template")
            self.assertEqual(taken, self.preference("TemplateFile"))
        self.leave()

    def test_another_file_is_named_in_the_line(self):
        self.write_bytes("photo.jpg", b"no picture")
        self.start()
        self.drop("photo.jpg")
        self.assert_note("photo.jpg is no radio file, list or template")
        self.leave()

    def test_the_first_of_several_is_taken(self):
        self.make_document("first.rdf", comment="of the first")
        self.make_document("second.rdf")
        self.start()
        self.drop("first.rdf", "second.rdf")
        self.assert_title("first.rdf")
        self.assert_note("the first of 2 files was taken")
        self.leave()


if __name__ == "__main__":
    desktop.main()
