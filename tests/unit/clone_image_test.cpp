#include "core/image/clone_image.h"

#include <gtest/gtest.h>

#include <array>
#include <climits>
#include <string>
#include <string_view>

#include "tests/unit/image_fixture.h"

namespace qz7 {
namespace {

using namespace image_fixture;

std::ptrdiff_t RecordOffset(const CloneImage& image, int n) {
  const std::uint8_t* record = GetChannelRecord(image, n);
  return record == nullptr ? -1 : record - image.data();
}

std::ptrdiff_t FlagOffset(const CloneImage& image, int n) {
  const std::uint8_t* flags = GetChannelFlagByte(image, n);
  return flags == nullptr ? -1 : flags - image.data();
}

struct SlotAddress {
  int n;
  std::ptrdiff_t record;
  std::ptrdiff_t flags;
};

constexpr std::array kSlotAddresses = {
    SlotAddress{1, 3678, 3358},   SlotAddress{2, 3700, 3359},   SlotAddress{220, 8496, 3577},
    SlotAddress{240, 8936, 3597}, SlotAddress{-1, 9178, 3608},  SlotAddress{-2, 9200, 3609},
    SlotAddress{-10, 9376, 3617}, SlotAddress{-11, 9398, 3618}, SlotAddress{-12, 9420, 3619},
    SlotAddress{-20, 9596, 3627}, SlotAddress{-21, 8958, 3598}, SlotAddress{-22, 8980, 3599},
    SlotAddress{-30, 9156, 3607}, SlotAddress{-31, -1, -1},     SlotAddress{-40, -1, -1},
    SlotAddress{INT_MIN, -1, -1}, SlotAddress{241, -1, -1},     SlotAddress{300, -1, -1},
    SlotAddress{65'536, -1, -1},  SlotAddress{INT_MAX, -1, -1},
};

TEST(ChannelSlots, LieAtTheirPlaces) {
  const auto image = MakeImage();
  for (const SlotAddress& slot : kSlotAddresses) {
    EXPECT_EQ(RecordOffset(*image, slot.n), slot.record) << slot.n;
    EXPECT_EQ(FlagOffset(*image, slot.n), slot.flags) << slot.n;
  }
}

TEST(ChannelSlots, FollowEachOtherInEveryGroup) {
  const auto image = MakeImage();
  for (int n = -40; n <= 300; ++n) {
    std::ptrdiff_t record = -1;
    std::ptrdiff_t flags = -1;
    if (n >= 0 && n <= 240) {
      record = 3656 + n * 22;
      flags = 3357 + n;
    } else if (n < 0 && n >= -20) {
      record = 9178 + (-1 - n) * 22;  // the second bank lies right behind the first
      flags = 3608 + (-1 - n);
    } else if (n < -20 && n >= -30) {
      record = 8958 + (-21 - n) * 22;
      flags = 3598 + (-21 - n);
    }
    EXPECT_EQ(RecordOffset(*image, n), record) << n;
    EXPECT_EQ(FlagOffset(*image, n), flags) << n;
  }
}

TEST(ChannelSlots, AreTheSameForWriting) {
  const auto image = MakeImage();
  const CloneImage& constant = *image;
  for (int n = -40; n <= 300; ++n) {
    EXPECT_EQ(GetChannelRecord(*image, n), GetChannelRecord(constant, n)) << n;
    EXPECT_EQ(GetChannelFlagByte(*image, n), GetChannelFlagByte(constant, n)) << n;
  }
}

TEST(ChannelSlots, NumberZeroIsTheRecordInFrontOfChannel1) {
  const auto image = MakeImage();
  EXPECT_EQ(RecordOffset(*image, 0), 3656);
  EXPECT_EQ(FlagOffset(*image, 0), 3357);
  (*image)[3357] = 0x01;
  EXPECT_TRUE(IsProgrammed(*image, 0));
  (*image)[3357] = 0x00;
  EXPECT_FALSE(IsProgrammed(*image, 0));
}

TEST(ChannelSlots, AreVfosFromMinus1ToMinus20) {
  for (int n = -40; n <= 300; ++n) {
    EXPECT_EQ(IsVfoSlot(n), n <= -1 && n >= -20) << n;
  }
}

TEST(ChannelFlags, EachAccessorReadsItsOwnBit) {
  const auto image = MakeImage();
  for (const auto& [n, offset] : {std::pair{7, 3364}, {-1, 3608}, {-20, 3627}, {-30, 3607}}) {
    for (int value = 0; value < 256; ++value) {
      (*image)[static_cast<std::size_t>(offset)] = static_cast<std::uint8_t>(value);
      EXPECT_EQ(IsProgrammed(*image, n), (value & 1) != 0) << n << ": " << value;
      EXPECT_EQ(IsMasked(*image, n), (value & 2) == 0) << n << ": " << value;
      EXPECT_EQ(IsSkip(*image, n), (value & 4) != 0) << n << ": " << value;
    }
  }
}

TEST(ChannelFlags, AChannelWhoseFlagsAreAllZeroCountsAsMasked) {
  const auto image = MakeImage();
  EXPECT_TRUE(IsMasked(*image, 1));
  EXPECT_TRUE(IsMasked(*image, 240));
  EXPECT_TRUE(IsMasked(*image, -30));
}

TEST(ChannelFlags, MaskingClearsTheShownBitAndUnmaskingSetsIt) {
  const auto image = MakeImage();
  (*image)[3358] = 0xFF;
  SetMasked(*image, 1, true);
  EXPECT_EQ((*image)[3358], 0xFD);
  SetMasked(*image, 1, false);
  EXPECT_EQ((*image)[3358], 0xFF);
}

TEST(ChannelFlags, EachSetterWritesItsOneBitAndKeepsTheOthers) {
  const auto image = MakeImage();
  std::uint8_t& flags = (*image)[3364];
  for (int value = 0; value < 256; ++value) {
    const auto reset = [&] { flags = static_cast<std::uint8_t>(value); };
    reset(), SetProgrammed(*image, 7, true);
    EXPECT_EQ(flags, value | 0x01);
    reset(), SetProgrammed(*image, 7, false);
    EXPECT_EQ(flags, value & 0xFE);
    reset(), SetMasked(*image, 7, true);
    EXPECT_EQ(flags, value & 0xFD);
    reset(), SetMasked(*image, 7, false);
    EXPECT_EQ(flags, value | 0x02);
    reset(), SetSkip(*image, 7, true);
    EXPECT_EQ(flags, value | 0x04);
    reset(), SetSkip(*image, 7, false);
    EXPECT_EQ(flags, value & 0xFB);
  }
}

TEST(ChannelFlags, SettersTouchNothingButTheFlagByte) {
  const auto before = MakePatternImage();
  for (const auto& [n, offset] : {std::pair{1, 3358},
                                  {240, 3597},
                                  {-1, 3608},
                                  {-11, 3618},
                                  {-20, 3627},
                                  {-21, 3598},
                                  {-30, 3607}}) {
    const std::vector<std::size_t> only_flags = {static_cast<std::size_t>(offset)};
    for (const auto setter : {SetProgrammed, SetMasked, SetSkip}) {
      auto on = std::make_unique<CloneImage>(*before);
      auto off = std::make_unique<CloneImage>(*before);
      setter(*on, n, true);
      setter(*off, n, false);
      EXPECT_EQ(DifferingOffsets(*on, *off), only_flags) << n;
    }
  }
}

TEST(ChannelFlags, AbsentChannelsReadAsFalseAndAreNotWritten) {
  auto image = MakePatternImage();
  const CloneImage before = *image;
  for (const int n : {-31, -32, -40, INT_MIN, 241, 300, INT_MAX}) {
    EXPECT_FALSE(IsProgrammed(*image, n)) << n;
    EXPECT_FALSE(IsMasked(*image, n)) << n;
    EXPECT_FALSE(IsSkip(*image, n)) << n;
    for (const bool value : {false, true}) {
      SetProgrammed(*image, n, value);
      SetMasked(*image, n, value);
      SetSkip(*image, n, value);
    }
    EXPECT_EQ(*image, before) << n;
  }
}

TEST(ChannelIndex, IsZeroForEveryInvalidNumber) {
  const auto image = MakeImage();
  EXPECT_EQ(ChannelIndex(*image, 0), 0);
  EXPECT_EQ(ChannelIndex(*image, -5), 0);
  EXPECT_EQ(ChannelIndex(*image, 241), 0);
  for (int n = -40; n <= 300; ++n) {
    EXPECT_EQ(ChannelIndex(*image, n), n >= 1 && n <= 240 ? n - 1 : 0) << n;
  }
}

TEST(ChannelTables, EntriesAreAddressedByTheChannelIndex) {
  auto image = MakeImage();
  const CloneImage& constant = *image;
  for (int n = -40; n <= 300; ++n) {
    const std::ptrdiff_t index = n >= 1 && n <= 240 ? n - 1 : 0;
    EXPECT_EQ(SummaryEntry(*image, n) - image->data(), 180 + index * 12) << n;
    EXPECT_EQ(NameEntry(*image, n) - image->data(), 11'202 + index * 10) << n;
    const auto* comment = reinterpret_cast<const std::uint8_t*>(ChannelComment(*image, n));
    EXPECT_EQ(comment - image->data(), 13'602 + index * 32) << n;
    EXPECT_EQ(SummaryEntry(constant, n), SummaryEntry(*image, n)) << n;
    EXPECT_EQ(NameEntry(constant, n), NameEntry(*image, n)) << n;
    EXPECT_EQ(ChannelComment(constant, n), ChannelComment(*image, n)) << n;
  }
}

TEST(ChannelCount, IsTheLittleEndianWordAt56) {
  const auto image = MakeImage(0);
  EXPECT_EQ(GetChannelCount(*image), 0);
  (*image)[56] = 0xF0;
  EXPECT_EQ(GetChannelCount(*image), 240);
  (*image)[57] = 0x01;
  EXPECT_EQ(GetChannelCount(*image), 496);
  (*image)[56] = 0xFF;
  (*image)[57] = 0xFF;
  EXPECT_EQ(GetChannelCount(*image), 65'535);
}

TEST(ChannelName, IsTheEightRecordBytesAndAZeroByte) {
  const auto image = MakeImage();
  PutBytes(*image, 3684, {'A', ' ', 0xB1, 0x10, 0xFF, 0x00, 'z', ' '});
  const ChannelName name = GetChannelName(*image, 1);
  EXPECT_EQ(std::string_view(name.data(), name.size()),
            std::string_view("A \xB1\x10\xFF\0z \0", 9));
}

TEST(ChannelName, IsAllZeroForAnAbsentChannel) {
  const auto image = MakePatternImage();
  for (const int n : {-31, 241}) {
    EXPECT_EQ(GetChannelName(*image, n), ChannelName{}) << n;
  }
}

struct NameCase {
  std::string_view typed;
  std::string_view stored;
};

TEST(ChannelName, IsStoredPaddedWithBlanksUpToTheZeroByteOrEightCharacters) {
  constexpr std::array kCases = {
      NameCase{"", "        "},
      NameCase{"RPT1", "RPT1    "},
      NameCase{"12345678", "12345678"},
      NameCase{"123456789", "12345678"},
      NameCase{" a b ", " a b    "},
      NameCase{{"AB\0CD", 5}, "AB      "},
      NameCase{"\x97\x9A\xFF", "\x97\x9A\xFF     "},
  };
  for (const NameCase& c : kCases) {
    for (const auto& [n, offset] : {std::pair{1, 3684}, {240, 8942}, {-21, 8964}, {-30, 9162}}) {
      auto image = MakePatternImage();
      CloneImage expected = *image;
      std::copy(c.stored.begin(), c.stored.end(), expected.begin() + offset);
      SetChannelName(*image, n, c.typed);
      EXPECT_EQ(*image, expected) << n << ": " << c.typed;
    }
  }
}

TEST(ChannelName, OfAnAbsentChannelIsNotWritten) {
  auto image = MakePatternImage();
  const CloneImage before = *image;
  SetChannelName(*image, -31, "NAME");
  SetChannelName(*image, 241, "NAME");
  EXPECT_EQ(*image, before);
}

TEST(ChannelComment, EndsAtItsZeroByteOrAfter32Bytes) {
  const auto image = MakeImage();
  EXPECT_EQ(ChannelCommentText(*image, 2), "");
  PutBytes(*image, 13'634, {'H', 'i', 0, 'x'});
  EXPECT_EQ(ChannelCommentText(*image, 2), "Hi");
  PutBytes(*image, 13'634, Bytes(31, 'c'));
  EXPECT_EQ(ChannelCommentText(*image, 2), std::string(31, 'c'));
  PutBytes(*image, 13'634, Bytes(64, 'd'));
  EXPECT_EQ(ChannelCommentText(*image, 2), std::string(32, 'd'));
  PutBytes(*image, 21'250, Bytes(32, 'e'));
  EXPECT_EQ(ChannelCommentText(*image, 240), std::string(32, 'e'));
}

TEST(FieldText, EndsAtItsZeroByteOrAtItsWidth) {
  const std::array<char, 5> field = {'a', 'b', 0, 'c', 'd'};
  EXPECT_EQ(FieldText(field.data(), 5), "ab");
  EXPECT_EQ(FieldText(field.data(), 2), "ab");
  EXPECT_EQ(FieldText(field.data(), 1), "a");
  EXPECT_EQ(FieldText(field.data() + 2, 3), "");
  EXPECT_EQ(FieldText(field.data() + 3, 2), "cd");
}

TEST(Words, AreLittleEndian) {
  std::array<std::uint8_t, 4> bytes = {0x78, 0x56, 0x34, 0xF2};
  EXPECT_EQ(ReadU16(bytes.data()), 0x5678);
  EXPECT_EQ(ReadU32(bytes.data()), 0xF2345678U);
  WriteU16(bytes.data() + 1, 0xABCD);
  EXPECT_EQ(bytes, (std::array<std::uint8_t, 4>{0x78, 0xCD, 0xAB, 0xF2}));
  WriteU32(bytes.data(), 0xFEDCBA98U);
  EXPECT_EQ(bytes, (std::array<std::uint8_t, 4>{0x98, 0xBA, 0xDC, 0xFE}));
}

}  // namespace
}  // namespace qz7
