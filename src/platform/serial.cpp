#include "platform/serial.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QSerialPortInfo>
#include <QThread>
#include <algorithm>
#include <array>
#include <chrono>
#include <map>
#include <optional>
#include <set>
#include <utility>

#include "core/files.h"
#include "platform/port_numbers.h"
#include "platform/serial_wires.h"

namespace skerrow {
namespace {

using std::chrono::milliseconds;
using std::chrono::steady_clock;

constexpr std::array<int, 10> kRates = {110,  300,   1200,  2400,  4800,
                                        9600, 19200, 38400, 57600, 115200};

constexpr milliseconds kAnswer{kLongestWait};
// The same for a place that has been silent before, which no frame of a display shows.
constexpr milliseconds kShortAnswer{50};
// All ports have this long at the end of the program.
constexpr milliseconds kFarewell{2'000};
// Devices are looked for at most as often as this.
constexpr milliseconds kLookAgain{1'000};
constexpr const char* kNoAnswer = "The port has not answered yet";

// A port that is open, or that its thread has not done with.
struct OpenedPort {
  NumberedPort where;
  std::shared_ptr<WireState> shared;
  std::unique_ptr<QThread> thread;

  // Waits for the thread to end, no longer than `time`.
  bool Ended(milliseconds time) const {
    return thread->wait(static_cast<unsigned long>(std::max<std::int64_t>(time.count(), 0)));
  }
};

class QtSerialPorts final : public SerialPorts {
 public:
  QtSerialPorts(const std::string& settings_folder, std::vector<std::string> devices)
      : numbers_(settings_folder.empty() ? "" : JoinPath(settings_folder, kPortNumbersFile)),
        devices_(std::move(devices)) {
    if (QCoreApplication::instance() == nullptr) {
      // The command line has none, and the threads' loops need it.
      static int count = 1;
      static char name[] = "skerrow";
      static char* names[] = {name, nullptr};
      application_ = std::make_unique<QCoreApplication>(count, names);
    }
    const QString named = qEnvironmentVariable("SKERROW_PORTS");
    for (const QString& path : named.split(QLatin1Char(':'), Qt::SkipEmptyParts)) {
      devices_.push_back(path.toStdString());
    }
  }

  QtSerialPorts(const QtSerialPorts&) = delete;
  QtSerialPorts& operator=(const QtSerialPorts&) = delete;

  ~QtSerialPorts() override {
    while (!open_.empty()) Done(open_.begin()->first);
    for (const OpenedPort& port : closing_) Close(*port.shared);
    const steady_clock::time_point end = steady_clock::now() + kFarewell;
    for (OpenedPort& port : closing_) {
      const auto left = std::chrono::duration_cast<milliseconds>(end - steady_clock::now());
      // A thread that a device holds is left to the end of the process.
      if (!port.Ended(left)) (void)port.thread.release();
    }
  }

  int Reset(int port, std::size_t receive_size, std::size_t transmit_size) override {
    Done(port);
    const NumberedPort* where = Where(port);
    if (where == nullptr) return kNoSuchPort;
    if (!where->present) return kNotPresent;
    milliseconds wait = kAnswer;
    OpenedPort opened = TakeUp(*where, wait);
    if (opened.thread == nullptr) {
      last_error_ = kNoAnswer;
      return kSystemError;
    }
    WireState& shared = *opened.shared;
    std::unique_lock lock(shared.mutex);
    shared.room = std::max(receive_size, kPortRoom);
    shared.sending_room = transmit_size;
    shared.changed.wait_for(lock, wait, [&] { return shared.stage != WireStage::kOpening; });
    const int code = shared.stage == WireStage::kOpen      ? kFine
                     : shared.stage == WireStage::kOpening ? kSystemError
                                                           : shared.code;
    if (code == kFine) {
      lock.unlock();
      silent_.erase(SourcePlace(*where));
      open_.emplace(port, std::move(opened));
      return kFine;
    }
    last_error_ = shared.stage == WireStage::kOpening ? kNoAnswer : shared.reason;
    if (shared.stage == WireStage::kOpening) silent_.insert(SourcePlace(*where));
    shared.wanted = false;
    lock.unlock();
    (void)Post(shared, [](Wire& wire) { wire.Release(); });
    closing_.push_back(std::move(opened));
    return code;
  }

  int SetBaud(int port, int baud_code) override {
    if (baud_code < 0 || baud_code >= static_cast<int>(kRates.size())) return kWrongRate;
    const int rate = kRates[static_cast<std::size_t>(baud_code)];
    return Ask(port, [rate](Wire& wire) { return wire.SetRate(rate); });
  }

  int SetParameters(int port) override {
    return Ask(port, [](Wire& wire) { return wire.SetForm(); });
  }

  int SetLine(int port, OutLine line, bool raised) override {
    // A device without the line is as good.
    return Ask(port, [line, raised](Wire& wire) {
      (void)wire.SetOutLine(line, raised);
      return kFine;
    });
  }

  int ReadLine(int port, InLine line) override {
    return LineState(port, static_cast<std::size_t>(line));
  }

  int ReadOutLine(int port, OutLine line) override {
    return LineState(port, kFirstOutLine + static_cast<std::size_t>(line));
  }

  int Get(int port, std::string& received, std::size_t most) override {
    received.clear();
    OpenedPort* opened = Find(port);
    if (opened == nullptr) return NotOpen(port);
    WireState& shared = *opened->shared;
    const std::lock_guard lock(shared.mutex);
    if (shared.received.empty() && shared.stage != WireStage::kOpen) {
      last_error_ = shared.reason;
      return kSystemError;
    }
    received = shared.received.substr(0, most);
    shared.received.erase(0, most);
    return static_cast<int>(received.size());
  }

  int Put(int port, std::string_view bytes) override {
    OpenedPort* opened = Find(port);
    if (opened == nullptr) return NotOpen(port);
    if (opened->where.kind == PortKind::kUdp) {
      last_error_ = "A UDP source can only be listened to";
      return kSystemError;
    }
    WireState& shared = *opened->shared;
    {
      const std::lock_guard lock(shared.mutex);
      if (shared.stage != WireStage::kOpen) {
        last_error_ = shared.reason;
        return kSystemError;
      }
      if (shared.sending.size() + bytes.size() > shared.sending_room) return kNoRoom;
      shared.sending += bytes;
    }
    (void)Post(shared, [](Wire& wire) { wire.Send(); });
    return kFine;
  }

  int ClearReceived(int port) override {
    OpenedPort* opened = Find(port);
    if (opened == nullptr) return NotOpen(port);
    const std::lock_guard lock(opened->shared->mutex);
    opened->shared->received.clear();
    return kFine;
  }

  int ClearSending(int port) override {
    OpenedPort* opened = Find(port);
    if (opened == nullptr) return NotOpen(port);
    WireState& shared = *opened->shared;
    {
      const std::lock_guard lock(shared.mutex);
      shared.sending.clear();
    }
    (void)Post(shared, [](Wire& wire) { wire.DropSending(); });
    return kFine;
  }

  void Done(int port) override {
    Reap();
    const auto found = open_.find(port);
    if (found == open_.end()) return;
    WireState& shared = *found->second.shared;
    {
      const std::lock_guard lock(shared.mutex);
      shared.wanted = false;
      shared.received.clear();
      if (shared.stage == WireStage::kOpen) shared.stage = WireStage::kLinger;
    }
    (void)Post(shared, [](Wire& wire) { wire.Release(); });
    closing_.push_back(std::move(found->second));
    open_.erase(found);
  }

  std::string LastErrorText() const override { return last_error_; }

  std::vector<PortSource> Sources() override {
    Look(true);
    std::vector<PortSource> sources;
    for (const NumberedPort& port : numbers_.ports()) {
      sources.push_back({port.number - 1, SourceText(port), SourcePlace(port), port.present,
                         port.kind != PortKind::kDevice});
    }
    return sources;
  }

  Result<int> AddSource(std::string_view text) override {
    const Result<NumberedPort> source = ParseSource(text);
    if (!source) return source.error();
    Look(false);
    const Result<int> number = numbers_.Add(*source);
    if (!number) return number.error();
    return *number - 1;
  }

  Status RemoveSource(int port) override {
    Done(port);
    return numbers_.Remove(port + 1);
  }

  std::size_t Lost(int port) const override {
    const auto found = open_.find(port);
    if (found == open_.end()) return 0;
    const std::lock_guard lock(found->second.shared->mutex);
    return found->second.shared->lost;
  }

 private:
  // Closes without holding a server.
  static void Close(WireState& shared) {
    (void)Post(shared, [](Wire& wire) { wire.Leave(); });
  }

  OpenedPort* Find(int port) {
    const auto found = open_.find(port);
    return found == open_.end() ? nullptr : &found->second;
  }

  int NotOpen(int port) const {
    return numbers_.Find(port + 1) == nullptr ? kNoSuchPort : kNotOpen;
  }

  // Where a port is now, after a look at the devices where it may have been plugged in or out.
  const NumberedPort* Where(int port) {
    Look(false);
    return numbers_.Find(port + 1);
  }

  void Look(bool now) {
    const steady_clock::time_point time = steady_clock::now();
    if (!now && looked_at_ && time - *looked_at_ < kLookAgain) return;
    looked_at_ = time;
    std::vector<SeenDevice> seen;
    for (const QSerialPortInfo& info : QSerialPortInfo::availablePorts()) {
      const QString name = info.description().isEmpty() ? info.manufacturer() : info.description();
      const QString identity = info.hasVendorIdentifier() && info.hasProductIdentifier()
                                   ? QStringLiteral("usb:%1:%2:%3")
                                         .arg(info.vendorIdentifier(), 4, 16, QLatin1Char('0'))
                                         .arg(info.productIdentifier(), 4, 16, QLatin1Char('0'))
                                         .arg(info.serialNumber())
                                   : QStringLiteral("name:") + info.portName();
      seen.push_back(
          {info.systemLocation().toStdString(), identity.toStdString(), name.toStdString()});
    }
    for (const std::string& path : devices_) {
      if (QFileInfo::exists(QString::fromStdString(path)))
        seen.push_back({path, "path:" + path, ""});
    }
    std::sort(seen.begin(), seen.end(),
              [](const SeenDevice& a, const SeenDevice& b) { return a.path < b.path; });
    (void)numbers_.Match(seen);  // Unwritten numbers hold for this run.
  }

  // The open port of a place: one that was closed just now and still stands, or a fresh one.
  // Without a thread when its thread has not done with it. `wait` becomes the longest that the
  // caller is to wait for it: hardly at all where it was silent the last time, so that a server
  // that is away holds up nobody each time it is tried.
  OpenedPort TakeUp(const NumberedPort& where, milliseconds& wait) {
    // One UDP port on all addresses and on one of them are the same to the system.
    const auto number = [](const NumberedPort& port) {
      return port.place.substr(port.place.rfind(':') + 1);
    };
    const auto excludes = [&](const NumberedPort& a) {
      if (a.kind != where.kind) return false;
      return a.kind == PortKind::kUdp ? number(a) == number(where) : a.place == where.place;
    };
    if (silent_.count(SourcePlace(where)) != 0) wait = kShortAnswer;
    Reap();
    for (auto at = closing_.begin(); at != closing_.end(); ++at) {
      if (!excludes(at->where)) continue;
      if (where.kind == PortKind::kTcp && WantAgain(*at->shared)) {
        OpenedPort again = std::move(*at);
        closing_.erase(at);
        return again;
      }
      Close(*at->shared);
      if (!at->Ended(wait)) return {};
      closing_.erase(at);
      break;
    }
    return Start(where);
  }

  // True when the connection still stands, or may come; it is wanted then.
  static bool WantAgain(WireState& shared) {
    const std::lock_guard lock(shared.mutex);
    if (shared.wire == nullptr ||
        (shared.stage != WireStage::kLinger && shared.stage != WireStage::kOpening)) {
      return false;
    }
    if (shared.stage == WireStage::kLinger) shared.stage = WireStage::kOpen;
    shared.wanted = true;
    shared.lost = 0;
    return true;
  }

  static OpenedPort Start(const NumberedPort& where) {
    auto shared = std::make_shared<WireState>();
    OpenedPort opened{where, shared, std::unique_ptr<QThread>(QThread::create([shared, where] {
                        ServeWire(shared, where.kind, where.place);
                      }))};
    opened.thread->start();
    return opened;
  }

  // Forgets the ports whose threads have ended.
  void Reap() {
    std::erase_if(closing_, [](const OpenedPort& port) { return port.thread->isFinished(); });
  }

  // Runs `work` in the thread of a port and gives its result, or that of a port that has not
  // answered in time.
  int Ask(int port, std::function<int(Wire&)> work) {
    OpenedPort* opened = Find(port);
    if (opened == nullptr) return NotOpen(port);
    struct Answer {
      std::mutex mutex;
      std::condition_variable given;
      std::optional<int> code;
    };
    auto answer = std::make_shared<Answer>();
    const bool posted = Post(*opened->shared, [answer, work = std::move(work)](Wire& wire) {
      const int code = work(wire);
      const std::lock_guard lock(answer->mutex);
      answer->code = code;
      answer->given.notify_all();
    });
    if (!posted) return kSystemError;
    std::unique_lock lock(answer->mutex);
    answer->given.wait_for(lock, kAnswer, [&] { return answer->code.has_value(); });
    if (answer->code) return *answer->code;
    last_error_ = kNoAnswer;
    return kSystemError;
  }

  int LineState(int port, std::size_t line) {
    OpenedPort* opened = Find(port);
    if (opened == nullptr) return NotOpen(port);
    const std::lock_guard lock(opened->shared->mutex);
    return opened->shared->lines[line] ? 1 : 0;
  }

  std::unique_ptr<QCoreApplication> application_;
  PortNumbers numbers_;
  std::vector<std::string> devices_;
  std::optional<steady_clock::time_point> looked_at_;
  std::map<int, OpenedPort> open_;
  std::vector<OpenedPort> closing_;
  std::set<std::string> silent_;  // places that did not answer the last time
  std::string last_error_;
};

}  // namespace

std::unique_ptr<SerialPorts> OpenSerialPorts(const std::string& settings_folder,
                                             const std::vector<std::string>& devices) {
  return std::make_unique<QtSerialPorts>(settings_folder, devices);
}

}  // namespace skerrow
