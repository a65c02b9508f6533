#include "core/editors/groups.h"

#include <algorithm>
#include <array>
#include <cstdio>

#include "core/files/seams.h"
#include "core/image/channel_record.h"
#include "core/image/channel_text.h"
#include "core/image/decimal.h"
#include "core/image/settings_map.h"

namespace qz7 {
namespace {

std::uint8_t* EntryOf(CloneImage& image, int g, int i) {
  return image.data() + GroupEntryOffset(g, i);
}

// The number of a row's channel as its label tells it: 0 for a PMS channel.
int LeadingNumber(const std::string& row) { return DecimalValue(row); }

// Reads one entry more than a group has, wanted: the first member of the next group shows as a row
// of this one. Behind the last group it is the two bytes behind the table.
void FillGroupList(CloneImage& image, GroupEditor& editor) {
  editor.rows.clear();
  for (int i = 0; i <= kGroupMembers; ++i) {
    const std::uint8_t* entry = EntryOf(image, editor.group, i);
    const int n = entry[1] + 1;
    if (entry[0] != kGroupEmpty && GetChannelRecord(image, n) != nullptr) {
      editor.rows.push_back(GroupRow(image, n, editor.region));
    }
  }
}

// A 25th row goes back to where it was read from.
void StoreGroupList(CloneImage& image, const GroupEditor& editor, int next_group) {
  std::uint8_t& state = image[GroupStateOffset(editor.group)];
  state = kGroupEmpty;
  std::fill_n(EntryOf(image, editor.group, 0), kGroupMembers * kGroupEntrySize, kGroupEmpty);
  if (editor.rows.empty()) {
    return;
  }
  int i = 0;
  for (const std::string& row : editor.rows) {
    std::uint8_t* entry = EntryOf(image, editor.group, i++);
    entry[0] = kGroupInUse;
    // The label of a PMS channel reads as 0 and is stored as 255: wanted.
    entry[1] = static_cast<std::uint8_t>(LeadingNumber(row) - 1);
  }
  state = kGroupInUse;
  image[kLastGroup] = static_cast<std::uint8_t>(next_group);
}

bool ListsChannel(const GroupEditor& editor, int n) {
  return std::any_of(editor.rows.begin(), editor.rows.end(),
                     [=](const std::string& row) { return LeadingNumber(row) == n; });
}

}  // namespace

std::string GroupRow(const CloneImage& image, int n, const RegionVariant& region) {
  const std::uint8_t* record = GetChannelRecord(image, n);
  if (record == nullptr) {
    return {};
  }
  std::array<char, 64> row;
  std::snprintf(row.data(), row.size(), "%-3s %9s %s", ChannelLabel(image, n).c_str(),
                FormatFrequency(ReadReceiveFrequency(record, region)).c_str(),
                GetChannelName(image, n).data());
  return row.data();
}

std::string GroupChannelRow(const CloneImage& image, int n, const RegionVariant& region) {
  return IsProgrammed(image, n) && !IsMasked(image, n) ? GroupRow(image, n, region)
                                                       : ChannelLabel(image, n);
}

GroupEditor OpenGroupEditor(CloneImage& working_copy, int g, const RegionVariant& region) {
  GroupEditor editor;
  editor.region = region;
  editor.group = g;
  FillGroupList(working_copy, editor);
  return editor;
}

GroupEdit AddToGroupList(const CloneImage& working_copy, GroupEditor& editor,
                         std::optional<int> channel_row) {
  const int n = channel_row.value_or(-1) + 1;
  if (n < 1 || GetChannelRecord(working_copy, n) == nullptr || IsMasked(working_copy, n)) {
    return GroupEdit::kBeep;
  }
  editor.changed = true;
  if (editor.rows.size() >= kGroupMembers) {
    return GroupEdit::kBeep;
  }
  if (ListsChannel(editor, n)) {
    return GroupEdit::kBeepAndTell;
  }
  if (IsProgrammed(working_copy, n)) {
    editor.rows.push_back(GroupRow(working_copy, n, editor.region));
  }
  return GroupEdit::kDone;
}

GroupEdit RemoveFromGroupList(GroupEditor& editor, std::optional<int> group_row) {
  if (!group_row || *group_row < 0 || *group_row >= static_cast<int>(editor.rows.size())) {
    return GroupEdit::kBeep;
  }
  editor.changed = true;
  editor.rows.erase(editor.rows.begin() + *group_row);
  return GroupEdit::kDone;
}

void ChangeGroup(CloneImage& working_copy, GroupEditor& editor, int g) {
  if (g == editor.group) {
    return;
  }
  StoreGroupList(working_copy, editor, g);
  editor.group = g;
  FillGroupList(working_copy, editor);
}

void AcceptGroups(CloneImage& working_copy, const GroupEditor& editor) {
  StoreGroupList(working_copy, editor, editor.group);
}

bool CancelGroups(const CloneImage& image, const CloneImage& working_copy,
                  const GroupEditor& editor) {
  if (image == working_copy && !editor.changed) {
    return true;
  }
  return ShowMessage("Cancel all changes to memory channels?", kProgramTitle, Buttons::kYesNo,
                     Icon::kQuestion) == Answer::kYes;
}

}  // namespace qz7
