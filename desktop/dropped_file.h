#pragma once

#include <filesystem>

namespace qz7 {

// What a file that is dropped on the main window is taken for, by the end of its name in letters of
// either case.
enum class DroppedKind {
  kRadioFile,  // .rdf
  kList,       // .csv, .txt, .rd, .tpe
  kTemplate,   // .tpl
  kOther
};
DroppedKind KindOfDropped(const std::filesystem::path& path);

}  // namespace qz7
