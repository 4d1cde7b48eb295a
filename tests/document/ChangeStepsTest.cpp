#include "app/ground/AppGround.h"
#include "document/VocabularyDocument.h"
#include "storage/TAVStorageManager.h"
#include "support/TestServices.h"
#include "support/Words.h"
#include "sync/DropBoxController.h"

#include <QFile>
#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace {

/**
 * Watches what a change does to a vocabulary whose lists and indexes are all out of date, and writes it down:
 * what was rebuilt, "flag", "mark", "save" (with a star if the file says that it waits for a sync), "sync".
 * Looked for at each call to the sync and at the end.
 */
class EffectRecorder : public DropBoxController
{
public:
    explicit EffectRecorder(const TAVLexiconRef &vocabulary)
        : m_vocabulary(vocabulary)
    {
        setSharedManager(this);
        m_moved = makeWord({u"dog"_s, u"cane"_s});
        const TAVWordRef other = makeWord({u"house"_s, u"casa"_s});
        vocabulary->setYourLanguageName(u"English"_s);
        vocabulary->setForeignLanguageName(u"Italian"_s);
        vocabulary->batchAddWords({m_moved, other});
        EXPECT_TRUE(TAVStorageManager::saveVocabulary(vocabulary));
        m_path = TAVStorageManager::savePathForVocabulary(*vocabulary);
        restart();
        EXPECT_EQ(vocabulary->synonyms().size() + vocabulary->allTags().size(), 0);
        // Behind the back of what is kept ready:
        m_moved->setLevel(3);
        m_moved->setTags({u"fresh"_s});
        other->setForeignWord(u"cane"_s);
        look();
        EXPECT_EQ(take(), QString()) << "nothing is up to date yet";
    }
    ~EffectRecorder() override { setSharedManager(nullptr); }

    void markFileAsNeedsSync(const TAVLexicon &vocabulary) override
    {
        EXPECT_EQ(&vocabulary, m_vocabulary.get());
        look();
        m_effects.append(u"mark"_s);
    }
    void syncWithDropbox() override
    {
        look();
        m_effects.append(u"sync"_s);
    }
    QString take()
    {
        look();
        return std::exchange(m_effects, {}).join(u' ');
    }
    void makeSavesFail() { m_vocabulary->setForeignLanguageName(u"../Italian"_s); }

private:
    void restart()
    {
        QFile file(m_path);
        EXPECT_TRUE(file.open(QIODevice::ReadWrite));
        EXPECT_TRUE(file.setFileTime(m_longAgo, QFileDevice::FileModificationTime));
    }
    void look()
    {
        noteOnce(u"lists"_s, m_vocabulary->level3Words().size() == 1);
        noteOnce(u"synonyms"_s, m_vocabulary->synonyms().size() == 2);
        noteOnce(u"tags"_s, m_vocabulary->allTags().contains(u"fresh"_s));
        noteOnce(u"flag"_s, m_vocabulary->needsSync());
        if (QFileInfo(m_path).lastModified() == m_longAgo)
            return;
        const TAVLexiconRef saved = TAVStorageManager::vocabularyFromFile(m_path);
        const bool isStale = m_seen.contains(u"lists"_s) && saved->level3Words().isEmpty();
        m_effects.append(u"save"_s + (saved->needsSync() ? u"*"_s : QString()) +
                         (isStale ? u" of old lists"_s : QString()));
        restart();
    }
    void noteOnce(const QString &effect, bool isThere)
    {
        if (!isThere || m_seen.contains(effect))
            return;
        m_seen.append(effect);
        m_effects.append(effect);
    }

    const QDateTime m_longAgo{QDate(2001, 1, 1), QTime(12, 0), Qt::UTC};
    TAVLexiconRef m_vocabulary;
    TAVWordRef m_moved;
    QString m_path;
    QStringList m_effects;
    QStringList m_seen;
};

struct Case
{
    Change change;
    /** What each piece does. */
    QStringList pieces;
    /** What is left of the first piece when nothing can be saved. */
    QString failing = {};
    QString line = {};
};

const QString editor = u"lists synonyms tags flag save*"_s;
const QString failingEditor = u"lists synonyms tags flag"_s;
const QString editorLine = u"WordPopover > save > could not save voc"_s;

const QList<Case> cases = {
    {Change::LevelSwitched, {u"save"_s, u"sync"_s}, {}, u"VocController > doSync > could not save voc"_s},
    {Change::WordsEdited, {editor, u"mark sync"_s}, failingEditor, editorLine},
    {Change::WordsAdded, {editor, u"mark"_s, u"sync"_s}, failingEditor, editorLine},
    {Change::WordsDeleted, {editor, u"mark"_s, u"sync"_s}, failingEditor, editorLine},
    {Change::AdditionCancelled, {{}, u"sync"_s}},
    {Change::TagDropped,
     {u"flag mark save* sync"_s},
     u"flag mark sync"_s,
     u"VocController > acceptDrop > could not save voc"_s},
    {Change::DuplicatesRemoved,
     {u"save"_s, u"save"_s, u"sync"_s},
     {},
     u"VocController > deleteDuplicates > could not save voc"_s},
    {Change::Undone,
     {u"flag mark save*"_s, u"sync"_s},
     u"flag mark"_s,
     u"VocController > undoDeletion > could not save voc"_s},
    {Change::DecisionTaken, {u"flag"_s}, u"flag"_s},
    {Change::AnswerTyped, {u"flag mark save*"_s}, u"flag mark"_s},
    {Change::TypingRunEnded, {u"mark save sync"_s}, u"mark sync"_s},
    {Change::CardBooked, {u"flag mark save*"_s}, u"flag mark"_s},
    {Change::LastCardBooked, {u"flag mark"_s}, u"flag mark"_s},
    {Change::CardRunEnded, {u"save sync"_s}, u"sync"_s},
    {Change::PopupAnswered, {u"flag mark save*"_s}, u"flag mark"_s},
    {Change::PopupRunEnded, {u"save"_s}},
    {Change::WordsImported, {u"flag mark save*"_s, u"sync"_s}, u"flag mark"_s},
    {Change::FirstLanguageMade, {u"flag mark save*"_s, u"sync"_s}, u"flag mark"_s},
};

class ChangeStepsTest : public ServicesTest
{
protected:
    ChangeStepsTest()
    {
        AppGround::applicationSupportFolder();
        document.setListShown();
    }

    VocabularyDocument document;
};

TEST_F(ChangeStepsTest, EachPieceOfAChangeHasItsEffectsInOrder)
{
    for (const Case &each : cases) {
        SCOPED_TRACE(int(each.change));
        const auto vocabulary = std::make_shared<TAVLexicon>();
        EffectRecorder recorder(vocabulary);
        EXPECT_EQ(ChangeSteps::numberOfPieces(each.change), each.pieces.size());
        for (int piece = 0; piece < each.pieces.size(); ++piece) {
            EXPECT_TRUE(document.proceed(each.change, piece, vocabulary).isSaved);
            EXPECT_EQ(recorder.take(), each.pieces.at(piece)) << "piece " << piece;
        }
    }
    EXPECT_EQ(cases.size(), int(Change::FirstLanguageMade) + 1) << "each change stands here";
}

TEST_F(ChangeStepsTest, AFailedSaveIsLoggedAndEndsWhatDependsOnIt)
{
    for (const Case &each : cases) {
        SCOPED_TRACE(int(each.change));
        const auto vocabulary = std::make_shared<TAVLexicon>();
        EffectRecorder recorder(vocabulary);
        recorder.makeSavesFail();
        services.diagnosticLines.clear();
        services.alerts.shown.clear();
        const bool saves = each.pieces.first().contains(u"save"_s);
        EXPECT_EQ(document.commit(each.change, vocabulary).isSaved, !saves);
        EXPECT_EQ(recorder.take(), each.failing);
        EXPECT_EQ(services.alerts.shown.size(), saves ? 1 : 0) << "the user is told once";
        EXPECT_EQ(services.diagnosticLines.filter(u"could not save voc"_s),
                  each.line.isEmpty() ? QStringList() : QStringList{each.line});
    }
}

TEST_F(ChangeStepsTest, WithoutAVocabularyOnlyTheSyncIsAskedFor)
{
    EffectRecorder recorder(std::make_shared<TAVLexicon>());
    for (const Case &each : cases) {
        SCOPED_TRACE(int(each.change));
        for (int piece = 0; piece < each.pieces.size(); ++piece) {
            EXPECT_TRUE(document.proceed(each.change, piece, nullptr).isSaved);
            EXPECT_EQ(recorder.take(), each.pieces.at(piece).contains(u"sync"_s) ? u"sync"_s : QString());
        }
    }
}

} // namespace
