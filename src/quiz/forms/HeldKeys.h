#pragma once

#include <QObject>

#include <functional>
#include <memory>
#include <vector>

class QEvent;
class QLineEdit;

/**
 * Keeps what is typed into a field while a step is pending, for the question that the step brings: it is the
 * beginning of the next answer. What has lost its question on the way is dropped.
 */
class HeldKeys : public QObject
{
    Q_OBJECT

public:
    /** Owned by the field, whose keys it holds as long as isHolding says so. */
    HeldKeys(QLineEdit *field, std::function<bool()> isHolding);
    ~HeldKeys() override;

    /** Types into the field what was held, unless an alert has stood meanwhile. */
    void typeIntoField();
    void drop() { m_held.clear(); }

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    static bool isText(const QEvent &event);

    QLineEdit *m_field;
    std::function<bool()> m_isHolding;
    bool m_isTyping = false;
    std::vector<std::unique_ptr<QEvent>> m_held;
    /** How often alerts had stood when the first key was held. */
    quint64 m_alertsBefore = 0;
};
