#pragma once
// The frame strip: every frame of a GIF side by side as palette indices in one 8-bit image.
// The strip's own colour table is the identity; a frame is shown by giving it its real row.

#include "GifParser.h"

#include <QImage>
#include <QString>

namespace zrt {

// What a first look over the frames decides before anything is built.
struct GifBuildPlan {
    int StripWidth = 0;
    bool AnyTransparent = false;
    bool NeedMask = false;    // some frame is disposed to background or to the previous picture
    bool AllDiscard = false;  // every frame is disposed to background
    bool UseCanvas = false;   // frames must be composed on a canvas of the picture's size
    qint32 LargestBlock = 0;
};

GifBuildPlan PlanGifBuild(const GifImage &gif);

class GifFrameStrip {
public:
    // The most memory one loaded GIF may take: its strip (a byte per pixel of every frame side
    // by side) and, where frames are composed, the canvas and the area a frame put back saves
    // (four bytes per pixel of the picture each). A file that needs more is refused.
    static constexpr qint64 kMaxBytes = qint64(256) << 20;
    static qint64 BytesNeeded(const GifImage &gif, const GifBuildPlan &plan);

    // A blank strip of the plan's width and the picture's height. False if it cannot be made;
    // RefusalReason then says why.
    bool Create(const GifImage &gif, const GifBuildPlan &plan);
    const QString &RefusalReason() const { return m_refusal; }
    void Release() { m_strip = QImage(); }
    bool IsNull() const { return m_strip.isNull(); }

    // Places frame frameNo after the one before it (StripOffset becomes its x in the strip)
    // and decodes its pixels there. A damaged frame stays blank.
    bool RenderFrame(const QByteArray &bytes, GifImage &gif, int frameNo);

    // Turns frames first..last where they lie: bit 0 of difference left-right, bit 1
    // top-bottom. Their place in the picture turns with them.
    void MirrorFrames(GifImage &gif, int difference, int first, int last);

    // The frame's columns with its own colour row; its transparent index see-through.
    QImage FramePicture(const GifImage &gif, int frameNo) const;

    const QImage &Image() const { return m_strip; }
    QImage &Image() { return m_strip; }

private:
    QImage m_strip;
    QString m_refusal;
};

// The colour row of a GIF as a Qt colour table, with an optional see-through index.
QList<QRgb> GifColourTable(const GifPaletteRow &row, int transparentIndex = -1);

} // namespace zrt
