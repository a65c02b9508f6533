#include "desktop/printing/print_job.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "core/files/seams.h"
#include "tests/unit/seams.h"

namespace qz7 {
namespace {

using Lines = std::vector<std::string>;

// 300 dots to the inch across, 600 down; a printable height of 1000 leaves 400 for the lines.
constexpr DeviceFigures kFigures{.horizontal_pixels_per_inch = 300,
                                 .vertical_pixels_per_inch = 600,
                                 .vertical_resolution = 1000,
                                 .line_height = 100};

// Writes down what it is told; refuses and cancels where the test wants it.
class RecordingPrinter final : public Printer {
 public:
  bool InstallAbort() override { return Told("install", installs); }
  bool StartDocument(const std::string& name) override { return Told("document " + name, starts); }
  void FitFont(const Lines& lines) override {
    fitted = lines;
    figures.line_height = fitted_line_height;
  }
  DeviceFigures Figures() override { return figures; }
  void StartPage() override { Told("page", true); }
  void DrawLine(const PlacedLine& line) override {
    Told(line.text + " at " + std::to_string(line.x) + "," + std::to_string(line.y), true);
    if (line.text == cancelled_at) {
      job->aborted = true;
    }
  }
  void EndPage() override { Told("page end", true); }
  bool EndDocument() override { return Told("document end", ends); }

  DeviceFigures figures = kFigures;
  int fitted_line_height = kFigures.line_height;
  Lines fitted;
  bool installs = true;
  bool starts = true;
  bool ends = true;
  std::string cancelled_at = "never";
  PrintJob* job = nullptr;
  Lines told;

 private:
  bool Told(const std::string& what, bool answer) {
    told.push_back(what);
    return answer;
  }
};

class PrintJobTest : public testing::Test {
 protected:
  PrintJobTest() {
    job_.document_name = "TEST.RDF";
    job_.show_copy = [&](const std::string& text) { printer_.told.push_back(text); };
    job_.show_page = job_.show_copy;
    printer_.job = &job_;
  }
  const Lines& Run(const Lines& lines) {
    RunPrintJob(job_, lines, printer_);
    return printer_.told;
  }

  PrintJob job_;
  RecordingPrinter printer_;
};

Lines Numbered(int count) {
  Lines lines;
  for (int n = 0; n < count; ++n) {
    lines.push_back(std::to_string(n));
  }
  return lines;
}

TEST(Paginate, LeavesHalfAnInchAtTheLeftAndAtTheTop) {
  const auto pages = Paginate({"first", "second"}, kFigures);
  ASSERT_EQ(pages.size(), 1U);
  ASSERT_EQ(pages[0].size(), 2U);
  EXPECT_EQ(pages[0][0].x, 150);
  EXPECT_EQ(pages[0][0].y, 300);
  EXPECT_EQ(pages[0][1].x, 150);
  EXPECT_EQ(pages[0][1].y, 400);
  EXPECT_EQ(pages[0][1].text, "second");
}

TEST(Paginate, HalvesAnOddResolutionDownwards) {
  DeviceFigures figures = kFigures;
  figures.horizontal_pixels_per_inch = 301;
  figures.vertical_pixels_per_inch = 203;
  const auto pages = Paginate({"line"}, figures);
  EXPECT_EQ(pages[0][0].x, 150);
  EXPECT_EQ(pages[0][0].y, 101);
}

TEST(Paginate, BreaksWhenTheNextLineWouldStartAtTheBottomLimit) {
  const auto pages = Paginate(Numbered(5), kFigures);
  ASSERT_EQ(pages.size(), 2U);
  EXPECT_EQ(pages[0].size(), 4U);
  EXPECT_EQ(pages[0].back().y, 600);
  ASSERT_EQ(pages[1].size(), 1U);
  EXPECT_EQ(pages[1][0].text, "4");
  EXPECT_EQ(pages[1][0].y, 300) << "the next page starts at the top margin";
}

TEST(Paginate, TakesALineThatStartsJustAboveTheBottomLimit) {
  DeviceFigures figures = kFigures;
  figures.vertical_resolution = 1001;
  EXPECT_EQ(Paginate(Numbered(6), figures)[0].size(), 5U);
  figures.vertical_resolution = 999;
  EXPECT_EQ(Paginate(Numbered(6), figures)[0].size(), 4U);
}

TEST(Paginate, OpensNoPageBehindTheLastLine) {
  EXPECT_EQ(Paginate(Numbered(4), kFigures).size(), 1U);
  EXPECT_EQ(Paginate(Numbered(8), kFigures).size(), 2U);
  EXPECT_TRUE(Paginate({}, kFigures).empty());
}

TEST(Paginate, GivesEachLineAPageWhereNothingIsLeftOfThePaper) {
  DeviceFigures figures = kFigures;
  figures.vertical_resolution = 600;
  EXPECT_EQ(Paginate(Numbered(3), figures).size(), 3U);
  figures.vertical_resolution = 1;
  EXPECT_EQ(Paginate(Numbered(3), figures).size(), 3U);
}

TEST_F(PrintJobTest, PrintsOneCopyFromTopToBottomWithoutACopyLine) {
  const Lines expected = {"install",      "document TEST.RDF", "Page 1",   "page",
                          "0 at 150,300", "1 at 150,400",      "page end", "document end"};
  EXPECT_EQ(Run({"0", "1"}), expected);
  EXPECT_TRUE(test_seams.messages.empty());
}

TEST_F(PrintJobTest, PlacesTheLinesByTheFontThatWasMadeToFit) {
  printer_.fitted_line_height = 50;
  const Lines& told = Run({"0", "1"});
  EXPECT_EQ(printer_.fitted, (Lines{"0", "1"}));
  EXPECT_EQ(told[5], "1 at 150,350");
}

// A font as wide as high, by the letter.
int WidthOf71Letters(int height) { return 71 * height; }

TEST(FittingHeight, IsTheFontsOwnWhereTheLongestLineHasRoom) {
  EXPECT_EQ(FittingHeight(100, 7100, WidthOf71Letters), 100);
  EXPECT_EQ(FittingHeight(100, 9000, WidthOf71Letters), 100);
}

TEST(FittingHeight, IsTheLargestInWhichTheLongestLineHasRoom) {
  EXPECT_EQ(FittingHeight(100, 7099, WidthOf71Letters), 99);
  EXPECT_EQ(FittingHeight(100, 71 * 45, WidthOf71Letters), 45);
  EXPECT_EQ(FittingHeight(100, 71 * 45 - 1, WidthOf71Letters), 44);
}

TEST(FittingHeight, KnowsAFontThatShrinksInSteps) {
  const auto stepped = [](int height) { return 71 * ((height + 6) / 7) * 4; };
  for (int room = 300; room < 71 * 60; room += 13) {
    const int height = FittingHeight(100, room, stepped);
    EXPECT_LE(stepped(height), room);
    EXPECT_GT(stepped(height + 1), room);
  }
}

TEST(FittingHeight, IsNeverLessThanOneDot) {
  EXPECT_EQ(FittingHeight(100, 0, WidthOf71Letters), 1);
  EXPECT_EQ(FittingHeight(100, -50, WidthOf71Letters), 1);
  EXPECT_EQ(FittingHeight(100, -50, [](int) { return 0; }), 1);
}

TEST_F(PrintJobTest, TwoCopiesPrintTheWholeListingTwiceEachFromPage1) {
  printer_.figures.vertical_resolution = 800;  // two lines a page
  job_.copies = 2;
  const Lines copy = {"Page 1", "page", "0 at 150,300", "1 at 150,400", "page end",
                      "Page 2", "page", "2 at 150,300", "page end"};
  Lines expected = {"install", "document TEST.RDF", "Copy 1 of 2"};
  expected.insert(expected.end(), copy.begin(), copy.end());
  expected.push_back("Copy 2 of 2");
  expected.insert(expected.end(), copy.begin(), copy.end());
  expected.push_back("document end");
  EXPECT_EQ(Run(Numbered(3)), expected);
}

TEST_F(PrintJobTest, CancelKeepsTheNextCopyFromStartingAndTheDocumentFromEnding) {
  printer_.figures.vertical_resolution = 800;
  job_.copies = 3;
  printer_.cancelled_at = "0";
  const Lines expected = {"install",      "document TEST.RDF", "Copy 1 of 3", "Page 1", "page",
                          "0 at 150,300", "1 at 150,400",      "page end",    "Page 2", "page",
                          "2 at 150,300", "page end"};
  EXPECT_EQ(Run(Numbered(3)), expected) << "what is left of the copy still goes to the device";
  EXPECT_TRUE(test_seams.messages.empty());
}

TEST_F(PrintJobTest, WithoutTheAbortCallbackNothingIsDrawn) {
  printer_.installs = false;
  EXPECT_EQ(Run({"0"}), (Lines{"install", "document TEST.RDF"}));
  ASSERT_EQ(ShownTexts(), Lines{"Printing Failed (1)."});
  EXPECT_EQ(test_seams.messages[0].caption, "ERROR");
  EXPECT_EQ(test_seams.messages[0].icon, Icon::kStop);
  EXPECT_EQ(test_seams.messages[0].buttons, Buttons::kOk);
  EXPECT_TRUE(job_.aborted);
}

TEST_F(PrintJobTest, ARefusedDocumentIsReportedAndNothingIsDrawn) {
  printer_.starts = false;
  EXPECT_EQ(Run({"0"}), (Lines{"install", "document TEST.RDF"}));
  ASSERT_EQ(ShownTexts(), Lines{"Printing Failed (2)."});
  EXPECT_EQ(test_seams.messages[0].caption, "ERROR");
  EXPECT_EQ(test_seams.messages[0].icon, Icon::kStop);
}

TEST_F(PrintJobTest, TwoRefusalsAreReportedOneAfterTheOther) {
  printer_.installs = false;
  printer_.starts = false;
  Run({"0"});
  EXPECT_EQ(ShownTexts(), (Lines{"Printing Failed (1).", "Printing Failed (2)."}));
}

TEST_F(PrintJobTest, ADocumentThatDoesNotEndIsReportedWithoutAFullStop) {
  printer_.ends = false;
  Run({"0"});
  ASSERT_EQ(ShownTexts(), Lines{"Printing Failed (3)"});
  EXPECT_EQ(test_seams.messages[0].caption, "ERROR");
  EXPECT_EQ(test_seams.messages[0].icon, Icon::kStop);
}

TEST_F(PrintJobTest, StartsWithACancelOfTheLastJobForgotten) {
  job_.aborted = true;
  Run({"0"});
  EXPECT_EQ(printer_.told.back(), "document end");
}

}  // namespace
}  // namespace qz7
