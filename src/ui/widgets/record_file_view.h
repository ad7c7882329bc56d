#pragma once

#include <QLabel>
#include <QListWidget>
#include <QWidget>
#include <optional>
#include <string>
#include <vector>

#include "routes/file_forms.h"
#include "routes/route_forms.h"
#include "ui/desktop.h"
#include "ui/widgets/text_list.h"

namespace skerrow {

// The user's waypoint or route files beside the entries of the one highlighted.
class RecordFileView : public QWidget {
  Q_OBJECT

 public:
  // `files_name` and `rows_name` are the object names of the two lists.
  RecordFileView(Desktop& desktop, FileKind kind, const char* files_name, const char* rows_name,
                 QWidget* parent = nullptr);

  // Lists the files anew and highlights `file`, or nothing when it is not there.
  void Refresh(const std::string& file = {});

  // The highlighted file's name; empty without one.
  std::string file() const;
  const std::vector<WaypointRow>& rows() const { return entries_; }
  std::optional<std::size_t> selected_row() const;
  QListWidget* files() const { return files_; }
  TextList* entries() const { return list_; }

 signals:
  void FileChosen();
  // A click and a double click on an entry, from 0.
  void RowClicked(int row);
  void RowActivated(int row);

 private:
  void LoadFile();

  Desktop& desktop_;
  FileKind kind_;
  QListWidget* files_;
  TextList* list_;
  QLabel* count_;
  std::vector<WaypointRow> entries_;
};

}  // namespace skerrow
