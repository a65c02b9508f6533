#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "core/files/document_header.h"
#include "core/files/radio_data_file.h"
#include "tests/unit/document_bytes.h"
#include "tests/unit/seams.h"
#include "tests/unit/temp_folder.h"

namespace qz7 {
namespace {

constexpr const char* kCorrupted = "Radio data file image is corrupted.";

class TemplateFile : public testing::Test {
 protected:
  bool Loads(const Bytes& bytes) {
    PutFile(path_, bytes);
    return ReadTemplateFile(buffer_, path_);
  }

  static void ExpectOnlyMessage(const std::string& text) {
    ASSERT_EQ(ShownTexts(), std::vector<std::string>{text});
    EXPECT_EQ(test_seams.messages[0].caption, "QZ-7H Programmer");
    EXPECT_EQ(test_seams.messages[0].buttons, Buttons::kOk);
    EXPECT_EQ(test_seams.messages[0].icon, Icon::kStop);
  }

  TempFolder folder_;
  std::string path_ = folder_.File("radio.tpl");
  CloneImage buffer_{};
};

TEST_F(TemplateFile, LoadsWhenIntact) {
  Bytes file = IntactFile("TPL");
  EXPECT_TRUE(Loads(file));
  EXPECT_TRUE(test_seams.messages.empty());
  std::fill(file.begin() + 82, file.begin() + 100, std::uint8_t{0});
  EXPECT_EQ(FirstDifference(buffer_, file), -1);
}

TEST_F(TemplateFile, LoadsWhateverItsFillerHolds) {
  Bytes file = IntactFile("TPL");
  std::fill(file.begin() + 82, file.begin() + 100, std::uint8_t{0xC9});
  EXPECT_TRUE(Loads(file));
  EXPECT_TRUE(test_seams.messages.empty());
}

TEST_F(TemplateFile, LoadsWithMoreBytesBehindIt) {
  Bytes file = IntactFile("TPL");
  file.push_back(1);
  EXPECT_TRUE(Loads(file));
  EXPECT_TRUE(test_seams.messages.empty());
}

TEST_F(TemplateFile, ThatIsNotThereIsReported) {
  EXPECT_FALSE(ReadTemplateFile(buffer_, path_));
  ExpectOnlyMessage("Cannot open file:\n" + path_);
}

TEST_F(TemplateFile, WithAShortHeaderIsRefused) {
  Bytes file = IntactFile("TPL");
  file.resize(179);
  EXPECT_FALSE(Loads(file));
  ExpectOnlyMessage("Not a template file:\n" + path_);
}

TEST_F(TemplateFile, IsNotARadioDataFile) {
  EXPECT_FALSE(Loads(IntactFile("RDF")));
  ExpectOnlyMessage("Not a template file:\n" + path_);
}

TEST_F(TemplateFile, OfAnotherRadioIsRefusedByTheRadiosName) {
  Bytes file = IntactFile("TPL");
  file[5] = '2';
  file[26] = 'A';
  FixFileChecksum(file);
  EXPECT_FALSE(Loads(file));
  ExpectOnlyMessage("Template file for for different radio:\nTamro QZ-7A");
}

TEST_F(TemplateFile, OfAnotherRadioMayHaveNoName) {
  Bytes file = IntactFile("TPL");
  file[5] = '2';
  file[16] = 0;
  EXPECT_FALSE(Loads(file));
  ExpectOnlyMessage("Template file for for different radio:\n");
}

TEST_F(TemplateFile, WithAnotherTotalSizeIsRefused) {
  Bytes file = IntactFile("TPL");
  ++file[13];
  FixFileChecksum(file);
  EXPECT_FALSE(Loads(file));
  ExpectOnlyMessage("Template file has invalid header");
}

TEST_F(TemplateFile, WithAShortBodyIsRefused) {
  for (const std::size_t size : {180U, 21'281U}) {
    test_seams = TestSeams{};
    Bytes file = IntactFile("TPL");
    file.resize(size);
    EXPECT_FALSE(Loads(file));
    ExpectOnlyMessage("Template file has invalid format");
  }
}

TEST_F(TemplateFile, WithAWrongFileChecksumIsRefusedInEveryVersion) {
  for (const std::uint8_t version : {std::uint8_t{1}, std::uint8_t{2}, std::uint8_t{3}}) {
    test_seams = TestSeams{};
    Bytes file = IntactFile("TPL");
    file[8] = version;
    FixFileChecksum(file);
    ++file[15'000];
    EXPECT_FALSE(Loads(file)) << "version " << int{version};
    ExpectOnlyMessage(kCorrupted);
  }
}

TEST_F(TemplateFile, WithAWrongBlockChecksumIsRefusedInEveryVersion) {
  for (const std::uint8_t version : {std::uint8_t{1}, std::uint8_t{2}, std::uint8_t{3}}) {
    test_seams = TestSeams{};
    Bytes file = IntactFile("TPL");
    file[8] = version;
    ++file[80];
    FixFileChecksum(file);
    EXPECT_FALSE(Loads(file)) << "version " << int{version};
    ExpectOnlyMessage(kCorrupted);
  }
}

TEST_F(TemplateFile, WithBothChecksumsWrongShowsOneMessage) {
  Bytes file = IntactFile("TPL");
  ++file[5000];
  EXPECT_FALSE(Loads(file));
  ExpectOnlyMessage(kCorrupted);
}

TEST_F(TemplateFile, OfVersion1LoadsWhenIntact) {
  Bytes file = IntactFile("TPL");
  file[8] = 1;
  FixFileChecksum(file);
  EXPECT_TRUE(Loads(file));
  EXPECT_TRUE(test_seams.messages.empty());
}

TEST_F(TemplateFile, IsTheImageUnderAnotherMagicWithoutFiller) {
  CloneImage image = ImageOf(IntactFile("RDF"));
  EXPECT_TRUE(WriteTemplateFile(image, path_));
  EXPECT_TRUE(test_seams.messages.empty());
  const Bytes file = FileBytes(path_);
  ASSERT_EQ(file.size(), 21'282U);
  EXPECT_EQ(Bytes(file.begin(), file.begin() + 8), (Bytes{'T', 'P', 'L', 0, 'Q', 'Z', '7', 'H'}));
  EXPECT_EQ(Bytes(file.begin() + 82, file.begin() + 100), Bytes(18, 0));
  EXPECT_EQ(file[80], RightBlockChecksum(file.data()));
  EXPECT_EQ(file[81], RightFileChecksum(file.data()));
  EXPECT_EQ(
      FirstDifference(Bytes(file.begin() + 4, file.end()), Bytes(image.begin() + 4, image.end())),
      -1);
}

TEST_F(TemplateFile, CarriesTheVersionOfTheDocument) {
  CloneImage image = ImageOf(IntactFile("RDF"));
  image[8] = 7;
  ASSERT_TRUE(WriteTemplateFile(image, path_));
  EXPECT_EQ(FileBytes(path_)[8], 7);
}

TEST_F(TemplateFile, GetsTheChecksumsWorkedOutByHand) {
  // "TPL" sums up to 240, 20 more than "RDF": a header of 2600, the block's byte and byte 80.
  CloneImage image{};
  std::copy(kNewHeader.begin(), kNewHeader.end(), image.begin());
  image[11'181] = 0x21;
  image[81] = 0x99;
  ASSERT_TRUE(WriteTemplateFile(image, path_));
  const Bytes file = FileBytes(path_);
  EXPECT_EQ(file[80], 0x21);
  EXPECT_EQ(file[81], 0x96);
}

TEST_F(TemplateFile, HasItsTablesRebuilt) {
  CloneImage image{};
  std::copy(kNewHeader.begin(), kNewHeader.end(), image.begin());
  image[56] = 17;
  image[200] = 0xAB;  // a summary entry without a channel
  ASSERT_TRUE(WriteTemplateFile(image, path_));
  const Bytes file = FileBytes(path_);
  EXPECT_EQ(file[56], 240);
  EXPECT_EQ(file[200], 0);
}

TEST_F(TemplateFile, ReadsBackWithoutAMessage) {
  CloneImage image = ImageOf(IntactFile("RDF"));
  ASSERT_TRUE(WriteTemplateFile(image, path_));
  EXPECT_TRUE(ReadTemplateFile(buffer_, path_));
  EXPECT_TRUE(test_seams.messages.empty());
}

TEST_F(TemplateFile, LeavesTheDocumentARadioDataFile) {
  CloneImage image = ImageOf(IntactFile("RDF"));
  ASSERT_TRUE(WriteTemplateFile(image, path_));
  EXPECT_EQ(Bytes(image.begin(), image.begin() + 4), (Bytes{'R', 'D', 'F', 0}));
}

TEST_F(TemplateFile, ThatCannotBeCreatedLeavesTheDocumentARadioDataFile) {
  CloneImage image = ImageOf(IntactFile("RDF"));
  const std::string nowhere = (folder_.path() / "no such folder" / "radio.tpl").string();
  EXPECT_FALSE(WriteTemplateFile(image, nowhere));
  ExpectOnlyMessage("Cannot create file:\n" + nowhere);
  EXPECT_EQ(Bytes(image.begin(), image.begin() + 4), (Bytes{'R', 'D', 'F', 0}));
}

TEST_F(TemplateFile, ReplacesAnotherOneWithoutAQuestion) {
  PutFile(path_, Bytes(50, 1));
  CloneImage image = ImageOf(IntactFile("RDF"));
  EXPECT_TRUE(WriteTemplateFile(image, path_));
  EXPECT_TRUE(test_seams.messages.empty());
  EXPECT_EQ(FileBytes(path_).size(), 21'282U);
}

TEST(TemplatePath, IsTheNameInTheFolderWithItsExtension) {
  EXPECT_EQ(TemplatePath("D:\\Radio", "Template"), "D:\\Radio\\Template.tpl");
}

TEST(TemplatePath, TakesEightCharactersOfTheName) {
  EXPECT_EQ(TemplatePath("D:\\Radio", "Template1"), "D:\\Radio\\Template.tpl");
}

TEST(TemplatePath, CutsTheNameAtItsFirstDotAndThenAtItsFirstBlank) {
  EXPECT_EQ(TemplatePath("D:\\Radio", "my radio.x"), "D:\\Radio\\my.tpl");
  EXPECT_EQ(TemplatePath("D:\\Radio", "my a.x"), "D:\\Radio\\my.tpl");
  EXPECT_EQ(TemplatePath("D:\\Radio", "a.b c.d"), "D:\\Radio\\a.tpl");
  EXPECT_EQ(TemplatePath("D:\\Radio", "a b c"), "D:\\Radio\\a.tpl");
}

TEST(TemplatePath, OfANameCutToNothingIsTheExtensionAlone) {
  EXPECT_EQ(TemplatePath("D:\\Radio", ".x"), "D:\\Radio\\.tpl");
  EXPECT_EQ(TemplatePath("D:\\Radio", " radio"), "D:\\Radio\\.tpl");
  EXPECT_EQ(TemplatePath("D:\\Radio", ""), "D:\\Radio\\.tpl");
}

}  // namespace
}  // namespace qz7
