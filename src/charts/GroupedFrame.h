#pragma once
// What the tally and estimated mean tables share: the class column, the outer frame with its
// header line and the filled header band.

#include "charts/ChartFrame.h"
#include "stats/GroupedData.h"

namespace zrt {

inline constexpr OleColor HeaderFillColour = RGB(225, 215, 210);
inline constexpr OleColor AnswerColour = RGB(128, 0, 0);

// Top of row i: h x 0.1 + g x i.
double RowTop(const ChartFrame &f, int g, int i);
// Bottom of the table: CLng(h x 0.1 + r x g).
int TableBottom(const ChartFrame &f, const ClassTable &t);
// x of a class label whose column starts at left: half a row further left for a two-digit stem.
int LabelLeft(double left, int stem, int g);
// The label of the last row (empty when there is none).
QString LastLabel(const ClassTable &t, bool cumulative);

// Class labels in black with their "<=" strokes, the frame from w x 0.02 to w - w x 0.02 and
// 15 down to the bottom, the header line at h x 0.1 and its fill.
void DrawClassColumnAndFrame(ChartFrame &f, const ClassTable &t);

} // namespace zrt
