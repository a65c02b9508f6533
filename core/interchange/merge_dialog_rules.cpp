#include "core/interchange/merge_dialog_rules.h"

#include <memory>

#include "core/files/seams.h"
#include "core/image/operating_state.h"
#include "core/interchange/import_placement.h"

namespace qz7 {
namespace {

int RoomFor(const CloneImage& image, const MergeOptions& options) {
  return options.overwrite ? GetChannelCount(image) + 1 - options.start
                           : FreeRunLength(image, options.start, PmsPairs::kIncluded);
}

}  // namespace

MergeCounts OpenMergeDialog(const CloneImage& image, const MergeSource& source,
                            MergeOptions& options) {
  options.group = 1;
  options.start = DefaultStartChannel(image);
  return {.available = CountAvailable(source), .selected = CountSelected(source, options)};
}

int SetUseKey(const MergeSource& source, MergeOptions& options, bool on) {
  options.use_key = on;
  return CountSelected(source, options);
}

int SetOnlyHam(const MergeSource& source, MergeOptions& options, bool on) {
  options.only_ham = on;
  return CountSelected(source, options);
}

int SetGroup2(const CloneImage& image, const MergeSource& source, MergeOptions& options, bool on) {
  options.group = on ? 2 : 1;
  if (!options.overwrite) {
    options.start = DefaultStartChannel(image);
  }
  return CountSelected(source, options);
}

std::optional<int> EditMergeKey(const MergeSource& source, MergeOptions& options,
                                std::string_view text) {
  SetMergeKey(options, text);
  return options.use_key ? std::optional(CountSelected(source, options)) : std::nullopt;
}

MergeAnswer AcceptMerge(CloneImage& image, const CloneImage& working_copy,
                        const MergeSource& source, MergeOptions& options, int start) {
  options.start = start;
  if (start < 1 || start >= GetChannelCount(image)) {
    ShowFileError("Illegal Start Channel");
    return MergeAnswer::kIllegalStart;
  }
  const int selected = CountSelected(source, options);
  if (selected == 0) {
    ShowMessage("No memories selected for merge", kProgramTitle, Buttons::kOk, Icon::kInformation);
    return MergeAnswer::kNothing;
  }
  if (RoomFor(image, options) < selected) {
    ShowFileError(
        "Cannot fit selected memories.\nUse lower start channel, and/or select overwrite.");
    return MergeAnswer::kNoRoom;
  }
  MergeChannels(image, working_copy, source, options);
  RefreshOperatingState(image);
  return MergeAnswer::kMerged;
}

std::optional<int> MergeIntoImage(CloneImage& image, const CloneImage& working_copy,
                                  const MergeSource& source, MergeOptions& options,
                                  std::optional<int> start) {
  const int selected = OpenMergeDialog(image, source, options).selected;
  const MergeAnswer answer =
      AcceptMerge(image, working_copy, source, options, start.value_or(options.start));
  return answer == MergeAnswer::kMerged ? std::optional(selected) : std::nullopt;
}

}  // namespace qz7
