#include "charts/FloodFill.h"

#include <QPainter>

#include <algorithm>
#include <vector>

namespace zrt {

namespace {

// While the fill runs, a visited pixel carries this value in its top byte (an RGB32 image
// keeps 0xFF there), so no separate mask of the whole image is needed for a small fill.
constexpr QRgb VisitedMark = 0xFE000000u;
constexpr QRgb TopByte = 0xFF000000u;
constexpr QRgb Rgb = 0x00FFFFFFu;

struct Span {
    int y, left, right;
};

class Filler {
public:
    Filler(QImage &image, QRgb colour, FloodKind kind)
        : m_image(image), m_width(image.width()), m_height(image.height()), m_colour(colour & Rgb),
          m_kind(kind)
    {
    }

    bool inside(int x, int y) const
    {
        if (x < 0 || y < 0 || x >= m_width || y >= m_height)
            return false;
        const QRgb p = pixel(x, y);
        if ((p & TopByte) == VisitedMark)
            return false;
        return m_kind == FloodKind::Border ? (p & Rgb) != m_colour : (p & Rgb) == m_colour;
    }

    void run(int x, int y)
    {
        std::vector<QPoint> stack{QPoint(x, y)};
        while (!stack.empty()) {
            const QPoint seed = stack.back();
            stack.pop_back();
            if (!inside(seed.x(), seed.y()))
                continue;
            int left = seed.x();
            int right = seed.x();
            while (inside(left - 1, seed.y()))
                --left;
            while (inside(right + 1, seed.y()))
                ++right;
            for (int i = left; i <= right; ++i)
                mark(i, seed.y());
            m_spans.push_back({seed.y(), left, right});
            pushRuns(stack, left, right, seed.y() - 1);
            pushRuns(stack, left, right, seed.y() + 1);
        }
    }

    // Clears the marks and paints the filled spans.
    void paint(const QBrush &brush)
    {
        const bool solid = brush.style() == Qt::SolidPattern;
        const QRgb fill = brush.color().rgb() | TopByte;
        for (const Span &s : m_spans) {
            auto *line = reinterpret_cast<QRgb *>(m_image.scanLine(s.y));
            for (int i = s.left; i <= s.right; ++i)
                line[i] = solid ? fill : (line[i] | TopByte);
        }
        if (solid || brush.style() == Qt::NoBrush)
            return;
        QPainter painter(&m_image);
        for (const Span &s : m_spans)
            painter.fillRect(s.left, s.y, s.right - s.left + 1, 1, brush);
    }

    // The spans as rectangles: the same span on consecutive rows becomes one rectangle.
    std::vector<QRect> rectangles() const
    {
        std::vector<Span> spans = m_spans;
        std::sort(spans.begin(), spans.end(), [](const Span &a, const Span &b) {
            return a.left != b.left ? a.left < b.left : a.right != b.right ? a.right < b.right : a.y < b.y;
        });
        std::vector<QRect> out;
        for (size_t i = 0; i < spans.size();) {
            size_t j = i + 1;
            while (j < spans.size() && spans[j].left == spans[i].left && spans[j].right == spans[i].right &&
                   spans[j].y == spans[j - 1].y + 1)
                ++j;
            out.emplace_back(QPoint(spans[i].left, spans[i].y), QPoint(spans[i].right, spans[j - 1].y));
            i = j;
        }
        return out;
    }

private:
    QRgb pixel(int x, int y) const { return reinterpret_cast<const QRgb *>(m_image.constScanLine(y))[x]; }
    void mark(int x, int y)
    {
        auto *line = reinterpret_cast<QRgb *>(m_image.scanLine(y));
        line[x] = (line[x] & Rgb) | VisitedMark;
    }

    void pushRuns(std::vector<QPoint> &stack, int left, int right, int y) const
    {
        bool inRun = false;
        for (int i = left; i <= right; ++i) {
            const bool in = inside(i, y);
            if (in && !inRun)
                stack.emplace_back(i, y);
            inRun = in;
        }
    }

    QImage &m_image;
    int m_width, m_height;
    QRgb m_colour;
    FloodKind m_kind;
    std::vector<Span> m_spans;
};

} // namespace

bool FloodFill(QImage &image, int x, int y, QRgb colour, FloodKind kind, const QBrush &brush,
               std::vector<QRect> *filled)
{
    if (image.format() != QImage::Format_RGB32)
        image = image.convertToFormat(QImage::Format_RGB32);
    if (kind == FloodKind::Surface && x >= 0 && y >= 0 && x < image.width() && y < image.height())
        colour = image.pixel(x, y);
    Filler filler(image, colour, kind);
    if (!filler.inside(x, y))
        return false;
    filler.run(x, y);
    filler.paint(brush);
    if (filled != nullptr)
        *filled = filler.rectangles();
    return true;
}

} // namespace zrt
