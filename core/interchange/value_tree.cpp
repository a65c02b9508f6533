#include "core/interchange/value_tree.h"

#include <algorithm>
#include <utility>

namespace qz7 {
namespace {

template <typename Members>
auto Find(Members& members, std::string_view name) {
  return std::find_if(members.begin(), members.end(),
                      [=](const ValueTree::Member& member) { return member.name == name; });
}

}  // namespace

ValueTree TextValue(std::string text) {
  ValueTree tree;
  tree.kind = ValueTree::Kind::kText;
  tree.text = std::move(text);
  return tree;
}

ValueTree NoMembers() {
  ValueTree tree;
  tree.kind = ValueTree::Kind::kMembers;
  return tree;
}

ValueTree& AddMember(ValueTree& tree, std::string name, ValueTree value) {
  tree.members.push_back({std::move(name), std::move(value)});
  return tree.members.back().value;
}

const ValueTree* FindMember(const ValueTree& tree, std::string_view name) {
  const auto member = Find(tree.members, name);
  return member != tree.members.end() ? &member->value : nullptr;
}

void MergePatch(ValueTree& tree, const ValueTree& patch) {
  if (patch.kind != ValueTree::Kind::kMembers) {
    tree = patch;
    return;
  }
  if (tree.kind != ValueTree::Kind::kMembers) {
    tree = NoMembers();
  }
  for (const auto& [name, value] : patch.members) {
    const auto member = Find(tree.members, name);
    if (value.kind == ValueTree::Kind::kNothing) {
      if (member != tree.members.end()) {
        tree.members.erase(member);
      }
    } else if (member != tree.members.end()) {
      MergePatch(member->value, value);
    } else {
      MergePatch(AddMember(tree, name, {}), value);
    }
  }
}

}  // namespace qz7
