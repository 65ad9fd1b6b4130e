#pragma once
// Pictures the build has already decoded into 32-bit pixels, kept uncompressed in the resources:
// the stage the window opens on is shown straight from the program's own read-only memory, with
// no decoding and no copy before the first paint.
//
// The form: the eight bytes "ZRTRGB32", the width and the height as 32-bit little-endian
// numbers, then the rows top to bottom, four bytes a pixel (0xffRRGGBB in the machine's order).

#include <QByteArray>
#include <QImage>
#include <QString>

namespace zrt {

inline constexpr char kBakedMagic[8] = {'Z', 'R', 'T', 'R', 'G', 'B', '3', '2'};
inline constexpr int kBakedHeaderBytes = 16;

// The baked form of a picture (made by the build's picture baker).
QByteArray BakePicture(const QImage &picture);
// A picture over the bytes, which must outlive it; a null picture when they are no baked picture.
// Bytes not aligned to four are copied, so any buffer works.
QImage BakedPictureOver(const uchar *bytes, qint64 size);
// The baked picture in a resource; a null picture when it is missing or damaged.
QImage BakedPicture(const QString &resourcePath);

} // namespace zrt
