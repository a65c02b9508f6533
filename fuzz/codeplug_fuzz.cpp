// A codeplug's JSON with arbitrary bytes, behind a byte of options: made into a document, or laid
// over one. What is taken comes back as the same JSON, and makes the same document again.

#include <algorithm>
#include <span>
#include <string>

#include "core/interchange/codeplug.h"
#include "ctl/codeplug_json.h"
#include "fuzz/fuzz_seams.h"

namespace qz7 {
namespace {

ReadTree Parse(const std::string& json) {
  return ParseTree({reinterpret_cast<const std::uint8_t*>(json.data()), json.size()});
}

bool SameFrom(std::size_t place, std::size_t end, const CloneImage& a, const CloneImage& b) {
  const auto at = [](std::size_t offset) { return static_cast<std::ptrdiff_t>(offset); };
  return std::equal(a.begin() + at(place), a.begin() + at(end), b.begin() + at(place));
}

void CheckJson(const ReadTree& read, bool ascii) {
  const std::string json = JsonOf(read.tree, ascii);
  const ReadTree again = Parse(json);
  Check(again.errors.empty() && JsonOf(again.tree, ascii) == json);
}

// The tables between and behind these are derived, and made anew by a save.
void CheckDocument(const CloneImage& image, const RegionVariant& region) {
  static CloneImage made;
  made = NewImage();
  const ReadTree read = Parse(JsonOf(DumpCodeplug(image, region), false));
  Check(read.errors.empty() && BuildCodeplug(read.tree, made, region).empty());
  Check(SameFrom(kRadioBlock.offset, kNameTable.offset, image, made));
  Check(SameFrom(kComments.offset, kComments.end(), image, made));
}

}  // namespace
}  // namespace qz7

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace qz7;
  FuzzInput input(data, size);
  const int flags = input.Byte();
  const RegionVariant region{.variant = static_cast<Variant>((flags >> 2) % 3),
                             .sub_variant = flags >> 4 & 7,
                             .extended_version = (flags & 0x80) != 0};
  const ReadTree read = ParseTree(std::span(data, size).subspan(std::min<std::size_t>(size, 1)));
  if (!read.is_json) {
    Check(!read.errors.empty());
    return 0;
  }
  CheckJson(read, (flags & 2) != 0);
  static CloneImage image;
  image = NewImage();
  const auto refusals = (flags & 1) != 0 ? ApplyToCodeplug(image, read.tree, region)
                                         : BuildCodeplug(read.tree, image, region);
  if (refusals.empty()) {
    CheckDocument(image, region);
  }
  return 0;
}
