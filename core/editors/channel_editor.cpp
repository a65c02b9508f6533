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

bool Lists(const std::vector<StepChoice>& steps, Step step) {
  return std::any_of(steps.begin(), steps.end(),
                     [=](const StepChoice& choice) { return choice.step == step; });
}

void FillSteps(ChannelEditor& editor) {
  const Frequency receive = ReceiveOf(editor);
  const bool none = receive == Frequency{};
  editor.steps =
      FillStepList(none ? std::nullopt : std::optional(receive), editor.n, editor.region);
}

// The step of the band, or the first one where its list lacks that.
void ChooseBandStep(ChannelEditor& editor) {
  const Step step = DefaultStep(ReceiveOf(editor), editor.region);
  editor.choices.step = Lists(editor.steps, step) ? step : editor.steps.front().step;
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
  const auto [receive, typed, offset] = FrequenciesOf(editor);
  const Frequency transmit = RecomputeTransmit(receive, editor.choices.shift, offset, typed);
  // Both fields of a new channel stay empty.
  const bool none = transmit == Frequency{} && editor.receive.empty();
  editor.transmit = none ? std::string() : FormatFrequency(transmit);
}

void UpdateFrequencies(ChannelEditor& editor) {
  const Frequency receive = ReceiveOf(editor);
  if (receive != Frequency{}) {
    editor.receive = FormatFrequency(receive);
  }
  UpdateTransmit(editor);
  UpdateSteps(editor);
}

void FillFromRecord(ChannelEditor& editor, RecordView record) {
  const ChannelFrequencies frequencies = DecodeFrequencies(record, editor.region);
  editor.choices = DecodeChoices(record, editor.region);
  editor.receive = FormatFrequency(frequencies.receive);
  editor.transmit = FormatFrequency(frequencies.transmit);
  WriteOffset(editor, frequencies.offset);
}

void FillMemoryFields(ChannelEditor& editor, const CloneImage& image) {
  editor.comment = ChannelCommentText(image, editor.n);
  editor.skip = IsSkip(image, editor.n);
  editor.masked = IsMasked(image, editor.n);
  editor.option = IsOptionSet(image, editor.n);
}

}  // namespace

std::optional<ChannelEditor> OpenChannelEditor(const CloneImage& image, int n,
                                               const RegionVariant& region) {
  const std::uint8_t* record = GetChannelRecord(image, n);
  if (n == 0 || record == nullptr) {
    return std::nullopt;
  }
  ChannelEditor editor;
  editor.n = n;
  editor.region = region;
  WriteOffset(editor, kDefaultOffset);
  if (IsSpecialSlot(n)) {
    FillFromRecord(editor, record);
  } else if (IsProgrammed(image, n)) {
    FillFromRecord(editor, record);
    FillMemoryFields(editor, image);
  }
  FillSteps(editor);
  return editor;
}

std::string EditorTitle(const CloneImage& image, int n) {
  const char* kind = n >= 1 ? "Edit Memory Channel " : IsVfoSlot(n) ? "Edit VFO " : "Edit Home ";
  return kind + ChannelLabel(image, n);
}

int EditorHelpContext(int n) { return IsSpecialSlot(n) ? 111 : 107; }

bool HasTransmitField(const ChannelEditor& editor) {
  return editor.choices.shift == Shift::kOddSplit;
}

bool HasStepChoice(const ChannelEditor& editor) {
  const bool mw_slot = IsSpecialSlot(editor.n) && SlotBand(editor.n) == Band::kMw;
  return !mw_slot && !InBand(Band::kMw, ReceiveOf(editor), editor.region);
}

bool HasNameField(const ChannelEditor& editor) { return !IsVfoSlot(editor.n); }
bool HasMemoryFields(const ChannelEditor& editor) { return !IsSpecialSlot(editor.n); }
bool HasMaskedBox(const ChannelEditor& editor) { return HasMemoryFields(editor) && editor.n != 1; }

std::optional<int> StepPosition(const ChannelEditor& editor) {
  const auto choice =
      std::find_if(editor.steps.begin(), editor.steps.end(),
                   [&](const StepChoice& listed) { return editor.choices.step == listed.step; });
  if (choice == editor.steps.end()) {
    return std::nullopt;
  }
  return static_cast<int>(choice - editor.steps.begin());
}

bool IsEmptyFrequency(std::string_view text) {
  return text.find_first_not_of(" 0.") == std::string_view::npos;
}

Frequency ReceiveOf(const ChannelEditor& editor) { return ParseFrequency(editor.receive); }

Frequency OffsetOf(const ChannelEditor& editor) {
  return editor.written_offset ? *editor.written_offset : ParseOffset(editor.offset);
}

ChannelFrequencies FrequenciesOf(const ChannelEditor& editor) {
  return {.receive = ReceiveOf(editor),
          .transmit = ParseFrequency(editor.transmit),
          .offset = OffsetOf(editor)};
}

void LeaveReceive(ChannelEditor& editor) { UpdateFrequencies(editor); }

void ChangeShift(ChannelEditor& editor, Shift shift) {
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
  WriteOffset(editor, DefaultBandOffset(ReceiveOf(editor), editor.region));
  FillSteps(editor);
  ChooseBandStep(editor);
  UpdateTransmit(editor);
}

bool LeaveOffset(ChannelEditor& editor) {
  const Frequency offset = OffsetOf(editor);
  if (const char* refusal = CheckOffset(offset)) {
    WriteOffset(editor, kDefaultOffset);
    ShowMessage(refusal, kOffsetErrorTitle, Buttons::kOk, Icon::kStop);
    return false;
  }
  WriteOffset(editor, offset);
  UpdateTransmit(editor);
  return true;
}

}  // namespace qz7
