#pragma once
// The block walk of a GIF file: frames, their compressed image blocks and the colour tables.
// No pixels are touched here; the LZW decoder reads the blocks this walk finds.

#include "GifByteReader.h"

#include <QByteArray>
#include <vector>

namespace zrt {

struct GifFrame {
    qint32 Left = 0;
    qint32 Top = 0;
    qint32 Width = 0;
    qint32 Height = 0;
    qint32 DelayMs = 0;
    qint32 PaletteIndex = 0;  // row of GifPalettes; 0 is the global table
    qint32 StripOffset = 0;   // file position of the frame's first block, later its x in the strip
    quint8 TransparentIndex = 0;
    quint8 TransparentFlag = 0;
    quint8 Disposal = 0;      // 0..3
};

struct GifImageBlock {
    qint32 Size = 0;   // from the image separator up to and including the block terminator
    qint32 Start = 0;  // position of the image separator
};

struct GifImage {
    std::vector<GifFrame> Frames;             // frame n is Frames[n - 1]
    std::vector<GifImageBlock> Blocks;        // one per frame
    std::vector<GifPaletteRow> GifPalettes;   // row 0 is the global table, always present
    qint32 GifPaletteCount = 0;               // rows in use after parsing
    bool HasGlobalTable = false;
    qint32 ActualWidth = 0;
    qint32 ActualHeight = 0;
    qint32 Loops = 0;                         // 0 plays for ever

    int FrameCount() const { return static_cast<int>(Frames.size()); }
    const GifFrame &Frame(int number) const { return Frames.at(number - 1); }
    GifFrame &Frame(int number) { return Frames.at(number - 1); }
    const GifImageBlock &Block(int number) const { return Blocks.at(number - 1); }
};

// Walks the blocks of bytes into gif (which is reset first). Returns the number of frames,
// 0 when the data cannot be used. A file cut short keeps the frames completed before the cut.
int ParseGif(const QByteArray &bytes, GifImage &gif);

} // namespace zrt
