#include "core/interchange/list_recognition.h"

#include <gtest/gtest.h>

#include "core/interchange/import.h"
#include "tests/unit/codeplug_fixture.h"

namespace qz7 {
namespace {

using codeplug_fixture::MakeNewDocument;
using Lines = std::vector<std::string>;

struct Recognised {
  Lines channels;  // "146.9400 146.3400 minus Tone Encode 100.0 NAME|comment"
  Lines doubts;
};

Recognised Read(const std::string& text) {
  const auto image = MakeNewDocument();
  const auto* bytes = reinterpret_cast<const std::uint8_t*>(text.data());
  const RecognisedList list = RecogniseList(std::span(bytes, text.size()));
  EXPECT_TRUE(list.is_recognised);
  ImportSession session;
  ImportRequest request;
  request.columns = kRecognisedColumns;
  const auto* made = reinterpret_cast<const std::uint8_t*>(list.text.data());
  const auto offer = OfferImport(*image, session, std::span(made, list.text.size()), request);
  Recognised recognised;
  for (const ImportRecord& record : offer->list.Rows()) {
    std::string channel;
    for (const auto& [name, value] : DescribeRecord(*image, record, test_region)) {
      const bool told =
          name == "rx" || name == "tx" || name == "shift" || name == "tone-mode" || name == "tone";
      channel += told ? value + " " : name == "name" ? value + "|" : name == "comment" ? value : "";
    }
    recognised.channels.push_back(channel);
  }
  for (const ImportDoubt& doubt : AllDoubts(list, offer->doubts)) {
    recognised.doubts.push_back(DoubtLine(doubt));
  }
  return recognised;
}

Lines Channels(const std::string& text) {
  const Recognised recognised = Read(text);
  EXPECT_EQ(recognised.doubts, Lines());
  return recognised.channels;
}
std::string Channel(const std::string& text) {
  const Lines channels = Channels(text);
  return channels.size() == 1 ? channels[0] : std::to_string(channels.size()) + " channels";
}

constexpr const char* kHill = "146.9400 146.3400 minus Tone Encode 100.0 K1ABC|";

TEST(ListRecognition, OutputInputUplinkAndDownlinkTones) {
  EXPECT_EQ(Channels("Output Freq,Input Freq,Offset,Uplink Tone,Downlink Tone,Call,Location\n"
                     "146.940,146.340,-0.600,100.0,100.0,K1ABC,North hill\n"
                     "53.05,52.05,-1.0,88.5,,K2ABC,\"Bluff, east\"\n"),
            Lines({"146.9400 146.3400 minus Tone Squelch 100.0 K1ABC|North hill",
                   "53.0500 52.0500 minus Tone Encode 88.5 K2ABC|Bluff, east"}));
}

TEST(ListRecognition, FrequencyInputPlAndPlaces) {
  EXPECT_EQ(Channels("Frequency,Input Freq,PL,TSQ,Nearest City,Landmark,Callsign\n"
                     "146.940 MHz,146.340 MHz,CTCSS 100.0,,Ford,North hill,K1ABC\n"
                     "444.1,449.1,,127.3,Ford,,K2ABC\n"),
            Lines({std::string(kHill) + "Ford, North hill",
                   "444.1000 449.1000 plus Tone Squelch 127.3 K2ABC|Ford"}));
}

TEST(ListRecognition, FreqInputOffsetToneLocationCallUse) {
  EXPECT_EQ(Channels("Freq,Input,Offset,Tone,Location,Call,Use\n"
                     "146.94,,-,100,Ford,K1ABC,OPEN\n"
                     "147.12,,+0.6,,Near,K2ABC,CLOSED\n"),
            Lines({std::string(kHill) + "Ford", "147.1200 147.7200 plus None 100.0 K2ABC|Near"}));
}

TEST(ListRecognition, ReceiveTransmitOffsetDirectionAndToneMode) {
  EXPECT_EQ(
      Channels("Receive Frequency,Transmit Frequency,Offset Frequency,Offset Direction,Operating "
               "Mode,Name,Tone Mode,CTCSS,DCS,Comment\n"
               "146.94000,146.34000,600 kHz,Minus,FM,K1ABC,Tone,100.0 Hz,023,Ford\n"
               "433.50000,433.50000, ,Simplex,FM,CALL,None,88.5 Hz,023,\n"
               "146.70000,,600 kHz,DUP-,FM,K3,T Sql,127.3 Hz,023,\n"),
      Lines({std::string(kHill) + "Ford", "433.5000 433.5000 simplex None 100.0 CALL|",
             "146.7000 146.1000 minus Tone Squelch 127.3 K3|"}));
}

TEST(ListRecognition, LocationNameFrequencyDuplexOffset) {
  EXPECT_EQ(Channels("Location,Name,Frequency,Duplex,Offset,Tone,rToneFreq,cToneFreq,DtcsCode,Mode,"
                     "TStep,Skip,Comment\n"
                     "0,K1ABC,146.940000,-,0.600000,Tone,100.0,88.5,023,FM,5.00,,Ford\n"
                     "1,CALL,146.520000,,0.600000,,88.5,88.5,023,FM,5.00,S,\n"
                     "2,CROSS,145.500000,split,433.500000,TSQL,88.5,127.3,023,NFM,5.00,,\n"),
            Lines({std::string(kHill) + "Ford", "146.5200 146.5200 simplex None 100.0 CALL|",
                   "145.5000 433.5000 split Tone Squelch 127.3 CROSS|"}));
}

TEST(ListRecognition, ColumnsStandInAnyOrderCaseAndSpacing) {
  EXPECT_EQ(Channel("call ,  INPUT freq.,PL,output_FREQ (MHz)\nK1ABC,146.34,100,146.94\n"), kHill);
}

TEST(ListRecognition, SeparatorsAndQuotationMarksAreFound) {
  for (const char* separator : {",", ";", "\t", "|"}) {
    for (const char* quote : {"", "\"", "'"}) {
      std::string text;
      for (const char* cell :
           {"Freq", "Input", "Tone", "Call", "\n", "146.94", "146.34", "100.0", "K1ABC", "\n"}) {
        const std::string written = quote + std::string(cell) + quote;
        text +=
            *cell == '\n' ? "\n" : (text.empty() || text.back() == '\n' ? "" : separator) + written;
      }
      EXPECT_EQ(Channel(text), kHill) << text;
    }
  }
}

TEST(ListRecognition, QuotedCellsKeepSeparatorsMarksAndLineEnds) {
  EXPECT_EQ(Channel("Freq,Call,Comment\n145.5,\"A \"\"B\"\"\",\"one,\r\ntwo\"\n"),
            "145.5000 145.5000 simplex None 100.0 A 'B'|one, two");
  EXPECT_EQ(Channel("Freq,Call,Comment\n145.5,X,Joe's 'old' hut\n"),
            "145.5000 145.5000 simplex None 100.0 X|Joe's 'old' hut");
}

TEST(ListRecognition, ACommaIsTheDecimalPointWhereItIsNotTheSeparator) {
  EXPECT_EQ(Channel("Freq;Input;PL;Call\n146,94;146,34;100,0;K1ABC\n"), kHill);
  EXPECT_EQ(Channel("Freq,Input,PL,Call\n\"146,94\",\"146,34\",100,K1ABC\n"), kHill);
}

TEST(ListRecognition, FrequenciesHaveTheirUnits) {
  for (const char* frequency : {"146.94", "146.940 MHz", "146940", "146940 kHz", "146940000",
                                "146940000 Hz", " 146.9400"}) {
    EXPECT_EQ(Channel(std::string("Freq,Input,PL,Call\n") + frequency + ",146.34,100,K1ABC\n"),
              kHill)
        << frequency;
  }
}

TEST(ListRecognition, OffsetsHaveSignsWordsAndUnits) {
  for (const char* cells : {"-0.6,", "-600,", "-600 kHz,", "0.6 MHz,minus", "600 kHz,-", "0.6,DUP-",
                            "-,", "600000,Negative", "0.6-,"}) {
    EXPECT_EQ(
        Channel(std::string("Freq,PL,Call,Offset,Direction\n146.94,100,K1ABC,") + cells + "\n"),
        kHill)
        << cells;
  }
  EXPECT_EQ(Channel("Freq,PL,Call\n146.94-,100,K1ABC\n"), kHill);
}

TEST(ListRecognition, TonesHaveWordsAndUnits) {
  for (const char* tone : {"100", "100.0", "100.0 Hz", "CTCSS 100.0", "PL100", "1000", "T100.0"}) {
    EXPECT_EQ(Channel(std::string("Freq,Input,Tone,Call\n146.94,146.34,") + tone + ",K1ABC\n"),
              kHill)
        << tone;
  }
}

TEST(ListRecognition, CodesAndOtherTonesAreDoubts) {
  EXPECT_EQ(
      Read("Freq,Tone\n145.5,D023\n145.5,DPL 023\n145.5,88.6\n145.5,CSQ\n145.5,Cross\n").doubts,
      Lines({"line 2: \"D023\" is a code, and no code is imported",
             "line 3: \"DPL 023\" is a code, and no code is imported",
             "line 4: \"88.6\" is none of the radio's tones",
             "line 6: \"Cross\" names no tone mode"}));
  EXPECT_EQ(Read("Freq,Uplink Tone,Downlink Tone\n145.5,88.5,100\n").doubts,
            Lines({"line 2: \"100\" is a second tone, and the radio has one a channel"}));
  EXPECT_EQ(Read("Freq,Mode,Offset\n145.5,AM,\n145.6,FM,0.6\n").doubts,
            Lines({"line 2: \"AM\" is a mode, and no mode is imported",
                   "line 3: \"0.6\" is an offset without a direction"}));
}

TEST(ListRecognition, EncodingsAreFound) {
  const std::string utf_8 = "Freq,Call\n145.5,\xC3\x84\xC3\x96\n";
  std::string little = "\xFF\xFE";
  std::string big = "\xFE\xFF";
  for (const char c : std::string("Freq,Call\n145.5,\xC4\xD6\n")) {
    little += std::string{c, '\0'};
    big += std::string{'\0', c};
  }
  const std::string expected = "145.5000 145.5000 simplex None 100.0 \xC4\xD6|";
  for (const std::string& text : {utf_8, "\xEF\xBB\xBF" + utf_8, little, big, little.substr(2),
                                  big.substr(2), std::string("Freq,Call\n145.5,\xC4\xD6\n")}) {
    EXPECT_EQ(Channel(text), expected);
  }
  EXPECT_EQ(Read("Freq,Call\n145.5,\xE4\xB8\xAD\n").doubts,
            Lines({"line 2: U+4E2D has no byte and becomes \"?\""}));
}

TEST(ListRecognition, ATitleAndBlankLinesStandAboveTheHeader) {
  EXPECT_EQ(
      Channel("Repeaters of the county, 2024\n\nFreq,Input,PL,Call\n\n146.94,146.34,100,K1ABC\n"),
      kHill);
}

TEST(ListRecognition, DoubtsTellTheLinesOfTheFile) {
  EXPECT_EQ(Read("Title\n\nFreq,Call,Colour\n\n145.5,\"two\nlines\",\nnone,X,\n1500.5,Y,\n").doubts,
            Lines({"line 3: of these columns no field is known: \"Colour\"",
                   "line 7: no receive frequency; the line is left out",
                   "line 8: the receive frequency 1500.5000 is outside the bands; the line is left "
                   "out"}));
}

TEST(ListRecognition, AMarkThatIsNotClosedEndsWithItsLine) {
  const Recognised recognised = Read("Freq,Call\n145.5,\"ONE\n145.6,TWO\n");
  EXPECT_EQ(recognised.channels, Lines({"145.5000 145.5000 simplex None 100.0 ONE|",
                                        "145.6000 145.6000 simplex None 100.0 TWO|"}));
  EXPECT_EQ(recognised.doubts, Lines({"line 2: a quotation mark is not closed"}));
}

TEST(ListRecognition, AnOffsetInTheTransmitColumnIsOne) {
  EXPECT_EQ(Channel("RX Frequency,TX Frequency,Offset,PL,Call\n146.94,0.6,-,100,K1ABC\n"), kHill);
  EXPECT_EQ(Channel("RX Frequency,TX Frequency,Offset,Call\n51.5,1.0,-,PASS\n"),
            "51.5000 50.5000 minus None 100.0 PASS|");
}

TEST(ListRecognition, AListWithoutAReceiveFrequencyIsNone) {
  for (const std::string text : {"", "\n\n", "Call,Town\nX,Y\n", "146.94,146.34\n", "\"", "'\n'"}) {
    const auto* bytes = reinterpret_cast<const std::uint8_t*>(text.data());
    EXPECT_FALSE(RecogniseList(std::span(bytes, text.size())).is_recognised) << text;
  }
}

TEST(ListRecognition, RandomBytesDoNoHarm) {
  editor_fixture::Dice dice(17);
  for (int i = 0; i < 400; ++i) {
    std::string text = "Freq,Input,Offset,Tone,Call,Location\n";
    for (int n = dice.Below(200); n > 0; --n) {
      constexpr std::string_view kLikely = ",;\"'\n\r0123456789.+-DMkHz \xC3\xFF";
      text += dice.Heads() ? static_cast<char>(dice.Byte())
                           : kLikely[static_cast<std::size_t>(dice.Below(26))];
    }
    Read(text);
  }
}

}  // namespace
}  // namespace qz7
