"""What the tests of the desktop program share: a screen and a Wine of their own, qz7.exe in a folder
of its own for each test, and the driver that works its windows from outside.

The tests are called with the folders of the programs for Windows and of the native ones:
desktop_test.py WINDOWS_PROGRAMS NATIVE_PROGRAMS [unittest's own arguments]
The environment variable QZ7_DPI makes the screen a finer one: 144 instead of 96 dots per inch.
"""
import fcntl
import glob
import os
import shutil
import signal
import subprocess
import sys
import tempfile
import unittest

import radio_peer
from driven_window import LIMIT, Driver, Window
from qz7 import BLOCK, SystemTest, patched, wait_for

TITLE = "QZ-7H Programmer"
MAIN_CLASS = "QZ7HMainWin"
DIALOG_CLASS = "#32770"
NEW_NAME = "NONAME.RDF"
ADVICE = ("One of the first things you should do\nis create a template file.\n"
          "Select Help|Contents for instructions.")
# Wine offers to fetch the first two, and the third writes into the menus of the user's own desktop.
OVERRIDES = "mscoree,mshtml,winemenubuilder.exe="
DPI = os.environ.get("QZ7_DPI", "96")
PORT = 7  # real ports of the machine, if it has any, start at COM1

OK, CANCEL, RETRY, YES, NO = 1, 2, 4, 6, 7
BUTTON_NAMES = {OK: "OK", CANCEL: "Cancel", RETRY: "Retry", YES: "Yes", NO: "No"}
FILE_NAME_FIELDS = ("1148", "1152")  # of the file boxes

# The menu's commands and the main dialog's controls.
SAVE, SAVE_AS, EXIT, GET_DATA, SEND_DATA = 102, 103, 105, 106, 107
PORT_SETUP, CREATE_TEMPLATE, PREFERENCES = 108, 109, 154
AUTO_POWER_OFF, FILE_COMMENT = 103, 109

READ_DIALOG = "Get Data from Radio"
WRITE_DIALOG = "Send Data to Radio"
DONE_DIALOG = "Data Sent"
TEMPLATE_DIALOG = "Create Template"
PREFERENCES_KEYS = "[QZ-7H Programmer]\r\n"


class Desktop:
    """A screen with a window manager, a Wine prefix and the driver; for one run of tests."""

    def __init__(self, windows_programs):
        self.prefix = os.path.join(os.path.dirname(windows_programs), "desktop-prefix")
        self.ends = []
        try:
            self.open(windows_programs)
        except BaseException:
            self.close()
            raise

    def open(self, windows_programs):
        # One run at a time: there is one first instance of the program in a prefix.
        lock = open(self.prefix + ".lock", "w", encoding="ascii")
        self.ends.append(lock.close)
        fcntl.flock(lock, fcntl.LOCK_EX)
        # Names are UTF-8 outside Wine, whatever this machine is set to, and 1252 inside.
        self.environment = dict(os.environ, WINEPREFIX=self.prefix, DISPLAY=self.open_screen(),
                                LC_ALL="C.UTF-8", WINEDLLOVERRIDES=OVERRIDES, WINEDEBUG="-all")
        self.start("openbox")
        self.open_wine()
        self.driver = Driver(windows_programs, self.environment)
        self.ends.append(self.driver.close)
        self.driver("windows")

    def open_screen(self):
        """Xvfb takes the first free display and tells its number once it answers there."""
        here, there = os.pipe()
        self.start("Xvfb", "-displayfd", str(there), "-screen", "0", "1920x1440x24", "-nolisten",
                   "tcp", pass_fds=[there])
        os.close(there)
        with open(here, encoding="ascii") as file:
            number = file.readline().strip()
        if not number:
            raise AssertionError("Xvfb did not start")
        return ":" + number

    def start(self, *command, **options):
        process = subprocess.Popen(command, env=getattr(self, "environment", None),
                                   stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL, **options)

        def end():
            process.terminate()
            process.wait()
        self.ends.append(end)
        return process

    def open_wine(self):
        ready = glob.glob(os.path.join(self.prefix, "ready for *"))
        wanted = os.path.join(self.prefix, f"ready for {DPI} dpi")
        if wanted not in ready:
            self.make_ready(ready)
            with open(wanted, "w", encoding="ascii"):
                pass
        self.start_wine()

    def make_ready(self, before):
        """The resolution is read when a server starts; this one is ended again."""
        for marker in before:
            os.unlink(marker)
        if not before:
            shutil.rmtree(self.prefix, ignore_errors=True)
            os.makedirs(self.prefix)
        self.start_wine()
        if not before:
            self.run("wineboot", "-i")
        self.run("wine", "reg", "add", r"HKCU\Control Panel\Desktop", "/v", "LogPixels",
                 "/t", "REG_DWORD", "/d", DPI, "/f")
        for _ in range(2):
            self.ends.pop()()

    def start_wine(self):
        """Wine's server is kept from becoming a session of its own, as it would if Wine started it:
        a session takes the radio's terminal for its own and is hung up with it."""
        server = self.start("wineserver", "-f", "-p")
        self.ends.append(self.end_wine)
        # It answers in the folder that it goes into.
        wait_for(lambda: os.path.exists(f"/proc/{server.pid}/cwd/socket"), "Wine's server")

    def run(self, *command):
        subprocess.run(command, env=self.environment, check=True, timeout=2 * LIMIT,
                       stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)

    def end_wine(self):
        for option in ("-k", "-w"):
            subprocess.run(["wineserver", option], env=self.environment, check=False)

    def xdotool(self, *arguments):
        """Works the screen's own keyboard and mouse; what it says."""
        return subprocess.run(["xdotool", *arguments], env=self.environment, check=True,
                              stdout=subprocess.PIPE, text=True).stdout.strip()

    def close(self):
        while self.ends:
            self.ends.pop()()


class DesktopTest(SystemTest):
    """Each test has a folder with the program in it, which is the data folder as well."""

    windows_programs = ""
    desktop = None
    template_path = "Z:\\no\\template.tpl"

    def setUp(self):
        super().setUp()
        self.driver = self.desktop.driver
        for name in ("qz7.exe", "qz732.dll", "qz7.fon"):
            shutil.copy(os.path.join(self.windows_programs, name), self.folder)
        self.programs_started = []
        self.addCleanup(self.end_programs)
        self.set_preferences(DataDir=self.windows_path(), TemplateFile=self.template_path)

    def tearDown(self):
        """What a test has started has ended by itself, and left nothing on the screen."""
        for program in self.programs_started:
            self.assertIsNotNone(program.poll(), "a program still runs")
        self.assertEqual([], self.windows())

    def end_programs(self):
        for program in self.programs_started:
            if program.poll() is None:
                program.send_signal(signal.SIGKILL)
                program.wait(LIMIT)
        wait_for(lambda: self.windows() == [], "the screen to be empty")

    def windows(self):
        """(class, title) of every window on the screen."""
        fields = self.driver("windows")
        return list(zip(fields[1::3], fields[2::3]))

    # Files and preferences

    def windows_path(self, *names):
        return "\\".join(["Z:" + self.folder.replace("/", "\\"), *names])

    @property
    def preferences_path(self):
        return os.path.join(self.desktop.prefix, "drive_c", "windows", "Tamro.ini")

    def set_preferences(self, **values):
        with open(self.preferences_path, "w", encoding="cp1252", newline="") as file:
            file.write(PREFERENCES_KEYS)
            file.writelines(f"{key}={value}\r\n" for key, value in values.items())

    def preferences(self):
        with open(self.preferences_path, encoding="cp1252") as file:
            return dict(line.strip().split("=", 1) for line in file if "=" in line)

    def preference(self, key):
        return self.preferences().get(key)

    def make_document(self, name, comment="", changes=None):
        """A radio data file with a comment; returns its bytes."""
        self.ok("new", name)
        comment = comment.encode("ascii").ljust(80, b"\0")
        changes = dict(enumerate(comment, 100)) | (changes or {})
        self.write_bytes(name, patched(self.read_bytes(name), changes))
        return self.read_bytes(name)

    # The program

    def start_program(self, *arguments, program="qz7.exe"):
        process = subprocess.Popen(["wine", program, *arguments], cwd=self.folder,
                                   env=self.desktop.environment, stdin=subprocess.DEVNULL,
                                   stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        self.programs_started.append(process)
        return process

    def start(self, *arguments, name=NEW_NAME):
        """Starts the program; its main window, once it shows that document."""
        self.program = self.start_program(*arguments)
        self.main = self.window(f"{TITLE} - {name}", MAIN_CLASS)
        return self.main

    def window(self, title, class_name=DIALOG_CLASS):
        handle = self.driver("wait", class_name, title, LIMIT * 1000)[0]
        return Window(self.desktop, handle, title)

    def assert_title(self, name):
        title = (MAIN_CLASS, f"{TITLE} - {name}")
        wait_for(lambda: title in self.windows(), f"the title to show {name}")

    def assert_ends(self, status=0):
        self.assertEqual(status, self.program.wait(LIMIT))

    def leave(self):
        """Exits; the program asks nothing."""
        self.main.command(EXIT)
        self.assert_ends()

    def leave_unsaved(self, name=NEW_NAME):
        self.main.command(EXIT)
        self.answer_save_question(NO, name)
        self.assert_ends()

    def answer_save_question(self, button, name=NEW_NAME):
        self.answer(button, f"{name} has been changed.\nSave file before closing?", TITLE,
                    "Yes No Cancel")

    def answer(self, button, text, caption, buttons):
        """A message box with exactly that text, caption and buttons; presses one of them."""
        box = self.window(caption)
        controls = box.controls()
        shown = "\n".join(said for _, kind, said, _ in controls if kind == "Static" and said)
        names = [said.replace("&", "") for _, kind, said, _ in controls if kind == "Button"]
        self.assertEqual((text, buttons), (shown, " ".join(names)))
        self.assertIn(BUTTON_NAMES[button], names)
        box.finish(button)

    def choose_file(self, title, path):
        box = self.window(title)
        fields = [control for control, kind, *_ in box.controls()
                  if control in FILE_NAME_FIELDS and kind == "Edit"]
        box.set(fields[0], path)
        box.finish(OK)

    def save_as(self, name):
        self.main.command(SAVE_AS)
        self.choose_file("Save Radio File", self.windows_path(name))
        self.assert_title(name)
        return self.read_bytes(name)

    # The radio

    def connect(self, *arguments, speed="fast"):
        """A radio at the program's port; the program has to be started behind it."""
        radio = radio_peer.Radio("--speed", speed, *arguments)
        self.addCleanup(radio.close)
        link = os.path.join(self.desktop.prefix, "dosdevices", f"com{PORT}")
        if os.path.lexists(link):
            os.unlink(link)
        os.symlink(radio.terminal, link)
        self.addCleanup(os.unlink, link)
        self.set_preferences(DataDir=self.windows_path(), TemplateFile=self.template_path, Com=PORT)
        return radio

    def disconnect(self):
        """For the program's next start, the rest of the preferences as they are."""
        self.set_preferences(**dict(self.preferences(), Com=0))

    def make_memory(self, name, seed=1):
        """A radio's memory in a file: settings as usual, the upper half of the channels anyhow."""
        self.ok("new", "memory.rdf")
        memory = bytearray(self.read_bytes("memory.rdf")[BLOCK])
        os.unlink(self.path("memory.rdf"))
        for place in range(3300, 5898):
            memory[place] = (place * 7 + place // 256 * 13 + seed) & 0xFF
        memory[2:8] = bytes([3, 9, 0x11, 0x31, 0xC2, seed])
        memory[10:12] = b"\x77\x78"
        self.write_bytes(name, memory)
        return bytes(memory)


def main():
    if len(sys.argv) < 3:
        sys.exit("usage: " + sys.argv[0] + " WINDOWS_PROGRAMS NATIVE_PROGRAMS")
    DesktopTest.windows_programs = os.path.abspath(sys.argv.pop(1))
    SystemTest.programs = os.path.abspath(sys.argv.pop(1))
    radio_peer.radio_path = os.path.join(SystemTest.programs, "qz7radio")
    # Ended from outside, the run stops where it is and takes the screen and Wine with it.
    signal.signal(signal.SIGTERM, signal.default_int_handler)
    DesktopTest.desktop = Desktop(DesktopTest.windows_programs)
    try:
        result = unittest.main("__main__", exit=False).result
    finally:
        DesktopTest.desktop.close()
    sys.exit(not result.wasSuccessful())
