#include "views/WindowSize.h"

#include "app/ground/SettingsKeys.h"
#include "platform/Services.h"

#include <QScreen>
#include <QWidget>

namespace {

constexpr QSize usualSize(1080, 720);
constexpr QSize minSize(800, 600);

} // namespace

namespace WindowSize {

void restore(QWidget &window)
{
    const QString stored = platform::settings().text(settingskeys::mainWindowSize);
    const QSize wanted(stored.section(QLatin1Char('x'), 0, 0).toInt(),
                       stored.section(QLatin1Char('x'), 1).toInt());
    QSize size = wanted.width() > 0 && wanted.height() > 0 ? wanted.expandedTo(minSize) : usualSize;
    if (const QScreen *screen = window.screen())
        size = size.boundedTo(screen->availableSize());
    window.resize(size);
}

void remember(const QWidget &window)
{
    const QSize size = window.normalGeometry().isValid() ? window.normalGeometry().size() : window.size();
    platform::settings().setValue(
        settingskeys::mainWindowSize,
        QStringLiteral("%1x%2").arg(QString::number(size.width()), QString::number(size.height())));
}

} // namespace WindowSize
