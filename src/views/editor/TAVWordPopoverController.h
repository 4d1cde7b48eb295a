#pragma once

#include "model/TAVLexicon.h"
#include "platform/InputSources.h"
#include "views/editor/TAVWordPopoverDelegate.h"

#include <QObject>
#include <QPoint>
#include <QRect>

#include <functional>
#include <memory>

class ArrowPopup;
class QWidget;

namespace Ui {
class TAVWordPopover;
}

/**
 * The panel in which words are typed and changed: one word, several at once in a reduced form, or a new one.
 * It writes into the words of the vocabulary, saves, and reports to its delegate. Each of its users makes one
 * of its own.
 */
class TAVWordPopoverController : public QObject
{
    Q_OBJECT

public:
    /** The panel is owned by the parent widget's window. */
    explicit TAVWordPopoverController(QWidget *parentWidget);
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

    bool isActive() const { return m_isActive; }
    bool isInAddingMode() const { return m_isInAddingMode; }
    void setIsInAddingMode(bool flag) { m_isInAddingMode = flag; }
    const TAVWordList &selectedWords() const { return m_selectedWords; }

    /** What quizSelectedButton does. */
    void setQuizSelectedAction(std::function<void()> action);

private:
    std::unique_ptr<Ui::TAVWordPopover> m_ui;
    ArrowPopup *m_popup = nullptr;
    TAVWordPopoverDelegate *m_delegate = nullptr;
    TAVWordList m_selectedWords;
    TAVLexiconRef m_vocabulary;
    bool m_isInAddingMode = false;
    bool m_isActive = false;
    bool m_isSwitchTagsKeyboardToForeign = false;
    bool m_isSwitchCommentKeyboardToForeign = false;
    platform::InputSourceRef m_textInputSourceBackup;
};
