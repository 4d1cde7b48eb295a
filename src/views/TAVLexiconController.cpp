#include "views/TAVLexiconController.h"

#include "document/VocabularyDocument.h"
#include "platform/Services.h"
#include "platform/Texts.h"
#include "storage/Fullness.h"
#include "storage/TAVStorageManager.h"
#include "sync/DropBoxController.h"
#include "sync/TAVSyncLog.h"
#include "views/MemoryLevelButton.h"
#include "views/Notices.h"
#include "views/UndoLine.h"
#include "views/VocabularyView.h"
#include "views/WordTable.h"
#include "views/editor/TAVWordPopoverController.h"

#include <algorithm>

using namespace std::chrono_literals;
using platform::localized;

TAVLexiconController::TAVLexiconController(VocabularyDocument &document)
    : m_document(document)
    , m_view(new VocabularyView)
    , m_table(std::make_unique<WordTable>(
          m_view->table(), document,
          WordTable::Owner{[this] { return query(); },
                           [this](int row, const QString &text) { return acceptDrop(row, text); }}))
    , m_wordEditor(std::make_unique<TAVWordPopoverController>(m_view, document))
    , m_newWord(std::make_unique<NewWordEntry>(document, *m_wordEditor, m_view))
    , m_updates([this] { showEverything(); })
    , m_textInputSourceBackup(platform::services().inputSources->currentKeyboardLayoutInputSource())
{
    m_wordEditor->setQuizSelectedAction([this] { emit quizSelectedRequested(); });
    connectView();
    connectHistory();
    const TAVLexiconRef present = m_document.vocabulary();
    m_view->statusLine().showUnknownWords(present ? present->level0Words().size() : 0,
                                          present ? present->countAllWords() : 0);
}

TAVLexiconController::~TAVLexiconController()
{
    // The editor's panel belongs to the view's window, and the table reads from this object.
    m_wordEditor.reset();
    if (!m_view)
        return;
    m_view->tagCloud()->setDelegate(nullptr);
    delete m_view;
}

void TAVLexiconController::connectView()
{
    connect(&m_view->levelBar(), &LevelBar::clicked, this, &TAVLexiconController::selectMemoryView);
    connect(m_view, &VocabularyView::searchTermChanged, this, &TAVLexiconController::search);
    connect(m_view, &VocabularyView::searchEnded, this, [this] {
        m_table->setFocus();
        m_table->putCursorNear(0);
    });
    connect(m_view, &VocabularyView::addWordChosen, this, &TAVLexiconController::showAddWordPanel);
    connect(m_view, &VocabularyView::allWordsChosen, this, &TAVLexiconController::setDisplaySynonyms);
    connect(m_view, &VocabularyView::selectAllTagsChosen, this, &TAVLexiconController::selectAllTags);
    connect(m_view, &VocabularyView::deselectAllTagsChosen, this, &TAVLexiconController::deselectAllTags);
    connect(m_view, &VocabularyView::toggleStatusChosen, this, &TAVLexiconController::toggleStatusView);
    // A panel beside a row must not stand over another page.
    connect(m_view, &VocabularyView::left, this, [this] {
        m_wordEditor->hidePanel();
        m_wordEditor->dropKeptKeys();
    });
    m_newWord->setChoosesWord(
        [this](QWidget *widget, const QPoint &position) { return m_table->isRowAt(widget, position); });
    m_view->tagCloud()->setDelegate(this);
    connect(m_table.get(), &WordTable::selectionChanged, this,
            &TAVLexiconController::tableViewSelectionDidChange);
    connect(m_table.get(), &WordTable::openPressed, this, &TAVLexiconController::tableViewSelectionDidChange);
    connect(m_table.get(), &WordTable::deletePressed, this, &TAVLexiconController::deleteSelectedWords);
    connect(m_table.get(), &WordTable::escapePressed, this, [this] {
        if (m_wordEditor->isPanelVisible())
            m_wordEditor->closeWordPanel(nullptr);
    });
}

void TAVLexiconController::connectHistory()
{
    const UndoHistory &history = m_document.history();
    connect(&m_view->undoLine(), &UndoLine::undoChosen, this, &TAVLexiconController::undo);
    connect(&history, &UndoHistory::remembered, this, [this] {
        m_view->undoLine().offer(m_document.history().last());
        emit undoChanged();
    });
    connect(&history, &UndoHistory::emptied, this, [this] {
        m_view->undoLine().hide();
        emit undoChanged();
    });
}

QWidget *TAVLexiconController::view() const
{
    return m_view;
}

TAVLexiconRef TAVLexiconController::vocabulary() const
{
    return m_document.vocabulary();
}

void TAVLexiconController::setVocabulary(const TAVLexiconRef &vocabulary)
{
    m_document.setVocabulary(vocabulary);
    if (m_wordEditor->isActive())
        m_wordEditor->updateVocabulary(vocabulary);
    else
        selectMemoryView(nullptr);
}

void TAVLexiconController::reloadVocabularyFromDisk()
{
    if (!vocabulary())
        return;
    const TAVLexiconRef loaded =
        TAVStorageManager::vocabularyFromFile(TAVStorageManager::savePathForVocabulary(*vocabulary()));
    // A file that has become unreadable must not take the words off the screen.
    if (loaded)
        setVocabulary(loaded);
}

void TAVLexiconController::showVocabulary()
{
    m_dropboxController = DropBoxController::sharedManager();
    m_document.setListShown();
    updateEntireView();
    m_view->statusLine().setSyncEnabled(m_dropboxController->isEnabled());
}

// What is shown

void TAVLexiconController::showEverything()
{
    const TAVLexiconRef shown = vocabulary();
    if (!shown) {
        if (!m_textAboutNotLoaded.isEmpty())
            m_view->overlays().showNotLoaded(m_textAboutNotLoaded);
        return;
    }
    m_table->setLanguages(*shown);
    m_view->tagCloud()->setTokens(shown->allTags());
    m_table->reload();
    updateStatusText();
    m_view->levelBar().showCounts(*shown);
    tellFullness();
    chooseOverlay();
}

void TAVLexiconController::tell(const QString &name, const QString &text)
{
    m_view->notices().tell(name, text);
}

void TAVLexiconController::tellFullness()
{
    const storage::Fullness fullness = storage::fullnessOf(*vocabulary());
    QString text;
    if (fullness.isWorthTelling())
        text = (fullness.isBeyond() ? localized("Vocabulary", "fileTooFull")
                                    : localized("Vocabulary", "fileNearlyFull"))
                   .arg(QLocale().toString(fullness.mebibytes(), 'f', 1),
                        QLocale().toString(storage::Fullness::maxMebibytes()));
    tell(QStringLiteral("fullnessLabel"), text);
}

WordListQuery TAVLexiconController::query() const
{
    return {m_selectedLevel, m_isSynonymsActive, m_view->searchTerm(),
            m_view->tagCloud()->selectedTokenNames()};
}

void TAVLexiconController::chooseOverlay()
{
    HelpOverlays &overlays = m_view->overlays();
    if (vocabulary()->allWords().isEmpty())
        overlays.showNoWordsHelp();
    else if (currentWordsToShow().isEmpty() && m_selectedLevel != 0)
        overlays.showNoWordsInLevelHelp();
    else if (currentWordsToShow().isEmpty())
        overlays.showNoUnknownHelp();
    else if (!m_view->searchTerm().isEmpty())
        overlays.showSearchHelp();
    else
        overlays.closeHelp();
}

void TAVLexiconController::closeHelp()
{
    m_view->overlays().closeHelp();
}

void TAVLexiconController::showNotLoaded(const QString &text)
{
    m_textAboutNotLoaded = text;
    updateEntireView();
}

void TAVLexiconController::updateStatusText()
{
    if (!vocabulary())
        return;
    m_view->statusLine().showWords(*vocabulary(), query(), currentWordsToShow().size(),
                                   m_table->selectedRows().size());
    m_view->statusLine().showSync(TAVSyncLog::sharedManager()->syncStatusForVocabulary(*vocabulary()));
}

void TAVLexiconController::toggleStatusView()
{
    updateStatusText();
    if (m_dropboxController && m_dropboxController->isEnabled())
        m_view->statusLine().turnOver();
}

void TAVLexiconController::cloudControllerDidSync()
{
    updateStatusText();
    m_view->statusLine().turnToSync();
}

void TAVLexiconController::selectMemoryView(MemoryLevelButton *sender)
{
    const UpdateGate::Hold oneUpdate(m_updates);
    m_wordEditor->closeWordPanel(nullptr);
    if (!vocabulary() || !m_document.commit(Change::LevelSwitched, vocabulary()).isSaved)
        return;
    m_document.proceed(Change::LevelSwitched, 1, vocabulary());
    if (sender)
        m_view->levelBar().turnOn(sender);
    if (m_isSynonymsActive)
        leaveSynonyms();
    showLevel();
    updateEntireView();
    m_view->statusLine().turnToWords();
}

void TAVLexiconController::showLevel()
{
    constexpr qsizetype tooManyUnknownWords = 31;
    const LevelBar::Row &row = m_view->levelBar().rowThatIsOn();
    m_selectedLevel = row.level;
    m_view->setHeading(localized("Vocabulary", row.headingKey));
    const bool isWarning = row.level == 0 && vocabulary()->level0Words().size() >= tooManyUnknownWords;
    m_view->setInfo(isWarning ? localized("Vocabulary", "unknownWarningText")
                              : localized("Vocabulary", row.infoKey),
                    isWarning);
    if (!m_view->searchTerm().isEmpty())
        m_view->setInfo(localized("Vocabulary", "displaySearchResultsInfo").arg(m_view->searchTerm()));
    m_view->levelBar().select(row);
}

void TAVLexiconController::search()
{
    if (!m_view->searchTerm().isEmpty()) {
        m_view->setInfo(localized("Vocabulary", "displaySearchResultsInfo").arg(m_view->searchTerm()));
        m_view->overlays().showSearchHelp();
    }
    updateEntireView();
}

void TAVLexiconController::focusOnSearchField()
{
    m_view->focusOnSearchField();
}

void TAVLexiconController::setDisplaySynonyms()
{
    if (!vocabulary())
        return;
    const UpdateGate::Hold oneUpdate(m_updates);
    const bool wasActive = m_isSynonymsActive;
    selectMemoryView(m_view->levelBar().buttonOf(allLevels));
    if (wasActive) {
        leaveSynonyms();
    } else {
        m_isSynonymsActive = true;
        m_view->setSynonymsShown(true);
        m_selectedLevel = allLevels;
        emit synonymsTitleChanged(localized("Vocabulary", "showAllWords"));
        m_view->setHeading(localized("Vocabulary", "displaySynonymsHeader"));
        m_view->setInfo(localized("Vocabulary", "displaySynonymsInfo"));
    }
    updateEntireView();
}

void TAVLexiconController::leaveSynonyms()
{
    m_view->setSynonymsShown(false);
    emit synonymsTitleChanged(localized("Vocabulary", "showSynonyms"));
    m_isSynonymsActive = false;
}

void TAVLexiconController::selectAllTags()
{
    if (!vocabulary())
        return;
    m_view->tagCloud()->setSelectedTokenNames(vocabulary()->allTags());
    updateEntireView();
}

void TAVLexiconController::deselectAllTags()
{
    m_view->tagCloud()->setSelectedTokenNames({});
    updateEntireView();
}

void TAVLexiconController::tokenCloudDidClickToken(M3TokenCloud *, const QString &, bool)
{
    updateEntireView();
}

void TAVLexiconController::tokenCloudDidChangePreferredHeight(M3TokenCloud *, double height)
{
    m_view->growTagCloud(height);
}

const TAVWordList &TAVLexiconController::currentWordsToShow()
{
    return m_table->currentWordsToShow();
}

qsizetype TAVLexiconController::calculateWordIndexForRow(qsizetype row)
{
    return m_table->calculateWordIndexForRow(row);
}

void TAVLexiconController::didClickTableColumn(int column)
{
    m_table->didClickTableColumn(column);
}

bool TAVLexiconController::sortDescending() const
{
    return m_table->isDescending();
}

void TAVLexiconController::rememberTableLayout()
{
    m_table->rememberLayout();
}

// What is selected

TAVWordList TAVLexiconController::getSelectedWordsArray()
{
    return m_table->selectedWords();
}

void TAVLexiconController::deselectWords()
{
    m_wordEditor->closeWordPanel(nullptr);
    m_table->clearSelection();
}

void TAVLexiconController::tableViewSelectionDidChange()
{
    const QList<int> rows = m_table->selectedRows();
    if (rows.isEmpty()) {
        m_selectedWord.reset();
        updateStatusText();
        return;
    }
    if (adoptReplacedVocabulary() || giveUpNewWord())
        return;
    m_selectedWord = m_table->presentWordAtRow(rows.first());
    updateStatusText();
    m_wordEditor->showEditWindowForWords(getSelectedWordsArray(), vocabulary(), this);
    m_wordEditor->showBeside(m_table->viewport(), m_table->cellOfSelection());
}

bool TAVLexiconController::adoptReplacedVocabulary()
{
    if (!m_table->isOutlived())
        return false;
    const TAVWordList chosen = getSelectedWordsArray();
    updateEntireView();
    m_table->selectOnly(chosen);
    return true;
}

bool TAVLexiconController::giveUpNewWord()
{
    TAVWordList chosen = getSelectedWordsArray();
    const TAVWordRef givenUp = m_newWord->giveUpFor(chosen, vocabulary());
    if (!givenUp)
        return false;
    updateEntireView();
    chosen.removeAll(givenUp);
    m_table->selectOnly(chosen);
    return true;
}

// What is changed

void TAVLexiconController::showAddWordPanel()
{
    if (!vocabulary())
        return;
    TAVWordRef word;
    {
        const UpdateGate::Hold oneUpdate(m_updates);
        deselectAllTags();
        m_view->emptySearchField();
        selectMemoryView(m_view->levelBar().buttonOf(0));
        word = m_newWord->begin(*vocabulary());
        updateEntireView();
    }
    // The place in the list is the row, also while the table shows the list from its end.
    const int row = int(currentWordsToShow().indexOf(word));
    m_newWord->open(word, vocabulary(), row, [this](int place) { m_table->selectOnlyRow(place); });
    if (m_wordEditor->isInAddingMode())
        m_wordEditor->keepKeys();
    else
        updateEntireView();
}

void TAVLexiconController::wordPopoverDidAddWords(const TAVWordList &, bool shallAddMore)
{
    updateEntireView();
    m_wordEditor->hidePanel();
    m_document.proceed(Change::WordsAdded, 1, vocabulary());
    if (!shallAddMore) {
        m_document.proceed(Change::WordsAdded, 2, vocabulary());
        return;
    }
    m_wordEditor->keepKeys();
    platform::clock().callAfter(500ms, this, [this] {
        // On another page, nobody would type into the empty word, and it would be saved.
        if (m_view->isVisible())
            showAddWordPanel();
        else
            m_document.proceed(Change::WordsAdded, 2, vocabulary());
    });
}

void TAVLexiconController::wordPopoverDidEditWords(const TAVWordList &)
{
    updateEntireView();
    m_wordEditor->hidePanel();
    m_document.proceed(Change::WordsEdited, 1, vocabulary());
}

void TAVLexiconController::wordPopoverDidDeleteWords(const TAVWordList &)
{
    const QList<int> rows = m_table->selectedRows();
    m_wordEditor->hidePanel();
    m_document.proceed(Change::WordsDeleted, 1, vocabulary());
    updateEntireView();
    m_document.proceed(Change::WordsDeleted, 2, vocabulary());
    if (!rows.isEmpty())
        m_table->putCursorNear(rows.first());
}

void TAVLexiconController::wordPopoverDidCancelAddingWords(const TAVWordList &words)
{
    m_document.cancelAddition(vocabulary(), words, m_newWord->leftBehind(words, vocabulary()));
    updateEntireView();
    m_wordEditor->hidePanel();
    m_document.proceed(Change::AdditionCancelled, 1, vocabulary());
}

void TAVLexiconController::wordPopoverDidCancelEditWords(const TAVWordList &)
{
    m_wordEditor->hidePanel();
}

void TAVLexiconController::wordPopoverDidMoveSelection(int direction)
{
    const QList<int> rows = m_table->selectedRows();
    if (!rows.isEmpty())
        m_table->selectOnlyRow(direction < 0 ? rows.first() - 1 : rows.last() + 1);
}

void TAVLexiconController::deleteSelectedWords()
{
    const TAVWordList words = getSelectedWordsArray();
    if (words.isEmpty() || !vocabulary())
        return;
    if (m_wordEditor->isInAddingMode()) {
        m_newWord->cancel();
        return;
    }
    if (m_wordEditor->selectedWords() != words)
        m_wordEditor->showEditWindowForWords(words, vocabulary(), this);
    m_wordEditor->deleteWord();
}

bool TAVLexiconController::canUndo() const
{
    return !m_document.history().isEmpty();
}

void TAVLexiconController::undo()
{
    if (!canUndo() || !vocabulary())
        return;
    m_view->undoLine().hide();
    // The save would write the empty word of an open addition to the file.
    m_newWord->cancel();
    const bool isDone = m_document.undo().has_value();
    emit undoChanged();
    // What an open editor shows may be what has changed.
    deselectWords();
    if (!isDone) {
        m_view->undoLine().tell(localized("Vocabulary", "cannotUndoLine"));
        return;
    }
    updateEntireView();
    m_document.proceed(Change::Undone, 1, vocabulary());
}

void TAVLexiconController::focusOnList()
{
    m_table->setFocus();
}

void TAVLexiconController::deleteDuplicates()
{
    if (!vocabulary())
        return;
    const int answer = platform::services().alerts->show(
        {localized("Vocabulary", "reallyDeleteDuplicates"),
         localized("Vocabulary", "reallyDeleteDuplicatesMsg"),
         {localized("Vocabulary", "cancel"), localized("Vocabulary", "deleteDuplicates")}});
    if (answer != 1)
        return;
    m_newWord->cancel();
    const ChangeOutcome outcome = m_document.removeDuplicates(vocabulary());
    if (!outcome.isSaved) {
        closeEditorOfGoneWords();
        return;
    }
    platform::services().alerts->show(
        {localized("Vocabulary", "duplicatesDeleted", nullptr, int(outcome.removedWords.size())),
         QString(),
         {localized("Vocabulary", "OK")}});
    if (m_isSynonymsActive)
        setDisplaySynonyms();
    updateEntireView();
    m_document.proceed(Change::DuplicatesRemoved, 2, vocabulary());
    closeEditorOfGoneWords();
}

void TAVLexiconController::closeEditorOfGoneWords()
{
    const TAVWordSet present(vocabulary()->allWords());
    const TAVWordList &edited = m_wordEditor->selectedWords();
    const bool isAnyGone = std::any_of(
        edited.begin(), edited.end(), [&present](const TAVWordRef &word) { return !present.contains(word); });
    if (isAnyGone && m_wordEditor->isPanelVisible())
        m_wordEditor->closeWordPanel(nullptr);
}

bool TAVLexiconController::acceptDrop(int row, const QString &text)
{
    const TAVWordRef word = m_table->presentWordAtRow(row);
    if (!word || !vocabulary())
        return false;
    // The save would write the empty word of an open addition to the file.
    m_newWord->cancel();
    if (!vocabulary()->allWords().contains(word))
        return false;
    m_document.dropTag(vocabulary(), word, text);
    tellFullness();
    return true;
}
