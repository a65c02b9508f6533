#include "ctl/arguments.h"

namespace qz7 {
namespace {

void AddPorts(CLI::App& program, Arguments& args) {
  CLI::App* sub = program.add_subcommand(
      "ports", "lists the serial ports: name, description, free, busy or denied");
  sub->add_flag("--json", args.ports.json, "as a JSON array");
  sub->add_flag("--probe", args.ports.probe,
                "open each port that seems free; this moves its lines");
  sub->callback([&] { args.run = [&] { return PortsCommand(args.ports); }; });
}

CLI::Option* AddPortOptions(CLI::App* sub, Arguments& args) {
  AddPath(sub, "--trace", args.link.trace,
          "write every byte, its direction and its time into this file")
      ->type_name("FILE");
  return sub->add_option("--port", args.link.port, "serial port: a device, or COM1..COM256")
      ->type_name("PORT");
}

void AddRead(CLI::App& program, Arguments& args) {
  CLI::App* sub = program.add_subcommand("read", "reads the radio into a new radio data file");
  AddPortOptions(sub, args)->required();
  CLI::Option* out = AddOutput(sub, args, "OUT.rdf", args.file);
  CLI::Option* compare = AddPath(sub, "--compare", args.compare_file,
                                 "compare with this file instead; exit status as diff")
                             ->type_name("FILE");
  compare->excludes(out);
  sub->callback([&args, out, compare] {
    if (out->count() == 0 && compare->count() == 0) {
      throw CLI::RequiredError("OUT.rdf");
    }
    args.run = [&] {
      return args.compare_file.empty() ? ReadCommand(args.link, args.file)
                                       : CompareCommand(args.link, args.compare_file);
    };
  });
}

void AddTemplate(CLI::App& program, Arguments& args) {
  CLI::App* sub = program.add_subcommand("template", "reads the radio into a template file");
  AddPortOptions(sub, args)->required();
  AddOutput(sub, args, "OUT.tpl", args.file)->required();
  sub->callback([&] { args.run = [&] { return TemplateCommand(args.link, args.file); }; });
}

void AddWrite(CLI::App& program, Arguments& args) {
  CLI::App* sub = program.add_subcommand("write", "writes a radio data file to the radio");
  CLI::Option* port = AddPortOptions(sub, args);
  AddPath(sub, "--template", args.link.template_file,
          "template file, read from the same radio with the template command")
      ->type_name("T.tpl")
      ->required();
  sub->add_option("--gap", args.link.gap_milliseconds, "pause between blocks in milliseconds")
      ->type_name("MS")
      ->check(CLI::Range(0, 10'000));
  CLI::Option* dry_run =
      sub->add_flag("--dry-run", args.dry_run, "make every check, open no port, send nothing");
  AddPath(sub, "FILE", args.file, "radio data file; - is standard input")->required();
  sub->callback([&args, port, dry_run] {
    if (port->count() == 0 && dry_run->count() == 0) {
      throw CLI::RequiredError("--port");
    }
    args.run = [&] {
      return args.dry_run ? DryRunCommand(args.link, args.file)
                          : WriteCommand(args.link, args.file);
    };
  });
}

}  // namespace

void AddPortCommands(CLI::App& program, Arguments& args) {
  AddPorts(program, args);
  AddRead(program, args);
  AddTemplate(program, args);
  AddWrite(program, args);
}

}  // namespace qz7
