#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "core/image/clone_image.h"
#include "core/link/clone_write.h"
#include "tests/unit/document_bytes.h"
#include "tests/unit/memory_line.h"
#include "tests/unit/seams.h"
#include "tests/unit/temp_folder.h"

namespace qz7 {

// A write that is opened on a document, with a usable template at hand. The test plays the radio.
class OpenedWrite : public testing::Test {
 protected:
  OpenedWrite() : document_(ImageOf(IntactFile("RDF"))) {
    for (std::size_t i = 3060; i < 3074; ++i) {
      document_[i] = 0xEE;  // a header that must not be sent
    }
    working_copy_ = document_;
    WriteTemplate(0x00);
    line_.Open("line");
    Open();
  }

  void Open() { BeginCloneWrite(write_, line_, working_copy_); }

  // Puts a template of this version type (byte 8 of its block) into the file.
  void WriteTemplate(std::uint8_t version_type) {
    Bytes file = IntactFile("TPL");
    const Bytes start = {0x0A, 0x11,         0x12, 0x13, 0x14, 0x15, 0x61,
                         0x71, version_type, 0x19, 0xA0, 0xB0, 0xC0, 0xD0};
    std::copy(start.begin(), start.end(), file.begin() + 3060);
    FixChecksums(file);
    PutFile(template_path_, file);
  }

  // What a radio gets: the template's header, its bytes 6 and 7 once more, its bytes 12 and 13,
  // and the document, whose operating channel follows its VFO.
  Bytes ExpectedBlock() const {
    Bytes block(write_.block.begin(), write_.block.end());
    const Bytes start = {0x0A, 0x11, 0x12, 0x13, 0x14, 0x15, 0x61,
                         0x71, 0x00, 0x19, 0x61, 0x71, 0xC0, 0xD0};
    std::copy(start.begin(), start.end(), block.begin());
    return block;
  }

  void Start() { StartCloneWrite(write_, line_, template_path_); }
  void Tick() {
    ASSERT_TRUE(write_.polling) << "no tick comes from a timer that is stopped";
    TickCloneWrite(write_, line_);
    AnswerQuestions();
  }
  void Notify() {
    NotifyCloneWrite(write_, line_);
    AnswerQuestions();
  }
  // As a program does: shows what a step has asked, and hands the answer over.
  void AnswerQuestions() {
    while (write_.question) {
      const LinkQuestion asked = *write_.question;
      AnswerCloneWrite(write_, line_,
                       ShowMessage(asked.text, asked.caption, asked.buttons, Icon::kNone));
    }
  }

  void Arrive(const Bytes& bytes) {
    line_.incoming.insert(line_.incoming.end(), bytes.begin(), bytes.end());
  }
  void ArriveAndTick(const Bytes& bytes) {
    Arrive(bytes);
    Tick();
  }
  // The cable brings back `count` bytes; what they are does not matter to the program.
  void EchoAndTick(std::size_t count) { ArriveAndTick(Bytes(count, 0x5C)); }

  // With the echo played by the test: block 506 has been sent, nothing of it has come back.
  void SendAllBlocks() {
    line_.echo = false;
    Start();
    EchoAndTick(10);
    ArriveAndTick({0x06});
    EchoAndTick(16);
    ArriveAndTick({0x06});
    for (int n = 1; n < 506; ++n) {
      EchoAndTick(16);
    }
    ASSERT_EQ(write_.blocks_sent, 507);
    ASSERT_EQ(write_.phase, CloneWrite::kWaitEcho);
    ASSERT_EQ(line_.sent.size(), kRadioBlock.size);
  }

  bool IsOver() const { return write_.ended.has_value(); }

  TempFolder folder_;
  const std::string template_path_ = folder_.File("my.tpl");
  CloneImage document_;
  CloneImage working_copy_{};
  MemoryLine line_;
  CloneWrite write_;
};

}  // namespace qz7
