#include "stats/GroupedData.h"

#include "common/NumberText.h"
#include "common/RunTimeError.h"
#include "stats/Averages.h"
#include "stats/Maths.h"

namespace zrt {

GroupedAnswer Get_Grouped_Data(const GroupedInput &in, AnalysisState &state)
{
    GroupedAnswer a;
    const auto &cl2 = in.lists.cl2;
    if (cl2.empty()) {
        a.t4 = std::string(kNoTimesMessage) + "\r\n";
        return a;
    }
    std::vector<int> &data = state.GroupedData;
    data.resize(cl2.size()); // contents kept

    const auto &source = in.check5Visual == 1 ? cl2 : in.lists.CL4;
    const PrecisionScale hundredths = ScaleOfPrecision(0);
    for (size_t i = 0; i < source.size(); ++i) {
        const int value = ScaledItem(source[i], hundredths);
        if (i >= data.size())
            raise(ErrSubscript);
        data[i] = value;
    }
    if (in.check2 == 1)
        Maths::BubbleSort(data);

    std::string shown;
    for (int v : data)
        shown += std::to_string(v) + ", ";
    a.t4 = shown + "\r\n";
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

bool startsWith(const std::string &text, const std::string &prefix)
{
    return text.compare(0, prefix.size(), prefix) == 0;
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
