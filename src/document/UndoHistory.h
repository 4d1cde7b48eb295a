#pragma once

#include "document/UndoStep.h"

#include <QObject>

/** What the user did to the words of one language, so that it can be taken back, the latest first. */
class UndoHistory : public QObject
{
    Q_OBJECT

public:
    static constexpr qsizetype maxSteps = 100;

    /** Another language has nothing to take back; the same one, loaded anew, keeps its history. */
    void follow(const QString &language);
    const QString &language() const { return m_language; }
    /** Beyond the limit the oldest step is forgotten; an empty one isn't kept. Returns its number. */
    quint64 remember(UndoStep step);
    bool isEmpty() const { return m_steps.isEmpty(); }
    /** Not while empty. */
    const UndoStep &last() const { return m_steps.last(); }
    /** The latest step, which is then forgotten. Not while empty. */
    UndoStep takeLast();
    /** Drops the latest step if it has this number. */
    void forget(quint64 number);

signals:
    /** A new step came, or none is offered any more. */
    void remembered();
    void emptied();

private:
    QString m_language;
    QList<UndoStep> m_steps;
    quint64 m_lastNumber = 0;
};
