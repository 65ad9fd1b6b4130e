#pragma once
// The single box plot of the Averages page and the two comparison box plots of the Compare page.

#include "charts/PictureBox.h"
#include "stats/AnalysisState.h"

#include <string>
#include <vector>

namespace zrt {

// The statistics of one list for the comparison box plots and the scatter graph.
struct BoxSummary {
    int count = 0;
    int lowest = 0;
    int highest = 0;
    double mean = 0;    // written by the scatter graph only while its coordinates are shown
    double median = 0;
    double lowerQuartile = 0;
    double upperQuartile = 0;
};

inline constexpr OleColor BoxFillColour = RGB(225, 215, 210);
inline constexpr int CompareButtonWidth = 60;
inline constexpr const char *ScaleCaption = "Scale represents 1/100 ths of a second";
// What the box plot's failures mean, in a pupil's words.
inline constexpr const char *AllEqualSentence = "All the times are equal, so there is no box to draw.";
inline constexpr const char *TooWideSentence =
    "The times are spread too widely to draw at this precision; choose a coarser one, such as 1/100 th.";

// Draws on pBox. sorted: AnalysisData after Get_Averages. Reads LowestValue, RangeValue,
// MedianValue, LowerQuartile, UpperQuartile and both outlier limits of r. precisionIndex is
// 0, 1 or 2 (hundredths to ten-thousandths); showBox: the box plot is shown.
// Throws RunTimeError when the range is 0 (no leading figure to round to) or the surface is
// too small for a tick step.
void DrawBoxPlot(PictureBox &pBox, const std::vector<int> &sorted, const AnalysisResults &r, int precisionIndex,
                 bool showBox);

// Where the window puts cmdarr(0) ("Visual") and cmdarr(1) ("Audio"): Top in pixels of pFR(2)
// (h x 0.57 and h x 0.27), Left 0, and a width that ends short of the scale's start, so neither
// covers a whisker's cap there. visible is false while the boxes are hidden.
struct CompareButtons {
    bool visible = false;
    double visualTop = 0;
    double audioTop = 0;
    int width = CompareButtonWidth;
};

// Draws on pFR(2). Sorts both arrays (hundredths) in place and fills count, lowest, highest,
// median and quartiles of both summaries; showBoxes is true while cmdBPc reads "Hide Boxplots".
CompareButtons DrawCompareBoxPlots(PictureBox &pFR2, std::vector<int> &visual, std::vector<int> &audio,
                                   bool showBoxes, BoxSummary &visualSummary, BoxSummary &audioSummary);

// The "Details:" message of cmdarr(i): five lines joined by a line feed.
std::string DetailsText(const BoxSummary &summary);
inline constexpr const char *DetailsTitle = "Details:";
inline constexpr OleColor MessageBackColour = RGB(227, 207, 207);

} // namespace zrt
