#!/usr/bin/env python3
"""The program, its document, lists and template in folders of any script and any length:
desktop_paths_test.py WINDOWS_PROGRAMS NATIVE_PROGRAMS"""
import os
import shutil

import desktop
from desktop import CANCEL, DIALOG_CLASS, FILE_COMMENT, OK, SAVE, TITLE, DesktopTest
from qz7 import wait_for

FOLDER = "Žluťoučký кот 日本"
SHOWN_FOLDER = "Žlutoucký ??? ??"  # in the code page 1252
OPEN, IMPORT, EXPORT = 101, 149, 150
BROWSE_IMPORT, IMPORT_FILE = 102, 101


def shown(path):
    return path.replace(FOLDER, SHOWN_FOLDER)


class AnyScript(DesktopTest):
    """The program itself is in such a folder, and started there."""

    def setUp(self):
        super().setUp()
        names = os.listdir(self.folder)
        os.mkdir(self.path(FOLDER))
        for name in names:
            shutil.move(self.path(name), self.path(FOLDER))
        self.folder = self.path(FOLDER)
        self.set_preferences(TemplateFile=self.template_path)

    def open_document(self, name):
        """By the command line; returns its bytes."""
        before = self.make_document(name, comment="of the club")
        self.start(name.lower(), name=name)
        self.assertEqual("of the club", self.main.text(FILE_COMMENT))
        return before

    def test_the_data_folder_is_found_again(self):
        self.start()
        self.leave()
        self.assertEqual(self.shown_path(), self.preference("DataDir"))
        self.start()
        self.main.command(OPEN)
        self.choose_file("Open Radio File", self.make_named("here.rdf"))
        self.assert_title("here.rdf")
        self.leave()
        self.assertEqual(self.shown_path(), self.preference("DataDir"))

    def shown_path(self, *names):
        return shown(self.windows_path(*names))

    def make_named(self, name):
        self.make_document(name)
        return name

    def test_a_document_is_opened_by_the_command_line_and_saved(self):
        self.open_document("KLUB.RDF")
        self.main.set(FILE_COMMENT, "changed")
        self.main.command(SAVE)
        wait_for(lambda: self.read_bytes("KLUB.RDF")[100:107] == b"changed", "the file to be saved")
        self.leave_unsaved("KLUB.RDF")

    def test_a_whole_path_on_the_command_line_is_taken_in_upper_case(self):
        self.make_document("КОТ STRAßE.RDF", comment="of the cat")
        self.start(self.windows_path("кот straße"), name="??? STRAßE.RDF")
        self.assertEqual("of the cat", self.main.text(FILE_COMMENT))
        self.leave()

    def test_a_name_of_any_script_is_saved_and_opened_through_the_boxes(self):
        self.start()
        self.main.set(FILE_COMMENT, "on the hill")
        self.main.command(desktop.SAVE_AS)
        self.choose_file("Save Radio File", self.windows_path("日本 кот.rdf"))
        self.assert_title("?? ???.rdf")
        self.assertEqual(b"on the hill\0", self.read_bytes("日本 кот.rdf")[100:112])
        self.leave()
        self.start()
        self.main.command(OPEN)
        self.choose_file("Open Radio File", self.windows_path("日本 кот.rdf"))
        self.assert_title("?? ???.rdf")
        self.assertEqual("on the hill", self.main.text(FILE_COMMENT))
        self.leave()

    def test_save_as_proposes_the_last_name_to_the_letter(self):
        self.make_document("日本.rdf", comment="first")
        self.start()
        self.main.command(OPEN)
        self.choose_file("Open Radio File", self.windows_path("日本.rdf"))
        self.assert_title("??.rdf")
        self.main.command(desktop.SAVE_AS)
        box = self.window("Save Radio File")
        texts = [text for control, kind, text, _ in box.controls()
                 if control in desktop.FILE_NAME_FIELDS and kind == "Edit"]
        self.assertEqual(["日本.rdf"], texts)
        box.finish(CANCEL)
        self.leave_unsaved("??.rdf")

    def test_a_missing_file_is_named_as_far_as_the_code_page_goes(self):
        self.program = self.start_program("nowhere.rdf")
        path = self.shown_path("NOWHERE.RDF")
        self.answer(OK, f"Cannot open file:\n{path}", TITLE, "OK")
        self.main = self.window(f"{TITLE} - {desktop.NEW_NAME}", desktop.MAIN_CLASS)
        self.leave()

    def test_a_bad_template_is_told_at_the_start(self):
        self.write_bytes("šablona.tpl", b"none")
        self.set_preferences(DataDir=self.windows_path().replace(FOLDER, ""),
                             TemplateFile=self.shown_path("šablona.tpl"),
                             TemplateFileUtf8=escaped(self.windows_path("šablona.tpl")))
        self.program = self.start_program()
        self.answer(OK, "Not a template file:\n" + self.shown_path("šablona.tpl"), TITLE, "OK")
        self.main = self.window(f"{TITLE} - {desktop.NEW_NAME}", desktop.MAIN_CLASS)
        self.leave()

    def test_channels_are_exported_and_imported(self):
        self.open_document("KLUB.RDF")
        self.main.command(EXPORT)
        self.choose_file("Export Radio File", self.windows_path("список.csv"))
        wait_for(lambda: os.path.exists(self.path("список.csv")), "the list")
        self.assertTrue(self.read_bytes("список.csv").startswith(b'"RX Frequency"'))
        self.main.wait_until_in_front()
        self.main.command(IMPORT)
        dialog = self.window("", DIALOG_CLASS)
        dialog.press(BROWSE_IMPORT)
        self.choose_file("Open File for Import", self.windows_path("список.csv"))
        self.assertEqual(self.shown_path("??????.csv"), dialog.text(IMPORT_FILE))
        dialog.finish(CANCEL)
        self.assertEqual(self.shown_path() + "\\", self.preference("ImportDir"))
        self.leave_unsaved("KLUB.RDF")

    def test_a_second_start_raises_the_first(self):
        self.start()
        self.assertEqual(255, self.start_program("other.rdf").wait(desktop.LIMIT))
        self.main.wait_until_in_front()
        self.leave()

    def test_the_defaults_are_kept_where_the_program_was_started(self):
        self.start()
        self.main.press(123)
        wait_for(lambda: os.path.exists(self.path("qz7.def")), "the defaults")
        self.leave()
        self.assertEqual(799, os.path.getsize(self.path("qz7.def")))


def escaped(path):
    return "".join(chr(byte) if 0x20 < byte < 0x7F and byte != 0x25 else f"%{byte:02X}"
                   for byte in path.encode())


class AnyLength(DesktopTest):
    def setUp(self):
        super().setUp()
        self.below = "\\".join(letter * 90 for letter in "ABC")
        os.makedirs(self.path(self.below.replace("\\", "/")))

    def long_path(self, name):
        return self.windows_path(self.below, name)

    def read_long(self, name):
        return self.read_bytes(self.below.replace("\\", "/") + "/" + name)

    def test_a_document_is_opened_by_the_command_line_and_saved(self):
        self.make_document(self.below.replace("\\", "/") + "/A B.RDF", comment="deep down")
        self.start(self.long_path("a b.rdf"), name="A B.RDF")
        self.assertEqual("deep down", self.main.text(FILE_COMMENT))
        self.main.set(FILE_COMMENT, "changed")
        self.main.command(SAVE)
        wait_for(lambda: self.read_long("A B.RDF")[100:107] == b"changed", "the file to be saved")
        self.leave_unsaved("A B.RDF")
        folder = self.windows_path(self.below).upper()
        self.assertEqual((folder, folder),
                         (self.preference("DataDir"), self.preference("DataDirUtf8")))


class Profile(DesktopTest):
    def test_is_the_users_own_where_the_systems_cannot_be_written(self):
        users = os.path.join(self.desktop.prefix, "drive_c", "users")
        os.unlink(self.preferences_path)
        os.mkdir(self.preferences_path)  # a folder takes no text
        try:
            self.start()
            self.answer(OK, desktop.ADVICE, TITLE, "OK")
            self.leave()
        finally:
            os.rmdir(self.preferences_path)
        own = [os.path.join(folder, name) for folder, _, names in os.walk(users)
               for name in names if name == "Tamro.ini"]
        self.assertEqual([os.path.join("AppData", "Roaming", "Tamro", "Tamro.ini")],
                         [os.path.join(*path.split(os.sep)[-4:]) for path in own])
        with open(own[0], encoding="cp1252") as file:
            self.assertIn("DataDir=" + self.windows_path(), file.read().splitlines())
        os.unlink(own[0])


if __name__ == "__main__":
    desktop.main()
