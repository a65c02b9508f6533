"""What the whole-program tests share: running qz7ctl, and the stand-in radio beside it."""
import os
import re
import signal
import subprocess
import tempfile
import time
import unittest

LIMIT = 120  # seconds; far beyond what any step takes, for a machine under load
IMAGE_SIZE = 21282
BLOCK = slice(3060, 11182)


def wait_for(condition, what):
    limit = time.monotonic() + LIMIT
    while not condition():
        if time.monotonic() > limit:
            raise AssertionError(f"waited too long for {what() if callable(what) else what}")
        time.sleep(0.005)


def run_to_its_end(command, **options):
    """(exit status, output, error output) of a program. They go into files: what Wine starts beside
    the first of its programs has that one's error output and lasts as long as any of them runs, so
    that a pipe would end with the last."""
    with tempfile.TemporaryFile() as out, tempfile.TemporaryFile() as err:
        done = subprocess.run(command, stdout=out, stderr=err, check=False, timeout=LIMIT, **options)
        told = [os.pread(file.fileno(), os.fstat(file.fileno()).st_size, 0).decode()
                for file in (out, err)]
    return done.returncode, *told


class Radio:
    """The stand-in radio with a terminal of its own."""

    def __init__(self, programs, folder, *arguments, speed="fast"):
        self.process = subprocess.Popen(
            [os.path.join(programs, "qz7radio"), "--speed", speed, *arguments], cwd=folder,
            stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, text=True)
        self.output = None
        self.port = self.process.stdout.readline().strip()

    def finish(self):
        """Waits for its own end and returns what it reported."""
        if self.output is None:
            self.output = self.process.communicate(timeout=LIMIT)[0]
        return self.process.returncode, self.output

    def stop(self):
        """Ends it and returns what it reported."""
        if self.process.poll() is None:
            self.process.send_signal(signal.SIGTERM)
        return self.finish()[1]


class SystemTest(unittest.TestCase):
    programs = ""

    def setUp(self):
        self.temporary = tempfile.TemporaryDirectory()
        self.addCleanup(self.temporary.cleanup)
        self.folder = self.temporary.name
        self.radios = []
        self.addCleanup(lambda: [radio.stop() for radio in self.radios])

    def path(self, name):
        return os.path.join(self.folder, name)

    def read_bytes(self, name):
        with open(self.path(name), "rb") as file:
            return file.read()

    def write_bytes(self, name, data):
        with open(self.path(name), "wb") as file:
            file.write(data)

    def radio(self, *arguments, **options):
        radio = Radio(self.programs, self.folder, *arguments, **options)
        self.radios.append(radio)
        return radio

    def start(self, *arguments):
        return subprocess.Popen(
            [os.path.join(self.programs, "qz7ctl"), *arguments], cwd=self.folder,
            stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=subprocess.PIPE)

    def ctl(self, *arguments, stdin=b""):
        """Runs qz7ctl; returns exit status, standard output and standard error as text."""
        done = subprocess.run(
            [os.path.join(self.programs, "qz7ctl"), *arguments], cwd=self.folder, input=stdin,
            capture_output=True, timeout=LIMIT, check=False)
        return done.returncode, done.stdout.decode(), done.stderr.decode()

    def ok(self, *arguments):
        status, out, err = self.ctl(*arguments)
        self.assertEqual(0, status, err)
        return out

    def read_radio(self, name, *radio_arguments):
        radio = self.radio(*radio_arguments, "send")
        self.ok("read", "--yes", "--port", radio.port, name)
        self.assertEqual(0, radio.finish()[0])

    def make_template(self, name):
        radio = self.radio("send")
        self.ok("template", "--yes", "--port", radio.port, name)
        radio.finish()


def patched(image, changes):
    """An image with bytes changed and both checksums right."""
    image = bytearray(image)
    for offset, value in changes.items():
        image[offset] = value
    image[80] = sum(image[BLOCK]) % 256
    image[81] = 0
    image[82:100] = bytes(18)
    image[81] = -sum(image) % 256
    return bytes(image)


def fields(text):
    return dict(re.findall(r"^([^=\n]+)=(.*)$", text, re.MULTILINE))
