// The controls as a screen reader meets them: role, name, state and actions of each one's
// accessibility interface, a press through the interface acting as a click, and the events
// sent when a state changes.

#include "AccessRecorder.h"

#include "controls/Check.h"
#include "controls/DropPanel.h"
#include "controls/GlossButton.h"
#include "controls/RowList.h"
#include "controls/ShapedTabs.h"
#include "controls/ucTableView.h"

#include <QAccessible>
#include <QLabel>
#include <QSignalSpy>
#include <QTreeWidget>

#include <gtest/gtest.h>

using namespace zrt;
using zrt::test::AccessRecorder;

namespace {

QAccessibleInterface *Iface(QObject *object)
{
    QAccessibleInterface *iface = QAccessible::queryAccessibleInterface(object);
    EXPECT_NE(iface, nullptr);
    return iface;
}

QAccessibleActionInterface *Actions(QAccessibleInterface *iface)
{
    return iface ? iface->actionInterface() : nullptr;
}

class AccessControls : public ::testing::Test {
protected:
    AccessRecorder recorder;
};

} // namespace

TEST_F(AccessControls, GlossButtonIsAButtonNamedByItsCaptionThatAPressClicks)
{
    GlossButton button;
    button.resize(90, 30);
    button.setCaption(QStringLiteral("&Show All"));
    QSignalSpy clicks(&button, &GlossButton::Click);

    QAccessibleInterface *iface = Iface(&button);
    ASSERT_NE(iface, nullptr);
    EXPECT_EQ(iface->role(), QAccessible::Button);
    EXPECT_EQ(iface->text(QAccessible::Name), "Show All") << "the access-key mark is not spoken";
    EXPECT_FALSE(iface->state().checked);

    QAccessibleActionInterface *actions = Actions(iface);
    ASSERT_NE(actions, nullptr);
    ASSERT_TRUE(actions->actionNames().contains(QAccessibleActionInterface::pressAction()));
    actions->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_EQ(clicks.count(), 1);

    // A caption change is announced; a button without a caption answers its given name.
    AccessRecorder::clear();
    button.setCaption(QString());
    EXPECT_EQ(AccessRecorder::count(&button, QAccessible::NameChanged), 1);
    button.setAccessibleName(QStringLiteral("Start"));
    EXPECT_EQ(iface->text(QAccessible::Name), "Start");

    // A disabled button says so, and pressing it does nothing.
    button.setEnabled(false);
    EXPECT_TRUE(iface->state().disabled);
    actions->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_EQ(clicks.count(), 1);

    button.setEnabled(true);
    button.setChecked(true);
    EXPECT_TRUE(iface->state().checked);
    EXPECT_TRUE(AccessRecorder::changed(&button).checked);
}

TEST_F(AccessControls, CheckIsACheckBoxWhoseToggleMovesTheValueAndClicks)
{
    Check box;
    box.resize(140, 20);
    box.setCaption(QStringLiteral("Show &Quartiles"));
    QSignalSpy clicks(&box, &Check::Click);

    QAccessibleInterface *iface = Iface(&box);
    ASSERT_NE(iface, nullptr);
    EXPECT_EQ(iface->role(), QAccessible::CheckBox);
    EXPECT_EQ(iface->text(QAccessible::Name), "Show Quartiles");
    EXPECT_TRUE(iface->state().checkable);
    EXPECT_FALSE(iface->state().checked);
    EXPECT_EQ(iface->childCount(), 0) << "the box picture and caption strip are its own drawing";

    QAccessibleActionInterface *actions = Actions(iface);
    ASSERT_NE(actions, nullptr);
    ASSERT_TRUE(actions->actionNames().contains(QAccessibleActionInterface::toggleAction()));
    actions->doAction(QAccessibleActionInterface::toggleAction());
    EXPECT_EQ(box.Value(), 1);
    EXPECT_EQ(clicks.count(), 1);
    EXPECT_TRUE(iface->state().checked);
    EXPECT_TRUE(AccessRecorder::changed(&box).checked);

    actions->doAction(QAccessibleActionInterface::toggleAction());
    EXPECT_EQ(box.Value(), 0);
    EXPECT_FALSE(iface->state().checked);
    EXPECT_EQ(clicks.count(), 2);

    box.setValue(2);
    EXPECT_TRUE(iface->state().checkStateMixed);
    EXPECT_FALSE(iface->state().checked);
}

TEST_F(AccessControls, RowListIsAListOfItsRowsWithTheirSelection)
{
    RowList list;
    list.resize(120, 200);
    list.setAccessibleName(QStringLiteral("Visual times"));
    for (const char *text : {"0.251", "0.302", "0.287"})
        list.AddItem(QString::fromLatin1(text));
    QSignalSpy clicks(&list, &RowList::Click);

    QAccessibleInterface *iface = Iface(&list);
    ASSERT_NE(iface, nullptr);
    EXPECT_EQ(iface->role(), QAccessible::List);
    EXPECT_EQ(iface->text(QAccessible::Name), "Visual times");
    ASSERT_EQ(iface->childCount(), 3);
    QAccessibleInterface *row = iface->child(1);
    ASSERT_NE(row, nullptr);
    EXPECT_EQ(row->role(), QAccessible::ListItem);
    EXPECT_EQ(row->text(QAccessible::Name), "0.302");
    EXPECT_EQ(row->parent(), iface);
    EXPECT_EQ(iface->indexOfChild(row), 1);
    EXPECT_EQ(iface->child(1), row) << "the same row keeps the same interface";
    EXPECT_FALSE(row->state().selected);
    EXPECT_TRUE(row->state().selectable);

    // Pressing the row chooses it as the keyboard does, and the list gets its Click.
    Actions(row)->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_EQ(list.ListIndex(), 1);
    EXPECT_TRUE(row->state().selected);
    EXPECT_FALSE(iface->child(0)->state().selected);
    EXPECT_EQ(clicks.count(), 1);
    EXPECT_GE(AccessRecorder::count(&list, QAccessible::Selection, 1), 1);

    // Moving the selection by code is announced for the row it lands on.
    AccessRecorder::clear();
    list.setListIndex(2);
    EXPECT_EQ(AccessRecorder::count(&list, QAccessible::Selection, 2), 1);
    EXPECT_TRUE(iface->child(2)->state().selected);
    EXPECT_FALSE(row->state().selected);

    // In the multiple mode a press toggles the row.
    list.setSelectMode(1);
    EXPECT_TRUE(iface->state().multiSelectable);
    QAccessibleInterface *first = iface->child(0);
    Actions(first)->doAction(QAccessibleActionInterface::toggleAction());
    EXPECT_TRUE(list.ItemSelected(0));
    Actions(first)->doAction(QAccessibleActionInterface::toggleAction());
    EXPECT_FALSE(list.ItemSelected(0));

    // A removed row is no longer a valid child.
    list.RemoveItem(2);
    EXPECT_EQ(iface->childCount(), 2);
    EXPECT_EQ(iface->child(2), nullptr);
}

TEST_F(AccessControls, TableViewIsATableOfHeadingsAndCells)
{
    ucTableView view;
    view.resize(300, 200);
    ASSERT_TRUE(view.Initialize());
    view.ColumnAdd(0, QStringLiteral("Visual"), 80, 0);
    view.ColumnAdd(1, QStringLiteral("Audio"), 80, 0);
    view.ItemAdd(0, QStringLiteral("0.251"));
    view.SubItemSet(0, 1, QStringLiteral("0.198"));
    view.ItemAdd(1, QStringLiteral("0.302"));
    view.SubItemSet(1, 1, QStringLiteral("0.240"));
    QSignalSpy itemClicks(&view, &ucTableView::ItemClick);

    QAccessibleInterface *iface = Iface(&view);
    ASSERT_NE(iface, nullptr);
    EXPECT_EQ(iface->role(), QAccessible::Table);
    ASSERT_EQ(iface->childCount(), 2 + 2 * 2);
    EXPECT_EQ(iface->child(0)->role(), QAccessible::ColumnHeader);
    EXPECT_EQ(iface->child(1)->text(QAccessible::Name), "Audio");

    QAccessibleTableInterface *table = iface->tableInterface();
    ASSERT_NE(table, nullptr);
    EXPECT_EQ(table->rowCount(), 2);
    EXPECT_EQ(table->columnCount(), 2);
    QAccessibleInterface *cell = table->cellAt(1, 1);
    ASSERT_NE(cell, nullptr);
    EXPECT_EQ(cell->role(), QAccessible::Cell);
    EXPECT_EQ(cell->text(QAccessible::Name), "0.240");
    EXPECT_EQ(iface->indexOfChild(cell), 2 + 1 * 2 + 1);
    EXPECT_EQ(iface->child(5), cell);
    QAccessibleTableCellInterface *cellInfo = cell->tableCellInterface();
    ASSERT_NE(cellInfo, nullptr);
    EXPECT_EQ(cellInfo->rowIndex(), 1);
    EXPECT_EQ(cellInfo->columnIndex(), 1);
    ASSERT_EQ(cellInfo->columnHeaderCells().size(), 1);
    EXPECT_EQ(cellInfo->columnHeaderCells().first()->text(QAccessible::Name), "Audio");

    // Pressing a cell chooses its row, as a click does.
    EXPECT_FALSE(cellInfo->isSelected());
    Actions(cell)->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_TRUE(view.ItemSelected(1));
    EXPECT_TRUE(cell->state().selected);
    EXPECT_TRUE(table->isRowSelected(1));
    EXPECT_EQ(table->selectedRows(), QList<int>{1});
    ASSERT_EQ(itemClicks.count(), 1);
    EXPECT_EQ(itemClicks.first().first().toInt(), 1);
    EXPECT_GE(AccessRecorder::count(&view, QAccessible::SelectionWithin), 1);

    // The inner list, which takes the keyboard focus, answers as the same table.
    QAccessibleInterface *inner = Iface(view.List());
    ASSERT_NE(inner, nullptr);
    EXPECT_EQ(inner->role(), QAccessible::Table);
    ASSERT_NE(inner->tableInterface(), nullptr);
    EXPECT_EQ(inner->tableInterface()->cellAt(1, 0)->text(QAccessible::Name), "0.302");
    EXPECT_EQ(inner->parent(), iface);

    // The text follows the control; a hidden heading row leaves only the cells.
    view.setSubItemText(1, 1, QStringLiteral("0.250"));
    EXPECT_EQ(cell->text(QAccessible::Name), "0.250");
    view.setHeaderHide(true);
    EXPECT_EQ(iface->childCount(), 4);
    EXPECT_EQ(iface->child(3), cell);
}

TEST_F(AccessControls, ShapedTabsIsAPageTabListWhosePressedTabBecomesActive)
{
    ShapedTabs tabs;
    tabs.resize(300, 24);
    tabs.setCaption(QStringLiteral("Averages|&Groups|Compare|"));
    tabs.setNumberOfTabs(3);
    int clickedWith = -1;
    QObject::connect(&tabs, &ShapedTabs::Click, [&](int &index) { clickedWith = index; });

    QAccessibleInterface *iface = Iface(&tabs);
    ASSERT_NE(iface, nullptr);
    EXPECT_EQ(iface->role(), QAccessible::PageTabList);
    ASSERT_EQ(iface->childCount(), 3);
    QAccessibleInterface *groups = iface->child(1);
    EXPECT_EQ(groups->role(), QAccessible::PageTab);
    EXPECT_EQ(groups->text(QAccessible::Name), "Groups");
    EXPECT_TRUE(iface->child(0)->state().selected);
    EXPECT_FALSE(groups->state().selected);
    EXPECT_TRUE(groups->rect().isValid());

    Actions(groups)->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_EQ(tabs.ActiveTab(), 1);
    EXPECT_EQ(clickedWith, 1);
    EXPECT_TRUE(groups->state().selected);
    EXPECT_FALSE(iface->child(0)->state().selected);
    EXPECT_TRUE(AccessRecorder::changed(&tabs, 1).selected);

    // Pressing the active tab again is no new click.
    clickedWith = -1;
    Actions(groups)->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_EQ(clickedWith, -1);

    tabs.setNumberOfTabs(2);
    EXPECT_EQ(iface->childCount(), 2);
    EXPECT_FALSE(iface->child(1)->text(QAccessible::Name).isEmpty());
}

TEST_F(AccessControls, DropPanelIsADropDownThatAPressOpensAndFolds)
{
    DropPanel panel;
    panel.setTitle(QStringLiteral("Precision"));
    panel.setOpenOn(DropPanel::OpenOnClick);
    auto *body = new QLabel(QStringLiteral("3 decimal places"));
    panel.PlaceInBody(body);
    panel.Collapse();
    ASSERT_TRUE(panel.Collapsed());

    QAccessibleInterface *iface = Iface(&panel);
    ASSERT_NE(iface, nullptr);
    EXPECT_EQ(iface->role(), QAccessible::ComboBox);
    EXPECT_EQ(iface->text(QAccessible::Name), "Precision");
    EXPECT_EQ(iface->text(QAccessible::Value), "Precision");
    // Named by the label beside it, the panel shows its title as its value.
    panel.setAccessibleName(QStringLiteral("Number of attempts:"));
    EXPECT_EQ(iface->text(QAccessible::Name), "Number of attempts:");
    EXPECT_EQ(iface->text(QAccessible::Value), "Precision");
    EXPECT_TRUE(iface->state().collapsed);
    EXPECT_FALSE(iface->state().expanded);
    // The title strip is the name, not a child; the body is.
    ASSERT_EQ(iface->childCount(), 1);
    EXPECT_EQ(iface->child(0)->object(), body);

    QSignalSpy opened(&panel, &DropPanel::OnExpand);
    Actions(iface)->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_TRUE(panel.Expanded());
    EXPECT_EQ(opened.count(), 1);
    EXPECT_TRUE(iface->state().expanded);
    QCoreApplication::processEvents();
    EXPECT_TRUE(AccessRecorder::changed(&panel).expanded);

    Actions(iface)->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_TRUE(panel.Collapsed());
    EXPECT_TRUE(iface->state().collapsed);
}

TEST_F(AccessControls, OtherWidgetsKeepQtsOwnInterfaces)
{
    QLabel label(QStringLiteral("Data Collected: 20"));
    QAccessibleInterface *iface = Iface(&label);
    ASSERT_NE(iface, nullptr);
    EXPECT_EQ(iface->role(), QAccessible::StaticText);
    EXPECT_EQ(iface->text(QAccessible::Name), "Data Collected: 20");
}

TEST(AccessWithoutScreenReader, NoInterfaceIsMadeWhileNobodyAsks)
{
    installAccessibility();
    const int before = access::InterfacesMade();

    // State changes that would be announced to a screen reader cost nothing without one.
    GlossButton button;
    button.setCaption(QStringLiteral("Start"));
    button.setChecked(true);
    Check box;
    box.setValue(1);
    RowList list;
    list.AddItem(QStringLiteral("0.251"));
    list.setListIndex(0);
    ShapedTabs tabs;
    tabs.setActiveTab(2);
    DropPanel panel;
    panel.Collapse();
    panel.Expand();
    QCoreApplication::processEvents();
    EXPECT_EQ(access::InterfacesMade(), before);

    // Asked once, the factory makes one.
    ASSERT_NE(QAccessible::queryAccessibleInterface(&button), nullptr);
    EXPECT_EQ(access::InterfacesMade(), before + 1);
    QAccessible::queryAccessibleInterface(&button);
    EXPECT_EQ(access::InterfacesMade(), before + 1) << "kept, not made again";
}
