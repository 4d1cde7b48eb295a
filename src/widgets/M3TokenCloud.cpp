#include "widgets/M3TokenCloud.h"

#include "platform/CaseFolding.h"
#include "widgets/M3TokenButton.h"

namespace {

constexpr int rowHeight = 24;
/** What a button takes of its row when rows are packed, and where several rows are placed. */
constexpr int packingGap = 4;
constexpr int placingGap = 5;

using Row = QList<M3TokenButton *>;

QList<Row> packed(const QList<M3TokenButton *> &buttons, int viewWidth)
{
    QList<Row> rows;
    int used = 0;
    for (M3TokenButton *button : buttons) {
        const int taken = button->boundingRect().width() + packingGap;
        const bool isFull = used >= viewWidth || (used + taken > viewWidth && taken < viewWidth);
        if (rows.isEmpty() || isFull) {
            rows.append(Row());
            used = 0;
        }
        rows.last().append(button);
        used += taken;
    }
    return rows;
}

} // namespace

M3TokenCloud::M3TokenCloud(QWidget *parent)
    : QWidget(parent)
{
}

M3TokenButton *M3TokenCloud::createButton(const QString &token)
{
    auto *button = new M3TokenButton(token, this);
    button->hide();
    connect(button, &QAbstractButton::clicked, this, [this, button] { buttonClicked(button); });
    m_tokenButtons.insert(token, button);
    m_sortedButtons.clear();
    return button;
}

void M3TokenCloud::removeButton(const QString &token)
{
    if (M3TokenButton *button = m_tokenButtons.take(token)) {
        button->hide();
        button->deleteLater();
        m_sortedButtons.clear();
    }
}

void M3TokenCloud::setTokens(const platform::TextSet &tokens)
{
    for (const QString &token : m_tokens) {
        if (!tokens.contains(token))
            removeButton(token);
    }
    m_tokens = tokens;
    for (const QString &token : m_tokens) {
        if (!token.isEmpty() && !m_tokenButtons.contains(token))
            createButton(token);
    }
    update();
}

bool M3TokenCloud::addTokenWithString(const QString &token)
{
    if (token.isEmpty() || m_tokens.contains(token))
        return false;
    createButton(token);
    recalculateButtonLocations();
    m_tokens.insert(token);
    return true;
}

void M3TokenCloud::removeTokenWithString(const QString &token)
{
    if (m_tokens.contains(token)) {
        removeButton(token);
        recalculateButtonLocations();
    }
    m_tokens.remove(token);
}

void M3TokenCloud::setSelectedTokenNames(const platform::TextSet &names)
{
    m_selectedTokenNames = names;
    for (auto it = m_tokenButtons.cbegin(); it != m_tokenButtons.cend(); ++it)
        it.value()->setChecked(names.contains(it.key()));
}

void M3TokenCloud::buttonClicked(M3TokenButton *button)
{
    const QString token = button->text();
    const bool isOn = button->isChecked();
    if (isOn)
        m_selectedTokenNames.insert(token);
    else
        m_selectedTokenNames.remove(token);
    if (m_delegate)
        m_delegate->tokenCloudDidClickToken(this, token, isOn);
}

void M3TokenCloud::placeButtons(const QList<QList<M3TokenButton *>> &rows)
{
    const int step = rows.size() > 1 ? placingGap : packingGap;
    int y = 0;
    for (const Row &row : rows) {
        int x = 0;
        for (M3TokenButton *button : row) {
            const QRect place(QPoint(x, y), button->boundingRect().size());
            x += place.width() + step;
            if (button->geometry() == place && !button->isHidden())
                continue;
            button->setGeometry(place);
            button->show();
        }
        y += rowHeight;
    }
}

void M3TokenCloud::recalculateButtonLocations()
{
    if (m_sortedButtons.size() != m_tokenButtons.size()) {
        m_sortedButtons = m_tokenButtons.values();
        std::sort(m_sortedButtons.begin(), m_sortedButtons.end(),
                  [](const M3TokenButton *a, const M3TokenButton *b) {
                      const int order = platform::compareCaseInsensitive(a->text(), b->text());
                      return order != 0 ? order < 0 : a->text() < b->text();
                  });
        for (qsizetype i = 1; i < m_sortedButtons.size(); ++i)
            setTabOrder(m_sortedButtons.at(i - 1), m_sortedButtons.at(i));
    }
    const QList<Row> rows = packed(m_sortedButtons, width());
    placeButtons(rows);
    const double neededHeight = double(rows.size()) * rowHeight;
    if (m_setup && neededHeight != m_preferredHeight) {
        m_preferredHeight = neededHeight;
        if (m_delegate)
            m_delegate->tokenCloudDidChangePreferredHeight(this, neededHeight);
    }
    m_setup = true;
}

void M3TokenCloud::paintEvent(QPaintEvent *)
{
    recalculateButtonLocations();
}
