#include "ctl/arguments.h"

namespace qz7 {
namespace {

void AddDump(CLI::App& program, Arguments& args) {
  CLI::App* sub = program.add_subcommand("dump", "writes the whole document as JSON");
  AddPath(sub, "FILE", args.file, "radio data file; - is standard input")->required();
  AddOutput(sub, args, "OUT.json", args.json_out);
  sub->callback([&args] { args.run = [&args] { return DumpCommand(args.file, args.json_out); }; });
}

void AddBuild(CLI::App& program, Arguments& args) {
  CLI::App* sub = program.add_subcommand("build", "makes a document of what dump has written");
  AddPath(sub, "CODEPLUG.json", args.codeplug, "the document as JSON; - is standard input")
      ->required();
  AddOutput(sub, args, "OUT.rdf", args.out)->required();
  AddPath(sub, "--base", args.file,
          "radio data file that what is not named comes from, default a new document")
      ->type_name("FILE");
  sub->callback(
      [&args] { args.run = [&args] { return BuildCommand(args.codeplug, args.out, args.file); }; });
}

void AddApply(CLI::App& program, Arguments& args) {
  CLI::App* sub =
      program.add_subcommand("apply", "changes a document by a JSON merge patch of its dump");
  AddPath(sub, "FILE", args.file, "radio data file; - is standard input")->required();
  AddPath(sub, "PATCH.json", args.codeplug,
          "what to change; null takes a value away; - is standard input")
      ->required();
  AddOutput(sub, args, "OUT.rdf", args.out)->required();
  sub->callback(
      [&args] { args.run = [&args] { return ApplyCommand(args.file, args.codeplug, args.out); }; });
}

// For those who build the program: a hidden command, as it is no part of the work with a radio.
void AddSchema(CLI::App& program, Arguments& args) {
  CLI::App* sub = program.add_subcommand("schema", "prints the JSON schema of what dump writes");
  sub->group("");
  sub->callback([&args] { args.run = SchemaCommand; });
}

}  // namespace

void AddCodeplugCommands(CLI::App& program, Arguments& args) {
  AddDump(program, args);
  AddBuild(program, args);
  AddApply(program, args);
  AddSchema(program, args);
}

}  // namespace qz7
