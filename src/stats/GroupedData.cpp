#include "stats/GroupedData.h"

#include "common/NumberText.h"
#include "common/RunTimeError.h"
#include "stats/Averages.h"
#include "stats/Maths.h"

#include <charconv>

namespace zrt {

GroupedAnswer Get_Grouped_Data(const GroupedInput &in, AnalysisState &state)
{
    GroupedAnswer a;
    const auto &cl2 = in.lists.visual;
    if (cl2.empty()) {
        a.dataText = std::string(kNoTimesMessage) + "\r\n";
        return a;
    }
    std::vector<int> &data = state.GroupedData;
    data.resize(cl2.size()); // contents kept

    const auto &source = in.visualChosen == 1 ? cl2 : in.lists.audio;
    const PrecisionScale hundredths = ScaleOfPrecision(0);
    for (size_t i = 0; i < source.size(); ++i) {
        const int value = ScaledItem(source[i], hundredths);
        if (i >= data.size())
            raise(ErrSubscript);
        data[i] = value;
    }
    if (in.sorted == 1)
        Maths::BubbleSort(data);

    std::string shown;
    for (int v : data)
        shown += std::to_string(v) + ", ";
    a.dataText = shown + "\r\n";
    a.analysed = true;
    return a;
}

std::string ClassLabel(int lowStem, int highStem)
{
    return std::to_string(lowStem) + "0<t<" + std::to_string(highStem) + "0";
}

int RowHeightFor(int rowCount)
{
    if (rowCount < 10)
        return 28;
    if (rowCount <= 11)
        return 22;
    return 18;
}

namespace {

// The leading characters of a value's decimal text, read as a number.
int leadingStem(int value, size_t characters)
{
    const std::string text = std::to_string(value);
    return static_cast<int>(CDbl(text.substr(0, characters)));
}

// For the stems low..low + rows - 1, how many values have a decimal text that begins with the
// stem's text. A text begins with a stem's text exactly when one of its leading parts is that
// text, so each distinct value is looked at once, part by part, instead of once per stem.
std::vector<int> countByLeadingText(const std::vector<int> &sorted, int low, int rows)
{
    std::vector<int> counts(static_cast<size_t>(rows), 0);
    size_t i = 0;
    while (i < sorted.size()) {
        size_t j = i + 1;
        while (j < sorted.size() && sorted[j] == sorted[i])
            ++j;
        const std::string text = std::to_string(sorted[i]);
        for (size_t k = 1; k <= text.size(); ++k) {
            int stem = 0;
            const char *end = text.data() + k;
            const auto [stop, error] = std::from_chars(text.data(), end, stem);
            if (error != std::errc() || stop != end)
                continue;
            const long long row = static_cast<long long>(stem) - low;
            if (row < 0 || row >= rows || std::to_string(stem).size() != k)
                continue; // not a stem of the table, or a text such as "05" that no stem has
            counts[static_cast<size_t>(row)] += static_cast<int>(j - i);
        }
        i = j;
    }
    return counts;
}

} // namespace

ClassTable BuildClassTable(std::vector<int> &groupedData)
{
    Maths::BubbleSort(groupedData);
    ClassTable t;
    const int first = Maths::At(groupedData, 0);
    const int last = groupedData.back();
    t.lowestStem = leadingStem(first, 1);
    t.highestStem = leadingStem(last, last > 99 ? 2 : 1);
    t.rowCount = subInt32(t.highestStem, t.lowestStem) + 1;
    t.rowHeight = RowHeightFor(t.rowCount);

    const std::vector<int> frequencies =
        countByLeadingText(groupedData, t.lowestStem, t.rowCount > 0 ? t.rowCount : 0);

    int cumulative = 0;
    for (int i = 0; i < t.rowCount; ++i) {
        ClassRow row;
        row.stem = t.lowestStem + i;
        row.label = ClassLabel(row.stem, row.stem + 1);
        row.cumulativeLabel = ClassLabel(t.lowestStem, t.lowestStem + i + 1);
        row.frequency = frequencies[static_cast<size_t>(i)];
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

double EstimatedMean(const ClassTable &table)
{
    if (table.frequencyTotal == 0)
        raise(table.productTotal == 0 ? ErrOverflow : ErrDivisionByZero);
    return Maths::RoundToPlaces(static_cast<double>(table.productTotal) / table.frequencyTotal, 2);
}

std::string EstimatedMeanText(const ClassTable &table)
{
    return "Estimated Mean = " + GeneralText(EstimatedMean(table)) + " to 2 d.p.";
}

} // namespace zrt
