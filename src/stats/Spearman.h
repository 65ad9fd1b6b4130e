#pragma once
// The Compare page: pairs of visual and audio times in whole hundredths, their ranks with
// ties averaged, and Spearman's coefficient by the plain formula.

#include "stats/AnalysisState.h"

#include <array>
#include <string>
#include <vector>

namespace zrt {

inline constexpr std::array<const char *, 6> kRankColumnCaptions = {
    "Visual(x)", "Rank (Rx)", "Audio(y)", "Rank (Ry)", "d (Rx-Ry)", "d^2"};
inline constexpr std::array<int, 6> kRankColumnWidths = {80, 85, 80, 85, 85, 75};

// One column of the rank table: x, rank of x, y, rank of y, d, d squared (single precision).
using RankColumn = std::array<float, 6>;

struct SpearmanTable {
    std::vector<RankColumn> columns; // ascending by x
    float sumOfDSquared = 0;         // S
    float coefficient = 0;           // r
    std::string squaredDifferencesText; // decimal text of S, the sum of d squared
    std::string coefficientText;       // "= " and r to 4 places
    // The table's rows as the list view shows them, each value in its general text form.
    std::vector<std::array<std::string, 6>> rowTexts() const;
};

// visual and audio by reference as the window passes them; visualCount sizes the table.
SpearmanTable Add_SR_Data(const std::vector<int> &visual, const std::vector<int> &audio, int visualCount,
                          AnalysisResults &results);

struct CompareAnswer {
    bool analysed = false; // false: only the message is in pairsText
    std::string pairsText; // "(23,31), (27,35), " and CR LF
    SpearmanTable table;
};

// Loads GroupedData with the visual and AnalysisData with the audio times, then ranks them.
// The caller draws the scatter graph and box plots and then sets CompareReady.
CompareAnswer Get_Compare_Data(const CollectedLists &lists, AnalysisState &state);

} // namespace zrt
