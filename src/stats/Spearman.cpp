#include "stats/Spearman.h"

#include "common/NumberText.h"
#include "common/RunTimeError.h"
#include "stats/Averages.h"
#include "stats/Maths.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace zrt {
namespace {

enum Row { X = 0, RankX = 1, Y = 2, RankY = 3, D = 4, DSquared = 5 };

// Whole columns sorted by one row; equal values keep their order, which decides the table's
// order of ties.
void sortColumnsBy(std::vector<RankColumn> &table, int row)
{
    std::stable_sort(table.begin(), table.end(),
                     [row](const RankColumn &a, const RankColumn &b) { return a[row] < b[row]; });
}

// Ranks 1..n into rankRow, then gives each run of equal values the mean of its ranks.
// The ranks of a run are summed in 16 bits, as the original sum was.
void rankBy(std::vector<RankColumn> &table, int valueRow, int rankRow)
{
    const size_t n = table.size();
    for (size_t i = 0; i < n; ++i)
        table[i][rankRow] = static_cast<float>(i + 1);
    size_t i = 0;
    while (i < n) {
        if (i + 1 < n && table[i + 1][valueRow] == table[i][valueRow]) {
            const size_t first = i;
            int count = 1;
            while (i + 1 < n && table[i + 1][valueRow] == table[i][valueRow]) {
                ++i;
                ++count;
            }
            short sum = 0;
            for (size_t k = first; k <= i; ++k)
                sum = addInt16(sum, toInt16(static_cast<long long>(table[k][rankRow])));
            const float mean = static_cast<float>(static_cast<double>(sum) / count);
            for (size_t k = first; k <= i; ++k)
                table[k][rankRow] = mean;
        }
        ++i;
    }
}

std::vector<int> hundredthsOf(const std::vector<std::string> &items)
{
    const PrecisionScale hundredths = ScaleOfPrecision(0);
    std::vector<int> out;
    out.reserve(items.size());
    for (const auto &text : items)
        out.push_back(ScaledItem(text, hundredths));
    return out;
}

} // namespace

std::vector<std::array<std::string, 6>> SpearmanTable::rowTexts() const
{
    std::vector<std::array<std::string, 6>> rows;
    rows.reserve(columns.size());
    for (const auto &c : columns) {
        std::array<std::string, 6> texts;
        for (int k = 0; k < 6; ++k)
            texts[k] = GeneralText(c[k]);
        rows.push_back(std::move(texts));
    }
    return rows;
}

SpearmanTable Add_SR_Data(const std::vector<int> &visual, const std::vector<int> &audio, int visualCount,
                          AnalysisResults &results)
{
    SpearmanTable t;
    t.columns.assign(static_cast<size_t>(visualCount > 0 ? visualCount : 0), RankColumn{});
    for (size_t i = 0; i < visual.size(); ++i) {
        if (i >= t.columns.size())
            raise(ErrSubscript);
        t.columns[i][X] = static_cast<float>(visual[i]);
        t.columns[i][Y] = static_cast<float>(Maths::At(audio, static_cast<long long>(i)));
    }
    sortColumnsBy(t.columns, Y);
    rankBy(t.columns, Y, RankY);
    sortColumnsBy(t.columns, X);
    rankBy(t.columns, X, RankX);

    float s = 0;
    for (auto &c : t.columns) {
        c[D] = c[RankX] - c[RankY];
        c[DSquared] = static_cast<float>(std::pow(static_cast<double>(c[D]), 2.0));
        s += c[DSquared];
    }
    t.sumOfDSquared = s;
    t.squaredDifferencesText = GeneralText(s);

    const double n = static_cast<double>(t.columns.size());
    const double divisor = std::pow(n, 3.0) - n;
    const double numerator = static_cast<double>(s) * 6.0;
    if (divisor == 0)
        raise(numerator == 0 ? ErrOverflow : ErrDivisionByZero);
    t.coefficient = static_cast<float>(1.0 - numerator / divisor);
    results.SpearmanValue = t.coefficient;
    t.coefficientText = "= " + GeneralText(Maths::RoundToPlaces(t.coefficient, 4));
    return t;
}

CompareAnswer Get_Compare_Data(const CollectedLists &lists, AnalysisState &state)
{
    CompareAnswer a;
    if (lists.visual.empty()) {
        a.pairsText = std::string(kNoTimesMessage) + "\r\n";
        return a;
    }
    state.GroupedData = hundredthsOf(lists.visual);
    state.AnalysisData = hundredthsOf(lists.audio);
    const auto &visual = state.GroupedData;
    const auto &audio = state.AnalysisData;

    a.table = Add_SR_Data(visual, audio, static_cast<int>(lists.visual.size()), state.results);

    std::string text;
    for (size_t i = 0; i < visual.size(); ++i)
        text += "(" + std::to_string(visual[i]) + "," + std::to_string(Maths::At(audio, static_cast<long long>(i))) +
                "), ";
    a.pairsText = text + "\r\n";
    a.analysed = true;
    return a;
}

} // namespace zrt
