#pragma once

#include "views/editor/LanguageFocus.h"

#include <QLineEdit>

class TAVLanguageTextField;

/** Who is told that a language field has gained or lost the focus. */
class OHLanguageTextFieldDelegate
{
public:
    virtual ~OHLanguageTextFieldDelegate() = default;
    virtual void languageTextFieldDidBecomeActive(TAVLanguageTextField *field) = 0;
    virtual void languageTextFieldDidLoseFocus(TAVLanguageTextField *field) = 0;
};

/**
 * A text field whose owner can switch the keyboard with the focus. Another program's window coming to the
 * front, or a menu, does not take the focus in this sense; hiding the field does. Line ends that are pasted
 * or dropped become blanks.
 */
class TAVLanguageTextField : public QLineEdit
{
    Q_OBJECT

public:
    explicit TAVLanguageTextField(QWidget *parent = nullptr);

    /** Not owned; may be null. */
    void setOhDelegate(OHLanguageTextFieldDelegate *delegate) { m_ohDelegate = delegate; }
    /**
     * A text that is no text of the user's but stands for several: whatever is typed, pasted or dropped into
     * it takes its place as a whole. Empty for none.
     */
    void setStandIn(const QString &text) { m_standIn = text; }

signals:
    /** Editing ends: the focus is about to be reported as lost. */
    void textShouldEndEditing();

protected:
    void focusInEvent(QFocusEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;
    void hideEvent(QHideEvent *event) override;

private:
    void endEditing();
    /** What a user meant by an edit whose result is this text. */
    QString meantBy(const QString &edited) const;

    QString m_standIn;
    QString m_lastText;
    LanguageFocus m_focus;
    OHLanguageTextFieldDelegate *m_ohDelegate = nullptr;
};
