#include <QApplication>
#include <gtest/gtest.h>

#include "ui/widgets/theme.h"

int main(int argc, char** argv) {
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  testing::InitGoogleTest(&argc, argv);
  QApplication app(argc, argv);
  skerrow::ApplyTheme(false);
  return RUN_ALL_TESTS();
}
