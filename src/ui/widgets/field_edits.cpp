#include "ui/widgets/field_edits.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QStyle>
#include <QValidator>

#include "ui/widgets/qt_text.h"

namespace skerrow {
namespace {

// Takes out of every change, pastes included, what the filter drops.
class FilterValidator final : public QValidator {
 public:
  FilterValidator(KeyFilter filter, QObject* parent) : QValidator(parent), filter_(filter) {}

  State validate(QString& input, int& position) const override {
    const QString kept = QString::fromStdU32String(FilterText(filter_, input.toStdU32String()));
    if (kept != input) {
      const auto before = input.left(position).toStdU32String();
      position = static_cast<int>(FilterText(filter_, before).size());
      input = kept;
    }
    return Acceptable;
  }

 private:
  KeyFilter filter_;
};

FilteredEdit* MakeEdit(KeyFilter filter, Messages& beeper, const char* name, int columns,
                       const char* placeholder, const QString& tip) {
  auto* edit = new FilteredEdit(filter, beeper, name);
  edit->SetColumns(columns);
  edit->setPlaceholderText(QString::fromUtf8(placeholder));
  edit->setToolTip(tip);
  return edit;
}

QComboBox* MakeTwoDigitList(const char* name, int count, const QString& tip) {
  auto* list = new QComboBox;
  list->setObjectName(QString::fromUtf8(name));
  for (int i = 0; i < count; ++i) {
    list->addItem(QStringLiteral("%1").arg(i, 2, 10, QLatin1Char('0')));
  }
  list->setToolTip(tip);
  list->setMaxVisibleItems(12);
  return list;
}

}  // namespace

FilteredEdit::FilteredEdit(KeyFilter filter, Messages& beeper, const char* name, QWidget* parent)
    : QLineEdit(parent), filter_(filter), beeper_(beeper) {
  setObjectName(QString::fromUtf8(name));
  SetFilter(filter);
}

void FilteredEdit::SetFilter(KeyFilter filter) {
  filter_ = filter;
  delete validator();
  setValidator(new FilterValidator(filter, this));
}

std::string FilteredEdit::Text() const { return FromQt(text()); }

void FilteredEdit::SetText(std::string_view text) { setText(ToQt(text)); }

void FilteredEdit::SetColumns(int digits) {
  const int width = fontMetrics().horizontalAdvance(QLatin1Char('0')) * (digits + 2) + 12;
  setFixedWidth(width);
}

void FilteredEdit::keyPressEvent(QKeyEvent* event) {
  const QString text = event->text();
  const bool command = event->modifiers() & (Qt::ControlModifier | Qt::AltModifier);
  if (!command && text.size() == 1 && text.at(0).isPrint()) {
    const KeyVerdict verdict = JudgeKey(filter_, text.at(0).unicode());
    if (!verdict.pass) {
      if (verdict.beep) beeper_.Beep();
      event->accept();
      return;
    }
  }
  QLineEdit::keyPressEvent(event);
}

FilteredEdit* MakeSpeedEdit(Messages& beeper, const char* name) {
  return MakeEdit(KeyFilter::kNumber, beeper, name, 6, "5.0", "Speed in knots");
}

FilteredEdit* MakeBearingEdit(Messages& beeper, const char* name) {
  return MakeEdit(KeyFilter::kNumber, beeper, name, 6, "045", "Degrees, 0 to 360");
}

FilteredEdit* MakeLatitudeEdit(Messages& beeper, const char* name) {
  return MakeEdit(KeyFilter::kLatitude, beeper, name, 10, "50.30.25N",
                  "Degrees, minutes and hundredths, N or S: 50.30.25N");
}

FilteredEdit* MakeLongitudeEdit(Messages& beeper, const char* name) {
  return MakeEdit(KeyFilter::kLongitude, beeper, name, 10, "001.05.40W",
                  "Degrees, minutes and hundredths, E or W: 001.05.40W");
}

TimeEntry::TimeEntry(Messages& beeper, const char* text_name, const char* hours_name,
                     const char* minutes_name, QWidget* parent)
    : QWidget(parent),
      text_(MakeEdit(KeyFilter::kTime, beeper, text_name, 5, "hh:mm", "Hours and minutes: 09:05")),
      hours_(MakeTwoDigitList(hours_name, 24, "Hours")),
      minutes_(MakeTwoDigitList(minutes_name, 60, "Minutes")) {
  auto* row = new QHBoxLayout(this);
  row->setContentsMargins(0, 0, 0, 0);
  row->setSpacing(6);
  row->addWidget(text_);
  row->addWidget(hours_);
  row->addWidget(new QLabel(QStringLiteral(":")));
  row->addWidget(minutes_);
  row->addStretch(1);
  setFocusProxy(text_);
  setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
  for (QComboBox* list : {hours_, minutes_}) {
    connect(list, &QComboBox::activated, this, [this] { ListsToText(); });
  }
  connect(text_, &QLineEdit::textEdited, this, [this] { SetText(text_->Text()); });
}

void TimeEntry::SetText(std::string_view text) {
  if (text_->Text() != text) text_->SetText(text);
  const QStringList parts = ToQt(text).split(QLatin1Char(':'));
  if (parts.size() != 2) return;
  const int hours = parts[0].toInt();
  const int minutes = parts[1].toInt();
  if (hours >= 0 && hours < hours_->count()) hours_->setCurrentIndex(hours);
  if (minutes >= 0 && minutes < minutes_->count()) minutes_->setCurrentIndex(minutes);
}

void TimeEntry::ListsToText() {
  text_->setText(hours_->currentText() + QLatin1Char(':') + minutes_->currentText());
}

}  // namespace skerrow
