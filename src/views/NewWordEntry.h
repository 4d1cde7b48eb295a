#pragma once

#include "model/TAVLexicon.h"

#include <functional>

class TAVWordPopoverController;
class VocabularyDocument;

/**
 * The new word in the making: it stands in the vocabulary without texts while the editor is open for it, and
 * goes again if the user turns to another word.
 */
class NewWordEntry
{
public:
    /** Both must outlive this object. */
    NewWordEntry(VocabularyDocument &document, TAVWordPopoverController &editor);

    TAVWordRef begin(TAVLexicon &vocabulary);
    /** Opens the editor in its adding mode by selecting the word's row, which is not yet the user's choice.
     */
    void open(const TAVWordRef &word, const std::function<void()> &selectItsRow);
    /** Closes the editor, if it is adding. */
    void cancel();
    /**
     * The words that the user has chosen meanwhile. If these are others, the new word leaves the vocabulary
     * and is given back; else absent. The editor would take a chosen word for the new one, and remove it when
     * it is cancelled.
     */
    TAVWordRef giveUpFor(const TAVWordList &chosen, const TAVLexiconRef &vocabulary);

private:
    VocabularyDocument &m_document;
    TAVWordPopoverController &m_editor;
    /** The one for which the editor was last opened. */
    std::weak_ptr<TAVWord> m_word;
};
