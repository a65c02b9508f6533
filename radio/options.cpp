#include "radio/options.h"

#include <CLI/CLI.hpp>
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

constexpr char kExplanation[] =
    "\n"
    "Plays the radio at the other end of the cable, on a pseudo-terminal whose name\n"
    "is the first line on standard output. How each exchange went, and at the end\n"
    "which faults were played, is told there too, a line each.\n"
    "\n"
    "  send           sends its memory when a program opens the terminal and listens;\n"
    "                 ends after the first exchange that the program accepts\n"
    "  receive        takes one memory from the program, stores it in FILE and ends\n"
    "  serve          does either again and again until it is ended by a signal\n";

constexpr char kFaults[] =
    "Faults; POS counts from 0 the bytes that the radio sends, or that it receives,\n"
    "up to the checksum (8122); [N] is where it happens without POS:\n";

constexpr char kHelpEnd[] =
    "  random         one to three of these at random places: the same seed, and the\n"
    "                 same of send, receive and serve, means the same faults\n"
    "\n"
    "Exit status: 0 done, 1 no exchange came about, 2 wrong usage or a FILE or PATH\n"
    "that cannot be used.";

constexpr std::size_t kNameWidth = 17;

// What was read so far. "random" waits until mode and seed are known.
struct Reading {
  Options options;
  std::uint64_t seed = 1;
  int random_faults = 0;
};

// The usage stands above the explanation, in the description.
class HelpText : public CLI::Formatter {
 public:
  HelpText() { column_width(kNameWidth); }
  std::string make_usage(const CLI::App* /*app*/, std::string /*name*/) const override {
    return "";
  }
};

void ReadSpeed(const std::string& text, Reading& reading) {
  if (text != "wire" && text != "fast") {
    throw CLI::ValidationError("the speed is wire or fast: " + text);
  }
  reading.options.wire_speed = text == "wire";
}

void ReadFaults(const std::vector<std::string>& texts, Reading& reading) {
  for (const std::string& text : texts) {
    std::string wrong;
    if (text == "random") {
      ++reading.random_faults;
    } else if (const auto fault = ParseFault(text, wrong)) {
      reading.options.faults.push_back(*fault);
    } else {
      throw CLI::ValidationError(wrong);
    }
  }
}

// Decimal digits only: a conversion of the library's own would take "010" for eight.
void ReadSeed(std::string_view text, Reading& reading) {
  const char* end = text.data() + text.size();
  const auto [stop, error] = std::from_chars(text.data(), end, reading.seed);
  if (error != std::errc() || stop != end) {
    throw CLI::ValidationError("the seed is a number from 0 up: " + std::string(text));
  }
}

void ReadMode(const std::string& word, Reading& reading) {
  if (word == "send") {
    reading.options.mode = Mode::kSend;
  } else if (word == "receive") {
    reading.options.mode = Mode::kReceive;
  } else if (word == "serve") {
    reading.options.mode = Mode::kServe;
  } else {
    throw CLI::ValidationError("the radio knows send, receive and serve: " + word);
  }
}

void AddPath(CLI::App& program, const std::string& name, const std::string& value,
             const std::string& help, std::string& path) {
  program
      .add_option_function<std::string>(
          name,
          [name, &path](const std::string& text) {
            if (text.empty()) {
              throw CLI::ValidationError(name + " needs a name");
            }
            path = text;
          },
          help)
      ->option_text(value);
}

void AddOptions(CLI::App& program, Reading& reading) {
  // The last one told counts; faults add up.
  program.option_defaults()->multi_option_policy(CLI::MultiOptionPolicy::TakeLast);
  AddPath(program, "--image", "FILE",
          "the radio's memory: 8122 bytes, or a radio data file of 21282\n"
          "bytes (send only); without it the radio has one of its own",
          reading.options.image);
  AddPath(program, "--link", "PATH",
          "makes a symbolic link to the terminal, for as long as it lives", reading.options.link);
  program
      .add_option_function<std::string>(
          "--speed", [&reading](const std::string& text) { ReadSpeed(text, reading); },
          "wire: 9600 baud, 11 bits a byte, in both directions (if not\n"
          "told); fast: as fast as it goes")
      ->option_text("SPEED");
  program
      .add_option_function<std::vector<std::string>>(
          "--fault",
          [&reading](const std::vector<std::string>& texts) { ReadFaults(texts, reading); },
          "plays a fault in the first exchange; may be given repeatedly")
      ->option_text("KIND")
      ->allow_extra_args(false)
      ->multi_option_policy(CLI::MultiOptionPolicy::TakeAll);
  program
      .add_option_function<std::string>(
          "--seed", [&reading](const std::string& text) { ReadSeed(text, reading); },
          "chooses the faults of \"random\" [1]")
      ->option_text("N");
  program
      .add_option_function<std::string>(
          "MODE", [&reading](const std::string& word) { ReadMode(word, reading); })
      ->multi_option_policy(CLI::MultiOptionPolicy::Throw)
      ->group("");  // the explanation tells it
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

// Help goes to standard output; what is wrong with the call, and the usage, to standard error.
int Explain(const CLI::App& program, const CLI::ParseError& error) {
  if (error.get_exit_code() == 0) {
    return program.exit(error);
  }
  Note(error.what());
  std::fputs(kUsage, stderr);
  return kExitWrongUsage;
}

}  // namespace

std::optional<Options> ReadOptions(int argc, char** argv, int& status) {
  Reading reading;
  CLI::App program(std::string(kUsage) + kExplanation, "qz7radio");
  program.formatter(std::make_shared<HelpText>());
  program.set_help_flag("--help", "shows this text");
  program.set_version_flag("--version", "qz7radio " QZ7RADIO_VERSION, "shows the version");
  program.footer(kFaults + FaultHelp() + kHelpEnd);
  AddOptions(program, reading);
  try {
    program.parse(argc, argv);
    if (program.get_option("MODE")->empty()) {
      throw CLI::ValidationError("say what the radio does: send, receive or serve");
    }
  } catch (const CLI::ParseError& error) {
    status = Explain(program, error);
    return std::nullopt;
  }
  ChooseRandomFaults(reading);
  return reading.options;
}

}  // namespace qz7radio
