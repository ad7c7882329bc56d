#pragma once

#include <span>
#include <string_view>

// Where the commands stand: the menu bar, the two toolbars and the pop-up menu.
namespace skerrow {

// A row of a menu tree, read from the top: a title opens a menu at `depth`, a command or a
// separator stands in the menu opened last at `depth` - 1.
struct MenuRow {
  int depth = 0;
  std::string_view title;    // of a menu; empty for a command or a separator
  std::string_view command;  // name; empty with an empty title: a separator
  std::string_view name;     // of a menu that is addressed by name; may be empty
};

std::span<const MenuRow> MenuBarRows();
std::span<const MenuRow> PopUpRows();

// A button of a toolbar: its key and the command it runs; an empty key is a separator.
struct ToolbarRow {
  std::string_view key;
  std::string_view command;
};

// tbToolBar and tbToolBarView.
std::span<const ToolbarRow> ToolbarRows();
std::span<const ToolbarRow> ViewToolbarRows();

// What Shift does with a key: nothing to its command, or it leaves the key to the viewer's own
// scrolling.
enum class ShiftKey { kIgnored, kScrolls };

// What a key does in the chart.
struct KeyRow {
  int key = 0;  // the published key code
  std::string_view command;
  ShiftKey shift = ShiftKey::kIgnored;
};

std::span<const KeyRow> KeyRows();

// The commands that a double click on the chart tries, one after the other.
std::span<const std::string_view> DoubleClickRows();

}  // namespace skerrow
