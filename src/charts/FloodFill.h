#pragma once
// Scanline flood fill on an RGB32 image, with the two meanings the charts rely on: up to a
// border colour, or over the seed's own colour.

#include <QBrush>
#include <QImage>
#include <QRect>
#include <QRgb>

#include <vector>

namespace zrt {

enum class FloodKind {
    Border,  // every 4-connected pixel from the seed that is not the border colour
    Surface, // every 4-connected pixel from the seed that has the seed's colour
};

// Returns false, painting nothing, when the seed is off the image or (Border) on the border
// colour. A solid brush is written straight into the pixels; other brushes paint the spans.
// With filled given, it receives the pixels filled as rectangles (rows of the same span
// joined), so the fill can be painted again on another device.
bool FloodFill(QImage &image, int x, int y, QRgb colour, FloodKind kind, const QBrush &brush,
               std::vector<QRect> *filled = nullptr);

} // namespace zrt
