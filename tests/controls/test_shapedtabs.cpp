#include "controls/ShapedTabs.h"

#include "ScaledScreen.h"

#include <QTest>
#include <gtest/gtest.h>

#include <array>
#include <memory>
#include <vector>

using zrt::RGB;
using zrt::ShapedTabs;

namespace {

struct TabsFixture : ::testing::Test {
    QWidget container;
    ShapedTabs *tabs = new ShapedTabs(&container);
    std::vector<int> clicks;

    void SetUp() override
    {
        container.resize(400, 150);
        tabs->setGeometry(0, 0, 360, 120);
        container.show(); // a hidden widget gets its resize only when shown
        QObject::connect(tabs, &ShapedTabs::Click, [this](int &index) { clicks.push_back(index); });
    }
    int LastRight() const
    {
        const int last = tabs->NumberOfTabs() - 1;
        return tabs->TabLeft(last) + tabs->TabWidth(last);
    }
    QPoint TabCentre(int i) const { return {tabs->TabLeft(i) + tabs->TabWidth(i) / 2, 12}; }
    QRgb Pixel(int x, int y) const { return tabs->TabStrip().pixel(x, y) & 0xFFFFFFu; }
    static QRgb Ole(zrt::OleColor c) { return zrt::TranslateColor(c).rgb() & 0xFFFFFFu; }
};

} // namespace

TEST_F(TabsFixture, CaptionKeepsTenFieldsAndReadsEachOne)
{
    EXPECT_EQ(tabs->TabCaption(0), "Tab0");
    EXPECT_EQ(tabs->TabCaption(9), "Tab9");
    tabs->setCaption("Scatter Graph|Spearman's Rank|Boxplots|Tab3|Tab4|Tab5|Tab6|Tab7|Tab8|Tab9|");
    tabs->setNumberOfTabs(3);
    EXPECT_EQ(tabs->TabCaption(1), "Spearman's Rank");
    EXPECT_EQ(tabs->TabCaption(2), "Boxplots");
    EXPECT_EQ(tabs->TabCaption(10), "");
    EXPECT_EQ(tabs->TabCaption(-1), "");

    // The unused fields survive the property bag.
    const QVariantMap bag = tabs->WriteProperties();
    ShapedTabs other;
    other.ReadProperties(bag);
    EXPECT_EQ(other.Caption(), tabs->Caption());
    EXPECT_EQ(other.TabCaption(5), "Tab5");
    EXPECT_EQ(other.NumberOfTabs(), 3);
    // Defaults are not written.
    EXPECT_FALSE(bag.contains("FirstTabLeft"));
    EXPECT_FALSE(ShapedTabs().WriteProperties().contains("Caption"));
}

TEST_F(TabsFixture, TabsFollowEachOtherFromTheFirstLeft)
{
    EXPECT_EQ(tabs->TabLeft(0), 2);
    for (int i = 1; i < 4; ++i)
        EXPECT_EQ(tabs->TabLeft(i), tabs->TabLeft(i - 1) + tabs->TabWidth(i - 1));
    tabs->setCaption("A|A much longer caption|B|C|");
    EXPECT_GT(tabs->TabWidth(1), tabs->TabWidth(0));
    tabs->setFirstTabLeft(10);
    EXPECT_EQ(tabs->TabLeft(0), 10);
}

TEST_F(TabsFixture, SilhouetteCutsCornersAndTheStripRightOfTheLastTab)
{
    const QRegion mask = tabs->mask();
    ASSERT_FALSE(mask.isEmpty());
    const int w = tabs->width();
    const int h = tabs->height();
    const int right = LastRight();
    ASSERT_LT(right + 3, w);

    // Stepped bottom corners.
    EXPECT_FALSE(mask.contains(QPoint(0, h - 1)));
    EXPECT_FALSE(mask.contains(QPoint(0, h - 2)));
    EXPECT_FALSE(mask.contains(QPoint(1, h - 1)));
    EXPECT_TRUE(mask.contains(QPoint(1, h - 2)));
    EXPECT_FALSE(mask.contains(QPoint(w - 1, h - 1)));
    EXPECT_TRUE(mask.contains(QPoint(2, h - 1)));

    // Right of the last tab, above the body.
    EXPECT_FALSE(mask.contains(QPoint(right + 3, 4)));
    EXPECT_FALSE(mask.contains(QPoint(w - 1, 18)));
    EXPECT_TRUE(mask.contains(QPoint(w - 1, 19)));
    EXPECT_FALSE(mask.contains(QPoint(right + 1, 4)));
    EXPECT_FALSE(mask.contains(QPoint(right + 2, 4)));
    EXPECT_FALSE(mask.contains(QPoint(right + 2, 5)));
    EXPECT_TRUE(mask.contains(QPoint(right + 1, 5)));
    EXPECT_TRUE(mask.contains(QPoint(right + 2, 6)));

    // Left of the first tab.
    EXPECT_FALSE(mask.contains(QPoint(0, 4)));
    EXPECT_FALSE(mask.contains(QPoint(4, 18)));
    EXPECT_FALSE(mask.contains(QPoint(5, 4)));
    EXPECT_FALSE(mask.contains(QPoint(6, 4)));
    EXPECT_TRUE(mask.contains(QPoint(7, 4)));
    EXPECT_TRUE(mask.contains(QPoint(5, 10)));
}

TEST_F(TabsFixture, OnlyTheActiveTabRisesToRowThree)
{
    const int activeMid = TabCentre(0).x();
    const int otherMid = TabCentre(1).x();
    EXPECT_TRUE(tabs->mask().contains(QPoint(activeMid, 3)));
    EXPECT_FALSE(tabs->mask().contains(QPoint(otherMid, 3)));
    EXPECT_FALSE(tabs->mask().contains(QPoint(activeMid, 2)));

    tabs->setActiveTab(1);
    EXPECT_FALSE(tabs->mask().contains(QPoint(activeMid, 3)));
    EXPECT_TRUE(tabs->mask().contains(QPoint(otherMid, 3)));
}

TEST_F(TabsFixture, PaintsTheActiveTabWithItsHighlightRowsAndTheOthersDisabled)
{
    tabs->setDisabledTabColor(RGB(224, 224, 224));
    tabs->setBorderDarkColor(RGB(64, 64, 0));
    const int x0 = TabCentre(0).x();
    const int x2 = TabCentre(2).x();
    EXPECT_EQ(Pixel(x0, 3), Ole(tabs->HighlightColor1()));
    EXPECT_EQ(Pixel(x0, 4), Ole(tabs->HighlightColor2()));
    EXPECT_EQ(Pixel(x0, 5), Ole(tabs->HighlightColor3()));
    EXPECT_EQ(Pixel(x0, 6), Ole(tabs->HighlightColor4()));
    EXPECT_EQ(Pixel(x2, 4), Ole(RGB(64, 64, 0)));        // top edge of an inactive tab
    EXPECT_EQ(Pixel(tabs->TabLeft(2) + 5, 16), Ole(RGB(224, 224, 224)));
    // The active tab opens into the body; an inactive one stands on the body's top line.
    EXPECT_EQ(Pixel(tabs->TabLeft(0) + 5, 19), Ole(tabs->TabBodyColor()));
    EXPECT_EQ(Pixel(tabs->TabLeft(2) + 5, 19), Ole(RGB(64, 64, 0)));
    EXPECT_EQ(Pixel(tabs->width() / 2, 60), Ole(tabs->TabBodyColor()));

    tabs->setActiveTab(2);
    EXPECT_EQ(Pixel(x2, 3), Ole(tabs->HighlightColor1()));
    EXPECT_EQ(Pixel(tabs->TabLeft(0) + 5, 16), Ole(RGB(224, 224, 224)));
}

TEST_F(TabsFixture, ClickInATabRaisesItsIndexButNotOnTheActiveTab)
{
    for (int i : {2, 1, 3, 0})
        QTest::mouseClick(tabs, Qt::LeftButton, {}, TabCentre(i));
    QTest::mouseClick(tabs, Qt::LeftButton, {}, TabCentre(0)); // already active
    EXPECT_EQ(clicks, (std::vector<int>{2, 1, 3, 0}));
    EXPECT_EQ(tabs->ActiveTab(), 0);

    // The first pixel of a tab belongs to it; below the strip nothing is hit.
    QTest::mouseClick(tabs, Qt::LeftButton, {}, QPoint(tabs->TabLeft(1), 10));
    QTest::mouseClick(tabs, Qt::LeftButton, {}, QPoint(TabCentre(2).x(), 40));
    EXPECT_EQ(clicks, (std::vector<int>{2, 1, 3, 0, 1}));
}

TEST_F(TabsFixture, SingleTabNeverRaisesClick)
{
    tabs->setNumberOfTabs(1);
    QTest::mouseClick(tabs, Qt::LeftButton, {}, TabCentre(0));
    QTest::mouseClick(tabs, Qt::LeftButton, {}, QPoint(LastRight() + 20, 10));
    EXPECT_TRUE(clicks.empty());
    EXPECT_FALSE(tabs->mask().contains(QPoint(LastRight() + 20, 10)));
}

TEST_F(TabsFixture, ClickInTheCutOffAreaReachesTheContainer)
{
    const QPoint cutOff(LastRight() + 10, 10);
    EXPECT_EQ(container.childAt(cutOff), nullptr);
    EXPECT_EQ(container.childAt(TabCentre(1)), tabs);
}

TEST_F(TabsFixture, InvalidTabCountDrawsNothingAndIgnoresClicks)
{
    for (int count : {0, 11}) {
        tabs->setNumberOfTabs(count);
        EXPECT_TRUE(tabs->Silhouette().isEmpty());
        QTest::mouseClick(tabs, Qt::LeftButton, {}, TabCentre(1));
        EXPECT_EQ(Pixel(TabCentre(1).x(), 12), Ole(tabs->ControlBackcolor()));
    }
    EXPECT_TRUE(clicks.empty());
}

TEST_F(TabsFixture, SettingTheActiveTabFromCodeRaisesClickOnlyOnAChange)
{
    tabs->setActiveTab(0);
    tabs->setActiveTab(3);
    tabs->setActiveTab(3);
    EXPECT_EQ(clicks, (std::vector<int>{3}));
}

TEST_F(TabsFixture, TabReachesTheStripAndArrowKeysChooseATabUnderAFocusMark)
{
    EXPECT_TRUE(tabs->focusPolicy() & Qt::TabFocus);
    EXPECT_FALSE(tabs->focusPolicy() & Qt::ClickFocus) << "a press only chooses a tab";
    container.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&container));
    tabs->clearFocus(); // the window gave it the focus as its first stop
    const QImage unfocused = tabs->TabStrip().copy();
    tabs->setFocus(Qt::TabFocusReason);
    ASSERT_TRUE(tabs->hasFocus());
    // The dotted frame round the chosen tab's caption, in the caption's colour.
    const QImage focused = tabs->TabStrip().copy();
    int marked = 0;
    for (int y = 0; y < focused.height(); ++y)
        for (int x = 0; x < focused.width(); ++x)
            if (focused.pixel(x, y) != unfocused.pixel(x, y)) {
                ++marked;
                EXPECT_EQ(focused.pixel(x, y) & 0xFFFFFFu, Ole(tabs->ActiveTabTextColor()));
                EXPECT_LT(x, tabs->TabLeft(0) + tabs->TabWidth(0) + 4) << "the mark stays on the chosen tab";
            }
    EXPECT_GT(marked, 20);

    for (int key : {Qt::Key_Right, Qt::Key_Right, Qt::Key_Left, Qt::Key_End, Qt::Key_Right, Qt::Key_Home, Qt::Key_Left})
        QTest::keyClick(tabs, static_cast<Qt::Key>(key));
    EXPECT_EQ(clicks, (std::vector<int>{1, 2, 1, 3, 0})) << "past either end nothing changes";
    EXPECT_EQ(tabs->ActiveTab(), 0);

    tabs->clearFocus();
    EXPECT_EQ(tabs->TabStrip(), unfocused) << "the mark goes with the focus";
}

TEST(ShapedTabsHidden, AStripSetUpWhileHiddenIsDrawnWhenShown)
{
    // Set up in view and set up hidden (as the window's hidden pages are), alike once shown.
    std::vector<std::unique_ptr<QWidget>> containers;
    std::vector<ShapedTabs *> strips;
    for (bool hiddenWhileSetUp : {false, true}) {
        auto container = std::make_unique<QWidget>();
        container->resize(400, 150);
        auto *tabs = new ShapedTabs(container.get());
        tabs->setFocusPolicy(Qt::NoFocus); // a shown window would give the strip its focus mark
        tabs->setGeometry(0, 0, 360, 120);
        if (!hiddenWhileSetUp) {
            container->show();
            ASSERT_TRUE(QTest::qWaitForWindowExposed(container.get()));
        }
        tabs->setCaption("One|Two|Three");
        tabs->setNumberOfTabs(3);
        tabs->setTabBodyColor(RGB(200, 210, 220));
        tabs->setDisabledTabColor(RGB(90, 90, 90));
        tabs->setControlBackcolor(RGB(1, 2, 3));
        if (hiddenWhileSetUp) {
            EXPECT_TRUE(tabs->TabStrip().isNull() || tabs->TabStrip().size() != QSize(360, 120))
                << "not drawn while hidden";
            container->show();
            ASSERT_TRUE(QTest::qWaitForWindowExposed(container.get()));
        }
        strips.push_back(tabs);
        containers.push_back(std::move(container));
    }
    EXPECT_EQ(strips[1]->TabStrip(), strips[0]->TabStrip());
    EXPECT_EQ(strips[1]->mask(), strips[0]->mask());
}

// ---- on a screen scaled to 200 % -------------------------------------------------------------

namespace {

struct ShapedTabsHighDpi : ScaledScreenTest {
    QWidget container;
    ShapedTabs *tabs = new ShapedTabs(&container);

    void SetUp() override
    {
        ScaledScreenTest::SetUp();
        if (IsSkipped() || HasFatalFailure())
            return;
        container.resize(400, 150);
        tabs->setGeometry(0, 0, 360, 120);
        container.show();
    }
    QRgb Pixel(int x, int y) const { return tabs->TabStrip().pixel(x, y) & 0xFFFFFFu; }
    static QRgb Ole(zrt::OleColor c) { return zrt::TranslateColor(c).rgb() & 0xFFFFFFu; }
};

} // namespace

TEST_F(ShapedTabsHighDpi, EachHighlightRowIsTwoDeviceRowsInItsPlace)
{
    EXPECT_EQ(tabs->TabStrip().devicePixelRatio(), 2.0);
    EXPECT_EQ(tabs->TabStrip().size(), QSize(720, 240));
    const int x = 2 * (tabs->TabLeft(0) + tabs->TabWidth(0) / 2);
    const std::array<zrt::OleColor, 4> rows{tabs->HighlightColor1(), tabs->HighlightColor2(),
                                            tabs->HighlightColor3(), tabs->HighlightColor4()};
    for (int row = 0; row < 4; ++row) {
        EXPECT_EQ(Pixel(x, 2 * (3 + row)), Ole(rows[row])) << "logical row " << 3 + row;
        EXPECT_EQ(Pixel(x, 2 * (3 + row) + 1), Ole(rows[row])) << "logical row " << 3 + row;
    }
    // The inactive tab's top edge, one logical row, is two device rows.
    const int x2 = 2 * (tabs->TabLeft(2) + tabs->TabWidth(2) / 2);
    EXPECT_EQ(Pixel(x2, 8), Ole(tabs->BorderDarkColor()));
    EXPECT_EQ(Pixel(x2, 9), Ole(tabs->BorderDarkColor()));
    EXPECT_NE(Pixel(x2, 7), Ole(tabs->BorderDarkColor()));
    EXPECT_NE(Pixel(x2, 10), Ole(tabs->BorderDarkColor()));
}
