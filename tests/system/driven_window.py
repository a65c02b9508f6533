"""The windows of a running program, worked from outside by window_driver.exe and by the screen's own
keyboard and mouse."""
import os
import re
import subprocess

from qz7 import wait_for

LIMIT = 60  # seconds; far beyond what any step takes, for a machine under load
FRAME = "-1"  # around a group of controls
STATUS_LINE = 140


class Refused(AssertionError):
    """The driver's "no"."""


class Driver:
    """Asks window_driver.exe, which tells what each command does."""

    def __init__(self, programs, environment):
        self.process = subprocess.Popen(
            ["wine", os.path.join(programs, "window_driver.exe")], env=environment,
            stdin=subprocess.PIPE, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL)

    def __call__(self, *fields):
        line = "\t".join(escaped(str(field)) for field in fields)
        self.process.stdin.write(line.encode() + b"\n")
        self.process.stdin.flush()
        answer = self.process.stdout.readline().decode().rstrip("\r\n").split("\t")
        if answer[0] != "ok":
            shown = [] if fields == ("windows",) else self("windows")[2::3]
            raise Refused(f"{line}: {' '.join(answer)}; on the screen: {shown}")
        return [unescaped(field) for field in answer[1:]]

    def close(self):
        try:
            self.process.communicate(timeout=LIMIT)
        except subprocess.TimeoutExpired:
            self.process.kill()
            self.process.communicate()


def escaped(text):
    for plain, special in (("\\", "\\\\"), ("\t", "\\t"), ("\n", "\\n"), ("\r", "\\r")):
        text = text.replace(plain, special)
    return text


def unescaped(text):
    return re.sub(r"\\(.)", lambda special: {"t": "\t", "n": "\n", "r": "\r"}.get(special[1], special[1]),
                  text)


class Window:
    """A top-level window of the program."""

    def __init__(self, desktop, handle, title):
        self.desktop = desktop
        self.driver = desktop.driver
        self.handle = handle
        self.title = title

    def press(self, control):
        self.driver("press", self.handle, control)

    def finish(self, control):
        """Presses a button that ends the window, and waits for the end."""
        self.press(control)
        self.wait_until_gone()

    def wait_until_gone(self):
        self.driver("gone", self.handle, LIMIT * 1000)

    def wait_until_in_front(self):
        self.driver("front", self.handle, LIMIT * 1000)

    def press_keys(self, *keys):
        """Keys of the screen's keyboard, under xdotool's names, once Wine's own keyboard and the
        screen's are both this window's: the screen follows Wine, later."""
        self.wait_until_in_front()
        self.driver("focus", self.handle, LIMIT * 1000)
        there = self.driver("screen_window", self.handle)[0]
        wait_for(lambda: self.desktop.xdotool("getwindowfocus", "-f") == there,
                 "the screen's keyboard")
        self.desktop.xdotool("key", *keys)

    def click(self, place, *, button=1, times=1):
        """A real click on a place of the screen, once the window is in front."""
        self.wait_until_in_front()
        self.desktop.xdotool("mousemove", *map(str, place), "click", "--repeat", str(times),
                             str(button))

    def area(self, control=""):
        """Left, top, right, bottom on the screen, of a control or the window."""
        return list(map(int, self.driver("area", self.handle, control)))

    def place(self, control):
        """The same of a control, from the window's upper left corner on, wherever that is moved."""
        while True:
            window, area, after = self.area(), self.area(control), self.area()
            if window == after:
                left, top = window[:2]
                return [area[0] - left, area[1] - top, area[2] - left, area[3] - top]

    def status(self):
        """The line at the main window's lower edge."""
        return self.text(STATUS_LINE)

    def wait_to_be(self, wanted, look):
        wait_for(lambda: look() == wanted, lambda: f"{wanted}; it is {look()}")

    def focused(self):
        return int(self.driver("focused", self.handle)[0])

    def command(self, identifier):
        self.driver("command", self.handle, identifier)

    def text(self, control):
        return self.driver("text", self.handle, control)[0]

    def set(self, control, text):
        self.driver("set", self.handle, control, text)

    def choose(self, control, place):
        self.driver("choose", self.handle, control, place)

    def chosen(self, control):
        return int(self.driver("chosen", self.handle, control)[0])

    def is_enabled(self):
        return self.driver("enabled", self.handle) == ["1"]

    def controls(self):
        """(identifier, class, text, enabled) of each visible one."""
        fields = self.driver("controls", self.handle)
        return list(zip(fields[0::4], fields[1::4], fields[2::4], fields[3::4]))

    def usable_buttons(self):
        return {text.replace("&", "") for control, kind, text, enabled in self.controls()
                if kind == "Button" and control != FRAME and enabled == "1"}
