#include "controls/ucTableView.h"

#include <QHeaderView>
#include <QTest>
#include <QTreeWidget>
#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <string>
#include <vector>

using zrt::RGB;
using zrt::ucTableView;

namespace {

const char *const kHeadings[] = {"Visual(x)", "Rank (Rx)", "Audio(y)", "Rank (Ry)", "d (Rx-Ry)", "d^2"};
const int kWidths[] = {80, 85, 80, 85, 85, 75};

// The table as the main window sets it up for the rank table.
struct TableFixture : ::testing::Test {
    ucTableView view;
    std::vector<std::string> log;

    void SetUp() override
    {
        view.resize(520, 260);
        ASSERT_TRUE(view.Initialize());
        view.InitializeImageListSmall(16, 16);
        view.InitializeImageListLarge(32, 32);
        view.InitializeImageListHeader(16, 16);
        for (int i = 0; i < 6; ++i)
            view.ColumnAdd(i, kHeadings[i], kWidths[i], 0);
        view.setBackColor(RGB(241, 241, 217));
        view.setBorderStyle(0);
        view.setViewMode(1);
        view.setFullRowSelect(true);
        view.setHeaderFlat(true);
        view.show();
    }
    void AddRows(int rows)
    {
        for (int r = 0; r < rows; ++r) {
            view.ItemAdd(r, QString::number(r + 10), 0, -1);
            for (int c = 1; c < 6; ++c)
                view.SubItemSet(r, c, QString("%1.%2").arg(r).arg(c), -1);
        }
    }
    QPoint RowCentre(int row) const
    {
        return view.List()->visualItemRect(view.List()->topLevelItem(row)).center();
    }
    QWidget *Surface() const { return view.List()->viewport(); }
    void Record()
    {
        QObject::connect(&view, &ucTableView::ItemClick, [this](int i) { log.push_back("item" + std::to_string(i)); });
        QObject::connect(&view, &ucTableView::Click, [this] { log.push_back("click"); });
        QObject::connect(&view, &ucTableView::MouseDown, [this](int b, int, float, float) {
            log.push_back("down" + std::to_string(b));
        });
        QObject::connect(&view, &ucTableView::MouseUp, [this](int b, int, float, float) {
            log.push_back("up" + std::to_string(b));
        });
    }
};

} // namespace

TEST(TableViewBeforeInitialize, EverythingIsIgnoredAndReadsAsEmpty)
{
    ucTableView view;
    EXPECT_FALSE(view.ColumnAdd(0, "x", 80, 0));
    view.setColumnWidth(0, 120);
    EXPECT_EQ(view.ColumnWidth(0), 0);
    EXPECT_FALSE(view.ItemAdd(0, "1", 0, -1));
    EXPECT_FALSE(view.SubItemSet(0, 1, "a", -1));
    view.setGridLines(true);
    view.setBackColor(RGB(1, 2, 3));
    view.setItemSelected(0, true);
    EXPECT_FALSE(view.GridLines());
    EXPECT_EQ(view.BackColor(), 0u);
    EXPECT_EQ(view.Count(), 0);
    EXPECT_EQ(view.ColumnCount(), 0);
    EXPECT_EQ(view.ItemText(0), "");
    EXPECT_EQ(view.ItemHitTest(5, 5), -1);
    EXPECT_EQ(view.ItemFindText("1"), -1);
    EXPECT_FALSE(view.Clear());
    EXPECT_FALSE(view.Sort(0, 0, 0));
    EXPECT_EQ(view.List(), nullptr);
    EXPECT_TRUE(view.Initialize());
    EXPECT_FALSE(view.Initialize()); // only once
}

TEST_F(TableFixture, ColumnsKeepTextWidthAlignmentAndIcon)
{
    ASSERT_EQ(view.ColumnCount(), 6);
    for (int i = 0; i < 6; ++i) {
        EXPECT_EQ(view.ColumnText(i), kHeadings[i]);
        EXPECT_EQ(view.ColumnWidth(i), kWidths[i]);
    }
    // The first column always reads from the left, whatever it is given.
    view.ColumnAdd(0, "First", 50, 1);
    EXPECT_EQ(view.ColumnAlign(0), 0);
    EXPECT_EQ(view.ColumnText(1), "Visual(x)");
    EXPECT_EQ(view.ColumnWidth(1), 80);
    view.setColumnAlign(3, 2);
    EXPECT_EQ(view.ColumnAlign(3), 2);
    EXPECT_TRUE(view.List()->headerItem()->textAlignment(3) & Qt::AlignHCenter);

    QPixmap red(16, 16);
    red.fill(Qt::red);
    ASSERT_TRUE(view.ImageListHeader_AddBitmap(red));
    view.setColumnIcon(2, 0);
    EXPECT_EQ(view.ColumnIcon(2), 0);
    EXPECT_FALSE(view.List()->headerItem()->icon(2).isNull());
    view.setColumnIcon(2, -1);
    EXPECT_EQ(view.ColumnIcon(2), -1);
    EXPECT_TRUE(view.List()->headerItem()->icon(2).isNull());

    EXPECT_TRUE(view.ColumnRemove(0));
    EXPECT_EQ(view.ColumnText(0), "Visual(x)");
    EXPECT_EQ(view.ColumnCount(), 6);
    EXPECT_FALSE(view.ColumnRemove(6));
    EXPECT_TRUE(view.ColumnAutosize(5, -2));
    EXPECT_GE(view.ColumnWidth(5), view.List()->header()->sectionSizeHint(5));
}

TEST_F(TableFixture, InsertingAColumnMovesTheCellsAlong)
{
    AddRows(2);
    view.ColumnAdd(1, "New", 40, 1);
    EXPECT_EQ(view.SubItemText(1, 1), "");
    EXPECT_EQ(view.SubItemText(1, 2), "1.1");
    EXPECT_EQ(view.ColumnAlign(1), 1);
    EXPECT_EQ(view.ColumnText(2), "Rank (Rx)");
}

TEST_F(TableFixture, FirstItemOfAnEmptyTableTakesTheFocus)
{
    view.ItemAdd(0, "0.25", 0, -1);
    EXPECT_TRUE(view.ItemFocused(0));
    view.ItemAdd(1, "0.31", 0, -1);
    EXPECT_TRUE(view.ItemFocused(0));
    EXPECT_FALSE(view.ItemFocused(1));
    view.ItemAdd(0, "0.20", 0, -1); // inserted before the others
    EXPECT_EQ(view.ItemText(0), "0.20");
    EXPECT_EQ(view.ItemText(2), "0.31");
    EXPECT_EQ(view.ItemFindState(-1, ucTableView::StateFocused), 1);
}

TEST_F(TableFixture, ItemsAndSubItemsByIndex)
{
    AddRows(4);
    EXPECT_EQ(view.Count(), 4);
    EXPECT_EQ(view.SubItemText(2, 5), "2.5");
    EXPECT_EQ(view.SubItemText(2, 6), "");
    EXPECT_FALSE(view.SubItemSet(9, 1, "x", -1));
    view.setItemText(3, "99");
    view.setItemIndent(3, 2);
    EXPECT_EQ(view.ItemText(3), "99");
    EXPECT_EQ(view.ItemIndent(3), 2);

    EXPECT_EQ(view.ItemFindText("11"), 1);
    EXPECT_EQ(view.ItemFindText("1", -1, ucTableView::FindPartial), 0);
    EXPECT_EQ(view.ItemFindText("10", 0), -1);
    EXPECT_EQ(view.ItemFindText("10", 0, ucTableView::FindWrap), 0);

    EXPECT_TRUE(view.ItemRemove(0));
    EXPECT_EQ(view.ItemText(0), "11");
    EXPECT_TRUE(view.Clear());
    EXPECT_EQ(view.Count(), 0);
}

TEST_F(TableFixture, SortIsAStubThatChangesNothing)
{
    view.ItemAdd(0, "3", 0, -1);
    view.ItemAdd(1, "1", 0, -1);
    view.ItemAdd(2, "2", 0, -1);
    EXPECT_FALSE(view.Sort(0, 0, 0));
    EXPECT_FALSE(view.Sort(0, 1, 1));
    EXPECT_EQ(view.ItemText(0), "3");
    EXPECT_EQ(view.ItemText(1), "1");
    EXPECT_EQ(view.ItemText(2), "2");
}

TEST_F(TableFixture, SelectionFollowsMultiSelect)
{
    AddRows(3);
    view.setItemSelected(0, true);
    view.setItemSelected(2, true);
    EXPECT_EQ(view.SelectedCount(), 1);
    EXPECT_TRUE(view.ItemSelected(2));
    view.setMultiSelect(true);
    EXPECT_TRUE(view.MultiSelect());
    view.setItemSelected(0, true);
    EXPECT_EQ(view.SelectedCount(), 2);
    EXPECT_EQ(view.ItemFindState(0, ucTableView::StateSelected), 2);
}

TEST_F(TableFixture, CheckedAndGhostedStates)
{
    AddRows(2);
    std::vector<int> checks;
    QObject::connect(&view, &ucTableView::ItemCheck, [&](int i) { checks.push_back(i); });
    view.setItemChecked(1, true);
    view.setItemChecked(1, true);
    EXPECT_TRUE(view.ItemChecked(1));
    EXPECT_FALSE(view.ItemChecked(0));
    EXPECT_FALSE(view.List()->topLevelItem(1)->data(0, Qt::CheckStateRole).isValid()); // no box shown

    view.setCheckBoxes(true);
    EXPECT_EQ(view.List()->topLevelItem(1)->checkState(0), Qt::Checked);
    view.List()->topLevelItem(0)->setCheckState(0, Qt::Checked); // as a click in the box does
    EXPECT_TRUE(view.ItemChecked(0));
    EXPECT_EQ(checks, (std::vector<int>{1, 0}));

    view.setItemGhosted(0, true);
    EXPECT_TRUE(view.ItemGhosted(0));
    EXPECT_EQ(view.ItemFindState(-1, ucTableView::StateGhosted), 0);
}

TEST_F(TableFixture, StyleSwitchesReachTheList)
{
    QTreeWidget *list = view.List();
    EXPECT_TRUE(view.FullRowSelect());
    EXPECT_TRUE(list->allColumnsShowFocus());
    EXPECT_TRUE(view.HeaderFlat());
    EXPECT_FALSE(list->header()->sectionsClickable());
    EXPECT_EQ(list->frameShape(), QFrame::NoFrame);
    EXPECT_EQ(view.ViewMode(), 1);
    EXPECT_EQ(list->palette().color(QPalette::Base), QColor(241, 241, 217));

    view.setHeaderHide(true);
    EXPECT_TRUE(list->isHeaderHidden());
    view.setHeaderFixedWidth(true);
    EXPECT_EQ(list->header()->sectionResizeMode(0), QHeaderView::Fixed);
    view.setHeaderDragDrop(true);
    EXPECT_TRUE(list->header()->sectionsMovable());
    view.setGridLines(true);
    view.setLabelTips(true);
    view.setGridLines(false);
    EXPECT_FALSE(view.GridLines());
    EXPECT_TRUE(view.LabelTips());
    view.setLabelEdit(true);
    EXPECT_NE(list->editTriggers(), QAbstractItemView::NoEditTriggers);
    view.setHideSelection(true);
    EXPECT_TRUE(view.HideSelection());
    view.setBorderStyle(1);
    EXPECT_NE(list->frameShape(), QFrame::NoFrame);
}

TEST_F(TableFixture, HitTestInTheContainersScale)
{
    AddRows(3);
    const QPoint centre = Surface()->mapTo(&view, RowCentre(1));
    EXPECT_EQ(view.ItemHitTest(centre.x(), centre.y()), 1);
    view.setScaleMode(1);
    EXPECT_EQ(view.ItemHitTest(centre.x() * 15.0, centre.y() * 15.0), 1);
    EXPECT_EQ(view.ItemHitTest(centre.x() * 15.0, 250 * 15.0), -1);
}

TEST_F(TableFixture, PressesReportItemClicksAndTheButtons)
{
    AddRows(3);
    Record();
    QTest::mousePress(Surface(), Qt::LeftButton, {}, RowCentre(1));
    QTest::mouseRelease(Surface(), Qt::LeftButton, {}, RowCentre(1));
    QTest::mousePress(Surface(), Qt::RightButton, {}, RowCentre(1)); // already selected
    QTest::mouseRelease(Surface(), Qt::RightButton, {}, RowCentre(1));
    EXPECT_EQ(log, (std::vector<std::string>{"down1", "item1", "up1", "click", "down2", "item1", "up2", "click"}));
}

TEST_F(TableFixture, SpaceReportsTheFocusedSelectedItem)
{
    AddRows(2);
    view.setItemSelected(1, true);
    view.setItemFocused(1, true);
    Record();
    std::vector<int> keys;
    QObject::connect(&view, &ucTableView::KeyDown, [&](int code, int) { keys.push_back(code); });
    QObject::connect(&view, &ucTableView::KeyPress, [&](int code) { keys.push_back(1000 + code); });
    QObject::connect(&view, &ucTableView::KeyUp, [&](int code, int) { keys.push_back(2000 + code); });
    QTest::keyClick(view.List(), Qt::Key_Space);
    EXPECT_EQ(keys, (std::vector<int>{32, 1032, 2032}));
    EXPECT_EQ(log, (std::vector<std::string>{"item1"}));
}

TEST_F(TableFixture, HeaderClicksReportTheColumnUnlessTheHeaderIsFlat)
{
    std::vector<int> columns;
    QObject::connect(&view, &ucTableView::ColumnClick, [&](int c) { columns.push_back(c); });
    QHeaderView *header = view.List()->header();
    const QPoint third(header->sectionViewportPosition(2) + 10, header->height() / 2);
    QTest::mouseClick(header->viewport(), Qt::LeftButton, {}, third);
    EXPECT_TRUE(columns.empty());
    view.setHeaderFlat(false);
    QTest::mouseClick(header->viewport(), Qt::LeftButton, {}, third);
    EXPECT_EQ(columns, (std::vector<int>{2}));
}

TEST_F(TableFixture, SubItemPrePaintColoursTheCellItNames)
{
    AddRows(3);
    int calls = 0;
    QObject::connect(&view, &ucTableView::OnSubItemPrePaint,
                     [&](int item, int sub, zrt::OleColor &fore, zrt::OleColor &back, bool &bold) {
                         ++calls;
                         EXPECT_EQ(back, RGB(241, 241, 217));
                         if (item == 1 && sub == 2) {
                             back = RGB(255, 0, 0);
                             fore = RGB(0, 0, 255);
                             bold = true;
                         }
                     });
    auto cellPixel = [&](int row, int column) {
        const QRect rect = view.List()->visualRect(view.List()->model()->index(row, column));
        const QImage image = Surface()->grab().toImage();
        return image.pixel(rect.right() - 2, rect.top() + 2) & 0xFFFFFFu;
    };
    EXPECT_EQ(cellPixel(1, 2), qRgb(241, 241, 217) & 0xFFFFFFu); // nothing asked yet
    EXPECT_EQ(calls, 0);

    view.setRaiseSubItemPrePaint(true);
    EXPECT_EQ(cellPixel(1, 2), qRgb(255, 0, 0) & 0xFFFFFFu);
    EXPECT_EQ(cellPixel(1, 3), qRgb(241, 241, 217) & 0xFFFFFFu);
    EXPECT_EQ(cellPixel(2, 2), qRgb(241, 241, 217) & 0xFFFFFFu);
    EXPECT_GT(calls, 0);
}

TEST_F(TableFixture, ResizeFitsTheListAndTellsTheContainer)
{
    int resized = 0;
    QObject::connect(&view, &ucTableView::Resize, [&] { ++resized; });
    view.resize(300, 120);
    EXPECT_EQ(view.List()->geometry(), QRect(0, 0, 300, 120));
    EXPECT_EQ(resized, 1);
}

TEST(TableViewRows, RowsAddMakesTheTableItemAddAndSubItemSetMake)
{
    // One table filled cell by cell, one with RowsAdd; every cell's data, the flags, the check
    // boxes, the focus and the click rule must agree, for an empty and a filled table.
    for (bool checkBoxes : {false, true})
        for (int already : {0, 2})
            for (int count : {1, 3}) {
                SCOPED_TRACE(testing::Message() << checkBoxes << " " << already << " " << count);
                ucTableView bySteps, atOnce;
                std::vector<int> clicks;
                for (ucTableView *view : {&bySteps, &atOnce}) {
                    ASSERT_TRUE(view->Initialize());
                    view->InitializeImageListSmall(16, 16);
                    for (int i = 0; i < 6; ++i)
                        view->ColumnAdd(i, kHeadings[i], kWidths[i], 0);
                    view->setCheckBoxes(checkBoxes);
                    for (int r = 0; r < already; ++r)
                        view->ItemAdd(r, QString::number(r), 0, -1);
                }
                QList<QStringList> rows;
                for (int r = 0; r < count; ++r) {
                    QStringList texts{QString::number(100 + r)};
                    for (int c = 1; c < 7; ++c) // one text more than there are columns
                        texts << QString("%1/%2").arg(r).arg(c);
                    rows << texts;
                    bySteps.ItemAdd(already + r, texts[0], 0, -1);
                    for (int c = 1; c < 7; ++c)
                        bySteps.SubItemSet(already + r, c, texts[c], -1);
                }
                ASSERT_TRUE(atOnce.RowsAdd(rows));
                ASSERT_EQ(atOnce.Count(), bySteps.Count());
                for (int r = 0; r < bySteps.Count(); ++r) {
                    const QTreeWidgetItem *a = bySteps.List()->topLevelItem(r);
                    const QTreeWidgetItem *b = atOnce.List()->topLevelItem(r);
                    EXPECT_EQ(a->flags(), b->flags());
                    for (int c = 0; c < 7; ++c)
                        for (int role : {int(Qt::DisplayRole), int(Qt::CheckStateRole), int(Qt::UserRole),
                                         int(Qt::UserRole + 1), int(Qt::UserRole + 2), int(Qt::UserRole + 3),
                                         int(Qt::UserRole + 4)})
                            EXPECT_EQ(a->data(c, role), b->data(c, role)) << r << " " << c << " " << role;
                    for (int c = 0; c < 6; ++c)
                        EXPECT_EQ(a->icon(c).isNull(), b->icon(c).isNull());
                    EXPECT_EQ(bySteps.ItemFocused(r), atOnce.ItemFocused(r));
                    EXPECT_EQ(bySteps.ItemChecked(r), atOnce.ItemChecked(r));
                }
                // A first click on the list: the click rule of a one-row table holds for both.
                for (ucTableView *view : {&bySteps, &atOnce}) {
                    QObject::connect(view, &ucTableView::ItemClick, [&clicks](int i) { clicks.push_back(i); });
                    view->resize(520, 260);
                    view->show();
                    ASSERT_TRUE(QTest::qWaitForWindowExposed(view));
                    const QPoint at = view->List()->visualItemRect(view->List()->topLevelItem(0)).center();
                    QTest::mouseClick(view->List()->viewport(), Qt::LeftButton, {}, at);
                    clicks.push_back(-1);
                }
                const auto middle = std::find(clicks.begin(), clicks.end(), -1);
                EXPECT_EQ(std::vector<int>(clicks.begin(), middle), std::vector<int>(middle + 1, clicks.end() - 1));
            }
}
