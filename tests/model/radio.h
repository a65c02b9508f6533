#pragma once

#include <optional>
#include <vector>

#include "tests/model/device.h"

namespace qz7::model {

// A radio's memory: a header that starts with 0x0A, and bytes that differ from their neighbours.
std::vector<std::uint8_t> SampleMemory();

// What both radios answer takes this long.
inline constexpr Time kReaction = 300'000;

// A radio that sends its memory, at the line's own pace.
class SendingRadio final : public Radio {
 public:
  void StartAfter(Time delay);
  void Hear(std::uint8_t byte) override;

  std::vector<std::uint8_t> memory = SampleMemory();
  std::size_t stops_at = SIZE_MAX;          // it sends no more from this byte on
  std::optional<std::size_t> damages = {};  // this byte comes with a line error
  Time started = 0;
  Time last_sent = 0;
  int acknowledged = 0;
  bool aborted = false;

 private:
  void Send(std::size_t from, std::size_t end);
};

// A radio that takes a memory: it answers the header, the first block, the last and the checksum.
class ReceivingRadio final : public Radio {
 public:
  void Hear(std::uint8_t byte) override;

  std::vector<std::uint8_t> received;
  Time started = 0;
  Time finished = 0;
};

}  // namespace qz7::model
