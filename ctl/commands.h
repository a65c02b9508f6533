#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "core/interchange/import.h"
#include "core/interchange/merge.h"

namespace qz7 {

// Each command returns the program's exit status. What is wrong has been told on standard error.

int NewCommand(const std::filesystem::path& out);
int InfoCommand(const std::filesystem::path& file, bool json);
int RowsCommand(const std::filesystem::path& file, bool json);
int ListCommand(const std::filesystem::path& file);
int ShowCommand(const std::filesystem::path& file, int n, bool json);
int DiffCommand(const std::filesystem::path& a, const std::filesystem::path& b, bool json);

// Edits channel n with the channel editor, and moves the channels of rows with the memory list.
int SetCommand(const std::filesystem::path& file, const std::filesystem::path& out, int n,
               const std::vector<std::pair<std::string, std::string>>& values);
int MoveCommand(const std::filesystem::path& file, const std::filesystem::path& out,
                const std::string& how, const std::vector<int>& rows);

struct ListRequest : ImportRequest {
  bool recognise = false;  // separator, quotation marks and columns by the list's header line
};

int ExportCommand(const std::filesystem::path& file, const std::filesystem::path& out);
// The list is `request.options.path`; "-" is standard input.
int ImportCommand(const std::filesystem::path& file, const std::filesystem::path& out,
                  const ListRequest& request);
// What that import would offer, a record a line.
int ListImportCommand(const std::filesystem::path& file, const ListRequest& request);
int MergeCommand(const std::filesystem::path& file, const std::filesystem::path& source,
                 const std::filesystem::path& out, MergeOptions options, std::optional<int> start);

// The document as JSON; "-" and nothing are standard output. And back, on top of `base` where that
// is named: everything that is wrong is told, and nothing is written then.
int DumpCommand(const std::filesystem::path& file, const std::filesystem::path& out);
int BuildCommand(const std::filesystem::path& codeplug, const std::filesystem::path& out,
                 const std::filesystem::path& base);
int ApplyCommand(const std::filesystem::path& file, const std::filesystem::path& patch,
                 const std::filesystem::path& out);

int SchemaCommand();

struct PortsOptions {
  bool json = false;
  bool probe = false;  // open each, to see whether it is free
};
int PortsCommand(const PortsOptions& options);

struct PortOptions {
  std::string port;
  std::filesystem::path trace;  // empty: none
};
int ReadCommand(const PortOptions& options, const std::filesystem::path& out);
int CompareCommand(const PortOptions& options, const std::filesystem::path& file);
int TemplateCommand(const PortOptions& options, const std::filesystem::path& out);

struct WriteOptions : PortOptions {
  std::filesystem::path template_file;
  int gap_milliseconds = 0;
};
int WriteCommand(const WriteOptions& options, const std::filesystem::path& file);
int DryRunCommand(const WriteOptions& options, const std::filesystem::path& file);

}  // namespace qz7
