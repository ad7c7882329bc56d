#pragma once

#include "ui/widgets/dialog.h"

namespace skerrow {

// What the user wants done with unsaved work.
enum class UnsavedChoice { kCancel, kSave, kDiscard };

// "Unsaved Changes": Save, Don't Save and Cancel over a sentence that says what would be lost.
class frmUnsaved : public Dialog {
  Q_OBJECT

 public:
  frmUnsaved(Desktop& desktop, const QString& text, QWidget* parent);

  UnsavedChoice choice() const { return choice_; }

 private:
  UnsavedChoice choice_ = UnsavedChoice::kCancel;
};

// Before the program ends: asks about an unsaved route and unsaved waypoints. True when the program
// may end; the recovery files are gone then.
bool MayExit(Desktop& desktop, QWidget* parent);

// Asks about an unsaved route before another takes its place. True when it may go.
bool MayLoseRoute(Desktop& desktop, QWidget* parent);

// Asks about waypoints that have been moved and are in no file, before the table is read anew. True
// when they may go.
bool MayLoseWaypoints(Desktop& desktop, QWidget* parent);

// "Clear existing route?", and about an unsaved route. True when it may go.
bool MayClearRoute(Desktop& desktop, QWidget* parent);

// "Recovered Work": what an earlier run left unsaved, to be taken back or dropped. A box that is
// not ticked is dropped with "Recover" too; Cancel keeps everything for the next start.
//
// Takes the route back as an edit of the current one, and opens the waypoint editor on its rows.
// Shows nothing when nothing was left.
void OfferRecovery(Desktop& desktop, QWidget* parent);

}  // namespace skerrow
