#pragma once
// The Groups page: times in whole hundredths, classes found from the leading digits of their
// decimal text (every class is ten hundredths wide), and the numbers of the estimated mean
// and cumulative frequency tables.

#include "stats/AnalysisState.h"

#include <string>
#include <vector>

namespace zrt {

struct GroupedInput {
    const CollectedLists &lists;
    int sorted = 0;       // 1: the data text lists the items sorted
    int visualChosen = 1; // 1 analyses the visual times, anything else the audio times
};

struct GroupedAnswer {
    bool analysed = false; // false: only the message went to t4
    std::string dataText;      // ends with CR LF
};

// Rewrites state.GroupedData; the caller then draws the tally and sets GroupedReady.
GroupedAnswer Get_Grouped_Data(const GroupedInput &in, AnalysisState &state);

struct ClassRow {
    int stem = 0;
    std::string label;           // "20<t<30"
    int frequency = 0;
    int midpoint = 0;            // stem x 10 + 5
    int product = 0;             // midpoint x frequency
    std::string cumulativeLabel; // "20<t<40": every cumulative class starts at the lowest stem
    int cumulative = 0;
};

struct ClassTable {
    int lowestStem = 0;  // a
    int highestStem = 0; // b
    int rowCount = 0;    // r = b - a + 1 (no rows when it is not positive)
    int rowHeight = 28;  // 28, 22 or 18 pixels by the number of rows
    std::vector<ClassRow> rows;
    int frequencyTotal = 0;
    int productTotal = 0;
};

// Sorts the array in place (the charts leave it sorted) and counts every class by text.
ClassTable BuildClassTable(std::vector<int> &groupedData);

// The label of the class of stem s ("20<t<30"), and the row height for r rows.
std::string ClassLabel(int lowStem, int highStem);
int RowHeightFor(int rowCount);

// RoundToPlaces(product total / frequency total, 2); an empty table divides by zero.
double EstimatedMean(const ClassTable &table);
std::string EstimatedMeanText(const ClassTable &table); // "Estimated Mean = 31.5 to 2 d.p."

} // namespace zrt
