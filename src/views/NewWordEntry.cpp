#include "views/NewWordEntry.h"

#include "document/VocabularyDocument.h"
#include "views/editor/TAVWordPopoverController.h"

#include <QApplication>
#include <QMouseEvent>

NewWordEntry::NewWordEntry(VocabularyDocument &document, TAVWordPopoverController &editor, QWidget *page)
    : m_document(document)
    , m_editor(editor)
    , m_page(page)
    , m_choosesWord([](QWidget *, const QPoint &) { return false; })
{
    qApp->installEventFilter(this);
}

NewWordEntry::~NewWordEntry()
{
    qApp->removeEventFilter(this);
}

void NewWordEntry::setChoosesWord(std::function<bool(QWidget *, const QPoint &)> choosesWord)
{
    m_choosesWord = std::move(choosesWord);
}

TAVWordRef NewWordEntry::begin(TAVLexicon &vocabulary)
{
    return m_document.beginAddition(vocabulary);
}

void NewWordEntry::open(const TAVWordRef &word, const TAVLexiconRef &vocabulary, int row,
                        const std::function<void(int)> &selectRow)
{
    if (row < 0) {
        m_document.cancelAddition(vocabulary, {word});
        return;
    }
    m_editor.setIsInAddingMode(true);
    m_word = word;
    m_isOpening = true;
    selectRow(row);
    m_isOpening = false;
}

void NewWordEntry::cancel()
{
    if (m_editor.isInAddingMode())
        m_editor.closeWordPanel(nullptr);
}

TAVWordRef NewWordEntry::leftBehind(const TAVWordList &cancelled, const TAVLexiconRef &vocabulary) const
{
    TAVWordRef word = m_word.lock();
    const bool isEmpty = word && word->yourWord().isEmpty() && word->foreignWord().isEmpty();
    const bool isThere = isEmpty && vocabulary && vocabulary->allWords().contains(word);
    return isThere && !cancelled.contains(word) ? word : nullptr;
}

TAVWordRef NewWordEntry::giveUpFor(const TAVWordList &chosen, const TAVLexiconRef &vocabulary)
{
    if (m_isOpening || !m_editor.isInAddingMode() || chosen == m_editor.selectedWords())
        return nullptr;
    TAVWordRef word = m_editor.isAdditionUnsaved() ? nullptr : m_word.lock();
    m_editor.hidePanel();
    m_editor.setIsInAddingMode(false);
    m_word.reset();
    if (word)
        m_document.cancelAddition(vocabulary, {word});
    return word;
}

bool NewWordEntry::isOutside(QWidget *widget, const QMouseEvent &press) const
{
    return m_page && widget->window() == m_page->window() && !m_choosesWord(widget, press.pos());
}

bool NewWordEntry::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() != QEvent::MouseButtonPress || !m_editor.isInAddingMode() || !m_editor.isPanelVisible())
        return false;
    // What was pressed may go with the word.
    const QPointer<QWidget> pressed = qobject_cast<QWidget *>(watched);
    if (pressed && isOutside(pressed, *static_cast<QMouseEvent *>(event))) {
        cancel();
        return !pressed;
    }
    return false;
}
