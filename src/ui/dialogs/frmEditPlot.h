#pragma once

#include <QComboBox>
#include <QLineEdit>
#include <QMenuBar>
#include <QTabWidget>
#include <array>

#include "ui/dialogs/polar_pictures.h"
#include "ui/forms/edit_plot_form.h"
#include "ui/widgets/dialog.h"
#include "ui/widgets/field_edits.h"

namespace skerrow {

// "Polar Plot": the editor of the set-ups. Each change is in the database at once, and can be taken
// back.
class frmEditPlot : public Dialog {
  Q_OBJECT

 public:
  // `set_up` is taken up first, or else the first one there is.
  frmEditPlot(Desktop& desktop, const std::string& set_up, QWidget* parent);

  // The set-up in hand; empty when there is none.
  const std::string& set_up() const { return editor_.name(); }

  void done(int result) override;

 protected:
  void changeEvent(QEvent* event) override;

 private:
  QMenuBar* MakeMenus();
  QWidget* MakeSingle();
  QWidget* MakeBoxes();
  FilteredEdit* MakeNumber(const char* name, int columns, const char* tip);

  // Shows the set-up in hand anew; with `message` where it could not be read.
  void ShowSetUp(const Status& loaded);
  void ShowBoxes();
  PolarBoxes Boxes() const;
  // Whether typed boxes may go.
  bool MayDrop();
  // Shows a change, or the words of its refusal.
  void After(const Status& changed, QWidget* field = nullptr);
  void ChangeAtAngle();
  void ChangeAtWind();
  void AcceptBoxes();
  void Adjust();

  // Asks for a name, offering `name`; empty after a cancel.
  std::string AskName(const QString& title, const std::string& name);
  void Create();
  void Copy();
  void Rename();
  void Delete();
  void Import();
  void ImportDatabase();
  void Export();
  void Undo();

  PolarEditor editor_;
  PolarPictures* pictures_;
  QComboBox* set_ups_;
  QLabel* angle_picked_;
  FilteredEdit* wind1_;
  FilteredEdit* boat1_;
  FilteredEdit* angle2_;
  FilteredEdit* boat2_;
  FilteredEdit* change_;
  std::array<FilteredEdit*, kPolarAngles> boxes_{};
  QLabel* path_;
  QAction* undo_ = nullptr;
  std::vector<QAction*> with_set_up_;  // what needs a set-up in hand
  PolarBoxes shown_;                   // what the boxes were filled with
  std::optional<int> angle_;           // picked on the polar
  std::optional<std::size_t> option_;  // that the boxes are for
};

}  // namespace skerrow
