// The Groups page's charts: tally, estimated mean, the two cumulative tables and the plot.
// One sample throughout: 0.21 to 0.27 (seven times), none in the thirties, 0.41 to 0.45 (five):
// stems 2 to 4, r = 3, g = 28, frequencies 7, 0, 5, cumulative 7, 7, 12.

#include "ChartTestSupport.h"

#include "charts/CumulativeFrequency.h"
#include "charts/Drawings.h"
#include "charts/EstimatedMeanTable.h"
#include "charts/TallyChart.h"
#include "common/NumberText.h"

#include <gtest/gtest.h>

using namespace zrt;
using namespace charttest;

namespace {

std::vector<int> Sample() { return {45, 21, 22, 23, 24, 25, 26, 27, 41, 42, 43, 44}; }

// The rightmost pixel of a colour on one row left of a limit, or -1.
int RightmostOnRow(const PictureBox &s, int y, OleColor colour, int limit)
{
    const QRect b = BoundsOf(s, QRect(0, y, limit, 1), colour);
    return b.isNull() ? -1 : b.right();
}

} // namespace

TEST(Tally, TextHasAGateForEachFive)
{
    EXPECT_EQ(TallyText(0), "");
    EXPECT_EQ(TallyText(5), "llll ");
    EXPECT_EQ(TallyText(7), "llll ll");
    EXPECT_EQ(TallyText(11), "llll llll l");
}

// Surface 400 x 300: rows at y 30, 58, 86, bottom CLng(30 + 84) = 114. Frame from x 8 to 392,
// header line at 30, header band filled. With c the width of "40<t<50" at 28, the class
// divider is at CLng(20 + c + 5) and the tally column starts at 20 + c + 15; with e the width
// of "Frequency" at 20 the frequency divider is at CLng(384 - e - 15), its values at 384 - e + 15.
TEST(Tally, FrameColumnsMarksAndGates)
{
    PictureBox s;
    Prepare(s, 400, 300);
    std::vector<int> data = Sample();
    DrawTally(s, data, true);
    EXPECT_EQ(data.front(), 21); // left sorted

    const int c = Drawings::MeasureFont(28, 0, "40<t<50");
    const int e = Drawings::MeasureFont(20, 0, "Frequency");
    const double tallyLeft = 20.0 + c + 15.0;
    const int frequencyDivider = CLng(384.0 - e - 15.0);
    const int frequencyLeft = CLng(384.0 - e + 15.0);

    EXPECT_EQ(s.PixelAt(8, 70), Colour(Black));
    EXPECT_EQ(s.PixelAt(392, 70), Colour(Black));
    EXPECT_EQ(s.PixelAt(200, 114), Colour(Black));
    EXPECT_EQ(s.PixelAt(200, 30), Colour(Black));
    EXPECT_EQ(s.PixelAt(CLng(20.0 + c + 5.0), 70), Colour(Black));
    EXPECT_EQ(s.PixelAt(frequencyDivider, 70), Colour(Black));
    EXPECT_EQ(s.PixelAt((frequencyDivider + CLng(tallyLeft) + 60) / 2, 21), Colour(BoxFill));
    EXPECT_EQ(s.PixelAt(200, 150), Colour(White));
    EXPECT_GT(CountIn(s, QRect(20, 30, c, 28), Black), 0); // class label

    // Row 0 (7): marks and one gate whose upper end, at (tallyLeft + 0.6 u, 33), rises above the marks.
    const int u = Drawings::MeasureFont(28, 0, "llll ");
    EXPECT_GT(CountIn(s, QRect(CLng(tallyLeft + u * 0.6) - 1, 32, 3, 3), Maroon), 0);
    EXPECT_GT(CountIn(s, QRect(frequencyLeft, 30, 30, 28), Maroon), 0);
    // Row 1 (0): no marks, but the frequency 0.
    EXPECT_EQ(CountIn(s, QRect(CLng(tallyLeft), 60, frequencyDivider - CLng(tallyLeft) - 2, 24), Maroon), 0);
    EXPECT_GT(CountIn(s, QRect(frequencyLeft, 58, 30, 28), Maroon), 0);
    // Row 2 (5): one gate.
    EXPECT_GT(CountIn(s, QRect(CLng(tallyLeft + u * 0.6) - 1, 88, 3, 3), Maroon), 0);
}

TEST(Tally, HiddenTallyShowsOnlyTheClassesAndFrame)
{
    PictureBox s;
    Prepare(s, 400, 300);
    std::vector<int> data = Sample();
    DrawTally(s, data, false);
    EXPECT_EQ(CountIn(s, QRect(0, 0, 400, 300), Maroon), 0);
    EXPECT_EQ(s.PixelAt(392, 70), Colour(Black));
}

// Surface 500 x 300: x2 = CLng(25 + c + 30 + e), x3 = x2 + m + 30 with m the width of "Mid (t)".
// Products 175, 0, 225, totals 400 and 12 on the row below the frame (y 114); the estimate
// 400 / 12 = 33.33 in blue, its right edge 15 pixels from the surface's, its top at 276.
TEST(EstimatedMean, ColumnsTotalsAndTheBlueEstimate)
{
    PictureBox s;
    Prepare(s, 500, 300);
    std::vector<int> data = Sample();
    DrawEstimatedMean(s, data, true);

    const int c = Drawings::MeasureFont(28, 0, "40<t<50");
    const int e = Drawings::MeasureFont(20, 0, "Frequency");
    const int m = Drawings::MeasureFont(20, 0, "Mid (t)");
    const int x2 = CLng(25.0 + c + 30.0 + e);
    const int x3 = x2 + m + 30;
    EXPECT_EQ(s.PixelAt(CLng(25.0 + c + 5.0), 70), Colour(Black));
    EXPECT_EQ(s.PixelAt(x2, 70), Colour(Black));
    EXPECT_EQ(s.PixelAt(x3, 70), Colour(Black));

    for (int row = 0; row < 3; ++row) {
        EXPECT_GT(CountIn(s, QRect(x2 + 15, 30 + 28 * row, 40, 28), Maroon), 0) << "midpoint " << row;
        EXPECT_GT(CountIn(s, QRect(x3 + 15, 30 + 28 * row, 60, 28), Maroon), 0) << "product " << row;
    }
    EXPECT_GT(CountIn(s, QRect(x3 + 15, 117, 50, 20), Black), 0); // 400 below the frame
    EXPECT_GT(CountIn(s, QRect(CLng(25.0 + c + 30.0), 117, 30, 20), Black), 0); // 12

    const QRect mean = BoundsOf(s, QRect(0, 250, 500, 50), EstimatedMeanColour);
    ASSERT_FALSE(mean.isNull());
    EXPECT_GE(mean.top(), 276);
    EXPECT_LE(mean.right(), 500 - 15);
    EXPECT_GE(mean.right(), 500 - 25);
    const int width = Drawings::MeasureFont(24, 0, "Estimated Mean = 33.33 to 2 d.p.");
    EXPECT_NEAR(mean.left(), 500 - width - 15, 3);
}

TEST(EstimatedMean, ResultsHiddenLeaveOnlyTheFrame)
{
    PictureBox s;
    Prepare(s, 500, 300);
    std::vector<int> data = Sample();
    DrawEstimatedMean(s, data, false);
    EXPECT_EQ(CountIn(s, QRect(0, 0, 500, 300), Maroon), 0);
    EXPECT_EQ(CountIn(s, QRect(0, 0, 500, 300), EstimatedMeanColour), 0);
    EXPECT_EQ(InkIn(s, QRect(0, 117, 500, 183)), 0);
}

// Surface 500 x 300. Left table: X = 25, frame from E = 10 to R = c + 55 + e (e: " Freq " at
// 18), class labels disabled and their strokes grey. Right table: X = 290, E = 275, labels
// 20<t<30, 20<t<40, 20<t<50 in black, cumulative 7, 7, 12 in maroon when shown.
TEST(CFTable, GreyFrequencyTableAndCumulativeTable)
{
    PictureBox s;
    Prepare(s, 500, 300);
    std::vector<int> data = Sample();
    DrawCFTable(s, data, true);

    const int c = Drawings::MeasureFont(28, 0, "40<t<50");
    const int right = c + 55 + Drawings::MeasureFont(18, 0, " Freq ");
    EXPECT_EQ(s.PixelAt(10, 70), Colour(Black));
    EXPECT_EQ(s.PixelAt(right, 70), Colour(Black));
    EXPECT_EQ(s.PixelAt(c + 30, 70), Colour(Black));
    EXPECT_EQ(s.PixelAt(13, 22), Colour(BoxFill));
    EXPECT_EQ(s.PixelAt(58, 50), Colour(RGB(97, 97, 97))); // the stroke under "<" of row 0
    const QRect leftLabels(25, 36, c - 10, 75); // below the header's descenders
    EXPECT_EQ(CountIn(s, leftLabels, Black), 0);
    EXPECT_GT(CountIn(s, leftLabels, ToOleColor(TranslateColor(SystemColor(16)))), 0);

    const int c2 = Drawings::MeasureFont(28, 0, "20<t<50");
    const int right2 = c2 + 320 + Drawings::MeasureFont(18, 0, "   CF   ");
    EXPECT_EQ(s.PixelAt(275, 70), Colour(Black));
    EXPECT_EQ(s.PixelAt(right2, 70), Colour(Black));
    EXPECT_EQ(s.PixelAt(278, 22), Colour(BoxFill));
    EXPECT_GT(CountIn(s, QRect(290, 31, c2 - 10, 80), Black), 0);
    for (int row = 0; row < 3; ++row)
        EXPECT_GT(CountIn(s, QRect(c2 + 320, 30 + 28 * row, 40, 28), Maroon), 0) << row;

    Prepare(s, 500, 300);
    DrawCFTable(s, data, false);
    EXPECT_EQ(CountIn(s, QRect(0, 0, 500, 300), Maroon), 0);
}

// Surface 400 x 300, m = 30. T = 12: u = 13, v = trunc(240 / 13) = 18. Scale end 50, so
// p = trunc(340 / 50) = 6. Points at (30 x 6 + 30, 270 - 7 x 18) = (210, 144), (270, 144) and
// (330, 54); the start segment from (20 x 6 + 30, 270) = (150, 270) to (210, 144).
// Reading lines: median 6 at y 162 meets the start segment at x = 150 + 108 / 126 x 60 = 201.4;
// lower quartile 3 at y 216 meets it at 175.7; upper quartile 9 at y 108 meets the last
// segment at 270 + 36 / 90 x 60 = 294.
TEST(CFPlot, AxesPointsCurveAndReadingLines)
{
    PictureBox s;
    Prepare(s, 400, 300);
    std::vector<int> data = Sample();
    DrawCFPlot(s, data, true, true);

    EXPECT_EQ(s.PixelAt(30, 200), Colour(Black)); // vertical axis
    EXPECT_EQ(s.PixelAt(300, 270), Colour(Black)); // horizontal axis
    EXPECT_EQ(s.PixelAt(90, 273), Colour(Black));  // tick at 10
    EXPECT_EQ(s.PixelAt(28, 252), Colour(Black));  // tick at 1

    EXPECT_EQ(s.PixelAt(209, 142), Colour(CurvePointColour));
    EXPECT_EQ(s.PixelAt(268, 143), Colour(CurvePointColour));
    EXPECT_EQ(s.PixelAt(330, 52), Colour(CurvePointColour));
    EXPECT_EQ(s.PixelAt(240, 144), Colour(Black)); // the flat segment
    EXPECT_EQ(s.PixelAt(180, 207), Colour(Black)); // the start segment

    const int median = RightmostOnRow(s, 162, Maroon, 285); // the upper quartile's drop crosses further right
    EXPECT_GE(median, 198);
    EXPECT_LE(median, 203);
    const int lower = RightmostOnRow(s, 216, Maroon, 195); // the median's drop crosses at 201
    EXPECT_GE(lower, 172);
    EXPECT_LE(lower, 178);
    const int upper = RightmostOnRow(s, 108, Maroon, 400);
    EXPECT_GE(upper, 291);
    EXPECT_LE(upper, 297);
    EXPECT_GT(CountIn(s, QRect(median - 1, 170, 3, 110), Maroon), 10); // the drop to the axis
    EXPECT_GT(CountIn(s, QRect(median - 2, 286, 25, 14), Maroon), 0);   // its reading below
    EXPECT_EQ(s.DrawStyle(), 2); // left dotted until the next paint
}

TEST(CFPlot, PointsAndReadingLinesOnlyWhenAsked)
{
    PictureBox s;
    Prepare(s, 400, 300);
    std::vector<int> data = Sample();
    EXPECT_EQ(DrawCFPlot(s, data, true, false), (std::array<int, 3>{-1, -1, -1})) << "no line, no reading";
    EXPECT_EQ(CountIn(s, QRect(0, 0, 400, 300), Maroon), 0);
    EXPECT_GT(CountIn(s, QRect(0, 0, 400, 300), CurvePointColour), 0);

    DrawCFPlot(s, data, false, true);
    EXPECT_EQ(CountIn(s, QRect(0, 0, 400, 300), CurvePointColour), 0);
    EXPECT_EQ(CountIn(s, QRect(0, 0, 400, 300), Maroon), 0);
    EXPECT_EQ(s.DrawStyle(), 0);
}

// 60 pixels wide: p = trunc(0 / 50) = 0, every point falls on the vertical axis.
TEST(CFPlot, NarrowSurfaceCollapsesThePointsOnTheAxis)
{
    PictureBox s;
    Prepare(s, 60, 300);
    std::vector<int> data = Sample();
    EXPECT_NO_THROW(DrawCFPlot(s, data, true, true));
    EXPECT_EQ(CountIn(s, QRect(36, 0, 24, 260), CurvePointColour), 0);
}

namespace {

// 120 times spread evenly from 10 to 89 hundredths: 15 in each class of stems 1 to 8.
std::vector<int> HundredAndTwenty()
{
    std::vector<int> v;
    for (int i = 0; i < 120; ++i)
        v.push_back(10 + i * 2 / 3);
    return v;
}

bool Overlapping(const std::vector<QRect> &inks)
{
    for (size_t i = 0; i < inks.size(); ++i)
        for (size_t j = i + 1; j < inks.size(); ++j)
            if (inks[i].adjusted(-1, 0, 1, 0).intersects(inks[j])) {
                ADD_FAILURE() << "labels at " << inks[i].x() << "," << inks[i].y() << " " << inks[i].width() << "x"
                              << inks[i].height() << " and " << inks[j].x() << "," << inks[j].y() << " "
                              << inks[j].width() << "x" << inks[j].height() << " overlap";
                return true;
            }
    return false;
}

} // namespace

// Surface 600 x 400, T = 120: v = trunc(340 / 121) = 2, X = 90, p = trunc(540 / 90) = 6.
// The points stand at ((s + 1) x 60 + 30, 370 - 30 s): the median 60 at y 250 is the point of
// stem 4, x 330, so its reading is 50 (the circle's edge at 327 reads CLng(297 / 6) = 50). The
// frequency labels, 2 pixels apart, used to stack into a bar whose three-digit numbers crossed
// the axis, and the search stopped there, reading about 1.
TEST(CFPlot, HundredsOfResultsKeepTheLabelsApartAndTheReadingOnTheCurve)
{
    PictureBox s;
    Prepare(s, 600, 400);
    s.SetRecording(true);
    std::vector<int> data = HundredAndTwenty();
    const std::array<int, 3> readings = DrawCFPlot(s, data, true, true);
    EXPECT_EQ(readings[0], 50) << "what the median's line reads is what it prints";
    EXPECT_LT(readings[1], readings[0]);
    EXPECT_GT(readings[2], readings[0]);
    EXPECT_FALSE(Overlapping(s.LabelInks()));
    for (const QRect &mark : s.Marks())
        EXPECT_TRUE(QRect(0, 0, 600, 400).contains(mark)) << mark.x() << "," << mark.y();
    EXPECT_EQ(CountIn(s, QRect(32, 31, 2, 338), Black), 0) << "nothing black right of the axis";

    const int median = BoundsOf(s, QRect(30, 250, 390, 1), Maroon).right(); // the upper quartile's drop is at 450
    EXPECT_GE(median, 325);
    EXPECT_LE(median, 331);
    EXPECT_GT(CountIn(s, QRect(median - 1, 260, 3, 100), Maroon), 10); // its drop to the axis
}

// 2,000 results: T + 1 is more than the 340 pixels of height, so a whole pixel per unit would
// be 0 and the curve would lie on the axis. It rises instead, and the median reads the curve.
TEST(CFPlot, MoreResultsThanPixelsStillDrawTheCurve)
{
    PictureBox s;
    Prepare(s, 600, 400);
    s.SetRecording(true);
    std::vector<int> data;
    for (int i = 0; i < 2000; ++i)
        data.push_back(10 + i * 80 / 2000);
    DrawCFPlot(s, data, true, true);
    const QRect points = BoundsOf(s, QRect(0, 0, 600, 400), CurvePointColour);
    ASSERT_FALSE(points.isNull());
    EXPECT_LT(points.top(), 40);     // the last point near the top
    EXPECT_GT(points.bottom(), 300); // the first near the bottom
    const int median = BoundsOf(s, QRect(30, 200, 570, 1), Maroon).right(); // y = CLng(370 - 1000 x 340 / 2001)
    EXPECT_GE(median, 320);
    EXPECT_LE(median, 340);
    EXPECT_FALSE(Overlapping(s.LabelInks()));
    for (const QRect &mark : s.Marks())
        EXPECT_TRUE(QRect(0, 0, 600, 400).contains(mark)) << mark.x() << "," << mark.y();
}

// The stroke across each group of four starts at the group: 40 in one class is 8 groups, and
// the 8th stroke begins on the 8th group's first mark. Stepping by the measured width (a pixel
// more than a group's advance) put it 8 pixels to the right, over the next group.
TEST(Tally, GateStrokesStayOnTheirGroups)
{
    PictureBox s, text;
    Prepare(s, 700, 300);
    Prepare(text, 700, 300);
    std::vector<int> data(40, 25);
    DrawTally(s, data, true);
    const int c = Drawings::MeasureFont(28, 0, "20<t<30");
    const int left = CLng(35.0 + c + 15.0);
    Drawings::DrawLabel(&text, left, 30, QString("llll ").repeated(8), true, Maroon, 0, 0, 0, 28);

    // The marks' columns, from the text alone, in the middle of the row.
    std::vector<int> marks;
    for (int x = 0, y = 30 + 14; x < 700; ++x)
        if (text.PixelAt(x, y) != Colour(White) && (x == 0 || text.PixelAt(x - 1, y) == Colour(White)))
            marks.push_back(x);
    ASSERT_EQ(marks.size(), 32u);
    // Each stroke's foot on the row CLng(30 + 28 x 0.8) = 52, where the text is not.
    const int foot = 52;
    std::vector<int> feet;
    for (int x = 0; x < 560; ++x) // left of the frequency column
        if (s.PixelAt(x, foot) == Colour(Maroon) && text.PixelAt(x, foot) == Colour(White) &&
            (feet.empty() || x > feet.back() + 4))
            feet.push_back(x);
    ASSERT_EQ(feet.size(), 8u);
    for (size_t k = 0; k < 8; ++k)
        EXPECT_NEAR(feet[k], marks[4 * k], 3) << "group " << k + 1;
}

// A frequency whose tally is wider than its column stops at the last group that fits, and an
// ellipsis follows; the frequency column keeps the count.
TEST(Tally, LongTallyStaysInItsColumn)
{
    PictureBox s;
    Prepare(s, 500, 300);
    s.SetRecording(true);
    std::vector<int> data(400, 25);
    DrawTally(s, data, true);
    const int e = Drawings::MeasureFont(20, 0, "Frequency");
    const int divider = CLng(500 - 20.0 - e - 15.0);
    EXPECT_EQ(CountIn(s, QRect(divider + 2, 31, 20, 26), Maroon), 0);
    EXPECT_GT(CountIn(s, QRect(divider - 60, 31, 55, 26), Maroon), 0);
    for (const QRect &mark : s.Marks())
        EXPECT_TRUE(QRect(0, 0, 500, 300).contains(mark)) << mark.x() << "," << mark.y();
}

// The estimate's descenders ("p" of "d.p.") stay inside the surface: its 24-pixel cell ends
// at the bottom edge, and the letters with it.
TEST(EstimatedMean, EstimateKeepsItsDescenders)
{
    PictureBox s;
    Prepare(s, 500, 300);
    std::vector<int> data = Sample();
    DrawEstimatedMean(s, data, true);
    const QRect blue = BoundsOf(s, QRect(0, 0, 500, 300), EstimatedMeanColour);
    ASSERT_FALSE(blue.isNull());
    EXPECT_LT(blue.bottom(), 299);
    EXPECT_GT(blue.bottom(), 290);
}
