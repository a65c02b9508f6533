#include "core/interchange/value_tree.h"

#include <gtest/gtest.h>

#include "tests/unit/codeplug_fixture.h"

namespace qz7 {
namespace {

using namespace codeplug_fixture;

ValueTree Merged(ValueTree tree, const ValueTree& patch) {
  MergePatch(tree, patch);
  return tree;
}

TEST(ValueTree, APatchChangesAddsAndTakesAway) {
  const ValueTree tree = Patch({{"a/b", "1"}, {"a/c", "2"}, {"d", "3"}});
  EXPECT_EQ(TextAt(Merged(tree, Only("a/b", "9")), "a/b"), "9");
  EXPECT_EQ(TextAt(Merged(tree, Only("a/b", "9")), "a/c"), "2");
  EXPECT_EQ(TextAt(Merged(tree, Only("a/e", "4")), "a/e"), "4");
  const ValueTree without = Merged(tree, Only("a/b", ValueTree()));
  EXPECT_EQ(FindMember(At(without, "a"), "b"), nullptr);
  EXPECT_EQ(TextAt(without, "a/c"), "2");
}

TEST(ValueTree, APatchTakesAwayWhatIsNotThere) {
  const ValueTree tree = Only("a", "1");
  EXPECT_EQ(Merged(tree, Only("b", ValueTree())).members.size(), 1U);
}

TEST(ValueTree, APatchOfNewMembersHasNoneToTakeAway) {
  const ValueTree tree = Merged(NoMembers(), Only("a/b/c", ValueTree()));
  EXPECT_EQ(At(tree, "a/b").kind, ValueTree::Kind::kMembers);
  EXPECT_TRUE(At(tree, "a/b").members.empty());
}

TEST(ValueTree, ATextGivesWayToMembersAndMembersToAText) {
  EXPECT_EQ(TextAt(Merged(Only("a", "1"), Only("a/b", "2")), "a/b"), "2");
  EXPECT_EQ(TextAt(Merged(Only("a/b", "1"), Only("a", "2")), "a"), "2");
}

TEST(ValueTree, APatchThatIsNoObjectIsTheResult) {
  EXPECT_EQ(Merged(Only("a", "1"), TextValue("x")).text, "x");
}

}  // namespace
}  // namespace qz7
