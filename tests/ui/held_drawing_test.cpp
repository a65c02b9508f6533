#include "desktop/toolkit/held_drawing.h"

#include <gtest/gtest.h>
#include <windows.h>

#include "desktop/toolkit/dialog_support.h"

namespace qz7 {
namespace {

constexpr int kList = 7;

// A list, or a drop-down list, in a window on the screen.
class HeldDrawingTest : public testing::Test {
 protected:
  ~HeldDrawingTest() override { DestroyWindow(frame); }

  HWND Child(const char* kind, DWORD style) {
    return CreateWindowExA(0, kind, "", WS_CHILD | style, 0, 0, 100, 200, frame,
                           // NOLINTNEXTLINE(performance-no-int-to-ptr): its number, by the system
                           reinterpret_cast<HMENU>(INT_PTR{kList}), nullptr, nullptr);
  }
  bool IsToBeDrawnWhole(HWND window) {
    RECT own;
    RECT pending{};
    GetClientRect(window, &own);
    GetUpdateRect(window, &pending, FALSE);
    return EqualRect(&own, &pending) != 0;
  }
  void Draw(HWND window) {
    RedrawWindow(window, nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW);
    EXPECT_FALSE(GetUpdateRect(window, nullptr, FALSE));
  }

  const HWND frame = CreateWindowExA(0, "STATIC", "", WS_POPUP | WS_VISIBLE, 0, 0, 200, 200,
                                     nullptr, nullptr, nullptr, nullptr);
};

TEST_F(HeldDrawingTest, DrawsAListWholeAfterItsChanges) {
  const HWND list = Child("LISTBOX", WS_VISIBLE);
  Draw(list);
  {
    const HeldDrawing held(list);
    SendMessageA(list, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>("one"));
    EXPECT_FALSE(GetUpdateRect(list, nullptr, FALSE));
  }
  EXPECT_TRUE(IsToBeDrawnWhole(list));
}

TEST_F(HeldDrawingTest, LeavesAHiddenWindowHidden) {
  const HWND label = Child("STATIC", 0);
  { const HeldDrawing held(label); }
  EXPECT_FALSE(IsWindowVisible(label));
}

TEST_F(HeldDrawingTest, DrawsADropDownListWholeAfterItWasFilledAndAfterAChoice) {
  const HWND list = Child("COMBOBOX", WS_VISIBLE | CBS_DROPDOWNLIST);
  Draw(list);
  const char* texts[] = {"one", "two"};
  FillList(frame, kList, texts);
  EXPECT_TRUE(IsToBeDrawnWhole(list));
  Draw(list);
  SelectInList(frame, kList, 1);
  EXPECT_TRUE(IsToBeDrawnWhole(list));
  EXPECT_EQ(ChosenInList(frame, kList), 1);
  SelectInList(frame, kList, 5);
  EXPECT_EQ(ChosenInList(frame, kList), std::nullopt);
}

TEST_F(HeldDrawingTest, FillsAHiddenDropDownListAndLeavesItHidden) {
  const HWND list = Child("COMBOBOX", CBS_DROPDOWNLIST);
  const char* texts[] = {"one", "two"};
  FillList(frame, kList, texts);
  SelectInList(frame, kList, 1);
  EXPECT_EQ(ChosenInList(frame, kList), 1);
  EXPECT_FALSE(IsWindowVisible(list));
}

}  // namespace
}  // namespace qz7
