#pragma once

#include <windows.h>

namespace qz7 {

// A function of one of the system's libraries that the first picture does without: loaded at its
// first use, by its full path, so that no other folder is looked into. Null where there is none.
FARPROC FindSystemFunction(const char* library, const char* name);

template <class Function>
Function SystemFunction(const char* library, const char* name) {
  // NOLINTNEXTLINE(bugprone-casting-through-void): what the system returns has no type
  return reinterpret_cast<Function>(reinterpret_cast<void*>(FindSystemFunction(library, name)));
}

}  // namespace qz7
