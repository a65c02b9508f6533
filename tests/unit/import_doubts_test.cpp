#include "core/interchange/import_doubts.h"

#include <gtest/gtest.h>

#include "core/files/csv_export.h"
#include "core/image/derived_tables.h"
#include "core/interchange/import.h"
#include "core/interchange/import_columns.h"
#include "tests/unit/codeplug_fixture.h"
#include "tests/unit/interchange_fixture.h"

namespace qz7 {
namespace {

using codeplug_fixture::MakeNewDocument;

constexpr ColumnAssignment kAllColumns = {1, 2, 3, 4, 5, 6, 7, 8, 9, 10};

std::vector<ImportDoubt> DoubtsOf(const std::string& text, const ColumnAssignment& columns,
                                  bool headers = false) {
  const auto image = MakeNewDocument();
  ImportSession session;
  ImportRequest request;
  request.options.headers = headers;
  request.columns = columns;
  const auto* bytes = reinterpret_cast<const std::uint8_t*>(text.data());
  const auto offer = OfferImport(*image, session, std::span(bytes, text.size()), request);
  return offer->doubts;
}

std::vector<std::string> LinesFor(const std::string& text,
                                  const ColumnAssignment& columns = kAllColumns,
                                  bool headers = false) {
  std::vector<std::string> lines;
  for (const ImportDoubt& doubt : DoubtsOf(text, columns, headers)) {
    lines.push_back(DoubtLine(doubt));
  }
  return lines;
}

using Lines = std::vector<std::string>;

TEST(ImportDoubts, APlainListHasNone) {
  EXPECT_EQ(LinesFor("146.94,146.34,,E,,H,88.5,88.5,NAME,Hill\n145.5,,,,,,,,,\n\n  \r\n"), Lines());
}

TEST(ImportDoubts, TheProgramsOwnExportHasNone) {
  const auto image = MakeNewDocument();
  EXPECT_EQ(BuildCodeplug(codeplug_fixture::Patch({{"channels/2/rx", "146.94"},
                                                   {"channels/2/shift", "minus"},
                                                   {"channels/2/tone-mode", "Tone Encode"},
                                                   {"channels/3/rx", "145.5"},
                                                   {"channels/3/shift", "split"},
                                                   {"channels/3/tx", "433.5"},
                                                   {"channels/4/rx", "433.5"},
                                                   {"channels/4/offset", "5 MHz"},
                                                   {"channels/4/shift", "plus"}}),
                          *image, test_region),
            Lines());
  RebuildDerivedTables(*image);
  EXPECT_EQ(LinesFor(ExportCsv(*image), {}, true), Lines());
}

TEST(ImportDoubts, ALineLeftOutIsToldWithItsReason) {
  EXPECT_EQ(LinesFor("145.5,\nCall,x\n2000.5,\n,\n145.6,\n"),
            Lines({"line 2: no receive frequency; the line is left out",
                   "line 3: the receive frequency 2000.5000 is outside the bands; the line is left "
                   "out",
                   "line 4: no receive frequency; the line is left out"}));
}

TEST(ImportDoubts, OfHeadersTheUnknownOnesAreTold) {
  EXPECT_EQ(LinesFor("RX Frequency,Town,Name,\"Use, type\"\n145.5,x,y,z\n", {}, true),
            Lines({"line 1: of these columns no field is known: \"Town\", \"Use, type\""}));
  EXPECT_EQ(LinesFor("RX Frequency,Town\n145.5,x\n", {0, 0, 0, 0, 0, 0, 0, 0, 0, 2}, true),
            Lines());
}

TEST(ImportDoubts, AQuotationMarkThatIsNotClosedIsToldWhereItOpens) {
  for (const auto& [text, line] : {std::pair("145.5,\"Hill\n145.6,x\n145.7,y\n", 1),
                                   std::pair("145.5,Hill\n145.6,\"x\n145.7,y\n", 2)}) {
    const Lines lines = LinesFor(text, {1, 0, 0, 0, 0, 0, 0, 0, 2, 0});
    ASSERT_FALSE(lines.empty());
    EXPECT_EQ(lines[0], "line " + std::to_string(line) + ": a quotation mark is not closed");
  }
}

TEST(ImportDoubts, TonesThatNoTableHasAreTold) {
  EXPECT_EQ(LinesFor("145.5,,,,,,88.6,,,\n145.5,,,,,,D023,,,\n145.5,,,,,,CSQ,0,,\n"),
            Lines({"line 1: \"88.6\" is none of the radio's tones",
                   "line 2: \"D023\" is a code, and no code is imported"}));
}

TEST(ImportDoubts, ToneModesThatAreNoneAreTold) {
  EXPECT_EQ(LinesFor("145.5,,,T,,,,,,\n145.5,,,100.0,,,,,,\n145.5,,,none,,,,,,\n145.5,,,2,,,,,,\n"),
            Lines({"line 1: \"T\" names no tone mode", "line 2: \"100.0\" names no tone mode"}));
}

TEST(ImportDoubts, ATransmitFrequencyOutsideTheBandsIsTold) {
  EXPECT_EQ(LinesFor("145.5,1500.5,,,,,,,,\n"),
            Lines({"line 1: the transmit frequency 1500.5000 is outside the bands"}));
}

TEST(ImportDoubts, AnOffsetOutOfTheTransmitColumnIsTold) {
  EXPECT_EQ(LinesFor("145.5,29.6,,,,,,,,\n145.5,0.6,-,,,,,,,\n145.5,-,,,,,,,,\n"),
            Lines({"line 1: \"29.6\" in the transmit column is read as an offset"}));
}

TEST(ImportDoubts, CharactersWithoutAByteAreTold) {
  EXPECT_EQ(LinesFor("\xEF\xBB\xBF"
                     "145.5,,,,,,,,A\xC3\x84,\n145.5,,,,,,,,\xE4\xB8\xAD\xE6\x96\x87,\n"),
            Lines({"line 2: U+4E2D has no byte and becomes \"?\""}));
}

TEST(ImportDoubts, AFileOfTwoBytesACharacterIsTold) {
  EXPECT_EQ(LinesFor(std::string("\xFF\xFE"
                                 "1\0004\000",
                                 6)),
            Lines({"the file is UTF-16, which is read as single bytes"}));
}

TEST(ImportDoubts, APieceOfALongLineHasTheLinesNumber) {
  EXPECT_EQ(LinesFor("145.5," + std::string(300, 'x') + "\nno\n"),
            Lines({"line 1: no receive frequency; the line is left out",
                   "line 2: no receive frequency; the line is left out"}));
}

TEST(ImportDoubts, ControlCharactersOfACellAreNotRepeated) {
  EXPECT_EQ(LinesFor("145.5,,,\x1B[2J,,,,,,\n"), Lines({"line 1: \"?[2J\" names no tone mode"}));
}

TEST(ImportDoubts, WhatIsImportedStaysTheSame) {
  const std::string text = "145.5,\"Hill\n146,T,x,y\nno\n147,\"\n";
  const auto* bytes = reinterpret_cast<const std::uint8_t*>(text.data());
  const auto image = MakeNewDocument();
  ImportSession with;
  ImportRequest request;
  request.columns = {1, 0, 0, 3, 0, 0, 0, 0, 2, 0};
  const auto offer = OfferImport(*image, with, std::span(bytes, text.size()), request);
  ImportSession without;
  TakeImportOptions(without, request.options);
  ImportLines lines = LinesOf(std::span(bytes, text.size()));
  without.line_count = CountLines(lines);
  OpenColumnDialog(without, lines);
  without.columns = request.columns;
  const auto list = OpenSelection(*image, without, lines);
  ASSERT_EQ(offer->list.listed, list->listed);
  for (std::size_t i = 0; i < list->listed; ++i) {
    EXPECT_EQ(FormatImportRow(offer->list.records[i]), FormatImportRow(list->records[i]));
  }
}

TEST(ImportDoubts, OneLineTellsThemAllThoseLeftOutFirst) {
  EXPECT_EQ(DoubtsSummary({}), "");
  EXPECT_EQ(DoubtsSummary(DoubtsOf("145.5,,,,,,88.6,,,\nx\n", kAllColumns)),
            "1 line left out: line 2, no receive frequency; line 1, \"88.6\" is none of the "
            "radio's tones");
  EXPECT_EQ(DoubtsSummary(DoubtsOf("x\ny\n", kAllColumns)),
            "2 lines left out: line 1, no receive frequency; line 2, no receive frequency");
}

}  // namespace
}  // namespace qz7
