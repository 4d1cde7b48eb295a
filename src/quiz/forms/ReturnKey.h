#pragma once

#include <QObject>

#include <functional>

class QWidget;

/**
 * Lets Return do a page's next step: once for each real press, wherever on the page the focus is. A push
 * button that has the focus is clicked instead. A Return that is held down does nothing, so that no word
 * falls by a finger that rests on the key.
 */
class ReturnKey : public QObject
{
    Q_OBJECT

public:
    /** Owned by the page. */
    ReturnKey(QWidget *page, std::function<void()> step);

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    std::function<void()> m_step;
};
