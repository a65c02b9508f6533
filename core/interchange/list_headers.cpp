#include "core/interchange/list_headers.h"

#include <algorithm>
#include <iterator>
#include <string>

#include "core/interchange/list_values.h"

namespace qz7 {
namespace {

// What a column is called, by PlainHeader. A new shape of list is a row for each name that is not
// here yet.
struct Alias {
  std::string_view header;
  Meaning meaning;
};
constexpr Alias kAliases[] = {
    {"outputfreq", Meaning::kReceive},
    {"outputfrequency", Meaning::kReceive},
    {"output", Meaning::kReceive},
    {"frequency", Meaning::kReceive},
    {"freq", Meaning::kReceive},
    {"receivefrequency", Meaning::kReceive},
    {"receivefreq", Meaning::kReceive},
    {"receive", Meaning::kReceive},
    {"rxfrequency", Meaning::kReceive},
    {"rxfreq", Meaning::kReceive},
    {"rx", Meaning::kReceive},
    {"downlink", Meaning::kReceive},
    {"inputfreq", Meaning::kTransmit},
    {"inputfrequency", Meaning::kTransmit},
    {"input", Meaning::kTransmit},
    {"transmitfrequency", Meaning::kTransmit},
    {"transmitfreq", Meaning::kTransmit},
    {"transmit", Meaning::kTransmit},
    {"txfrequency", Meaning::kTransmit},
    {"txfreq", Meaning::kTransmit},
    {"tx", Meaning::kTransmit},
    {"uplink", Meaning::kTransmit},
    {"offset", Meaning::kOffset},
    {"offsetfrequency", Meaning::kOffset},
    {"offsetfreq", Meaning::kOffset},
    {"shift", Meaning::kOffset},
    {"split", Meaning::kOffset},
    {"offsetdirection", Meaning::kDirection},
    {"offsetdir", Meaning::kDirection},
    {"direction", Meaning::kDirection},
    {"duplex", Meaning::kDirection},
    {"shiftdirection", Meaning::kDirection},
    {"tonemode", Meaning::kToneMode},
    {"squelchmode", Meaning::kToneMode},
    {"tone", Meaning::kTone},
    {"tones", Meaning::kTone},
    {"access", Meaning::kTone},
    {"accesstone", Meaning::kTone},
    {"pl", Meaning::kEncode},
    {"uplinktone", Meaning::kEncode},
    {"inputtone", Meaning::kEncode},
    {"ctcss", Meaning::kEncode},
    {"ctcsstone", Meaning::kEncode},
    {"ctcsstones", Meaning::kEncode},
    {"encfrequency", Meaning::kEncode},
    {"enctone", Meaning::kEncode},
    {"encode", Meaning::kEncode},
    {"rtonefreq", Meaning::kEncode},
    {"txtone", Meaning::kEncode},
    {"tsq", Meaning::kDecode},
    {"tsql", Meaning::kDecode},
    {"downlinktone", Meaning::kDecode},
    {"outputtone", Meaning::kDecode},
    {"decfrequency", Meaning::kDecode},
    {"dectone", Meaning::kDecode},
    {"decode", Meaning::kDecode},
    {"ctonefreq", Meaning::kDecode},
    {"rxtone", Meaning::kDecode},
    {"rxctcss", Meaning::kDecode},
    {"dcs", Meaning::kCode},
    {"dcscode", Meaning::kCode},
    {"dtcs", Meaning::kCode},
    {"dtcscode", Meaning::kCode},
    {"skip", Meaning::kSkip},
    {"lockout", Meaning::kSkip},
    {"power", Meaning::kPower},
    {"txpower", Meaning::kPower},
    {"mode", Meaning::kMode},
    {"operatingmode", Meaning::kMode},
    {"modulation", Meaning::kMode},
    {"name", Meaning::kName},
    {"alphatag", Meaning::kName},
    {"tag", Meaning::kName},
    {"channelname", Meaning::kName},
    {"call", Meaning::kName},
    {"callsign", Meaning::kName},
    {"comment", Meaning::kComment},
    {"comments", Meaning::kComment},
    {"description", Meaning::kComment},
    {"notes", Meaning::kComment},
    {"nearestcity", Meaning::kComment},
    {"city", Meaning::kComment},
    {"town", Meaning::kComment},
    {"landmark", Meaning::kComment},
    {"location", Meaning::kNumber},
    {"site", Meaning::kComment},
    {"channel", Meaning::kNothing},
    {"channelnumber", Meaning::kNothing},
    {"number", Meaning::kNothing},
    {"tstep", Meaning::kNothing},
    {"step", Meaning::kNothing},
    {"use", Meaning::kNothing},
    {"band", Meaning::kNothing},
    {"state", Meaning::kNothing},
    {"county", Meaning::kNothing},
    {"dtcspolarity", Meaning::kNothing},
    {"rxdtcscode", Meaning::kNothing},
    {"crossmode", Meaning::kNothing},
};

}  // namespace

std::optional<Meaning> MeaningOf(std::string_view header) {
  const std::string plain = PlainHeader(header);
  const auto* alias = std::find_if(std::begin(kAliases), std::end(kAliases),
                                   [&](const Alias& known) { return known.header == plain; });
  return alias != std::end(kAliases) ? std::optional(alias->meaning) : std::nullopt;
}

}  // namespace qz7
