// The page routines against the quadratic originals kept in reference/: the same texts, tags,
// results, arrays, table order and run-time errors on thousands of random samples.

#include "common/RunTimeError.h"
#include "reference/ReferenceStats.h"
#include "stats/Maths.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <cstring>
#include <functional>
#include <random>

using namespace zrt;

namespace {

// What a call left behind: its error (number and text), or none.
struct Outcome {
    int error = 0;
    std::string text;
    bool operator==(const Outcome &) const = default;
};

Outcome run(const std::function<void()> &f)
{
    try {
        f();
    } catch (const RunTimeError &e) {
        return {e.number(), e.message()};
    }
    return {};
}

void expectSameResults(const AnalysisResults &a, const AnalysisResults &b)
{
    EXPECT_EQ(a.SampleSize, b.SampleSize);
    EXPECT_EQ(a.SumOfValues, b.SumOfValues);
    EXPECT_EQ(a.LowestValue, b.LowestValue);
    EXPECT_EQ(a.HighestValue, b.HighestValue);
    EXPECT_EQ(a.RangeValue, b.RangeValue);
    EXPECT_EQ(a.ModeText, b.ModeText);
    EXPECT_EQ(a.PrecisionIndex, b.PrecisionIndex);
    // Compared as bits: the same operations on the same numbers give the same doubles.
    for (auto field : {&AnalysisResults::MeanValue, &AnalysisResults::MedianValue, &AnalysisResults::LowerQuartile,
                       &AnalysisResults::UpperQuartile, &AnalysisResults::InterquartileRange,
                       &AnalysisResults::VarianceValue, &AnalysisResults::StandardDeviation,
                       &AnalysisResults::LowerOutlierLimit, &AnalysisResults::UpperOutlierLimit,
                       &AnalysisResults::SpearmanValue})
        EXPECT_EQ(std::memcmp(&(a.*field), &(b.*field), sizeof(double)), 0);
}

// Times as list items: a class's spread of reaction times, a few very equal ones, now and then
// a huge one that overflows, a text that is no number or a negative time.
class SampleMaker {
public:
    explicit SampleMaker(unsigned seed) : m_rng(seed) {}

    int below(int n) { return std::uniform_int_distribution<int>(0, n - 1)(m_rng); }

    std::string item(int spread)
    {
        char buf[40];
        const int kind = below(1000);
        if (kind == 0)
            return "abc";
        if (kind == 1)
            return std::to_string(100000 + below(300000)); // too large for some precisions
        if (kind == 2)
            return "-0." + std::to_string(below(90) + 10);
        if (spread == 0) // few distinct values: long runs of ties
            std::snprintf(buf, sizeof buf, "0.%d", 20 + below(4));
        else if (spread == 1) // a class: 0.15 s to 0.65 s to five places
            std::snprintf(buf, sizeof buf, "%.5f", 0.15 + below(50000) / 100000.0);
        else // anything from 0.01 s to 30 s, across the digit counts of the class rule
            std::snprintf(buf, sizeof buf, "%.*f", below(6), 0.01 + below(3000000) / 100000.0);
        return buf;
    }

    CollectedLists lists(int n, int audioExtra)
    {
        CollectedLists l;
        const int spread = below(3);
        for (int i = 0; i < n; ++i)
            l.visual.push_back(item(spread));
        for (int i = 0; i < std::max(0, n + audioExtra); ++i)
            l.audio.push_back(item(spread));
        return l;
    }

    int size() { return below(8) == 0 ? below(400) : below(60); }
    int audioExtra() { return below(10) == 0 ? below(5) - 2 : 0; }

private:
    std::mt19937 m_rng;
};

} // namespace

TEST(FastSorts, BubbleSortAndModeMatchTheOriginals)
{
    SampleMaker make(1);
    for (int round = 0; round < 3000; ++round) {
        std::vector<int> a(static_cast<size_t>(make.below(300)));
        const int range = 1 + make.below(round % 2 ? 20 : 100000);
        for (auto &v : a)
            v = make.below(range) - (make.below(4) == 0 ? range / 2 : 0);
        auto fast = a, slow = a;
        Maths::BubbleSort(fast);
        reference::BubbleSort(slow);
        ASSERT_EQ(fast, slow);
        std::string mineText, originalText;
        const Outcome mine = run([&] { mineText = Maths::ModeOf(fast); });
        const Outcome original = run([&] { originalText = reference::ModeOf(slow); });
        ASSERT_EQ(mine, original);
        ASSERT_EQ(mineText, originalText);
        // Unsorted input keeps the order in which the values first appear.
        ASSERT_EQ(run([&] { mineText = Maths::ModeOf(a); }), run([&] { originalText = reference::ModeOf(a); }));
        ASSERT_EQ(mineText, originalText);
    }
}

TEST(FastSorts, AveragesMatchTheOriginalAtEveryPrecisionAndOption)
{
    SampleMaker make(2);
    for (int round = 0; round < 3000; ++round) {
        const CollectedLists l = make.lists(make.size(), make.audioExtra());
        const int precision = make.below(4) - 1; // -1 is the list with no choice
        const int check1 = make.below(2);
        const int visual = make.below(3) == 0 ? 0 : 1;
        AnalysisState mineState, originalState;
        // What an earlier analysis left must be treated alike.
        mineState.AnalysisData = originalState.AnalysisData = {5, 3, 9};
        AveragesAnswer mine, original;
        const Outcome mineError = run([&] { mine = Get_Averages(AveragesInput{l, precision, check1, visual}, mineState); });
        const Outcome originalError =
            run([&] { original = reference::Get_Averages(AveragesInput{l, precision, check1, visual}, originalState); });
        ASSERT_EQ(mineError, originalError) << "round " << round;
        EXPECT_EQ(mine.outcome, original.outcome);
        EXPECT_EQ(mine.dataText, original.dataText);
        EXPECT_EQ(mine.sampleSizeText, original.sampleSizeText);
        EXPECT_EQ(mine.summaryAnswers, original.summaryAnswers);
        EXPECT_EQ(mine.spreadAnswers, original.spreadAnswers);
        EXPECT_EQ(mineState.AnalysisData, originalState.AnalysisData);
        expectSameResults(mineState.results, originalState.results);
        if (HasFailure())
            FAIL() << "round " << round;
    }
}

TEST(FastSorts, GroupsMatchTheOriginal)
{
    SampleMaker make(3);
    for (int round = 0; round < 3000; ++round) {
        const CollectedLists l = make.lists(make.size(), make.audioExtra());
        const int check2 = make.below(2);
        const int visual = make.below(3) == 0 ? 0 : 1;
        AnalysisState mineState, originalState;
        GroupedAnswer mine, original;
        ClassTable mineTable, originalTable;
        const Outcome mineError = run([&] {
            mine = Get_Grouped_Data(GroupedInput{l, check2, visual}, mineState);
            mineTable = BuildClassTable(mineState.GroupedData);
            EstimatedMean(mineTable);
        });
        const Outcome originalError = run([&] {
            original = reference::Get_Grouped_Data(GroupedInput{l, check2, visual}, originalState);
            originalTable = reference::BuildClassTable(originalState.GroupedData);
            EstimatedMean(originalTable);
        });
        ASSERT_EQ(mineError, originalError) << "round " << round;
        ASSERT_EQ(mine.dataText, original.dataText);
        ASSERT_EQ(mine.analysed, original.analysed);
        ASSERT_EQ(mineState.GroupedData, originalState.GroupedData);
        ASSERT_EQ(mineTable.lowestStem, originalTable.lowestStem);
        ASSERT_EQ(mineTable.highestStem, originalTable.highestStem);
        ASSERT_EQ(mineTable.rowCount, originalTable.rowCount);
        ASSERT_EQ(mineTable.rowHeight, originalTable.rowHeight);
        ASSERT_EQ(mineTable.frequencyTotal, originalTable.frequencyTotal);
        ASSERT_EQ(mineTable.productTotal, originalTable.productTotal);
        ASSERT_EQ(mineTable.rows.size(), originalTable.rows.size());
        for (size_t i = 0; i < mineTable.rows.size(); ++i) {
            const ClassRow &a = mineTable.rows[i], &b = originalTable.rows[i];
            ASSERT_EQ(a.stem, b.stem);
            ASSERT_EQ(a.label, b.label);
            ASSERT_EQ(a.frequency, b.frequency) << "round " << round << " row " << i;
            ASSERT_EQ(a.midpoint, b.midpoint);
            ASSERT_EQ(a.product, b.product);
            ASSERT_EQ(a.cumulativeLabel, b.cumulativeLabel);
            ASSERT_EQ(a.cumulative, b.cumulative);
        }
    }
}

TEST(FastSorts, ClassCountsMatchTheTextRuleAcrossDigitCounts)
{
    // Values of one to seven digits put a value in several rows (1, 12, 125 ...).
    SampleMaker make(4);
    for (int round = 0; round < 2000; ++round) {
        std::vector<int> a(static_cast<size_t>(1 + make.below(200)));
        const int digits = 1 + make.below(7);
        int limit = 1;
        for (int d = 0; d < digits; ++d)
            limit *= 10;
        for (auto &v : a)
            v = make.below(limit);
        auto fast = a, slow = a;
        ClassTable mine, original;
        ASSERT_EQ(run([&] { mine = BuildClassTable(fast); }), run([&] { original = reference::BuildClassTable(slow); }));
        ASSERT_EQ(mine.rows.size(), original.rows.size());
        for (size_t i = 0; i < mine.rows.size(); ++i)
            ASSERT_EQ(mine.rows[i].frequency, original.rows[i].frequency) << "round " << round;
    }
}

TEST(FastSorts, CompareMatchesTheOriginalIncludingTieOrderAndOverflow)
{
    SampleMaker make(5);
    int overflows = 0;
    for (int round = 0; round < 3000; ++round) {
        const CollectedLists l = make.lists(make.size(), make.audioExtra());
        AnalysisState mineState, originalState;
        CompareAnswer mine, original;
        const Outcome mineError = run([&] { mine = Get_Compare_Data(l, mineState); });
        const Outcome originalError = run([&] { original = reference::Get_Compare_Data(l, originalState); });
        ASSERT_EQ(mineError, originalError) << "round " << round;
        overflows += mineError.error == ErrOverflow;
        ASSERT_EQ(mine.analysed, original.analysed);
        ASSERT_EQ(mine.pairsText, original.pairsText);
        ASSERT_EQ(mine.table.squaredDifferencesText, original.table.squaredDifferencesText);
        ASSERT_EQ(mine.table.coefficientText, original.table.coefficientText);
        ASSERT_EQ(mine.table.rowTexts(), original.table.rowTexts());
        ASSERT_EQ(std::memcmp(mine.table.columns.data(), original.table.columns.data(),
                              mine.table.columns.size() * sizeof(RankColumn)),
                  0);
        ASSERT_EQ(mineState.GroupedData, originalState.GroupedData);
        ASSERT_EQ(mineState.AnalysisData, originalState.AnalysisData);
        expectSameResults(mineState.results, originalState.results);
    }
    EXPECT_GT(overflows, 10) << "the 16-bit tie sums must be reached now and then";

    // The table itself, straight from arrays whose equal x carry different y: the order of ties.
    for (int round = 0; round < 2000; ++round) {
        const int n = make.below(300);
        std::vector<int> x(static_cast<size_t>(n)), y(static_cast<size_t>(n));
        const int xs = 1 + make.below(30), ys = 1 + make.below(300);
        for (int i = 0; i < n; ++i) {
            x[static_cast<size_t>(i)] = make.below(xs);
            y[static_cast<size_t>(i)] = make.below(ys);
        }
        const int count = make.below(10) == 0 ? n - 1 : n;
        AnalysisResults r1, r2;
        SpearmanTable mine, original;
        ASSERT_EQ(run([&] { mine = Add_SR_Data(x, y, count, r1); }),
                  run([&] { original = reference::Add_SR_Data(x, y, count, r2); }));
        ASSERT_EQ(mine.rowTexts(), original.rowTexts()) << "round " << round;
        ASSERT_EQ(mine.coefficientText, original.coefficientText);
    }
}
