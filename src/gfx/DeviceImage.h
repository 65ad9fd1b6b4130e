#pragma once
// Images that back a widget's drawing at the screen's device pixel ratio. Such an image holds the
// logical size times the ratio in pixels and carries the ratio, so a QPainter on it still takes
// logical coordinates and pen widths, while text, curves and pictures come out at full
// resolution. At a ratio of 1 it is the plain image of old, pixel for pixel.

#include <QImage>
#include <QPainter>
#include <QRect>
#include <QRectF>
#include <QSize>

#include <cmath>

namespace zrt {

// The device pixel at which logical coordinate v begins; logical pixel v covers the device
// pixels from DeviceCoord(v) up to DeviceCoord(v + 1) - 1, so neighbours never leave a gap, and
// a surface of logical width w is DeviceCoord(w) pixels wide, its last part-pixel included.
inline int DeviceCoord(int v, qreal dpr)
{
    return dpr == 1.0 ? v : static_cast<int>(std::ceil(v * dpr - 1e-9));
}

inline QSize DeviceSize(const QSize &logical, qreal dpr)
{
    return QSize(DeviceCoord(logical.width(), dpr), DeviceCoord(logical.height(), dpr));
}

// A new image for a surface of the given logical size.
inline QImage DeviceImage(const QSize &logical, qreal dpr, QImage::Format format)
{
    QImage image(DeviceSize(logical.expandedTo(QSize(0, 0)), dpr), format);
    image.setDevicePixelRatio(dpr);
    return image;
}

// True when the image backs a surface of that logical size at that ratio.
inline bool FitsDevice(const QImage &image, const QSize &logical, qreal dpr)
{
    return image.size() == DeviceSize(logical, dpr) && image.devicePixelRatio() == dpr;
}

// Shows the part of a surface image that lies under the logical rectangle.
inline void DrawSurfacePart(QPainter &painter, const QPoint &at, const QImage &image, const QRect &logical)
{
    const qreal dpr = image.devicePixelRatio();
    if (dpr == 1.0) {
        painter.drawImage(at, image, logical);
        return;
    }
    const QRect device(QPoint(DeviceCoord(logical.left(), dpr), DeviceCoord(logical.top(), dpr)),
                       QPoint(DeviceCoord(logical.right() + 1, dpr) - 1, DeviceCoord(logical.bottom() + 1, dpr) - 1));
    painter.drawImage(QRectF(at, logical.size()), image, QRectF(device));
}

// Fills logical pixels [x1, x2] of logical row y with a colour, straight into the image's
// pixels (RGB32 or ARGB32), clipped to the image.
inline void FillLogicalSpan(QImage &image, int x1, int x2, int y, QRgb color)
{
    const qreal dpr = image.devicePixelRatio();
    const int top = std::max(DeviceCoord(y, dpr), 0);
    const int bottom = std::min(DeviceCoord(y + 1, dpr), image.height());
    const int left = std::max(DeviceCoord(x1, dpr), 0);
    const int right = std::min(DeviceCoord(x2 + 1, dpr), image.width());
    for (int row = top; row < bottom; ++row) {
        auto *line = reinterpret_cast<QRgb *>(image.scanLine(row));
        for (int x = left; x < right; ++x)
            line[x] = color;
    }
}

// Qt centres a stroke one logical pixel wide on the logical coordinate; above a ratio of 1 that
// puts half of it into the pixel before (at 2: device pixels 2x-1 and 2x, and a line on a
// surface's first row loses half its width). Held while strokes are drawn, this moves them by
// half a device pixel onto the logical pixel's own device pixels, as at a ratio of 1. Fills are
// placed right already and are drawn without it. At a ratio of 1 it does nothing.
class StrokeOnPixels {
public:
    explicit StrokeOnPixels(QPainter &painter) : m_painter(painter)
    {
        const qreal dpr = painter.device() ? painter.device()->devicePixelRatio() : 1.0;
        m_offset = dpr == 1.0 ? 0.0 : 0.5 / dpr;
        if (m_offset != 0.0)
            m_painter.translate(m_offset, m_offset);
    }
    ~StrokeOnPixels()
    {
        if (m_offset != 0.0)
            m_painter.translate(-m_offset, -m_offset);
    }
    StrokeOnPixels(const StrokeOnPixels &) = delete;
    StrokeOnPixels &operator=(const StrokeOnPixels &) = delete;

private:
    QPainter &m_painter;
    qreal m_offset = 0.0;
};

} // namespace zrt
