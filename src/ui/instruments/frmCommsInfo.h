#pragma once

#include <QAction>
#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>

#include "ui/forms/link_form.h"
#include "ui/instruments/port_box.h"
#include "ui/instruments/received_box.h"
#include "ui/widgets/live_dialog.h"

namespace skerrow {

// "Test Configurations": what a port sends and the states of its lines, apart from the connections.
class frmCommsInfo : public LiveDialog {
  Q_OBJECT

 public:
  frmCommsInfo(Desktop& desktop, QWidget* parent);
  ~frmCommsInfo() override;

  void done(int result) override;

 protected:
  void Follow() override;

 private:
  void MakeMenus();
  void ShowAllRates();
  void ListPorts();
  void StartTest();
  void StopTest();
  void TestTick();
  void KeepRaw(const std::string& text);
  void StartRawLog(bool on);
  void ShowSystemInformation();
  bool Connected() const;

  PortBox* port_;
  QComboBox* rate_;
  QPushButton* test_;
  QPushButton* stop_;
  QPlainTextEdit* found_;
  QPlainTextEdit* details_;
  ReceivedBox* received_;
  QLabel* lost_;
  QLineEdit* log_name_;
  QAction* raw_log_ = nullptr;
  std::string log_path_;  // of the raw log; empty while there is none
  int tested_ = -1;
  TestWatch watch_;
};

}  // namespace skerrow
