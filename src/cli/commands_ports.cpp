#include <chrono>
#include <cstdio>
#include <memory>
#include <thread>

#include <nlohmann/json.hpp>

#include "cli/arguments.h"
#include "cli/commands.h"
#include "cli/ports.h"
#include "core/text.h"
#include "instruments/serial_link.h"
#ifdef SKERROW_PORTS
#include "platform/serial.h"
#endif

namespace skerrow::cli {
namespace {

using std::chrono::milliseconds;
using std::chrono::steady_clock;

constexpr milliseconds kTick{20};
constexpr milliseconds kPatience{5'000};  // for a port to take what it is given

// An empty folder gives ports whose numbers hold for this run.
Result<std::unique_ptr<SerialPorts>> PortsOf([[maybe_unused]] const std::string& settings_folder) {
#ifdef SKERROW_PORTS
  return OpenSerialPorts(settings_folder);
#else
  return Error{"", "this program was built without the desktop and has no ports"};
#endif
}

// The ports with one of them open.
struct OpenSource {
  std::unique_ptr<SerialPorts> ports;
  int port = 0;
};

// A source is named by the number that it has, or by what it is: then it needs none.
Result<OpenSource> OpenOne(const Session& session, const std::string& source, int baud_code) {
  const std::string typed = Trim(source);
  const bool by_number = typed.find_first_not_of("0123456789") == std::string::npos;
  Result<std::unique_ptr<SerialPorts>> ports =
      PortsOf(by_number ? session.program.folders.SettingsData() : "");
  if (!ports) return ports.error();
  OpenSource open{std::move(ports.value()), 0};
  if (by_number) {
    const Result<int> number = ParseWhole(typed, "port", 1, kLastPort + 1);
    if (!number) return number.error();
    (void)open.ports->Sources();
    open.port = *number - 1;
  } else {
    const Result<int> added = open.ports->AddSource(typed);
    if (!added) return added.error();
    open.port = *added;
  }
  if (const Status opened = OpenPort(*open.ports, open.port, baud_code); !opened) {
    return Error{source, opened.error().reason};
  }
  return open;
}

}  // namespace

Outcome ListPorts(Session& session, const NoWords&) {
  const auto ports = PortsOf(session.program.folders.SettingsData());
  if (!ports) return Failed(ports.error());
  Answer answer;
  Json list = Json::array();
  for (const PortSource& source : (*ports)->Sources()) {
    list.push_back({{"number", source.port + 1},
                    {"text", source.text},
                    {"place", source.place},
                    {"present", source.present}});
    answer.text += source.text + (source.present ? "\n" : ", not plugged in\n");
  }
  answer.json() = {{"ports", list}};
  return answer;
}

Outcome Listen(Session& session, const ListenWords& words) {
  const Result<int> seconds = ParseWhole(words.seconds, "seconds", 1, 86400);
  if (!seconds) return WrongUsage(seconds.error());
  const int baud_code = BaudCodeOfRate(words.baud);
  if (baud_code < 0) return Failure{kWrongUsage, "\"" + words.baud + "\" is no speed of a port"};
  const auto open = OpenOne(session, words.source, baud_code);
  if (!open) return Failed(open.error());
  SerialPorts& ports = *open->ports;
  std::string all;
  const steady_clock::time_point end = steady_clock::now() + std::chrono::seconds(*seconds);
  while (steady_clock::now() < end) {
    std::string block;
    const int count = ports.Get(open->port, block, kReceiveBlock);
    if (count < 0) return Failure{kFailed, words.source + ": " + SerialErrorText(count, ports)};
    if (count == 0) {
      std::this_thread::sleep_for(kTick);
    } else if (session.prints_text()) {
      std::fwrite(block.data(), 1, block.size(), stdout);
      std::fflush(stdout);
    } else {
      all += block;
    }
  }
  Answer answer;
  answer.json() = {
      {"source", words.source}, {"received", FromAnsi(all)}, {"lost", ports.Lost(open->port)}};
  return answer;
}

Status SendSteps(Session& session, const std::string& device, int gps_type,
                 std::span<const UploadStep> steps) {
  const auto open = OpenOne(session, device, BaudCodeOfGpsType(std::to_string(gps_type)));
  if (!open) return open.error();
  for (const UploadStep& step : steps) {
    const steady_clock::time_point end = steady_clock::now() + kPatience;
    for (int put = -1; put < 0;) {
      put = open->ports->Put(open->port, step.text);
      if (put < 0 && steady_clock::now() > end) {
        return Error{device, SerialErrorText(put, *open->ports)};
      }
      if (put < 0) std::this_thread::sleep_for(kTick);
    }
    std::this_thread::sleep_for(milliseconds(step.pause_ms));
  }
  return Done{};
}

}  // namespace skerrow::cli
