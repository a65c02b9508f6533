#include "core/image/channel_copy.h"
#include "core/image/text_codec.h"
#include "desktop/toolkit/clipboard.h"
#include "tests/ui/memory_list_fixture.h"

// What the memory list puts on the system's clipboard and takes from it.
namespace qz7 {
namespace {

using Selection = std::vector<int>;

// The clipboard's plain text, as another program gets it.
std::string PlainText() {
  std::string text;
  if (OpenClipboard(nullptr) != FALSE) {
    if (const HANDLE memory = GetClipboardData(CF_TEXT)) {
      text = static_cast<const char*>(GlobalLock(memory));
      GlobalUnlock(memory);
    }
    CloseClipboard();
  }
  return text;
}

class MemoryListClipboard : public MemoryListTest {
 protected:
  MemoryListClipboard() {
    WriteBits(std::span<std::uint8_t, kRecordSize>(GetChannelRecord(Image(), 3), kRecordSize),
              kRecordIconBits, 9);
    Working() = Image();
  }
};

TEST_F(MemoryListClipboard, TheRowsAreTextForOtherPrograms) {
  SetChannelName(Image(), 2, "Ulm \xB1");
  ChannelComment(Image(), 2)[0] = '\xE4';
  Working() = Image();
  Open([](HWND dialog) {
    Select(dialog, {1, 2, 3});
    Key(dialog, 'C', kCtrl);
    Press(dialog, IDCANCEL);
  });
  EXPECT_EQ(PlainText(),
            "RX Frequency\tTX Frequency\tOffset\tTone\tSkip\tPower\tEnc Frequency\tDec Frequency\t"
            "Name\tComment\r\n"
            "145.5000\t0.6000\t\t\t\tLow1\t67.0\t67.0\tUlm \xB1   \t\xE4\r\n"
            "145.5000\t0.6000\t\t\t\tLow1\t67.0\t67.0\tCH3     \t \r\n");
}

TEST_F(MemoryListClipboard, WholeChannelsArePastedFromTheSelectedRowOn) {
  Open([](HWND dialog) {
    Select(dialog, {1, 2});
    Key(dialog, VK_INSERT, kCtrl);
    Select(dialog, 29);
    Key(dialog, 'V', kCtrl);
    EXPECT_EQ(Selected(dialog), (Selection{29, 30}));
    EXPECT_EQ(Row(dialog, 30), "31 \t145.5000 \t   \t \t \tL\tCH3     ");
    Press(dialog, IDOK);
  });
  EXPECT_EQ(CopyOfChannel(Image(), 30), CopyOfChannel(Image(), 2));
  EXPECT_EQ(CopyOfChannel(Image(), 31), CopyOfChannel(Image(), 3));
  EXPECT_EQ(ChannelComment(Image(), 31)[0], 3);
  EXPECT_EQ(RecordIcon(GetChannelRecord(Image(), 31)), 9);
  EXPECT_TRUE(test_seams.messages.empty());
  EXPECT_TRUE(app.document.changed);
}

TEST_F(MemoryListClipboard, CutRowsAreClearedAndMayComeBack) {
  Open([](HWND dialog) {
    Select(dialog, {1, 2});
    Key(dialog, 'X', kCtrl);
    EXPECT_FALSE(IsProgrammed(Image(), 2));
    EXPECT_FALSE(IsProgrammed(Image(), 3));
    EXPECT_EQ(Selected(dialog), (Selection{1, 2}));
    Key(dialog, VK_INSERT, kShift);
    EXPECT_EQ(Image(), Working());
    Key(dialog, VK_DELETE, kShift);
    EXPECT_FALSE(IsProgrammed(Image(), 3));
    Key(dialog, 'Z', kCtrl);
    EXPECT_EQ(Image(), Working());
    Press(dialog, IDCANCEL);
  });
  EXPECT_TRUE(test_seams.messages.empty());
}

TEST_F(MemoryListClipboard, PasteAsksOnceBeforeProgrammedChannelsAreReplaced) {
  Open([](HWND dialog) {
    Select(dialog, {1, 2});
    Key(dialog, 'C', kCtrl);
    Select(dialog, 218);
    test_seams.answers = {Answer::kNo, Answer::kYes};
    Key(dialog, 'V', kCtrl);
    EXPECT_EQ(Image(), Working());
    EXPECT_EQ(Selected(dialog), Selection{218});
    Key(dialog, 'V', kCtrl);
    EXPECT_STREQ(GetChannelName(Image(), 220).data(), "CH3     ");
    Drop(dialog);
  });
  EXPECT_EQ(test_seams.messages.size(), 3U);
  EXPECT_EQ(test_seams.messages[0].text,
            "2 memory channels are active and will be replaced\nProceed?");
}

TEST_F(MemoryListClipboard, ATextOfAnotherProgramIsReadAsImportReadsIt) {
  PutPlainText("Name\tRX Frequency\tComment\r\nDB0X\t439.1\tTower\r\nDB0Y\t438.8\tHill\r\n");
  Open([](HWND dialog) {
    Select(dialog, 29);
    Key(dialog, 'V', kCtrl);
    EXPECT_EQ(Selected(dialog), (Selection{29, 30}));
    EXPECT_EQ(Row(dialog, 29), "30 \t439.1000 \t   \t \t \tH\tDB0X    ");
    Press(dialog, IDOK);
  });
  EXPECT_STREQ(ChannelComment(Image(), 31), "Hill");
}

TEST_F(MemoryListClipboard, WhatIsNoListIsNotPasted) {
  PutPlainText("Hello, world");
  Open([](HWND dialog) {
    Key(dialog, 'V', kCtrl);
    EXPECT_EQ(Beeps(), 1);
    OpenClipboard(dialog);
    EmptyClipboard();
    CloseClipboard();
    Key(dialog, 'V', kCtrl);
    EXPECT_EQ(Beeps(), 2);
    Select(dialog, Selection{});
    Key(dialog, 'C', kCtrl);
    EXPECT_EQ(Beeps(), 3);
    EXPECT_EQ(Image(), Working());
    Press(dialog, IDCANCEL);
  });
}

// The bytes that stand for no character do not.
TEST(Clipboard, TextComesBackByteForByte) {
  std::string every = "\t\r\n";
  for (int c = ' '; c < 256; ++c) {
    every += IsControl(static_cast<char>(c)) ? "" : std::string(1, static_cast<char>(c));
  }
  const UINT format = RegisterClipboardFormatA("QZ-7H Programmer Test");
  const std::string bytes("a\0b", 3);
  ASSERT_TRUE(PutOnClipboard(nullptr, format, {every, bytes}));
  EXPECT_EQ(TextOnClipboard(nullptr), every);
  EXPECT_EQ(BytesOnClipboard(nullptr, format)->substr(0, 3), bytes);
  EXPECT_EQ(BytesOnClipboard(nullptr, RegisterClipboardFormatA("QZ-7H Programmer None")),
            std::nullopt);
}

}  // namespace
}  // namespace qz7
