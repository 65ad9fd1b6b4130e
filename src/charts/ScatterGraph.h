#pragma once
// The "Scatter Graph" tab: visual across, audio up, each axis starting at its own ten, an axis
// break at the corner, the pairs as green points and their mean as a red point.

#include "charts/BoxPlots.h"
#include "charts/PictureBox.h"

#include <string>
#include <vector>

namespace zrt {

inline constexpr OleColor PairPointColour = RGB(0, 255, 0);
inline constexpr OleColor MeanPointColour = RGB(255, 0, 0);

// Draws on pFR(0). visual and audio: the pairs in hundredths, in recording order; both are
// sorted in place (each by itself) once the pairs are copied. An audio list shorter than the
// visual one is a subscript failure (RunTimeError 9). showCoordinates is true while cmdSG
// reads "Hide Coordinates"; then count, lowest, highest and mean (whole hundredths) of both
// summaries are written, and the mean point is drawn.
void DrawScatter(PictureBox &pFR0, std::vector<int> &visual, std::vector<int> &audio, bool showCoordinates,
                 BoxSummary &visualSummary, BoxSummary &audioSummary);

// True when the pixel under (x, y), in pixels of the surface, is the mean point's red: the one
// active place of the graph. The window answers such a press with MeanPointMessage.
bool IsMeanPoint(const PictureBox &pFR0, int x, int y);

// "Mean Data Point : (31,35)"; shown with an empty title and the information icon.
std::string MeanPointMessage(const BoxSummary &visualSummary, const BoxSummary &audioSummary);

} // namespace zrt
