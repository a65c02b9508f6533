#!/usr/bin/env python3
"""The setup for Windows in a Wine of its own: what it installs, what it registers, and that the
uninstaller leaves only what the user made.

setup_test.py DIST WINDOWS_PROGRAMS NATIVE_PROGRAMS
"""
import os
import re
import subprocess

import support
from support import OTHER_LETTERS, TOP, PackageTest, Refused, desktop, files_below, wait_for

TITLE = desktop.TITLE
SETUP = support.package(r"qz7-setup-.+\.exe")
REFUSED = 2
ABOUT, ABOUT_VERSION = 148, 102
FOLDERS = {"AllUsers": "C:\\Program Files\\" + TITLE,
           "CurrentUser": "C:\\users\\{user}\\AppData\\Local\\Programs\\" + TITLE}
START_MENUS = {
    "AllUsers": "C:\\ProgramData\\Microsoft\\Windows\\Start Menu\\Programs",
    "CurrentUser": "C:\\users\\{user}\\AppData\\Roaming\\Microsoft\\Windows\\Start Menu\\Programs"}
DESKTOPS = {"AllUsers": "C:\\users\\Public\\Desktop", "CurrentUser": "C:\\users\\{user}\\Desktop"}
HIVES = {"AllUsers": "HKLM", "CurrentUser": "HKCU"}
UNINSTALL = "Software\\Microsoft\\Windows\\CurrentVersion\\Uninstall\\" + TITLE
OWN = "Software\\Tamro\\" + TITLE
CLASSES = "Software\\Classes\\"
# What Wine notes of its own in a fresh prefix, and two keys that every Windows has.
OF_WINE = re.compile(r".*(\\MuiCache|\\RecentDocs|CurrentVersion\\Explorer\\|\\NetworkCards\\"
                     r"|\\Software\\Classes\]|\\CurrentVersion\\Uninstall\]).*")


def expected_registry(folder, mode, version):
    """{key: {name: value}} of what the setup registers; "" is a key's own value."""
    program = folder + "\\qz7.exe"
    uninstall = f'"{folder}\\uninstall.exe" /{mode}'
    return {
        UNINSTALL: {
            "DisplayName": TITLE, "DisplayVersion": version, "DisplayIcon": program,
            "Publisher": "Tamro", "InstallLocation": folder, "UninstallString": uninstall,
            "QuietUninstallString": uninstall + " /S", "NoModify": "0x1", "NoRepair": "0x1"},
        OWN: {"Folder": folder, "RdfBefore": "", "TplBefore": ""},
        CLASSES + ".rdf": {"": "QZ7H.RadioData"},
        CLASSES + ".tpl": {"": "QZ7H.Template"},
        CLASSES + "QZ7H.RadioData": {"": "Radio data file"},
        CLASSES + "QZ7H.RadioData\\DefaultIcon": {"": program + ",1"},
        CLASSES + "QZ7H.RadioData\\shell\\open\\command": {"": f'"{program}" "%1"'},
        CLASSES + "QZ7H.Template": {"": "Radio template file"},
        CLASSES + "QZ7H.Template\\DefaultIcon": {"": program + ",2"}}


class SetupTest(PackageTest):
    def setUp(self):
        super().setUp()
        self.user = os.path.basename(self.host_path("C:\\users\\" + os.environ.get("USER", "root")))
        self.installed = []
        self.addCleanup(self.end_installations)

    def end_installations(self):
        for mode in self.installed:
            self.uninstall(mode)

    def host_path(self, path):
        return os.path.join(self.desktop.prefix, "drive_c", *path.split("\\")[1:])

    def place(self, table, mode, *names):
        return "\\".join([table[mode].format(user=self.user), *names])

    def installed_path(self, mode, *names):
        return self.host_path(self.place(FOLDERS, mode, *names))

    def install(self, mode, *arguments, setup=SETUP):
        self.installed.append(mode)
        self.wine(setup, "/S", "/" + mode, *arguments)

    def uninstall(self, mode, status=0):
        """By the registered command; "_?=" keeps the uninstaller where it is, so that one sees its
        end. Windows does not delete a program that runs, so this one stays."""
        folder = self.place(FOLDERS, mode)
        command = self.value(HIVES[mode], UNINSTALL, "QuietUninstallString")
        self.write_bytes("end.bat", f"@{command} _?={folder}\r\n@exit %errorlevel%\r\n".encode())
        self.wine("cmd", "/c", self.windows_path("end.bat"), status=status)
        if status == 0:
            self.installed.remove(mode)
            uninstaller = self.installed_path(mode, "uninstall.exe")
            if os.path.exists(uninstaller):
                os.remove(uninstaller)
            if not os.listdir(os.path.dirname(uninstaller)):
                os.rmdir(os.path.dirname(uninstaller))

    def value(self, hive, key, name):
        told = self.wine("reg", "query", f"{hive}\\{key}", *(["/v", name] if name else ["/ve"]))
        return re.search(r"    REG_\w+ {4}(.*?)\r?$", told, re.MULTILINE).group(1)

    def set_value(self, hive, key, value):
        self.wine("reg", "add", f"{hive}\\{key}", "/ve", "/d", value, "/f")

    def registry(self):
        """Every line of the registry with its key, but for what Wine notes of its own."""
        lines = set()
        for hive in ("HKLM\\Software", "HKCU\\Software"):
            self.wine("reg", "export", hive, self.windows_path("registry"), "/y")
            key = ""
            for line in self.read_bytes("registry").decode("utf-16").splitlines():
                key = line if line.startswith("[") else key
                lines.add((key, line))
        return {entry for entry in lines if not OF_WINE.match(entry[0])}

    def files(self):
        return {name for name in files_below(os.path.join(self.desktop.prefix, "drive_c"))
                if "/Temp/" not in name and not name.startswith("windows/")}


class Installing(SetupTest):
    def assert_comes_and_goes(self, mode):
        files, registry = self.files(), self.registry()
        self.install(mode, "/DESKTOP")
        folder = self.place(FOLDERS, mode)
        with support.unpacked_zip() as zipped:
            expected = files_below(zipped)
        self.assertEqual(expected | {"uninstall.exe"}, files_below(self.host_path(folder)))
        for table in (START_MENUS, DESKTOPS):
            link = self.host_path(self.place(table, mode, TITLE + ".lnk"))
            self.assertTrue(os.path.exists(link), link)
        for key, values in expected_registry(folder, mode, support.version()).items():
            for name, value in values.items():
                with self.subTest(f"{key}, {name}"):
                    self.assertEqual(value, self.value(HIVES[mode], key, name))
        self.uninstall(mode)
        self.assertEqual(files, self.files())
        self.assertEqual(registry, self.registry())

    def test_for_all_users_and_away_again(self):
        self.assert_comes_and_goes("AllUsers")

    def test_for_one_user_and_away_again(self):
        self.assert_comes_and_goes("CurrentUser")

    def test_into_a_folder_that_is_told(self):
        self.wine(SETUP, "/S", "/CurrentUser", "/D=C:\\Radio")
        self.assertTrue(os.path.exists(self.host_path("C:\\Radio\\qz7.exe")))
        self.assertFalse(os.path.exists(
            self.host_path(self.place(DESKTOPS, "CurrentUser", TITLE + ".lnk"))))
        self.wine("C:\\Radio\\uninstall.exe", "/S", "/CurrentUser")
        wait_for(lambda: not os.path.exists(self.host_path("C:\\Radio")), "the folder's end")

    def test_carries_the_version_and_asks_for_no_more_than_it_needs(self):
        with open(SETUP, "rb") as file:
            setup = file.read()
        self.assertTrue(re.search("FileVersion\0+" + re.escape(support.version()),
                                  setup.decode("utf-16-le", "replace")))
        # Rights are asked for only of who has them: a user without installs for himself.
        self.assertTrue(b'requestedExecutionLevel level="highestAvailable"' in setup)
        self.assert_needs_windows_7_only(SETUP)

    def test_whoever_opened_the_files_before_gets_them_back(self):
        self.set_value("HKCU", CLASSES + ".rdf", "Others.Data")
        self.install("CurrentUser")
        self.assertEqual("QZ7H.RadioData", self.value("HKCU", CLASSES + ".rdf", ""))
        self.uninstall("CurrentUser")
        self.assertEqual("Others.Data", self.value("HKCU", CLASSES + ".rdf", ""))
        self.wine("reg", "delete", "HKCU\\" + CLASSES + ".rdf", "/f")

    def test_whoever_took_the_files_since_keeps_them(self):
        self.install("CurrentUser")
        self.set_value("HKCU", CLASSES + ".rdf", "Others.Data")
        self.uninstall("CurrentUser")
        self.assertEqual("Others.Data", self.value("HKCU", CLASSES + ".rdf", ""))
        self.wine("reg", "delete", "HKCU\\" + CLASSES + ".rdf", "/f")


class PageByPage(SetupTest):
    # A word of each page that no other page shows.
    PAGES = ("Welcome to", "License Agreement", "Choose Users", "Choose Components",
             "Choose Install Location", "Completing")
    NEXT, START_NOW = 1, 1203

    def is_shown(self, word):
        try:
            return any(word in text for *_, text, _ in self.wizard.controls())
        except Refused:  # it has too much to do to answer
            return False

    def test_asks_for_licence_users_parts_and_folder(self):
        self.start_program(program=SETUP)
        self.wizard = self.window(TITLE + " Setup")
        for word in self.PAGES[:-1]:
            wait_for(lambda: self.is_shown(word), "the page " + word)
            self.wizard.press(self.NEXT)
        self.installed.append("AllUsers")
        wait_for(lambda: self.is_shown(self.PAGES[-1]), "the last page")
        self.wizard.press(self.START_NOW)  # not now
        wait_for(lambda: self.driver("checked", self.wizard.handle, self.START_NOW) == ["0"],
                 "the box to be empty")
        self.wizard.finish(self.NEXT)
        self.assertTrue(os.path.exists(self.installed_path("AllUsers", "qz7.exe")))
        self.assertFalse(os.path.exists(
            self.host_path(self.place(DESKTOPS, "AllUsers", TITLE + ".lnk"))))
        self.assertEqual(0, self.programs_started[0].wait(desktop.LIMIT))


class Using(SetupTest):
    def test_a_document_opens_by_its_name_and_a_second_one_raises_the_first(self):
        self.make_document("first.rdf", comment="the first")
        self.make_document("second.rdf", comment="the second")
        os.rename(self.path("first.rdf"), self.path(OTHER_LETTERS + ".rdf"))
        self.install("AllUsers")
        self.open_by_the_shell(self.windows_path(OTHER_LETTERS + ".rdf"))
        self.assert_shows("the first")
        self.start_program(program="notepad")
        other = self.window("", "Notepad")
        other.wait_until_in_front()
        self.open_by_the_shell(self.windows_path("second.rdf"), "/wait")
        self.main.wait_until_in_front()
        self.assert_shows("the first")
        self.driver("close", other.handle)
        self.leave_and_wait()

    def test_about_tells_the_version(self):
        self.install("AllUsers")
        self.start_program(program=self.installed_path("AllUsers", "qz7.exe"))
        self.assert_shows("")
        self.main.command(ABOUT)
        about = self.window("About")
        self.assertEqual("Version " + support.version(), about.text(ABOUT_VERSION))
        about.finish(desktop.OK)
        self.leave_and_wait()

    def test_a_running_program_is_told_and_not_ended(self):
        self.install("CurrentUser")
        before = self.files()
        self.start_program(program=self.installed_path("CurrentUser", "qz7.exe"))
        self.assert_shows("")
        self.wine(SETUP, "/S", "/CurrentUser", status=REFUSED)
        self.uninstall("CurrentUser", status=REFUSED)
        self.assert_shows("")
        self.assertEqual(before, self.files())
        self.leave_and_wait()

    def test_a_console_program_that_runs_is_told_as_well(self):
        self.install("CurrentUser")
        before = self.files()
        console = subprocess.Popen(
            ["wine", self.installed_path("CurrentUser", "qz7ctl.exe"), "info", "-"], text=True,
            env=self.desktop.environment, stdin=subprocess.PIPE, stdout=subprocess.DEVNULL,
            stderr=subprocess.DEVNULL)
        wait_for(lambda: self.is_running("qz7ctl.exe"), "the console program")
        self.wine(SETUP, "/S", "/CurrentUser", status=REFUSED)
        self.assertIsNone(console.poll())
        self.assertEqual(before, self.files())
        console.communicate("")


class Upgrading(SetupTest):
    def older_setup(self):
        """A setup of the same tree with a smaller number and a file that is no more."""
        os.makedirs(self.path("more/old"))
        self.write_bytes("more/old/gone.txt", b"of the version before")
        tree = os.path.dirname(self.windows_programs)
        subprocess.run(
            ["cpack", "-G", "NSIS", "-B", self.folder, "--config", tree + "/CPackConfig.cmake",
             "-D", "CPACK_PACKAGE_VERSION=0.9.0",
             "-D", f"CPACK_INSTALLED_DIRECTORIES={self.path('more')};."],
            env={**os.environ, "SOURCE_DATE_EPOCH": "1000000000"}, cwd=TOP, check=True,
            capture_output=True)
        return self.path("qz7-setup-0.9.0.exe")

    def test_takes_the_place_of_an_older_version_and_keeps_what_the_user_made(self):
        self.install("CurrentUser", "/DESKTOP", setup=self.older_setup())
        self.assertEqual("0.9.0", self.value("HKCU", UNINSTALL, "DisplayVersion"))
        self.assertTrue(os.path.exists(self.installed_path("CurrentUser", "old", "gone.txt")))
        made = [self.installed_path("CurrentUser", name) for name in ("my.rdf", "qz7.def")]
        for name in [*made, self.preferences_path]:
            with open(name, "w", encoding="ascii") as file:
                file.write("mine")
        self.wine(SETUP, "/S")
        self.assertEqual(support.version(), self.value("HKCU", UNINSTALL, "DisplayVersion"))
        self.assertFalse(os.path.exists(self.installed_path("CurrentUser", "old")))
        self.assertTrue(os.path.exists(
            self.host_path(self.place(DESKTOPS, "CurrentUser", TITLE + ".lnk"))))
        self.uninstall("CurrentUser")
        self.assertEqual({"my.rdf", "qz7.def"}, files_below(self.installed_path("CurrentUser")))
        for name in [*made, self.preferences_path]:
            with open(name, encoding="ascii") as file:
                self.assertEqual("mine", file.read())
            os.remove(name)
        os.rmdir(self.installed_path("CurrentUser"))


if __name__ == "__main__":
    support.main()
