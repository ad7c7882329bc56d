#pragma once

#include <QCheckBox>
#include <QLineEdit>
#include <QTimer>

#include "ui/forms/link_form.h"
#include "ui/instruments/port_box.h"
#include "ui/instruments/received_box.h"
#include "ui/widgets/dialog.h"
#include "ui/widgets/text_list.h"

namespace skerrow {

// What the dialogs that connect a GPS and an AIS receiver have in common: port, test and log. After
// OK the program has the port, the type and the log that were chosen.
class LinkDialog : public Dialog {
  Q_OBJECT

 public:
  ~LinkDialog() override;

  void done(int result) override;

 protected:
  LinkDialog(Desktop& desktop, const char* name, const QString& title, LinkKind kind,
             QWidget* parent);

 private:
  QWidget* MakePortBox();
  QWidget* MakeLogBox();
  QWidget* MakeTestBox();
  LinkEntry Entry() const;
  void StartTest();
  void StopTest();
  void TestTick();
  void Accept();

  LinkKind kind_;
  PortBox* port_;
  QComboBox* type_;
  QCheckBox* standard_;
  QCheckBox* save_;
  QLineEdit* name_;
  TextList* logs_;
  QPushButton* test_;
  QPushButton* stop_;
  ReceivedBox* received_;
  QLabel* verdict_;
  QTimer timer_;  // Timer1
  int tested_ = -1;
  TestWatch watch_;
};

}  // namespace skerrow
