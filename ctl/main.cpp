#include <CLI/CLI.hpp>
#include <functional>
#include <iostream>

#include "ctl/commands.h"
#include "ctl/console.h"
#include "ctl/terminal.h"

namespace {

// What the command line fills; one command runs, so that one set serves all of them.
struct Arguments {
  std::string file;
  std::string second_file;
  std::string compare_file;
  int channel = 0;
  bool json = false;
  bool dry_run = false;
  qz7::WriteOptions link;
  std::function<int()> run;
};

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
  sub->callback([&] { args.run = [&] { return qz7::InfoCommand(args.file, args.json); }; });
}

void AddShow(CLI::App& program, Arguments& args) {
  CLI::App* sub = program.add_subcommand("show", "prints every field of a channel, one a line");
  sub->add_option("FILE", args.file, "radio data file; - is standard input")->required();
  sub->add_option("N", args.channel,
                  "memory channel 1..240; VFO A -1..-10, VFO B -11..-20, home -21..-30, by band")
      ->required()
      ->check([](const std::string& text) {
        const int n = std::atoi(text.c_str());
        return n == 0 || n < -30 || n > 240 ? "N is 1..240 or -1..-30" : std::string();
      });
  sub->callback([&] { args.run = [&] { return qz7::ShowCommand(args.file, args.channel); }; });
}

void AddDiff(CLI::App& program, Arguments& args) {
  CLI::App* sub =
      program.add_subcommand("diff", "prints what differs; exit 0 same, 1 different, 2 trouble");
  sub->add_option("A", args.file, "radio data file")->required();
  sub->add_option("B", args.second_file, "radio data file")->required();
  sub->callback([&] { args.run = [&] { return qz7::DiffCommand(args.file, args.second_file); }; });
}

void AddPorts(CLI::App& program, Arguments& args) {
  CLI::App* sub = program.add_subcommand(
      "ports", "lists the serial ports: name, description, free, busy or denied");
  sub->callback([&] { args.run = [] { return qz7::PortsCommand(); }; });
}

CLI::Option* AddPortOptions(CLI::App* sub, Arguments& args) {
  sub->add_option("--trace", args.link.trace,
                  "write every byte, its direction and its time into this file")
      ->type_name("FILE");
  return sub->add_option("--port", args.link.port, "serial port: a device, or COM1..COM9")
      ->type_name("PORT");
}

void AddRead(CLI::App& program, Arguments& args) {
  CLI::App* sub = program.add_subcommand("read", "reads the radio into a new radio data file");
  AddPortOptions(sub, args)->required();
  CLI::Option* out =
      sub->add_option("OUT.rdf", args.file, "the file to write; - is standard output");
  CLI::Option* compare = sub->add_option("--compare", args.compare_file,
                                         "compare with this file instead; exit status as diff")
                             ->type_name("FILE");
  compare->excludes(out);
  sub->callback([&args, out, compare] {
    if (out->count() == 0 && compare->count() == 0) {
      throw CLI::RequiredError("OUT.rdf");
    }
    args.run = [&] {
      return args.compare_file.empty() ? qz7::ReadCommand(args.link, args.file)
                                       : qz7::CompareCommand(args.link, args.compare_file);
    };
  });
}

void AddTemplate(CLI::App& program, Arguments& args) {
  CLI::App* sub = program.add_subcommand("template", "reads the radio into a template file");
  AddPortOptions(sub, args)->required();
  sub->add_option("OUT.tpl", args.file, "the file to write")->required();
  sub->callback([&] { args.run = [&] { return qz7::TemplateCommand(args.link, args.file); }; });
}

void AddWrite(CLI::App& program, Arguments& args) {
  CLI::App* sub = program.add_subcommand("write", "writes a radio data file to the radio");
  CLI::Option* port = AddPortOptions(sub, args);
  sub->add_option("--template", args.link.template_file,
                  "template file, read from the same radio with the template command")
      ->type_name("T.tpl")
      ->required();
  sub->add_option("--gap", args.link.gap_milliseconds, "pause between blocks in milliseconds")
      ->type_name("MS")
      ->check(CLI::Range(0, 10'000));
  CLI::Option* dry_run =
      sub->add_flag("--dry-run", args.dry_run, "make every check, open no port, send nothing");
  sub->add_option("FILE", args.file, "radio data file; - is standard input")->required();
  sub->callback([&args, port, dry_run] {
    if (port->count() == 0 && dry_run->count() == 0) {
      throw CLI::RequiredError("--port");
    }
    args.run = [&] {
      return args.dry_run ? qz7::DryRunCommand(args.link, args.file)
                          : qz7::WriteCommand(args.link, args.file);
    };
  });
}

void AddCommands(CLI::App& program, Arguments& args) {
  AddFileCommand(program, args, "new", "writes a new document", qz7::NewCommand);
  AddInfo(program, args);
  AddFileCommand(program, args, "rows", "prints the memory list, a row a line", qz7::RowsCommand);
  AddFileCommand(program, args, "list", "prints the listing that the program prints on paper",
                 qz7::ListCommand);
  AddShow(program, args);
  AddDiff(program, args);
  AddPorts(program, args);
  AddRead(program, args);
  AddTemplate(program, args);
  AddWrite(program, args);
}

// Help goes to standard output; what is wrong with the call, and the usage line, to standard error.
int Explain(const CLI::App& program, const CLI::ParseError& error) {
  if (error.get_exit_code() == 0) {
    return program.exit(error);
  }
  const auto chosen = program.get_subcommands();
  const CLI::App& app = chosen.empty() ? program : *chosen.front();
  std::cerr << "qz7ctl: " << error.what() << '\n';
  const std::string help = app.help(chosen.empty() ? "" : program.get_name());
  const std::size_t usage = help.find("Usage:");
  if (usage != std::string::npos) {
    std::cerr << help.substr(usage, help.find('\n', usage) - usage) << '\n';
  }
  return qz7::kWrongUsage;
}

}  // namespace

int main(int argc, char** argv) {
  qz7::UseBinaryStreams();
  CLI::App program("Reads, writes and looks into the memory of the Tamro QZ-7H.", "qz7ctl");
  program.set_version_flag("--version", "qz7ctl " QZ7_VERSION);
  program.require_subcommand(1);
  Arguments args;
  AddCommands(program, args);
  try {
    program.parse(argc, argv);
  } catch (const CLI::ParseError& error) {
    return Explain(program, error);
  }
  const int status = args.run();
  if (!std::cout.flush()) {
    std::cerr << "qz7ctl: standard output cannot be written\n";
    return status == qz7::kDone ? qz7::kFailed : status;
  }
  return status;
}
