#include "core/link/radio_commands.h"

#include "core/link/port_setup.h"

namespace qz7 {
namespace {

bool EnsurePort(Document& document, SerialPort& port) {
  return port.IsOpen() || SetUpPort(port, document.preferences);
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
