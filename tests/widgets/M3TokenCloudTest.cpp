#include "widgets/M3TokenCloud.h"

#include "support/GuiTest.h"
#include "widgets/M3TokenButton.h"

#include <QTest>

#include <random>

using namespace Qt::StringLiterals;

namespace {

class CloudDelegate : public M3TokenCloudDelegate
{
public:
    void tokenCloudDidClickToken(M3TokenCloud *, const QString &token, bool enabled) override
    {
        clicks.append(token + QLatin1String(enabled ? " on" : " off"));
    }
    void tokenCloudDidChangePreferredHeight(M3TokenCloud *, double height) override
    {
        heights.append(height);
    }

    QStringList clicks;
    QList<double> heights;
};

class M3TokenCloudTest : public ServicesTest
{
protected:
    M3TokenCloudTest() { m_cloud.setDelegate(&m_delegate); }

    void setTokens(const QStringList &tokens) { m_cloud.setTokens(platform::TextSet(tokens)); }
    QRect place(const QString &token) const { return m_cloud.buttonForToken(token)->geometry(); }

    CloudDelegate m_delegate;
    M3TokenCloud m_cloud;
};

/** Rows one after the other: each takes buttons until one has to go to the next. */
QList<QStringList> rowsByRule(QStringList left, const QHash<QString, int> &widths, int room)
{
    QList<QStringList> rows;
    while (!left.isEmpty()) {
        QStringList row;
        int used = 0;
        while (!left.isEmpty() && used < room) {
            const int taken = widths.value(left.first()) + 4;
            used += taken;
            if (used > room && taken < room)
                break;
            row.append(left.takeFirst());
        }
        rows.append(row);
    }
    return rows;
}

/** Runs no drag, which would need a display and somebody at it. */
class DraggedButton : public M3TokenButton
{
public:
    using M3TokenButton::M3TokenButton;
    int drags = 0;

protected:
    void startDrag() override { ++drags; }
};

} // namespace

TEST_F(M3TokenCloudTest, LaysOutRandomTokensByTheRule)
{
    std::mt19937 random(20);
    const auto upTo = [&random](int limit) { return int(random() % unsigned(limit)); };
    for (int round = 0; round < 150; ++round) {
        platform::TextSet tokens;
        for (int i = upTo(30); i > 0; --i)
            tokens.insert(QString(1 + upTo(round % 3 ? 6 : 40), QChar(u'a' + upTo(26))));
        const int width = 30 + upTo(500);
        SCOPED_TRACE(round);
        m_cloud.resize(width, 100);
        m_cloud.setTokens(tokens);
        m_cloud.recalculateButtonLocations();

        QStringList sorted = tokens.values();
        std::sort(sorted.begin(), sorted.end());
        QHash<QString, int> widths;
        for (const QString &token : sorted)
            widths.insert(token, m_cloud.buttonForToken(token)->fontMetrics().horizontalAdvance(token) + 20);
        const QList<QStringList> rows = rowsByRule(sorted, widths, width);
        for (int row = 0; row < rows.size(); ++row) {
            int x = 0;
            for (const QString &token : rows.at(row)) {
                ASSERT_EQ(place(token), QRect(x, row * 24, widths.value(token), 20)) << token.toStdString();
                x += widths.value(token) + (rows.size() > 1 ? 5 : 4);
            }
        }
        if (round > 0) {
            ASSERT_EQ(m_cloud.preferredHeight(), double(rows.size() * 24));
        }
    }
}

TEST_F(M3TokenCloudTest, SortsWhateverTheCase)
{
    m_cloud.resize(1000, 24);
    setTokens({u"Zebra"_s, u"apple"_s, u"Banana"_s, u""_s});
    m_cloud.recalculateButtonLocations();
    EXPECT_LT(place(u"apple"_s).x(), place(u"Banana"_s).x());
    EXPECT_LT(place(u"Banana"_s).x(), place(u"Zebra"_s).x());
    EXPECT_EQ(m_cloud.buttonForToken(QString()), nullptr);
}

TEST_F(M3TokenCloudTest, ReportsItsHeightFromTheSecondLayoutOn)
{
    m_cloud.resize(300, 24);
    m_cloud.recalculateButtonLocations();
    EXPECT_EQ(m_cloud.preferredHeight(), -1.0);
    m_cloud.recalculateButtonLocations();
    EXPECT_TRUE(m_cloud.addTokenWithString(u"one"_s));
    EXPECT_FALSE(m_cloud.addTokenWithString(u"one"_s));
    EXPECT_FALSE(m_cloud.addTokenWithString(QString()));
    m_cloud.addTokenWithString(u"two"_s);
    m_cloud.removeTokenWithString(u"one"_s);
    m_cloud.removeTokenWithString(u"two"_s);
    m_cloud.removeTokenWithString(u"two"_s);
    EXPECT_EQ(m_delegate.heights, QList<double>({0, 24, 0}));
}

TEST_F(M3TokenCloudTest, TokenThatComesBackStartsOff)
{
    m_cloud.resize(300, 24);
    setTokens({u"stays"_s, u"goes"_s});
    m_cloud.setSelectedTokenNames({u"stays"_s, u"goes"_s});
    setTokens({u"stays"_s});
    setTokens({u"stays"_s, u"goes"_s});
    m_cloud.grab();
    EXPECT_TRUE(m_cloud.buttonForToken(u"stays"_s)->isChecked());
    EXPECT_FALSE(m_cloud.buttonForToken(u"goes"_s)->isChecked());
    EXPECT_TRUE(m_cloud.selectedTokenNames().contains(u"goes"_s));

    // A click tells the delegate after the set has changed.
    QTest::mouseClick(m_cloud.buttonForToken(u"stays"_s), Qt::LeftButton);
    EXPECT_EQ(m_cloud.selectedTokenNames(), platform::TextSet({u"goes"_s}));
    QTest::mouseClick(m_cloud.buttonForToken(u"goes"_s), Qt::LeftButton);
    EXPECT_EQ(m_delegate.clicks, QStringList({u"stays off"_s, u"goes on"_s}));
}

TEST_F(M3TokenCloudTest, TogglesOnReleaseAndNotByDrag)
{
    DraggedButton button(u"token"_s);
    button.resize(button.sizeHint());
    button.show();
    const QPoint inside(5, 5);
    QTest::mousePress(&button, Qt::LeftButton, {}, inside);
    EXPECT_FALSE(button.isChecked());
    QTest::mouseRelease(&button, Qt::LeftButton, {}, inside);
    EXPECT_TRUE(button.isChecked());

    QTest::mousePress(&button, Qt::LeftButton, {}, inside);
    QTest::mouseMove(&button, inside + QPoint(1, 0));
    EXPECT_EQ(button.drags, 0) << "a hand that trembles";
    QTest::mouseMove(&button, inside + QPoint(QApplication::startDragDistance() + 1, 0));
    QTest::mouseRelease(&button, Qt::LeftButton, {}, inside);
    EXPECT_EQ(button.drags, 1);

    QTest::mouseClick(&button, Qt::RightButton, {}, inside);
    QTest::mousePress(&button, Qt::LeftButton, {}, inside);
    QTest::mouseRelease(&button, Qt::LeftButton, {}, QPoint(-5, 5));
    EXPECT_TRUE(button.isChecked());
}
