#include "ui/icons/icons.h"

#include <QDir>
#include <QFile>
#include <QIconEngine>
#include <QPainter>
#include <QPixmap>
#include <QSvgRenderer>

// Resources of a static library have to be asked for, outside any namespace.
static void LoadIconFiles() { Q_INIT_RESOURCE(icons); }

namespace skerrow {
namespace {

constexpr char kFolder[] = ":/skerrow/icons";

// The two colours in the files, and what they are shown as.
struct Ink {
  const char* in_file;
  const char* day;
  const char* night;
};
constexpr Ink kInks[] = {{"currentColor", "#26384a", "#93a5b6"}, {"crimson", "#c8281e", "#c8553f"}};
constexpr double kDisabledOpacity = 0.35;

class LineIconEngine final : public QIconEngine {
 public:
  explicit LineIconEngine(QByteArray svg) : svg_(std::move(svg)) {}

  void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State) override {
    QSvgRenderer renderer(svg_);
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

  QIconEngine* clone() const override { return new LineIconEngine(svg_); }
  bool isNull() override { return svg_.isEmpty(); }

 private:
  QByteArray svg_;
};

}  // namespace

QIcon Icon(const QString& name, bool night) {
  LoadIconFiles();
  QFile file(QStringLiteral("%1/%2.svg").arg(QLatin1String(kFolder), name));
  if (!file.open(QIODevice::ReadOnly)) return {};
  QByteArray svg = file.readAll();
  for (const Ink& ink : kInks) svg.replace(ink.in_file, night ? ink.night : ink.day);
  return QIcon(new LineIconEngine(std::move(svg)));
}

QStringList IconNames() {
  LoadIconFiles();
  QStringList names = QDir(QLatin1String(kFolder)).entryList(QDir::Files, QDir::Name);
  for (QString& name : names) name.chop(4);
  return names;
}

}  // namespace skerrow
