#pragma once

#include <functional>

#include "core/image/clone_image.h"
#include "core/link/clone_read.h"
#include "core/link/clone_write.h"

namespace qz7 {

// What a program does with the radio at an open port, whoever runs the exchange that it begins: a
// dialog or the console program's loop. True on success; a failure has been told.
using RunRead = std::function<bool(CloneRead&)>;
using RunWrite = std::function<bool(CloneWrite&)>;

// Reads the radio into a document's image; its channel names go into the table too. After a failure
// the image is to be discarded.
bool ReadRadio(CloneImage& image, SerialPort& port, const RunRead& run);

// The same, but first the image is written as a template: the names of unprogrammed channels do not
// go into that.
bool ReadRadioIntoTemplate(CloneImage& image, SerialPort& port, const RunRead& run,
                           const std::function<bool(CloneImage&)>& write_template);

// Sends the image's block; its operating state is refreshed for that.
bool SendToRadio(CloneImage& image, SerialPort& port, const RunWrite& run);

}  // namespace qz7
