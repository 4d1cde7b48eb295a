#pragma once

#include <QObject>

#include <functional>

class KeyReleases;
class QKeyEvent;
class QWidget;

/**
 * Lets Return do a page's next step: once for each real press, wherever on the page the focus is. A push
 * button that has the focus is clicked instead. A Return that is held down does nothing, so that no word
 * falls by a finger that rests on the key; nor does one that comes while the page is not seen, or while a
 * step is pending.
 */
class ReturnKey : public QObject
{
    Q_OBJECT

public:
    /** Owned by the page. isBusy tells whether a step is pending; none ever is without it. */
    ReturnKey(QWidget *page, std::function<void()> step, std::function<bool()> isBusy = {});

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    std::function<void()> m_step;
    std::function<bool()> m_isBusy;
    const KeyReleases *m_releases;
};
