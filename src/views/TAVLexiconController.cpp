#include "views/TAVLexiconController.h"

#include "model/WordSorting.h"
#include "platform/DiagnosticLog.h"
#include "platform/Services.h"
#include "platform/Texts.h"
#include "storage/TAVStorageManager.h"
#include "sync/DropBoxController.h"
#include "ui_VocabularyView.h"
#include "views/editor/TAVWordPopoverController.h"

#include <QHeaderView>
#include <QScrollBar>
#include <QSet>

#include <cmath>

using platform::localized;

namespace {

WordOrder orderOfColumn(int column)
{
    switch (column) {
    case WordTableModel::YourWord:
        return WordOrder::YourLang;
    case WordTableModel::ForeignWord:
        return WordOrder::ForeignLang;
    case WordTableModel::Comment:
        return WordOrder::Comment;
    case WordTableModel::Tags:
        return WordOrder::Tags;
    default:
        return WordOrder::LastAsked;
    }
}

} // namespace

TAVLexiconController::UpdateHold::UpdateHold(TAVLexiconController &controller)
    : m_controller(controller)
{
    ++m_controller.m_updateHolds;
}

TAVLexiconController::UpdateHold::~UpdateHold()
{
    if (--m_controller.m_updateHolds > 0 || !m_controller.m_isUpdateWanted)
        return;
    m_controller.m_isUpdateWanted = false;
    m_controller.updateEntireView();
}

void TAVLexiconController::setVocabulary(const TAVLexiconRef &vocabulary)
{
    const auto nameOf = [](const TAVLexiconRef &lexicon) {
        return lexicon ? TAVStorageManager::displayNameForVocabulary(*lexicon) : QString();
    };
    if (nameOf(vocabulary) != nameOf(m_vocabulary))
        m_deletions.clear();
    m_vocabulary = vocabulary;
    if (m_wordEditor->isActive())
        m_wordEditor->updateVocabulary(vocabulary);
    else
        selectMemoryView(nullptr);
}

void TAVLexiconController::reloadVocabularyFromDisk()
{
    if (!m_vocabulary)
        return;
    const TAVLexiconRef loaded =
        TAVStorageManager::vocabularyFromFile(TAVStorageManager::savePathForVocabulary(*m_vocabulary));
    // A file that has become unreadable must not take the words off the screen.
    if (loaded)
        setVocabulary(loaded);
}

void TAVLexiconController::showVocabulary()
{
    m_dropboxController = DropBoxController::sharedManager();
    updateEntireView();
    const bool isEnabled = m_dropboxController->isEnabled();
    m_ui->toggleStatusButton->setVisible(isEnabled);
    m_ui->statusTabView->setCurrentIndex(isEnabled ? m_ui->statusTabView->count() - 1 : 0);
}

void TAVLexiconController::updateEntireView()
{
    if (m_updateHolds > 0) {
        m_isUpdateWanted = true;
        return;
    }
    if (!m_vocabulary)
        return;
    m_model->setColumnTitle(WordTableModel::YourWord, m_vocabulary->yourLanguageName());
    m_model->setColumnTitle(WordTableModel::ForeignWord, m_vocabulary->foreignLanguageName());
    m_ui->tagCloud->setTokens(m_vocabulary->allTags());
    m_ui->vocabularyTable->clearSelection();
    m_model->reload([this] { m_needsToRecalculateDisplayedWords = true; });
    updateStatusText();
    updateLevelCounts();
    chooseOverlay();
}

const TAVWordList &TAVLexiconController::currentWordsToShow()
{
    if (m_needsToRecalculateDisplayedWords) {
        m_needsToRecalculateDisplayedWords = false;
        m_listedVocabulary = m_vocabulary;
        m_currentWordsToShow = calculateWordsToShow();
    }
    return m_currentWordsToShow;
}

TAVWordList TAVLexiconController::calculateWordsToShow() const
{
    TAVWordList words;
    if (m_vocabulary) {
        if (m_isSynonymsActive)
            words = m_vocabulary->synonyms().values();
        else if (m_selectedLevel < TAVLexicon::numberOfLevels)
            words = m_vocabulary->wordsOfLevel(m_selectedLevel);
        else
            words = m_vocabulary->allWords();
    }
    if (!searchTerm().isEmpty())
        words = TAVLexicon::filterWords(words, searchTerm());
    words = TAVLexicon::filteredWords(words, m_ui->tagCloud->selectedTokenNames(), false);
    sortWords(words, orderOfColumn(m_lastColumn));
    return words;
}

qsizetype TAVLexiconController::calculateWordIndexForRow(qsizetype row)
{
    return m_sortDescending ? currentWordsToShow().size() - 1 - row : row;
}

void TAVLexiconController::didClickTableColumn(int column)
{
    if (column == m_lastColumn) {
        m_model->reorder([this] { m_sortDescending = !m_sortDescending; });
    } else {
        sortByOtherColumn(column);
    }
    setSortIndicator();
    const QList<int> rows = m_ui->vocabularyTable->selectedRowList();
    if (!rows.isEmpty())
        m_ui->vocabularyTable->scrollTo(m_model->index(rows.first(), WordTableModel::YourWord));
}

void TAVLexiconController::sortByOtherColumn(int column)
{
    m_lastColumn = column;
    const TAVWordList sorted = calculateWordsToShow();
    const auto change = [this, &sorted] {
        m_sortDescending = false;
        m_currentWordsToShow = sorted;
        m_listedVocabulary = m_vocabulary;
    };
    // A quiz may have moved words to other levels meanwhile; then these are not the same rows in another
    // order.
    if (sorted.size() == m_currentWordsToShow.size() && !m_needsToRecalculateDisplayedWords)
        m_model->reorder(change);
    else
        m_model->reload(change);
    m_needsToRecalculateDisplayedWords = false;
    m_model->setHighlightedColumn(column);
}

void TAVLexiconController::setSortIndicator()
{
    m_ui->vocabularyTable->horizontalHeader()->setSortIndicator(
        m_lastColumn, m_sortDescending ? Qt::DescendingOrder : Qt::AscendingOrder);
}

void TAVLexiconController::selectMemoryView(MemoryLevelButton *sender)
{
    const UpdateHold oneUpdate(*this);
    m_wordEditor->closeWordPanel(nullptr);
    if (!m_vocabulary)
        return;
    if (!TAVStorageManager::saveVocabulary(m_vocabulary)) {
        platform::diagnosticLog(QStringLiteral("VocController > doSync > could not save voc"));
        return;
    }
    syncWithDropbox();
    if (sender) {
        if (m_selectedButton)
            m_selectedButton->setChecked(false);
        sender->setChecked(true);
    }
    if (m_isSynonymsActive)
        leaveSynonyms();
    const LevelRow *chosen = &allWordsRow;
    for (const LevelRow &row : levelRows) {
        if (buttonOf(row)->isChecked()) {
            chosen = &row;
            break;
        }
    }
    applyLevelRow(*chosen);
    updateEntireView();
    m_ui->statusTabView->setCurrentIndex(0);
}

void TAVLexiconController::applyLevelRow(const LevelRow &row)
{
    constexpr qsizetype tooManyUnknownWords = 31;
    m_selectedLevel = row.level;
    m_ui->headingTextField->setText(localized("Vocabulary", row.headingKey));
    const bool isWarning = row.level == 0 && m_vocabulary->level0Words().size() >= tooManyUnknownWords;
    setWarningColor(isWarning);
    m_ui->infoTextField->setText(isWarning ? localized("Vocabulary", "unknownWarningText")
                                           : localized("Vocabulary", row.infoKey));
    m_selectedButton = buttonOf(row);
    if (!searchTerm().isEmpty())
        m_ui->infoTextField->setText(localized("Vocabulary", "displaySearchResultsInfo").arg(searchTerm()));
    m_selectedButton->setChecked(true);
}

void TAVLexiconController::leaveSynonyms()
{
    m_ui->synonymsShowAllButton->hide();
    m_ui->synonymsShowAllButton->setEnabled(false);
    emit synonymsTitleChanged(localized("Vocabulary", "showSynonyms"));
    m_isSynonymsActive = false;
}

void TAVLexiconController::search()
{
    if (m_isEmptyingSearchField)
        return;
    if (!searchTerm().isEmpty()) {
        m_ui->infoTextField->setText(localized("Vocabulary", "displaySearchResultsInfo").arg(searchTerm()));
        showSearchHelp();
    }
    updateEntireView();
}

QString TAVLexiconController::searchTerm() const
{
    return m_ui->searchField->text();
}

void TAVLexiconController::emptySearchField()
{
    m_isEmptyingSearchField = true;
    m_ui->searchField->clear();
    m_isEmptyingSearchField = false;
}

void TAVLexiconController::focusOnSearchField()
{
    m_ui->searchField->setFocus(Qt::ShortcutFocusReason);
    m_ui->searchField->selectAll();
}

void TAVLexiconController::setDisplaySynonyms()
{
    if (!m_vocabulary)
        return;
    const UpdateHold oneUpdate(*this);
    const bool wasActive = m_isSynonymsActive;
    selectMemoryView(m_ui->allWordsButton);
    if (wasActive) {
        leaveSynonyms();
    } else {
        m_isSynonymsActive = true;
        m_ui->synonymsShowAllButton->setEnabled(true);
        m_ui->synonymsShowAllButton->show();
        m_selectedLevel = allLevels;
        emit synonymsTitleChanged(localized("Vocabulary", "showAllWords"));
        m_ui->headingTextField->setText(localized("Vocabulary", "displaySynonymsHeader"));
        m_ui->infoTextField->setText(localized("Vocabulary", "displaySynonymsInfo"));
    }
    updateEntireView();
}

void TAVLexiconController::deleteDuplicates()
{
    if (!m_vocabulary)
        return;
    const int answer = platform::services().alerts->show(
        {localized("Vocabulary", "reallyDeleteDuplicates"),
         localized("Vocabulary", "reallyDeleteDuplicatesMsg"),
         {localized("Vocabulary", "cancel"), localized("Vocabulary", "deleteDuplicates")}});
    if (answer != 1)
        return;
    const auto save = [this] {
        if (TAVStorageManager::saveVocabulary(m_vocabulary))
            return true;
        platform::diagnosticLog(QStringLiteral("VocController > deleteDuplicates > could not save voc"));
        return false;
    };
    if (!save())
        return;
    TAVWordList before = m_vocabulary->allWords();
    const qint64 removed = m_vocabulary->deleteDuplicates();
    const QSet<TAVWordRef> left(m_vocabulary->allWords().begin(), m_vocabulary->allWords().end());
    before.removeIf([&left](const TAVWordRef &word) { return left.contains(word); });
    rememberDeletion(before);
    if (!save())
        return;
    platform::services().alerts->show({localized("Vocabulary", "duplicatesDeleted", nullptr, int(removed)),
                                       QString(),
                                       {localized("Vocabulary", "OK")}});
    if (m_isSynonymsActive)
        setDisplaySynonyms();
    updateEntireView();
    syncWithDropbox();
}

void TAVLexiconController::selectAllTags()
{
    if (!m_vocabulary)
        return;
    m_ui->tagCloud->setSelectedTokenNames(m_vocabulary->allTags());
    updateEntireView();
}

void TAVLexiconController::deselectAllTags()
{
    m_ui->tagCloud->setSelectedTokenNames({});
    updateEntireView();
}

void TAVLexiconController::tokenCloudDidClickToken(M3TokenCloud *cloud, const QString &token, bool enabled)
{
    Q_UNUSED(cloud)
    Q_UNUSED(token)
    Q_UNUSED(enabled)
    updateEntireView();
}

void TAVLexiconController::tokenCloudDidChangePreferredHeight(M3TokenCloud *cloud, double height)
{
    const int needed = int(std::ceil(height));
    if (cloud->height() <= needed)
        cloud->setMinimumHeight(needed);
    m_ui->tagScrollArea->verticalScrollBar()->setValue(0);
}

void TAVLexiconController::markFileAsNeedsSync()
{
    if (m_dropboxController && m_vocabulary)
        m_dropboxController->markFileAsNeedsSync(*m_vocabulary);
}

void TAVLexiconController::syncWithDropbox()
{
    if (m_dropboxController)
        m_dropboxController->syncWithDropbox();
}
