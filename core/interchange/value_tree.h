#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace qz7 {

// A document as named values: a text, or members by name in their order. Nothing stands for what a
// patch takes away.
struct ValueTree {
  enum class Kind { kNothing, kText, kMembers };
  struct Member;

  Kind kind = Kind::kNothing;
  std::string text;
  std::vector<Member> members;
};
struct ValueTree::Member {
  std::string name;
  ValueTree value;
};

ValueTree TextValue(std::string text);
ValueTree NoMembers();

// Appends a member and returns its value. The name must be a new one.
ValueTree& AddMember(ValueTree& tree, std::string name, ValueTree value);
// The member of that name, or null.
const ValueTree* FindMember(const ValueTree& tree, std::string_view name);

// Changes `tree` as a JSON merge patch does (RFC 7396): members are merged, nothing takes the
// member away, any other value takes its place.
void MergePatch(ValueTree& tree, const ValueTree& patch);

}  // namespace qz7
