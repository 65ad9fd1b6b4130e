// Frame by frame, the project's decoder and composer give the pixels Qt's own GIF reader gives.

#include "GifTestSupport.h"

#include <QImageReader>
#include <gtest/gtest.h>

using namespace giftest;

namespace {

// Qt marks see-through pixels with a white colour part; only their alpha matters.
QRgb Normal(QRgb pixel)
{
    return qAlpha(pixel) == 0 ? 0u : pixel;
}

::testing::AssertionResult SamePixels(const QImage &ours, const QImage &qt)
{
    const QImage a = ours.convertToFormat(QImage::Format_ARGB32);
    const QImage b = qt.convertToFormat(QImage::Format_ARGB32);
    if (a.size() != b.size())
        return ::testing::AssertionFailure() << "size " << a.width() << "x" << a.height() << " against "
                                             << b.width() << "x" << b.height();
    for (int y = 0; y < a.height(); ++y)
        for (int x = 0; x < a.width(); ++x)
            if (Normal(a.pixel(x, y)) != Normal(b.pixel(x, y)))
                return ::testing::AssertionFailure() << "pixel " << x << "," << y << ": " << std::hex
                                                     << a.pixel(x, y) << " against " << b.pixel(x, y);
    return ::testing::AssertionSuccess();
}

struct Case {
    const char *name;
    bool asset;
    int frames;      // frames both readers give in full
};

class GifConformance : public ::testing::TestWithParam<Case> {};

} // namespace

TEST(GifConformanceSetup, QtHasAGifReader)
{
    EXPECT_TRUE(QImageReader::supportedImageFormats().contains("gif"));
}

TEST_P(GifConformance, EveryFrameMatchesQtsReader)
{
    const Case c = GetParam();
    const QByteArray bytes = c.asset ? Asset(c.name) : Fixture(c.name);
    ASSERT_FALSE(bytes.isEmpty()) << c.name;
    const std::vector<QImage> ours = ComposeAll(bytes);
    const std::vector<QImage> qt = QtFrames(bytes);
    ASSERT_EQ(int(ours.size()), c.frames);
    ASSERT_GE(int(qt.size()), c.frames);
    for (int n = 0; n < c.frames; ++n)
        EXPECT_TRUE(SamePixels(ours[n], qt[n])) << c.name << " frame " << n + 1;
}

INSTANTIATE_TEST_SUITE_P(
    Files, GifConformance,
    ::testing::Values(Case{"character1.gif", true, 3}, Case{"character2.gif", true, 3},
                      Case{"audio_target.gif", true, 3}, Case{"walker.gif", true, 16},
                      Case{"interlaced.gif", false, 2}, Case{"local_tables.gif", false, 3},
                      Case{"transparent.gif", false, 2}, Case{"disposal_mix.gif", false, 7},
                      Case{"odd_sizes.gif", false, 4}, Case{"one_frame.gif", false, 1},
                      Case{"truncated.gif", false, 3}, Case{"stray_byte.gif", false, 2},
                      Case{"table_resets.gif", false, 2}),
    [](const ::testing::TestParamInfo<Case> &info) {
        std::string name = info.param.name;
        return name.substr(0, name.find('.'));
    });

TEST(GifAssets, CharactersHaveTheShapeTheStagesExpect)
{
    for (const char *name : {"character1.gif", "character2.gif", "audio_target.gif"}) {
        const Decoded d = Decode(Asset(name));
        ASSERT_EQ(d.frames, 3) << name;
        EXPECT_EQ(d.gif.ActualWidth, 110);
        EXPECT_EQ(d.gif.ActualHeight, 394);
        for (const zrt::GifFrame &f : d.gif.Frames) {
            EXPECT_EQ(f.Disposal, 2);
            EXPECT_EQ(f.DelayMs, std::string(name) == "audio_target.gif" ? 1000 : 100);
        }
    }
    const Decoded walker = Decode(Asset("walker.gif"));
    ASSERT_EQ(walker.frames, 16);
    EXPECT_EQ(walker.gif.ActualWidth, 179);
    EXPECT_EQ(walker.gif.ActualHeight, 174);
    EXPECT_EQ(walker.gif.Frame(1).DelayMs, 0);
    // A walk cycle: no two neighbouring frames alike, and the two characters differ.
    const std::vector<QImage> steps = ComposeAll(Asset("walker.gif"));
    for (size_t i = 0; i + 1 < steps.size(); ++i)
        EXPECT_NE(steps[i], steps[i + 1]) << i;
    EXPECT_NE(ComposeAll(Asset("character1.gif"))[2], ComposeAll(Asset("character2.gif"))[2]);
}
