#pragma once

#include <CLI/CLI.hpp>
#include <string>
#include <vector>

namespace qz7 {

// What a shell offers behind these words of the command line, of which the last one is being
// typed: words, and ":files" where a file is named. They come from the program's own commands and
// options; the shell takes those that begin as the last word does.
std::vector<std::string> Candidates(const CLI::App& program, const std::vector<std::string>& words);

// The script with which "bash", "zsh" or "fish" asks for them; empty for another shell.
std::string CompletionScript(const std::string& shell);

}  // namespace qz7
