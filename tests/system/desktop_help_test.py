#!/usr/bin/env python3
"""The help of the running program, in a folder with a name of every kind, with a program in the
browser's place: desktop_help_test.py WINDOWS_PROGRAMS NATIVE_PROGRAMS"""
import os
import re
import shutil
import subprocess

import desktop
from desktop import CANCEL, DIALOG_CLASS, OK, PORT_SETUP, TITLE, DesktopTest
from qz7 import wait_for

FOLDER = "Žluťoučký кот 日本 #1 50%é %20+(a)"
KEYS = ("HKCR\\.html", "HKCR\\qz7_test_page")

CONTENTS, SEARCH, HELP_ON_HELP = 147, 146, 145
HELP_BUTTON = 9
# What the commands of the menu open without a radio, and the page of each.
DIALOGS = {110: "memory_list", 111: "groups", 113: "home_and_vfo_editor",
           123: "home_and_vfo_editor", 133: "home_and_vfo_editor", 144: "autodial",
           152: "settings", 153: "vorn", 154: "preferences", 155: "wx_names", 156: "icons"}
WITHOUT_HELP = (149,)  # the first window of the import


def registry(*arguments):
    subprocess.run(["wine", "reg", *arguments, "/f"], env=DesktopTest.desktop.environment,
                   stdout=subprocess.DEVNULL, check=True)


def windows_name(path):
    return "Z:" + path.replace("/", "\\")


class HelpTest(DesktopTest):
    @classmethod
    def setUpClass(cls):
        cls.record = os.path.join(cls.desktop.prefix, "opened-pages")
        recorder = windows_name(os.path.join(cls.windows_programs, "page_recorder.exe"))
        cls.command = f'"{recorder}" "{windows_name(cls.record)}" '
        registry("add", KEYS[0], "/ve", "/d", "qz7_test_page")
        cls.addClassCleanup(lambda: [registry("delete", key) for key in KEYS])
        registry("add", KEYS[1] + "\\shell\\open\\command", "/ve", "/d", cls.command + '"%1"')

    def setUp(self):
        super().setUp()
        # As installed, but for the file of the viewer that this system has.
        inner = os.path.join(self.folder, FOLDER)
        os.mkdir(inner)
        for name in ("qz7.exe", "qz732.dll", "qz7.fon"):
            shutil.move(self.path(name), inner)
        self.folder = inner
        shutil.copytree(os.path.join(self.windows_programs, "help"), self.path("help"))
        if os.path.exists(self.record):
            os.unlink(self.record)
        self.expected = []

    def opened(self):
        """The files that the browser was started for."""
        if not os.path.exists(self.record):
            return []
        with open(self.record, encoding="utf-8") as file:
            lines = file.read().splitlines()
        pattern = re.escape(self.command) + '"([^"]*)"'
        return [re.fullmatch(pattern, line).group(1) for line in lines]

    def assert_opens(self, page):
        self.assertTrue(os.path.isfile(self.path(f"help/{page}.html")))
        self.expected.append(self.windows_path("help", page + ".html"))
        wait_for(lambda: len(self.opened()) >= len(self.expected), f"{page} to be opened")
        self.assertEqual(self.expected, self.opened())

    def assert_says(self, page):
        self.answer(OK, f"Cannot open help page: help\\{page}.html", TITLE, "OK")


class Pages(HelpTest):
    def test_the_menu_and_f1_open_them(self):
        self.start()
        for command, page in ((CONTENTS, "contents"), (SEARCH, "search"),
                              (HELP_ON_HELP, "searching")):
            self.main.command(command)
            self.assert_opens(page)
        self.main.press_keys("F1")
        self.assert_opens("contents")
        self.leave()

    def test_the_help_button_and_f1_of_a_window_open_its_own(self):
        self.start()
        for command, page in DIALOGS.items():
            with self.subTest(page, command=command):
                self.main.command(command)
                dialog = self.window("", DIALOG_CLASS)
                dialog.press(HELP_BUTTON)
                self.assert_opens(page)
                dialog.press_keys("F1")
                self.assert_opens(page)
                dialog.finish(CANCEL)
        self.main.command(PORT_SETUP)
        dialog = self.window("", DIALOG_CLASS)
        dialog.press_keys("F1")
        self.assert_opens("com_port")
        dialog.finish(CANCEL)
        self.leave()

    def test_a_window_without_help_opens_none(self):
        self.start()
        for command in WITHOUT_HELP:
            self.main.command(command)
            dialog = self.window("", DIALOG_CLASS)
            dialog.press(HELP_BUTTON)
            dialog.finish(CANCEL)
        self.main.command(CONTENTS)
        self.assert_opens("contents")
        self.leave()

    def test_a_page_that_is_not_there_is_told(self):
        shutil.rmtree(self.path("help"))
        self.start()
        self.main.command(CONTENTS)
        self.assert_says("contents")
        self.assertEqual([], self.opened())
        self.leave()

    def test_a_system_without_a_program_for_pages_is_told(self):
        registry("delete", KEYS[0])
        self.addCleanup(registry, "add", KEYS[0], "/ve", "/d", "qz7_test_page")
        self.start()
        self.main.command(154)
        dialog = self.window("", DIALOG_CLASS)
        dialog.press(HELP_BUTTON)
        self.assert_says("preferences")
        dialog.finish(CANCEL)
        self.leave()


if __name__ == "__main__":
    desktop.main()
