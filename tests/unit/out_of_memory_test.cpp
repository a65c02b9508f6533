#include <gtest/gtest.h>

#include <memory>
#include <stdexcept>

#include "core/editors/print_text.h"
#include "core/interchange/import.h"
#include "core/interchange/import_lines.h"
#include "core/interchange/merge_dialog_rules.h"
#include "core/interchange/merge_source.h"
#include "core/link/clone_write.h"
#include "core/link/radio_commands.h"
#include "core/link/radio_transfer.h"
#include "desktop/command_table.h"
#include "desktop/file_commands.h"
#include "tests/unit/document_bytes.h"
#include "tests/unit/failing_new.h"
#include "tests/unit/memory_line.h"
#include "tests/unit/samples.h"
#include "tests/unit/seams.h"
#include "tests/unit/temp_folder.h"

// What a command leaves when memory ends in the middle of it: at its first allocation, at its
// second, and so on until there is enough.
namespace qz7 {
namespace {

// The radio sends its memory, a header and ones, a piece whenever the line is empty; true for a
// read that succeeds.
bool PlayRadio(CloneRead& read, MemoryLine& line) {
  constexpr std::uint8_t kChecksum = (10 * 0x0A + (8122 - 10)) % 256;
  std::size_t given = 0;
  while (!read.ended && given <= kRadioBlock.size) {
    if (line.incoming.empty() && given == 0) {
      line.incoming.assign(10, 0x0A);
      given = 10;
    } else if (line.incoming.empty()) {
      const bool over = given == kRadioBlock.size;
      line.incoming.assign(over ? 1 : 16, over ? kChecksum : 0x01);
      given += line.incoming.size();
    }
    TickCloneRead(read, line);
  }
  return read.ended == 0;
}

class OutOfMemory : public testing::Test {
 protected:
  OutOfMemory() {
    before->preferences.data_folder = folder.path();
    NewDocument(*before);
    before->image = ImageOf(IntactFile("RDF"));
    before->working_copy = before->image;
    before->name = "a document with a long name.rdf";
    before->path = folder.path() / before->name;
    before->untitled = false;
    before->last_file_name = before->name;
  }

  // Runs work on the document again and again, an ever later allocation failing, until none does.
  void RunUntilEnough(
      const std::function<void(Document&)>& work, const std::function<void()>& prepare = [] {}) {
    prepare();
    auto wanted = std::make_unique<Document>(*before);
    ASSERT_TRUE(RunWhole(*wanted, [&] { work(*wanted); }));
    for (std::size_t n = 1; n < 100'000; ++n) {
      test_seams = TestSeams{};
      prepare();
      *document = *before;
      bool failed = false;
      bool done = false;
      {
        const FailingNew failing(n);
        done = RunWhole(*document, [&] { work(*document); });
        failed = failing.HasFailed();
      }
      if (!failed) {
        EXPECT_TRUE(done);
        EXPECT_GT(n, 1U);
        return;
      }
      // The standard library's own sorting asks for memory that it can do without.
      ASSERT_TRUE(Tells(n) || (done && ShownTexts().empty() && Is(*wanted, n)));
      if (!done) {
        ASSERT_TRUE(Is(*before, n));
      }
    }
    ADD_FAILURE() << "there is never enough";
  }

  testing::AssertionResult Tells(std::size_t n) {
    const std::vector<std::string> texts = ShownTexts();
    const bool said = texts == std::vector<std::string>{"Out of memory"} ||
                      texts == std::vector<std::string>{"Out of Memory"};
    return said ? testing::AssertionSuccess()
                : testing::AssertionFailure()
                      << "allocation " << n << " shows " << testing::PrintToString(texts);
  }

  testing::AssertionResult Is(const Document& wanted, std::size_t n) {
    const bool same =
        document->image == wanted.image && document->working_copy == wanted.working_copy &&
        document->name == wanted.name && document->path == wanted.path &&
        document->changed == wanted.changed && document->untitled == wanted.untitled &&
        document->last_file_name == wanted.last_file_name &&
        document->last_export_name == wanted.last_export_name &&
        document->export_in_progress == wanted.export_in_progress &&
        document->preferences.data_folder == wanted.preferences.data_folder &&
        document->preferences.template_path == wanted.preferences.template_path;
    return same ? testing::AssertionSuccess()
                : testing::AssertionFailure()
                      << "the document is another one after allocation " << n;
  }

  std::filesystem::path PutIntactFile(const char* name, std::string_view magic) {
    PutFile(folder.File(name), IntactFile(magic));
    return folder.path() / name;
  }

  TempFolder folder;
  std::unique_ptr<Document> before = std::make_unique<Document>();
  std::unique_ptr<Document> document = std::make_unique<Document>();
};

TEST_F(OutOfMemory, InNewLeavesTheDocument) {
  RunUntilEnough([](Document& now) { StartNewFile(now); });
  EXPECT_EQ(document->name, "NONAME.RDF");
}

TEST_F(OutOfMemory, InOpenLeavesTheDocument) {
  const ChosenFile file = Chosen(PutIntactFile("another one, with its own name.rdf", "RDF"));
  RunUntilEnough([](Document& now) { OpenRadioFile(now); }, [&] { test_seams.files = {file}; });
  EXPECT_EQ(document->name, "another one, with its own name.rdf");
}

TEST_F(OutOfMemory, InSaveLeavesTheDocumentChanged) {
  before->image[5000] ^= 0xFF;
  before->changed = true;
  RunUntilEnough([](Document& now) { SaveDocument(now); });
  EXPECT_FALSE(document->changed);
  EXPECT_EQ(FileBytes(before->path).size(), 21'282U);
}

TEST_F(OutOfMemory, InSaveLeavesTheOldFileOrTheNewOneWhole) {
  before->changed = true;
  RunUntilEnough([](Document& now) { SaveDocument(now); },
                 [&] {
                   const Bytes bytes = FileBytes(before->path);
                   EXPECT_TRUE(bytes.empty() || bytes.size() == 21'282U);
                   EXPECT_LE(folder.Names().size(), 1U);
                 });
}

TEST_F(OutOfMemory, InSaveAsLeavesTheDocument) {
  const ChosenFile file = Chosen(folder.path() / "another one, with its own name.rdf");
  RunUntilEnough([](Document& now) { SaveDocumentAs(now); }, [&] { test_seams.files = {file}; });
  EXPECT_EQ(document->name, "another one, with its own name.rdf");
}

TEST_F(OutOfMemory, InExportLeavesTheDocument) {
  const ChosenFile file = Chosen(folder.path() / "another one, with its own name.csv");
  RunUntilEnough([](Document& now) { ExportChannels(now); }, [&] { test_seams.files = {file}; });
  EXPECT_TRUE(document->changed);
}

TEST_F(OutOfMemory, InPrintingGivesNoListing) {
  RunUntilEnough([](Document& now) {
    PrintText text;
    if (BuildPrintText(now.image, now.name, DtmfDisplay::kSymbols, now.region, text)) {
      PrintLines(text);
    }
  });
}

TEST_F(OutOfMemory, InImportLeavesTheDocument) {
  ImportSession session;
  RunUntilEnough([&](Document& now) {
    session.options.path = SamplePath("valley.csv");
    session.options.title = "valley.csv";
    session.options.headers = true;
    const auto lines = OpenImportFile(session);
    if (!lines) {
      return;
    }
    const Bytes bytes(lines->text.begin(), lines->text.end());
    ImportRequest request;
    request.options = session.options;
    ImportIntoImage(BeginWorkingCopy(now), session, bytes, request);
    TakeWorkingCopy(now);
  });
  EXPECT_NE(document->image, before->image);
}

TEST_F(OutOfMemory, InMergeLeavesTheDocument) {
  const std::filesystem::path path = PutIntactFile("other.rdf", "RDF");
  RunUntilEnough([&](Document& now) {
    MergeSource source;
    MergeOptions options;
    options.overwrite = true;
    if (ReadMergeSource(source, now.working_copy, path)) {
      MergeIntoImage(now.image, now.working_copy, source, options, 1);
    }
  });
}

TEST_F(OutOfMemory, InAReadLeavesTheDocument) {
  RunUntilEnough([](Document& now) {
    MemoryLine line;
    line.Open("line");
    ReadRadioIntoDocument(now, line, [&] {
      return ReadRadio(now.working_copy, line,
                       [&](CloneRead& read) { return PlayRadio(read, line); });
    });
  });
  EXPECT_TRUE(document->changed);
}

TEST_F(OutOfMemory, InAWriteLeavesTheDocument) {
  const std::filesystem::path path = PutIntactFile("my template with a long name.tpl", "TPL");
  RunUntilEnough([&](Document& now) {
    MemoryLine line;
    line.Open("line");
    SendDocumentToRadio(now, line, [&] {
      return SendToRadio(now.working_copy, line, [&](CloneWrite& write) {
        StartCloneWrite(write, line, path);
        return true;
      });
    });
  });
}

TEST_F(OutOfMemory, AnyOtherExceptionSaysWhatItIs) {
  *document = *before;
  EXPECT_FALSE(RunWhole(*document, [&] {
    document->image[5000] ^= 0xFF;
    throw std::runtime_error("the printer burns");
  }));
  EXPECT_EQ(ShownTexts(), std::vector<std::string>{"the printer burns"});
  EXPECT_EQ(test_seams.messages[0].caption, "QZ-7H Programmer");
  EXPECT_TRUE(Is(*before, 0));
  EXPECT_EQ(test_seams.titles.back(), "QZ-7H Programmer - a document with a long name.rdf");
}

TEST_F(OutOfMemory, WhatTheMainDialogHoldsIsStillThere) {
  *document = *before;
  test_seams.controls = [](CloneImage& image) { image[10240] = 3; };
  RunWhole(*document, [&] {
    NewDocument(*document);
    throw std::bad_alloc();
  });
  EXPECT_EQ(test_seams.loaded_images.back()[10240], 3);
  EXPECT_EQ(document->image[10240], before->image[10240]);
  EXPECT_FALSE(document->changed);
}

}  // namespace
}  // namespace qz7
