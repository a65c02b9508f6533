#include "desktop/link/meter_painting.h"

#include <gtest/gtest.h>

namespace qz7 {
namespace {

constexpr COLORREF kBlack = RGB(0, 0, 0);
constexpr COLORREF kBlue = RGB(0, 0, 255);
constexpr COLORREF kWhite = RGB(255, 255, 255);

// A meter of 202 x 22 dots, painted at a percentage.
class PaintedMeter : public testing::Test {
 protected:
  PaintedMeter() {
    const HDC screen = GetDC(nullptr);
    device_ = CreateCompatibleDC(screen);
    bitmap_ = CreateCompatibleBitmap(screen, 202, 22);
    ReleaseDC(nullptr, screen);
    old_ = SelectObject(device_, bitmap_);
  }
  ~PaintedMeter() override {
    SelectObject(device_, old_);
    DeleteObject(bitmap_);
    DeleteDC(device_);
  }
  void Paint(int percent) {
    DRAWITEMSTRUCT item{};
    item.hDC = device_;
    item.rcItem = {0, 0, 202, 22};
    PaintMeter(item, {.total = 100, .count = percent, .percent = percent});
  }
  COLORREF At(int x, int y) const { return GetPixel(device_, x, y); }

 private:
  HDC device_;
  HBITMAP bitmap_;
  HGDIOBJ old_;
};

TEST_F(PaintedMeter, HasABlackFrame) {
  Paint(50);
  for (const auto& [x, y] : {std::pair{0, 0}, {201, 0}, {0, 21}, {201, 21}, {100, 0}, {0, 10}}) {
    EXPECT_EQ(At(x, y), kBlack) << x << "," << y;
  }
}

TEST_F(PaintedMeter, GrowsBlueFromTheLeft) {
  for (const int percent : {0, 30, 100}) {
    Paint(percent);
    for (int x = 3; x < 199; x += 4) {
      const bool at_the_edge = x > 2 * percent - 4 && x < 2 * percent + 4;
      if (!at_the_edge) {
        EXPECT_EQ(At(x, 2), x < 2 * percent ? kBlue : kWhite) << percent << " at " << x;
      }
    }
  }
}

TEST_F(PaintedMeter, HasItsTextWhiteOnTheBarAndBlueBesideIt) {
  const auto any = [this](COLORREF colour) {
    for (int y = 3; y < 19; ++y) {
      for (int x = 80; x < 122; ++x) {
        if (At(x, y) == colour) {
          return true;
        }
      }
    }
    return false;
  };
  Paint(100);
  EXPECT_TRUE(any(kWhite));
  Paint(0);
  EXPECT_TRUE(any(kBlue));
}

}  // namespace
}  // namespace qz7
