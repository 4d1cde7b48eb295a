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
        QString clean = typed;
        clean.remove(QChar(u'\0'));
        for (QChar &character : clean) {
            if (breaksLine(character))
                character = u' ';
        }
        if (clean == typed)
            return;
        const auto place = cursorPosition() - int(typed.size() - clean.size());
        setText(clean);
        setModified(true);
        setCursorPosition(std::max(place, 0));
    });
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
