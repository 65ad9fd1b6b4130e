#include "dialogs/BalloonShape.h"

#include <QPainterPath>

namespace zrt::BalloonShape {

PointerStyle PointerStyleFor(QPoint tip, const QRect &screen)
{
    // Twice the offset against the full size avoids halving an odd width.
    const bool left = 2 * (tip.x() - screen.left()) <= screen.width();
    const bool upper = 2 * (tip.y() - screen.top()) <= screen.height();
    if (left && upper)
        return UpperLeft;
    if (upper)
        return UpperRight;
    if (left)
        return LowerLeft;
    return LowerRight;
}

QPoint TipInWindow(PointerStyle style, QSize window)
{
    switch (style) {
    case UpperLeft:
        return {kTipInset, 0};
    case UpperRight:
        return {window.width() - kTipInset, 0};
    case LowerLeft:
        return {kTipInset, window.height()};
    case LowerRight:
        return {window.width() - kTipInset, window.height()};
    case NoPointer:
        break;
    }
    return {};
}

QPoint WindowTopLeft(PointerStyle style, QPoint tip, QSize window)
{
    return tip - TipInWindow(style, window);
}

QRegion RoundRectRegion(int left, int top, int right, int bottom, int cornerW, int cornerH)
{
    if (right <= left || bottom <= top)
        return {};
    QPainterPath path;
    path.addRoundedRect(QRectF(left, top, right - left, bottom - top), cornerW / 2.0, cornerH / 2.0);
    return QRegion(path.toFillPolygon().toPolygon());
}

QRegion MainRegion(QSize window)
{
    return RoundRectRegion(0, kPointerRoom, window.width() - 14, window.height() - 32, kFaceCorner, kFaceCorner);
}

QRect FaceRect(QSize window)
{
    return QRect(QPoint(0, kPointerRoom), QPoint(window.width() - 15, window.height() - 33));
}

QRegion ShadowRegion(QSize window)
{
    return RoundRectRegion(11, 29, window.width() - 5, window.height() - 23, kShadowCornerX, kShadowCornerY);
}

QPolygon PointerPolygon(PointerStyle style, QSize window)
{
    const int w = window.width();
    const int h = window.height();
    // The base reaches two pixels into the face so that the pointer's fill covers the face's
    // frame where the two meet.
    const int topBase = kPointerRoom + 2;
    const int bottomBase = h - 35;
    switch (style) {
    case UpperLeft:
        return QPolygon({QPoint(kTipInset, 0), QPoint(kTipInset + 4, topBase), QPoint(kTipInset + 28, topBase)});
    case UpperRight:
        return QPolygon({QPoint(w - kTipInset, 0), QPoint(w - kTipInset - 28, topBase), QPoint(w - kTipInset - 4, topBase)});
    case LowerLeft:
        return QPolygon({QPoint(kTipInset, h), QPoint(kTipInset + 4, bottomBase), QPoint(kTipInset + 28, bottomBase)});
    case LowerRight:
        return QPolygon({QPoint(w - kTipInset, h), QPoint(w - kTipInset - 28, bottomBase), QPoint(w - kTipInset - 4, bottomBase)});
    case NoPointer:
        break;
    }
    return {};
}

QRegion PointerRegion(PointerStyle style, QSize window)
{
    const QPolygon triangle = PointerPolygon(style, window);
    return triangle.isEmpty() ? QRegion() : QRegion(triangle);
}

bool StandsOnScreen(const QRect &window, const QRect &screen)
{
    return window.left() >= screen.left() && window.top() >= screen.top() - 20
        && window.left() + window.width() <= screen.left() + screen.width() + 3
        && window.top() + window.height() <= screen.top() + screen.height() + 20;
}

std::array<ShadowStrip, kShadowStrips> ShadowStrips(QSize window)
{
    const int w = window.width();
    const int h = window.height();
    std::array<ShadowStrip, kShadowStrips> strips{};
    for (int step = 0; step < kShadowStrips; ++step) {
        const int i = 2 * step;
        strips[step] = ShadowStrip{QRect(5, h - 23 - i, w - 10, 2), QRect(w - 5 - i, 23, 2, h - 46), 225 - 25 * step};
    }
    return strips;
}

} // namespace zrt::BalloonShape
