#pragma once

#include <algorithm>
#include <gtest/gtest.h>
#include <random>
#include <string>
#include <vector>

#include "core/folders.h"
#include "support/recording_messages.h"
#include "tides/streams.h"

// The sample installation and made-up seas for tests of streams and passages.
namespace skerrow::testing {

inline Folders SampleFolders() {
  const std::string source = SKERROW_SOURCE_DIR;
  return {source + "/program", "/nonexistent", "/nonexistent"};
}

// The sample sea area with its tides about a day.
inline TideState SampleTides(DayAndYear date) {
  TideState state;
  RecordingMessages messages;
  FindRefPorts(state, SampleFolders(), "Sample Chart");
  LoadDiamonds(state, SampleFolders(), "Sample Chart", messages);
  BuildRefPortHeights(state, SampleFolders(), date, false, messages);
  return state;
}

// A port of plausible random constants.
inline Port RandomPort(std::mt19937& random, const std::string& name) {
  const auto between = [&](double low, double high) {
    return static_cast<float>(std::uniform_real_distribution<double>(low, high)(random));
  };
  Port port;
  port.name = name;
  port.latitude = between(48, 52);
  port.longitude = between(-6, 2);
  port.z0 = between(1, 6);
  port.m2_g = between(0, 360);
  port.m2_hm = between(0.5, 4);
  port.s2_g = between(0, 360);
  port.s2_hm = port.m2_hm * between(0.2, 0.5);
  port.k1_g = between(0, 360);
  port.k1_hm = between(0.02, 0.15);
  port.o1_g = between(0, 360);
  port.o1_hm = between(0.02, 0.15);
  port.sf4 = between(0, 360);
  port.lf4 = between(0, 0.04);
  port.sf6 = between(0, 360);
  port.lf6 = between(0, 0.005);
  for (std::size_t i = 0; i < 12; ++i) {
    port.delta_z0[i] = between(-0.1, 0.1);
    port.mhm2[i] = port.m2_hm * between(0.97, 1.03);
  }
  return port;
}

// Diamonds strewn over the Channel, one in eight with slack columns, some side by side so that
// ties and near ties happen.
inline std::vector<Diamond> RandomDiamonds(std::mt19937& random, int count, int ports) {
  const auto between = [&](double low, double high) {
    return static_cast<float>(std::uniform_real_distribution<double>(low, high)(random));
  };
  std::vector<Diamond> diamonds;
  for (int i = 0; i < count; ++i) {
    Diamond d;
    d.chart_no = 9000;
    d.dia_no = static_cast<float>(i + 1);
    d.ref_port = static_cast<float>(1 + i % ports);
    d.np_range = between(1, 2);
    d.sp_range = d.np_range + between(1, 4);
    d.latitude = between(48.5, 51);
    d.longitude = between(-5, 1.5);
    if (i % 10 == 9) {  // mirrored about the last one's longitude: ranges tie along it
      d.latitude = diamonds.back().latitude;
      d.longitude = diamonds.back().longitude + 0.25F;
    }
    for (std::size_t c = 1; c < kDiamondColumns; ++c) {
      if (i % 8 == 0 && c % 5 == 0) continue;
      d.direction[c] = between(0, 360);
      d.spring_rate[c] = between(0.1, 5);
      d.neap_rate[c] = d.spring_rate[c] * between(0.3, 0.7);
    }
    diamonds.push_back(d);
  }
  return diamonds;
}

// A state made of these tables, as if loaded from files.
inline TideState MadeTides(const std::vector<Diamond>& diamonds, const std::vector<Port>& ports,
                           DayAndYear date) {
  TideState state;
  state.diamonds = diamonds;
  state.index = std::make_shared<DiamondIndex>(state.diamonds);
  state.ref_ports = FindRefPorts(diamonds);
  std::vector<std::shared_ptr<const Port>> used;
  for (const std::int16_t number : state.ref_ports) {
    const Port& port = ports[static_cast<std::size_t>(number - 1)];
    used.push_back(std::make_shared<const Port>(port));
    state.ref_port_names.push_back(port.name);
  }
  for (const Diamond& d : diamonds) {
    state.labels.push_back(DiamondLabel(d));
    const auto at = std::find(state.ref_ports.begin(), state.ref_ports.end(),
                              static_cast<std::int16_t>(d.ref_port));
    state.port_of_diamond.push_back(static_cast<int>(at - state.ref_ports.begin()));
  }
  state.days = TideDays(used, false);
  LoadTideDay(state, date);
  return state;
}

}  // namespace skerrow::testing
