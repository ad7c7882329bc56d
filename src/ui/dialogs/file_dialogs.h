#pragma once

#include <QCheckBox>
#include <QLineEdit>

#include "ui/widgets/dialog.h"
#include "ui/widgets/record_file_view.h"

// The dialogs that choose, name and delete the user's waypoint and route files.
namespace skerrow {

// A list of files to choose one of; the choice stands in a label under the list.
class FileChoiceDialog : public Dialog {
  Q_OBJECT

 public:
  FileChoiceDialog(Desktop& desktop, const char* name, const QString& title, FileKind kind,
                   QWidget* parent);

  RecordFileView* view() const { return view_; }

 protected:
  // What OK does with the chosen file.
  virtual void Accept() = 0;
  // Shows what stood in the way of an operation; true when nothing did.
  bool ShowStatus(const Status& status);

 private:
  RecordFileView* view_;
  QLabel* chosen_;
};

// "Load Waypoint File": makes a file the current one.
class FrmLoadWay final : public FileChoiceDialog {
  Q_OBJECT

 public:
  FrmLoadWay(Desktop& desktop, QWidget* parent);

 protected:
  void Accept() override;
};

// "Load Route": replaces the current route.
class FrmRouteLoad final : public FileChoiceDialog {
  Q_OBJECT

 public:
  FrmRouteLoad(Desktop& desktop, QWidget* parent);

 protected:
  void Accept() override;

 private:
  QCheckBox* use_default_speed_;
};

// "Delete Waypoint File" and "Delete Route File".
class FrmFileDelete final : public FileChoiceDialog {
  Q_OBJECT

 public:
  FrmFileDelete(Desktop& desktop, FileKind kind, QWidget* parent);

 protected:
  void Accept() override;

 private:
  FileKind kind_;
};

// "Locate a waypoint": picks a waypoint of any file for the chart to go to.
class FrmWayFileLocate final : public FileChoiceDialog {
  Q_OBJECT

 public:
  FrmWayFileLocate(Desktop& desktop, QWidget* parent);

  // The waypoint picked; empty until OK.
  const std::optional<Waypoint>& chosen() const { return chosen_waypoint_; }

 protected:
  void Accept() override;

 private:
  std::optional<Waypoint> chosen_waypoint_;
};

// Asks for a file name: the form of saving waypoints, a new waypoint file and saving the route.
class FileNameDialog final : public Dialog {
  Q_OBJECT

 public:
  FileNameDialog(Desktop& desktop, NameEntry entry, QWidget* parent);

  // The name written, with its extension; empty until OK.
  const std::string& file_name() const { return file_name_; }

 private:
  void Accept();
  Status Write(const std::string& file_name);

  NameEntry entry_;
  QLineEdit* name_;
  std::string file_name_;
};

// Asks for files outside the user's folders and copies them in.
void RunFileImport(Desktop& desktop, FileKind kind, QWidget* parent);

}  // namespace skerrow
