// The scatter graph with its red mean point, and the correlation scale.

#include "ChartTestSupport.h"

#include "charts/CorrelationScale.h"
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
// u = CLng(360 / 200) = 2, so r = 0.5 puts the arrow at 2 x 50 + 200 = 300, r = -1 at 0.
TEST(CorrelationScale, BlackScaleAndRedArrow)
{
    PictureBox s;
    Prepare(s, 400, 100);
    DrawCorrelationScale(s, 0.5);
    EXPECT_EQ(s.PixelAt(100, 90), Colour(Black));
    EXPECT_EQ(s.PixelAt(20, 83), Colour(Black));
    EXPECT_EQ(s.PixelAt(380, 83), Colour(Black));
    EXPECT_EQ(s.PixelAt(200, 83), Colour(Black));
    EXPECT_EQ(s.PixelAt(300, 70), Colour(CorrelationArrowColour));
    EXPECT_EQ(s.PixelAt(296, 84), Colour(CorrelationArrowColour)); // the head's left arm
    EXPECT_EQ(s.PixelAt(300, 55), Colour(White));                  // 30 pixels tall
    EXPECT_GT(InkIn(s, QRect(15, 58, 30, 24)), 0);                 // "-1"
    EXPECT_EQ(CorrelationArrowX(400, -1.0), 0);
    EXPECT_EQ(CorrelationArrowX(500, 1.0), 450); // u = CLng(2.25) = 2: short of "+1" at 475
}
