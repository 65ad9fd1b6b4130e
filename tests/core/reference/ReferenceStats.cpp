#include "ReferenceStats.h"

#include "common/NumberText.h"
#include "common/RunTimeError.h"
#include "stats/Maths.h"

#include <cmath>
#include <utility>

namespace zrt::reference {

void BubbleSort(std::vector<int> &a)
{
    const long long upper = static_cast<long long>(a.size()) - 1;
    for (long long i = upper; i >= 0; --i)
        for (long long j = 1; j <= i; ++j)
            if (a[static_cast<size_t>(j - 1)] > a[static_cast<size_t>(j)])
                std::swap(a[static_cast<size_t>(j - 1)], a[static_cast<size_t>(j)]);
}

std::string ModeOf(const std::vector<int> &a)
{
    std::vector<double> values{static_cast<double>(Maths::At(a, 0))};
    std::vector<int> counts{1};
    for (size_t i = 1; i < a.size(); ++i) {
        const double v = a[i];
        bool found = false;
        for (size_t row = 0; row < values.size(); ++row) {
            if (values[row] == v) {
                counts[row] = addInt32(counts[row], 1);
                found = true;
                break;
            }
        }
        if (!found) {
            values.push_back(v);
            counts.push_back(1);
        }
    }
    int highest = counts[0];
    for (int c : counts)
        if (c > highest)
            highest = c;
    if (highest == 1)
        return "N/A";
    std::string text;
    for (size_t row = 0; row < values.size(); ++row) {
        if (counts[row] != highest)
            continue;
        if (!text.empty())
            text += ", ";
        text += GeneralText(values[row]);
    }
    return text;
}

namespace {

AveragesAnswer messageAnswer(const char *message)
{
    AveragesAnswer a;
    a.outcome = AveragesAnswer::Outcome::Message;
    a.dataText = std::string(message) + "\r\n";
    return a;
}

void fillTags(const AnalysisResults &r, AveragesAnswer &a)
{
    a.summaryAnswers = {std::to_string(r.LowestValue),
                  std::to_string(r.HighestValue),
                  std::to_string(r.RangeValue),
                  GeneralText(r.MeanValue),
                  r.ModeText,
                  GeneralText(r.MedianValue),
                  GeneralText(r.LowerQuartile),
                  GeneralText(r.UpperQuartile),
                  GeneralText(r.InterquartileRange)};
    a.spreadAnswers = {GeneralText(r.LowerOutlierLimit),
                  GeneralText(r.UpperOutlierLimit),
                  GeneralText(Maths::RoundToPlaces(r.VarianceValue, 5)),
                  GeneralText(Maths::RoundToPlaces(r.StandardDeviation, 5))};
}

} // namespace

AveragesAnswer Get_Averages(const AveragesInput &in, AnalysisState &state)
{
    if (in.precisionIndex == -1) {
        AveragesAnswer a;
        a.outcome = AveragesAnswer::Outcome::PrecisionReset;
        return a;
    }
    const auto &cl2 = in.lists.visual;
    if (cl2.empty())
        return messageAnswer(kNoTimesMessage);
    if (cl2.size() < 3)
        return messageAnswer(kNeedThreeMessage);

    AnalysisResults &r = state.results;
    std::vector<int> &data = state.AnalysisData;
    const int n = toInt32(static_cast<long long>(cl2.size()));
    data.resize(static_cast<size_t>(n));
    r.SampleSize = n;

    const auto &source = in.visualChosen == 1 ? cl2 : in.lists.audio;
    const PrecisionScale scale = ScaleOfPrecision(in.precisionIndex);
    const long long count = static_cast<long long>(source.size());
    if (count > 0)
        toInt16(count - 1);
    for (long long i = 0; i < count; ++i) {
        const int value = ScaledItem(source[static_cast<size_t>(i)], scale);
        if (i >= n)
            raise(ErrSubscript);
        data[static_cast<size_t>(i)] = value;
        r.PrecisionIndex = static_cast<short>(in.precisionIndex);
    }
    if (count > 0)
        toInt16(count);

    if (in.sorted == 1)
        BubbleSort(data);

    std::string shown;
    int sum = 0;
    for (int v : data) {
        shown += std::to_string(v) + ", ";
        sum = addInt32(sum, v);
    }

    AveragesAnswer a;
    a.dataText = shown + "\r\n";
    if (in.sorted == 0)
        BubbleSort(data);

    r.SumOfValues = sum;
    r.MeanValue = Maths::RoundToPlaces(static_cast<double>(sum) / n, 4);
    r.ModeText = ModeOf(data);
    r.MedianValue = Maths::MedianOf(data);
    r.HighestValue = data.back();
    r.LowestValue = data.front();
    r.RangeValue = subInt32(r.HighestValue, r.LowestValue);
    r.LowerQuartile = Maths::LowerQuartileOf(data);
    r.UpperQuartile = Maths::UpperQuartileOf(data);
    r.InterquartileRange = r.UpperQuartile - r.LowerQuartile;
    r.VarianceValue = Maths::VarianceOf(data, r);
    r.StandardDeviation = Maths::StandardDeviationOf(r);
    r.LowerOutlierLimit = Maths::LowerOutlierOf(r);
    r.UpperOutlierLimit = Maths::UpperOutlierOf(r);

    fillTags(r, a);
    a.sampleSizeText = "Sample Size (n) = " + std::to_string(n) + "\n";
    a.outcome = AveragesAnswer::Outcome::Analysed;
    return a;
}

GroupedAnswer Get_Grouped_Data(const GroupedInput &in, AnalysisState &state)
{
    GroupedAnswer a;
    const auto &cl2 = in.lists.visual;
    if (cl2.empty()) {
        a.dataText = std::string(kNoTimesMessage) + "\r\n";
        return a;
    }
    std::vector<int> &data = state.GroupedData;
    data.resize(cl2.size());

    const auto &source = in.visualChosen == 1 ? cl2 : in.lists.audio;
    const PrecisionScale hundredths = ScaleOfPrecision(0);
    for (size_t i = 0; i < source.size(); ++i) {
        const int value = ScaledItem(source[i], hundredths);
        if (i >= data.size())
            raise(ErrSubscript);
        data[i] = value;
    }
    if (in.sorted == 1)
        BubbleSort(data);

    std::string shown;
    for (int v : data)
        shown += std::to_string(v) + ", ";
    a.dataText = shown + "\r\n";
    a.analysed = true;
    return a;
}

namespace {

int leadingStem(int value, size_t characters)
{
    const std::string text = std::to_string(value);
    return static_cast<int>(CDbl(text.substr(0, characters)));
}

bool startsWith(const std::string &text, const std::string &prefix)
{
    return text.compare(0, prefix.size(), prefix) == 0;
}

} // namespace

ClassTable BuildClassTable(std::vector<int> &groupedData)
{
    BubbleSort(groupedData);
    ClassTable t;
    const int first = Maths::At(groupedData, 0);
    const int last = groupedData.back();
    t.lowestStem = leadingStem(first, 1);
    t.highestStem = leadingStem(last, last > 99 ? 2 : 1);
    t.rowCount = subInt32(t.highestStem, t.lowestStem) + 1;
    t.rowHeight = RowHeightFor(t.rowCount);

    std::vector<std::string> texts;
    texts.reserve(groupedData.size());
    for (int v : groupedData)
        texts.push_back(std::to_string(v));

    int cumulative = 0;
    for (int i = 0; i < t.rowCount; ++i) {
        ClassRow row;
        row.stem = t.lowestStem + i;
        row.label = ClassLabel(row.stem, row.stem + 1);
        row.cumulativeLabel = ClassLabel(t.lowestStem, t.lowestStem + i + 1);
        const std::string stemText = std::to_string(row.stem);
        for (const auto &text : texts)
            if (startsWith(text, stemText))
                row.frequency = addInt32(row.frequency, 1);
        row.midpoint = addInt32(mulInt32(row.stem, 10), 5);
        row.product = mulInt32(row.midpoint, row.frequency);
        cumulative = addInt32(cumulative, row.frequency);
        row.cumulative = cumulative;
        t.productTotal = addInt32(t.productTotal, row.product);
        t.frequencyTotal = addInt32(t.frequencyTotal, row.frequency);
        t.rows.push_back(std::move(row));
    }
    return t;
}

namespace {

enum Row { X = 0, RankX = 1, Y = 2, RankY = 3, D = 4, DSquared = 5 };

void swapSingles(float &a, float &b) { std::swap(a, b); }

void sortColumnsBy(std::vector<RankColumn> &table, int row)
{
    const long long last = static_cast<long long>(table.size()) - 1;
    for (long long i = last - 1; i >= 0; --i)
        for (long long j = 0; j <= i; ++j) {
            auto &a = table[static_cast<size_t>(j)];
            auto &b = table[static_cast<size_t>(j + 1)];
            if (a[row] > b[row])
                for (int k = 0; k < 6; ++k)
                    swapSingles(a[k], b[k]);
        }
}

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

SpearmanTable Add_SR_Data(const std::vector<int> &visual, const std::vector<int> &audio, int cl2Count,
                          AnalysisResults &results)
{
    SpearmanTable t;
    t.columns.assign(static_cast<size_t>(cl2Count > 0 ? cl2Count : 0), RankColumn{});
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

    a.table = reference::Add_SR_Data(visual, audio, static_cast<int>(lists.visual.size()), state.results);

    std::string text;
    for (size_t i = 0; i < visual.size(); ++i)
        text += "(" + std::to_string(visual[i]) + "," + std::to_string(Maths::At(audio, static_cast<long long>(i))) +
                "), ";
    a.pairsText = text + "\r\n";
    a.analysed = true;
    return a;
}

} // namespace zrt::reference
