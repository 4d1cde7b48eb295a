#pragma once

#include <QFrame>

/**
 * Quiet lines below what a page shows: what the user should know, without a question, one below the other. No
 * room is taken while there is none.
 */
class Notices : public QFrame
{
    Q_OBJECT

public:
    explicit Notices(QWidget *parent = nullptr);

    /** The line of that name, which is also its object name, gets the text. An empty text takes it away. */
    void tell(const QString &name, const QString &text);
};
