#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "core/file_stamp.h"
#include "core/folders.h"
#include "wind/wind_store.h"

namespace skerrow {

// The user's wind store in memory, read once a file: whoever asks gets the store of the file as it
// stands now. Not for several threads; what it gives away may be used by all.
class StoredWind {
 public:
  // Never null; empty while the file is missing or can not be read.
  std::shared_ptr<const WindStore> Get(const Folders& folders) const;
  // Counts the files read, so that what is made of a store can tell that there is another one.
  std::uint32_t revision() const { return revision_; }

 private:
  mutable std::shared_ptr<const WindStore> store_;
  mutable std::string path_;
  mutable FileStamp stamp_;
  mutable std::uint32_t revision_ = 0;
};

// The wind of the user's store as route operations ask for it. It keeps the store it was made with.
WindLookup LookupIn(std::shared_ptr<const WindStore> store);

// What the window's title says of the forecast at a time: "wind 09:00 5/12/2026", the time whose
// wind is in use, or "no wind data" and why, such as "no wind data, forecast ended 3 days ago".
// `now` is the clock's time, days from the beginning of 2000.
std::string ForecastText(const WindStore& store, DayAndYear date, float hours, double now);

// "09:00 5/12/2026" of days from the beginning of 2000.
std::string DaysText(double days);

}  // namespace skerrow
