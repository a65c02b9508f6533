#include <gtest/gtest.h>

#include <memory>

#include "core/files/document.h"
#include "core/image/settings_map.h"
#include "tests/unit/document_bytes.h"
#include "tests/unit/seams.h"
#include "tests/unit/temp_folder.h"

// What becomes of the working copy, and what New shows.
namespace qz7 {
namespace {

// An unchanged document whose working copy differs from its image.
class WorkingCopy : public testing::Test {
 protected:
  WorkingCopy() {
    document->image.fill(0x11);
    document->working_copy.fill(0x22);
  }
  std::unique_ptr<Document> document = std::make_unique<Document>();
  CloneImage image = [] {
    CloneImage bytes;
    bytes.fill(0x11);
    return bytes;
  }();
  CloneImage work = [] {
    CloneImage bytes;
    bytes.fill(0x22);
    return bytes;
  }();
};

TEST_F(WorkingCopy, BeginsAsAFreshCopyOfTheImage) {
  EXPECT_EQ(&BeginWorkingCopy(*document), &document->working_copy);
  EXPECT_EQ(document->working_copy, image);
  EXPECT_EQ(document->image, image);
  EXPECT_FALSE(document->changed);
}

TEST_F(WorkingCopy, AcceptedBecomesTheImageAndAChange) {
  AcceptWorkingCopy(*document);
  EXPECT_EQ(document->image, work);
  EXPECT_EQ(document->working_copy, work);
  EXPECT_TRUE(document->changed);
}

TEST_F(WorkingCopy, AcceptedWithoutADifferenceLeavesTheFlagAsItWas) {
  for (const bool changed : {false, true}) {
    BeginWorkingCopy(*document);
    document->changed = changed;
    AcceptWorkingCopy(*document);
    EXPECT_EQ(document->image, image);
    EXPECT_EQ(document->changed, changed);
  }
}

TEST_F(WorkingCopy, TakenBecomesTheImageWithoutAChange) {
  TakeWorkingCopy(*document);
  EXPECT_EQ(document->image, work);
  EXPECT_EQ(document->working_copy, work);
  EXPECT_FALSE(document->changed);
}

TEST_F(WorkingCopy, DroppedIsTheImageAgain) {
  DropWorkingCopy(*document);
  EXPECT_EQ(document->working_copy, image);
  EXPECT_EQ(document->image, image);
  EXPECT_FALSE(document->changed);
}

TEST_F(WorkingCopy, FollowsAnAcceptedImageWhichIsAChange) {
  AcceptImage(*document);
  EXPECT_EQ(document->working_copy, image);
  EXPECT_EQ(document->image, image);
  EXPECT_TRUE(document->changed);
}

TEST_F(WorkingCopy, HoldsAHalfReadFileAfterAFailedOpenAndTheImageStays) {
  TempFolder folder;
  Bytes file = IntactFile("RDF");
  file[5000] ^= 1;  // against its checksum
  PutFile(folder.File("bad.rdf"), file);
  EXPECT_FALSE(OpenNamedDocument(*document, folder.File("bad.rdf")));
  EXPECT_EQ(document->image, image);
  EXPECT_NE(document->working_copy, work);
}

TEST(New, ShowsItsSettingsOnceWhateverTheDefaults) {
  const auto document = std::make_unique<Document>();
  document->defaults.fill(3);
  for (const bool for_new : {false, true}) {
    for (const bool for_open : {false, true}) {
      document->preferences.use_main_defaults_new = for_new;
      document->preferences.use_main_defaults_open = for_open;
      test_seams.loaded_images.clear();
      test_seams.titles.clear();
      NewDocument(*document);
      ASSERT_EQ(test_seams.loaded_images.size(), 1U);
      EXPECT_EQ(test_seams.loaded_images[0], document->image);
      EXPECT_EQ(document->working_copy, document->image);
      EXPECT_EQ(document->image[kLock], for_new || for_open ? 3 : 0);
      EXPECT_EQ(test_seams.titles.size(), 1U);
    }
  }
}

}  // namespace
}  // namespace qz7
