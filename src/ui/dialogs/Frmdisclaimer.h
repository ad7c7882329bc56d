#pragma once

#include <QDialog>

#include "app/program.h"
#include "core/date_order.h"
#include "core/messages.h"

namespace skerrow {

// The form the program starts with: what it is, at whose risk it is used, and the choice to go on.
class Frmdisclaimer : public QDialog {
  Q_OBJECT

 public:
  Frmdisclaimer(Program& program, Messages& messages, QWidget* parent = nullptr);

  // Makes the user's folders, then passes the date gate: without a date order it says how to set
  // the machine up and gives false, and the program is to end.
  static bool Prepare(const Program& program, const DateServices& services, Messages& messages);
};

}  // namespace skerrow
