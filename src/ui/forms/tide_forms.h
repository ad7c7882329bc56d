#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "app/program.h"
#include "core/folders.h"
#include "core/messages.h"
#include "core/position.h"
#include "core/result.h"
#include "platform/printing.h"
#include "tides/tide_screen.h"

// What the tide screen and the dialogs round it show, check and do.
namespace skerrow {

// A sound port of an area file.
struct PortRow {
  int position = 0;  // of its record, from 1
  Port port;
};

struct PortList {
  std::vector<PortRow> rows;
  std::string left_out;  // what of the file could not be used; empty: nothing
};

// The ports of an area file. Error: it cannot be read.
Result<PortList> ListPorts(const Folders& folders, std::string_view file_name);

// The names of the ".hc" files of the TS folder, in alphabetical order.
std::vector<std::string> ListTideAreas(const Folders& folders);

// Why a name cannot be the area file to use: none is chosen, or it is no ".hc" file. Null for one
// that can.
const char* TideAreaRefusal(std::string_view name);

// The position of the last port of a list within `range` nautical miles of a place; 0: none is.
int PortNear(const PortList& ports, Position place, float range);

// ---------------------------------------------------------------- the tide screen

// The day of the month that a line of the month's list begins, "14 Jun (Sun)"; 0: it begins none.
int DayOfMonthLine(std::string_view line);

// A month's list of high and low waters.
struct MonthList {
  std::string title;  // "June 2026"
  int month = 1;
  int year = 2000;
  std::string file_name;  // the name offered for its file, "Dover_June_2026"
  std::vector<std::string> lines;
};

// The tide screen's state: one port on one day.
class TideForm {
 public:
  // The day is that of the selected time, the area file that of the settings; no port is open yet.
  explicit TideForm(Program& program);

  // Opens the port at `position` of its area file; 0: that of the settings. Where that
  // file has no such port, as after a change of the file, the first sound one is taken. Error, with
  // the screen as it was: the file cannot be read or holds no sound port.
  Status Open(int position = 0);
  // Makes the open port that of the settings, and stores them. Error: they cannot be written.
  Status Keep();
  // Makes a file the area's, opens its first port and keeps it. Errors, with everything as it was:
  // the file cannot be read or holds no sound port.
  Status OpenArea(const std::string& file_name);

  void GoTo(DayAndYear date);
  void ToNextDay() { GoTo(NextDay(screen_.date)); }
  void ToPreviousDay() { GoTo(PreviousDay(screen_.date)); }
  void ToToday() { GoTo(program_.clock->Now().Day()); }
  bool IsToday() const { return program_.clock->Now().Day() == screen_.date; }

  // Works the day out anew, with the settings as they are now.
  void Refresh();

  const TideScreen& screen() const { return screen_; }
  // The name of the file that the port stands in.
  const std::string& area() const { return area_; }
  int position() const { return position_; }
  // The clock's time when the day was last worked out, hours.
  double hours() const { return hours_; }
  // The clock moves on; on the present day the time cursor with it.
  void Tick();
  std::string Title() const;

  // The lines of the side list: TideLines, and below each water the depth at the user's place.
  std::vector<std::string> SideLines() const;

  // The name offered for the day's file, "Dover_14_June_2026".
  std::string DayFileName() const;

  // Makes the list of the month of the day on the screen. False, with the list as it was, when
  // `progress` says to stop. Opening a port empties it, be it the same: its record may have
  // changed.
  bool MakeMonth(Progress& progress);
  const MonthList& month() const { return month_; }
  void ClearMonth() { month_ = {}; }
  bool HasMonth() const;

 private:
  Program& program_;
  std::string area_;  // the file
  TideScreen screen_;
  MonthList month_;
  int position_ = 0;
  double hours_ = 0.0;
};

// Shown when a month's or the sun's table is asked for and is not there yet.
std::string NoMonthText();
std::string NoSunText();

// Pages for the printer. Each carries port, date, time basis and the notice.
PrintDocument DayPage(const TideForm& form, const Picture& picture);
PrintDocument HourlyPage(const TideForm& form);
PrintDocument MonthPage(const TideForm& form);

// ---------------------------------------------------------------- options and depth

// The fields of `frmTideOptions`.
struct TideOptionTexts {
  int option = 1;
  std::string draught;    // metres
  std::string clearance;  // metres
  bool summer_time = false;
};
TideOptionTexts TideOptionTextsOf(const AppConfig& config);

// Which of the options is refused.
enum class TideOptionRefusal { kNone, kDraught, kClearance };
inline constexpr std::string_view kTooManyMetres = "Enter metres, 0 to 100";

TideOptionRefusal CheckTideOptions(const TideOptionTexts& texts);
// Puts checked options into the settings and stores them; the tides of the chart follow a change of
// the summer time. Error: the settings cannot be written; they are in force all the same.
Status CommitTideOptions(Program& program, const TideOptionTexts& texts, Messages& messages);

// The depth typed into `frmChartdepth`, metres, positive or negative; nothing for what is no number
// of up to 1000.
std::optional<float> ParseUserDepth(std::string_view text);
inline constexpr std::string_view kDepthRefusal =
    "Enter a depth in metres, such as 2.5 or -1.0, up to 1000";

// Writes the user's depth of the port at `position` of an area file; every other byte of the file
// stays as it is. Error, with nothing changed: the file cannot be read or written, or holds no such
// port.
Status SaveUserDepth(const Folders& folders, std::string_view file_name, int position, float depth);

}  // namespace skerrow
