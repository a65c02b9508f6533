"""The program's side of the cable over the pseudo-terminal, byte by byte, and the stand-in radio that
the tests of qz7radio run.

The tests are called with the radio's path, which may also stand in the environment variable
QZ7RADIO:  python3 tests/system/qz7radio_send_test.py PATH/TO/qz7radio [unittest's own arguments]
"""

import errno
import os
import select
import signal
import subprocess
import sys
import tempfile
import termios
import time
import unittest

HEADER = 10
BLOCK = 16
MEMORY = 8122
EXCHANGE = MEMORY + 1
ACK = 0x06
ABORT = 0xFF
BYTE_TIME = 11 / 9600

# Longer than anything here takes; reaching it is a failure.
PATIENCE = 20.0

# How long a line must stay quiet to count as silent, where silence is what is tested.
SILENCE = 0.4

radio_path = os.environ.get("QZ7RADIO", "")


def checksum(memory):
  return sum(memory) & 0xFF


def sample_memory(seed=1):
  """A memory unlike the built-in one, with every byte value in it."""
  memory = bytearray((i * 7 + i // 256 * 13 + seed) & 0xFF for i in range(MEMORY))
  memory[0] = 0x0A
  return bytes(memory)


class Radio:
  """A running qz7radio; its standard output is read line by line."""

  def __init__(self, *arguments):
    self.errors = tempfile.TemporaryFile()
    self.process = subprocess.Popen([radio_path, *arguments], stdout=subprocess.PIPE,
                                    stderr=self.errors, stdin=subprocess.DEVNULL)
    self.pending = b""
    try:
      self.terminal = self.line()
      if not self.terminal:
        raise AssertionError("no terminal from the radio; it said: " + self.said())
    except AssertionError:
      self.close()
      raise

  def line(self):
    """The next line of standard output; None at its end."""
    deadline = time.monotonic() + PATIENCE
    output = self.process.stdout.fileno()
    while b"\n" not in self.pending:
      ready, _, _ = select.select([output], [], [], max(0, deadline - time.monotonic()))
      if not ready:
        raise AssertionError("no further line from the radio; it said: " + self.said())
      more = os.read(output, 4096)
      if not more:
        return None
      self.pending += more
    text, self.pending = self.pending.split(b"\n", 1)
    return text.decode()

  def rest(self):
    """All further lines; waits until the radio ends."""
    lines = []
    while (line := self.line()) is not None:
      lines.append(line)
    return lines

  def said(self):
    # The radio writes at the place that it shares with this file object; it must not move.
    errors = self.errors.fileno()
    return os.pread(errors, os.fstat(errors).st_size, 0).decode()

  def wait_until_said(self, text):
    wait_for(lambda: text in self.said(), "the radio to say: " + text)

  def wait_until_taken(self):
    """Until the program has read all that the radio has sent so far."""
    port = os.open(self.terminal, os.O_RDONLY | os.O_NOCTTY | os.O_NONBLOCK)
    try:
      # Asking brings what is on its way into the queue, so that nothing there means read.
      wait_for(lambda: not select.select([port], [], [], 0)[0], "the program to read")
    finally:
      os.close(port)

  def status(self):
    return self.process.wait(PATIENCE)

  def end(self, with_signal=signal.SIGTERM):
    self.process.send_signal(with_signal)
    lines = self.rest()
    return lines, self.status()

  def close(self):
    if self.process.poll() is None:
      self.process.kill()
      self.process.wait(PATIENCE)
    self.process.stdout.close()
    self.errors.close()


class HungUp(Exception):
  """The terminal has vanished."""


class Program:
  """The program's end of the cable."""

  def __init__(self, terminal, purge=True):
    self.port = os.open(terminal, os.O_RDWR | os.O_NOCTTY | os.O_NONBLOCK)
    if purge:
      self.purge()

  def purge(self):
    termios.tcflush(self.port, termios.TCIOFLUSH)

  def write(self, data):
    assert os.write(self.port, bytes(data)) == len(data)

  def some(self, count, patience):
    """At most `count` bytes, at least one; nothing if none came in time."""
    ready, _, _ = select.select([self.port], [], [], patience)
    if not ready:
      return b""
    try:
      data = os.read(self.port, count)
    except OSError as error:
      if error.errno == errno.EIO:
        raise HungUp from error
      raise
    if not data:
      raise HungUp
    return data

  def read(self, count):
    data = b""
    deadline = time.monotonic() + PATIENCE
    while len(data) < count:
      more = self.some(count - len(data), max(0, deadline - time.monotonic()))
      if not more:
        raise AssertionError(f"{len(data)} of {count} bytes came: {data[-32:].hex()}")
      data += more
    return data

  def until_silence(self):
    data = b""
    while more := self.some(4096, SILENCE):
      data += more
    return data

  def exchange_byte(self, byte):
    """Writes a byte and returns its echo."""
    self.write([byte])
    return self.read(1)[0]

  def close(self):
    if self.port >= 0:
      os.close(self.port)
      self.port = -1

  def read_memory(self):
    """Reads as the program does; returns the memory and the checksum that came with it."""
    memory = self.read(HEADER)
    self.acknowledge()
    memory += self.read(BLOCK)
    self.acknowledge()
    memory += self.read(MEMORY - len(memory))
    return memory, self.read(1)[0]

  def acknowledge(self):
    echo = self.exchange_byte(ACK)
    if echo != ACK:
      raise AssertionError(f"the acknowledgement came back as 0x{echo:02X}")

  def echoed(self, data):
    self.write(data)
    echo = self.read(len(data))
    if echo != bytes(data):
      raise AssertionError(f"sent {bytes(data).hex()}, echoed {echo.hex()}")

  def write_memory(self, memory, sum_byte=None):
    """Writes as the program does; returns once the checksum's echo is back."""
    for byte in memory[:HEADER]:
      self.write([byte])
    if self.read(HEADER) != memory[:HEADER]:
      raise AssertionError("the header's echo is wrong")
    for start in range(HEADER, MEMORY, BLOCK):
      if start <= HEADER + BLOCK:
        answer = self.read(1)[0]
        if answer != ACK:
          raise AssertionError(f"answer 0x{answer:02X} before byte {start}")
      self.echoed(memory[start:start + BLOCK])
    self.echoed([checksum(memory) if sum_byte is None else sum_byte])


def wait_for(condition, what):
  deadline = time.monotonic() + PATIENCE
  while not condition():
    if time.monotonic() > deadline:
      raise AssertionError("waited in vain for " + what)
    time.sleep(0.005)


def run(*arguments):
  """Runs qz7radio where it is expected to end by itself at once."""
  return subprocess.run([radio_path, *arguments], capture_output=True, text=True, timeout=PATIENCE,
                        stdin=subprocess.DEVNULL)


class RadioTest(unittest.TestCase):
  def setUp(self):
    folder = tempfile.TemporaryDirectory()
    self.addCleanup(folder.cleanup)
    self.folder = folder.name

  def radio(self, *arguments, speed="fast"):
    radio = Radio("--speed", speed, *arguments)
    self.addCleanup(radio.close)
    return radio

  def program(self, radio, purge=True):
    program = Program(radio.terminal, purge)
    self.addCleanup(program.close)
    return program

  def path(self, name):
    return os.path.join(self.folder, name)

  def file(self, name, data):
    with open(self.path(name), "wb") as file:
      file.write(data)
    return self.path(name)

  def content(self, name):
    with open(self.path(name), "rb") as file:
      return file.read()

  def assert_no_more(self, program):
    self.assertEqual(program.until_silence(), b"")

  def assert_exactly(self, program, data):
    """This comes, and then nothing."""
    self.assertEqual(program.read(len(data)), data)
    self.assert_no_more(program)

  def assert_line(self, line, pattern):
    self.assertIsNotNone(line)
    self.assertRegex(line, "^" + pattern + "$")

  def accept(self, radio, program):
    """Reads the memory to the end and accepts it; returns it."""
    memory, sum_byte = program.read_memory()
    self.assertEqual(sum_byte, checksum(memory))
    program.acknowledge()
    self.assert_line(radio.line(), r"sent 8123 bytes in \d+\.\d{4} s")
    self.assert_line(radio.line(), r"wire time 9\.3076 s")
    return memory

  def deliver(self, radio, program, memory):
    """Writes the memory to the end; the last answer comes behind the checksum's echo."""
    program.write_memory(memory)
    self.assertEqual(program.read(1)[0], ACK)
    self.assert_line(radio.line(), r"received 8123 bytes in \d+\.\d{4} s")
    self.assert_line(radio.line(), r"wire time 9\.3076 s")


def main():
  global radio_path
  if len(sys.argv) > 1 and not sys.argv[1].startswith("-") and os.path.exists(sys.argv[1]):
    radio_path = sys.argv.pop(1)
  if not radio_path:
    sys.exit("usage: " + sys.argv[0] + " PATH/TO/qz7radio")
  radio_path = os.path.abspath(radio_path)
  unittest.main(module="__main__")
