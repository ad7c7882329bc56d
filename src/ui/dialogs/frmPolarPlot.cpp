#include "ui/dialogs/frmPolarPlot.h"

#include <QEvent>

#include "core/numbers.h"
#include "ui/widgets/print_lines.h"
#include "ui/widgets/qt_text.h"

namespace skerrow {
namespace {

constexpr std::size_t kUsualOption = 5;  // 12 knots

}  // namespace

frmPolarPlot::frmPolarPlot(Desktop& desktop, const std::string& set_up, const PolarRows& rows,
                           const std::optional<PolarEstimate>& estimate, QWidget* parent)
    : Dialog(desktop, "frmPolarPlot", "Polar Plot", parent),
      set_up_(set_up),
      pictures_(new PolarPictures(desktop, this)) {
  QLabel* boat = MakeHeading(ToQt(set_up));
  boat->setObjectName("lblBoat");
  body()->addWidget(boat);
  auto* columns = new QHBoxLayout;
  columns->setSpacing(14);
  columns->addWidget(pictures_->polar(), 3);
  QVBoxLayout* right = MakeColumn();
  auto* head = new QHBoxLayout;
  head->setSpacing(20);
  head->addWidget(pictures_->options());
  QVBoxLayout* facts = MakeColumn();
  facts->addWidget(MakeHeading("At the cursor"));
  facts->addWidget(pictures_->cursor_label());
  facts->addWidget(pictures_->angle_label());
  auto* speed = Named<QLineEdit>("txtEstBoatSpeed");
  speed->setReadOnly(true);
  speed->setMaximumWidth(90);
  QLabel* heading = MakeHeading("Estimated boat speed");
  facts->addSpacing(10);
  facts->addWidget(heading);
  facts->addLayout(MakeRow({MakeLabel("&Speed:", speed), speed, new QLabel("kn")}));
  if (estimate) {
    speed->setText(ToQt(estimate->speed));
    facts->addWidget(MakeHint(ToQt("In a wind of " + FormatFixed(estimate->wind, 1, 1) + "kn, " +
                                   FormatFixed(estimate->angle, 1, 0) + "\u00b0 off the bow")));
  } else {
    facts->addWidget(MakeHint("Enter wind and heading to see the estimate on the polar."));
  }
  facts->addStretch(1);
  head->addLayout(facts, 1);
  right->addLayout(head);
  right->addWidget(pictures_->graph(), 1);
  columns->addLayout(right, 4);
  body()->addLayout(columns, 1);
  pictures_->graph()->setMinimumHeight(180);

  QPushButton* print = AddLeftButton("cmdPrint", "&Print...", "Prints the polar and its graph");
  QPushButton* close = AddButton("cmdClose", "Close");
  close->setDefault(true);
  connect(print, &QPushButton::clicked, this, [this] { Print(); });
  connect(close, &QPushButton::clicked, this, &QDialog::accept);
  pictures_->SetRows(rows, estimate);
  pictures_->Select(estimate ? OptionOfWind(estimate->wind) : kUsualOption);
  pictures_->polar()->setFocus();
  resize(1000, 640);
}

void frmPolarPlot::Print() {
  PrintDocument page;
  page.title = "Polar Plot " + set_up_;
  page.foot = page.title;
  page.items.push_back(PrintLine(page.title, {"", 14.0, true}));
  page.items.push_back(PrintPicture(pictures_->PolarPage(), 90.0));
  page.items.push_back(PrintPicture(pictures_->GraphPage()));
  PrintPages(desktop(), this, page);
}

void frmPolarPlot::changeEvent(QEvent* event) {
  Dialog::changeEvent(event);
  if (event->type() == QEvent::PaletteChange && pictures_ != nullptr) pictures_->FollowLook();
}

}  // namespace skerrow
