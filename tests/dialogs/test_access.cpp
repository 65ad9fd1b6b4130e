// The balloon dialog as a screen reader meets it: a dialog named by its title, its message as
// the description, its buttons pressable through their interfaces.

#include "AccessRecorder.h"

#include "access/BalloonAccess.h"
#include "dialogs/msgFrm.h"

#include <QAccessible>
#include <QSignalSpy>

#include <gtest/gtest.h>

using namespace zrt;
using zrt::test::AccessRecorder;

namespace {

// Every interface under the given one, depth first.
void Collect(QAccessibleInterface *iface, QList<QAccessibleInterface *> &all)
{
    for (int i = 0; i < iface->childCount(); ++i)
        if (QAccessibleInterface *child = iface->child(i)) {
            all.append(child);
            Collect(child, all);
        }
}

const QtMessageHandler kDefaultHandler = qInstallMessageHandler([](QtMsgType type, const QMessageLogContext &context, const QString &text) {
    if (!text.contains(QStringLiteral("does not support setting window masks")))
        kDefaultHandler(type, context, text);
});

} // namespace

TEST(AccessBalloon, ADialogWithItsTitleItsMessageAndButtonsThatAnswer)
{
    AccessRecorder recorder;
    msgFrm frm;
    MsgBoxArgs args;
    args.Title = QStringLiteral("Clear the data?");
    args.Text = QStringLiteral("Data Collected: 20. Clear it all?");
    args.Flags = 4 | 32; // Yes and No, a question
    args.NoPointer = true;
    frm.PrepareMsgBox(args);
    frm.show();

    QAccessibleInterface *iface = QAccessible::queryAccessibleInterface(&frm);
    ASSERT_NE(iface, nullptr);
    EXPECT_EQ(iface->role(), QAccessible::Dialog);
    EXPECT_EQ(iface->text(QAccessible::Name), "Clear the data?");
    EXPECT_EQ(iface->text(QAccessible::Description), "Data Collected: 20. Clear it all?");

    QList<QAccessibleInterface *> all;
    Collect(iface, all);
    QAccessibleInterface *no = nullptr;
    QStringList shownButtons;
    for (QAccessibleInterface *child : all)
        if (child->role() == QAccessible::Button && !child->state().invisible) {
            shownButtons << child->text(QAccessible::Name);
            if (child->text(QAccessible::Name) == "No")
                no = child;
        }
    EXPECT_EQ(shownButtons, (QStringList{"Yes", "No"}));
    ASSERT_NE(no, nullptr);
    no->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_EQ(frm.Answer(), 7);
}

TEST(AccessBalloon, TheOtherPanelsNameTheirOwnTitleAndText)
{
    AccessRecorder recorder;
    msgFrm frm;
    InputBoxArgs input;
    input.Title = QStringLiteral("Your name");
    input.Prompt = QStringLiteral("Type the pupil's name:");
    input.NoPointer = true;
    frm.PrepareInputBox(input);
    QAccessibleInterface *iface = QAccessible::queryAccessibleInterface(&frm);
    ASSERT_NE(iface, nullptr);
    EXPECT_EQ(iface->text(QAccessible::Name), "Your name");
    EXPECT_EQ(iface->text(QAccessible::Description), "Type the pupil's name:");
}

TEST(AccessBalloon, FormulaMarksAreReadAsWords)
{
    EXPECT_EQ(access::SpokenFormula(QStringLiteral("plain text")), "plain text");
    const QString spoken = access::SpokenFormula(QStringLiteral("r = 1 - 6x^2"));
    EXPECT_TRUE(spoken.contains(QStringLiteral("to the power 2"))) << spoken.toStdString();
    EXPECT_FALSE(spoken.contains(u'^'));
    const QString root = access::SpokenFormula(QStringLiteral("s = /\u00AF25"));
    EXPECT_TRUE(root.contains(QStringLiteral("square root of 25"))) << root.toStdString();
    EXPECT_FALSE(root.contains(QChar(0xAF)));
}
