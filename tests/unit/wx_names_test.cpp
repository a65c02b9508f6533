#include "core/editors/wx_names.h"

#include <gtest/gtest.h>

#include "tests/unit/editor_fixture.h"

namespace qz7 {
namespace {

using namespace editor_fixture;

Bytes StoredAs(const std::string& name) {
  auto image = MakePatternImage();
  WxNames names = LoadWxNames(SourceIn(*image));
  EditWxName(names, 3, name);
  StoreWxNames(names, TargetIn(*image));
  return BytesAt(*image, 10114 + 24, 8);
}

std::string ShownAs(const Bytes& bytes) {
  auto image = MakeImage();
  PutBytes(*image, 10114 + 24, bytes);
  return LoadWxNames(SourceIn(*image)).names[3];
}

TEST(WxNames, ArePaddedWithBlanks) {
  EXPECT_EQ(StoredAs(""), Bytes(8, ' '));
  EXPECT_EQ(StoredAs("WX 1"), (Bytes{'W', 'X', ' ', '1', ' ', ' ', ' ', ' '}));
  EXPECT_EQ(StoredAs("12345678"), (Bytes{'1', '2', '3', '4', '5', '6', '7', '8'}));
  EXPECT_EQ(StoredAs("123456789"), (Bytes{'1', '2', '3', '4', '5', '6', '7', '8'}));
  EXPECT_EQ(StoredAs("a\xFE"), (Bytes{'a', 0xFE, ' ', ' ', ' ', ' ', ' ', ' '}));
}

TEST(WxNames, LoseTheirTrailingBlanksOnly) {
  EXPECT_EQ(ShownAs(Bytes(8, ' ')), "");
  EXPECT_EQ(ShownAs({' ', 'A', ' ', 'B', ' ', ' ', ' ', ' '}), " A B");
  EXPECT_EQ(ShownAs({'1', '2', '3', '4', '5', '6', '7', '8'}), "12345678");
  EXPECT_EQ(ShownAs({'A', ' ', 0, 'B', ' ', ' ', ' ', ' '}), "A");
}

TEST(WxNames, LieAtTheirPlaces) {
  auto image = MakeImage();
  DefaultsRecord record{};
  WxNames names;
  for (int n = 0; n < 10; ++n) {
    EditWxName(names, n, std::string(8, static_cast<char>('0' + n)));
  }
  StoreWxNames(names, TargetIn(*image));
  StoreWxNames(names, TargetIn(record));
  for (std::size_t n = 0; n < 10; ++n) {
    const Bytes expected(8, static_cast<std::uint8_t>('0' + n));
    EXPECT_EQ(BytesAt(*image, 10114 + 8 * n, 8), expected);
    const auto first = record.begin() + 496 + static_cast<std::ptrdiff_t>(8 * n);
    EXPECT_EQ(Bytes(first, first + 8), expected);
  }
}

TEST(WxNames, KnowThatTheyWereEdited) {
  WxNames names = LoadWxNames(SourceIn(*MakeImage()));
  EXPECT_FALSE(names.edited);
  EditWxName(names, 9, "X");
  EXPECT_TRUE(names.edited);
  EXPECT_EQ(names.names[9], "X");
}

TEST(WxNames, AreSavedAsDefaultsElevenTimesWanted) {
  WxNames names;
  for (std::size_t n = 0; n < 10; ++n) {
    names.names[n] = "N";
  }
  DefaultsRecord record{};
  std::vector<DefaultsRecord> written;
  SaveWxNamesAsDefaults(names, record, [&] { written.push_back(record); });
  ASSERT_EQ(written.size(), 11U);
  for (std::size_t i = 0; i < 10; ++i) {
    for (std::size_t n = 0; n < 10; ++n) {
      EXPECT_EQ(written[i][496 + 8 * n], n <= i ? 'N' : 0) << i << " " << n;
    }
  }
  EXPECT_EQ(written[10], written[9]);
}

}  // namespace
}  // namespace qz7
