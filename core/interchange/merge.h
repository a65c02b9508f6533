#pragma once

#include <string>
#include <string_view>

#include "core/image/clone_image.h"
#include "core/interchange/merge_source.h"

namespace qz7 {

inline constexpr std::size_t kMergeKeyLength = 30;

// What merge keeps from one file to the next, for the whole run.
struct MergeOptions {
  std::string key;        // what a comment must hold, at most 30 characters
  std::string upper_key;  // the same in upper case
  bool use_key = false;
  bool only_ham = false;
  bool overwrite = false;
  int group = 1;  // 1 or 2; shown, but nothing else reads it
  int start = 0;
};

// Takes the text of the key field, cut after 30 characters.
void SetMergeKey(MergeOptions& options, std::string_view text);

// Whether channel s of the source is in use and in one of the bands MW to Air: the two activity
// bands are never merged.
bool IsAvailable(const MergeSource& source, int s);
// Whether it is available and passes the options' filters.
bool IsSelectedForMerge(const MergeSource& source, const MergeOptions& options, int s);

int CountAvailable(const MergeSource& source);
int CountSelected(const MergeSource& source, const MergeOptions& options);

// Copies the selected channels, in the source's order, into the image from options.start (1..) on
// until the channels run out. Those of another model are built on channel 1 of the working copy.
void MergeChannels(CloneImage& image, const CloneImage& working_copy, const MergeSource& source,
                   const MergeOptions& options);

}  // namespace qz7
