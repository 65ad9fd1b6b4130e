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
    int precisionIndex = 0; // cl3.ListIndex
    int check1 = 0;         // show t1 sorted
    int check5Visual = 1;   // Check5(0): 1 analyses cl2, anything else CL4
};

struct AveragesAnswer {
    enum class Outcome {
        PrecisionReset, // cl3 had no choice: the caller selects item 0, whose click runs the analysis again
        Message,        // too little data: tags and answer labels emptied, t1 holds the message
        Analysed,
    };
    Outcome outcome = Outcome::Analysed;
    std::string t1;                     // ends with CR LF
    std::string l8;                     // "Sample Size (n) = 3\n"; empty after a reset
    std::array<std::string, 9> cmd1Tags;
    std::array<std::string, 4> cmd2Tags;
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
