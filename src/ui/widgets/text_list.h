#pragma once

#include <QListWidget>
#include <string>
#include <vector>

#include "platform/clipboard.h"

namespace skerrow {

// Lines joined for the clipboard, each ended by a line break but the last.
std::string JoinLines(const std::vector<std::string>& lines);

// What makes a row stand out from the others; its text stays as it is.
struct RowLook {
  bool bold = false;
  bool dim = false;
  bool warning = false;
  bool room_above = false;
  int number = 0;  // shown before the row, in a margin of its own; 0 for none

  friend bool operator==(const RowLook&, const RowLook&) = default;
};

// A list of report lines. Columns separated by tabs, one or several, line up over all rows that
// have as many; what is copied keeps the tabs. Ctrl+C copies the selected rows.
class TextList : public QListWidget {
  Q_OBJECT

 public:
  TextList(Clipboard& clipboard, const char* name, QWidget* parent = nullptr);

  // `looks` has one entry for each line, or none at all.
  void SetLines(const std::vector<std::string>& lines, std::vector<RowLook> looks = {});
  // The same with lines that follow something alive: what has not changed stays as it stands, and
  // so do the selection and the scroll position.
  void UpdateLines(const std::vector<std::string>& lines, std::vector<RowLook> looks = {});
  RowLook LookOf(int row) const;
  // The width of the margin that the numbers stand in; 0 without numbers.
  int margin() const { return margin_; }
  const std::vector<std::string>& lines() const { return lines_; }
  // The selected lines from the top down.
  std::vector<std::string> SelectedLines() const;

  // Puts all lines, or the selected ones, on the clipboard. With nothing to copy the clipboard
  // keeps what it has, and false comes back.
  bool CopyAll();
  bool CopySelected();

  // Left edges of the columns of rows with `tabs` tabs, pixels from the row's left.
  const std::vector<int>& ColumnsOf(std::size_t tabs) const;

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  void MeasureColumns();
  QFontMetrics MetricsOf(int row) const;

  Clipboard& clipboard_;
  std::vector<std::string> lines_;
  std::vector<RowLook> looks_;
  int margin_ = 0;
  std::vector<std::vector<int>> columns_;  // by the number of tabs
};

}  // namespace skerrow
