#pragma once

#include <QColor>
#include <QPixmap>

// The look of the program by day and by night.
namespace skerrow {

// The colours that widgets of our own paint with; the toolkit's widgets get theirs from the palette
// that ApplyTheme sets.
struct Theme {
  bool night = false;
  QColor window;
  QColor base;       // lists and text boxes
  QColor alternate;  // every other row
  QColor button;
  QColor text;
  QColor dim_text;  // hints and disabled text
  QColor accent;    // selection, default button
  QColor accent_text;
  QColor border;
  QColor warning;
  // The boxes that stand over the chart.
  QColor readout_text;
  QColor readout_back;
  QColor readout_border;
  // Plots.
  QColor plot_back;
  QColor bar;
  QColor bar_marked;
  QColor bar_outline;
  QColor longest_line;
  QColor shortest_line;
};

// The two themes: dark text on light grey, and red and amber on near black, which spares eyes that
// have got used to the dark. At a brightness below 100 percent (10 at least) every colour of the
// night is that much darker.
const Theme& DayTheme();
Theme NightTheme(int brightness = 100);

// Gives the application, with all windows open and to come, the day or the night look.
void ApplyTheme(bool night, int brightness = 100);

// The theme of the last ApplyTheme; the day's before it.
const Theme& ThemeInForce();

// `pixmap` dimmed and reddened for the night view at its brightness; unchanged by day.
QPixmap Dimmed(const QPixmap& pixmap);

// Puts a colour's name into a style sheet's place for it: "#1c2733".
QString ColourName(const QColor& colour);

}  // namespace skerrow
