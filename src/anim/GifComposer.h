#pragma once
// The canvas on which the frames of a GIF are laid one over the other, each frame disposed
// of afterwards as the file asks: kept (0, 1), cleared to see-through (2) or put back (3).

#include "GifFrameStrip.h"

#include <QImage>
#include <vector>

namespace zrt {

class GifComposer {
public:
    void Create(int width, int height);
    void Release();
    bool IsNull() const { return m_canvas.isNull(); }

    // Frame 1 starts from a blank canvas; a frame to be put back saves what it covers.
    void ComposeBefore(const GifImage &gif, int frameNo);
    void DrawFrame(const GifImage &gif, const GifFrameStrip &strip, int frameNo);
    void ComposeAfter(const GifImage &gif, int frameNo);

    // Mirrors the whole canvas (used while it is still blank, after a change of mirroring).
    void Mirror(bool horizontal, bool vertical);

    const QImage &Canvas() const { return m_canvas; }

    // Every frame as a whole picture, composed in order from a fresh canvas.
    static std::vector<QImage> ComposeAll(const GifImage &gif, const GifFrameStrip &strip);

private:
    QImage m_canvas;   // ARGB32 premultiplied; alpha 0 is see-through
    QImage m_saved;    // the rectangle a disposal-3 frame covers, saved before drawing
};

} // namespace zrt
