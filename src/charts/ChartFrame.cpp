#include "charts/ChartFrame.h"

#include "charts/Drawings.h"
#include "common/NumberText.h"
#include "common/RunTimeError.h"

namespace zrt {

ChartFrame::ChartFrame(PictureBox &surface, int drawWidth, bool blackPen) : m_surface(surface)
{
    m_surface.Cls();
    const QSize outer = m_surface.WindowRectSize();
    m_w = outer.width();
    m_h = outer.height();
    m_surface.SetScaleMode(PictureBox::Pixels);
    m_surface.SetDrawWidth(drawWidth);
    if (blackPen)
        m_surface.SetForeColor(0);
}

void ChartFrame::Line(int x1, int y1, int x2, int y2)
{
    m_surface.MoveToEx(x1, y1);
    m_surface.LineTo(x2, y2);
}

void ChartFrame::Fill(int x, int y, OleColor colour)
{
    m_surface.SetFillColor(colour);
    m_surface.SetFillStyle(PictureBox::FillSolid);
    m_surface.ExtFloodFill(x, y, m_surface.ForeColor(), PictureBox::FloodFillBorder);
}

void ChartFrame::Label(int x, int y, const QString &text, int height, OleColor colour, int weight, bool italic,
                       bool enabled)
{
    Drawings::DrawLabel(&m_surface, x, y, text, enabled, colour, weight, italic ? 1 : 0, 0, height);
}

int Pos(double value) { return CLng(value); }

void DrawClassLabel(ChartFrame &f, int x, int y, int lineX, const QString &label, int g, bool enabled,
                    OleColor colour)
{
    f.Label(x, y, label, g, colour, 0, false, enabled);
    const int lineY = Pos(y + g * 0.7);
    f.Line(Pos(lineX + g * 1.0), lineY, Pos(lineX + g * 1.4), lineY);
}

namespace {

int Leading(float value, bool twoCharacters)
{
    const std::string text = GeneralText(value);
    return static_cast<int>(Val(text.substr(0, twoCharacters ? 2 : 1)));
}

} // namespace

int ScaleStartOf(float lowest) { return mulInt32(Leading(lowest, lowest > 99.0f), 10); }

int ScaleEndOf(float highest) { return mulInt32(addInt32(Leading(highest, highest > 99.0f), 1), 10); }

int LabelEvery(double spacing, int extent)
{
    if (spacing <= 0)
        return 1;
    static constexpr int steps[] = {1, 2, 5};
    for (long long decade = 1;; decade *= 10)
        for (int k : steps)
            if (k * decade * spacing >= extent + 1 || k * decade >= 1000000000LL)
                return static_cast<int>(k * decade);
}

void RequireStep(int step)
{
    if (step == 0)
        throw RunTimeError(ErrInvalidCall,
                           "Invalid procedure call or argument (the scale's step is 0: the surface is too small)");
}

} // namespace zrt
