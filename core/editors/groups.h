#pragma once

#include <optional>
#include <string>
#include <vector>

#include "core/image/clone_image.h"
#include "core/image/region_variant.h"

namespace qz7 {

inline constexpr const char* kGroupNames[] = {"Group 1", "Group 2", "Group 3", "Group 4",
                                              "Group 5"};

// The group editor: which group it shows, and the rows of that group's list.
struct GroupEditor {
  int group = 0;
  RegionVariant region;  // of the program
  std::vector<std::string> rows;
  bool changed = false;  // by any add or remove that found a row selected
};

// The row of a channel in both lists, "%-3s %s %s": label, receive frequency, name; empty for an
// absent channel.
std::string GroupRow(const CloneImage& image, int n, const RegionVariant& region);
// The row of memory channel n in the list of channels: the label alone unless it is programmed and
// shown.
std::string GroupChannelRow(const CloneImage& image, int n, const RegionVariant& region);

// Shows group g = 0..4; the editor works on the working copy.
GroupEditor OpenGroupEditor(CloneImage& working_copy, int g, const RegionVariant& region);

enum class GroupEdit {
  kBeep,         // refused
  kBeepAndTell,  // refused: the group has the channel
  kDone,         // the rows are as before, or one was appended or removed
};
// Adds the channel of a row of the list of channels to the group.
GroupEdit AddToGroupList(const CloneImage& working_copy, GroupEditor& editor,
                         std::optional<int> channel_row);
GroupEdit RemoveFromGroupList(GroupEditor& editor, std::optional<int> group_row);

// Stores the list and shows another group; nothing for the group that is shown already.
void ChangeGroup(CloneImage& working_copy, GroupEditor& editor, int g);
// OK: stores the list.
void AcceptGroups(CloneImage& working_copy, const GroupEditor& editor);
// Cancel: asks where something may have changed. False: the editor stays open.
bool CancelGroups(const CloneImage& image, const CloneImage& working_copy,
                  const GroupEditor& editor);

}  // namespace qz7
