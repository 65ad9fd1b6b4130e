#include "charts/CorrelationScale.h"

#include "charts/ChartFrame.h"

namespace zrt {

int CorrelationArrowX(int w, double spearmanValue)
{
    const int u = Pos(w * 0.9 / 200.0); // pixels per hundredth of the coefficient
    return Pos(u * spearmanValue * 100.0 + w * 0.5);
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
