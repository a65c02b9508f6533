#include "desktop/interchange/merge_dialog.h"

#include "tests/ui/interchange_windows.h"
#include "tests/unit/interchange_fixture.h"
#include "tests/unit/merge_fixture.h"

namespace qz7 {
namespace {

using namespace merge_fixture;
using interchange_fixture::FlagByte;
using interchange_fixture::NameInRecord;
using interchange_fixture::Program;
using interchange_fixture::RecordBytes;

// Six channels of the sibling radio: two on 2 m, two on 70 cm, one in the air band, one beside
// the 2 m band of hams.
SourceFile SiblingList() {
  SourceFile file = SiblingFile();
  const std::uint32_t frequencies[] = {14'694'000, 14'800'000, 14'800'500,
                                       43'000'000, 45'000'000, 12'150'000};
  int s = 1;
  for (const std::uint32_t frequency : frequencies) {
    file.Channel(s, kInUse, frequency, frequency);
    file.Name(s, "CH " + std::to_string(s));
    ++s;
  }
  file.Comment(1, "Local RPT north");
  file.Comment(4, "local rpt south");
  return file;
}

class MergeDialogTest : public InterchangeWindowTest {
 protected:
  void MergeFile(const SourceFile& file, const std::function<void(HWND)>& script) {
    ChooseFile("other.rdf", file.bytes);
    const DialogScript dialog(script);
    Merge();
  }
};

TEST_F(MergeDialogTest, OpensWithTheSourceAndItsCounts) {
  MergeFile(SiblingList(), [](HWND dialog) {
    EXPECT_EQ(TextOf(dialog, ID_MERGE_RADIO_TYPE), "Radio Type: Tamro QZ-2H");
    EXPECT_EQ(TextOf(dialog, ID_MERGE_AVAILABLE), "6");
    EXPECT_EQ(TextOf(dialog, ID_MERGE_SELECTED), "6");
    EXPECT_EQ(TextOf(dialog, ID_MERGE_KEY), "");
    for (const int box :
         {ID_MERGE_USE_KEY, ID_MERGE_ONLY_HAM, ID_MERGE_OVERWRITE, ID_MERGE_GROUP_2}) {
      EXPECT_FALSE(IsChecked(dialog, box)) << box;
    }
    EXPECT_EQ(TextOf(dialog, ID_MERGE_START), "2");
    EXPECT_EQ(SendDlgItemMessageA(dialog, ID_MERGE_KEY, EM_GETLIMITTEXT, 0, 0), 31);
    CancelDialog(dialog);
  });
  ASSERT_EQ(test_seams.open_boxes.size(), 1U);
  EXPECT_STREQ(test_seams.open_boxes[0].title, "Radio File for Merge");
}

TEST_F(MergeDialogTest, CountsAgainWhileTheKeyIsTyped) {
  MergeFile(SiblingList(), [](HWND dialog) {
    Type(dialog, ID_MERGE_KEY, "rpt");
    EXPECT_EQ(TextOf(dialog, ID_MERGE_SELECTED), "6");
    Press(dialog, ID_MERGE_USE_KEY);
    EXPECT_EQ(TextOf(dialog, ID_MERGE_SELECTED), "2");
    Type(dialog, ID_MERGE_KEY, "rpt n");
    EXPECT_EQ(TextOf(dialog, ID_MERGE_SELECTED), "1");
    Type(dialog, ID_MERGE_KEY, "rpt nx");
    EXPECT_EQ(TextOf(dialog, ID_MERGE_SELECTED), "0");
    Type(dialog, ID_MERGE_KEY, "rpt");
    Press(dialog, ID_MERGE_ONLY_HAM);
    SavePicture(dialog, "merge");
    Type(dialog, ID_MERGE_KEY, "");
    EXPECT_EQ(TextOf(dialog, ID_MERGE_SELECTED), "4");
    CancelDialog(dialog);
  });
}

TEST_F(MergeDialogTest, OnlyHamFrequenciesEndAt148And450MHz) {
  MergeFile(SiblingList(), [](HWND dialog) {
    Press(dialog, ID_MERGE_ONLY_HAM);
    EXPECT_EQ(TextOf(dialog, ID_MERGE_SELECTED), "4");
    Type(dialog, ID_MERGE_START, "50");
    AcceptDialog(dialog);
  });
  const char* names[] = {"CH 1    ", "CH 2    ", "CH 4    ", "CH 5    "};
  for (int i = 0; i < 4; ++i) {
    EXPECT_EQ(NameInRecord(Image(), 50 + i), names[i]);
  }
  EXPECT_EQ(FlagByte(Image(), 54) & 0x01, 0);
}

TEST_F(MergeDialogTest, TheSameModelIsCopiedRecordForRecord) {
  SourceFile file = OwnFile();
  const Bytes record = {0x00, 0x05, 0x14, 0x69, 0x40, 0x00, 'O',  'W',  'N',  ' ',  ' ',
                        ' ',  ' ',  ' ',  0x00, 0x06, 0x00, 0x0D, 0x0C, 0x00, 0x00, 0x00};
  for (int s = 11; s <= 20; ++s) {
    file.Channel(s, kInUse, 14'694'000, 14'634'000);
    Bytes own = record;
    own[9] = static_cast<std::uint8_t>('A' + s - 11);
    file.Record(s, own);
    file.Name(s, std::string("OWN") + static_cast<char>('A' + s - 11));
  }
  MergeFile(file, [](HWND dialog) {
    EXPECT_EQ(TextOf(dialog, ID_MERGE_SELECTED), "10");
    Type(dialog, ID_MERGE_START, "50");
    AcceptDialog(dialog);
  });
  EXPECT_TRUE(app.document.changed);
  EXPECT_EQ(NameInRecord(Image(), 50), "OWNA    ");
  EXPECT_EQ(NameInRecord(Image(), 59), "OWNJ    ");
  EXPECT_EQ(RecordBytes(Image(), 59)[17], 0x0D);
  EXPECT_EQ(FlagByte(Image(), 59) & 0x03, 0x03);
  EXPECT_EQ(FlagByte(Image(), 60) & 0x01, 0);
}

TEST_F(MergeDialogTest, TheFirstAndTheLastStartAreRefused) {
  const CloneImage before = Image();
  MergeFile(SiblingList(), [&](HWND dialog) {
    Press(dialog, ID_MERGE_OVERWRITE);
    for (const char* start : {"0", "-1", "240", "241"}) {
      test_seams.messages.clear();
      Type(dialog, ID_MERGE_START, start);
      SetFocus(GetDlgItem(dialog, IDOK));
      AcceptDialog(dialog);
      EXPECT_EQ(ShownTexts(), std::vector<std::string>{"Illegal Start Channel"}) << start;
      EXPECT_EQ(GetFocus(), GetDlgItem(dialog, ID_MERGE_START));
    }
    EXPECT_EQ(Image(), before);
    CancelDialog(dialog);
  });
  EXPECT_FALSE(app.document.changed);
}

TEST_F(MergeDialogTest, WithoutASelectedChannelItEndsAsCancelled) {
  const CloneImage before = Image();
  MergeFile(SiblingList(), [](HWND dialog) {
    Type(dialog, ID_MERGE_KEY, "nowhere");
    Press(dialog, ID_MERGE_USE_KEY);
    AcceptDialog(dialog);
  });
  ASSERT_EQ(ShownTexts(), std::vector<std::string>{"No memories selected for merge"});
  EXPECT_EQ(test_seams.messages[0].icon, Icon::kInformation);
  EXPECT_EQ(Image(), before);
  EXPECT_FALSE(app.document.changed);
}

TEST_F(MergeDialogTest, WithoutRoomItStaysUntilChannelsMayBeOverwritten) {
  Program(Image(), 55, 60);
  MergeFile(SiblingList(), [](HWND dialog) {
    Type(dialog, ID_MERGE_START, "50");
    AcceptDialog(dialog);
    EXPECT_EQ(ShownTexts(),
              std::vector<std::string>{"Cannot fit selected memories.\nUse lower start channel, "
                                       "and/or select overwrite."});
    EXPECT_TRUE(IsWindowVisible(dialog));
    Press(dialog, ID_MERGE_OVERWRITE);
    AcceptDialog(dialog);
  });
  EXPECT_EQ(NameInRecord(Image(), 55), "CH 6    ");
  EXPECT_TRUE(app.document.changed);
}

TEST_F(MergeDialogTest, Group2SetsTheStartAgainUnlessChannelsAreOverwritten) {
  MergeFile(SiblingList(), [](HWND dialog) {
    Type(dialog, ID_MERGE_START, "77");
    Press(dialog, ID_MERGE_GROUP_2);
    EXPECT_EQ(TextOf(dialog, ID_MERGE_START), "2");
    Press(dialog, ID_MERGE_OVERWRITE);
    Type(dialog, ID_MERGE_START, "77");
    Press(dialog, ID_MERGE_GROUP_2);
    EXPECT_EQ(TextOf(dialog, ID_MERGE_START), "77");
    CancelDialog(dialog);
  });
}

TEST_F(MergeDialogTest, TheChoicesStayForTheNextMergeButTheGroup) {
  MergeFile(SiblingList(), [](HWND dialog) {
    Type(dialog, ID_MERGE_KEY, "Rpt");
    for (const int box :
         {ID_MERGE_USE_KEY, ID_MERGE_ONLY_HAM, ID_MERGE_OVERWRITE, ID_MERGE_GROUP_2}) {
      Press(dialog, box);
    }
    CancelDialog(dialog);
  });
  MergeFile(SiblingList(), [](HWND dialog) {
    EXPECT_EQ(TextOf(dialog, ID_MERGE_KEY), "Rpt");
    EXPECT_EQ(TextOf(dialog, ID_MERGE_SELECTED), "2");
    EXPECT_TRUE(IsChecked(dialog, ID_MERGE_USE_KEY));
    EXPECT_TRUE(IsChecked(dialog, ID_MERGE_ONLY_HAM));
    EXPECT_TRUE(IsChecked(dialog, ID_MERGE_OVERWRITE));
    EXPECT_FALSE(IsChecked(dialog, ID_MERGE_GROUP_2));
    SendMessageA(dialog, WM_CLOSE, 0, 0);
  });
}

TEST_F(MergeDialogTest, ACancelledBoxOpensNoDialog) {
  const CloneImage before = app.document.working_copy;
  Merge();
  EXPECT_TRUE(test_seams.messages.empty());
  EXPECT_EQ(app.document.working_copy, before);
}

TEST_F(MergeDialogTest, AnotherKindOfFileIsRefusedAndLeavesItsHeaderInTheWorkingCopy) {
  const CloneImage before = Image();
  ChooseFile("other.rdf", Bytes(300, 'x'));
  Merge();
  EXPECT_EQ(ShownTexts(),
            std::vector<std::string>{"Not a radio data file:\n" + folder.File("other.rdf")});
  EXPECT_EQ(Image(), before);
  EXPECT_EQ(app.document.working_copy[0], 'x');
}

TEST_F(MergeDialogTest, MergeCollectsTheMainDialogFirst) {
  Choose(app.main_dialog, ID_LOCK, 3);
  Merge();
  EXPECT_EQ(Image()[10'200], 3);
}

}  // namespace
}  // namespace qz7
