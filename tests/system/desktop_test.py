#!/usr/bin/env python3
"""Starting, the command line, saving and leaving: desktop_test.py WINDOWS_PROGRAMS NATIVE_PROGRAMS"""
import os

import desktop
from desktop import (ADVICE, AUTO_POWER_OFF, CANCEL, DIALOG_CLASS, EXIT, FILE_COMMENT, MAIN_CLASS,
                     NEW_NAME, NO, OK, PREFERENCES, SAVE, SAVE_AS, TITLE, YES, DesktopTest)
from qz7 import wait_for

ANOTHER_WINDOW = "Notepad"
RAISED_STATUS = 255  # -1 as a byte


class Start(DesktopTest):
    def test_shows_the_main_window_with_a_new_document(self):
        main = self.start()
        self.assertEqual([(MAIN_CLASS, f"{TITLE} - {NEW_NAME}")], self.windows())
        self.assertEqual("", main.text(FILE_COMMENT))
        self.leave()

    def test_without_a_template_file_it_gives_the_first_advice_every_time(self):
        for _ in range(2):
            self.set_preferences(DataDir=self.windows_path())
            self.start()
            self.answer(OK, ADVICE, TITLE, "OK")
            self.leave()

    def test_the_data_folder_is_the_programs_own_at_first(self):
        self.set_preferences(TemplateFile=self.template_path)
        self.start()
        self.leave()
        self.assertEqual(self.windows_path(), self.preference("DataDir"))

    def test_a_missing_resource_library_is_told_and_no_failure(self):
        os.unlink(self.path("qz732.dll"))
        self.program = self.start_program()
        self.answer(OK, "An error occured while trying to load the resources\nError no. 32",
                    "Error", "OK")
        self.assert_ends()

    def start_another_program(self):
        """Something else comes to the front."""
        program = self.start_program(program="notepad")
        window = self.window("", ANOTHER_WINDOW)
        window.wait_until_in_front()
        return program, window

    def assert_second_start_raises(self, window):
        other, other_window = self.start_another_program()
        before = sorted(self.windows())
        self.assertEqual(RAISED_STATUS, self.start_program().wait(desktop.LIMIT))
        window.wait_until_in_front()
        self.driver("focus", window.handle, desktop.LIMIT * 1000)
        self.assertEqual(before, sorted(self.windows()))
        self.driver("close", other_window.handle)
        other.wait(desktop.LIMIT)

    def test_a_second_start_raises_the_first(self):
        self.assert_second_start_raises(self.start())
        self.leave()

    def test_a_second_start_raises_the_pop_up_of_the_first(self):
        self.start().command(PREFERENCES)
        popup = self.window("", DIALOG_CLASS)
        self.assert_second_start_raises(popup)
        popup.finish(CANCEL)
        self.leave()

    def test_a_second_start_raises_the_message_over_the_dialog_of_the_first(self):
        self.make_document("A.RDF", comment="as it was")
        self.start("a.rdf", name="A.RDF")
        self.main.set(FILE_COMMENT, "changed")
        self.main.command(EXIT)
        question = self.window(TITLE)
        self.assert_second_start_raises(question)
        question.finish(NO)
        self.assert_ends()


class CommandLine(DesktopTest):
    def assert_opens(self, name, *arguments):
        self.start(*arguments, name=name)
        self.assertEqual("of " + name, self.main.text(FILE_COMMENT))
        self.leave()

    def test_a_bare_name_is_taken_in_upper_case_without_an_extension(self):
        self.make_document("HILL", comment="of HILL")
        self.make_document("HILL.RDF", comment="the wrong one")
        self.assert_opens("HILL", "hill")

    def test_a_switch_before_the_name_is_skipped(self):
        self.make_document("TOWN", comment="of TOWN")
        self.assert_opens("TOWN", "/x", "town")

    def test_a_name_with_a_folder_gets_the_extension(self):
        os.mkdir(self.path("SUB"))
        self.make_document("SUB/LAKE.RDF", comment="of LAKE.RDF")
        self.make_document("SUB/LAKE", comment="the wrong one")
        self.assert_opens("LAKE.RDF", "sub\\lake")
        self.assertEqual(self.windows_path("SUB"), self.preference("DataDir"))

    def test_a_path_in_quotation_marks_is_taken_whole(self):
        os.mkdir(self.path("TWO WORDS"))
        self.make_document("TWO WORDS/A B.RDF", comment="of A B.RDF")
        self.assert_opens("A B.RDF", self.windows_path("two words", "a b.rdf"))

    def test_a_file_that_does_not_exist_leaves_the_new_document(self):
        self.program = self.start_program("nowhere.rdf")
        path = self.windows_path("NOWHERE.RDF")
        self.answer(OK, f"Cannot open file:\n{path}", TITLE, "OK")
        self.main = self.window(f"{TITLE} - {NEW_NAME}", MAIN_CLASS)
        self.leave()

    def test_a_name_that_is_too_long_for_a_path_is_told_as_it_was_given(self):
        name = "n" * 250
        self.program = self.start_program(name)
        self.answer(OK, f"Cannot open file:\n{name}", TITLE, "OK")
        self.main = self.window(f"{TITLE} - {NEW_NAME}", MAIN_CLASS)
        self.leave()


class Leaving(DesktopTest):
    def change(self):
        self.main.choose(AUTO_POWER_OFF, 2)

    def test_asks_nothing_when_nothing_was_changed(self):
        self.make_document("A.RDF", comment="as it was")
        self.start("a.rdf", name="A.RDF")
        self.leave()

    def test_no_gives_the_changes_up(self):
        before = self.make_document("A.RDF")
        self.start("a.rdf", name="A.RDF")
        self.change()
        self.leave_unsaved("A.RDF")
        self.assertEqual(before, self.read_bytes("A.RDF"))

    def test_cancel_stays_with_the_document(self):
        self.start()
        self.change()
        self.main.command(EXIT)
        self.answer_save_question(CANCEL)
        self.assertEqual([(MAIN_CLASS, f"{TITLE} - {NEW_NAME}")], self.windows())
        self.assertIsNone(self.program.poll())
        self.leave_unsaved()

    def test_yes_saves_under_a_name_and_ends(self):
        self.start()
        self.change()
        self.main.command(EXIT)
        self.answer_save_question(YES)
        self.choose_file("Save Radio File", self.windows_path("kept"))
        self.assert_ends()
        self.assertEqual(2, self.read_bytes("kept.rdf")[10240])

    def test_yes_stays_when_the_save_box_is_cancelled(self):
        self.start()
        self.change()
        self.main.command(EXIT)
        self.answer_save_question(YES)
        self.window("Save Radio File").finish(CANCEL)
        self.leave_unsaved()

    def test_closing_the_window_asks_as_well(self):
        self.start()
        self.change()
        self.driver("close", self.main.handle)
        self.answer_save_question(NO)
        self.assert_ends()

    def test_asks_again_after_file_save(self):
        self.make_document("A.RDF")
        self.start("a.rdf", name="A.RDF")
        self.change()
        self.main.command(SAVE)
        wait_for(lambda: self.read_bytes("A.RDF")[10240] == 2, "the file to be saved")
        self.leave_unsaved("A.RDF")

    def test_asks_nothing_after_save_as(self):
        self.start()
        self.change()
        self.main.set(FILE_COMMENT, "on the hill")
        saved = self.save_as("B.RDF")
        self.assertEqual((2, b"on the hill\0"), (saved[10240], saved[100:112]))
        self.leave()
        self.assertEqual(0, self.ctl("info", "B.RDF")[0])

    def test_file_save_of_a_new_document_asks_for_a_name(self):
        self.start()
        for command in (SAVE, SAVE_AS):
            self.main.command(command)
            self.window("Save Radio File").finish(CANCEL)
        self.leave_unsaved()
        self.assertEqual([], [name for name in os.listdir(self.folder) if name.endswith(".rdf")])


if __name__ == "__main__":
    desktop.main()
