#include <gtest/gtest.h>

#include "tests/unit/setting_fixture.h"

// The five feature editors over random bytes: what opening and OK rewrites, what the defaults
// record mirrors, and that nothing beside an editor's own bytes is ever touched.
namespace qz7 {
namespace {

using namespace setting_fixture;

struct FeatureEditor {
  const char* name;
  const SettingScreen& screen;
  Bytes (*rewritten)(const CloneImage& image);  // the bytes of `mirrored` after open and OK
  // Its bytes: image offset, record offset, size. Of the last one only `bits`.
  struct Piece {
    std::size_t image;
    std::size_t record;
    std::size_t size;
  };
  std::vector<Piece> pieces;
  Piece switches;
  int bits;
};

void Append(Bytes& bytes, const Bytes& more) {
  bytes.insert(bytes.end(), more.begin(), more.end());
}

// Only the symbol text comes back in another form: zeros from its first zero on.
Bytes RewrittenSettings(const CloneImage& image) {
  Bytes bytes = {image[10502], image[10503], image[10194]};
  Append(bytes, BytesAt(image, 10196, 4));
  Append(bytes, {image[10224], image[10242], image[10243]});
  bool ended = false;
  for (std::size_t i = 10244; i < 10252; ++i) {
    ended = ended || image[i] == 0;
    bytes.push_back(ended ? 0 : image[i]);
  }
  return bytes;
}

// The flag becomes 0 or 1, a code outside the character set becomes a blank, 36.
Bytes RewrittenVorn(const CloneImage& image) {
  Bytes bytes = {image[10205], static_cast<std::uint8_t>(image[10207] != 0)};
  bool ended = false;
  for (std::size_t i = 10208; i < 10224; ++i) {
    ended = ended || image[i] == 0xFF;
    const auto shown = static_cast<std::uint8_t>(image[i] < 44 ? image[i] : 36);
    bytes.push_back(ended ? image[i] : shown);
  }
  return bytes;
}

// Of a code the low four bits stay, and behind the end there is fill.
Bytes RewrittenAutodial(const CloneImage& image) {
  Bytes bytes;
  for (std::size_t memory = 10252; memory < 10396; memory += 16) {
    bool ended = false;
    for (std::size_t i = memory; i < memory + 16; ++i) {
      ended = ended || image[i] == 0xFF;
      bytes.push_back(ended ? 0xFF : image[i] & 0x0F);
    }
  }
  return bytes;
}

// A name ends at its first zero; blanks follow.
Bytes RewrittenWxNames(const CloneImage& image) {
  Bytes bytes;
  for (std::size_t name = 10114; name < 10194; name += 8) {
    bool ended = false;
    for (std::size_t i = name; i < name + 8; ++i) {
      ended = ended || image[i] == 0;
      bytes.push_back(ended ? ' ' : image[i]);
    }
  }
  return bytes;
}

Bytes RewrittenIcons(const CloneImage& image) { return BytesAt(image, 10225, 15); }

std::vector<FeatureEditor> Editors() {
  return {
      {"settings",
       SettingsScreen(),
       RewrittenSettings,
       {{10502, 794, 1},
        {10503, 795, 1},
        {10194, 576, 1},
        {10196, 578, 4},
        {10224, 606, 1},
        {10242, 624, 1},
        {10243, 625, 1},
        {10244, 626, 8}},
       {10505, 797, 1},
       0x40},
      {"VORN",
       VornScreen(),
       RewrittenVorn,
       {{10205, 587, 1}, {10207, 589, 1}, {10208, 590, 16}},
       {10506, 798, 1},
       0x08},
      {"autodial", AutodialScreen(), RewrittenAutodial, {{10252, 634, 144}}, {10504, 796, 1}, 0x01},
      {"WX names", WxNamesScreen(), RewrittenWxNames, {{10114, 496, 80}}, {10114, 496, 0}, 0},
      {"icons", IconsScreen(), RewrittenIcons, {{10225, 607, 15}}, {10225, 607, 0}, 0},
  };
}

// As its buttons do: opens from a place, stores to a place.
void OpenAndStore(const FeatureEditor& editor, SettingsSource from, SettingsTarget to) {
  EXPECT_EQ(StoreScreen(editor.screen, LoadScreen(editor.screen, from), to), std::nullopt);
}

// `image` after OK of an editor that shows what `source` holds.
CloneImage Stored(const FeatureEditor& editor, const CloneImage& source, const CloneImage& image) {
  CloneImage expected = image;
  const Bytes rewritten = editor.rewritten(source);
  std::size_t i = 0;
  for (const FeatureEditor::Piece& piece : editor.pieces) {
    for (std::size_t k = 0; k < piece.size; ++k) {
      expected[piece.image + k] = rewritten.at(i++);
    }
  }
  EXPECT_EQ(i, rewritten.size());
  if (editor.bits != 0) {
    const int kept = image[editor.switches.image] & ~editor.bits;
    const int taken = source[editor.switches.image] & editor.bits;
    expected[editor.switches.image] = static_cast<std::uint8_t>(kept | taken);
  }
  return expected;
}

// Random bytes, with many ends of text among them.
std::unique_ptr<CloneImage> RandomSettings(Dice& dice) {
  auto image = MakeRandomImage(dice);
  for (std::size_t i = 9618; i < 10510; ++i) {
    const int kind = dice.Below(12);
    (*image)[i] = kind == 0 ? 0xFF : kind == 1 ? 0 : (*image)[i];
  }
  return image;
}

// Values that the lists hold, so that no byte is left alone.
void PutListedValues(Dice& dice, CloneImage& image) {
  const auto put = [&](std::size_t offset, int first, int count) {
    image[offset] = static_cast<std::uint8_t>(first + dice.Below(count));
  };
  put(10502, 0, 16);
  put(10503, 0, 9);
  put(10194, 6, 10);
  put(10224, 0, 7);
  put(10242, 0, 145);
  put(10243, 0, 7);
  put(10205, 0, 3);
  for (std::size_t i = 10225; i < 10240; ++i) {
    put(i, 0, 27);
  }
}

TEST(FeatureEditors, OpenAndOkRewritesOnlyWhatTheyShowInAnotherForm) {
  for (const FeatureEditor& editor : Editors()) {
    for (unsigned seed = 1; seed <= 200; ++seed) {
      SCOPED_TRACE(std::string(editor.name) + ", seed " + std::to_string(seed));
      Dice dice(seed);
      auto image = RandomSettings(dice);
      const CloneImage expected = Stored(editor, *image, *image);
      OpenAndStore(editor, SourceIn(*image), TargetIn(*image));
      EXPECT_EQ(DifferingOffsets(expected, *image), std::vector<std::size_t>{});
    }
  }
}

TEST(FeatureEditors, OpenAndOkChangesNothingTheSecondTime) {
  for (const FeatureEditor& editor : Editors()) {
    Dice dice(7);
    auto image = RandomSettings(dice);
    OpenAndStore(editor, SourceIn(*image), TargetIn(*image));
    const CloneImage before = *image;
    OpenAndStore(editor, SourceIn(*image), TargetIn(*image));
    EXPECT_EQ(*image, before) << editor.name;
  }
}

TEST(FeatureEditors, SaveTheirDefaultsAtTheMirroredPlacesAndNowhereElse) {
  for (const FeatureEditor& editor : Editors()) {
    for (unsigned seed = 1; seed <= 50; ++seed) {
      SCOPED_TRACE(std::string(editor.name) + ", seed " + std::to_string(seed));
      Dice dice(seed);
      auto image = RandomSettings(dice);
      PutListedValues(dice, *image);
      DefaultsRecord record;
      for (std::uint8_t& byte : record) {
        byte = dice.Byte();
      }
      DefaultsRecord expected = record;
      // The tail of an identifier that is longer than the new one is the record's own.
      CloneImage mirror = *image;
      for (std::size_t i = 0; i < 16; ++i) {
        mirror[10208 + i] = record[590 + i];
      }
      OpenAndStore(editor, SourceIn(*image), TargetIn(mirror));
      for (const FeatureEditor::Piece& piece : editor.pieces) {
        for (std::size_t k = 0; k < piece.size; ++k) {
          expected[piece.record + k] = mirror[piece.image + k];
        }
      }
      if (editor.bits != 0) {
        std::uint8_t& byte = expected[editor.switches.record];
        byte = static_cast<std::uint8_t>((byte & ~editor.bits) |
                                         ((*image)[editor.switches.image] & editor.bits));
      }
      OpenAndStore(editor, SourceIn(*image), TargetIn(record));
      EXPECT_EQ(record, expected);
    }
  }
}

// What one document has, another gets by way of the defaults record, and nothing else with it.
TEST(FeatureEditors, CarryTheirSettingsToAnotherImageByWayOfTheRecord) {
  for (const FeatureEditor& editor : Editors()) {
    for (unsigned seed = 1; seed <= 50; ++seed) {
      SCOPED_TRACE(std::string(editor.name) + ", seed " + std::to_string(seed));
      Dice dice(seed);
      auto first = RandomSettings(dice);
      PutListedValues(dice, *first);
      // An identifier of full length: of a shorter one the tail is not carried.
      for (std::size_t i = 10208; i < 10224; ++i) {
        (*first)[i] = static_cast<std::uint8_t>(dice.Below(44));
      }
      auto second = RandomSettings(dice);
      DefaultsRecord record;
      record.fill(0x99);
      const CloneImage expected = Stored(editor, *first, *second);
      OpenAndStore(editor, SourceIn(*first), TargetIn(record));
      OpenAndStore(editor, SourceIn(record), TargetIn(*second));
      EXPECT_EQ(DifferingOffsets(expected, *second), std::vector<std::size_t>{});
    }
  }
}

}  // namespace
}  // namespace qz7
