#pragma once
// The statistics routines as they were before their sorts were made fast: quadratic bubble
// sorts, the mode counted by a search per value, the classes counted by a text search per
// class. The tests hold the program's routines to these on many random samples.

#include "stats/Averages.h"
#include "stats/GroupedData.h"
#include "stats/Spearman.h"

#include <string>
#include <vector>

namespace zrt::reference {

void BubbleSort(std::vector<int> &a);
std::string ModeOf(const std::vector<int> &a);

AveragesAnswer Get_Averages(const AveragesInput &in, AnalysisState &state);
GroupedAnswer Get_Grouped_Data(const GroupedInput &in, AnalysisState &state);
ClassTable BuildClassTable(std::vector<int> &groupedData);
SpearmanTable Add_SR_Data(const std::vector<int> &visual, const std::vector<int> &audio, int cl2Count,
                          AnalysisResults &results);
CompareAnswer Get_Compare_Data(const CollectedLists &lists, AnalysisState &state);

} // namespace zrt::reference
