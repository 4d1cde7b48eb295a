#include "ViewsTest.h"

#include "views/editor/TAVWordPopoverController.h"

#include <QAbstractButton>
#include <QHeaderView>
#include <QPushButton>

#include <functional>

namespace {

/** Every way of changing or showing words, and what exactly it sets going, in order. */
struct Way
{
    const char *name;
    std::function<void(const class SavingTest &)> prepare;
    std::function<void(const class SavingTest &)> act;
    const char *expected;
    bool isFlagged;
};

void PrintTo(const Way &way, std::ostream *out)
{
    *out << way.name;
}

class SavingTest : public ViewsTest, public ::testing::WithParamInterface<Way>
{
public:
    using ViewsTest::click;
    using ViewsTest::control;
    using ViewsTest::dropOnRow;
    using ViewsTest::hub;
    using ViewsTest::rowOf;
    using ViewsTest::services;
    using ViewsTest::table;
    using ViewsTest::words;

    void select(const char *word) const { table()->selectOnlyRow(rowOf(word)); }
    void endEditor(const char *button) const
    {
        words()->wordEditor()->closeWordPanel(control<QPushButton>(button));
    }
};

using Test = const SavingTest &;
const auto nothing = [](Test) {};

const Way ways[] = {
    {"levelSwitch", nothing, [](Test t) { t.click("level2Button"); }, "save sync reload", false},
    {"search", nothing, [](Test t) { t.control<QLineEdit>("searchField")->setText(QStringLiteral("d")); },
     "reload", false},
    {"tagClick", nothing, [](Test t) { t.click("selectAllTagsButton"); }, "reload", false},
    {"sort", nothing, [](Test t) { t.words()->didClickTableColumn(WordTableModel::Comment); }, "", false},
    {"synonyms", nothing, [](Test t) { t.words()->setDisplaySynonyms(); }, "save sync reload", false},
    {"dropTag", nothing, [](Test t) { t.dropOnRow(0, QStringLiteral("fresh")); }, "mark* save sync", true},
    {"edit", [](Test t) { t.select("dog"); }, [](Test t) { t.endEditor("okButton"); },
     "save reload mark* sync", true},
    {"cancelEdit", [](Test t) { t.select("dog"); }, [](Test t) { t.endEditor("cancelButton"); }, "", false},
    {"openAdding", nothing, [](Test t) { t.words()->showAddWordPanel(); }, "save sync reload", false},
    {"cancelAdding", [](Test t) { t.words()->showAddWordPanel(); },
     [](Test t) { t.endEditor("cancelButton"); }, "reload sync", false},
    {"add",
     [](Test t) {
         t.words()->showAddWordPanel();
         t.control<QLineEdit>("foreignWordTextField")->setText(QStringLiteral("pane"));
     },
     [](Test t) { t.endEditor("addButton"); }, "save reload mark* sync", true},
    {"addAndNext",
     [](Test t) {
         t.words()->showAddWordPanel();
         t.control<QLineEdit>("foreignWordTextField")->setText(QStringLiteral("pane"));
     },
     [](Test t) { t.endEditor("okButton"); }, "save reload mark*", true},
    {"deleteWhileAdding", [](Test t) { t.words()->showAddWordPanel(); },
     [](Test t) { t.words()->deleteSelectedWords(); }, "reload sync", false},
    {"delete", [](Test t) { t.select("dog"); }, [](Test t) { t.words()->deleteSelectedWords(); },
     "save mark* reload sync", true},
    {"undoDelete",
     [](Test t) {
         t.select("dog");
         t.words()->deleteSelectedWords();
         t.words()->vocabulary()->setNeedsSync(false);
     },
     [](Test t) { t.words()->undo(); }, "mark* save reload sync", true},
    {"duplicates",
     [](Test t) {
         const auto twin =
             std::make_shared<TAVWord>(QStringLiteral("dog"), QStringLiteral("cane"), QString());
         t.words()->vocabulary()->addWord(twin);
         t.words()->vocabulary()->buildSynonyms();
         const_cast<SavingTest &>(t).services.alerts.answerNext(1);
     },
     [](Test t) { t.words()->deleteDuplicates(); }, "save reload sync", false},
    {"reloadFromDisk", nothing, [](Test t) { t.words()->reloadVocabularyFromDisk(); }, "save sync reload",
     false},
    {"importEnd", nothing, [](Test t) { t.hub->importDidEnd(nullptr); }, "mark* save sync reload sync", true},
    {"quizTab", [](Test t) { t.select("dog"); }, [](Test t) { t.hub->showQuiz(); }, "sync", false},
};

TEST_P(SavingTest, DoesExactlyWhatIsNeeded)
{
    startWith(makeItalian());
    GetParam().prepare(*this);
    recorder.take();
    GetParam().act(*this);
    EXPECT_EQ(recorder.take(), QLatin1String(GetParam().expected));
    EXPECT_EQ(vocabulary()->needsSync(), GetParam().isFlagged);
}

INSTANTIATE_TEST_SUITE_P(Ways, SavingTest, ::testing::ValuesIn(ways),
                         [](const auto &way) { return std::string(way.param.name); });

TEST_F(ViewsTest, ADroppedTagWaitsForTheNextUpdate)
{
    startWith(makeItalian());
    services.clock.setNow(QDateTime(QDate(2026, 11, 20), QTime(8, 0), Qt::UTC));
    table()->horizontalHeader()->setSortIndicator(0, Qt::AscendingOrder);
    words()->didClickTableColumn(WordTableModel::YourWord);
    ASSERT_EQ(cell(0, 0), QStringLiteral("water"));

    dropOnRow(0, QStringLiteral("  drink "));
    const TAVWordRef word = words()->currentWordsToShow().last();
    EXPECT_EQ(word->tagsSorted(), QStringList{QStringLiteral("drink")});
    EXPECT_EQ(word->modificationID(), services.clock.now().toSecsSinceEpoch());
    EXPECT_FALSE(vocabulary()->allTags().contains(QStringLiteral("drink")));

    // Between two rows, or as a whole document, a text is no tag.
    QMimeData data;
    data.setText(QStringLiteral("x"));
    EXPECT_FALSE(table()->model()->canDropMimeData(&data, Qt::CopyAction, 1, 0, {}));
    EXPECT_FALSE(table()->model()->dropMimeData(&data, Qt::CopyAction, 1, 0, {}));
    dropOnRow(0, QString(1'000'000, QLatin1Char('x')));
    EXPECT_EQ(word->tags().size(), 1);
}

TEST_F(ViewsTest, AFailedSaveStopsALevelSwitchAndARemovalOfDuplicates)
{
    const TAVLexiconRef italian = makeItalian();
    addWord(italian, "dog", "cane");
    startWith(italian);
    const qint64 count = vocabulary()->countAllWords();
    // A name that leads out of the folder can't be saved.
    vocabulary()->setForeignLanguageName(QStringLiteral("../Italian"));
    click("level2Button");
    EXPECT_EQ(words()->selectedLevel(), TAVLexiconController::allLevels);
    EXPECT_TRUE(control<QAbstractButton>("allWordsButton")->isChecked());
    services.alerts.shown.clear();
    services.alerts.answerNext(1);
    words()->deleteDuplicates();
    EXPECT_EQ(services.alerts.shown.size(), 2) << "the question, and the failure";
    EXPECT_EQ(vocabulary()->countAllWords(), count);
}

TEST_F(ViewsTest, NobodyHearsOfTheListBeforeItIsShown)
{
    save(makeItalian());
    open();
    watch();
    dropOnRow(0, QStringLiteral("fresh"));
    EXPECT_EQ(recorder.take(), QStringLiteral("save"));
    words()->selectMemoryView(nullptr);
    EXPECT_EQ(recorder.take(), QStringLiteral("save reload"));
    services.clock.advanceSeconds(1);
    recorder.take();
    dropOnRow(0, QStringLiteral("other"));
    EXPECT_EQ(recorder.take(), QStringLiteral("mark* save sync"));
}

TEST_F(ViewsTest, DuplicatesAreGoneFromTheFileWhenTheirNumberIsTold)
{
    const TAVLexiconRef italian = makeItalian();
    addWord(italian, "dog", "cane");
    startWith(italian);
    words()->setDisplaySynonyms();
    recorder.take();
    const auto numberInFile = [this] {
        return TAVStorageManager::vocabularyFromFile(TAVStorageManager::savePathForVocabulary(*vocabulary()))
            ->countAllWords();
    };
    qint64 inFile = 0;
    services.alerts.answerNext(1);
    services.alerts.whileShown = [&] { services.alerts.whileShown = [&] { inFile = numberInFile(); }; };
    words()->deleteDuplicates();
    EXPECT_EQ(inFile, 3);
    EXPECT_FALSE(words()->isSynonymsActive());
    EXPECT_EQ(recorder.take(), QStringLiteral("save sync reload reload sync"));
}

} // namespace
