#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/image/band_plan.h"
#include "core/image/channel_record.h"
#include "core/image/clone_image.h"
#include "core/image/frequency.h"

namespace qz7 {

inline constexpr std::size_t kFrequencyTextLength = 10;  // that can be typed
inline constexpr std::size_t kCommentTextLength = kCommentSize - 1;

// What the controls of the channel editor hold, for memory channel or special slot n.
struct ChannelEditor {
  int n = 0;
  RegionVariant region;  // of the program
  std::string receive;
  std::string transmit;
  std::string offset;
  // The offset that the editor itself wrote into its field, as long as nobody touched the text: the
  // text of 1.05 MHz reads as 1.5 MHz and still stands for 1.05 MHz.
  std::optional<Frequency> written_offset;
  ChannelChoices choices;
  std::vector<StepChoice> steps;
  std::string comment;
  bool skip = false;
  bool masked = false;
  bool option = false;
};

// The editor of channel n, filled; nothing for a channel that is absent. An unprogrammed memory
// channel has the defaults of a new one and empty frequencies.
std::optional<ChannelEditor> OpenChannelEditor(const CloneImage& image, int n,
                                               const RegionVariant& region);

// "Edit Memory Channel %s", "Edit Home %s" or "Edit VFO %s" with the channel's label.
std::string EditorTitle(const CloneImage& image, int n);
int EditorHelpContext(int n);

// Which controls can be used or are there at all.
bool HasTransmitField(const ChannelEditor& editor);  // for an odd split only
bool HasStepChoice(const ChannelEditor& editor);     // not in the MW band
bool HasNameField(const ChannelEditor& editor);      // not for VFO slots
bool HasMemoryFields(const ChannelEditor& editor);   // comment, icon, skip, masked, option
bool HasMaskedBox(const ChannelEditor& editor);      // not for channel 1
// Where the chosen step stands in the list of steps; nothing for a step that the list lacks.
std::optional<int> StepPosition(const ChannelEditor& editor);

// Whether a receive field has been left empty, or a zero stands in it.
bool IsEmptyFrequency(std::string_view text);
// What the texts stand for.
Frequency ReceiveOf(const ChannelEditor& editor);
Frequency OffsetOf(const ChannelEditor& editor);
ChannelFrequencies FrequenciesOf(const ChannelEditor& editor);

// The user's doings. After leaving the receive field and after a change of shift, both frequencies
// stand in canonical form, the transmit frequency and the list of steps follow. Text that is no
// frequency stays as typed.
void LeaveReceive(ChannelEditor& editor);
void ChangeShift(ChannelEditor& editor, Shift shift);
void TypeOffset(ChannelEditor& editor, std::string_view text);
void ChooseOffset(ChannelEditor& editor, int position);  // in kOffsetChoices
// The usual offset and step of the receive frequency's band.
void TakeBandDefaults(ChannelEditor& editor);

// Leaving the offset field: false after showing why it was refused; the field then holds the
// default offset and takes the focus again.
bool LeaveOffset(ChannelEditor& editor);

enum class EditorField { kNone, kReceive, kTransmit, kOffset };

struct ChannelRefusal {
  EditorField field = EditorField::kNone;
  const char* message = nullptr;
};
// What OK would refuse, and why; nothing is shown. A channel without a receive frequency counts as
// refused.
ChannelRefusal CheckChannel(const CloneImage& image, const ChannelEditor& editor);

struct ChannelEnd {
  EditorField refused = EditorField::kNone;  // takes the focus; then nothing was written
  bool record_changed = false;               // the document is to be marked as changed
};
// OK: checks the fields in their order, shows what is refused, and writes the channel. A memory
// channel without a receive frequency is cleared.
ChannelEnd AcceptChannel(CloneImage& image, ChannelEditor& editor);

struct ChannelTurn {
  bool beep = false;  // there is no such channel
  ChannelEnd end;     // of the channel that was left
};
// The previous and the next memory channel, after the current one has been accepted. `editor` is
// the new channel's unless it beeped or was refused.
ChannelTurn TurnToPrevious(CloneImage& image, ChannelEditor& editor);
ChannelTurn TurnToNext(CloneImage& image, ChannelEditor& editor);

}  // namespace qz7
