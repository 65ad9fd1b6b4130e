#pragma once
// The scale from -1 to +1 under the Spearman coefficient, with a red arrow at the value.

#include "charts/PictureBox.h"

namespace zrt {

inline constexpr OleColor CorrelationArrowColour = RGB(255, 0, 0);

// Draws on pFR(1); spearmanValue is SpearmanValue.
void DrawCorrelationScale(PictureBox &pFR1, double spearmanValue);

// Where the arrow stands, in pixels across a surface of outer width w.
int CorrelationArrowX(int w, double spearmanValue);

} // namespace zrt
