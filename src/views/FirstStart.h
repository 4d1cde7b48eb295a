#pragma once

#include "model/TAVLexicon.h"

#include <QObject>

class FirstStartPage;
class VocabularyDocument;

/** What the first start asks of the main window. */
class FirstStartHub
{
public:
    virtual ~FirstStartHub() = default;
    /** Makes it the current vocabulary; all that needs one can be chosen from here on. */
    virtual void beginWith(const TAVLexiconRef &vocabulary) = 0;
    virtual void closeHelp() = 0;
    virtual void showVocabulary() = 0;
};

/** The time before there is any language, with its two roads: a new one, or those of a shared folder. */
class FirstStart : public QObject
{
    Q_OBJECT

public:
    /** Nothing is owned, and all must outlive this object. */
    FirstStart(FirstStartPage *page, VocabularyDocument &document, FirstStartHub &hub);

    void begin(bool isLinked);
    bool isOn() const { return m_isOn; }
    void end() { m_isOn = false; }

    void setFirstLanguage();
    void createFirstLanguageWithName(const QString &name);
    void getStartedAfterSync();

private:
    FirstStartPage *m_page;
    VocabularyDocument &m_document;
    FirstStartHub &m_hub;
    bool m_isOn = false;
};
