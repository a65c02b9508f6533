#include "core/editors/wx_names.h"

#include <gtest/gtest.h>

#include "tests/unit/setting_fixture.h"

namespace qz7 {
namespace {

using namespace setting_fixture;

Bytes StoredAs(const std::string& name) {
  auto image = MakePatternImage();
  Put("wx-name-4", Text(name), *image);
  return BytesAt(*image, 10114 + 24, 8);
}

std::string NameShownAs(const Bytes& bytes) {
  auto image = MakeImage();
  PutBytes(*image, 10114 + 24, bytes);
  return Shown("wx-name-4", *image).text;
}

TEST(WxNames, ArePaddedWithBlanks) {
  EXPECT_EQ(StoredAs(""), Bytes(8, ' '));
  EXPECT_EQ(StoredAs("WX 1"), (Bytes{'W', 'X', ' ', '1', ' ', ' ', ' ', ' '}));
  EXPECT_EQ(StoredAs("12345678"), (Bytes{'1', '2', '3', '4', '5', '6', '7', '8'}));
  EXPECT_EQ(StoredAs("123456789"), (Bytes{'1', '2', '3', '4', '5', '6', '7', '8'}));
  EXPECT_EQ(StoredAs("a\xFE"), (Bytes{'a', 0xFE, ' ', ' ', ' ', ' ', ' ', ' '}));
}

TEST(WxNames, LoseTheirTrailingBlanksOnly) {
  EXPECT_EQ(NameShownAs(Bytes(8, ' ')), "");
  EXPECT_EQ(NameShownAs({' ', 'A', ' ', 'B', ' ', ' ', ' ', ' '}), " A B");
  EXPECT_EQ(NameShownAs({'1', '2', '3', '4', '5', '6', '7', '8'}), "12345678");
  EXPECT_EQ(NameShownAs({'A', ' ', 0, 'B', ' ', ' ', ' ', ' '}), "A");
}

TEST(WxNames, LieAtTheirPlaces) {
  auto image = MakeImage();
  DefaultsRecord record{};
  std::vector<SettingValue> names;
  for (int n = 0; n < 10; ++n) {
    names.push_back(Text(std::string(8, static_cast<char>('0' + n))));
  }
  StoreScreen(WxNamesScreen(), names, TargetIn(*image));
  StoreScreen(WxNamesScreen(), names, TargetIn(record));
  for (std::size_t n = 0; n < 10; ++n) {
    const Bytes expected(8, static_cast<std::uint8_t>('0' + n));
    EXPECT_EQ(BytesAt(*image, 10114 + 8 * n, 8), expected);
    EXPECT_EQ(BytesAt(record, 496 + 8 * n, 8), expected);
  }
}

TEST(WxNames, AreSavedAsDefaultsElevenTimesWanted) {
  const std::vector<SettingValue> names(10, Text("N"));
  DefaultsRecord record{};
  std::vector<DefaultsRecord> written;
  StoreDefaults(WxNamesScreen(), names, record, [&] { written.push_back(record); });
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
