#include "quiz/forms/HeldKeys.h"

#include "platform/Services.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QLineEdit>

HeldKeys::HeldKeys(QLineEdit *field, std::function<bool()> isHolding)
    : QObject(field)
    , m_field(field)
    , m_isHolding(std::move(isHolding))
{
    field->installEventFilter(this);
}

HeldKeys::~HeldKeys() = default;

bool HeldKeys::isText(const QEvent &event)
{
    if (event.type() == QEvent::InputMethod)
        return true;
    if (event.type() != QEvent::KeyPress)
        return false;
    const auto &key = static_cast<const QKeyEvent &>(event);
    if (key.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier))
        return false;
    return key.key() == Qt::Key_Backspace || (!key.text().isEmpty() && key.text().front().isPrint());
}

bool HeldKeys::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::FocusOut || event->type() == QEvent::Hide)
        drop();
    if (m_isTyping || !isText(*event) || !m_isHolding())
        return QObject::eventFilter(watched, event);
    const platform::MainDispatcher &dispatcher = *platform::services().mainDispatcher;
    if (!dispatcher.isGateClosed()) {
        if (m_held.empty())
            m_alertsBefore = dispatcher.timesClosed();
        m_held.emplace_back(event->clone());
    }
    event->accept();
    return true;
}

void HeldKeys::typeIntoField()
{
    const auto held = std::exchange(m_held, {});
    if (m_alertsBefore != platform::services().mainDispatcher->timesClosed())
        return;
    // Another step may be pending already; these keys are the answer that it will judge.
    m_isTyping = true;
    for (const auto &event : held)
        QCoreApplication::sendEvent(m_field, event.get());
    m_isTyping = false;
}
