#include "core/editors/frequency_reading.h"

#include <gtest/gtest.h>

#include "core/image/channel_text.h"
#include "tests/unit/editor_fixture.h"
#include "tests/unit/seams.h"

namespace qz7 {
namespace {

using namespace editor_fixture;

class ReceiveReadings : public testing::Test {
 protected:
  std::string Of(std::string_view text, int n = 7) const {
    return ReceiveReading(*image, n, text, test_region);
  }

  // The radio's version: its type, its subtype and whether it has wide coverage.
  void MakeVersion(std::uint8_t type, std::uint8_t subtype, std::uint8_t wide) {
    (*image)[3068] = type;
    (*image)[3067] = subtype;
    (*image)[3073] = wide;
  }

  std::unique_ptr<CloneImage> image = MakeWideImage();
};

TEST_F(ReceiveReadings, TellFrequencyBandAndSteps) {
  EXPECT_EQ(Of("145.005"), "145.0050 MHz, 2 m, 5 kHz steps");
  EXPECT_EQ(Of("145005"), "145.0050 MHz, 2 m, 5 kHz steps");
  EXPECT_EQ(Of("145005k"), "145.0050 MHz, 2 m, 5 kHz steps");
  EXPECT_EQ(Of("145.0125"), "145.0125 MHz, 2 m, 6.25 kHz steps");
  EXPECT_EQ(Of("433.5 MHz"), "433.5000 MHz, 70 cm, 5 kHz steps");
  EXPECT_EQ(Of("1000k"), "1.0000 MHz, MW, 5 kHz steps");
  EXPECT_EQ(Of(" 52"), "52.0000 MHz, 6m, 5 kHz steps");
}

TEST_F(ReceiveReadings, FollowTheTextAsItGrows) {
  EXPECT_EQ(Of("1"), "1.0000 MHz, MW, 5 kHz steps");
  EXPECT_EQ(Of("14"), "14.0000 MHz, SW, 5 kHz steps");
  EXPECT_EQ(Of("145"), "145.0000 MHz, 2 m, 5 kHz steps");
  EXPECT_EQ(Of("145."), "145.0000 MHz, 2 m, 5 kHz steps");
  EXPECT_EQ(Of("145.5"), "145.5000 MHz, 2 m, 5 kHz steps");
}

// What a comma does where it has not become a point.
TEST_F(ReceiveReadings, EndTheNumberWhereItsReaderDoes) {
  EXPECT_EQ(Of("145,5"), "145.0000 MHz, 2 m, 5 kHz steps");
  EXPECT_EQ(Of("145x5"), "145.0000 MHz, 2 m, 5 kHz steps");
}

TEST_F(ReceiveReadings, NameTheAmateurBandsWithinTheirEdges) {
  EXPECT_EQ(Of("143.995"), "143.9950 MHz, V Ham, 5 kHz steps");
  EXPECT_EQ(Of("144"), "144.0000 MHz, 2 m, 5 kHz steps");
  EXPECT_EQ(Of("148"), "148.0000 MHz, 2 m, 5 kHz steps");
  EXPECT_EQ(Of("148.005"), "148.0050 MHz, V Ham, 5 kHz steps");
  EXPECT_EQ(Of("429.995"), "429.9950 MHz, U Ham, 5 kHz steps");
  EXPECT_EQ(Of("430"), "430.0000 MHz, 70 cm, 5 kHz steps");
  EXPECT_EQ(Of("450"), "450.0000 MHz, 70 cm, 5 kHz steps");
  EXPECT_EQ(Of("450.005"), "450.0050 MHz, U Ham, 5 kHz steps");
}

TEST_F(ReceiveReadings, TellOfEveryBandAtItsEdges) {
  EXPECT_EQ(Of("0.495"), "0.4950 MHz, outside the bands");
  EXPECT_EQ(Of("0.5"), "0.5000 MHz, MW, 5 kHz steps");
  EXPECT_EQ(Of("1.795"), "1.7950 MHz, MW, 5 kHz steps");
  EXPECT_EQ(Of("1.8"), "1.8000 MHz, SW, 5 kHz steps");
  EXPECT_EQ(Of("15.995"), "15.9950 MHz, SW, 5 kHz steps");
  EXPECT_EQ(Of("16"), "16.0000 MHz, outside the bands");
  EXPECT_EQ(Of("47.995"), "47.9950 MHz, outside the bands");
  EXPECT_EQ(Of("48"), "48.0000 MHz, 6m, 5 kHz steps");
  EXPECT_EQ(Of("59"), "59.0000 MHz, FM, 5 kHz steps");
  EXPECT_EQ(Of("108"), "108.0000 MHz, FM, 5 kHz steps");
  EXPECT_EQ(Of("108.005"), "108.0050 MHz, Air, 5 kHz steps");
  EXPECT_EQ(Of("137"), "137.0000 MHz, V Ham, 5 kHz steps");
  EXPECT_EQ(Of("174"), "174.0000 MHz, TV, 5 kHz steps");
  EXPECT_EQ(Of("222"), "222.0000 MHz, Act1, 5 kHz steps");
  EXPECT_EQ(Of("728.995"), "728.9950 MHz, TV, 5 kHz steps");
  EXPECT_EQ(Of("729"), "729.0000 MHz, outside the bands");
  EXPECT_EQ(Of("799.995"), "799.9950 MHz, outside the bands");
  EXPECT_EQ(Of("800"), "800.0000 MHz, Act2, 5 kHz steps");
  EXPECT_EQ(Of("998.995"), "998.9950 MHz, Act2, 5 kHz steps");
  EXPECT_EQ(Of("999"), "999.0000 MHz, Act2, not received by this radio");
  EXPECT_EQ(Of("999.005"), "999.0050 MHz, outside the bands");
}

// The radio takes it though its band ends below it.
TEST_F(ReceiveReadings, TellWhereAnAcceptedFrequencyHasNoBand) {
  EXPECT_EQ(Of("823.995"), "823.9950 MHz, outside the bands, 5 kHz steps");
}

TEST_F(ReceiveReadings, TellWhatIsOnNoStep) {
  EXPECT_EQ(Of("145.003"), "145.0030 MHz, 2 m, on no step");
  EXPECT_EQ(Of("145.0062"), "145.0062 MHz, 2 m, on no step");
  EXPECT_EQ(Of("145.00625"), "145.0062 MHz, 2 m, on no step");
  EXPECT_EQ(Of("1.001"), "1.0010 MHz, MW, on no step");
}

TEST_F(ReceiveReadings, StepIn9KilohertzOnMediumWaveInOtherRegions) {
  const RegionGuard region({.variant = Variant::kOne});
  MakeVersion(1, 0, 1);
  EXPECT_EQ(Of("0.504"), "0.5040 MHz, MW, 9 kHz steps");
  EXPECT_EQ(Of("0.500"), "0.5000 MHz, outside the bands");
  EXPECT_EQ(Of("1.000"), "1.0000 MHz, MW, on no step");
  EXPECT_EQ(Of("90"), "90.0000 MHz, TV, 5 kHz steps");
}

TEST_F(ReceiveReadings, TellWhatARadioOfRestrictedCoverageDoesNotReceive) {
  MakeVersion(0, 0, 0);
  EXPECT_EQ(Of("143.995"), "143.9950 MHz, V Ham, not received by this radio");
  EXPECT_EQ(Of("144"), "144.0000 MHz, 2 m, 5 kHz steps");
  EXPECT_EQ(Of("147.995"), "147.9950 MHz, 2 m, 5 kHz steps");
  EXPECT_EQ(Of("148"), "148.0000 MHz, 2 m, not received by this radio");
  EXPECT_EQ(Of("162.55"), "162.5500 MHz, V Ham, not received by this radio");
  EXPECT_EQ(Of("20"), "20.0000 MHz, outside the bands");
  MakeVersion(2, 4, 0);
  EXPECT_EQ(Of("431.995"), "431.9950 MHz, 70 cm, not received by this radio");
  EXPECT_EQ(Of("432"), "432.0000 MHz, 70 cm, 5 kHz steps");
  MakeVersion(7, 0, 1);
  EXPECT_EQ(Of("145"), "145.0000 MHz, 2 m, not received by this radio");
}

TEST_F(ReceiveReadings, OfASpecialSlotKeepToItsBand) {
  EXPECT_EQ(Of("145", -26), "145.0000 MHz, 2 m, 5 kHz steps");
  EXPECT_EQ(Of("180", -26), "180.0000 MHz, TV, not in the band V Ham");
  EXPECT_EQ(Of("145", -7), "145.0000 MHz, 2 m, not in the band U Ham");
  EXPECT_EQ(Of("180.003", -26), "180.0030 MHz, TV, on no step");
}

TEST_F(ReceiveReadings, TellWhatIsNoFrequency) {
  for (const char* text : {"", "  ", "0", "0.0000", "."}) {
    EXPECT_EQ(Of(text), "No frequency: OK leaves the channel empty") << text;
    EXPECT_EQ(Of(text, -26), "No frequency: this channel needs one") << text;
  }
  for (const char* text : {"abc", "-145", "k145", "-", "0x"}) {
    EXPECT_EQ(Of(text), "Not a frequency") << text;
    EXPECT_EQ(Of(text, -26), "Not a frequency") << text;
  }
}

TEST_F(ReceiveReadings, TakeTooManyDigitsAsOkDoes) {
  EXPECT_EQ(Of("145.123456"), "145.1234 MHz, 2 m, on no step");
  EXPECT_EQ(Of("9999"), "9999.0000 MHz, outside the bands");
  EXPECT_EQ(Of("10000"), "10.0000 MHz, SW, 5 kHz steps");
  EXPECT_EQ(Of("999999"), "999.9990 MHz, outside the bands");
  // Leaving the field makes 145000.0000 of it, which are kilohertz.
  EXPECT_EQ(Of("145000000"), "145.0000 MHz, 2 m, 5 kHz steps");
  EXPECT_EQ(Of("9999999999"), "214748.3647 MHz, outside the bands");
}

// Texts as a user types them, right and wrong ones.
std::string RandomText(Dice& dice) {
  static const std::string kCharacters = "0123456789012345678901234567890123456789...kM ,-x";
  std::string text;
  for (int length = dice.Below(11); length > 0; --length) {
    text += kCharacters[static_cast<std::size_t>(dice.Below(static_cast<int>(kCharacters.size())))];
  }
  return text;
}

// The frequency that a reading starts with, where it says nothing against it.
std::string Accepted(const std::string& reading) {
  return reading.ends_with(" steps") ? reading.substr(0, reading.find(" MHz")) : "";
}

TEST_F(ReceiveReadings, AreWhatOkStores) {
  Dice dice(15);
  int accepted = 0;
  for (int i = 0; i < 20'000; ++i) {
    auto written = MakeWideImage();
    const int n = dice.Heads() ? 7 : -1 - dice.Below(30);
    auto editor = OpenChannelEditor(*written, n, test_region);
    // As often around a frequency that the slot takes.
    editor->receive = RandomText(dice);
    if (n == 7 && dice.Heads()) {
      editor->receive = "145." + std::to_string(dice.Below(10'000));
    }
    const std::string reading = ReceiveReading(*written, n, editor->receive, test_region);
    const std::string typed = editor->receive;
    const bool refused = AcceptChannel(*written, *editor).refused != EditorField::kNone;
    const std::string stored = OpenChannelEditor(*written, n, test_region)->receive;
    if (const std::string read = Accepted(reading); !read.empty()) {
      ++accepted;
      ASSERT_FALSE(refused) << n << ' ' << typed;
      ASSERT_EQ(stored.substr(stored.find_first_not_of(' ')), read) << n << ' ' << typed;
    } else {
      ASSERT_TRUE(refused || reading == "No frequency: OK leaves the channel empty") << typed;
    }
  }
  EXPECT_GT(accepted, 500);
  EXPECT_LT(accepted, 19'000);
}

TEST(TransmitReadings, TellFrequencyBandAndStepsWhateverTheRadioReceives) {
  EXPECT_EQ(TransmitReading("433.5", test_region), "433.5000 MHz, 70 cm, 5 kHz steps");
  EXPECT_EQ(TransmitReading("145.0125", test_region), "145.0125 MHz, 2 m, 6.25 kHz steps");
  EXPECT_EQ(TransmitReading("145.003", test_region), "145.0030 MHz, 2 m, on no step");
  EXPECT_EQ(TransmitReading("999", test_region), "999.0000 MHz, Act2, 5 kHz steps");
  EXPECT_EQ(TransmitReading("20", test_region), "20.0000 MHz, outside the bands");
  EXPECT_EQ(TransmitReading("", test_region), "0.0000 MHz, outside the bands");
}

TEST(OffsetReadings, TellTheValueExactly) {
  EXPECT_EQ(OffsetReading(ParseOffset("600 kHz")), "600 kHz");
  EXPECT_EQ(OffsetReading(ParseOffset("0.6")), "600 kHz");
  EXPECT_EQ(OffsetReading(ParseOffset("1.05")), "1.05 MHz");
  EXPECT_EQ(OffsetReading(ParseOffset("5000")), "5 MHz");
  EXPECT_EQ(OffsetReading(ParseOffset("")), "0 kHz");
  EXPECT_EQ(OffsetReading(ParseOffset("99.95")), "99.9500 MHz");
}

TEST(OffsetReadings, TellWhatLeavingTheFieldRefuses) {
  EXPECT_EQ(OffsetReading(ParseOffset("99.9501")), "99.9501 MHz, not in 5 kHz steps");
  EXPECT_EQ(OffsetReading(ParseOffset("99.955")), "99.9550 MHz, more than 99.95 MHz");
  EXPECT_EQ(OffsetReading(ParseOffset("200")), "200 MHz, more than 99.95 MHz");
  EXPECT_EQ(OffsetReading(ParseOffset("603k")), "0.6030 MHz, not in 5 kHz steps");
  EXPECT_EQ(OffsetReading(ParseOffset("605k")), "0.6050 MHz");
}

TEST(ToneListUses, NameTheListOfEachToneType) {
  EXPECT_EQ(ToneListUse(ToneMode::kNone), "None uses neither list.");
  EXPECT_EQ(ToneListUse(ToneMode::kEncode), "Tone Encode uses the CTCSS list.");
  EXPECT_EQ(ToneListUse(ToneMode::kSquelch), "Tone Squelch uses the CTCSS list.");
  EXPECT_EQ(ToneListUse(ToneMode::kDcs), "DCS uses the DCS list.");
  EXPECT_EQ(ToneListUse(std::nullopt),
            "A tone type without a name: which list it uses is not known.");
}

}  // namespace
}  // namespace qz7
