#include "core/image/operating_state.h"

#include <gtest/gtest.h>

#include <array>
#include <cstddef>

#include "tests/unit/image_fixture.h"

namespace qz7 {
namespace {

using namespace image_fixture;

// 145.0125 MHz, plus 7.012 MHz: both fields end in 2.
const Bytes& SourceRecord() {
  static const Bytes record = {0xE6, 0x07, 0x14, 0x50, 0x12, 0xA6, 'R',  'P',  'T',  '1',  'a',
                               'b',  0xB1, ' ',  0x00, 0x70, 0x12, 0x2A, 0x0C, 0x67, 0xA5, 0x5A};
  return record;
}

// Bytes 10456..10479 made from the source record.
const Bytes& OperatingBlock() {
  static const Bytes block = {0xE6, 0x02, 0x07, 0x02, 0x02, 0x0C, 0x67, 0x02,
                              0x14, 0x50, 0x12, 'P',  0x00, 0x70, 0x12, 'P',
                              'R',  'P',  'T',  '1',  'a',  'b',  0xB1, ' '};
  return block;
}

constexpr std::size_t kMode = 10'451;
constexpr std::size_t kSelector = 10'454;
constexpr std::size_t kSlotIndex = 10'455;
constexpr std::size_t kBlockStart = 10'456;
constexpr std::size_t kReceiveMark = 10'467;
constexpr std::size_t kOffsetMark = 10'471;
constexpr std::size_t kMemory = 10'482;
constexpr std::size_t kMemoryFlags = 10'484;
constexpr std::size_t kBandA = 10'494;
constexpr std::size_t kBandB = 10'495;

// An image whose operating mode is `mode`, with a block of 0xEE to be overwritten.
std::unique_ptr<CloneImage> ImageInMode(int mode) {
  auto image = MakeImage();
  PutBytes(*image, kBlockStart, Bytes(26, 0xEE));
  (*image)[kMode] = static_cast<std::uint8_t>(mode);
  return image;
}

Bytes Block(const CloneImage& image) { return BytesAt(image, kBlockStart, 24); }

TEST(OperatingState, FollowsTheMemoryChannelInEveryMemoryMode) {
  for (const int mode : {0, 2, 3, 4}) {
    const auto image = ImageInMode(mode);
    PutChannel(*image, 20, SourceRecord(), 0xF7);
    (*image)[kMemory] = 19;
    CloneImage expected = *image;
    PutBytes(expected, kBlockStart, OperatingBlock());
    expected[kMemoryFlags] = 0xF7;
    RefreshOperatingState(*image);
    EXPECT_EQ(DifferingOffsets(*image, expected), std::vector<std::size_t>{}) << mode;
  }
}

TEST(OperatingState, FollowsChannel240) {
  const auto image = ImageInMode(0);
  PutChannel(*image, 240, SourceRecord());
  (*image)[kMemory] = 239;
  RefreshOperatingState(*image);
  EXPECT_EQ(Block(*image), OperatingBlock());
  EXPECT_EQ((*image)[kMemory], 239);
}

TEST(OperatingState, FallsBackToChannel1WhenTheMemoryIsNotProgrammed) {
  for (const int index : {1, 19, 239, 240, 254, 255}) {
    const auto image = ImageInMode(0);
    PutChannel(*image, 1, SourceRecord(), 0x05);
    PutChannel(*image, 20, Bytes(22, 0x33), 0x02);
    (*image)[kMemory] = static_cast<std::uint8_t>(index);
    RefreshOperatingState(*image);
    EXPECT_EQ((*image)[kMemory], 0) << index;
    EXPECT_EQ(Block(*image), OperatingBlock()) << index;
    EXPECT_EQ((*image)[kMemoryFlags], 0x05) << index;
  }
}

TEST(OperatingState, TakesChannel1EvenWhenThatIsNotProgrammed) {
  const auto image = ImageInMode(3);
  PutChannel(*image, 1, SourceRecord(), 0xF2);
  RefreshOperatingState(*image);
  EXPECT_EQ(Block(*image), OperatingBlock());
  EXPECT_EQ((*image)[kMemoryFlags], 0xF2);
}

// Where the source record of the VFO and home modes lies: one record past the current band's own.
struct SourceCase {
  int mode;
  int selector;
  int band_a;
  int band_b;
  std::size_t record;
};

constexpr std::array kSourceCases = {
    SourceCase{1, 0, 0, 5, 9200},     SourceCase{1, 0, 5, 0, 9310},   SourceCase{1, 0, 8, 0, 9376},
    SourceCase{1, 0, 9, 0, 9398},     SourceCase{1, 1, 5, 0, 9420},   SourceCase{1, 1, 0, 5, 9530},
    SourceCase{1, 2, 0, 5, 9530},     SourceCase{1, 255, 0, 8, 9596}, SourceCase{1, 1, 0, 9, 9618},
    SourceCase{5, 0, 0, 5, 8980},     SourceCase{5, 0, 5, 0, 9090},   SourceCase{5, 0, 9, 0, 9178},
    SourceCase{5, 1, 0, 5, 9090},     SourceCase{5, 255, 5, 0, 8980}, SourceCase{5, 1, 0, 8, 9156},
    SourceCase{1, 0, 255, 0, 14'810},
};

TEST(OperatingState, TakesTheRecordBehindTheCurrentBandInVfoAndHomeMode) {
  for (const SourceCase& c : kSourceCases) {
    const auto image = ImageInMode(c.mode);
    (*image)[kSelector] = static_cast<std::uint8_t>(c.selector);
    (*image)[kBandA] = static_cast<std::uint8_t>(c.band_a);
    (*image)[kBandB] = static_cast<std::uint8_t>(c.band_b);
    (*image)[kMemory] = 7;
    (*image)[kMemoryFlags] = 0x99;
    PutBytes(*image, c.record, SourceRecord());
    CloneImage expected = *image;
    PutBytes(expected, kBlockStart, OperatingBlock());
    RefreshOperatingState(*image);
    EXPECT_EQ(DifferingOffsets(*image, expected), std::vector<std::size_t>{})
        << "mode " << c.mode << ", record " << c.record;
  }
}

TEST(OperatingState, StaysAloneInEveryOtherMode) {
  for (int mode = 6; mode < 256; ++mode) {
    auto image = MakePatternImage();
    (*image)[kMode] = static_cast<std::uint8_t>(mode);
    const CloneImage before = *image;
    RefreshOperatingState(*image);
    EXPECT_EQ(*image, before) << mode;
  }
}

TEST(OperatingState, TakesEveryFieldFromItsOwnBits) {
  for (int value = 0; value < 256; ++value) {
    const auto image = ImageInMode(0);
    Bytes record(22, static_cast<std::uint8_t>(~value));
    record[5] = static_cast<std::uint8_t>(value);
    record[17] = static_cast<std::uint8_t>(value);
    PutChannel(*image, 1, record);
    RefreshOperatingState(*image);
    EXPECT_EQ((*image)[10'456], 255 - value);
    EXPECT_EQ((*image)[10'457], value / 4 % 4);
    EXPECT_EQ((*image)[10'458], 255 - value);
    EXPECT_EQ((*image)[10'459], value % 4);
    EXPECT_EQ((*image)[10'460], value / 16);
    EXPECT_EQ((*image)[10'461], 255 - value);
    EXPECT_EQ((*image)[10'462], 255 - value);
    EXPECT_EQ((*image)[10'463], value % 4);
  }
}

// Refreshes from a record whose two frequency fields end in these bytes.
std::unique_ptr<CloneImage> Refreshed(int receive_end, int offset_end, std::uint8_t old_marks) {
  auto image = ImageInMode(0);
  Bytes record = SourceRecord();
  record[4] = static_cast<std::uint8_t>(receive_end);
  record[16] = static_cast<std::uint8_t>(offset_end);
  PutChannel(*image, 1, record);
  (*image)[kReceiveMark] = old_marks;
  (*image)[kOffsetMark] = old_marks;
  RefreshOperatingState(*image);
  return image;
}

bool EndsIn2Or7(int byte) { return byte % 16 == 2 || byte % 16 == 7; }

TEST(OperatingMarks, OfReceiveIsSetWhenBothFieldsEndIn2Or7) {
  EXPECT_EQ((*Refreshed(0x12, 0x37, 0))[kReceiveMark], 0x50);
  EXPECT_EQ((*Refreshed(0x37, 0x12, 0))[kReceiveMark], 0x50);
  for (int end = 0; end < 256; ++end) {
    EXPECT_EQ((*Refreshed(end, 0x12, 0xEE))[kReceiveMark], EndsIn2Or7(end) ? 0x50 : 0x00) << end;
  }
}

TEST(OperatingMarks, OfReceiveIsLostWhenTheOffsetDoesNotEndIn2Or7) {
  for (int end = 0; end < 256; ++end) {
    EXPECT_EQ((*Refreshed(0x12, end, 0x50))[kReceiveMark], EndsIn2Or7(end) ? 0x50 : 0x00) << end;
    EXPECT_EQ((*Refreshed(0x00, end, 0x50))[kReceiveMark], 0x00) << end;
  }
}

TEST(OperatingMarks, OfTheOffsetIsSetButNeverCleared) {
  for (int end = 0; end < 256; ++end) {
    EXPECT_EQ((*Refreshed(0x00, end, 0x50))[kOffsetMark], 0x50) << end;
    EXPECT_EQ((*Refreshed(0x12, end, 0x00))[kOffsetMark], EndsIn2Or7(end) ? 0x50 : 0x00) << end;
    EXPECT_EQ((*Refreshed(0x12, end, 0xEE))[kOffsetMark], EndsIn2Or7(end) ? 0x50 : 0xEE) << end;
  }
}

TEST(OperatingState, StaysInsideTheImageForEveryIndexAndCount) {
  for (const int count : {0, 1, 10, 239, 240, 300, 65'535}) {
    for (int mode = 0; mode < 6; ++mode) {
      for (int index = 0; index < 256; ++index) {
        auto image = MakeImage(count);
        (*image)[3358 + 9] = 0x01;
        (*image)[kMode] = static_cast<std::uint8_t>(mode);
        (*image)[kMemory] = static_cast<std::uint8_t>(index);
        (*image)[kBandA] = static_cast<std::uint8_t>(index);
        RefreshOperatingState(*image);
        const bool keeps = mode == 1 || mode == 5 || (index == 9 && count >= 10);
        ASSERT_EQ((*image)[kMemory], keeps ? index : 0) << count << ": " << mode << ", " << index;
      }
    }
  }
}

TEST(OperatingState, IsNotWrittenWithoutAnyChannel) {
  const auto image = ImageInMode(0);
  (*image)[56] = 0;
  (*image)[kMemoryFlags] = 0x99;
  RefreshOperatingState(*image);
  EXPECT_EQ(BytesAt(*image, kBlockStart, 26), Bytes(26, 0xEE));
  EXPECT_EQ((*image)[kMemoryFlags], 0x99);
}

TEST(OperatingMirror, TakesTheSlotOfTheSelectedBank) {
  struct Case {
    int selector;
    int slot;
    std::size_t record;
  };
  constexpr std::array kCases = {Case{0, 0, 9178}, Case{0, 5, 9288}, Case{0, 9, 9376},
                                 Case{1, 0, 9398}, Case{1, 5, 9508}, Case{1, 9, 9596}};
  for (const Case& c : kCases) {
    const auto image = ImageInMode(0);
    (*image)[kSelector] = static_cast<std::uint8_t>(c.selector);
    (*image)[kSlotIndex] = static_cast<std::uint8_t>(c.slot);
    (*image)[kMemory] = 7;
    (*image)[kMemoryFlags] = 0x99;
    PutBytes(*image, c.record, SourceRecord());
    CloneImage expected = *image;
    PutBytes(expected, kBlockStart, OperatingBlock());
    expected[kReceiveMark] = 0xEE;
    expected[kOffsetMark] = 0xEE;
    expected[10'480] = 0xA5;
    expected[10'481] = 0x5A;
    MirrorOperatingChannel(*image);
    EXPECT_EQ(DifferingOffsets(*image, expected), std::vector<std::size_t>{}) << c.record;
  }
}

TEST(OperatingMirror, LeavesTheMarksAlone) {
  for (const std::uint8_t mark : {std::uint8_t{0x00}, std::uint8_t{0x50}}) {
    for (const int end : {0x00, 0x12}) {
      const auto image = ImageInMode(1);
      Bytes record = SourceRecord();
      record[4] = static_cast<std::uint8_t>(end);
      record[16] = static_cast<std::uint8_t>(end);
      PutBytes(*image, 9178, record);
      (*image)[kReceiveMark] = mark;
      (*image)[kOffsetMark] = mark;
      MirrorOperatingChannel(*image);
      EXPECT_EQ((*image)[10'466], end);
      EXPECT_EQ((*image)[kReceiveMark], mark);
      EXPECT_EQ((*image)[kOffsetMark], mark);
    }
  }
}

TEST(OperatingMirror, ChangesNothingForABankSelectorAbove1) {
  for (int selector = 2; selector < 256; ++selector) {
    auto image = MakePatternImage();
    (*image)[kSelector] = static_cast<std::uint8_t>(selector);
    (*image)[kSlotIndex] = 3;
    const CloneImage before = *image;
    MirrorOperatingChannel(*image);
    EXPECT_EQ(*image, before) << selector;
  }
}

TEST(OperatingMirror, TakesEveryFieldFromItsOwnBits) {
  for (int value = 0; value < 256; ++value) {
    const auto image = ImageInMode(0);
    Bytes record(22, static_cast<std::uint8_t>(~value));
    record[5] = static_cast<std::uint8_t>(value);
    record[17] = static_cast<std::uint8_t>(value);
    PutBytes(*image, 9178, record);
    MirrorOperatingChannel(*image);
    const auto other = static_cast<std::uint8_t>(~value);
    EXPECT_EQ((*image)[10'456], other);
    EXPECT_EQ((*image)[10'457], value / 4 % 4);
    EXPECT_EQ((*image)[10'458], other);
    EXPECT_EQ((*image)[10'459], value % 4);
    EXPECT_EQ((*image)[10'460], value / 16);
    EXPECT_EQ((*image)[10'463], value % 4);
    EXPECT_EQ(BytesAt(*image, 10'472, 10), Bytes(10, other));
  }
}

}  // namespace
}  // namespace qz7
