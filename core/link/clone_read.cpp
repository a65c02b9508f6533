#include "core/link/clone_read.h"

#include <algorithm>
#include <array>

namespace qz7 {
namespace {

constexpr std::uint8_t kHeaderStart = 0x0A;
constexpr int kSize = static_cast<int>(kRadioBlock.size);
constexpr int kHeaderBytes = static_cast<int>(kCloneHeaderSize);
constexpr int kBlockBytes = static_cast<int>(kCloneBlockSize);

void SendAck(CloneRead& read, SerialPort& port) {
  port.SendByte(kAck);
  read.phase = CloneRead::kReadBackAck;
}

void Abort(CloneRead& read, SerialPort& port) {
  port.SendByte(kAbort);
  read.phase = CloneRead::kWaitHeader;
  read.position = 0;
  EndExchange(read, -1);
}

// Reads at most `most` bytes into the block at the current position. After some retries the
// position lies behind the block's end: what arrives then is counted and dropped.
int ReadIntoBlock(CloneRead& read, SerialPort& port, int most) {
  std::array<std::uint8_t, kCloneBlockSize> bytes;
  const std::size_t count =
      ReadArrived(read, port, std::span(bytes).first(static_cast<std::size_t>(most)));
  for (std::size_t i = 0; i < count; ++i) {
    const std::size_t place = static_cast<std::size_t>(read.position) + i;
    if (place < read.block.size()) {
      read.block[place] = bytes[i];
    }
  }
  return static_cast<int>(count);
}

bool StepHeader(CloneRead& read, SerialPort& port) {
  read.blocks_done = 0;
  if (ReadIntoBlock(read, port, 1) == 0) {
    return false;
  }
  // Line noise is overwritten by the next byte until the header starts.
  if (read.block[0] != kHeaderStart) {
    return true;
  }
  // Far behind the block the position no longer tells anything.
  read.position = std::min(read.position + 1, 2 * kSize);
  if (read.position == kHeaderBytes) {
    SendAck(read, port);
  }
  return true;
}

bool StepReadBackAck(CloneRead& read, SerialPort& port, bool& read_a_byte) {
  std::array<std::uint8_t, 1> echo;
  read_a_byte = ReadArrived(read, port, echo) == 1;
  if (!read_a_byte) {
    return false;
  }
  if (echo[0] == kAck) {
    read.phase = CloneRead::kData;
    read.ticks_left = kReceiveTicks;
    return true;
  }
  read.ticks_left = 0;
  read.position = 0;
  read.phase = CloneRead::kWaitHeader;
  port.SendByte(kAbort);
  AskForRetry(read, LinkError::kAcknowledge, "Acknowledge Error");
  return true;
}

bool StepData(CloneRead& read, SerialPort& port) {
  const int count = ReadIntoBlock(read, port, kBlockBytes - read.block_fill);
  if (count == 0) {
    return false;
  }
  read.block_fill += count;
  read.position += count;
  if (read.position >= kSize) {
    read.phase = CloneRead::kWaitChecksum;
    return true;
  }
  read.ticks_left = kReceiveTicks;
  SetProgress(read.meter, read.position);
  if (read.block_fill == kBlockBytes) {
    // The second case can never be met, because the last block leads to the checksum first; the
    // radio waits for no acknowledgement there.
    if (read.blocks_done < 1 || read.blocks_done == kCloneBlockCount - 1) {
      SendAck(read, port);
    }
    read.block_fill = 0;
    ++read.blocks_done;
  }
  return true;
}

bool StepChecksum(CloneRead& read, SerialPort& port) {
  std::array<std::uint8_t, 1> checksum;
  if (ReadArrived(read, port, checksum) == 0) {
    return false;
  }
  if (checksum[0] == CloneChecksum(read.block)) {
    port.SendByte(kAck);
    EndExchange(read, 0);
  } else {
    AskForRetry(read, LinkError::kChecksum, "Checksum Error");
  }
  return true;
}

// Behind a question they wait with the rest of the exchange.
void CheckLineErrors(CloneRead& read, SerialPort& port) {
  if (read.ended || read.question || port.LineErrors() == 0 ||
      read.phase == CloneRead::kWaitHeader) {
    return;
  }
  read.phase = CloneRead::kWaitHeader;
  AskForRetry(read, LinkError::kBadReceiveData, "Bad Receive Data");
}

void AnswerAcknowledgeError(CloneRead& read, SerialPort& port, bool retry) {
  if (!retry) {
    EndExchange(read, -1);
    return;
  }
  RestartExchange(read, port);
  // The header is not expected again: the next bytes are stored from the block's start as data.
  read.phase = CloneRead::kData;
  read.ticks_left = kReceiveTicks;
}

void AnswerChecksumError(CloneRead& read, SerialPort& port, bool retry) {
  if (!retry) {
    Abort(read, port);
    return;
  }
  // The next byte that arrives is taken for a new checksum.
  RestartExchange(read, port);
  CheckLineErrors(read, port);
}

// The outcomes are reversed on purpose: Retry leaves the dialog waiting for Cancel with its timer
// stopped, Cancel listens on with the position kept.
void AnswerBadReceiveData(CloneRead& read, SerialPort& port, bool retry) {
  if (!retry) {
    RestartExchange(read, port);
  }
}

void AnswerReceiveTimeout(CloneRead& read, SerialPort& port, bool retry) {
  if (!retry) {
    Abort(read, port);
    read.blocks_done = 0;
    return;
  }
  RestartExchange(read, port);
  // The position is kept, so that the header's end is not met again: only a fresh exchange helps.
  read.phase = CloneRead::kWaitHeader;
}

}  // namespace

void BeginCloneRead(CloneRead& read, SerialPort& port, std::span<std::uint8_t> block) {
  read = CloneRead{};
  read.block = block;
  read.meter.total = kSize;
  RestartExchange(read, port);
}

bool StepCloneRead(CloneRead& read, SerialPort& port) {
  if (read.question) {
    return false;
  }
  bool worked = false;
  bool read_back = false;
  switch (read.phase) {
    case CloneRead::kWaitHeader:
      worked = StepHeader(read, port);
      break;
    case CloneRead::kReadBackAck:
      worked = StepReadBackAck(read, port, read_back);
      break;
    case CloneRead::kWaitChecksum:
      worked = StepChecksum(read, port);
      break;
    default:
      worked = StepData(read, port);
      break;
  }
  if (!read_back) {
    CheckLineErrors(read, port);
  }
  return worked;
}

std::size_t BytesAwaited(const CloneRead& read) {
  return read.phase == CloneRead::kData ? static_cast<std::size_t>(kBlockBytes - read.block_fill)
                                        : 1;
}

const char* AwaitedBy(const CloneRead& read) {
  switch (read.phase) {
    case CloneRead::kWaitHeader:
      return "the radio to start sending";
    case CloneRead::kReadBackAck:
      return "the cable to give back what was sent";
    case CloneRead::kWaitChecksum:
      return "the radio's check byte";
    default:
      return "the radio to go on";
  }
}

// A header is recognised at the block's beginning alone, so that nothing is asked for after a
// Retry.
const char* InvitedBy(const CloneRead& read) {
  const bool begins = read.phase == CloneRead::kWaitHeader && read.position == 0;
  return begins && !read.ended ? "Nothing has come yet: start sending on the radio." : "";
}

const char* RemedyFor(const CloneRead& /*read*/) {
  return "Press Cancel and start again, on the radio too.";
}

void NotifyCloneRead(CloneRead& read, SerialPort& port) {
  while (HasTurn(read) && IsRunning(read, port) && StepCloneRead(read, port)) {
  }
}

void TickCloneRead(CloneRead& read, SerialPort& port) {
  if (IsRunning(read, port) && read.phase == CloneRead::kData) {
    if (read.ticks_left == 0) {
      AskForRetry(read, LinkError::kReceiveTimeout, "Receive Timeout");
    } else {
      --read.ticks_left;
    }
  }
  NotifyCloneRead(read, port);
}

void AnswerCloneRead(CloneRead& read, SerialPort& port, Answer answer) {
  const bool retry = answer == Answer::kRetry;
  switch (TakeQuestion(read).value_or(LinkError::kFailedRead)) {
    case LinkError::kAcknowledge:
      AnswerAcknowledgeError(read, port, retry);
      break;
    case LinkError::kChecksum:
      AnswerChecksumError(read, port, retry);
      break;
    case LinkError::kBadReceiveData:
      AnswerBadReceiveData(read, port, retry);
      break;
    case LinkError::kReceiveTimeout:
      AnswerReceiveTimeout(read, port, retry);
      break;
    default:
      break;
  }
  NotifyCloneRead(read, port);
}

void CancelCloneRead(CloneRead& read) { EndExchange(read, -1); }

}  // namespace qz7
