#pragma once

#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QListWidget>
#include <QTabWidget>
#include <array>

#include "ui/dialogs/setting_controls.h"
#include "ui/forms/instrument_settings_form.h"
#include "ui/instruments/port_box.h"
#include "ui/widgets/dialog.h"

namespace skerrow {

// The settings of GPS and AIS, and the network sources.
class frmAISGPSConfig : public Dialog {
  Q_OBJECT

 public:
  frmAISGPSConfig(Desktop& desktop, QWidget* parent);

 private:
  QWidget* MakePorts();
  QWidget* MakeSources();
  QWidget* MakeLabels();
  void Show(const InstrumentSettings& shown);
  InstrumentSettings Shown() const;
  void FillSources();
  void AddSource();
  void RemoveSource();
  void ShowInput();
  void Accept();

  SettingControls controls_;
  QTabWidget* pages_;
  PortBox* gps_port_;
  PortBox* ais_port_;
  QComboBox* gps_type_;
  QComboBox* interval_;
  QCheckBox* through_ = nullptr;  // of controls_
  QCheckBox* save_;
  QCheckBox* standard_;
  QCheckBox* sound_;
  std::array<QComboBox*, kLabelPlaces> labels_{};
  QListWidget* sources_;
  QLineEdit* source_;
  QPushButton* remove_;
};

}  // namespace skerrow
