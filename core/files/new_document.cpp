#include "core/files/new_document.h"

#include <algorithm>
#include <array>
#include <string>

#include "core/files/document_header.h"
#include "core/image/band_plan.h"
#include "core/image/channel_record.h"
#include "core/image/operating_state.h"
#include "core/image/settings_map.h"

namespace qz7 {
namespace {

// The radio's identity: version type 0, subtype 1, wide coverage.
constexpr std::array<std::uint8_t, 14> kIdentity = {0x0A, 0x01, 0x02, 0x06, 0x09, 0x24, 0xC1,
                                                    0x01, 0x00, 0x24, 0xC1, 0x01, 0x01, 0x01};

void Fill(CloneImage& image, Region region, std::uint8_t byte) {
  std::fill_n(image.begin() + static_cast<std::ptrdiff_t>(region.offset), region.size, byte);
}

Mode UsualMode(Band band) {
  switch (band) {
    case Band::kMw:
    case Band::kSw:
    case Band::kAir:
      return Mode::kAm;
    case Band::kFm:
    case Band::kTv:
      return Mode::kFmWide;
    default:
      return Mode::kFmNarrow;
  }
}

// A factory radio is of the plain region, whatever the program's is.
void ProgramChannel(CloneImage& image, int n, Band band) {
  constexpr RegionVariant kPlain;
  const Frequency f = DefaultBandFrequency(band);
  ChannelChoices choices;
  choices.step = DefaultStep(f, kPlain);
  choices.mode = UsualMode(band);
  const ChannelRecord record = BuildChannelRecord(
      ChannelRecord{}, choices,
      {.receive = f, .transmit = f, .offset = DefaultBandOffset(f, kPlain)}, n, kPlain);
  std::copy(record.begin(), record.end(), GetChannelRecord(image, n));
  *GetChannelFlagByte(image, n) = kFlagProgrammed | kFlagShown;
}

void WriteChannels(CloneImage& image) {
  Fill(image, kChannelRecords, 0xFF);
  ProgramChannel(image, 1, Band::kVHam);
  for (int k = 0; k < kSpecialSlotCount; ++k) {
    ProgramChannel(image, ~k, SlotBand(~k));
  }
}

// Group table, with the two bytes behind it: the group editor reads one entry more than there is.
void WriteGroups(CloneImage& image) {
  Fill(image, kGroupStates, kGroupEmpty);
  Fill(image, {.offset = kGroupTable.offset, .size = kGroupTable.size + kGroupEntrySize}, 0xFF);
}

void WriteWxNames(CloneImage& image) {
  Fill(image, kWxNames, ' ');
  for (int n = 0; n < kWxNameCount; ++n) {
    const std::string name = "WX " + std::to_string(n + 1);
    std::copy(name.begin(), name.end(), image.begin() + WxName(n).offset);
  }
}

// The identifier is empty to its end, so that one of any length ends where it ends. An autodial
// number is stored whole: of an empty one only the front counts, and the numbers share the ends
// that the factory state has left for them.
void WriteEmptyCodeTexts(CloneImage& image) {
  constexpr int kAutodialEnds = 64;
  Fill(image, kVornIdentifier, kTextEnd);
  for (int i = 0; i < kAutodialEnds; ++i) {
    const std::size_t code = AutodialNumber(i % kAutodialCount).offset;
    image[code + static_cast<std::size_t>(i / kAutodialCount)] = kTextEnd;
  }
}

}  // namespace

void WriteDefaultRadioBlock(CloneImage& image) {
  Fill(image, kRadioBlock, 0);
  std::copy(kIdentity.begin(), kIdentity.end(), image.begin() + kRadioBlock.offset);
  WriteChannels(image);
  WriteGroups(image);
  WriteWxNames(image);
  WriteEmptyCodeTexts(image);
  image[kScaleValue] = kLowestScaleValue;
  RefreshOperatingState(image);
}

void MakeNewImage(CloneImage& image) {
  image.fill(0);
  WriteDocumentHeader(image);
  WriteDefaultRadioBlock(image);
}

}  // namespace qz7
