#pragma once
// Pictures the build has already decoded into 32-bit pixels, kept uncompressed in the resources:
// what the window shows at its first paint comes straight from the program's own read-only
// memory, with no decoding and no copy, and no picture reader has to be set up for it.
//
// The form: the eight bytes "ZRTPIX32", then the width, the height and the pixel format (a
// QImage::Format: RGB32 or ARGB32_Premultiplied) as 32-bit little-endian numbers, then the rows
// top to bottom, four bytes a pixel in the machine's order.

#include <QByteArray>
#include <QImage>
#include <QString>

namespace zrt {

inline constexpr char kBakedMagic[8] = {'Z', 'R', 'T', 'P', 'I', 'X', '3', '2'};
inline constexpr int kBakedHeaderBytes = 20;

// The baked form of a picture: opaque pictures as RGB32, the others premultiplied.
QByteArray BakePicture(const QImage &picture);
// A picture over the bytes, which must outlive it; a null picture when they are no baked picture.
// Bytes not aligned to four are copied, so any buffer works.
QImage BakedPictureOver(const uchar *bytes, qint64 size);
// The baked picture in a resource; a null picture when it is missing or damaged.
QImage BakedPicture(const QString &resourcePath);
// The picture of a resource ":/images/<name>.png" as the build baked it (":/baked/<name>.pix"),
// read from the PNG itself when there is no baked one.
QImage StartupPicture(const QString &pngPath);

} // namespace zrt
