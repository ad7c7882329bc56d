#include "ui/icons/icons.h"

#include <QDir>
#include <QFile>
#include <QIconEngine>
#include <QPainter>
#include <QPixmap>
#include <QSvgRenderer>
#include <algorithm>

// Resources of a static library have to be asked for, outside any namespace.
static void LoadIconFiles() { Q_INIT_RESOURCE(icons); }

namespace skerrow {
namespace {

constexpr char kFolder[] = ":/skerrow/icons";
constexpr char kProgramFolder[] = ":/skerrow/program";

// The two colours in the files, and what they are shown as; `lit` in the chosen row of a menu.
struct Ink {
  const char* in_file;
  QRgb day;
  QRgb night;
  QRgb lit_day;
  QRgb lit_night;
};
constexpr Ink kInks[] = {{"currentColor", qRgb(0x26, 0x38, 0x4a), qRgb(0xc8, 0x68, 0x42),
                          qRgb(0xff, 0xff, 0xff), qRgb(0xf0, 0x95, 0x58)},
                         {"crimson", qRgb(0xc8, 0x28, 0x1e), qRgb(0xe8, 0x8a, 0x2e),
                          qRgb(0xff, 0xd0, 0xc8), qRgb(0xff, 0xb0, 0x50)}};
constexpr double kDisabledOpacity = 0.35;

QByteArray Inked(QByteArray svg, bool night, bool lit, int brightness) {
  for (const Ink& ink : kInks) {
    QColor colour(night ? (lit ? ink.lit_night : ink.night) : (lit ? ink.lit_day : ink.day));
    if (night) {
      const int share = std::clamp(brightness, 10, 100);
      colour = QColor(colour.red() * share / 100, colour.green() * share / 100,
                      colour.blue() * share / 100);
    }
    svg.replace(ink.in_file, colour.name().toLatin1());
  }
  return svg;
}

class LineIconEngine final : public QIconEngine {
 public:
  // `lit` is the picture for the chosen row of a menu.
  LineIconEngine(QByteArray svg, QByteArray lit) : svg_(std::move(svg)), lit_(std::move(lit)) {}

  void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State) override {
    const bool chosen = mode == QIcon::Active || mode == QIcon::Selected;
    QSvgRenderer renderer(chosen ? lit_ : svg_);
    renderer.setAspectRatioMode(Qt::KeepAspectRatio);
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    if (mode == QIcon::Disabled) painter->setOpacity(painter->opacity() * kDisabledOpacity);
    renderer.render(painter, QRectF(rect));
    painter->restore();
  }

  QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
    QPixmap result(size);
    result.fill(Qt::transparent);
    QPainter painter(&result);
    paint(&painter, QRect(QPoint(0, 0), size), mode, state);
    return result;
  }

  QIconEngine* clone() const override { return new LineIconEngine(svg_, lit_); }
  bool isNull() override { return svg_.isEmpty(); }

 private:
  QByteArray svg_;
  QByteArray lit_;
};

QByteArray FileOf(const QString& folder, const QString& name) {
  LoadIconFiles();
  QFile file(QStringLiteral("%1/%2.svg").arg(folder, name));
  return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

}  // namespace

QIcon Icon(const QString& name, bool night, int brightness) {
  const QByteArray svg = FileOf(QLatin1String(kFolder), name);
  if (svg.isEmpty()) return {};
  return QIcon(new LineIconEngine(Inked(svg, night, false, brightness),
                                  Inked(svg, night, true, brightness)));
}

QIcon ApplicationIcon() {
  // Window managers take pictures, not lines: one for each size in use. Small ones have fewer
  // details.
  QIcon icon;
  for (const int size : {16, 22, 24, 32, 48, 64, 128, 256}) {
    const QByteArray svg = FileOf(QLatin1String(kProgramFolder),
                                  size < 32 ? QStringLiteral("small") : QStringLiteral("large"));
    icon.addPixmap(LineIconEngine(svg, svg).pixmap({size, size}, QIcon::Normal, QIcon::Off));
  }
  return icon;
}

QStringList IconNames() {
  LoadIconFiles();
  QStringList names = QDir(QLatin1String(kFolder)).entryList(QDir::Files, QDir::Name);
  for (QString& name : names) name.chop(4);
  return names;
}

}  // namespace skerrow
