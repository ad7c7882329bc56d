#include "ui/tides/frmDiaRate.h"

#include <QEvent>

#include "ui/widgets/print_lines.h"
#include "ui/widgets/qt_text.h"

namespace skerrow {
namespace {

constexpr int kPictureWidth = 900;
constexpr int kPictureHeight = 420;
constexpr int kPictureScale = 3;
constexpr std::int32_t kCursorColour = 0x404040;

}  // namespace

frmDiaRate::frmDiaRate(Desktop& desktop, const Diamond& diamond, const RateGraph& graph,
                       QWidget* parent)
    : Dialog(desktop, "frmDiaRate", "Graph of Predicted Stream vs Time", parent),
      diamond_(diamond),
      graph_(graph),
      picture_(new PlotWidget("picRate")),
      readout_(Named<QLabel>("lblReadout")) {
  QLabel* title = MakeHeading(ToQt(RateGraphTitle(graph_)));
  title->setObjectName("lblTitle");
  body()->addWidget(title);
  picture_->SetPlot(DiamondRatePlot(diamond_, graph_));
  picture_->SetKeyStep(1.0);
  picture_->SetPlace(1.0);
  picture_->setAccessibleName("Rate of the stream over the day");
  picture_->setAccessibleDescription("The arrow keys move the readout");
  body()->addWidget(picture_, 1);
  readout_->setText(ToQt(RateReadout(graph_.stream, 1)));
  body()->addWidget(readout_);
  for (const char* note : kRateGraphNotes) body()->addWidget(MakeHint(note));
  QPushButton* print =
      AddLeftButton("cmdPrint", "&Print...", "Prints the graph and the diamond's data");
  QPushButton* close = AddButton("cmdClose", "Close");
  close->setDefault(true);
  connect(print, &QPushButton::clicked, this, [this] {
    PrintPages(this->desktop(), this,
               DiamondRatePage(this->desktop().program, diamond_, graph_,
                               picture_->ToPicture(kPictureWidth, kPictureHeight, kPictureScale)));
  });
  connect(close, &QPushButton::clicked, this, &QDialog::accept);
  connect(picture_, &PlotWidget::Pointed, this, [this](double x) { ShowEntry(x); });
  FollowLook();
  ShowEntry(1.0);
  picture_->setFocus();
  resize(820, 560);
}

void frmDiaRate::ShowEntry(double x) {
  const int entry = RateEntry(x);
  const DayStreamEntry& stream = graph_.stream[static_cast<std::size_t>(entry) - 1];
  PlotCursor cursor;
  cursor.x = entry;
  cursor.colour = kCursorColour;
  if (stream.known) cursor.dot = stream.rate;
  picture_->SetCursors({cursor});
  readout_->setText(ToQt(RateReadout(graph_.stream, entry)));
}

void frmDiaRate::FollowLook() { picture_->SetLook(LookOf(desktop().view)); }

void frmDiaRate::changeEvent(QEvent* event) {
  Dialog::changeEvent(event);
  if (event->type() == QEvent::PaletteChange && picture_ != nullptr) FollowLook();
}

}  // namespace skerrow
