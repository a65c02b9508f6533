#pragma once

#include <windows.h>
// Behind <windows.h>.
#include <commdlg.h>

#include <filesystem>
#include <optional>
#include <string>

#include "core/files/seams.h"

namespace qz7 {

enum class FileBoxKind { kOpen, kSave };

// A file box as the system takes it. The texts that `open` points at are its own, so it stays where
// it was made.
struct SystemFileBox {
  SystemFileBox(const FileBox& box, FileBoxKind kind, HWND owner);
  SystemFileBox(const SystemFileBox&) = delete;
  SystemFileBox& operator=(const SystemFileBox&) = delete;

  // What the user has chosen, once the system has shown the box.
  ChosenFile Chosen() const;

  std::wstring filter;
  std::filesystem::path asked_folder;
  std::wstring folder;  // the same one, under a name that the box takes
  std::wstring title;
  std::wstring extension;
  std::wstring path;  // room for any
  std::wstring name;
  OPENFILENAMEW open{};
};

}  // namespace qz7
