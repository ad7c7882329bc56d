#pragma once

#include <QCheckBox>
#include <QListWidget>
#include <QProgressBar>
#include <optional>
#include <string>

#include "core/calendar.h"
#include "ui/widgets/dialog.h"
#include "ui/widgets/text_list.h"

namespace skerrow {

// "Read Grib Data": the forecast files in the user's folder, the messages of the one that was read,
// and its import into the wind store. A forecast that is cut short is imported as far as it goes,
// after its fault has been told.
class frmGribImport : public Dialog {
  Q_OBJECT

 public:
  frmGribImport(Desktop& desktop, QWidget* parent);

  // While a file is read this stops the reading.
  void reject() override;

 private:
  void ListFiles();
  void ShowFile();
  void ImportSelected();
  void Import(const std::string& path, std::optional<DayAndYear> begin_today);
  void UseForecast();
  void SetWorking(bool working);

  QListWidget* files_;
  QLabel* file_name_;
  TextList* records_;
  QLabel* count_;
  QCheckBox* use_;
  QProgressBar* bar_;
  QPushButton* sample_ = nullptr;
  QPushButton* export_ = nullptr;
  QPushButton* cancel_ = nullptr;
  bool stop_ = false;
};

}  // namespace skerrow
