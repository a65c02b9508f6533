#include "core/image/derived_tables.h"
#include "core/image/operating_state.h"
#include "desktop/commands.h"
#include "resources/control_ids.h"
#include "tests/ui/window_fixture.h"

// What a command does before its window or its box comes.
namespace qz7 {
namespace {

using MainCommands = WindowTest;

TEST_F(MainCommands, ViewAndTheSlotsRefreshTheOperatingStateFirst) {
  for (const int command : {CM_VIEW, CM_VFO_A_FIRST, CM_VFO_B_FIRST, CM_HOME_LAST}) {
    CloneImage& image = app.document.image;
    image[kCurrentMemory] ^= 0xFF;
    image[kCurrentBandA] ^= 0xFF;
    image[kCurrentBandB] ^= 0xFF;
    CloneImage expected = image;
    RefreshOperatingState(expected);
    ASSERT_NE(expected, image);
    const DialogScript script([&](HWND dialog) {
      EXPECT_EQ(app.document.image, expected) << command;
      EXPECT_EQ(app.document.working_copy, expected) << command;
      Press(dialog, IDCANCEL);
    });
    RunCommand(command);
  }
}

TEST_F(MainCommands, ExportCollectsRebuildsAndCopiesBeforeItAsks) {
  SetDlgItemTextA(app.main_dialog, ID_FILE_COMMENT, "typed");
  CloneImage expected = app.document.image;
  const std::string typed = "typed";
  std::copy(typed.begin(), typed.end(), expected.begin() + 100);
  RebuildDerivedTables(expected);
  bool asked = false;
  test_seams.file = [&]() -> std::optional<ChosenFile> {
    asked = true;
    EXPECT_EQ(app.document.image, expected);
    EXPECT_EQ(app.document.working_copy, expected);
    EXPECT_TRUE(app.document.changed);
    return std::nullopt;
  };
  RunCommand(CM_EXPORT);
  EXPECT_TRUE(asked);
}

}  // namespace
}  // namespace qz7
