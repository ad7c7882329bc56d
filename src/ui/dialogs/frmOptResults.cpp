#include "ui/dialogs/frmOptResults.h"

#include <QAction>
#include <QMenu>
#include <QMenuBar>
#include <QSplitter>
#include <QToolBar>

#include "ui/dialogs/frmcalcroute.h"
#include "ui/edits.h"
#include "ui/forms/report_look.h"
#include "ui/widgets/print_lines.h"
#include "ui/widgets/qt_text.h"

namespace skerrow {

frmOptResults::frmOptResults(Desktop& desktop, QWidget* parent)
    : Dialog(desktop, "frmOptResults", "Optimum Results", parent),
      chart_(new DepartureChart(OptimumChart(desktop.program.passage.optimum_times,
                                             desktop.program.passage.optimum_start_hour))),
      scale_(new HourScale(*chart_)),
      list_(new TextList(desktop.clipboard, "lstResults")),
      cursor_(Named<QLabel>("lblCursor")) {
  list_->SetLines(desktop.program.passage.result_lines);
  MakeCommands();
  auto* top = new QWidget;
  auto* column = new QVBoxLayout(top);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(2);
  cursor_->setProperty("heading", true);
  column->addWidget(cursor_);
  column->addSpacing(4);
  column->addWidget(chart_, 1);
  column->addWidget(scale_);
  auto* splitter = new QSplitter(Qt::Vertical);
  splitter->addWidget(top);
  splitter->addWidget(list_);
  splitter->setChildrenCollapsible(false);
  splitter->setSizes({320, 220});
  body()->addWidget(splitter, 1);
  QPushButton* close = AddButton("cmdClose", "&Close");
  close->setDefault(true);
  connect(close, &QPushButton::clicked, this, &QDialog::accept);
  connect(chart_, &DepartureChart::Marked, this, [this](std::size_t index) { ShowMarked(index); });
  connect(chart_, &DepartureChart::Chosen, this, [this] { CalculateCourse(); });
  if (!chart_->chart().empty()) chart_->Mark(chart_->chart().extremes().shortest);
  chart_->setFocus();
  resize(780, 640);
}

QAction* frmOptResults::MakeAction(const char* name, const QString& text) {
  auto* action = new QAction(text, this);
  action->setObjectName(QString::fromUtf8(name));
  return action;
}

void frmOptResults::MakeCommands() {
  const auto copy_all = [this] { desktop().clipboard.SetText(JoinLines(list_->lines()) + "\n"); };
  const auto copy_image = [this] { CopyImage(); };
  const auto print = [this] { Print(); };
  const auto calculate = [this] { CalculateCourse(); };
  const auto add = [this](QWidget* where, const char* name, const QString& text, auto slot) {
    QAction* action = MakeAction(name, text);
    connect(action, &QAction::triggered, this, slot);
    where->addAction(action);
    return action;
  };

  auto* bar = new QMenuBar;
  QMenu* file = bar->addMenu("&File");
  add(file, "mnuPrint", "&Print Results", print)->setShortcut(QKeySequence::Print);
  QMenu* edit = bar->addMenu("&Edit");
  add(edit, "mnuEditCopyGraph", "Copy &Graph As Image", copy_image);
  add(edit, "mnuCopyAll", "Copy &All", copy_all);
  add(edit, "mnuCopySelected", "Copy &Selected", [this] { list_->CopySelected(); });
  layout()->setMenuBar(bar);

  auto* tools = new QToolBar;
  tools->setToolButtonStyle(Qt::ToolButtonTextOnly);
  add(tools, "COPYTEXT", "Copy Text", copy_all)->setToolTip("Puts all lines on the clipboard");
  add(tools, "COPYIMG", "Copy Chart", copy_image)
      ->setToolTip("Puts the chart on the clipboard as a picture");
  add(tools, "PRINT", "Print", print)->setToolTip("Prints chart and lines (Ctrl+P)");
  tools->addSeparator();
  add(tools, "CALC", "Calculate Course to Steer", calculate)
      ->setToolTip("Takes the marked departure into the route calculation (Enter)");
  body()->addWidget(tools);

  auto* popup = new QMenu(this);
  popup->setObjectName(QStringLiteral("mnuGraphPopUp"));
  add(popup, "mnuGraphCopy", "Copy &Graph As Image", copy_image);
  add(popup, "mnuPopUpCopyAsText", "Copy Results As &Text", copy_all);
  add(popup, "mnuPopUpCTS", "&Calculate Course to Steer for this time", calculate);
  connect(chart_, &QWidget::customContextMenuRequested, this,
          [this, popup](const QPoint& at) { popup->popup(chart_->mapToGlobal(at)); });
}

void frmOptResults::ShowMarked(std::size_t index) {
  cursor_->setText(ToQt(chart_->chart().HoverText(index)));
}

void frmOptResults::CopyImage() {
  desktop().clipboard.SetPicture(
      chart_->ToPicture(chart_->width(), chart_->height() + scale_->height()));
}

void frmOptResults::Print() {
  PrintPages(desktop(), this,
             ReportPage("Optimum Results", RouteTitle(desktop().program), list_->lines(),
                        chart_->ToPicture(1000, 480)));
}

void frmOptResults::CalculateCourse() {
  const std::optional<std::size_t> marked = chart_->marked();
  if (!marked) return;
  // What was found with the speeds of the wind is calculated with them.
  if (!desktop().program.passage.optimum_speeds.empty()) {
    EditRoute(desktop(), "Speeds by Wind", [&](RouteState& route) {
      return TakeDepartureSpeeds(desktop().program.passage, *marked, route);
    });
  }
  SelectDeparture(desktop().program, chart_->chart().DepartureHours(*marked), desktop().messages);
  desktop().window.Changed(kRouteChanged | kTimeChanged);
  frmcalcroute(desktop(), this).exec();
  accept();
}

}  // namespace skerrow
