#include "ctl/codeplug_schema.h"

#include <nlohmann/json.hpp>

#include "core/image/channel_description.h"
#include "core/image/text_codec.h"
#include "core/interchange/codeplug_other.h"
#include "core/interchange/codeplug_parts.h"
#include "core/interchange/codeplug_slots.h"

namespace qz7 {
namespace {

using Json = nlohmann::ordered_json;

Json ObjectOf(Json properties) {
  return {
      {"type", "object"}, {"properties", std::move(properties)}, {"additionalProperties", false}};
}

Json HexSchema(std::size_t bytes) {
  return {{"type", "string"}, {"pattern", "^[0-9A-Fa-f]{" + std::to_string(2 * bytes) + "}$"}};
}

Json TextSchema(const TextForm& form) {
  Json schema = {{"type", "string"}};
  if (!form.choices.empty()) {
    Json choices = Json::array();
    for (const std::string& choice : form.choices) {
      choices.push_back(ToUtf8(choice));
    }
    if (form.can_be_nothing) {
      choices.push_back("");
    }
    schema["enum"] = std::move(choices);
  }
  if (form.longest > 0) {
    schema["maxLength"] = form.longest;
  }
  if (!form.pattern.empty()) {
    schema["pattern"] = form.pattern;
  }
  return schema;
}

void AddParts(Json& properties, const std::vector<CodeplugPart>& parts) {
  for (const CodeplugPart& part : parts) {
    Json rows = Json::object();
    for (const CodeplugRow& row : part.rows) {
      rows[row.name] = TextSchema(row.form);
    }
    properties[part.name] = ObjectOf(std::move(rows));
  }
}

// The channel that a slot like n holds.
Json ChannelSchema(int n) {
  Json fields = Json::object();
  for (const auto& [name, form] : ChannelFieldForms()) {
    if (SlotHasField(n, name)) {
      fields[name] = TextSchema(form);
    }
  }
  Json pieces = {{kKeptPiece, HexSchema(kKeptSize)}};
  for (const SlotPiece& piece : SlotPieces()) {
    if (!piece.memory_only || !IsSpecialSlot(n)) {
      pieces[piece.name] = HexSchema(piece.size);
    }
  }
  fields[kOtherName] = ObjectOf(std::move(pieces));
  return ObjectOf(std::move(fields));
}

const char* KindOf(int n) {
  return !IsSpecialSlot(n) ? "memory-channel" : IsVfoSlot(n) ? "vfo-channel" : "home-channel";
}

// Where a memory channel could stand, null clears it.
Json SlotsSchema(const CodeplugSlots& part, Json& definitions) {
  Json names = Json::array();
  for (const CodeplugSlot& slot : part.slots) {
    names.push_back(slot.name);
  }
  const int n = part.slots.front().n;
  Json& channel = definitions[KindOf(n)];
  channel = ChannelSchema(n);
  if (!IsSpecialSlot(n)) {
    channel["type"] = {"object", "null"};
  }
  return {{"type", "object"},
          {"propertyNames", {{"enum", std::move(names)}}},
          {"additionalProperties", {{"$ref", std::string("#/$defs/") + KindOf(n)}}}};
}

// A list of choices stands on one line, a member on a line of its own.
void Append(const Json& schema, const std::string& indent, std::string& text) {
  if (!schema.is_object()) {
    text += schema.dump();
    return;
  }
  const char* separator = "{\n";
  for (const auto& [name, value] : schema.items()) {
    text += separator + indent + "  " + Json(name).dump() + ": ";
    Append(value, indent + "  ", text);
    separator = ",\n";
  }
  text += "\n" + indent + "}";
}

}  // namespace

std::string CodeplugSchema() {
  Json properties = Json::object();
  Json definitions = Json::object();
  AddParts(properties, PartsBeforeChannels());
  for (const CodeplugSlots& part : SlotParts()) {
    properties[part.name] = SlotsSchema(part, definitions);
  }
  AddParts(properties, PartsBehindChannels());
  properties[kOtherName] = {
      {"type", "object"},
      {"patternProperties",
       {{"^(0|[1-9][0-9]{0,4})$", {{"type", "string"}, {"pattern", "^([0-9A-Fa-f]{2})*$"}}}}},
      {"additionalProperties", false}};
  Json schema = {{"$schema", "https://json-schema.org/draft/2020-12/schema"},
                 {"title", "The memory of a Tamro QZ-7H, as qz7ctl dump writes it"}};
  schema.update(ObjectOf(std::move(properties)));
  schema["$defs"] = std::move(definitions);
  std::string text;
  Append(schema, "", text);
  return text + "\n";
}

}  // namespace qz7
