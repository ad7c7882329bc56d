// Draws the program's icon: icon-sizes FOLDER SIZE... writes FOLDER/SIZE.png for each.
#include <QGuiApplication>
#include <QPixmap>

#include "ui/icons/icons.h"

int main(int argc, char** argv) {
  const QGuiApplication application(argc, argv);
  Q_INIT_RESOURCE(icons);
  const QStringList words = QGuiApplication::arguments().mid(1);
  for (const QString& size : words.mid(1)) {
    const int pixels = size.toInt();
    const QPixmap picture = skerrow::ApplicationIcon().pixmap({pixels, pixels}, 1.0);
    if (picture.width() != pixels) return 1;
    if (!picture.save(words.first() + "/" + size + ".png")) return 1;
  }
  return words.size() < 2 ? 1 : 0;
}
