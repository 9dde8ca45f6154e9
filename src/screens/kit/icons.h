#pragma once

#include <QIcon>
#include <QString>

#include "screens/kit/theme.h"

namespace trunvex {

// A line icon of the program, by the name of its file. Drawn in the role's colour of the theme in force each
// time it is painted, at the device's own resolution. An unknown or empty name gives an icon that paints
// nothing.
QIcon lineIcon(const QString& name, QColor ColourRoles::*role = &ColourRoles::text);

QIcon applicationIcon();

}  // namespace trunvex
