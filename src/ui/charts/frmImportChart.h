#pragma once

#include <QComboBox>
#include <QLineEdit>
#include <QProgressBar>
#include <QTimer>
#include <optional>
#include <string>

#include "ui/forms/chart_import_form.h"
#include "ui/widgets/dialog.h"
#include "ui/widgets/field_edits.h"
#include "ui/widgets/picture_preview.h"

namespace skerrow {

// "Import Chart": a chart of another maker, what its file tells, and how it shall be called. Its
// work runs beside the window. After it is accepted area() and key() name the new chart.
class frmImportChart : public Dialog {
  Q_OBJECT

 public:
  frmImportChart(Desktop& desktop, QWidget* parent);

  // While a file is read or brought in this stops the work.
  void reject() override;

  // Begins to read a file, as if the user had chosen it.
  void ReadFile(const std::string& path);

  const std::string& area() const { return area_; }
  const std::string& key() const { return key_; }
  // Whether positions of the new chart mean anything.
  bool placed() const { return placed_; }

 private:
  enum class Work { kNone, kReading, kImporting };

  QLayout* MakeFields();
  void ChooseFile();
  void Import();
  void SetWork(Work work);
  void Look();
  void ShowSource();
  void Finish();
  ImportTexts Texts() const;

  ChartImporter importer_;
  Work work_ = Work::kNone;
  bool closing_ = false;
  std::string area_;
  std::string key_;
  bool placed_ = true;
  QTimer look_;
  QLineEdit* file_;
  QPushButton* browse_;
  QLabel* details_;
  QLabel* notes_;
  QComboBox* areas_;
  QLabel* area_hint_;
  QLineEdit* key_box_;
  QLineEdit* title_;
  FilteredEdit* scale_;
  PicturePreview* preview_;
  QProgressBar* bar_;
  QLabel* state_;
  QPushButton* import_ = nullptr;
  QPushButton* cancel_ = nullptr;
};

// Opens the dialog; gives the sea area and key of a chart that was brought in, after telling what
// is to be done with a plain scan.
struct ImportedChart {
  std::string area;
  std::string key;
  bool placed = true;  // whether its positions mean anything
};
std::optional<ImportedChart> AskForChart(Desktop& desktop, QWidget* parent);

}  // namespace skerrow
