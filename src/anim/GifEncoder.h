#pragma once
// LZW encoding of 8-bit indices into GIF sub-blocks, the stand-alone picture of one frame,
// and a small writer of animated GIFs (used by the asset maker and the test fixtures).

#include "GifParser.h"

#include <QByteArray>
#include <QImage>
#include <QList>
#include <QSize>
#include <optional>
#include <vector>

namespace zrt {

// Codes with a minimum code size of 8, packed into 254-byte sub-blocks, ending with the
// zero-length terminator. The last partial sub-block carries one byte more than its data.
QByteArray EncodeGifLzw(const std::vector<uchar> &pixels);

// A single-image GIF89a of frame number frameNo as it lies in the strip, with its own colour
// row as a 256-entry global table. The strip must hold the frame at its StripOffset.
QByteArray FrameToGif(const GifImage &gif, const QImage &strip, int frameNo);

struct GifWriterFrame {
    QImage Indices;                        // Format_Indexed8; the colour table is not used
    int Left = 0;
    int Top = 0;
    int DelayCs = 0;                       // hundredths of a second
    int Disposal = 0;                      // written as given, 0..7
    int TransparentIndex = -1;             // -1: none
    bool Interlaced = false;
    bool WriteControl = true;              // graphic control extension before the image
    std::optional<QList<QRgb>> LocalTable; // 2..256 entries, padded to a power of two
};

struct GifWriterInput {
    QSize Screen;                          // logical screen size
    std::optional<QList<QRgb>> GlobalTable;
    int Loops = -1;                        // -1: no NETSCAPE2.0 block
    bool Gif87a = false;
    std::vector<GifWriterFrame> Frames;
};

QByteArray WriteAnimatedGif(const GifWriterInput &input);

} // namespace zrt
