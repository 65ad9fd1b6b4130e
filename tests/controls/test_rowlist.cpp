#include "common/RunTimeError.h"
#include "controls/RowList.h"

#include "ScaledScreen.h"

#include <QLineEdit>
#include <QRandomGenerator>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>

using namespace zrt;

namespace {

constexpr int RowH = 16;
constexpr int Rows = 5; // whole rows on the surface

int errorOf(const std::function<void()> &f)
{
    try {
        f();
    } catch (const RunTimeError &e) {
        return e.number();
    }
    return 0;
}

QStringList textsOf(const RowList &list)
{
    QStringList texts;
    for (int i = 0; i < list.ListCount(); ++i)
        texts << list.ItemText(i);
    return texts;
}

class RowListTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        QFont plain = list.font();
        plain.setStyleStrategy(QFont::NoAntialias);
        list.setFont(plain);
        list.setItemHeightAuto(false);
        list.setItemHeight(RowH);
        list.resize(120, RowH * Rows);
    }

    void fill(int count)
    {
        for (int i = 0; i < count; ++i)
            list.AddItem(QString::number(i));
    }

    // The centre of a visible row, in surface coordinates.
    static QPoint rowPoint(int visibleRow) { return {20, visibleRow * RowH + RowH / 2}; }

    QRgb pixel(int x, int y) const { return list.SurfaceImage().pixel(x, y) & 0xFFFFFF; }

    RowList list;
};

} // namespace

// ---- indices and error 381 -------------------------------------------------------------------

TEST_F(RowListTest, IndexErrorsRaise381)
{
    EXPECT_EQ(errorOf([&] { list.setListIndex(-1); }), 0) << "-1 is allowed on an empty list";
    EXPECT_EQ(errorOf([&] { list.setListIndex(0); }), 381);
    EXPECT_EQ(errorOf([&] { list.InsertItem(0, "x"); }), 381) << "an empty list takes no insertion";
    EXPECT_EQ(errorOf([&] { list.FindFirst("x"); }), 381);
    EXPECT_EQ(errorOf([&] { list.RemoveItem(0); }), 381);

    fill(3);
    EXPECT_EQ(errorOf([&] { list.setListIndex(3); }), 381);
    EXPECT_EQ(errorOf([&] { list.setListIndex(-2); }), 381);
    EXPECT_EQ(errorOf([&] { list.ItemText(3); }), 381);
    EXPECT_EQ(errorOf([&] { list.ItemText(-1); }), 381);
    EXPECT_EQ(errorOf([&] { list.setItemSelected(5, true); }), 381);
    EXPECT_EQ(errorOf([&] { list.ItemIcon(3); }), 381);
    EXPECT_EQ(errorOf([&] { list.ModifyItem(3, QString("y")); }), 381);
    EXPECT_EQ(errorOf([&] { list.RemoveItem(3); }), 381);
    EXPECT_EQ(errorOf([&] { list.InsertItem(4, "x"); }), 381) << "one past ListCount";
    EXPECT_EQ(list.ListCount(), 3);
}

TEST_F(RowListTest, InsertAtListCountAppendsAndShiftsTheCurrentItem)
{
    fill(3);
    list.InsertItem(3, "end");
    EXPECT_EQ(textsOf(list), QStringList({"0", "1", "2", "end"}));

    list.setListIndex(1);
    QSignalSpy changes(&list, &RowList::ListIndexChange);
    list.InsertItem(0, "first", 2, 3);
    EXPECT_EQ(list.ListIndex(), 2) << "the current item keeps being current";
    EXPECT_EQ(list.ItemText(2), "1");
    EXPECT_TRUE(list.ItemSelected(2));
    EXPECT_FALSE(list.ItemSelected(0)) << "a new item comes unselected";
    EXPECT_EQ(list.ItemIcon(0), 2);
    EXPECT_EQ(list.ItemIconSelected(0), 3);
    EXPECT_EQ(list.SelectedCount(), 1);
    EXPECT_EQ(changes.count(), 1);
}

TEST_F(RowListTest, InsertionAboveTheCurrentItemDoesNotScroll)
{
    fill(20);
    list.setListIndex(19); // scrolled to the bottom
    ASSERT_EQ(list.TopIndex(), 15);
    list.InsertItem(0, "new");
    EXPECT_EQ(list.ListIndex(), 20);
    EXPECT_EQ(list.TopIndex(), 15) << "the current item may leave the view; the view stays";
    list.setListIndex(18);
    list.setListIndex(20);
    EXPECT_EQ(list.TopIndex(), 16) << "the next change moves the view again";
}

TEST_F(RowListTest, RemoveItemKeepsIndexAndFlagsInStep)
{
    fill(5);
    list.setListIndex(3);
    list.RemoveItem(1);
    EXPECT_EQ(textsOf(list), QStringList({"0", "2", "3", "4"}));
    EXPECT_EQ(list.ListIndex(), 2) << "the current item moves up with its number";
    EXPECT_TRUE(list.ItemSelected(2));

    list.RemoveItem(2); // the current one
    EXPECT_EQ(list.ListIndex(), -1);
    EXPECT_EQ(list.SelectedCount(), 0);
    EXPECT_EQ(textsOf(list), QStringList({"0", "2", "4"}));

    list.setListIndex(2);
    list.RemoveItem(0);
    list.RemoveItem(0);
    list.RemoveItem(0);
    EXPECT_EQ(list.ListCount(), 0);
    EXPECT_EQ(list.ListIndex(), -1);
    EXPECT_EQ(list.SelectedCount(), 0);
}

TEST_F(RowListTest, ModifyItemChangesOnlyWhatIsGiven)
{
    list.AddItem("old", 1, 2);
    list.ModifyItem(0);
    EXPECT_EQ(list.ItemText(0), "old");
    EXPECT_EQ(list.ItemIcon(0), 1);
    EXPECT_EQ(list.ItemIconSelected(0), 2);
    list.ModifyItem(0, QString("new"), -1, 5);
    EXPECT_EQ(list.ItemText(0), "new");
    EXPECT_EQ(list.ItemIcon(0), 1);
    EXPECT_EQ(list.ItemIconSelected(0), 5);
    list.ModifyItem(0, QString(), 4);
    EXPECT_EQ(list.ItemText(0), "") << "an empty text is a text";
    EXPECT_EQ(list.ItemIcon(0), 4);
}

TEST_F(RowListTest, ClearEmptiesEverything)
{
    fill(12);
    list.setListIndex(11);
    list.Clear();
    EXPECT_EQ(list.ListCount(), 0);
    EXPECT_EQ(list.ListIndex(), -1);
    EXPECT_EQ(list.SelectedCount(), 0);
    EXPECT_TRUE(list.Bar()->isHidden());
    EXPECT_EQ(list.TopIndex(), 0);
    list.AddItem("again");
    EXPECT_EQ(list.ListCount(), 1);
}

// ---- Order and FindFirst ----------------------------------------------------------------------

TEST_F(RowListTest, OrderIsAStringOrder)
{
    list.AddItem("2");
    list.AddItem("10");
    list.Order();
    EXPECT_EQ(textsOf(list), QStringList({"10", "2"}));

    list.Clear();
    for (const char *t : {"b", "a", "B", "c", "a"})
        list.AddItem(t);
    list.setOrderType(1);
    list.Order();
    EXPECT_EQ(textsOf(list), QStringList({"c", "b", "a", "a", "B"})) << "descending by character code";
}

TEST_F(RowListTest, OrderMatchesAPlainSortOnManyTexts)
{
    QRandomGenerator random(7);
    QStringList texts;
    for (int i = 0; i < 300; ++i) {
        QString t;
        for (int n = random.bounded(1, 6); n > 0; --n)
            t += QChar(static_cast<char16_t>(random.bounded(0x30, 0x7B)));
        texts << t;
        list.AddItem(t);
    }
    list.Order();
    QStringList expected = texts;
    std::sort(expected.begin(), expected.end());
    EXPECT_EQ(textsOf(list), expected);

    list.setOrderType(1);
    list.Order();
    std::reverse(expected.begin(), expected.end());
    EXPECT_EQ(textsOf(list), expected);
}

TEST_F(RowListTest, OrderMovesWholeRecordsAndEqualTextsPassInDescendingOrder)
{
    list.AddItem("x", 0, 10);
    list.AddItem("x", 1, 11);
    list.AddItem("a", 2, 12);
    list.Order();
    EXPECT_EQ(textsOf(list), QStringList({"a", "x", "x"}));
    EXPECT_EQ(list.ItemIcon(0), 2);
    EXPECT_EQ(list.ItemIconSelected(0), 12);
    EXPECT_EQ(list.ItemIcon(1), 0) << "ascending keeps equal texts in place";
    EXPECT_EQ(list.ItemIcon(2), 1);

    list.Clear();
    list.AddItem("x", 0);
    list.AddItem("x", 1);
    list.setOrderType(1);
    list.Order();
    EXPECT_EQ(list.ItemIcon(0), 1) << "descending moves equal texts past each other";
    EXPECT_EQ(list.ItemIcon(1), 0);
}

TEST_F(RowListTest, OrderResetsTheSelectionButNotForASingleItem)
{
    list.AddItem("only");
    list.setListIndex(0);
    list.Order();
    EXPECT_EQ(list.ListIndex(), 0);
    EXPECT_TRUE(list.ItemSelected(0));

    fill(20);
    list.setSelectMode(1);
    list.setItemSelected(3, true);
    list.setListIndex(19);
    ASSERT_GT(list.TopIndex(), 0);
    list.Order();
    EXPECT_EQ(list.ListIndex(), -1);
    EXPECT_EQ(list.SelectedCount(), 0);
    EXPECT_EQ(list.TopIndex(), 0);
}

TEST_F(RowListTest, FindFirstSkipsAMatchAtTheStartUnlessExact)
{
    for (const char *t : {"Apple pie", "pineapple", "apple", "crab apple"})
        list.AddItem(t);
    EXPECT_EQ(list.FindFirst("APPLE"), 1) << "case is ignored; 'Apple pie' starts with it";
    EXPECT_EQ(list.FindFirst("apple", 2), 3) << "'apple' itself is no match without exact";
    EXPECT_EQ(list.FindFirst("apple", 0, true), 0);
    EXPECT_EQ(list.FindFirst("apple", 1, true), 2);
    EXPECT_EQ(list.FindFirst("pear"), -1);
    EXPECT_EQ(list.FindFirst("apple", 4), -1) << "a start past the end finds nothing";
    EXPECT_EQ(list.FindFirst("", 0, true), 0);
    EXPECT_EQ(list.FindFirst(""), -1);
}

// ---- scrolling model ------------------------------------------------------------------------

TEST_F(RowListTest, BarAppearsOnlyWhenTheRowsOverflow)
{
    fill(Rows);
    EXPECT_TRUE(list.Bar()->isHidden()) << "a list that exactly fills the surface";
    EXPECT_EQ(list.iScr()->width(), 120);
    EXPECT_EQ(list.VisibleRowCount(), Rows);

    list.AddItem("one more");
    EXPECT_FALSE(list.Bar()->isHidden());
    EXPECT_EQ(list.Bar()->maximum(), 1);
    EXPECT_EQ(list.Bar()->pageStep(), Rows);
    EXPECT_EQ(list.iScr()->width(), 120 - 13);
    EXPECT_EQ(list.Bar()->width(), 13);

    list.RemoveItem(0);
    EXPECT_TRUE(list.Bar()->isHidden());
    EXPECT_EQ(list.iScr()->width(), 120);
}

TEST_F(RowListTest, ScrollBarWidthIsClamped)
{
    list.setScrollBarWidth(2);
    EXPECT_EQ(list.ScrollBarWidth(), 9);
    list.setScrollBarWidth(100);
    EXPECT_EQ(list.ScrollBarWidth(), 60) << "half the control width";
    list.setScrollBarWidth(20);
    EXPECT_EQ(list.ScrollBarWidth(), 20);
}

TEST_F(RowListTest, ListIndexKeepsTheCurrentRowInView)
{
    fill(20);
    QSignalSpy tops(&list, &RowList::TopIndexChange);
    QSignalSpy scrolls(&list, &RowList::Scroll);
    list.setListIndex(10);
    EXPECT_EQ(list.TopIndex(), 10 - Rows + 1);
    list.setListIndex(8);
    EXPECT_EQ(list.TopIndex(), 6) << "inside the view nothing moves";
    list.setListIndex(2);
    EXPECT_EQ(list.TopIndex(), 2);
    EXPECT_EQ(tops.count(), 2);
    EXPECT_EQ(scrolls.count(), 2);

    QSignalSpy changes(&list, &RowList::ListIndexChange);
    list.setListIndex(-1);
    EXPECT_EQ(list.TopIndex(), 2);
    EXPECT_EQ(changes.count(), 1);
}

TEST_F(RowListTest, DraggingTheThumbRaisesOneMoreScroll)
{
    fill(20);
    list.setSelectMode(1);
    list.setBackNormal(RGB(255, 255, 255));
    list.setBackSelected(RGB(255, 0, 0));
    list.setItemSelected(6, true);
    QSignalSpy tops(&list, &RowList::TopIndexChange);
    QSignalSpy scrolls(&list, &RowList::Scroll);
    list.Bar()->setSliderDown(true);
    list.Bar()->setSliderPosition(4);
    EXPECT_EQ(list.TopIndex(), 4);
    EXPECT_EQ(pixel(1, 2 * RowH + 1), 0xFF0000u) << "the rows follow the thumb at once";
    EXPECT_EQ(pixel(1, 1), 0xFFFFFFu);
    list.Bar()->setSliderDown(false);
    EXPECT_EQ(tops.count(), 1);
    EXPECT_EQ(scrolls.count(), 2);
}

// ---- keyboard -------------------------------------------------------------------------------

TEST_F(RowListTest, KeyboardTable)
{
    fill(12);
    QSignalSpy keys(&list, &RowList::KeyDown);
    QWidget *surface = list.iScr();

    QTest::keyClick(surface, Qt::Key_Down);
    EXPECT_EQ(list.ListIndex(), 0) << "Down from no item goes to the first";
    QTest::keyClick(surface, Qt::Key_Up);
    EXPECT_EQ(list.ListIndex(), 0);
    QTest::keyClick(surface, Qt::Key_PageDown);
    EXPECT_EQ(list.ListIndex(), Rows);
    QTest::keyClick(surface, Qt::Key_PageDown);
    EXPECT_EQ(list.ListIndex(), 2 * Rows);
    QTest::keyClick(surface, Qt::Key_PageDown);
    EXPECT_EQ(list.ListIndex(), 11) << "Page Down near the end lands on the last item";
    QTest::keyClick(surface, Qt::Key_Down);
    EXPECT_EQ(list.ListIndex(), 11);
    QTest::keyClick(surface, Qt::Key_PageUp);
    EXPECT_EQ(list.ListIndex(), 6);
    QTest::keyClick(surface, Qt::Key_PageUp);
    EXPECT_EQ(list.ListIndex(), 1);
    QTest::keyClick(surface, Qt::Key_PageUp);
    EXPECT_EQ(list.ListIndex(), 0) << "within a page of the top";
    QTest::keyClick(surface, Qt::Key_End);
    EXPECT_EQ(list.ListIndex(), 11);
    EXPECT_EQ(list.TopIndex(), 12 - Rows);
    QTest::keyClick(surface, Qt::Key_Home);
    EXPECT_EQ(list.ListIndex(), 0);
    EXPECT_EQ(list.TopIndex(), 0);

    ASSERT_EQ(keys.count(), 11);
    EXPECT_EQ(keys.last().at(0).toInt(), 36);
    EXPECT_EQ(list.SelectedCount(), 1);
}

TEST_F(RowListTest, SpaceTogglesOnlyInMultipleMode)
{
    fill(3);
    QSignalSpy clicks(&list, &RowList::Click);
    list.setListIndex(1);
    QTest::keyClick(list.iScr(), Qt::Key_Space);
    EXPECT_TRUE(list.ItemSelected(1)) << "single mode: Space only clicks";
    EXPECT_EQ(clicks.count(), 1);

    list.setSelectMode(1);
    QTest::keyClick(list.iScr(), Qt::Key_Space);
    EXPECT_FALSE(list.ItemSelected(1));
    QTest::keyClick(list.iScr(), Qt::Key_Down);
    QTest::keyClick(list.iScr(), Qt::Key_Space);
    EXPECT_TRUE(list.ItemSelected(2));
    EXPECT_FALSE(list.ItemSelected(1)) << "moving the focus leaves flags alone";
    EXPECT_EQ(clicks.count(), 3);
}

TEST_F(RowListTest, KeysOnAnEmptyListAreOnlyPassedOn)
{
    QSignalSpy keys(&list, &RowList::KeyDown);
    QSignalSpy presses(&list, &RowList::KeyPress);
    QSignalSpy ups(&list, &RowList::KeyUp);
    QTest::keyClick(list.iScr(), Qt::Key_End);
    QTest::keyClick(list.iScr(), Qt::Key_A);
    EXPECT_EQ(list.ListIndex(), -1);
    EXPECT_EQ(keys.count(), 2);
    EXPECT_EQ(keys.at(0).at(0).toInt(), 35);
    ASSERT_EQ(presses.count(), 1);
    EXPECT_EQ(presses.at(0).at(0).toInt(), 'a');
    EXPECT_EQ(ups.count(), 2);
}

// ---- mouse and drag selection ---------------------------------------------------------------

TEST_F(RowListTest, PressSelectsInSingleModeAndTheRightButtonOnlyTells)
{
    fill(8);
    QSignalSpy downs(&list, &RowList::MouseDown);
    QSignalSpy ups(&list, &RowList::MouseUp);
    QSignalSpy clicks(&list, &RowList::Click);
    QTest::mouseClick(list.iScr(), Qt::LeftButton, {}, rowPoint(2));
    EXPECT_EQ(list.ListIndex(), 2);
    EXPECT_TRUE(list.ItemSelected(2));
    QTest::mouseClick(list.iScr(), Qt::LeftButton, {}, rowPoint(4));
    EXPECT_EQ(list.ListIndex(), 4);
    EXPECT_FALSE(list.ItemSelected(2));
    EXPECT_EQ(list.SelectedCount(), 1);
    EXPECT_EQ(clicks.count(), 2);

    QTest::mousePress(list.iScr(), Qt::RightButton, {}, rowPoint(0));
    EXPECT_EQ(list.ListIndex(), 4);
    EXPECT_FALSE(list.Dragging());
    QTest::mouseRelease(list.iScr(), Qt::RightButton, {}, rowPoint(0));
    EXPECT_EQ(clicks.count(), 2) << "no Click for the right button";
    ASSERT_EQ(downs.count(), 3);
    EXPECT_EQ(downs.last().at(0).toInt(), 2);
    EXPECT_EQ(ups.count(), 3);

    QTest::mouseClick(list.iScr(), Qt::LeftButton, {}, QPoint(20, 8 * RowH - 1 + RowH));
    EXPECT_EQ(list.ListIndex(), 4) << "a press below the last row selects nothing";
}

TEST_F(RowListTest, MultipleModeDragSpreadsTheToggledValue)
{
    fill(8);
    list.setSelectMode(1);
    list.setItemSelected(1, true);
    list.setItemSelected(2, true);
    list.setItemSelected(3, true);

    list.SurfaceMouseDown(1, 0, 20, rowPoint(1).y());
    EXPECT_FALSE(list.ItemSelected(1)) << "a press on a selected row clears it";
    list.SurfaceMouseMove(1, 0, 20, rowPoint(2).y());
    list.SurfaceMouseMove(1, 0, 20, rowPoint(3).y());
    list.SurfaceMouseMove(1, 0, 20, rowPoint(4).y());
    EXPECT_EQ(list.SelectedCount(), 0) << "the drag clears each row crossed";
    EXPECT_EQ(list.ListIndex(), 4);
    list.SurfaceMouseUp(1, 0, 20, rowPoint(4).y());

    list.SurfaceMouseDown(1, 0, 20, rowPoint(0).y());
    list.SurfaceMouseMove(1, 0, 20, rowPoint(1).y());
    EXPECT_TRUE(list.ItemSelected(0)) << "after a release the next drag sets again";
    EXPECT_TRUE(list.ItemSelected(1));
    EXPECT_EQ(list.SelectedCount(), 2);
}

TEST_F(RowListTest, MovesWithoutAButtonSelectOnlyWithHoverSelection)
{
    fill(5);
    list.SurfaceMouseMove(0, 0, 20, rowPoint(3).y());
    EXPECT_EQ(list.ListIndex(), -1);
    list.setHoverSelection(true);
    list.SurfaceMouseMove(0, 0, 20, rowPoint(3).y());
    EXPECT_EQ(list.ListIndex(), 3);
    list.SurfaceMouseMove(0, 0, 25, rowPoint(3).y() + 2);
    list.SurfaceMouseMove(0, 0, 20, rowPoint(1).y());
    EXPECT_EQ(list.ListIndex(), 1);
    EXPECT_EQ(list.SelectedCount(), 1);
}

// ---- auto-scroll loop -----------------------------------------------------------------------

TEST_F(RowListTest, AutoScrollStepsByTheClockAndLeavesOnRelease)
{
    fill(30);
    std::uint32_t now = 1000;
    int turns = 0;
    list.setTickSource([&] { return now; });
    // Each turn of the pump is 50 ms; the button comes up on the 25th turn.
    list.setEventPump([&] {
        now += 50;
        if (++turns == 25)
            QTest::mouseRelease(list.iScr(), Qt::LeftButton, {}, QPoint(20, RowH * Rows + 6));
    });

    QTest::mousePress(list.iScr(), Qt::LeftButton, {}, rowPoint(3));
    ASSERT_EQ(list.ListIndex(), 3);
    // 6 pixels below: 500 - (86 - 80 - 1) * 20 = 400 ms per step.
    QTest::mouseMove(list.iScr(), QPoint(20, RowH * Rows + 6));
    EXPECT_EQ(turns, 25) << "the loop ran until the release and no longer";
    EXPECT_FALSE(list.Dragging());
    EXPECT_EQ(list.ListIndex(), 3 + 3) << "steps at 400, 800 and 1200 ms";
    EXPECT_EQ(list.TopIndex(), 2) << "the view follows the current row";
}

TEST_F(RowListTest, AutoScrollFollowsThePointerAndStopsWhenItComesBack)
{
    fill(30);
    list.setSelectMode(1);
    std::uint32_t now = 0;
    int turns = 0;
    list.setTickSource([&] { return now; });
    list.setEventPump([&] {
        now += 10;
        ++turns;
        if (turns == 1)
            list.SurfaceMouseMove(1, 0, 20, RowH * Rows + 40); // far below: the 40 ms floor
        if (turns == 41)
            list.SurfaceMouseMove(1, 0, 20, rowPoint(4).y()); // back over the surface
        if (turns == 1000)
            list.SurfaceMouseUp(1, 0, 20, 0); // a broken loop fails instead of hanging
    });
    list.SurfaceMouseDown(1, 0, 20, rowPoint(0).y());
    ASSERT_TRUE(list.ItemSelected(0));
    list.SurfaceMouseMove(1, 0, 20, RowH * Rows + 1);
    EXPECT_EQ(turns, 41);
    EXPECT_TRUE(list.Dragging()) << "the button is still down";
    // 10 steps of 40 ms in 400 ms, each row taking the drag value; then the row under the pointer.
    for (int i = 0; i <= 10; ++i)
        EXPECT_TRUE(list.ItemSelected(i)) << i;
    EXPECT_EQ(list.SelectedCount(), 11);
    EXPECT_EQ(list.TopIndex(), 10 - Rows + 1);
    EXPECT_EQ(list.ListIndex(), list.TopIndex() + 4);
}

TEST_F(RowListTest, AutoScrollUpwardsStopsAtTheFirstRowAndNeedsADrag)
{
    fill(30);
    std::uint32_t now = 0;
    int turns = 0;
    list.setTickSource([&] { return now; });
    list.setEventPump([&] {
        now += 100;
        if (++turns == 50)
            list.SurfaceMouseUp(1, 0, 20, -30);
    });
    list.SurfaceMouseMove(1, 0, 20, -30);
    EXPECT_EQ(turns, 0) << "no loop without a press on a row";

    list.setListIndex(12);
    list.SurfaceMouseDown(1, 0, 20, rowPoint(2).y());
    ASSERT_EQ(list.ListIndex(), list.TopIndex() + 2);
    list.SurfaceMouseMove(1, 0, 20, -30); // 500 - 600 -> 40 ms floor
    EXPECT_EQ(turns, 50);
    EXPECT_EQ(list.ListIndex(), 0);
    EXPECT_EQ(list.TopIndex(), 0);
}

// ---- drawing --------------------------------------------------------------------------------

TEST_F(RowListTest, SelectedRowLooks)
{
    list.setBackNormal(RGB(224, 224, 224));
    list.setBackSelected(RGB(128, 128, 128));
    list.setBackSelectedG1(RGB(0, 64, 0));
    list.setBackSelectedG2(RGB(255, 255, 255));
    list.setBoxBorder(RGB(255, 0, 0));
    list.setBoxOffset(2);
    list.AddItem("");
    list.AddItem("");
    list.setListIndex(1);
    const int top = RowH, bottom = 2 * RowH - 1, right = list.SurfaceImage().width() - 1;

    EXPECT_EQ(pixel(5, 5), qRgb(224, 224, 224) & 0xFFFFFF) << "an unselected row";
    EXPECT_EQ(pixel(5, top + 5), qRgb(128, 128, 128) & 0xFFFFFF) << "style 0";

    list.setSelectModeStyle(1);
    EXPECT_EQ(pixel(5, top + 5), qRgb(224, 224, 224) & 0xFFFFFF);

    list.setSelectModeStyle(2);
    EXPECT_EQ(pixel(right, top), qRgb(0, 64, 0) & 0xFFFFFF) << "vertical gradient, first row";
    EXPECT_EQ(pixel(0, bottom), 0xFFFFFFu) << "vertical gradient, last row";

    list.setSelectModeStyle(3);
    EXPECT_EQ(pixel(0, bottom), qRgb(0, 64, 0) & 0xFFFFFF) << "horizontal gradient, left";
    EXPECT_EQ(pixel(right, top), 0xFFFFFFu) << "horizontal gradient, right";

    list.setSelectModeStyle(4);
    EXPECT_EQ(pixel(0, top), qRgb(224, 224, 224) & 0xFFFFFF) << "outside the box";
    EXPECT_EQ(pixel(2, top + 8), qRgb(255, 0, 0) & 0xFFFFFF) << "the box outline at the inset";
    EXPECT_EQ(pixel(right / 2, top + 8), qRgb(128, 128, 128) & 0xFFFFFF) << "inside the box";

    list.setSelectModeStyle(6);
    EXPECT_EQ(pixel(5, top + 5), qRgb(128, 128, 128) & 0xFFFFFF) << "no picture: BackSelected";
    QImage picture(4, 4, QImage::Format_RGB32);
    picture.fill(qRgb(10, 20, 30));
    list.setSelectionPicture(picture);
    EXPECT_EQ(pixel(right, bottom), qRgb(10, 20, 30) & 0xFFFFFF) << "stretched over the row";
}

TEST_F(RowListTest, TextColourFollowsTheSelection)
{
    list.setBackNormal(RGB(255, 255, 255));
    list.setBackSelected(RGB(255, 255, 255));
    list.setFontNormal(RGB(0, 0, 255));
    list.setFontSelected(RGB(255, 0, 0));
    list.AddItem("WWWW");
    list.AddItem("WWWW");
    list.setListIndex(1);
    const auto rowHas = [&](int row, QRgb colour) {
        for (int y = row * RowH; y < (row + 1) * RowH; ++y)
            for (int x = 0; x < 60; ++x)
                if (pixel(x, y) == (colour & 0xFFFFFF))
                    return true;
        return false;
    };
    EXPECT_TRUE(rowHas(0, qRgb(0, 0, 255)));
    EXPECT_FALSE(rowHas(0, qRgb(255, 0, 0)));
    EXPECT_TRUE(rowHas(1, qRgb(255, 0, 0)));
    EXPECT_FALSE(rowHas(1, qRgb(0, 0, 255)));
}

TEST_F(RowListTest, IconsFromAMaskedStrip)
{
    QImage strip(16, 8, QImage::Format_RGB32);
    strip.fill(qRgb(255, 0, 255));
    for (int y = 2; y < 6; ++y)
        for (int x = 2; x < 6; ++x) {
            strip.setPixel(x, y, qRgb(255, 0, 0));
            strip.setPixel(8 + x, y, qRgb(0, 0, 255));
        }
    list.SetImageList(strip, 8, RGB(255, 0, 255));
    ASSERT_EQ(list.ImageCount(), 2);
    list.setBackNormal(RGB(224, 224, 224));
    list.setBackSelected(RGB(128, 128, 128));
    list.setItemOffset(1);
    list.AddItem("", 0, 1);
    list.AddItem("", 7); // no such image: nothing drawn
    // The 8-pixel icon is centred in the 16-pixel row: it starts at y 4, x 1.
    EXPECT_EQ(pixel(1 + 3, 4 + 3), qRgb(255, 0, 0) & 0xFFFFFF);
    EXPECT_EQ(pixel(1 + 0, 4 + 0), qRgb(224, 224, 224) & 0xFFFFFF) << "the mask colour is see-through";
    EXPECT_EQ(pixel(4, RowH + 7), qRgb(224, 224, 224) & 0xFFFFFF);
    list.setListIndex(0);
    EXPECT_EQ(pixel(1 + 3, 4 + 3), qRgb(0, 0, 255) & 0xFFFFFF) << "the selected variant";
    list.setEnabled(false);
    EXPECT_NE(pixel(1 + 3, 4 + 3), qRgb(0, 0, 255) & 0xFFFFFF) << "the engraved look when disabled";
}

// ---- in-place editing -----------------------------------------------------------------------

TEST_F(RowListTest, InPlaceEditing)
{
    fill(3);
    EXPECT_EQ(list.txtEdit(), nullptr) << "the editor is made at the first edit";
    list.StartEdit();
    EXPECT_FALSE(list.IsEditing()) << "nothing to edit without a current item";
    list.EndEdit(true); // nothing to save, and no editor to read it from

    list.setListIndex(1);
    list.StartEdit();
    ASSERT_TRUE(list.IsEditing());
    EXPECT_EQ(list.txtEdit()->text(), "1");
    EXPECT_EQ(list.txtEdit()->geometry(), list.TextRect(1));
    list.txtEdit()->setText("changed");
    list.EditKeyPress(10);
    EXPECT_TRUE(list.IsEditing()) << "with WordWrap only Enter commits";
    list.EditKeyPress(13);
    EXPECT_FALSE(list.IsEditing());
    EXPECT_EQ(list.ItemText(1), "changed");

    list.setWordWrap(false);
    list.StartEdit();
    list.txtEdit()->setText("again");
    list.EditKeyPress(10);
    EXPECT_EQ(list.ItemText(1), "again");

    list.StartEdit();
    list.txtEdit()->setText("dropped");
    QTest::keyClick(list.txtEdit(), Qt::Key_Escape);
    EXPECT_FALSE(list.IsEditing());
    EXPECT_EQ(list.ItemText(1), "again");

    list.StartEdit();
    list.txtEdit()->setText("dropped too");
    list.setListIndex(2);
    EXPECT_FALSE(list.IsEditing()) << "a change of ListIndex closes unsaved";
    EXPECT_EQ(list.ItemText(1), "again");

    list.StartEdit();
    list.txtEdit()->setText("saved");
    list.EndEdit(true);
    EXPECT_EQ(list.ItemText(2), "saved");
}

// ---- persistence ----------------------------------------------------------------------------

TEST_F(RowListTest, PropertyBagWritesOnlyChangesAndReadsThemBack)
{
    RowList fresh;
    QVariantMap bag;
    fresh.WriteProperties(bag);
    EXPECT_EQ(bag.keys(), QStringList({"BorderStyle"})) << "a fresh list differs only in its border";

    fresh.setSelectModeStyle(3);
    fresh.setBackNormal(RGB(224, 224, 224));
    fresh.setBackSelectedG2(RGB(255, 255, 255));
    fresh.setBoxRadius(3);
    fresh.setItemTextLeft(5);
    fresh.setScrollBarWidth(9);
    fresh.setOrderType(1);
    fresh.setFocus(false);
    fresh.setBorderStyle(1);
    bag.clear();
    fresh.WriteProperties(bag);
    EXPECT_EQ(bag.size(), 8);
    EXPECT_FALSE(bag.contains("BorderStyle")) << "1 is the default when writing";

    RowList copy;
    copy.ReadProperties(bag);
    EXPECT_EQ(copy.SelectModeStyle(), 3);
    EXPECT_EQ(copy.BackNormal(), RGB(224, 224, 224));
    EXPECT_EQ(copy.BackSelectedG2(), RGB(255, 255, 255));
    EXPECT_EQ(copy.BoxRadius(), 3);
    EXPECT_EQ(copy.ItemTextLeft(), 5);
    EXPECT_EQ(copy.ScrollBarWidth(), 9);
    EXPECT_EQ(copy.OrderType(), 1);
    EXPECT_FALSE(copy.Focus());
    EXPECT_EQ(copy.BorderStyle(), 0) << "but 0 is the default when reading";
    EXPECT_EQ(copy.BackSelected(), SystemColor(13));
}

TEST_F(RowListTest, SettersReportTheirNames)
{
    QSignalSpy changes(&list, &RowList::PropertyChanged);
    list.setBackStyle(2);
    list.setBoxOffset(3);
    ASSERT_EQ(changes.count(), 2);
    EXPECT_EQ(changes.at(0).at(0).toString(), "BackStyle");
    EXPECT_EQ(changes.at(1).at(0).toString(), "BoxOffset");
}

TEST_F(RowListTest, AutomaticRowHeightFollowsTheFont)
{
    list.setItemHeightAuto(true);
    QFont big = list.font();
    big.setPixelSize(30);
    list.setFont(big);
    EXPECT_EQ(list.ItemHeight(), QFontMetrics(big).height());
    EXPECT_EQ(list.VisibleRowCount(), RowH * Rows / QFontMetrics(big).height());
}

TEST_F(RowListTest, FocusRectangleOnTheCurrentRowOnlyWithFocus)
{
    list.setBackNormal(RGB(255, 255, 255));
    list.setBackSelected(RGB(255, 255, 255));
    list.setFontNormal(RGB(0, 0, 255));
    list.AddItem("");
    list.AddItem("");
    list.setListIndex(1);
    const auto edgeHasFocusColour = [&](int row) {
        for (int x = 0; x < list.SurfaceImage().width(); ++x)
            if (pixel(x, row * RowH) == 0x0000FFu)
                return true;
        return false;
    };
    EXPECT_FALSE(edgeHasFocusColour(1)) << "no focus, no rectangle";

    list.show();
    list.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&list));
    list.setFocus(Qt::OtherFocusReason);
    ASSERT_TRUE(list.iScr()->hasFocus());
    EXPECT_TRUE(edgeHasFocusColour(1));
    EXPECT_FALSE(edgeHasFocusColour(0));

    list.setListIndex(0);
    EXPECT_TRUE(edgeHasFocusColour(0));
    EXPECT_FALSE(edgeHasFocusColour(1)) << "redrawing the previous row wipes it";

    list.setFocus(false);
    EXPECT_FALSE(edgeHasFocusColour(0)) << "Focus false draws none";
}

TEST_F(RowListTest, AFocusedListWithoutAMarkedRowShowsADottedFrame)
{
    // The column of collected data draws no row rectangle, and an untouched list has no row.
    list.setBackNormal(RGB(255, 255, 255));
    list.setFontNormal(RGB(0, 0, 255));
    list.AddItem("0.3");
    list.AddItem("0.4");
    const auto frameShown = [&] {
        const QImage shown = list.iScr()->grab().toImage();
        int blue = 0;
        for (int y = 0; y < shown.height(); ++y)
            blue += (shown.pixel(1, y) & 0xFFFFFFu) == 0x0000FFu ? 1 : 0;
        return blue > shown.height() / 4;
    };
    list.show();
    list.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&list));
    list.clearFocus();
    const QImage rows = list.SurfaceImage().copy();
    EXPECT_FALSE(frameShown()) << "no focus, no frame";
    list.setFocus(Qt::TabFocusReason);
    ASSERT_TRUE(list.iScr()->hasFocus());
    EXPECT_TRUE(frameShown()) << "no row chosen";
    list.setFocus(false);
    EXPECT_TRUE(frameShown()) << "no row rectangle drawn";
    EXPECT_EQ(list.SurfaceImage(), rows) << "the frame is painted over the rows, never into them";
    list.setFocus(true);
    list.setListIndex(1);
    EXPECT_FALSE(frameShown()) << "the chosen row carries the mark";
}

// ---- on a screen scaled to 200 % -------------------------------------------------------------

namespace {

class RowListHighDpi : public ScaledScreenTest {};

bool IsDark(QRgb p) { return qGray(p) < 100; }

} // namespace

TEST_F(RowListHighDpi, RowsAreDrawnAtTheDevicePixelRatioInTheirLogicalPlaces)
{
    RowList list;
    list.setItemHeightAuto(false);
    list.setItemHeight(RowH);
    list.resize(120, RowH * Rows);
    list.setBackNormal(RGB(255, 255, 255));
    list.setFontNormal(RGB(0, 0, 0));
    list.setBackSelected(RGB(0, 0, 255));
    list.setFontSelected(RGB(255, 255, 255));
    for (int i = 0; i < 3 * Rows; ++i)
        list.AddItem(QStringLiteral("Wg %1").arg(i));
    list.setListIndex(1);
    list.show();
    list.Refresh();

    const QImage &canvas = list.SurfaceImage();
    const QSize surface = list.hWnd()->size();
    EXPECT_EQ(canvas.devicePixelRatio(), 2.0);
    EXPECT_EQ(canvas.size(), surface * 2);
    EXPECT_EQ(list.VisibleRowCount(), Rows) << "rows are counted in logical pixels";

    // The selected second row fills device rows 32..63, no more and no less.
    const QRgb blue = qRgb(0, 0, 255) & 0xFFFFFF;
    EXPECT_NE(canvas.pixel(2, 31) & 0xFFFFFF, blue);
    EXPECT_EQ(canvas.pixel(2, 32) & 0xFFFFFF, blue);
    EXPECT_EQ(canvas.pixel(2, 63) & 0xFFFFFF, blue);
    EXPECT_NE(canvas.pixel(2, 64) & 0xFFFFFF, blue);

    // The first row's text lies inside its row and is drawn at the full ratio.
    const QImage firstRow = canvas.copy(0, 0, canvas.width(), 2 * RowH);
    const QRect ink = InkBox(firstRow, IsDark);
    ASSERT_FALSE(ink.isEmpty());
    EXPECT_GE(ink.top(), 1);
    EXPECT_LE(ink.bottom(), 2 * RowH - 2);
    EXPECT_TRUE(HasFineDetail(firstRow, ink));

    // And the screen shows the canvas as it is, pixel for pixel.
    const QImage shown = Rendered(*list.hWnd());
    EXPECT_EQ(shown.pixel(2, 40) & 0xFFFFFF, blue);
    EXPECT_EQ(InkBox(shown.copy(0, 0, shown.width(), 2 * RowH), IsDark), ink);
}
