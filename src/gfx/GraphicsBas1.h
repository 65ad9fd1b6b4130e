#pragma once
// Drawing routines that several controls share, and the 32-bit colour values the controls keep
// in their properties (red in the low byte; the top bit marks a system colour index).

#include <QColor>
#include <QImage>
#include <QPoint>
#include <QRect>
#include <QSize>

#include <cstdint>

class QPainter;

namespace zrt {

using OleColor = std::uint32_t;

constexpr OleColor RGB(int r, int g, int b)
{
    return static_cast<OleColor>((r & 0xFF) | ((g & 0xFF) << 8) | ((b & 0xFF) << 16));
}
constexpr bool IsSystemColor(OleColor c) { return (c & 0x80000000u) != 0; }
constexpr OleColor SystemColor(int index) { return 0x80000000u | static_cast<OleColor>(index); }

// Resolves a system colour index through the application palette; plain colours pass through.
QColor TranslateColor(OleColor color);
OleColor ToOleColor(const QColor &color);

enum class GradientDirection : int { TopToBottom = 0, LeftToRight = 1 };

// Fills the rectangle with a linear gradient, one colour per row (or column), from the first
// colour at the top (left) edge to the second at the bottom (right) edge.
void DrawGradient(QPainter &target, const QRect &rect, const QColor &from, const QColor &to,
                  GradientDirection direction);
QImage GradientImage(const QSize &size, const QColor &from, const QColor &to,
                     GradientDirection direction);

// Copies a part of the source with every pixel of the mask colour left out.
void TransparentCopy(QPainter &target, const QPoint &at, const QSize &size, const QImage &source,
                     const QPoint &sourceAt, const QColor &maskColor);

// Draws a part of the picture on a ground of the given colour, so its transparent parts show it.
void PictureToDC(QPainter &target, const QPoint &at, const QSize &size, const QImage &picture,
                 const QPoint &sourceAt, const QColor &background);

// A positive factor (1..100) moves the colour toward white by that percentage, a negative one
// toward black.
QColor BlendColor(const QColor &color, int factor);

} // namespace zrt
