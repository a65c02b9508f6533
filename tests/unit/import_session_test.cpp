#include "core/interchange/import_session.h"

#include <gtest/gtest.h>

#include <array>
#include <string>

namespace qz7 {
namespace {

TEST(ImportDialog, OpensWithTheUsualSeparatorsAndNoFile) {
  ImportSession session;
  session.options = {.path = "a/b.txt",
                     .title = "b.txt",
                     .field_separator = ';',
                     .text_separator = '\'',
                     .delimited = false,
                     .headers = true};
  OpenImportDialog(session);
  EXPECT_EQ(session.options.path, "");
  EXPECT_EQ(session.options.title, "b.txt");
  EXPECT_EQ(session.options.field_separator, ',');
  EXPECT_EQ(session.options.text_separator, '"');
  EXPECT_TRUE(session.options.delimited);
  EXPECT_FALSE(session.options.headers);
}

TEST(ImportDialog, BrowsesTheFiveKindsOfFile) {
  const FileBox box = ImportFileBox("C:\\lists\\");
  EXPECT_STREQ(box.title, "Open File for Import");
  EXPECT_STREQ(box.default_extension, "rd");
  EXPECT_EQ(box.folder, "C:\\lists\\");
  EXPECT_EQ(box.initial_name, "");
  constexpr std::array<std::array<const char*, 2>, 5> kKinds = {
      {{"Travel Plus files (*.tpe)", "*.tpe"},
       {"ARRL Repeater files (*.rd)", "*.rd"},
       {"Comma delimited (*.csv)", "*.csv"},
       {"Text files (*.txt)", "*.txt"},
       {"All files (*.*)", "*.*"}}};
  ASSERT_EQ(box.filters.size(), kKinds.size());
  for (std::size_t i = 0; i < kKinds.size(); ++i) {
    EXPECT_STREQ(box.filters[i].text, kKinds[i][0]);
    EXPECT_STREQ(box.filters[i].pattern, kKinds[i][1]);
  }
}

TEST(ImportDialog, TakesThePathAndTheTitleOfTheChosenFile) {
  ImportSession session;
  const ChosenFile file = {.path = "C:\\lists\\hill.rd", .name = "hill.rd", .name_offset = 9};
  ChooseImportFile(session, file);
  EXPECT_EQ(session.options.path, "C:\\lists\\hill.rd");
  EXPECT_EQ(session.options.title, "hill.rd");
  EXPECT_EQ(ImportCaption(session), "Import Data - hill.rd");
}

TEST(ImportDialog, RemembersThePathUpToTheFileName) {
  EXPECT_EQ(ImportFolder({.path = "C:\\lists\\hill.rd", .name = "hill.rd", .name_offset = 9}),
            "C:\\lists\\");
  EXPECT_EQ(ImportFolder({.path = "hill.rd", .name = "hill.rd", .name_offset = 0}), "");
}

TEST(ImportDialog, TakesTheFirstCharacterOfASeparatorField) {
  EXPECT_EQ(SeparatorOf(";"), ';');
  EXPECT_EQ(SeparatorOf("\t,"), '\t');
  EXPECT_EQ(SeparatorOf(""), '\0');
}

TEST(ImportDialog, StartsTheSeparatorAfreshWithOk) {
  ImportSession session;
  session.splitter.separator = '"';
  TakeImportOptions(session, {.path = "", .title = "", .field_separator = ';'});
  EXPECT_EQ(session.options.field_separator, ';');
  EXPECT_EQ(session.splitter.separator, ';');
}

TEST(ImportSession, StartsWithTheToneCheckOn) { EXPECT_TRUE(ImportSession{}.check_tones); }

}  // namespace
}  // namespace qz7
