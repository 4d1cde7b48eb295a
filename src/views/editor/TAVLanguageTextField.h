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

signals:
    /** Editing ends: the focus is about to be reported as lost. */
    void textShouldEndEditing();

protected:
    void focusInEvent(QFocusEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;
    void hideEvent(QHideEvent *event) override;

private:
    void endEditing();

    LanguageFocus m_focus;
    OHLanguageTextFieldDelegate *m_ohDelegate = nullptr;
};
