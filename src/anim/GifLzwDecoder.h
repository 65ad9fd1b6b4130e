#pragma once
// LZW decoding of one GIF image block straight into the frame strip: one palette index
// per pixel, written at the frame's columns of an 8-bit image, top rows first.

#include <QByteArray>
#include <QImage>

namespace zrt {

struct GifImageBlock;

// Decodes the image whose block (image separator to terminator) lies in bytes, writing its
// width x height indices into strip at column stripX, rows from 0, de-interlacing when the
// block says so. Data that ends early leaves the remaining pixels as they are. Damaged data
// (a bad code size or an impossible code) blanks the frame's columns and returns false.
bool DecodeGifImage(const QByteArray &bytes, const GifImageBlock &block, QImage &strip, int stripX);

} // namespace zrt
