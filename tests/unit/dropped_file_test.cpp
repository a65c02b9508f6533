#include "desktop/dropped_file.h"

#include <gtest/gtest.h>

#include <string>

namespace qz7 {
namespace {

TEST(DroppedFile, IsARadioFileAListOrATemplateByItsEnd) {
  EXPECT_EQ(KindOfDropped("C:\\data\\mine.rdf"), DroppedKind::kRadioFile);
  EXPECT_EQ(KindOfDropped("C:\\data\\list.csv"), DroppedKind::kList);
  EXPECT_EQ(KindOfDropped("C:\\data\\list.txt"), DroppedKind::kList);
  EXPECT_EQ(KindOfDropped("C:\\data\\hill.rd"), DroppedKind::kList);
  EXPECT_EQ(KindOfDropped("C:\\data\\trip.tpe"), DroppedKind::kList);
  EXPECT_EQ(KindOfDropped("C:\\data\\QZ7H.tpl"), DroppedKind::kTemplate);
}

TEST(DroppedFile, IsKnownInLettersOfEitherCase) {
  EXPECT_EQ(KindOfDropped("C:\\MINE.RDF"), DroppedKind::kRadioFile);
  EXPECT_EQ(KindOfDropped("C:\\Hill.Rd"), DroppedKind::kList);
  EXPECT_EQ(KindOfDropped("C:\\my.TpL"), DroppedKind::kTemplate);
}

TEST(DroppedFile, MayHaveANameInAnyLetters) {
  const std::filesystem::path name = u8"Žluťoučký кот 日本.RDF";
  EXPECT_EQ(KindOfDropped(name), DroppedKind::kRadioFile);
  EXPECT_EQ(KindOfDropped(u8"C:\\日本.csv\\кот.tpl"), DroppedKind::kTemplate);
}

TEST(DroppedFile, MayLieAtAnyDepth) {
  std::string path = "C:";
  for (int n = 0; n < 40; ++n) {
    path += "\\a folder of ten.rdf";
  }
  ASSERT_GT(path.size(), 260U);
  EXPECT_EQ(KindOfDropped(path + "\\list.csv"), DroppedKind::kList);
}

TEST(DroppedFile, CountsTheEndOfItsNameAlone) {
  EXPECT_EQ(KindOfDropped("C:\\data.rdf\\mine"), DroppedKind::kOther);
  EXPECT_EQ(KindOfDropped("C:\\data\\mine.rdf.bak"), DroppedKind::kOther);
  EXPECT_EQ(KindOfDropped("C:\\data\\mine.bak.rdf"), DroppedKind::kRadioFile);
  EXPECT_EQ(KindOfDropped("C:\\data\\rdf"), DroppedKind::kOther);
  EXPECT_EQ(KindOfDropped("C:\\data\\mine.rdfx"), DroppedKind::kOther);
  EXPECT_EQ(KindOfDropped("C:\\data\\mine."), DroppedKind::kOther);
  EXPECT_EQ(KindOfDropped("C:\\data\\"), DroppedKind::kOther);
  EXPECT_EQ(KindOfDropped(""), DroppedKind::kOther);
}

// A name that is cut to nothing makes such a template.
TEST(DroppedFile, MayBeNamedByItsEndAlone) {
  EXPECT_EQ(KindOfDropped("C:\\data\\.tpl"), DroppedKind::kTemplate);
}

}  // namespace
}  // namespace qz7
