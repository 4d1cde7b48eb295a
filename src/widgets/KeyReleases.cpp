#include "widgets/KeyReleases.h"

#include "platform/Services.h"

#include <QCoreApplication>
#include <QKeyEvent>

const KeyReleases *KeyReleases::ofApplication()
{
    auto *releases = qApp->findChild<KeyReleases *>(QString(), Qt::FindDirectChildrenOnly);
    if (!releases) {
        releases = new KeyReleases(qApp);
        qApp->installEventFilter(releases);
    }
    return releases;
}

bool KeyReleases::eventFilter(QObject *watched, QEvent *event)
{
    if (!event->spontaneous())
        return QObject::eventFilter(watched, event);
    if (event->type() == QEvent::KeyRelease) {
        const auto *release = static_cast<QKeyEvent *>(event);
        m_key = release->key();
        m_time = release->timestamp();
    } else if (event->type() == QEvent::KeyPress || event->type() == QEvent::ShortcutOverride) {
        const auto *press = static_cast<QKeyEvent *>(event);
        const bool isRepeat = press->key() == m_key && press->timestamp() == m_time;
        m_repeatTime = isRepeat ? m_time : 0;
    }
    return QObject::eventFilter(watched, event);
}

bool KeyReleases::isRepeat(const QKeyEvent &press) const
{
    // Another filter of the application may ask before this one has seen the press.
    const quint64 time = press.spontaneous() ? m_time : m_repeatTime;
    return platform::services().desktop->sendsRepeatsAsPresses() && time != 0 && press.key() == m_key &&
           press.timestamp() == time;
}
