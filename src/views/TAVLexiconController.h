#pragma once

#include "document/Page.h"
#include "document/WordListQuery.h"
#include "platform/InputSources.h"
#include "views/NewWordEntry.h"
#include "views/UpdateGate.h"
#include "views/editor/TAVWordPopoverDelegate.h"
#include "widgets/M3TokenCloud.h"

#include <QObject>
#include <QPointer>

#include <memory>

class DropBoxController;
class MemoryLevelButton;
class TAVWordPopoverController;
class VocabularyDocument;
class VocabularyView;
class WordTable;

/**
 * The word list of the program: decides what the table shows, answers the word editor, and tells the document
 * what the user did. The current vocabulary is kept for it by the document; nobody else sets it there. Main
 * thread only; works without a vocabulary.
 */
class TAVLexiconController : public QObject,
                             public Page,
                             public VocabularySource,
                             public TAVWordPopoverDelegate,
                             public M3TokenCloudDelegate
{
    Q_OBJECT

public:
    /** selectedLevel() when all words are shown. */
    static constexpr quint64 allLevels = WordListQuery::allLevels;

    /** The document must outlive this controller. */
    explicit TAVLexiconController(VocabularyDocument &document);
    ~TAVLexiconController() override;

    /** The page, which belongs to whoever takes it into a window; made with this controller. */
    QWidget *view() const;
    TAVWordPopoverController *wordEditor() const { return m_wordEditor.get(); }

    TAVLexiconRef vocabulary() const override;
    /** Unless the word editor is active, this saves the vocabulary and asks for a sync. */
    void setVocabulary(const TAVLexiconRef &vocabulary);
    void reloadVocabularyFromDisk();

    // What the main window asks for
    void showVocabulary();
    void updateEntireView() { m_updates.request(); }
    void cloudControllerDidSync();
    /** Closes the word editor only if it is adding a word. */
    void closeAddWordPopover() { m_newWord->cancel(); }
    void closeHelp();
    /** Until a vocabulary comes, this stands in the place of the list. */
    void showNotLoaded(const QString &text);
    /** In ascending row order. */
    TAVWordList getSelectedWordsArray();
    void deselectWords();
    /** Adds an empty word and opens the editor for it. */
    void showAddWordPanel();

    /** See Notices. */
    void tell(const QString &name, const QString &text);

    // Page
    QWidget *page() override { return view(); }
    void enter(const TAVLexiconRef &) override { showVocabulary(); }
    void vocabularyChanged(const TAVLexiconRef &vocabulary) override { setVocabulary(vocabulary); }
    void syncEnded() override { cloudControllerDidSync(); }

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
    /** Takes the user's last change of this language's words back. */
    void undo();
    bool canUndo() const;
    /** The keyboard goes to the list. */
    void focusOnList();

    /** In ascending order, whatever end the table shows first. */
    const TAVWordList &currentWordsToShow();
    /** The place in that list that a row shows. */
    qsizetype calculateWordIndexForRow(qsizetype row);
    bool acceptDrop(int row, const QString &text);
    void didClickTableColumn(int column);

    quint64 selectedLevel() const { return m_selectedLevel; }
    bool isSynonymsActive() const { return m_isSynonymsActive; }
    bool sortDescending() const;
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
    /** canUndo() has changed. */
    void undoChanged();

private:
    void connectView();
    void connectHistory();
    WordListQuery query() const;
    void showEverything();
    void showLevel();
    void leaveSynonyms();
    void updateStatusText();
    /** How full the language's file is, once that matters. */
    void tellFullness();
    void chooseOverlay();
    void tableViewSelectionDidChange();
    /** True if the table showed an outlived vocabulary, whose words must not be used. */
    bool adoptReplacedVocabulary();
    /** An edit of a word that has left the vocabulary would be lost. */
    void closeEditorOfGoneWords();
    /** True if another row was chosen while a new word was being typed; that word is gone then. */
    bool giveUpNewWord();

    VocabularyDocument &m_document;
    /** Deleted with the window that took it, or here if none did. */
    QPointer<VocabularyView> m_view;
    std::unique_ptr<WordTable> m_table;
    std::unique_ptr<TAVWordPopoverController> m_wordEditor;
    std::unique_ptr<NewWordEntry> m_newWord;
    UpdateGate m_updates;
    QString m_textAboutNotLoaded;
    quint64 m_selectedLevel = 0;
    bool m_isSynonymsActive = false;
    TAVWordRef m_selectedWord;
    platform::InputSourceRef m_textInputSourceBackup;
    /** Null until the page is shown for the first time; before that, nobody hears of a switch. */
    DropBoxController *m_dropboxController = nullptr;
};
