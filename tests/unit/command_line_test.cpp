#include "desktop/command_line.h"

#include <gtest/gtest.h>

namespace qz7 {
namespace {

using Name = std::optional<std::string>;

// The file that a command line opens.
Name CommandLineFile(const std::string& command_line) {
  const Name name = CommandLineName(command_line);
  return name ? Name(FileOfName(*name)) : std::nullopt;
}

TEST(CommandLine, KeepsTheNameAsItIsGiven) {
  EXPECT_EQ(CommandLineName("/quiet  my\\Club more"), Name("my\\Club"));
  EXPECT_EQ(FileOfName("my\\Club"), "MY\\CLUB.RDF");
}

TEST(CommandLine, WithoutAWordNamesNoFile) {
  EXPECT_EQ(CommandLineFile(""), std::nullopt);
  EXPECT_EQ(CommandLineFile("  \t "), std::nullopt);
  EXPECT_EQ(CommandLineFile("/a /b"), std::nullopt);
  EXPECT_EQ(CommandLineFile("/a/b c"), Name("C"));
  EXPECT_EQ(CommandLineFile("\"\""), std::nullopt);
}

TEST(CommandLine, ASwitchAndABareNameOpenThatNameInUpperCaseWithoutAnExtension) {
  EXPECT_EQ(CommandLineFile("/quiet club"), Name("CLUB"));
  EXPECT_EQ(CommandLineFile("   /quiet   club  "), Name("CLUB"));
  EXPECT_EQ(CommandLineFile("club.rdf"), Name("CLUB.RDF"));
}

TEST(CommandLine, FoldsEveryLetterOfTheAlphabetAndNothingElse) {
  EXPECT_EQ(FileOfName("abcdefghijklmnopqrstuvwxyz"), "ABCDEFGHIJKLMNOPQRSTUVWXYZ");
  EXPECT_EQ(FileOfName("`{[@_9"), "`{[@_9");
}

TEST(CommandLine, AFolderAndNoExtensionGetOne) {
  EXPECT_EQ(CommandLineFile("c:\\radio\\club"), Name("C:\\RADIO\\CLUB.RDF"));
  EXPECT_EQ(CommandLineFile("c:\\radio.old\\club"), Name("C:\\RADIO.OLD\\CLUB.RDF"));
  EXPECT_EQ(CommandLineFile("c:\\radio\\club.bak"), Name("C:\\RADIO\\CLUB.BAK"));
  EXPECT_EQ(CommandLineFile("c:\\radio\\club."), Name("C:\\RADIO\\CLUB."));
}

TEST(CommandLine, ABareNameIsCutAtABlankOrASlash) {
  EXPECT_EQ(CommandLineFile("club house"), Name("CLUB"));
  EXPECT_EQ(CommandLineFile("club\thouse"), Name("CLUB"));
  EXPECT_EQ(CommandLineFile("club/s"), Name("CLUB"));
}

TEST(CommandLine, AQuotedPathIsTakenWhole) {
  EXPECT_EQ(CommandLineFile("\"c:\\my radio\\club house\" more"),
            Name("C:\\MY RADIO\\CLUB HOUSE.RDF"));
  EXPECT_EQ(CommandLineFile("/s \"c:\\a b/c.rdf\""), Name("C:\\A B/C.RDF"));
  EXPECT_EQ(CommandLineFile("\"never closed"), Name("NEVER CLOSED"));
}

TEST(CommandLine, TakesAtMost255Characters) {
  EXPECT_EQ(CommandLineFile(std::string(254, 'a'))->size(), 254U);
  EXPECT_EQ(CommandLineFile(std::string(255, 'a'))->size(), 255U);
  EXPECT_EQ(CommandLineFile(std::string(256, 'a'))->size(), 255U);
  EXPECT_EQ(CommandLineFile("\"" + std::string(256, 'a') + "\"")->size(), 255U);
}

}  // namespace
}  // namespace qz7
