#include "views/TAVHelpController.h"

#include "platform/Texts.h"

#include <QCoreApplication>
#include <QEvent>
#include <QLabel>
#include <QPainter>
#include <QPainterPath>
#include <QWidget>

#include <array>

using platform::localized;

namespace {

struct Hint
{
    const char *control;
    const char *key;
    /** The side of the control on which the label stands. */
    Qt::Edge side;
    /** Room that a neighbour's label takes between the control and this one. */
    int distance;
};

constexpr std::array<Hint, 5> hints{{
    {"level2Button", QT_TRANSLATE_NOOP("MainWindow", "helpLevels"), Qt::RightEdge, 0},
    {"tagScrollArea", QT_TRANSLATE_NOOP("MainWindow", "helpTags"), Qt::RightEdge, 0},
    {"searchField", QT_TRANSLATE_NOOP("MainWindow", "helpSearch"), Qt::BottomEdge, 0},
    {"addWordButton", QT_TRANSLATE_NOOP("MainWindow", "helpAddWord"), Qt::BottomEdge, 84},
    {"vocabularyTable", QT_TRANSLATE_NOOP("MainWindow", "helpTable"), Qt::TopEdge, 0},
}};

constexpr int labelWidth = 220;
constexpr int gap = 14;
constexpr int padding = 12;
const QColor veil(20, 24, 32, 170);
const QColor labelFill(250, 250, 252);
const QColor labelText(40, 44, 52);

class HelpPanel : public QWidget
{
public:
    explicit HelpPanel(QWidget *view)
        : QWidget(view)
    {
        setObjectName(QStringLiteral("vocabularyHelp"));
        setFocusPolicy(Qt::StrongFocus);
        setCursor(Qt::PointingHandCursor);
        setAccessibleName(localized("MainWindow", "help"));
        for (const Hint &hint : hints) {
            auto *label = new QLabel(localized("MainWindow", hint.key), this);
            label->setTextFormat(Qt::PlainText);
            label->setWordWrap(true);
            label->setFixedWidth(labelWidth);
            label->setContentsMargins(padding, padding, padding, padding);
            QPalette colors = label->palette();
            colors.setColor(QPalette::WindowText, labelText);
            label->setPalette(colors);
            m_labels.append(label);
        }
        view->installEventFilter(this);
        arrange();
    }

protected:
    void paintEvent(QPaintEvent *event) override
    {
        Q_UNUSED(event)
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.fillRect(rect(), veil);
        painter.setPen(Qt::NoPen);
        for (int i = 0; i < m_labels.size(); ++i) {
            const QRect box = m_labels.at(i)->geometry();
            const QPoint tip = m_tips.at(i);
            QPainterPath bubble;
            bubble.addRoundedRect(box, 8, 8);
            QPainterPath arrow;
            const QPointF foot(std::clamp(tip.x(), box.left() + 20, box.right() - 20),
                               std::clamp(tip.y(), box.top() + 20, box.bottom() - 20));
            const QPointF across = hints[size_t(i)].side == Qt::RightEdge ? QPointF(0, 9) : QPointF(9, 0);
            arrow.moveTo(tip);
            arrow.lineTo(foot + across);
            arrow.lineTo(foot - across);
            arrow.closeSubpath();
            painter.fillPath(bubble.united(arrow), labelFill);
        }
    }
    void mousePressEvent(QMouseEvent *event) override
    {
        Q_UNUSED(event)
        deleteLater();
        hide();
    }
    void keyPressEvent(QKeyEvent *event) override
    {
        Q_UNUSED(event)
        deleteLater();
        hide();
    }
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() == QEvent::Resize)
            arrange();
        return QWidget::eventFilter(watched, event);
    }

private:
    void arrange()
    {
        setGeometry(parentWidget()->rect());
        m_tips.clear();
        for (int i = 0; i < m_labels.size(); ++i)
            m_tips.append(placeLabel(m_labels.at(i), hints[size_t(i)]));
        update();
    }
    QPoint placeLabel(QLabel *label, const Hint &hint) const
    {
        const auto *control = parentWidget()->findChild<QWidget *>(QLatin1String(hint.control));
        if (!control)
            return {};
        const QRect target(control->mapTo(parentWidget(), QPoint()), control->size());
        label->setFixedHeight(label->heightForWidth(labelWidth));
        QRect box(QPoint(), label->size());
        QPoint tip;
        if (hint.side == Qt::RightEdge) {
            tip = {target.right(), std::min(target.center().y(), target.top() + 60)};
            box.moveTopLeft({tip.x() + gap, tip.y() - box.height() / 2});
        } else if (hint.side == Qt::BottomEdge) {
            tip = {target.center().x(), target.bottom()};
            box.moveTopLeft({tip.x() - box.width() / 2, tip.y() + gap + hint.distance});
        } else {
            tip = {target.center().x(), target.center().y()};
            box.moveTopLeft({tip.x() - box.width() / 2, tip.y() + gap + hint.distance});
        }
        const QRect room = rect().adjusted(gap, gap, -gap, -gap);
        box.moveLeft(std::clamp(box.left(), room.left(), std::max(room.left(), room.right() - box.width())));
        box.moveTop(std::clamp(box.top(), room.top(), std::max(room.top(), room.bottom() - box.height())));
        label->move(box.topLeft());
        return tip;
    }

    QList<QLabel *> m_labels;
    QList<QPoint> m_tips;
};

} // namespace

TAVHelpController::TAVHelpController(QWidget *vocabularyView, QObject *parent)
    : QObject(parent)
    , m_vocabularyView(vocabularyView)
{
}

void TAVHelpController::showVocabularyHelp()
{
    if (!m_vocabularyView || isShowing())
        return;
    delete m_panel;
    m_panel = new HelpPanel(m_vocabularyView);
    m_panel->show();
    m_panel->raise();
    m_panel->setFocus();
}

void TAVHelpController::closeHelp()
{
    delete m_panel;
}

bool TAVHelpController::isShowing() const
{
    return m_panel && !m_panel->isHidden();
}
