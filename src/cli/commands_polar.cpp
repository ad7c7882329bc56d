#include <nlohmann/json.hpp>

#include "cli/arguments.h"
#include "cli/commands.h"
#include "cli/polars.h"
#include "core/files.h"
#include "core/numbers.h"
#include "core/text.h"
#include "passage/wind_on_route.h"
#include "platform/polars.h"
#include "wind/polar.h"
#include "wind/relative_wind.h"
#include "wind/wind_store.h"

namespace skerrow::cli {
namespace {

std::unique_ptr<PolarDatabase> OpenPolars(const Session& session) {
  const Folders& folders = session.program.folders;
  return OpenPolarDatabase(folders.InstalledPolars(), folders.OwnPolars());
}

Result<PolarRows> ReadPolarFile(const std::string& path) {
  const Result<std::string> text = ReadFile(path);
  if (!text) return text.error();
  Result<PolarImport> import = PolarFromText(*text);
  if (!import) return Error{path, import.error().Text()};
  return std::move(import.value().rows);
}

Outcome ImportDatabase(const Session& session, const PolarImportWords& words) {
  const Folders& folders = session.program.folders;
  const Result<PolarsImported> done =
      ImportAccessPolars(folders.InstalledPolars(), folders.OwnPolars(), words.file, words.name);
  if (!done) return Failed(done.error());
  Answer answer;
  Json left_out = Json::array();
  std::string reasons;
  for (const auto& [name, reason] : done->left_out) {
    left_out.push_back({{"name", name}, {"reason", reason}});
    reasons.append("\"").append(name).append("\" is left out: ").append(reason).append("\n");
  }
  if (done->added.empty()) return Failed({words.file, Trim(reasons)});
  answer.json() = {
      {"added", done->added}, {"leftOut", left_out}, {"file", OpenPolars(session)->Path()}};
  for (const std::string& name : done->added) {
    answer.text += "\"" + name + "\" is in " + OpenPolars(session)->Path() + "\n";
  }
  answer.text += reasons;
  return answer;
}

}  // namespace

Result<PolarRows> ReadPolar(const Session& session, const std::string& name) {
  Result<PolarRows> rows = OpenPolars(session)->Read(name);
  if (rows || !FileReadable(name)) return rows;
  return ReadPolarFile(name);
}

Result<float> ParseClosest(const Session& session, const std::string& text) {
  if (text.empty()) return session.program.config.closest_sailing_angle;
  Result<float> angle = ParseNumber(text, "closest");
  if (angle && (*angle < 0 || *angle > 180)) {
    return Error{"", "\"" + text + "\" is no angle to the wind (0 to 180 degrees)"};
  }
  return angle;
}

Outcome ListPolars(Session& session, const NoWords&) {
  const std::unique_ptr<PolarDatabase> polars = OpenPolars(session);
  const Result<std::vector<std::string>> names = polars->SetUps();
  if (!names) return Failed(names.error());
  Answer answer;
  answer.json() = {{"setUps", *names}, {"file", polars->Path()}};
  for (const std::string& name : *names) answer.text += name + "\n";
  if (names->empty()) answer.text = "there are no set-ups\n";
  return answer;
}

Outcome ShowPolar(Session& session, const PolarWords& words) {
  const Result<PolarRows> rows = ReadPolar(session, words.name);
  if (!rows) return Failed(rows.error());
  Answer answer;
  Json list = Json::array();
  std::vector<std::string> heads = {">Angle"};
  for (std::size_t column = 1; column < kPolarColumns.size(); ++column) {
    heads.push_back(">" + std::to_string(2 * (column - 1)) + "kn");
  }
  TextTable table(heads);
  for (const PolarRow& row : *rows) {
    Json cells = Json::array();
    std::vector<std::string> texts;
    for (const auto& cell : row) {
      cells.push_back(cell ? Json(*cell) : Json(nullptr));
      texts.push_back(cell.value_or("-"));
    }
    list.push_back(cells);
    table.Add(std::move(texts));
  }
  answer.json() = {{"columns", kPolarColumns}, {"rows", list}};
  answer.text = table.Text();
  return answer;
}

Outcome ExportPolar(Session& session, const PolarWords& words) {
  const Result<PolarRows> rows = ReadPolar(session, words.name);
  if (!rows) return Failed(rows.error());
  Answer answer;
  answer.text = PolarToText(*rows);
  answer.json() = {{"text", answer.text}};
  return answer;
}

Outcome ImportPolar(Session& session, const PolarImportWords& words) {
  if (IsAccessFile(words.file)) return ImportDatabase(session, words);
  if (words.name.empty()) return WrongUsage({"", "--name is required"});
  const Result<std::string> text = ReadFile(words.file);
  if (!text) return Failed(text.error());
  const Result<PolarImport> import = PolarFromText(*text);
  if (!import) return Failed({words.file, import.error().Text()});
  const std::unique_ptr<PolarDatabase> polars = OpenPolars(session);
  if (const Status made = polars->Create(words.name, import->rows); !made) {
    return Failed(made.error());
  }
  Answer answer;
  answer.json() = {{"name", words.name}, {"guessed", import->guessed}, {"file", polars->Path()}};
  answer.text = "\"" + words.name + "\" is in " + polars->Path() + "\n";
  if (import->guessed > 0) {
    answer.text += std::to_string(import->guessed) +
                   " values lie outside the table of the file and repeat its edge\n";
  }
  return answer;
}

Outcome ShowPolarSpeed(Session& session, const PolarSpeedWords& words) {
  const Result<float> wind = ParseNumber(words.wind, "wind");
  if (!wind) return WrongUsage(wind.error());
  if (*wind < 0 || *wind > 40) return WrongUsage({"", "Invalid Wind Speed"});
  const Result<float> closest = ParseClosest(session, words.polar.closest);
  if (!closest) return WrongUsage(closest.error());
  RelativeWind relative;
  if (!words.angle.empty()) {
    const Result<float> angle = ParseNumber(words.angle, "angle");
    if (!angle) return WrongUsage(angle.error());
    if (*angle < 0 || *angle > 180) return WrongUsage({"", "the angle is from 0 to 180 degrees"});
    relative.angle = *angle;
  } else {
    const Result<float> from = ParseNumber(words.from, "from");
    if (!from) return WrongUsage(from.error());
    if (*from < 0 || *from > 360) return WrongUsage({"", "Invalid Wind Direction"});
    const Result<float> course = ParseNumber(words.course, "course");
    if (!course) return WrongUsage(course.error());
    relative = RelativeWindOf(*from, *course);
  }
  const Result<PolarRows> rows = ReadPolar(session, words.polar.name);
  if (!rows) return Failed(rows.error());
  const std::optional<std::string> speed =
      EstimateBoatSpeed(*rows, *wind, relative.angle, *closest);
  Answer answer;
  const bool by_course = words.angle.empty();
  answer.json() = {{"speed", speed ? Json(*speed) : Json(nullptr)},
                   {"error", speed ? Json(nullptr) : Json(kPolarCellFault)},
                   {"tack", by_course ? Json(relative.starboard ? 2 : 1) : Json(nullptr)}};
  answer.text = speed ? *speed + " kn" : kPolarCellFault;
  if (speed && by_course) {
    answer.text += relative.starboard ? ", Starboard Tack" : ", Port Tack";
  }
  answer.text += "\n";
  return answer;
}

}  // namespace skerrow::cli
