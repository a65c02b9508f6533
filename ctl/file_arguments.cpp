#include "ctl/arguments.h"

namespace qz7 {
namespace {

void AddFileCommand(CLI::App& program, Arguments& args, const char* name, const char* does,
                    int (*command)(const std::string&)) {
  CLI::App* sub = program.add_subcommand(name, does);
  sub->add_option("FILE", args.file, "radio data file; - is the standard stream")->required();
  sub->callback([&args, command] { args.run = [&] { return command(args.file); }; });
}

void AddInfo(CLI::App& program, Arguments& args) {
  CLI::App* sub =
      program.add_subcommand("info", "tells what a radio data file or a template file holds");
  sub->add_option("FILE", args.file, "radio data or template file; - is standard input")
      ->required();
  sub->add_flag("--json", args.json, "as one JSON object");
  sub->callback([&] { args.run = [&] { return InfoCommand(args.file, args.json); }; });
}

void AddShow(CLI::App& program, Arguments& args) {
  CLI::App* sub = program.add_subcommand("show", "prints every field of a channel, one a line");
  sub->add_option("FILE", args.file, "radio data file; - is standard input")->required();
  sub->add_option("N", args.channel,
                  "memory channel 1..240; VFO A -1..-10, VFO B -11..-20, home -21..-30, by band")
      ->required()
      ->check(CheckSlot);
  sub->callback([&] { args.run = [&] { return ShowCommand(args.file, args.channel); }; });
}

void AddDiff(CLI::App& program, Arguments& args) {
  CLI::App* sub =
      program.add_subcommand("diff", "prints what differs; exit 0 same, 1 different, 2 trouble");
  sub->add_option("A", args.file, "radio data file")->required();
  sub->add_option("B", args.second_file, "radio data file")->required();
  sub->callback([&] { args.run = [&] { return DiffCommand(args.file, args.second_file); }; });
}

}  // namespace

void AddFileCommands(CLI::App& program, Arguments& args) {
  AddFileCommand(program, args, "new", "writes a new document", NewCommand);
  AddInfo(program, args);
  AddFileCommand(program, args, "rows", "prints the memory list, a row a line", RowsCommand);
  AddFileCommand(program, args, "list", "prints the listing that the program prints on paper",
                 ListCommand);
  AddShow(program, args);
  AddDiff(program, args);
}

}  // namespace qz7
