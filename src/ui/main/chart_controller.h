#pragma once

#include <QObject>
#include <QTimer>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "app/chart_change.h"
#include "app/timers.h"
#include "charts/chart_view.h"
#include "ui/desktop.h"
#include "ui/forms/load_chart_form.h"
#include "ui/viewer/chart_viewer.h"

namespace skerrow {

// The chart of the main window: which one it is, and what part of it is seen.
class ChartController final : public QObject {
  Q_OBJECT

 public:
  ChartController(Desktop& desktop, ChartViewer& viewer, QWidget& window);

  // Opens the chart of the settings at the start, without a word when that fails, and takes the
  // stored view up.
  void Start();

  // Whether places of the chart are known: it has a picture and a calibration.
  bool HasPlaces() const;
  // What a chart without calibration lacks, as the line over it says; empty when there is nothing.
  std::string MissingCalibration() const;
  // The place under a point of the picture; empty where places are not known.
  std::optional<Position> PlaceAt(ImagePoint at) const;
  ChartView View() const;
  // The part of the chart that can be seen.
  std::optional<VisibleChart> Visible() const;

  // Another chart: from the list, which keeps place and ground scale as nearly as it can; of a
  // stored path; the more or less detailed one at the cursor; the one before.
  void Choose();
  void OpenStored(const std::string& cht_path);
  // The chart of that key in a sea area, all of it.
  void ShowWhole(const std::string& sea_area, const std::string& chart_key);
  // The same of a chart named in its area's index. Whether it is shown.
  bool OpenChosen(const ChartChoice& choice);
  // Draws the chart anew after its calibration in force has changed.
  void Recalibrated();
  // Reads the index of the area, or the calibration too, again after the files have changed.
  void ReadIndexAgain();
  void ReadFilesAgain();
  void LargerScale();
  void SmallerScale();
  const std::vector<std::string>& recent() const { return recent_; }

  // Brings a place to the middle where the chart holds it.
  void LocatePoint(Position position);
  // Shows a place on the chart at hand or, where that does not hold it, on the most detailed one
  // that does. Tells when there is none.
  void GoTo(Position position);
  // Brings the whole route into view, on the most detailed chart that holds it where the chart at
  // hand does not.
  void FitRoute();
  // The same for the calculated track, where not all of it is in view.
  void ShowTrack();

  void ZoomTo(double factor);
  // A step in or out about the cursor, or about the middle of the view.
  enum class About { kCursor, kMiddle };
  void ZoomStep(bool in, About about);
  void PanView(PanDirection direction);
  void Home();
  void ToggleRectangle();
  // Ends the rectangle mode and shows what was drawn.
  void FinishRectangle();

  // Marks the chart that the larger scale would open at the cursor, while boundaries are shown.
  void ChooseSubChart();

  // Without any chart: tells, puts the default settings back and ends the program.
  void GiveUp();
  bool lost() const { return lost_; }
  void SaveView();
  // Stores recent charts and the view.
  void Stop();
  // False while a picture is being changed: overlays wait.
  bool drawing_allowed() const { return redraw_; }

 private:
  void FitPlaces(const std::vector<Position>& places);
  enum class Failure { kSilent, kTold };
  bool DrawChart(Failure failure);
  ShowChart Show() {
    return [this] { return DrawChart(Failure::kTold); };
  }
  void RestoreView();
  void Remember(const std::string& cht_path);
  // Forgets recent charts that have been removed since `there` was taken.
  std::vector<std::string> ChartsThere() const;
  void ForgetRemoved(const std::vector<std::string>& there);
  // The key of the most detailed chart whose borders hold all of `places`.
  std::optional<std::string> ChartHolding(const std::vector<Position>& places) const;
  bool OnChart(Position position) const;

  Desktop& desktop_;
  ChartViewer& viewer_;
  QWidget& window_;
  QTimer keep_view_timer_;
  std::vector<std::string> recent_;
  bool redraw_ = true;
  bool lost_ = false;
};

// The list of recent charts, newest first, at most six paths without doubles.
inline constexpr std::size_t kMaxRecentCharts = 6;
void AddRecentChart(std::vector<std::string>& recent, const std::string& path);

}  // namespace skerrow
