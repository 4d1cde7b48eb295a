#pragma once

#include "views/editor/LanguageFocus.h"
#include "widgets/TokenField.h"

class TAVLanguageTokenField;

/** Who is told that a token field has gained or lost the focus. */
class OHLanguageTokenFieldDelegate
{
public:
    virtual ~OHLanguageTokenFieldDelegate() = default;
    virtual void languageTokenFieldDidBecomeActive(TAVLanguageTokenField *field) = 0;
    virtual void languageTokenFieldDidLoseFocus(TAVLanguageTokenField *field) = 0;
};

/** A token field whose owner can switch the keyboard with the focus. */
class TAVLanguageTokenField : public TokenField
{
    Q_OBJECT

public:
    explicit TAVLanguageTokenField(QWidget *parent = nullptr);

    /** Not owned; may be null. */
    void setOhDelegate(OHLanguageTokenFieldDelegate *delegate) { m_ohDelegate = delegate; }

signals:
    /** Editing ends: the focus is about to be reported as lost. */
    void textShouldEndEditing();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    LanguageFocus m_focus;
    OHLanguageTokenFieldDelegate *m_ohDelegate = nullptr;
};
