#include <algorithm>
#include <memory>

#include "core/editors/channel_editor.h"
#include "core/editors/channel_fields.h"
#include "core/editors/list_rows.h"
#include "core/image/frequency_check.h"
#include "core/image/operating_state.h"
#include "core/image/text_codec.h"
#include "ctl/commands.h"
#include "ctl/console.h"

namespace qz7 {
namespace {

// What the memory list does when it is accepted, a refusal included.
bool AcceptEdits(CloneImage& image, const CloneImage& before) {
  return AcceptMemoryList(image, before) != ListEnd::kStaysOpen;
}

RowsChange MoveAs(CloneImage& image, const std::string& how, const std::vector<int>& rows) {
  if (how == "up") {
    return MoveRowsUp(image, rows);
  }
  if (how == "down") {
    return MoveRowsDown(image, rows);
  }
  if (how == "clear") {
    return ClearRows(image, rows);
  }
  return how == "delete" ? DeleteRows(image, rows) : InsertBeforeRows(image, rows);
}

std::string NotAllowed(const std::string& how, const std::vector<int>& rows) {
  return rows.size() == 1
             ? "Channel " + std::to_string(rows.front() + 1) + " does not allow " + how + "."
             : "One of the channels does not allow " + how + ": nothing is changed.";
}

// The values of the command line as the radio's text.
std::optional<std::vector<NamedValue>> EncodeValues(const std::vector<NamedValue>& values) {
  std::vector<NamedValue> encoded;
  for (const auto& [name, value] : values) {
    const std::optional<std::string> bytes = BytesOfArgument(name, value);
    if (!bytes) {
      return std::nullopt;
    }
    encoded.emplace_back(name, *bytes);
  }
  return encoded;
}

// Whether a channel without a receive frequency is left without one although nothing was said of
// it: the editor would drop all that was set.
bool LacksReceive(const ChannelEditor& editor, const std::vector<NamedValue>& values) {
  return editor.receive.empty() &&
         std::none_of(values.begin(), values.end(),
                      [](const NamedValue& value) { return value.first == "rx"; });
}

void WarnOfSilentSplit(const CloneImage& image, const ChannelEditor& editor) {
  const bool stored = IsSpecialSlot(editor.n) || IsProgrammed(image, editor.n);
  if (stored && HasTransmitField(editor) && FrequenciesOf(editor).transmit == Frequency{}) {
    PrintError("The transmit frequency of the odd split is 0.");
  }
}

bool EditChannel(CloneImage& image, int n, const std::vector<NamedValue>& values) {
  std::optional<ChannelEditor> editor = OpenChannelEditor(image, n, kRegion);
  std::string why_not;
  if (!editor) {
    PrintError("There is no channel " + std::to_string(n) + ".");
    return false;
  }
  if (!SetEditorFields(*editor, values, why_not)) {
    PrintError(ToUtf8(why_not));
    return false;
  }
  if (LacksReceive(*editor, values)) {
    PrintError(kReceiveRefused);
    return false;
  }
  if (AcceptChannel(image, *editor).refused != EditorField::kNone) {
    return false;
  }
  WarnOfSilentSplit(image, *editor);
  return true;
}

}  // namespace

int SetCommand(const std::filesystem::path& file, const std::filesystem::path& out, int n,
               const std::vector<std::pair<std::string, std::string>>& values) {
  const std::optional<std::vector<NamedValue>> encoded = EncodeValues(values);
  CloneImage image;
  if (!encoded || !LoadDocument(image, file)) {
    return kFailed;
  }
  // As when the editor is opened from the main window.
  RefreshOperatingState(image);
  const auto before = std::make_unique<CloneImage>(image);
  if (!EditChannel(image, n, *encoded)) {
    return kFailed;
  }
  if (!IsSpecialSlot(n) && !AcceptEdits(image, *before)) {
    return kFailed;
  }
  return SaveDocumentTo(image, out) ? kDone : kFailed;
}

int MoveCommand(const std::filesystem::path& file, const std::filesystem::path& out,
                const std::string& how, const std::vector<int>& rows) {
  CloneImage image;
  if (!LoadDocument(image, file)) {
    return kFailed;
  }
  const auto before = std::make_unique<CloneImage>(image);
  const RowsChange change = MoveAs(image, how, rows);
  if (change.beep) {
    PrintError(NotAllowed(how, rows));
    return kFailed;
  }
  if (change.row_count == 0) {
    // The question was answered with No: nothing is written.
    return kFailed;
  }
  return AcceptEdits(image, *before) && SaveDocumentTo(image, out) ? kDone : kFailed;
}

}  // namespace qz7
