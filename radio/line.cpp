#include "radio/line.h"

#include <poll.h>

#include <algorithm>
#include <ctime>

#include "radio/ending.h"

namespace qz7radio {
namespace {

using std::chrono::milliseconds;
using std::chrono::nanoseconds;

// A program that opens the terminal and purges nothing listens after this time at the latest.
constexpr milliseconds kOpeningTime{1000};

// While nobody has the terminal open, waiting on it returns at once.
constexpr milliseconds kClosedNap{10};

constexpr std::chrono::hours kLongestNap{1};

// The terminal hands over at once what the program wrote; the line takes its time for it. A program
// that answers would have done so earlier if it had been given the byte before in time.
void LetPass(Line& line, const std::vector<std::uint8_t>& bytes) {
  if (bytes.empty()) {
    return;
  }
  const nanoseconds credit = std::min(line.lateness, line.byte_time);
  line.lateness = nanoseconds(0);
  line.free_at = std::max(line.free_at, Clock::now() - credit);
  for (const std::uint8_t byte : bytes) {
    line.from_program.push_back({byte, line.free_at, line.free_at + line.byte_time});
    line.free_at += line.byte_time;
  }
}

void TakeNews(Line& line) {
  const TerminalNews news = ReadTerminal(line.terminal);
  line.present = news.open;
  if (news.purged) {
    line.purged = true;
    line.from_program.clear();
  }
  LetPass(line, news.bytes);
}

// An opening comes before the purge that the program makes next; a closing comes after the
// program's last bytes have passed.
std::optional<Event> TakeChange(Line& line) {
  if (!line.open && (line.present || line.purged)) {
    line.open = true;
    line.opened_at = Clock::now();
    return Event{EventKind::kOpened};
  }
  if (line.purged) {
    TakeBack(line);
    line.purged = false;
    line.purged_at = Clock::now();
    return Event{EventKind::kPurged};
  }
  if (line.open && !line.present && line.from_program.empty()) {
    TakeBack(line);
    line.open = false;
    StartTaken(line);
    return Event{EventKind::kClosed};
  }
  return std::nullopt;
}

Time EndOfFirst(const std::deque<Passing>& bytes) {
  return bytes.empty() ? kNever : bytes.front().ends;
}

std::optional<Event> TakePassed(Line& line, Time now) {
  const Time program = EndOfFirst(line.from_program);
  const Time radio = EndOfFirst(line.from_radio);
  if (std::min(program, radio) > now) {
    return std::nullopt;
  }
  line.lateness = now - std::min(program, radio);
  if (program <= radio) {
    const Passing passed = line.from_program.front();
    line.from_program.pop_front();
    return Event{EventKind::kProgramByte, passed.byte, passed.began};
  }
  line.due.push_back(line.from_radio.front().byte);
  line.from_radio.pop_front();
  return Event{EventKind::kSent};
}

void WriteDue(Line& line) {
  if (!line.due.empty()) {
    const std::size_t taken = WriteTerminal(line.terminal, line.due);
    line.due.erase(line.due.begin(), line.due.begin() + static_cast<std::ptrdiff_t>(taken));
  }
}

void Nap(const Line& line, Time until) {
  const Time now = Clock::now();
  nanoseconds span = line.present ? nanoseconds(kLongestNap) : nanoseconds(kClosedNap);
  for (const Time end : {until, EndOfFirst(line.from_program), EndOfFirst(line.from_radio)}) {
    span = end == kNever ? span : std::min(span, nanoseconds(end - now));
  }
  span = std::max(span, nanoseconds(0));
  timespec timeout{};
  timeout.tv_sec = static_cast<time_t>(span.count() / 1'000'000'000);
  timeout.tv_nsec = static_cast<long>(span.count() % 1'000'000'000);
  pollfd terminal{line.terminal.master, POLLIN, 0};
  if (!line.due.empty()) {
    terminal.events |= POLLOUT;
  }
  ppoll(&terminal, line.present ? 1 : 0, &timeout, &WaitMask());
}

}  // namespace

Event Next(Line& line, Time until) {
  for (;;) {
    if (EndAsked()) {
      return {EventKind::kEnded};
    }
    TakeNews(line);
    if (const auto change = TakeChange(line)) {
      return *change;
    }
    WriteDue(line);
    const Time now = Clock::now();
    if (const auto passed = TakePassed(line, now)) {
      WriteDue(line);
      return *passed;
    }
    if (now >= until) {
      return {EventKind::kTimedOut};
    }
    Nap(line, until);
  }
}

Time StartTime(const Line& line, milliseconds delay) {
  if (line.purged_at) {
    return *line.purged_at + delay;
  }
  return line.opened_at ? *line.opened_at + kOpeningTime : kNever;
}

void StartTaken(Line& line) {
  line.opened_at.reset();
  line.purged_at.reset();
}

void BeginRun(Line& line) { line.free_at = std::max(line.free_at, Clock::now()); }

void Put(Line& line, std::uint8_t byte) {
  line.from_radio.push_back({byte, line.free_at, line.free_at + line.byte_time});
  PutSilence(line);
}

void PutSilence(Line& line) { line.free_at += line.byte_time; }

void Echo(Line& line, std::uint8_t byte) { line.due.push_back(byte); }

void TakeBack(Line& line) {
  line.from_radio.clear();
  line.due.clear();
  DropUnread(line.terminal);
  // The dropping looks like a purge by the program, which has in truth lost nothing that it wrote.
  LetPass(line, ReadTerminal(line.terminal).bytes);
}

void HangUp(Line& line) {
  WriteDue(line);
  CloseTerminal(line.terminal);
}

}  // namespace qz7radio
