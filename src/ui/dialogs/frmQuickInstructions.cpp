#include "ui/dialogs/frmQuickInstructions.h"

#include <QTextBrowser>

namespace skerrow {
namespace {

constexpr const char* kSection = "Help";
constexpr const char* kOfferedKey = "QuickInstructionsOffered";

constexpr const char* kText = R"(### Find your waters
* **File › Change Chart** lists the sea areas and their charts with a preview. The keys **=** and
  **-** change to a more or a less detailed chart at the cursor.
* Drag the chart with the left button, or use the arrow keys. The wheel zooms about the pointer.

### Set the time
* Chart, tides and streams all stand at one time, shown in the title bar. **Date and Time** sets
  it; **Realtime Mode** goes back to the clock.

### Lay a route
* Hold **Shift** and click each point with the left button. With **Point & Click at Waypoint** on,
  a point on a waypoint takes its name.
* **Backspace** takes the last point off. **Insert** and **Delete** add one at the cursor and remove
  the one nearest to it; with **Drag Route Point** on, the right button moves points.
* **Save Current Route** keeps it. Nothing is saved by itself.

### Calculate the passage
* **Calculate Course for Route** asks for the time of departure, the speed of each leg and the
  leeway. Each leg leaves when the one before has arrived.
* *Steer* is the magnetic heading with leeway; *bearing* is true and without it. The predicted
  track on the chart is where the tide takes you while you hold that heading.
* A warning in the results means that a leg cannot be done: look at the time or the speed again.
* **Calculate Optimum Route Time** tries every hour of a slot. Point at a bar to read its time and
  take it into the route calculation from the pop-up menu.

### Look before you leave
* The animation runs the boat along the track, with the tide rolling beneath it.
* Every figure is derived and approximate. Compare it with your tables, and keep a lookout.
)";

// Wide enough that the page stands on a screen of 720 lines without scrolling.
constexpr int kWidth = 860;
constexpr int kIndent = 18;

}  // namespace

frmQuickInstructions::frmQuickInstructions(Desktop& desktop, QWidget* parent)
    : Dialog(desktop, "frmQuickInstructions", "Quick Instructions", parent) {
  auto* text = Named<QTextBrowser>("txtInstructions");
  text->document()->setDocumentMargin(14);
  text->document()->setIndentWidth(kIndent);
  text->setMarkdown(QString::fromUtf8(kText));
  text->setAccessibleName(windowTitle());
  body()->addWidget(text, 1);
  QPushButton* close = AddButton("cmdOK", "OK");
  close->setDefault(true);
  connect(close, &QPushButton::clicked, this, &QDialog::accept);
  text->document()->setTextWidth(kWidth - 60);
  const int frame = sizeHint().height() - text->sizeHint().height();
  resize(kWidth, static_cast<int>(text->document()->size().height()) + frame + kIndent);
}

void OfferQuickInstructions(Desktop& desktop, QWidget* parent) {
  if (desktop.settings.GetInt(kSection, kOfferedKey, 0) != 0) return;
  desktop.settings.SetInt(kSection, kOfferedKey, 1);
  frmQuickInstructions(desktop, parent).exec();
}

}  // namespace skerrow
