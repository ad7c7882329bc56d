#include "platform/serial_wires.h"

#include <QEventLoop>
#include <QFileInfo>
#include <QSerialPort>
#include <QTcpSocket>
#include <QTimer>
#include <QUdpSocket>
#include <algorithm>
#include <cctype>
#include <chrono>
#include <poll.h>
#include <utility>

namespace skerrow {
namespace {

using std::chrono::milliseconds;
using std::chrono::steady_clock;

// How long a TCP server is held after it was closed, how long one that answered late waits to be
// asked for again, and how long an answer is waited for.
constexpr milliseconds kHold{1'000};
constexpr milliseconds kHoldLate{15'000};
constexpr milliseconds kConnect{8'000};
// What waits to be sent gets this long when a port is closed.
constexpr milliseconds kDrain{1'000};
// Lines are read as often as the display can show.
constexpr milliseconds kLineInterval{200};
constexpr qint64 kReadAtOnce = 16384;
constexpr qint64 kWriteAtOnce = 512;

bool EndsWithChecksum(const QByteArray& text) {
  const qsizetype n = text.size();
  return n >= 3 && text[n - 3] == '*' && std::isxdigit(static_cast<unsigned char>(text[n - 2])) &&
         std::isxdigit(static_cast<unsigned char>(text[n - 1]));
}

// One port in its thread. Everything but the constructor's arguments lives there.
class QtWire : public QObject, public Wire {
 public:
  explicit QtWire(WireState& state) : state_(state) {
    hold_.setSingleShot(true);
    connect(&hold_, &QTimer::timeout, this, [this] { EndHold(); });
    const std::lock_guard lock(state_.mutex);
    state_.wire = this;
  }

  // Serves the port until it is closed or dies.
  void Run() {
    QTimer::singleShot(0, this, [this] { Open(); });
    loop_.exec();
    const std::lock_guard lock(state_.mutex);
    state_.wire = nullptr;
  }

  bool Later(std::function<void()> work) override {
    return QMetaObject::invokeMethod(this, std::move(work), Qt::QueuedConnection);
  }
  int SetRate(int) override { return kFine; }
  int SetForm() override { return kFine; }
  bool SetOutLine(SerialPorts::OutLine, bool) override { return true; }
  void DropSending() override {}

  void Send() override {
    while (device() != nullptr && device()->bytesToWrite() == 0) {
      QByteArray piece;
      {
        const std::lock_guard lock(state_.mutex);
        piece = QByteArray::fromStdString(state_.sending.substr(0, kWriteAtOnce));
      }
      if (piece.isEmpty()) return;
      const qint64 written = device()->write(piece);
      if (written < 0) return Die(kSystemError, device()->errorString());
      const std::lock_guard lock(state_.mutex);
      state_.sending.erase(0, std::min(state_.sending.size(), static_cast<std::size_t>(written)));
      if (written == 0) return;
    }
  }

  void Release() override { Leave(); }

  void Leave() override {
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
      const std::lock_guard lock(state_.mutex);
      state_.stage = state_.wanted ? WireStage::kOpen : WireStage::kLinger;
    }
    state_.changed.notify_all();
  }

  void Die(int code, const QString& reason) {
    if (dead_) return;
    dead_ = true;
    {
      const std::lock_guard lock(state_.mutex);
      state_.stage = WireStage::kDead;
      state_.code = code;
      state_.reason = reason.toStdString();
    }
    state_.changed.notify_all();
    // Not inside a signal of the device that is closed.
    QTimer::singleShot(0, this, [this] {
      Close();
      loop_.quit();
    });
  }

  void Receive(const QByteArray& bytes) {
    const std::lock_guard lock(state_.mutex);
    if (!state_.wanted) return;
    std::string& received = state_.received;
    received.append(bytes.constData(), static_cast<std::size_t>(bytes.size()));
    if (received.size() > state_.room) {
      const std::size_t over = received.size() - state_.room;
      received.erase(0, over);
      state_.lost += over;
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
    const std::lock_guard lock(state_.mutex);
    return state_.wanted;
  }
  void Hold(milliseconds time) { hold_.start(time); }

  WireState& state_;

 private:
  bool Unsent() {
    if (device()->bytesToWrite() > 0) return true;
    const std::lock_guard lock(state_.mutex);
    return !state_.sending.empty();
  }

  // Closes what was held, unless it is wanted again.
  void EndHold() {
    {
      const std::lock_guard lock(state_.mutex);
      if (state_.wanted) return;
      state_.stage = WireStage::kClosed;
    }
    Leave();
  }

  QEventLoop loop_;
  QTimer hold_{this};
  char last_ = '\0';  // received
  bool dead_ = false;
};

class SerialWire final : public QtWire {
 public:
  SerialWire(WireState& state, const std::string& path)
      // A link is followed, so that two names of a device exclude each other.
      : QtWire(state), path_(QFileInfo(QString::fromStdString(path)).canonicalFilePath()) {
    port_.setPortName(path_);
    port_.setReadBufferSize(static_cast<qint64>(kPortRoom));
    connect(&port_, &QSerialPort::readyRead, this, [this] { ReceiveAll(); });
    connect(&port_, &QSerialPort::bytesWritten, this, [this] { Send(); });
    connect(&port_, &QSerialPort::errorOccurred, this, [this](auto error) { Judge(error); });
    connect(&look_, &QTimer::timeout, this, [this] { Look(); });
  }

  int SetRate(int rate) override { return port_.setBaudRate(rate) ? kFine : kWrongRate; }
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
    Look();
    if (open_) look_.start(kLineInterval);
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
    End(port_.errorString());
  }

  void End(const QString& reason) {
    open_ = false;
    ReceiveRest();
    Die(kSystemError, reason);
  }

  // What came before the end.
  void ReceiveRest() {
    while (port_.bytesAvailable() > 0) Receive(port_.read(kReadAtOnce));
  }

  // A device that is pulled out hangs up. Not every version of the toolkit tells that as an error.
  bool HungUp() {
    pollfd device{port_.handle(), 0, 0};
    return poll(&device, 1, 0) > 0 && (device.revents & (POLLHUP | POLLERR | POLLNVAL)) != 0;
  }

  void Look() {
    if (open_ && HungUp()) End(QStringLiteral("The device has gone"));
    if (!open_ || !has_lines_) return;
    port_.clearError();
    const QSerialPort::PinoutSignals pins = port_.pinoutSignals();
    has_lines_ = port_.error() == QSerialPort::NoError;
    if (!has_lines_) return;
    using P = QSerialPort;
    constexpr std::array<P::PinoutSignal, kLines> kPins = {
        P::DataCarrierDetectSignal, P::DataSetReadySignal,      P::ClearToSendSignal,
        P::RingIndicatorSignal,     P::DataTerminalReadySignal, P::RequestToSendSignal};
    const std::lock_guard lock(state_.mutex);
    for (std::size_t i = 0; i < kLines; ++i) state_.lines[i] = pins.testFlag(kPins[i]);
  }

  QString path_;
  QSerialPort port_{this};
  QTimer look_{this};
  bool open_ = false;
  bool has_lines_ = true;  // until the device says otherwise
};

class TcpWire final : public QtWire {
 public:
  TcpWire(WireState& state, const std::string& place) : QtWire(state) {
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

class UdpWire final : public QtWire {
 public:
  UdpWire(WireState& state, const std::string& place) : QtWire(state) {
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
void Serve(WireState& state, const std::string& place) {
  Kind wire(state, place);
  wire.Run();
}

}  // namespace

bool Post(WireState& state, std::function<void(Wire&)> work) {
  const std::lock_guard lock(state.mutex);
  return state.wire != nullptr &&
         state.wire->Later([wire = state.wire, work = std::move(work)] { work(*wire); });
}

void ServeWire(const std::shared_ptr<WireState>& state, PortKind kind, const std::string& place) {
  switch (kind) {
    case PortKind::kTcp:
      Serve<TcpWire>(*state, place);
      break;
    case PortKind::kUdp:
      Serve<UdpWire>(*state, place);
      break;
    case PortKind::kDevice:
    case PortKind::kPath:
      Serve<SerialWire>(*state, place);
      break;
  }
  const std::lock_guard lock(state->mutex);
  if (state->stage != WireStage::kDead) state->stage = WireStage::kClosed;
  state->changed.notify_all();
}

}  // namespace skerrow
