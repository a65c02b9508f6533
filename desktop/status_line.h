#pragma once

#include <string>

#include "core/files/document.h"
#include "core/interchange/import_selection.h"
#include "core/link/serial_port.h"

namespace qz7 {

// What the lower edge of the main window says: what the last command did, if `note` tells, then
// where things are. `shown` is the document's image with what the main dialog's controls hold.
std::string StatusText(const Document& document, const CloneImage& shown, const SerialPort& port,
                       const std::string& note);

// "16 channels imported to 2-17, not saved"
std::string ImportedNote(const PlacedChannels& placed);

// "8122 bytes read from COM1", for "read from"; how many channels that is stands behind it.
std::string TransferredNote(const char* how, const Document& document);

// What came of dropped files, of which only the first counts, from what came of that.
std::string DroppedNote(const std::string& note, std::size_t files);

}  // namespace qz7
