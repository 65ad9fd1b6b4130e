// The LZW decoder and encoder, the frame strip, the stand-alone frame picture and the composer.

#include "GifTestSupport.h"

#include "anim/GifLzwDecoder.h"

#include <QRandomGenerator>
#include <gtest/gtest.h>

using namespace zrt;
using namespace giftest;

namespace {

QImage StripColumns(const Decoded &d, int frameNo)
{
    const GifFrame &f = d.gif.Frame(frameNo);
    QImage part = d.strip.Image().copy(f.StripOffset, 0, f.Width, f.Height);
    part.setColorTable(QList<QRgb>());
    return part;
}

bool SameIndices(const QImage &a, const QImage &b)
{
    if (a.size() != b.size())
        return false;
    for (int y = 0; y < a.height(); ++y)
        if (memcmp(a.constScanLine(y), b.constScanLine(y), a.width()) != 0)
            return false;
    return true;
}

// Splits a chain of sub-blocks into their lengths.
std::vector<int> SubBlockLengths(const QByteArray &chain)
{
    std::vector<int> lengths;
    qsizetype p = 0;
    while (p < chain.size() && chain[p] != 0) {
        lengths.push_back(static_cast<uchar>(chain[p]));
        p += static_cast<uchar>(chain[p]) + 1;
    }
    return lengths;
}

QByteArray OneFrameGif(const QImage &indices, bool interlaced = false, int colours = 256)
{
    GifWriterInput in;
    in.Screen = indices.size();
    in.GlobalTable = Greys(colours);
    GifWriterFrame f = WriterFrame(indices);
    f.Interlaced = interlaced;
    in.Frames.push_back(f);
    return WriteAnimatedGif(in);
}

} // namespace

TEST(GifLzw, WhatTheEncoderWritesDecodesBackIntoTheStrip)
{
    QRandomGenerator random(7);
    const QImage noise = Pattern(97, 53, [&](int, int) { return int(random.bounded(256)); });
    const QImage flat = Pattern(64, 40, [](int, int) { return 9; });
    const QImage stripes = Pattern(33, 17, [](int x, int y) { return (x / 3 + y) % 4; });
    for (const QImage &image : {noise, flat, stripes}) {
        const Decoded d = Decode(OneFrameGif(image));
        ASSERT_EQ(d.frames, 1);
        EXPECT_TRUE(SameIndices(StripColumns(d, 1), image));
    }
}

TEST(GifLzw, InterlacedRowsLandInTheirPlaceForEveryHeight)
{
    for (int h = 1; h <= 17; ++h) {
        const QImage rows = Pattern(5, h, [](int x, int y) { return y * 10 + x; });
        const Decoded d = Decode(OneFrameGif(rows, true));
        ASSERT_EQ(d.frames, 1);
        EXPECT_TRUE(SameIndices(StripColumns(d, 1), rows)) << "height " << h;
    }
}

TEST(GifLzw, CodeTableResetsAt4096AndTheStreamStaysDecodable)
{
    QRandomGenerator random(11);
    std::vector<uchar> pixels(200 * 200);
    for (uchar &p : pixels)
        p = static_cast<uchar>(random.bounded(256));
    const QByteArray chain = EncodeGifLzw(pixels);
    // Random bytes make a new string almost every pixel, so the table fills many times.
    EXPECT_GT(chain.size(), qsizetype(pixels.size()));
    const QImage image = Pattern(200, 200, [&](int x, int y) { return pixels[size_t(y) * 200 + x]; });
    const Decoded d = Decode(OneFrameGif(image));
    EXPECT_TRUE(SameIndices(StripColumns(d, 1), image));
}

TEST(GifLzw, SubBlocksAre254BytesAndTheLastCarriesOneLeftoverByte)
{
    std::vector<uchar> pixels(3000);
    for (size_t i = 0; i < pixels.size(); ++i)
        pixels[i] = static_cast<uchar>((i * 31) % 251);
    const QByteArray chain = EncodeGifLzw(pixels);
    const std::vector<int> lengths = SubBlockLengths(chain);
    ASSERT_GE(lengths.size(), 2u);
    for (size_t i = 0; i + 1 < lengths.size(); ++i)
        EXPECT_EQ(lengths[i], 254);
    const int last = lengths.back();
    const qsizetype lastStart = chain.size() - 1 - last; // data of the final sub-block
    // Its extra byte is the one at the same place in the sub-block before it.
    const qsizetype before = lastStart - 1 - 254;
    EXPECT_EQ(chain[lastStart + last - 1], chain[before + last - 1]);
    EXPECT_EQ(chain.back(), '\0');

    const QByteArray tiny = EncodeGifLzw({1, 2, 3});
    ASSERT_EQ(SubBlockLengths(tiny).size(), 1u);
    EXPECT_EQ(tiny[tiny.size() - 2], '\0'); // the leftover of an untouched buffer
}

TEST(GifLzw, DamagedDataBlanksOnlyThatFrame)
{
    GifWriterInput in;
    in.Screen = QSize(8, 4);
    in.GlobalTable = Greys(16);
    in.Frames.push_back(WriterFrame(Pattern(8, 4, [](int, int) { return 5; })));
    in.Frames.push_back(WriterFrame(Pattern(8, 4, [](int x, int) { return x; })));
    in.Frames.push_back(WriterFrame(Pattern(8, 4, [](int, int) { return 7; })));
    QByteArray bytes = WriteAnimatedGif(in);
    GifImage gif;
    ASSERT_EQ(ParseGif(bytes, gif), 3);
    // Frame 2: a code far beyond the table right after the first literal.
    const qsizetype data = gif.Block(2).Start + 10 + 1 + 1;
    bytes[data] = char(0xFF);
    bytes[data + 1] = char(0xFF);
    Decoded d = Decode(bytes);
    ASSERT_EQ(d.frames, 3);
    EXPECT_TRUE(SameIndices(StripColumns(d, 2), Pattern(8, 4, [](int, int) { return 0; })));
    EXPECT_TRUE(SameIndices(StripColumns(d, 3), Pattern(8, 4, [](int, int) { return 7; })));

    // A code size no 8-bit strip can hold is damage too.
    bytes[gif.Block(2).Start + 10] = 9;
    QImage strip(24, 4, QImage::Format_Indexed8);
    strip.fill(3);
    EXPECT_FALSE(DecodeGifImage(bytes, gif.Block(2), strip, 8));
    EXPECT_EQ(strip.pixelIndex(8, 0), 0);
    EXPECT_EQ(strip.pixelIndex(7, 0), 3);
}

TEST(GifFrameStrip, FramesLieSideBySideFromTheLeftInTheTopRows)
{
    GifWriterInput in;
    in.Screen = QSize(10, 8);
    in.GlobalTable = Greys(16);
    in.Frames.push_back(WriterFrame(Pattern(6, 8, [](int, int) { return 1; })));
    in.Frames.push_back(WriterFrame(Pattern(4, 3, [](int, int) { return 2; }), 6, 5));
    const Decoded d = Decode(WriteAnimatedGif(in));
    ASSERT_EQ(d.frames, 2);
    EXPECT_EQ(d.strip.Image().width(), 10);
    EXPECT_EQ(d.strip.Image().height(), 8);
    EXPECT_EQ(d.gif.Frame(2).StripOffset, 6);
    EXPECT_EQ(d.strip.Image().pixelIndex(6, 2), 2);
    EXPECT_EQ(d.strip.Image().pixelIndex(6, 3), 0); // below the frame's height
}

TEST(GifFrameStrip, MirroringTwiceGivesTheFramesBack)
{
    const QByteArray bytes = Fixture("disposal_mix.gif");
    Decoded d = Decode(bytes);
    ASSERT_GT(d.frames, 2);
    const QImage before = d.strip.Image().copy();
    const GifFrame second = d.gif.Frame(2);
    d.strip.MirrorFrames(d.gif, 1, 1, d.frames);
    EXPECT_EQ(d.gif.Frame(2).Left, d.gif.ActualWidth - (second.Left + second.Width));
    EXPECT_NE(d.strip.Image(), before);
    d.strip.MirrorFrames(d.gif, 3, 1, d.frames);
    d.strip.MirrorFrames(d.gif, 2, 1, d.frames);
    EXPECT_EQ(d.strip.Image(), before);
    EXPECT_EQ(d.gif.Frame(2).Left, second.Left);
    EXPECT_EQ(d.gif.Frame(2).Top, second.Top);
}

TEST(GifEncoder, FrameToGifDecodesToTheSameFrameWithItsTransparency)
{
    const Decoded d = Decode(Fixture("transparent.gif"));
    ASSERT_EQ(d.frames, 2);
    const QByteArray picture = FrameToGif(d.gif, d.strip.Image(), 1);
    const Decoded back = Decode(picture);
    ASSERT_EQ(back.frames, 1);
    EXPECT_TRUE(SameIndices(StripColumns(back, 1), StripColumns(d, 1)));
    EXPECT_EQ(back.gif.Frame(1).TransparentFlag, 1);
    EXPECT_EQ(back.gif.Frame(1).TransparentIndex, d.gif.Frame(1).TransparentIndex);
    EXPECT_EQ(back.gif.GifPalettes[0], d.gif.GifPalettes[0]);
    // Qt's reader agrees on the colours.
    const std::vector<QImage> qt = QtFrames(picture);
    ASSERT_EQ(qt.size(), 1u);
    EXPECT_EQ(qt[0].pixel(1, 1), d.strip.FramePicture(d.gif, 1).pixel(1, 1));
}

TEST(GifEncoder, AShortFrameTakesItsFirstPixelFromTheRowTheBottomUpStripWouldName)
{
    GifWriterInput in;
    in.Screen = QSize(4, 6);
    in.GlobalTable = Greys(16);
    in.Frames.push_back(WriterFrame(Pattern(4, 6, [](int, int y) { return y; })));
    in.Frames.push_back(WriterFrame(Pattern(4, 2, [](int x, int) { return 8 + x; })));
    Decoded d = Decode(WriteAnimatedGif(in));
    ASSERT_EQ(d.frames, 2);
    // Frame 2 (height 2) in a strip of height 6: its first pixel is read from row 4.
    d.strip.Image().setPixel(d.gif.Frame(2).StripOffset, 4, 13);
    const Decoded back = Decode(FrameToGif(d.gif, d.strip.Image(), 2));
    ASSERT_EQ(back.frames, 1);
    EXPECT_EQ(back.strip.Image().pixelIndex(0, 0), 13);
    EXPECT_EQ(back.strip.Image().pixelIndex(1, 0), 9);
}

TEST(GifComposer, DisposalsClearRestoreAndFrameOneStartsBlank)
{
    GifWriterInput in;
    in.Screen = QSize(6, 6);
    in.GlobalTable = Greys(16);
    in.Frames.push_back(WriterFrame(Pattern(6, 6, [](int, int) { return 1; }), 0, 0, 1, 0));
    in.Frames.push_back(WriterFrame(Pattern(2, 2, [](int, int) { return 2; }), 0, 0, 3, 0));
    in.Frames.push_back(WriterFrame(Pattern(2, 2, [](int, int) { return 3; }), 4, 4, 2, 0));
    in.Frames.push_back(WriterFrame(Pattern(1, 1, [](int, int) { return 4; }), 3, 3, 1, 0));
    Decoded d = Decode(WriteAnimatedGif(in));
    ASSERT_EQ(d.frames, 4);
    const QRgb c1 = 0xFF000000u | d.gif.GifPalettes[0][1];
    const QRgb c2 = 0xFF000000u | d.gif.GifPalettes[0][2];
    const QRgb c3 = 0xFF000000u | d.gif.GifPalettes[0][3];
    const std::vector<QImage> frames = GifComposer::ComposeAll(d.gif, d.strip);
    EXPECT_EQ(frames[1].pixel(0, 0), c2);
    EXPECT_EQ(frames[2].pixel(0, 0), c1);  // frame 2 put back what it covered
    EXPECT_EQ(frames[2].pixel(5, 5), c3);
    EXPECT_EQ(frames[3].pixel(5, 5), 0u);  // frame 3 cleared to see-through
    EXPECT_EQ(frames[3].pixel(3, 3), 0xFF000000u | d.gif.GifPalettes[0][4]);

    GifComposer composer;
    composer.Create(6, 6);
    composer.ComposeBefore(d.gif, 4);
    composer.DrawFrame(d.gif, d.strip, 4);
    composer.ComposeBefore(d.gif, 1);
    EXPECT_EQ(composer.Canvas().pixel(3, 3), 0u);
}
