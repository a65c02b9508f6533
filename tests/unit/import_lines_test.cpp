#include "core/interchange/import_lines.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

#include "tests/unit/interchange_fixture.h"
#include "tests/unit/seams.h"
#include "tests/unit/temp_folder.h"

namespace qz7 {
namespace {

using interchange_fixture::Lines;

using Texts = std::vector<std::string>;

Texts AllLines(std::string_view text) {
  ImportLines lines = Lines(text);
  Texts all;
  while (const auto line = NextLine(lines)) {
    all.emplace_back(*line);
  }
  return all;
}

std::string Converted(std::string_view utf8) {
  return Lines("\xEF\xBB\xBF" + std::string(utf8)).text;
}

TEST(ImportLines, KeepTheirLineFeedAndLoseTheCarriageReturnBeforeIt) {
  EXPECT_EQ(AllLines("a\r\nb\nc"), (Texts{"a\n", "b\n", "c"}));
  EXPECT_EQ(AllLines("a\r\n\r\nb\r\n"), (Texts{"a\n", "\n", "b\n"}));
}

TEST(ImportLines, KeepACarriageReturnThatStandsAlone) {
  EXPECT_EQ(AllLines("a\rb\n\r"), (Texts{"a\rb\n", "\r"}));
}

TEST(ImportLines, AreNoneInAnEmptyFile) { EXPECT_EQ(AllLines(""), Texts{}); }

TEST(ImportLines, Take254CharactersWithTheirLineFeed) {
  const std::string line(254, 'x');
  EXPECT_EQ(AllLines(line + "\nb\n"), (Texts{line + "\n", "b\n"}));
}

TEST(ImportLines, AreReadInPiecesOf255Characters) {
  const std::string piece(255, 'x');
  EXPECT_EQ(AllLines(piece + "\nb"), (Texts{piece, "\n", "b"}));
  EXPECT_EQ(AllLines(piece + "y\nb"), (Texts{piece, "y\n", "b"}));
  EXPECT_EQ(AllLines(piece + piece + "z"), (Texts{piece, piece, "z"}));
}

TEST(ImportLines, AreMeasuredWithoutTheCarriageReturn) {
  const std::string line(254, 'x');
  EXPECT_EQ(AllLines(line + "\r\nb"), (Texts{line + "\n", "b"}));
}

TEST(ImportLines, CanBeReadAgainFromTheStart) {
  ImportLines lines = Lines("a\nb\n");
  EXPECT_EQ(NextLine(lines), "a\n");
  Rewind(lines);
  EXPECT_EQ(NextLine(lines), "a\n");
}

TEST(ImportLines, AreCountedAndRewound) {
  ImportLines lines = Lines("a\nb\n\nc");
  NextLine(lines);
  EXPECT_EQ(CountLines(lines), 4);
  EXPECT_EQ(NextLine(lines), "a\n");
}

TEST(ImportLines, AreAtMost65535) {
  ImportLines exact = Lines(std::string(65'535, '\n'));
  EXPECT_EQ(CountLines(exact), 65'535);
  ImportLines more = Lines(std::string(65'536, '\n'));
  EXPECT_EQ(CountLines(more), 65'535);
}

TEST(ImportEncoding, IsTakenByteForByteWithoutAByteOrderMark) {
  EXPECT_EQ(Lines("\xB1 \xC2\xB1 \xEF\xBB").text, "\xB1 \xC2\xB1 \xEF\xBB");
}

TEST(ImportEncoding, TurnsUtf8WithAByteOrderMarkIntoWindows1252) {
  EXPECT_EQ(Converted("7\xC2\xB1,\xC3\xA4\xC3\xBF"), "7\xB1,\xE4\xFF");
  EXPECT_EQ(Converted("\xE2\x82\xAC\xC5\x93\xE2\x84\xA2\xC5\xB8"), "\x80\x9C\x99\x9F");
  EXPECT_EQ(Converted("\xC2\xA0\x7F"), "\xA0\x7F");
}

TEST(ImportEncoding, HasAPlaceForAll27CharactersOf0x80To0x9F) {
  EXPECT_EQ(Converted("\u20AC\u201A\u0192\u201E\u2026\u2020\u2021\u02C6\u2030\u0160\u2039\u0152"
                      "\u017D\u2018\u2019\u201C\u201D\u2022\u2013\u2014\u02DC\u2122\u0161\u203A"
                      "\u0153\u017E\u0178"),
            "\x80\x82\x83\x84\x85\x86\x87\x88\x89\x8A\x8B\x8C\x8E"
            "\x91\x92\x93\x94\x95\x96\x97\x98\x99\x9A\x9B\x9C\x9E\x9F");
}

TEST(ImportEncoding, PutsAQuestionMarkForWhatHasNoPlace) {
  EXPECT_EQ(Converted("a\u0416b"), "a?b");          // a Cyrillic letter
  EXPECT_EQ(Converted("a\xF0\x9F\x93\xBB"), "a?");  // beyond 16 bits
  EXPECT_EQ(Converted("\xC2\x80\xC2\x81\xC2\x9F"), "???");
}

TEST(ImportEncoding, PutsAQuestionMarkForEachByteThatIsNoUtf8) {
  EXPECT_EQ(Converted("a\xB1z"), "a?z");
  EXPECT_EQ(Converted("a\xC3"), "a?");
  EXPECT_EQ(Converted("a\xC3z"), "a?z");
  EXPECT_EQ(Converted("\xC0\xB1"), "??");
  EXPECT_EQ(Converted("\xE0\x82\xB1"), "???");
  EXPECT_EQ(Converted("\xE2\x82"), "??");
  EXPECT_EQ(Converted("\xF8\xFF"), "??");
}

TEST(ImportEncoding, ReadsBothLineEndsOfUtf8) { EXPECT_EQ(Converted("a\r\nb\n"), "a\nb\n"); }

TEST(ImportFile, IsReadWholeAndItsLinesCounted) {
  const TempFolder folder;
  ImportSession session;
  session.options.path = folder.File("list.csv");
  std::string text;
  for (int i = 0; i < 20'000; ++i) {
    text += "146." + std::to_string(i) + ",name\r\n";
  }
  PutFile(session.options.path, {text.begin(), text.end()});
  auto lines = OpenImportFile(session);
  ASSERT_TRUE(lines.has_value());
  EXPECT_EQ(session.line_count, 20'000);
  EXPECT_EQ(NextLine(*lines), "146.0,name\n");
  EXPECT_EQ(lines->text.size(), text.size() - 20'000);
  EXPECT_TRUE(ShownTexts().empty());
}

TEST(ImportFile, MayBeEmpty) {
  const TempFolder folder;
  ImportSession session;
  session.options.path = folder.File("empty.csv");
  PutFile(session.options.path, {});
  EXPECT_TRUE(OpenImportFile(session).has_value());
  EXPECT_EQ(session.line_count, 0);
}

TEST(ImportFile, ThatCannotBeOpenedIsReportedByItsTitle) {
  const TempFolder folder;
  ImportSession session;
  session.options.path = folder.File("absent.csv");
  session.options.title = "absent.csv";
  EXPECT_FALSE(OpenImportFile(session).has_value());
  ASSERT_EQ(test_seams.messages.size(), 1U);
  EXPECT_EQ(test_seams.messages[0].text, "Error opening file: absent.csv");
  EXPECT_EQ(test_seams.messages[0].caption, "File error");
}

TEST(ImportFile, ThatIsAFolderIsReported) {
  const TempFolder folder;
  ImportSession session;
  session.options.path = folder.path().string();
  EXPECT_FALSE(OpenImportFile(session).has_value());
  EXPECT_EQ(ShownTexts(), std::vector<std::string>{"Error opening file: "});
}

TEST(ImportFile, WithoutAChoiceIsReportedByTheTitleOfTheLastChoice) {
  ImportSession session;
  ChooseImportFile(session, {.path = "C:\\lists\\old.csv", .name = "old.csv", .name_offset = 9});
  OpenImportDialog(session);
  EXPECT_FALSE(OpenImportFile(session).has_value());
  EXPECT_EQ(ShownTexts(), std::vector<std::string>{"Error opening file: old.csv"});
}

}  // namespace
}  // namespace qz7
