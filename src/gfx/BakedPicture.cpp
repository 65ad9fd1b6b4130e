#include "gfx/BakedPicture.h"

#include <QResource>

#include <cstring>

namespace zrt {

namespace {

quint32 ReadLittle32(const uchar *p) { return p[0] | (p[1] << 8) | (p[2] << 16) | (quint32(p[3]) << 24); }

void AppendLittle32(QByteArray &out, quint32 value)
{
    for (int shift = 0; shift < 32; shift += 8)
        out.append(static_cast<char>((value >> shift) & 0xff));
}

bool BakedFormat(quint32 format)
{
    return format == QImage::Format_RGB32 || format == QImage::Format_ARGB32_Premultiplied;
}

} // namespace

QByteArray BakePicture(const QImage &picture)
{
    const QImage pixels = picture.convertToFormat(picture.hasAlphaChannel() ? QImage::Format_ARGB32_Premultiplied
                                                                             : QImage::Format_RGB32);
    QByteArray out(kBakedMagic, sizeof kBakedMagic);
    AppendLittle32(out, static_cast<quint32>(pixels.width()));
    AppendLittle32(out, static_cast<quint32>(pixels.height()));
    AppendLittle32(out, static_cast<quint32>(pixels.format()));
    const qsizetype rowBytes = qsizetype(pixels.width()) * 4;
    out.reserve(out.size() + rowBytes * pixels.height());
    for (int y = 0; y < pixels.height(); ++y)
        out.append(reinterpret_cast<const char *>(pixels.constScanLine(y)), rowBytes);
    return out;
}

QImage BakedPictureOver(const uchar *bytes, qint64 size)
{
    if (!bytes || size < kBakedHeaderBytes || std::memcmp(bytes, kBakedMagic, sizeof kBakedMagic) != 0)
        return {};
    const quint32 width = ReadLittle32(bytes + 8);
    const quint32 height = ReadLittle32(bytes + 12);
    const quint32 format = ReadLittle32(bytes + 16);
    if (width == 0 || height == 0 || width > 32767 || height > 32767 || !BakedFormat(format))
        return {};
    const qint64 rowBytes = qint64(width) * 4;
    if (size - kBakedHeaderBytes != rowBytes * height)
        return {};
    const auto imageFormat = static_cast<QImage::Format>(format);
    const uchar *rows = bytes + kBakedHeaderBytes;
    if (reinterpret_cast<quintptr>(rows) % 4 == 0)
        return QImage(rows, int(width), int(height), rowBytes, imageFormat);
    QImage copy(int(width), int(height), imageFormat);
    if (copy.isNull())
        return {};
    for (int y = 0; y < copy.height(); ++y)
        std::memcpy(copy.scanLine(y), rows + y * rowBytes, static_cast<size_t>(rowBytes));
    return copy;
}

QImage BakedPicture(const QString &resourcePath)
{
    const QResource resource(resourcePath);
    if (!resource.isValid() || resource.compressionAlgorithm() != QResource::NoCompression)
        return {};
    return BakedPictureOver(resource.data(), resource.size());
}

QImage StartupPicture(const QString &pngPath)
{
    const QString images = QStringLiteral(":/images/");
    if (pngPath.startsWith(images) && pngPath.endsWith(QLatin1String(".png"))) {
        const QString name = pngPath.mid(images.size(), pngPath.size() - images.size() - 4);
        QImage baked = BakedPicture(QStringLiteral(":/baked/") + name + QStringLiteral(".pix"));
        if (!baked.isNull())
            return baked;
    }
    return QImage(pngPath);
}

} // namespace zrt
