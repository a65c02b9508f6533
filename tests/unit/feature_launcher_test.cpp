#include <gtest/gtest.h>

#include "core/editors/launcher.h"
#include "tests/unit/setting_fixture.h"

namespace qz7 {
namespace {

using namespace setting_fixture;

struct Document {
  std::unique_ptr<CloneImage> image = MakePatternImage();
  std::unique_ptr<CloneImage> working_copy = MakeImage();
  bool changed = false;
};

TEST(FeatureLauncher, RunsTheEditorOnACopyOfTheImage) {
  Document document;
  const CloneImage before = *document.image;
  int runs = 0;
  RunFeatureEditor(*document.image, *document.working_copy, document.changed,
                   [&](CloneImage& working_copy) {
                     ++runs;
                     EXPECT_EQ(&working_copy, document.working_copy.get());
                     EXPECT_EQ(working_copy, before);
                     return true;
                   });
  EXPECT_EQ(runs, 1);
  EXPECT_EQ(*document.image, before);
  EXPECT_FALSE(document.changed);
}

TEST(FeatureLauncher, TakesAChangeOverAndMarksTheDocument) {
  for (const std::size_t offset : {std::size_t{0}, std::size_t{21281}}) {
    Document document;
    CloneImage expected = *document.image;
    expected[offset] ^= 1;
    RunFeatureEditor(*document.image, *document.working_copy, document.changed,
                     [&](CloneImage& working_copy) {
                       working_copy[offset] ^= 1;
                       return true;
                     });
    EXPECT_EQ(*document.image, expected);
    EXPECT_EQ(*document.working_copy, expected);
    EXPECT_TRUE(document.changed);
  }
}

TEST(FeatureLauncher, KeepsTheMarkOfADocumentThatHadChangedBefore) {
  Document document;
  document.changed = true;
  RunFeatureEditor(*document.image, *document.working_copy, document.changed,
                   [](CloneImage&) { return true; });
  EXPECT_TRUE(document.changed);
}

TEST(FeatureLauncher, DropsEverythingOnCancelWhatTheEditorStoredByThenToo) {
  Document document;
  const CloneImage before = *document.image;
  RunFeatureEditor(*document.image, *document.working_copy, document.changed,
                   [](CloneImage& working_copy) {
                     auto values = Values(AutodialScreen());
                     values[0] = Text("1");
                     values[1] = Text("x");
                     EXPECT_EQ(StoreScreen(AutodialScreen(), values, TargetIn(working_copy)), 1U);
                     return false;
                   });
  EXPECT_EQ(*document.image, before);
  EXPECT_EQ(*document.working_copy, before);
  EXPECT_FALSE(document.changed);
}

TEST(FeatureLauncher, LeavesTheImageAloneWhenDefaultsAreSavedAndTheEditorIsCancelled) {
  Document document;
  const CloneImage before = *document.image;
  DefaultsRecord record{};
  RunFeatureEditor(*document.image, *document.working_copy, document.changed,
                   [&](CloneImage& working_copy) {
                     auto icons = LoadScreen(IconsScreen(), SourceIn(working_copy));
                     icons[2] = Choice(17);
                     StoreDefaults(IconsScreen(), icons, record, [] {});
                     return false;
                   });
  EXPECT_EQ(record[609], 17);
  EXPECT_EQ(*document.image, before);
  EXPECT_FALSE(document.changed);
}

}  // namespace
}  // namespace qz7
