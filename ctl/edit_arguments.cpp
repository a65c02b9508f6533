#include <algorithm>
#include <cstdlib>

#include "core/image/clone_image.h"
#include "ctl/arguments.h"
#include "ctl/console.h"

namespace qz7 {
namespace {

// "field=value" words as pairs.
std::vector<std::pair<std::string, std::string>> SplitValues(
    const std::vector<std::string>& words) {
  std::vector<std::pair<std::string, std::string>> values;
  for (const std::string& word : words) {
    const std::size_t equals = word.find('=');
    if (equals == std::string::npos) {
      throw CLI::ValidationError("field=value", word + " is none");
    }
    const std::string name = word.substr(0, equals);
    if (std::any_of(values.begin(), values.end(),
                    [&](const auto& value) { return value.first == name; })) {
      throw CLI::ValidationError("field=value", name + " is named twice");
    }
    values.emplace_back(name, word.substr(equals + 1));
  }
  return values;
}

// The memory list's rows of "12-15,20".
std::vector<int> ParseChannels(const std::string& text) {
  std::vector<int> rows = ParseRows("N", text);
  if (rows.empty() || rows.back() >= kChannelCount) {
    throw CLI::ValidationError("N", "memory channels are 1..240");
  }
  return rows;
}

void AddSet(CLI::App& program, Arguments& args) {
  CLI::App* sub = program.add_subcommand("set", "edits a channel and writes a new file");
  AddPath(sub, "FILE", args.file, "radio data file; - is standard input")->required();
  AddOutput(sub, args, "OUT.rdf", args.out)->required();
  sub->add_option("N", args.channel, "channel as in show")->required()->check(CheckSlot);
  sub->add_option("field=value", args.values,
                  "fields as show prints them: rx=145.5 shift=minus tone-mode=\"Tone Encode\"")
      ->required();
  sub->callback([&args] {
    args.run = [&args, values = SplitValues(args.values)] {
      return SetCommand(args.file, args.out, args.channel, values);
    };
  });
}

void AddMove(CLI::App& program, Arguments& args) {
  CLI::App* sub =
      program.add_subcommand("move", "moves, clears, deletes or inserts memory channels");
  AddPath(sub, "FILE", args.file, "radio data file; - is standard input")->required();
  AddOutput(sub, args, "OUT.rdf", args.out)->required();
  sub->add_option("HOW", args.how, "what the memory list does with the channels")
      ->required()
      ->check(CLI::IsMember({"up", "down", "clear", "delete", "insert"}));
  sub->add_option("N", args.selection,
                  "memory channel 1..240 or several, 12-15,20; insert puts one before the first")
      ->required();
  sub->callback([&args] {
    args.run = [&args, rows = ParseChannels(args.selection)] {
      if (args.yes) {
        AnswerYes();
      }
      return MoveCommand(args.file, args.out, args.how, rows);
    };
  });
}

}  // namespace

std::string CheckSlot(const std::string& text) {
  char* end = nullptr;
  const long n = std::strtol(text.c_str(), &end, 10);
  const bool good = *end == '\0' && n != 0 && n >= -kSpecialSlotCount && n <= kChannelCount;
  return good ? "" : "it is 1..240 or -1..-30";
}

void AddEditCommands(CLI::App& program, Arguments& args) {
  AddSet(program, args);
  AddMove(program, args);
}

}  // namespace qz7
