#include "core/editors/memory_list.h"

#include <algorithm>
#include <string>

#include "core/editors/group_table.h"
#include "core/files/seams.h"
#include "core/image/operating_state.h"

namespace qz7 {
namespace {

bool IsMemoryChannel(const CloneImage& image, int n) {
  return n >= 1 && GetChannelRecord(image, n) != nullptr;
}

int LastOrdinaryChannel(const CloneImage& image) {
  return GetChannelCount(image) - kPmsChannelCount;
}

ListChange Beep() {
  ListChange change;
  change.beep = true;
  return change;
}

ListChange ChangedRows(int first_row, int row_count, int selection) {
  return {.first_row = first_row, .row_count = row_count, .selection = selection};
}

ListChange ChangedFrom(const CloneImage& image, int row) {
  return ChangedRows(row, GetChannelCount(image) - row, row);
}

// Whether the row holds an ordinary channel: the PMS channels never move on delete and insert.
bool IsOrdinaryRow(const CloneImage& image, std::optional<int> row) {
  return row && *row >= 0 && *row + 1 <= LastOrdinaryChannel(image);
}

bool MayLose(const CloneImage& image, int n) {
  return !IsProgrammed(image, n) ||
         ShowMessage(
             "Memory channel " + std::to_string(n) + " is active and will be deleted\nProceed?",
             kProgramTitle, Buttons::kYesNo, Icon::kQuestion) == Answer::kYes;
}

}  // namespace

void SwapChannels(CloneImage& image, int a, int b) {
  if (!IsMemoryChannel(image, a) || !IsMemoryChannel(image, b) || a == b) {
    return;
  }
  const auto swap = [](auto* one, auto* other, std::size_t size) {
    std::swap_ranges(one, one + size, other);
  };
  swap(GetChannelRecord(image, a), GetChannelRecord(image, b), kRecordSize);
  swap(GetChannelFlagByte(image, a), GetChannelFlagByte(image, b), 1);
  swap(NameEntry(image, a), NameEntry(image, b), kNameEntrySize);
  swap(ChannelComment(image, a), ChannelComment(image, b), kCommentSize);
  SwapInGroups(image, ChannelIndex(image, a), ChannelIndex(image, b));
}

void MoveChannel(CloneImage& image, int to, int from) {
  if (!IsMemoryChannel(image, to) || !IsMemoryChannel(image, from) || to == from) {
    return;
  }
  std::copy_n(GetChannelRecord(image, from), kRecordSize, GetChannelRecord(image, to));
  *GetChannelFlagByte(image, to) = *GetChannelFlagByte(image, from);
  std::copy_n(NameEntry(image, from), kNameEntrySize, NameEntry(image, to));
  std::copy_n(ChannelComment(image, from), kCommentSize, ChannelComment(image, to));
  RemoveFromEveryGroup(image, ChannelIndex(image, to));
  RenameInGroups(image, ChannelIndex(image, from), ChannelIndex(image, to));
}

void ClearChannel(CloneImage& image, int n) {
  constexpr int kFlags = kFlagProgrammed | kFlagShown | kFlagSkip | kFlagOption;
  if (!IsMemoryChannel(image, n)) {
    return;
  }
  std::uint8_t& flags = *GetChannelFlagByte(image, n);
  flags = static_cast<std::uint8_t>(flags & ~kFlags);
  *NameEntry(image, n) = 0;
  *ChannelComment(image, n) = 0;
  RemoveFromEveryGroup(image, ChannelIndex(image, n));
}

ListChange MoveRowUp(CloneImage& image, std::optional<int> row) {
  if (!row || *row <= 0) {
    return Beep();
  }
  SwapChannels(image, *row, *row + 1);
  return ChangedRows(*row - 1, 2, *row - 1);
}

ListChange MoveRowDown(CloneImage& image, std::optional<int> row) {
  if (!row || *row + 1 >= GetChannelCount(image)) {
    return Beep();
  }
  SwapChannels(image, *row + 1, *row + 2);
  return ChangedRows(*row, 2, *row + 1);
}

// The last channel, "U10", cannot be cleared here.
ListChange ClearRow(CloneImage& image, std::optional<int> row) {
  if (!row || *row + 1 >= GetChannelCount(image)) {
    return Beep();
  }
  ClearChannel(image, *row + 1);
  return ChangedRows(*row, 1, *row);
}

ListChange DeleteRow(CloneImage& image, std::optional<int> row) {
  if (!IsOrdinaryRow(image, row)) {
    return Beep();
  }
  const int last = LastOrdinaryChannel(image);
  for (int c = *row + 1; c < last; ++c) {
    MoveChannel(image, c, c + 1);
  }
  ClearChannel(image, last);
  return ChangedFrom(image, *row);
}

ListChange InsertRow(CloneImage& image, std::optional<int> row) {
  if (!IsOrdinaryRow(image, row)) {
    return Beep();
  }
  const int last = LastOrdinaryChannel(image);
  if (!MayLose(image, last)) {
    return {};
  }
  for (int c = last; c > *row + 1; --c) {
    MoveChannel(image, c, c - 1);
  }
  ClearChannel(image, *row + 1);
  return ChangedFrom(image, *row);
}

RowToEdit ChannelToEdit(std::span<const int> selected_rows) {
  if (selected_rows.empty()) {
    return {.beep = true};
  }
  if (selected_rows.size() > 1) {
    ShowMessage("Only one channel can be selected for editing.", kProgramTitle, Buttons::kOk,
                Icon::kStop);
    return {};
  }
  return {.channel = selected_rows.front() + 1};
}

ListEnd AcceptMemoryList(CloneImage& image, const CloneImage& accepted) {
  if (!IsProgrammed(image, 1)) {
    ShowMessage("Memory channel 1 must always be programmed", kProgramTitle, Buttons::kOk,
                Icon::kStop);
    return ListEnd::kStaysOpen;
  }
  if (image == accepted) {
    return ListEnd::kUnchanged;
  }
  RefreshOperatingState(image);
  return ListEnd::kChanged;
}

bool MayCancelMemoryList(const CloneImage& image, const CloneImage& accepted) {
  return image == accepted || ShowMessage("Cancel all changes to memory channels?", kProgramTitle,
                                          Buttons::kYesNo, Icon::kQuestion) == Answer::kYes;
}

}  // namespace qz7
