#include "core/link/radio_commands.h"

#include "core/link/port_setup.h"

namespace qz7 {
namespace {

// A port that went away during an exchange is opened anew, or it is said why not; the user chooses
// where there is none.
bool EnsurePort(Document& document, SerialPort& port) {
  return port.IsOpen() ||
         (port.IsLost() && OpenChosenPort(port, document.preferences.port_index)) ||
         SetUpPort(port, document.preferences);
}

}  // namespace

bool ReadRadioIntoDocument(Document& document, SerialPort& port,
                           const std::function<bool()>& exchange) {
  if (!AskSaveChanges(document)) {
    return false;
  }
  NewDocument(document);
  if (!EnsurePort(document, port)) {
    return false;
  }
  BeginWorkingCopy(document);
  if (!exchange()) {
    return false;
  }
  TakeRadioImage(document);
  return true;
}

bool SendDocumentToRadio(Document& document, SerialPort& port,
                         const std::function<bool()>& exchange) {
  BeginWorkingCopy(document);
  return EnsurePort(document, port) && exchange();
}

}  // namespace qz7
