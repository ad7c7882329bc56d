#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "app/program.h"
#include "core/record_edit.h"
#include "tides/port_editor.h"

// What the editor of the harmonic constants and the copying of ports and diamonds do beside the
// files.
namespace skerrow {

// How a file of ports was changed.
enum class PortsChange { kInPlace, kAdded, kInserted, kDeleted };

// Whether a file of ports is the one of the tide screen.
bool InUse(const Program& program, std::string_view file_name);

// The question before a deletion, and before an insertion into the file in use; the numbers of the
// ports behind it move. `index` from 0.
std::string DeletePortQuestion(const Program& program, const PortEditor& editor, std::size_t index);
std::string InsertPortQuestion(const PortEditor& editor, std::size_t index);

// Lets the settings and the marks on the chart follow a change at `index` (from 0) of a file that
// has been written: where it is the file in use, the selected port stays the same one under its new
// number and name. A selected port that is gone gives way to the one now in its place. What the
// selected port has become where it is another one or has another number; empty otherwise.
std::string FollowPorts(Program& program, Messages& messages, const PortEditor& editor,
                        PortsChange change, std::size_t index);

// What frmHCcopy copies.
enum class CopyKind { kPorts, kDiamonds };

std::string_view ExtensionOf(CopyKind kind);

// A file in the source list, with a row for each of its records.
struct CopySource {
  SeenFile file;
  std::vector<std::string> rows;
  std::vector<bool> damaged;
};
Result<CopySource> OpenCopySource(const Folders& folders, CopyKind kind,
                                  const std::string& file_name);

// Copies the marked records (from 0) to the file that the typed name means and gives that file's
// name; what the program shows of it follows. Errors, with nothing written: no name ("No file
// name"), nothing marked, a damaged record, or those of CopyRecords.
Result<std::string> CopyMarked(Program& program, Messages& messages, CopyKind kind,
                               const CopySource& source, const std::vector<std::size_t>& marked,
                               std::string_view typed_name);

// "3 ports copied to Brest.hc".
std::string CopiedText(CopyKind kind, std::size_t count, std::string_view file_name);

}  // namespace skerrow
