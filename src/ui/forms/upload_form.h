#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <vector>

#include "core/folders.h"
#include "core/result.h"
#include "core/serial_ports.h"
#include "instruments/upload.h"
#include "routes/record_files.h"

// What the upload dialogs know without their widgets.
namespace skerrow {

// The points of one of the user's waypoint or route files, in its order.
Result<std::vector<UploadPoint>> ReadUploadPoints(const Folders& folders, FileKind kind,
                                                  const std::string& file_name);

// A point as the list shows it, in columns: what the GPS will call it, its own name, its place.
std::vector<std::string> UploadRows(std::span<const UploadPoint> points,
                                    const UploadOptions& options);

// What to say of points that a GPS would take for one; empty when there are none.
//   "BUOY: several places have this identity, and the GPS keeps the last. Numbers tell them apart."
std::string SharedIdentityText(std::span<const UploadPoint> points, const UploadOptions& options);

// The route's name as `txtRouteName` starts: its file's, without the extension.
std::string UploadRouteName(const std::string& file_name);

// The texts of an upload on their way, one after the other. Nothing waits in here: the caller takes
// the next step when the pause of the one before is over.
class UploadRun {
 public:
  enum class Step { kSent, kDone, kRefused };

  void Start(std::vector<UploadStep> steps);
  void Stop() { running_ = false; }
  bool running() const { return running_; }

  // Gives the next text to the port. kDone behind the last one, which ends the run. A port that
  // takes nothing ends it too: the skipper is not told that all arrived.
  Step Next(SerialPorts& ports, int port);

  // Milliseconds until the next step.
  int pause() const { return pause_; }
  // The point that went out last, from 1; 0 before the first and among the route's sentences.
  std::size_t record() const { return record_; }
  // The part that has gone out.
  double Percent() const;

 private:
  std::vector<UploadStep> steps_;
  std::size_t next_ = 0;
  std::size_t record_ = 0;
  int pause_ = 0;
  bool running_ = false;
};

inline constexpr std::string_view kUploadRefused =
    "The GPS takes no data. Check its cable and connect it again; what was sent until now may have "
    "arrived.";

}  // namespace skerrow
