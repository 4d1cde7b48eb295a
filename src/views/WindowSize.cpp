#include "views/WindowSize.h"

#include "app/ground/SettingsTable.h"

#include <QScreen>
#include <QWidget>

namespace {

constexpr QSize usualSize(1080, 720);
constexpr QSize minSize(800, 600);

} // namespace

void WindowSize::restore(QWidget &window)
{
    const QString stored = settings::mainWindowSize.value().value_or(QString());
    const QSize wanted(stored.section(QLatin1Char('x'), 0, 0).toInt(),
                       stored.section(QLatin1Char('x'), 1).toInt());
    QSize size = wanted.width() > 0 && wanted.height() > 0 ? wanted.expandedTo(minSize) : usualSize;
    if (const QScreen *screen = window.screen())
        size = size.boundedTo(screen->availableSize());
    window.resize(size);
}

void WindowSize::remember(const QWidget &window)
{
    const QSize size = window.normalGeometry().isValid() ? window.normalGeometry().size() : window.size();
    settings::mainWindowSize.set(
        QStringLiteral("%1x%2").arg(QString::number(size.width()), QString::number(size.height())));
}
