#include "stats/Averages.h"

#include "common/NumberText.h"
#include "common/RunTimeError.h"
#include "stats/Maths.h"

namespace zrt {

PrecisionScale ScaleOfPrecision(int precisionIndex)
{
    switch (precisionIndex) {
    case 1: return {3, 1000.0};
    case 2: return {4, 10000.0};
    default: return {2, 100.0};
    }
}

int ScaledItem(const std::string &text, const PrecisionScale &scale)
{
    return CLng(Maths::RoundToPlaces(CDbl(text), scale.places) * scale.factor);
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
    data.resize(static_cast<size_t>(n)); // contents kept
    r.SampleSize = n;

    // The array is sized by cl2 even when CL4 is the source; the counter is 16 bits wide.
    const auto &source = in.visualChosen == 1 ? cl2 : in.lists.audio;
    const PrecisionScale scale = ScaleOfPrecision(in.precisionIndex);
    const long long count = static_cast<long long>(source.size());
    if (count > 0)
        toInt16(count - 1); // the loop's end value
    for (long long i = 0; i < count; ++i) {
        const int value = ScaledItem(source[static_cast<size_t>(i)], scale);
        if (i >= n)
            raise(ErrSubscript);
        data[static_cast<size_t>(i)] = value;
        r.PrecisionIndex = static_cast<short>(in.precisionIndex);
    }
    if (count > 0)
        toInt16(count); // the counter's last step past the end

    if (in.sorted == 1)
        Maths::BubbleSort(data);

    std::string shown;
    int sum = 0;
    for (int v : data) {
        shown += std::to_string(v) + ", ";
        sum = addInt32(sum, v);
    }

    AveragesAnswer a;
    a.dataText = shown + "\r\n";
    if (in.sorted == 0)
        Maths::BubbleSort(data);

    r.SumOfValues = sum;
    r.MeanValue = Maths::RoundToPlaces(static_cast<double>(sum) / n, 4);
    r.ModeText = Maths::ModeOf(data);
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

} // namespace zrt
