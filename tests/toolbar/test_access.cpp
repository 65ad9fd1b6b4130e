// The themed toolbar as a screen reader meets it: a tool bar whose buttons are its children,
// named by caption or tool tip, pressed through the interface as by a click.

#include "AccessRecorder.h"

#include "toolbar/ThemedToolbar.h"

#include <QAccessible>
#include <QSignalSpy>

#include <gtest/gtest.h>

using namespace zrt;
using zrt::test::AccessRecorder;

TEST(AccessToolbar, ButtonsAreNamedChildrenThatAPressClicks)
{
    AccessRecorder recorder;
    ThemedToolbar bar;
    bar.AddButton(btn::TypeButton, QStringLiteral("&Open"), QStringLiteral("open"));
    bar.AddButton(btn::TypeSeparator);
    bar.AddButton(btn::TypeButton, QString(), QStringLiteral("record"), {}, 16, btn::IconLeft,
                  QStringLiteral("Record Zorvane reaction times"), SystemColor(8), std::nullopt, btn::StyleCheck);
    bar.AddButton(btn::TypeButton, QStringLiteral("Save"), QStringLiteral("save"));
    bar.resize(400, 30);
    bar.show();
    QSignalSpy clicks(&bar, &ThemedToolbar::ButtonClick);

    QAccessibleInterface *iface = QAccessible::queryAccessibleInterface(&bar);
    ASSERT_NE(iface, nullptr);
    EXPECT_EQ(iface->role(), QAccessible::ToolBar);
    ASSERT_EQ(iface->childCount(), 4);

    QAccessibleInterface *open = iface->child(0);
    EXPECT_EQ(open->role(), QAccessible::Button);
    EXPECT_EQ(open->text(QAccessible::Name), "Open");
    EXPECT_EQ(open->parent(), iface);
    EXPECT_EQ(iface->indexOfChild(open), 0);
    EXPECT_EQ(iface->child(1)->role(), QAccessible::Separator);
    EXPECT_TRUE(iface->child(1)->actionInterface()->actionNames().isEmpty());

    // A button with an icon only is named by its tool tip.
    QAccessibleInterface *record = iface->child(2);
    EXPECT_EQ(record->text(QAccessible::Name), "Record Zorvane reaction times");
    EXPECT_TRUE(record->state().checkable);
    EXPECT_FALSE(record->state().checked);

    // The button's place is where the bar draws it.
    const QRect drawn = bar.BtnDisplayRect(4);
    EXPECT_EQ(iface->child(3)->rect(), QRect(bar.PicTB()->mapToGlobal(drawn.topLeft()), drawn.size()));
    EXPECT_EQ(iface->childAt(iface->child(3)->rect().center().x(), iface->child(3)->rect().center().y()),
              iface->child(3));

    open->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    ASSERT_EQ(clicks.count(), 1);
    EXPECT_EQ(clicks.at(0).at(0).toInt(), 1);
    EXPECT_EQ(clicks.at(0).at(1).toString(), "open");

    // A toggling button changes its value, says it is checked and announces it.
    record->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    ASSERT_EQ(clicks.count(), 2);
    EXPECT_EQ(clicks.at(1).at(0).toInt(), 3);
    EXPECT_TRUE(bar.BtnValue(3));
    EXPECT_TRUE(record->state().checked);
    EXPECT_TRUE(AccessRecorder::changed(&bar, 2).checked);

    // A disabled button says so and is not clicked.
    bar.setBtnEnabled(4, false);
    QAccessibleInterface *save = iface->child(3);
    EXPECT_TRUE(save->state().disabled);
    save->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_EQ(clicks.count(), 2);

    bar.DeleteButton(4);
    EXPECT_EQ(iface->childCount(), 3);
    EXPECT_FALSE(save->isValid());
}

TEST(AccessToolbar, ADropDownButtonOpensItsArrowThroughTheMenuAction)
{
    AccessRecorder recorder;
    ThemedToolbar bar;
    bar.AddButton(btn::TypeButton, QStringLiteral("Theme"), QStringLiteral("theme"), {}, 16, btn::IconLeft, {},
                  SystemColor(8), std::nullopt, btn::StyleDropDown);
    bar.resize(200, 30);
    QSignalSpy clicks(&bar, &ThemedToolbar::ButtonClick);
    QSignalSpy drops(&bar, &ThemedToolbar::ButtonDropDown);

    QAccessibleInterface *theme = QAccessible::queryAccessibleInterface(&bar)->child(0);
    ASSERT_NE(theme, nullptr);
    EXPECT_EQ(theme->role(), QAccessible::ButtonDropDown);
    EXPECT_TRUE(theme->state().hasPopup);
    theme->actionInterface()->doAction(QAccessibleActionInterface::showMenuAction());
    EXPECT_EQ(drops.count(), 1);
    EXPECT_EQ(clicks.count(), 0);
    theme->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_EQ(clicks.count(), 1);
    EXPECT_EQ(drops.count(), 1);
}
