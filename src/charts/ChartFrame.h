#pragma once
// The fixed frame every chart routine follows: clear the surface, take its outer size in
// pixels, switch to pixels, set the pen; draw with positions rounded from the double
// products; switch back to twips at the end. Plus the small pieces several charts repeat.

#include "charts/PictureBox.h"

#include <QString>

namespace zrt {

class ChartFrame {
public:
    // Clears the surface, reads w and h, sets ScaleMode 3 and the DrawWidth; a black pen when asked.
    ChartFrame(PictureBox &surface, int drawWidth, bool blackPen);

    PictureBox &surface() const { return m_surface; }
    int w() const { return m_w; }
    int h() const { return m_h; }

    void MoveTo(int x, int y) { m_surface.MoveToEx(x, y); }
    void LineTo(int x, int y) { m_surface.LineTo(x, y); }
    void Line(int x1, int y1, int x2, int y2);
    // FillColor, solid FillStyle, border = ForeColor, border flood fill from (x, y).
    void Fill(int x, int y, OleColor colour);
    // The chart label call: weight, italic and enabled as the charts pass them.
    void Label(int x, int y, const QString &text, int height, OleColor colour = 0, int weight = 0,
               bool italic = false, bool enabled = true);
    void ForeColor(OleColor colour) { m_surface.SetForeColor(colour); }
    void DrawWidth(int width) { m_surface.SetDrawWidth(width); }

    // ScaleMode back to twips, and what was drawn goes to the screen at the next paint.
    void Finish()
    {
        m_surface.SetScaleMode(PictureBox::Twips);
        m_surface.Drawn();
    }

private:
    PictureBox &m_surface;
    int m_w;
    int m_h;
};

// Position of a double product: nearest, ties to even.
int Pos(double value);

// The class label ("20<t<30") at (x, y) in height g, and the stroke under its first "<" that
// makes it a less-than-or-equal sign, from (lineX + g, y + 0.7 g) to (lineX + 1.4 g, y + 0.7 g).
void DrawClassLabel(ChartFrame &f, int x, int y, int lineX, const QString &label, int g, bool enabled,
                    OleColor colour);

// The text rule of the comparison scales: the leading one or two characters of the decimal
// text of a single-precision value, as a number; the start is that times 10, the end that plus
// 1 times 10. 235 starts at 230, 85 at 80, 7 at 70 and 1234 at 120.
int ScaleStartOf(float lowest);
int ScaleEndOf(float highest);

// Labels stand at every k-th tick, k the first of 1, 2, 5, 10, 20, 50 ... that spaces them at
// least a label's extent (plus a pixel's gap) apart; the ticks themselves stay.
int LabelEvery(double spacing, int extent);

// A tick loop whose step is 0 would never end: that is a run-time failure instead.
void RequireStep(int step);

} // namespace zrt
