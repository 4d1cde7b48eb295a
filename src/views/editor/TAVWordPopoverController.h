#pragma once

#include "document/UndoStep.h"
#include "model/TAVLexicon.h"
#include "platform/Clock.h"
#include "platform/InputSources.h"
#include "views/editor/TAVLanguageTextField.h"
#include "views/editor/TAVLanguageTokenField.h"
#include "views/editor/TAVWordPopoverDelegate.h"

#include <QObject>
#include <QPointer>
#include <QRect>

#include <functional>
#include <memory>

class ArrowPopup;
class KeptKeys;
class KeyReleases;
class QKeyEvent;
class QWidget;
class VocabularyDocument;
struct EditOutcome;

namespace Ui {
class TAVWordPopover;
}

/**
 * The panel in which words are typed and changed: one word, several at once in a reduced form, or a new one.
 * It writes into the words of the vocabulary that it is given, has the document save them, and reports to its
 * delegate. Each of its users makes one of its own.
 */
class TAVWordPopoverController : public QObject,
                                 public OHLanguageTextFieldDelegate,
                                 public OHLanguageTokenFieldDelegate
{
    Q_OBJECT

public:
    /** The panel belongs to the parent widget's window. The document must outlive this controller. */
    TAVWordPopoverController(QWidget *parentWidget, VocabularyDocument &document);
    ~TAVWordPopoverController() override;

    /** Fills the panel; showBeside() then brings it to the screen. The delegate is not owned. */
    void showEditWindowForWords(const TAVWordList &words, const TAVLexiconRef &vocabulary,
                                TAVWordPopoverDelegate *delegate);
    void showAddWindowForWords(const TAVWordList &words, const TAVLexiconRef &vocabulary,
                               TAVWordPopoverDelegate *delegate);
    /** Places the panel with its arrow at the rectangle, in coordinates of the widget. Grabs nothing. */
    void showBeside(QWidget *widget, const QRect &rectangle);
    /**
     * Takes the panel off the screen, without any of the paths of closeWordPanel(). What was typed and not
     * saved can be brought back, as after a cancel.
     */
    void hidePanel();
    bool isPanelVisible() const;

    /** What is typed from now on belongs to the panel that is going to come, until it has the keyboard. */
    void keepKeys();
    void dropKeptKeys();

    /** A new vocabulary replaced the old one while the panel may be up. */
    void updateVocabulary(const TAVLexiconRef &vocabulary);
    /** okButton or addButton save; any other sender, also none, is a cancel. */
    void closeWordPanel(QObject *sender);
    void deleteWord();

    /** Set when the panel is filled, cleared by a save or a deletion; a cancel leaves it as it is. */
    bool isActive() const { return m_isActive; }
    bool isInAddingMode() const { return m_isInAddingMode; }
    void setIsInAddingMode(bool flag) { m_isInAddingMode = flag; }
    /** The word of the adding mode was added, and only its save failed. */
    bool isAdditionUnsaved() const { return m_isInAddingMode && m_failedEdit; }
    const TAVWordList &selectedWords() const { return m_selectedWords; }

    /** What quizSelectedButton does; without it the button stays hidden. */
    void setQuizSelectedAction(std::function<void()> action);

    void languageTextFieldDidBecomeActive(TAVLanguageTextField *field) override;
    void languageTextFieldDidLoseFocus(TAVLanguageTextField *) override {}
    void languageTokenFieldDidBecomeActive(TAVLanguageTokenField *field) override;
    void languageTokenFieldDidLoseFocus(TAVLanguageTokenField *) override {}

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void localize();
    void connectControls();
    void setupPopoverGUI();
    void showOneWord(const TAVWord &word);
    void showManyWords();
    void focusSoon();
    WordEdits::Content content() const;
    WordEdits::VariousTexts variousTexts() const;
    /** What was typed and is about to go can be brought back. */
    void rememberUnsavedTexts();
    /** False if nothing was saved: the panel stays, whatever has changed in memory. */
    bool save();
    bool saveOneWord(const WordEdits::Content &typed);
    /** True if it is another word's pair, or none: the word in the making has gone then. */
    bool refuseAsDuplicate(const WordEdits::Content &typed);
    /** Keeps what a second try has to know. */
    bool endTry(const EditOutcome &outcome, const WordEdits::Content &typed);
    /** The edit whose save failed goes with its vocabulary; what was typed must not. */
    void withdrawFailedEdit();
    bool handleKey(const QKeyEvent &event);
    void end();
    void switchKeyboardTo(const platform::InputSourceRef &source);
    /** For a field that isn't bound to one language: switches only where both languages have their source. */
    void switchKeyboardToEither(bool foreign);
    void switchKeyboardBack();

    std::unique_ptr<Ui::TAVWordPopover> m_ui;
    QPointer<ArrowPopup> m_popup;
    VocabularyDocument &m_document;
    TAVWordPopoverDelegate *m_delegate = nullptr;
    TAVWordList m_selectedWords;
    TAVLexiconRef m_vocabulary;
    bool m_isInAddingMode = false;
    bool m_isActive = false;
    bool m_isSwitchTagsKeyboardToForeign = false;
    bool m_isSwitchCommentKeyboardToForeign = false;
    platform::InputSourceRef m_textInputSourceBackup;
    /** The keyboard is not as the user has left it. */
    bool m_hasSwitchedKeyboard = false;
    std::unique_ptr<KeptKeys> m_keptKeys;
    const KeyReleases *m_keyReleases;
    std::function<void()> m_quizSelected;
    /** What the panel was filled with, or has saved; tells whether there is anything to lose. */
    WordEdits::Content m_shownContent;
    /** An edit that stands in memory, but whose save failed. */
    struct FailedEdit
    {
        WordEdits::Content content;
        UndoStep step;
    };
    std::optional<FailedEdit> m_failedEdit;
    std::unique_ptr<platform::Timer> m_focusTimer;
};
