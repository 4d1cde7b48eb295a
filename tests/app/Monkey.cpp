#include "Monkey.h"

#include "app/ground/AppGround.h"
#include "document/NewLanguage.h"
#include "storage/TAVStorageManager.h"
#include "views/TAVLexiconController.h"
#include "views/WordTableView.h"
#include "views/editor/TAVWordPopoverController.h"
#include "widgets/ArrowPopup.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QDropEvent>
#include <QHeaderView>
#include <QLineEdit>
#include <QMimeData>
#include <QTest>

#include <fcntl.h>

#include <algorithm>
#include <cerrno>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

/** So much of what was done before a fault is told. */
constexpr qsizetype maxLengthOfReport = 600;

} // namespace

struct Monkey::Kind
{
    const char *name;
    int weight;
    void (Monkey::*act)();
};

/** A disk that takes nothing while it is switched on. */
class Monkey::RefusedWrites : public UnsyncedOperations
{
public:
    int open(const QByteArray &path, int flags, unsigned mode) override
    {
        if (isOn && (flags & (O_WRONLY | O_RDWR)))
            return -EROFS;
        return UnsyncedOperations::open(path, flags, mode);
    }
    bool isOn = false;
};

Monkey::Monkey(quint32 seed)
    : m_random(seed)
    , m_refusedWrites(std::make_unique<RefusedWrites>())
{
    m_services.settings.setValue(u"hasShownVocabularyHelp"_s, true);
    AppGround::applicationSupportFolder();
    makeLanguage("Latin", 4);
    makeLanguage("Italian", 12);
    open();
}

Monkey::~Monkey()
{
    m_refusedWrites->isOn = false;
    m_composition.reset();
}

void Monkey::makeLanguage(const char *foreign, int count)
{
    const TAVLexiconRef made = NewLanguage::make(u"English"_s, QLatin1String(foreign));
    for (int i = 0; i < count; ++i) {
        const auto word = std::make_shared<TAVWord>(u"word %1"_s.arg(i), u"parola %1"_s.arg(i % 9), u""_s);
        word->setLevel(quint64(i % 6));
        if (i % 3 == 0)
            word->addTag(u"tag %1"_s.arg(i % 4));
        m_services.clock.advanceSeconds(1);
        made->addWord(word);
    }
    EXPECT_TRUE(TAVStorageManager::saveVocabulary(made));
}

void Monkey::open()
{
    m_composition = std::make_unique<Composition>();
    m_program = &m_composition->makeProgram();
    m_program->awakeFromNib();
    hub().mainWindow()->show();
    hub().mainWindow()->activateWindow();
    m_services.clock.advanceSeconds(1);
    processEvents();
    QObject::connect(&m_composition->document().history(), &UndoHistory::remembered, hub().mainWindow(),
                     [this] { noteStep(); });
}

TAVLexiconRef Monkey::vocabulary()
{
    return words().vocabulary();
}

WordTableView *Monkey::table()
{
    return findControl<WordTableView>(hub().mainWindow(), "vocabularyTable");
}

QList<QWidget *> Monkey::windows()
{
    QList<QWidget *> shown;
    for (QWidget *window : QApplication::topLevelWidgets()) {
        if (window->isVisible())
            shown.append(window);
    }
    // Their order in the application is one of chance.
    const auto nameOf = [](const QWidget *window) {
        return QLatin1String(window->metaObject()->className()) + window->objectName();
    };
    std::stable_sort(shown.begin(), shown.end(), [&nameOf](const QWidget *left, const QWidget *right) {
        return nameOf(left) < nameOf(right);
    });
    return shown;
}

QString Monkey::randomText()
{
    static const QStringList texts{u"a"_s, u"parola 3"_s, u"uno"_s, u"due@tre"_s, u" "_s, u"word 1"_s};
    return texts.at(random(int(texts.size())));
}

// What it does

void Monkey::clickAButton()
{
    const QList<QWidget *> shown = windows();
    if (shown.isEmpty())
        return;
    QList<QAbstractButton *> buttons;
    for (auto *button : shown.at(random(int(shown.size())))->findChildren<QAbstractButton *>()) {
        if (button->isVisible() && button->isEnabled())
            buttons.append(button);
    }
    if (buttons.isEmpty())
        return;
    QAbstractButton *button = buttons.at(random(int(buttons.size())));
    m_actions += u" "_s + button->objectName();
    m_services.alerts.answerNext(random(2));
    if (button->objectName() == u"undoButton"_s)
        noteUndo();
    QTest::mouseClick(button, Qt::LeftButton);
}

void Monkey::pressAKey()
{
    static const Qt::Key keys[] = {Qt::Key_Return, Qt::Key_Escape, Qt::Key_Tab,   Qt::Key_Space,
                                   Qt::Key_Delete, Qt::Key_Down,   Qt::Key_Right, Qt::Key_Left,
                                   Qt::Key_Up,     Qt::Key_Return, Qt::Key_Return};
    QWidget *focus = QApplication::focusWidget() ? QApplication::focusWidget() : hub().mainWindow();
    const Qt::Key key = keys[random(int(std::size(keys)))];
    m_actions += u" "_s + QKeySequence(key).toString() + u" on "_s + focus->objectName();
    m_services.alerts.answerNext(random(2));
    QTest::keyClick(focus, key);
}

void Monkey::typeSomething()
{
    QWidget *focus = QApplication::focusWidget() ? QApplication::focusWidget() : hub().mainWindow();
    QTest::keyClicks(focus, randomText());
}

void Monkey::selectRows()
{
    const int rows = table()->model()->rowCount();
    if (rows == 0 || hub().selectedTab() != MainTab::Vocabulary)
        return;
    if (random(5) == 0)
        table()->selectAll();
    else
        table()->selectOnlyRow(random(rows));
}

void Monkey::pressARow()
{
    const int rows = table()->model()->rowCount();
    if (rows == 0 || !table()->isVisible())
        return;
    const QRect cell = table()->visualRect(table()->model()->index(random(rows), random(5)));
    QTest::mouseClick(table()->viewport(), Qt::LeftButton, {}, cell.center());
}

void Monkey::dropATag()
{
    const int rows = table()->model()->rowCount();
    if (rows == 0 || !table()->isVisible())
        return;
    QMimeData data;
    data.setText(u"tag %1"_s.arg(random(5)));
    const QPoint place = table()->visualRect(table()->model()->index(random(rows), 1)).center();
    QDragEnterEvent enter(place, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(table()->viewport(), &enter);
    QDragMoveEvent move(place, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(table()->viewport(), &move);
    QDropEvent drop(place, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(table()->viewport(), &drop);
}

void Monkey::letTimePass()
{
    static const std::chrono::milliseconds times[] = {10ms, 100ms, 200ms, 500ms, 1000ms, 2500ms};
    // What was set going on a page goes on when another one is in front.
    m_mayAnswer = true;
    m_services.clock.advance(times[random(int(std::size(times)))]);
    m_services.queues.drain();
}

void Monkey::waitForThePopup()
{
    m_mayAnswer = true;
    m_services.clock.advance(301s);
    m_services.queues.drain();
}

void Monkey::switchLanguage()
{
    auto *popUp = findControl<QComboBox>(hub().mainWindow(), "languagesPopUp");
    if (!popUp->isEnabled() || popUp->count() < 2)
        return;
    popUp->setCurrentIndex(random(2));
    // The same language is read from its file again.
    m_mayReplaceWords = m_isFileBehind;
    emit popUp->activated(popUp->currentIndex());
}

bool Monkey::isQuizUnderWay()
{
    if (hub().selectedTab() == MainTab::Quiz || m_program->popupQuiz().vocabulary() == vocabulary())
        return true;
    // What was set going before another page came in front.
    m_mayAnswer = true;
    m_services.clock.advanceSeconds(3);
    return false;
}

bool Monkey::isPopupOfAnEarlierObject()
{
    const TAVLexiconRef asked = m_program->popupQuiz().vocabulary();
    return asked && vocabulary() && asked != vocabulary() &&
           TAVStorageManager::displayNameForVocabulary(*asked) ==
               TAVStorageManager::displayNameForVocabulary(*vocabulary());
}

void Monkey::endASync()
{
    if (isQuizUnderWay())
        return;
    m_mayReplaceWords = m_isFileBehind;
    hub().dropboxControllerDidFinishSync();
    m_services.queues.drain();
}

void Monkey::changeTheFile()
{
    // Another machine's word; only a reload can bring it, and only where nothing waits to be saved here.
    if (m_refusedWrites->isOn || m_isFileBehind || !vocabulary() || isQuizUnderWay())
        return;
    const TAVLexiconRef other =
        TAVStorageManager::vocabularyFromFile(TAVStorageManager::savePathForVocabulary(*vocabulary()));
    if (!other)
        return;
    other->addWord(std::make_shared<TAVWord>(randomText(), u"altrove"_s, u""_s));
    EXPECT_TRUE(TAVStorageManager::saveVocabulary(other));
    m_isFileBehind = true;
    m_mayReplaceWords = true;
    hub().dropboxControllerDidFinishSync();
    m_services.queues.drain();
}

void Monkey::toggleFailingSaves()
{
    m_refusedWrites->isOn = !m_refusedWrites->isOn && random(2) == 0;
}

void Monkey::showATab()
{
    QTest::keyClick(hub().mainWindow(), Qt::Key(Qt::Key_1 + random(2)), Qt::ControlModifier);
}

void Monkey::addAWord()
{
    QTest::keyClick(hub().mainWindow(), Qt::Key_N, Qt::ControlModifier);
}

void Monkey::endTheEditor()
{
    static const char *const names[] = {"okButton", "addButton", "cancelButton", "deleteButton"};
    TAVWordPopoverController *editor = words().wordEditor();
    if (!editor->isPanelVisible())
        return;
    m_services.alerts.answerNext(random(2));
    auto *button = findControl<QAbstractButton>(hub().mainWindow(), names[random(4)]);
    m_actions += u" "_s + button->objectName();
    if (button->isVisible())
        button->click();
}

void Monkey::deleteWords()
{
    if (hub().selectedTab() != MainTab::Vocabulary)
        return;
    m_services.alerts.answerNext(random(2));
    words().deleteSelectedWords();
}

void Monkey::removeDuplicates()
{
    m_services.alerts.answerNext(random(2));
    words().deleteDuplicates();
}

void Monkey::noteUndo()
{
    if (!words().canUndo())
        return;
    const UndoStep &step = m_composition->document().history().last();
    for (const WordIdentity &word : step.added)
        m_removedByUser.insert(nameOf(word.creationID, word.yourWord, word.foreignWord));
    for (const auto &changed : step.changed)
        m_removedByUser.insert(
            nameOf(changed.word.creationID, changed.word.yourWord, changed.word.foreignWord));
}

void Monkey::undo()
{
    noteUndo();
    words().undo();
}

void Monkey::sort()
{
    words().didClickTableColumn(random(5));
}

void Monkey::startAQuiz()
{
    if (hub().selectedTab() != MainTab::Quiz)
        hub().showQuiz();
    m_services.clock.advanceSeconds(1);
    auto *start = findControl<QAbstractButton>(hub().mainWindow(), "quizStartQuizButton");
    if (start->isVisible() && start->isEnabled())
        start->click();
}

// What it looks at

QString Monkey::nameOf(qint64 creationID, const QString &yourWord, const QString &foreignWord)
{
    return u"%1 %2-%3"_s.arg(QString::number(creationID), yourWord, foreignWord);
}

Monkey::Words Monkey::wordsInMemory()
{
    Words found;
    if (!vocabulary())
        return found;
    for (const TAVWordRef &word : vocabulary()->allWords()) {
        if (!word->yourWord().isEmpty() || !word->foreignWord().isEmpty())
            ++found[nameOf(word->creationID(), word->yourWord(), word->foreignWord())];
    }
    return found;
}

QMap<QString, QString> Monkey::answers()
{
    QMap<QString, QString> all;
    if (!vocabulary())
        return all;
    // Of several empty words one may go, and the next one would look like the same.
    for (const TAVWordRef &word : vocabulary()->allWords()) {
        if (word->yourWord().isEmpty() && word->foreignWord().isEmpty())
            continue;
        all.insert(nameOf(word->creationID(), word->yourWord(), word->foreignWord()),
                   word->lastAsked().toString() + u' ' + QString::number(word->level()));
    }
    return all;
}

void Monkey::noteStep()
{
    const UndoStep &step = m_composition->document().history().last();
    const bool isMirrored = m_wasDescending || words().sortDescending();
    // A cancelled addition takes away a word of the user's only by the mirrored row.
    if (step.kind == UndoStep::Kind::UnsavedTexts)
        return;
    if (step.kind == UndoStep::Kind::CancelledAddition && !isMirrored && !step.removed.isEmpty() &&
        !words().wordEditor()->isAdditionUnsaved())
        ADD_FAILURE() << "a cancel has taken " << step.removed.first()->foreignWord().toStdString();
    for (const TAVWordRef &word : step.removed)
        m_removedByUser.insert(nameOf(word->creationID(), word->yourWord(), word->foreignWord()));
    for (const auto &[word, before] : step.changed)
        m_removedByUser.insert(nameOf(word.creationID, before.yourWord, before.foreignWord));
    if (step.kind == UndoStep::Kind::CancelledAddition)
        m_isFileBehind = true;
}

void Monkey::check(const QString &action)
{
    m_actions += u" = "_s + action + u"; "_s;
    m_actions = m_actions.right(maxLengthOfReport);
    checkWords();
    checkAnswers();
    checkFile();
    m_wasDescending = words().sortDescending() || (m_wasDescending && words().wordEditor()->isInAddingMode());
    m_lastVocabulary = vocabulary();
    m_lastWords = wordsInMemory();
    m_lastAnswers = answers();
    m_removedByUser.clear();
    m_mayReplaceWords = false;
    m_mayAnswer = false;
}

void Monkey::checkWords()
{
    const auto languageOf = [](const TAVLexiconRef &lexicon) {
        return lexicon ? TAVStorageManager::displayNameForVocabulary(*lexicon) : QString();
    };
    if (!m_lastVocabulary || languageOf(m_lastVocabulary) != languageOf(vocabulary()))
        return;
    // A reload takes what is in the file, in which failed saves are missing.
    if (m_mayReplaceWords && m_lastVocabulary != vocabulary())
        return;
    const Words now = wordsInMemory();
    for (auto it = m_lastWords.cbegin(); it != m_lastWords.cend(); ++it) {
        EXPECT_TRUE(now.value(it.key()) >= it.value() || m_removedByUser.contains(it.key()))
            << it.key().toStdString() << " has gone";
    }
}

void Monkey::checkAnswers()
{
    // A panel that takes an answer may hide with it.
    const bool wasSeen = m_isQuizSeen;
    m_isQuizSeen = hub().selectedTab() == MainTab::Quiz || windows().size() > 1;
    if (m_lastVocabulary != vocabulary() || m_mayAnswer || wasSeen || m_isQuizSeen)
        return;
    const auto now = answers();
    for (auto it = now.cbegin(); it != now.cend(); ++it)
        EXPECT_EQ(m_lastAnswers.value(it.key(), it.value()), it.value())
            << it.key().toStdString() << " was answered while the quiz was hidden";
}

void Monkey::checkFile()
{
    if (m_refusedWrites->isOn)
        m_isFileBehind = true;
    if (isPopupOfAnEarlierObject()) {
        m_isFileBehind = true;
        return;
    }
    if (m_refusedWrites->isOn || !vocabulary() || words().wordEditor()->isInAddingMode())
        return;
    // Whatever had to wait is in the file after the next save.
    if (m_isFileBehind) {
        EXPECT_TRUE(TAVStorageManager::saveVocabulary(vocabulary()));
        m_isFileBehind = false;
    }
    const TAVLexiconRef saved =
        TAVStorageManager::vocabularyFromFile(TAVStorageManager::savePathForVocabulary(*vocabulary()));
    ASSERT_TRUE(saved);
    const auto pairsOf = [](const TAVLexicon &lexicon) {
        QStringList pairs;
        for (const TAVWordRef &word : lexicon.allWords()) {
            if (!word->yourWord().isEmpty() || !word->foreignWord().isEmpty())
                pairs.append(u"%1-%2 %3 %4"_s.arg(word->yourWord(), word->foreignWord(),
                                                  QString::number(word->creationID()),
                                                  word->tagsSorted().join(u',')));
        }
        pairs.sort();
        return pairs;
    };
    EXPECT_EQ(pairsOf(*saved), pairsOf(*vocabulary())) << "the file doesn't hold what the memory holds";
}

const QList<Monkey::Kind> &Monkey::kinds()
{
    static const QList<Kind> all = {
        {"click", 20, &Monkey::clickAButton},
        {"key", 20, &Monkey::pressAKey},
        {"type", 12, &Monkey::typeSomething},
        {"select", 8, &Monkey::selectRows},
        {"press row", 6, &Monkey::pressARow},
        {"drop", 5, &Monkey::dropATag},
        {"time", 24, &Monkey::letTimePass},
        {"popup", 2, &Monkey::waitForThePopup},
        {"language", 2, &Monkey::switchLanguage},
        {"sync", 4, &Monkey::endASync},
        {"change file", 2, &Monkey::changeTheFile},
        {"disk", 4, &Monkey::toggleFailingSaves},
        {"tab", 5, &Monkey::showATab},
        {"add", 6, &Monkey::addAWord},
        {"end editor", 8, &Monkey::endTheEditor},
        {"delete", 2, &Monkey::deleteWords},
        {"duplicates", 1, &Monkey::removeDuplicates},
        {"undo", 4, &Monkey::undo},
        {"sort", 2, &Monkey::sort},
        {"quiz", 4, &Monkey::startAQuiz},
    };
    return all;
}

void Monkey::act(int actions)
{
    int weights = 0;
    for (const Kind &kind : kinds())
        weights += kind.weight;
    check(u"start"_s);
    for (int i = 0; i < actions && !::testing::Test::HasFailure(); ++i) {
        int place = random(weights);
        auto kind = kinds().begin();
        for (; place >= kind->weight; ++kind)
            place -= kind->weight;
        (this->*kind->act)();
        processEvents();
        check(QLatin1String(kind->name));
    }
    if (::testing::Test::HasFailure())
        ADD_FAILURE() << "after " << m_actions.toStdString();
}
