#pragma once

#include <QIcon>
#include <QString>
#include <QStringList>

namespace skerrow {

// The icon of a name, such as "zoomin"; names are those of the files in svg/. It is drawn from its
// lines at whatever size and density it is asked for, light on dark with `night`, and faint when
// its button is disabled. An unknown name gives the null icon.
QIcon Icon(const QString& name, bool night = false);

// All names, sorted.
QStringList IconNames();

}  // namespace skerrow
