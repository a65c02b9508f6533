#include "core/editors/list_find.h"

#include <algorithm>

#include "core/image/channel_record.h"
#include "core/image/channel_text.h"
#include "core/image/decimal.h"
#include "core/image/text_codec.h"
#include "core/image/typed_text.h"

namespace qz7 {
namespace {

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

int RowCount(const CloneImage& image) { return std::min(GetChannelCount(image), kChannelCount); }

// The first row for which it is true, from `first` on and then from the top.
template <typename Matches>
std::optional<int> FirstRow(const CloneImage& image, int first, Matches matches) {
  const int count = RowCount(image);
  for (int i = 0; i < count; ++i) {
    const int row = (std::max(0, first) + i) % count;
    if (matches(row + 1)) {
      return row;
    }
  }
  return std::nullopt;
}

std::optional<int> RowOfNumber(const CloneImage& image, std::string_view digits) {
  const int n = DecimalValue(digits);
  return n >= 1 && n <= RowCount(image) ? std::optional(n - 1) : std::nullopt;
}

std::optional<int> RowOfText(const CloneImage& image, const std::string& start, int first) {
  const std::string key = UpperCase(start);
  const auto row = FirstRow(image, first, [&](int n) {
    return IsProgrammed(image, n) && UpperCase(GetChannelName(image, n).data()).starts_with(key);
  });
  return row ? row : FirstRow(image, 0, [&](int n) { return ChannelLabel(image, n) == key; });
}

// Whether it is one letter again and again: then it stands for each name that begins with it.
bool IsOneLetter(std::string_view text) {
  return text.find_first_not_of(text.front()) == std::string_view::npos;
}

bool Holds(std::string_view text, const std::string& key) {
  return UpperCase(text).find(key) != std::string::npos;
}

// In a frequency a decimal comma of the key is a point.
bool FrequencyHolds(Frequency f, std::string key) {
  std::transform(key.begin(), key.end(), key.begin(), FrequencyCharacter);
  return Holds(FormatFrequency(f), key);
}

bool ChannelHolds(const CloneImage& image, int n, const std::string& key,
                  const RegionVariant& region) {
  if (!IsProgrammed(image, n)) {
    return false;
  }
  const RecordView record = GetChannelRecord(image, n);
  return Holds(GetChannelName(image, n).data(), key) || Holds(ChannelCommentText(image, n), key) ||
         FrequencyHolds(ReadReceiveFrequency(record, region), key) ||
         FrequencyHolds(TransmitFrequency(record, region), key);
}

}  // namespace

std::optional<int> TypeCharacter(TypedSearch& search, const CloneImage& image, char c,
                                 std::uint32_t now_ms, int row) {
  if (now_ms - search.last_ms > kTypingPauseMs) {
    search.text.clear();
  }
  search.last_ms = now_ms;
  if (IsControl(c) || (search.text.empty() && c == ' ')) {
    return std::nullopt;
  }
  search.text += c;
  if (std::all_of(search.text.begin(), search.text.end(), IsDigit)) {
    return RowOfNumber(image, search.text);
  }
  const bool first_letter = search.text.size() == 1;
  const auto found = RowOfText(image, search.text, first_letter ? row + 1 : row);
  if (!found && IsOneLetter(search.text)) {
    return RowOfText(image, std::string(1, c), row + 1);
  }
  return found;
}

std::optional<int> FindNextRow(const CloneImage& image, std::string_view text, int row,
                               const RegionVariant& region) {
  const std::string key = UpperCase(text);
  return key.empty()
             ? std::nullopt
             : FirstRow(image, row + 1, [&](int n) { return ChannelHolds(image, n, key, region); });
}

}  // namespace qz7
