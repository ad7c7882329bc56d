#pragma once

#include <QListWidget>
#include <array>
#include <optional>

#include "ui/forms/port_forms.h"
#include "ui/widgets/dialog.h"
#include "ui/widgets/field_edits.h"

namespace skerrow {

// "Harmonic Constants": the editor of the ports of the area files, one port at a time.
class frmharmedit : public Dialog {
  Q_OBJECT

 public:
  frmharmedit(Desktop& desktop, QWidget* parent);

  void done(int result) override;

 private:
  QWidget* MakeLists();
  QWidget* MakePort();
  QWidget* MakeConstituents();
  QWidget* MakeMonths();
  void MakeButtons();
  FilteredEdit* MakeNumber(const char* name);

  void ListFiles();
  void OpenFile(int row);
  void ShowPorts(int selected);
  void ChoosePort(int row);
  void ShowEntry(const PortEntry& entry);
  PortEntry Entry() const;
  // The selected port from 0; empty, after saying so, when there is none.
  std::optional<std::size_t> Selected();
  // The fields as a record for the place of a port; empty after a refusal.
  std::optional<Port> Built(const std::optional<Port>& before);
  // Whether what is typed and in no file may go.
  bool MayDrop();

  void Accept();
  void Add();
  void Insert();
  void Delete();
  void AfterWrite(PortsChange change, std::size_t index);

  QListWidget* files_;
  QListWidget* list_;
  QLineEdit* number_;
  QLineEdit* name_;
  FilteredEdit* latitude_;
  FilteredEdit* longitude_;
  FilteredEdit* zone_;
  std::array<FilteredEdit*, kPortNumbers.size()> numbers_{};
  std::array<FilteredEdit*, 12> delta_z0_{};
  std::array<FilteredEdit*, 12> mhm2_{};

  std::optional<PortEditor> editor_;
  PortEntry shown_;  // what the fields were filled with
  int file_row_ = -1;
  int port_row_ = -1;
};

}  // namespace skerrow
