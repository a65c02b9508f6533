#include <algorithm>
#include <array>
#include <cstdlib>
#include <sstream>
#include <string_view>

#include "core/image/text_codec.h"
#include "ctl/arguments.h"
#include "ctl/console.h"

namespace qz7 {
namespace {

// The names of the import fields on the command line, in the fields' order.
constexpr std::array<std::string_view, kCsvColumnCount> kColumnNames = {
    "rx", "tx", "offset", "tone", "skip", "power", "enc", "dec", "name", "comment"};

std::vector<std::string> SplitAtCommas(const std::string& text) {
  std::vector<std::string> parts;
  std::istringstream stream(text);
  for (std::string part; std::getline(stream, part, ',');) {
    parts.push_back(part);
  }
  return parts;
}

// A whole number from 1 to 65535; throws otherwise.
int ParseCount(const std::string& option, const std::string& text) {
  constexpr long kMost = 65'535;
  char* end = nullptr;
  const long value = std::strtol(text.c_str(), &end, 10);
  if (text.empty() || *end != '\0' || value < 1 || value > kMost) {
    throw CLI::ValidationError(option, "\"" + text + "\" is no number from 1 on");
  }
  return static_cast<int>(value);
}

// One character, "\t" for a tab, nothing for none.
char ParseCharacter(const std::string& option, const std::string& text) {
  if (text == "\\t") {
    return '\t';
  }
  const EncodedText encoded = FromUtf8(text);
  if (!encoded.unknown.empty() || encoded.bytes.size() > 1) {
    throw CLI::ValidationError(option, "\"" + text + "\" is not one character");
  }
  return encoded.bytes.empty() ? '\0' : encoded.bytes[0];
}

void FinishImport(Arguments& args, bool has_separator, bool has_quote, bool has_start) {
  ListRequest& request = args.import;
  request.recognise = args.columns == "auto";
  if (request.recognise && (has_separator || has_quote || request.options.headers)) {
    throw CLI::ValidationError("--columns", "auto finds headers, separator and quotes itself");
  }
  request.columns = request.recognise ? ColumnAssignment{} : ParseColumns(args.columns);
  request.rows = ParseSelection(args.selection);
  if (has_separator) {
    request.options.field_separator = ParseCharacter("--separator", args.separator);
  }
  if (has_quote) {
    request.options.text_separator = ParseCharacter("--quote", args.quote);
  }
  if (has_start) {
    request.start = args.start;
  }
  if (!args.list && args.out.empty()) {
    throw CLI::RequiredError("OUT.rdf");
  }
  args.run = [&args] {
    return args.list ? ListImportCommand(args.file, args.import)
                     : ImportCommand(args.file, args.out, args.import);
  };
}

void AddImport(CLI::App& program, Arguments& args) {
  CLI::App* sub = program.add_subcommand("import", "imports a list of frequencies");
  AddPath(sub, "FILE", args.file, "radio data file; - is standard input")->required();
  AddPath(sub, "LIST", args.import.options.path, "delimited text; - is standard input")->required();
  CLI::Option* out = AddOutput(sub, args, "OUT.rdf", args.out);
  sub->add_flag("--list", args.list, "only list the usable records by number, in place of OUT.rdf")
      ->excludes(out);
  sub->add_option("--columns", args.columns,
                  "which column holds which field: rx=1,tx=2,offset=3,tone=4,skip=5,power=6,enc=7,"
                  "dec=8,name=9,comment=10; auto recognises them by the list's own header line")
      ->type_name("LIST");
  sub->add_flag("--headers", args.import.options.headers,
                "the first line names the columns; it gives those that --columns does not");
  CLI::Option* separator = sub->add_option("--separator", args.separator,
                                           "between fields, default a comma; \\t is a tab")
                               ->type_name("C");
  CLI::Option* quote =
      sub->add_option("--quote", args.quote, "around fields, default a double quotation mark")
          ->type_name("C");
  sub->add_option("--select", args.selection, "usable records to take: all or 1,3-5; default all")
      ->type_name("LIST");
  CLI::Option* start =
      sub->add_option("--start", args.start, "first channel, default the longest free run")
          ->type_name("N");
  sub->callback([&args, separator, quote, start] {
    FinishImport(args, separator->count() > 0, quote->count() > 0, start->count() > 0);
  });
}

void AddMerge(CLI::App& program, Arguments& args) {
  CLI::App* sub =
      program.add_subcommand("merge", "merges memory channels from another radio data file");
  AddPath(sub, "FILE", args.file, "radio data file; - is standard input")->required();
  AddPath(sub, "SOURCE", args.second_file,
          "the file to merge from, of any model; - is standard input")
      ->required();
  AddOutput(sub, args, "OUT.rdf", args.out)->required();
  CLI::Option* start =
      sub->add_option("--start", args.start, "first channel, default the longest free run")
          ->type_name("N");
  CLI::Option* key =
      sub->add_option("--key", args.how, "only channels whose comment holds this text")
          ->type_name("TEXT");
  sub->add_flag("--ham-only", args.merge.only_ham, "only 144-148 MHz and 430-450 MHz");
  sub->add_flag("--overwrite", args.merge.overwrite, "over programmed channels, too");
  sub->callback([&args, start, key] {
    args.merge.use_key = key->count() > 0;
    const bool has_start = start->count() > 0;
    args.run = [&args, has_start] {
      const std::optional<std::string> bytes = BytesOfArgument("--key", args.how);
      if (!bytes) {
        return kFailed;
      }
      SetMergeKey(args.merge, *bytes);
      return MergeCommand(args.file, args.second_file, args.out, args.merge,
                          has_start ? std::optional(args.start) : std::nullopt);
    };
  });
}

void AddExport(CLI::App& program, Arguments& args) {
  CLI::App* sub = program.add_subcommand("export", "writes the memory channels as CSV");
  AddPath(sub, "FILE", args.file, "radio data file; - is standard input")->required();
  AddOutput(sub, args, "OUT.csv", args.out)->required();
  sub->callback([&args] { args.run = [&args] { return ExportCommand(args.file, args.out); }; });
}

}  // namespace

ColumnAssignment ParseColumns(const std::string& text) {
  ColumnAssignment columns{};
  for (const std::string& part : SplitAtCommas(text)) {
    const std::size_t equals = std::min(part.find('='), part.size());
    const auto* name = std::find(kColumnNames.begin(), kColumnNames.end(),
                                 std::string_view(part).substr(0, equals));
    if (name == kColumnNames.end() || equals == part.size()) {
      throw CLI::ValidationError("--columns", "\"" + part + "\" names no field");
    }
    std::uint32_t& column = columns[static_cast<std::size_t>(name - kColumnNames.begin())];
    if (column != 0) {
      throw CLI::ValidationError("--columns", std::string(*name) + " is named twice");
    }
    column = static_cast<std::uint32_t>(ParseCount("--columns", part.substr(equals + 1)));
  }
  return columns;
}

std::vector<int> ParseRows(const std::string& option, const std::string& text) {
  std::vector<int> rows;
  for (const std::string& part : SplitAtCommas(text)) {
    const std::size_t dash = std::min(part.find('-'), part.size());
    const int first = ParseCount(option, part.substr(0, dash));
    const int last = dash == part.size() ? first : ParseCount(option, part.substr(dash + 1));
    if (last < first) {
      throw CLI::ValidationError(option, "\"" + part + "\" ends before it begins");
    }
    for (int record = first; record <= last; ++record) {
      rows.push_back(record - 1);
    }
  }
  std::sort(rows.begin(), rows.end());
  rows.erase(std::unique(rows.begin(), rows.end()), rows.end());
  return rows;
}

std::optional<std::vector<int>> ParseSelection(const std::string& text) {
  if (text.empty() || text == "all") {
    return std::nullopt;
  }
  return ParseRows("--select", text);
}

void AddInterchangeCommands(CLI::App& program, Arguments& args) {
  AddExport(program, args);
  AddImport(program, args);
  AddMerge(program, args);
}

}  // namespace qz7
