#include "ui/forms/chart_import_form.h"

#include <algorithm>
#include <utility>

#include "core/numbers.h"
#include "core/position.h"
#include "core/text.h"
#include "platform/chart_import.h"

namespace skerrow {

std::vector<std::string> ImportLines(const ChartSourceInfo& info) {
  const auto pixels = [](int width, int height) {
    return std::to_string(width) + " x " + std::to_string(height) + " pixels";
  };
  std::vector<std::string> lines = {info.kind + ", " + pixels(info.width, info.height)};
  if (info.placed) {
    const ChartBounds& bounds = info.bounds;
    lines.push_back(LatToText(static_cast<float>(bounds.south)) + "  " +
                    LongToText(static_cast<float>(bounds.west)) + "  to  " +
                    LatToText(static_cast<float>(bounds.north)) + "  " +
                    LongToText(static_cast<float>(bounds.east)));
    lines.push_back(info.sheet.width == info.width && info.sheet.height == info.height
                        ? "Taken pixel for pixel"
                        : "Becomes a sheet of " + pixels(info.sheet.width, info.sheet.height));
  }
  return lines;
}

ImportRequest RequestOf(const ImportTexts& texts) {
  return {Trim(texts.area), Trim(texts.key), Trim(texts.title), TextToNumber(texts.scale)};
}

std::optional<ImportRefusal> CheckTexts(const Folders& folders, const ImportTexts& texts) {
  const ImportRequest request = RequestOf(texts);
  if (const Status sound = CheckAreaName(request.area); !sound) {
    return ImportRefusal{ImportField::kArea, sound.error().Text()};
  }
  if (const Status sound = CheckChartTitle(request.title); !sound) {
    return ImportRefusal{ImportField::kTitle, sound.error().Text()};
  }
  if (!(request.scale >= kLargestChartScale && request.scale <= kSmallestChartScale)) {
    return ImportRefusal{ImportField::kScale, CheckImport(folders, request).error().Text()};
  }
  if (const Status sound = CheckImport(folders, request); !sound) {
    return ImportRefusal{ImportField::kKey, sound.error().Text()};
  }
  return std::nullopt;
}

std::string NewAreaHint(const Folders& folders, std::string_view area) {
  const std::string wanted = ToLowerAscii(Trim(area));
  const std::vector<std::string> areas = SeaAreas(folders);
  const bool known = std::any_of(areas.begin(), areas.end(), [&](const std::string& name) {
    return ToLowerAscii(name) == wanted;
  });
  if (wanted.empty() || known) return "";
  return "A new sea area. It has no tidal streams until a file of diamonds has its name.";
}

ChartImporter::~ChartImporter() { Stop(); }

void ChartImporter::Stop() {
  Cancel();
  if (thread_.joinable()) thread_.join();
}

void ChartImporter::Start(std::function<void(Progress&)> work) {
  Stop();
  told_.Begin();
  error_.reset();
  working_ = true;
  thread_ = std::thread([this, work = std::move(work)] {
    work(told_);
    working_ = false;
  });
}

void ChartImporter::Read(std::string path) {
  Start([this, path = std::move(path)](Progress& progress) {
    source_.reset();
    preview_ = {};
    Result<std::unique_ptr<ChartSource>> source = OpenChartSource(path);
    if (!source) {
      error_ = source.error();
      return;
    }
    Result<RgbPicture> preview = source.value()->Preview(kPreviewSide, progress);
    if (!preview) {
      error_ = preview.error();
      return;
    }
    source_ = std::move(source.value());
    preview_ = std::move(preview.value());
  });
}

void ChartImporter::Import(ImportRequest request) {
  Start([this, request = std::move(request)](Progress& progress) {
    if (source_ == nullptr) return;
    const Result<std::string> chart = ImportChart(folders_, *source_, request, progress);
    if (!chart) error_ = chart.error();
  });
}

}  // namespace skerrow
