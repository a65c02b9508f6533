#include "desktop/status_line.h"

#include <gtest/gtest.h>

#include <memory>

#include "core/image/clone_image.h"
#include "tests/unit/memory_line.h"
#include "tests/unit/seams.h"
#include "tests/unit/temp_folder.h"

namespace qz7 {
namespace {

class StatusLine : public testing::Test {
 protected:
  StatusLine() {
    document->preferences.data_folder = folder.path().string();
    document->preferences.port_index = 1;
    NewDocument(*document);
    port.Open("COM1");
  }
  std::string Text(const std::string& note = "") const {
    return StatusText(*document, document->image, port, note);
  }
  // Its first part.
  std::string FileState() const {
    const std::string text = Text();
    return text.substr(0, text.find(" | "));
  }
  void SaveAs(const char* name) {
    test_seams.files = {Chosen(folder.File(name))};
    ASSERT_TRUE(SaveDocumentAs(*document));
  }

  TempFolder folder;
  std::unique_ptr<Document> document = std::make_unique<Document>();
  MemoryLine port;
};

TEST_F(StatusLine, SaysWhereThingsAreInANewDocument) {
  for (int n = 1; n <= 240; ++n) {
    SetProgrammed(document->image, n, n <= 34);
  }
  document->in_file = document->image;
  EXPECT_EQ(Text(), "NONAME.RDF, new | 34 of 240 channels | Region 0 | COM1 | no template");
}

TEST_F(StatusLine, SaysFirstWhatTheLastCommandDid) {
  EXPECT_EQ(Text("Merge cancelled"), "Merge cancelled | " + Text());
}

TEST_F(StatusLine, FollowsPortRegionAndTemplate) {
  document->region.extended_version = true;
  document->preferences.template_path = folder.File("QZ7H.tpl");
  document->preferences.port_index = 3;
  const std::string text = Text();
  EXPECT_EQ(text.substr(text.find(" | Region")), " | Region 0 extended | COM3 | QZ7H.tpl");
  port.Close();
  EXPECT_NE(Text().find(" | no port | "), std::string::npos);
  port.Lose();
  EXPECT_NE(Text().find(" | COM3 lost | "), std::string::npos);
}

TEST_F(StatusLine, SaysNotSavedFromAChangeToTheNextSave) {
  document->image[kChannelRecords.offset] ^= 1;
  EXPECT_EQ(FileState(), "NONAME.RDF, not saved");
  SaveAs("mine.rdf");
  EXPECT_EQ(FileState(), "mine.rdf, saved");
  document->image[kChannelRecords.offset] ^= 1;
  EXPECT_EQ(FileState(), "mine.rdf, not saved");
  ASSERT_TRUE(SaveDocument(*document));
  EXPECT_EQ(FileState(), "mine.rdf, saved");
}

TEST_F(StatusLine, SaysSavedAgainWhenAChangeIsTakenBack) {
  SaveAs("mine.rdf");
  document->image[100] ^= 1;
  EXPECT_EQ(FileState(), "mine.rdf, not saved");
  document->image[100] ^= 1;
  EXPECT_EQ(FileState(), "mine.rdf, saved");
}

// An import sets no changed flag.
TEST_F(StatusLine, SaysNotSavedWithoutTheChangedFlag) {
  SaveAs("mine.rdf");
  BeginWorkingCopy(*document)[kChannelRecords.offset] ^= 1;
  TakeWorkingCopy(*document);
  EXPECT_FALSE(document->changed);
  EXPECT_EQ(FileState(), "mine.rdf, not saved");
}

TEST_F(StatusLine, SaysSavedAfterOpeningAndAfterACancelledSaveAs) {
  SaveAs("mine.rdf");
  NewDocument(*document);
  EXPECT_EQ(FileState(), "NONAME.RDF, new");
  ASSERT_TRUE(OpenNamedDocument(*document, folder.File("mine.rdf")));
  EXPECT_EQ(FileState(), "mine.rdf, saved");
  // It has drawn a new filler.
  ASSERT_FALSE(SaveDocumentAs(*document));
  EXPECT_EQ(FileState(), "mine.rdf, saved");
}

TEST_F(StatusLine, SaysNotSavedWhenASaveFails) {
  SaveAs("mine.rdf");
  document->image[kChannelRecords.offset] ^= 1;
  document->path = folder.path() / "absent" / "mine.rdf";
  ASSERT_FALSE(SaveDocument(*document));
  EXPECT_EQ(FileState(), "mine.rdf, not saved");
}

TEST(ImportedNote, NamesTheChannels) {
  EXPECT_EQ(ImportedNote({.first = 2, .count = 16}), "16 channels imported to 2-17, not saved");
  EXPECT_EQ(ImportedNote({.first = 5, .count = 1}), "1 channel imported to 5, not saved");
  EXPECT_EQ(ImportedNote({.first = 5, .count = 0}), "No channel imported");
}

TEST_F(StatusLine, SaysWhatWasReadFromWhere) {
  document->preferences.port_index = 4;
  EXPECT_EQ(TransferredNote("read from", *document), "8122 bytes read from COM4");
}

TEST(DroppedNote, TellsOfTheFilesBesideTheFirst) {
  EXPECT_EQ(DroppedNote("Import cancelled", 1), "Import cancelled");
  EXPECT_EQ(DroppedNote("Import cancelled", 3), "Import cancelled; the first of 3 files was taken");
  EXPECT_EQ(DroppedNote("", 2), "the first of 2 files was taken");
}

}  // namespace
}  // namespace qz7
