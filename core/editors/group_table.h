#pragma once

#include "core/image/clone_image.h"

namespace qz7 {

// The five memory groups of the image (core/image/settings_map.h), g = 0..4: 24 entries each, used
// ones in front. An entry names its channel by index, channel number - 1, and is free when its
// first byte is 255.

bool IsInGroup(const CloneImage& image, int g, int index);

// Adds the channel at the first free place, unless it is in the group already or the group is full.
void AppendToGroup(CloneImage& image, int g, int index);

// Takes the channel out: the later entries move up one place. A group without members gets the
// state "empty".
void RemoveFromGroup(CloneImage& image, int g, int index);
void RemoveFromEveryGroup(CloneImage& image, int index);

// Each names another channel in the entries where they stand, so that places and sizes stay.
void SwapInGroups(CloneImage& image, int index_a, int index_b);
void RenameInGroups(CloneImage& image, int from_index, int to_index);

}  // namespace qz7
