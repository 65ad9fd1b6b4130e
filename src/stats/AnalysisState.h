#pragma once
// What the analysis pages share: the main window's two integer arrays and the module-wide results.
// The window owns one of these; the report tool owns one too, so both run the same routines.

#include <string>
#include <vector>

namespace zrt {

struct AnalysisResults {
    int SampleSize = 0; // 0: nothing analysed yet, the charts stay unpainted
    int SumOfValues = 0;
    int LowestValue = 0;
    int HighestValue = 0;
    int RangeValue = 0;
    double MeanValue = 0;
    double MedianValue = 0;
    std::string ModeText;
    double LowerQuartile = 0;
    double UpperQuartile = 0;
    double InterquartileRange = 0;
    short PrecisionIndex = 0;
    double VarianceValue = 0;
    double StandardDeviation = 0;
    double LowerOutlierLimit = 0;
    double UpperOutlierLimit = 0;
    double SpearmanValue = 0;
};

struct AnalysisState {
    std::vector<int> AnalysisData;
    std::vector<int> GroupedData;
    AnalysisResults results;
    bool GroupedReady = false;
    bool CompareReady = false;
};

// Item texts of the collected lists, exactly as the lists hold them.
struct CollectedLists {
    std::vector<std::string> visual; // visual averages
    std::vector<std::string> audio;  // audio averages, same index as visual when comparing
};

} // namespace zrt
