#include "core/editors/channel_editor.h"

#include <algorithm>

#include "core/files/seams.h"
#include "core/image/channel_text.h"
#include "core/image/frequency_check.h"

namespace qz7 {
namespace {

void WriteOffset(ChannelEditor& editor, Frequency offset) {
  editor.offset = FormatOffset(offset);
  editor.written_offset = offset;
}

bool Lists(const std::vector<StepChoice>& steps, int step) {
  return std::any_of(steps.begin(), steps.end(),
                     [=](const StepChoice& choice) { return choice.index == step; });
}

void FillSteps(ChannelEditor& editor) {
  const Frequency receive = ReceiveOf(editor);
  editor.steps = FillStepList(receive == 0 ? std::nullopt : std::optional(receive), editor.n);
}

// The step of the band, or the first one where its list lacks that.
void ChooseBandStep(ChannelEditor& editor) {
  const int step = DefaultStep(ReceiveOf(editor));
  editor.choices.step = Lists(editor.steps, step) ? step : editor.steps.front().index;
}

// A chosen step that the new list lacks gives way to the band's. One that was not in the list
// before, either, is the radio's own and stays.
void UpdateSteps(ChannelEditor& editor) {
  const bool was_chosen = StepPosition(editor).has_value();
  FillSteps(editor);
  if (was_chosen && !StepPosition(editor)) {
    ChooseBandStep(editor);
  }
}

void UpdateTransmit(ChannelEditor& editor) {
  const Frequency transmit = RecomputeTransmit(ReceiveOf(editor), editor.choices.shift,
                                               OffsetOf(editor), ParseFrequency(editor.transmit));
  // Both fields of a new channel stay empty.
  const bool none = transmit == 0 && editor.receive.empty();
  editor.transmit = none ? std::string() : FormatFrequency(transmit);
}

void UpdateFrequencies(ChannelEditor& editor) {
  const Frequency receive = ReceiveOf(editor);
  if (receive != 0) {
    editor.receive = FormatFrequency(receive);
  }
  UpdateTransmit(editor);
  UpdateSteps(editor);
}

void FillFromRecord(ChannelEditor& editor, const std::uint8_t* record) {
  editor.choices = DecodeChannelRecord(record);
  editor.receive = FormatFrequency(editor.choices.receive);
  editor.transmit = FormatFrequency(editor.choices.transmit);
}

void FillMemoryFields(ChannelEditor& editor, const CloneImage& image) {
  editor.comment = ChannelCommentText(image, editor.n);
  editor.skip = IsSkip(image, editor.n);
  editor.masked = IsMasked(image, editor.n);
  editor.option = (*GetChannelFlagByte(image, editor.n) & kFlagOption) != 0;
}

// What CheckOffset says of the offset that the field stands for. It checks a text, and an offset
// beyond its range is refused whatever its size.
OffsetCheck CheckOffsetOf(const ChannelEditor& editor) {
  constexpr Frequency kBeyondRange = 9'999'990;
  return editor.written_offset
             ? CheckOffset(FormatFrequency(std::min(*editor.written_offset, kBeyondRange)))
             : CheckOffset(editor.offset);
}

}  // namespace

std::optional<ChannelEditor> OpenChannelEditor(const CloneImage& image, int n) {
  const std::uint8_t* record = GetChannelRecord(image, n);
  if (n == 0 || record == nullptr) {
    return std::nullopt;
  }
  ChannelEditor editor;
  editor.n = n;
  if (IsSpecialSlot(n)) {
    FillFromRecord(editor, record);
  } else if (IsProgrammed(image, n)) {
    FillFromRecord(editor, record);
    FillMemoryFields(editor, image);
  }
  WriteOffset(editor, editor.choices.offset);
  FillSteps(editor);
  return editor;
}

std::string EditorTitle(const CloneImage& image, int n) {
  const char* kind = n >= 1 ? "Edit Memory Channel " : IsVfoSlot(n) ? "Edit VFO " : "Edit Home ";
  return kind + std::string(ChannelLabel(image, n));
}

int EditorHelpContext(int n) { return IsSpecialSlot(n) ? 111 : 107; }

bool HasTransmitField(const ChannelEditor& editor) { return editor.choices.shift == kOddSplit; }

bool HasStepChoice(const ChannelEditor& editor) {
  const bool mw_slot = IsSpecialSlot(editor.n) && SlotBand(editor.n) == kMw;
  return !mw_slot && !InBand(kMw, ReceiveOf(editor));
}

bool HasNameField(const ChannelEditor& editor) { return !IsVfoSlot(editor.n); }
bool HasMemoryFields(const ChannelEditor& editor) { return !IsSpecialSlot(editor.n); }
bool HasMaskedBox(const ChannelEditor& editor) { return HasMemoryFields(editor) && editor.n != 1; }

std::optional<int> StepPosition(const ChannelEditor& editor) {
  const auto choice =
      std::find_if(editor.steps.begin(), editor.steps.end(),
                   [&](const StepChoice& listed) { return editor.choices.step == listed.index; });
  if (choice == editor.steps.end()) {
    return std::nullopt;
  }
  return static_cast<int>(choice - editor.steps.begin());
}

Frequency ReceiveOf(const ChannelEditor& editor) { return ParseFrequency(editor.receive); }

Frequency OffsetOf(const ChannelEditor& editor) {
  return editor.written_offset ? *editor.written_offset : ParseOffset(editor.offset);
}

ChannelFields ChosenFields(const ChannelEditor& editor) {
  ChannelFields fields = editor.choices;
  fields.receive = ReceiveOf(editor);
  fields.transmit = ParseFrequency(editor.transmit);
  fields.offset = OffsetOf(editor);
  return fields;
}

void LeaveReceive(ChannelEditor& editor) { UpdateFrequencies(editor); }

void ChangeShift(ChannelEditor& editor, int shift) {
  editor.choices.shift = shift;
  UpdateFrequencies(editor);
}

void TypeOffset(ChannelEditor& editor, std::string_view text) {
  editor.offset = text;
  editor.written_offset.reset();
}

void ChooseOffset(ChannelEditor& editor, int position) {
  TypeOffset(editor, kOffsetChoices[static_cast<std::size_t>(position)]);
  UpdateTransmit(editor);
}

void TakeBandDefaults(ChannelEditor& editor) {
  WriteOffset(editor, DefaultBandOffset(ReceiveOf(editor)));
  FillSteps(editor);
  ChooseBandStep(editor);
  UpdateTransmit(editor);
}

bool LeaveOffset(ChannelEditor& editor) {
  const OffsetCheck check = CheckOffsetOf(editor);
  WriteOffset(editor, check.offset);
  if (!check.accepted) {
    ShowMessage(check.message, kOffsetErrorTitle, Buttons::kOk, Icon::kStop);
    return false;
  }
  UpdateTransmit(editor);
  return true;
}

}  // namespace qz7
