#include "core/text.h"
#include "ui/forms/tide_forms.h"
#include "window_fixture.h"

namespace skerrow::testing {
namespace {

class TideCommands : public MainWindowTest {
 protected:
  // The first port of the area that lies well inside the view.
  PortRow PortInView() {
    const Result<PortList> ports =
        ListPorts(program_.folders, Trim(program_.config.tidal_port_file));
    for (const PortRow& row : ports->rows) {
      const QPoint at = At({row.port.latitude, row.port.longitude});
      if (canvas()->rect().adjusted(60, 60, -60, -60).contains(at)) return row;
    }
    ADD_FAILURE() << "no port in the view";
    return {};
  }
  void DoubleClick(QPoint at) {
    MoveTo(at);
    QTest::mouseClick(canvas(), Qt::LeftButton, {}, at);
    QTest::mouseDClick(canvas(), Qt::LeftButton, {}, at);
    QTest::mouseRelease(canvas(), Qt::LeftButton, {}, at);
  }
  static void ExpectTides(std::string* port) {
    OnDialog([port](QWidget* dialog) {
      EXPECT_EQ(dialog->objectName(), "frmSkerrowTides");
      *port = dialog->findChild<QLabel*>("lblPort")->text().toStdString();
    });
  }
};

TEST_F(TideCommands, TheMenuOpensThePortOfTheSettings) {
  Start();
  std::string port;
  ExpectTides(&port);
  Command("mnuTidesCalculate");
  EXPECT_EQ(port, "Port    : Dover");
}

TEST_F(TideCommands, ADoubleClickOnAPortOpensItAndMakesItTheSelectedOne) {
  Start();
  const PortRow row = PortInView();
  const QPoint at = At({row.port.latitude, row.port.longitude});
  const std::string title = "Port    : " + Trim(row.port.name);
  std::string port;
  ExpectTides(&port);
  DoubleClick(at);
  EXPECT_EQ(port, title);
  EXPECT_EQ(program_.config.tide_port_number, row.position);
  // The pop-up's entry does the same where the right button was pressed.
  port.clear();
  program_.config.tide_port_number = 1;
  program_.config.search_circle = 1.0F;
  ExpectTides(&port);
  window_->action("mnuPUTidalHeights")->trigger();
  EXPECT_EQ(port, title);
  // Out of reach, and with the ports hidden, nothing opens: a dialog would be in the way of the
  // end.
  program_.config.search_circle = 0.0F;
  DoubleClick(at);
  program_.config.search_circle = 1.0F;
  program_.config.show_tide_heights = 0;
  DoubleClick(at);
  EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
}

}  // namespace
}  // namespace skerrow::testing
