#!/usr/bin/env python3
"""The memory list under the screen's own keyboard and mouse, beside another program's clipboard:
desktop_list_test.py WINDOWS_PROGRAMS NATIVE_PROGRAMS"""
import desktop
import memory_list
from desktop import TITLE, YES, DesktopTest
from driven_window import Refused
from memory_list import MemoryList
from qz7 import fields, wait_for

MOVE_DOWN = 105
DOUBTFUL = "Cancel all changes to memory channels?"
CITIES = {2: "BERLIN", 3: "BREMEN", 4: "KOELN", 12: "ULM"}
EDITOR = "Edit Memory Channel {:2}"
MENU_CLASS = "#32768"
TIP_CLASS = "tooltips_class32"
CSV_TITLES = ("RX Frequency\tTX Frequency\tOffset\tTone\tSkip\tPower\tEnc Frequency\tDec Frequency\t"
              "Name\tComment\r\n")


class ListTest(DesktopTest):
    def setUp(self):
        super().setUp()
        self.make_document("LIST.RDF")
        for n, name in CITIES.items():
            self.ok("set", "LIST.RDF", "LIST.RDF", str(n), f"rx=145.{n * 25:03}", f"name={name}",
                    f"comment=of {name}")
        self.start("list.rdf", name="LIST.RDF")
        self.open_list()

    def open_list(self):
        self.main.press_keys("ctrl+m")
        self.list = MemoryList(self.desktop, self.window(memory_list.TITLE).handle,
                               memory_list.TITLE)
        self.list.wait_for_selection(1)
        self.keys = self.list.press_keys

    def assert_channels(self, cities):
        self.list.wait_for_names({1: ""} | cities)

    def clipboard(self):
        try:
            return self.driver("clipboard")[0]
        except Refused:  # the program has it just now
            return ""

    def end(self):
        """What was done is given up, after the question about it."""
        self.keys("Escape")
        self.answer(YES, DOUBTFUL, TITLE, "Yes No")
        self.list.wait_until_gone()
        self.leave()

    def end_list(self):
        """Escape asks nothing."""
        self.keys("Escape")
        self.list.wait_until_gone()

    def end_unchanged(self):
        self.end_list()
        self.leave()


class Rows(ListTest):
    def test_several_are_moved_and_undone(self):
        self.keys("Down", "shift+Down", "alt+Down", "ctrl+Down")
        self.assert_channels({2: "KOELN", 4: "BERLIN", 5: "BREMEN", 12: "ULM"})
        self.list.wait_for_selection(4, 5)
        self.keys("alt+Up")
        self.assert_channels({2: "KOELN", 3: "BERLIN", 4: "BREMEN", 12: "ULM"})
        self.keys("ctrl+z", "ctrl+z", "ctrl+z")
        self.assert_channels(CITIES)
        self.end_unchanged()

    def test_are_deleted_cleared_and_inserted_before(self):
        self.list.click_row(2)
        self.list.click_row(4, "ctrl")
        self.list.wait_for_selection(2, 4)
        self.keys("Delete")
        self.assert_channels({2: "BREMEN", 10: "ULM"})
        self.keys("ctrl+z", "ctrl+Delete")
        self.assert_channels({3: "BREMEN", 12: "ULM"})
        self.keys("ctrl+z")
        self.list.wait_for_selection(2, 4)
        self.list.click_row(3)
        self.list.click_row(5, "shift")
        self.list.wait_for_selection(3, 4, 5)
        self.keys("Insert")
        self.assert_channels({2: "BERLIN", 4: "BREMEN", 5: "KOELN", 13: "ULM"})
        self.keys("ctrl+z", "ctrl+y")
        self.assert_channels({2: "BERLIN", 4: "BREMEN", 5: "KOELN", 13: "ULM"})
        self.end()

    def test_home_end_and_all_of_them(self):
        self.keys("End")
        self.list.wait_for_selection(240)
        self.keys("Home")
        self.list.wait_for_selection(1)
        self.keys("shift+End")
        self.list.wait_for_selection(*range(1, 241))
        self.keys("Home", "ctrl+a")
        self.list.wait_for_selection(*range(1, 241))
        self.end_unchanged()

    def test_one_is_edited_by_enter_and_by_a_double_click(self):
        self.keys("Down", "Return")
        editor = self.window(EDITOR.format(2))
        editor.press_keys("alt+n", "X", "Return")
        editor.wait_until_gone()
        self.list.wait_for_keyboard()
        self.assert_channels(CITIES | {2: "X"})
        self.list.click_row(12, times=2)
        self.window(EDITOR.format(12)).press_keys("Escape")
        self.list.wait_for_keyboard()
        self.keys("ctrl+z")
        self.assert_channels(CITIES)
        self.end_unchanged()

    def test_a_button_gives_the_keyboard_back_to_the_list(self):
        self.keys("Down")
        self.list.wait_for_selection(2)
        self.list.press_button(MOVE_DOWN)
        self.assert_channels(CITIES | {2: "BREMEN", 3: "BERLIN"})
        self.list.wait_for_keyboard()
        self.keys("ctrl+z", "Up")
        self.list.wait_for_selection(1)
        self.end_unchanged()

    def test_what_was_accepted_is_in_the_saved_file(self):
        self.keys("Down", "Delete", "alt+o")
        self.list.wait_until_gone()
        self.main.press_keys("ctrl+s")
        wait_for(lambda: fields(self.ok("show", "LIST.RDF", "11"))["name"].strip() == "ULM",
                 "the saved file")
        self.assertEqual("of BREMEN", fields(self.ok("show", "LIST.RDF", "2"))["comment"].strip())
        self.leave_unsaved("LIST.RDF")


class Clipboard(ListTest):
    def test_rows_are_text_for_another_program(self):
        self.keys("Down", "shift+Down", "ctrl+c")
        rows = "".join(f"145.{n * 25:03}0\t0.6000\t\t\t\tHigh\t100.0\t100.0\t{name:8}\tof {name}\r\n"
                       for n, name in ((2, "BERLIN"), (3, "BREMEN")))
        self.list.wait_to_be(CSV_TITLES + rows, self.clipboard)
        self.end_unchanged()

    def test_rows_are_pasted_where_a_number_was_typed(self):
        self.keys("Down", "shift+Down", "ctrl+c", "4", "0", "ctrl+v")
        self.assert_channels(CITIES | {40: "BERLIN", 41: "BREMEN"})
        self.list.wait_for_selection(40, 41)
        self.end()

    def test_cut_rows_replace_others_after_one_question(self):
        self.keys("Down", "shift+Down", "ctrl+x")
        self.assert_channels({4: "KOELN", 12: "ULM"})
        self.keys("Down", "ctrl+v")
        question = self.window(TITLE)
        question.press_keys("n")
        question.wait_until_gone()
        self.assert_channels({4: "KOELN", 12: "ULM"})
        self.list.wait_for_selection(4)
        self.keys("ctrl+v")
        self.window(TITLE).press_keys("y")
        self.assert_channels({4: "BERLIN", 5: "BREMEN", 12: "ULM"})
        self.end()

    def test_another_programs_rows_are_taken_by_their_titles(self):
        self.driver("set_clipboard", "Name\tFrequency\tComment\r\nDB0X\t439.1\tTower\r\n"
                                     "none\t\t\r\nDB0Y\t438.8\tHill\r\n")
        self.keys("4", "0", "ctrl+v")
        self.assert_channels(CITIES | {40: "DB0X", 41: "DB0Y"})
        self.assertIn("438.8000", self.list.rows()[40][1])
        self.end()


class Finding(ListTest):
    def test_typed_letters_go_to_a_name_that_begins_so(self):
        self.keys("b", "r")
        self.list.wait_for_selection(3)
        self.end_unchanged()

    def test_a_text_is_found_and_found_again(self):
        self.keys("ctrl+f")
        find = self.window("Find Channel")
        find.press_keys("o", "f", "space", "b", "Return")
        self.list.wait_for_selection(2)
        self.keys("F3")
        self.list.wait_for_selection(3)
        self.keys("F3")
        self.list.wait_for_selection(2)
        self.keys("ctrl+f")
        self.window("Find Channel").press_keys("z", "z", "Return")
        self.window(TITLE).press_keys("Return")
        self.list.wait_for_keyboard()
        self.list.wait_for_selection(2)
        self.end_unchanged()


class Mouse(ListTest):
    def test_the_right_button_opens_a_menu_with_the_commands(self):
        self.list.click_row(3, button=3)
        menu = self.window("", MENU_CLASS)
        self.list.wait_for_selection(3)
        self.desktop.xdotool("key", "d")
        menu.wait_until_gone()
        self.assert_channels({2: "BERLIN", 3: "KOELN", 11: "ULM"})
        self.keys("shift+F10")
        menu = self.window("", MENU_CLASS)
        self.desktop.xdotool("key", "u")
        menu.wait_until_gone()
        self.assert_channels(CITIES)
        self.end_unchanged()

    def test_the_pointer_over_a_row_tells_what_the_row_cannot(self):
        for n, name in ((4, "KOELN"), (12, "ULM")):
            self.desktop.xdotool("mousemove", *map(str, self.list.place_of(n)))
            tip = f"Transmit 145.{n * 25:03}0 MHz\nNo tone\nof {name}"
            self.list.wait_to_be([tip], self.tips)
        self.end_unchanged()

    def tips(self):
        fields_of_windows = self.driver("windows")
        return [self.driver("said", handle)[0].replace("\r", "")
                for handle, kind in zip(fields_of_windows[0::3], fields_of_windows[1::3])
                if kind == TIP_CLASS]

    def test_the_window_comes_back_where_it_was_left_and_as_large(self):
        before = self.list.area()
        self.list.drag_corner(150, 60)
        self.list.drag_title(70, 40)
        area = [before[0] + 70, before[1] + 40, before[2] + 220, before[3] + 100]
        self.list.wait_to_be(area, self.list.area)
        self.end_list()
        self.open_list()
        self.assertEqual(area, self.list.area())
        self.end_unchanged()
        self.start("list.rdf", name="LIST.RDF")
        self.open_list()
        self.assertEqual(area, self.list.area())
        self.end_unchanged()


if __name__ == "__main__":
    desktop.main()
