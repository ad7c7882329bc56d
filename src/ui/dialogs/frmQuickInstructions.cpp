#include "ui/dialogs/frmQuickInstructions.h"

#include <QTextBrowser>

namespace skerrow {
namespace {

constexpr const char* kText = R"(### Find your waters
* **File > Change Chart** lists the sea areas and their charts with a preview. The keys **=** and
  **-** change to a more or a less detailed chart at the cursor.
* Drag the chart with the left button, or use the arrow keys. The wheel zooms about the pointer.

### Set the time
* Chart, tides and streams all stand at one time, shown in the status bar. **Date and Time** sets
  it; **Realtime** goes back to the clock.

### Lay a route
* Hold **Shift** and click each point with the left button. A point on a waypoint takes its name.
* **Backspace** takes the last point off. With a point marked, **Insert** and **Delete** add and
  remove one; **Route Drag** moves points with the right button held.
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

}  // namespace

FrmQuickInstructions::FrmQuickInstructions(Desktop& desktop, QWidget* parent)
    : Dialog(desktop, "frmQuickInstructions", tr("Quick Instructions"), parent) {
  auto* text = Named<QTextBrowser>("txtInstructions");
  text->setMarkdown(QString::fromUtf8(kText));
  text->document()->setDocumentMargin(14);
  text->setAccessibleName(windowTitle());
  body()->addWidget(text, 1);
  QPushButton* close = AddButton("cmdOK", tr("OK"));
  close->setDefault(true);
  connect(close, &QPushButton::clicked, this, &QDialog::accept);
  resize(620, 560);
}

}  // namespace skerrow
