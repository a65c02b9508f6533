#include <gtest/gtest.h>

#include "core/image/channel_description.h"
#include "core/interchange/codeplug_parts.h"
#include "core/interchange/codeplug_slots.h"
#include "tests/unit/codeplug_fixture.h"

namespace qz7 {
namespace {

using namespace codeplug_fixture;

using Values = std::vector<std::pair<std::string, std::string>>;

// Patches the document and gives back its tree.
ValueTree Patched(CloneImage& image, const Values& values) {
  EXPECT_EQ(Apply(image, Patch(values)), kNoErrors);
  return DumpCodeplug(image, test_region);
}

// A document with channel 12, whose record has what no field tells.
std::unique_ptr<CloneImage> MakeDocumentWithChannel12() {
  auto image = MakeNewDocument();
  PutChannel(*image, 12, {0x80, 0,   0x14, 0x55, 0x00, 0,    'A',  'B', ' ', ' ',  ' ',
                          ' ',  ' ', ' ',  0x00, 0x06, 0x00, 0x0C, 12,  0,   0xAB, 0xCD},
             0xF3);
  return image;
}

TEST(CodeplugPatch, EveryFieldOfAMemoryChannelIsReadBack) {
  const Values fields = {{"rx", "146.5200"},   {"tone-mode", "DCS"},   {"tone", "250.3"},
                         {"dcs", "754"},       {"mode", "AM"},         {"power", "Low2"},
                         {"step", "12.5 kHz"}, {"name", "\xC4 x,\"y"}, {"comment", "on the hill"},
                         {"icon", "26"},       {"skip", "on"},         {"masked", "on"},
                         {"option", "on"},     {"option-a", "on"},     {"option-b", "on"},
                         {"shift", "minus"},   {"offset", "1.6 MHz"}};
  for (const auto& [name, value] : fields) {
    SCOPED_TRACE(name);
    const auto image = MakeDocumentWithChannel12();
    const std::string place = "channels/12/" + name;
    const ValueTree before = DumpCodeplug(*image, test_region);
    ASSERT_NE(TextAt(before, place), value);
    const ValueTree after = Patched(*image, {{place, value}});
    EXPECT_EQ(name == "offset" ? "1.6000 MHz" : value, TextAt(after, place));
    EXPECT_EQ(TextAt(after, "channels/12/other/kept"), "80abcdf0");
    for (const auto& [other, text] : At(before, "channels/12").members) {
      EXPECT_TRUE(other == name || TextAt(after, "channels/12/" + other) == text.text) << other;
    }
  }
}

TEST(CodeplugPatch, EveryFieldThatIsTakenAwayIsThatOfANewChannel) {
  for (const auto& [name, value] : DescribeChannel(*MakeNewDocument(), 12, test_region)) {
    SCOPED_TRACE(name);
    const auto image = MakeDocumentWithChannel12();
    Dice dice(3);
    std::generate_n(image->begin() + 3678 + 11 * 22 + 18, 4, [&] { return dice.Byte(); });
    const Errors errors = Apply(*image, Only("channels/12/" + name, ValueTree()));
    if (name == "rx") {
      EXPECT_EQ(errors, Errors{"channels/12/rx: A valid receive frequency is required"});
    } else {
      EXPECT_EQ(errors, kNoErrors);
      const ValueTree tree = DumpCodeplug(*image, test_region);
      EXPECT_TRUE(name == "tx" || TextAt(tree, "channels/12/" + name) == value);
    }
  }
}

TEST(CodeplugPatch, AnOddSplitHasATransmitFrequencyAndNoOffset) {
  const auto image = MakeDocumentWithChannel12();
  ValueTree tree =
      Patched(*image, {{"channels/12/shift", "split"}, {"channels/12/tx", "433.1000"}});
  EXPECT_EQ(TextAt(tree, "channels/12/tx"), "433.1000");
  EXPECT_EQ(FindMember(At(tree, "channels/12"), "offset"), nullptr);
  EXPECT_EQ(BytesAt(*image, RecordPlace(12) + 14, 3), Bytes({0x43, 0x31, 0x00}));
  ValueTree back = Only("channels/12/shift", "plus");
  EXPECT_EQ(Apply(*image, back), Errors{"channels/12/tx: follows rx, shift and offset unless the "
                                        "shift is split"});
}

TEST(CodeplugPatch, AnOddSplitThatEndsTakesItsTransmitFrequencyAway) {
  const auto image = MakeDocumentWithChannel12();
  Patched(*image, {{"channels/12/shift", "split"}, {"channels/12/tx", "433.1000"}});
  ValueTree patch = Only("channels/12/shift", "plus");
  MergePatch(patch, NoMembers());
  AddMember(patch.members[0].value.members[0].value, "tx", ValueTree());
  EXPECT_EQ(Apply(*image, patch), kNoErrors);
  EXPECT_EQ(TextAt(DumpCodeplug(*image, test_region), "channels/12/offset"), "600 kHz");
}

// Everything at once, so that no value gets into another's way.
void ExpectReadBack(const Values& values) {
  const auto image = MakeNewDocument();
  const ValueTree tree = Patched(*image, values);
  for (const auto& [place, text] : values) {
    EXPECT_EQ(TextAt(tree, place), text) << place;
  }
}

TEST(CodeplugPatch, EverySlotIsReadBack) {
  const std::vector<std::string> tones = ToneTexts();
  Values values;
  for (const CodeplugSlots& part : SlotParts()) {
    for (const CodeplugSlot& slot : part.slots) {
      const std::string place = part.name + "/" + slot.name;
      if (slot.n > 0) {
        values.emplace_back(place + "/rx", "14" + std::to_string(4 + slot.n % 4) + ".5000");
      }
      values.emplace_back(place + "/tone", tones[values.size() % 39]);
    }
  }
  ASSERT_EQ(values.size(), 240U * 2 + 30);
  ExpectReadBack(values);
}

TEST(CodeplugPatch, EveryChoiceOfEverySettingIsReadBack) {
  for (std::size_t turn = 0; turn < 145; ++turn) {
    Values values;
    for (const CodeplugPart& part : PartsBehindChannels()) {
      for (const CodeplugRow& row : part.rows) {
        if (turn < row.form.choices.size()) {
          values.emplace_back(part.name + "/" + row.name, row.form.choices[turn]);
        }
      }
    }
    ASSERT_FALSE(values.empty());
    ExpectReadBack(values);
  }
}

TEST(CodeplugPatch, EveryTextIsReadBack) {
  const Values texts = {{"document/comment", "Club \xE4rea"}, {"identity/radio-name", "Other"},
                        {"identity/version-subtype", "2"},    {"settings/number-a", "123"},
                        {"settings/number-b", "7"},           {"settings/symbol-text", "QRV"},
                        {"vorn/vorn-identifier", "QZ7 (B)"},  {"autodial/autodial-1", "555-1234"},
                        {"autodial/autodial-9", "*#0A"},      {"wx-names/wx-name-1", "Storm"},
                        {"wx-names/wx-name-10", "12345678"}};
  for (const auto& [place, text] : texts) {
    const auto image = MakeNewDocument();
    EXPECT_EQ(TextAt(Patched(*image, {{place, text}}), place), text) << place;
  }
}

TEST(CodeplugPatch, AShorterIdentifierEndsWhereItEnds) {
  const auto image = MakeNewDocument();
  const auto base = MakeNewDocument();
  EXPECT_EQ(Apply(*base, Only("vorn/vorn-identifier", "LONGER ONE")), kNoErrors);
  *image = *base;
  EXPECT_EQ(BuildCodeplug(Only("vorn/vorn-identifier", "QZ"), *image, test_region), kNoErrors);
  EXPECT_EQ(BytesAt(*image, 10'208, 3), Bytes({26, 35, 0xFF}));
}

// The bytes that the radio's tables give, worked out by hand.
TEST(CodeplugPatch, BytesStandWhereTheRadioLooksForThem) {
  const auto image = MakeNewDocument();
  Patched(*image, {{"settings/lamp", "Toggle"},
                   {"settings/lock", "PTT"},
                   {"icons/icon-15", "ZZ"},
                   {"settings/scale-value", "10"},
                   {"settings/time-of-day", "02:10"},
                   {"wx-names/wx-name-2", "Fog"},
                   {"channels/220/rx", "433.5"},
                   {"groups/5", "1 220"}});
  EXPECT_EQ((*image)[10'203], 2);
  EXPECT_EQ((*image)[10'200], 3);
  EXPECT_EQ((*image)[10'239], 26);
  EXPECT_EQ((*image)[10'194], 15);
  EXPECT_EQ((*image)[10'242], 13);
  EXPECT_EQ(BytesAt(*image, 10'122, 8), Bytes({'F', 'o', 'g', ' ', ' ', ' ', ' ', ' '}));
  EXPECT_EQ(BytesAt(*image, RecordPlace(220) + 2, 3), Bytes({0x43, 0x35, 0x00}));
  EXPECT_EQ((*image)[FlagPlace(220)], 0x03);
  EXPECT_EQ(BytesAt(*image, 3110 + 4 * 48, 5), Bytes({0, 0, 0, 219, 255}));
  EXPECT_EQ((*image)[3106], 0);
}

TEST(CodeplugPatch, AGroupHasItsChannelsInTheirOrder) {
  const auto image = MakeNewDocument();
  const ValueTree tree =
      Patched(*image, {{"channels/2/rx", "145.5"}, {"pms/L1/rx", "144"}, {"groups/2", "L1 2 1"}});
  EXPECT_EQ(TextAt(tree, "groups/2"), "L1 2 1");
  EXPECT_EQ(GroupsOf(*image)[1], std::vector<int>({220, 1, 0}));
  EXPECT_EQ(TextAt(Patched(*image, {{"groups/2", ""}}), "groups/2"), "");
  EXPECT_EQ((*image)[3103], 255);
}

TEST(CodeplugPatch, ACodeWithoutAMeaningGivesWay) {
  const auto image = MakeNewDocument();
  (*image)[10'203] = 77;
  ValueTree tree = DumpCodeplug(*image, test_region);
  EXPECT_EQ(TextAt(tree, "settings/lamp"), "");
  EXPECT_EQ(TextAt(tree, "other/10203"), "4d");
  tree = Patched(*image, {{"settings/lamp", "Key"}});
  EXPECT_EQ(TextAt(tree, "settings/lamp"), "Key");
  EXPECT_EQ((*image)[10'203], 1);
}

TEST(CodeplugPatch, ASettingThatIsTakenAwayIsThatOfANewDocument) {
  const auto image = MakeNewDocument();
  (*image)[10'203] = 2;
  EXPECT_EQ(Apply(*image, Only("settings/lamp", ValueTree())), kNoErrors);
  EXPECT_EQ((*image)[10'203], 0);
}

TEST(CodeplugPatch, AChannelThatIsTakenAwayLeavesNothingBehind) {
  const auto image = MakeDocumentWithChannel12();
  EXPECT_EQ(Apply(*image, Only("channels/12", ValueTree())), kNoErrors);
  EXPECT_EQ(DifferingOffsets(Saved(*MakeNewDocument()), Saved(*image)), std::vector<std::size_t>());
}

TEST(CodeplugPatch, TheOperatingStateFollowsTheChannels) {
  const auto image = MakeNewDocument();
  Patched(*image, {{"channels/1/rx", "146.52"}});
  EXPECT_EQ(BytesAt(*image, 10'464, 3), Bytes({0x14, 0x65, 0x20}));
}

TEST(CodeplugPatch, TheOperatingStateStaysWhereNoChannelChanges) {
  const auto image = MakeNewDocument();
  (*image)[10'464] = 0x99;
  Patched(*image, {{"settings/lamp", "Key"}});
  EXPECT_EQ((*image)[10'464], 0x99);
}

}  // namespace
}  // namespace qz7
