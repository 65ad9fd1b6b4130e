#pragma once
// The "Grouped Data" tab: class, tally marks with gates, and frequency.

#include "charts/PictureBox.h"

#include <string>
#include <vector>

namespace zrt {

// Draws on ptally. groupedData: GroupedData in hundredths, sorted here and left sorted.
// showTally is true while cmdTally reads "Hide Tally/Frequency".
void DrawTally(PictureBox &ptally, std::vector<int> &groupedData, bool showTally);

// "llll " for each full five, then "l" for each one left over.
std::string TallyText(int frequency);

} // namespace zrt
