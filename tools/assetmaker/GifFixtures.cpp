#include "GifFixtures.h"

#include "anim/GifEncoder.h"

#include <QDir>
#include <QFile>
#include <QRandomGenerator>
#include <functional>

namespace assetmaker {

namespace {

using zrt::GifWriterFrame;
using zrt::GifWriterInput;

QImage Pattern(int w, int h, const std::function<int(int, int)> &index)
{
    QImage image(w, h, QImage::Format_Indexed8);
    image.setColorCount(256);
    for (int y = 0; y < h; ++y)
        for (int x = 0; x < w; ++x)
            image.scanLine(y)[x] = static_cast<uchar>(index(x, y));
    return image;
}

QList<QRgb> Ramp(int entries, int seed)
{
    QList<QRgb> table;
    for (int i = 0; i < entries; ++i)
        table.append(qRgb((i * 37 + seed * 71) & 255, (i * 91 + seed * 13) & 255, (i * 53 + seed * 29) & 255));
    return table;
}

GifWriterFrame Frame(QImage indices, int left, int top, int disposal, int transparent = -1)
{
    GifWriterFrame f;
    f.Indices = std::move(indices);
    f.Left = left;
    f.Top = top;
    f.Disposal = disposal;
    f.TransparentIndex = transparent;
    f.DelayCs = 5;
    return f;
}

GifWriterInput Interlaced()
{
    GifWriterInput in{QSize(37, 29), Ramp(16, 1), 0, false, {}};
    for (int n = 0; n < 2; ++n) {
        GifWriterFrame f = Frame(Pattern(37, 29, [n](int x, int y) { return (x / 3 + y * 5 + n) % 16; }), 0, 0, 1);
        f.Interlaced = true;
        in.Frames.push_back(f);
    }
    return in;
}

GifWriterInput LocalTablesOnly()
{
    GifWriterInput in{QSize(24, 18), std::nullopt, 3, false, {}};
    const int sizes[3] = {4, 16, 256};
    for (int n = 0; n < 3; ++n) {
        const int count = sizes[n];
        GifWriterFrame f = Frame(Pattern(24, 18, [count](int x, int y) { return (x * 7 + y * 3) % count; }), 0, 0, 1);
        f.LocalTable = Ramp(count, n + 2);
        in.Frames.push_back(f);
    }
    return in;
}

GifWriterInput Transparent()
{
    GifWriterInput in{QSize(30, 20), Ramp(8, 3), 0, false, {}};
    in.Frames.push_back(Frame(Pattern(30, 20, [](int x, int y) { return (x + y) % 3 == 0 ? 7 : (x * y) % 7; }), 0, 0, 1, 7));
    in.Frames.push_back(Frame(Pattern(12, 9, [](int x, int y) { return (x ^ y) & 1 ? 2 : 5; }), 9, 6, 1, 5));
    return in;
}

GifWriterInput DisposalMix()
{
    GifWriterInput in{QSize(40, 32), Ramp(16, 4), 0, false, {}};
    auto blob = [](int colour) {
        return [colour](int x, int y) { return (x + 2 * y) % 5 == 0 ? 0 : colour; };
    };
    in.Frames.push_back(Frame(Pattern(40, 32, [](int x, int y) { return (x / 4 + y / 4) % 2 ? 0 : 3; }), 0, 0, 1, 0));
    in.Frames.push_back(Frame(Pattern(16, 12, blob(5)), 4, 4, 3, 0));
    in.Frames.push_back(Frame(Pattern(20, 10, blob(9)), 10, 8, 2, 0));
    in.Frames.push_back(Frame(Pattern(14, 14, blob(11)), 20, 14, 1, 0));
    in.Frames.push_back(Frame(Pattern(18, 18, blob(13)), 15, 10, 3, 0));
    in.Frames.push_back(Frame(Pattern(10, 8, blob(15)), 2, 22, 2, 0));
    in.Frames.push_back(Frame(Pattern(8, 8, blob(6)), 30, 2, 0, 0));
    return in;
}

GifWriterInput OddSizes()
{
    GifWriterInput in{QSize(41, 23), Ramp(32, 5), 0, false, {}};
    in.Frames.push_back(Frame(Pattern(41, 23, [](int x, int y) { return (x * 3 + y) % 32; }), 0, 0, 1));
    in.Frames.push_back(Frame(Pattern(1, 1, [](int, int) { return 17; }), 40, 22, 1));
    in.Frames.push_back(Frame(Pattern(7, 3, [](int x, int y) { return 20 + x + y; }), 5, 19, 1));
    in.Frames.push_back(Frame(Pattern(1, 23, [](int, int y) { return y; }), 13, 0, 1));
    return in;
}

GifWriterInput OneFrame()
{
    GifWriterInput in{QSize(50, 30), Ramp(4, 6), -1, true, {}};
    GifWriterFrame f = Frame(Pattern(50, 30, [](int x, int y) { return (x / 5 + y / 5) % 4; }), 0, 0, 0);
    f.WriteControl = false;
    in.Frames.push_back(f);
    return in;
}

// Random pixels over 256 colours fill the code table several times over.
GifWriterInput TableResets()
{
    GifWriterInput in{QSize(160, 120), Ramp(256, 7), 0, false, {}};
    QRandomGenerator random(4096);
    for (int n = 0; n < 2; ++n)
        in.Frames.push_back(Frame(Pattern(160, 120, [&random](int, int) { return int(random.bounded(256)); }), 0, 0, 1));
    return in;
}

bool Save(const QString &path, const QByteArray &bytes)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
}

} // namespace

int WriteGifFixtures(const QString &folder)
{
    QDir().mkpath(folder);
    const QDir dir(folder);
    int written = 0;
    auto save = [&](const char *name, const QByteArray &bytes) {
        written += Save(dir.filePath(QString::fromLatin1(name)), bytes) ? 1 : 0;
    };
    save("interlaced.gif", zrt::WriteAnimatedGif(Interlaced()));
    save("local_tables.gif", zrt::WriteAnimatedGif(LocalTablesOnly()));
    save("transparent.gif", zrt::WriteAnimatedGif(Transparent()));
    const QByteArray mix = zrt::WriteAnimatedGif(DisposalMix());
    save("disposal_mix.gif", mix);
    save("odd_sizes.gif", zrt::WriteAnimatedGif(OddSizes()));
    save("one_frame.gif", zrt::WriteAnimatedGif(OneFrame()));
    save("table_resets.gif", zrt::WriteAnimatedGif(TableResets()));

    // Cut inside the data of the fourth frame: the separators give its place.
    qsizetype cut = -1;
    int separators = 0;
    for (qsizetype i = 0; i + 1 < mix.size(); ++i) {
        if (mix[i] == '\x21' && mix[i + 1] == '\xF9' && ++separators == 4) {
            cut = i + 8 + 10 + 1 + 4; // control, descriptor, code size, a few data bytes
            break;
        }
    }
    save("truncated.gif", mix.left(cut));

    // A stray byte after the second frame ends the file there for every reader.
    GifWriterInput stray = Transparent();
    stray.Frames.push_back(stray.Frames.front());
    QByteArray strayBytes = zrt::WriteAnimatedGif(stray);
    GifWriterInput firstTwo = stray;
    firstTwo.Frames.pop_back();
    const QByteArray twoFrames = zrt::WriteAnimatedGif(firstTwo);
    strayBytes.insert(twoFrames.size() - 1, '\x99');
    save("stray_byte.gif", strayBytes);
    return written;
}

} // namespace assetmaker
