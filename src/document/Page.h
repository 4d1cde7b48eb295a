#pragma once

#include "model/TAVLexicon.h"

class QWidget;

/**
 * A tab of the main window, which tells it of all that happens to the current vocabulary. A page answers to
 * what concerns it; this base shows nothing and answers to nothing.
 */
class Page
{
public:
    virtual ~Page() = default;
    /** The tab's content, which then belongs to the window; null while there is none. */
    virtual QWidget *page() { return nullptr; }
    /** The user is on the way to the page; the words that are still selected in the vocabulary view. */
    virtual void willEnter(const TAVWordList &selectedWords) { Q_UNUSED(selectedWords) }
    /** The page is about to be seen. The vocabulary may be absent. */
    virtual void enter(const TAVLexiconRef &vocabulary) { Q_UNUSED(vocabulary) }
    /** Half a second after that, when everything has its place. The user may be elsewhere by then. */
    virtual void layoutDone() {}
    /** Another language was chosen, whatever page is seen. */
    virtual void vocabularyChanged(const TAVLexiconRef &vocabulary) { Q_UNUSED(vocabulary) }
    virtual void syncEnded() {}
    virtual void windowDidResize() {}
};
