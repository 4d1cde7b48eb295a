#include "platform/DiagnosticLog.h"
#include "platform/Services.h"
#include "storage/TAVStorageManager.h"
#include "ui_VocabularyView.h"
#include "views/TAVLexiconController.h"
#include "views/editor/TAVWordPopoverController.h"

#include <QHash>

#include <algorithm>

using namespace std::chrono_literals;

namespace {

constexpr qsizetype longestDeletionHistory = 100;

} // namespace

TAVWordList TAVLexiconController::getSelectedWordsArray()
{
    TAVWordList words;
    const QList<int> rows = m_ui->vocabularyTable->selectedRowList();
    words.reserve(rows.size());
    for (const int row : rows)
        words.append(m_model->wordAtRow(row));
    return isListOutlived() ? successorsOf(words) : words;
}

void TAVLexiconController::deselectWords()
{
    m_wordEditor->closeWordPanel(nullptr);
    m_ui->vocabularyTable->clearSelection();
}

void TAVLexiconController::tableViewSelectionDidChange()
{
    const QList<int> rows = m_ui->vocabularyTable->selectedRowList();
    if (rows.isEmpty()) {
        m_selectedWord.reset();
        updateStatusText();
        return;
    }
    if (adoptReplacedVocabulary() || giveUpNewWord())
        return;
    m_selectedWord = m_model->wordAtRow(rows.first());
    updateStatusText();
    showEditorForSelection(rows);
}

void TAVLexiconController::showEditorForSelection(const QList<int> &rows)
{
    QWidget *viewport = m_ui->vocabularyTable->viewport();
    QRect cell = m_ui->vocabularyTable->visualRect(m_model->index(rows.first(), WordTableModel::YourWord));
    // The first of many selected rows may have been scrolled away.
    cell.moveTop(std::clamp(cell.top(), 0, std::max(0, viewport->height() - cell.height())));
    m_wordEditor->showEditWindowForWords(getSelectedWordsArray(), m_vocabulary, this);
    m_wordEditor->showBeside(viewport, cell.intersected(viewport->rect()));
}

bool TAVLexiconController::isListOutlived() const
{
    return m_vocabulary && m_listedVocabulary.lock() != m_vocabulary;
}

TAVWordList TAVLexiconController::successorsOf(const TAVWordList &words) const
{
    QHash<std::pair<QString, QString>, TAVWordRef> present;
    for (const TAVWordRef &word : m_vocabulary->allWords()) {
        const auto texts = std::pair(word->yourWord(), word->foreignWord());
        if (!present.contains(texts))
            present.insert(texts, word);
    }
    TAVWordList successors;
    for (const TAVWordRef &word : words) {
        if (const TAVWordRef found = present.value({word->yourWord(), word->foreignWord()}))
            successors.append(found);
    }
    return successors;
}

bool TAVLexiconController::adoptReplacedVocabulary()
{
    if (!isListOutlived())
        return false;
    const TAVWordList chosen = getSelectedWordsArray();
    updateEntireView();
    chooseAgain(chosen);
    return true;
}

bool TAVLexiconController::giveUpNewWord()
{
    const TAVWordRef newWord = m_newWord.lock();
    if (!newWord || !m_wordEditor->isInAddingMode())
        return false;
    TAVWordList chosen = getSelectedWordsArray();
    if (chosen == m_wordEditor->selectedWords())
        return false;
    // Otherwise the editor would take the chosen word for the new one, and remove it when it is cancelled.
    m_wordEditor->setIsInAddingMode(false);
    hideWordEditor();
    m_vocabulary->removeWord(newWord);
    updateEntireView();
    chosen.removeAll(newWord);
    chooseAgain(chosen);
    return true;
}

void TAVLexiconController::chooseAgain(const TAVWordList &words)
{
    const qsizetype index = words.size() == 1 ? currentWordsToShow().indexOf(words.first()) : -1;
    if (index >= 0)
        m_ui->vocabularyTable->selectOnlyRow(int(calculateWordIndexForRow(index)));
}

void TAVLexiconController::closeAddWordPopover()
{
    if (m_wordEditor->isInAddingMode())
        m_wordEditor->closeWordPanel(nullptr);
}

void TAVLexiconController::hideWordEditor()
{
    m_wordEditor->hidePanel();
}

void TAVLexiconController::showAddWordPanel()
{
    if (!m_vocabulary)
        return;
    const auto word = std::make_shared<TAVWord>(QString(), QString(), QString());
    {
        const UpdateHold oneUpdate(*this);
        deselectAllTags();
        emptySearchField();
        selectMemoryView(m_ui->level0Button);
        m_vocabulary->addWord(word);
        updateEntireView();
    }
    const qsizetype index = currentWordsToShow().indexOf(word);
    m_wordEditor->setIsInAddingMode(true);
    // The selection that follows is not yet the user's.
    m_newWord.reset();
    // The place in the list is the row, also while the table shows the list from its end.
    m_ui->vocabularyTable->selectOnlyRow(int(index));
    m_newWord = word;
}

void TAVLexiconController::wordPopoverDidAddWords(const TAVWordList &words, bool shallAddMore)
{
    Q_UNUSED(words)
    updateEntireView();
    hideWordEditor();
    markFileAsNeedsSync();
    if (shallAddMore)
        platform::clock().callAfter(500ms, this, [this] {
            // On another page, nobody would type into the empty word, and it would be saved.
            if (m_view->isVisible())
                showAddWordPanel();
            else
                syncWithDropbox();
        });
    else
        syncWithDropbox();
}

void TAVLexiconController::wordPopoverDidEditWords(const TAVWordList &words)
{
    Q_UNUSED(words)
    updateEntireView();
    hideWordEditor();
    markFileAsNeedsSync();
    syncWithDropbox();
}

void TAVLexiconController::wordPopoverDidDeleteWords(const TAVWordList &words)
{
    rememberDeletion(words);
    const QList<int> rows = m_ui->vocabularyTable->selectedRowList();
    hideWordEditor();
    markFileAsNeedsSync();
    updateEntireView();
    syncWithDropbox();
    if (!rows.isEmpty())
        putCursorNear(rows.first());
}

void TAVLexiconController::wordPopoverDidCancelAddingWords(const TAVWordList &words)
{
    if (m_vocabulary) {
        for (const TAVWordRef &word : words)
            m_vocabulary->removeWord(word);
    }
    updateEntireView();
    hideWordEditor();
    syncWithDropbox();
}

void TAVLexiconController::wordPopoverDidCancelEditWords(const TAVWordList &words)
{
    Q_UNUSED(words)
    hideWordEditor();
}

void TAVLexiconController::wordPopoverDidMoveSelection(int direction)
{
    const QList<int> rows = m_ui->vocabularyTable->selectedRowList();
    if (rows.isEmpty())
        return;
    const int row = direction < 0 ? rows.first() - 1 : rows.last() + 1;
    m_ui->vocabularyTable->selectOnlyRow(row);
}

void TAVLexiconController::putCursorNear(int row)
{
    const QModelIndex index =
        m_model->index(std::min(row, m_model->rowCount() - 1), WordTableModel::YourWord);
    if (index.isValid())
        m_ui->vocabularyTable->selectionModel()->setCurrentIndex(index, QItemSelectionModel::NoUpdate);
}

void TAVLexiconController::deleteSelectedWords()
{
    const TAVWordList words = getSelectedWordsArray();
    if (words.isEmpty() || !m_vocabulary)
        return;
    if (m_wordEditor->isInAddingMode()) {
        m_wordEditor->closeWordPanel(nullptr);
        return;
    }
    if (m_wordEditor->selectedWords() != words)
        m_wordEditor->showEditWindowForWords(words, m_vocabulary, this);
    m_wordEditor->deleteWord();
}

void TAVLexiconController::rememberDeletion(const TAVWordList &words)
{
    TAVWordList kept = words;
    kept.removeIf(
        [](const TAVWordRef &word) { return word->yourWord().isEmpty() && word->foreignWord().isEmpty(); });
    if (kept.isEmpty())
        return;
    m_deletions.append(kept);
    if (m_deletions.size() > longestDeletionHistory)
        m_deletions.removeFirst();
}

void TAVLexiconController::undoDeletion()
{
    if (m_deletions.isEmpty() || !m_vocabulary)
        return;
    m_vocabulary->restoreWords(m_deletions.takeLast());
    m_vocabulary->setNeedsSync(true);
    markFileAsNeedsSync();
    if (!TAVStorageManager::saveVocabulary(m_vocabulary))
        platform::diagnosticLog(QStringLiteral("VocController > undoDeletion > could not save voc"));
    updateEntireView();
    syncWithDropbox();
}

bool TAVLexiconController::acceptDrop(int row, const QString &text)
{
    TAVWordRef word = m_model->wordAtRow(row);
    if (word && isListOutlived())
        word = successorsOf({word}).value(0);
    if (!word || !m_vocabulary)
        return false;
    word->addTag(text);
    word->setModificationID(platform::secondsSince1970(platform::clock()));
    m_vocabulary->setNeedsSync(true);
    markFileAsNeedsSync();
    if (!TAVStorageManager::saveVocabulary(m_vocabulary))
        platform::diagnosticLog(QStringLiteral("VocController > acceptDrop > could not save voc"));
    syncWithDropbox();
    return true;
}
