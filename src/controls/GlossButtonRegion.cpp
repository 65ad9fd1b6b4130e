#include "controls/GlossButtonRegion.h"

#include <QRect>

#include <algorithm>
#include <cmath>

namespace zrt {

bool IsInCorner(int a, int b, int r)
{
    const long long q = static_cast<long long>(r) * r - static_cast<long long>(a) * a;
    if (q < 0)
        return false;
    return std::abs(b - r) < std::lrint(std::sqrt(static_cast<double>(q)));
}

bool IsInRoundRect(int x, int y, int left, int top, int width, int height, int r)
{
    const int X = x - left;
    const int Y = y - top;
    if (Y + r < height && Y > r && X > r && X + r < width)
        return true;
    if (X < r && Y <= r)
        return IsInCorner(X - r, Y, r);
    if (X + r > width && Y <= r)
        return IsInCorner(X - width + r, Y, r);
    if (X < r && Y + r >= height)
        return IsInCorner(X - r, Y - height + 2 * r, r);
    if (X + r > width && Y + r >= height)
        return IsInCorner(X - width + r, Y - height + 2 * r, r);
    return X >= 1 && X < width && Y >= 1 && Y < height;
}

GlossButtonRegion::GlossButtonRegion(int left, int top, int width, int height)
    : m_left(left), m_top(top), m_width(std::max(width, 0)), m_height(std::max(height, 0)),
      m_bits(static_cast<std::size_t>(m_width) * static_cast<std::size_t>(m_height), 0)
{
}

void GlossButtonRegion::set(int x, int y, bool inside)
{
    const int cx = x - m_left;
    const int cy = y - m_top;
    if (cx < 0 || cy < 0 || cx >= m_width || cy >= m_height)
        return;
    m_bits[static_cast<std::size_t>(cy) * static_cast<std::size_t>(m_width) + static_cast<std::size_t>(cx)] =
        inside ? 1 : 0;
}

GlossButtonRegion GlossButtonRegion::RoundBox(int left, int top, int width, int height, int radius)
{
    const int right = left + width;
    const int bottom = top + height;
    GlossButtonRegion shape(0, 0, right, bottom);
    std::fill(shape.m_bits.begin(), shape.m_bits.end(), std::uint8_t{1});
    // The mirror of column x across the vertical centre of (0,0)-(right, bottom).
    const int mirrorSum = right;
    for (int y = 0; y <= bottom; ++y) {
        for (int x = 0; x <= right / 2; ++x) {
            if (IsInRoundRect(x, y, left, top, width, height, radius))
                continue;
            shape.set(x, y, false);
            shape.set(mirrorSum - x, y, false);
        }
    }
    return shape;
}

GlossButtonRegion GlossButtonRegion::RoundRect(int left, int top, int right, int bottom, int cornerWidth,
                                               int cornerHeight)
{
    if (right < left)
        std::swap(left, right);
    if (bottom < top)
        std::swap(top, bottom);
    GlossButtonRegion shape(left, top, right - left, bottom - top);
    const double rx = std::clamp(cornerWidth, 0, right - left) / 2.0;
    const double ry = std::clamp(cornerHeight, 0, bottom - top) / 2.0;
    for (int y = top; y < bottom; ++y) {
        // How far the row's centre reaches into the top or bottom corner band.
        const double centre = y + 0.5;
        double into = 0;
        if (centre < top + ry)
            into = top + ry - centre;
        else if (centre > bottom - ry)
            into = centre - (bottom - ry);
        double inset = 0;
        if (into > 0 && ry > 0) {
            const double t = std::min(into / ry, 1.0);
            inset = rx - rx * std::sqrt(1.0 - t * t);
        }
        const int from = static_cast<int>(std::lround(left + inset));
        const int to = static_cast<int>(std::lround(right - inset));
        for (int x = from; x < to; ++x)
            shape.set(x, y, true);
    }
    return shape;
}

bool GlossButtonRegion::isEmpty() const
{
    return std::none_of(m_bits.begin(), m_bits.end(), [](std::uint8_t b) { return b != 0; });
}

QRegion GlossButtonRegion::toRegion() const
{
    // One rectangle per run of a row; rows come in order, so the list is already y-x banded.
    std::vector<QRect> runs;
    for (int cy = 0; cy < m_height; ++cy) {
        const auto *row = m_bits.data() + static_cast<std::size_t>(cy) * static_cast<std::size_t>(m_width);
        int cx = 0;
        while (cx < m_width) {
            while (cx < m_width && row[cx] == 0)
                ++cx;
            const int start = cx;
            while (cx < m_width && row[cx] != 0)
                ++cx;
            if (cx > start)
                runs.emplace_back(m_left + start, m_top + cy, cx - start, 1);
        }
    }
    QRegion region;
    if (!runs.empty())
        region.setRects(runs.data(), static_cast<int>(runs.size()));
    return region;
}

} // namespace zrt
