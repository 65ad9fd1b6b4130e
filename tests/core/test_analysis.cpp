#include "common/RunTimeError.h"
#include "stats/Averages.h"
#include "stats/GroupedData.h"
#include "stats/Spearman.h"

#include <gtest/gtest.h>

using namespace zrt;

namespace {

int errorOf(const std::function<void()> &f)
{
    try {
        f();
    } catch (const RunTimeError &e) {
        return e.number();
    }
    return 0;
}

AveragesAnswer averages(const CollectedLists &l, AnalysisState &s, int precision = 0, int check1 = 0, int visual = 1)
{
    return Get_Averages(AveragesInput{l, precision, check1, visual}, s);
}

} // namespace

TEST(GetAverages, WorkedExampleOfThreeTimes)
{
    CollectedLists l{{"0.27", "0.23", "0.31"}, {}};
    AnalysisState s;
    const auto a = averages(l, s);
    ASSERT_EQ(a.outcome, AveragesAnswer::Outcome::Analysed);
    EXPECT_EQ(a.dataText, "27, 23, 31, \r\n") << "recording order while Check1 is clear";
    EXPECT_EQ(a.sampleSizeText, "Sample Size (n) = 3\n");
    EXPECT_EQ(a.summaryAnswers[0], "23");
    EXPECT_EQ(a.summaryAnswers[1], "31");
    EXPECT_EQ(a.summaryAnswers[2], "8");
    EXPECT_EQ(a.summaryAnswers[3], "27");
    EXPECT_EQ(a.summaryAnswers[4], "N/A");
    EXPECT_EQ(a.summaryAnswers[5], "27");
    EXPECT_EQ(a.summaryAnswers[6], "23");
    EXPECT_EQ(a.summaryAnswers[7], "31");
    EXPECT_EQ(a.summaryAnswers[8], "8");
    EXPECT_EQ(a.spreadAnswers[0], "11");
    EXPECT_EQ(a.spreadAnswers[1], "43");
    EXPECT_EQ(a.spreadAnswers[2], "10.66667");
    EXPECT_EQ(a.spreadAnswers[3], "3.26599");
    EXPECT_EQ(s.AnalysisData, (std::vector<int>{23, 27, 31})) << "statistics always work on sorted data";
    EXPECT_EQ(s.results.SampleSize, 3);
    EXPECT_EQ(s.results.SumOfValues, 81);

    const auto sorted = averages(l, s, 0, 1);
    EXPECT_EQ(sorted.dataText, "23, 27, 31, \r\n");
}

TEST(GetAverages, MeanAndVarianceOfTenTenEleven)
{
    CollectedLists l{{"0.10", "0.10", "0.11"}, {}};
    AnalysisState s;
    const auto a = averages(l, s);
    EXPECT_EQ(a.summaryAnswers[3], "10.3333");
    EXPECT_EQ(s.results.MeanValue, 10.3333);
    // 321 / 3 - 10.3333^2 = 0.22291111..., from the rounded mean and not from 31/3.
    EXPECT_DOUBLE_EQ(s.results.VarianceValue, 107.0 - 10.3333 * 10.3333);
    EXPECT_EQ(a.spreadAnswers[2], "0.22291");
    EXPECT_EQ(a.summaryAnswers[4], "10");
}

TEST(GetAverages, ModesAndEqualValues)
{
    AnalysisState s;
    CollectedLists modes{{"0.20", "0.20", "0.30", "0.30", "0.40"}, {}};
    EXPECT_EQ(averages(modes, s).summaryAnswers[4], "20, 30");

    CollectedLists same{{"0.25", "0.25", "0.25", "0.25"}, {}};
    const auto a = averages(same, s);
    EXPECT_EQ(a.summaryAnswers[2], "0");
    EXPECT_EQ(a.summaryAnswers[8], "0");
    EXPECT_EQ(a.summaryAnswers[4], "25");
    EXPECT_EQ(a.spreadAnswers[0], "25");
    EXPECT_EQ(a.spreadAnswers[1], "25");
    EXPECT_EQ(a.spreadAnswers[2], "0");
}

TEST(GetAverages, PrecisionScalesEachItem)
{
    CollectedLists l{{"0.23", "0.2345", "0.34567"}, {}};
    AnalysisState s;
    EXPECT_EQ(averages(l, s, 0, 1).dataText, "23, 23, 35, \r\n");
    EXPECT_EQ(averages(l, s, 1, 1).dataText, "230, 235, 346, \r\n") << "0.2345 at thousandths rounds half up";
    EXPECT_EQ(averages(l, s, 2, 1).dataText, "2300, 2345, 3457, \r\n");
    EXPECT_EQ(s.results.PrecisionIndex, 2);
}

TEST(GetAverages, TooLittleDataKeepsTheResults)
{
    AnalysisState s;
    CollectedLists three{{"0.23", "0.27", "0.31"}, {}};
    averages(three, s);

    CollectedLists two{{"0.5", "0.6"}, {}};
    const auto a = averages(two, s);
    EXPECT_EQ(a.outcome, AveragesAnswer::Outcome::Message);
    EXPECT_EQ(a.dataText, std::string(kNeedThreeMessage) + "\r\n");
    EXPECT_TRUE(a.sampleSizeText.empty());
    for (const auto &t : a.summaryAnswers)
        EXPECT_TRUE(t.empty());
    EXPECT_EQ(s.results.SampleSize, 3);
    EXPECT_EQ(s.AnalysisData.size(), 3u);

    CollectedLists none;
    EXPECT_EQ(averages(none, s).dataText, std::string(kNoTimesMessage) + "\r\n");
    EXPECT_EQ(averages(three, s, -1).outcome, AveragesAnswer::Outcome::PrecisionReset);
}

TEST(GetAverages, AudioSourceIsSizedByTheVisualList)
{
    AnalysisState s;
    CollectedLists first{{"0.10", "0.20", "0.30", "0.40"}, {}};
    averages(first, s);

    // CL4 shorter: the fourth element keeps what the array held (40, the last sorted value).
    CollectedLists shorter{{"0.5", "0.5", "0.5", "0.5"}, {"0.61", "0.62", "0.63"}};
    const auto a = averages(shorter, s, 0, 0, 0);
    EXPECT_EQ(a.dataText, "61, 62, 63, 40, \r\n");

    CollectedLists longer{{"0.5", "0.5", "0.5"}, {"0.61", "0.62", "0.63", "0.64"}};
    EXPECT_EQ(errorOf([&] { averages(longer, s, 0, 0, 0); }), ErrSubscript);
}

TEST(GetAverages, RunTimeFailures)
{
    AnalysisState s;
    CollectedLists notANumber{{"0.2", "abc", "0.3"}, {}};
    EXPECT_EQ(errorOf([&] { averages(notANumber, s); }), ErrTypeMismatch);
    CollectedLists empty{{"0.2", "", "0.3"}, {}};
    EXPECT_EQ(errorOf([&] { averages(empty, s); }), ErrTypeMismatch);

    // 100000 s at ten-thousandths is 1e9 per item: the 32-bit sum overflows at the third.
    CollectedLists huge{{"100000", "100000", "100000"}, {}};
    EXPECT_EQ(errorOf([&] { averages(huge, s, 2); }), ErrOverflow);

    // A time too large for 32 bits at all.
    CollectedLists tooLarge{{"300000", "1", "1"}, {}};
    EXPECT_EQ(errorOf([&] { averages(tooLarge, s, 2); }), ErrOverflow);

    // The 16-bit item counter: 32768 items overflow it.
    CollectedLists many;
    many.visual.assign(32768, "0.3");
    EXPECT_EQ(errorOf([&] { averages(many, s); }), ErrOverflow);
}

TEST(GroupedData, ClassesComeFromTheLeadingDigits)
{
    std::vector<int> data{31, 22, 27, 45};
    const ClassTable t = BuildClassTable(data);
    EXPECT_EQ(data, (std::vector<int>{22, 27, 31, 45})) << "the charts leave the array sorted";
    ASSERT_EQ(t.rowCount, 3);
    EXPECT_EQ(t.rowHeight, 28);
    EXPECT_EQ(t.rows[0].label, "20<t<30");
    EXPECT_EQ(t.rows[0].frequency, 2);
    EXPECT_EQ(t.rows[0].midpoint, 25);
    EXPECT_EQ(t.rows[0].product, 50);
    EXPECT_EQ(t.rows[2].cumulativeLabel, "20<t<50");
    EXPECT_EQ(t.rows[2].cumulative, 4);
    EXPECT_EQ(t.frequencyTotal, 4);
    EXPECT_EQ(t.productTotal, 50 + 35 + 45);
    EXPECT_EQ(EstimatedMeanText(t), "Estimated Mean = 32.5 to 2 d.p.");
}

TEST(GroupedData, TextRuleQuirksAreKept)
{
    // 0.50 .. 0.59 and 1.25: a = 5, b = 12, eight rows; 125 counts in the rows of 1 and 12.
    std::vector<int> data{50, 55, 59, 125};
    const ClassTable t = BuildClassTable(data);
    EXPECT_EQ(t.lowestStem, 5);
    EXPECT_EQ(t.highestStem, 12);
    EXPECT_EQ(t.rowCount, 8);
    EXPECT_EQ(t.rows[0].frequency, 3);
    EXPECT_EQ(t.rows[7].label, "120<t<130");
    EXPECT_EQ(t.rows[7].frequency, 1);

    // A value of 100 with stems 1 to 10 counts in rows 1 and 10; the totals count it twice.
    std::vector<int> hundred{12, 100};
    const ClassTable h = BuildClassTable(hundred);
    ASSERT_EQ(h.rowCount, 10);
    EXPECT_EQ(h.rows[0].frequency, 2);
    EXPECT_EQ(h.rows[9].frequency, 1);
    EXPECT_EQ(h.frequencyTotal, 3);
    EXPECT_EQ(h.rowHeight, 22);

    // A one-digit value falls into the class of its digit: 5 is counted as 50<t<60.
    std::vector<int> five{5, 52};
    const ClassTable f = BuildClassTable(five);
    EXPECT_EQ(f.rowCount, 1);
    EXPECT_EQ(f.rows[0].frequency, 2);
    EXPECT_EQ(f.rows[0].midpoint, 55);

    EXPECT_EQ(RowHeightFor(9), 28);
    EXPECT_EQ(RowHeightFor(11), 22);
    EXPECT_EQ(RowHeightFor(12), 18);
}

TEST(GroupedData, GetGroupedDataAndItsFailures)
{
    AnalysisState s;
    CollectedLists l{{"0.31", "0.22"}, {"0.40", "0.50"}};
    auto a = Get_Grouped_Data(GroupedInput{l, 0, 1}, s);
    EXPECT_TRUE(a.analysed);
    EXPECT_EQ(a.dataText, "31, 22, \r\n") << "one time is enough here; shown unsorted";
    a = Get_Grouped_Data(GroupedInput{l, 1, 0}, s);
    EXPECT_EQ(a.dataText, "40, 50, \r\n");

    CollectedLists none;
    EXPECT_EQ(Get_Grouped_Data(GroupedInput{none, 0, 1}, s).dataText, std::string(kNoTimesMessage) + "\r\n");

    std::vector<int> negative{-5, 20};
    EXPECT_EQ(errorOf([&] { BuildClassTable(negative); }), ErrTypeMismatch);
    // Highest stem below the lowest (5 and 12 read as stems 5 and 1): no rows, 0 / 0.
    std::vector<int> backwards{5, 12};
    const ClassTable t = BuildClassTable(backwards);
    EXPECT_EQ(t.rowCount, -3);
    EXPECT_TRUE(t.rows.empty());
    EXPECT_EQ(errorOf([&] { EstimatedMean(t); }), ErrOverflow);
}

TEST(Spearman, TiesGetTheMeanOfTheirRanks)
{
    AnalysisResults r;
    // y: 30 30 30 ranked 1, 2, 3 -> 2 each; x: 10 20 20 -> 1, 2.5, 2.5.
    const auto t = Add_SR_Data({10, 20, 20}, {30, 30, 30}, 3, r);
    ASSERT_EQ(t.columns.size(), 3u);
    EXPECT_EQ(t.columns[0][1], 1.0f);
    EXPECT_EQ(t.columns[1][1], 2.5f);
    EXPECT_EQ(t.columns[2][1], 2.5f);
    for (const auto &c : t.columns)
        EXPECT_EQ(c[3], 2.0f);
    EXPECT_EQ(t.squaredDifferencesText, "1.5"); // 1 + 0.25 + 0.25
    // r = 1 - 9 / 24 = 0.625
    EXPECT_EQ(t.coefficientText, "= 0.625");
    EXPECT_FLOAT_EQ(r.SpearmanValue, 0.625f);
}

TEST(Spearman, WorkedExampleAndTableOrder)
{
    AnalysisState s;
    CollectedLists l{{"0.23", "0.27", "0.31"}, {"0.31", "0.35", "0.30"}};
    const auto a = Get_Compare_Data(l, s);
    EXPECT_EQ(a.pairsText, "(23,31), (27,35), (31,30), \r\n");
    const auto rows = a.table.rowTexts();
    ASSERT_EQ(rows.size(), 3u);
    EXPECT_EQ(rows[0], (std::array<std::string, 6>{"23", "1", "31", "2", "-1", "1"}));
    EXPECT_EQ(rows[2], (std::array<std::string, 6>{"31", "3", "30", "1", "2", "4"}));
    EXPECT_EQ(a.table.squaredDifferencesText, "6");
    EXPECT_EQ(a.table.coefficientText, "= -0.5");
    EXPECT_EQ(s.GroupedData, (std::vector<int>{23, 27, 31}));
    EXPECT_EQ(s.AnalysisData, (std::vector<int>{31, 35, 30}));

    CollectedLists same{{"0.1", "0.2", "0.3", "0.4"}, {"0.5", "0.6", "0.7", "0.8"}};
    const auto perfect = Get_Compare_Data(same, s);
    EXPECT_EQ(perfect.table.squaredDifferencesText, "0");
    EXPECT_EQ(perfect.table.coefficientText, "= 1");
}

TEST(Spearman, RunTimeFailures)
{
    AnalysisState s;
    CollectedLists one{{"0.2"}, {"0.3"}};
    EXPECT_EQ(errorOf([&] { Get_Compare_Data(one, s); }), ErrOverflow) << "0 / 0 with a single pair";
    CollectedLists shortAudio{{"0.2", "0.3"}, {"0.3"}};
    EXPECT_EQ(errorOf([&] { Get_Compare_Data(shortAudio, s); }), ErrSubscript);

    // 300 equal times: their ranks 1..300 sum to 45150, beyond the 16-bit sum.
    AnalysisResults r;
    std::vector<int> x(300), y(300, 40);
    for (int i = 0; i < 300; ++i)
        x[static_cast<size_t>(i)] = i;
    EXPECT_EQ(errorOf([&] { Add_SR_Data(x, y, 300, r); }), ErrOverflow);
    std::vector<int> y2(255, 40), x2(255);
    for (int i = 0; i < 255; ++i)
        x2[static_cast<size_t>(i)] = i;
    EXPECT_NO_THROW(Add_SR_Data(x2, y2, 255, r)) << "1..255 sum to 32640, which fits";

    CollectedLists none;
    EXPECT_FALSE(Get_Compare_Data(none, s).analysed);
}
