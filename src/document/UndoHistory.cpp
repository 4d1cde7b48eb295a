#include "document/UndoHistory.h"

void UndoHistory::follow(const QString &language)
{
    if (m_language == language)
        return;
    m_language = language;
    m_steps.clear();
    emit emptied();
}

quint64 UndoHistory::remember(UndoStep step)
{
    if (step.isEmpty())
        return 0;
    step.number = ++m_lastNumber;
    m_steps.append(std::move(step));
    if (m_steps.size() > maxSteps)
        m_steps.removeFirst();
    emit remembered();
    return m_lastNumber;
}

UndoStep UndoHistory::takeLast()
{
    UndoStep step = m_steps.takeLast();
    if (m_steps.isEmpty())
        emit emptied();
    return step;
}

void UndoHistory::forget(quint64 number)
{
    if (!m_steps.isEmpty() && m_steps.last().number == number)
        takeLast();
}
