#include "editors/autodial.h"

#include <algorithm>

#include "image/settings_map.h"

namespace qz7 {

std::string DecodeDtmf(std::span<const std::uint8_t> codes, DtmfDisplay display) {
  const char* characters =
      display == DtmfDisplay::kSymbols ? "0123456789ABCD*#" : "0123456789ABCDEF";
  std::string digits;
  for (const std::uint8_t code : codes.first(std::min(codes.size(), kCodeTextLength))) {
    if (code == kTextEnd) {
      break;
    }
    digits += characters[code & 0x0F];
  }
  return digits;
}

std::string FormatAutodialNumber(const std::string& digits) {
  switch (digits.size()) {
    case 7:
      return digits.substr(0, 3) + "-" + digits.substr(3);
    case 11:
      return digits.substr(0, 1) + "-" + digits.substr(1, 3) + "-" + digits.substr(4, 3) + "-" +
             digits.substr(7);
    default:
      return digits;
  }
}

std::string AutodialText(const CloneImage& image, int n, DtmfDisplay display) {
  const std::size_t offset = kAutodial.offset + static_cast<std::size_t>(n) * kCodeTextLength;
  return FormatAutodialNumber(
      DecodeDtmf(std::span(image).subspan(offset, kCodeTextLength), display));
}

}  // namespace qz7
