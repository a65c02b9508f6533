#include <gtest/gtest.h>

#include "core/editors/launcher.h"
#include "tests/unit/setting_fixture.h"

namespace qz7 {
namespace {

using namespace setting_fixture;

// A document whose working copy differs from its image.
std::unique_ptr<Document> MakeDocument() {
  auto document = std::make_unique<Document>();
  document->image = *MakePatternImage();
  return document;
}

TEST(FeatureLauncher, RunsTheEditorOnACopyOfTheImage) {
  const auto document = MakeDocument();
  const CloneImage before = document->image;
  int runs = 0;
  RunFeatureEditor(*document, [&](CloneImage& working_copy) {
    ++runs;
    EXPECT_EQ(&working_copy, &document->working_copy);
    EXPECT_EQ(working_copy, before);
    return true;
  });
  EXPECT_EQ(runs, 1);
  EXPECT_EQ(document->image, before);
  EXPECT_FALSE(document->changed);
}

TEST(FeatureLauncher, TakesAChangeOverAndMarksTheDocument) {
  for (const std::size_t offset : {std::size_t{0}, std::size_t{21281}}) {
    const auto document = MakeDocument();
    CloneImage expected = document->image;
    expected[offset] ^= 1;
    RunFeatureEditor(*document, [&](CloneImage& working_copy) {
      working_copy[offset] ^= 1;
      return true;
    });
    EXPECT_EQ(document->image, expected);
    EXPECT_EQ(document->working_copy, expected);
    EXPECT_TRUE(document->changed);
  }
}

TEST(FeatureLauncher, KeepsTheMarkOfADocumentThatHadChangedBefore) {
  const auto document = MakeDocument();
  document->changed = true;
  RunFeatureEditor(*document, [](CloneImage&) { return true; });
  EXPECT_TRUE(document->changed);
}

TEST(FeatureLauncher, DropsEverythingOnCancelWhatTheEditorStoredByThenToo) {
  const auto document = MakeDocument();
  const CloneImage before = document->image;
  RunFeatureEditor(*document, [](CloneImage& working_copy) {
    auto values = Values(AutodialScreen());
    values[0] = Text("1");
    values[1] = Text("x");
    EXPECT_EQ(StoreScreen(AutodialScreen(), values, TargetIn(working_copy)), 1U);
    return false;
  });
  EXPECT_EQ(document->image, before);
  EXPECT_EQ(document->working_copy, before);
  EXPECT_FALSE(document->changed);
}

TEST(FeatureLauncher, LeavesTheImageAloneWhenDefaultsAreSavedAndTheEditorIsCancelled) {
  const auto document = MakeDocument();
  const CloneImage before = document->image;
  DefaultsRecord record{};
  RunFeatureEditor(*document, [&](CloneImage& working_copy) {
    auto icons = LoadScreen(IconsScreen(), SourceIn(working_copy));
    icons[2] = Choice(17);
    StoreDefaults(IconsScreen(), icons, record, [] {});
    return false;
  });
  EXPECT_EQ(record[609], 17);
  EXPECT_EQ(document->image, before);
  EXPECT_FALSE(document->changed);
}

}  // namespace
}  // namespace qz7
