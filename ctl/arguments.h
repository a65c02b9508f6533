#pragma once

#include <CLI/CLI.hpp>
#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include "ctl/commands.h"

namespace qz7 {

// What the command line fills; one command runs, so that one set serves all of them.
struct Arguments {
  std::filesystem::path file;
  std::filesystem::path second_file;
  std::filesystem::path out;
  std::vector<std::filesystem::path> written;  // the files that are to be written, as named
  std::filesystem::path compare_file;
  std::filesystem::path codeplug;  // the document, or what to change in it, as JSON
  std::filesystem::path json_out;
  int channel = 0;
  bool json = false;
  bool list = false;
  bool dry_run = false;
  WriteOptions link;
  PortsOptions ports;
  std::string how;
  bool yes = false;
  std::vector<std::string> values;
  std::string columns;
  std::string selection;
  std::string separator;
  std::string quote;
  ListRequest import;
  MergeOptions merge;
  int start = 0;
  std::function<int()> run;
};

// Each adds commands to the parser; a parsed one sets `run`.
void AddFileCommands(CLI::App& program, Arguments& args);
void AddPortCommands(CLI::App& program, Arguments& args);
void AddEditCommands(CLI::App& program, Arguments& args);
void AddInterchangeCommands(CLI::App& program, Arguments& args);
void AddCodeplugCommands(CLI::App& program, Arguments& args);
// The commands that explain the others; they come last.
void AddGuidance(CLI::App& program, Arguments& args);

// Adds an argument or an option that names a file.
CLI::Option* AddPath(CLI::App* sub, const char* name, std::filesystem::path& target,
                     const char* does);
// Adds the argument that names the file to write, and --yes.
CLI::Option* AddOutput(CLI::App* sub, Arguments& args, const char* name,
                       std::filesystem::path& target);
// False after telling which file would be replaced without --yes. One that is read, too, may be.
bool MayWriteOutputs(const Arguments& args);

// A check that refuses what names no channel slot.
std::string CheckSlot(const std::string& text);

// "rx=1,tx=2"; throws CLI::ValidationError for a name or a number that is none.
ColumnAssignment ParseColumns(const std::string& text);
// "1,3-5", counted from 1: the rows from 0, ascending and each once.
std::vector<int> ParseRows(const std::string& option, const std::string& text);
// "all" or such rows, counted from 1: nothing for all.
std::optional<std::vector<int>> ParseSelection(const std::string& text);

}  // namespace qz7
