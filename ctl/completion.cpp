#include "ctl/completion.h"

#include <algorithm>

#include "core/interchange/codeplug_slots.h"
#include "core/link/serial_port.h"
#include "ctl/guidance.h"

namespace qz7 {
namespace {

constexpr const char* kFiles = ":files";

constexpr const char* kBash = R"(# qz7ctl's own answers for bash; made by "qz7ctl completion bash".
_qz7ctl() {
  local line word=${COMP_WORDS[COMP_CWORD]}
  COMPREPLY=()
  while IFS= read -r line; do
    if [[ $line == :files ]]; then
      compopt -o filenames 2>/dev/null
      while IFS= read -r line; do COMPREPLY+=("$line"); done < <(compgen -f -- "$word")
    elif [[ $line == "$word"* ]]; then
      [[ $line == *= ]] && compopt -o nospace 2>/dev/null
      COMPREPLY+=("$line")
    fi
  done < <("${COMP_WORDS[0]}" completion words -- "${COMP_WORDS[@]:1:COMP_CWORD}" 2>/dev/null)
}
complete -F _qz7ctl qz7ctl
)";

constexpr const char* kZsh = R"(#compdef qz7ctl
# qz7ctl's own answers for zsh; made by "qz7ctl completion zsh".
local line
for line in "${(@f)$(${words[1]} completion words -- "${(@)words[2,CURRENT]}" 2>/dev/null)}"; do
  case $line in
    :files) _files ;;
    *=) compadd -S '' -- "$line" ;;
    ?*) compadd -- "$line" ;;
  esac
done
)";

constexpr const char* kFish = R"(# qz7ctl's own answers for fish; made by "qz7ctl completion fish".
function __qz7ctl_candidates
  set -l words (commandline -opc)
  set -l current (commandline -ct)
  set -l program $words[1]
  set -e words[1]
  for line in (command $program completion words -- $words "$current" 2>/dev/null)
    if test "$line" = ":files"
      __fish_complete_path "$current"
    else
      echo $line
    end
  end
end
complete -c qz7ctl -f -a '(__qz7ctl_candidates)'
)";

using Words = std::vector<std::string>;

// What a value can be that is no file, by the name that the help gives it. What is not listed here
// is a file if its name is one in capitals, and otherwise nothing that could be offered.
Words Values(const CLI::App& program, const std::string& name) {
  Words words;
  if (name == "PORT") {
    for (const PortInfo& port : ListSerialPorts()) {
      words.push_back(port.name);
    }
  } else if (name == "field=value") {
    for (const FieldForm& field : ChannelFieldForms()) {
      words.push_back(field.name + "=");
    }
  } else if (name == "COMMAND") {
    return CommandNames(program);
  } else if (name == "HOW") {
    return {"up", "down", "clear", "delete", "insert"};
  } else if (name.find("FILE") != std::string::npos || name.find('.') != std::string::npos ||
             name == "A" || name == "B" || name == "LIST" || name == "SOURCE") {
    return {kFiles};
  }
  return words;
}

bool TakesValue(const CLI::Option* option) { return option->get_expected_min() > 0; }

const CLI::Option* OptionNamed(const CLI::App& command, const std::string& word) {
  return word.starts_with("-") ? command.get_option_no_throw(word) : nullptr;
}

std::vector<const CLI::Option*> Positionals(const CLI::App& command) {
  return command.get_options([](const CLI::Option* option) { return option->get_positional(); });
}

// The options that have not been given yet.
Words OptionNames(const CLI::App& command, const Words& words) {
  Words names;
  for (const CLI::Option* option : command.get_options()) {
    for (const std::string& name : option->get_lnames()) {
      if (std::find(words.begin(), words.end(), "--" + name) == words.end()) {
        names.push_back("--" + name);
      }
    }
  }
  return names;
}

// The place among the positional arguments of the word behind these.
std::size_t PlaceBehind(const CLI::App& command, const Words& words) {
  std::size_t place = 0;
  for (std::size_t i = 1; i < words.size(); ++i) {
    const CLI::Option* option = OptionNamed(command, words[i]);
    if (option != nullptr && TakesValue(option)) {
      ++i;
    } else if (!words[i].starts_with("--")) {
      ++place;
    }
  }
  return place;
}

}  // namespace

std::vector<std::string> Candidates(const CLI::App& program,
                                    const std::vector<std::string>& words) {
  if (words.size() < 2) {
    Words names = CommandNames(program);
    names.insert(names.end(), {"--help", "--version"});
    return names;
  }
  const CLI::App* command = FindCommand(program, words.front());
  if (command == nullptr) {
    return {};
  }
  const Words before(words.begin(), words.end() - 1);
  const CLI::Option* option = OptionNamed(*command, before.back());
  if (option != nullptr && TakesValue(option)) {
    return Values(program, option->get_type_name());
  }
  if (words.back().starts_with("-")) {
    return OptionNames(*command, before);
  }
  const std::vector<const CLI::Option*> positionals = Positionals(*command);
  const std::size_t place = PlaceBehind(*command, before);
  const bool several = !positionals.empty() && positionals.back()->get_expected_max() > 1;
  if (place >= positionals.size() && !several) {
    return OptionNames(*command, before);
  }
  const std::size_t last = positionals.size() - 1;
  return Values(program, positionals[std::min(place, last)]->get_name(true));
}

std::string CompletionScript(const std::string& shell) {
  if (shell == "bash") {
    return kBash;
  }
  if (shell == "zsh") {
    return kZsh;
  }
  return shell == "fish" ? kFish : "";
}

}  // namespace qz7
