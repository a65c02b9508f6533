#!/usr/bin/env python3
"""The memory list of the running program under a real keyboard and mouse, beside other programs'
clipboard: desktop_list_test.py WINDOWS_PROGRAMS NATIVE_PROGRAMS"""
import os
import subprocess

import desktop
from desktop import OK, SAVE, TITLE, YES, DesktopTest
from qz7 import fields, wait_for

VIEW = 110
FIND_TEXT = 101
ROWS = 101


class MemoryList(DesktopTest):
    def setUp(self):
        super().setUp()
        self.make_document("LIST.RDF")
        for n, name in ((2, "BERLIN"), (3, "BREMEN"), (12, "ULM")):
            self.ok("set", "LIST.RDF", "LIST.RDF", str(n), "rx=145.5", f"name={name}",
                    f"comment=of {name}")
        self.start("list.rdf", name="LIST.RDF")
        self.main.command(VIEW)
        self.list = self.window("Memory Channels")
        # The screen's own keyboard comes to a new window a little later than Wine's.
        wait_for(lambda: self.keys("End") or self.list.chosen(ROWS) == 239, "the keyboard")
        self.keys("Home")

    def xdotool(self, *arguments):
        return subprocess.run(["xdotool", *arguments], env=self.desktop.environment, check=True,
                              capture_output=True, text=True).stdout

    def into_front(self, window):
        window.wait_until_in_front()
        self.driver("focus", window.handle, desktop.LIMIT * 1000)

    def keys(self, *names):
        self.into_front(self.list)
        self.xdotool("key", "--delay", "20", *names)

    def names(self, *channels):
        return [fields(self.ok("show", "LIST.RDF", str(n)))["name"] for n in channels]

    def accept_and_save(self):
        self.list.finish(OK)
        self.main.wait_until_in_front()
        before = os.stat(self.path("LIST.RDF")).st_mtime_ns
        self.main.command(SAVE)
        wait_for(lambda: os.stat(self.path("LIST.RDF")).st_mtime_ns != before, "the save")
        self.main.command(desktop.EXIT)
        self.answer_save_question(desktop.NO, "LIST.RDF")
        self.assert_ends()

    def test_several_rows_are_moved_by_the_keyboard(self):
        self.keys("Down", "shift+Down", "alt+Down", "alt+Down", "ctrl+z")
        self.accept_and_save()
        self.assertEqual(["", "BERLIN", "BREMEN"], self.names(2, 3, 4))

    def test_copied_rows_are_pasted_where_a_number_was_typed(self):
        self.keys("Down", "shift+Down", "ctrl+c", "4", "0", "ctrl+v")
        self.accept_and_save()
        self.assertEqual(["BERLIN", "BREMEN", "BERLIN", "BREMEN"], self.names(2, 3, 40, 41))
        self.assertEqual("of BREMEN", fields(self.ok("show", "LIST.RDF", "41"))["comment"])

    def test_delete_closes_the_gap_and_undo_opens_it_again(self):
        self.keys("Down", "Delete", "End", "Home", "ctrl+z", "ctrl+y", "u", "ctrl+Delete")
        self.accept_and_save()
        self.assertEqual(["BREMEN", ""], self.names(2, 11))

    def test_what_is_looked_for_is_found_and_edited(self):
        self.keys("ctrl+f")
        find = self.window("Find Channel")
        find.set(FIND_TEXT, "of ulm")
        find.finish(OK)
        self.keys("Return")
        editor = self.window("Edit Memory Channel 12")
        editor.finish(desktop.CANCEL)
        self.keys("alt+Up", "ctrl+z")
        self.list.finish(desktop.CANCEL)
        self.leave()

    def test_cancel_asks_only_where_something_is_changed(self):
        self.keys("alt+Down")
        self.list.press(desktop.CANCEL)
        self.answer(YES, "Cancel all changes to memory channels?", TITLE, "Yes No")
        self.list.wait_until_gone()
        self.leave()

    def test_it_opens_where_and_as_large_as_it_was_left(self):
        window = self.xdotool("search", "--name", "^Memory Channels$").split()[-1]
        self.xdotool("windowsize", "--sync", window, "800", "600")
        self.xdotool("windowmove", "--sync", window, "100", "80")
        self.list.finish(desktop.CANCEL)
        left, top, width, height = map(int, self.preference("MemoryListPlace").split())
        self.assertTrue(80 <= left <= 120 and 40 <= top <= 110, (left, top))
        self.assertTrue(790 <= width <= 830 and 590 <= height <= 650, (width, height))
        self.leave()


if __name__ == "__main__":
    desktop.main()
