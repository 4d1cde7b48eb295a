#pragma once

#include "document/WordEdits.h"
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
class QKeyEvent;
class QWidget;
class VocabularyDocument;

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
    /** Takes the panel off the screen, without any of the paths of closeWordPanel(). */
    void hidePanel();
    bool isPanelVisible() const;

    /** A new vocabulary replaced the old one while the panel may be up. */
    void updateVocabulary(const TAVLexiconRef &vocabulary);
    /** okButton or addButton save; any other sender, also none, is a cancel. */
    void closeWordPanel(QObject *sender);
    void deleteWord();

    /** Set when the panel is filled, cleared by a save or a deletion; a cancel leaves it as it is. */
    bool isActive() const { return m_isActive; }
    bool isInAddingMode() const { return m_isInAddingMode; }
    void setIsInAddingMode(bool flag) { m_isInAddingMode = flag; }
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
    /** False if nothing was written, as the panel's texts make too many words. */
    bool writeOneWord();
    bool handleKey(const QKeyEvent &event);
    /** False if the save failed: the panel stays, with the changes in memory. */
    bool saveOrStay();
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
    std::function<void()> m_quizSelected;
    /** What the panel was filled with; tells whether the user has changed anything. */
    WordEdits::Content m_shownContent;
    std::unique_ptr<platform::Timer> m_focusTimer;
};
