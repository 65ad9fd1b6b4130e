// Mutated copies of the fixtures through the parser, decoder and composer: no crash, no hang,
// no read outside the buffer (run under the address sanitizer to see the last one).

#include "GifTestSupport.h"

#include <QRandomGenerator>
#include <gtest/gtest.h>

using namespace giftest;

namespace {

QByteArray Mutate(QByteArray bytes, QRandomGenerator &random)
{
    const int edits = 1 + int(random.bounded(8));
    for (int e = 0; e < edits && !bytes.isEmpty(); ++e) {
        const qsizetype at = random.bounded(int(bytes.size()));
        switch (random.bounded(5)) {
        case 0: bytes[at] = char(random.bounded(256)); break;
        case 1: bytes[at] = char(bytes[at] ^ (1 << random.bounded(8))); break;
        case 2: bytes.truncate(at); break;
        case 3: bytes.insert(at, char(random.bounded(256))); break;
        default: bytes.remove(at, 1 + random.bounded(16)); break;
        }
    }
    return bytes;
}

} // namespace

TEST(GifFuzz, MutatedFilesNeverBreakTheReader)
{
    std::vector<QByteArray> seeds;
    for (const char *name : {"interlaced.gif", "local_tables.gif", "transparent.gif", "disposal_mix.gif",
                             "odd_sizes.gif", "one_frame.gif", "stray_byte.gif"})
        seeds.push_back(Fixture(name));
    seeds.push_back(Asset("character1.gif"));
    QRandomGenerator random(20240611);
    int decodedFrames = 0;
    for (int i = 0; i < 3000; ++i) {
        const QByteArray &seed = seeds[size_t(i) % seeds.size()];
        ASSERT_FALSE(seed.isEmpty());
        const QByteArray bytes = Mutate(seed, random);
        Decoded d = Decode(bytes);
        if (!d.strip.IsNull()) {
            const std::vector<QImage> frames = zrt::GifComposer::ComposeAll(d.gif, d.strip);
            decodedFrames += int(frames.size());
            d.strip.MirrorFrames(d.gif, 3, 1, d.frames);
            (void)zrt::FrameToGif(d.gif, d.strip.Image(), d.frames);
        }
    }
    EXPECT_GT(decodedFrames, 1000); // most mutations still leave readable frames
}
