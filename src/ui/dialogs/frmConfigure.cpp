#include "ui/dialogs/frmConfigure.h"

#include <QFormLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <QMouseEvent>
#include <QScreen>

#include "ui/widgets/qt_text.h"

namespace skerrow {
namespace {

// A field with its unit behind it, as one row of a form.
void AddField(QFormLayout* form, const QString& label, QWidget* field, const QString& unit) {
  form->addRow(MakeLabel(label, field), MakeRow({field, new QLabel(unit)}));
}

QFormLayout* MakeForm(QGroupBox* box) {
  auto* form = new QFormLayout(box);
  form->setHorizontalSpacing(12);
  form->setVerticalSpacing(7);
  form->setLabelAlignment(Qt::AlignLeft | Qt::AlignVCenter);
  return form;
}

void SetListText(QComboBox* list, const std::string& text) {
  const QString shown = ToQt(text);
  if (list->isEditable()) {
    list->setEditText(shown);
    return;
  }
  if (list->findText(shown) < 0) list->insertItem(0, shown);
  list->setCurrentText(shown);
}

}  // namespace

FrmConfigure::FrmConfigure(Desktop& desktop, std::function<void()> show_tools, QWidget* parent)
    : Dialog(desktop, "frmConfigure", tr("General Settings"), parent),
      show_tools_(std::move(show_tools)),
      config_(desktop.program.config),
      pages_(new QTabWidget) {
  (void)ReadConfig(desktop.program.folders, config_);
  pages_->addTab(MakePassagePage(), tr("&Passage"));
  pages_->addTab(MakeChartPage(), tr("C&hart"));
  pages_->addTab(MakeStreamPage(), tr("Tidal &streams"));
  pages_->addTab(MakeWindPage(), tr("&Wind"));
  body()->addWidget(pages_, 1);
  QPushButton* ok = AddButton("cmdOK", tr("OK"));
  ok->setDefault(true);
  QPushButton* cancel = AddButton("cmdCancel", tr("Cancel"));
  connect(ok, &QPushButton::clicked, this, [this] { Accept(); });
  connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
  Load(ConfigureEntryOf(config_));
  boat_speed_->setFocus();
}

FilteredEdit* FrmConfigure::MakeNumber(const char* name, KeyFilter filter) {
  auto* edit = new FilteredEdit(filter, desktop().messages, name);
  edit->SetColumns(6);
  return edit;
}

QComboBox* FrmConfigure::MakeList(const char* name, const std::vector<std::string>& choices,
                                  bool typed) {
  auto* list = Named<QComboBox>(name);
  for (const std::string& choice : choices) list->addItem(ToQt(choice));
  if (typed) {
    list->setEditable(true);
    list->setLineEdit(new FilteredEdit(KeyFilter::kNumber, desktop().messages, "", list));
    list->setInsertPolicy(QComboBox::NoInsert);
    list->setCompleter(nullptr);
  }
  list->setMinimumContentsLength(5);
  return list;
}

QWidget* FrmConfigure::MakePassagePage() {
  boat_speed_ = MakeNumber("Txtboatspeed");
  variation_ = MakeNumber("Txtvariation", KeyFilter::kVariation);
  calc_interval_ = MakeNumber("txtCalcInterval");
  error_circle_ = MakeNumber("txtErrorCircle", KeyFilter::kQuietNumber);
  search_circle_ = MakeNumber("txtSearchCircle");
  sailing_angle_ = MakeNumber("txtCPAWind");
  leeway_on_ = Named<QCheckBox>("chkLeeway", tr("Allow for &leeway"));
  leeway_ = MakeNumber("txtLeeWay");
  use_tides_ = Named<QCheckBox>("chkUseTides", tr("Use &tides in calculations"));
  summer_time_ = Named<QRadioButton>("optSummerTime", tr("The PC clock keeps s&ummer time"));
  standard_time_ =
      Named<QRadioButton>("optDaylightSavings", tr("The PC clock keeps standard time all &year"));
  variation_->setToolTip(tr("Degrees with W or E behind them: 4W"));
  calc_interval_->setToolTip(tr("Minutes between the steps of a calculation; at least 1"));
  error_circle_->setToolTip(
      tr("A leg that ends farther than this from its destination is reported"));
  search_circle_->setToolTip(tr("How near a click must be to a port or diamond; at least 0.01"));

  auto* page = new QWidget;
  auto* grid = new QGridLayout(page);
  grid->setSpacing(12);
  auto* boat = new QGroupBox(tr("Boat"));
  auto* boat_form = MakeForm(boat);
  AddField(boat_form, tr("Vessel spee&d:"), boat_speed_, tr("kn"));
  AddField(boat_form, tr("&Variation:"), variation_, QStringLiteral("\u00b0"));
  AddField(boat_form, tr("Closest sailing an&gle:"), sailing_angle_, QStringLiteral("\u00b0"));
  boat_form->addRow(leeway_on_);
  AddField(boat_form, tr("Leeway &angle:"), leeway_, QStringLiteral("\u00b0"));
  grid->addWidget(boat, 0, 0);
  auto* calculation = new QGroupBox(tr("Calculation"));
  auto* form = MakeForm(calculation);
  AddField(form, tr("Calculation &interval:"), calc_interval_, tr("min"));
  AddField(form, tr("Course to Steer &Range Alarm:"), error_circle_, tr("nm"));
  AddField(form, tr("Search &circle:"), search_circle_, tr("nm"));
  form->addRow(use_tides_);
  grid->addWidget(calculation, 0, 1);
  auto* time = new QGroupBox(tr("Time"));
  auto* time_rows = new QVBoxLayout(time);
  time_rows->addWidget(summer_time_);
  time_rows->addWidget(standard_time_);
  grid->addWidget(time, 1, 0, 1, 2);
  grid->setRowStretch(2, 1);
  return page;
}

QWidget* FrmConfigure::MakeChartPage() {
  line_size_ = MakeList("cmbLineSize", TrackWidthChoices(), false);
  text_size_ = MakeList("cmbTextSize", TextSizeChoices(), false);
  font_colour_ = new ColourButton("pctFontCol", tr("Colour of the text on the chart"));
  cog_colour_ = new ColourButton("pctCOGCol", tr("Colour of the predicted track"));
  auto* page = new QWidget;
  auto* rows = new QVBoxLayout(page);
  rows->setSpacing(12);
  auto* text = new QGroupBox(tr("Text on the chart"));
  auto* text_form = MakeForm(text);
  AddField(text_form, tr("Te&xt size:"), text_size_, tr("points"));
  AddField(text_form, tr("Text colou&r:"), font_colour_, {});
  rows->addWidget(text);
  auto* lines = new QGroupBox(tr("Course and track"));
  auto* line_form = MakeForm(lines);
  AddField(line_form, tr("&Line width:"), line_size_, tr("pixels"));
  AddField(line_form, tr("Course over &ground:"), cog_colour_, {});
  rows->addWidget(lines);
  rows->addStretch(1);
  return page;
}

QWidget* FrmConfigure::MakeStreamPage() {
  threshold_ = MakeList("cmbThreshold", ThresholdChoices(), true);
  stream_line_width_ = MakeList("cmbStreamLineWidth", LineWidthChoices(), true);
  stream_length_ = MakeList("cmbStreamLength", StreamLengthChoices(), true);
  stream_as_shape_ = Named<QCheckBox>("chkStreamAsShape", tr("Show streams &as arrow shapes"));
  stream_filled_ = Named<QCheckBox>("chkStreamFilled", tr("&Fill the shapes"));
  hide_stream_id_ = Named<QCheckBox>("chkHideStreamId", tr("H&ide the diamond's number"));
  stream_colour_ = new ColourButton("pctTidalStreamCol", tr("Colour of the tidal streams"));
  threshold_->setToolTip(tr("Streams weaker than this count as slack"));
  auto* page = new QWidget;
  auto* rows = new QVBoxLayout(page);
  auto* box = new QGroupBox(tr("Tidal stream arrows"));
  auto* form = MakeForm(box);
  AddField(form, tr("Slack &threshold:"), threshold_, tr("kn"));
  AddField(form, tr("Line wi&dth:"), stream_line_width_, tr("pixels"));
  AddField(form, tr("L&ength:"), stream_length_, tr("pixels a knot"));
  AddField(form, tr("Colou&r:"), stream_colour_, {});
  form->addRow(stream_as_shape_);
  form->addRow(stream_filled_);
  form->addRow(hide_stream_id_);
  rows->addWidget(box);
  rows->addStretch(1);
  return page;
}

QWidget* FrmConfigure::MakeWindPage() {
  show_wind_ = Named<QCheckBox>("chkShowwind", tr("Show wind along the r&oute"));
  barb_text_ = Named<QCheckBox>("chkBarbDisplayText", tr("Write the speed beside the bar&bs"));
  forecast_wind_ = Named<QCheckBox>("chkUseSmartMet", tr("Take the wind from imported &forecasts"));
  barb_weight_ = MakeList("cmbBarbWeight", LineWidthChoices(), true);
  barb_length_ = MakeList("cmbBarbLength", BarbLengthChoices(), true);
  barb_spacing_ = MakeList("cmbBarbSpacing", BarbSpacingChoices(), true);
  wind_colour_ = new ColourButton("pctWindCol", tr("Colour of the wind marks"));
  auto* page = new QWidget;
  auto* rows = new QVBoxLayout(page);
  rows->setSpacing(12);
  auto* source = new QGroupBox(tr("Wind"));
  auto* source_rows = new QVBoxLayout(source);
  source_rows->addWidget(forecast_wind_);
  source_rows->addWidget(show_wind_);
  rows->addWidget(source);
  auto* barbs = new QGroupBox(tr("Wind barbs"));
  auto* form = MakeForm(barbs);
  AddField(form, tr("Line wi&dth:"), barb_weight_, tr("pixels"));
  AddField(form, tr("L&ength:"), barb_length_, tr("pixels"));
  AddField(form, tr("Spac&ing:"), barb_spacing_, tr("pixels"));
  AddField(form, tr("Colou&r:"), wind_colour_, {});
  form->addRow(barb_text_);
  rows->addWidget(barbs);
  rows->addStretch(1);
  return page;
}

void FrmConfigure::Load(const ConfigureEntry& entry) {
  boat_speed_->SetText(entry.boat_speed);
  variation_->SetText(entry.variation);
  calc_interval_->SetText(entry.calc_interval);
  error_circle_->SetText(entry.error_circle);
  search_circle_->SetText(entry.search_circle);
  sailing_angle_->SetText(entry.closest_sailing_angle);
  leeway_on_->setChecked(entry.use_leeway);
  leeway_->SetText(entry.leeway);
  use_tides_->setChecked(entry.use_tides);
  (entry.summer_time ? summer_time_ : standard_time_)->setChecked(true);
  SetListText(threshold_, entry.threshold);
  SetListText(line_size_, entry.line_size);
  SetListText(text_size_, entry.text_size);
  font_colour_->SetColour(entry.font_colour);
  cog_colour_->SetColour(entry.cog_colour);
  hide_stream_id_->setChecked(entry.hide_stream_id);
  stream_as_shape_->setChecked(entry.stream_as_shape);
  stream_filled_->setChecked(entry.stream_filled);
  SetListText(stream_line_width_, entry.stream_line_width);
  SetListText(stream_length_, entry.stream_length);
  stream_colour_->SetColour(entry.stream_colour);
  show_wind_->setChecked(entry.show_wind);
  barb_text_->setChecked(entry.barb_display_text);
  forecast_wind_->setChecked(entry.use_forecast_wind);
  SetListText(barb_weight_, entry.barb_weight);
  SetListText(barb_length_, entry.barb_length);
  SetListText(barb_spacing_, entry.barb_spacing);
  wind_colour_->SetColour(entry.wind_colour);
}

ConfigureEntry FrmConfigure::Entry() const {
  const auto list = [](const QComboBox* box) { return FromQt(box->currentText()); };
  ConfigureEntry entry;
  entry.variation = variation_->Text();
  entry.error_circle = error_circle_->Text();
  entry.threshold = list(threshold_);
  entry.search_circle = search_circle_->Text();
  entry.boat_speed = boat_speed_->Text();
  entry.summer_time = summer_time_->isChecked();
  entry.closest_sailing_angle = sailing_angle_->Text();
  entry.hide_stream_id = hide_stream_id_->isChecked();
  entry.line_size = list(line_size_);
  entry.calc_interval = calc_interval_->Text();
  entry.use_leeway = leeway_on_->isChecked();
  entry.show_wind = show_wind_->isChecked();
  entry.leeway = leeway_->Text();
  entry.use_tides = use_tides_->isChecked();
  entry.barb_display_text = barb_text_->isChecked();
  entry.use_forecast_wind = forecast_wind_->isChecked();
  entry.barb_weight = list(barb_weight_);
  entry.barb_length = list(barb_length_);
  entry.barb_spacing = list(barb_spacing_);
  entry.stream_as_shape = stream_as_shape_->isChecked();
  entry.stream_line_width = list(stream_line_width_);
  entry.stream_length = list(stream_length_);
  entry.stream_filled = stream_filled_->isChecked();
  entry.font_colour = font_colour_->colour();
  entry.stream_colour = stream_colour_->colour();
  entry.cog_colour = cog_colour_->colour();
  entry.wind_colour = wind_colour_->colour();
  entry.text_size = list(text_size_);
  return entry;
}

QWidget* FrmConfigure::FieldOf(ConfigureRefusal refusal) const {
  switch (refusal) {
    case ConfigureRefusal::kNone:
      break;
    case ConfigureRefusal::kVariation:
      return variation_;
    case ConfigureRefusal::kErrorCircleEmpty:
    case ConfigureRefusal::kErrorCircleZero:
      return error_circle_;
    case ConfigureRefusal::kBoatSpeed:
      return boat_speed_;
    case ConfigureRefusal::kClosestSailingAngle:
      return sailing_angle_;
    case ConfigureRefusal::kCalcInterval:
      return calc_interval_;
    case ConfigureRefusal::kBarbWeight:
      return barb_weight_;
    case ConfigureRefusal::kBarbLength:
      return barb_length_;
    case ConfigureRefusal::kBarbSpacing:
      return barb_spacing_;
    case ConfigureRefusal::kStreamLineWidth:
      return stream_line_width_;
    case ConfigureRefusal::kTextSize:
      return text_size_;
  }
  return nullptr;
}

void FrmConfigure::Accept() {
  AppConfig changed = config_;
  const ConfigureRefusal refusal = ApplyConfigureEntry(Entry(), changed);
  if (refusal != ConfigureRefusal::kNone) {
    QWidget* field = FieldOf(refusal);
    for (int page = 0; page < pages_->count(); ++page) {
      if (pages_->widget(page)->isAncestorOf(field)) pages_->setCurrentIndex(page);
    }
    Refuse(ConfigureText(refusal), ConfigureBeeps(refusal), field);
    return;
  }
  const Status saved = CommitConfigure(desktop().program, changed, desktop().messages);
  if (!saved) desktop().messages.Show(saved.error().Text(), MessageIcon::kWarning);
  accept();
  desktop().window.Changed(kSettingsChanged | kRouteChanged);
}

void FrmConfigure::mouseDoubleClickEvent(QMouseEvent* event) {
  Dialog::mouseDoubleClickEvent(event);
  if (event->button() == Qt::LeftButton && show_tools_) show_tools_();
}

void FrmConfigure::showEvent(QShowEvent* event) {
  Dialog::showEvent(event);
  const QRect room = screen()->availableGeometry();
  move(room.center() - QPoint(width() / 2, height() / 2));
}

}  // namespace skerrow
