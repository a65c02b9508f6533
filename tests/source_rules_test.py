#!/usr/bin/env python3
"""Rules of the source tree that no compiler checks."""
import os
import re
import subprocess
import unittest

TOP = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))
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
            allowed = (path.endswith(("_win32.cpp", "_win32_test.cpp", "_win32.h"))
                       or path.startswith(("desktop/", "tests/ui/")))
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
            if path.startswith("core/") and not re.search(r"_(win32|posix)\.", path):
                with self.subTest(path):
                    self.assertNotRegex(read(path), r"\b(_WIN32|__linux__|__unix__|_MSC_VER)\b")


class Dependencies(unittest.TestCase):
    # What a folder may include beside itself. Everything points down.
    CORE = {
        "core/image": set(),
        "core/files": {"core/image"},
        "core/link": {"core/files", "core/image"},
        "core/editors": {"core/files", "core/image"},
        "core/interchange": {"core/editors", "core/files", "core/image"},
    }
    WINDOWS = {"desktop/files", "desktop/link", "desktop/editors", "desktop/interchange",
               "desktop/printing"}
    BELOW_WINDOWS = set(CORE) | {"desktop/toolkit", "resources"}
    ALLOWED = {
        **CORE,
        "desktop/toolkit": {"core/image", "core/files", "resources"},
        **dict.fromkeys(WINDOWS, BELOW_WINDOWS),
        "desktop": BELOW_WINDOWS | WINDOWS,
        "ctl": set(CORE),
        "radio": set(),
        "fuzz": set(CORE) | {"ctl"},
        "bench": set(CORE) | {"ctl", "desktop/toolkit", "desktop/editors"},
    }

    def test_a_folder_includes_only_what_lies_below_it(self):
        seen = set()
        for path in tracked("*.cpp", "*.h"):
            folder = os.path.dirname(path)
            if folder.split("/")[0] in ("tests", "resources"):
                continue
            seen.add(folder)
            ours = {os.path.dirname(name) for name in includes(path) if "/" in name}
            ours = {name for name in ours if os.path.isdir(os.path.join(TOP, name))}
            with self.subTest(path):
                self.assertLessEqual(ours - {folder}, self.ALLOWED[folder])
        self.assertEqual(seen, set(self.ALLOWED))


class Seams(unittest.TestCase):
    def test_only_one_place_makes_a_message_box(self):
        for path in tracked("core/*.cpp", "desktop/*.cpp", "ctl/*.cpp"):
            if path != "desktop/seams_win32.cpp":
                with self.subTest(path):
                    self.assertNotRegex(read(path), r"\b(MessageBox|TaskDialog)\w*\(")


def function_lengths(text):
    """(first line, lines) of each function whose body ends with a brace at the line's start."""
    start = None
    for number, line in enumerate(text.splitlines(), 1):
        if re.match(r"[A-Za-z\[].*[({,]$", line) and not re.match(
                r"(namespace|struct|class|enum|union|extern)\b", line):
            start = start or number
        elif line.startswith("}"):
            if line == "}" and start:
                yield start, number - start + 1
            start = None
        elif line.endswith(";") and not line.startswith(" "):
            start = None


class DialogProcedures(unittest.TestCase):
    def test_the_program_exports_each(self):
        procedures = [name for path in tracked("desktop/*.cpp")
                      for name in re.findall(r"INT_PTR CALLBACK (DlgProc\w+)\(", read(path))]
        self.assertGreater(len(procedures), 10)
        self.assertEqual(sorted(procedures), re.findall(r"^  (\w+)$", read("desktop/qz7.def"),
                                                        re.MULTILINE))


class Sizes(unittest.TestCase):
    FILE = 400
    TEST_FILE = 440
    FUNCTION = 60

    def test_no_source_file_outgrows_a_reader(self):
        for path in tracked("*.cpp", "*.h", "*.py"):
            with self.subTest(path):
                limit = self.TEST_FILE if path.startswith("tests/") else self.FILE
                self.assertLessEqual(len(read(path).splitlines()), limit)

    def test_a_function_is_measured_from_its_name_to_its_brace(self):
        text = "int F(int a,\n      int b) {\n  if (a) {\n  }\n}\nint x;\nvoid G() {\n}\n"
        self.assertEqual(list(function_lengths(text)), [(1, 5), (7, 2)])

    def test_no_function_outgrows_a_screen(self):
        count = 0
        for path in tracked("*.cpp", "*.h"):
            if path.startswith("tests/"):
                continue
            for line, length in function_lengths(read(path)):
                count += 1
                with self.subTest(f"{path}:{line}"):
                    self.assertLessEqual(length, self.FUNCTION)
        self.assertGreater(count, 500)


if __name__ == "__main__":
    unittest.main()
