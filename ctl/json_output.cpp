#include "ctl/json_output.h"

#include <array>
#include <iostream>
#include <string>
#include <string_view>

#include "core/image/blanks.h"
#include "core/image/channel_text.h"
#include "core/image/text_codec.h"
#include "ctl/terminal.h"

namespace qz7 {
namespace {

// The name, the last column, is all that is left: a tab in it is its own.
Json RowAsJson(std::string_view row) {
  constexpr std::array<const char*, 7> kColumns = {"channel", "rx",    "tone", "skip",
                                                   "masked",  "power", "name"};
  Json json = Json::object();
  for (const char* column : kColumns) {
    const bool last = column == kColumns.back();
    const std::size_t end = last ? row.size() : std::min(row.find('\t'), row.size());
    std::string text = WithoutOuterBlanks(row.substr(0, end));
    if (column == kColumns[1]) {
      // Behind the frequency stands the mark of the shift.
      const char mark = row[end - 1];
      text = WithoutOuterBlanks(row.substr(0, end - 1));
      json[column] = text;
      json["shift"] = mark == ' ' ? "" : ToUtf8(std::string(1, mark));
    } else {
      json[column] = ToUtf8(text);
    }
    if (end == row.size()) {
      break;
    }
    row.remove_prefix(end + 1);
  }
  return json;
}

}  // namespace

void PrintJson(const Json& json) {
  std::cout << json.dump(2, ' ', IsOutputTerminal(), Json::error_handler_t::replace) << '\n';
}

Json FieldsAsJson(const std::vector<NamedValue>& fields) {
  Json json = Json::object();
  for (const auto& [name, value] : fields) {
    json[name] = ToUtf8(value);
  }
  return json;
}

Json RowsAsJson(const CloneImage& image, const RegionVariant& region) {
  Json json = Json::array();
  for (int n = 1; n <= GetChannelCount(image); ++n) {
    json.push_back(RowAsJson(FormatListRow(image, n, region)));
  }
  return json;
}

Json DifferencesAsJson(const std::vector<Difference>& differences) {
  Json json = Json::array();
  for (const auto& [what, field, a, b, texts] : differences) {
    Json entry = {{"what", ToUtf8(what)}};
    if (!field.empty()) {
      entry["field"] = field;
    }
    if (texts || !a.empty()) {
      entry["a"] = ToUtf8(a);
    }
    entry["b"] = ToUtf8(b);
    json.push_back(std::move(entry));
  }
  return json;
}

}  // namespace qz7
