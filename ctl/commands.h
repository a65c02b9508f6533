#pragma once

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "core/interchange/import.h"
#include "core/interchange/merge.h"

namespace qz7 {

// Each command returns the program's exit status. What is wrong has been told on standard error.

int NewCommand(const std::string& out);
int InfoCommand(const std::string& file, bool json);
int RowsCommand(const std::string& file);
int ListCommand(const std::string& file);
int ShowCommand(const std::string& file, int n);
int DiffCommand(const std::string& a, const std::string& b);

// Edits channel n with the channel editor, and moves channels with the memory list.
int SetCommand(const std::string& file, const std::string& out, int n,
               const std::vector<std::pair<std::string, std::string>>& values);
int MoveCommand(const std::string& file, const std::string& out, const std::string& how, int n);

int ExportCommand(const std::string& file, const std::string& out);
// The list is `request.options.path`; "-" is standard input.
int ImportCommand(const std::string& file, const std::string& out, const ImportRequest& request);
int MergeCommand(const std::string& file, const std::string& source, const std::string& out,
                 MergeOptions options, std::optional<int> start);

// The document as JSON; "-" and nothing are standard output. And back, on top of `base` where that is
// named: everything that is wrong is told, and nothing is written then.
int DumpCommand(const std::string& file, const std::string& out);
int BuildCommand(const std::string& codeplug, const std::string& out, const std::string& base);
int ApplyCommand(const std::string& file, const std::string& patch, const std::string& out);

int SchemaCommand();

int PortsCommand();

struct PortOptions {
  std::string port;
  std::string trace;  // empty: none
};
int ReadCommand(const PortOptions& options, const std::string& out);
int CompareCommand(const PortOptions& options, const std::string& file);
int TemplateCommand(const PortOptions& options, const std::string& out);

struct WriteOptions : PortOptions {
  std::string template_file;
  int gap_milliseconds = 0;
};
int WriteCommand(const WriteOptions& options, const std::string& file);
int DryRunCommand(const WriteOptions& options, const std::string& file);

}  // namespace qz7
