// ucGifPlayer: painting a frame, composing the canvas and blitting frames with their colour tables.
#include "ucGifPlayer.h"

#include "common/NumberText.h"

#include <QPainter>

#include <algorithm>

namespace zrt {

namespace {

// The picture as a painter with the same hint would draw it at target, on a see-through
// ground at target's size; drawn at target's corner it gives the same pixels.
QImage ScaledPicture(const QImage &picture, const QSize &size, bool smooth)
{
    if (size == picture.size())
        return picture.convertToFormat(QImage::Format_ARGB32_Premultiplied);
    QImage kept(size, QImage::Format_ARGB32_Premultiplied);
    kept.fill(Qt::transparent);
    QPainter painter(&kept);
    painter.setRenderHint(QPainter::SmoothPixmapTransform, smooth);
    painter.drawImage(QRect(QPoint(0, 0), size), picture);
    return kept;
}

} // namespace

// ---- painting -----------------------------------------------------------------------------

void ucGifPlayer::paintEvent(QPaintEvent *)
{
    if (m_CurrentFrame < 1 || m_strip.IsNull())
        return;
    QPainter painter(this);
    DrawFrame(painter, m_CurrentFrame);
}

QRect ucGifPlayer::Scaled(int left, int top, int width, int height) const
{
    return QRect(CLng(double(m_ScaleRatioX) * left), CLng(double(m_ScaleRatioY) * top),
                 CLng(double(m_ScaleRatioX) * width), CLng(double(m_ScaleRatioY) * height));
}

void ucGifPlayer::DrawFrame(QPainter &painter, int frameNo)
{
    const bool stretched = m_ScaleRatioX != 1.0f || m_ScaleRatioY != 1.0f;
    if (!m_composer.IsNull()) {
        DrawComposedFrame(painter, frameNo, stretched);
        return;
    }
    const GifFrame &f = m_gif.Frame(frameNo);
    BlitFrame(painter, frameNo, Scaled(f.Left, f.Top, f.Width, f.Height), stretched);
}

// Brings the canvas to frame frameNo: each frame after the one composed last is laid over the
// canvas in turn, after the disposal of the frame before it; going back starts again from frame
// 1 on a blank canvas. 0 only does the pending disposal. A frame already composed stays as it is,
// so a repaint shows the same picture, and a frame that was stepped over unpainted still leaves
// what the file says it leaves.
void ucGifPlayer::ComposeUpTo(int frameNo)
{
    if (m_composer.IsNull() || frameNo == m_composedFrame)
        return;
    auto disposePending = [this] {
        if (m_composedFrame >= 1 && m_composedFrame <= m_gif.FrameCount()) {
            const int disposal = m_gif.Frame(m_composedFrame).Disposal;
            if (disposal == 2 || disposal == 3)
                m_composer.ComposeAfter(m_gif, m_composedFrame);
        }
    };
    m_keptCanvas = QImage();
    if (frameNo < 1) {
        disposePending();
        m_composedFrame = 0;
        return;
    }
    int next = m_composedFrame + 1;
    if (m_composedFrame < 1 || frameNo < m_composedFrame)
        next = 1; // frame 1 starts from a blank canvas
    for (int n = next; n <= frameNo; ++n) {
        if (n > 1)
            disposePending();
        m_composer.ComposeBefore(m_gif, n);
        m_composer.DrawFrame(m_gif, m_strip, n);
        m_composedFrame = n;
    }
}

void ucGifPlayer::DrawComposedFrame(QPainter &painter, int frameNo, bool stretched)
{
    ComposeUpTo(frameNo);
    const QRect target = Scaled(0, 0, ActualWidth(), ActualHeight());
    if (target.width() >= 1 && target.height() >= 1) {
        // Without disposals to the background there is no mask: the canvas shows opaque.
        if (!m_plan.NeedMask)
            painter.fillRect(target, Qt::black);
        if (m_keptCanvas.size() != target.size() || m_keptCanvasSmooth != stretched) {
            m_keptCanvas = ScaledPicture(m_composer.Canvas(), target.size(), stretched);
            m_keptCanvasSmooth = stretched;
        }
        painter.drawImage(target.topLeft(), m_keptCanvas);
    }
    m_loadedRow = -1;
}

// An opaque frame that shares its colour row with the frame drawn before keeps the table the
// strip already holds, including the black left at a transparent frame's index. Each frame is
// converted and scaled once for each such table and kept.
void ucGifPlayer::BlitFrame(QPainter &painter, int frameNo, const QRect &target, bool stretched)
{
    if (target.width() < 1 || target.height() < 1)
        return;
    const GifFrame &f = m_gif.Frame(frameNo);
    int variant;
    if (f.TransparentFlag == 1) {
        m_loadedRow = f.PaletteIndex;
        m_loadedBlack = f.TransparentIndex;
        variant = -2;
    } else {
        if (m_loadedRow != f.PaletteIndex) {
            m_loadedRow = f.PaletteIndex;
            m_loadedBlack = -1;
        }
        variant = m_loadedBlack;
    }
    if (m_keptFrames.size() < size_t(m_gif.FrameCount()) + 1)
        m_keptFrames.resize(size_t(m_gif.FrameCount()) + 1);
    std::vector<KeptPicture> &kept = m_keptFrames[size_t(frameNo)];
    auto it = std::find_if(kept.begin(), kept.end(), [&](const KeptPicture &k) { return k.variant == variant; });
    if (it == kept.end()) {
        kept.push_back(KeptPicture{variant, {}, false, {}});
        it = kept.end() - 1;
    }
    if (it->image.isNull() || it->size != target.size() || it->smooth != stretched) {
        const GifPaletteRow &row = m_gif.GifPalettes.at(f.PaletteIndex);
        QImage picture = m_strip.Image().copy(f.StripOffset, 0, f.Width, f.Height);
        QList<QRgb> table = GifColourTable(row, variant == -2 ? f.TransparentIndex : -1);
        if (variant >= 0)
            table[variant] = 0xFF000000u;
        picture.setColorTable(table);
        it->image = ScaledPicture(picture, target.size(), stretched);
        it->size = target.size();
        it->smooth = stretched;
    }
    painter.drawImage(target.topLeft(), it->image);
}

} // namespace zrt
