// Opens every dialog of routes and waypoints: published names, keys, and a Cancel that leaves
// everything as it was.

#include <QAbstractButton>
#include <map>
#include <set>
#include <sstream>

#include "tests/ui/routes/route_bench.h"
#include "ui/routes/frmFileDelete.h"
#include "ui/routes/frmLoadWay.h"
#include "ui/routes/frmNewWay.h"
#include "ui/routes/frmRouteEdit.h"
#include "ui/routes/frmRouteLoad.h"
#include "ui/routes/frmRouteSave.h"
#include "ui/routes/frmRouteWayPoints.h"
#include "ui/routes/frmSingleWayPoint.h"
#include "ui/routes/frmWayEdit.h"
#include "ui/routes/frmWayFileLocate.h"
#include "ui/routes/frmWaySave.h"
#include "ui/routes/frmwaycopy.h"
#include "ui/routes/frmwayimport.h"
#include "ui/routes/leaving.h"

namespace skerrow::testing {
namespace {

struct Row {
  const char* name;
  const char* title;
  const char* default_button;
  const char* tab_order;  // published names, by blanks, from the first on
  std::function<std::unique_ptr<QDialog>(Desktop&)> open;
};

template <typename Form>
std::unique_ptr<QDialog> Open(Desktop& desktop) {
  return std::make_unique<Form>(desktop, nullptr);
}
template <typename Form, FileKind kind>
std::unique_ptr<QDialog> OpenKind(Desktop& desktop) {
  return std::make_unique<Form>(desktop, kind, nullptr);
}

const std::vector<Row>& Rows() {
  static const std::vector<Row> rows = {
      {"frmRouteLoad", "Load Route", "cmdOK", "fillist chkUseDefaultSpeed cmdOK cmdCancel",
       Open<FrmRouteLoad>},
      {"frmRouteSave", "Save Route", "cmdOK", "txtFileName fillist cmdOK cmdCancel",
       Open<FrmRouteSave>},
      {"frmWaySave", "Save Waypoints", "cmdOK", "txtFileName fillist cmdOK cmdCancel",
       Open<FrmWaySave>},
      {"frmNewWay", "New Waypoint File", "cmdOK", "txtFileName fillist cmdOK cmdCancel",
       Open<FrmNewWay>},
      {"frmLoadWay", "Load Waypoint File", "cmdOK", "fillist cmdOK cmdCancel", Open<FrmLoadWay>},
      {"frmWayDelete", "Delete Waypoint File", "cmdOK", "fillist cmdOK cmdCancel",
       OpenKind<FrmFileDelete, FileKind::kWaypoint>},
      {"frmRouteDelete", "Delete Route File", "cmdOK", "fillist cmdOK cmdCancel",
       OpenKind<FrmFileDelete, FileKind::kRoute>},
      {"frmwayimport", "Import Skerrow Waypoint files from floppy or external storage", "cmdOK",
       "txtFolder cmdBrowse fillist cmdSelectAll cmdOK cmdCancel",
       OpenKind<FrmWayImport, FileKind::kWaypoint>},
      {"frmwayimport", "Import Skerrow Route files from floppy or external storage", "cmdOK",
       "txtFolder cmdBrowse fillist cmdSelectAll cmdOK cmdCancel",
       OpenKind<FrmWayImport, FileKind::kRoute>},
      {"frmRouteWayPoints", "Route by Waypoint List", "cmdOK",
       "fillist List1 cmdAdd List2 cmdDelete cmdOK cmdCancel", Open<FrmRouteWayPoints>},
      {"frmRouteEdit", "Edit Route Points", "cmdExit",
       "List1 txtroutestartname txtroutestartlat txtroutestartlong txtroutedestname "
       "txtroutedestlat txtroutedestlong txtroutespeed cmdRouteSpeed cmdmodify fillist List2 "
       "optBefore optAfter cmdInsert cmdDelete cmdreverse cmdExit",
       Open<FrmRouteEdit>},
      {"frmWayEdit", "Select a File to Edit", "cmdSave",
       "fillist cmdCreateNew cmdCopy cmdPrint optAll optSelected List1 txtWayName txtWayLat "
       "txtWayLong cmdAdd cmdInsert cmdChange cmdDelete cmdSave cmdCancel",
       Open<FrmWayEdit>},
      {"frmwaycopy", "Copy Waypoints", "cmdSave",
       "fillist List1 List2 txtFileName cmdSave cmdCancel", Open<FrmWayCopy>},
      {"frmWayFileLocate", "Locate a waypoint", "cmdOK", "fillist List1 cmdOK cmdCancel",
       Open<FrmWayFileLocate>},
      {"frmSingleWayPoint", "Waypoint Entry", "cmdOK",
       "txtWayName txtWayLat txtWayLong cmdOK cmdCancel",
       [](Desktop& desktop) -> std::unique_ptr<QDialog> {
         return std::make_unique<FrmSingleWayPoint>(desktop, std::nullopt, nullptr);
       }},
      {"frmUnsaved", "Unsaved Changes", "cmdSave", "cmdDiscard cmdSave cmdCancel",
       [](Desktop& desktop) -> std::unique_ptr<QDialog> {
         return std::make_unique<FrmUnsaved>(desktop, "Unsaved.", nullptr);
       }},
  };
  return rows;
}

// The names of what Tab reaches, from the first widget of the dialog on.
std::string TabOrder(QDialog& dialog) {
  std::ostringstream order;
  for (QWidget* at = dialog.nextInFocusChain(); at != &dialog; at = at->nextInFocusChain()) {
    const bool reached = (at->focusPolicy() & Qt::TabFocus) && at->isVisibleTo(&dialog) &&
                         at->window() == &dialog && at->focusProxy() == nullptr;
    if (!reached || at->objectName().isEmpty() || at->objectName().startsWith("qt_")) continue;
    order << (order.tellp() > 0 ? " " : "") << at->objectName().toStdString();
  }
  return order.str();
}

// All files below the bench's folders with their bytes.
std::map<std::string, std::string> FilesBelow(const Folders& folders) {
  std::map<std::string, std::string> files;
  for (const std::string& root : {folders.documents, folders.settings}) {
    for (const auto& entry : std::filesystem::recursive_directory_iterator(root)) {
      if (entry.is_regular_file()) files[entry.path().string()] = FileBytes(entry.path().string());
    }
  }
  return files;
}

class EveryRouteDialog : public RouteBench, public ::testing::WithParamInterface<std::size_t> {};

TEST_P(EveryRouteDialog, OpensCompleteAndCancelChangesNothing) {
  const Row& row = Rows()[GetParam()];
  LoadSample();
  const auto files = FilesBelow(program.folders);
  const auto route = RouteContent(program.route);
  const auto waypoints = program.waypoints.waypoints;
  const auto dialog = row.open(desktop);
  Show(*dialog);
  EXPECT_EQ(dialog->objectName().toStdString(), row.name);
  EXPECT_EQ(dialog->windowTitle().toStdString(), row.title);
  EXPECT_EQ(TabOrder(*dialog), row.tab_order);

  std::set<QString> mnemonics;
  for (QWidget* widget : dialog->findChildren<QWidget*>()) {
    QString text;
    if (auto* button = qobject_cast<QAbstractButton*>(widget)) {
      text = button->text();
      if (auto* push = qobject_cast<QPushButton*>(button)) {
        EXPECT_EQ(push->isDefault(), push->objectName() == QString(row.default_button))
            << push->objectName().toStdString();
        EXPECT_FALSE(push->autoDefault() && !push->isDefault());
      }
    } else if (auto* label = qobject_cast<QLabel*>(widget); label && label->buddy()) {
      text = label->text();
    }
    const QKeySequence key = QKeySequence::mnemonic(text);
    if (!key.isEmpty()) {
      EXPECT_TRUE(mnemonics.insert(key.toString()).second) << text.toStdString();
    }
  }
  EXPECT_LE(dialog->minimumSizeHint().width(), 1260);
  EXPECT_LE(dialog->minimumSizeHint().height(), 660);

  QTest::keyClick(dialog.get(), Qt::Key_Escape);
  EXPECT_FALSE(dialog->isVisible());
  EXPECT_EQ(dialog->result(), QDialog::Rejected);
  EXPECT_EQ(FilesBelow(program.folders), files);
  EXPECT_EQ(RouteContent(program.route), route);
  EXPECT_EQ(program.waypoints.waypoints, waypoints);
  EXPECT_EQ(window().changes, 0);
  EXPECT_FALSE(program.edits.history.CanUndo());
}

INSTANTIATE_TEST_SUITE_P(Dialogs, EveryRouteDialog, ::testing::Range<std::size_t>(0, Rows().size()),
                         [](const auto& test) {
                           return std::string(Rows()[test.param].name) + std::to_string(test.param);
                         });

}  // namespace
}  // namespace skerrow::testing
