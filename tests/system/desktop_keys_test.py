#!/usr/bin/env python3
"""The main window under the screen's own keyboard: its commands' keys, where the keyboard is
afterwards, and what the line at the lower edge says:
desktop_keys_test.py WINDOWS_PROGRAMS NATIVE_PROGRAMS"""
import desktop
from desktop import FILE_COMMENT, NEW_NAME, READ_DIALOG, TITLE, WRITE_DIALOG, DesktopTest
from qz7 import fields, wait_for

AUTO_POWER_OFF = desktop.AUTO_POWER_OFF
FIRST_LINE_IS_HEADERS = 107  # in the window Import
MENU_CLASS = "#32768"


def letters(text):
    return [{".": "period"}.get(letter, letter) for letter in text]


class Keys(DesktopTest):
    def setUp(self):
        super().setUp()
        self.make_document("A.RDF")
        for n in (2, 3):
            self.ok("set", "A.RDF", "A.RDF", str(n), f"rx=145.{n * 25:03}", f"name=CH {n}")

    def start(self, *arguments, **options):
        super().start(*arguments, **options)
        self.keys = self.main.press_keys
        self.keys("alt+n")
        self.assert_keyboard_at(FILE_COMMENT)

    def assert_keyboard_at(self, control):
        wait_for(lambda: self.main.focused() == control, f"the keyboard at {control}")

    def assert_status(self, *parts, channels=3, port="no port"):
        wanted = " | ".join([*parts, f"{channels} of 240 channels", "Region 0", port,
                             "template.tpl"])
        self.main.wait_to_be(wanted, self.main.status)

    def tab_to(self, window, control):
        """With as many Tab keys as it takes."""
        while (before := window.focused()) != control:
            window.press_keys("Tab")
            wait_for(lambda: window.focused() != before, "the next control")

    def dialog(self, title, *keys):
        """A dialog that comes and ends by keys."""
        window = self.window(title)
        window.press_keys(*keys)
        window.wait_until_gone()
        return window


class Documents(Keys):
    def test_are_opened_changed_saved_and_made_anew(self):
        self.start("a.rdf", name="A.RDF")
        self.assert_status("A.RDF, saved")
        self.keys("h", "i")
        self.assert_status("A.RDF, not saved")
        self.keys("ctrl+s")
        self.assert_status("A.RDF, saved")
        self.assertEqual(b"hi\0", self.read_bytes("A.RDF")[100:103])
        self.keys("ctrl+shift+s")
        self.dialog("Save Radio File", "Home", "shift+End", *letters("b.rdf"), "Return")
        self.assert_title("b.rdf")
        self.assert_status("b.rdf, saved")
        self.keys("ctrl+n")
        self.assert_title(NEW_NAME)
        self.assert_status("NONAME.RDF, new", channels=1)
        self.keys("ctrl+o")
        self.dialog("Open Radio File", "Home", "shift+End", *letters("a.rdf"), "Return")
        self.assert_title("a.rdf")
        self.assert_status("a.rdf, saved")
        self.assert_keyboard_at(FILE_COMMENT)
        self.assertEqual("hi", self.main.text(FILE_COMMENT))
        self.keys("alt+f", "x")
        self.assert_ends()

    def test_a_question_is_answered_by_its_letter(self):
        self.start("a.rdf", name="A.RDF")
        self.keys("h", "ctrl+n")
        self.dialog(TITLE, "Escape")
        self.assert_keyboard_at(FILE_COMMENT)
        self.assert_status("A.RDF, not saved")
        self.keys("ctrl+n")
        self.dialog(TITLE, "n")
        self.assert_status("NONAME.RDF, new", channels=1)
        self.leave()

    def test_channels_are_exported(self):
        self.start("a.rdf", name="A.RDF")
        self.keys("ctrl+e")
        self.dialog("Export Radio File", "Home", "shift+End", *letters("out.csv"), "Return")
        self.assert_status("Exported to out.csv", "A.RDF, saved")
        self.assert_keyboard_at(FILE_COMMENT)
        self.ok("export", "A.RDF", "console.csv")
        self.assertEqual(self.read_bytes("console.csv"), self.read_bytes("out.csv"))
        self.leave_unsaved("A.RDF")

    def test_imported_channels_are_seen_and_leaving_asks_nothing(self):
        self.ok("export", "A.RDF", "out.csv")
        self.start("a.rdf", name="A.RDF")
        self.keys("ctrl+i")
        first = self.window("Import")
        first.press_keys("alt+b")
        self.dialog("Open File for Import", *letters("out.csv"), "Return")
        self.tab_to(first, FIRST_LINE_IS_HEADERS)
        first.press_keys("space", "Return")
        columns = self.window("Import Data - out.csv")
        columns.press_keys("Return")
        columns.wait_until_gone()
        rows = self.window("Import Data - out.csv")
        rows.press_keys("alt+a", "Return")
        self.assert_status("3 channels imported to 4-6, not saved", "A.RDF, not saved", channels=6)
        self.assert_keyboard_at(FILE_COMMENT)
        self.keys("ctrl+i")
        self.dialog("Import", "Escape")
        self.assert_status("Import cancelled", "A.RDF, not saved", channels=6)
        self.leave()


class Windows(Keys):
    def test_give_the_keyboard_back(self):
        self.start("a.rdf", name="A.RDF")
        for place, control in (("alt+p", AUTO_POWER_OFF), ("alt+n", FILE_COMMENT)):
            self.keys(place)
            self.assert_keyboard_at(control)
            for keys, title in ((["ctrl+m"], "Memory Channels"), (["ctrl+i"], "Import"),
                                (["ctrl+o"], "Open Radio File"),
                                (["alt+o", "p"], "Preferences")):
                self.keys(*keys)
                self.dialog(title, "Escape")
                self.assert_keyboard_at(control)
        self.leave()

    def test_of_the_radio_say_that_nothing_came_or_went(self):
        self.connect("receive")  # never sends
        self.start("a.rdf", name="A.RDF")
        port = f"COM{desktop.PORT}"
        self.keys("ctrl+t")
        self.dialog(WRITE_DIALOG, "Escape")
        self.assert_status("Nothing sent to the radio", "A.RDF, saved", port=port)
        self.assert_keyboard_at(FILE_COMMENT)
        self.keys("ctrl+g")
        self.dialog(TITLE, "n")  # what was collected for sending counts as a change
        self.dialog(READ_DIALOG, "Escape")
        self.assert_status("Nothing read from the radio", "NONAME.RDF, new", port=port, channels=1)
        self.assert_keyboard_at(FILE_COMMENT)
        self.leave()

    def test_a_menu_opens_by_its_letter(self):
        self.start("a.rdf", name="A.RDF")
        self.keys("alt+m")
        menu = self.window("", MENU_CLASS)
        self.desktop.xdotool("key", "Escape", "Escape")
        menu.wait_until_gone()
        self.keys("h")
        self.assert_status("A.RDF, not saved")
        self.leave_unsaved("A.RDF")


class TabKey(Keys):
    """From control to control as the eye goes, and back to the first."""

    def tab_through(self, window):
        """The controls in the order of the Tab key, and where each is."""
        first = window.focused()
        seen = {first: window.place(first)}
        while True:
            before = window.focused()
            window.press_keys("Tab")
            wait_for(lambda: window.focused() != before, "the next control")
            control = window.focused()
            if control == first:
                return seen
            self.assertNotIn(control, seen)
            seen[control] = window.place(control)

    def assert_goes_everywhere(self, window):
        places = self.tab_through(window)
        fields = {int(control) for control, kind, _, enabled in window.controls()
                  if kind == "Edit" and enabled == "1"}
        self.assertLessEqual(fields, set(places))
        in_order = list(places.items())
        turns = 0  # from the last one to the first
        for (one, before), (other, area) in zip(in_order, in_order[1:] + in_order[:1]):
            if not (area[1] >= before[3] or area[0] >= before[2]):
                turns += 1
                self.assertEqual(1, turns, f"from {one} to {other} in {in_order}")

    def test_goes_through_the_main_window(self):
        self.start("a.rdf", name="A.RDF")
        self.assert_goes_everywhere(self.main)
        self.leave()

    def test_goes_through_the_list_and_the_editor(self):
        self.start("a.rdf", name="A.RDF")
        self.keys("ctrl+m")
        rows = self.window("Memory Channels")
        self.assert_goes_everywhere(rows)
        rows.press_keys("Down", "Return")
        editor = self.window("Edit Memory Channel  2")
        self.assert_goes_everywhere(editor)
        editor.press_keys("Escape")
        editor.wait_until_gone()
        self.dialog("Memory Channels", "Escape")
        self.leave()

    def test_goes_through_import(self):
        self.start("a.rdf", name="A.RDF")
        self.keys("ctrl+i")
        window = self.window("Import")
        self.assert_goes_everywhere(window)
        self.dialog("Import", "Escape")
        self.leave()


if __name__ == "__main__":
    desktop.main()
