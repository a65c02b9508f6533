#pragma once

#include <CLI/CLI.hpp>
#include <string>
#include <vector>

namespace qz7 {

// The commands that the help lists, in its order.
std::vector<std::string> CommandNames(const CLI::App& program);

// The command of that name, or null.
const CLI::App* FindCommand(const CLI::App& program, const std::string& name);

// `there is no command "shwo"; do you mean "show"?`
std::string NoSuchCommand(const CLI::App& program, const std::string& name);

// Puts an example at the end of each command's help.
void AddExamples(CLI::App& program);

// `help COMMAND`: the same as `COMMAND --help`.
int HelpCommand(const CLI::App& program, const std::string& command);

}  // namespace qz7
