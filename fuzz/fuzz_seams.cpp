#include "fuzz/fuzz_seams.h"

#include "core/files/new_document.h"
#include "core/image/derived_tables.h"

namespace qz7 {

Answer ShowMessage(const std::string& /*text*/, const std::string& /*caption*/, Buttons buttons,
                   Icon /*icon*/) {
  return buttons == Buttons::kOk ? Answer::kOk : Answer::kCancel;
}

std::string PathText(const std::filesystem::path& path) { return path.string(); }

std::string ShownText(std::string_view bytes) { return std::string(bytes); }

std::uint32_t CurrentTimeSeconds() { return 1; }

const CloneImage& NewImage() {
  static const CloneImage made = [] {
    CloneImage image;
    MakeNewImage(image);
    RebuildDerivedTables(image);
    return image;
  }();
  return made;
}

}  // namespace qz7

// Freed memory is kept from being used again for so long as it stays in the caches.
// The sanitizer asks by this name.
// NOLINTNEXTLINE(bugprone-reserved-identifier,readability-identifier-naming)
extern "C" const char* __asan_default_options() {
  return "quarantine_size_mb=4:malloc_context_size=12";
}
