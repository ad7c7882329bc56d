#include "ui/instruments/frmAISSummary.h"

#include <QHeaderView>
#include <QScrollBar>
#include <QSplitter>
#include <algorithm>
#include <utility>

#include "core/calendar.h"
#include "ui/widgets/key_action.h"
#include "ui/widgets/qt_text.h"

namespace skerrow {
namespace {

// Widths of the columns, in digits of the list's font.
constexpr int kWidths[kTargetColumns] = {7, 13, 12, 21, 16, 17};

}  // namespace

frmAISSummary::frmAISSummary(Desktop& desktop, ShowPlace show_place, QWidget* parent)
    : LiveDialog(desktop, "frmAISSummary", "AIS Target List", parent),
      show_place_(std::move(show_place)),
      model_(new TargetModel(this)),
      filter_(Named<QLineEdit>("txtFilter")),
      count_(MakeHint("")),
      list_(Named<QTreeView>("lstAISTargets")),
      time_(Named<QLabel>("lblTime")),
      name_(MakeHeading("")),
      details_(new TextList(desktop.clipboard, "List1")),
      mark_(Named<QPushButton>("cmdMark", "&Mark This Point")),
      clear_(Named<QPushButton>("cmdClearMark", "C&lear Marked Point")) {
  auto* sides = new QSplitter(Qt::Horizontal);
  sides->setChildrenCollapsible(false);
  sides->addWidget(MakeListSide());
  sides->addWidget(MakeDetailSide());
  sides->setSizes({700, 340});
  sides->setStretchFactor(0, 5);
  sides->setStretchFactor(1, 2);
  body()->addWidget(sides, 1);
  QPushButton* copy = AddLeftButton("cmdCopyList", "&Copy List to Clipboard");
  copy_details_ = AddLeftButton("cmdCopyDetails", "Copy &Details to Clipboard");
  show_ = AddButton("cmdShow", "&Show on Chart",
                    "Brings the vessel into the middle of the chart and opens its details");
  QPushButton* close = AddButton("cmdClose", "Close");
  connect(copy, &QPushButton::clicked, this, [this] {
    const Program& program = this->desktop().program;
    this->desktop().clipboard.SetText(TargetListText(program, AisHours(program.clock->Now())));
  });
  connect(copy_details_, &QPushButton::clicked, this,
          [this] { this->desktop().clipboard.SetText(TargetDetailsText(details_->lines())); });
  connect(show_, &QPushButton::clicked, this, [this] { ShowOnChart(); });
  connect(close, &QPushButton::clicked, this, &QDialog::accept);
  QWidget* const order[] = {list_, filter_,       details_, mark_, clear_,
                            copy,  copy_details_, show_,    close};
  for (std::size_t i = 1; i < std::size(order); ++i) setTabOrder(order[i - 1], order[i]);
  list_->setFocus();
  resize(1080, 480);
}

QWidget* frmAISSummary::MakeListSide() {
  auto* side = new QWidget;
  auto* rows = MakeColumn();
  rows->setContentsMargins(0, 0, 0, 0);
  side->setLayout(rows);
  filter_->setPlaceholderText("Name or MMSI");
  filter_->setClearButtonEnabled(true);
  filter_->setMaximumWidth(filter_->fontMetrics().horizontalAdvance(QLatin1Char('0')) * 30);
  count_->setObjectName(QStringLiteral("lblCount"));
  count_->setWordWrap(false);
  auto* top = new QHBoxLayout;
  top->setSpacing(8);
  top->addWidget(MakeLabel("&Filter:", filter_));
  top->addWidget(filter_, 1);
  top->addStretch(1);
  top->addWidget(count_);
  rows->addLayout(top);

  list_->setModel(model_);
  list_->setRootIsDecorated(false);
  list_->setUniformRowHeights(true);
  list_->setAllColumnsShowFocus(true);
  list_->setAlternatingRowColors(true);
  list_->setSelectionMode(QAbstractItemView::SingleSelection);
  list_->setSelectionBehavior(QAbstractItemView::SelectRows);
  list_->setVerticalScrollMode(QAbstractItemView::ScrollPerItem);
  list_->setAccessibleName("AIS targets");
  const int digit = list_->fontMetrics().horizontalAdvance(QLatin1Char('0'));
  QHeaderView* header = list_->header();
  for (int column = 0; column < static_cast<int>(kTargetColumns); ++column) {
    header->resizeSection(column, kWidths[column] * digit);
  }
  header->setSectionsMovable(false);
  header->setSectionsClickable(true);
  header->setSortIndicatorShown(true);
  header->setSortIndicator(0, Qt::AscendingOrder);
  header->setToolTip("Click to sort by this column");
  rows->addWidget(list_, 1);
  rows->addWidget(time_);

  connect(header, &QHeaderView::sortIndicatorChanged, this, &frmAISSummary::SortBy);
  connect(filter_, &QLineEdit::textChanged, this, [this] { Follow(); });
  connect(list_->selectionModel(), &QItemSelectionModel::selectionChanged, this,
          [this] { Selected(); });
  connect(list_, &QTreeView::doubleClicked, this, [this] { ShowOnChart(); });
  KeyAction::Install(list_, Qt::Key_Return, [this] { ShowOnChart(); });
  // From the filter into what it has found.
  const auto to_list = [this] {
    if (!list_->currentIndex().isValid() && model_->rowCount() > 0) {
      list_->setCurrentIndex(model_->index(0, 0));
    }
    list_->setFocus();
  };
  KeyAction::Install(filter_, Qt::Key_Return, to_list);
  KeyAction::Install(filter_, Qt::Key_Down, to_list);
  return side;
}

QWidget* frmAISSummary::MakeDetailSide() {
  auto* side = new QWidget;
  auto* rows = MakeColumn();
  rows->setContentsMargins(0, 0, 0, 0);
  side->setLayout(rows);
  name_->setObjectName(QStringLiteral("lblName"));
  name_->setTextFormat(Qt::PlainText);
  name_->setWordWrap(false);
  rows->addWidget(name_);
  details_->setAccessibleName("Details of the selected target");
  rows->addWidget(details_, 1);
  for (QPushButton* button : {mark_, clear_}) button->setAutoDefault(false);
  mark_->setToolTip("Ranges and bearings of the readout are from there");
  auto* buttons = new QHBoxLayout;
  buttons->setSpacing(8);
  buttons->addWidget(mark_, 1);
  buttons->addWidget(clear_, 1);
  rows->addLayout(buttons);
  connect(mark_, &QPushButton::clicked, this, [this] {
    const AisTarget* target = Target();
    if (target == nullptr) return;
    MarkTarget(desktop().view, *target);
    desktop().window.Changed(kViewChanged);
    Follow();
  });
  connect(clear_, &QPushButton::clicked, this, [this] {
    ClearTargetMark(desktop().view);
    desktop().window.Changed(kViewChanged);
    // The keyboard must not stay on a button that cannot be pressed any more.
    list_->setFocus();
    Follow();
  });
  return side;
}

std::int32_t frmAISSummary::SelectedMmsi() const {
  const QModelIndexList selected = list_->selectionModel()->selectedRows();
  return selected.isEmpty() ? 0
                            : model_->rows()[static_cast<std::size_t>(selected.front().row())].mmsi;
}

const AisTarget* frmAISSummary::Target() const {
  const std::int32_t mmsi = SelectedMmsi();
  return mmsi == 0 ? nullptr : std::as_const(desktop().program.ais.targets).Find(mmsi);
}

void frmAISSummary::SortBy(int column, Qt::SortOrder order) {
  order_ = {static_cast<TargetColumn>(column), order == Qt::DescendingOrder};
  Follow();
}

void frmAISSummary::Follow() {
  const Program& program = desktop().program;
  const float now = AisHours(program.clock->Now());
  // What stays in its place while the list changes: the selected vessel where it can be seen, else
  // the uppermost one. At the top the list stays at its top.
  QScrollBar& bar = *list_->verticalScrollBar();
  const int top = bar.value();
  const int page = std::max(1, bar.pageStep());
  const int selected = model_->RowOf(SelectedMmsi());
  int anchor = top > 0 ? top : -1;
  if (selected >= top && selected < top + page) anchor = selected;
  const bool anchored = anchor >= 0 && anchor < model_->rowCount();
  const std::int32_t vessel = anchored ? model_->rows()[static_cast<std::size_t>(anchor)].mmsi : 0;

  std::vector<TargetRow> rows = TargetRows(program, now);
  const std::size_t all = rows.size();
  model_->SetRows(ArrangedTargets(std::move(rows), FromQt(filter_->text()), order_));
  if (anchored) {
    list_->doItemsLayout();
    if (const int place = model_->RowOf(vessel); place >= 0) bar.setValue(place - (anchor - top));
  }
  SetTextOf(*count_, ToQt(TargetCountText(model_->rows().size(), all)));
  SetTextOf(*time_, ToQt(HoursToClock(now)));
  ShowDetails();
}

void frmAISSummary::ShowDetails() {
  const AisTarget* target = Target();
  for (QPushButton* button : {mark_, copy_details_, show_}) button->setEnabled(target != nullptr);
  clear_->setEnabled(desktop().view.marked_point_on);
  if (target == nullptr) {
    SetTextOf(*name_, model_->rowCount() > 0 ? QStringLiteral("Select a target")
                                             : QStringLiteral("No target"));
    details_->UpdateLines({});
    return;
  }
  SetTextOf(*name_, ToQt(TargetName(*target)));
  const std::vector<std::string> rows =
      AisDetailRows(*target, AisHours(desktop().program.clock->Now()));
  details_->UpdateLines(rows, TargetDetailLooks(rows));
}

void frmAISSummary::Selected() {
  ShowDetails();
  if (!isVisible() || desktop().view.shown_target == SelectedMmsi()) return;
  desktop().view.shown_target = SelectedMmsi();
  desktop().window.Changed(kTargetsChanged);
}

void frmAISSummary::ShowOnChart() {
  const AisTarget* target = Target();
  if (target == nullptr) return;
  show_place_(target->At());
  OpenAisDetails(desktop(), target->mmsi, show_place_, parentWidget());
}

void frmAISSummary::showEvent(QShowEvent* event) {
  LiveDialog::showEvent(event);
  Selected();
}

void frmAISSummary::hideEvent(QHideEvent* event) {
  LiveDialog::hideEvent(event);
  if (desktop().view.shown_target != SelectedMmsi()) return;
  desktop().view.shown_target = 0;
  desktop().window.Changed(kTargetsChanged);
}

void OpenAisSummary(Desktop& desktop, const ShowPlace& show_place, QWidget* parent) {
  auto* window = parent->window()->findChild<frmAISSummary*>();
  if (window == nullptr) window = new frmAISSummary(desktop, show_place, parent->window());
  window->show();
  window->raise();
  window->activateWindow();
}

}  // namespace skerrow
