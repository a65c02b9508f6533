#include "ctl/codeplug_json.h"

#include <gtest/gtest.h>

#include <string_view>

namespace qz7 {
namespace {

ReadTree Parse(std::string_view json) {
  return ParseTree({reinterpret_cast<const std::uint8_t*>(json.data()), json.size()});
}

using Errors = std::vector<std::string>;

TEST(CodeplugJson, ComesBackAsItWasWritten) {
  constexpr std::string_view kJson =
      "{\n  \"a\": {\n    \"b\": \"x\\\"\\u0001\"\n  },\n  \"c\": null\n}\n";
  const ReadTree read = Parse(kJson);
  EXPECT_EQ(read.errors, Errors());
  EXPECT_EQ(JsonOf(read.tree, true), kJson);
}

TEST(CodeplugJson, OfANameThatComesTwiceTheFirstValueStays) {
  const ReadTree read = Parse(R"({"a":"1","a":"2","b":"3"})");
  EXPECT_EQ(read.errors, Errors{"a: it is named twice"});
  EXPECT_EQ(JsonOf(read.tree, true), "{\n  \"a\": \"1\",\n  \"b\": \"3\"\n}\n");
}

TEST(CodeplugJson, ANameWhoseValueWasNoTextMayComeAgain) {
  const ReadTree read = Parse(R"({"a":1,"a":"2"})");
  EXPECT_EQ(read.errors, Errors{"a: a text is wanted"});
  EXPECT_EQ(JsonOf(read.tree, true), "{\n  \"a\": \"2\"\n}\n");
}

TEST(CodeplugJson, NothingInsideTheSecondValueIsLookedAt) {
  const ReadTree read = Parse(R"({"a":{},"a":{"b":{"c":{},"c":{},"d":{},"e":[1]}},"f":1})");
  EXPECT_EQ(read.errors, (Errors{"a: it is named twice", "f: a text is wanted"}));
  EXPECT_EQ(JsonOf(read.tree, true), "{\n  \"a\": {}\n}\n");
}

TEST(CodeplugJson, NoDepthOfNestingIsTooMuch) {
  constexpr int kDepth = 300'000;
  for (const auto& [open, close] : {std::pair("{\"a\":", "}"), {"[", "]"}}) {
    std::string json;
    for (int i = 0; i < kDepth; ++i) {
      json += open;
    }
    json += "null";
    for (int i = 0; i < kDepth; ++i) {
      json += close;
    }
    const ReadTree read = Parse(json);
    EXPECT_TRUE(read.is_json);
    ASSERT_EQ(read.errors.size(), 1U);
    EXPECT_TRUE(read.errors.front().ends_with(": a text is wanted")) << read.errors.front();
  }
}

}  // namespace
}  // namespace qz7
