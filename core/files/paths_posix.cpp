#include <algorithm>

#include "core/files/paths.h"

namespace qz7 {
namespace {

char LowerCase(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

}  // namespace

bool SamePath(const std::filesystem::path& a, const std::filesystem::path& b) {
  return std::equal(a.native().begin(), a.native().end(), b.native().begin(), b.native().end(),
                    [](char x, char y) { return LowerCase(x) == LowerCase(y); });
}

std::filesystem::path SystemPath(const std::filesystem::path& path) { return path; }

}  // namespace qz7
