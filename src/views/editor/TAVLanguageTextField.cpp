#include "views/editor/TAVLanguageTextField.h"

#include <limits>

namespace {

bool breaksLine(QChar character)
{
    return character == u'\n' || character == u'\r' || character == QChar::LineSeparator ||
           character == QChar::ParagraphSeparator;
}

} // namespace

TAVLanguageTextField::TAVLanguageTextField(QWidget *parent)
    : QLineEdit(parent)
{
    // A longer text of a file would come back cut when its word is saved.
    setMaxLength(std::numeric_limits<int>::max());
    connect(this, &QLineEdit::textEdited, this, [this](const QString &typed) {
        const QString meant = meantBy(typed);
        QString clean = meant;
        clean.remove(QChar(u'\0'));
        for (QChar &character : clean) {
            if (breaksLine(character))
                character = u' ';
        }
        if (clean == typed)
            return;
        const auto place =
            int(clean.size() - meant.size()) + (meant == typed ? cursorPosition() : int(meant.size()));
        setText(clean);
        m_lastText = clean;
        setModified(true);
        setCursorPosition(std::max(place, 0));
    });
    // Told after an edit was: until then this is the text that was edited.
    connect(this, &QLineEdit::textChanged, this, [this](const QString &text) { m_lastText = text; });
}

QString TAVLanguageTextField::meantBy(const QString &edited) const
{
    if (m_standIn.isEmpty() || m_lastText != m_standIn)
        return edited;
    qsizetype kept = 0;
    while (kept < edited.size() && kept < m_standIn.size() && edited.at(kept) == m_standIn.at(kept))
        ++kept;
    qsizetype behind = 0;
    while (behind < edited.size() - kept && behind < m_standIn.size() - kept &&
           edited.at(edited.size() - 1 - behind) == m_standIn.at(m_standIn.size() - 1 - behind))
        ++behind;
    return edited.mid(kept, edited.size() - kept - behind);
}

void TAVLanguageTextField::focusInEvent(QFocusEvent *event)
{
    QLineEdit::focusInEvent(event);
    if (m_focus.begins(*event) && m_ohDelegate)
        m_ohDelegate->languageTextFieldDidBecomeActive(this);
}

void TAVLanguageTextField::focusOutEvent(QFocusEvent *event)
{
    QLineEdit::focusOutEvent(event);
    if (m_focus.ends(*event))
        endEditing();
}

void TAVLanguageTextField::hideEvent(QHideEvent *event)
{
    QLineEdit::hideEvent(event);
    if (m_focus.endsByHiding(*event))
        endEditing();
}

void TAVLanguageTextField::endEditing()
{
    emit textShouldEndEditing();
    if (m_ohDelegate)
        m_ohDelegate->languageTextFieldDidLoseFocus(this);
}
