// GlossButton: painting the face of each style.
#include "controls/GlossButton.h"

#include "controls/GlossButtonColours.h"

#include <QPainter>

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace zrt {

namespace {

constexpr OleColor White = RGB(255, 255, 255);

constexpr OleColor Black = RGB(0, 0, 0);

constexpr OleColor DisabledBase = RGB(192, 192, 176);

// Round to nearest with ties to even, as the original's conversions do.
int RoundEven(double value) { return static_cast<int>(std::nearbyint(value)); }

// The fixed faces' line gradient: (i/D)*E + S - (i/D)*S per channel. A divisor of zero (a button
// only a few pixels high) keeps the start colour instead of failing.
int GradientChannel(double t, int s, int e)
{
    return std::clamp(RoundEven(t * e + s - t * s), 0, 255);
}

} // namespace

// ---------------------------------------------------------------------------------------------
// Painting

void GlossButton::ClearSurface()
{
    if (m_Surface.size() != size())
        m_Surface = QImage(size(), QImage::Format_RGB32);
    m_Surface.fill(palette().color(QPalette::Window));
}

void GlossButton::Refresh() { update(); }

void GlossButton::PaintButton(ButtonState state)
{
    if (m_Checked)
        state = StateChecked;
    if (!Ready)
        return;
    // A hidden button is drawn when it shows (showEvent): the properties a window sets while it
    // builds itself then cost one drawing instead of one each.
    if (!isVisible())
        return;
    MakeButtonRegion();
    ClearSurface();
    m_PaintedState = state;
    ++m_PaintCount;
    DrawFace(state);
    DrawIconWCaption(state);
}

void GlossButton::DrawFace(ButtonState state)
{
    switch (m_Style) {
    case StyleBevel: DrawBevelFace(state); break;
    case StyleToolbar: DrawToolbarFace(state); break;
    case StyleGlossRound:
    case StyleGlossTile:
    case StyleGlossPill:
    case StyleGlossLens:
    case StyleGlossSoft: DrawGlossFace(state); break;
    case StyleGlassPixel: DrawGlassPixelFace(state); break;
    default: break; // an unknown style shows no face
    }
}

void GlossButton::Line(int x1, int y1, int x2, int y2, QRgb color)
{
    // The end point itself is left out, so joined lines do not overdraw their meeting pixel.
    if (y1 == y2) {
        if (y1 < 0 || y1 >= m_Surface.height() || x1 == x2)
            return;
        int from = x1 < x2 ? x1 : x2 + 1;
        int to = x1 < x2 ? x2 - 1 : x1;
        from = std::max(from, 0);
        to = std::min(to, m_Surface.width() - 1);
        auto *line = reinterpret_cast<QRgb *>(m_Surface.scanLine(y1));
        for (int x = from; x <= to; ++x)
            line[x] = color;
        return;
    }
    const int dx = std::abs(x2 - x1);
    const int dy = -std::abs(y2 - y1);
    const int sx = x1 < x2 ? 1 : -1;
    const int sy = y1 < y2 ? 1 : -1;
    int err = dx + dy;
    int x = x1;
    int y = y1;
    while (x != x2 || y != y2) {
        PSet(x, y, color);
        const int e2 = 2 * err;
        if (e2 >= dy) {
            err += dy;
            x += sx;
        }
        if (e2 <= dx) {
            err += dx;
            y += sy;
        }
    }
}

void GlossButton::Box(int x1, int y1, int x2, int y2, QRgb color)
{
    const int left = std::min(x1, x2), right = std::max(x1, x2);
    const int top = std::min(y1, y2), bottom = std::max(y1, y2);
    for (int x = left; x <= right; ++x) {
        PSet(x, top, color);
        PSet(x, bottom, color);
    }
    for (int y = top; y <= bottom; ++y) {
        PSet(left, y, color);
        PSet(right, y, color);
    }
}

void GlossButton::GradientRow(int i, int divisor, QRgb from, QRgb to, int x1, int y, int x2)
{
    const double t = divisor != 0 ? static_cast<double>(i) / divisor : 0.0;
    const QRgb color = qRgb(GradientChannel(t, qRed(from), qRed(to)), GradientChannel(t, qGreen(from), qGreen(to)),
                            GradientChannel(t, qBlue(from), qBlue(to)));
    Line(x1, y, x2, y, color);
}

void GlossButton::DrawParentFrame()
{
    // Paints the cut corners in the container's colour; a container without one keeps its look.
    const QWidget *container = parentWidget();
    if (!container)
        return;
    const QVariant back = container->property("BackColor");
    if (!back.isValid())
        return;
    QRgb color = 0;
    if (back.metaType().id() == QMetaType::QColor)
        color = back.value<QColor>().rgb();
    else
        color = Rgb(ColorOf(back, 0));
    Box(0, 0, width() - 1, height() - 1, color);
}

void GlossButton::DrawEdge(QRgb outer, QRgb corner, QRgb edge)
{
    const int w = width() - 1;
    const int h = height() - 1;
    PSet(0, 1, outer);
    PSet(1, 0, outer);
    Line(0, 2, 2, 0, corner);
    Line(2, 0, w - 2, 0, edge);
    PSet(w - 1, 0, outer);
    PSet(w, 1, outer);
    Line(w - 2, 0, w, 2, corner);
    Line(w, 2, w, h - 2, edge);
    PSet(w, h - 1, outer);
    PSet(w - 1, h, outer);
    Line(w, h - 2, w - 2, h, corner);
    Line(w - 2, h, 2, h, edge);
    PSet(1, h, outer);
    PSet(0, h - 1, outer);
    Line(2, h, 0, h - 2, corner);
    Line(0, h - 2, 0, 2, edge);
}

void GlossButton::DrawBevelFace(ButtonState state)
{
    const int w = width() - 1;
    const int h = height() - 1;
    DrawParentFrame();
    if (state != StateDown) {
        for (int i = 0; i <= h - 3; ++i)
            GradientRow(i, h - 3, qRgb(255, 255, 255), qRgb(236, 235, 230), 1, i, w);
        for (int i = 0; i <= 3; ++i)
            GradientRow(i, 3, qRgb(236, 235, 230), qRgb(214, 208, 197), 0, h - 4 + i, w);
    } else {
        for (int i = 0; i <= 3; ++i)
            GradientRow(i, 3, qRgb(209, 204, 193), qRgb(229, 228, 221), 0, i + 1, w);
        for (int i = 4; i <= h - 4; ++i)
            GradientRow(i, h - 6, qRgb(229, 228, 221), qRgb(226, 226, 218), 0, i, w);
        // Five rows on a divisor of three: the last row runs past the end colour, as it should.
        for (int i = 0; i <= 4; ++i)
            GradientRow(i, 3, qRgb(226, 226, 218), qRgb(242, 241, 238), 0, h - 4 + i, w);
    }
    DrawBevelInnerEdge(state);
    DrawEdge(qRgb(122, 149, 168), qRgb(37, 87, 131), qRgb(0, 60, 116));
}

void GlossButton::DrawBevelInnerEdge(ButtonState state)
{
    struct InnerEdge {
        QRgb row1, row2, from, to, rowH2, rowH1;
    };
    static const InnerEdge hover{qRgb(255, 240, 202), qRgb(253, 216, 137), qRgb(253, 216, 137),
                                 qRgb(248, 178, 48),  qRgb(248, 178, 48),  qRgb(229, 151, 0)};
    static const InnerEdge focus{qRgb(206, 231, 255), qRgb(188, 212, 246), qRgb(188, 212, 246),
                                 qRgb(137, 173, 228), qRgb(137, 173, 228), qRgb(105, 130, 238)};
    if (state != StateHover && state != StateFocused)
        return;
    const InnerEdge &e = state == StateHover ? hover : focus;
    const int w = width() - 1;
    const int h = height() - 1;
    Line(0, 1, w, 1, e.row1);
    Line(0, 2, w, 2, e.row2);
    for (int i = 3; i <= h - 3; ++i) {
        GradientRow(i, h, e.from, e.to, 0, i, 3);
        GradientRow(i, h, e.from, e.to, w - 2, i, w);
    }
    Line(0, h - 2, w, h - 2, e.rowH2);
    Line(0, h - 1, w, h - 1, e.rowH1);
}

void GlossButton::DrawToolbarFace(ButtonState state)
{
    struct Look {
        QRgb top, upper, lower, bottom, outer, corner, edge;
    };
    static const Look down{qRgb(220, 218, 209), qRgb(231, 230, 224), qRgb(225, 224, 216), qRgb(235, 234, 229),
                           qRgb(215, 215, 204), qRgb(179, 179, 168), qRgb(157, 157, 146)};
    static const Look hover{qRgb(254, 254, 253), qRgb(252, 252, 249), qRgb(238, 237, 229), qRgb(215, 210, 198),
                            qRgb(232, 232, 221), qRgb(216, 216, 205), qRgb(206, 206, 195)};
    static const Look checked{0, 0, 0, 0, qRgb(203, 213, 214), qRgb(152, 175, 190), qRgb(122, 152, 175)};
    DrawParentFrame();
    // Flat until the pointer arrives.
    if (state == StateNormal || state == StateFocused)
        return;
    const int w = width() - 1;
    const int h = height() - 1;
    if (state == StateChecked) {
        Box(1, 1, w - 1, h - 1, qRgb(255, 255, 255));
        DrawEdge(checked.outer, checked.corner, checked.edge);
        return;
    }
    const Look &look = state == StateDown ? down : hover;
    for (int i = 1; i <= 3; ++i)
        GradientRow(i, 3, look.top, look.upper, 0, i, w);
    for (int i = 4; i <= h - 4; ++i)
        GradientRow(i, h - 6, look.upper, look.lower, 0, i, w);
    for (int i = 0; i <= 3; ++i)
        GradientRow(i, 3, look.lower, look.bottom, 0, h - 4 + i, w);
    DrawEdge(look.outer, look.corner, look.edge);
}

void GlossButton::FaceColors(ButtonState state, OleColor &base, OleColor &bright) const
{
    bright = m_ColorBright;
    switch (state) {
    case StateHover: base = m_ColorButtonHover; break;
    case StateDown:
    case StateChecked: base = m_ColorButtonDown; break;
    default: base = m_ColorButtonUp; break;
    }
    if (!m_Enabled) {
        base = DisabledBase;
        bright = White;
    }
}

GlossButton::GlossParams GlossButton::GlossParamsFor(int style, int width, int height, int radius)
{
    const int W = width;
    const int H = height;
    const int R = radius;
    const int centreX = RoundEven(W / 2.0);
    switch (style) {
    case StyleGlossRound:
        return {0, 50, R / 2, 1, R / 2, RoundEven(1.1 * R), W + 2 * R, 300, 60, centreX, H, 120};
    case StyleGlossTile: {
        const int glowHeight = H > 0 ? std::min(100 - 700 / H, 80) : 80;
        return {0, 70, R / 3, 0, 0, 12, W + 2 * R, 200, glowHeight, centreX, H, 130};
    }
    case StyleGlossPill: return {0, 70, R / 3 - 1, 0, R / 2, R, W + 2 * R, 200, 70, centreX, H, 130};
    case StyleGlossLens: return {0, 40, -1 - R / 2, -R, R, R + 1, W + 2 * R, 60, 60, centreX, H, 130};
    case StyleGlossSoft:
        return {0, 50, RoundEven(R / 2.0), 2, RoundEven(R / 2.0), R + 1, W - R, 60, 60, centreX, RoundEven(H / 2.0), 100};
    default: return {};
    }
}

void GlossButton::DrawGlossFace(ButtonState state)
{
    if (CornerRadius < 1)
        CornerRadius = 1;
    OleColor base = 0;
    OleColor bright = 0;
    FaceColors(state, base, bright);
    const int B = m_BorderBrightness;
    const OleColor border = B < 0 ? BlendColors(base, Black, -B) : BlendColors(base, White, B);
    const GlossParams params = GlossParamsFor(m_Style, width(), height(), CornerRadius);
    const GlossButtonRegion gloss =
        GlossButtonRegion::RoundRect(params.GlossLeft, params.GlossTop, params.GlossRight, params.GlossBottom,
                                     2 * params.GlossCorner, 2 * params.GlossCorner);
    m_Surface.fill(Rgb(base));
    DrawRadialGlow(params, base, bright);
    ScanGlossRows(params, gloss, base, Rgb(border));
}

void GlossButton::DrawRadialGlow(const GlossParams &params, OleColor base, OleColor bright)
{
    const int X = RoundEven(width() * params.GlowWidth / 100.0);
    const int Y = RoundEven(height() * params.GlowHeight / 100.0);
    if (X <= 0 || Y <= 0)
        return;
    int left = params.GlowCenterX - X;
    int top = params.GlowCenterY - Y;
    int right = params.GlowCenterX + X;
    int bottom = params.GlowCenterY + Y;
    // The longer axis shrinks faster, so every ellipse keeps the glow's proportions.
    double dx = 1;
    double dy = 1;
    if (X > Y)
        dx = static_cast<double>(X) / Y;
    else
        dy = static_cast<double>(Y) / X;
    const int stepX = std::max(RoundEven(dx), 1);
    const int stepY = std::max(RoundEven(dy), 1);
    QPainter painter(&m_Surface);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor::fromRgb(Rgb(base)));
    int k = 1;
    while (right > left && bottom > top) {
        painter.drawEllipse(QRect(left, top, right - left, bottom - top));
        left += stepX;
        right -= stepX;
        top += stepY;
        bottom -= stepY;
        ++k;
        painter.setBrush(
            QColor::fromRgb(Rgb(BlendColors(base, bright, RoundEven(static_cast<double>(params.GlowFade) * k / Y)))));
    }
}

void GlossButton::ScanGlossRows(const GlossParams &params, const GlossButtonRegion &gloss, OleColor base,
                                QRgb border)
{
    const int W = width();
    const int H = height();
    const int R = std::max(CornerRadius, 1);
    int startX = 0;
    for (int y = 0; y <= H; ++y) {
        bool glossRow = false;
        for (int x = startX; x <= W / 2; ++x) {
            if (!InnerRegion.contains(x, y)) {
                PSet(x, y, border);
                PSet(W - x, y, border);
                continue;
            }
            if (gloss.contains(x, y)) {
                // The tint is strongest at the top, so the gloss fades downward.
                const OleColor tint = BlendColors(White, base, params.TintBase + params.TintSlope * y / R);
                Line(x, y, W - x + 1, y, Rgb(tint));
                glossRow = true;
                break;
            }
        }
        startX = glossRow ? 1 : 0;
    }
}

void GlossButton::DrawGlassPixelFace(ButtonState state)
{
    OleColor base = 0;
    OleColor bright = 0;
    FaceColors(state, base, bright);
    const int w = width() - 1;
    const int h = height() - 1;
    const int R = std::max(CornerRadius, 1);
    const int r2 = 2 * R / 3;
    const QRgb shade = Rgb(BlendColors(Black, base, 50));
    QRgb topColor = Rgb(White);
    for (int y = 0; y <= h; ++y) {
        if (y < R)
            topColor = Rgb(BlendColors(White, base, 30 * y / R));
        const int band = h != 0 ? std::abs((2 * y - h) * 100 / h) : 0;
        const QRgb bandColor = Rgb(BlendColors(base, bright, band));
        for (int x = 0; x <= w / 2; ++x) {
            QRgb color = 0;
            if (IsInRoundRect(x, y, 1, 1, w - 2, h - 2, R)) {
                const bool inA = IsInRoundRect(x, y, 4, 2, w - R, 2 * R - 1, r2);
                const bool inB = IsInRoundRect(x, y, 4, R / 2, w - R, 2 * R - 1, r2);
                color = inA && !inB ? topColor : bandColor;
            } else if (IsInRoundRect(x, y, 0, 0, w, h, R)) {
                color = shade;
            } else {
                continue;
            }
            PSet(x, y, color);
            PSet(w - x, y, color);
        }
    }
}

} // namespace zrt
