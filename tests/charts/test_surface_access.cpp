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
