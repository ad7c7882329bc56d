// The commands "ports", "listen" and "upload --device", by the real program.

#include <algorithm>
#include <future>

#include "cli/command_line.h"
#include "support/wires.h"

namespace skerrow::cli {
namespace {

using skerrow::testing::PseudoTerminal;
using skerrow::testing::TcpServer;

class PortCommandLine : public CommandLine {};

#ifdef SKERROW_PORTS
TEST_F(PortCommandLine, PortsHaveNumbersThatStay) {
  const std::string path = user_.File("gps");
  setenv("SKERROW_PORTS", path.c_str(), 1);
  std::string number;
  {
    const PseudoTerminal gps(path);
    const auto ports = Json("ports")["ports"];
    const auto found = std::find_if(ports.begin(), ports.end(),
                                    [&](const auto& port) { return port["place"] == path; });
    ASSERT_NE(found, ports.end());
    number = std::to_string((*found)["number"].get<int>());
    EXPECT_EQ((*found)["text"], number + "  gps");
    EXPECT_EQ((*found)["present"], true);
    auto heard = std::async(std::launch::async,
                            [&] { return Json("listen " + number + " --seconds 1 --baud 38400"); });
    // What comes before the port is open is not heard.
    std::this_thread::sleep_for(std::chrono::milliseconds(600));
    gps.Write("$GPGLL\r\n");
    EXPECT_EQ(heard.get()["received"], "$GPGLL\r\n");
  }
  EXPECT_NE(Run("ports").out.find(number + "  gps, not plugged in\n"), std::string::npos);
  ExpectError("listen " + number + " --seconds 1", 1, "Hardware not present");
  unsetenv("SKERROW_PORTS");
}

TEST_F(PortCommandLine, ListensToAServerWithoutANumber) {
  TcpServer server;
  auto heard = std::async(std::launch::async,
                          [&] { return Run("listen '" + server.source() + "' --seconds 1"); });
  ASSERT_TRUE(server.Accept());
  std::this_thread::sleep_for(std::chrono::milliseconds(400));
  server.Write("!AIVDM\xe9\r\n");
  const Ran ran = heard.get();
  EXPECT_EQ(ran.status, 0) << ran.err;
  EXPECT_EQ(ran.out, "!AIVDM\xe9\r\n");
  EXPECT_EQ(Run("ports").out.find("TCP"), std::string::npos);
  ExpectError("listen COM9", 1, "path of a device");
  ExpectError("listen 1 --seconds 0", 2, "seconds");
  ExpectError("listen 1 --baud 1234", 2, "1234");
  ExpectError("listen 300", 1, "port");
}

TEST_F(PortCommandLine, UploadArrivesAtTheOtherEnd) {
  const PseudoTerminal gps(user_.File("gps"));
  const std::string words = "upload Sample.rte --type 1";
  const auto shown = Json(words)["sent"];
  ASSERT_GT(shown.size(), 0U);
  std::string all;
  for (const auto& text : shown) all += text.get<std::string>();
  auto sent =
      std::async(std::launch::async, [&] { return Run(words + " --device " + gps.path()); });
  EXPECT_EQ(skerrow::testing::ReadFrom(gps.master(), all.size(), std::chrono::seconds(60)), all);
  EXPECT_EQ(sent.get().status, 0);
  ExpectError(words + " --device /dev/none", 1, "/dev/none");
}
#else
TEST_F(PortCommandLine, WithoutTheDesktopThereAreNoPorts) {
  ExpectError("ports", 1, "without the desktop");
  ExpectError("listen 1", 1, "without the desktop");
  ExpectError("upload Sample.rte --type 1 --device /dev/none", 1, "without the desktop");
}
#endif

}  // namespace
}  // namespace skerrow::cli
