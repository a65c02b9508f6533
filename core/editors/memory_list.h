#pragma once

#include <optional>
#include <span>

#include "core/image/clone_image.h"

namespace qz7 {

// The memory list edits the clone image; the working copy keeps the state as last accepted, which
// opening it takes the image back to. Row r shows memory channel r + 1.

// The operations on channels. Record, flag byte, name table entry and comment travel together, and
// the groups follow. A number that names no memory channel makes the call do nothing.
void SwapChannels(CloneImage& image, int a, int b);
// `to` leaves its groups and becomes a copy of `from`, which gives it its places in the groups.
void MoveChannel(CloneImage& image, int to, int from);
// Flags, name table entry, comment and groups; the record stays as it was.
void ClearChannel(CloneImage& image, int n);

// What the list shows of a command: a beep instead of it, or rows to write anew and a row to
// select. Neither (no rows, no beep) when the user took the command back.
struct ListChange {
  bool beep = false;
  int first_row = 0;
  int row_count = 0;
  std::optional<int> selection;
};

// The commands of the list on its selected row. Without one, or where the row does not allow it,
// they beep.
ListChange MoveRowUp(CloneImage& image, std::optional<int> row);
ListChange MoveRowDown(CloneImage& image, std::optional<int> row);
ListChange ClearRow(CloneImage& image, std::optional<int> row);
// Closes the gap, within the channels in front of the PMS pairs.
ListChange DeleteRow(CloneImage& image, std::optional<int> row);
// Opens a gap there; asks first where the last channel in front of the PMS pairs would fall off.
ListChange InsertRow(CloneImage& image, std::optional<int> row);

struct RowToEdit {
  bool beep = false;
  int channel = 0;  // 0: none
};
// Which channel the Edit command opens: that of the one selected row. More than one is refused with
// a message.
RowToEdit ChannelToEdit(std::span<const int> selected_rows);

enum class ListEnd {
  kStaysOpen,  // after OK: row 0 is to be selected
  kUnchanged,
  kChanged,  // the image is to become the accepted state
};
// OK: refuses an image without memory channel 1. The operating state follows what has changed since
// `accepted`.
ListEnd AcceptMemoryList(CloneImage& image, const CloneImage& accepted);
// Cancel: asks where something has changed. True: the image is to be taken back; false: the list
// stays open.
bool MayCancelMemoryList(const CloneImage& image, const CloneImage& accepted);

}  // namespace qz7
