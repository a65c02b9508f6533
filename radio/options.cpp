#include "radio/options.h"

#include <getopt.h>

#include <charconv>
#include <cstdint>
#include <cstdio>
#include <string_view>

#include "radio/report.h"

namespace qz7radio {
namespace {

constexpr char kUsage[] =
    "usage: qz7radio [--image FILE] [--link PATH] [--speed wire|fast]\n"
    "                [--fault KIND[@POS]]... [--seed N] send|receive|serve\n";

constexpr char kHelp[] =
    "\n"
    "Plays the radio at the other end of the cable, on a pseudo-terminal whose name\n"
    "is the first line on standard output. How each exchange went, and at the end\n"
    "which faults were played, is told there too, a line each.\n"
    "\n"
    "  send           sends its memory when a program opens the terminal and listens;\n"
    "                 ends after the first exchange that the program accepts\n"
    "  receive        takes one memory from the program, stores it in FILE and ends\n"
    "  serve          does either again and again until it is ended by a signal\n"
    "\n"
    "  --image FILE   the radio's memory: 8122 bytes, or a radio data file of 21282\n"
    "                 bytes (send only); without it the radio has one of its own\n"
    "  --link PATH    makes a symbolic link to the terminal, for as long as it lives\n"
    "  --speed wire   9600 baud, 11 bits a byte, in both directions (if not told)\n"
    "  --speed fast   as fast as it goes\n"
    "  --fault KIND   plays a fault in the first exchange; may be given repeatedly\n"
    "  --seed N       chooses the faults of \"random\" [1]\n"
    "  --help         shows this text\n"
    "  --version      shows the version\n"
    "\n"
    "Faults; POS counts from 0 the bytes that the radio sends, or that it receives,\n"
    "up to the checksum (8122); [N] is where it happens without POS:\n";

constexpr char kHelpEnd[] =
    "  random         one to three of these at random places: the same seed, and the\n"
    "                 same of send, receive and serve, means the same faults\n"
    "\n"
    "Exit status: 0 done, 1 no exchange came about, 2 wrong usage or a FILE or PATH\n"
    "that cannot be used.\n";

enum LongOption : int { kImage = 1000, kLink, kSpeed, kFault, kSeed, kHelpOption, kVersion };

constexpr option kLongOptions[] = {
    {"image", required_argument, nullptr, kImage}, {"link", required_argument, nullptr, kLink},
    {"speed", required_argument, nullptr, kSpeed}, {"fault", required_argument, nullptr, kFault},
    {"seed", required_argument, nullptr, kSeed},   {"help", no_argument, nullptr, kHelpOption},
    {"version", no_argument, nullptr, kVersion},   {nullptr, 0, nullptr, 0},
};

// What was read so far. "random" waits until mode and seed are known.
struct Reading {
  Options options;
  std::uint64_t seed = 1;
  int random_faults = 0;
  std::string wrong;  // empty: nothing yet
};

void ReadSpeed(std::string_view text, Reading& reading) {
  if (text == "wire" || text == "fast") {
    reading.options.wire_speed = text == "wire";
  } else {
    reading.wrong = "the speed is wire or fast: " + std::string(text);
  }
}

void ReadFault(std::string_view text, Reading& reading) {
  if (text == "random") {
    ++reading.random_faults;
  } else if (const auto fault = ParseFault(text, reading.wrong)) {
    reading.options.faults.push_back(*fault);
  }
}

void ReadSeed(std::string_view text, Reading& reading) {
  const char* end = text.data() + text.size();
  const auto [stop, error] = std::from_chars(text.data(), end, reading.seed);
  if (error != std::errc() || stop != end) {
    reading.wrong = "the seed is a number from 0 up: " + std::string(text);
  }
}

void ReadPath(std::string_view text, std::string_view option, std::string& path, Reading& reading) {
  path = text;
  if (path.empty()) {
    reading.wrong = std::string(option) + " needs a name";
  }
}

void ReadMode(int count, char** words, Reading& reading) {
  const std::string_view word = count > 0 ? words[0] : "";
  if (count == 0) {
    reading.wrong = "say what the radio does: send, receive or serve";
  } else if (count > 1) {
    reading.wrong = "too many words: " + std::string(words[1]);
  } else if (word == "send") {
    reading.options.mode = Mode::kSend;
  } else if (word == "receive") {
    reading.options.mode = Mode::kReceive;
  } else if (word == "serve") {
    reading.options.mode = Mode::kServe;
  } else {
    reading.wrong = "the radio knows send, receive and serve: " + std::string(word);
  }
}

void ReadOption(int found, const char* word, Reading& reading) {
  switch (found) {
    case kImage:
      ReadPath(optarg, "--image", reading.options.image, reading);
      break;
    case kLink:
      ReadPath(optarg, "--link", reading.options.link, reading);
      break;
    case kSpeed:
      ReadSpeed(optarg, reading);
      break;
    case kFault:
      ReadFault(optarg, reading);
      break;
    case kSeed:
      ReadSeed(optarg, reading);
      break;
    case ':':
      reading.wrong = std::string(word) + " needs a value";
      break;
    default: {
      const bool is_letter = optopt > 0 && optopt < kImage;
      const std::string letter = {'-', static_cast<char>(optopt)};
      reading.wrong = "unknown option: " + (is_letter ? letter : std::string(word));
      break;
    }
  }
}

void ChooseRandomFaults(Reading& reading) {
  for (int i = 0; i < reading.random_faults; ++i) {
    const auto seed = reading.seed + static_cast<std::uint64_t>(i);
    for (const Fault& fault : PickFaults(seed, reading.options.mode)) {
      Note("chosen by chance: " + FaultName(fault));
      reading.options.faults.push_back(fault);
    }
  }
}

}  // namespace

std::optional<Options> ReadOptions(int argc, char** argv, int& status) {
  Reading reading;
  opterr = 0;
  int found = 0;
  while (reading.wrong.empty() &&
         (found = getopt_long(argc, argv, ":", kLongOptions, nullptr)) != -1) {
    if (found == kHelpOption) {
      std::fputs((std::string(kUsage) + kHelp + FaultHelp() + kHelpEnd).c_str(), stdout);
      status = kExitDone;
      return std::nullopt;
    }
    if (found == kVersion) {
      std::puts("qz7radio " QZ7RADIO_VERSION);
      status = kExitDone;
      return std::nullopt;
    }
    ReadOption(found, argv[optind - 1], reading);
  }
  if (reading.wrong.empty()) {
    ReadMode(argc - optind, argv + optind, reading);
  }
  if (!reading.wrong.empty()) {
    Note(reading.wrong);
    std::fputs(kUsage, stderr);
    status = kExitWrongUsage;
    return std::nullopt;
  }
  ChooseRandomFaults(reading);
  return reading.options;
}

}  // namespace qz7radio
