"""What the tests of the packages share: the packages, a Wine as it is after its installation, and what
a program asks of the system.

They are called with the packages and the programs: zip_test.py DIST WINDOWS_PROGRAMS NATIVE_PROGRAMS
"""
import contextlib
import os
import re
import shutil
import subprocess
import sys
import tempfile

TOP = os.path.dirname(os.path.dirname(os.path.dirname(os.path.abspath(__file__))))
sys.path.insert(0, os.path.join(TOP, "tests", "system"))

import desktop
from desktop import FILE_COMMENT, LIMIT, MAIN_CLASS, DesktopTest, Window
from driven_window import Refused
from qz7 import SystemTest, wait_for

# What every Windows 7 has; the C library is the system's own, not one that comes with a compiler.
SYSTEM_LIBRARIES = {"advapi32.dll", "comctl32.dll", "comdlg32.dll", "gdi32.dll", "kernel32.dll",
                    "msvcrt.dll", "ole32.dll", "shell32.dll", "user32.dll", "version.dll",
                    "winspool.drv"}
WINDOWS_7 = (6, 1)
OTHER_LETTERS = "Žluťoučký кот 日本"

dist = os.path.abspath(sys.argv.pop(1))


def package(pattern):
    found = [name for name in sorted(os.listdir(dist)) if re.fullmatch(pattern, name)]
    if len(found) != 1:
        raise AssertionError(f"{found} in {dist} where one {pattern} is expected")
    return os.path.join(dist, found[0])


def version():
    return re.search(r"qz7-(.+)-windows", package(r"qz7-.+-windows\.zip")).group(1)


@contextlib.contextmanager
def unpacked_zip():
    """The folder that the zip for Windows has in it."""
    with tempfile.TemporaryDirectory() as folder:
        subprocess.run(["unzip", "-q", package(r"qz7-.+-windows\.zip"), "-d", folder], check=True)
        name, = os.listdir(folder)
        yield os.path.join(folder, name)


def files_below(folder):
    return {os.path.relpath(os.path.join(root, name), folder)
            for root, _, names in os.walk(folder) for name in names}


def asked_of_the_system(program):
    """(the libraries that a program names, the oldest Windows that it runs on)."""
    told = subprocess.run(["x86_64-w64-mingw32-objdump", "-p", program], check=True, text=True,
                          capture_output=True, errors="replace").stdout
    oldest = [int(re.search(rf"^{part}SubsystemVersion\s+(\d+)", told, re.MULTILINE).group(1))
              for part in ("Major", "Minor")]
    return {name.lower() for name in re.findall(r"DLL Name: (\S+)", told)}, tuple(oldest)


def read_of_process(process, name):
    try:
        with open(f"/proc/{process}/{name}", "rb") as file:
            return file.read()
    except OSError:  # ended, or another user's
        return b""


class FreshDesktop(desktop.Desktop):
    """With a prefix that nothing was ever installed into."""

    def open(self, windows_programs):
        self.prefix = tempfile.mkdtemp()
        self.ends.append(lambda: shutil.rmtree(self.prefix, ignore_errors=True))
        super().open(windows_programs)


class PackageTest(DesktopTest):
    """A test with a folder of its own for documents; the program comes out of a package."""

    def setUp(self):
        SystemTest.setUp(self)
        self.driver = self.desktop.driver
        self.programs_started = []
        self.addCleanup(self.end_programs)
        self.set_preferences(DataDir=self.windows_path(), TemplateFile=self.template_path)

    def end_programs(self):
        for handle in self.driver("windows")[0::3]:
            self.driver("close", handle)
        super().end_programs()

    def assert_needs_windows_7_only(self, program):
        libraries, oldest = asked_of_the_system(program)
        self.assertLessEqual(libraries, SYSTEM_LIBRARIES)
        self.assertLessEqual(oldest, WINDOWS_7)

    def wine(self, *arguments, status=0):
        """Runs a program to its end, which has to be that one."""
        done = subprocess.run(["wine", *arguments], env=self.desktop.environment, check=False,
                              stdin=subprocess.DEVNULL, capture_output=True, timeout=LIMIT * 2)
        self.assertEqual(status, done.returncode, arguments)
        return done.stdout.decode("utf-8", "replace")

    def open_by_the_shell(self, path, *options):
        """As a double click does."""
        subprocess.run(["wine", "start", *options, path], env=self.desktop.environment, check=False,
                       stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL,
                       stderr=subprocess.DEVNULL, timeout=LIMIT)

    def assert_shows(self, comment):
        """The program's one main window, once it shows the document of that comment."""
        handle = self.driver("wait", MAIN_CLASS, "", LIMIT * 1000)[0]
        self.main = Window(self.desktop, handle, "")
        wait_for(lambda: self.main.text(FILE_COMMENT) == comment, "the document " + comment)

    def leave_and_wait(self):
        self.main.command(desktop.EXIT)
        self.main.wait_until_gone()
        wait_for(lambda: not self.is_running("qz7.exe"), "the program's end")
        for program in self.programs_started:
            program.wait(LIMIT)

    def is_running(self, program):
        """In this Wine."""
        prefix = ("WINEPREFIX=" + self.desktop.prefix).encode()
        return any(program.encode() in read_of_process(process, "cmdline").split(b"\0")[0]
                   and prefix in read_of_process(process, "environ").split(b"\0")
                   for process in os.listdir("/proc") if process.isdigit())


def main():
    desktop.Desktop = FreshDesktop
    desktop.main()
