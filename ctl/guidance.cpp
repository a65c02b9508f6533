#include "ctl/guidance.h"

#include <algorithm>
#include <iostream>
#include <numeric>
#include <utility>

#include "ctl/console.h"

namespace qz7 {
namespace {

constexpr std::pair<const char*, const char*> kExamples[] = {
    {"new", "qz7ctl new memory.rdf"},
    {"info", "qz7ctl info memory.rdf"},
    {"rows", "qz7ctl rows memory.rdf"},
    {"list", "qz7ctl list memory.rdf | less"},
    {"show", "qz7ctl show memory.rdf 12"},
    {"diff", "qz7ctl diff before.rdf after.rdf"},
    {"set", "qz7ctl set memory.rdf memory.rdf 5 rx=145.5 name=CALL"},
    {"move", "qz7ctl move memory.rdf memory.rdf up 5"},
    {"export", "qz7ctl export memory.rdf memory.csv"},
    {"import", "qz7ctl import memory.rdf directory.csv memory.rdf --columns auto"},
    {"merge", "qz7ctl merge memory.rdf club.rdf memory.rdf --ham-only"},
    {"dump", "qz7ctl dump memory.rdf memory.json"},
    {"build", "qz7ctl build memory.json memory.rdf"},
    {"apply", "qz7ctl apply memory.rdf changes.json memory.rdf"},
    {"ports", "qz7ctl ports"},
    {"read", "qz7ctl read --port /dev/ttyUSB0 memory.rdf"},
    {"template", "qz7ctl template --port /dev/ttyUSB0 my-radio.tpl"},
    {"write", "qz7ctl write --port /dev/ttyUSB0 --template my-radio.tpl memory.rdf"},
    {"help", "qz7ctl help import"},
};

// How many letters must be changed, put in, left out or swapped with their neighbour.
std::size_t Distance(const std::string& a, const std::string& b) {
  std::vector<std::vector<std::size_t>> rows(a.size() + 1, std::vector<std::size_t>(b.size() + 1));
  std::iota(rows[0].begin(), rows[0].end(), std::size_t{0});
  for (std::size_t i = 1; i <= a.size(); ++i) {
    rows[i][0] = i;
    for (std::size_t k = 1; k <= b.size(); ++k) {
      const std::size_t change = rows[i - 1][k - 1] + (a[i - 1] == b[k - 1] ? 0 : 1);
      rows[i][k] = std::min({rows[i - 1][k] + 1, rows[i][k - 1] + 1, change});
      if (i > 1 && k > 1 && a[i - 1] == b[k - 2] && a[i - 2] == b[k - 1]) {
        rows[i][k] = std::min(rows[i][k], rows[i - 2][k - 2] + 1);
      }
    }
  }
  return rows[a.size()][b.size()];
}

}  // namespace

std::vector<std::string> CommandNames(const CLI::App& program) {
  std::vector<std::string> names;
  for (const CLI::App* sub : program.get_subcommands([](const CLI::App*) { return true; })) {
    if (!sub->get_group().empty()) {
      names.push_back(sub->get_name());
    }
  }
  return names;
}

const CLI::App* FindCommand(const CLI::App& program, const std::string& name) {
  const auto found = program.get_subcommands(
      [&](const CLI::App* sub) { return !sub->get_group().empty() && sub->get_name() == name; });
  return found.empty() ? nullptr : found.front();
}

std::string NoSuchCommand(const CLI::App& program, const std::string& name) {
  constexpr std::size_t kLongestName = 40;
  const std::vector<std::string> names = CommandNames(program);
  const std::string wrong = name.substr(0, kLongestName);
  const auto nearest =
      std::min_element(names.begin(), names.end(), [&](const std::string& a, const std::string& b) {
        return Distance(wrong, a) < Distance(wrong, b);
      });
  const std::string text = "there is no command \"" + name + "\"";
  // Where as good as every letter differs, nothing like it was meant.
  const bool similar = 2 * Distance(wrong, *nearest) <= wrong.size() + 1;
  return similar ? text + "; do you mean \"" + *nearest + "\"?" : text;
}

void AddExamples(CLI::App& program) {
  for (const auto& [command, example] : kExamples) {
    program.get_subcommand(command)->footer(std::string("Example:\n  ") + example);
  }
}

int HelpCommand(const CLI::App& program, const std::string& command) {
  if (command.empty()) {
    // Not program.help(), which is that of the command that was parsed.
    std::cout << program.get_formatter()->make_help(&program, program.get_name(),
                                                    CLI::AppFormatMode::Normal);
    return kDone;
  }
  const CLI::App* sub = FindCommand(program, command);
  if (sub == nullptr) {
    std::cerr << "qz7ctl: " << NoSuchCommand(program, command) << '\n';
    return kWrongUsage;
  }
  std::cout << sub->help(program.get_name());
  return kDone;
}

}  // namespace qz7
