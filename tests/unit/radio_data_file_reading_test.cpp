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

constexpr const char* kError1362 = "Radio data file image is corrupted.\nError 1362";
constexpr const char* kError1377 = "Radio data file image is corrupted.\nError 1377";

class ReadingRadioData : public testing::Test {
 protected:
  // Whether the bytes load as a radio data file.
  bool Loads(const Bytes& bytes) {
    PutFile(path_, bytes);
    return ReadRadioDataFile(buffer_, path_);
  }

  static void ExpectOnlyMessage(const std::string& text) {
    ASSERT_EQ(ShownTexts(), std::vector<std::string>{text});
    EXPECT_EQ(test_seams.messages[0].caption, "QZ-7H Programmer");
    EXPECT_EQ(test_seams.messages[0].buttons, Buttons::kOk);
    EXPECT_EQ(test_seams.messages[0].icon, Icon::kStop);
  }

  static void ExpectNoMessage() { EXPECT_EQ(ShownTexts(), std::vector<std::string>{}); }

  // The buffer holds what was in the file, apart from checksums, filler and version.
  void ExpectLoaded(Bytes file) {
    file[8] = buffer_[8];
    std::copy_n(buffer_.begin() + 80, 2, file.begin() + 80);
    std::fill(file.begin() + 82, file.begin() + 100, std::uint8_t{0});
    EXPECT_EQ(FirstDifference(buffer_, file), -1);
  }

  void ExpectVersion2WithFreshChecksums() {
    EXPECT_EQ(buffer_[8], 2);
    EXPECT_EQ(buffer_[80], RightBlockChecksum(buffer_.data()));
    EXPECT_EQ(buffer_[81], RightFileChecksum(buffer_.data()));
  }

  TempFolder folder_;
  std::string path_ = folder_.File("radio.rdf");
  CloneImage buffer_{};
};

TEST_F(ReadingRadioData, TakesAnIntactFileWithItsFillerCleared) {
  const Bytes file = IntactFile("RDF");
  EXPECT_TRUE(Loads(file));
  ExpectNoMessage();
  ExpectLoaded(file);
  EXPECT_EQ(buffer_[80], file[80]);
  EXPECT_EQ(buffer_[81], file[81]);
}

TEST_F(ReadingRadioData, IgnoresTheFiller) {
  Bytes file = IntactFile("RDF");
  std::fill(file.begin() + 82, file.begin() + 100, std::uint8_t{0xB7});
  EXPECT_TRUE(Loads(file));
  ExpectNoMessage();
  ExpectLoaded(file);
}

TEST_F(ReadingRadioData, IgnoresWhatFollowsTheImage) {
  const Bytes file = IntactFile("RDF");
  Bytes longer = file;
  longer.insert(longer.end(), 3000, 0xEE);
  EXPECT_TRUE(Loads(longer));
  ExpectNoMessage();
  ExpectLoaded(file);
}

TEST_F(ReadingRadioData, TakesGeometryAndCommentAsTheyAre) {
  Bytes file = IntactFile("RDF");
  std::fill(file.begin() + 56, file.begin() + 80, std::uint8_t{0x33});
  std::fill(file.begin() + 100, file.begin() + 180, std::uint8_t{0x44});
  FixChecksums(file);
  EXPECT_TRUE(Loads(file));
  ExpectNoMessage();
  ExpectLoaded(file);
}

TEST_F(ReadingRadioData, ReportsAFileThatIsNotThere) {
  EXPECT_FALSE(ReadRadioDataFile(buffer_, path_));
  ExpectOnlyMessage("Cannot open file:\n" + path_);
}

TEST_F(ReadingRadioData, RefusesAnEmptyFile) {
  EXPECT_FALSE(Loads({}));
  ExpectOnlyMessage("Not a radio data file:\n" + path_);
}

TEST_F(ReadingRadioData, RefusesAHeaderThatIsAByteShort) {
  Bytes file = IntactFile("RDF");
  file.resize(179);
  EXPECT_FALSE(Loads(file));
  ExpectOnlyMessage("Not a radio data file:\n" + path_);
}

TEST_F(ReadingRadioData, RefusesAShortHeaderOverAnOldBuffer) {
  // What the buffer held before must not make up for what the file lacks.
  ASSERT_TRUE(Loads(IntactFile("RDF")));
  EXPECT_FALSE(Loads({'R', 'D', 'F', 0}));
  ExpectOnlyMessage("Not a radio data file:\n" + path_);
}

TEST_F(ReadingRadioData, RefusesATemplateFile) {
  EXPECT_FALSE(Loads(IntactFile("TPL")));
  ExpectOnlyMessage("Not a radio data file:\n" + path_);
}

TEST_F(ReadingRadioData, ComparesAllFourBytesOfTheMagic) {
  for (std::size_t i = 0; i < 4; ++i) {
    test_seams = TestSeams{};
    Bytes file = IntactFile("RDF");
    file[i] ^= 0x20;
    FixFileChecksum(file);
    EXPECT_FALSE(Loads(file)) << "byte " << i;
    ExpectOnlyMessage("Not a radio data file:\n" + path_);
  }
}

TEST_F(ReadingRadioData, LooksAtTheMagicBeforeTheRadio) {
  Bytes file = IntactFile("XYZ");
  file[4] = 'A';
  EXPECT_FALSE(Loads(file));
  ExpectOnlyMessage("Not a radio data file:\n" + path_);
}

TEST_F(ReadingRadioData, RefusesAnotherRadioByItsName) {
  Bytes file = IntactFile("RDF");
  file[7] = 'X';
  file[16] = 'S';
  file[26] = 'Z';
  FixFileChecksum(file);
  EXPECT_FALSE(Loads(file));
  ExpectOnlyMessage("Radio data file for for different radio:\nSamro QZ-7Z");
}

TEST_F(ReadingRadioData, ComparesAllFourBytesOfTheIdentifier) {
  for (std::size_t i = 4; i < 8; ++i) {
    test_seams = TestSeams{};
    Bytes file = IntactFile("RDF");
    file[i] ^= 0x20;
    FixFileChecksum(file);
    EXPECT_FALSE(Loads(file)) << "byte " << i;
    ExpectOnlyMessage("Radio data file for for different radio:\nTamro QZ-7H");
  }
}

TEST_F(ReadingRadioData, QuotesAnEmptyRadioName) {
  Bytes file = IntactFile("RDF");
  file[4] = 'A';
  file[16] = 0;
  EXPECT_FALSE(Loads(file));
  ExpectOnlyMessage("Radio data file for for different radio:\n");
}

TEST_F(ReadingRadioData, QuotesARadioNameThatFillsItsField) {
  Bytes file = IntactFile("RDF");
  file[4] = 'A';
  std::fill(file.begin() + 16, file.begin() + 56, std::uint8_t{'N'});
  EXPECT_FALSE(Loads(file));
  ExpectOnlyMessage("Radio data file for for different radio:\n" + std::string(40, 'N'));
}

TEST_F(ReadingRadioData, LooksAtTheRadioBeforeTheSize) {
  Bytes file = IntactFile("RDF");
  file[4] = 'A';
  file[12] = 0;
  EXPECT_FALSE(Loads(file));
  ExpectOnlyMessage("Radio data file for for different radio:\nTamro QZ-7H");
}

TEST_F(ReadingRadioData, RefusesAnotherTotalSize) {
  for (std::size_t i = 12; i < 16; ++i) {
    test_seams = TestSeams{};
    Bytes file = IntactFile("RDF");
    file[i] ^= 0x01;
    FixFileChecksum(file);
    EXPECT_FALSE(Loads(file)) << "byte " << i;
    ExpectOnlyMessage("Radio data file has invalid header");
  }
}

TEST_F(ReadingRadioData, LooksAtTheSizeBeforeTheBody) {
  Bytes file = IntactFile("RDF");
  file[12] = 0;
  file.resize(180);
  EXPECT_FALSE(Loads(file));
  ExpectOnlyMessage("Radio data file has invalid header");
}

TEST_F(ReadingRadioData, RefusesAHeaderAlone) {
  Bytes file = IntactFile("RDF");
  file.resize(180);
  EXPECT_FALSE(Loads(file));
  ExpectOnlyMessage("Radio data file has invalid format");
}

TEST_F(ReadingRadioData, RefusesABodyThatIsAByteShort) {
  Bytes file = IntactFile("RDF");
  file.resize(21'281);
  EXPECT_FALSE(Loads(file));
  ExpectOnlyMessage("Radio data file has invalid format");
}

TEST_F(ReadingRadioData, RefusesAChangedBlockWithError1362) {
  Bytes file = IntactFile("RDF");
  ++file[5000];
  EXPECT_FALSE(Loads(file));
  ExpectOnlyMessage(kError1362);
}

TEST_F(ReadingRadioData, RefusesAChangeOutsideTheBlockWithError1362) {
  for (const std::size_t place : {180U, 3059U, 11'182U, 21'281U, 56U, 100U}) {
    test_seams = TestSeams{};
    Bytes file = IntactFile("RDF");
    ++file[place];
    EXPECT_FALSE(Loads(file)) << "byte " << place;
    ExpectOnlyMessage(kError1362);
  }
}

TEST_F(ReadingRadioData, LoadsAChangedBlockAfterError1377WhenTheFileChecksumFits) {
  Bytes file = IntactFile("RDF");
  ++file[5000];
  FixFileChecksum(file);
  EXPECT_TRUE(Loads(file));
  ExpectOnlyMessage(kError1377);
  ExpectLoaded(file);
  EXPECT_EQ(buffer_[8], 2);
  EXPECT_EQ(buffer_[80], file[80]);  // nothing is repaired
}

TEST_F(ReadingRadioData, TreatsOtherVersionsLikeVersion2) {
  for (const std::uint8_t version : {std::uint8_t{0}, std::uint8_t{3}, std::uint8_t{255}}) {
    Bytes file = IntactFile("RDF");
    file[8] = version;
    FixFileChecksum(file);
    test_seams = TestSeams{};
    EXPECT_TRUE(Loads(file));
    ExpectNoMessage();
    EXPECT_EQ(buffer_[8], version);

    Bytes damaged = file;
    ++damaged[5000];
    EXPECT_FALSE(Loads(damaged));
    ExpectOnlyMessage(kError1362);

    FixFileChecksum(damaged);
    test_seams = TestSeams{};
    EXPECT_TRUE(Loads(damaged));
    ExpectOnlyMessage(kError1377);
  }
}

TEST_F(ReadingRadioData, ReadsAllFourBytesOfTheVersion) {
  Bytes file = IntactFile("RDF");
  file[8] = 1;
  file[11] = 1;  // 0x01000001 is not version 1
  file[81] = static_cast<std::uint8_t>(RightFileChecksum(file.data()) + 1);
  EXPECT_FALSE(Loads(file));
  ExpectOnlyMessage(kError1362);
}

// A version 1 file of which either checksum can be wrong.
Bytes Version1File(bool file_checksum_right, bool block_checksum_right) {
  Bytes file = IntactFile("RDF");
  file[8] = 1;
  if (!block_checksum_right) {
    file[80] = static_cast<std::uint8_t>(file[80] + 9);
  }
  FixFileChecksum(file);
  if (!file_checksum_right) {
    file[81] = static_cast<std::uint8_t>(file[81] + 5);
  }
  return file;
}

TEST_F(ReadingRadioData, UpgradesAnIntactVersion1File) {
  const Bytes file = Version1File(true, true);
  EXPECT_TRUE(Loads(file));
  ExpectNoMessage();
  ExpectVersion2WithFreshChecksums();
  ExpectLoaded(file);
}

TEST_F(ReadingRadioData, UpgradesAVersion1FileWithAWrongBlockChecksum) {
  const Bytes file = Version1File(true, false);
  EXPECT_TRUE(Loads(file));
  ExpectNoMessage();
  ExpectVersion2WithFreshChecksums();
  ExpectLoaded(file);
}

TEST_F(ReadingRadioData, UpgradesAVersion1FileWithAWrongFileChecksum) {
  const Bytes file = Version1File(false, true);
  EXPECT_TRUE(Loads(file));
  ExpectNoMessage();
  ExpectVersion2WithFreshChecksums();
  ExpectLoaded(file);
}

TEST_F(ReadingRadioData, UpgradesAVersion1FileWithBothChecksumsWrongAfterError1377) {
  const Bytes file = Version1File(false, false);
  EXPECT_TRUE(Loads(file));
  ExpectOnlyMessage(kError1377);
  ExpectVersion2WithFreshChecksums();
  ExpectLoaded(file);
}

}  // namespace
}  // namespace qz7
