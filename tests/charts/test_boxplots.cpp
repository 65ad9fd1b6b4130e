// The single box plot and the comparison box plots, read back by pixels.

#include "ChartTestSupport.h"

#include "charts/BoxPlots.h"
#include "common/RunTimeError.h"

#include <gtest/gtest.h>

using namespace zrt;
using namespace charttest;

namespace {

// 20 24 26 28 30 32 36 60 in hundredths: Q1 25, median 29, Q3 34, IQR 9, limits 11.5 and 47.5,
// so 60 is an upper outlier and the upper whisker ends at 36.
AnalysisResults EightTimes(int unit)
{
    AnalysisResults r;
    r.SampleSize = 8;
    r.LowestValue = 20 * unit;
    r.HighestValue = 60 * unit;
    r.RangeValue = 40 * unit;
    r.MedianValue = 29.0 * unit;
    r.LowerQuartile = 25.0 * unit;
    r.UpperQuartile = 34.0 * unit;
    r.InterquartileRange = 9.0 * unit;
    r.LowerOutlierLimit = 11.5 * unit;
    r.UpperOutlierLimit = 47.5 * unit;
    return r;
}

std::vector<int> EightValues(int unit)
{
    std::vector<int> v{20, 24, 26, 28, 30, 32, 36, 60};
    for (int &x : v)
        x *= unit;
    return v;
}

} // namespace

// Surface 400 x 200. RoundToFigures(40, 1) = 40, so L = 50; lowest 20: RoundToFigures(15, 1) = 20
// and 20 is not above 25, so s = 20. p = CLng(360 / 51) = 7, tick step 35 from x0 = 20: ticks
// 20, 55, ..., 370 between y 160 and 166. x(v) = 20 + CLng((v - 20) x 7): whisker 20, Q1 55,
// median 83, Q3 118, whisker 132, outlier 300. Box rows 60 to 140, caps 80 to 120, middle 100.
TEST(BoxPlot, ScaleBoxWhiskersAndOutlierCross)
{
    PictureBox s;
    Prepare(s, 400, 200);
    DrawBoxPlot(s, EightValues(1), EightTimes(1), 0, true);

    EXPECT_EQ(s.ScaleMode(), PictureBox::Twips);
    EXPECT_EQ(s.PixelAt(200, 160), Colour(Black));  // axis
    EXPECT_EQ(s.PixelAt(55, 164), Colour(Black));   // second tick
    EXPECT_EQ(s.PixelAt(370, 164), Colour(Black));  // last tick
    EXPECT_EQ(s.PixelAt(62, 164), Colour(White));   // between ticks
    EXPECT_EQ(s.PixelAt(376, 160), Colour(White));  // the axis ends at the last tick
    EXPECT_GT(InkIn(s, QRect(15, 166, 20, 14)), 0); // label "20"

    EXPECT_EQ(s.PixelAt(20, 85), Colour(Black));   // lower cap
    EXPECT_EQ(s.PixelAt(40, 100), Colour(Black));  // lower whisker
    EXPECT_EQ(s.PixelAt(55, 130), Colour(Black));  // box, left edge
    EXPECT_EQ(s.PixelAt(90, 60), Colour(Black));   // box, top edge
    EXPECT_EQ(s.PixelAt(83, 120), Colour(Black));  // median
    EXPECT_EQ(s.PixelAt(118, 70), Colour(Black));  // box, right edge
    EXPECT_EQ(s.PixelAt(132, 115), Colour(Black)); // upper cap at 36, not at the outlier
    EXPECT_EQ(s.PixelAt(200, 100), Colour(White)); // no whisker out to the outlier
    EXPECT_EQ(s.PixelAt(300, 100), Colour(Black)); // cross centre
    EXPECT_EQ(s.PixelAt(304, 96), Colour(Black));
    EXPECT_EQ(s.PixelAt(296, 104), Colour(Black));

    EXPECT_EQ(s.PixelAt(70, 75), Colour(BoxFill));
    EXPECT_EQ(s.PixelAt(100, 125), Colour(BoxFill)); // the fill crosses the median drawn after it
    EXPECT_EQ(s.PixelAt(140, 75), Colour(White));
    EXPECT_GT(InkIn(s, QRect(120, 180, 250, 20)), 0); // the italic caption
}

TEST(BoxPlot, FinerPrecisionDrawsTheSameHundredthsPicture)
{
    PictureBox hundredths, thousandths;
    Prepare(hundredths, 400, 200);
    Prepare(thousandths, 400, 200);
    DrawBoxPlot(hundredths, EightValues(1), EightTimes(1), 0, true);
    DrawBoxPlot(thousandths, EightValues(10), EightTimes(10), 1, true);
    EXPECT_EQ(hundredths.Image(), thousandths.Image());
}

TEST(BoxPlot, HiddenBoxLeavesOnlyTheScale)
{
    PictureBox s;
    Prepare(s, 400, 200);
    DrawBoxPlot(s, EightValues(1), EightTimes(1), 0, false);
    EXPECT_EQ(InkIn(s, QRect(0, 50, 400, 100)), 0);
    EXPECT_EQ(s.PixelAt(200, 160), Colour(Black));
}

// 2 20 22 24 26 28 30 32: Q1 21, median 25, Q3 29, lower limit 9, so 2 is a lower outlier.
// Lowest 2 is at most 5, so s = 0; range 30 gives L = 40 and p = CLng(360 / 41) = 9.
// x(2) = 20 + 18 = 38 (a cross), the lower whisker's cap at x(20) = 200.
TEST(BoxPlot, LowerOutlierIsCrossedAndTheScaleStartsAtZero)
{
    AnalysisResults r;
    r.LowestValue = 2;
    r.RangeValue = 30;
    r.MedianValue = 25;
    r.LowerQuartile = 21;
    r.UpperQuartile = 29;
    r.InterquartileRange = 8;
    r.LowerOutlierLimit = 9;
    r.UpperOutlierLimit = 41;
    PictureBox s;
    Prepare(s, 400, 200);
    DrawBoxPlot(s, {2, 20, 22, 24, 26, 28, 30, 32}, r, 0, true);
    EXPECT_EQ(s.PixelAt(38, 100), Colour(Black));
    EXPECT_EQ(s.PixelAt(34, 96), Colour(Black));
    EXPECT_EQ(s.PixelAt(200, 85), Colour(Black));
    EXPECT_EQ(s.PixelAt(120, 100), Colour(White)); // nothing between the outlier and the whisker
}

TEST(BoxPlot, EndlessCasesBecomeRunTimeErrors)
{
    PictureBox s;
    Prepare(s, 400, 200);
    AnalysisResults equal = EightTimes(1);
    equal.RangeValue = 0; // RoundToFigures of 0 has no leading figure
    EXPECT_THROW(DrawBoxPlot(s, EightValues(1), equal, 0, true), RunTimeError);

    Prepare(s, 20, 200); // p = CLng(18 / 51) = 0: a tick step of 0
    try {
        DrawBoxPlot(s, EightValues(1), EightTimes(1), 0, true);
        FAIL() << "no run-time error";
    } catch (const RunTimeError &e) {
        EXPECT_EQ(e.number(), ErrInvalidCall);
    }
}

// Surface 500 x 300. Visual 23 25 27 29 31: Q1 24, median 27, Q3 30. Audio 30 32 34 36 38:
// Q1 31, median 34, Q3 37. Scale from 20 (text of 23) to 40 ((3 + 1) x 10): c = 20, q = 20.
// Axis at y 240 from 50 to 450, ticks at 50, 250, 450. X(v) = (v - 20) x 20 + 50.
// Visual on Y = 180: caps at 110 and 270, box 130..250 by 160..200, median 190.
// Audio on Y = 90: caps at 250 and 410, box 270..390 by 70..110, median 330.
TEST(CompareBoxPlots, TwoBoxesOnOneScale)
{
    PictureBox s;
    Prepare(s, 500, 300);
    std::vector<int> visual{31, 23, 27, 25, 29}, audio{38, 30, 34, 32, 36};
    BoxSummary vs, as;
    const CompareButtons buttons = DrawCompareBoxPlots(s, visual, audio, true, vs, as);

    EXPECT_EQ(visual, (std::vector<int>{23, 25, 27, 29, 31}));
    EXPECT_EQ(vs.count, 5);
    EXPECT_EQ(vs.lowest, 23);
    EXPECT_EQ(vs.highest, 31);
    EXPECT_EQ(vs.median, 27);
    EXPECT_EQ(vs.lowerQuartile, 24);
    EXPECT_EQ(vs.upperQuartile, 30);
    EXPECT_EQ(as.median, 34);

    EXPECT_EQ(s.PixelAt(300, 240), Colour(Black)); // axis
    EXPECT_EQ(s.PixelAt(250, 244), Colour(Black)); // middle tick
    EXPECT_EQ(s.PixelAt(450, 244), Colour(Black)); // end tick
    EXPECT_GT(InkIn(s, QRect(245, 245, 30, 20)), 0); // label 30

    EXPECT_EQ(s.PixelAt(110, 175), Colour(Black)); // visual lower cap
    EXPECT_EQ(s.PixelAt(120, 180), Colour(Black)); // visual whisker
    EXPECT_EQ(s.PixelAt(190, 165), Colour(Black)); // visual median
    EXPECT_EQ(s.PixelAt(270, 185), Colour(Black)); // visual upper cap
    EXPECT_EQ(s.PixelAt(160, 170), Colour(BoxFill));
    EXPECT_EQ(s.PixelAt(220, 192), Colour(BoxFill));
    EXPECT_EQ(s.PixelAt(330, 100), Colour(Black)); // audio median
    EXPECT_EQ(s.PixelAt(300, 80), Colour(BoxFill));
    EXPECT_EQ(s.PixelAt(410, 95), Colour(Black)); // audio upper cap
    EXPECT_EQ(s.PixelAt(300, 130), Colour(White));

    EXPECT_TRUE(buttons.visible);
    EXPECT_DOUBLE_EQ(buttons.visualTop, 171);
    EXPECT_DOUBLE_EQ(buttons.audioTop, 81);
}

TEST(CompareBoxPlots, HiddenBoxesKeepTheScaleAndHideTheButtons)
{
    PictureBox s;
    Prepare(s, 500, 300);
    std::vector<int> visual{23, 25, 27, 29, 31}, audio{30, 32, 34, 36, 38};
    BoxSummary vs, as;
    EXPECT_FALSE(DrawCompareBoxPlots(s, visual, audio, false, vs, as).visible);
    EXPECT_EQ(InkIn(s, QRect(0, 0, 500, 230)), 0);
    EXPECT_EQ(s.PixelAt(300, 240), Colour(Black));
    EXPECT_EQ(vs.median, 27); // the summaries are filled all the same
}

TEST(CompareBoxPlots, DetailsListTheFiveNumbers)
{
    BoxSummary s;
    s.lowest = 23;
    s.lowerQuartile = 24.5;
    s.median = 27;
    s.upperQuartile = 30;
    s.highest = 31;
    EXPECT_EQ(DetailsText(s), "Lowest value = 23\nLower Quartile = 24.5\nMedian = 27\nUpper Quartile = 30\n"
                              "Highest value = 31");
}

namespace {

// Results of a sorted list with the quartiles given, for the geometry tests below.
AnalysisResults Spread(int lowest, int highest, double q1, double median, double q3)
{
    AnalysisResults r;
    r.LowestValue = lowest;
    r.HighestValue = highest;
    r.RangeValue = highest - lowest;
    r.LowerQuartile = q1;
    r.MedianValue = median;
    r.UpperQuartile = q3;
    r.InterquartileRange = q3 - q1;
    r.LowerOutlierLimit = q1 - 1.5 * (q3 - q1);
    r.UpperOutlierLimit = q3 + 1.5 * (q3 - q1);
    return r;
}

bool AnyOverlap(const std::vector<QRect> &inks)
{
    for (size_t i = 0; i < inks.size(); ++i)
        for (size_t j = i + 1; j < inks.size(); ++j)
            if (inks[i].adjusted(-1, 0, 1, 0).intersects(inks[j]))
                return true;
    return false;
}

} // namespace

// 22 to 167 on 566 x 300: the range 145 rounds to 100, so the scale as first worked out is
// 110 long from s = 20 and ends at 130, short of 167. It is lengthened to 147: p = CLng(509.4 /
// 148) = 3, which leaves room for the last cap (28 + 147 x 3 = 469). Before, p was 5 and the
// whisker ran to 763. The 15-pixel label cell holds "100" in more than the 15 pixels between
// ticks, so only every other tick is numbered.
TEST(BoxPlot, ScaleReachesTheHighestTimeAndItsLabelsStayApart)
{
    PictureBox s;
    Prepare(s, 566, 300);
    s.SetRecording(true);
    DrawBoxPlot(s, {22, 40, 60, 100, 120, 167}, Spread(22, 167, 40, 80, 120), 0, true);
    EXPECT_EQ(s.PixelAt(469, 130), Colour(Black)); // the upper cap, h x 0.4 .. 0.6 = 120 .. 180
    EXPECT_EQ(s.PixelAt(34, 130), Colour(Black));  // the lower cap at 22, 2 hundredths in
    EXPECT_EQ(s.PixelAt(28 + 60, 130), Colour(Black)); // Q1 = 40: 20 hundredths in
    for (const QRect &mark : s.Marks())
        EXPECT_TRUE(QRect(0, 0, 566, 300).contains(mark)) << mark.x() << "," << mark.y() << " " << mark.width();
    EXPECT_FALSE(AnyOverlap(s.LabelInks()));
    EXPECT_GE(s.LabelInks().size(), 8u); // the scale is still numbered along its length
}

// Upper outliers from 126 to 164 beyond a box of 30 to 40 (limits 15 and 55): all three crosses
// are on the surface now; p = 3 keeps 164 at 28 + 144 x 3 = 460.
TEST(BoxPlot, FarOutliersAreCrossedOnTheSurface)
{
    PictureBox s;
    Prepare(s, 566, 300);
    DrawBoxPlot(s, {20, 30, 35, 40, 45, 126, 140, 164}, Spread(20, 164, 30, 37.5, 40), 0, true);
    for (int v : {126, 140, 164}) {
        const int x = 28 + (v - 20) * 3;
        EXPECT_EQ(s.PixelAt(x, 150), Colour(Black)) << v;
        EXPECT_EQ(s.PixelAt(x + 3, 147), Colour(Black)) << v;
    }
    EXPECT_EQ(s.PixelAt(28 + 25 * 3, 130), Colour(Black)); // the upper whisker ends at 45
}

// Five times of 32, one of 33 and one of 48: Q1 = Q3 = 32, so the box has no inside. The fill
// used to start 5 pixels right of it and flood the surface up to the labels; now nothing is filled.
TEST(BoxPlot, BoxWithoutInsideIsNotFilled)
{
    PictureBox s;
    Prepare(s, 400, 200);
    DrawBoxPlot(s, {32, 32, 32, 32, 32, 33, 48}, Spread(32, 48, 32, 32, 32), 0, true);
    EXPECT_EQ(CountIn(s, QRect(0, 0, 400, 200), BoxFill), 0);
    EXPECT_GT(InkIn(s, QRect(0, 166, 400, 14)), 0); // the labels are still there

    // Range 2: L = 12, s = 30, p = CLng(360 / 13) = 28. A box from X(32) = 76 to X(32.15) = 80
    // is 4 pixels wide, so the seed at 81 misses it: it is filled from its middle, column 78.
    Prepare(s, 400, 200);
    DrawBoxPlot(s, {32, 32, 32, 32, 33, 33, 34}, Spread(32, 34, 32, 32, 32.15), 0, true);
    const QRect fill = BoundsOf(s, QRect(0, 0, 400, 200), BoxFill);
    ASSERT_FALSE(fill.isNull());
    EXPECT_TRUE(QRect(77, 61, 3, 79).contains(fill))
        << fill.x() << "," << fill.y() << " " << fill.width() << "x" << fill.height();
}

TEST(BoxPlot, FailuresSayWhatHappenedInPlainWords)
{
    PictureBox s;
    Prepare(s, 400, 200);
    try {
        DrawBoxPlot(s, {30, 30, 30}, Spread(30, 30, 30, 30, 30), 0, true);
        FAIL() << "no run-time error";
    } catch (const RunTimeError &e) {
        EXPECT_EQ(e.number(), ErrInvalidCall);
        EXPECT_EQ(e.plain(), AllEqualSentence);
        EXPECT_EQ(e.message().rfind("Run-time error '5': ", 0), 0u) << e.message();
        EXPECT_NE(e.message().find(AllEqualSentence), std::string::npos);
    }
    try {
        // 0.15 s to 3.5 s at 1/10000 th: a range of 33500 overflows the rounding to one figure.
        DrawBoxPlot(s, {1500, 35000}, Spread(1500, 35000, 1500, 18250, 35000), 2, true);
        FAIL() << "no run-time error";
    } catch (const RunTimeError &e) {
        EXPECT_EQ(e.number(), ErrOverflow);
        EXPECT_EQ(e.plain(), TooWideSentence);
    }
}

// The "Visual" and "Audio" buttons stand at Left 0; on a 400-pixel surface the scale starts at
// 40, where a lowest time on the scale's start has its cap. The buttons end short of it.
TEST(CompareBoxPlots, ButtonsLeaveTheCapAtTheScaleStartUncovered)
{
    PictureBox s;
    Prepare(s, 400, 300);
    std::vector<int> visual{20, 25, 27, 29, 31}, audio{30, 32, 34, 36, 38};
    BoxSummary vs, as;
    const CompareButtons buttons = DrawCompareBoxPlots(s, visual, audio, true, vs, as);
    EXPECT_EQ(s.PixelAt(40, 175), Colour(Black)); // the cap of 20 at Y - 5
    const QRect cap = BoundsOf(s, QRect(0, 165, 60, 30), Black);
    EXPECT_LT(buttons.width, cap.left());
    EXPECT_GE(buttons.width, 30);
    Prepare(s, 900, 300);
    EXPECT_EQ(DrawCompareBoxPlots(s, visual, audio, true, vs, as).width, CompareButtonWidth);
}
