#include "desktop/editors/copy_many_dialog.h"

#include "resources/control_ids.h"
#include "tests/ui/window_fixture.h"

namespace qz7 {
namespace {

using CopyManyTest = WindowTest;

TEST_F(CopyManyTest, CollectsTwoNumbersAndTwoOptions) {
  CopyMany chosen;
  {
    const DialogScript script([](HWND dialog) {
      EXPECT_EQ(TextOf(dialog, ID_COPY_FIRST), "17");
      EXPECT_EQ(TextOf(dialog, ID_COPY_SECOND), "17");
      EXPECT_EQ(GetFocus(), GetDlgItem(dialog, ID_COPY_SECOND));
      EXPECT_EQ(SendMessageA(GetFocus(), EM_GETSEL, 0, 0), MAKELRESULT(0, 2));
      SavePicture(dialog, "copy_many");
      Type(dialog, ID_COPY_SECOND, "25");
      Press(dialog, ID_COPY_OPTION_A);
      Press(dialog, ID_COPY_OPTION_B);
      Press(dialog, IDOK);
    });
    EXPECT_TRUE(ShowCopyManyDialog(17, chosen));
  }
  EXPECT_EQ(chosen.first, 17);
  EXPECT_EQ(chosen.second, 25);
  EXPECT_TRUE(chosen.option_a);
  EXPECT_TRUE(chosen.option_b);
  const DialogScript again([](HWND dialog) {
    EXPECT_TRUE(IsChecked(dialog, ID_COPY_OPTION_A));
    EXPECT_FALSE(IsChecked(dialog, ID_COPY_OPTION_B));
    Press(dialog, ID_COPY_OPTION_A);
    Press(dialog, IDCANCEL);
  });
  EXPECT_FALSE(ShowCopyManyDialog(3, chosen));
}

}  // namespace
}  // namespace qz7
