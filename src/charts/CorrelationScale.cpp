#include "charts/CorrelationScale.h"

#include "charts/ChartFrame.h"

#include <algorithm>

namespace zrt {

int CorrelationArrowX(int w, double spearmanValue)
{
    // Pixels per hundredth of the coefficient, kept fractional: rounded to a whole pixel it
    // stretched the scale past its ends (2.55 became 3, putting 0.96 beyond a 566-pixel surface).
    // The arrow never leaves the ticks of -1 and +1, which single precision may just pass.
    const double u = w * 0.9 / 200.0;
    return std::clamp(Pos(u * spearmanValue * 100.0 + w * 0.5), Pos(w * 0.05), Pos(w * 0.95));
}

void DrawCorrelationScale(PictureBox &pFR1, double spearmanValue)
{
    ChartFrame f(pFR1, 3, true);
    const int w = f.w();
    const int y = Pos(f.h() * 0.9);
    f.Line(Pos(w * 0.05), y, Pos(w * 0.95), y);
    for (int x : {Pos(w * 0.05), Pos(w * 0.95), Pos(w * 0.5)})
        f.Line(x, y, x, y - 10);
    f.Label(Pos(w * 0.05) - 5, y - 32, QStringLiteral("-1"), 24);
    f.Label(Pos(w * 0.95 - 8.0), y - 32, QStringLiteral("+1"), 24);
    f.Label(Pos(w * 0.5 - 6.0), y - 32, QStringLiteral("0"), 24);

    f.ForeColor(CorrelationArrowColour);
    const int p = CorrelationArrowX(w, spearmanValue);
    f.Line(p, y, p, y - 30);
    f.MoveTo(p - 5, y - 7);
    f.LineTo(p, y);
    f.LineTo(p + 5, y - 7);
    f.Finish();
}

} // namespace zrt
