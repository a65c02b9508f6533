#pragma once

#include "core/link/exchange.h"

namespace qz7 {

// The radio sends its block: a header of 10 bytes, 507 blocks of 16, a checksum byte. The header,
// the first block and a right checksum are acknowledged.
struct CloneRead : Exchange {
  enum Phase { kWaitHeader = 0, kData = 1, kWaitChecksum = 3, kReadBackAck = 7 };
  int phase = kWaitHeader;
  int position = 0;    // bytes of the block received
  int block_fill = 0;  // of the current 16-byte block
  int blocks_done = 0;
  int ticks_left = 0;  // inactivity countdown, reloaded to 25
};

inline constexpr int kReceiveTicks = 25;

// Starts listening; `block` takes what arrives.
void BeginCloneRead(CloneRead& read, SerialPort& port, std::span<std::uint8_t> block);

// One receive step; true when a byte arrived, that is, when the next step may find more. A step
// does nothing while a question is open.
bool StepCloneRead(CloneRead& read, SerialPort& port);

// How many bytes the next step can use: a driver that can wait for so many need not wake for each.
std::size_t BytesAwaited(const CloneRead& read);

// What it waits for at present, as the user knows it: "the radio to start sending".
const char* AwaitedBy(const CloneRead& read);
// What the user is to do on the radio before anything moves; empty once it does.
const char* InvitedBy(const CloneRead& read);
// What the user can do when the exchange stands still.
const char* RemedyFor(const CloneRead& read);

// A tick of the 10 ms timer: the time-out, then steps until one finds nothing to do.
void TickCloneRead(CloneRead& read, SerialPort& port);
// Bytes have come: steps until one finds nothing to do.
void NotifyCloneRead(CloneRead& read, SerialPort& port);
// The question's answer: the exchange goes on with what the answer says, then with its steps.
void AnswerCloneRead(CloneRead& read, SerialPort& port, Answer answer);

// The user gives up: the timer stops, the exchange ends with -1. Nothing is sent.
void CancelCloneRead(CloneRead& read);

}  // namespace qz7
