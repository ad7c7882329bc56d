#include <nlohmann/json.hpp>

#include "cli/arguments.h"
#include "cli/commands.h"
#include "core/config.h"
#include "core/numbers.h"
#include "core/plane_sailing.h"

namespace skerrow::cli {
namespace {

// The JSON value of a record's member, whatever its type.
template <typename T>
Json ValueOf(const T& value) {
  if constexpr (std::is_same_v<T, float>) {
    return Number(value);
  } else if constexpr (std::is_arithmetic_v<T> || std::is_same_v<T, std::string>) {
    return value;
  } else {
    Json list = Json::array();
    for (const auto& entry : value) list.push_back(ValueOf(entry));
    return list;
  }
}

Answer ConfigAnswer(const AppConfig& config) {
  Answer answer;
  Json fields = Json::array();
  TextTable table({">Offset", ">Size", "Type", "Setting", "Value"});
  for (const RecordField<AppConfig>& field : kAppConfigFields) {
    const std::string type = FieldTypeName(field.type, field.size);
    const Json value =
        std::visit([&](auto member) { return ValueOf(config.*member); }, field.member);
    fields.push_back({{"name", field.name},
                      {"offset", field.offset},
                      {"size", field.size},
                      {"type", type},
                      {"value", value}});
    table.Add({std::to_string(field.offset), std::to_string(field.size), type, field.name,
               value.is_string() ? value.get<std::string>() : value.dump()});
  }
  answer.json() = {{"fields", fields}};
  answer.text = table.Text();
  return answer;
}

}  // namespace

Failure Failed(const Error& error) { return {kFailed, error.Text()}; }
Failure WrongUsage(const Error& error) { return {kWrongUsage, error.Text()}; }

Outcome ConfigShow(Session& session, const NoWords&) {
  return ConfigAnswer(session.program.config);
}

Outcome ConfigInit(Session& session, const NoWords&) {
  MakeUserFolders(session.program.folders);
  const AppConfig defaults = DefaultConfig(session.program.folders.program);
  if (const Status saved = SaveConfig(session.program.folders, defaults); !saved) {
    return Failed({"", "Unable to create a configuration file. " + saved.error().Text()});
  }
  return ConfigAnswer(defaults);
}

Outcome ConfigSet(Session& session, const SetWords& words) {
  AppConfig trial = session.program.config;
  if (const Status fits = SetConfigField(trial, words.field, words.value); !fits) {
    return WrongUsage(fits.error());
  }
  MakeUserFolders(session.program.folders);
  AppConfig stored = DefaultConfig(session.program.folders.program);
  const Status saved = ReloadThenSave(session.program.folders, stored, [&](AppConfig& config) {
    (void)SetConfigField(config, words.field, words.value);
  });
  if (!saved) return Failed(saved.error());
  return ConfigAnswer(stored);
}

Outcome ShowPosition(Session&, const PositionWords& words) {
  const Result<Position> place = ParsePosition(words.latitude, words.longitude);
  if (!place) return WrongUsage(place.error());
  const std::string lat = LatToText(place->latitude);
  const std::string lon = LongToText(place->longitude);
  const std::string lat3 = LatToText3(place->latitude);
  const std::string lon3 = LongToText3(place->longitude);
  Answer answer;
  answer.json() = {{"latitude", Number(place->latitude)},
                   {"longitude", Number(place->longitude)},
                   {"text", {lat, lon}},
                   {"text3", {lat3, lon3}}};
  answer.text = lat + "  " + lon + "\n" + lat3 + "  " + lon3 + "\n" +
                FormatFixed(place->latitude, 1, 6) + "°  " + FormatFixed(place->longitude, 1, 6) +
                "°\n";
  return answer;
}

Outcome ShowRange(Session&, const RangeWords& words) {
  const Result<Position> from = ParsePosition(words.place.at(0), words.place.at(1));
  if (!from) return WrongUsage(from.error());
  const Result<Position> to = ParsePosition(words.place.at(2), words.place.at(3));
  if (!to) return WrongUsage(to.error());
  const RangeAndBearing way = RangeBearing(*from, *to);
  Answer answer;
  answer.json() = {{"range", Number(way.range)}, {"bearing", Number(way.bearing)}};
  answer.text = FormatFixed(way.range, 1, 2) + " nm  " + FormatFixed(way.bearing, 3, 0) + "°T\n";
  return answer;
}

Outcome ShowMove(Session&, const MoveWords& typed) {
  const std::vector<std::string>& words = typed.words;
  const Result<Position> from = ParsePosition(words.at(0), words.at(1));
  if (!from) return WrongUsage(from.error());
  const Result<float> bearing = ParseNumber(words.at(2), "bearing");
  if (!bearing) return WrongUsage(bearing.error());
  const Result<float> miles = ParseNumber(words.at(3), "distance");
  if (!miles) return WrongUsage(miles.error());
  const Position to = MoveByMiles(*from, Resolve(*bearing, *miles));
  Answer answer;
  answer.json() = {{"latitude", Number(to.latitude)}, {"longitude", Number(to.longitude)}};
  answer.text = LatToText(to.latitude) + "  " + LongToText(to.longitude) + "\n";
  return answer;
}

}  // namespace skerrow::cli
