#include "core/link/radio_transfer.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <string>

#include "core/files/new_document.h"
#include "core/files/radio_data_file.h"
#include "tests/unit/document_bytes.h"
#include "tests/unit/exchange_fixture.h"

namespace qz7 {
namespace {

constexpr std::ptrdiff_t kRecord2 = 3678 + 22;  // channel 2, unprogrammed
constexpr std::ptrdiff_t kTableName2 = 11'202 + 10;

class RadioTransfer : public testing::Test {
 protected:
  RadioTransfer() {
    MakeNewImage(*image_);
    radio_ = Bytes(image_->begin() + 3060, image_->begin() + 11'182);
    const std::string name = "ABCDEFGH";
    std::copy(name.begin(), name.end(), radio_.begin() + kRecord2 + 6 - 3060);
    line_.Open("line");
  }

  std::string TableName() const {
    return {image_->begin() + kTableName2, image_->begin() + kTableName2 + 8};
  }

  void Send(CloneRead& read, std::size_t from, std::size_t to) {
    line_.incoming.insert(line_.incoming.end(), radio_.begin() + static_cast<std::ptrdiff_t>(from),
                          radio_.begin() + static_cast<std::ptrdiff_t>(to));
    NotifyCloneRead(read, line_);
  }
  // The radio sends its memory.
  bool Receive(CloneRead& read) {
    Send(read, 0, 10);
    Send(read, 10, 26);
    Send(read, 26, radio_.size());
    line_.incoming.push_back(ChecksumOf(radio_));
    NotifyCloneRead(read, line_);
    return read.ended == 0;
  }
  RunRead Received() {
    return [this](CloneRead& read) { return Receive(read); };
  }

  const std::unique_ptr<CloneImage> image_ = std::make_unique<CloneImage>();
  Bytes radio_;
  MemoryLine line_;
};

TEST_F(RadioTransfer, AReadBringsTheRadiosBlockAndItsNamesIntoTheTable) {
  EXPECT_TRUE(ReadRadio(*image_, line_, Received()));
  EXPECT_TRUE(std::equal(radio_.begin(), radio_.end(), image_->begin() + 3060));
  EXPECT_EQ(TableName(), "ABCDEFGH");
}

TEST_F(RadioTransfer, AFailedReadLeavesTheTableAlone) {
  const std::string before = TableName();
  EXPECT_FALSE(ReadRadio(*image_, line_, [this](CloneRead& read) {
    Receive(read);
    return false;
  }));
  EXPECT_EQ(TableName(), before);
}

TEST_F(RadioTransfer, ATemplateIsWrittenBeforeTheNamesGoIntoTheTable) {
  TempFolder folder;
  const std::string path = folder.File("my.tpl");
  const std::string before = TableName();
  EXPECT_TRUE(ReadRadioIntoTemplate(
      *image_, line_, Received(), [&](CloneImage& read) { return WriteTemplateFile(read, path); }));
  const Bytes file = FileBytes(path);
  ASSERT_EQ(file.size(), 21'282U);
  EXPECT_TRUE(std::equal(radio_.begin(), radio_.end(), file.begin() + 3060));
  EXPECT_EQ(std::string(file.begin() + kTableName2, file.begin() + kTableName2 + 8), before);
  EXPECT_EQ(TableName(), "ABCDEFGH");
}

TEST_F(RadioTransfer, ATemplateThatCannotBeWrittenIsAFailure) {
  EXPECT_FALSE(
      ReadRadioIntoTemplate(*image_, line_, Received(), [](CloneImage&) { return false; }));
}

TEST_F(RadioTransfer, AFailedReadWritesNoTemplate) {
  EXPECT_FALSE(ReadRadioIntoTemplate(
      *image_, line_, [](CloneRead&) { return false; },
      [](CloneImage&) {
        ADD_FAILURE();
        return true;
      }));
}

TEST_F(RadioTransfer, ASendIsAWriteOfTheImageThatHasBegun) {
  EXPECT_TRUE(SendToRadio(*image_, line_, [this](CloneWrite& write) {
    EXPECT_EQ(write.block.data(), image_->data() + 3060);
    EXPECT_TRUE(write.can_start);
    EXPECT_TRUE(write.polling);
    return true;
  }));
  EXPECT_FALSE(SendToRadio(*image_, line_, [](CloneWrite&) { return false; }));
}

}  // namespace
}  // namespace qz7
