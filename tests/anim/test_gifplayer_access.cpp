// The animated picture as a screen reader meets it: an animation with the name the program
// gives it, animated while it plays and announced when it stops.

#include "AccessRecorder.h"
#include "GifTestSupport.h"

#include "anim/ucGifPlayer.h"

#include <QAccessible>

#include <gtest/gtest.h>

using namespace zrt;
using namespace giftest;
using zrt::test::AccessRecorder;

TEST(AccessGifPlayer, AnAnimationWithItsNameAnimatedWhilePlaying)
{
    AccessRecorder recorder;
    ucGifPlayer player;
    player.resize(40, 20);
    player.setAccessibleName(QStringLiteral("Zorvane waving"));
    ASSERT_TRUE(player.LoadAnimatedGIF_Array(SolidFrames(3, 40, 20, 10, 1)));
    player.FireBuildTimer();

    QAccessibleInterface *iface = QAccessible::queryAccessibleInterface(&player);
    ASSERT_NE(iface, nullptr);
    EXPECT_EQ(iface->role(), QAccessible::Animation);
    EXPECT_EQ(iface->text(QAccessible::Name), "Zorvane waving");
    EXPECT_TRUE(iface->state().animated);
    QAccessibleImageInterface *image = iface->imageInterface();
    ASSERT_NE(image, nullptr);
    EXPECT_EQ(image->imageSize(), QSize(40, 20));

    // One loop: the last frame ends it.
    for (int i = 0; i < 3 && player.FrameTimerPending(); ++i)
        player.FireFrameTimer();
    ASSERT_FALSE(player.FrameTimerPending());
    EXPECT_FALSE(iface->state().animated);
    EXPECT_TRUE(AccessRecorder::changed(&player).animated);
}

TEST(AccessGifPlayer, AStillPictureIsAGraphic)
{
    AccessRecorder recorder;
    ucGifPlayer player;
    player.setAccessibleName(QStringLiteral("Start"));
    ASSERT_TRUE(player.LoadAnimatedGIF_Array(SolidFrames(1, 10, 10)));
    QAccessibleInterface *iface = QAccessible::queryAccessibleInterface(&player);
    ASSERT_NE(iface, nullptr);
    EXPECT_EQ(iface->role(), QAccessible::Graphic);
    EXPECT_FALSE(iface->state().animated);
}
