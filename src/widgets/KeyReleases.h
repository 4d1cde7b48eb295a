#pragma once

#include <QObject>

class QKeyEvent;

/**
 * Remembers the key that was released last, in whatever window, so that the repeats of a key that is held
 * down are known where the windowing system sends them as releases and presses.
 */
class KeyReleases : public QObject
{
    Q_OBJECT

public:
    /** The one of the application, which owns it. */
    static const KeyReleases *ofApplication();

    /** Whether the press is such a repeat: it bears the very time of its key's release. */
    bool isRepeat(const QKeyEvent &press) const;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    explicit KeyReleases(QObject *parent)
        : QObject(parent)
    {
    }

    int m_key = 0;
    quint64 m_time = 0;
    /** The time of the last press if that is a repeat, else 0; a field doesn't pass on that it was
     * spontaneous. */
    quint64 m_repeatTime = 0;
};
