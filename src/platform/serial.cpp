#include "platform/serial.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QFileInfo>
#include <QSerialPort>
#include <QSerialPortInfo>
#include <QTcpSocket>
#include <QThread>
#include <QTimer>
#include <QUdpSocket>
#include <algorithm>
#include <array>
#include <cctype>
#include <chrono>
#include <condition_variable>
#include <functional>
#include <map>
#include <mutex>
#include <optional>
#include <set>
#include <utility>

#include "core/files.h"
#include "platform/port_numbers.h"

namespace skerrow {
namespace {

using std::chrono::milliseconds;
using std::chrono::steady_clock;

constexpr std::array<qint32, 10> kRates = {110,  300,   1200,  2400,  4800,
                                           9600, 19200, 38400, 57600, 115200};

// Results of the calls.
constexpr int kFine = 0;
constexpr int kNoSuchPort = -1;
constexpr int kInUse = -2;
constexpr int kNotOpen = -3;
constexpr int kNotPresent = -10;
constexpr int kWrongRate = -12;
constexpr int kSystemError = -103;
constexpr int kNoRoom = -105;

constexpr milliseconds kAnswer{kLongestWait};
// The same for a place that has been silent before, which no frame of a display shows.
constexpr milliseconds kShortAnswer{50};
// How long a TCP server is held after it was closed, how long one that answered late waits to be
// asked for again, and how long an answer is waited for.
constexpr milliseconds kHold{1'000};
constexpr milliseconds kHoldLate{15'000};
constexpr milliseconds kConnect{8'000};
// What waits to be sent gets this long when a port is closed.
constexpr milliseconds kDrain{1'000};
// The whole of it at the end of the program.
constexpr milliseconds kFarewell{2'000};
// Lines are read as often as the display can show.
constexpr milliseconds kLineInterval{200};
// Devices are looked for at most as often as this.
constexpr milliseconds kLookAgain{1'000};
constexpr qint64 kReadAtOnce = 16384;
constexpr qint64 kWriteAtOnce = 512;
constexpr const char* kNoAnswer = "The port has not answered yet";
constexpr int kLines = 6;  // DCD, DSR, CTS, RI, DTR, RTS
constexpr int kFirstOutLine = 4;

// kLinger: nobody wants the port any more, but the connection still stands.
enum class Stage { kOpening, kOpen, kLinger, kDead, kClosed };

// What the calls and the thread of a port share. Guarded by `mutex`.
struct Shared {
  std::mutex mutex;
  std::condition_variable changed;
  Stage stage = Stage::kOpening;
  bool wanted = true;  // the port has not been closed by a call
  int code = kFine;    // of a port that is dead
  std::string reason;
  std::string received;
  std::size_t room = kPortRoom;
  std::size_t lost = 0;
  std::string sending;
  std::size_t sending_room = 0;
  std::array<bool, kLines> lines{};
  // Takes requests in the thread; null before it is ready and after its end.
  QObject* door = nullptr;
};

// Runs `work` in the thread of a port, later. False when there is none.
bool Post(Shared& shared, std::function<void()> work) {
  const std::lock_guard lock(shared.mutex);
  return shared.door != nullptr &&
         QMetaObject::invokeMethod(shared.door, std::move(work), Qt::QueuedConnection);
}

bool EndsWithChecksum(const QByteArray& text) {
  const qsizetype n = text.size();
  return n >= 3 && text[n - 3] == '*' && std::isxdigit(static_cast<unsigned char>(text[n - 2])) &&
         std::isxdigit(static_cast<unsigned char>(text[n - 1]));
}

// One port in its thread. Everything but the constructor's arguments lives there.
class Wire : public QObject {
 public:
  explicit Wire(Shared& shared) : shared_(shared) {
    hold_.setSingleShot(true);
    connect(&hold_, &QTimer::timeout, this, [this] { EndHold(); });
    const std::lock_guard lock(shared_.mutex);
    shared_.door = this;
  }

  // Serves the port until it is closed or dies.
  void Run() {
    QTimer::singleShot(0, this, [this] { Open(); });
    loop_.exec();
    const std::lock_guard lock(shared_.mutex);
    shared_.door = nullptr;
  }

  virtual int SetRate(qint32) { return kFine; }
  virtual int SetForm() { return kFine; }
  virtual bool SetOutLine(SerialPorts::OutLine, bool) { return true; }
  virtual void DropSending() {}

  // Sends what waits, a piece at a time.
  void Send() {
    while (device() != nullptr && device()->bytesToWrite() == 0) {
      QByteArray piece;
      {
        const std::lock_guard lock(shared_.mutex);
        piece = QByteArray::fromStdString(shared_.sending.substr(0, kWriteAtOnce));
      }
      if (piece.isEmpty()) return;
      const qint64 written = device()->write(piece);
      if (written < 0) return Die(kSystemError, device()->errorString());
      const std::lock_guard lock(shared_.mutex);
      shared_.sending.erase(0, std::min(shared_.sending.size(), static_cast<std::size_t>(written)));
      if (written == 0) return;
    }
  }

  // Nobody wants the port any more.
  virtual void Release() { Leave(); }

  // Closes the port at once.
  void Leave() {
    if (device() != nullptr && device()->isOpen()) {
      const steady_clock::time_point end = steady_clock::now() + kDrain;
      while (Unsent() && steady_clock::now() < end) {
        Send();
        if (!device()->waitForBytesWritten(static_cast<int>(kDrain.count()))) break;
      }
    }
    Close();
    loop_.quit();
  }

 protected:
  virtual void Open() = 0;
  virtual void Close() = 0;
  virtual QIODevice* device() = 0;

  void Opened() {
    {
      const std::lock_guard lock(shared_.mutex);
      shared_.stage = shared_.wanted ? Stage::kOpen : Stage::kLinger;
    }
    shared_.changed.notify_all();
  }

  void Die(int code, const QString& reason) {
    if (dead_) return;
    dead_ = true;
    {
      const std::lock_guard lock(shared_.mutex);
      shared_.stage = Stage::kDead;
      shared_.code = code;
      shared_.reason = reason.toStdString();
    }
    shared_.changed.notify_all();
    // Not inside a signal of the device that is closed.
    QTimer::singleShot(0, this, [this] {
      Close();
      loop_.quit();
    });
  }

  void Receive(const QByteArray& bytes) {
    const std::lock_guard lock(shared_.mutex);
    if (!shared_.wanted) return;
    std::string& received = shared_.received;
    received.append(bytes.constData(), static_cast<std::size_t>(bytes.size()));
    if (received.size() > shared_.room) {
      const std::size_t over = received.size() - shared_.room;
      received.erase(0, over);
      shared_.lost += over;
    }
  }

  // The same of a program on the network, which may end its lines with LF alone; sentences end with
  // CR.
  void ReceiveLines(const QByteArray& bytes) {
    QByteArray lines;
    lines.reserve(bytes.size() + bytes.size() / 16);
    for (const char c : bytes) {
      if (c == '\n' && last_ != '\r') lines += '\r';
      lines += c;
      last_ = c;
    }
    Receive(lines);
  }

  virtual void Take(const QByteArray& bytes) { Receive(bytes); }

  void ReceiveAll() {
    // What is left over calls again.
    if (device()->isOpen()) Take(device()->read(kReadAtOnce));
    if (device()->isOpen() && device()->bytesAvailable() > 0) {
      QTimer::singleShot(0, this, [this] {
        if (device()->bytesAvailable() > 0) ReceiveAll();
      });
    }
  }

  bool wanted() {
    const std::lock_guard lock(shared_.mutex);
    return shared_.wanted;
  }
  void Hold(milliseconds time) { hold_.start(time); }

  Shared& shared_;

 private:
  bool Unsent() {
    if (device()->bytesToWrite() > 0) return true;
    const std::lock_guard lock(shared_.mutex);
    return !shared_.sending.empty();
  }

  // Closes what was held, unless it is wanted again.
  void EndHold() {
    {
      const std::lock_guard lock(shared_.mutex);
      if (shared_.wanted) return;
      shared_.stage = Stage::kClosed;
    }
    Leave();
  }

  QEventLoop loop_;
  QTimer hold_{this};
  char last_ = '\0';  // received
  bool dead_ = false;
};

class SerialWire final : public Wire {
 public:
  SerialWire(Shared& shared, const std::string& path)
      // A link is followed, so that two names of a device exclude each other.
      : Wire(shared), path_(QFileInfo(QString::fromStdString(path)).canonicalFilePath()) {
    port_.setPortName(path_);
    port_.setReadBufferSize(static_cast<qint64>(kPortRoom));
    connect(&port_, &QSerialPort::readyRead, this, [this] { ReceiveAll(); });
    connect(&port_, &QSerialPort::bytesWritten, this, [this] { Send(); });
    connect(&port_, &QSerialPort::errorOccurred, this, [this](auto error) { Judge(error); });
    connect(&look_, &QTimer::timeout, this, [this] { LookAtLines(); });
  }

  int SetRate(qint32 rate) override { return port_.setBaudRate(rate) ? kFine : kWrongRate; }
  int SetForm() override {
    const bool set =
        port_.setDataBits(QSerialPort::Data8) && port_.setParity(QSerialPort::NoParity) &&
        port_.setStopBits(QSerialPort::OneStop) && port_.setFlowControl(QSerialPort::NoFlowControl);
    return set ? kFine : kSystemError;
  }
  bool SetOutLine(SerialPorts::OutLine line, bool raised) override {
    return line == SerialPorts::OutLine::kDtr ? port_.setDataTerminalReady(raised)
                                              : port_.setRequestToSend(raised);
  }
  void DropSending() override { port_.clear(QSerialPort::Output); }

 protected:
  void Open() override {
    if (path_.isEmpty()) return Die(kNotPresent, {});
    if (!port_.open(QIODevice::ReadWrite)) {
      const QSerialPort::SerialPortError error = port_.error();
      const QFileInfo file(path_);
      // Refused though its rights would do: another program holds it.
      const bool held =
          error == QSerialPort::PermissionError && file.isReadable() && file.isWritable();
      return Die(held                                        ? kInUse
                 : error == QSerialPort::DeviceNotFoundError ? kNotPresent
                                                             : kSystemError,
                 port_.errorString());
    }
    open_ = true;
    Opened();
    LookAtLines();
  }
  void Close() override {
    look_.stop();
    open_ = false;
    port_.close();
  }
  QIODevice* device() override { return &port_; }

 private:
  void Judge(QSerialPort::SerialPortError error) {
    // Others come of lines that a device does not have.
    if (!open_ || (error != QSerialPort::ResourceError && error != QSerialPort::ReadError &&
                   error != QSerialPort::WriteError)) {
      return;
    }
    open_ = false;
    ReceiveRest();
    Die(kSystemError, port_.errorString());
  }

  // What came before the end.
  void ReceiveRest() {
    while (port_.bytesAvailable() > 0) Receive(port_.read(kReadAtOnce));
  }

  void LookAtLines() {
    if (!open_) return;
    port_.clearError();
    const QSerialPort::PinoutSignals pins = port_.pinoutSignals();
    if (port_.error() != QSerialPort::NoError) return;  // a device without lines
    using P = QSerialPort;
    constexpr std::array<P::PinoutSignal, kLines> kPins = {
        P::DataCarrierDetectSignal, P::DataSetReadySignal,      P::ClearToSendSignal,
        P::RingIndicatorSignal,     P::DataTerminalReadySignal, P::RequestToSendSignal};
    {
      const std::lock_guard lock(shared_.mutex);
      for (std::size_t i = 0; i < kLines; ++i) shared_.lines[i] = pins.testFlag(kPins[i]);
    }
    look_.start(kLineInterval);
  }

  QString path_;
  QSerialPort port_{this};
  QTimer look_{this};
  bool open_ = false;
};

class TcpWire final : public Wire {
 public:
  TcpWire(Shared& shared, const std::string& place) : Wire(shared) {
    const std::size_t colon = place.rfind(':');
    std::string host = place.substr(0, colon);
    if (host.size() > 2 && host.front() == '[' && host.back() == ']') {
      host = host.substr(1, host.size() - 2);
    }
    host_ = QString::fromStdString(host);
    port_ = static_cast<quint16>(std::stoi(place.substr(colon + 1)));
    socket_.setReadBufferSize(static_cast<qint64>(kPortRoom));
    connect(&socket_, &QTcpSocket::connected, this, [this] {
      patience_.stop();
      socket_.setSocketOption(QAbstractSocket::KeepAliveOption, 1);
      Opened();
      if (!wanted()) Hold(kHoldLate);
    });
    connect(&socket_, &QTcpSocket::readyRead, this, [this] { ReceiveAll(); });
    connect(&socket_, &QTcpSocket::bytesWritten, this, [this] { Send(); });
    connect(&socket_, &QTcpSocket::errorOccurred, this, [this] {
      while (socket_.bytesAvailable() > 0) Take(socket_.read(kReadAtOnce));
      Die(kSystemError, socket_.errorString());
    });
    patience_.setSingleShot(true);
    connect(&patience_, &QTimer::timeout, this,
            [this] { Die(kSystemError, QStringLiteral("The server does not answer")); });
  }

  void Release() override {
    if (socket_.state() == QAbstractSocket::ConnectedState) Hold(kHold);
    // One that is still being connected may be wanted again by the time it answers.
  }

 protected:
  void Open() override {
    socket_.connectToHost(host_, port_);
    patience_.start(kConnect);
  }
  void Close() override {
    patience_.stop();
    socket_.disconnect(this);
    socket_.abort();
  }
  void Take(const QByteArray& bytes) override { ReceiveLines(bytes); }
  QIODevice* device() override { return &socket_; }

 private:
  QString host_;
  quint16 port_ = 0;
  QTcpSocket socket_{this};
  QTimer patience_{this};
};

class UdpWire final : public Wire {
 public:
  UdpWire(Shared& shared, const std::string& place) : Wire(shared) {
    const std::size_t colon = place.rfind(':');
    if (colon != std::string::npos) {
      std::string host = place.substr(0, colon);
      if (host.front() == '[' && host.back() == ']') host = host.substr(1, host.size() - 2);
      address_ = QHostAddress(QString::fromStdString(host));
    }
    port_ =
        static_cast<quint16>(std::stoi(place.substr(colon == std::string::npos ? 0 : colon + 1)));
    connect(&socket_, &QUdpSocket::readyRead, this, [this] { ReceiveDatagrams(); });
    connect(&socket_, &QUdpSocket::errorOccurred, this, [this](auto error) {
      if (error == QAbstractSocket::SocketResourceError) Die(kSystemError, socket_.errorString());
    });
  }

 protected:
  void Open() override {
    if (address_.isNull()) return Die(kNoSuchPort, {});
    const bool group = address_.isMulticast();
    const QHostAddress own(group ? QHostAddress::AnyIPv4 : address_);
    if (!socket_.bind(own, port_, QAbstractSocket::DontShareAddress) ||
        (group && !socket_.joinMulticastGroup(address_))) {
      const bool held = socket_.error() == QAbstractSocket::AddressInUseError;
      return Die(held ? kInUse : kSystemError, socket_.errorString());
    }
    Opened();
  }
  void Close() override { socket_.close(); }
  QIODevice* device() override { return nullptr; }

 private:
  void ReceiveDatagrams() {
    while (socket_.hasPendingDatagrams()) {
      QByteArray datagram(std::max<qint64>(socket_.pendingDatagramSize(), 0), '\0');
      const qint64 size = socket_.readDatagram(datagram.data(), datagram.size());
      if (size <= 0) continue;
      datagram.truncate(size);
      // A datagram has whole sentences; some senders leave the end of the last one away.
      if (EndsWithChecksum(datagram)) datagram += "\r\n";
      ReceiveLines(datagram);
    }
  }

  QHostAddress address_{QHostAddress::AnyIPv4};
  quint16 port_ = 0;
  QUdpSocket socket_{this};
};

// Runs `Kind` of wire to its end.
template <typename Kind>
void Serve(const std::shared_ptr<Shared>& shared, const std::string& place) {
  {
    Kind wire(*shared, place);
    wire.Run();
  }
  const std::lock_guard lock(shared->mutex);
  if (shared->stage != Stage::kDead) shared->stage = Stage::kClosed;
  shared->changed.notify_all();
}

// A port that is open, or that its thread has not done with.
struct OpenedPort {
  NumberedPort where;
  std::shared_ptr<Shared> shared;
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
    Shared& shared = *opened.shared;
    std::unique_lock lock(shared.mutex);
    shared.room = std::max(receive_size, kPortRoom);
    shared.sending_room = transmit_size;
    shared.changed.wait_for(lock, wait, [&] { return shared.stage != Stage::kOpening; });
    const int code = shared.stage == Stage::kOpen      ? kFine
                     : shared.stage == Stage::kOpening ? kSystemError
                                                       : shared.code;
    if (code == kFine) {
      lock.unlock();
      silent_.erase(SourcePlace(*where));
      open_.emplace(port, std::move(opened));
      return kFine;
    }
    last_error_ = shared.stage == Stage::kOpening ? kNoAnswer : shared.reason;
    if (shared.stage == Stage::kOpening) silent_.insert(SourcePlace(*where));
    shared.wanted = false;
    lock.unlock();
    (void)Post(shared, ReleaseOf(shared));
    closing_.push_back(std::move(opened));
    return code;
  }

  int SetBaud(int port, int baud_code) override {
    if (baud_code < 0 || baud_code >= static_cast<int>(kRates.size())) return kWrongRate;
    const qint32 rate = kRates[static_cast<std::size_t>(baud_code)];
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
    Shared& shared = *opened->shared;
    const std::lock_guard lock(shared.mutex);
    if (shared.received.empty() && shared.stage != Stage::kOpen) {
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
    Shared& shared = *opened->shared;
    {
      const std::lock_guard lock(shared.mutex);
      if (shared.stage != Stage::kOpen) {
        last_error_ = shared.reason;
        return kSystemError;
      }
      if (shared.sending.size() + bytes.size() > shared.sending_room) return kNoRoom;
      shared.sending += bytes;
    }
    (void)Post(shared, [&shared] { static_cast<Wire*>(shared.door)->Send(); });
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
    Shared& shared = *opened->shared;
    {
      const std::lock_guard lock(shared.mutex);
      shared.sending.clear();
    }
    (void)Post(shared, [&shared] { static_cast<Wire*>(shared.door)->DropSending(); });
    return kFine;
  }

  void Done(int port) override {
    Reap();
    const auto found = open_.find(port);
    if (found == open_.end()) return;
    Shared& shared = *found->second.shared;
    {
      const std::lock_guard lock(shared.mutex);
      shared.wanted = false;
      shared.received.clear();
      if (shared.stage == Stage::kOpen) shared.stage = Stage::kLinger;
    }
    (void)Post(shared, ReleaseOf(shared));
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
  static std::function<void()> ReleaseOf(Shared& shared) {
    return [&shared] { static_cast<Wire*>(shared.door)->Release(); };
  }

  // Closes without holding a server.
  static void Close(Shared& shared) {
    (void)Post(shared, [&shared] { static_cast<Wire*>(shared.door)->Leave(); });
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
  static bool WantAgain(Shared& shared) {
    const std::lock_guard lock(shared.mutex);
    if (shared.door == nullptr ||
        (shared.stage != Stage::kLinger && shared.stage != Stage::kOpening)) {
      return false;
    }
    if (shared.stage == Stage::kLinger) shared.stage = Stage::kOpen;
    shared.wanted = true;
    shared.lost = 0;
    return true;
  }

  static OpenedPort Start(const NumberedPort& where) {
    auto shared = std::make_shared<Shared>();
    const std::string place = where.place;
    const auto serve = where.kind == PortKind::kTcp   ? Serve<TcpWire>
                       : where.kind == PortKind::kUdp ? Serve<UdpWire>
                                                      : Serve<SerialWire>;
    OpenedPort opened{where, shared,
                      std::unique_ptr<QThread>(
                          QThread::create([serve, shared, place] { serve(shared, place); }))};
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
    Shared& shared = *opened->shared;
    const bool posted = Post(shared, [&shared, answer, work = std::move(work)] {
      const int code = work(*static_cast<Wire*>(shared.door));
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
