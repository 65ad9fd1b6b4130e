// The scatter graph with its red mean point, and the correlation scale.

#include "ChartTestSupport.h"

#include "charts/CorrelationScale.h"
#include "common/NumberText.h"
#include "charts/ScatterGraph.h"
#include "common/RunTimeError.h"

#include <gtest/gtest.h>

using namespace zrt;
using namespace charttest;

// Surface 500 x 400. Visual 23..31 runs from 20 to 40 (c 20, qx = 350 / 20 = 17.5); audio
// 31..39 from 30 to 40 (c 10, qy = 280 / 10 = 28). Horizontal axis at y 360 from 100 to 450,
// ticks at 100, 275, 450; vertical axis at x 50 from 40 to 320, ticks at 320 and 40.
// Pairs (23,33) (25,31) (27,37) (29,35) (31,39): x = CLng((v - 20) x 17.5 + 100) gives 152, 188,
// 222, 258, 292 (halves to even); y = 320 - (a - 30) x 28 gives 236, 292, 124, 180, 68.
// Means 27 and 35: the red point at (222, 180).
class Scatter : public ::testing::Test {
protected:
    void Draw(bool show)
    {
        Prepare(s, 500, 400);
        visual = {23, 25, 27, 29, 31};
        audio = {33, 31, 37, 35, 39};
        DrawScatter(s, visual, audio, show, vs, as);
    }
    PictureBox s;
    std::vector<int> visual, audio;
    BoxSummary vs, as;
};

TEST_F(Scatter, AxesBreakPointsAndMeanPoint)
{
    Draw(true);
    EXPECT_EQ(s.PixelAt(300, 360), Colour(Black));
    EXPECT_EQ(s.PixelAt(275, 364), Colour(Black)); // tick at 30
    EXPECT_EQ(s.PixelAt(50, 200), Colour(Black));
    EXPECT_EQ(s.PixelAt(46, 40), Colour(Black));   // tick at 40, to the left
    EXPECT_EQ(s.PixelAt(50, 326), Colour(Black));  // the break: down from the axis
    EXPECT_EQ(s.PixelAt(56, 344), Colour(Black));  // its right corner
    EXPECT_EQ(s.PixelAt(75, 354), Colour(Black));  // the zigzag on the horizontal axis
    EXPECT_EQ(s.PixelAt(50, 334), Colour(White));  // the axis itself is broken there

    for (const QPoint &p : {QPoint(152, 236), QPoint(188, 292), QPoint(222, 124), QPoint(258, 180),
                            QPoint(292, 68)})
        EXPECT_EQ(s.PixelAt(p.x(), p.y()), Colour(PairPointColour)) << p.x() << "," << p.y();
    EXPECT_EQ(s.PixelAt(222, 180), Colour(MeanPointColour));
    EXPECT_TRUE(IsMeanPoint(s, 223, 181));
    EXPECT_FALSE(IsMeanPoint(s, 258, 180));
    EXPECT_FALSE(IsMeanPoint(s, 222, 190));

    EXPECT_EQ(vs.count, 5);
    EXPECT_EQ(vs.lowest, 23);
    EXPECT_EQ(as.highest, 39);
    EXPECT_EQ(vs.mean, 27);
    EXPECT_EQ(as.mean, 35);
    EXPECT_EQ(MeanPointMessage(vs, as), "Mean Data Point : (27,35)");
    EXPECT_EQ(audio, (std::vector<int>{31, 33, 35, 37, 39})); // sorted after the pairs were copied
}

TEST_F(Scatter, WithoutCoordinatesThereIsNothingToClick)
{
    Draw(false);
    EXPECT_EQ(CountIn(s, QRect(0, 0, 500, 400), PairPointColour), 0);
    EXPECT_FALSE(IsMeanPoint(s, 222, 180));
    EXPECT_EQ(vs.mean, 0); // the summaries are left alone
    EXPECT_EQ(vs.count, 0);
    EXPECT_EQ(s.PixelAt(300, 360), Colour(Black));
}

TEST_F(Scatter, ShortAudioListIsASubscriptFailure)
{
    Prepare(s, 500, 400);
    std::vector<int> v{23, 25, 27}, a{30, 31};
    try {
        DrawScatter(s, v, a, true, vs, as);
        FAIL();
    } catch (const RunTimeError &e) {
        EXPECT_EQ(e.number(), ErrSubscript);
    }
}

// Surface 400 x 100: line at y 90 from 20 to 380, ticks at 20, 380 and 200 up to 80.
// 1.8 pixels per hundredth of the coefficient, so r = 0.5 puts the arrow at 90 + 200 = 290.
TEST(CorrelationScale, BlackScaleAndRedArrow)
{
    PictureBox s;
    Prepare(s, 400, 100);
    DrawCorrelationScale(s, 0.5);
    EXPECT_EQ(s.PixelAt(100, 90), Colour(Black));
    EXPECT_EQ(s.PixelAt(20, 83), Colour(Black));
    EXPECT_EQ(s.PixelAt(380, 83), Colour(Black));
    EXPECT_EQ(s.PixelAt(200, 83), Colour(Black));
    EXPECT_EQ(s.PixelAt(290, 70), Colour(CorrelationArrowColour));
    EXPECT_EQ(s.PixelAt(286, 84), Colour(CorrelationArrowColour)); // the head's left arm
    EXPECT_EQ(s.PixelAt(290, 55), Colour(White));                  // 30 pixels tall
    EXPECT_GT(InkIn(s, QRect(15, 58, 30, 24)), 0);                 // "-1"
}

// The arrow stands between the end ticks CLng(w x 0.05) and CLng(w x 0.95) for every
// coefficient and width: 566 pixels used to put r = 0.9553 at 570 (a whole 3 pixels per
// hundredth), r = 1 off the surface, and a wide window put +1 right of its tick.
TEST(CorrelationScale, ArrowStaysOnTheScaleAtEveryWidth)
{
    EXPECT_EQ(CorrelationArrowX(566, 0.9553), 526); // 566 x 0.45 x 0.9553 + 283 = 526.3
    EXPECT_EQ(CorrelationArrowX(566, 1.0), CLng(566 * 0.95));
    EXPECT_EQ(CorrelationArrowX(566, -1.0), CLng(566 * 0.05));
    EXPECT_EQ(CorrelationArrowX(1250, 1.0), CLng(1250 * 0.95));
    EXPECT_EQ(CorrelationArrowX(500, 1.0000001), 475); // single precision just past +1
    for (int w = 300; w <= 1280; w += 7)
        for (double r = -1.0; r <= 1.0; r += 0.0625) {
            const int x = CorrelationArrowX(w, r);
            EXPECT_GE(x, CLng(w * 0.05)) << w << " " << r;
            EXPECT_LE(x, CLng(w * 0.95)) << w << " " << r;
        }

    // r = 1 shows its arrow, almost at "+1": on the end tick, inside the surface.
    PictureBox s;
    Prepare(s, 566, 120);
    DrawCorrelationScale(s, 1.0);
    const QRect arrow = BoundsOf(s, QRect(0, 0, 566, 120), CorrelationArrowColour);
    ASSERT_FALSE(arrow.isNull());
    EXPECT_NEAR(arrow.center().x(), CLng(566 * 0.95), 1);
    EXPECT_LT(arrow.right(), 566);
}
