#pragma once

#include <functional>

#include "core/files/document.h"
#include "core/link/serial_port.h"

namespace qz7 {

// Reads the radio into a new document: the question about changes, New, a port, the exchange on the
// working copy. False when the user or the exchange gave up; from New on the document is a new one
// then. `exchange` fills the working copy and returns whether it succeeded.
bool ReadRadioIntoDocument(Document& document, SerialPort& port,
                           const std::function<bool()>& exchange);

// Sends a copy of the document, which stays as it is; `exchange` sends the working copy.
bool SendDocumentToRadio(Document& document, SerialPort& port,
                         const std::function<bool()>& exchange);

}  // namespace qz7
