#pragma once

#include <string>
#include <vector>

#include "core/image/clone_image.h"
#include "core/image/region_variant.h"

namespace qz7 {

struct Difference {
  std::string what;   // "channel 12", "Lamp", "byte 10300"
  std::string field;  // of a channel
  std::string a;      // empty where there is nothing to set against `b`
  std::string b;
  bool texts = false;  // the values are texts, and stand in quotation marks on a line
};
// "channel 12: tone "88.5" -> "100.0""
std::string DifferenceLine(const Difference& difference);

// What differs between two documents: the file comment, the channels field by field
// with their comments, the groups by the labels of their channels, WX names, autodial numbers, the
// settings by name, the operating state in one line, and what no line has told of the radio block's
// other bytes by their image offset. Checksums, filler and the derived tables do not count: a save
// makes them anew.
std::vector<Difference> CompareDocuments(const CloneImage& a, const CloneImage& b,
                                         const RegionVariant& region);
// The same, a line each.
std::vector<std::string> DocumentDifferences(const CloneImage& a, const CloneImage& b,
                                             const RegionVariant& region);

// The lines for the radio's own memory alone: no file comment, no channel comments.
std::vector<std::string> RadioDifferences(const CloneImage& a, const CloneImage& b,
                                          const RegionVariant& region);

}  // namespace qz7
