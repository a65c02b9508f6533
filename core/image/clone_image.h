#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace qz7 {

// The clone image: the whole document as one flat buffer, in memory as in a file. All integers of
// more than one byte are little-endian. Offsets are from the start of the image.
//
//       0  180   document header (core/files/document_header.h)
//     180  2880  channel summary table, 240 x 12, derived from the channel records
//    3060  8122  radio memory block: what the radio sends and takes
//      3102  248   memory groups (core/image/settings_map.h)
//      3358  240   flag bytes of memory channels 1..240
//      3598   30   flag bytes of the special slots: home 20..29, then VFO 0..19
//      3678  5280  records of memory channels 1..240, 22 bytes each
//      8958  220   home records, slots 20..29
//      9178  220   VFO records of the first bank, slots 0..9
//      9398  220   VFO records of the second bank, slots 10..19
//      9618        settings (core/image/settings_map.h, core/image/operating_state.h)
//   11182  20    kept in the image and in files, never exchanged with the radio
//   11202  2400  channel name table, 240 x 10, derived from the channel records
//   13602  7680  channel comments, 240 x 32
//   21282        end
inline constexpr std::size_t kCloneImageSize = 21'282;
using CloneImage = std::array<std::uint8_t, kCloneImageSize>;

struct Region {
  std::size_t offset;
  std::size_t size;
  constexpr std::size_t end() const { return offset + size; }
};

inline constexpr int kChannelCount = 240;
inline constexpr int kPmsChannelCount = 20;
inline constexpr int kBandCount = 10;
inline constexpr int kSpecialSlotCount = 30;

inline constexpr std::size_t kRecordSize = 22;
inline constexpr std::size_t kSummaryEntrySize = 12;
inline constexpr std::size_t kNameEntrySize = 10;
inline constexpr std::size_t kCommentSize = 32;
inline constexpr std::size_t kNameLength = 8;

inline constexpr Region kDocumentHeader{.offset = 0, .size = 180};
inline constexpr Region kSummaryTable{.offset = 180, .size = kChannelCount * kSummaryEntrySize};
// The radio memory block: the bytes that the radio sends and takes.
inline constexpr Region kRadioBlock{.offset = 3060, .size = 8122};
inline constexpr Region kChannelFlags{.offset = 3358, .size = kChannelCount};
inline constexpr Region kSpecialFlags{.offset = 3598, .size = kSpecialSlotCount};
inline constexpr Region kChannelRecords{.offset = 3678, .size = kChannelCount * kRecordSize};
inline constexpr Region kHomeRecords{.offset = 8958, .size = kBandCount * kRecordSize};
inline constexpr Region kVfoBankA{.offset = 9178, .size = kBandCount * kRecordSize};
inline constexpr Region kVfoBankB{.offset = 9398, .size = kBandCount * kRecordSize};
inline constexpr Region kSpareBytes{.offset = 11'182, .size = 20};
inline constexpr Region kNameTable{.offset = 11'202, .size = kChannelCount * kNameEntrySize};
inline constexpr Region kComments{.offset = 13'602, .size = kChannelCount * kCommentSize};

static_assert(kDocumentHeader.end() == kSummaryTable.offset);
static_assert(kSummaryTable.end() == kRadioBlock.offset);
static_assert(kChannelFlags.end() == kSpecialFlags.offset);
static_assert(kSpecialFlags.end() <= kChannelRecords.offset);
static_assert(kChannelRecords.end() == kHomeRecords.offset);
static_assert(kHomeRecords.end() == kVfoBankA.offset);
static_assert(kVfoBankA.end() == kVfoBankB.offset);
static_assert(kRadioBlock.end() == kSpareBytes.offset);
static_assert(kSpareBytes.end() == kNameTable.offset);
static_assert(kNameTable.end() == kComments.offset);
static_assert(kComments.end() == kCloneImageSize);

// The channel count inside the document header, unsigned 16-bit.
inline constexpr std::size_t kChannelCountOffset = 56;

// Version bytes of the radio, inside the radio block's header and the byte behind it.
inline constexpr std::size_t kVersionSubtype = 3067;
inline constexpr std::size_t kVersionType = 3068;
inline constexpr std::size_t kWideCoverage = 3073;

// The bands of the special slots, in the order in which they lie in the image and are looked up.
enum class Band : std::uint8_t {
  kMw,
  kSw,
  kFm,
  kTv,
  kSixMetres,
  kVHam,
  kUHam,
  kAir,
  kAct1,
  kAct2,
  kOutsideEveryBand
};
inline constexpr std::array<const char*, kBandCount> kBandNames = {
    "MW", "SW", "FM", "TV", "6m", "V Ham", "U Ham", "Air", "Act1", "Act2"};

// A channel number names a slot:
//    1..count  memory channel; the last 20 are the PMS pairs "L1" "U1" .. "L10" "U10"
//   -1..-10    VFO of the first bank, one per band (slot k = ~n = 0..9)
//  -11..-20    VFO of the second bank (slots 10..19)
//  -21..-30    home channel per band (slots 20..29)
// The band of a special slot is k mod 10.
constexpr int SlotOf(int n) { return ~n; }
constexpr bool IsSpecialSlot(int n) { return n < 0; }
constexpr Band SlotBand(int n) { return static_cast<Band>(SlotOf(n) % kBandCount); }

// Flag byte of a slot; bits 4..7 are never touched.
inline constexpr std::uint8_t kFlagProgrammed = 0x01;
inline constexpr std::uint8_t kFlagShown = 0x02;  // clear means masked
inline constexpr std::uint8_t kFlagSkip = 0x04;
inline constexpr std::uint8_t kFlagOption = 0x08;  // an on/off option of memory channels

inline std::uint16_t ReadU16(const std::uint8_t* bytes) {
  return static_cast<std::uint16_t>(bytes[0] | bytes[1] << 8);
}
inline std::uint32_t ReadU32(const std::uint8_t* bytes) {
  return ReadU16(bytes) | static_cast<std::uint32_t>(ReadU16(bytes + 2)) << 16;
}
inline void WriteU16(std::uint8_t* bytes, std::uint16_t value) {
  bytes[0] = static_cast<std::uint8_t>(value);
  bytes[1] = static_cast<std::uint8_t>(value >> 8);
}
inline void WriteU32(std::uint8_t* bytes, std::uint32_t value) {
  WriteU16(bytes, static_cast<std::uint16_t>(value));
  WriteU16(bytes + 2, static_cast<std::uint16_t>(value >> 16));
}

// The count that the header states, 0..65535. It is used as it stands in every loop over channels;
// the accessors below keep such loops inside the buffer.
inline int GetChannelCount(const CloneImage& image) {
  return ReadU16(image.data() + kChannelCountOffset);
}

// The 22-byte record of channel n; null when n > count, for slots k >= 30, and where a hostile
// count names a channel behind the 240 records. n = 0 is not refused: it is the 22 bytes in front
// of channel 1.
std::uint8_t* GetChannelRecord(CloneImage& image, int n);
const std::uint8_t* GetChannelRecord(const CloneImage& image, int n);

// The flag byte of channel n; null like GetChannelRecord. n = 0 is the byte in front of channel
// 1's.
std::uint8_t* GetChannelFlagByte(CloneImage& image, int n);
const std::uint8_t* GetChannelFlagByte(const CloneImage& image, int n);

// Each reads or writes its one bit; an absent channel reads as false and is not written.
bool IsProgrammed(const CloneImage& image, int n);
bool IsMasked(const CloneImage& image, int n);
bool IsSkip(const CloneImage& image, int n);
bool IsOptionSet(const CloneImage& image, int n);
void SetProgrammed(CloneImage& image, int n, bool programmed);
void SetMasked(CloneImage& image, int n, bool masked);
void SetSkip(CloneImage& image, int n, bool skip);
void SetOption(CloneImage& image, int n, bool option);

// n - 1 for 1 <= n <= count, else 0: every invalid number maps to index 0.
int ChannelIndex(const CloneImage& image, int n);

// VFO slots carry no name.
bool IsVfoSlot(int n);

// The 8 name bytes of the record and a 0 byte, neither converted nor trimmed; empty (all zero) for
// an absent channel.
using ChannelName = std::array<char, kNameLength + 1>;
ChannelName GetChannelName(const CloneImage& image, int n);
// Fills the 8 name bytes with blanks, then copies text up to its 0 byte or 8 characters.
void SetChannelName(CloneImage& image, int n, std::string_view text);

// "MW".."Act2" for a special slot, "L1".."U10" for the last 20 channels, "%2d" for other memory
// channels, empty for 0 and for numbers above the count.
std::string ChannelLabel(const CloneImage& image, int n);

// Entries of the tables beside the radio block, addressed by ChannelIndex; null where a hostile
// count names an entry behind its table. A comment is zero-terminated text.
std::uint8_t* SummaryEntry(CloneImage& image, int n);
const std::uint8_t* SummaryEntry(const CloneImage& image, int n);
std::uint8_t* NameEntry(CloneImage& image, int n);
const std::uint8_t* NameEntry(const CloneImage& image, int n);
char* ChannelComment(CloneImage& image, int n);
const char* ChannelComment(const CloneImage& image, int n);
// The comment as text, ending at its 0 byte or after 32 bytes; empty for an absent one.
std::string_view ChannelCommentText(const CloneImage& image, int n);

// The text of a zero-terminated field that may use its whole width.
std::string_view FieldText(const char* field, std::size_t width);

}  // namespace qz7
