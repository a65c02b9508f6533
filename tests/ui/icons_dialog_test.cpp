#include "core/editors/icons.h"
#include "desktop/toolkit/dialog_support.h"
#include "desktop/toolkit/picture_list.h"
#include "tests/ui/feature_fixture.h"

namespace qz7 {
namespace {

constexpr int kLists = 15;

class IconsDialogTest : public FeatureDialogTest {
 protected:
  IconsDialogTest() {
    Put(Image(), 10'225, Bytes(kLists, 0));
    for (std::uint8_t i = 0; i < kLists; ++i) {
      Image()[10'225U + i] = i;
      Defaults()[607U + i] = static_cast<std::uint8_t>(26 - i);
    }
  }
};

TEST_F(IconsDialogTest, ShowsTheImage) {
  Run(CM_ICON_SELECT, [](HWND dialog) {
    SavePicture(dialog, "icons");
    for (int i = 0; i < kLists; ++i) {
      EXPECT_EQ(Selection(dialog, ID_ICON_FIRST + i), i);
      EXPECT_EQ(SendDlgItemMessageA(dialog, ID_ICON_FIRST + i, CB_GETCOUNT, 0, 0), 27);
      EXPECT_EQ(SendDlgItemMessageA(dialog, ID_ICON_FIRST + i, CB_GETITEMHEIGHT, 0, 0), 64);
      EXPECT_EQ(TooltipOf(dialog, ID_ICON_FIRST + i), "Byte " + std::to_string(10'225 + i));
    }
    EXPECT_TRUE(ButtonsEnabled(dialog));
    Press(dialog, IDCANCEL);
  });
}

TEST_F(IconsDialogTest, TheListsStandApartAndShowWholePictures) {
  Run(CM_ICON_SELECT, [](HWND dialog) {
    std::vector<RECT> areas;
    for (int i = 0; i < kLists; ++i) {
      RECT area;
      GetWindowRect(GetDlgItem(dialog, ID_ICON_FIRST + i), &area);
      EXPECT_GE(area.bottom - area.top, 64);
      COMBOBOXINFO info{};
      info.cbSize = sizeof info;
      GetComboBoxInfo(GetDlgItem(dialog, ID_ICON_FIRST + i), &info);
      EXPECT_GE(info.rcItem.right - info.rcItem.left, 64);
      EXPECT_GE(info.rcItem.bottom - info.rcItem.top, 64);
      for (const RECT& other : areas) {
        RECT common;
        EXPECT_FALSE(IntersectRect(&common, &area, &other));
      }
      areas.push_back(area);
    }
    Press(dialog, IDCANCEL);
  });
}

TEST_F(IconsDialogTest, OkStoresTheChoicesAndNothingElse) {
  CloneImage wanted = Image();
  wanted[10'225] = 26;
  wanted[10'239] = 0;
  Run(CM_ICON_SELECT, [](HWND dialog) {
    Choose(dialog, ID_ICON_FIRST, 26);
    Choose(dialog, ID_ICON_FIRST + 14, 0);
    Press(dialog, IDOK);
  });
  EXPECT_EQ(Image(), wanted);
  EXPECT_TRUE(app.document.changed);
}

TEST_F(IconsDialogTest, ANumberThatIsNoIconShowsNothingAndStays) {
  Put(Image(), 10'225, {27, 255});
  const CloneImage before = Image();
  Run(CM_ICON_SELECT, [](HWND dialog) {
    EXPECT_EQ(Selection(dialog, ID_ICON_FIRST), CB_ERR);
    EXPECT_EQ(Selection(dialog, ID_ICON_FIRST + 1), CB_ERR);
    Press(dialog, IDOK);
  });
  EXPECT_EQ(Image(), before);
}

TEST_F(IconsDialogTest, TheOpenListShowsItsPictures) {
  Run(CM_ICON_SELECT, [](HWND dialog) {
    const HWND list = GetDlgItem(dialog, ID_ICON_FIRST + 1);
    SetFocus(list);
    SendMessageA(list, CB_SHOWDROPDOWN, TRUE, 0);
    HandleMessages();
    COMBOBOXINFO info{};
    info.cbSize = sizeof info;
    GetComboBoxInfo(list, &info);
    SavePicture(info.hwndList, "icons_open_list");
    RECT area;
    GetClientRect(info.hwndList, &area);
    EXPECT_EQ(area.bottom, 7 * 64);
    EXPECT_GE(area.right, 64);
    SendMessageA(list, CB_SHOWDROPDOWN, FALSE, 0);
    Press(dialog, IDCANCEL);
  });
}

// A canvas of 80 x 80 pixels that a list draws an entry on.
class Canvas {
 public:
  Canvas() : screen_(GetDC(nullptr)), device(CreateCompatibleDC(screen_)) {
    bitmap_ = CreateCompatibleBitmap(screen_, 80, 80);
    old_ = SelectObject(device, bitmap_);
  }
  Canvas(const Canvas&) = delete;
  Canvas& operator=(const Canvas&) = delete;
  ~Canvas() {
    SelectObject(device, old_);
    DeleteObject(bitmap_);
    DeleteDC(device);
    ReleaseDC(nullptr, screen_);
  }

 private:
  HDC screen_;
  HBITMAP bitmap_;
  HGDIOBJ old_;

 public:
  HDC device;
};

int DifferentPixels(HDC drawn, POINT corner, const char* picture) {
  const HBITMAP bitmap = LoadBitmapA(dialog_modules.library, picture);
  BITMAP size{};
  GetObjectA(bitmap, sizeof size, &size);
  const HDC device = CreateCompatibleDC(drawn);
  const HGDIOBJ old = SelectObject(device, bitmap);
  int different = 0;
  for (int y = 0; y < size.bmHeight; ++y) {
    for (int x = 0; x < size.bmWidth; ++x) {
      different += GetPixel(device, x, y) != GetPixel(drawn, corner.x + x, corner.y + y) ? 1 : 0;
    }
  }
  SelectObject(device, old);
  DeleteDC(device);
  DeleteObject(bitmap);
  return different;
}

using PictureListTest = FeatureDialogTest;

TEST_F(PictureListTest, DrawsThePictureAtTheEntrysTopLeftCorner) {
  const Canvas canvas;
  const PictureList pictures(std::vector<std::string>{"A", "ZZ"});
  DRAWITEMSTRUCT item{};
  item.hDC = canvas.device;
  item.itemID = 1;
  item.rcItem = {10, 5, 78, 75};
  pictures.Draw(item);
  EXPECT_EQ(DifferentPixels(canvas.device, {10, 5}, "ZZ"), 0);
  EXPECT_NE(DifferentPixels(canvas.device, {10, 5}, "A"), 0);
}

TEST_F(PictureListTest, AnEmptyChoiceIsEmpty) {
  const Canvas canvas;
  const PictureList pictures(std::vector<std::string>{"symbol1"});
  DRAWITEMSTRUCT item{};
  item.hDC = canvas.device;
  item.itemID = static_cast<UINT>(-1);
  item.rcItem = {0, 0, 80, 80};
  pictures.Draw(item);
  for (int i = 0; i < 24; ++i) {
    EXPECT_EQ(GetPixel(canvas.device, i, i), GetSysColor(COLOR_WINDOW));
  }
}

TEST_F(PictureListTest, TheFocusedEntryHasAFocusRectangle) {
  const Canvas canvas;
  const PictureList pictures(std::vector<std::string>{"symbol1"});
  DRAWITEMSTRUCT item{};
  item.hDC = canvas.device;
  item.rcItem = {0, 0, 40, 24};
  pictures.Draw(item);
  EXPECT_EQ(DifferentPixels(canvas.device, {0, 0}, "symbol1"), 0);
  item.itemState = ODS_FOCUS;
  pictures.Draw(item);
  EXPECT_GT(DifferentPixels(canvas.device, {0, 0}, "symbol1"), 0);
}

TEST_F(PictureListTest, MakesTheEntriesAsHighAsItsPictures) {
  Run(CM_ICON_SELECT, [](HWND dialog) {
    PictureList(std::vector<std::string>{"symbol1"}).Fit(dialog, ID_ICON_FIRST);
    EXPECT_EQ(SendDlgItemMessageA(dialog, ID_ICON_FIRST, CB_GETITEMHEIGHT, 0, 0), 24);
    Press(dialog, IDCANCEL);
  });
}

TEST_F(PictureListTest, EveryPictureHasItsSize) {
  const auto expect_square = [](const std::string& name, LONG side) {
    const HBITMAP picture = LoadBitmapA(dialog_modules.library, name.c_str());
    BITMAP bitmap{};
    GetObjectA(picture, sizeof bitmap, &bitmap);
    DeleteObject(picture);
    EXPECT_EQ(bitmap.bmWidth, side) << name;
    EXPECT_EQ(bitmap.bmHeight, side) << name;
  };
  for (int icon = 0; icon < kIconCount; ++icon) {
    expect_square(IconName(icon), 64);
  }
  for (char symbol = '1'; symbol <= '7'; ++symbol) {
    expect_square(std::string("symbol") + symbol, 24);
  }
}

}  // namespace
}  // namespace qz7
