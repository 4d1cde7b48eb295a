#include "quiz/forms/PopupPanel.h"

#include "app/ground/SettingsTable.h"
#include "platform/Services.h"
#include "platform/Texts.h"

#include <QCloseEvent>
#include <QCoreApplication>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QScreen>

#include <algorithm>

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
    expectOwnMoves();
    setWindowOpacity(1.0);
    const QPoint place = placeToShow();
    move(place);
    show();
    // Some desktops place a window anew when it is shown.
    move(place);
}

QPoint PopupPanel::placeToShow() const
{
    const QRect wanted(QPoint(int(m_windowXPos), int(m_windowYPos)), size());
    const QScreen *screen = QGuiApplication::primaryScreen();
    if (QGuiApplication::screenAt(wanted.center()) || !screen)
        return wanted.topLeft();
    // Its screen is no longer connected, but may be again.
    const QRect room = screen->availableGeometry();
    return {std::clamp(wanted.x(), room.left(), std::max(room.left(), room.right() - wanted.width() + 1)),
            std::clamp(wanted.y(), room.top(), std::max(room.top(), room.bottom() - wanted.height() + 1))};
}

void PopupPanel::expectOwnMoves()
{
    m_ownMoves = platform::clock().startTimer(placingTime, false, [this] { m_ownMoves.reset(); });
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
    expectOwnMoves();
    m_shakeTimer.reset();
    // Out of the way even where a desktop still shows it for a moment.
    move(1 - width(), 1 - height());
    setWindowOpacity(0.0);
    hide();
}

void PopupPanel::shake()
{
    m_shakeStep = 0;
    const QPoint home = pos();
    m_shakeTimer = platform::clock().startTimer(shakeInterval, true, [this, home] {
        ++m_shakeStep;
        const bool isLast = m_shakeStep >= shakeSteps;
        move(home + QPoint(isLast ? 0 : m_shakeStep % 2 == 1 ? -shakeWidth : shakeWidth, 0));
        if (isLast) {
            // The desktop reports the last of these moves a moment later.
            expectOwnMoves();
            m_shakeTimer.reset();
        }
    });
}

void PopupPanel::ignoreKeys(std::chrono::milliseconds time)
{
    qApp->installEventFilter(this);
    m_deafness = platform::clock().startTimer(time, false, [this] {
        qApp->removeEventFilter(this);
        m_deafness.reset();
    });
}

bool PopupPanel::eventFilter(QObject *watched, QEvent *event)
{
    const bool isKey = event->type() == QEvent::KeyPress || event->type() == QEvent::ShortcutOverride ||
                       event->type() == QEvent::InputMethod;
    const auto *widget = isKey ? qobject_cast<QWidget *>(watched) : nullptr;
    if (!widget || widget->window() != this)
        return QWidget::eventFilter(watched, event);
    event->accept();
    return true;
}

void PopupPanel::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Escape && !event->isAutoRepeat())
        emit escapePressed();
    else
        QWidget::keyPressEvent(event);
}

void PopupPanel::paintEvent(QPaintEvent *)
{
    // Without an edge, the panel would melt into a white page behind it.
    QColor edge = palette().color(QPalette::WindowText);
    edge.setAlphaF(0.45f);
    QPainter painter(this);
    painter.setPen(edge);
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
}

void PopupPanel::moveEvent(QMoveEvent *event)
{
    QWidget::moveEvent(event);
    if (ignoresWindowMove() || pos().x() < 0 || pos().y() < 0)
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
    m_ownMoves.reset();
    m_shakeTimer.reset();
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
