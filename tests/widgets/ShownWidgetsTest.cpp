#include "support/GuiTest.h"
#include "widgets/ArrowPopup.h"
#include "widgets/M3TokenButton.h"
#include "widgets/M3TokenCloud.h"
#include "widgets/TokenField.h"

#include <QScrollArea>
#include <QVBoxLayout>
#include <QtTest>

namespace {

class ShownWidgets : public ServicesTest
{
};

} // namespace

TEST_F(ShownWidgets, tokenFieldShowsAllItsRowsFromTheStart)
{
    QWidget window;
    auto *column = new QVBoxLayout(&window);
    auto *field = new TokenField;
    column->addWidget(field);
    column->addStretch();
    const int oneRow = field->height();
    field->setTokens({QStringLiteral("verbs"), QStringLiteral("animals"), QStringLiteral("irregular verbs"),
                      QStringLiteral("at the market")});
    window.resize(320, 300);
    window.show();
    processEvents();
    EXPECT_GT(field->height(), oneRow);
    EXPECT_EQ(field->findChild<QScrollArea *>()->height(), field->height());
}

TEST_F(ShownWidgets, tagCloudIsWalkedByArrowsAndHasNoAccessKeys)
{
    QWidget window;
    auto *cloud = new M3TokenCloud(&window);
    cloud->resize(60, 100);
    cloud->setTokens({QStringLiteral("R&B"), QStringLiteral("aaaa"), QStringLiteral("zzzz")});
    window.show();
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    cloud->recalculateButtonLocations();
    EXPECT_TRUE(cloud->buttonForToken(QStringLiteral("R&B"))->shortcut().isEmpty());

    M3TokenButton *first = cloud->buttonForToken(QStringLiteral("aaaa"));
    first->setFocus();
    QTest::keyClick(first, Qt::Key_Down);
    M3TokenButton *next = cloud->buttonForToken(QStringLiteral("R&B"));
    ASSERT_EQ(window.focusWidget(), next);
    EXPECT_TRUE(cloud->selectedTokenNames().isEmpty());
    QTest::keyClick(next, Qt::Key_Space);
    EXPECT_EQ(cloud->selectedTokenNames().values(), QStringList(QStringLiteral("R&B")));
}

TEST_F(ShownWidgets, popupStandsBesideItsPlaceInsideTheScreenAndGoesWithItsWindow)
{
    QWidget window;
    window.setGeometry(40, 40, 300, 300);
    window.show();
    ArrowPopup popup(&window);
    auto *content = new QWidget;
    content->setMinimumSize(200, 120);
    popup.setContent(content);
    const QRect screen = window.screen()->availableGeometry();
    for (const QRect &place : {QRect(20, 50, 100, 24), QRect(0, 0, 10, 10), QRect(200, 290, 90, 24),
                               QRect(-40, 100, screen.width(), 24)}) {
        popup.showBeside(&window, place);
        const QRect anchor(window.mapToGlobal(place.topLeft()), place.size());
        EXPECT_TRUE(screen.contains(popup.geometry()));
        EXPECT_FALSE(popup.geometry().intersects(anchor));
        // Only body and arrow are part of the window, and the arrow reaches the place.
        EXPECT_TRUE(popup.mask().contains(popup.rect().center()));
        EXPECT_FALSE(popup.mask().contains(QPoint(0, 0)));
        EXPECT_FALSE(popup.mask().contains(popup.rect().bottomRight()));
        EXPECT_TRUE(popup.geometry().adjusted(-3, -3, 3, 3).intersects(anchor));
    }
    window.hide();
    EXPECT_FALSE(popup.isVisible());
}
