#pragma once

#include <algorithm>
#include <arpa/inet.h>
#include <chrono>
#include <fcntl.h>
#include <filesystem>
#include <netinet/in.h>
#include <poll.h>
#include <pty.h>
#include <stdexcept>
#include <string>
#include <string_view>
#include <sys/socket.h>
#include <termios.h>
#include <thread>
#include <unistd.h>

// The other ends of the ports: pseudo-terminals and network servers on this computer.
namespace skerrow::testing {

// Waits until `done`, at most `limit`; whether it came to be.
template <typename Done>
bool WaitUntil(Done done, std::chrono::milliseconds limit = std::chrono::seconds(5)) {
  const auto end = std::chrono::steady_clock::now() + limit;
  while (!done()) {
    if (std::chrono::steady_clock::now() > end) return false;
    std::this_thread::sleep_for(std::chrono::milliseconds(2));
  }
  return true;
}

// What can be read from a descriptor within `limit`, until it has `most` bytes.
inline std::string ReadFrom(int descriptor, std::size_t most,
                            std::chrono::milliseconds limit = std::chrono::seconds(3)) {
  std::string text;
  const auto end = std::chrono::steady_clock::now() + limit;
  while (text.size() < most && std::chrono::steady_clock::now() < end) {
    pollfd wait{descriptor, POLLIN, 0};
    if (poll(&wait, 1, 20) <= 0) continue;
    char buffer[4096];
    const ssize_t got = read(descriptor, buffer, std::min(sizeof buffer, most - text.size()));
    if (got == 0) break;
    if (got > 0) text.append(buffer, static_cast<std::size_t>(got));
  }
  return text;
}

inline void WriteTo(int descriptor, std::string_view text) {
  while (!text.empty()) {
    const ssize_t written = write(descriptor, text.data(), text.size());
    if (written <= 0) throw std::runtime_error("the other end takes nothing");
    text.remove_prefix(static_cast<std::size_t>(written));
  }
}

// A serial device under a name of the test's; the test holds the instrument's end.
class PseudoTerminal {
 public:
  // `link` becomes a link to the device, whose own name is another each time.
  explicit PseudoTerminal(std::string link) : link_(std::move(link)) {
    termios raw{};
    cfmakeraw(&raw);
    int slave = -1;
    char name[64];
    if (openpty(&master_, &slave, name, &raw, nullptr) != 0) {
      throw std::runtime_error("no pseudo-terminal");
    }
    close(slave);
    std::filesystem::remove(link_);
    std::filesystem::create_symlink(name, link_);
  }
  ~PseudoTerminal() { Pull(); }
  PseudoTerminal(const PseudoTerminal&) = delete;
  PseudoTerminal& operator=(const PseudoTerminal&) = delete;

  const std::string& path() const { return link_; }
  int master() const { return master_; }
  void Write(std::string_view text) const { WriteTo(master_, text); }
  std::string Read(std::size_t most) const { return ReadFrom(master_, most); }

  // Pulls the plug.
  void Pull() {
    if (master_ < 0) return;
    close(master_);
    master_ = -1;
    std::filesystem::remove(link_);
  }

 private:
  std::string link_;
  int master_ = -1;
};

// A server on this computer for one client at a time.
class TcpServer {
 public:
  // Port 0 takes any that is free.
  explicit TcpServer(int port = 0, int backlog = 4) {
    listener_ = socket(AF_INET, SOCK_STREAM, 0);
    const int on = 1;
    setsockopt(listener_, SOL_SOCKET, SO_REUSEADDR, &on, sizeof on);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    address.sin_port = htons(static_cast<std::uint16_t>(port));
    if (bind(listener_, reinterpret_cast<sockaddr*>(&address), sizeof address) != 0 ||
        listen(listener_, backlog) != 0) {
      throw std::runtime_error("no server");
    }
    socklen_t size = sizeof address;
    getsockname(listener_, reinterpret_cast<sockaddr*>(&address), &size);
    port_ = ntohs(address.sin_port);
  }
  ~TcpServer() {
    Drop();
    close(listener_);
  }
  TcpServer(const TcpServer&) = delete;
  TcpServer& operator=(const TcpServer&) = delete;

  int port() const { return port_; }
  std::string source() const { return "TCP 127.0.0.1:" + std::to_string(port_); }
  int client() const { return client_; }
  int clients() const { return clients_; }

  // Takes the next client; false when none comes.
  bool Accept(int limit_ms = 3000) {
    pollfd wait{listener_, POLLIN, 0};
    if (poll(&wait, 1, limit_ms) <= 0) return false;
    Drop();
    client_ = accept(listener_, nullptr, nullptr);
    ++clients_;
    return client_ >= 0;
  }
  void Write(std::string_view text) const { WriteTo(client_, text); }
  void Drop() {
    if (client_ >= 0) close(client_);
    client_ = -1;
  }

 private:
  int listener_ = -1;
  int client_ = -1;
  int clients_ = 0;
  int port_ = 0;
};

// Clients that fill the queue of a server without a backlog, so that it answers no other.
class SilentClients {
 public:
  explicit SilentClients(int port) {
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    address.sin_port = htons(static_cast<std::uint16_t>(port));
    for (int& client : clients_) {
      client = socket(AF_INET, SOCK_STREAM | SOCK_NONBLOCK, 0);
      (void)connect(client, reinterpret_cast<sockaddr*>(&address), sizeof address);
    }
  }
  ~SilentClients() {
    for (const int client : clients_) close(client);
  }
  SilentClients(const SilentClients&) = delete;
  SilentClients& operator=(const SilentClients&) = delete;

 private:
  int clients_[3];
};

// Sends datagrams to a port of this computer.
class UdpSender {
 public:
  explicit UdpSender(int port) : socket_(socket(AF_INET, SOCK_DGRAM, 0)) {
    address_.sin_family = AF_INET;
    address_.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    address_.sin_port = htons(static_cast<std::uint16_t>(port));
  }
  ~UdpSender() { close(socket_); }
  UdpSender(const UdpSender&) = delete;
  UdpSender& operator=(const UdpSender&) = delete;

  void Send(std::string_view text) const {
    sendto(socket_, text.data(), text.size(), 0, reinterpret_cast<const sockaddr*>(&address_),
           sizeof address_);
  }

 private:
  int socket_;
  sockaddr_in address_{};
};

}  // namespace skerrow::testing
