#pragma once

#include <atomic>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

#include "charts/chart_library.h"
#include "core/chart_source.h"
#include "core/folders.h"
#include "core/thread_progress.h"

// What the dialog that brings charts in says, and its work.
namespace skerrow {

// What is known of a chart's file, a line each: its kind and size, its borders, what is made of it.
std::vector<std::string> ImportLines(const ChartSourceInfo& info);

// The fields of the dialog as they stand.
struct ImportTexts {
  std::string area;
  std::string key;
  std::string title;
  std::string scale;  // "50000"
};

enum class ImportField { kArea, kKey, kTitle, kScale };

// The first field that stands in the way, and why.
struct ImportRefusal {
  ImportField field = ImportField::kKey;
  std::string text;
};

// The request that the fields make; nothing is looked up in the folders but the key.
ImportRequest RequestOf(const ImportTexts& texts);
std::optional<ImportRefusal> CheckTexts(const Folders& folders, const ImportTexts& texts);

// What is said of an area that is not there yet; empty for one that is.
std::string NewAreaHint(const Folders& folders, std::string_view area);

// Reads a chart's file and brings it in, in a thread of its own, one at a time. Whoever destroys it
// stops it and waits.
class ChartImporter {
 public:
  explicit ChartImporter(Folders folders) : folders_(std::move(folders)) {}
  ~ChartImporter();
  ChartImporter(const ChartImporter&) = delete;
  ChartImporter& operator=(const ChartImporter&) = delete;

  // Begins to open a file in place of the one before, and to make its preview.
  void Read(std::string path);
  // Begins to bring the file that was read in.
  void Import(ImportRequest request);
  // Stops what is going on at its next step.
  void Cancel() { told_.Stop(); }

  bool working() const { return working_; }
  double percent() const { return told_.percent(); }

  // What came of it, while it is not working. Without a source no file has been read.
  const ChartSource* source() const { return source_.get(); }
  const RgbPicture& preview() const { return preview_; }
  // Of the last work; its reason is kImportCancelled when the user stopped it.
  const std::optional<Error>& error() const { return error_; }

  // The longest side of the preview, pixels.
  static constexpr int kPreviewSide = 1000;

 private:
  void Start(std::function<void(Progress&)> work);
  void Stop();

  const Folders folders_;
  ThreadProgress told_;
  std::atomic<bool> working_ = false;
  std::unique_ptr<ChartSource> source_;
  RgbPicture preview_;
  std::optional<Error> error_;
  std::thread thread_;
};

}  // namespace skerrow
