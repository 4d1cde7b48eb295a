#pragma once

#include "document/UndoStep.h"

#include <QWidget>

class QLabel;
class QToolButton;

/** The line below the list that tells what went, and offers to take it back. */
class UndoLine : public QWidget
{
    Q_OBJECT

public:
    explicit UndoLine(QWidget *parent = nullptr);

    void offer(const UndoStep &step);
    /** Tells something that can't be taken back. */
    void tell(const QString &text);

signals:
    void undoChosen();

private:
    void show(const QString &text, const QString &action);

    QLabel *m_text;
    QToolButton *m_action;
};
