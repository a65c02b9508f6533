#!/usr/bin/env python3
"""Tests of qz7radio, the stand-in for the radio.

They play the program's side of the cable over the pseudo-terminal, byte by byte:

  python3 tests/system/qz7radio_test.py PATH/TO/qz7radio [unittest's own arguments]

The path may also be given in the environment variable QZ7RADIO.
"""

import errno
import os
import re
import select
import signal
import stat
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


class SendTest(RadioTest):
  def test_sends_the_file_byte_for_byte_and_ends(self):
    memory = sample_memory()
    radio = self.radio("send", "--image", self.file("radio.bin", memory))
    program = self.program(radio)
    self.assertEqual(self.accept(radio, program), memory)
    program.close()
    self.assertEqual(radio.rest(), [])
    self.assertEqual(radio.status(), 0)
    self.assertEqual(self.content("radio.bin"), memory)

  def test_takes_the_memory_out_of_a_radio_data_file(self):
    memory = sample_memory(5)
    data = b"RDF\0QZ7H" + bytes(3060 - 8) + memory + b"\xEE" * (21282 - 3060 - MEMORY)
    radio = self.radio("send", "--image", self.file("radio.rdf", data))
    self.assertEqual(self.accept(radio, self.program(radio)), memory)

  def test_sends_nothing_before_the_program_has_acknowledged_the_header(self):
    radio = self.radio("send")
    program = self.program(radio)
    program.read(HEADER)
    self.assert_no_more(program)
    program.acknowledge()
    program.read(BLOCK)
    self.assert_no_more(program)
    program.acknowledge()
    program.read(EXCHANGE - HEADER - BLOCK)
    self.assert_no_more(program)

  def test_is_not_done_before_the_program_has_accepted(self):
    radio = self.radio("send")
    program = self.program(radio)
    program.read_memory()
    program.close()
    self.assert_line(radio.line(), "exchange failed: the program closed the terminal after 8123 .*")
    self.assertEqual(radio.end(), ([], 1))

  def test_sends_to_a_program_that_never_purges(self):
    radio = self.radio("send")
    self.accept(radio, self.program(radio, purge=False))

  def test_waits_a_moment_after_the_purge(self):
    for mode, moment in (("send", 0.15), ("serve", 0.3)):
      radio = self.radio(mode)
      program = self.program(radio, purge=False)
      for _ in range(2):
        begin = time.monotonic()
        program.purge()
        program.read(1)
        self.assertGreaterEqual(time.monotonic() - begin, moment)
        program.read(HEADER - 1)

  def test_sends_nothing_while_nobody_listens(self):
    radio = self.radio("send")
    watcher = os.open(radio.terminal, os.O_RDWR | os.O_NOCTTY | os.O_NONBLOCK)
    os.close(watcher)
    time.sleep(SILENCE)
    self.assertNotIn("sending", radio.said())
    self.accept(radio, self.program(radio))

  def test_starts_over_when_the_program_starts_again(self):
    radio = self.radio("send")
    program = self.program(radio)
    program.read(HEADER)
    program.acknowledge()
    program.read(BLOCK)
    program.acknowledge()
    program.read(3000)
    program.purge()
    self.assert_line(radio.line(), "exchange failed: the program started again after .*")
    self.assertEqual(program.read(HEADER)[0], 0x0A)
    program.purge()
    self.accept(radio, program)

  def test_starts_over_without_a_word_if_nobody_had_listened(self):
    radio = self.radio("send")
    program = self.program(radio)
    program.read(HEADER)
    program.purge()
    self.accept(radio, program)

  def test_serves_the_next_program_after_one_that_closed(self):
    radio = self.radio("send")
    first = self.program(radio)
    first.read(HEADER)
    first.acknowledge()
    first.close()
    self.assert_line(radio.line(), "exchange failed: the program closed the terminal after .*")
    self.accept(radio, self.program(radio))

  def test_tells_that_the_program_gave_up_and_tries_again(self):
    radio = self.radio("send")
    program = self.program(radio)
    program.read(HEADER)
    program.acknowledge()
    program.read(BLOCK)
    self.assertEqual(program.exchange_byte(ABORT), ABORT)
    self.assert_line(radio.line(), "exchange failed: the program gave up after 26 of 8123 bytes")
    self.assert_no_more(program)
    program.purge()
    self.accept(radio, program)

  def test_stops_sending_when_the_program_gives_up_in_the_middle(self):
    radio = self.radio("send", speed="wire")
    program = self.program(radio)
    program.read(HEADER)
    program.acknowledge()
    program.read(BLOCK)
    program.acknowledge()
    program.read(40)
    program.write([ABORT])
    rest = program.until_silence()
    self.assertEqual(rest[-1], ABORT)
    self.assertLess(len(rest), 400)
    self.assert_line(radio.line(), "exchange failed: the program gave up after .*")

  def test_ignores_other_bytes_but_echoes_them(self):
    radio = self.radio("send")
    program = self.program(radio)
    program.read(HEADER)
    self.assertEqual(program.exchange_byte(0x41), 0x41)
    self.assert_no_more(program)
    program.acknowledge()
    self.assertEqual(len(program.read(BLOCK)), BLOCK)

  def test_nothing_unread_is_left_for_the_next_program(self):
    radio = self.radio("send")
    first = self.program(radio)
    first.read(HEADER)
    first.acknowledge()
    first.read(BLOCK)
    first.acknowledge()
    radio.wait_until_said("everything sent")
    first.close()
    radio.line()
    second = self.program(radio, purge=False)
    self.assertEqual(second.read(HEADER)[0], 0x0A)
    self.assert_no_more(second)


class ReceiveTest(RadioTest):
  def test_stores_what_was_written_and_ends(self):
    memory = sample_memory(9)
    radio = self.radio("receive", "--image", self.path("new.bin"))
    program = self.program(radio)
    self.deliver(radio, program, memory)
    self.assertEqual(self.content("new.bin"), memory)
    self.assert_no_more(program)
    program.close()
    self.assertEqual(radio.rest(), [])
    self.assertEqual(radio.status(), 0)
    self.assertEqual(os.listdir(self.folder), ["new.bin"])

  def test_replaces_an_older_memory_and_keeps_its_access_rights(self):
    path = self.file("old.bin", sample_memory(2))
    os.chmod(path, 0o640)
    radio = self.radio("receive", "--image", path)
    self.deliver(radio, self.program(radio), sample_memory(3))
    self.assertEqual(self.content("old.bin"), sample_memory(3))
    self.assertEqual(stat.S_IMODE(os.stat(path).st_mode), 0o640)

  def test_replaces_the_file_behind_a_symbolic_link(self):
    self.file("old.bin", sample_memory(2))
    os.symlink("old.bin", self.path("link.bin"))
    radio = self.radio("receive", "--image", self.path("link.bin"))
    self.deliver(radio, self.program(radio), sample_memory(3))
    self.assertTrue(os.path.islink(self.path("link.bin")))
    self.assertEqual(self.content("old.bin"), sample_memory(3))

  def test_answers_the_header_and_the_first_block_and_no_other(self):
    radio = self.radio("receive")
    program = self.program(radio)
    memory = sample_memory()
    program.echoed(memory[:9])
    self.assert_no_more(program)
    program.write(memory[9:10])
    self.assert_exactly(program, bytes([memory[9], ACK]))
    program.echoed(memory[10:25])
    self.assert_no_more(program)
    program.write(memory[25:26])
    self.assert_exactly(program, bytes([memory[25], ACK]))
    program.write(memory[26:])
    self.assert_exactly(program, memory[26:])

  def test_takes_a_checksum_from_a_program_that_closes_at_once(self):
    memory = sample_memory(4)
    radio = self.radio("receive", "--image", self.path("new.bin"), speed="wire")
    program = self.program(radio)
    program.echoed(memory[:HEADER])
    program.read(1)
    program.echoed(memory[HEADER:HEADER + BLOCK])
    program.read(1)
    program.write(memory[HEADER + BLOCK:-BLOCK])
    program.read(MEMORY - HEADER - 2 * BLOCK)
    program.write(memory[-BLOCK:] + bytes([checksum(memory)]))
    program.close()
    self.assert_line(radio.line(), "received 8123 bytes in .*")
    self.assertEqual(self.content("new.bin"), memory)
    self.assertEqual(radio.status(), 0)

  def test_keeps_nothing_if_the_checksum_is_wrong(self):
    path = self.file("old.bin", sample_memory(2))
    radio = self.radio("receive", "--image", path)
    program = self.program(radio)
    memory = sample_memory(3)
    program.write_memory(memory, (checksum(memory) + 1) & 0xFF)
    self.assert_no_more(program)
    self.assert_line(radio.line(), "exchange failed: the checksum is wrong after 8123 .*")
    self.assertIn("not kept", radio.said())
    self.assertEqual(self.content("old.bin"), sample_memory(2))
    # The next one counts.
    program.purge()
    self.deliver(radio, program, memory)
    self.assertEqual(self.content("old.bin"), memory)

  def test_a_failed_exchange_alone_is_no_success(self):
    radio = self.radio("receive", "--image", self.path("new.bin"))
    program = self.program(radio)
    memory = sample_memory(3)
    program.write_memory(memory, (checksum(memory) + 1) & 0xFF)
    radio.line()
    self.assertEqual(radio.end(), ([], 1))
    self.assertEqual(os.listdir(self.folder), [])

  def test_starts_over_when_the_program_starts_again(self):
    radio = self.radio("receive")
    program = self.program(radio)
    memory = sample_memory()
    program.echoed(memory[:HEADER])
    program.read(1)
    program.echoed(memory[HEADER:20])
    program.purge()
    self.assert_line(radio.line(), "exchange failed: the program started again after 20 of 8123 .*")
    self.deliver(radio, program, memory)

  def test_says_that_the_program_closed_in_the_middle(self):
    radio = self.radio("receive")
    program = self.program(radio)
    program.echoed(sample_memory()[:5])
    program.close()
    self.assert_line(radio.line(), "exchange failed: the program closed the terminal after 5 of .*")
    self.deliver(radio, self.program(radio), sample_memory())

  def test_skips_and_echoes_what_comes_before_the_header(self):
    radio = self.radio("receive")
    program = self.program(radio)
    self.assertEqual(program.exchange_byte(0x55), 0x55)
    self.assertEqual(program.exchange_byte(ACK), ACK)
    self.deliver(radio, program, sample_memory())

  def test_never_sends_by_itself(self):
    radio = self.radio("receive")
    program = self.program(radio)
    self.assertEqual(program.some(1, 1.5), b"")


class ServeTest(RadioTest):
  def test_reads_and_writes_in_turn(self):
    first, second = sample_memory(1), sample_memory(2)
    radio = self.radio("serve", "--image", self.file("radio.bin", first))
    program = self.program(radio)
    self.assertEqual(self.accept(radio, program), first)
    program.close()
    program = self.program(radio)
    self.deliver(radio, program, second)
    program.close()
    self.assertEqual(self.content("radio.bin"), second)
    program = self.program(radio)
    self.assertEqual(self.accept(radio, program), second)
    # Without closing, a further purge starts the next exchange.
    program.purge()
    self.assertEqual(self.accept(radio, program), second)
    self.assertEqual(radio.end(), ([], 0))

  def test_remembers_what_it_received_without_a_file(self):
    radio = self.radio("serve")
    program = self.program(radio)
    self.deliver(radio, program, sample_memory(7))
    program.purge()
    self.assertEqual(self.accept(radio, program), sample_memory(7))

  def test_takes_an_offer_back_and_waits(self):
    radio = self.radio("serve")
    program = self.program(radio)
    radio.wait_until_said("not wanted")
    # Nothing of the offer is left to be taken for an echo, and none comes again.
    self.assert_no_more(program)
    self.deliver(radio, program, sample_memory())

  def test_takes_an_offer_back_for_a_program_that_writes(self):
    radio = self.radio("serve")
    program = self.program(radio)
    wait_for(lambda: select.select([program.port], [], [], 0)[0], "the offer")
    # Of the offer nothing is left, of what the program wrote nothing is missing.
    header = sample_memory()[:HEADER]
    program.write(header)
    radio.wait_until_said("receiving")
    self.assert_exactly(program, header + bytes([ACK]))

  def test_offers_again_when_the_next_exchange_starts(self):
    radio = self.radio("serve")
    program = self.program(radio)
    radio.wait_until_said("not wanted")
    program.purge()
    self.accept(radio, program)

  def test_serves_a_program_that_opened_the_terminal_long_before(self):
    radio = self.radio("serve")
    program = self.program(radio, purge=False)
    radio.wait_until_said("not wanted")
    self.assert_no_more(program)
    self.deliver(radio, program, sample_memory(3))
    program.purge()
    self.assertEqual(self.accept(radio, program), sample_memory(3))

  def test_offers_nothing_after_a_write(self):
    radio = self.radio("serve")
    program = self.program(radio)
    self.deliver(radio, program, sample_memory())
    self.assertEqual(program.some(1, 1.2), b"")

  def test_purging_the_transmit_queue_starts_nothing(self):
    radio = self.radio("serve")
    program = self.program(radio)
    memory = sample_memory()
    program.echoed(memory[:HEADER])
    program.read(1)
    termios.tcflush(program.port, termios.TCOFLUSH)
    program.echoed(memory[HEADER:HEADER + BLOCK])
    self.assertEqual(program.read(1)[0], ACK)
    program.echoed(memory[HEADER + BLOCK:])
    program.echoed([checksum(memory)])
    self.assert_line(radio.line(), "received 8123 bytes in .*")

  def test_stays_after_a_wrong_checksum(self):
    radio = self.radio("serve")
    program = self.program(radio)
    program.write_memory(sample_memory(), (checksum(sample_memory()) + 5) & 0xFF)
    self.assert_line(radio.line(), "exchange failed: the checksum is wrong after .*")
    self.assertEqual(radio.end(), ([], 0))


class SendFaultTest(RadioTest):
  def start(self, *faults):
    self.memory = sample_memory()
    arguments = [word for fault in faults for word in ("--fault", fault)]
    radio = self.radio("send", "--image", self.file("radio.bin", self.memory), *arguments)
    return radio, self.program(radio)

  def give_up(self, radio, program):
    """Fails the exchange from the program's side, then reads once more without a fault."""
    program.until_silence()
    program.write([ABORT])
    self.assert_line(radio.line(), "exchange failed: the program gave up after .*")
    program.purge()
    self.assertEqual(self.accept(radio, program), self.memory)
    program.close()

  def whole_stream(self, program, length):
    stream = program.read(HEADER)
    program.acknowledge()
    stream += program.read(BLOCK)
    program.acknowledge()
    stream += program.read(length - HEADER - BLOCK)
    self.assert_no_more(program)
    return stream

  def right_stream(self):
    return self.memory + bytes([checksum(self.memory)])

  def test_noise(self):
    radio, program = self.start("noise")
    noise = b""
    while (byte := program.read(1)) != b"\x0A":
      noise += byte
    self.assertGreater(len(noise), 2)
    self.assertEqual(program.read(HEADER - 1), self.memory[1:HEADER])
    program.acknowledge()
    program.read(BLOCK)
    self.give_up(radio, program)
    self.assertEqual(radio.rest(), ["fault noise played"])

  def test_noise_that_nobody_heard_comes_again(self):
    radio, program = self.start("noise")
    program.until_silence()
    program.purge()
    self.assertNotEqual(program.read(1), b"\x0A")

  def test_stall(self):
    radio, program = self.start("stall@3000")
    stream = self.whole_stream(program, 3000)
    self.assertEqual(stream, self.memory[:3000])
    # Silent means that nothing is echoed either, and that giving up is not heard.
    program.write([ABORT])
    self.assert_no_more(program)
    program.purge()
    self.assert_line(radio.line(), "exchange failed: the program started again after 3000 .*")
    self.assertEqual(self.accept(radio, program), self.memory)
    program.close()
    self.assertEqual(radio.rest(), ["fault stall@3000 played"])

  def test_stall_ends_when_the_program_closes(self):
    radio, program = self.start("stall@4")
    self.assert_exactly(program, self.memory[:4])
    program.close()
    self.assert_line(radio.line(), "exchange failed: the program closed the terminal after 4 .*")
    self.accept(radio, self.program(radio))

  def test_drop(self):
    radio, program = self.start("drop@3000")
    right = self.right_stream()
    self.assertEqual(self.whole_stream(program, EXCHANGE - 1), right[:3000] + right[3001:])
    self.give_up(radio, program)
    self.assertEqual(radio.rest(), ["fault drop@3000 played"])

  def test_drop_in_the_header_is_repaired_by_the_next_try(self):
    radio, program = self.start("drop@3")
    self.assert_exactly(program, self.memory[:3] + self.memory[4:HEADER])
    program.purge()
    self.assert_line(radio.line(), "exchange failed: the program started again after 10 .*")
    self.assertEqual(self.accept(radio, program), self.memory)

  def test_flip(self):
    radio, program = self.start("flip@77")
    stream, right = self.whole_stream(program, EXCHANGE), self.right_stream()
    self.assertEqual(stream[:77] + stream[78:], right[:77] + right[78:])
    self.assertEqual(bin(stream[77] ^ right[77]).count("1"), 1)
    self.give_up(radio, program)
    self.assertEqual(radio.rest(), ["fault flip@77 played"])

  def test_double(self):
    radio, program = self.start("double@8121")
    right = self.right_stream()
    self.assertEqual(self.whole_stream(program, EXCHANGE + 1), right[:8122] + right[8121:])
    self.give_up(radio, program)
    self.assertEqual(radio.rest(), ["fault double@8121 played"])

  def test_flip_echo(self):
    radio, program = self.start("flip-echo@1")
    program.read(HEADER)
    program.acknowledge()
    program.read(BLOCK)
    echo = program.exchange_byte(ACK)
    self.assertEqual(bin(echo ^ ACK).count("1"), 1)
    self.give_up(radio, program)
    self.assertEqual(radio.rest(), ["fault flip-echo@1 played"])

  def test_checksum(self):
    radio, program = self.start("checksum")
    memory, sum_byte = program.read_memory()
    self.assertEqual(memory, self.memory)
    self.assertEqual(sum_byte, (checksum(memory) + 1) & 0xFF)
    self.give_up(radio, program)
    self.assertEqual(radio.rest(), ["fault checksum played"])

  def test_no_echo(self):
    radio, program = self.start("no-echo")
    program.read(HEADER)
    program.write([ACK])
    self.assert_exactly(program, self.memory[HEADER:HEADER + BLOCK])
    self.give_up(radio, program)
    self.assertEqual(radio.rest(), ["fault no-echo played"])

  def test_hangup(self):
    radio, program = self.start("hangup@500")
    with self.assertRaises(HungUp):
      program.read_memory()
    self.assertEqual(radio.rest(), ["exchange failed: hung up after 500 of 8123 bytes",
                                    "fault hangup@500 played"])
    self.assertEqual(radio.status(), 1)
    self.assertFalse(os.path.exists(radio.terminal))

  def test_faults_of_the_other_direction_are_not_reached(self):
    radio, program = self.start("bad-ack", "no-ack")
    self.accept(radio, program)
    program.close()
    self.assertEqual(radio.rest(), ["fault bad-ack@0 not reached", "fault no-ack not reached"])

  def test_a_fault_that_the_first_exchange_does_not_reach_is_over(self):
    radio, program = self.start("flip@12", "flip@3000")
    program.read(HEADER)
    program.acknowledge()
    self.give_up(radio, program)
    self.assertEqual(radio.rest(), ["fault flip@12 played", "fault flip@3000 not reached"])

  def test_usual_positions(self):
    radio, program = self.start("flip", "drop", "flip-echo")
    self.assertEqual(radio.end()[0], ["fault flip@3000 not reached", "fault drop@3000 not reached",
                                      "fault flip-echo@0 not reached"])


class ReceiveFaultTest(RadioTest):
  def start(self, *faults):
    self.memory = sample_memory()
    arguments = [word for fault in faults for word in ("--fault", fault)]
    radio = self.radio("receive", "--image", self.path("new.bin"), *arguments)
    return radio, self.program(radio)

  def start_again(self, radio, program):
    """Gives the exchange up from the program's side, then writes once more without a fault."""
    program.until_silence()
    program.purge()
    self.assert_line(radio.line(), "exchange failed: the program started again after .*")
    self.write_again(radio, program)

  def write_again(self, radio, program):
    self.assertFalse(os.path.exists(self.path("new.bin")))
    self.deliver(radio, program, self.memory)
    self.assertEqual(self.content("new.bin"), self.memory)
    program.close()

  def begin(self, program):
    """The header and the first block, with their answers."""
    program.echoed(self.memory[:HEADER])
    self.assertEqual(program.read(1)[0], ACK)
    program.echoed(self.memory[HEADER:HEADER + BLOCK])
    self.assertEqual(program.read(1)[0], ACK)

  def test_stall(self):
    radio, program = self.start("stall@30")
    self.begin(program)
    program.write(self.memory[26:42])
    self.assert_exactly(program, self.memory[26:30])
    program.write(self.memory[42:58])
    self.start_again(radio, program)
    self.assertEqual(radio.rest(), ["fault stall@30 played"])

  def test_drop(self):
    radio, program = self.start("drop@30")
    self.begin(program)
    program.write(self.memory[26:42])
    self.assert_exactly(program, self.memory[26:30] + self.memory[31:42])
    self.start_again(radio, program)
    self.assertEqual(radio.rest(), ["fault drop@30 played"])

  def test_flip(self):
    radio, program = self.start("flip@3000")
    program.write_memory(self.memory)
    self.assert_line(radio.line(), "exchange failed: the checksum is wrong after 8123 .*")
    self.assert_no_more(program)
    program.purge()
    self.write_again(radio, program)
    self.assertEqual(radio.rest(), ["fault flip@3000 played"])

  def test_flip_of_the_first_byte_leaves_the_header_unanswered(self):
    radio, program = self.start("flip@0")
    program.echoed(self.memory[:HEADER])
    self.assert_no_more(program)
    self.start_again(radio, program)
    self.assertEqual(radio.rest(), ["fault flip@0 played"])

  def test_double(self):
    radio, program = self.start("double@30")
    self.begin(program)
    program.write(self.memory[26:42])
    self.assert_exactly(program, self.memory[26:31] + self.memory[30:42])
    self.start_again(radio, program)
    self.assertEqual(radio.rest(), ["fault double@30 played"])

  def test_flip_echo_spoils_the_echo_alone(self):
    radio, program = self.start("flip-echo@26")
    self.begin(program)
    program.write(self.memory[26:42])
    echo = program.read(BLOCK)
    self.assertEqual(bin(echo[0] ^ self.memory[26]).count("1"), 1)
    self.assertEqual(echo[1:], self.memory[27:42])
    program.echoed(self.memory[42:])
    program.echoed([checksum(self.memory)])
    self.assert_line(radio.line(), "received 8123 bytes in .*")
    self.assertEqual(self.content("new.bin"), self.memory)

  def test_checksum(self):
    radio, program = self.start("checksum")
    program.write_memory(self.memory)
    self.assert_no_more(program)
    self.assert_line(radio.line(), "exchange failed: the checksum is wrong after 8123 .*")
    program.purge()
    self.write_again(radio, program)
    self.assertEqual(radio.rest(), ["fault checksum played"])

  def test_bad_ack_after_the_header(self):
    radio, program = self.start("bad-ack")
    program.echoed(self.memory[:HEADER])
    self.assertEqual(program.read(1)[0], 0x15)
    self.start_again(radio, program)
    self.assertEqual(radio.rest(), ["fault bad-ack@0 played"])

  def test_bad_ack_after_the_first_block(self):
    radio, program = self.start("bad-ack@1")
    program.echoed(self.memory[:HEADER])
    self.assertEqual(program.read(1)[0], ACK)
    program.echoed(self.memory[HEADER:HEADER + BLOCK])
    self.assertEqual(program.read(1)[0], 0x15)
    self.start_again(radio, program)
    self.assertEqual(radio.rest(), ["fault bad-ack@1 played"])

  def test_no_ack(self):
    radio, program = self.start("no-ack")
    program.echoed(self.memory[:HEADER])
    self.assert_no_more(program)
    program.echoed(self.memory[HEADER:HEADER + BLOCK])
    self.assert_no_more(program)
    self.start_again(radio, program)
    self.assertEqual(radio.rest(), ["fault no-ack played"])

  def test_no_echo(self):
    radio, program = self.start("no-echo")
    program.write(self.memory[:HEADER])
    self.assert_exactly(program, bytes([ACK]))
    program.write(self.memory[HEADER:HEADER + BLOCK])
    self.assert_exactly(program, bytes([ACK]))
    self.start_again(radio, program)
    self.assertEqual(radio.rest(), ["fault no-echo played"])

  def test_hangup(self):
    radio, program = self.start("hangup@30")
    self.begin(program)
    program.write(self.memory[26:42])
    with self.assertRaises(HungUp):
      program.read(BLOCK)
    self.assertEqual(radio.rest(), ["exchange failed: hung up after 30 of 8123 bytes",
                                    "fault hangup@30 played"])
    self.assertEqual(radio.status(), 1)

  def test_noise_is_not_reached(self):
    radio, program = self.start("noise")
    self.write_again(radio, program)
    self.assertEqual(radio.rest(), ["fault noise not reached"])


class RandomFaultTest(RadioTest):
  def chosen(self, *arguments):
    lines, status = self.radio("--fault", "random", *arguments).end()
    self.assertEqual(status, 0 if "serve" in arguments else 1)
    for line in lines:
      self.assert_line(line, r"fault [a-z-]+(@\d+)? not reached")
    return lines

  def test_the_same_seed_chooses_the_same_faults(self):
    for mode in ("send", "receive", "serve"):
      for seed in ("0", "7", "18446744073709551615"):
        self.assertEqual(self.chosen(mode, "--seed", seed), self.chosen("--seed", seed, mode))

  def test_without_a_seed_it_is_one(self):
    self.assertEqual(self.chosen("send"), self.chosen("send", "--seed", "1"))

  def test_seeds_differ_and_choose_one_to_three_that_can_happen(self):
    chosen = [self.chosen("send", "--seed", str(seed)) for seed in range(30)]
    self.assertGreater(len({tuple(lines) for lines in chosen}), 20)
    self.assertEqual({len(lines) for lines in chosen}, {1, 2, 3})
    for lines in chosen:
      kinds = [re.match("fault ([a-z-]+)", line).group(1) for line in lines]
      self.assertEqual(len(set(kinds)), len(kinds))
      self.assertFalse({"bad-ack", "no-ack"} & set(kinds))
      for line in lines:
        position = re.search(r"@(\d+)", line)
        self.assertLess(int(position.group(1)) if position else 0, EXCHANGE)

  def test_what_is_chosen_is_said_at_the_start(self):
    radio = self.radio("--fault", "random", "--seed", "3", "send")
    said = re.findall("chosen by chance: (.*)", radio.said())
    self.assertEqual([f"fault {name} not reached" for name in said], radio.end()[0])


class TerminalTest(RadioTest):
  def test_is_raw_at_9600_baud_with_two_stop_bits_from_the_start(self):
    radio = self.radio("serve")
    port = os.open(radio.terminal, os.O_RDWR | os.O_NOCTTY)
    self.addCleanup(os.close, port)
    iflag, oflag, cflag, lflag, ispeed, ospeed, _ = termios.tcgetattr(port)
    self.assertEqual(iflag & (termios.ICRNL | termios.INLCR | termios.IXON | termios.ISTRIP), 0)
    self.assertEqual(oflag & termios.OPOST, 0)
    self.assertEqual(lflag & (termios.ECHO | termios.ICANON | termios.ISIG | termios.IEXTEN), 0)
    self.assertEqual(cflag & (termios.CSIZE | termios.PARENB), termios.CS8)
    self.assertTrue(cflag & termios.CSTOPB)
    self.assertEqual((ispeed, ospeed), (termios.B9600, termios.B9600))

  def test_keeps_its_name_when_programs_come_and_go(self):
    radio = self.radio("serve")
    for _ in range(3):
      program = self.program(radio)
      self.accept(radio, program)
      program.close()
      self.assertTrue(stat.S_ISCHR(os.stat(radio.terminal).st_mode))
    self.assertEqual(radio.end(), ([], 0))
    self.assertFalse(os.path.exists(radio.terminal))

  def test_every_byte_value_passes_both_ways(self):
    radio = self.radio("receive")
    program = self.program(radio)
    for value in (value for value in range(256) if value != 0x0A):
      self.assertEqual(program.exchange_byte(value), value)

  def test_every_ending_signal_gives_the_report(self):
    for number in (signal.SIGTERM, signal.SIGINT, signal.SIGHUP):
      for mode, status in (("send", 1), ("receive", 1), ("serve", 0)):
        link = self.path("port")
        radio = self.radio(mode, "--fault", "noise", "--link", link)
        self.assertEqual(os.readlink(link), radio.terminal)
        self.assertEqual(radio.end(number), (["fault noise not reached"], status))
        self.assertFalse(os.path.lexists(link))

  def test_can_be_ended_in_the_middle_of_an_exchange(self):
    radio = self.radio("send", "--fault", "flip@4000", speed="wire")
    program = self.program(radio)
    program.read(HEADER)
    program.acknowledge()
    program.read(BLOCK)
    program.acknowledge()
    program.read(20)
    lines, status = radio.end()
    self.assertEqual(status, 1)
    self.assert_line(lines[0], r"exchange failed: ended after \d+ of 8123 bytes")
    self.assertEqual(lines[1:], ["fault flip@4000 not reached"])

  def test_stays_until_the_program_has_read_everything(self):
    radio = self.radio("receive")
    program = self.program(radio)
    program.write_memory(sample_memory())
    radio.line()
    self.assertEqual(program.read(1)[0], ACK)
    self.assertIsNone(radio.process.poll())
    program.close()
    self.assertEqual(radio.status(), 0)


class LinkTest(RadioTest):
  def test_leads_to_the_terminal_and_is_gone_at_the_end(self):
    link = self.path("port")
    radio = self.radio("send", "--link", link)
    self.assertEqual(os.readlink(link), radio.terminal)
    program = Program(link)
    self.addCleanup(program.close)
    self.accept(radio, program)
    program.close()
    self.assertEqual(radio.status(), 0)
    self.assertFalse(os.path.lexists(link))

  def test_replaces_an_old_link(self):
    link = self.path("port")
    os.symlink("/nowhere/at/all", link)
    radio = self.radio("serve", "--link", link)
    self.assertEqual(os.readlink(link), radio.terminal)

  def test_replaces_nothing_else(self):
    path = self.file("port", b"precious")
    ended = run("serve", "--link", path)
    self.assertEqual(ended.returncode, 2)
    self.assertIn("not replaced", ended.stderr)
    self.assertEqual(ended.stdout, "")
    self.assertEqual(self.content("port"), b"precious")
    self.assertEqual(run("serve", "--link", self.folder).returncode, 2)

  def test_leaves_a_link_that_somebody_else_has_made(self):
    link = self.path("port")
    radio = self.radio("serve", "--link", link)
    os.unlink(link)
    os.symlink("/somewhere/else", link)
    radio.end()
    self.assertEqual(os.readlink(link), "/somewhere/else")

  def test_that_cannot_be_made_ends_the_start(self):
    ended = run("serve", "--link", self.path("no/such/folder"))
    self.assertEqual(ended.returncode, 2)
    self.assertIn("no/such/folder", ended.stderr)


class ImageTest(RadioTest):
  def test_of_another_size_is_refused(self):
    path = self.file("short.bin", b"\x0A" * 8121)
    for mode in ("send", "receive", "serve"):
      ended = run(mode, "--image", path)
      self.assertEqual((ended.returncode, ended.stdout), (2, ""))
      self.assertIn("short.bin", ended.stderr)
    self.assertEqual(os.path.getsize(path), 8121)

  def test_radio_data_file_is_never_overwritten(self):
    path = self.file("radio.rdf", bytes(21282))
    for mode in ("receive", "serve"):
      ended = run(mode, "--image", path)
      self.assertEqual((ended.returncode, ended.stdout), (2, ""))
      self.assertIn("not overwritten", ended.stderr)

  def test_in_a_folder_that_does_not_exist_is_refused_before_anything_is_received(self):
    for mode in ("receive", "serve"):
      self.assertEqual(run(mode, "--image", self.path("no/new.bin")).returncode, 2)

  def test_folder_is_refused(self):
    for mode in ("send", "receive", "serve"):
      self.assertEqual(run(mode, "--image", self.folder).returncode, 2)

  def test_that_another_program_has_changed_to_something_else_stays(self):
    radio = self.radio("receive", "--image", self.path("new.bin"))
    program = self.program(radio)
    self.file("new.bin", b"somebody else's")
    program.write_memory(sample_memory())
    self.assert_line(radio.line(), "exchange failed: the memory could not be stored after 8123 .*")
    self.assertEqual(self.content("new.bin"), b"somebody else's")
    self.assertEqual(radio.end(), ([], 1))

  def test_that_does_not_exist_leaves_the_built_in_memory(self):
    radio = self.radio("send", "--image", self.path("none.bin"))
    memory = self.accept(radio, self.program(radio))
    other = self.radio("send")
    self.assertEqual(memory, self.accept(other, self.program(other)))
    self.assertEqual(os.listdir(self.folder), [])


class UsageTest(unittest.TestCase):
  def assert_wrong(self, *arguments, about):
    ended = run(*arguments)
    self.assertEqual((ended.returncode, ended.stdout), (2, ""), arguments)
    self.assertIn(about, ended.stderr)
    self.assertIn("usage: qz7radio", ended.stderr)

  def test_wrong_usage(self):
    self.assert_wrong(about="send, receive or serve")
    self.assert_wrong("listen", about="listen")
    self.assert_wrong("send", "receive", about="receive")
    self.assert_wrong("--speed", "slow", "send", about="slow")
    self.assert_wrong("--frobnicate", "send", about="--frobnicate")
    self.assert_wrong("-xy", "send", about="-x")
    self.assert_wrong("send", "--image", about="--image")
    self.assert_wrong("send", "--image", "", about="--image")
    self.assert_wrong("send", "--link=", about="--link")
    for seed in ("-1", "x", "", "1x", "18446744073709551616"):
      self.assert_wrong("send", "--seed", seed, about="seed")

  def test_wrong_faults(self):
    for fault in ("", "flop", "flip@", "flip@x", "flip@-1", "flip@8123", "flip@1@2", "noise@1",
                  "checksum@", "bad-ack@2", "random@1", "flip@99999999999"):
      self.assert_wrong("send", "--fault", fault, about=fault.split("@")[0])

  def test_an_option_may_stand_on_either_side_of_the_word(self):
    for words in (["--fault", "drop@8122", "send"], ["send", "--fault=drop@8122"]):
      radio = Radio(*words)
      self.addCleanup(radio.close)
      self.assertEqual(radio.end(), (["fault drop@8122 not reached"], 1))

  def test_help_names_every_option_and_fault(self):
    ended = run("--help")
    self.assertEqual((ended.returncode, ended.stderr), (0, ""))
    for word in ("--image", "--link", "--speed", "--fault", "--seed", "--version", "send",
                 "receive", "serve", "noise", "stall@POS", "drop@POS", "flip@POS", "double@POS",
                 "flip-echo@POS", "checksum", "bad-ack@POS", "no-ack", "no-echo", "hangup@POS",
                 "random"):
      self.assertRegex(ended.stdout, rf"(?m)^  (--\S+ )?{re.escape(word)}[ ]")
    self.assertLessEqual(max(map(len, ended.stdout.splitlines())), 80)

  def test_version(self):
    ended = run("--version")
    self.assertEqual((ended.returncode, ended.stderr), (0, ""))
    self.assertRegex(ended.stdout, r"^qz7radio \d+\.\d+\.\d+\n$")


class PacingTest(RadioTest):
  """At wire speed no byte comes before its time; that a busy machine may be late is no failure."""

  def test_what_the_radio_sends(self):
    radio = self.radio("send", speed="wire")
    program = self.program(radio)
    program.read(HEADER)
    program.acknowledge()
    program.read(BLOCK)
    begin = time.monotonic()
    program.acknowledge()
    count = 0
    while count < 400:
      count += len(program.some(400, PATIENCE))
      # The acknowledgement takes its time as well, but it may start up to one byte early: as much
      # as the byte before it was late.
      self.assertGreaterEqual(time.monotonic() - begin, count * BYTE_TIME)
    self.assertLess(time.monotonic() - begin, 10 * 400 * BYTE_TIME)

  def test_what_the_program_sends(self):
    radio = self.radio("receive", speed="wire")
    program = self.program(radio)
    memory = sample_memory()
    begin = time.monotonic()
    program.write(memory[:400])
    count = 0
    # The two answers take their time on the line as well.
    while count < 402:
      count += len(program.some(400, PATIENCE))
      self.assertGreaterEqual(time.monotonic() - begin, count * BYTE_TIME)
    self.assertLess(time.monotonic() - begin, 10 * 402 * BYTE_TIME)

  def test_a_lost_byte_leaves_its_time_empty(self):
    lost = 20
    drops = [word for n in range(lost) for word in ("--fault", f"drop@{HEADER + BLOCK + n}")]
    radio = self.radio("send", *drops, speed="wire")
    program = self.program(radio)
    program.read(HEADER)
    program.acknowledge()
    program.read(BLOCK)
    begin = time.monotonic()
    program.acknowledge()
    program.read(1)
    self.assertGreaterEqual(time.monotonic() - begin, (lost + 1) * BYTE_TIME)

  def test_what_was_still_to_pass_when_the_program_purged_does_not_pass(self):
    radio = self.radio("receive", speed="wire")
    program = self.program(radio)
    program.write(sample_memory()[:1000])
    program.read(20)
    program.purge()
    self.assert_line(radio.line(), "exchange failed: the program started again after .*")
    self.assertLess(len(program.until_silence()), 400)

  def test_unpaced_is_much_faster_than_the_wire(self):
    radio = self.radio("send")
    program = self.program(radio)
    program.read_memory()
    program.acknowledge()
    seconds = float(re.search(r"in (\S+) s", radio.line()).group(1))
    self.assertLess(seconds, 4.0)


def bcd(field):
  """Kilohertz from a frequency field."""
  return int(field.hex())


class BuiltInMemoryTest(unittest.TestCase):
  """Decodes the memory that the radio holds by itself."""

  RECORDS, HOME, VFO_A, VFO_B = 618, 5898, 6118, 6338
  BANDS = [(500, 1800), (1800, 16000), (59000, 108000), (174000, 222000), (48000, 59000),
           (137000, 174000), (420000, 470000), (108000, 137000), (222000, 420000),
           (800000, 823990)]
  BAND_STARTS = [540, 1800, 88000, 174000, 52000, 145000, 430000, 108000, 380000, 800000]
  BAND_STEPS = [1, 0, 5, 6, 1, 0, 5, 5, 2, 1]

  @classmethod
  def setUpClass(cls):
    radio = Radio("--speed", "fast", "send")
    try:
      program = Program(radio.terminal)
      cls.memory, cls.sum = program.read_memory()
      program.close()
    finally:
      radio.close()

  def record(self, start, index):
    return self.memory[start + 22 * index:start + 22 * index + 22]

  def programmed(self):
    return [n for n in range(1, 241) if self.memory[297 + n] & 1]

  def test_starts_with_header_and_version(self):
    self.assertEqual(self.memory[:14].hex(), "0a010206" "0924c101" "0024c101" "0101")
    self.assertEqual(self.sum, checksum(self.memory))

  def test_channels_are_programmed_on_their_grid_and_step(self):
    self.assertGreaterEqual(len(self.programmed()), 12)
    steps = {0: 5, 1: 5, 2: 12.5, 5: 25, 6: 50}
    for n in self.programmed():
      record = self.record(self.RECORDS, n - 1)
      receive, transmit = self.frequencies(record)
      self.assertTrue(any(low <= receive < high for low, high in self.BANDS), n)
      self.assertEqual(record[0] & 3, 0 if receive % 5 == 0 else 1)
      self.assertEqual(record[0] >> 2 & 3, 0 if transmit % 5 == 0 else 1)
      self.assertEqual(record[0] & 0xF0, 0)
      self.assertEqual(receive % steps[record[1]], 0)
      self.assertLess(record[18], 39)
      self.assertLess(record[19], 104)

  @staticmethod
  def frequencies(record):
    """Receive and transmit in kilohertz, with the half kilohertz that the fields cannot hold."""
    def restored(kilohertz):
      return kilohertz + (0.5 if kilohertz % 10 in (2, 7) else 0)
    receive, offset = restored(bcd(record[2:5])), restored(bcd(record[14:17]))
    return receive, [receive, receive - offset, receive + offset, offset][record[17] & 3]

  def test_repeater_on_the_half_kilohertz(self):
    record = self.record(self.RECORDS, 3)
    self.assertEqual(record.hex(), "05" "02" "145762" "00" "5250542032202020"
                     "000600" "2d" "12" "00" "0000")
    self.assertEqual(self.frequencies(record), (145762.5, 145162.5))

  def test_has_channels_of_every_kind(self):
    records = [self.record(self.RECORDS, n - 1) for n in self.programmed()]
    self.assertEqual({record[17] & 3 for record in records}, {0, 1, 2, 3})
    self.assertEqual({record[17] >> 4 for record in records}, {0, 1, 2, 3})
    self.assertEqual({record[5] & 3 for record in records}, {0, 1, 2})
    self.assertTrue({221, 222} <= set(self.programmed()))
    flags = {self.memory[297 + n] for n in self.programmed()}
    self.assertEqual(flags, {0x03, 0x07, 0x01})

  def test_other_channels_are_empty(self):
    for n in set(range(1, 241)) - set(self.programmed()):
      self.assertEqual(self.memory[297 + n], 0)
      self.assertEqual(self.record(self.RECORDS, n - 1), b"\xFF" * 22)

  def test_every_band_slot_is_on_a_frequency_of_its_band(self):
    self.assertEqual(self.memory[538:568], b"\x03" * 30)
    for start in (self.HOME, self.VFO_A, self.VFO_B):
      for band, frequency in enumerate(self.BAND_STARTS):
        record = self.record(start, band)
        self.assertEqual((bcd(record[2:5]), record[1]), (frequency, self.BAND_STEPS[band]))
        self.assertEqual(record[17] & 3, 0)

  def test_names_groups_and_numbers(self):
    names = [self.memory[7054 + 8 * i:7062 + 8 * i].decode() for i in range(10)]
    self.assertEqual(names, [f"WX {i}".ljust(8) for i in range(1, 11)])
    self.assertEqual(self.memory[42:47], b"\xFF" * 5)
    self.assertEqual(self.memory[50:292], b"\xFF" * 242)
    numbers = [self.memory[7192 + 16 * i:7208 + 16 * i].rstrip(b"\xFF") for i in range(9)]
    self.assertEqual([len(number) for number in numbers], [7, 11] + [0] * 7)
    self.assertTrue(all(digit < 16 for number in numbers for digit in number))

  def test_shows_the_vfo_that_it_stands_on(self):
    self.assertEqual((self.memory[7391], self.memory[7394]), (1, 0))
    slot = self.memory[7395]
    self.assertEqual(slot, self.memory[7434] + 1)
    record = self.record(self.VFO_A, slot)
    shown = self.memory[7396:7422]
    self.assertEqual(shown[:8], bytes([record[0], record[17] >> 2 & 3, record[1], record[17] & 3,
                                       record[17] >> 4, record[18], record[19], record[5] & 3]))
    self.assertEqual((shown[8:11], shown[12:15]), (record[2:5], record[14:17]))
    self.assertEqual((shown[16:24], shown[24:26]), (record[6:14], record[20:22]))


if __name__ == "__main__":
  if len(sys.argv) > 1 and not sys.argv[1].startswith("-") and os.path.exists(sys.argv[1]):
    radio_path = sys.argv.pop(1)
  if not radio_path:
    sys.exit("usage: qz7radio_test.py PATH/TO/qz7radio")
  radio_path = os.path.abspath(radio_path)
  unittest.main()
