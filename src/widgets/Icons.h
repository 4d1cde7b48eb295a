#pragma once

#include <QColor>
#include <QIcon>
#include <QPixmap>
#include <QString>

/** The program's pictures, one line style in whatever colour their place asks for. */
namespace Icons {

/**
 * A picture in the text colour of the palette, which it follows when the palette changes. Pictures whose name
 * ends in "_sel" take the palette's accent colour. For an unknown name the icon is empty.
 */
QIcon icon(const QString &name);

/** A picture in one given colour, as the card needs it. */
QIcon icon(const QString &name, const QColor &color);

/** The same as a pixmap; the size is in device-independent pixels. */
QPixmap pixmap(const QString &name, const QSize &size, qreal devicePixelRatio, const QColor &color);

/** The program's own icon, in its own colours. */
QIcon application();

/** The picture of a memory level; anything above 4 is level 5. */
QString levelName(int level);

} // namespace Icons
