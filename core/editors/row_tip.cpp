#include "core/editors/row_tip.h"

#include "core/image/blanks.h"
#include "core/image/channel_record.h"
#include "core/image/channel_text.h"

namespace qz7 {
namespace {

// Nothing for a code without a meaning.
std::string ToneLine(const ChannelChoices& choices) {
  if (!choices.tone_mode) {
    return "";
  }
  const std::string mode = NameOf(kToneModeNames, *choices.tone_mode);
  switch (*choices.tone_mode) {
    case ToneMode::kNone:
      return "No tone";
    case ToneMode::kDcs:
      return choices.dcs_index
                 ? mode + " " + DcsText(kDcsCodes[static_cast<std::size_t>(*choices.dcs_index)])
                 : mode;
    default:
      return choices.tone_index
                 ? mode + " " + ToneText(kTones[static_cast<std::size_t>(*choices.tone_index)]) +
                       " Hz"
                 : mode;
  }
}

void AppendLine(std::string& text, std::string_view line) {
  if (!line.empty()) {
    text += text.empty() ? "" : "\n";
    text += line;
  }
}

}  // namespace

std::string RowTip(const CloneImage& image, int n, const RegionVariant& region) {
  if (n < 1 || !IsProgrammed(image, n)) {
    return "";
  }
  const RecordView record = GetChannelRecord(image, n);
  const std::string transmit = FormatFrequency(TransmitFrequency(record, region));
  std::string text = "Transmit " + WithoutLeadingBlanks(transmit) + " MHz";
  AppendLine(text, ToneLine(DecodeChoices(record, region)));
  AppendLine(text, ChannelCommentText(image, n));
  return text;
}

}  // namespace qz7
