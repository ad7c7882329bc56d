#include "ui/widgets/theme.h"

#include <QApplication>
#include <gtest/gtest.h>

namespace skerrow {
namespace {

TEST(Theme, OneLevelDimsTheNightAlike) {
  EXPECT_EQ(NightTheme().readout_text, QColor(0, 255, 0));
  EXPECT_EQ(NightTheme(40).readout_text, QColor(0, 102, 0));
  EXPECT_EQ(NightTheme(3).readout_text, NightTheme(10).readout_text);
  ApplyTheme(true, 50);
  EXPECT_EQ(ThemeInForce().text, QColor(0xd0 / 2, 0x64 / 2, 0x3c / 2));
  const QPalette palette = QApplication::palette();
  for (const QPalette::ColorRole role :
       {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::Window,
        QPalette::Base, QPalette::Highlight, QPalette::HighlightedText, QPalette::Light,
        QPalette::Midlight, QPalette::PlaceholderText, QPalette::Link}) {
    EXPECT_LE(palette.color(role).value(), 0xf0 / 2) << role;
  }
  // No colour of the style sheet is brighter either.
  const QString sheet = qApp->styleSheet();
  for (qsizetype at = sheet.indexOf('#'); at >= 0; at = sheet.indexOf('#', at + 1)) {
    EXPECT_LE(QColor(sheet.mid(at, 7)).value(), 0xf0 / 2) << sheet.mid(at, 7).toStdString();
  }
  ApplyTheme(false, 50);
  EXPECT_EQ(ThemeInForce().text, DayTheme().text) << "the day is not dimmed";
}

}  // namespace
}  // namespace skerrow
