#include "core/interchange/codeplug_other.h"

#include <algorithm>
#include <array>
#include <string_view>

#include "core/files/document_header.h"

namespace qz7 {
namespace {

constexpr std::string_view kHexDigits = "0123456789abcdef";
constexpr std::size_t kRowSize = 32;

std::optional<int> HexDigit(char c) {
  const char lower = c >= 'A' && c <= 'F' ? static_cast<char>(c - 'A' + 'a') : c;
  const std::size_t digit = kHexDigits.find(lower);
  return digit != std::string_view::npos ? std::optional(static_cast<int>(digit)) : std::nullopt;
}

// A number inside the image, without leading zeros.
std::optional<std::size_t> ParseOffset(const std::string& text) {
  const bool digits =
      !text.empty() && text.size() <= 5 &&
      std::all_of(text.begin(), text.end(), [](char c) { return c >= '0' && c <= '9'; });
  const std::size_t offset = digits ? std::stoul(text) : kCloneImageSize;
  const bool good = offset < kCloneImageSize && std::to_string(offset) == text;
  return good ? std::optional(offset) : std::nullopt;
}

// Why these bytes cannot be put there; nothing where they can.
std::string Refusal(std::size_t offset, std::size_t size) {
  if (size > kCloneImageSize - offset) {
    return "it reaches behind the end of the document";
  }
  for (std::size_t at = offset; at < offset + size; ++at) {
    if (!IsOtherByte(at)) {
      return "byte " + std::to_string(at) + " is made anew by every save";
    }
  }
  return {};
}

}  // namespace

std::string HexText(std::span<const std::uint8_t> bytes) {
  std::string text;
  for (const std::uint8_t byte : bytes) {
    text += kHexDigits[byte >> 4];
    text += kHexDigits[byte & 0x0F];
  }
  return text;
}

std::optional<std::vector<std::uint8_t>> ParseHex(const std::string& text) {
  std::vector<std::uint8_t> bytes;
  if (text.size() % 2 != 0) {
    return std::nullopt;
  }
  for (std::size_t i = 0; i < text.size(); i += 2) {
    const std::optional<int> high = HexDigit(text[i]);
    const std::optional<int> low = HexDigit(text[i + 1]);
    if (!high || !low) {
      return std::nullopt;
    }
    bytes.push_back(static_cast<std::uint8_t>(*high << 4 | *low));
  }
  return bytes;
}

std::string HexRefusal(std::size_t bytes) {
  return std::to_string(2 * bytes) + " hexadecimal digits are wanted";
}

bool IsOtherByte(std::size_t offset) {
  constexpr std::array<Region, 4> kOwn = {
      Region{.offset = kVersionOffset, .size = 4},
      Region{.offset = kRadioName.offset, .size = kRadioName.size},
      Region{.offset = kSummarySizeOffset, .size = kBlockChecksumOffset - kSummarySizeOffset},
      Region{.offset = kFileComment.offset, .size = kFileComment.size}};
  return offset >= kRadioBlock.offset || std::any_of(kOwn.begin(), kOwn.end(), [=](Region region) {
           return offset >= region.offset && offset < region.end();
         });
}

ValueTree DumpOther(const CloneImage& image, const std::vector<bool>& marked) {
  ValueTree other = NoMembers();
  for (std::size_t at = 0; at < image.size();) {
    const std::size_t start = at;
    while (at < image.size() && marked[at] && (at == start || at % kRowSize != 0)) {
      ++at;
    }
    if (at > start) {
      AddMember(other, std::to_string(start),
                TextValue(HexText(std::span(image).subspan(start, at - start))));
    } else {
      ++at;
    }
  }
  return other;
}

void BuildOther(const ValueTree& other, CloneImage& image, std::vector<std::string>& errors) {
  if (!HasMembers(other, kOtherName, errors)) {
    return;
  }
  for (const auto& [name, value] : other.members) {
    const std::string place = std::string(kOtherName) + "/" + name;
    const std::optional<std::size_t> offset = ParseOffset(name);
    if (!offset) {
      TellError(errors, place, "this is no place in the document");
      continue;
    }
    if (!IsText(value, place, errors)) {
      continue;
    }
    const auto bytes = ParseHex(value.text);
    const std::string refusal =
        bytes ? Refusal(*offset, bytes->size()) : "pairs of hexadecimal digits are wanted";
    if (refusal.empty()) {
      std::copy(bytes->begin(), bytes->end(), image.begin() + static_cast<std::ptrdiff_t>(*offset));
    } else {
      TellError(errors, place, refusal);
    }
  }
}

bool OtherCovers(const ValueTree& other, std::size_t offset) {
  return std::any_of(other.members.begin(), other.members.end(), [=](const auto& member) {
    const std::optional<std::size_t> start = ParseOffset(member.name);
    return start && *start <= offset && offset - *start < member.value.text.size() / 2;
  });
}

void TellError(std::vector<std::string>& errors, const std::string& place,
               const std::string& reason) {
  errors.push_back(place + ": " + reason);
}

bool IsText(const ValueTree& value, const std::string& place, std::vector<std::string>& errors) {
  if (value.kind != ValueTree::Kind::kText) {
    TellError(errors, place, "a text is wanted");
  }
  return value.kind == ValueTree::Kind::kText;
}

bool HasMembers(const ValueTree& value, const std::string& place,
                std::vector<std::string>& errors) {
  if (value.kind != ValueTree::Kind::kMembers) {
    TellError(errors, place, "an object is wanted");
  }
  return value.kind == ValueTree::Kind::kMembers;
}

}  // namespace qz7
