#pragma once

#include <span>

#include "core/files/document.h"

namespace qz7 {

// A command of the main menu, or several that one function serves.
struct Command {
  int id;
  bool collects_first;  // the main dialog's controls go into the document before it runs
  void (*run)(int id);
  int count = 1;  // of ids, from `id` on
};

// Runs the command of this id; false for an id that is none.
bool RunCommand(std::span<const Command> commands, Document& document, int id);

}  // namespace qz7
