#pragma once

#include "ui/desktop.h"

class QWidget;

namespace skerrow {

class ChartController;
class ChartMouse;
class ChartViewer;
class InstrumentController;
class LookController;
class MobController;
class RouteController;
class TargetController;
class TimeController;

// What the commands of the main window work on: the state, what the windows share, and the
// controllers of their subjects.
struct Context {
  Desktop& desktop;
  Program& program;
  Messages& messages;
  ViewState& view;
  QWidget& window;  // the parent of dialogs
  ChartViewer& viewer;
  ChartController& chart;
  RouteController& route;
  TimeController& time;
  MobController& mob;
  LookController& look;
  InstrumentController& instruments;
  TargetController& targets;
  ChartMouse& mouse;
};

}  // namespace skerrow
