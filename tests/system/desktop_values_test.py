#!/usr/bin/env python3
"""Values typed with the screen's own keyboard and pasted from another program:
desktop_values_test.py WINDOWS_PROGRAMS NATIVE_PROGRAMS"""
import desktop
from desktop import DesktopTest

RECEIVE, RECEIVE_READING = 101, 126
TONE_TYPE, TONE_USE = 112, 129
NUMBER_1 = 101


class Entering(DesktopTest):
    def wait_for_text(self, window, control, text):
        window.wait_to_be(text, lambda: window.text(control))

    def open_editor(self):
        self.start()
        self.main.press_keys("ctrl+m")
        self.list = self.window("Memory Channels")
        self.list.press_keys("Return")
        self.editor = self.window("Edit Memory Channel  1")

    def leave_list(self):
        for window in (self.editor, self.list):
            window.press_keys("Escape")
            window.wait_until_gone()
        self.leave()

    def test_a_frequency_is_read_while_it_is_typed_and_pasted(self):
        self.open_editor()
        self.editor.press_keys("alt+r", *"145", "comma", *"005")
        self.wait_for_text(self.editor, RECEIVE, "145.005")
        self.wait_for_text(self.editor, RECEIVE_READING, "145.0050 MHz, 2 m, 5 kHz steps")
        self.driver("set_clipboard", "20,5")
        self.editor.press_keys("ctrl+a", "ctrl+v")
        self.wait_for_text(self.editor, RECEIVE, "20.5")
        self.wait_for_text(self.editor, RECEIVE_READING, "20.5000 MHz, outside the bands")
        self.leave_list()

    def test_a_line_tells_what_the_tone_type_uses(self):
        self.open_editor()
        self.editor.press_keys("alt+y", "End")
        self.wait_for_text(self.editor, TONE_USE, "DCS uses the DCS list.")
        before = self.editor.chosen(TONE_TYPE)
        self.editor.press_keys("Up")
        self.editor.wait_to_be(before - 1, lambda: self.editor.chosen(TONE_TYPE))
        self.wait_for_text(self.editor, TONE_USE, "Tone Squelch uses the CTCSS list.")
        self.leave_list()

    def test_a_number_too_long_for_its_field_is_not_cut(self):
        self.start()
        self.main.press_keys("alt+o", "a")
        numbers = self.window("Autodial")
        self.driver("set_clipboard", "1" * 30)
        numbers.press_keys("alt+1", "7", "ctrl+v", "8")
        self.wait_for_text(numbers, NUMBER_1, "78")
        numbers.press_keys("Escape")
        numbers.wait_until_gone()
        self.leave()


if __name__ == "__main__":
    desktop.main()
