#include "GifFrameStrip.h"

#include "GifLzwDecoder.h"

#include <climits>
#include <cstring>

namespace zrt {

namespace {

QList<QRgb> IdentityTable()
{
    QList<QRgb> table(256);
    for (int i = 0; i < 256; ++i)
        table[i] = qRgb(0, 0, i);
    return table;
}

} // namespace

QList<QRgb> GifColourTable(const GifPaletteRow &row, int transparentIndex)
{
    QList<QRgb> table(256);
    for (int i = 0; i < 256; ++i)
        table[i] = 0xFF000000u | row[i];
    if (transparentIndex >= 0 && transparentIndex < 256)
        table[transparentIndex] = 0;
    return table;
}

GifBuildPlan PlanGifBuild(const GifImage &gif)
{
    GifBuildPlan plan;
    plan.AllDiscard = true;
    qint64 width = 0;
    for (int i = 0; i < gif.FrameCount(); ++i) {
        const GifFrame &f = gif.Frames[i];
        width += f.Width;
        plan.AnyTransparent = plan.AnyTransparent || f.TransparentFlag;
        plan.NeedMask = plan.NeedMask || f.Disposal == 2 || f.Disposal == 3;
        plan.AllDiscard = plan.AllDiscard && f.Disposal == 2;
        plan.LargestBlock = std::max(plan.LargestBlock, gif.Blocks[i].Size);
    }
    plan.StripWidth = static_cast<int>(std::min<qint64>(width, INT_MAX));
    if (gif.FrameCount() == 1) {
        plan.StripWidth = gif.Frames[0].Width;
        plan.NeedMask = false;
    } else if (plan.AllDiscard) {
        plan.NeedMask = false;
    } else {
        plan.UseCanvas = true;
    }
    return plan;
}

qint64 GifFrameStrip::BytesNeeded(const GifImage &gif, const GifBuildPlan &plan)
{
    const qint64 height = std::max(0, gif.ActualHeight);
    qint64 bytes = qint64(std::max(0, plan.StripWidth)) * height;
    if (plan.UseCanvas)
        bytes += 8 * qint64(std::max(0, gif.ActualWidth)) * height;
    return bytes;
}

bool GifFrameStrip::Create(const GifImage &gif, const GifBuildPlan &plan)
{
    m_strip = QImage();
    m_refusal.clear();
    if (plan.StripWidth <= 0 || gif.ActualHeight <= 0) {
        m_refusal = QStringLiteral("The picture has no pixels.");
        return false;
    }
    const qint64 needed = BytesNeeded(gif, plan);
    if (needed > kMaxBytes || plan.StripWidth == INT_MAX) {
        m_refusal = QStringLiteral("The picture needs %1 MB to play, more than the %2 MB one picture may take.")
                        .arg((needed + (1 << 20) - 1) >> 20)
                        .arg(kMaxBytes >> 20);
        return false;
    }
    m_strip = QImage(plan.StripWidth, gif.ActualHeight, QImage::Format_Indexed8);
    if (m_strip.isNull()) {
        m_refusal = QStringLiteral("There is not enough memory for the picture.");
        return false;
    }
    m_strip.setColorTable(IdentityTable());
    m_strip.fill(0);
    return true;
}

bool GifFrameStrip::RenderFrame(const QByteArray &bytes, GifImage &gif, int frameNo)
{
    GifFrame &f = gif.Frame(frameNo);
    f.StripOffset = frameNo == 1 ? 0 : gif.Frame(frameNo - 1).StripOffset + gif.Frame(frameNo - 1).Width;
    if (m_strip.isNull() || f.StripOffset + f.Width > m_strip.width())
        return false;
    return DecodeGifImage(bytes, gif.Block(frameNo), m_strip, f.StripOffset);
}

void GifFrameStrip::MirrorFrames(GifImage &gif, int difference, int first, int last)
{
    const bool horizontal = difference & 1;
    const bool vertical = difference & 2;
    if (!horizontal && !vertical)
        return;
    for (int n = first; n <= last && n <= gif.FrameCount(); ++n) {
        GifFrame &f = gif.Frame(n);
        if (horizontal)
            f.Left = gif.ActualWidth - (f.Left + f.Width);
        if (vertical)
            f.Top = gif.ActualHeight - (f.Top + f.Height);
        if (m_strip.isNull() || f.Width <= 0 || f.Height <= 0
            || f.StripOffset + f.Width > m_strip.width() || f.Height > m_strip.height())
            continue;
        const QImage turned = m_strip.copy(f.StripOffset, 0, f.Width, f.Height)
                                  .mirrored(horizontal, vertical);
        for (int y = 0; y < f.Height; ++y)
            std::memcpy(m_strip.scanLine(y) + f.StripOffset, turned.constScanLine(y), f.Width);
    }
}

QImage GifFrameStrip::FramePicture(const GifImage &gif, int frameNo) const
{
    const GifFrame &f = gif.Frame(frameNo);
    QImage picture = m_strip.copy(f.StripOffset, 0, f.Width, f.Height);
    picture.setColorTable(GifColourTable(gif.GifPalettes.at(f.PaletteIndex),
                                         f.TransparentFlag ? f.TransparentIndex : -1));
    return picture;
}

} // namespace zrt
