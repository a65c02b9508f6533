#include "core/files/file_inspection.h"

#include <gtest/gtest.h>

#include <memory>
#include <sstream>

#include "core/files/document_header.h"
#include "core/files/new_document.h"
#include "core/files/radio_data_file.h"
#include "tests/unit/seams.h"

namespace qz7 {
namespace {

class Inspection : public testing::Test {
 protected:
  void SetUp() override {
    MakeNewImage(*image_);
    PrepareRadioDataFile(*image_);
  }

  std::string Bytes() const { return {image_->begin(), image_->end()}; }

  static std::unique_ptr<FileInspection> Inspect(const std::string& bytes) {
    std::istringstream file(bytes);
    return std::make_unique<FileInspection>(InspectFile(file));
  }

  std::unique_ptr<CloneImage> image_ = std::make_unique<CloneImage>();
};

TEST_F(Inspection, OfASoundDocumentPassesEveryCheck) {
  const auto found = Inspect(Bytes());
  EXPECT_EQ(FileKind::kRadioData, found->kind);
  EXPECT_TRUE(found->radio_identifier && found->total_size && found->complete &&
              found->file_checksum && found->radio_block_checksum);
  EXPECT_EQ(kCloneImageSize, found->size);
  EXPECT_TRUE(test_seams.messages.empty());
}

TEST_F(Inspection, KnowsATemplateByItsMagic) {
  SetMagic(*image_, kTemplateMagic);
  EXPECT_EQ(FileKind::kTemplate, Inspect(Bytes())->kind);
}

TEST_F(Inspection, TellsTheChecksApart) {
  CloneImage sound = *image_;
  (*image_)[11'182] ^= 1;
  EXPECT_FALSE(Inspect(Bytes())->file_checksum);
  EXPECT_TRUE(Inspect(Bytes())->radio_block_checksum);
  *image_ = sound;
  (*image_)[kIdentifierOffset] = 'X';
  EXPECT_FALSE(Inspect(Bytes())->radio_identifier);
  *image_ = sound;
  (*image_)[kTotalSizeOffset] ^= 1;
  EXPECT_FALSE(Inspect(Bytes())->total_size);
}

TEST_F(Inspection, OfAShortFileFailsWhatLiesBehindItsEnd) {
  const auto cut = Inspect(Bytes().substr(0, kCloneImageSize - 1));
  EXPECT_EQ(FileKind::kRadioData, cut->kind);
  EXPECT_FALSE(cut->complete || cut->file_checksum || cut->radio_block_checksum);
  EXPECT_EQ(FileKind::kUnknown, Inspect(Bytes().substr(0, 179))->kind);
  EXPECT_EQ(FileKind::kUnknown, Inspect("")->kind);
}

TEST_F(Inspection, OfAHeaderAloneTellsWhatTheHeaderSays) {
  const auto header = Inspect(Bytes().substr(0, 180));
  EXPECT_EQ(180U, header->size);
  EXPECT_EQ(FileKind::kRadioData, header->kind);
  EXPECT_TRUE(header->radio_identifier && header->total_size);
  EXPECT_FALSE(header->complete || header->file_checksum || header->radio_block_checksum);
}

TEST_F(Inspection, TakesNoOtherTotalSizeBeItLargerOrSmaller) {
  for (const std::uint32_t size : {21'281U, 21'283U, 0U}) {
    WriteU32(image_->data() + kTotalSizeOffset, size);
    EXPECT_FALSE(Inspect(Bytes())->total_size) << size;
  }
}

TEST_F(Inspection, CountsTheProgrammedChannels) {
  EXPECT_EQ(1, CountProgrammedChannels(*image_));
  SetProgrammed(*image_, 240, true);
  EXPECT_EQ(2, CountProgrammedChannels(*image_));
  WriteU16(image_->data() + kChannelCountOffset, 65'535);
  EXPECT_EQ(2, CountProgrammedChannels(*image_));
}

}  // namespace
}  // namespace qz7
