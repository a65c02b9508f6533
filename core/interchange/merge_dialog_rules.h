#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "core/image/clone_image.h"
#include "core/interchange/merge.h"
#include "core/interchange/merge_source.h"

namespace qz7 {

// What the merge dialog does, apart from its window. Each function changes the options and returns
// what the dialog then shows.

struct MergeCounts {
  int available = 0;
  int selected = 0;
};

// The dialog opens: group 1, the image's default start channel, everything else as last left.
MergeCounts OpenMergeDialog(const CloneImage& image, const MergeSource& source,
                            MergeOptions& options);

// The new number of selected channels.
int SetUseKey(const MergeSource& source, MergeOptions& options, bool on);
int SetOnlyHam(const MergeSource& source, MergeOptions& options, bool on);
// The same for "Group 2", which also sets the start channel again unless channels are overwritten.
int SetGroup2(const CloneImage& image, const MergeSource& source, MergeOptions& options, bool on);
// The key field was edited; nothing where the number shown is not to change, while no key is used.
std::optional<int> EditMergeKey(const MergeSource& source, MergeOptions& options,
                                std::string_view text);

enum class MergeAnswer {
  kMerged,        // the document has changed
  kNothing,       // "No memories selected for merge" was shown; the dialog ends as cancelled
  kIllegalStart,  // shown; the dialog stays, focus on the start field
  kNoRoom,        // shown; the dialog stays
};

// OK with this start channel. The last channel of all is refused as a start: that is wanted.
MergeAnswer AcceptMerge(CloneImage& image, const CloneImage& working_copy,
                        const MergeSource& source, MergeOptions& options, int start);

// A whole merge without its dialog: the source, read with this working copy, is merged from `start`
// on, or from the default start channel. Nothing after showing why, and then the image is
// unchanged; the number of merged channels otherwise.
std::optional<int> MergeIntoImage(CloneImage& image, const CloneImage& working_copy,
                                  const MergeSource& source, MergeOptions& options,
                                  std::optional<int> start);

}  // namespace qz7
