#pragma once

#include <QTabWidget>
#include <functional>

#include "ui/dialogs/setting_controls.h"
#include "ui/forms/configure_form.h"
#include "ui/widgets/dialog.h"

namespace skerrow {

// "General Settings".
class frmConfigure : public Dialog {
  Q_OBJECT

 public:
  // `show_tools` is called by a double click on the dialog's background; it may be empty.
  frmConfigure(Desktop& desktop, std::function<void()> show_tools, QWidget* parent);

 protected:
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void showEvent(QShowEvent* event) override;

 private:
  QWidget* MakePassagePage();
  // A page of boxes from the top down.
  QWidget* MakePage(std::initializer_list<QWidget*> boxes);
  void Accept();

  std::function<void()> show_tools_;
  AppConfig config_;  // as read at the opening
  SettingControls controls_;
  QTabWidget* pages_;
};

}  // namespace skerrow
