#pragma once

#include <QListWidget>
#include <optional>
#include <string>
#include <vector>

#include "ui/forms/file_forms.h"

class QLabel;

namespace skerrow {

// The list of the user's waypoint or route files, `fillist` in every dialog that has one. What is
// selected counts, not what has the keyboard.
class FileList : public QListWidget {
  Q_OBJECT

 public:
  explicit FileList(QWidget* parent = nullptr);

  // Lists the files of a kind in `folder`, with nothing selected.
  void Fill(const std::string& folder, FileKind kind);
  void Fill(const std::vector<std::string>& names);

  // The selected name; empty when none is.
  std::string Selected() const;
  // Selects a file by its name, and nothing when it is not there.
  void Select(const std::string& name);

  QSize sizeHint() const override { return {170, 220}; }
};

// The name of the file in `folder` that `name` would write over: the same name in any case, as the
// names of files are compared where these folders come from. Empty when there is none.
std::optional<std::string> ExistingFile(const std::string& folder, FileKind kind,
                                        const std::string& name);

// A quiet line that tells a folder, cut in the middle when it is long.
QLabel* MakeFolderHint(const QString& text, const std::string& folder);

}  // namespace skerrow
