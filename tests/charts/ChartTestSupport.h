#pragma once
// Helpers for reading charts back: a white surface of a fixed size and pixel searches.

#include "charts/PictureBox.h"

#include <QRect>

namespace charttest {

inline constexpr zrt::OleColor White = zrt::RGB(255, 255, 255);
inline constexpr zrt::OleColor Black = 0;
inline constexpr zrt::OleColor Maroon = zrt::RGB(128, 0, 0);
inline constexpr zrt::OleColor BoxFill = zrt::RGB(225, 215, 210);

// A borderless surface with a white background, so "not white" means "painted".
inline void Prepare(zrt::PictureBox &surface, int w, int h)
{
    surface.resize(w, h);
    surface.SetBackColor(White);
}

inline qint32 Colour(zrt::OleColor c) { return static_cast<qint32>(c); }

// How many pixels in the rectangle (inclusive) have the colour.
inline int CountIn(const zrt::PictureBox &s, const QRect &r, zrt::OleColor colour)
{
    int n = 0;
    for (int y = r.top(); y <= r.bottom(); ++y)
        for (int x = r.left(); x <= r.right(); ++x)
            if (s.PixelAt(x, y) == Colour(colour))
                ++n;
    return n;
}

// How many pixels in the rectangle are painted at all.
inline int InkIn(const zrt::PictureBox &s, const QRect &r) { return r.width() * r.height() - CountIn(s, r, White); }

// The bounding box of the pixels of a colour within the rectangle (null when there are none).
inline QRect BoundsOf(const zrt::PictureBox &s, const QRect &r, zrt::OleColor colour)
{
    QRect found;
    for (int y = r.top(); y <= r.bottom(); ++y)
        for (int x = r.left(); x <= r.right(); ++x)
            if (s.PixelAt(x, y) == Colour(colour))
                found = found.united(QRect(x, y, 1, 1));
    return found;
}

} // namespace charttest
