#include "tides/harmonic_streams.h"

#include <cmath>

#include "core/data_files.h"
#include "core/plane_sailing.h"
#include "tides/streams.h"

namespace skerrow {
namespace {

// One constituent of a component.
struct Term {
  float amplitude;  // knots
  float phase_lag;  // degrees
};

struct Component {
  Term m2, s2, k1, o1;
};

Component ComponentOf(const HarmonicStation& s, StreamAxis axis) {
  if (axis == StreamAxis::kX) {
    return {
        {s.x_m2_hm, s.x_m2_g}, {s.x_s2_hm, s.x_s2_g}, {s.x_k1_hm, s.x_k1_g}, {s.x_o1_hm, s.x_o1_g}};
  }
  return {
      {s.y_m2_hm, s.y_m2_g}, {s.y_s2_hm, s.y_s2_g}, {s.y_k1_hm, s.y_k1_g}, {s.y_o1_hm, s.y_o1_g}};
}

// The groups at both ends of a day.
struct DayEnds {
  DayEnds(int year, int day)
      : start(CalcDayConstituents(year, day)), end(CalcDayConstituents(year, day + 1)) {}
  DayConstituents start, end;
};

constexpr float kOneMinute = static_cast<float>(1.0 / 60.0);

float ValueOf(const Component& component, const DayEnds& day, float& hours) {
  if (hours == 0.0F) hours = kOneMinute;
  const auto term = [&](const Term& constants, const GroupValue& start, const GroupValue& end,
                        double least_turn) {
    const GroupLine line = LineOf(constants.phase_lag, start, end, least_turn);
    return line.Factor(hours) * constants.amplitude * std::cos(line.Degrees(hours) * kPi / 180.0);
  };
  return static_cast<float>(term(component.m2, day.start.m2, day.end.m2, kSemidiurnalTurn) +
                            term(component.s2, day.start.s2, day.end.s2, kSemidiurnalTurn) +
                            term(component.k1, day.start.k1, day.end.k1, kDiurnalTurn) +
                            term(component.o1, day.start.o1, day.end.o1, kDiurnalTurn));
}

}  // namespace

std::string HarmonicStationPath(const Folders& folders, std::string_view tidal_area) {
  return FindData(folders, DataFolder::kHarmonicStreams, Trim(tidal_area) + ".l27");
}

bool LoadHarmonicStations(TideState& state, const std::string& path, float hours, DayAndYear date,
                          Messages& messages) {
  state.harmonic_stations.clear();
  const Result<RecordFile<HarmonicStation>> file = ReadRecords(path, kHarmonicStationFields);
  if (file) {
    TellLeftOut(path, file->left_out, messages);
    for (const std::optional<HarmonicStation>& station : file->records) {
      if (station || state.harmonic_stations.empty()) {
        state.harmonic_stations.push_back(station.value_or(HarmonicStation{}));
      }
    }
  } else {
    messages.Show(file.error().Text(), MessageIcon::kWarning);
  }
  CalcHarmonicStreams(state, hours, date);
  return file.ok();
}

void CalcHarmonicStreams(TideState& state, float hours, DayAndYear date) {
  state.harmonic_streams.clear();
  const DayEnds day(date.year, date.day);
  for (const HarmonicStation& station : state.harmonic_stations) {
    HarmonicStream stream;
    stream.name = station.name;
    stream.latitude = station.latitude;
    stream.longitude = station.longitude;
    stream.x = ValueOf(ComponentOf(station, StreamAxis::kX), day, hours);
    stream.y = ValueOf(ComponentOf(station, StreamAxis::kY), day, hours);
    const Polar polar = VectorToPolar(stream.x, stream.y);
    stream.direction = polar.direction;
    stream.rate = polar.length;
    stream.direction_rad = static_cast<float>(polar.direction * kRadiansPerDegree);
    state.harmonic_streams.push_back(std::move(stream));
  }
}

float CalcStreamComponent(const HarmonicStation& station, StreamAxis axis, int year, int day,
                          float& hours) {
  return ValueOf(ComponentOf(station, axis), DayEnds(year, day), hours);
}

}  // namespace skerrow
