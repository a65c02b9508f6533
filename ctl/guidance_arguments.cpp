#include <iostream>

#include "ctl/arguments.h"
#include "ctl/completion.h"
#include "ctl/console.h"
#include "ctl/guidance.h"

namespace qz7 {
namespace {

void AddHelp(CLI::App& program, Arguments& args) {
  CLI::App* sub = program.add_subcommand("help", "explains a command");
  sub->add_option("COMMAND", args.how, "the command to explain; all of them if not told");
  sub->callback([&] { args.run = [&] { return HelpCommand(program, args.how); }; });
}

// For the shells, not for people: a hidden command. "words" asks for what can come next.
void AddCompletion(CLI::App& program, Arguments& args) {
  CLI::App* sub = program.add_subcommand("completion", "prints the completion script of a shell");
  sub->group("");
  sub->add_option("SHELL", args.how, "bash, zsh, fish, or words")
      ->required()
      ->check(CLI::IsMember({"bash", "zsh", "fish", "words"}));
  sub->add_option("WORD", args.values, "with words: what has been typed behind the program's name");
  sub->callback([&] {
    args.run = [&] {
      std::cout << CompletionScript(args.how);
      if (args.how == "words") {
        for (const std::string& word : Candidates(program, args.values)) {
          std::cout << word << '\n';
        }
      }
      return kDone;
    };
  });
}

}  // namespace

void AddGuidance(CLI::App& program, Arguments& args) {
  AddHelp(program, args);
  AddCompletion(program, args);
  AddExamples(program);
}

}  // namespace qz7
