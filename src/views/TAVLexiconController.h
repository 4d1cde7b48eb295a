#pragma once

#include "model/TAVLexicon.h"
#include "platform/InputSources.h"
#include "views/WordTableModel.h"
#include "views/editor/TAVWordPopoverDelegate.h"
#include "widgets/M3TokenCloud.h"

#include <QObject>
#include <QPointer>
#include <QString>

#include <array>
#include <memory>

class DropBoxController;
class MemoryLevelButton;
class TAVWordPopoverController;

namespace Ui {
class VocabularyView;
}

/**
 * The word list of the program, and the only holder of the current vocabulary: every other controller reads
 * it here or is handed it by the main window. Main thread only; works without a vocabulary.
 */
class TAVLexiconController : public QObject,
                             public VocabularySource,
                             public WordTableSource,
                             public TAVWordPopoverDelegate,
                             public M3TokenCloudDelegate
{
    Q_OBJECT

public:
    /** selectedLevel() when all words are shown. */
    static constexpr quint64 allLevels = 6;

    TAVLexiconController();
    ~TAVLexiconController() override;

    /** The page, which belongs to whoever takes it into a window; made with this controller. */
    QWidget *view() const { return m_view; }
    TAVWordPopoverController *wordEditor() const { return m_wordEditor.get(); }

    TAVLexiconRef vocabulary() const override { return m_vocabulary; }
    /** Unless the word editor is active, this saves the vocabulary and asks for a sync. */
    void setVocabulary(const TAVLexiconRef &vocabulary);
    void reloadVocabularyFromDisk();

    // What the main window asks for
    void showVocabulary();
    void updateEntireView();
    void cloudControllerDidSync();
    /** Closes the word editor only if it is adding a word. */
    void closeAddWordPopover();
    void closeHelp();
    /** In ascending row order. */
    TAVWordList getSelectedWordsArray();
    void deselectWords();
    /** Adds an empty word and opens the editor for it. */
    void showAddWordPanel();

    // Actions
    /** The sender is a level button, or null for the one that is on. */
    void selectMemoryView(MemoryLevelButton *sender);
    void search();
    void focusOnSearchField();
    void setDisplaySynonyms();
    void deleteDuplicates();
    void toggleStatusView();
    void selectAllTags();
    void deselectAllTags();
    void deleteSelectedWords();
    /** Brings back what was deleted last in this language, with all fields. */
    void undoDeletion();
    bool canUndoDeletion() const { return !m_deletions.isEmpty(); }

    const TAVWordList &currentWordsToShow() override;
    qsizetype calculateWordIndexForRow(qsizetype row) override;
    bool acceptDrop(int row, const QString &text) override;
    void didClickTableColumn(int column);

    quint64 selectedLevel() const { return m_selectedLevel; }
    bool isSynonymsActive() const { return m_isSynonymsActive; }
    bool sortDescending() const { return m_sortDescending; }
    TAVWordRef selectedWord() const { return m_selectedWord; }

    /** Writes the widths and the order of the columns into the settings. */
    void rememberTableLayout();

    // TAVWordPopoverDelegate
    void wordPopoverDidAddWords(const TAVWordList &words, bool shallAddMore) override;
    void wordPopoverDidEditWords(const TAVWordList &words) override;
    void wordPopoverDidDeleteWords(const TAVWordList &words) override;
    void wordPopoverDidCancelAddingWords(const TAVWordList &words) override;
    void wordPopoverDidCancelEditWords(const TAVWordList &words) override;
    void wordPopoverDidMoveSelection(int direction) override;

    // M3TokenCloudDelegate
    void tokenCloudDidClickToken(M3TokenCloud *cloud, const QString &token, bool enabled) override;
    void tokenCloudDidChangePreferredHeight(M3TokenCloud *cloud, double height) override;

signals:
    /** The title of the menu item that shows or leaves the synonyms. */
    void synonymsTitleChanged(const QString &title);
    /** The user wants a quiz of the selected words. */
    void quizSelectedRequested();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    /** What a level button stands for. */
    struct LevelRow
    {
        quint64 level;
        const char *infoKey;
        const char *headingKey;
    };
    static const std::array<LevelRow, TAVLexicon::numberOfLevels> levelRows;
    static const LevelRow allWordsRow;

    /** While one stands, updateEntireView() only notes that it is wanted: one update for one action. */
    class UpdateHold
    {
    public:
        explicit UpdateHold(TAVLexiconController &controller);
        ~UpdateHold();
        UpdateHold(const UpdateHold &) = delete;
        UpdateHold &operator=(const UpdateHold &) = delete;

    private:
        TAVLexiconController &m_controller;
    };

    void awakeFromNib();
    void setupLevelButtons();
    void setupTable();
    void connectActions();
    void localize();
    MemoryLevelButton *buttonOf(const LevelRow &row) const;
    void applyLevelRow(const LevelRow &row);
    void leaveSynonyms();
    void updateLevelCounts();
    void updateStatusText();
    QString wordCountStatus();
    void chooseOverlay();
    void showNoWordsHelp();
    void showNoWordsInLevelHelp();
    void showNoUnknownHelp();
    void showSearchHelp();
    void showHelpPage(int page);
    void placeHelpPages();
    void setWarningColor(bool isWarning);
    QString searchTerm() const;
    void emptySearchField();
    void tableViewSelectionDidChange();
    void showEditorForSelection(const QList<int> &rows);
    /** The table may still show words of a vocabulary that was replaced under the open editor. */
    bool isListOutlived() const;
    /** The words of the present vocabulary that stand for those of the one before. */
    TAVWordList successorsOf(const TAVWordList &words) const;
    bool adoptReplacedVocabulary();
    /** True if another row was chosen while a new word was being typed; that word is gone then. */
    bool giveUpNewWord();
    /** Selects the only one of the words, if it is shown. */
    void chooseAgain(const TAVWordList &words);
    TAVWordList calculateWordsToShow() const;
    void sortByOtherColumn(int column);
    void setSortIndicator();
    void hideWordEditor();
    void markFileAsNeedsSync();
    void syncWithDropbox();
    void rememberDeletion(const TAVWordList &words);
    void putCursorNear(int row);

    /** Deleted with the window that took it, or here if none did. */
    QPointer<QWidget> m_view;
    std::unique_ptr<Ui::VocabularyView> m_ui;
    std::unique_ptr<WordTableModel> m_model;
    std::unique_ptr<TAVWordPopoverController> m_wordEditor;
    TAVLexiconRef m_vocabulary;
    TAVWordList m_currentWordsToShow;
    /** The vocabulary that the list above was taken from. */
    std::weak_ptr<TAVLexicon> m_listedVocabulary;
    quint64 m_selectedLevel = 0;
    bool m_isSynonymsActive = false;
    bool m_needsToRecalculateDisplayedWords = false;
    bool m_sortDescending = false;
    int m_lastColumn = WordTableModel::YourWord;
    TAVWordRef m_selectedWord;
    /** The empty word for which the editor was last opened. */
    std::weak_ptr<TAVWord> m_newWord;
    MemoryLevelButton *m_selectedButton = nullptr;
    platform::InputSourceRef m_textInputSourceBackup;
    /** Null until the page is shown for the first time. */
    DropBoxController *m_dropboxController = nullptr;
    /** What was deleted in this language, the latest last; each entry is one action of the user. */
    QList<TAVWordList> m_deletions;
    int m_updateHolds = 0;
    bool m_isUpdateWanted = false;
    bool m_isEmptyingSearchField = false;
};
