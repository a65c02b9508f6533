#include <filesystem>
#include <system_error>

#include "core/files/paths.h"
#include "core/files/seams.h"
#include "ctl/arguments.h"
#include "ctl/console.h"

namespace qz7 {
namespace {

void AddRows(CLI::App& program, Arguments& args) {
  CLI::App* sub = program.add_subcommand("rows", "prints the memory list, a row a line");
  AddPath(sub, "FILE", args.file, "radio data file; - is standard input")->required();
  sub->add_flag("--json", args.json, "as a JSON array, an object a row");
  sub->callback([&args] { args.run = [&] { return RowsCommand(args.file, args.json); }; });
}

void AddList(CLI::App& program, Arguments& args) {
  CLI::App* sub =
      program.add_subcommand("list", "prints the listing that the program prints on paper");
  AddPath(sub, "FILE", args.file, "radio data file; - is standard input")->required();
  sub->callback([&args] { args.run = [&] { return ListCommand(args.file); }; });
}

void AddNew(CLI::App& program, Arguments& args) {
  CLI::App* sub = program.add_subcommand("new", "writes a new document");
  AddOutput(sub, args, "FILE", args.file)->required();
  sub->callback([&args] { args.run = [&] { return NewCommand(args.file); }; });
}

void AddInfo(CLI::App& program, Arguments& args) {
  CLI::App* sub =
      program.add_subcommand("info", "tells what a radio data file or a template file holds");
  AddPath(sub, "FILE", args.file, "radio data or template file; - is standard input")->required();
  sub->add_flag("--json", args.json, "as one JSON object");
  sub->callback([&] { args.run = [&] { return InfoCommand(args.file, args.json); }; });
}

void AddShow(CLI::App& program, Arguments& args) {
  CLI::App* sub = program.add_subcommand("show", "prints every field of a channel, one a line");
  AddPath(sub, "FILE", args.file, "radio data file; - is standard input")->required();
  sub->add_option("N", args.channel,
                  "memory channel 1..240; VFO A -1..-10, VFO B -11..-20, home -21..-30, by band")
      ->required()
      ->check(CheckSlot);
  sub->add_flag("--json", args.json, "as one JSON object");
  sub->callback(
      [&] { args.run = [&] { return ShowCommand(args.file, args.channel, args.json); }; });
}

void AddDiff(CLI::App& program, Arguments& args) {
  CLI::App* sub =
      program.add_subcommand("diff", "prints what differs; exit 0 same, 1 different, 2 trouble");
  AddPath(sub, "A", args.file, "radio data file")->required();
  AddPath(sub, "B", args.second_file, "radio data file")->required();
  sub->add_flag("--json", args.json, "as a JSON array, an object each");
  sub->callback(
      [&] { args.run = [&] { return DiffCommand(args.file, args.second_file, args.json); }; });
}

}  // namespace

CLI::Option* AddPath(CLI::App* sub, const char* name, std::filesystem::path& target,
                     const char* does) {
  const auto take = [&target](const std::string& text) { target = PathOfText(text); };
  return sub->add_option_function<std::string>(name, take, does);
}

CLI::Option* AddOutput(CLI::App* sub, Arguments& args, const char* name,
                       std::filesystem::path& target) {
  sub->add_flag("--yes", args.yes,
                "replace a file that is there, and answer yes to what the program would ask");
  return AddPath(sub, name, target, "the file to write; - is standard output")
      ->each([&args](const std::string& text) { args.written.push_back(PathOfText(text)); });
}

bool MayWriteOutputs(const Arguments& args) {
  namespace fs = std::filesystem;
  std::error_code error;
  for (const fs::path& path : args.written) {
    const bool has_inputs = path == args.out;  // other commands only write
    const auto same = [&](const fs::path& input) {
      return fs::equivalent(SystemPath(path), SystemPath(input), error);
    };
    const bool is_input =
        has_inputs && (same(args.file) || same(args.second_file) || same(args.import.options.path));
    if (!args.yes && !is_input && path != "-" && fs::is_regular_file(SystemPath(path), error)) {
      PrintError("The file is there already; --yes replaces it:\n" + PathText(path));
      return false;
    }
  }
  return true;
}

void AddFileCommands(CLI::App& program, Arguments& args) {
  AddNew(program, args);
  AddInfo(program, args);
  AddRows(program, args);
  AddList(program, args);
  AddShow(program, args);
  AddDiff(program, args);
}

}  // namespace qz7
