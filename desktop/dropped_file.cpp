#include "desktop/dropped_file.h"

#include <algorithm>
#include <array>
#include <utility>

#include "core/files/paths.h"

namespace qz7 {
namespace {

// With its point; empty for a name without one. A template may be called ".tpl" alone.
std::filesystem::path EndOf(const std::filesystem::path& path) {
  const auto name = NamePart(path).native();
  const std::size_t point = name.rfind('.');
  return point == name.npos ? "" : std::filesystem::path(name.substr(point));
}

}  // namespace

DroppedKind KindOfDropped(const std::filesystem::path& path) {
  static constexpr std::array<std::pair<const char*, DroppedKind>, 6> kKinds = {{
      {".rdf", DroppedKind::kRadioFile},
      {".csv", DroppedKind::kList},
      {".txt", DroppedKind::kList},
      {".rd", DroppedKind::kList},
      {".tpe", DroppedKind::kList},
      {".tpl", DroppedKind::kTemplate},
  }};
  const std::filesystem::path end = EndOf(path);
  const auto kind = std::find_if(kKinds.begin(), kKinds.end(),
                                 [&](const auto& one) { return SamePath(one.first, end); });
  return kind == kKinds.end() ? DroppedKind::kOther : kind->second;
}

}  // namespace qz7
