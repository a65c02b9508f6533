#pragma once

#include <filesystem>

#include "core/files/document.h"

namespace qz7 {

// File, New: asks about changes first.
void StartNewFile(Document& document);

// File, Open: asks about changes first. Afterwards the channels are converted where the image is
// from a radio of another version than the program's region, whether or not a file was opened.
// Returns whether one was.
bool OpenRadioFile(Document& document);
// The same for a file that was dropped on the window.
bool OpenRadioFile(Document& document, const std::filesystem::path& dropped);

// Makes a file the template when the user says so; one that cannot be used is refused before. False
// when the template stays what it was.
bool TakeTemplate(Preferences& preferences, const std::filesystem::path& path);

// File, Export, of what the main dialog was collected into: marks the document as changed, whether
// or not a file is written. Returns whether one is.
bool ExportChannels(Document& document);

}  // namespace qz7
