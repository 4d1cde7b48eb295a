#pragma once

#include "model/TAVLexicon.h"

#include <QObject>
#include <QPointer>

#include <functional>

class QMouseEvent;
class QWidget;
class TAVWordPopoverController;
class VocabularyDocument;

/**
 * The new word in the making: it stands in the vocabulary without texts while the editor is open for it, and
 * goes again if the user turns to another word, or to anything else of the window.
 */
class NewWordEntry : public QObject
{
    Q_OBJECT

public:
    /** Both must outlive this object. The page is the one whose window the new word is typed over. */
    NewWordEntry(VocabularyDocument &document, TAVWordPopoverController &editor, QWidget *page);
    ~NewWordEntry() override;

    /** Whether a press at that place of that widget chooses a word, and by this tells what is to happen. */
    void setChoosesWord(std::function<bool(QWidget *widget, const QPoint &position)> choosesWord);

    TAVWordRef begin(TAVLexicon &vocabulary);
    /**
     * Opens the editor in its adding mode by selecting the word's row, which is not yet the user's choice. A
     * word that has no row is taken back.
     */
    void open(const TAVWordRef &word, const TAVLexiconRef &vocabulary, int row,
              const std::function<void(int row)> &selectRow);
    /** Closes the editor, if it is adding. */
    void cancel();
    /** The empty word, if it is in the vocabulary though the editor adds another one; else absent. */
    TAVWordRef leftBehind(const TAVWordList &cancelled, const TAVLexiconRef &vocabulary) const;
    /**
     * The words that the user has chosen meanwhile. If these are others, the adding ends here; the new word
     * leaves the vocabulary and is given back, unless it has been added and waits for its save alone. Else
     * absent. The editor would take a chosen word for the new one, and remove it when it is cancelled.
     */
    TAVWordRef giveUpFor(const TAVWordList &chosen, const TAVLexiconRef &vocabulary);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    bool isOutside(QWidget *widget, const QMouseEvent &press) const;

    VocabularyDocument &m_document;
    TAVWordPopoverController &m_editor;
    QPointer<QWidget> m_page;
    std::function<bool(QWidget *, const QPoint &)> m_choosesWord;
    /** The one for which the editor was last opened. */
    std::weak_ptr<TAVWord> m_word;
    bool m_isOpening = false;
};
