#include "core/link/radio_transfer.h"

#include "core/image/derived_tables.h"

namespace qz7 {
namespace {

bool Receive(CloneImage& image, SerialPort& port, const RunRead& run) {
  CloneRead read;
  BeginCloneRead(read, port, RadioBlockOf(image));
  return run(read);
}

}  // namespace

bool ReadRadio(CloneImage& image, SerialPort& port, const RunRead& run) {
  if (!Receive(image, port, run)) {
    return false;
  }
  CopyNamesToTable(image);
  return true;
}

bool ReadRadioIntoTemplate(CloneImage& image, SerialPort& port, const RunRead& run,
                           const std::function<bool(CloneImage&)>& write_template) {
  if (!Receive(image, port, run) || !write_template(image)) {
    return false;
  }
  CopyNamesToTable(image);
  return true;
}

bool SendToRadio(CloneImage& image, SerialPort& port, const RunWrite& run) {
  CloneWrite write;
  BeginCloneWrite(write, port, image);
  return run(write);
}

}  // namespace qz7
