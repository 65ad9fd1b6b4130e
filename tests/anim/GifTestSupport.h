#pragma once
// Shared helpers of the GIF tests: reading fixtures, decoding with the project's pipeline and
// with Qt's own reader, and building small GIFs byte by byte.

#include "anim/GifComposer.h"
#include "anim/GifEncoder.h"
#include "anim/GifParser.h"

#include <QBuffer>
#include <QFile>
#include <QImageReader>
#include <vector>

namespace giftest {

inline QByteArray ReadFile(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

inline QByteArray Fixture(const char *name)
{
    return ReadFile(QStringLiteral(ZRT_GIF_FIXTURES "/") + QString::fromLatin1(name));
}

inline QByteArray Asset(const char *name)
{
    return ReadFile(QStringLiteral(ZRT_ASSETS "/") + QString::fromLatin1(name));
}

struct Decoded {
    zrt::GifImage gif;
    zrt::GifFrameStrip strip;
    int frames = 0;
};

// Parse, build the strip with every frame, as the control's two passes do.
inline Decoded Decode(const QByteArray &bytes)
{
    Decoded d;
    d.frames = zrt::ParseGif(bytes, d.gif);
    if (d.frames > 0 && d.strip.Create(d.gif, zrt::PlanGifBuild(d.gif))) {
        for (int n = 1; n <= d.frames; ++n)
            d.strip.RenderFrame(bytes, d.gif, n);
    }
    return d;
}

inline std::vector<QImage> ComposeAll(const QByteArray &bytes)
{
    Decoded d = Decode(bytes);
    if (d.strip.IsNull())
        return {};
    return zrt::GifComposer::ComposeAll(d.gif, d.strip);
}

inline std::vector<QImage> QtFrames(const QByteArray &bytes)
{
    QByteArray copy = bytes;
    QBuffer buffer(&copy);
    buffer.open(QIODevice::ReadOnly);
    QImageReader reader(&buffer, "gif");
    std::vector<QImage> frames;
    QImage image;
    while (reader.read(&image))
        frames.push_back(image);
    return frames;
}

// An indexed picture filled by a rule.
template <typename Rule>
QImage Pattern(int w, int h, Rule rule)
{
    QImage image(w, h, QImage::Format_Indexed8);
    image.setColorCount(256);
    for (int y = 0; y < h; ++y)
        for (int x = 0; x < w; ++x)
            image.scanLine(y)[x] = static_cast<uchar>(rule(x, y));
    return image;
}

inline QList<QRgb> Greys(int count)
{
    QList<QRgb> table;
    for (int i = 0; i < count; ++i)
        table.append(qRgb(i, 255 - i, (i * 7) & 255));
    return table;
}

inline zrt::GifWriterFrame WriterFrame(const QImage &indices, int left = 0, int top = 0, int disposal = 1,
                                       int transparent = -1, int delayCs = 10)
{
    zrt::GifWriterFrame f;
    f.Indices = indices;
    f.Left = left;
    f.Top = top;
    f.Disposal = disposal;
    f.TransparentIndex = transparent;
    f.DelayCs = delayCs;
    return f;
}

// A GIF of n full frames of w x h, frame k filled with index k (for telling frames apart).
inline QByteArray SolidFrames(int n, int w, int h, int delayCs = 10, int loops = -1, int disposal = 1)
{
    zrt::GifWriterInput in;
    in.Screen = QSize(w, h);
    in.GlobalTable = Greys(16);
    in.Loops = loops;
    for (int k = 1; k <= n; ++k)
        in.Frames.push_back(WriterFrame(Pattern(w, h, [k](int, int) { return k; }), 0, 0, disposal, -1, delayCs));
    return zrt::WriteAnimatedGif(in);
}

} // namespace giftest
