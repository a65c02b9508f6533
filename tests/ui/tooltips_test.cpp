#include "desktop/commands.h"
#include "desktop/editors/channel_editor_dialog.h"
#include "tests/ui/feature_fixture.h"

// What the pointer tells of controls whose caption does not say it.
namespace qz7 {
namespace {

using Tooltips = WindowTest;

TEST_F(Tooltips, OfTheMemoryListNameTheKeys) {
  const DialogScript script([](HWND dialog) {
    EXPECT_EQ(TooltipOf(dialog, ID_EDIT_CHANNEL), "Enter, or a double-click");
    EXPECT_EQ(TooltipOf(dialog, ID_MOVE_UP), "Alt+Up");
    EXPECT_EQ(TooltipOf(dialog, ID_MOVE_DOWN), "Alt+Down");
    EXPECT_EQ(TooltipOf(dialog, ID_INSERT_CHANNEL),
              "Insert key: an empty channel here, the others move down");
    EXPECT_EQ(TooltipOf(dialog, ID_DELETE_CHANNEL), "Delete key: the channels below move up");
    EXPECT_EQ(TooltipOf(dialog, ID_CLEAR_CHANNEL),
              "Ctrl+Delete: empties the channel, the others stay");
    Press(dialog, IDCANCEL);
  });
  RunCommand(CM_VIEW);
}

TEST_F(Tooltips, OfTheChannelEditorNameThePlacesOfTheOptions) {
  const DialogScript script([](HWND dialog) {
    EXPECT_EQ(TooltipOf(dialog, ID_OPTION_A), "Channel record byte 0, bit 4");
    EXPECT_EQ(TooltipOf(dialog, ID_OPTION_B), "Channel record byte 0, bit 5");
    EXPECT_EQ(TooltipOf(dialog, ID_OPTION_FLAG), "Channel flag byte, bit 3");
    EXPECT_EQ(TooltipOf(dialog, ID_BAND_DEFAULTS), "The usual offset and step of the band");
    Press(dialog, IDCANCEL);
  });
  ShowChannelEditorDialog(app.document, 1);
}

TEST_F(Tooltips, OfTheVornIdentifierSaysThatBlanksEraseTheRest) {
  const DialogScript script([](HWND dialog) {
    EXPECT_EQ(TooltipOf(dialog, ID_VORN_IDENTIFIER),
              "Byte 10208. A shorter text leaves the rest of the old one: blanks erase it.");
    Press(dialog, IDCANCEL);
  });
  RunCommand(CM_VORN);
}

}  // namespace
}  // namespace qz7
