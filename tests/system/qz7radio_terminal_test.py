#!/usr/bin/env python3
"""The stand-in radio's terminal, files, options, pace and built-in memory."""

import os
import re
import signal
import stat
import termios
import time
import unittest

from radio_peer import (HEADER, BLOCK, ACK, BYTE_TIME, PATIENCE, checksum, sample_memory, Radio,
                        Program, run, RadioTest, main)


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
  main()
