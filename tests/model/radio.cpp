#include "tests/model/radio.h"

#include <algorithm>
#include <numeric>

namespace qz7::model {
namespace {

constexpr std::size_t kHeader = 10;
constexpr std::size_t kFirstBlock = 26;
constexpr std::size_t kMemory = 8122;
constexpr std::uint8_t kAcknowledge = 0x06;
constexpr std::uint8_t kGivenUp = 0xFF;

}  // namespace

std::vector<std::uint8_t> SampleMemory() {
  std::vector<std::uint8_t> memory(kMemory);
  for (std::size_t i = 0; i < memory.size(); ++i) {
    memory[i] = static_cast<std::uint8_t>(i * 29 + i / 256);
  }
  memory[0] = 0x0A;
  return memory;
}

void SendingRadio::StartAfter(Time delay) {
  Later(delay, [this] {
    started = TheWorld().now;
    Send(0, kHeader);
  });
}

void SendingRadio::Hear(std::uint8_t byte) {
  aborted = aborted || byte == kGivenUp;
  if (byte != kAcknowledge || acknowledged == 3) {
    return;
  }
  ++acknowledged;
  if (acknowledged == 1) {
    Send(kHeader, kFirstBlock);
  } else if (acknowledged == 2) {
    Send(kFirstBlock, kMemory + 1);
  }
}

void SendingRadio::Send(std::size_t from, std::size_t end) {
  for (std::size_t i = from; i < std::min(end, stops_at); ++i) {
    Later(kReaction + static_cast<Time>(i - from) * kWireByte, [this, i] {
      const auto sum = std::accumulate(memory.begin(), memory.end(), 0U);
      if (i == damages) {
        TheDevice().DamageNextByte();
      }
      TheDevice().RadioSends(i < memory.size() ? memory[i] : static_cast<std::uint8_t>(sum));
      last_sent = TheWorld().now + kWireByte;
    });
  }
}

void ReceivingRadio::Hear(std::uint8_t byte) {
  if (received.empty()) {
    started = TheWorld().now - kWireByte;
  }
  received.push_back(byte);
  finished = TheWorld().now;
  const std::size_t count = received.size();
  if (count == kHeader || count == kFirstBlock || count == kMemory || count == kMemory + 1) {
    Later(kReaction, [] { TheDevice().RadioSends(kAcknowledge); });
  }
}

}  // namespace qz7::model
