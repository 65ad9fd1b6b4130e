// Decoding whole GIFs: the project's decoder (block walk + LZW into the strip) against Qt's
// reader on the same bytes. Qt composes every frame to 32-bit pixels as it decodes; the
// project's strip keeps indices, so the fair comparison also lays each frame on a 32-bit canvas.

#include "anim/GifComposer.h"
#include "anim/GifEncoder.h"
#include "anim/GifFrameStrip.h"
#include "anim/GifParser.h"

#include <QBuffer>
#include <QFile>
#include <QGuiApplication>
#include <QImageReader>
#include <QRandomGenerator>
#include <benchmark/benchmark.h>
#include <cmath>

namespace {

QByteArray ReadAsset(const char *name)
{
    QFile file(QStringLiteral(ZRT_ASSETS "/") + QString::fromLatin1(name));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

// About 1000 x 1000, 20 frames of soft shapes with some noise, 256 colours.
QByteArray LargeGif()
{
    zrt::GifWriterInput in;
    in.Screen = QSize(1000, 1000);
    QList<QRgb> table;
    for (int i = 0; i < 256; ++i)
        table.append(qRgb(i, (i * 3) & 255, 255 - i));
    in.GlobalTable = table;
    QRandomGenerator random(5);
    for (int n = 0; n < 20; ++n) {
        QImage frame(1000, 1000, QImage::Format_Indexed8);
        frame.setColorCount(256);
        for (int y = 0; y < 1000; ++y) {
            uchar *row = frame.scanLine(y);
            for (int x = 0; x < 1000; ++x) {
                const double v = std::sin((x + n * 13) / 40.0) + std::cos((y - n * 7) / 55.0);
                row[x] = static_cast<uchar>(int((v + 2) * 60) + (random.bounded(8) == 0 ? random.bounded(8) : 0));
            }
        }
        zrt::GifWriterFrame f;
        f.Indices = frame;
        f.Disposal = 1;
        f.DelayCs = 4;
        in.Frames.push_back(f);
    }
    return zrt::WriteAnimatedGif(in);
}

const QByteArray &Input(int which)
{
    static const QByteArray inputs[5] = {ReadAsset("character1.gif"), ReadAsset("character2.gif"),
                                         ReadAsset("audio_target.gif"), ReadAsset("walker.gif"), LargeGif()};
    return inputs[which];
}

const char *kNames[5] = {"character1", "character2", "audio_target", "walker", "large_1000x1000x20"};

// Every frame of the file decoded into the strip; the number of frames.
int DecodeToStrip(const QByteArray &bytes, zrt::GifImage &gif, zrt::GifFrameStrip &strip)
{
    const int frames = zrt::ParseGif(bytes, gif);
    strip.Create(gif, zrt::PlanGifBuild(gif));
    for (int n = 1; n <= frames; ++n)
        strip.RenderFrame(bytes, gif, n);
    return frames;
}

void BM_ProjectDecoder(benchmark::State &state)
{
    const QByteArray &bytes = Input(int(state.range(0)));
    for (auto _ : state) {
        zrt::GifImage gif;
        zrt::GifFrameStrip strip;
        benchmark::DoNotOptimize(DecodeToStrip(bytes, gif, strip));
        benchmark::DoNotOptimize(strip.Image().constBits());
    }
    state.SetLabel(kNames[state.range(0)]);
    state.SetBytesProcessed(state.iterations() * bytes.size());
}

// The fair comparison with Qt's reader: every frame ends as a 32-bit picture of the whole image
// (the strip's frames laid on a canvas in order with their disposals), one canvas reused as
// Qt's reader reuses its image.
void BM_ProjectDecoderTo32Bit(benchmark::State &state)
{
    const QByteArray &bytes = Input(int(state.range(0)));
    for (auto _ : state) {
        zrt::GifImage gif;
        zrt::GifFrameStrip strip;
        const int frames = DecodeToStrip(bytes, gif, strip);
        zrt::GifComposer composer;
        composer.Create(gif.ActualWidth, gif.ActualHeight);
        for (int n = 1; n <= frames; ++n) {
            composer.ComposeBefore(gif, n);
            composer.DrawFrame(gif, strip, n);
            benchmark::DoNotOptimize(composer.Canvas().constBits());
            composer.ComposeAfter(gif, n);
        }
    }
    state.SetLabel(kNames[state.range(0)]);
    state.SetBytesProcessed(state.iterations() * bytes.size());
}

void BM_QtReader(benchmark::State &state)
{
    QByteArray bytes = Input(int(state.range(0)));
    for (auto _ : state) {
        QBuffer buffer(&bytes);
        buffer.open(QIODevice::ReadOnly);
        QImageReader reader(&buffer, "gif");
        QImage image;
        while (reader.read(&image))
            benchmark::DoNotOptimize(image.constBits());
    }
    state.SetLabel(kNames[state.range(0)]);
    state.SetBytesProcessed(state.iterations() * bytes.size());
}

BENCHMARK(BM_ProjectDecoder)->DenseRange(0, 4)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_ProjectDecoderTo32Bit)->DenseRange(0, 4)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_QtReader)->DenseRange(0, 4)->Unit(benchmark::kMicrosecond);

} // namespace

int main(int argc, char **argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
