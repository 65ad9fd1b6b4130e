#pragma once
// The "Cumulative Frequency (CF)" tab, two tables side by side, and the "CF Plot" tab, the
// cumulative curve with optional reading lines for the median and quartiles.

#include "charts/PictureBox.h"

#include <array>
#include <vector>

namespace zrt {

// Draws on pCF. groupedData: GroupedData in hundredths, sorted here and left sorted.
// showCF is true while cmdCF reads "Hide CF".
void DrawCFTable(PictureBox &pCF, std::vector<int> &groupedData, bool showCF);

// Draws on ppCF. showPlot is true while cmdPlot reads "Hide Plot"; showQuartiles is
// Check3.Value = 1. A reading line on a surface too narrow for one pixel per hundredth
// divides by zero (RunTimeError).
// Returns what the reading lines read, in hundredths, as they are printed under the axis:
// median, lower quartile, upper quartile; -1 where no line was drawn.
std::array<int, 3> DrawCFPlot(PictureBox &ppCF, std::vector<int> &groupedData, bool showPlot, bool showQuartiles);

inline constexpr OleColor CurvePointColour = RGB(0, 255, 0);
inline constexpr int CFPlotMargin = 30;

} // namespace zrt
