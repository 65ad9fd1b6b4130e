#pragma once
// The Averages page's analysis: scales the chosen list to whole units of the precision and
// works out every answer that the question buttons hide.

#include "stats/AnalysisState.h"

#include <array>
#include <string>

namespace zrt {

inline constexpr const char *kNoTimesMessage = "You currently have no recorded reaction times to analyse!";
inline constexpr const char *kNeedThreeMessage = "You need at least 3 recorded reation times to do this analysis.";

inline constexpr std::array<const char *, 9> kCmd1Captions = {
    "lowest Value", "Highest Value", "Range", "Mean", "Mode", "Median",
    "lower Quartile Q1", "Upper Quartile Q3", "Interquartile Range"};
inline constexpr std::array<const char *, 4> kCmd2Captions = {
    "Lower Outlier Calculation:", "Upper Outlier Calculation:", "Variance:", "Standard Deviation:"};

inline constexpr std::array<const char *, 3> kPrecisionItems = {"1/100 th", "1/1000 th", "1/10000 th"};

struct AveragesInput {
    const CollectedLists &lists;
    int precisionIndex = 0; // 0 hundredths, 1 thousandths, 2 ten-thousandths
    int sorted = 0;         // 1: the data text lists the items sorted
    int visualChosen = 1;   // 1 analyses the visual times, anything else the audio times
};

struct AveragesAnswer {
    enum class Outcome {
        PrecisionReset, // no precision chosen: the caller chooses the first, which runs the analysis again
        Message,        // too little data: answers emptied, the data text holds the message
        Analysed,
    };
    Outcome outcome = Outcome::Analysed;
    std::string dataText;               // ends with CR LF
    std::string sampleSizeText;         // "Sample Size (n) = 3\n"; empty after a reset
    std::array<std::string, 9> summaryAnswers; // behind the nine summary questions
    std::array<std::string, 4> spreadAnswers;  // behind the outlier, variance and deviation questions
};

// Reads the item texts, rewrites state.AnalysisData (sorted) and state.results.
// A run-time failure (overflow, bad subscript, a text that is no number) throws RunTimeError
// with whatever the routine had already written left in place.
AveragesAnswer Get_Averages(const AveragesInput &in, AnalysisState &state);

// The scale of each precision: places to round to and the factor to whole units.
struct PrecisionScale {
    short places;
    double factor;
};
PrecisionScale ScaleOfPrecision(int precisionIndex);

// One list item to whole units: text to double, rounded, scaled, to 32 bits.
int ScaledItem(const std::string &text, const PrecisionScale &scale);

} // namespace zrt
