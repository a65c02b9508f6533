#include <gtest/gtest.h>

#include "core/editors/channel_editor.h"
#include "core/editors/memory_list.h"
#include "core/image/operating_state.h"
#include "tests/unit/codeplug_fixture.h"

namespace qz7 {
namespace {

using namespace codeplug_fixture;

// What comes of it when a document is told and made again, on top of a new one.
void ExpectSameAgain(const CloneImage& image) {
  const ValueTree tree = DumpCodeplug(image, test_region);
  const auto made = MakeNewDocument();
  EXPECT_EQ(BuildCodeplug(tree, *made, test_region), kNoErrors);
  EXPECT_EQ(DifferingOffsets(Saved(image), Saved(*made)), std::vector<std::size_t>());
}

std::vector<RegionVariant> Regions() {
  std::vector<RegionVariant> regions;
  for (const bool extended : {false, true}) {
    regions.push_back({.variant = Variant::kZero, .extended_version = extended});
    regions.push_back({.variant = Variant::kOne, .extended_version = extended});
    for (int sub_variant = 0; sub_variant <= 6; ++sub_variant) {
      regions.push_back({Variant::kTwo, sub_variant, extended});
    }
  }
  return regions;
}

// A document that loads, with random bytes wherever it may have some.
std::unique_ptr<CloneImage> MakeRandomDocument(Dice& dice) {
  auto image = MakeNewDocument();
  for (std::size_t at = 8; at < image->size(); ++at) {
    const bool fixed = at >= 12 && at < 16;
    (*image)[at] = fixed ? (*image)[at] : dice.Byte();
  }
  return image;
}

// A document as a radio and its owner leave it, with a few random bytes here and there.
std::unique_ptr<CloneImage> MakeSpoiltDocument(Dice& dice) {
  auto image = MakeNewDocument();
  for (int i = dice.Below(60); i > 0; --i) {
    const int n = 1 + dice.Below(240);
    PutBytes(*image, RecordPlace(n), BytesAt(*image, RecordPlace(1), 22));
    PutBytes(*image, RecordPlace(n) + 2, Kilohertz(144'000 + 5 * dice.Below(800)));
    (*image)[RecordPlace(n) + 17] = static_cast<std::uint8_t>(dice.Below(64));
    (*image)[FlagPlace(n)] = static_cast<std::uint8_t>(dice.Below(16));
  }
  for (int i = dice.Below(200); i > 0; --i) {
    (*image)[static_cast<std::size_t>(3060 + dice.Below(8122))] = dice.Byte();
  }
  if (dice.Heads()) {
    RefreshOperatingState(*image);
  }
  return image;
}

TEST(CodeplugProperty, ANewDocumentIsMadeAgain) { ExpectSameAgain(*MakeNewDocument()); }

TEST(CodeplugProperty, AnyBytesAreMadeAgainInEveryRegion) {
  unsigned seed = 0;
  for (const RegionVariant& region : Regions()) {
    const RegionGuard guard(region);
    SCOPED_TRACE("seed " + std::to_string(++seed));
    Dice dice(seed);
    ExpectSameAgain(*MakeRandomDocument(dice));
    ExpectSameAgain(*MakeSpoiltDocument(dice));
    ExpectSameAgain(*MakeSpoiltDocument(dice));
  }
}

TEST(CodeplugProperty, OneChangedByteOfANewDocumentIsMadeAgain) {
  for (std::size_t at = 3060; at < 21'282; at += at < 11'202 ? 97 : 601) {
    SCOPED_TRACE("byte " + std::to_string(at));
    const auto image = MakeNewDocument();
    (*image)[at] = static_cast<std::uint8_t>((*image)[at] + 1 + at % 255);
    ExpectSameAgain(*image);
  }
}

TEST(CodeplugProperty, NoNameAsksForABox) {
  test_seams.messages.clear();
  Dice dice(99);
  ExpectSameAgain(*MakeRandomDocument(dice));
  EXPECT_TRUE(test_seams.messages.empty());
}

// A patch changes what it names, whatever hexadecimal stands beside it.
TEST(CodeplugProperty, AnEmptyPatchChangesNothing) {
  Dice dice(5);
  for (int i = 0; i < 20; ++i) {
    const auto image = dice.Heads() ? MakeRandomDocument(dice) : MakeSpoiltDocument(dice);
    CloneImage patched = *image;
    EXPECT_EQ(Apply(patched, NoMembers()), kNoErrors);
    EXPECT_EQ(DifferingOffsets(Saved(*image), Saved(patched)), std::vector<std::size_t>());
  }
}

}  // namespace
}  // namespace qz7
