#include "widgets/TokenField.h"

#include <QAbstractItemView>
#include <QCompleter>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPaintEvent>
#include <QPainter>
#include <QScrollArea>
#include <QScrollBar>
#include <QStringListModel>
#include <QStyle>
#include <QVBoxLayout>

namespace {

constexpr int gap = 4;
constexpr int chipPadding = 8;
constexpr int crossWidth = 14;
constexpr int minInputWidth = 70;
constexpr int maxRows = 4;
/** Longer texts are cut in their chip, not in what they say. */
constexpr int maxChipWidth = 220;

QString cleaned(const QString &text)
{
    QString clean = text;
    clean.remove(QChar(u'\0'));
    return clean.trimmed();
}

} // namespace

TokenField::TokenField(QWidget *parent)
    : QWidget(parent)
    , m_scrollArea(new QScrollArea(this))
    , m_content(new QWidget)
    , m_input(new QLineEdit(m_content))
    , m_completions(new QStringListModel(this))
{
    m_scrollArea->setFrameShape(QFrame::StyledPanel);
    m_scrollArea->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_scrollArea->setFocusPolicy(Qt::NoFocus);
    m_scrollArea->setWidget(m_content);
    m_scrollArea->installEventFilter(this);
    m_scrollArea->viewport()->setBackgroundRole(QPalette::Base);
    m_content->setBackgroundRole(QPalette::Base);
    m_content->setAutoFillBackground(true);
    m_content->installEventFilter(this);
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(m_scrollArea);

    m_input->setFrame(false);
    m_input->installEventFilter(this);
    setFocusProxy(m_input);
    setFocusPolicy(Qt::StrongFocus);
    connect(m_input, &QLineEdit::textEdited, this, &TokenField::handleTyping);

    m_completer = new QCompleter(m_completions, this);
    m_completer->setCompletionMode(QCompleter::PopupCompletion);
    m_completer->setCaseSensitivity(Qt::CaseSensitive);
    m_input->setCompleter(m_completer);
    m_completer->popup()->installEventFilter(this);
    // The input takes the chosen text over first.
    connect(m_completer, qOverload<const QString &>(&QCompleter::activated), this, &TokenField::commitInput,
            Qt::QueuedConnection);
    arrange();
}

QStringList TokenField::tokens() const
{
    const QString typed = cleaned(m_input->text());
    QStringList all = m_tokens;
    if (!typed.isEmpty() && !all.contains(typed))
        all.append(typed);
    return all;
}

void TokenField::setTokens(const QStringList &tokens)
{
    m_tokens.clear();
    m_current = -1;
    m_input->clear();
    add(tokens);
    arrange();
}

void TokenField::setCompletionProvider(std::function<QStringList(const QString &)> provider)
{
    m_provider = std::move(provider);
}

void TokenField::setPlaceholderText(const QString &text)
{
    m_placeholderText = text;
    arrange();
}

void TokenField::add(const QStringList &texts)
{
    QSet<QString> known(m_tokens.begin(), m_tokens.end());
    for (const QString &text : texts) {
        const QString clean = cleaned(text);
        if (clean.isEmpty() || known.contains(clean))
            continue;
        known.insert(clean);
        m_tokens.append(clean);
    }
}

void TokenField::commitInput()
{
    if (m_input->text().isEmpty())
        return;
    const QString typed = m_input->text();
    m_input->clear();
    add({typed});
    arrange();
    emit tokensChanged();
}

void TokenField::handleTyping()
{
    m_current = -1;
    QString typed = m_input->text();
    for (QChar &character : typed) {
        if (character == u'\n' || character == u'\r' || character == QChar::LineSeparator ||
            character == QChar::ParagraphSeparator)
            character = u',';
    }
    QStringList parts = typed.split(u',');
    if (parts.size() > 1) {
        m_input->setText(parts.takeLast());
        add(parts);
    }
    // The blank after a comma is no beginning that a completion could have.
    const QString begun = m_input->text();
    if (begun.startsWith(u' ')) {
        const auto blanks =
            std::find_if(begun.begin(), begun.end(), [](QChar c) { return c != u' '; }) - begun.begin();
        const int place = m_input->cursorPosition();
        m_input->setText(begun.sliced(blanks));
        m_input->setCursorPosition(std::max(0, place - int(blanks)));
    }
    m_completions->setStringList(m_provider && !m_input->text().isEmpty() ? m_provider(m_input->text())
                                                                          : QStringList());
    arrange();
    emit tokensChanged();
}

void TokenField::remove(int index)
{
    if (index < 0 || index >= m_tokens.size())
        return;
    m_tokens.removeAt(index);
    m_current = std::min(m_current, int(m_tokens.size()) - 1);
    arrange();
    emit tokensChanged();
}

bool TokenField::commitsUnderCompletions(int key)
{
    QAbstractItemView *list = m_completer->popup();
    if ((key != Qt::Key_Return && key != Qt::Key_Enter) || list->currentIndex().isValid())
        return false;
    list->hide();
    commitInput();
    return true;
}

bool TokenField::handleKey(int key)
{
    const bool isAtStart = m_input->cursorPosition() == 0 && !m_input->hasSelectedText();
    const bool isMirrored = layoutDirection() == Qt::RightToLeft;
    // In a text that runs against the layout, the end is what lies beside the chips.
    const bool runsAgainst = !m_input->text().isEmpty() && m_input->text().isRightToLeft() != isMirrored;
    const bool isBesideChips = !m_input->hasSelectedText() &&
                               m_input->cursorPosition() == (runsAgainst ? m_input->text().size() : 0);
    const int last = int(m_tokens.size()) - 1;
    if (key == Qt::Key_Return || key == Qt::Key_Enter) {
        if (m_input->text().isEmpty())
            return false;
        commitInput();
        return true;
    }
    if (key == (isMirrored ? Qt::Key_Right : Qt::Key_Left) && (isBesideChips || m_current >= 0) &&
        last >= 0) {
        m_current = m_current < 0 ? last : std::max(0, m_current - 1);
    } else if (key == (isMirrored ? Qt::Key_Left : Qt::Key_Right) && m_current >= 0) {
        m_current = m_current < last ? m_current + 1 : -1;
    } else if ((key == Qt::Key_Backspace || key == Qt::Key_Delete) && m_current >= 0) {
        remove(m_current);
    } else if (key == Qt::Key_Backspace && isAtStart && last >= 0) {
        remove(last);
    } else {
        if (m_current >= 0) {
            m_current = -1;
            m_content->update();
        }
        return false;
    }
    if (m_current >= 0)
        m_scrollArea->ensureVisible(m_places.at(m_current).center().x(), m_places.at(m_current).center().y());
    m_content->update();
    return true;
}

bool TokenField::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == m_input) {
        switch (event->type()) {
        case QEvent::KeyPress:
            return handleKey(static_cast<QKeyEvent *>(event)->key());
        case QEvent::FocusIn:
            m_input->setAccessibleName(accessibleName());
            m_input->setAccessibleDescription(m_tokens.join(QLatin1String(", ")));
            break;
        case QEvent::FocusOut:
            m_current = -1;
            if (static_cast<QFocusEvent *>(event)->reason() != Qt::PopupFocusReason) {
                commitInput();
                emit editingFinished();
            }
            m_content->update();
            break;
        default:
            break;
        }
    } else if (watched == m_content) {
        if (event->type() == QEvent::Paint)
            paintChips(static_cast<QPaintEvent *>(event)->rect());
        else if (event->type() == QEvent::MouseButtonPress)
            clickChip(static_cast<QMouseEvent *>(event)->pos());
    } else if (watched == m_scrollArea && event->type() == QEvent::KeyPress) {
        // Keys that the input doesn't want are the window's, not the scroll bar's.
        event->ignore();
        return true;
    } else if (m_completer && watched == m_completer->popup()) {
        if (event->type() == QEvent::KeyPress)
            return commitsUnderCompletions(static_cast<QKeyEvent *>(event)->key());
    }
    return QWidget::eventFilter(watched, event);
}

void TokenField::clickChip(const QPoint &place)
{
    m_input->setFocus();
    m_current = -1;
    for (int i = 0; i < m_places.size(); ++i) {
        if (!m_places.at(i).contains(place))
            continue;
        m_current = i;
        const QRect chip = m_places.at(i);
        const QRect cross = QStyle::visualRect(
            layoutDirection(), chip,
            QRect(chip.right() - crossWidth - gap / 2, chip.top(), crossWidth + gap / 2, chip.height()));
        if (cross.contains(place)) {
            m_current = -1;
            remove(i);
        }
        break;
    }
    m_content->update();
}

int TokenField::placeChips(int width, int rowHeight)
{
    m_places.clear();
    int x = gap;
    int y = gap;
    for (const QString &token : std::as_const(m_tokens)) {
        const int chip = std::min({fontMetrics().horizontalAdvance(token) + 2 * chipPadding + crossWidth,
                                   maxChipWidth, width - 2 * gap});
        if (x > gap && x + chip > width - gap) {
            x = gap;
            y += rowHeight + gap;
        }
        m_places.append(QRect(x, y, chip, rowHeight));
        x += chip + gap;
    }
    if (x > gap && x + minInputWidth > width - gap) {
        x = gap;
        y += rowHeight + gap;
    }
    m_input->setGeometry(x, y, width - gap - x, rowHeight);
    return y + rowHeight + gap;
}

void TokenField::arrange()
{
    const int rowHeight = std::max(fontMetrics().height() + 6, 22);
    const int highest = maxRows * (rowHeight + gap) + gap;
    const int frame = 2 * m_scrollArea->frameWidth();
    int width = std::max(this->width() - frame, minInputWidth + 2 * gap);
    int height = placeChips(width, rowHeight);
    if (height > highest) {
        width = std::max(width - m_scrollArea->verticalScrollBar()->sizeHint().width(), minInputWidth);
        height = placeChips(width, rowHeight);
    }
    const QRect all(0, 0, width, height);
    for (QRect &place : m_places)
        place = QStyle::visualRect(layoutDirection(), all, place);
    m_content->resize(all.size());
    m_input->setGeometry(QStyle::visualRect(layoutDirection(), all, m_input->geometry()));
    m_input->setPlaceholderText(m_tokens.isEmpty() ? m_placeholderText : QString());
    setFixedHeight(std::min(height, highest) + frame);
    // The layout misses a change of height that comes while it is working.
    m_scrollArea->setGeometry(rect());
    m_content->update();
    if (m_input->hasFocus())
        m_scrollArea->ensureWidgetVisible(m_input, 0, gap);
}

void TokenField::paintChips(const QRect &area)
{
    QPainter painter(m_content);
    painter.fillRect(m_content->rect(), palette().base());
    painter.setRenderHint(QPainter::Antialiasing);
    const QColor accent = palette().color(QPalette::Highlight);
    for (int i = 0; i < m_places.size(); ++i) {
        const QRect chip = m_places.at(i);
        if (!area.intersects(chip))
            continue;
        const bool isCurrent = i == m_current;
        QColor fill = accent;
        fill.setAlphaF(isCurrent ? 1.0f : 0.18f);
        painter.setPen(Qt::NoPen);
        painter.setBrush(fill);
        painter.drawRoundedRect(chip, 4, 4);
        painter.setPen(palette().color(isCurrent ? QPalette::HighlightedText : QPalette::Text));
        const QRect text =
            QStyle::visualRect(layoutDirection(), chip, chip.adjusted(chipPadding, 0, -crossWidth - gap, 0));
        painter.drawText(text,
                         Qt::AlignVCenter | Qt::TextSingleLine |
                             (layoutDirection() == Qt::RightToLeft ? Qt::AlignRight : Qt::AlignLeft),
                         fontMetrics().elidedText(m_tokens.at(i), Qt::ElideRight, text.width()));
        const QRect cross = QStyle::visualRect(
            layoutDirection(), chip, QRect(chip.right() - crossWidth, chip.top(), crossWidth, chip.height()));
        const QPoint middle = cross.center();
        painter.drawLine(middle + QPoint(-3, -3), middle + QPoint(3, 3));
        painter.drawLine(middle + QPoint(-3, 3), middle + QPoint(3, -3));
    }
}

void TokenField::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    arrange();
}

void TokenField::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::LayoutDirectionChange || event->type() == QEvent::FontChange)
        arrange();
}
