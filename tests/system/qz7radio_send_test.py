#!/usr/bin/env python3
"""The stand-in radio without faults: sending, receiving, serving."""

import os
import select
import stat
import termios
import time

from radio_peer import (HEADER, BLOCK, MEMORY, EXCHANGE, ACK, ABORT, BYTE_TIME, SILENCE, checksum,
                        sample_memory, wait_for, RadioTest, main)


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
    line = radio.line()
    self.assert_line(line, r"received 8123 bytes in \d+\.\d{4} s")
    self.assertGreaterEqual(float(line.split()[4]), (EXCHANGE - 1) * BYTE_TIME)
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


if __name__ == "__main__":
  main()
