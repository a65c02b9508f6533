#include <cstdio>
#include <string>

#include "core/files/seams.h"

// What the core asks of its program, for those that only measure.
namespace qz7 {

Answer ShowMessage(const std::string& text, const std::string& /*caption*/, Buttons /*buttons*/,
                   Icon /*icon*/) {
  std::fprintf(stderr, "%s\n", text.c_str());
  return Answer::kCancel;
}

std::string PathText(const std::filesystem::path& path) { return path.string(); }

std::string ShownText(std::string_view bytes) { return std::string(bytes); }

std::uint32_t CurrentTimeSeconds() { return 1; }

}  // namespace qz7
