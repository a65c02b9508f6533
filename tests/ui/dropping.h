#pragma once

#include <windows.h>
// Behind <windows.h>.
#include <shlobj.h>

#include <cstring>
#include <filesystem>
#include <string>
#include <vector>

#include "desktop/app_state.h"

namespace qz7 {

// Files as the system hands them over when they are dropped.
inline HGLOBAL MakeDrop(const std::vector<std::filesystem::path>& files) {
  std::wstring names;
  for (const std::filesystem::path& file : files) {
    names.append(file.native()).push_back(L'\0');
  }
  names.push_back(L'\0');
  const std::size_t size = names.size() * sizeof(wchar_t);
  const HGLOBAL memory = GlobalAlloc(GMEM_MOVEABLE | GMEM_ZEROINIT, sizeof(DROPFILES) + size);
  auto* drop = static_cast<DROPFILES*>(GlobalLock(memory));
  drop->pFiles = sizeof(DROPFILES);
  drop->fWide = TRUE;
  std::memcpy(drop + 1, names.data(), size);
  GlobalUnlock(memory);
  return memory;
}

// What is dropped belongs to the window.
inline void PostDrop(HGLOBAL drop) {
  PostMessageA(app.main_window, WM_DROPFILES, reinterpret_cast<WPARAM>(drop), 0);
}

}  // namespace qz7
