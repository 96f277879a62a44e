#pragma once

#include <QIcon>
#include <QString>

/// The pictures of the commands, compiled into the program.

/// A picture by its name, drawn in the inks of the palette in force at the moment of painting: sharp at every
/// scale, light or dark. A name without a picture gives an icon that paints nothing.
QIcon tintedicon(const QString& name);

/// The icon of the program itself.
QIcon programicon();
