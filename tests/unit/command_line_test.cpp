#include "desktop/command_line.h"

#include <gtest/gtest.h>

namespace qz7 {
namespace {

using Name = std::optional<std::wstring>;

// The file that the arguments open.
Name FileOf(std::wstring_view arguments) {
  const auto word = CommandLineName(arguments);
  return word ? Name(WithExtension(word->name)) : std::nullopt;
}

TEST(CommandLine, BeginsBehindTheProgramsOwnName) {
  EXPECT_EQ(ArgumentsOf(L"qz7.exe club"), L" club");
  EXPECT_EQ(ArgumentsOf(L"\"C:\\my programs\\qz7.exe\" /s \"a b\""), L" /s \"a b\"");
  EXPECT_EQ(ArgumentsOf(L"qz7.exe"), L"");
  EXPECT_EQ(ArgumentsOf(L"\"qz7.exe\""), L"");
  EXPECT_EQ(ArgumentsOf(L"\"never closed"), L"");
  EXPECT_EQ(ArgumentsOf(L"\""), L"");
  EXPECT_EQ(ArgumentsOf(L""), L"");
}

TEST(CommandLine, KeepsTheNameAsItIsGiven) {
  EXPECT_EQ(CommandLineName(L"/quiet  my\\Club more"), (CommandLineWord{L"my\\Club", false}));
  EXPECT_EQ(CommandLineName(L"\"my\\Club\" more"), (CommandLineWord{L"my\\Club", true}));
  EXPECT_EQ(WithExtension(L"my\\Club"), L"my\\Club.rdf");
}

TEST(CommandLine, WithoutAWordNamesNoFile) {
  EXPECT_EQ(FileOf(L""), std::nullopt);
  EXPECT_EQ(FileOf(L"  \t "), std::nullopt);
  EXPECT_EQ(FileOf(L"/a /b"), std::nullopt);
  EXPECT_EQ(FileOf(L"/a/b c"), Name(L"c"));
  EXPECT_EQ(FileOf(L"\"\""), std::nullopt);
}

TEST(CommandLine, ABareNameGetsNoExtension) {
  EXPECT_EQ(FileOf(L"/quiet club"), Name(L"club"));
  EXPECT_EQ(FileOf(L"   /quiet   club  "), Name(L"club"));
  EXPECT_EQ(FileOf(L"club.rdf"), Name(L"club.rdf"));
}

TEST(CommandLine, AFolderAndNoExtensionGetOne) {
  EXPECT_EQ(FileOf(L"c:\\radio\\club"), Name(L"c:\\radio\\club.rdf"));
  EXPECT_EQ(FileOf(L"c:\\radio.old\\club"), Name(L"c:\\radio.old\\club.rdf"));
  EXPECT_EQ(FileOf(L"c:\\radio\\club.bak"), Name(L"c:\\radio\\club.bak"));
  EXPECT_EQ(FileOf(L"c:\\radio\\club."), Name(L"c:\\radio\\club."));
}

TEST(CommandLine, ABareNameIsCutAtABlankOrASlash) {
  EXPECT_EQ(FileOf(L"club house"), Name(L"club"));
  EXPECT_EQ(FileOf(L"club\thouse"), Name(L"club"));
  EXPECT_EQ(FileOf(L"club/s"), Name(L"club"));
}

TEST(CommandLine, AQuotedPathIsTakenWhole) {
  EXPECT_EQ(FileOf(L"\"c:\\my radio\\club house\" more"), Name(L"c:\\my radio\\club house.rdf"));
  EXPECT_EQ(FileOf(L"/s \"c:\\a b/c.rdf\""), Name(L"c:\\a b/c.rdf"));
  EXPECT_EQ(FileOf(L"\"never closed"), Name(L"never closed"));
  EXPECT_EQ(FileOf(L"\"" + std::wstring(300, L'a') + L"\" more"), Name(std::wstring(300, L'a')));
}

TEST(CommandLine, TakesAtMost255CharactersOfAWord) {
  EXPECT_EQ(FileOf(std::wstring(254, L'a'))->size(), 254U);
  EXPECT_EQ(FileOf(std::wstring(255, L'a'))->size(), 255U);
  EXPECT_EQ(FileOf(std::wstring(256, L'a'))->size(), 255U);
}

}  // namespace
}  // namespace qz7
