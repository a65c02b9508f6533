#include <gtest/gtest.h>

#include "tests/unit/codeplug_fixture.h"

namespace qz7 {
namespace {

using namespace codeplug_fixture;

// What is wrong with a codeplug that has this one value.
std::string Why(const std::string& place, const std::string& text) {
  const auto image = MakeNewDocument();
  const Errors errors = BuildCodeplug(Only(place, text), *image, test_region);
  return errors.size() == 1 ? errors[0] : std::to_string(errors.size()) + " errors";
}

std::string WhyChannel(const std::string& field, const std::string& text) {
  const auto image = MakeNewDocument();
  const Errors errors = BuildCodeplug(
      Patch({{"channels/12/rx", "145.5"}, {"channels/12/" + field, text}}), *image, test_region);
  return errors.size() == 1 ? errors[0] : std::to_string(errors.size()) + " errors";
}

TEST(CodeplugErrors, EveryErrorIsListed) {
  const auto image = MakeNewDocument();
  const Errors errors = BuildCodeplug(Patch({{"channels/12/rx", "9999"},
                                             {"channels/12/tone", "1"},
                                             {"channels/12/x", "1"},
                                             {"vfo-a/FM/rx", "145.5"},
                                             {"settings/bell", "loud"},
                                             {"settings/nothing", "1"},
                                             {"pieces", "1"},
                                             {"other/5", "00"}}),
                                      *image, test_region);
  EXPECT_EQ(errors.size(), 8U);
}

TEST(CodeplugErrors, NothingIsShownInABox) {
  test_seams.messages.clear();
  WhyChannel("offset", "100 MHz");
  Why("channels/12/rx", "9999");
  EXPECT_TRUE(test_seams.messages.empty());
}

TEST(CodeplugErrors, NamesTellTheirPlace) {
  EXPECT_EQ(Why("piece", "1"), "piece: there is no such value");
  EXPECT_EQ(Why("settings/piece", "1"), "settings/piece: there is no such value");
  EXPECT_EQ(Why("channels/221/rx", "145"), "channels/221: there is no such channel");
  EXPECT_EQ(Why("channels/012/rx", "145"), "channels/012: there is no such channel");
  EXPECT_EQ(Why("vfo-a/MW/name", "x"), "vfo-a/MW/name: there is no such value");
  EXPECT_EQ(Why("home/MW/icon", "1"), "home/MW/icon: there is no such value");
  EXPECT_EQ(WhyChannel("piece", "1"), "channels/12/piece: there is no such value");
  EXPECT_EQ(WhyChannel("other/piece", "1"), "channels/12/other/piece: there is no such value");
}

TEST(CodeplugErrors, KindsOfValuesTellTheirPlace) {
  EXPECT_EQ(Why("settings", "1"), "settings: an object is wanted");
  EXPECT_EQ(Why("channels", "1"), "channels: an object is wanted");
  EXPECT_EQ(Why("channels/12", "1"), "channels/12: an object is wanted");
  EXPECT_EQ(Why("other", "1"), "other: an object is wanted");
  EXPECT_EQ(Why("settings/lamp/x", "1"), "settings/lamp: a text is wanted");
  EXPECT_EQ(Why("other/10203/x", "1"), "other/10203: a text is wanted");
  EXPECT_EQ(WhyChannel("name/x", "1"), "channels/12/name: a text is wanted");
  const auto image = MakeNewDocument();
  EXPECT_EQ(BuildCodeplug(TextValue("x"), *image, test_region),
            Errors{"codeplug: an object is wanted"});
}

TEST(CodeplugErrors, ChannelsAreRefusedInTheEditorsWords) {
  EXPECT_EQ(Why("channels/12/rx", "9999"), "channels/12/rx: A valid receive frequency is required");
  EXPECT_EQ(Why("channels/12/name", "x"), "channels/12/rx: A valid receive frequency is required");
  EXPECT_EQ(Why("home/FM/rx", "145.5"), "home/FM/rx: A valid receive frequency is required");
  EXPECT_EQ(WhyChannel("name", "123456789"), "channels/12/name: at most 8 characters");
  EXPECT_EQ(WhyChannel("icon", "27"), "channels/12/icon: 0 to 26");
  EXPECT_EQ(WhyChannel("skip", "yes"), "channels/12/skip: on or off");
  EXPECT_EQ(Why("channels/1/masked", "on"), "channels/1/masked: channel 1 cannot be masked");
}

TEST(CodeplugErrors, SettingsAreRefusedInTheEditorsWords) {
  EXPECT_EQ(Why("settings/lamp", "Off"), "settings/lamp: one of 5 Second, Key, Toggle");
  EXPECT_EQ(Why("autodial/autodial-1", "55g"),
            "autodial/autodial-1: Invalid digit in number\nPlease use 0-9, A-F, #, *, or -");
  EXPECT_EQ(Why("wx-names/wx-name-1", "123456789"), "wx-names/wx-name-1: at most 8 characters");
  EXPECT_EQ(Why("document/comment", std::string(80, 'x')),
            "document/comment: at most 79 characters");
  EXPECT_EQ(Why("document/comment", "a\nb"),
            "document/comment: a control character cannot be stored");
  EXPECT_EQ(Why("identity/version-type", "256"), "identity/version-type: 0 to 255");
  EXPECT_EQ(Why("identity/version-type", "01"), "identity/version-type: 0 to 255");
}

TEST(CodeplugErrors, ATextThatWouldReadOtherwiseIsRefused) {
  EXPECT_EQ(Why("settings/number-a", "1x"), "settings/number-a: it would read \"1\"");
  EXPECT_EQ(Why("vorn/vorn-identifier", "A_B"), "vorn/vorn-identifier: it would read \"A B\"");
}

TEST(CodeplugErrors, TheSameTextInAnotherSpellingIsTaken) {
  for (const auto& [place, text] : {std::pair("vorn/vorn-identifier", "abc"),
                                    std::pair("autodial/autodial-1", "1 555 555 1234"),
                                    std::pair("autodial/autodial-2", "EF")}) {
    EXPECT_EQ(Why(place, text), "0 errors");
  }
}

TEST(CodeplugErrors, GroupsTakeProgrammedChannelsOnce) {
  EXPECT_EQ(Why("groups/1", "12"), "groups/1: \"12\": the channel is not programmed");
  EXPECT_EQ(Why("groups/1", "1 1"), "groups/1: \"1\": Channel can only be in the group once.");
  EXPECT_EQ(Why("groups/1", "L11"), "groups/1: \"L11\": there is no such channel");
  EXPECT_EQ(Why("groups/6", "1"), "groups/6: there is no such value");
}

TEST(CodeplugErrors, HexadecimalHasItsPlaceAndLength) {
  EXPECT_EQ(Why("other/x", "00"), "other/x: this is no place in the document");
  EXPECT_EQ(Why("other/21282", "00"), "other/21282: this is no place in the document");
  EXPECT_EQ(Why("other/21281", "0000"), "other/21281: it reaches behind the end of the document");
  EXPECT_EQ(Why("other/10000", "0"), "other/10000: pairs of hexadecimal digits are wanted");
  EXPECT_EQ(Why("other/10000", "0g"), "other/10000: pairs of hexadecimal digits are wanted");
  EXPECT_EQ(Why("other/4", "00"), "other/4: byte 4 is made anew by every save");
  EXPECT_EQ(Why("other/54", "000000"), "other/54: byte 56 is made anew by every save");
  EXPECT_EQ(WhyChannel("other/flags", "0303"),
            "channels/12/other/flags: 2 hexadecimal digits are wanted");
}

TEST(CodeplugErrors, ChannelOneStaysProgrammed) {
  const auto image = MakeNewDocument();
  EXPECT_EQ(BuildCodeplug(Only("channels/1", ValueTree()), *image, test_region),
            Errors{"channels/1: Memory channel 1 must always be programmed"});
}

TEST(CodeplugErrors, WhatIsNotNamedComesFromTheBase) {
  const auto image = MakeNewDocument();
  PutBytes(*image, 10'203, {2});
  PutBytes(*image, 13'602, {'h', 'i', 0});
  EXPECT_EQ(BuildCodeplug(Only("channels/1/tone", "88.5"), *image, test_region), kNoErrors);
  EXPECT_EQ((*image)[10'203], 2);
  EXPECT_EQ((*image)[13'602], 'h');
  EXPECT_EQ((*image)[RecordPlace(1) + 18], 8);
}

TEST(CodeplugErrors, NothingInsteadOfAChannelClearsIt) {
  const auto image = MakeNewDocument();
  EXPECT_EQ(
      BuildCodeplug(Patch({{"channels/2/rx", "145.5"}, {"groups/1", "2"}}), *image, test_region),
      kNoErrors);
  EXPECT_EQ(BuildCodeplug(Only("channels/2", ValueTree()), *image, test_region), Errors());
  EXPECT_EQ((*image)[FlagPlace(2)] & 1, 0);
  EXPECT_EQ(GroupsOf(*image)[0], std::vector<int>());
}

}  // namespace
}  // namespace qz7
