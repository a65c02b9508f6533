#include "radio/faults.h"

#include <algorithm>
#include <charconv>
#include <iterator>
#include <random>

#include "radio/memory.h"
#include "radio/report.h"

namespace qz7radio {
namespace {

constexpr int kLastByte = static_cast<int>(kExchangeSize) - 1;
// The program's bytes while the radio sends: two acknowledgements and the acceptance.
constexpr int kLastProgramByteWhenSending = 2;

struct KindRow {
  std::string_view name;
  FaultKind kind;
  int usual_position;
  int last_position;
  bool when_sending;
  bool when_receiving;
  std::string_view help;
};

constexpr KindRow kKinds[] = {
    {"noise", FaultKind::kNoise, kNoPosition, kNoPosition, true, false,
     "some bytes other than 0x0A come before the header (sending)"},
    {"stall", FaultKind::kStall, 3000, kLastByte, true, true,
     "from byte POS on nothing is sent or echoed until the program\n"
     "closes the terminal or starts again"},
    {"drop", FaultKind::kDrop, 3000, kLastByte, true, true,
     "byte POS is lost: not sent; or neither received nor\n"
     "echoed"},
    {"flip", FaultKind::kFlip, 3000, kLastByte, true, true,
     "byte POS has one bit wrong: sent so; or received so, with a\n"
     "right echo"},
    {"double", FaultKind::kDouble, 3000, kLastByte, true, true, "byte POS is on the line twice"},
    {"flip-echo", FaultKind::kFlipEcho, 0, kLastByte, true, true,
     "the echo of the program's byte POS has one bit wrong"},
    {"checksum", FaultKind::kChecksum, kNoPosition, kNoPosition, true, true,
     "the checksum is sent off by one; or a right one is taken for\n"
     "wrong"},
    {"bad-ack", FaultKind::kBadAck, 0, 1, false, true,
     "the answer to the header (POS 0) or to the first block (POS 1)\n"
     "is 0x15 instead of 0x06 (receiving)"},
    {"no-ack", FaultKind::kNoAck, kNoPosition, kNoPosition, false, true,
     "no answer at all (receiving)"},
    {"no-echo", FaultKind::kNoEcho, kNoPosition, kNoPosition, true, true,
     "the program's bytes do not come back"},
    {"hangup", FaultKind::kHangup, 3000, kLastByte, true, true,
     "before byte POS the terminal vanishes, and the stand-in ends\n"
     "with status 1"},
};

const KindRow& RowOf(FaultKind kind) {
  return *std::find_if(std::begin(kKinds), std::end(kKinds),
                       [kind](const KindRow& row) { return row.kind == kind; });
}

bool PlayFirst(FaultList& list, FaultKind kind, int position) {
  if (!list.armed) {
    return false;
  }
  for (Fault& fault : list.faults) {
    if (fault.kind == kind && fault.position == position && !fault.played) {
      fault.played = true;
      Note("playing the fault " + FaultName(fault));
      return true;
    }
  }
  return false;
}

int LastPosition(const KindRow& row, Mode mode) {
  return row.kind == FaultKind::kFlipEcho && mode != Mode::kReceive ? kLastProgramByteWhenSending
                                                                    : row.last_position;
}

}  // namespace

std::optional<Fault> ParseFault(std::string_view text, std::string& reason) {
  const std::size_t at = text.find('@');
  const std::string_view name = text.substr(0, at);
  const auto* row = std::find_if(std::begin(kKinds), std::end(kKinds),
                                 [name](const KindRow& kind) { return kind.name == name; });
  if (row == std::end(kKinds)) {
    reason = "unknown fault: " + std::string(text);
    return std::nullopt;
  }
  Fault fault{row->kind, row->usual_position};
  if (at == std::string_view::npos) {
    return fault;
  }
  if (row->usual_position == kNoPosition) {
    reason = "the fault " + std::string(name) + " takes no position: " + std::string(text);
    return std::nullopt;
  }
  const std::string_view digits = text.substr(at + 1);
  const char* end = digits.data() + digits.size();
  const auto [stop, error] = std::from_chars(digits.data(), end, fault.position);
  if (error != std::errc() || stop != end || fault.position < 0 ||
      fault.position > row->last_position) {
    reason = "the position of " + std::string(name) + " is a number from 0 to " +
             std::to_string(row->last_position) + ": " + std::string(text);
    return std::nullopt;
  }
  return fault;
}

std::vector<Fault> PickFaults(std::uint64_t seed, Mode mode) {
  std::vector<const KindRow*> candidates;
  for (const KindRow& row : kKinds) {
    if ((row.when_sending && mode != Mode::kReceive) ||
        (row.when_receiving && mode != Mode::kSend)) {
      candidates.push_back(&row);
    }
  }
  // The engine's numbers are the same everywhere; a distribution's would not be.
  std::mt19937_64 random(seed);
  std::vector<Fault> picked;
  const std::size_t count = 1 + random() % 3;
  while (picked.size() < count) {
    const std::size_t index = random() % candidates.size();
    const KindRow& row = *candidates[index];
    candidates.erase(candidates.begin() + static_cast<std::ptrdiff_t>(index));
    Fault fault{row.kind};
    if (row.usual_position != kNoPosition) {
      const auto places = static_cast<std::uint64_t>(LastPosition(row, mode)) + 1;
      fault.position = static_cast<int>(random() % places);
    }
    picked.push_back(fault);
  }
  return picked;
}

bool Play(FaultList& list, FaultKind kind) { return PlayFirst(list, kind, kNoPosition); }

bool PlayAt(FaultList& list, FaultKind kind, std::size_t position) {
  return PlayFirst(list, kind, static_cast<int>(position));
}

bool SettleFaults(FaultList& list, bool answered) {
  const bool explained = std::any_of(
      list.faults.begin(), list.faults.end(),
      [](const Fault& fault) { return fault.played && fault.kind != FaultKind::kNoise; });
  if (answered || (list.armed && explained)) {
    list.armed = false;
    return true;
  }
  if (list.armed) {
    for (Fault& fault : list.faults) {
      fault.played = false;
    }
  }
  return false;
}

std::string FaultName(const Fault& fault) {
  std::string name(RowOf(fault.kind).name);
  return fault.position == kNoPosition ? name : name + '@' + std::to_string(fault.position);
}

std::string FaultHelp() {
  constexpr std::size_t kNameWidth = 17;
  std::string text;
  for (const KindRow& row : kKinds) {
    std::string name = "  " + std::string(row.name);
    std::string help(row.help);
    if (row.usual_position != kNoPosition) {
      name += "@POS";
      help += " [" + std::to_string(row.usual_position) + "]";
    }
    if (const std::size_t line_end = help.find('\n'); line_end != std::string::npos) {
      help.insert(line_end + 1, kNameWidth, ' ');
    }
    name.resize(kNameWidth, ' ');
    text.append(name).append(help).append("\n");
  }
  return text;
}

}  // namespace qz7radio
