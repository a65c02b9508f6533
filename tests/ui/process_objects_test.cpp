#include <windows.h>
// Behind <windows.h>.
#include <uxtheme.h>
#include <vssym32.h>

#include "resources/control_ids.h"
#include "tests/ui/window_fixture.h"

// What tests of leaks count: it changes with a leak and with nothing else.
namespace qz7 {
namespace {

using CountedObjects = WindowTest;

// As the system's table numbers them.
constexpr const char* kContext = "GDI object of kind 1";
constexpr const char* kFont = "GDI object of kind 10";

TEST_F(CountedObjects, AreMoreByWhatIsNotGivenBack) {
  const ProcessObjects before = CountObjects();
  const HDC context = GetDC(app.main_dialog);
  const HGDIOBJ font = CreateFontA(20, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, "QZ7");
  const HANDLE event = CreateEventA(nullptr, FALSE, FALSE, nullptr);
  ProcessObjects expected = before;
  for (const char* kind : {kContext, kFont}) {
    ++expected.gdi_objects[kind];
  }
  ++expected.handles["Event"];
  ProcessObjects after = CountObjects();
  for (const char* kind : {kContext, kFont}) {
    EXPECT_EQ(after.gdi_objects[kind], expected.gdi_objects[kind]) << kind;
  }
  EXPECT_EQ(after.handles, expected.handles);
  ReleaseDC(app.main_dialog, context);
  DeleteObject(font);
  CloseHandle(event);
}

// As the visual style has it.
void DrawScrollBar() {
  const HTHEME theme = OpenThemeData(app.main_dialog, L"SCROLLBAR");
  const HDC context = GetDC(app.main_dialog);
  const RECT place{0, 0, 17, 200};
  for (const int part : {SBP_ARROWBTN, SBP_THUMBBTNVERT, SBP_LOWERTRACKVERT, SBP_GRIPPERVERT}) {
    DrawThemeBackground(theme, context, part, 1, &place, nullptr);
  }
  ReleaseDC(app.main_dialog, context);
  CloseThemeData(theme);
}

TEST_F(CountedObjects, AreAsManyWhereverKeyboardAndMouseAreAndHoweverPaintingWasNested) {
  SetFocus(GetDlgItem(app.main_dialog, ID_LAMP));
  const ProcessObjects before = CountObjects();
  SetFocus(GetDlgItem(app.main_dialog, ID_FILE_COMMENT));
  SetCursor(LoadCursor(nullptr, IDC_SIZENWSE));
  EXPECT_NE(GetSysColorBrush(COLOR_HOTLIGHT), nullptr);
  DrawScrollBar();
  std::vector<HDC> contexts;
  for (int i = 0; i < 90; ++i) {
    contexts.push_back(GetDC(app.main_dialog));
  }
  for (const HDC context : contexts) {
    ReleaseDC(app.main_dialog, context);
  }
  EXPECT_EQ(CountObjects(), before);
}

}  // namespace
}  // namespace qz7
