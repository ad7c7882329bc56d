#pragma once

#include <QFileDialog>
#include <string>

#include "core/folders.h"

namespace skerrow {

// Chooses a file of tidal diamonds, from the program's folder of them on.
class frmSelectL25 : public QFileDialog {
  Q_OBJECT

 public:
  frmSelectL25(const Folders& folders, QWidget* parent);

  // The path of the file chosen; empty when there is none.
  std::string FileName() const;
};

}  // namespace skerrow
