#pragma once
// The "Estimated Mean" tab: classes, frequencies, midpoints, products, their totals and the
// mean estimated from the groups.

#include "charts/PictureBox.h"

#include <vector>

namespace zrt {

inline constexpr OleColor EstimatedMeanColour = RGB(0, 0, 255);

// Draws on pEmean. groupedData: GroupedData in hundredths, sorted here and left sorted.
// showResults is true while cmdR does not read "Show Results". With the results shown, a
// table whose classes count nothing divides by zero (RunTimeError).
void DrawEstimatedMean(PictureBox &pEmean, std::vector<int> &groupedData, bool showResults);

} // namespace zrt
