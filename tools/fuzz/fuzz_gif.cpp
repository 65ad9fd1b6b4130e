// One input through the GIF reader as the player uses it: the block walk, the plan, the frame
// strip within its memory bound, every frame decoded into it, and every frame composed on the
// canvas where the file needs one. Composing is Qt's painting of whole frames, whose cost grows
// with the canvas and not with anything the reader decides, so it is done on canvases of up to
// four million pixels; larger ones only cost the fuzzer time.

#include "anim/GifComposer.h"
#include "anim/GifFrameStrip.h"
#include "anim/GifParser.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const QByteArray bytes(reinterpret_cast<const char *>(data), static_cast<qsizetype>(size));
    zrt::GifImage gif;
    const int frames = zrt::ParseGif(bytes, gif);
    if (frames <= 0)
        return 0;
    if (static_cast<size_t>(frames) != gif.Blocks.size())
        std::abort();
    const zrt::GifBuildPlan plan = zrt::PlanGifBuild(gif);
    zrt::GifFrameStrip strip;
    if (!strip.Create(gif, plan)) {
        if (strip.RefusalReason().isEmpty())
            std::abort(); // a refusal always says why
        return 0;
    }
    for (int n = 1; n <= frames; ++n)
        strip.RenderFrame(bytes, gif, n);
    if (plan.UseCanvas && qint64(gif.ActualWidth) * gif.ActualHeight <= (qint64(1) << 22)) {
        zrt::GifComposer composer;
        composer.Create(gif.ActualWidth, gif.ActualHeight);
        for (int n = 1; n <= frames; ++n) {
            composer.ComposeBefore(gif, n);
            composer.DrawFrame(gif, strip, n);
            composer.ComposeAfter(gif, n);
        }
    }
    return 0;
}
