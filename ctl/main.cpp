#include <algorithm>
#include <cstdio>
#include <exception>
#include <iostream>

#include "ctl/arguments.h"
#include "ctl/console.h"
#include "ctl/guidance.h"
#include "ctl/process.h"
#include "ctl/terminal.h"

namespace qz7 {
namespace {

// Help goes to standard output; what is wrong with the call, and the usage line, to standard error.
int Explain(const CLI::App& program, const CLI::ParseError& error) {
  if (error.get_exit_code() == 0) {
    return program.exit(error);
  }
  const auto chosen = program.get_subcommands();
  const CLI::App& app = chosen.empty() ? program : *chosen.front();
  const std::vector<std::string> unknown = program.remaining();
  if (chosen.empty() && !unknown.empty() && !unknown.front().starts_with("-")) {
    std::cerr << "qz7ctl: " << NoSuchCommand(program, unknown.front()) << '\n';
  } else {
    std::cerr << "qz7ctl: " << error.what() << '\n';
  }
  const std::string help = app.help(chosen.empty() ? "" : program.get_name());
  const std::size_t usage = help.find("Usage:");
  if (usage != std::string::npos) {
    std::cerr << help.substr(usage, help.find('\n', usage) - usage) << '\n';
  }
  return kWrongUsage;
}

// An option with nothing behind its "=" would take the next argument for its value.
void RefuseEmptyOptions(const std::vector<std::string>& words) {
  const auto end = std::find(words.begin(), words.end(), "--");
  const auto empty = std::find_if(words.begin(), end, [](const std::string& word) {
    return word.starts_with("--") && word.find('=') == word.size() - 1;
  });
  if (empty != end) {
    throw CLI::ArgumentMismatch(*empty + ": a value is missing");
  }
}

int RunProgram(const std::vector<std::string>& arguments) {
  UseBinaryStreams();
  CLI::App program("Reads, writes and looks into the memory of the Tamro QZ-7H.", "qz7ctl");
  program.set_version_flag("--version", "qz7ctl " QZ7_VERSION);
  program.require_subcommand(1);
  Arguments args;
  AddFileCommands(program, args);
  AddEditCommands(program, args);
  AddInterchangeCommands(program, args);
  AddCodeplugCommands(program, args);
  AddPortCommands(program, args);
  AddGuidance(program, args);
  if (arguments.empty()) {
    std::cerr << program.help();
    return kWrongUsage;
  }
  try {
    // The parser takes the words from the end.
    program.parse(std::vector<std::string>(arguments.rbegin(), arguments.rend()));
    RefuseEmptyOptions(arguments);
  } catch (const CLI::ParseError& error) {
    return Explain(program, error);
  }
  const int status = MayWriteOutputs(args) ? args.run() : kFailed;
  if (!std::cout.flush()) {
    std::cerr << "qz7ctl: standard output cannot be written\n";
    return status == kDone ? kFailed : status;
  }
  return status;
}

}  // namespace
}  // namespace qz7

int main(int argc, char** argv) {
  try {
    return qz7::RunProgram(qz7::ProgramArguments(argc, argv));
  } catch (const std::exception& error) {
    std::fprintf(stderr, "qz7ctl: %s\n", error.what());
    return qz7::kFailed;
  }
}
