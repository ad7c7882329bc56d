#include "ui/main/mob_controller.h"

#include <QApplication>
#include <QKeyEvent>

#include "app/situation.h"
#include "core/text.h"

namespace skerrow {

MobController::MobController(Desktop& desktop) : desktop_(desktop) {
  QCoreApplication::instance()->installEventFilter(this);
}

MobController::~MobController() { QCoreApplication::instance()->removeEventFilter(this); }

bool MobController::eventFilter(QObject* watched, QEvent* event) {
  // Widgets that take a key for a shortcut are asked first; one answer is enough.
  if (event->type() != QEvent::KeyPress || !watched->isWidgetType()) return false;
  const auto* key = static_cast<QKeyEvent*>(event);
  if (key->key() != Qt::Key_F7 || key->isAutoRepeat()) return false;
  Toggle();
  return true;
}

void MobController::Toggle() {
  constexpr std::string_view kTitle = "MAN OVERBOARD";
  if (asking_) return;
  asking_ = true;
  Program& program = desktop_.program;
  ViewState& view = desktop_.view;
  if (program.mob.on) {
    if (desktop_.messages.Ask("Cancel Man Overboard?", kTitle)) program.mob = {};
  } else if (view.mob_pending) {
    view.mob_pending = false;
  } else if (desktop_.messages.Ask("Activate Man Overboard?", kTitle)) {
    if (program.nmea.fix.HasPosition()) {
      MarkManOverboard(program, program.nmea.fix.At());
    } else {
      view.mob_pending = true;
    }
  }
  asking_ = false;
  desktop_.window.Changed(kTargetsChanged | kViewChanged);
}

void MobController::SetAt(Position place) {
  desktop_.view.mob_pending = false;
  MarkManOverboard(desktop_.program, place);
  desktop_.window.Changed(kTargetsChanged | kViewChanged);
}

bool MobController::GiveUpWaiting() {
  if (!desktop_.view.mob_pending) return false;
  desktop_.view.mob_pending = false;
  desktop_.window.Changed(kTargetsChanged | kViewChanged);
  return true;
}

std::string MobController::LabelText(const std::string& shown_line) const {
  if (desktop_.view.mob_pending) return "Click where the person went over\nEsc cancels";
  if (!desktop_.program.mob.on || shown_line.empty()) return "";
  std::string text = shown_line;
  const Position cursor = desktop_.view.cursor;
  for (const std::string& line : ManOverboardLines(
           desktop_.program, cursor == Position{} ? std::nullopt : std::optional(cursor))) {
    text += "\n" + line;
  }
  return text;
}

std::string MobController::MenuText() const {
  const ManOverboard& mob = desktop_.program.mob;
  if (!mob.on) return "Man Overboard";
  return "Man Overboard: " + LatToText(mob.position.latitude) + "  " +
         LongToText(mob.position.longitude);
}

}  // namespace skerrow
