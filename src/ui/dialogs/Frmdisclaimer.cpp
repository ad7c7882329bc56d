#include "ui/dialogs/Frmdisclaimer.h"

#include <QAction>
#include <QFrame>
#include <QLabel>
#include <QListWidget>
#include <QMenu>
#include <QMenuBar>
#include <QPainter>
#include <QPainterPath>
#include <QPushButton>
#include <QVBoxLayout>
#include <cmath>

#include "ui/forms/disclaimer_text.h"
#include "ui/widgets/dialog.h"
#include "ui/widgets/qt_text.h"
#include "ui/widgets/theme.h"

namespace skerrow {
namespace {

// A band over the form: the name of the program above a tide curve.
class Banner final : public QWidget {
 public:
  Banner() { setFixedHeight(96); }

 protected:
  void paintEvent(QPaintEvent*) override {
    const Theme& theme = ThemeInForce();
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    QLinearGradient sky(0, 0, width(), height());
    sky.setColorAt(0, theme.night ? theme.button : QColor(0x0d, 0x2b, 0x4e));
    sky.setColorAt(1, theme.night ? theme.base : QColor(0x1f, 0x6a, 0xa5));
    painter.fillRect(rect(), sky);
    PaintTide(painter, 0.87, 4.5, theme.night ? theme.border : QColor(255, 255, 255, 60));
    PaintTide(painter, 0.93, 3.5, theme.night ? theme.accent : QColor(255, 255, 255, 100));
    painter.setPen(theme.night ? theme.text : QColor(Qt::white));
    QFont title = font();
    title.setPointSizeF(title.pointSizeF() * 1.9);
    title.setWeight(QFont::DemiBold);
    painter.setFont(title);
    painter.drawText(QPointF(22, 44), QStringLiteral("Skerrow Helm"));
    painter.setFont(font());
    painter.drawText(QPointF(24, 66), "Passage planning for small craft");
  }

 private:
  void PaintTide(QPainter& painter, double level, double height, const QColor& colour) {
    QPainterPath path;
    for (int x = 0; x <= width(); x += 4) {
      const double y = level * this->height() + height * std::sin(x / 46.0 + level * 9.0);
      x == 0 ? path.moveTo(x, y) : path.lineTo(x, y);
    }
    painter.setPen(QPen(colour, 2));
    painter.drawPath(path);
  }
};

}  // namespace

Frmdisclaimer::Frmdisclaimer(Program& program, Messages& messages, QWidget* parent)
    : QDialog(parent) {
  setObjectName(QStringLiteral("Frmdisclaimer"));
  setWindowTitle(ToQt(kStartCaption));
  auto* outer = new QVBoxLayout(this);
  outer->setContentsMargins(0, 0, 0, 0);
  outer->setSpacing(0);
  auto* bar = new QMenuBar;
  QMenu* file = bar->addMenu("&File");
  auto* restore = new QAction("&Restore Defaults", this);
  restore->setObjectName(QStringLiteral("mnuRestoreDefaults"));
  restore->setStatusTip("Puts all settings back to what they were when new");
  file->addAction(restore);
  outer->setMenuBar(bar);
  outer->addWidget(new Banner);
  auto* column = new QVBoxLayout;
  column->setContentsMargins(22, 16, 22, 16);
  column->setSpacing(12);
  auto* text = Named<QListWidget>("List1");
  text->setWordWrap(true);
  text->setSelectionMode(QAbstractItemView::NoSelection);
  text->setFocusPolicy(Qt::TabFocus);
  text->setFrameShape(QFrame::NoFrame);
  text->setSpacing(3);
  text->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  text->setAutoFillBackground(false);
  text->viewport()->setAutoFillBackground(false);
  for (const std::string_view line : DisclaimerLines()) text->addItem(ToQt(line));
  column->addWidget(text, 1);
  auto* buttons = new QHBoxLayout;
  buttons->addStretch(1);
  auto* accept_button = Named<QPushButton>("cmdCCok", "&Accept");
  auto* decline = Named<QPushButton>("cmddecline", "&Decline");
  accept_button->setDefault(true);
  for (QPushButton* button : {accept_button, decline}) {
    button->setMinimumWidth(110);
    button->setAutoDefault(false);
    buttons->addWidget(button);
  }
  column->addLayout(buttons);
  outer->addLayout(column, 1);
  connect(restore, &QAction::triggered, this,
          [&program, &messages] { RestoreDefaults(program, messages); });
  connect(accept_button, &QPushButton::clicked, this, [this, &program] {
    program.charts.history.clear();
    accept();
  });
  connect(decline, &QPushButton::clicked, this, &QDialog::reject);
  accept_button->setFocus();
  resize(640, 600);
}

bool Frmdisclaimer::Prepare(const Program& program, const DateServices& services,
                            Messages& messages) {
  MakeUserFolders(program.folders);
  if (!DetectDateOrder(services).empty()) return true;
  messages.Show(DateOrderFailureText(), MessageIcon::kError);
  return false;
}

}  // namespace skerrow
