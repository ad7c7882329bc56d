#pragma once

#include <QCheckBox>
#include <QComboBox>
#include <QRadioButton>
#include <QTabWidget>
#include <functional>

#include "ui/forms/configure_form.h"
#include "ui/widgets/colour_button.h"
#include "ui/widgets/dialog.h"
#include "ui/widgets/field_edits.h"

namespace skerrow {

// "General Settings".
class FrmConfigure : public Dialog {
  Q_OBJECT

 public:
  // `show_tools` is called by a double click on the dialog's background; it may be empty.
  FrmConfigure(Desktop& desktop, std::function<void()> show_tools, QWidget* parent);

 protected:
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void showEvent(QShowEvent* event) override;

 private:
  QWidget* MakePassagePage();
  QWidget* MakeChartPage();
  QWidget* MakeStreamPage();
  QWidget* MakeWindPage();
  FilteredEdit* MakeNumber(const char* name, KeyFilter filter = KeyFilter::kNumber);
  QComboBox* MakeList(const char* name, const std::vector<std::string>& choices, bool typed);
  void Load(const ConfigureEntry& entry);
  ConfigureEntry Entry() const;
  void Accept();
  QWidget* FieldOf(ConfigureRefusal refusal) const;

  std::function<void()> show_tools_;
  AppConfig config_;  // as read at the opening
  QTabWidget* pages_;
  FilteredEdit* boat_speed_;
  FilteredEdit* variation_;
  FilteredEdit* calc_interval_;
  FilteredEdit* error_circle_;
  FilteredEdit* search_circle_;
  FilteredEdit* sailing_angle_;
  QCheckBox* leeway_on_;
  FilteredEdit* leeway_;
  QCheckBox* use_tides_;
  QRadioButton* summer_time_;
  QRadioButton* standard_time_;
  QComboBox* threshold_;
  QComboBox* line_size_;
  QComboBox* text_size_;
  ColourButton* font_colour_;
  ColourButton* cog_colour_;
  QCheckBox* hide_stream_id_;
  QCheckBox* stream_as_shape_;
  QCheckBox* stream_filled_;
  QComboBox* stream_line_width_;
  QComboBox* stream_length_;
  ColourButton* stream_colour_;
  QCheckBox* show_wind_;
  QCheckBox* barb_text_;
  QCheckBox* forecast_wind_;
  QComboBox* barb_weight_;
  QComboBox* barb_length_;
  QComboBox* barb_spacing_;
  ColourButton* wind_colour_;
};

}  // namespace skerrow
