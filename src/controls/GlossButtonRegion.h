#pragma once
// Pixel shapes of the push button: the rounded box that cuts its window, the same box inset by a
// pixel for the border scan, and the round-cornered gloss shape. Kept as a bitmap over a bounding
// box so that the per-pixel faces can test points cheaply.

#include <QRegion>

#include <cstdint>
#include <vector>

namespace zrt {

// The corner test: a point (a, b) of a corner cell of radius r.
bool IsInCorner(int a, int b, int r);

// Whether (x, y) belongs to the rounded box at (left, top) of the given size and corner radius r.
bool IsInRoundRect(int x, int y, int left, int top, int width, int height, int r);

class GlossButtonRegion {
public:
    GlossButtonRegion() = default;

    // The rounded box as the button cuts it: every pixel of (0,0)-(left+width, top+height) that
    // IsInRoundRect accepts, judged on the left half: each refused pixel takes its mirror image
    // across the vertical centre of that rectangle with it.
    static GlossButtonRegion RoundBox(int left, int top, int width, int height, int radius);

    // A rectangle (left, top)-(right, bottom), right and bottom excluded, with elliptic corners of
    // the given full width and height (zero gives square corners).
    static GlossButtonRegion RoundRect(int left, int top, int right, int bottom, int cornerWidth,
                                       int cornerHeight);

    bool contains(int x, int y) const
    {
        const int cx = x - m_left;
        const int cy = y - m_top;
        if (cx < 0 || cy < 0 || cx >= m_width || cy >= m_height)
            return false;
        return m_bits[static_cast<std::size_t>(cy) * static_cast<std::size_t>(m_width) +
                      static_cast<std::size_t>(cx)] != 0;
    }
    bool isEmpty() const;
    QRegion toRegion() const;

private:
    GlossButtonRegion(int left, int top, int width, int height);
    void set(int x, int y, bool inside);

    int m_left = 0;
    int m_top = 0;
    int m_width = 0;
    int m_height = 0;
    std::vector<std::uint8_t> m_bits;
};

} // namespace zrt
