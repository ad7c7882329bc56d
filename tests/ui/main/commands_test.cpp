#include <QMenu>
#include <QMenuBar>
#include <gtest/gtest.h>
#include <map>
#include <set>

#include "ui/main/commands/command.h"
#include "ui/main/context.h"
#include "ui/main/menus.h"
#include "window_fixture.h"

namespace skerrow {
namespace {

TEST(Commands, EachStandsOnceAndEveryPlaceNamesOne) {
  std::set<std::string_view> names;
  for (const Command* command : AllCommands()) {
    EXPECT_TRUE(names.insert(command->name).second) << command->name << " stands twice";
    EXPECT_FALSE(command->caption.empty()) << command->name;
  }
  std::set<std::string_view> placed;
  for (const auto rows : {MenuBarRows(), PopUpRows()}) {
    for (const MenuRow& row : rows) {
      if (row.command.empty()) continue;
      EXPECT_TRUE(names.contains(row.command)) << row.command;
      placed.insert(row.command);
    }
  }
  for (const auto rows : {ToolbarRows(), ViewToolbarRows()}) {
    for (const ToolbarRow& row : rows) {
      if (row.key.empty()) continue;
      EXPECT_TRUE(names.contains(row.command)) << row.key;
      EXPECT_FALSE(FindCommand(row.command)->icon.empty()) << row.key << " has no icon";
      placed.insert(row.command);
    }
  }
  std::set<int> keys;
  for (const KeyRow& row : KeyRows()) {
    EXPECT_TRUE(names.contains(row.command)) << row.command;
    EXPECT_TRUE(keys.insert(row.key).second) << row.key << " is bound twice";
    placed.insert(row.command);
  }
  for (const std::string_view command : DoubleClickRows()) {
    EXPECT_TRUE(names.contains(command)) << command;
    placed.insert(command);
  }
  for (const std::string_view name : names) {
    EXPECT_TRUE(placed.contains(name)) << name << " stands nowhere";
  }
}

using Window = testing::MainWindowTest;

TEST_F(Window, NoShortcutIsGivenTwice) {
  Start();
  std::map<QString, QString> owners;
  for (const QAction* action : window_->findChildren<QAction*>()) {
    for (const QKeySequence& shortcut : action->shortcuts()) {
      if (shortcut.isEmpty()) continue;
      const auto [at, fresh] = owners.emplace(shortcut.toString(), action->objectName());
      EXPECT_TRUE(fresh) << shortcut.toString().toStdString() << ": " << at->second.toStdString()
                         << " and " << action->objectName().toStdString();
    }
  }
}

TEST_F(Window, CommandsFollowWhatTheyNeed) {
  Start();
  const auto enabled = [&](const char* name) { return window_->action(name)->isEnabled(); };
  EXPECT_FALSE(enabled("mnucalcrte"));
  EXPECT_FALSE(enabled("mnurouteclear"));
  EXPECT_FALSE(enabled("mnuUndo"));
  EXPECT_FALSE(enabled("mnuAnimateStart"));
  EXPECT_TRUE(enabled("mnuGPSattach"));
  EXPECT_FALSE(enabled("mnuPosGpsDisconnect")) << "not connected";
  ShiftClick({50.2F, -1.8F});
  EXPECT_TRUE(enabled("mnurouteclear"));
  EXPECT_TRUE(enabled("mnuUndo"));
  EXPECT_FALSE(enabled("mnucalcrte"));
  ShiftClick({50.0F, -1.8F});
  EXPECT_TRUE(enabled("mnucalcrte"));
  EXPECT_TRUE(enabled("mnuRouteSave"));
  EXPECT_FALSE(enabled("mnuPUInsert")) << "two points are too few";
  EXPECT_TRUE(enabled("mnuPUDeleteRoutePoint"));
  EXPECT_FALSE(window_->action("mnuRouteOptimise")->isVisible() == false);
  program_.config.use_tides = kFalse;
  window_->Changed(kAllChanged);
  EXPECT_FALSE(window_->action("mnuRouteOptimise")->isVisible());
  EXPECT_FALSE(window_->action("mnuTideRollPlus")->isVisible());
  EXPECT_FALSE(window_->action("mnuShowTidalStreams")->isVisible());
}

TEST_F(Window, ToolsStayHiddenUntilAskedFor) {
  Start();
  const auto* tools = window_->findChild<QMenu*>("mnuTools");
  ASSERT_NE(tools, nullptr);
  EXPECT_FALSE(tools->menuAction()->isVisible());
  window_->context().look.ShowTools();
  EXPECT_TRUE(tools->menuAction()->isVisible());
}

}  // namespace
}  // namespace skerrow
