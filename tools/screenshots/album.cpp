#include "album.h"

#include <QApplication>
#include <QDialog>
#include <QDir>
#include <QPainter>
#include <QPdfDocument>
#include <QTest>
#include <QTimer>
#include <cstdio>

#include "ui/forms/file_forms.h"
#include "ui/widgets/theme.h"

namespace screenshots {
namespace {

constexpr int kSettleMs = 150;
constexpr int kDialogMs = 300;
constexpr double kPageScale = 1.3;
const QColor kFrame(0x8d, 0x99, 0xa6);  // without a desktop's frame a window has no edge on paper

}  // namespace

Album::Album(QString folder) : folder_(std::move(folder)) { QDir().mkpath(folder_); }

void Album::Save(QWidget& window, const QString& name, QRect part) const {
  QPixmap picture = window.grab(part.isNull() ? QRect(QPoint(), QSize(-1, -1)) : part);
  QPainter painter(&picture);
  painter.setPen(kFrame);
  const QSizeF size = picture.deviceIndependentSize();
  painter.drawRect(QRectF(0, 0, size.width() - 1, size.height() - 1));
  painter.end();
  const QString night = skerrow::ThemeInForce().night ? QStringLiteral("-night") : QString();
  picture.save(folder_ + '/' + name + night + ".png");
}

void Album::Keep(QWidget& window, const QString& name, QRect part) const {
  window.show();
  if (!QTest::qWaitForWindowExposed(&window)) {
    std::fprintf(stderr, "not shown: %s\n", qPrintable(name));
  }
  QTest::qWait(kSettleMs);
  Save(window, name, part);
  if (qobject_cast<QDialog*>(&window) != nullptr) window.hide();
}

void Album::KeepPage(const skerrow::PrintDocument& document, const QString& name) const {
  const QTemporaryDir folder;
  const std::string path = folder.filePath("page.pdf").toStdString();
  QPdfDocument pdf(nullptr);
  if (!skerrow::Print(document, {"", path}) ||
      pdf.load(QString::fromStdString(path)) != QPdfDocument::Error::None) {
    std::fprintf(stderr, "not printed: %s\n", qPrintable(name));
    return;
  }
  const QSize size = (pdf.pagePointSize(0) * kPageScale).toSize();
  QImage page(size, QImage::Format_RGB32);
  page.fill(Qt::white);
  QPainter painter(&page);
  painter.drawImage(0, 0, pdf.render(0, size));
  painter.setPen(kFrame);
  painter.drawRect(page.rect().adjusted(0, 0, -1, -1));
  painter.end();
  page.save(folder_ + '/' + name + ".png");
}

void Album::KeepNext(const QString& name) const {
  QTimer::singleShot(kDialogMs, [this, name] {
    auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
    if (dialog == nullptr) {
      std::fprintf(stderr, "not shown: %s\n", qPrintable(name));
      return;
    }
    Save(*dialog, name, {});
    dialog->reject();
  });
}

void PictureMessages::Show(std::string_view text, skerrow::MessageIcon, std::string_view) {
  std::fprintf(stderr, "%.*s\n", static_cast<int>(text.size()), text.data());
}

skerrow::Folders Studio::FoldersIn(const QTemporaryDir& user) {
  return {SKERROW_SOURCE_DIR "/program", user.filePath("documents").toStdString(),
          user.filePath("settings").toStdString()};
}

Studio::Studio() : program(FoldersIn(user_), clock_) {
  skerrow::MakeUserFolders(program.folders);
  skerrow::LoadProgram(program, messages);
  for (const char* name : {"Sample.rte", "Portland Bill.rte", "Round Alderney.rte"}) {
    (void)skerrow::ImportFiles(program.folders, skerrow::FileKind::kRoute,
                               {program.folders.Samples() + "/" + name}, messages);
  }
  settings_ = skerrow::OpenSettingsStore(user_.filePath("skerrow.ini").toStdString());
  ports_ = skerrow::OpenSerialPorts(user_.path().toStdString());
  settings_->SetInt("Help", "QuickInstructionsOffered", 1);
  window_ = std::make_unique<skerrow::frmChart>(program, messages, *settings_, clipboard_, *ports_);
  window_->show();
  window_->Start();
}

Studio::~Studio() {
  program.route.points.clear();  // nothing unsaved at the close
}

void Studio::Command(const char* name) {
  QAction* action = window_->action(name);
  if (action == nullptr || !action->isEnabled()) {
    std::fprintf(stderr, "no command: %s\n", name);
    return;
  }
  action->trigger();
}

void Studio::Settle(QSize size) {
  window_->resize(size);
  if (!QTest::qWaitForWindowExposed(window_.get())) std::fprintf(stderr, "no window\n");
  (void)QTest::qWaitFor([this] { return window_->viewer().Refined(); }, 5000);
  QTest::qWait(kDialogMs);
}

}  // namespace screenshots
