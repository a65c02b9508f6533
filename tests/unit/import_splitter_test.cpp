#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

#include "core/interchange/field_splitter.h"

namespace qz7 {
namespace {

using Texts = std::vector<std::string>;

Texts Split(ImportSession& session, std::string_view line) {
  Texts fields;
  for (auto field = FirstField(session, line); field; field = NextField(session)) {
    fields.emplace_back(*field);
  }
  return fields;
}

Texts SplitAlone(std::string_view line, char separator = ',', char quote = '"') {
  ImportSession session;
  TakeImportOptions(
      session, {.path = "", .title = "", .field_separator = separator, .text_separator = quote});
  return Split(session, line);
}

TEST(FieldSplitter, CutsALineAtItsSeparators) {
  EXPECT_EQ(SplitAlone("146.52,a b,,c\n"), (Texts{"146.52", "a b", "", "c"}));
  EXPECT_EQ(SplitAlone(",x\n"), (Texts{"", "x"}));
  EXPECT_EQ(SplitAlone("a;b,c\n", ';'), (Texts{"a", "b,c"}));
  EXPECT_EQ(SplitAlone("a\tb\n", '\t'), (Texts{"a", "b"}));
}

TEST(FieldSplitter, FindsNoFieldInAnEmptyLine) {
  EXPECT_EQ(SplitAlone(""), Texts{});
  EXPECT_EQ(SplitAlone("\n"), Texts{});
}

TEST(FieldSplitter, FindsNoFieldBehindASeparatorAtTheEndOfTheLine) {
  EXPECT_EQ(SplitAlone("a,b,\n"), (Texts{"a", "b"}));
  EXPECT_EQ(SplitAlone("a,\"\"\n"), (Texts{"a", ""}));
}

TEST(FieldSplitter, ReadsAQuotedSeparatorAsTextAndDropsTheQuotes) {
  EXPECT_EQ(SplitAlone("\"Hill, north\",b\n"), (Texts{"Hill, north", "b"}));
  EXPECT_EQ(SplitAlone("a\"x,y\"b,c\n"), (Texts{"ax,yb", "c"}));
  EXPECT_EQ(SplitAlone("'x,y',c\n", ',', '\''), (Texts{"x,y", "c"}));
}

TEST(FieldSplitter, KnowsNoDoubledQuote) {
  EXPECT_EQ(SplitAlone("\"a\"\"b\",c\n"), (Texts{"ab", "c"}));
}

TEST(FieldSplitter, TakesALineAsOneFieldWithoutASeparator) {
  EXPECT_EQ(SplitAlone("a,\"b\";c\n", '\0'), Texts{"a,b;c"});
}

TEST(FieldSplitter, KeepsQuotesWithoutATextSeparator) {
  EXPECT_EQ(SplitAlone("\"a\",b\n", ',', '\0'), (Texts{"\"a\"", "b"}));
}

TEST(FieldSplitter, OnlyDropsTheSeparatorWhereItIsTheTextSeparatorToo) {
  EXPECT_EQ(SplitAlone("a,b,c\n", ',', ','), Texts{"abc"});
}

TEST(FieldSplitter, LeavesAnUnclosedQuoteInUseForTheLinesThatFollow) {
  ImportSession session;
  EXPECT_EQ(Split(session, "a,\"b,c\n"), (Texts{"a", "b,c"}));
  EXPECT_EQ(session.splitter.separator, '"');
  EXPECT_EQ(Split(session, "d,e\n"), Texts{"d,e"});
  EXPECT_EQ(Split(session, "\"f\",g\n"), Texts{"f,g"});
  TakeImportOptions(session, {});
  EXPECT_EQ(Split(session, "d,e\n"), (Texts{"d", "e"}));
}

TEST(FieldSplitter, EndsAtTheLineFeedWhateverStoodThereBefore) {
  ImportSession session;
  Split(session, "146.94,long,line,with,columns\n");
  EXPECT_EQ(Split(session, "146.52,a\n"), (Texts{"146.52", "a"}));
}

TEST(FieldSplitter, ReadsOnInAnEarlierLongerLineBehindALineWithoutALineFeed) {
  ImportSession session;
  Split(session, "146.94,aaaa,bbbb,cccc\n");
  // At the seam the last letter of "aaaa" is left.
  EXPECT_EQ(Split(session, "146.52,xx"), (Texts{"146.52", "xx", "a", "bbbb", "cccc"}));
  EXPECT_EQ(Split(session, "146.52"), (Texts{"146.52", "xx", "a", "bbbb", "cccc"}));
  // The same behind a line that was not split to its end.
  FirstField(session, "0123456789abc,def,ghi\n");
  EXPECT_EQ(Split(session, "146.52,xx"), (Texts{"146.52", "xx", "abc", "def", "ghi"}));
}

TEST(FieldSplitter, ReadsNothingBehindALineThatIsTheLongestSoFar) {
  ImportSession session;
  Split(session, "a,b\n");
  EXPECT_EQ(Split(session, "146.52,xx,yy"), (Texts{"146.52", "xx", "yy"}));
}

TEST(FieldSplitter, ReadsNothingBehindAPieceOf255Characters) {
  ImportSession session;
  const std::string piece = std::string(250, 'x') + ",yyyy";
  EXPECT_EQ(Split(session, piece), (Texts{std::string(250, 'x'), "yyyy"}));
  EXPECT_EQ(Split(session, std::string(255, 'z')), Texts{std::string(255, 'z')});
  EXPECT_EQ(NextField(session), std::nullopt);
  EXPECT_EQ(NextField(session), std::nullopt);
}

TEST(FieldSplitter, EndsALineAtAZeroByte) {
  EXPECT_EQ(SplitAlone(std::string_view("a,b\0c,d\n", 8)), (Texts{"a", "b"}));
}

TEST(FieldSplitter, HasNoFieldBeforeTheFirstLine) {
  ImportSession session;
  EXPECT_EQ(NextField(session), std::nullopt);
}

}  // namespace
}  // namespace qz7
