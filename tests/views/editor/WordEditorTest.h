#pragma once

#include "app/ground/AppGround.h"
#include "document/VocabularyDocument.h"
#include "storage/TAVStorageManager.h"
#include "support/GuiTest.h"
#include "support/Words.h"
#include "views/editor/TAVWordPopoverController.h"
#include "widgets/ArrowPopup.h"

#include <QCheckBox>
#include <QPushButton>

#include <functional>

/** The word editor beside an ordinary window, over a vocabulary of four words. */
class WordEditorTest : public ServicesTest, public TAVWordPopoverDelegate
{
protected:
    WordEditorTest()
    {
        AppGround::applicationSupportFolder();
        TAVStorageManager::resetForTest();
        vocabulary->setYourLanguageName(QStringLiteral("English"));
        vocabulary->setForeignLanguageName(QStringLiteral("Italian"));
        vocabulary->batchAddWords({dog, house, water, bread});
        window.resize(400, 300);
        window.show();
        window.activateWindow();
        editor = std::make_unique<TAVWordPopoverController>(&window, document);
        popup = window.findChild<ArrowPopup *>();
    }

    void edit(const TAVWordList &words)
    {
        editor->showEditWindowForWords(words, vocabulary, this);
        show();
    }
    /** A new empty word, as the vocabulary's page makes it. */
    TAVWordRef add()
    {
        const auto placeholder = std::make_shared<TAVWord>(QString(), QString(), QString());
        vocabulary->addWord(placeholder);
        editor->showAddWindowForWords({placeholder}, vocabulary, this);
        show();
        return placeholder;
    }
    void show()
    {
        window.activateWindow();
        editor->showBeside(&window, QRect(10, 10, 50, 20));
        services.clock.advance(std::chrono::milliseconds(500));
        processEvents();
    }
    template <typename Control> Control *control(const char *name) const
    {
        return findControl<Control>(popup, name);
    }
    QLineEdit *field(const char *name) const { return control<QLineEdit>(name); }
    QLineEdit *yours() const { return field("yourLangWordTextField"); }
    QLineEdit *foreign() const { return field("foreignWordTextField"); }
    QLineEdit *comment() const { return field("commentTextField"); }
    TAVLanguageTokenField *tags() const { return control<TAVLanguageTokenField>("tagsTokenField"); }
    QCheckBox *dontAsk() const { return control<QCheckBox>("dontAskAgainCheckBox"); }
    QPushButton *button(const char *name) const { return control<QPushButton>(name); }
    void click(const char *name) const { button(name)->click(); }

    QString path() const { return TAVStorageManager::savePathForVocabulary(*vocabulary); }
    /** "yours-foreign" of each word, as in the vocabulary or its file. */
    static QString pairsOf(const TAVLexicon &lexicon)
    {
        QStringList pairs;
        for (const TAVWordRef &word : lexicon.allWords())
            pairs.append(word->yourWord() + u'-' + word->foreignWord());
        pairs.sort();
        return pairs.join(u' ');
    }
    QString savedPairs() const
    {
        const TAVLexiconRef saved = TAVStorageManager::vocabularyFromFile(path());
        return saved ? pairsOf(*saved) : QStringLiteral("nothing");
    }
    static QStringList sortedTags(const TAVWordRef &word) { return word->tagsSorted(); }
    QString takeMessages() { return std::exchange(m_messages, {}).join(u' '); }

    void wordPopoverDidDeleteWords(const TAVWordList &words) override { note("deleted", words); }
    void wordPopoverDidCancelEditWords(const TAVWordList &words) override { note("cancelled", words); }
    void wordPopoverDidEditWords(const TAVWordList &words) override { note("edited", words); }
    void wordPopoverDidAddWords(const TAVWordList &words, bool shallAddMore) override
    {
        note(shallAddMore ? "added-more" : "added", words);
    }
    void wordPopoverDidCancelAddingWords(const TAVWordList &words) override
    {
        note("cancelled-adding", words);
    }
    void wordPopoverDidMoveSelection(int direction) override
    {
        m_messages.append(QStringLiteral("move%1").arg(direction));
    }

    TAVWordRef dog = makeWord({u"dog"_qs, u"cane"_qs, 0, {u"animal"_qs}, {}, 101});
    TAVWordRef house = makeWord({u"house"_qs, u"casa"_qs, 2, {u"home"_qs, u"big"_qs}, u"f."_qs, 102});
    TAVWordRef water = makeWord({u"water"_qs, u"acqua"_qs, 5, {u"food"_qs}, {}, 103});
    TAVWordRef bread = makeWord({u"bread"_qs, u"pane"_qs, 5, {u"food"_qs}, {}, 104, {}, true});
    TAVLexiconRef vocabulary = std::make_shared<TAVLexicon>();
    VocabularyDocument document;
    QWidget window;
    std::unique_ptr<TAVWordPopoverController> editor;
    ArrowPopup *popup = nullptr;
    /** Runs when the delegate is told something. */
    std::function<void()> whenTold;

private:
    void note(const char *message, const TAVWordList &words)
    {
        m_messages.append(QLatin1String(message) + QStringLiteral(":%1").arg(words.size()));
        if (whenTold)
            whenTold();
    }

    QStringList m_messages;
};
