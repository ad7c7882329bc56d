#pragma once

#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QWidget>

#include "ui/forms/tide_forms.h"

namespace skerrow {

// The ports of an area file with a box that narrows the list down to names that hold what is typed.
class PortPicker : public QWidget {
  Q_OBJECT

 public:
  PortPicker(const char* list_name, QWidget* parent = nullptr);

  // Fills the list and chooses the port at `position`, or none.
  void SetPorts(PortList ports, int position);
  // The record's position of the chosen port; 0 without one.
  int Position() const;
  const Port* Chosen() const;
  QListWidget* list() const { return list_; }

 signals:
  void Changed();
  // Enter, or a double click.
  void Taken();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void Narrow(const QString& text);

  PortList ports_;
  QLineEdit* find_;
  QListWidget* list_;
  QLabel* note_;
};

}  // namespace skerrow
