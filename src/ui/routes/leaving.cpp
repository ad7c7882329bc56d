#include "ui/routes/leaving.h"

#include <QCheckBox>

#include "app/recovery.h"
#include "core/text.h"
#include "routes/route_editing.h"
#include "ui/edits.h"
#include "ui/routes/frmRouteSave.h"
#include "ui/routes/frmWayEdit.h"
#include "ui/routes/frmWaySave.h"
#include "ui/widgets/qt_text.h"

namespace skerrow {
namespace {

// True when the unsaved work that `text` tells of has been saved by `Form`, or may go.
template <typename Form>
bool MayLose(Desktop& desktop, const QString& text, QWidget* parent) {
  frmUnsaved question(desktop, text, parent);
  question.exec();
  if (question.choice() != UnsavedChoice::kSave) {
    return question.choice() == UnsavedChoice::kDiscard;
  }
  return Form(desktop, parent).exec() == QDialog::Accepted;
}

// The choice of what to take back.
class RecoveryForm final : public Dialog {
 public:
  RecoveryForm(Desktop& desktop, const std::optional<KeptWork>& kept_route,
               const std::optional<KeptWork>& kept_waypoints, QWidget* parent)
      : Dialog(desktop, "frmRecovery", "Recovered Work", parent),
        route(Named<QCheckBox>("chkRoute")),
        waypoints(Named<QCheckBox>("chkWaypoints")) {
    body()->addWidget(MakeHeading("The program ended before this work was saved. Take it back?"));
    Offer(route, kept_route, "The &route of %1 points, as it was at %2");
    QString file = ToQt(kept_waypoints ? kept_waypoints->file_name : std::string());
    file.replace(QLatin1Char('&'), QStringLiteral("&&"));
    Offer(waypoints, kept_waypoints,
          QString("The %1 &waypoints of %2 that were being edited, as they were at %3")
              .arg(QStringLiteral("%1"), file, QStringLiteral("%2")));
    body()->addWidget(MakeHint("Nothing is written to your files by this."));
    body()->addStretch(1);
    QPushButton* discard = AddLeftButton("cmdDiscard", "&Discard", "Drops the work");
    QPushButton* recover = AddButton("cmdRecover", "R&ecover");
    recover->setDefault(true);
    QPushButton* later = AddButton("cmdCancel", "Cancel", "Asks again at the next start");
    connect(recover, &QPushButton::clicked, this, &QDialog::accept);
    connect(later, &QPushButton::clicked, this, &QDialog::reject);
    connect(discard, &QPushButton::clicked, this, [this] {
      route->setChecked(false);
      waypoints->setChecked(false);
      accept();
    });
    setMinimumWidth(440);
  }

  QCheckBox* route;
  QCheckBox* waypoints;

 private:
  void Offer(QCheckBox* box, const std::optional<KeptWork>& kept, const QString& text) {
    if (kept) box->setText(text.arg(kept->count).arg(ToQt(kept->time_text)));
    box->setChecked(kept.has_value());
    body()->addWidget(box);
    box->setVisible(kept.has_value());
  }
};

void TakeRouteBack(Desktop& desktop, const std::string& path) {
  const Status taken = EditRoute(desktop, "Recover Route", [&](RouteState& route) {
    return LoadRoute(path, RouteSpeeds::kStored, RouteDefaultsOf(desktop.program), route,
                     desktop.messages);
  });
  if (!taken) desktop.messages.Show(taken.error().Text(), MessageIcon::kWarning);
}

}  // namespace

frmUnsaved::frmUnsaved(Desktop& desktop, const QString& text, QWidget* parent)
    : Dialog(desktop, "frmUnsaved", "Unsaved Changes", parent) {
  body()->addWidget(MakeHeading(text));
  body()->addWidget(MakeHint("What is not saved will be lost."));
  body()->addStretch(1);
  QPushButton* discard = AddLeftButton("cmdDiscard", "&Don't Save");
  QPushButton* save = AddButton("cmdSave", "&Save...");
  save->setDefault(true);
  QPushButton* cancel = AddButton("cmdCancel", "Cancel");
  const auto choose = [this](UnsavedChoice choice) {
    choice_ = choice;
    accept();
  };
  connect(discard, &QPushButton::clicked, this, [=] { choose(UnsavedChoice::kDiscard); });
  connect(save, &QPushButton::clicked, this, [=] { choose(UnsavedChoice::kSave); });
  connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
  setMinimumWidth(400);
}

bool MayLoseRoute(Desktop& desktop, QWidget* parent) {
  return !RouteUnsaved(desktop.program) ||
         MayLose<frmRouteSave>(desktop, "The route has changes that are in no route file.", parent);
}

bool MayLoseWaypoints(Desktop& desktop, QWidget* parent) {
  return !WaypointsUnsaved(desktop.program) ||
         MayLose<frmWaySave>(desktop,
                             QString("Waypoints of %1 have been moved and are not saved.")
                                 .arg(ToQt(desktop.program.config.waypoint_file)),
                             parent);
}

bool MayExit(Desktop& desktop, QWidget* parent) {
  if (!MayLoseRoute(desktop, parent) || !MayLoseWaypoints(desktop, parent)) return false;
  const Program& program = desktop.program;
  (void)DropRouteRecovery(program.folders);
  (void)DeleteFile(WaypointRecoveryPath(program.folders, Trim(program.config.waypoint_file)));
  return true;
}

bool MayClearRoute(Desktop& desktop, QWidget* parent) {
  return desktop.messages.Ask(kClearRouteQuestion.text, kClearRouteQuestion.title) &&
         MayLoseRoute(desktop, parent);
}

void OfferRecovery(Desktop& desktop, QWidget* parent) {
  const Folders& folders = desktop.program.folders;
  const std::optional<KeptWork> route = FindRouteRecovery(folders);
  const std::optional<KeptWork> waypoints = FindWaypointRecovery(folders);
  if (!route && !waypoints) return;
  RecoveryForm form(desktop, route, waypoints, parent);
  if (form.exec() != QDialog::Accepted) return;
  if (route) {
    if (form.route->isChecked()) {
      TakeRouteBack(desktop, route->path);
    } else {
      (void)DropRouteRecovery(folders);
    }
  }
  if (waypoints) {
    if (form.waypoints->isChecked()) {
      frmWayEdit(desktop, parent, waypoints->file_name).exec();
    } else {
      (void)DeleteFile(waypoints->path);
    }
  }
}

}  // namespace skerrow
