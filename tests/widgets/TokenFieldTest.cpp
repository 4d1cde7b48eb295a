#include "widgets/TokenField.h"

#include "support/GuiTest.h"

#include <QAbstractItemView>
#include <QClipboard>
#include <QCompleter>
#include <QKeyEvent>
#include <QLineEdit>
#include <QSignalSpy>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

class TokenFieldTest : public ServicesTest
{
protected:
    TokenFieldTest()
    {
        m_field.resize(300, 40);
        m_field.show();
        m_field.activateWindow();
        m_field.input()->setFocus();
        processEvents();
    }

    void press(int key) { QTest::keyClick(m_field.input(), Qt::Key(key)); }
    void type(const QString &text) { QTest::keyClicks(m_field.input(), text); }
    void paste(const QString &text)
    {
        QApplication::clipboard()->setText(text);
        m_field.input()->paste();
    }

    TokenField m_field;
};

} // namespace

TEST_F(TokenFieldTest, CommaReturnAndLeavingMakeChips)
{
    type(u"verb, Noun,verb,,"_s);
    EXPECT_EQ(m_field.tokens(), QStringList({u"verb"_s, u"Noun"_s}));
    EXPECT_TRUE(m_field.input()->text().isEmpty());

    type(u" rest "_s);
    EXPECT_EQ(m_field.tokens().last(), u"rest"_s) << "what is still typed counts";
    press(Qt::Key_Return);
    EXPECT_TRUE(m_field.input()->text().isEmpty());

    type(u"last"_s);
    m_field.input()->clearFocus();
    EXPECT_TRUE(m_field.input()->text().isEmpty());
    EXPECT_EQ(m_field.tokens(), QStringList({u"verb"_s, u"Noun"_s, u"rest"_s, u"last"_s}));
}

TEST_F(TokenFieldTest, ReturnInAnEmptyInputIsLeftToTheWindow)
{
    QWidget window;
    auto *field = new TokenField(&window);
    QSignalSpy typed(field, &TokenField::tokensChanged);
    QKeyEvent enter(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier);
    enter.accept();
    QApplication::sendEvent(field->input(), &enter);
    EXPECT_FALSE(enter.isAccepted());
    EXPECT_TRUE(typed.isEmpty());
}

TEST_F(TokenFieldTest, KeysWalkOverChipsAndRemoveThem)
{
    struct Case
    {
        const char *what;
        Qt::LayoutDirection direction;
        QString typed;
        QList<int> keys;
        QString left;
    };
    const QString hebrew = u"\u05d0\u05d1"_s;
    const QList<Case> cases = {
        {"last", Qt::LeftToRight, {}, {Qt::Key_Backspace}, u"a b"_s},
        {"walk back and delete", Qt::LeftToRight, {}, {Qt::Key_Left, Qt::Key_Left, Qt::Key_Delete}, u"a c"_s},
        {"stops at the first",
         Qt::LeftToRight,
         {},
         {Qt::Key_Left, Qt::Key_Left, Qt::Key_Left, Qt::Key_Left, Qt::Key_Delete},
         u"b c"_s},
        {"there and back", Qt::LeftToRight, {}, {Qt::Key_Left, Qt::Key_Right, Qt::Key_Delete}, u"a b c"_s},
        {"mirrored", Qt::RightToLeft, {}, {Qt::Key_Right, Qt::Key_Right, Qt::Key_Delete}, u"a c"_s},
        {"mirrored, wrong way", Qt::RightToLeft, {}, {Qt::Key_Left, Qt::Key_Delete}, u"a b c"_s},
        {"text is deleted first", Qt::LeftToRight, u"x"_s, {Qt::Key_Backspace, Qt::Key_Backspace}, u"a b"_s},
        {"from the text's start",
         Qt::LeftToRight,
         u"x"_s,
         {Qt::Key_Left, Qt::Key_Left, Qt::Key_Delete},
         u"a b x"_s},
        {"the text that runs the other way begins far from the chips",
         Qt::LeftToRight,
         hebrew,
         {Qt::Key_Home, Qt::Key_Left, Qt::Key_Delete},
         u"a b c \u05d0"_s},
        {"and ends beside them",
         Qt::LeftToRight,
         hebrew,
         {Qt::Key_End, Qt::Key_Left, Qt::Key_Delete},
         u"a b "_s + hebrew},
    };
    for (const Case &each : cases) {
        SCOPED_TRACE(each.what);
        m_field.setLayoutDirection(each.direction);
        m_field.setTokens({u"a"_s, u"b"_s, u"c"_s});
        m_field.input()->insert(each.typed);
        for (const int key : each.keys)
            press(key);
        EXPECT_EQ(m_field.tokens().join(u' '), each.left);
    }
}

TEST_F(TokenFieldTest, PastedTextFallsIntoChips)
{
    paste(u" verb,two words\r\nthird\n\n, ,fo"_s + QChar(u'\0') + u"ur,"_s + QChar(QChar::LineSeparator) +
          u"verb"_s);
    EXPECT_EQ(m_field.tokens(), QStringList({u"verb"_s, u"two words"_s, u"third"_s, u"four"_s}));
}

TEST_F(TokenFieldTest, StaysUsableUnderAHugePaste)
{
    QString huge;
    for (int i = 0; huge.size() < 1'000'000; ++i)
        huge += QString::number(i) + u',';
    paste(huge);
    EXPECT_GT(m_field.tokens().size(), 5000);
    EXPECT_LT(m_field.height(), 200) << "it scrolls instead";
    m_field.grab();
    paste(QString(1'000'000, u'x'));
    m_field.grab();
    m_field.clear();
    EXPECT_TRUE(m_field.tokens().isEmpty());
}

TEST_F(TokenFieldTest, OffersCompletionsForWhatIsBegun)
{
    QStringList asked;
    m_field.setCompletionProvider([&asked](const QString &prefix) {
        asked.append(prefix);
        return QStringList{u"verb"_s, u"verbal"_s};
    });
    type(u"a, v"_s);
    EXPECT_EQ(asked.last(), u"v"_s);
    QCompleter *completer = m_field.input()->completer();
    ASSERT_TRUE(completer->popup()->isVisible());
    QTest::keyClick(completer->popup(), Qt::Key_Down);
    QTest::keyClick(completer->popup(), Qt::Key_Return);
    processEvents();
    EXPECT_EQ(m_field.tokens(), QStringList({u"a"_s, u"verb"_s}));
    EXPECT_TRUE(m_field.input()->text().isEmpty());

    type(u"ve"_s);
    ASSERT_TRUE(completer->popup()->isVisible());
    QTest::keyClick(completer->popup(), Qt::Key_Return);
    processEvents();
    EXPECT_FALSE(completer->popup()->isVisible());
    EXPECT_TRUE(m_field.input()->text().isEmpty()) << "Return ends what was typed, also under the list";
    EXPECT_EQ(m_field.tokens(), QStringList({u"a"_s, u"verb"_s, u"ve"_s}));
}

TEST_F(TokenFieldTest, ClickOnTheCrossRemovesAChip)
{
    for (const Qt::LayoutDirection direction : {Qt::LeftToRight, Qt::RightToLeft}) {
        m_field.setLayoutDirection(direction);
        m_field.setTokens({u"first"_s, u"second"_s});
        QWidget *content = m_field.input()->parentWidget();
        const int chip = m_field.fontMetrics().horizontalAdvance(u"first"_s) + 30;
        const int fromEdge = 4 + chip - 7;
        const int y = m_field.input()->geometry().center().y();
        const int x = direction == Qt::LeftToRight ? fromEdge : content->width() - 1 - fromEdge;
        QTest::mouseClick(content, Qt::LeftButton, {}, QPoint(x, y));
        EXPECT_EQ(m_field.tokens(), QStringList(u"second"_s));
    }
}
