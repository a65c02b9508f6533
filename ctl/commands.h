#pragma once

#include <string>

namespace qz7 {

// Each command returns the program's exit status. What is wrong has been told on standard error.

int NewCommand(const std::string& out);
int InfoCommand(const std::string& file, bool json);
int RowsCommand(const std::string& file);
int ListCommand(const std::string& file);
int ShowCommand(const std::string& file, int n);
int DiffCommand(const std::string& a, const std::string& b);

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
