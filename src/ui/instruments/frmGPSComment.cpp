#include "ui/instruments/frmGPSComment.h"

#include <QGridLayout>
#include <QKeyEvent>

#include "ui/forms/track_forms.h"
#include "ui/widgets/key_action.h"
#include "ui/widgets/qt_text.h"

namespace skerrow {

frmGPSComment::frmGPSComment(Desktop& desktop, QWidget* parent)
    : LiveDialog(desktop, "frmGPSComment", "GPS Comment", parent),
      interval_(Named<QLabel>("lblInterval")),
      date_(Named<QLabel>("lblDate")),
      time_(Named<QLabel>("lblTime")),
      place_(Named<QLabel>("lblPosition")),
      logging_(MakeHint({})) {
  auto* head = new QGridLayout;
  head->setHorizontalSpacing(12);
  head->setVerticalSpacing(4);
  int row = 0;
  const auto add = [&](const QString& title, QLabel* value) {
    head->addWidget(new QLabel(title), row, 0);
    value->setProperty("heading", true);
    head->addWidget(value, row++, 1);
  };
  add("Date", date_);
  add("Time", time_);
  add("Position", place_);
  head->setColumnStretch(1, 1);
  body()->addWidget(interval_);
  body()->addLayout(head);
  body()->addSpacing(4);
  body()->addWidget(MakeHint(
      "Comment will be written to the log next update\nand automatically include GPS position, "
      "time and date"));
  constexpr std::array<const char*, kCommentLines> kNames = {
      "txtComment1", "txtComment2", "txtComment3", "txtComment4", "txtComment5"};
  for (std::size_t i = 0; i < kCommentLines; ++i) {
    QLineEdit* box = Named<QLineEdit>(kNames[i]);
    box->setMaxLength(static_cast<int>(kCommentLength));
    box->setAccessibleName(QString("Comment line %1").arg(i + 1));
    box->setMinimumWidth(box->fontMetrics().averageCharWidth() * 42);
    lines_[i] = box;
    body()->addWidget(box);
  }
  // Enter goes on to the next line, as on paper; in the last one it is OK.
  for (std::size_t i = 0; i + 1 < kCommentLines; ++i) {
    KeyAction::Install(lines_[i], Qt::Key_Return, [next = lines_[i + 1]] { next->setFocus(); });
  }
  logging_->setObjectName(QStringLiteral("lblLogging"));
  body()->addWidget(logging_);
  body()->addStretch(1);
  QPushButton* ok = AddButton("cmdOK", "OK");
  ok->setDefault(true);
  QPushButton* cancel = AddButton("cmdCancel", "Cancel");
  connect(ok, &QPushButton::clicked, this, [this] { Accept(); });
  connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
  lines_[0]->setFocus();
  Follow();
}

void frmGPSComment::Follow() {
  const Program& program = desktop().program;
  const CommentHeading heading = CommentHeadingOf(program.config, program.nmea.fix);
  const auto show = [](QLabel* label, const std::string& text) {
    SetTextOf(*label, text.empty() ? QStringLiteral("\u2013") : ToQt(text));
  };
  show(interval_, heading.interval);
  show(date_, heading.date);
  show(time_, heading.time);
  show(place_, heading.place);
  SetTextOf(*logging_, program.nmea.log.logging_on
                           ? QString()
                           : QStringLiteral("No log is written now: the comment shows on the chart "
                                            "at once and goes into the log when one is started."));
}

void frmGPSComment::Accept() {
  NmeaState& nmea = desktop().program.nmea;
  if (nmea.fix.boat_latitude == 0.0F) {
    Refuse(kNoPositionForComment, false, lines_[0]);
    return;
  }
  std::array<std::string, kCommentLines> typed;
  for (std::size_t i = 0; i < kCommentLines; ++i) typed[i] = FromQt(lines_[i]->text());
  MakeComment(nmea.log, nmea.fix, typed);
  accept();
  desktop().window.Changed(kTargetsChanged);
}

}  // namespace skerrow
