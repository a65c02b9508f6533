#pragma once

#include <functional>
#include <span>

#include "core/files/document.h"

namespace qz7 {

// Ctrl and a letter, with Shift or without; a letter of 0 is no key.
struct CommandKey {
  char letter = 0;
  bool shift = false;
};

// A command of the main menu, or several that one function serves.
struct Command {
  int id;
  bool collects_first;  // the main dialog's controls go into the document before it runs
  void (*run)(int id);
  CommandKey key = {};
  int count = 1;  // of ids, from `id` on
};

// Runs work on the document that is done whole or, when it throws, not at all: the document is then
// as it was, what the main window shows too, and the message has been shown. False in that case.
bool RunWhole(Document& document, const std::function<void()>& work);

// Runs the command of this id, whole; false for an id that is none.
bool RunCommand(std::span<const Command> commands, Document& document, int id);

}  // namespace qz7
