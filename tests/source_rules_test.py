#!/usr/bin/env python3
"""Rules of the source tree that no compiler checks."""
import os
import re
import subprocess
import unittest

TOP = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))
CORE = ("image/", "files/", "link/", "editors/", "interchange/")
POSIX_HEADERS = {
    "dirent.h", "fcntl.h", "grp.h", "linux/serial.h", "poll.h", "pwd.h", "pty.h", "signal.h",
    "sys/file.h", "sys/ioctl.h", "sys/resource.h", "sys/stat.h", "sys/types.h", "sys/wait.h",
    "termios.h", "unistd.h",
}
WINDOWS_HEADERS = {"commctrl.h", "commdlg.h", "conio.h", "io.h", "shellapi.h", "shlobj.h",
                   "windows.h", "windowsx.h"}


def tracked(*patterns):
    out = subprocess.run(["git", "ls-files", *patterns], cwd=TOP, check=True,
                         capture_output=True, text=True)
    return out.stdout.split()


def read(path):
    with open(os.path.join(TOP, path), encoding="utf-8") as file:
        return file.read()


def includes(path):
    return set(re.findall(r'^\s*#\s*include\s*[<"]([^>"]+)[>"]', read(path), re.MULTILINE))


class PlatformHeaders(unittest.TestCase):
    def test_windows_headers_stand_only_in_the_windows_and_dialog_files(self):
        for path in tracked("*.cpp", "*.h"):
            allowed = (path.endswith(("_win32.cpp", "_dialog.cpp", "_dialog.h", "_win32.h"))
                       or path.startswith(("app/", "tests/ui/")))
            with self.subTest(path):
                self.assertTrue(allowed or not includes(path) & WINDOWS_HEADERS)

    def test_posix_headers_stand_only_in_the_posix_files(self):
        for path in tracked("*.cpp", "*.h"):
            allowed = (path.endswith(("_posix.cpp", "_posix_test.cpp", "_posix.h"))
                       or path.startswith("radio/"))
            headers = includes(path) & POSIX_HEADERS
            if path.endswith("_win32.cpp"):
                headers -= {"fcntl.h"}
            with self.subTest(path):
                self.assertTrue(allowed or not headers, headers)

    def test_the_core_asks_for_no_platform(self):
        for path in tracked("*.cpp", "*.h"):
            if path.startswith(CORE) and not re.search(r"_(win32|posix|dialog)\.", path):
                with self.subTest(path):
                    self.assertNotRegex(read(path), r"\b(_WIN32|__linux__|__unix__|_MSC_VER)\b")


class Dependencies(unittest.TestCase):
    # What the core of a folder may include beside itself.
    ALLOWED = {
        "image": set(),
        "files": {"image"},
        "link": {"files", "image"},
        "editors": {"files", "image"},
        "interchange": {"files", "image"},
        "radio": set(),
    }

    def test_a_folder_includes_only_what_lies_below_it(self):
        for path in tracked("*.cpp", "*.h"):
            folder = path.split("/")[0]
            if folder not in self.ALLOWED or "_dialog." in path:
                continue
            ours = {name.split("/")[0] for name in includes(path) if "/" in name}
            ours &= {"image", "files", "link", "editors", "interchange", "app", "ctl", "radio"}
            with self.subTest(path):
                self.assertLessEqual(ours - {folder}, self.ALLOWED[folder])


class Sizes(unittest.TestCase):
    def test_no_source_file_outgrows_a_reader(self):
        for path in tracked("*.cpp", "*.h", "*.py"):
            with self.subTest(path):
                self.assertLessEqual(len(read(path).splitlines()), 440)


if __name__ == "__main__":
    unittest.main()
