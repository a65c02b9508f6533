#include "core/files/unexpected.h"

#include <exception>
#include <new>
#include <string>

#include "core/files/seams.h"

namespace qz7 {
namespace {

// Made while there is memory for them.
const std::string kCaption = kProgramTitle;
const std::string kOutOfMemory = "Out of memory";
const std::string kUnknown = "Unexpected error";

void Show(const std::string& text) { ShowMessage(text, kCaption, Buttons::kOk, Icon::kStop); }

void ShowCaught() {
  try {
    throw;
  } catch (const std::bad_alloc&) {
    Show(kOutOfMemory);
  } catch (const std::exception& error) {
    Show(error.what());
  } catch (...) {
    Show(kUnknown);
  }
}

}  // namespace

void ShowUnexpected() noexcept {
  try {
    ShowCaught();
  } catch (...) {
    // There is no memory for the box either.
    return;
  }
}

}  // namespace qz7
