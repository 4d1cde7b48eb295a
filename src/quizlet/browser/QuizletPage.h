#pragma once

#include "model/TAVLexicon.h"

class QWidget;

/** What the main window asks of the page on which sets of words are found. This base shows nothing. */
class QuizletPage
{
public:
    virtual ~QuizletPage() = default;
    /** The tab's content, made on the first call and owned by its Qt parent; null while there is none. */
    virtual QWidget *page() { return nullptr; }
    /** May be absent. */
    virtual void setVocabulary(const TAVLexiconRef &vocabulary) { Q_UNUSED(vocabulary) }
};
