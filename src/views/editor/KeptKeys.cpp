#include "views/editor/KeptKeys.h"

#include "platform/MainDispatcher.h"
#include "platform/Services.h"
#include "widgets/KeyReleases.h"

#include <QApplication>
#include <QWidget>

using namespace std::chrono_literals;

namespace {

constexpr std::chrono::milliseconds maxWait = 1s;

bool isTyped(const QKeyEvent &key)
{
    if (key.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier))
        return false;
    switch (key.key()) {
    case Qt::Key_Escape:
    case Qt::Key_Delete:
        return false;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        // A key that is still held down from the last word has nothing to say about the next one.
        return !key.isAutoRepeat() && !KeyReleases::ofApplication()->isRepeat(key);
    case Qt::Key_Tab:
    case Qt::Key_Backtab:
    case Qt::Key_Backspace:
        return true;
    default:
        return !key.text().isEmpty() && key.text().at(0).isPrint();
    }
}

} // namespace

KeptKeys::KeptKeys(QWidget *panel, QWidget *window)
    : m_panel(panel)
    , m_window(window)
{
    connect(qApp, &QApplication::focusChanged, this, [this](QWidget *, QWidget *now) {
        if (now && now == m_field)
            deliver();
    });
}

KeptKeys::~KeptKeys()
{
    end();
}

void KeptKeys::begin()
{
    if (!m_isKeeping)
        qApp->installEventFilter(this);
    m_isKeeping = true;
    m_field.clear();
    m_limit = platform::clock().startTimer(maxWait, false, [this] {
        end();
        m_keys.clear();
    });
}

void KeptKeys::deliverTo(QWidget *field)
{
    if (!m_isKeeping)
        return;
    m_field = field;
    if (field->hasFocus())
        deliver();
}

void KeptKeys::drop()
{
    if (m_isDelivering)
        return;
    end();
    m_keys.clear();
}

void KeptKeys::end()
{
    if (m_isKeeping)
        qApp->removeEventFilter(this);
    m_isKeeping = false;
    m_field.clear();
    m_limit.reset();
}

void KeptKeys::deliver()
{
    end();
    m_isDelivering = true;
    size_t next = 0;
    const platform::MainDispatcher &dispatcher = *platform::services().mainDispatcher;
    const quint64 alertsBefore = dispatcher.timesClosed();
    const auto hasAlertStood = [&] { return dispatcher.timesClosed() != alertsBefore; };
    // A Return among them may ask for the panel of the next word, to which the rest belongs.
    while (next < m_keys.size() && !m_isKeeping && !hasAlertStood() && m_panel->isVisible() &&
           m_panel->focusWidget()) {
        const std::unique_ptr<QKeyEvent> press = std::move(m_keys[next++]);
        QKeyEvent release(QEvent::KeyRelease, press->key(), press->modifiers(), press->text());
        const QPointer<QWidget> target = m_panel->focusWidget();
        QApplication::sendEvent(target, press.get());
        if (target)
            QApplication::sendEvent(target, &release);
    }
    m_isDelivering = false;
    m_keys.erase(m_keys.begin(), m_keys.begin() + std::ptrdiff_t(std::min(next, m_keys.size())));
    if (!m_isKeeping || hasAlertStood())
        m_keys.clear();
}

bool KeptKeys::isOurs(const QObject *object) const
{
    const auto *widget = qobject_cast<const QWidget *>(object);
    return widget &&
           (widget->window() == m_panel->window() || (m_window && widget->window() == m_window->window()));
}

bool KeptKeys::eventFilter(QObject *watched, QEvent *event)
{
    switch (event->type()) {
    case QEvent::KeyPress: {
        const auto &key = *static_cast<QKeyEvent *>(event);
        if (!isOurs(watched) || !isTyped(key))
            return false;
        if (m_field && static_cast<QWidget *>(watched)->window() == m_panel->window()) {
            deliver();
            return false;
        }
        m_keys.push_back(std::unique_ptr<QKeyEvent>(key.clone()));
        return true;
    }
    case QEvent::MouseButtonPress:
        if (watched->isWidgetType())
            drop();
        return false;
    case QEvent::WindowActivate:
        if (watched->isWidgetType() && !isOurs(watched))
            drop();
        return false;
    case QEvent::ApplicationDeactivate:
        drop();
        return false;
    default:
        return false;
    }
}
