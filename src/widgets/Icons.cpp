#include "widgets/Icons.h"

#include <QFile>
#include <QGuiApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPalette>
#include <QPixmapCache>
#include <QSvgRenderer>

#include <array>

int qInitResources_tavimo_icons();

namespace {

QByteArray drawing(const QString &name)
{
    // The pictures lie in a static library, from which the linker would drop them unasked.
    static const int linked = qInitResources_tavimo_icons();
    Q_UNUSED(linked)
    QFile file(QLatin1String(":/icons/") + name + QLatin1String(".svg"));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/** Draws a picture of the program in the palette's colours, or in one given colour. */
class IconEngine : public QIconEngine
{
public:
    IconEngine(const QString &name, const QColor &color)
        : m_name(name)
        , m_color(color)
    {
    }

    void paint(QPainter *painter, const QRect &rect, QIcon::Mode mode, QIcon::State state) override
    {
        const qreal ratio = painter->device()->devicePixelRatioF();
        painter->drawPixmap(rect, scaledPixmap(rect.size() * ratio, mode, state, ratio));
    }
    QPixmap pixmap(const QSize &size, QIcon::Mode mode, QIcon::State state) override
    {
        return scaledPixmap(size, mode, state, 1.0);
    }
    QPixmap scaledPixmap(const QSize &size, QIcon::Mode mode, QIcon::State, qreal) override
    {
        return Icons::pixmap(m_name, size, 1.0, color(mode));
    }
    QSize actualSize(const QSize &size, QIcon::Mode, QIcon::State) override { return size; }
    QIconEngine *clone() const override { return new IconEngine(*this); }

private:
    QColor color(QIcon::Mode mode) const
    {
        const QPalette palette = QGuiApplication::palette();
        if (m_color.isValid()) {
            QColor shade = m_color;
            if (mode == QIcon::Disabled)
                shade.setAlphaF(shade.alphaF() * 0.4F);
            return shade;
        }
        if (mode == QIcon::Disabled)
            return palette.color(QPalette::Disabled, QPalette::WindowText);
        if (mode == QIcon::Selected)
            return palette.color(QPalette::HighlightedText);
        return palette.color(m_name.endsWith(QLatin1String("_sel")) ? QPalette::Highlight
                                                                    : QPalette::WindowText);
    }

    QString m_name;
    QColor m_color;
};

} // namespace

QIcon Icons::icon(const QString &name)
{
    return icon(name, QColor());
}

QIcon Icons::icon(const QString &name, const QColor &color)
{
    return drawing(name).isEmpty() ? QIcon() : QIcon(new IconEngine(name, color));
}

QPixmap Icons::pixmap(const QString &name, const QSize &size, qreal devicePixelRatio, const QColor &color)
{
    const QSize pixels = (QSizeF(size) * devicePixelRatio).toSize();
    const QString key = QStringLiteral("tavimo/%1/%2x%3/%4/%5")
                            .arg(name, QString::number(pixels.width()), QString::number(pixels.height()),
                                 QString::number(devicePixelRatio), color.name(QColor::HexArgb));
    QPixmap picture;
    if (QPixmapCache::find(key, &picture))
        return picture;
    QByteArray svg = drawing(name);
    if (svg.isEmpty() || pixels.isEmpty())
        return {};
    svg.replace("currentColor", color.name().toLatin1());
    QSvgRenderer renderer(svg);
    renderer.setAspectRatioMode(Qt::KeepAspectRatio);
    picture = QPixmap(pixels);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setOpacity(color.alphaF());
    renderer.render(&painter, QRectF(QPointF(), QSizeF(pixels)));
    painter.end();
    picture.setDevicePixelRatio(devicePixelRatio);
    QPixmapCache::insert(key, picture);
    return picture;
}

QIcon Icons::application()
{
    return icon(QStringLiteral("tavimo"), Qt::black);
}

QString Icons::levelName(int level)
{
    static const std::array names{QStringLiteral("unknown"),    QStringLiteral("ultra_short_term"),
                                  QStringLiteral("short_term"), QStringLiteral("interim"),
                                  QStringLiteral("long_term"),  QStringLiteral("native")};
    return names[size_t(std::clamp(level, 0, int(names.size()) - 1))];
}
