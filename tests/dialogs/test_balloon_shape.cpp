#include "dialogs/BalloonShape.h"

#include <gtest/gtest.h>

using namespace zrt::BalloonShape;

namespace {

const QRect kScreen(0, 0, 800, 600);
const QSize kWindow(360, 200);

} // namespace

TEST(BalloonShape, StyleFollowsTheScreenQuarterWithTheMiddleLinesCountingAsLeftAndUpper)
{
    EXPECT_EQ(PointerStyleFor({10, 10}, kScreen), UpperLeft);
    EXPECT_EQ(PointerStyleFor({400, 300}, kScreen), UpperLeft);
    EXPECT_EQ(PointerStyleFor({401, 300}, kScreen), UpperRight);
    EXPECT_EQ(PointerStyleFor({400, 301}, kScreen), LowerLeft);
    EXPECT_EQ(PointerStyleFor({401, 301}, kScreen), LowerRight);
    EXPECT_EQ(PointerStyleFor({799, 599}, kScreen), LowerRight);
    // A second screen to the right: the quarters are its own.
    const QRect second(800, 0, 800, 600);
    EXPECT_EQ(PointerStyleFor({900, 100}, second), UpperLeft);
    EXPECT_EQ(PointerStyleFor({1500, 500}, second), LowerRight);
}

TEST(BalloonShape, WindowIsPlacedSoThatTheTipMeetsThePoint)
{
    const QPoint tip(300, 250);
    EXPECT_EQ(WindowTopLeft(UpperLeft, tip, kWindow), QPoint(300 - 42, 250));
    EXPECT_EQ(WindowTopLeft(UpperRight, tip, kWindow), QPoint(300 + 42 - 360, 250));
    EXPECT_EQ(WindowTopLeft(LowerLeft, tip, kWindow), QPoint(300 - 42, 250 - 200));
    EXPECT_EQ(WindowTopLeft(LowerRight, tip, kWindow), QPoint(300 + 42 - 360, 250 - 200));
    for (PointerStyle style : {LowerRight, UpperRight, LowerLeft, UpperLeft}) {
        // The triangle's first corner is its tip, and it lies on the window's edge at the tip.
        const QPolygon triangle = PointerPolygon(style, kWindow);
        ASSERT_EQ(triangle.size(), 3);
        EXPECT_EQ(triangle.point(0), TipInWindow(style, kWindow)) << style;
        EXPECT_EQ(WindowTopLeft(style, tip, kWindow) + triangle.point(0), tip) << style;
    }
    EXPECT_TRUE(PointerPolygon(NoPointer, kWindow).isEmpty());
    EXPECT_TRUE(PointerRegion(NoPointer, kWindow).isEmpty());
}

TEST(BalloonShape, PointerJoinsTheFaceAndStaysInTheWindow)
{
    const QRegion face = MainRegion(kWindow);
    for (PointerStyle style : {LowerRight, UpperRight, LowerLeft, UpperLeft}) {
        const QRegion pointer = PointerRegion(style, kWindow);
        EXPECT_FALSE(pointer.isEmpty());
        EXPECT_TRUE(QRect(QPoint(0, 0), kWindow).contains(pointer.boundingRect())) << style;
        EXPECT_FALSE((pointer & face).isEmpty()) << "pointer must overlap the face, style " << style;
        EXPECT_FALSE((pointer - face).isEmpty()) << style;
    }
}

TEST(BalloonShape, FaceAndShadowRegionsHaveTheirCornersCut)
{
    const QRegion face = MainRegion(kWindow);
    EXPECT_EQ(face.boundingRect(), QRect(QPoint(0, 20), QPoint(360 - 15, 200 - 33)));
    EXPECT_TRUE(face.contains(QPoint(180, 100)));
    EXPECT_FALSE(face.contains(QPoint(0, 20))) << "rounded corner";
    EXPECT_FALSE(face.contains(QPoint(180, 10))) << "the pointer's room stays free";

    const QRegion shadow = ShadowRegion(kWindow);
    EXPECT_EQ(shadow.boundingRect(), QRect(QPoint(11, 29), QPoint(360 - 6, 200 - 24)));
    EXPECT_FALSE(shadow.contains(QPoint(360 - 6, 200 - 24))) << "rounded corner";
    EXPECT_FALSE((shadow - face).isEmpty()) << "a band of shadow shows beside the face";

    EXPECT_TRUE(RoundRectRegion(10, 10, 10, 40, 5, 5).isEmpty());
}

TEST(BalloonShape, ShadowStripsRunInwardsWithLessOfTheBackgroundShowing)
{
    const auto strips = ShadowStrips(kWindow);
    EXPECT_EQ(strips.front().row, QRect(5, 200 - 23, 350, 2));
    EXPECT_EQ(strips.front().column, QRect(360 - 5, 23, 2, 200 - 46));
    EXPECT_EQ(strips.front().behindAlpha, 225);
    EXPECT_EQ(strips.back().row.top(), 200 - 23 - 18);
    EXPECT_EQ(strips.back().column.left(), 360 - 5 - 18);
    EXPECT_EQ(strips.back().behindAlpha, 0);
    for (std::size_t i = 1; i < strips.size(); ++i)
        EXPECT_EQ(strips[i - 1].behindAlpha - strips[i].behindAlpha, 25);
}

TEST(BalloonShape, StandsOnScreenAllowsTheShadowsSlackOnly)
{
    EXPECT_TRUE(StandsOnScreen(QRect(0, -20, 200, 100), kScreen));
    EXPECT_FALSE(StandsOnScreen(QRect(-1, 0, 200, 100), kScreen));
    EXPECT_FALSE(StandsOnScreen(QRect(0, -21, 200, 100), kScreen));
    EXPECT_TRUE(StandsOnScreen(QRect(603, 0, 200, 100), kScreen));
    EXPECT_FALSE(StandsOnScreen(QRect(604, 0, 200, 100), kScreen));
    EXPECT_TRUE(StandsOnScreen(QRect(0, 520, 200, 100), kScreen));
    EXPECT_FALSE(StandsOnScreen(QRect(0, 521, 200, 100), kScreen));
}
