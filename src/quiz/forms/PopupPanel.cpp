#include "quiz/forms/PopupPanel.h"

#include "app/ground/SettingsTable.h"
#include "platform/Services.h"
#include "platform/Texts.h"

#include <QCloseEvent>
#include <QMouseEvent>

using namespace std::chrono_literals;

namespace {

/** No screen reaches further: a stored position beyond this is damaged. */
constexpr double maxPosition = 1e5;
constexpr int shakeWidth = 5;
constexpr int shakeSteps = 5;
constexpr std::chrono::milliseconds shakeInterval = 40ms;
/** By then the desktop has put the panel where it was asked to. */
constexpr std::chrono::milliseconds placingTime = 500ms;

} // namespace

PopupPanel::PopupPanel()
    : QWidget(nullptr, Qt::Tool | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint)
{
    setAttribute(Qt::WA_QuitOnClose, false);
    const double x = settings::bgQuizWindowXOrigin.value().value_or(0.0);
    const double y = settings::bgQuizWindowYOrigin.value().value_or(0.0);
    if (x > 0 && y > 0 && x < maxPosition && y < maxPosition) {
        m_windowXPos = x;
        m_windowYPos = y;
    }
}

void PopupPanel::showInPlace()
{
    m_ignoreWindowMove = true;
    setWindowOpacity(1.0);
    const QPoint place{int(m_windowXPos), int(m_windowYPos)};
    move(place);
    show();
    // Some desktops place a window anew when it is shown.
    move(place);
    platform::clock().callAfter(placingTime, this, [this] { m_ignoreWindowMove = !isVisible(); });
}

void PopupPanel::bring()
{
    show();
    raise();
    activateWindow();
    platform::services().desktop->raiseAboveAll(winId());
}

void PopupPanel::bringToFront(const QString &text, const std::function<bool()> &isStillWanted)
{
    bring();
    platform::Desktop *desktop = platform::services().desktop;
    if (desktop->canRaiseAboveAll())
        return;
    desktop->notify(platform::localized("Quiz", "popupQuiz"), text, [this, isStillWanted] {
        if (isStillWanted())
            bring();
    });
}

void PopupPanel::putOutOfSight()
{
    m_ignoreWindowMove = true;
    m_shakeTimer.reset();
    // Out of the way even where a desktop still shows it for a moment.
    move(1 - width(), 1 - height());
    setWindowOpacity(0.0);
    hide();
}

void PopupPanel::shake()
{
    m_ignoreWindowMove = true;
    m_shakeStep = 0;
    const QPoint home = pos();
    m_shakeTimer = platform::clock().startTimer(shakeInterval, true, [this, home] {
        ++m_shakeStep;
        const bool isLast = m_shakeStep >= shakeSteps;
        move(home + QPoint(isLast ? 0 : m_shakeStep % 2 == 1 ? -shakeWidth : shakeWidth, 0));
        if (isLast) {
            m_ignoreWindowMove = false;
            m_shakeTimer.reset();
        }
    });
}

void PopupPanel::moveEvent(QMoveEvent *event)
{
    QWidget::moveEvent(event);
    if (m_ignoreWindowMove || pos().x() < 0 || pos().y() < 0)
        return;
    m_windowXPos = double(float(pos().x()));
    m_windowYPos = double(float(pos().y()));
    settings::bgQuizWindowXOrigin.set(m_windowXPos);
    settings::bgQuizWindowYOrigin.set(m_windowYPos);
}

void PopupPanel::closeEvent(QCloseEvent *event)
{
    m_shakeTimer.reset();
    emit closing();
    QWidget::closeEvent(event);
}

void PopupPanel::mousePressEvent(QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton)
        return;
    m_isDragging = true;
    m_ignoreWindowMove = false;
    m_dragStart = event->globalPosition().toPoint() - pos();
}

void PopupPanel::mouseMoveEvent(QMouseEvent *event)
{
    if (m_isDragging)
        move(event->globalPosition().toPoint() - m_dragStart);
}

void PopupPanel::mouseReleaseEvent(QMouseEvent *)
{
    m_isDragging = false;
}
