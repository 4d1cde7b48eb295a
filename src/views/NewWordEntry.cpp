#include "views/NewWordEntry.h"

#include "document/VocabularyDocument.h"
#include "views/editor/TAVWordPopoverController.h"

NewWordEntry::NewWordEntry(VocabularyDocument &document, TAVWordPopoverController &editor)
    : m_document(document)
    , m_editor(editor)
{
}

TAVWordRef NewWordEntry::begin(TAVLexicon &vocabulary)
{
    return m_document.beginAddition(vocabulary);
}

void NewWordEntry::open(const TAVWordRef &word, const std::function<void()> &selectItsRow)
{
    m_editor.setIsInAddingMode(true);
    m_word.reset();
    selectItsRow();
    m_word = word;
}

void NewWordEntry::cancel()
{
    if (m_editor.isInAddingMode())
        m_editor.closeWordPanel(nullptr);
}

TAVWordRef NewWordEntry::giveUpFor(const TAVWordList &chosen, const TAVLexiconRef &vocabulary)
{
    const TAVWordRef word = m_word.lock();
    if (!word || !m_editor.isInAddingMode() || chosen == m_editor.selectedWords())
        return nullptr;
    m_editor.setIsInAddingMode(false);
    m_editor.hidePanel();
    m_document.cancelAddition(vocabulary, {word});
    return word;
}
