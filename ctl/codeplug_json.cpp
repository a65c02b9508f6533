#include "ctl/codeplug_json.h"

#include <algorithm>
#include <nlohmann/json.hpp>
#include <unordered_set>
#include <utility>

#include "core/image/text_codec.h"

namespace qz7 {
namespace {

using Json = nlohmann::json;

// Nearly every text stands as it is.
std::string Quoted(const std::string& utf8, bool ascii) {
  const bool plain = std::all_of(utf8.begin(), utf8.end(), [](char c) {
    return c >= ' ' && c < '\x7F' && c != '"' && c != '\\';
  });
  return plain ? '"' + utf8 + '"' : Json(utf8).dump(-1, ' ', ascii);
}

void AppendTree(const ValueTree& tree, const std::string& indent, bool ascii, std::string& json) {
  if (tree.kind != ValueTree::Kind::kMembers) {
    json += tree.kind == ValueTree::Kind::kText ? Quoted(ToUtf8(tree.text), ascii) : "null";
    return;
  }
  const std::string inner = indent + "  ";
  const char* separator = "{\n";
  for (const auto& [name, value] : tree.members) {
    json += separator + inner + Quoted(name, ascii) + ": ";
    AppendTree(value, inner, ascii, json);
    separator = ",\n";
  }
  json += tree.members.empty() ? "{}" : "\n" + indent + "}";
}

// A codeplug is four objects deep. What reads the tree goes down by calls.
constexpr std::size_t kDeepest = 16;

// Builds the tree while the text is read: a name that comes twice is seen, and no depth of nesting
// costs stack.
class TreeReader : public nlohmann::json_sax<Json> {
 public:
  explicit TreeReader(ReadTree& read) : read_(read) {}

  bool null() override { return Value({}); }
  bool boolean(bool /*value*/) override { return WrongKind(); }
  bool number_integer(number_integer_t /*value*/) override { return WrongKind(); }
  bool number_unsigned(number_unsigned_t /*value*/) override { return WrongKind(); }
  bool number_float(number_float_t /*value*/, const string_t& /*text*/) override {
    return WrongKind();
  }
  bool binary(binary_t& /*value*/) override { return WrongKind(); }
  bool string(string_t& utf8) override {
    EncodedText encoded = FromUtf8(utf8);
    if (!encoded.unknown.empty()) {
      return Drop("the radio's texts have no character \"" + encoded.unknown + "\"");
    }
    return Value(TextValue(std::move(encoded.bytes)));
  }
  bool start_object(std::size_t /*size*/) override {
    if (skipped_depth_ > 0 || place_ == nullptr || open_.size() == kDeepest) {
      ++skipped_depth_;
      return true;
    }
    *place_ = NoMembers();
    open_.push_back({.tree = place_, .names = {}});
    return true;
  }
  bool key(string_t& name) override {
    if (skipped_depth_ > 0) {
      return true;
    }
    names_.resize(open_.size() - 1);
    names_.push_back(name);
    if (open_.back().names.insert(name).second) {
      place_ = &AddMember(*open_.back().tree, name, {});
    } else {
      Tell("it is named twice");
      place_ = nullptr;
    }
    return true;
  }
  bool end_object() override {
    if (skipped_depth_ > 0) {
      return EndSkipped();
    }
    open_.pop_back();
    return true;
  }
  bool start_array(std::size_t /*size*/) override {
    ++skipped_depth_;
    return true;
  }
  bool end_array() override { return EndSkipped(); }
  bool parse_error(std::size_t /*position*/, const std::string& /*token*/,
                   const nlohmann::detail::exception& error) override {
    const std::string text = error.what();
    const std::size_t start = text.find("] ") + 2;
    // What was read last can be bytes that are no text.
    read_.errors = {text.substr(start, text.find("; last read") - start)};
    read_.is_json = false;
    return false;
  }

 private:
  bool Value(ValueTree value) {
    if (skipped_depth_ == 0 && place_ != nullptr) {
      *place_ = std::move(value);
    }
    return true;
  }
  bool WrongKind() { return skipped_depth_ > 0 || Drop("a text is wanted"); }
  bool EndSkipped() { return --skipped_depth_ > 0 || Drop("a text is wanted"); }
  // What is wrong is told here; the rest of the document is still looked through.
  bool Drop(const std::string& reason) {
    if (skipped_depth_ > 0 || place_ == nullptr) {
      return true;
    }
    Tell(reason);
    if (!open_.empty()) {
      open_.back().tree->members.pop_back();
      open_.back().names.erase(names_.back());
    }
    return true;
  }
  void Tell(const std::string& reason) {
    std::string place;
    for (const std::string& name : names_) {
      place += (place.empty() ? "" : "/") + name;
    }
    read_.errors.push_back((place.empty() ? "codeplug" : place) + ": " + reason);
  }

  ReadTree& read_;
  ValueTree* place_ = &read_.tree;  // null for the value of a name that stands there already
  struct OpenObject {
    ValueTree* tree;
    std::unordered_set<std::string> names;  // of its members
  };
  std::vector<OpenObject> open_;
  std::vector<std::string> names_;
  int skipped_depth_ = 0;  // arrays and objects that are no codeplug's, and what they hold
};

}  // namespace

std::string JsonOf(const ValueTree& tree, bool ascii) {
  std::string json;
  AppendTree(tree, "", ascii, json);
  return json + "\n";
}

ReadTree ParseTree(std::span<const std::uint8_t> bytes) {
  ReadTree read;
  TreeReader reader(read);
  Json::sax_parse(bytes.begin(), bytes.end(), &reader);
  return read;
}

}  // namespace qz7
