#include "core/interchange/codeplug_parts.h"

#include <algorithm>
#include <array>
#include <optional>
#include <sstream>
#include <string_view>
#include <utility>

#include "core/editors/autodial.h"
#include "core/editors/group_table.h"
#include "core/editors/icons.h"
#include "core/editors/main_fields.h"
#include "core/editors/settings.h"
#include "core/editors/vorn.h"
#include "core/editors/wx_names.h"
#include "core/files/document_header.h"
#include "core/files/new_document.h"
#include "core/image/blanks.h"
#include "core/image/settings_map.h"
#include "core/image/text_codec.h"

namespace qz7 {
namespace {

std::string AtMost(std::size_t length) {
  return "at most " + std::to_string(length) + " characters";
}

// Why a text cannot be stored; nothing for one that can.
std::string RefusalOf(const std::string& text, std::size_t longest) {
  if (text.size() > longest) {
    return AtMost(longest);
  }
  return std::any_of(text.begin(), text.end(), IsControl) ? "a control character cannot be stored"
                                                          : "";
}

std::string OneOf(const std::vector<std::string>& choices) {
  std::string list = "one of ";
  for (const std::string& choice : choices) {
    list += (&choice == choices.data() ? "" : ", ") + choice;
  }
  return list;
}

// Document and identity.

CodeplugRow CommentRow() {
  return {.name = "comment",
          .bytes = {kFileComment},
          .show = [](const CloneImage& image) { return std::string(FileComment(image)); },
          .store =
              [](CloneImage& image, const std::string& text) {
                std::string refusal = RefusalOf(text, kLongestFileComment);
                if (refusal.empty()) {
                  WriteFileComment(image, text);
                }
                return refusal;
              },
          .form = {.longest = kFileComment.size}};
}

CodeplugRow RadioNameRow() {
  constexpr std::size_t kLongest = kRadioName.size - 1;
  return {.name = "radio-name",
          .bytes = {kRadioName},
          .show = [](const CloneImage& image) { return std::string(RadioName(image)); },
          .store =
              [](CloneImage& image, const std::string& text) {
                std::string refusal = RefusalOf(text, kLongest);
                if (refusal.empty()) {
                  const auto place = image.begin() + kRadioName.offset;
                  std::fill_n(place, kRadioName.size, std::uint8_t{0});
                  std::copy(text.begin(), text.end(), place);
                }
                return refusal;
              },
          .form = {.longest = kRadioName.size}};
}

// 0..255 without leading zeros.
std::optional<std::uint8_t> ParseByte(const std::string& text) {
  constexpr int kMost = 255;
  const bool digits =
      !text.empty() && text.size() <= 3 &&
      std::all_of(text.begin(), text.end(), [](char c) { return c >= '0' && c <= '9'; });
  const int value = digits ? std::stoi(text) : kMost + 1;
  const bool good = value <= kMost && std::to_string(value) == text;
  return good ? std::optional(static_cast<std::uint8_t>(value)) : std::nullopt;
}

CodeplugRow ByteRow(const char* name, std::size_t offset) {
  return {.name = name,
          .bytes = {{.offset = offset, .size = 1}},
          .show = [=](const CloneImage& image) { return std::to_string(image[offset]); },
          .store = [=](CloneImage& image, const std::string& text) -> std::string {
            const std::optional<std::uint8_t> value = ParseByte(text);
            if (!value) {
              return "0 to 255";
            }
            image[offset] = *value;
            return {};
          },
          .form = {.pattern = "^(0|[1-9][0-9]?|1[0-9][0-9]|2[0-4][0-9]|25[0-5])$"}};
}

// Groups: the labels of their channels, "12 13 L1".

Region GroupEntries(int g) {
  return {.offset = GroupEntryOffset(g, 0), .size = kGroupMembers * kGroupEntrySize};
}

std::string ShowGroup(const CloneImage& image, int g) {
  std::string text;
  for (int i = 0; i < kGroupMembers; ++i) {
    const std::uint8_t* entry = image.data() + GroupEntryOffset(g, i);
    if (entry[0] != kGroupEmpty) {
      const int n = entry[1] + 1;
      const std::string label = WithoutLeadingBlanks(ChannelLabel(image, n));
      text += (text.empty() ? "" : " ") + (label.empty() ? std::to_string(n) : label);
    }
  }
  return text;
}

std::optional<int> ChannelOf(const CloneImage& image, const std::string& label) {
  for (int n = 1; n <= kChannelCount; ++n) {
    if (WithoutLeadingBlanks(ChannelLabel(image, n)) == label) {
      return n;
    }
  }
  return std::nullopt;
}

// What the group editor refuses of a channel to add.
std::string MemberRefusal(const CloneImage& image, const std::vector<int>& members,
                          std::optional<int> n) {
  if (!n) {
    return "there is no such channel";
  }
  if (!IsProgrammed(image, *n)) {
    return "the channel is not programmed";
  }
  if (IsMasked(image, *n)) {
    return "the channel is masked";
  }
  if (std::find(members.begin(), members.end(), *n) != members.end()) {
    return "Channel can only be in the group once.";
  }
  return members.size() == kGroupMembers
             ? "a group has " + std::to_string(kGroupMembers) + " channels at most"
             : "";
}

std::string StoreGroup(CloneImage& image, int g, const std::string& text) {
  std::vector<int> members;
  std::istringstream labels(text);
  for (std::string label; labels >> label;) {
    const std::optional<int> n = ChannelOf(image, label);
    const std::string refusal = MemberRefusal(image, members, n);
    if (!refusal.empty()) {
      return "\"" + label + "\": " + refusal;
    }
    members.push_back(*n);
  }
  const Region entries = GroupEntries(g);
  std::fill_n(image.begin() + static_cast<std::ptrdiff_t>(entries.offset), entries.size,
              kGroupEmpty);
  image[GroupStateOffset(g)] = kGroupEmpty;
  for (const int n : members) {
    AppendToGroup(image, g, n - 1);
  }
  return {};
}

CodeplugRow GroupRowOf(int g) {
  return {.name = std::to_string(g + 1),
          .bytes = {GroupEntries(g), {.offset = GroupStateOffset(g), .size = 1}},
          .show = [=](const CloneImage& image) { return ShowGroup(image, g); },
          .store = [=](CloneImage& image,
                       const std::string& text) { return StoreGroup(image, g, text); },
          .form = {.pattern = "^ *((([1-9][0-9]*)|([LU][0-9]+)) *)*$"}};
}

CodeplugPart GroupsPart() {
  std::vector<CodeplugRow> rows;
  rows.reserve(kGroupCount);
  for (int g = 0; g < kGroupCount; ++g) {
    rows.push_back(GroupRowOf(g));
  }
  return {.name = "groups", .rows = std::move(rows)};
}

// Settings: the rows of the screens.

std::vector<std::string> ChoiceTexts(const Setting& row) {
  std::vector<std::string> texts;
  texts.reserve(static_cast<std::size_t>(row.choices.count));
  for (int i = 0; i < row.choices.count; ++i) {
    texts.push_back(WithoutLeadingBlanks(row.choices.text(i)));
  }
  return texts;
}

// What counts of a text: case, blanks and hyphens do not, and "E" and "F" are the digits "*" and
// "#".
std::string Meaning(std::string text) {
  std::erase_if(text, [](char c) { return c == ' ' || c == '-'; });
  return ShownAs(DtmfDisplay::kSymbols, UpperCase(text));
}

// A text starts on the bytes of a new document, so that nothing of a longer one shows behind it.
std::string StoreText(const Setting& row, CloneImage& image, const std::string& text) {
  std::string refusal = RefusalOf(text, row.text.longest);
  if (!refusal.empty()) {
    return refusal;
  }
  static const CloneImage new_image = [] {
    CloneImage made;
    MakeNewImage(made);
    return made;
  }();
  const auto place = static_cast<std::ptrdiff_t>(row.text.place.offset);
  std::copy_n(new_image.begin() + place, row.text.place.size, image.begin() + place);
  if (const char* message = StoreSetting(row, {.text = text}, TargetIn(image))) {
    return message;
  }
  const std::string shown = LoadSetting(row, SourceIn(image)).text;
  return Meaning(shown) == Meaning(text) ? "" : "it would read \"" + shown + "\"";
}

std::string StoreChoice(const Setting& row, const std::vector<std::string>& choices,
                        CloneImage& image, const std::string& text) {
  const auto choice = std::find(choices.begin(), choices.end(), WithoutLeadingBlanks(text));
  if (choice == choices.end()) {
    return OneOf(choices);
  }
  const int position = static_cast<int>(choice - choices.begin());
  StoreSetting(row, {.choice = position}, TargetIn(image));
  return {};
}

// The longest text that any bytes can show.
std::size_t LongestShown(const SettingText& text) {
  constexpr std::uint8_t kHighest = 0xFF;
  const std::vector<std::uint8_t> bytes(text.place.size, kHighest);
  return std::max(text.longest, text.decode(bytes).size());
}

CodeplugRow TextRow(const Setting& row) {
  return {
      .name = row.name,
      .bytes = {row.text.place},
      .show = [&row](const CloneImage& image) { return LoadSetting(row, SourceIn(image)).text; },
      .store = [&row](CloneImage& image,
                      const std::string& text) { return StoreText(row, image, text); },
      .form = {.longest = LongestShown(row.text)}};
}

// Whether the bits can hold what is none of the choices.
bool HasOtherCodes(const Setting& row) {
  return row.kind != SettingKind::kCheckBox && row.choices.count < 1 << row.bits.width;
}

CodeplugRow ChoiceRow(const Setting& row) {
  const std::vector<std::string> choices = ChoiceTexts(row);
  return {.name = row.name,
          .bytes = {{.offset = row.bits.byte, .size = 1}},
          .show =
              [&row, choices](const CloneImage& image) {
                const std::optional<int> choice = LoadSetting(row, SourceIn(image)).choice;
                return choice ? choices[static_cast<std::size_t>(*choice)] : std::string();
              },
          .store = [&row, choices](
                       CloneImage& image,
                       const std::string& text) { return StoreChoice(row, choices, image, text); },
          .form = {.choices = choices, .can_be_nothing = HasOtherCodes(row)}};
}

CodeplugPart SettingsPart(const char* name, const std::vector<const SettingScreen*>& screens) {
  CodeplugPart part{.name = name, .rows = {}};
  for (const SettingScreen* screen : screens) {
    for (const Setting& row : screen->rows) {
      part.rows.push_back(row.kind == SettingKind::kText ? TextRow(row) : ChoiceRow(row));
    }
  }
  return part;
}

}  // namespace

const std::vector<CodeplugPart>& PartsBeforeChannels() {
  static const std::vector<CodeplugPart> parts = {
      {.name = "document", .rows = {CommentRow()}},
      {.name = "identity",
       .rows = {RadioNameRow(), ByteRow("version-type", kVersionType),
                ByteRow("version-subtype", kVersionSubtype),
                ByteRow("wide-coverage", kWideCoverage)}}};
  return parts;
}

const std::vector<CodeplugPart>& PartsBehindChannels() {
  static const std::vector<CodeplugPart> parts = {
      GroupsPart(),
      SettingsPart("settings", {&MainScreen(), &SettingsScreen()}),
      SettingsPart("vorn", {&VornScreen()}),
      SettingsPart("autodial", {&AutodialScreen()}),
      SettingsPart("wx-names", {&WxNamesScreen()}),
      SettingsPart("icons", {&IconsScreen()})};
  return parts;
}

}  // namespace qz7
