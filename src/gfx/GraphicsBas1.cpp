#include "gfx/GraphicsBas1.h"

#include "gfx/DeviceImage.h"

#include <QGuiApplication>
#include <QPainter>
#include <QPalette>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <vector>

namespace zrt {

namespace {

QColor SystemColorOf(int index)
{
    const QPalette palette = QGuiApplication::palette();
    switch (index) {
    case 5: return palette.color(QPalette::Base);             // window
    case 8: return palette.color(QPalette::Text);             // window text
    case 13: return palette.color(QPalette::Highlight);
    case 14: return palette.color(QPalette::HighlightedText);
    case 15: return palette.color(QPalette::Button);          // button face
    case 16: return palette.color(QPalette::Dark);            // button shadow
    case 17: return palette.color(QPalette::Disabled, QPalette::Text); // grey text
    case 18: return palette.color(QPalette::ButtonText);
    case 20: return palette.color(QPalette::Light);           // button highlight
    case 21: return palette.color(QPalette::Shadow);          // 3D dark shadow
    case 22: return palette.color(QPalette::Midlight);        // 3D light
    case 23: return palette.color(QPalette::ToolTipText);
    case 24: return palette.color(QPalette::ToolTipBase);
    case 7: return palette.color(QPalette::WindowText);       // menu text
    case 4: return palette.color(QPalette::Window);           // menu
    case 12: return palette.color(QPalette::Mid);             // application workspace
    case 26: return palette.color(QPalette::Link);            // hot light
    default: break;
    }
    // The remaining indices (captions, borders, desktop) keep the classic fixed values.
    static const QRgb classic[] = {
        qRgb(200, 200, 200), qRgb(0, 0, 0),       qRgb(153, 180, 209), qRgb(191, 205, 219),
        qRgb(240, 240, 240), qRgb(255, 255, 255), qRgb(100, 100, 100), qRgb(0, 0, 0),
        qRgb(0, 0, 0),       qRgb(0, 0, 0),       qRgb(180, 180, 180), qRgb(244, 247, 252),
        qRgb(171, 171, 171), qRgb(0, 120, 215),   qRgb(255, 255, 255), qRgb(240, 240, 240),
        qRgb(160, 160, 160), qRgb(109, 109, 109), qRgb(0, 0, 0),       qRgb(0, 0, 0),
        qRgb(255, 255, 255), qRgb(105, 105, 105), qRgb(227, 227, 227), qRgb(0, 0, 0),
        qRgb(255, 255, 225), qRgb(0, 0, 0),       qRgb(0, 102, 204),   qRgb(185, 209, 234),
        qRgb(215, 228, 242), qRgb(0, 120, 215),   qRgb(240, 240, 240)};
    if (index >= 0 && index < static_cast<int>(std::size(classic)))
        return QColor(classic[index]);
    return QColor(Qt::black);
}

int Mix(int a, int b, int step, int steps)
{
    if (steps <= 0)
        return a;
    return a + static_cast<int>(std::lround(static_cast<double>(b - a) * step / steps));
}

} // namespace

QColor TranslateColor(OleColor color)
{
    if (IsSystemColor(color))
        return SystemColorOf(static_cast<int>(color & 0xFFFF));
    return QColor(static_cast<int>(color & 0xFF), static_cast<int>((color >> 8) & 0xFF),
                  static_cast<int>((color >> 16) & 0xFF));
}

OleColor ToOleColor(const QColor &color) { return RGB(color.red(), color.green(), color.blue()); }

// The colours of a gradient depend only on the row (or column), so each is worked out once and
// the picture is filled a row at a time.
QImage GradientImage(const QSize &size, const QColor &from, const QColor &to, GradientDirection direction)
{
    QImage image(size.expandedTo(QSize(0, 0)), QImage::Format_RGB32);
    if (image.isNull())
        return image;
    const bool rows = direction == GradientDirection::TopToBottom;
    const int count = rows ? size.height() : size.width();
    const int steps = count - 1;
    const int r0 = from.red(), g0 = from.green(), b0 = from.blue();
    const int r1 = to.red(), g1 = to.green(), b1 = to.blue();
    std::vector<QRgb> colours(static_cast<size_t>(count));
    for (int i = 0; i < count; ++i)
        colours[static_cast<size_t>(i)] = qRgb(Mix(r0, r1, i, steps), Mix(g0, g1, i, steps), Mix(b0, b1, i, steps));
    const int width = size.width();
    for (int y = 0; y < size.height(); ++y) {
        auto *line = reinterpret_cast<QRgb *>(image.scanLine(y));
        if (rows)
            std::fill(line, line + width, colours[static_cast<size_t>(y)]);
        else
            std::memcpy(line, colours.data(), static_cast<size_t>(width) * sizeof(QRgb));
    }
    return image;
}

namespace {

// The last few gradients drawn: a window's ground is painted again and again at one size.
struct KeptGradient {
    QSize size; // in device pixels
    qreal dpr;
    QRgb from;
    QRgb to;
    GradientDirection direction;
    QImage image;
};

const QImage &KeptGradientImage(const QSize &logical, qreal dpr, const QColor &from, const QColor &to,
                                GradientDirection direction)
{
    const QSize size = DeviceSize(logical, dpr);
    static std::vector<KeptGradient> kept;
    const QRgb a = from.rgb(), b = to.rgb();
    for (size_t i = 0; i < kept.size(); ++i) {
        if (kept[i].size == size && kept[i].dpr == dpr && kept[i].from == a && kept[i].to == b && kept[i].direction == direction) {
            if (i != 0)
                std::rotate(kept.begin(), kept.begin() + static_cast<std::ptrdiff_t>(i),
                            kept.begin() + static_cast<std::ptrdiff_t>(i) + 1);
            return kept.front().image;
        }
    }
    constexpr size_t kMostKept = 8;
    if (kept.size() == kMostKept)
        kept.pop_back();
    QImage image = GradientImage(size, from, to, direction);
    image.setDevicePixelRatio(dpr);
    kept.insert(kept.begin(), KeptGradient{size, dpr, a, b, direction, image});
    return kept.front().image;
}

} // namespace

void DrawGradient(QPainter &target, const QRect &rect, const QColor &from, const QColor &to,
                  GradientDirection direction)
{
    if (rect.width() <= 0 || rect.height() <= 0)
        return;
    // On a painter that only moves what it draws, each row (or column) is one solid fill of the
    // colour the picture would have there: the same pixels without building the picture. The
    // target is a widget's back buffer or an image, so it never shows a half-drawn ground.
    // A target of a higher pixel ratio gets one colour per device row instead, from the picture.
    const qreal dpr = target.device() ? target.device()->devicePixelRatio() : 1.0;
    const QTransform::TransformationType kind = target.transform().type();
    if (dpr == 1.0 && kind <= QTransform::TxTranslate && target.opacity() == 1.0
        && target.compositionMode() == QPainter::CompositionMode_SourceOver) {
        const bool rows = direction == GradientDirection::TopToBottom;
        const int count = rows ? rect.height() : rect.width();
        const int steps = count - 1;
        const int r0 = from.red(), g0 = from.green(), b0 = from.blue();
        const int r1 = to.red(), g1 = to.green(), b1 = to.blue();
        for (int i = 0; i < count; ++i) {
            const QColor colour(Mix(r0, r1, i, steps), Mix(g0, g1, i, steps), Mix(b0, b1, i, steps));
            if (rows)
                target.fillRect(QRect(rect.left(), rect.top() + i, rect.width(), 1), colour);
            else
                target.fillRect(QRect(rect.left() + i, rect.top(), 1, rect.height()), colour);
        }
        return;
    }
    target.drawImage(rect.topLeft(), KeptGradientImage(rect.size(), dpr, from, to, direction));
}

void TransparentCopy(QPainter &target, const QPoint &at, const QSize &size, const QImage &source,
                     const QPoint &sourceAt, const QColor &maskColor)
{
    QImage part = source.copy(QRect(sourceAt, size)).convertToFormat(QImage::Format_ARGB32);
    const QRgb mask = maskColor.rgb() & 0xFFFFFF;
    for (int y = 0; y < part.height(); ++y) {
        auto *line = reinterpret_cast<QRgb *>(part.scanLine(y));
        for (int x = 0; x < part.width(); ++x)
            if ((line[x] & 0xFFFFFF) == mask)
                line[x] = 0;
    }
    target.drawImage(at, part);
}

void PictureToDC(QPainter &target, const QPoint &at, const QSize &size, const QImage &picture,
                 const QPoint &sourceAt, const QColor &background)
{
    QImage canvas(size, QImage::Format_RGB32);
    if (canvas.isNull())
        return;
    canvas.fill(background);
    {
        QPainter painter(&canvas);
        painter.drawImage(QPoint(0, 0), picture, QRect(sourceAt, size));
    }
    target.drawImage(at, canvas);
}

QColor BlendColor(const QColor &color, int factor)
{
    factor = std::clamp(factor, -100, 100);
    const int end = factor < 0 ? 0 : 255;
    const int p = std::abs(factor);
    return QColor(color.red() + (end - color.red()) * p / 100, color.green() + (end - color.green()) * p / 100,
                  color.blue() + (end - color.blue()) * p / 100);
}

} // namespace zrt
