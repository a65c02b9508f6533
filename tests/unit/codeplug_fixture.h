#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <string>
#include <vector>

#include "core/files/new_document.h"
#include "core/files/radio_data_file.h"
#include "core/interchange/codeplug.h"
#include "tests/unit/editor_fixture.h"
#include "tests/unit/seams.h"

// What the tests of the codeplug share.
namespace qz7::codeplug_fixture {

using namespace editor_fixture;
using Errors = std::vector<std::string>;

inline std::unique_ptr<CloneImage> MakeNewDocument() {
  auto image = std::make_unique<CloneImage>();
  MakeNewImage(*image);
  return image;
}

// The bytes of the file that a save writes, without its filler.
inline CloneImage Saved(const CloneImage& image) {
  CloneImage file = image;
  PrepareRadioDataFile(file);
  std::fill_n(file.begin() + 82, 18, std::uint8_t{0});
  return file;
}

// The value at "channels/12/rx"; an empty tree where there is none.
inline ValueTree At(const ValueTree& tree, const std::string& place) {
  const std::size_t slash = std::min(place.find('/'), place.size());
  const ValueTree* member = FindMember(tree, place.substr(0, slash));
  if (member == nullptr || slash == place.size()) {
    return member != nullptr ? *member : ValueTree();
  }
  return At(*member, place.substr(slash + 1));
}
inline std::string TextAt(const ValueTree& tree, const std::string& place) {
  return At(tree, place).text;
}

// A tree with this one value in it.
inline ValueTree Only(const std::string& place, const ValueTree& value) {
  const std::size_t slash = place.find('/');
  ValueTree tree = NoMembers();
  if (slash == std::string::npos) {
    AddMember(tree, place, value);
  } else {
    AddMember(tree, place.substr(0, slash), Only(place.substr(slash + 1), value));
  }
  return tree;
}
inline ValueTree Only(const std::string& place, const std::string& text) {
  return Only(place, TextValue(text));
}

inline ValueTree Patch(const std::vector<std::pair<std::string, std::string>>& values) {
  ValueTree tree = NoMembers();
  for (const auto& [place, text] : values) {
    MergePatch(tree, Only(place, text));
  }
  return tree;
}

inline Errors Apply(CloneImage& image, const ValueTree& patch) {
  return ApplyToCodeplug(image, patch, test_region);
}

inline const Errors kNoErrors;

}  // namespace qz7::codeplug_fixture
