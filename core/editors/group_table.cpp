#include "core/editors/group_table.h"

#include <algorithm>

#include "core/image/settings_map.h"

namespace qz7 {
namespace {

bool IsUsed(const CloneImage& image, int g, int i) {
  return image[GroupEntryOffset(g, i)] != kGroupEmpty;
}

// The first place of a channel in a group; kGroupMembers for none.
int PlaceInGroup(const CloneImage& image, int g, int index) {
  int i = 0;
  while (i < kGroupMembers &&
         !(IsUsed(image, g, i) && image[GroupEntryOffset(g, i) + 1] == index)) {
    ++i;
  }
  return i;
}

void RemoveEntry(CloneImage& image, int g, int i) {
  std::uint8_t* entry = image.data() + GroupEntryOffset(g, i);
  std::uint8_t* end = image.data() + GroupEntryOffset(g, kGroupMembers);
  std::copy(entry + kGroupEntrySize, end, entry);
  std::fill(end - kGroupEntrySize, end, kGroupEmpty);
}

bool HasMembers(const CloneImage& image, int g) {
  int i = 0;
  while (i < kGroupMembers && !IsUsed(image, g, i)) {
    ++i;
  }
  return i < kGroupMembers;
}

std::uint8_t& StateOf(CloneImage& image, int g) { return image[GroupStateOffset(g)]; }

template <typename Rename>
void RenameEntries(CloneImage& image, Rename rename) {
  for (int g = 0; g < kGroupCount; ++g) {
    for (int i = 0; i < kGroupMembers; ++i) {
      if (IsUsed(image, g, i)) {
        std::uint8_t& channel = image[GroupEntryOffset(g, i) + 1];
        channel = static_cast<std::uint8_t>(rename(int{channel}));
      }
    }
  }
}

}  // namespace

bool IsInGroup(const CloneImage& image, int g, int index) {
  return PlaceInGroup(image, g, index) < kGroupMembers;
}

void AppendToGroup(CloneImage& image, int g, int index) {
  int i = 0;
  while (i < kGroupMembers && IsUsed(image, g, i)) {
    ++i;
  }
  if (i == kGroupMembers || IsInGroup(image, g, index)) {
    return;
  }
  image[GroupEntryOffset(g, i)] = kGroupInUse;
  image[GroupEntryOffset(g, i) + 1] = static_cast<std::uint8_t>(index);
  StateOf(image, g) = kGroupInUse;
}

void RemoveFromGroup(CloneImage& image, int g, int index) {
  if (!IsInGroup(image, g, index)) {
    return;
  }
  while (IsInGroup(image, g, index)) {
    RemoveEntry(image, g, PlaceInGroup(image, g, index));
  }
  if (!HasMembers(image, g)) {
    StateOf(image, g) = kGroupEmpty;
  }
}

void RemoveFromEveryGroup(CloneImage& image, int index) {
  for (int g = 0; g < kGroupCount; ++g) {
    RemoveFromGroup(image, g, index);
  }
}

void SwapInGroups(CloneImage& image, int index_a, int index_b) {
  RenameEntries(image, [=](int index) {
    return index == index_a ? index_b : index == index_b ? index_a : index;
  });
}

void RenameInGroups(CloneImage& image, int from_index, int to_index) {
  RenameEntries(image, [=](int index) { return index == from_index ? to_index : index; });
}

}  // namespace qz7
