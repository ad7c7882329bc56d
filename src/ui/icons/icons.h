#pragma once

#include <QIcon>
#include <QString>
#include <QStringList>

namespace skerrow {

// The icon of a name, such as "zoomin"; names are those of the files in svg/. It is drawn from its
// lines at whatever size and density it is asked for: dark by day, in the reds of the night view
// with `night`, at a brightness of 10 to 100 percent; faint when its button is disabled; light in
// the chosen row of a menu (QIcon::Active). An unknown name gives the null icon.
QIcon Icon(const QString& name, bool night = false, int brightness = 100);

// The program's own icon for windows and the task bar, sharp at every size.
QIcon ApplicationIcon();

// All names, sorted.
QStringList IconNames();

}  // namespace skerrow
