#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "core/record_edit.h"
#include "tides/port.h"

// The editor of the harmonic constants: an area file as it is listed, the texts of a port, and the
// record made of them.
namespace skerrow {

// The single numbers of a port in the order in which they are read.
struct PortNumber {
  const char* name;  // published name of the field
  float Port::*value;
};
inline constexpr std::array<PortNumber, 13> kPortNumbers = {{
    {"Z0", &Port::z0},
    {"M2g", &Port::m2_g},
    {"M2hm", &Port::m2_hm},
    {"S2g", &Port::s2_g},
    {"S2hm", &Port::s2_hm},
    {"K1g", &Port::k1_g},
    {"K1hm", &Port::k1_hm},
    {"O1g", &Port::o1_g},
    {"O1hm", &Port::o1_hm},
    {"sf4", &Port::sf4},
    {"lf4", &Port::lf4},
    {"sf6", &Port::sf6},
    {"lf6", &Port::lf6},
}};

// The texts of a port. Empty numbers count as 0.
struct PortEntry {
  std::string number;
  std::string name;
  std::string latitude;   // "50.45.00N"
  std::string longitude;  // "001.23.00W"
  std::string time_zone;  // whole hours, -11 to 11
  std::array<std::string, kPortNumbers.size()> numbers;
  std::array<std::string, 12> delta_z0;
  std::array<std::string, 12> mhm2;

  friend bool operator==(const PortEntry&, const PortEntry&) = default;
};

PortEntry EntryOf(const Port& port);

// The record of an entry, checked in this order; the error has the words to show.
//   no file selected      "Select an existing area from the File -> Area Select Menu!!"
//   a latitude of 0, or beyond 90           "Error - Latitude entry"
//   a blank name          "Error - No port selected"
//   a longitude without "E" or "W", or beyond 180  "Error - Longitude entry"
//   a number that is none "The M2g is no number: 1.2.3"
// Where a text is still what EntryOf gives of `before`, the number stays as it was to its last bit.
// UserDepth is 0. A time zone outside the table is stored as "L".
Result<Port> BuildPort(const PortEntry& entry, bool file_selected,
                       const std::optional<Port>& before);

// An area file in the editor.
class PortEditor {
 public:
  // Errors: the file cannot be read, or holds too many records.
  static Result<PortEditor> Open(const Folders& folders, const std::string& file_name);

  const std::string& file_name() const { return file_name_; }
  const std::string& path() const { return seen_.path; }
  const SeenFile& seen() const { return seen_; }
  // By position, from 0; empty for a damaged record.
  const std::vector<std::optional<Port>>& ports() const { return ports_.records; }
  // Bytes that follow the last whole record, damaged records.
  const LeftOut& left_out() const { return ports_.left_out; }
  // The trimmed names in file order; "(damaged record)" for one that cannot be used.
  std::vector<std::string> Names() const;

  // Each writes the file and lists it again. Errors, with the file as it was: those of
  // SpliceRecords and CheckRecords. `index` from 0.
  Status Accept(std::size_t index, const Port& port);
  Status Add(const Port& port);
  Status Insert(std::size_t index, const Port& port);
  Status Delete(std::size_t index);

 private:
  Status Splice(std::size_t index, std::size_t removed, const std::optional<Port>& port);

  Folders folders_;
  std::string file_name_;
  SeenFile seen_;
  RecordFile<Port> ports_;
};

// What a change of record numbers does to a number that is kept elsewhere, both from 1: where an
// insertion before `at` moves it, and where a deletion of `at` does; 0 when it was that record.
int NumberAfterInsert(int number, int at);
int NumberAfterDelete(int number, int at);

}  // namespace skerrow
