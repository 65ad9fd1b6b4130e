#include "controls/DropPanel.h"

#include "common/RunTimeError.h"

#include <QApplication>
#include <QLabel>
#include <QMouseEvent>
#include <QTest>
#include <QTimer>
#include <gtest/gtest.h>

#include <string>

using zrt::DropPanel;
using zrt::RGB;

namespace {

struct PanelFixture : ::testing::Test {
    QWidget container;
    DropPanel *panel = new DropPanel(&container);
    std::string events;
    QPoint cursor{-100, -100};

    void SetUp() override
    {
        container.resize(300, 200);
        panel->setGeometry(10, 10, 150, 90);
        panel->setExpandedHeight(1350);
        panel->setCursorSource([this] { return cursor; });
        QObject::connect(panel, &DropPanel::OnExpand, [this] {
            events += "E" + std::to_string(panel->height());
        });
        QObject::connect(panel, &DropPanel::OnCollapse, [this] {
            events += "C" + std::to_string(panel->height());
        });
        container.show();
    }
    void MoveOver(QWidget *target, QPoint at)
    {
        QMouseEvent move(QEvent::MouseMove, at, target->mapToGlobal(at), Qt::NoButton,
                         Qt::NoButton, Qt::NoModifier);
        QApplication::sendEvent(target, &move);
    }
    QRgb Pixel(int x, int y) { return panel->grab().toImage().pixel(x, y) & 0xFFFFFFu; }
    static QRgb Ole(zrt::OleColor c) { return zrt::TranslateColor(c).rgb() & 0xFFFFFFu; }
};

} // namespace

TEST_F(PanelFixture, OpensCollapsedToItsTitleWhenShown)
{
    EXPECT_TRUE(panel->Collapsed());
    EXPECT_FALSE(panel->Expanded());
    EXPECT_EQ(panel->CollapsedHeight(), 20); // 300 twips
    EXPECT_EQ(panel->height(), 20);
    EXPECT_TRUE(events.empty());
}

TEST_F(PanelFixture, ExpandAndCollapseRaiseTheirEventsOnlyOnAChange)
{
    panel->Expand();
    panel->Expand();
    EXPECT_EQ(panel->height(), 90); // 1350 twips
    panel->Collapse();
    panel->Collapse();
    EXPECT_EQ(panel->height(), 20);
    // OnExpand comes before the panel grows, OnCollapse after it has folded.
    EXPECT_EQ(events, "E20C20");
}

TEST_F(PanelFixture, DesignModeNeitherFoldsNorForgetsItsHeight)
{
    panel->Expand();
    panel->setUserMode(false);
    panel->Collapse();
    EXPECT_TRUE(panel->Expanded());
    panel->resize(150, 70);
    EXPECT_EQ(panel->ExpandedHeight(), 70 * 15);
    MoveOver(panel, {5, 5});
    EXPECT_FALSE(panel->TimerEnabled());
}

TEST_F(PanelFixture, HoverOpensAndTheTimerClosesOnceThePointerHasLeft)
{
    MoveOver(panel, {5, 5});
    EXPECT_TRUE(panel->Expanded());
    EXPECT_TRUE(panel->TimerEnabled());

    cursor = panel->mapToGlobal(QPoint(20, 60)); // over the open body
    panel->Timer1_Timer();
    EXPECT_TRUE(panel->Expanded());
    EXPECT_TRUE(panel->TimerEnabled());

    cursor = panel->mapToGlobal(QPoint(20, 95)); // just below it
    panel->Timer1_Timer();
    EXPECT_TRUE(panel->Collapsed());
    EXPECT_FALSE(panel->TimerEnabled());
    EXPECT_EQ(events, "E20C20");
}

TEST_F(PanelFixture, TheTitleLabelPassesThePointerToThePanel)
{
    QWidget *under = container.childAt(panel->pos() + QPoint(40, 10));
    ASSERT_NE(under, nullptr);
    EXPECT_EQ(under, panel); // the label is transparent for the mouse
    EXPECT_TRUE(panel->LblTitle()->testAttribute(Qt::WA_TransparentForMouseEvents));
}

TEST_F(PanelFixture, OpenOnThreeNeverStartsTheTimerAndStaysAsItWas)
{
    panel->setOpenOn(3);
    MoveOver(panel, {5, 5});
    EXPECT_FALSE(panel->TimerEnabled());
    EXPECT_TRUE(panel->Collapsed());
    panel->Expand();
    MoveOver(panel, {5, 50});
    EXPECT_FALSE(panel->TimerEnabled());
    EXPECT_TRUE(panel->Expanded());
}

TEST_F(PanelFixture, HoverTimeSetsTheCloseInterval)
{
    panel->setHoverTime(350);
    MoveOver(panel, {5, 5});
    EXPECT_TRUE(panel->TimerEnabled());
    EXPECT_EQ(panel->findChild<QTimer *>()->interval(), 350);
    panel->setHoverTime(-1);
    EXPECT_EQ(panel->findChild<QTimer *>()->interval(), DropPanel::DefaultCloseInterval);
}

TEST_F(PanelFixture, TitleAlignPadsTheTextAndRejectsABadValue)
{
    panel->setTitle("1/100 th");
    EXPECT_EQ(panel->LblTitle()->text(), " 1/100 th");
    panel->setTitleAlign(1);
    EXPECT_EQ(panel->LblTitle()->text(), "1/100 th ");
    EXPECT_TRUE(panel->LblTitle()->alignment() & Qt::AlignRight);
    panel->setTitleAlign(2);
    EXPECT_EQ(panel->LblTitle()->text(), "1/100 th");
    EXPECT_TRUE(panel->LblTitle()->alignment() & Qt::AlignHCenter);

    for (int bad : {-1, 3}) {
        try {
            panel->setTitleAlign(bad);
            ADD_FAILURE() << "no error for " << bad;
        } catch (const zrt::RunTimeError &e) {
            EXPECT_EQ(e.number(), 380);
        }
    }
    EXPECT_EQ(panel->TitleAlign(), 2);
}

TEST_F(PanelFixture, TitleFontFollowsItsProperties)
{
    panel->setTitleFontsize(9.75f);
    panel->setTitleFontBold(true);
    panel->setTitleFontUnderline(true);
    const QFont font = panel->LblTitle()->font();
    EXPECT_DOUBLE_EQ(font.pointSizeF(), 9.75);
    EXPECT_TRUE(font.bold());
    EXPECT_TRUE(font.underline());
    EXPECT_FALSE(font.italic());
}

TEST_F(PanelFixture, DrawsTheTitleStripSolidOrAsAGradientWithItsBorder)
{
    panel->setTitleBackColor(RGB(255, 255, 255));
    panel->setTitleBorderColor(RGB(0, 0, 128));
    panel->setDDBackColor(RGB(10, 200, 10));
    panel->Expand();
    EXPECT_EQ(Pixel(0, 0), Ole(RGB(0, 0, 128)));
    EXPECT_EQ(Pixel(149, 19), Ole(RGB(0, 0, 128)));
    EXPECT_EQ(Pixel(2, 2), Ole(RGB(255, 255, 255)));
    EXPECT_EQ(Pixel(5, 50), Ole(RGB(10, 200, 10)));

    panel->setTitleBorder(0);
    panel->setTitleGradient(1);
    panel->setTitleBackColor(RGB(255, 0, 0));
    panel->setTitleEndColor(RGB(0, 0, 255));
    const QColor left = QColor::fromRgb(Pixel(0, 2));
    const QColor right = QColor::fromRgb(Pixel(149, 2));
    EXPECT_GT(left.red(), 240);
    EXPECT_LT(left.blue(), 15);
    EXPECT_GT(right.blue(), 240);
    EXPECT_LT(right.red(), 15);
}

TEST_F(PanelFixture, ChildInTheBodySitsUnderTheTitleAndSetsTheOpenHeight)
{
    auto *list = new QWidget;
    list->resize(40, 60);
    panel->PlaceInBody(list);
    EXPECT_EQ(list->parentWidget(), panel);
    EXPECT_EQ(list->geometry(), QRect(0, 20, 150, 60));
    EXPECT_EQ(panel->ExpandedHeight(), 80 * 15);
    EXPECT_TRUE(panel->Collapsed());
    panel->Expand();
    EXPECT_EQ(panel->height(), 80);
}

TEST_F(PanelFixture, PropertiesRoundTripUnderTheirKeys)
{
    panel->setTitle("4");
    panel->setDDAppearance(1);
    panel->setTitleAlign(2);
    panel->setTitleFontsize(9.75f);
    const QVariantMap bag = panel->WriteProperties();
    EXPECT_TRUE(bag.contains("Appearance"));
    EXPECT_FALSE(bag.contains("DDAppearance"));
    EXPECT_FALSE(bag.contains("OpenOn"));
    DropPanel other;
    other.ReadProperties(bag);
    EXPECT_EQ(other.Title(), "4");
    EXPECT_EQ(other.DDAppearance(), 1);
    EXPECT_EQ(other.TitleAlign(), 2);
    EXPECT_EQ(other.ExpandedHeight(), 1350);
    EXPECT_FLOAT_EQ(other.TitleFontsize(), 9.75f);
}

TEST_F(PanelFixture, AFocusedListInTheFoldedBodyMarksTheTitle)
{
    auto *list = new QWidget;
    list->setFocusPolicy(Qt::StrongFocus);
    list->resize(150, 60);
    panel->PlaceInBody(list);
    panel->Collapse();
    auto *other = new QWidget(&container);
    other->setFocusPolicy(Qt::StrongFocus);
    other->setGeometry(200, 10, 40, 20);
    other->show();
    container.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&container));
    other->setFocus(Qt::TabFocusReason);
    const QImage plain = panel->grab().toImage();

    // Tab into the hidden list: the title, which shows the list's value, carries a dotted frame.
    list->setFocus(Qt::TabFocusReason);
    ASSERT_TRUE(list->hasFocus());
    EXPECT_TRUE(panel->BodyHasFocus());
    EXPECT_TRUE(panel->Collapsed()) << "the keys work the list as a closed drop-down";
    const QImage marked = panel->grab().toImage();
    int changed = 0;
    for (int y = 0; y < marked.height(); ++y)
        for (int x = 0; x < marked.width(); ++x)
            if (marked.pixel(x, y) != plain.pixel(x, y)) {
                ++changed;
                EXPECT_LT(y, panel->CollapsedHeight()) << "the mark lies in the title strip";
            }
    EXPECT_GT(changed, 40);

    other->setFocus(Qt::TabFocusReason);
    EXPECT_FALSE(panel->BodyHasFocus());
    EXPECT_EQ(panel->grab().toImage(), plain);
}
