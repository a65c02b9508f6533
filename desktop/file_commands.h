#pragma once

#include "core/files/document.h"

namespace qz7 {

// File, New: asks about changes first.
void StartNewFile(Document& document);

// File, Open: afterwards the channels are converted where the image is from a radio of another
// version than the program's region, whether or not a file was opened.
void OpenRadioFile(Document& document);

// File, Export, of what the main dialog was collected into: marks the document as changed, whether
// or not a file is written. Returns whether one is.
bool ExportChannels(Document& document);

}  // namespace qz7
