// A chart surface as a screen reader meets it: a graphic whose description is the text
// alternative the page gives it, announced when it changes.

#include "AccessRecorder.h"

#include "charts/PictureBox.h"

#include <QAccessible>
#include <QSignalSpy>

#include <gtest/gtest.h>

using namespace zrt;
using zrt::test::AccessRecorder;

TEST(AccessSurface, AGraphicDescribedByItsTextAlternative)
{
    AccessRecorder recorder;
    PictureBox box;
    box.resize(200, 120);
    box.setAccessibleName(QStringLiteral("Box plots"));

    QAccessibleInterface *iface = QAccessible::queryAccessibleInterface(&box);
    ASSERT_NE(iface, nullptr);
    EXPECT_EQ(iface->role(), QAccessible::Graphic);
    EXPECT_EQ(iface->text(QAccessible::Name), "Box plots");
    EXPECT_TRUE(iface->text(QAccessible::Description).isEmpty());

    QSignalSpy changes(&box, &PictureBox::TextAlternativeChanged);
    const QString answers = QStringLiteral("Visual: median 0.287, quartiles 0.251 and 0.302");
    box.setTextAlternative(answers);
    EXPECT_EQ(box.TextAlternative(), answers);
    EXPECT_EQ(iface->text(QAccessible::Description), answers);
    ASSERT_NE(iface->imageInterface(), nullptr);
    EXPECT_EQ(iface->imageInterface()->imageDescription(), answers);
    EXPECT_EQ(AccessRecorder::count(&box, QAccessible::DescriptionChanged), 1);

    // The same text again is no change.
    box.setTextAlternative(answers);
    EXPECT_EQ(changes.count(), 1);
    EXPECT_EQ(AccessRecorder::count(&box, QAccessible::DescriptionChanged), 1);

    // Hidden answers again: the picture falls back to the description the program gave it.
    box.setAccessibleDescription(QStringLiteral("Answers hidden"));
    box.setTextAlternative(QString());
    EXPECT_EQ(iface->text(QAccessible::Description), "Answers hidden");
}

TEST(AccessSurface, WordsMadeByARoutineAreMadeWhenFirstReadAndAnnounced)
{
    AccessRecorder recorder;
    PictureBox box;
    QAccessibleInterface *iface = QAccessible::queryAccessibleInterface(&box);
    ASSERT_NE(iface, nullptr);
    int made = 0;
    QString leaves = QStringLiteral("stem 2: 3 7");
    box.setTextAlternativeSource([&] {
        ++made;
        return leaves;
    });
    EXPECT_EQ(made, 0) << "nothing is made while nobody reads";
    EXPECT_EQ(AccessRecorder::count(&box, QAccessible::DescriptionChanged), 1);
    leaves = QStringLiteral("stem 2: 3 7 9"); // the state the words are made from moves on
    EXPECT_EQ(iface->text(QAccessible::Description), "stem 2: 3 7 9");
    EXPECT_EQ(box.TextAlternative(), "stem 2: 3 7 9");
    EXPECT_EQ(made, 1) << "made once, then kept";

    // Plain words given later replace the routine before it is ever asked.
    box.setTextAlternativeSource([&] {
        ++made;
        return QStringLiteral("never read");
    });
    box.setTextAlternative(QString());
    EXPECT_TRUE(box.TextAlternative().isEmpty());
    EXPECT_EQ(made, 1);
}
