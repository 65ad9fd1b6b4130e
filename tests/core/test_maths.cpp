#include "common/RunTimeError.h"
#include "stats/Maths.h"

#include <gtest/gtest.h>

using namespace Maths;
using zrt::RunTimeError;

static int errorOf(const std::function<void()> &f)
{
    try {
        f();
    } catch (const RunTimeError &e) {
        return e.number();
    }
    return 0;
}

TEST(RoundToPlaces, RoundsTheDecimalTextHalfAwayFromZero)
{
    // 0.345 x 100 is 34.49999999999999 as a double, but its 15-digit text is 34.5000000000000.
    EXPECT_DOUBLE_EQ(RoundToPlaces(0.345, 2), 0.35);
    EXPECT_DOUBLE_EQ(RoundToPlaces(0.344, 2), 0.34);
    EXPECT_DOUBLE_EQ(RoundToPlaces(10.333333333, 4), 10.3333);
    EXPECT_DOUBLE_EQ(RoundToPlaces(0.123456, 5), 0.12346);
    EXPECT_DOUBLE_EQ(RoundToPlaces(-0.125, 2), -0.13);
    EXPECT_DOUBLE_EQ(RoundToPlaces(31.5, 2), 31.5);
}

TEST(RoundToPlaces, SingleDigitProductReturnsTheValueUntouched)
{
    // 0.05 x 100 is exactly 5: "5" is one character, so x comes back as it was.
    EXPECT_EQ(RoundToPlaces(0.05, 2), 0.05);
    EXPECT_EQ(RoundToPlaces(7.0, 0), 7.0);
    // 0.5 at 0 places is "0.5", not a single digit, so it rounds up.
    EXPECT_EQ(RoundToPlaces(0.5, 0), 1.0);
}

TEST(RoundToFigures, KeepsTheOrderOfMagnitude)
{
    double x = 250;
    short f = 1;
    EXPECT_DOUBLE_EQ(RoundToFigures(x, f), 300); // 0.25 -> 2.5 -> 3 -> 0.3 x 1000
    EXPECT_DOUBLE_EQ(x, 0.25) << "values of 1 or more are divided in place";

    double small = 0.047;
    EXPECT_DOUBLE_EQ(RoundToFigures(small, f), 0.05);
    EXPECT_DOUBLE_EQ(small, 0.047) << "values below 1 are left alone";

    double one = 8;
    EXPECT_DOUBLE_EQ(RoundToFigures(one, f), 8);
}

TEST(RoundToFigures, ZeroAndHugeValuesFailInsteadOfHanging)
{
    short f = 1;
    double zero = 0;
    EXPECT_EQ(errorOf([&] { RoundToFigures(zero, f); }), zrt::ErrInvalidCall);
    double huge = 32768;
    EXPECT_EQ(errorOf([&] { RoundToFigures(huge, f); }), zrt::ErrOverflow);
    double edge = 32767;
    EXPECT_NO_THROW(RoundToFigures(edge, f));
}

TEST(BubbleSort, SortsAscending)
{
    std::vector<int> a{5, -1, 3, 3, 0, 9};
    BubbleSort(a);
    EXPECT_EQ(a, (std::vector<int>{-1, 0, 3, 3, 5, 9}));
    std::vector<int> empty;
    BubbleSort(empty);
    EXPECT_TRUE(empty.empty());
}

TEST(MedianAndQuartiles, HalvesLeaveTheMiddleOutForOddCounts)
{
    std::vector<int> seven{1, 2, 3, 4, 5, 6, 7};
    EXPECT_EQ(MedianOf(seven), 4);
    EXPECT_EQ(LowerQuartileOf(seven), 2);
    EXPECT_EQ(UpperQuartileOf(seven), 6);

    std::vector<int> six{1, 2, 3, 4, 5, 6};
    EXPECT_EQ(MedianOf(six), 3.5);
    EXPECT_EQ(LowerQuartileOf(six), 2);
    EXPECT_EQ(UpperQuartileOf(six), 5);

    std::vector<int> three{23, 27, 31};
    EXPECT_EQ(LowerQuartileOf(three), 23);
    EXPECT_EQ(UpperQuartileOf(three), 31);

    std::vector<int> one{42};
    EXPECT_EQ(MedianOf(one), 42);
}

TEST(MedianAndQuartiles, DifferenceOverflowIsTrapped)
{
    std::vector<int> wide{-2000000000, 2000000000};
    EXPECT_EQ(errorOf([&] { MedianOf(wide); }), zrt::ErrOverflow);
    std::vector<int> none;
    EXPECT_EQ(errorOf([&] { MedianOf(none); }), zrt::ErrSubscript);
}

TEST(ModeOf, ListsEveryValueOfTheHighestCount)
{
    EXPECT_EQ(ModeOf({23, 27, 31}), "N/A");
    EXPECT_EQ(ModeOf({20, 20, 30, 30, 40}), "20, 30");
    EXPECT_EQ(ModeOf({20, 20, 30}), "20");
    EXPECT_EQ(ModeOf({7, 7, 7}), "7");
    EXPECT_EQ(ModeOf({30, 20, 30, 20, 20}), "20") << "a later value must be strictly more frequent";
}

TEST(Spread, VarianceUsesTheRoundedMeanAndDividesByN)
{
    zrt::AnalysisResults r;
    r.SampleSize = 3;
    r.MeanValue = 10.3333;
    const double v = VarianceOf({10, 10, 11}, r);
    EXPECT_DOUBLE_EQ(v, 321.0 / 3 - 10.3333 * 10.3333);
    EXPECT_NE(v, 321.0 / 3 - (31.0 / 3) * (31.0 / 3));
    r.VarianceValue = 4;
    EXPECT_EQ(StandardDeviationOf(r), 2);
    r.VarianceValue = -1;
    EXPECT_EQ(errorOf([&] { StandardDeviationOf(r); }), zrt::ErrInvalidCall);

    r.LowerQuartile = 23;
    r.UpperQuartile = 31;
    r.InterquartileRange = 8;
    EXPECT_EQ(LowerOutlierOf(r), 11);
    EXPECT_EQ(UpperOutlierOf(r), 43);
}
