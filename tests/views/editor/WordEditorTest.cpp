#include "WordEditorTest.h"

#include <QClipboard>
#include <QCompleter>
#include <QKeyEvent>
#include <QLabel>
#include <QTest>
#include <QtTest/qtestspontaneevent.h>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

/** Another version of the vocabulary, as a sync brings it. */
TAVLexiconRef otherVersion(const TAVWordList &words)
{
    const TAVLexiconRef other = makeVocabulary(words);
    other->setYourLanguageName(u"English"_s);
    other->setForeignLanguageName(u"Spanish"_s);
    return other;
}

void press(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier, bool held = false)
{
    QWidget *focused = QApplication::focusWidget();
    ASSERT_NE(focused, nullptr);
    QKeyEvent event(QEvent::KeyPress, key, modifiers, QString(), held);
    QApplication::sendEvent(focused, &event);
}

} // namespace

TEST_F(WordEditorTest, OffersTheButtonsOfItsMode)
{
    editor->setQuizSelectedAction([] {});
    struct Case
    {
        std::function<void()> open;
        bool adds;
        bool quizzes;
        bool native;
    };
    const QList<Case> cases = {
        {[this] { edit({dog}); }, false, false, false},
        {[this] { edit({water}); }, false, false, true},
        {[this] {
             edit({water, bread});
         },
         false, true, true},
        {[this] {
             edit({water, dog});
         },
         false, true, false},
        {[this] { add(); }, true, false, false},
    };
    for (const Case &each : cases) {
        each.open();
        const auto isOffered = [this](const char *name) {
            EXPECT_EQ(button(name)->isVisible(), button(name)->isEnabled());
            return button(name)->isVisible();
        };
        EXPECT_EQ(isOffered("addButton"), each.adds);
        EXPECT_EQ(isOffered("deleteButton"), !each.adds);
        EXPECT_EQ(isOffered("quizSelectedButton"), each.quizzes);
        EXPECT_EQ(dontAsk()->isVisible(), each.native);
    }
    EXPECT_EQ(control<QLabel>("yourLangNameTextField")->text(), u"English"_s);
    vocabulary->setYourLanguageName(std::nullopt);
    edit({dog});
    EXPECT_EQ(control<QLabel>("yourLangNameTextField")->text(), AppGround::selectedLocaleName());
}

TEST_F(WordEditorTest, FocusFollowsAfterHalfASecondUnlessTheSelectionGoesOn)
{
    QLineEdit elsewhere(&window);
    elsewhere.show();
    const auto backToTheList = [&] {
        window.activateWindow();
        elsewhere.setFocus();
    };
    const auto hasMoved = [this] { return foreign()->hasFocus(); };
    editor->showEditWindowForWords({dog}, vocabulary, this);
    editor->showBeside(&window, QRect(10, 10, 50, 20));
    backToTheList();
    services.clock.advance(400ms);
    processEvents();
    EXPECT_FALSE(hasMoved());
    editor->showEditWindowForWords({house}, vocabulary, this);
    services.clock.advance(400ms);
    processEvents();
    EXPECT_FALSE(hasMoved()) << "the first selection's move is off";
    services.clock.advance(100ms);
    processEvents();
    EXPECT_TRUE(hasMoved());

    editor->showEditWindowForWords({dog}, vocabulary, this);
    editor->hidePanel();
    EXPECT_EQ(services.clock.pendingCount(), 0);
    backToTheList();
    edit({dog, house});
    EXPECT_TRUE(comment()->hasFocus()) << "the word fields take no text here";
}

TEST_F(WordEditorTest, ReturnSavesOnceHoweverLongItIsHeld)
{
    add();
    foreign()->setText(u"gatto"_s);
    press(Qt::Key_Return, {}, true);
    EXPECT_TRUE(takeMessages().isEmpty());
    services.desktop.repeatsArePresses = true;
    for (const QEvent::Type type : {QEvent::KeyRelease, QEvent::KeyPress}) {
        QKeyEvent repeat(type, Qt::Key_Return, Qt::NoModifier);
        repeat.setTimestamp(6500);
        QSpontaneKeyEvent::setSpontaneous(&repeat);
        qApp->notify(QApplication::focusWidget(), &repeat);
    }
    EXPECT_TRUE(takeMessages().isEmpty());
    press(Qt::Key_Return);
    EXPECT_EQ(takeMessages(), u"added-more:1"_s);

    add();
    foreign()->setText(u"topo"_s);
    press(Qt::Key_Return, Qt::ControlModifier);
    EXPECT_EQ(takeMessages(), u"added:1"_s);

    // In the tags Return ends a tag first.
    edit({dog});
    tags()->setFocus();
    QTest::keyClicks(QApplication::focusWidget(), u"pet"_s);
    press(Qt::Key_Return);
    EXPECT_TRUE(takeMessages().isEmpty());
    press(Qt::Key_Return);
    EXPECT_EQ(takeMessages(), u"edited:1"_s);
    EXPECT_EQ(sortedTags(dog), QStringList({u"animal"_s, u"pet"_s}));

    edit({dog});
    button("cancelButton")->setFocus();
    press(Qt::Key_Return);
    EXPECT_EQ(takeMessages(), u"cancelled:1"_s);
}

TEST_F(WordEditorTest, EscapeCancels)
{
    edit({dog});
    for (QWidget *each : {static_cast<QWidget *>(foreign()), static_cast<QWidget *>(tags())}) {
        each->setFocus();
        press(Qt::Key_Escape);
        EXPECT_EQ(takeMessages(), u"cancelled:1"_s);
    }
    add();
    press(Qt::Key_Escape);
    EXPECT_EQ(takeMessages(), u"cancelled-adding:1"_s);
    add();
    popup->close();
    EXPECT_EQ(takeMessages(), u"cancelled-adding:1"_s) << "by the window manager";
}

TEST_F(WordEditorTest, UpAndDownWalkTheListWhileNothingIsChanged)
{
    edit({dog});
    press(Qt::Key_Down);
    tags()->setFocus();
    press(Qt::Key_Up);
    EXPECT_EQ(takeMessages(), u"move1 move-1"_s);
    foreign()->setFocus();
    press(Qt::Key_Down, Qt::ShiftModifier);
    QTest::keyClicks(foreign(), u"x"_s);
    press(Qt::Key_Down);
    EXPECT_TRUE(takeMessages().isEmpty());
    QTest::keyClick(foreign(), Qt::Key_Backspace);
    press(Qt::Key_Down);
    EXPECT_EQ(takeMessages(), u"move1"_s) << "as it was again";
    tags()->setFocus();
    QTest::keyClicks(QApplication::focusWidget(), u"p"_s);
    press(Qt::Key_Down);
    EXPECT_TRUE(takeMessages().isEmpty());
    add();
    press(Qt::Key_Up);
    EXPECT_TRUE(takeMessages().isEmpty());
}

TEST_F(WordEditorTest, PastedLineEndsBecomeBlanks)
{
    edit({dog});
    QApplication::clipboard()->setText(u"two\nlines\r\nand"_s + QChar(u'\0') + u" more"_s);
    foreign()->selectAll();
    foreign()->paste();
    EXPECT_EQ(foreign()->text().simplified(), u"two lines and more"_s);
    EXPECT_FALSE(foreign()->text().contains(u'\n'));
    EXPECT_FALSE(foreign()->text().contains(QChar(u'\0')));
}

TEST_F(WordEditorTest, CompletesTagsOfTheVocabulary)
{
    edit({water});
    tags()->setFocus();
    QTest::keyClicks(QApplication::focusWidget(), u"an"_s);
    QAbstractItemModel *offered = tags()->input()->completer()->completionModel();
    ASSERT_EQ(offered->rowCount(), 1);
    EXPECT_EQ(offered->index(0, 0).data().toString(), u"animal"_s);
    EXPECT_TRUE(services.diagnosticLines.contains(u"tokenCell completions for: an"_s));
}

TEST_F(WordEditorTest, GoesOnWithTheCounterpartsInANewVocabulary)
{
    const TAVWordRef newDog = makeWord({u"dog"_s, u"cane"_s, 3, {}, u"theirs"_s, 55});
    edit({dog, house});
    comment()->setFocus();
    editor->updateVocabulary(otherVersion({newDog}));
    EXPECT_EQ(editor->selectedWords(), TAVWordList{newDog});
    EXPECT_EQ(comment()->text(), u"theirs"_s);
    EXPECT_EQ(control<QLabel>("foreignLangNameTextField")->text(), u"Spanish"_s);
    EXPECT_TRUE(comment()->hasFocus());
    services.clock.advance(1s);
    EXPECT_TRUE(comment()->hasFocus()) << "given back for good";

    // Of several with its texts, the one that the vocabulary itself finds.
    const TAVLexiconRef withTwins =
        otherVersion({makeWord({u"dog"_s, u"cane"_s}), makeWord({u"dog"_s, u"cane"_s})});
    editor->updateVocabulary(withTwins);
    EXPECT_EQ(editor->selectedWords(), TAVWordList{withTwins->findWordEqualTo(*dog)});
}

TEST_F(WordEditorTest, TakesThePlaceholderAlongOrEndsWithoutCounterparts)
{
    const TAVWordRef placeholder = add();
    const TAVLexiconRef other = otherVersion({makeWord({u"x"_s, u"y"_s})});
    editor->updateVocabulary(other);
    EXPECT_TRUE(other->allWords().contains(placeholder));
    EXPECT_TRUE(editor->isInAddingMode());
    EXPECT_EQ(takeMessages(), QString());
    click("cancelButton");
    takeMessages();

    edit({dog});
    editor->updateVocabulary(otherVersion({}));
    EXPECT_EQ(takeMessages(), u"cancelled:1"_s);
    // A cancelled panel still counts as active, and searches out of sight.
    editor->hidePanel();
    editor->updateVocabulary(otherVersion({}));
    EXPECT_EQ(takeMessages(), u"cancelled:1"_s);
    EXPECT_FALSE(editor->isPanelVisible());

    vocabulary->addWord(dog);
    edit({dog});
    click("okButton");
    takeMessages();
    editor->updateVocabulary(otherVersion({}));
    EXPECT_EQ(takeMessages(), QString()) << "a saved panel has nothing to look for";
}

TEST_F(WordEditorTest, StaysOnTheScreenAndGoesWithItsWindow)
{
    const QRect screen = window.screen()->availableGeometry();
    for (const QPoint &corner :
         {screen.topLeft(), screen.center(), screen.bottomRight() - QPoint(400, 300)}) {
        window.move(corner);
        for (const QRect &row : {QRect(0, 0, 400, 20), QRect(0, 280, 400, 20)}) {
            editor->showEditWindowForWords({dog}, vocabulary, this);
            editor->showBeside(&window, row);
            EXPECT_TRUE(screen.contains(popup->geometry()));
        }
    }
    window.hide();
    EXPECT_FALSE(editor->isPanelVisible());
}
