#include <gtest/gtest.h>

#include <memory>

#include "desktop/command_table.h"
#include "tests/unit/failing_new.h"
#include "tests/unit/seams.h"

namespace qz7 {
namespace {

// The commands that ran, each with whether the controls had been collected by then.
struct RanCommand {
  int id;
  bool collected;
  bool operator==(const RanCommand&) const = default;
};
std::vector<RanCommand> runs;
std::unique_ptr<Document> document;

constexpr std::size_t kControl = 10240;
bool IsCollected() { return document->image[kControl] == 3; }

void Record(int id) { runs.push_back({id, IsCollected()}); }

constexpr Command kTestCommands[] = {
    {7, false, Record},
    {8, true, Record},
    {20, true, Record, {}, 3},
};

class CommandTable : public testing::Test {
 protected:
  CommandTable() {
    runs.clear();
    document = std::make_unique<Document>();
    test_seams.controls = [](CloneImage& image) { image[kControl] = 3; };
  }
  bool RunId(int id) { return RunCommand(kTestCommands, *document, id); }
};

TEST_F(CommandTable, CollectsTheMainDialogBeforeACommandThatWantsIt) {
  EXPECT_TRUE(RunId(8));
  EXPECT_EQ(runs, (std::vector<RanCommand>{{8, true}}));
}

TEST_F(CommandTable, LeavesTheMainDialogAloneForTheOthers) {
  EXPECT_TRUE(RunId(7));
  EXPECT_EQ(runs, (std::vector<RanCommand>{{7, false}}));
}

TEST_F(CommandTable, TellsAFunctionOfSeveralCommandsWhichOneItIs) {
  for (const int id : {20, 21, 22}) {
    EXPECT_TRUE(RunId(id));
  }
  EXPECT_EQ(runs, (std::vector<RanCommand>{{20, true}, {21, true}, {22, true}}));
}

TEST_F(CommandTable, SaysThatMemoryEndedWhereverItDid) {
  bool failed = true;
  for (std::size_t n = 1; failed; ++n) {
    test_seams = TestSeams{};
    const FailingNew failing(n);
    EXPECT_TRUE(RunId(8));
    failed = failing.HasFailed();
    EXPECT_EQ(test_seams.messages.size(), failed ? 1U : 0U) << n;
  }
}

TEST_F(CommandTable, DoesNothingForAnIdThatIsNone) {
  for (const int id : {0, 6, 9, 19, 23}) {
    EXPECT_FALSE(RunId(id)) << id;
  }
  EXPECT_TRUE(runs.empty());
  EXPECT_FALSE(IsCollected());
}

}  // namespace
}  // namespace qz7
