#!/usr/bin/env python3
"""The faults of the stand-in radio."""

import os
import re

from radio_peer import (HEADER, BLOCK, EXCHANGE, ACK, ABORT, checksum, sample_memory, HungUp,
                        RadioTest, main)


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


if __name__ == "__main__":
  main()
