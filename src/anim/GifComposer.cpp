#include "GifComposer.h"

#include <QPainter>

namespace zrt {

namespace {

QRect FrameRect(const GifFrame &f)
{
    return QRect(f.Left, f.Top, f.Width, f.Height);
}

void PutImage(QImage &target, const QPoint &at, const QImage &source, QPainter::CompositionMode mode)
{
    QPainter painter(&target);
    painter.setCompositionMode(mode);
    painter.drawImage(at, source);
}

} // namespace

void GifComposer::Create(int width, int height)
{
    m_canvas = QImage(width, height, QImage::Format_ARGB32_Premultiplied);
    m_canvas.fill(Qt::transparent);
    m_saved = QImage();
}

void GifComposer::Release()
{
    m_canvas = QImage();
    m_saved = QImage();
}

void GifComposer::ComposeBefore(const GifImage &gif, int frameNo)
{
    if (m_canvas.isNull())
        return;
    if (frameNo == 1)
        m_canvas.fill(Qt::transparent);
    const GifFrame &f = gif.Frame(frameNo);
    if (f.Disposal == 3)
        m_saved = m_canvas.copy(FrameRect(f));
}

// The colours of a GIF are opaque and its see-through index is fully transparent, so laying a
// frame over the canvas is a table look-up per pixel that skips the see-through index: the
// same pixels as drawing the frame's picture over it, without converting the picture first.
void GifComposer::DrawFrame(const GifImage &gif, const GifFrameStrip &strip, int frameNo)
{
    const GifFrame &f = gif.Frame(frameNo);
    if (m_canvas.isNull() || f.Width < 1 || f.Height < 1)
        return;
    const QImage &indices = strip.Image();
    if (indices.isNull() || f.StripOffset < 0 || f.StripOffset + f.Width > indices.width()
        || f.Height > indices.height() || indices.format() != QImage::Format_Indexed8) {
        PutImage(m_canvas, QPoint(f.Left, f.Top), strip.FramePicture(gif, frameNo),
                 QPainter::CompositionMode_SourceOver);
        return;
    }
    const QList<QRgb> table =
        GifColourTable(gif.GifPalettes.at(f.PaletteIndex), f.TransparentFlag ? f.TransparentIndex : -1);
    const int x0 = std::max(0, f.Left);
    const int x1 = std::min(m_canvas.width(), f.Left + f.Width);
    const int y0 = std::max(0, f.Top);
    const int y1 = std::min(m_canvas.height(), f.Top + f.Height);
    if (x0 >= x1)
        return;
    const QRgb *lut = table.constData();
    const int count = x1 - x0;
    for (int y = y0; y < y1; ++y) {
        const uchar *src = indices.constScanLine(y - f.Top) + f.StripOffset + (x0 - f.Left);
        auto *dst = reinterpret_cast<QRgb *>(m_canvas.scanLine(y)) + x0;
        if (!f.TransparentFlag) {
            for (int i = 0; i < count; ++i)
                dst[i] = lut[src[i]];
        } else {
            const uchar clear = f.TransparentIndex;
            for (int i = 0; i < count; ++i)
                if (src[i] != clear)
                    dst[i] = lut[src[i]];
        }
    }
}

void GifComposer::ComposeAfter(const GifImage &gif, int frameNo)
{
    if (m_canvas.isNull())
        return;
    const GifFrame &f = gif.Frame(frameNo);
    if (f.Disposal == 2) {
        QPainter painter(&m_canvas);
        painter.setCompositionMode(QPainter::CompositionMode_Source);
        painter.fillRect(FrameRect(f), Qt::transparent);
    } else if (f.Disposal == 3 && !m_saved.isNull()) {
        PutImage(m_canvas, QPoint(f.Left, f.Top), m_saved, QPainter::CompositionMode_Source);
        m_saved = QImage();
    }
}

void GifComposer::Mirror(bool horizontal, bool vertical)
{
    if (!m_canvas.isNull())
        m_canvas = m_canvas.mirrored(horizontal, vertical);
}

std::vector<QImage> GifComposer::ComposeAll(const GifImage &gif, const GifFrameStrip &strip)
{
    std::vector<QImage> pictures;
    GifComposer composer;
    composer.Create(gif.ActualWidth, gif.ActualHeight);
    for (int n = 1; n <= gif.FrameCount(); ++n) {
        composer.ComposeBefore(gif, n);
        composer.DrawFrame(gif, strip, n);
        pictures.push_back(composer.Canvas().copy());
        composer.ComposeAfter(gif, n);
    }
    return pictures;
}

} // namespace zrt
