#include <algorithm>

#include "core/editors/channel_editor.h"
#include "core/editors/group_table.h"
#include "core/editors/memory_list.h"
#include "core/files/seams.h"
#include "core/image/frequency_check.h"

namespace qz7 {
namespace {

bool StoreRecord(CloneImage& image, const ChannelEditor& editor,
                 const ChannelFrequencies& frequencies) {
  ChannelRecord old{};
  std::uint8_t* record = GetChannelRecord(image, editor.n);
  std::copy_n(record, kRecordSize, old.begin());
  const ChannelRecord built =
      BuildChannelRecord(old, editor.choices, frequencies, editor.n, editor.region);
  std::copy(built.begin(), built.end(), record);
  return built != old;
}

void StoreFlags(CloneImage& image, const ChannelEditor& editor) {
  SetSkip(image, editor.n, editor.skip);
  SetProgrammed(image, editor.n, true);
  SetMasked(image, editor.n, editor.masked);
  if (editor.masked) {
    RemoveFromEveryGroup(image, ChannelIndex(image, editor.n));
  }
  SetOption(image, editor.n, editor.option);
}

// The name table entry of a blank name is empty, other than the blanks of the record.
void StoreNameEntry(CloneImage& image, int n) {
  const ChannelName name = GetChannelName(image, n);
  std::uint8_t* entry = NameEntry(image, n);
  std::copy(name.begin(), name.end(), entry);
  if (std::all_of(entry, entry + kNameLength, [](std::uint8_t c) { return c == ' '; })) {
    entry[0] = 0;
  }
}

void StoreComment(CloneImage& image, const ChannelEditor& editor) {
  if (editor.comment == ChannelCommentText(image, editor.n)) {
    return;
  }
  char* comment = ChannelComment(image, editor.n);
  std::fill_n(comment, kCommentSize, '\0');
  std::copy_n(editor.comment.begin(), std::min(editor.comment.size(), kCommentTextLength), comment);
}

ChannelEnd WriteChannel(CloneImage& image, const ChannelEditor& editor,
                        const ChannelFrequencies& frequencies) {
  const bool record_changed = StoreRecord(image, editor, frequencies);
  if (HasMemoryFields(editor)) {
    StoreFlags(image, editor);
    StoreNameEntry(image, editor.n);
    StoreComment(image, editor);
  }
  return {.record_changed = record_changed};
}

ChannelEnd ClearEmptyChannel(CloneImage& image, int n) {
  if (IsProgrammed(image, n)) {
    ClearChannel(image, n);
  }
  return {};
}

ChannelTurn TurnTo(CloneImage& image, ChannelEditor& editor, int n) {
  if (!HasMemoryFields(editor) || n < 1 || GetChannelRecord(image, n) == nullptr) {
    return {.beep = true, .end = {}};
  }
  const ChannelEnd end = AcceptChannel(image, editor);
  if (end.refused == EditorField::kNone) {
    editor = *OpenChannelEditor(image, n, editor.region);
  }
  return {.beep = false, .end = end};
}

}  // namespace

ChannelRefusal CheckChannel(const CloneImage& image, const ChannelEditor& editor) {
  const ChannelFrequencies frequencies = FrequenciesOf(editor);
  if (const char* refusal = CheckOffset(frequencies.offset)) {
    return {EditorField::kOffset, refusal};
  }
  if (CheckReceive(image, editor.n, frequencies.receive, editor.region) !=
      ReceiveCheck::kAccepted) {
    return {EditorField::kReceive, kReceiveRefused};
  }
  if (!CheckTransmit(image, editor.n, frequencies.receive, editor.region)) {
    return {EditorField::kTransmit, kTransmitRefused};
  }
  return {};
}

ChannelEnd AcceptChannel(CloneImage& image, ChannelEditor& editor) {
  if (!LeaveOffset(editor)) {
    return {.refused = EditorField::kOffset};
  }
  LeaveReceive(editor);
  const ChannelFrequencies frequencies = FrequenciesOf(editor);
  const ReceiveCheck check = CheckReceive(image, editor.n, frequencies.receive, editor.region);
  if (check == ReceiveCheck::kClearChannel && IsEmptyFrequency(editor.receive)) {
    return ClearEmptyChannel(image, editor.n);
  }
  const ChannelRefusal refusal = CheckChannel(image, editor);
  if (refusal.field != EditorField::kNone) {
    ShowMessage(refusal.message, kProgramTitle, Buttons::kOk, Icon::kStop);
    return {.refused = refusal.field};
  }
  return WriteChannel(image, editor, frequencies);
}

ChannelTurn TurnToPrevious(CloneImage& image, ChannelEditor& editor) {
  return TurnTo(image, editor, editor.n - 1);
}

ChannelTurn TurnToNext(CloneImage& image, ChannelEditor& editor) {
  return TurnTo(image, editor, editor.n + 1);
}

}  // namespace qz7
