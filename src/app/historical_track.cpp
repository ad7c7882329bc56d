#include "app/historical_track.h"

#include <utility>

#include "core/files.h"
#include "instruments/log.h"

namespace skerrow {
namespace {

// Remembers whether the user has stopped what it measures.
class Watched final : public Progress {
 public:
  explicit Watched(Progress& shown) : shown_(shown) {}
  bool Step(double percent) override {
    stopped_ = !shown_.Step(percent) || stopped_;
    return !stopped_;
  }
  bool stopped() const { return stopped_; }

 private:
  Progress& shown_;
  bool stopped_ = false;
};

}  // namespace

Result<bool> ShowHistoricalTrack(Program& program, const std::string& file_name,
                                 Progress& progress) {
  const std::string path = JoinPath(program.folders.Tracks(), file_name);
  Watched watched(progress);
  GpsFix fix = program.nmea.fix;
  GpsTrack track;
  std::vector<CommentRecord> comments;
  if (const Status read = LoadTrackFromLog(path, fix, track, watched); !read) return read.error();
  if (watched.stopped()) return false;
  if (const Status read = LoadCommentsFromLog(path, comments, watched); !read) {
    return read.error();
  }
  if (watched.stopped()) return false;
  NmeaState& nmea = program.nmea;
  nmea.fix = std::move(fix);
  nmea.track = std::move(track);
  nmea.log.comments = std::move(comments);
  program.log_loaded.clear();
  program.plot.plot_file_name = file_name.substr(0, file_name.find('.'));
  program.plot.historical_plot_on = true;
  program.plot.track_plot_on = true;
  return true;
}

void RemoveHistoricalPlot(Program& program) {
  PlotState& plot = program.plot;
  if (plot.historical_plot_on) {
    NmeaState& nmea = program.nmea;
    nmea.track.clear();
    nmea.log.comments.clear();
    nmea.fix.position_good = false;
    nmea.fix.boat_latitude = 0.0F;
    nmea.fix.boat_longitude = 0.0F;
    program.log_loaded.clear();
  }
  plot = PlotState();
}

}  // namespace skerrow
