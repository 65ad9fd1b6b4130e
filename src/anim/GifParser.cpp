#include "GifParser.h"

#include "common/RunTimeError.h"

namespace zrt {

namespace {

bool HasGifSignature(GifByteReader &in)
{
    const QByteArray signature = in.ReadGifBytes(6).toLower();
    return signature == "gif89a" || signature == "gif87a";
}

// A NETSCAPE2.0 block carries the loop count in a 3-byte first sub-block; any other
// application block, or a first sub-block of another length, is stepped over.
void ReadApplicationBlock(GifByteReader &in, GifImage &gif)
{
    const int length = in.ReadGifByte();
    const QByteArray name = in.ReadGifBytes(length).toUpper();
    if (name == "NETSCAPE2.0") {
        if (in.ReadGifByte() == 3) {
            in.Skip(1);
            gif.Loops = in.ReadGifWord();
        } else {
            in.Skip(-1);
        }
    }
    in.SkipGifSubBlocks();
}

void ReadGraphicControl(GifByteReader &in, GifFrame &pending, bool firstFrame)
{
    pending = GifFrame{};
    pending.StripOffset = static_cast<qint32>(in.GifPos() - 2);
    in.ReadGifByte(); // block size
    const quint8 flags = in.ReadGifByte();
    // Only two bits of the three-bit field count, so 4..7 fold onto 0..3.
    pending.Disposal = (flags / 4) & 3;
    if (pending.Disposal == 3 && firstFrame)
        pending.Disposal = 0;
    pending.DelayMs = in.ReadGifWord() * 10;
    pending.TransparentFlag = flags & 1;
    if (pending.TransparentFlag == 1)
        pending.TransparentIndex = in.ReadGifByte();
    else
        in.Seek(pending.StripOffset + 7);
    in.SkipGifSubBlocks();
}

// Reads one image descriptor and steps over its data. Returns false when the image has no
// colour table to use, which makes the whole file unusable.
bool ReadImage(GifByteReader &in, GifImage &gif, GifFrame &pending)
{
    GifImageBlock block;
    block.Start = static_cast<qint32>(in.GifPos() - 1);
    if (pending.StripOffset == 0)
        pending.StripOffset = block.Start;
    pending.Left = in.ReadGifWord();
    pending.Top = in.ReadGifWord();
    pending.Width = in.ReadGifWord();
    pending.Height = in.ReadGifWord();
    const quint8 packed = in.ReadGifByte();
    if (packed & 0x80) {
        const int row = gif.GifPaletteCount + 1;
        gif.GifPalettes.resize(row + 1, GifPaletteRow{});
        in.ReadGifPalette(gif.GifPalettes[row], (packed & 7) + 1);
        pending.PaletteIndex = row;
        gif.GifPaletteCount = row;
    } else if (!gif.HasGlobalTable) {
        return false;
    }
    in.ReadGifByte(); // LZW minimum code size
    in.SkipGifSubBlocks();
    // A data chain that runs past the end means the file was cut inside this frame.
    if (in.GifPos() > in.Size())
        throw RunTimeError(GifByteReader::kEndOfFile, "End of File");
    block.Size = static_cast<qint32>(in.GifPos() - block.Start);
    if (block.Size < 3)
        return true;

    gif.Blocks.push_back(block);
    gif.Frames.push_back(pending);
    gif.ActualWidth = std::max(gif.ActualWidth, pending.Left + pending.Width);
    gif.ActualHeight = std::max(gif.ActualHeight, pending.Top + pending.Height);
    pending = GifFrame{};
    return true;
}

} // namespace

int ParseGif(const QByteArray &bytes, GifImage &gif)
{
    gif = GifImage{};
    gif.GifPalettes.resize(1, GifPaletteRow{});
    GifByteReader in(bytes);
    try {
        if (!HasGifSignature(in))
            return 0;
        in.Seek(10);
        const quint8 packed = in.ReadGifByte();
        in.Seek(13);
        if (packed & 0x80) {
            in.ReadGifPalette(gif.GifPalettes[0], (packed & 7) + 1);
            gif.HasGlobalTable = true;
        }
    } catch (const RunTimeError &) {
        return 0;
    }

    GifFrame pending;
    try {
        for (;;) {
            const quint8 introducer = in.ReadGifByte();
            if (introducer == 0x00)
                continue;
            if (introducer == 0x21) {
                const quint8 label = in.ReadGifByte();
                if (label == 0xFF)
                    ReadApplicationBlock(in, gif);
                else if (label == 0xF9)
                    ReadGraphicControl(in, pending, gif.Frames.empty());
                else
                    in.SkipGifSubBlocks();
            } else if (introducer == 0x2C) {
                if (!ReadImage(in, gif, pending)) {
                    gif.Frames.clear();
                    gif.Blocks.clear();
                    return 0;
                }
            } else {
                break; // the trailer, or a stray byte: keep what was read
            }
        }
    } catch (const RunTimeError &) {
        // Cut short: the frames finished so far stand.
    }
    return gif.FrameCount();
}

} // namespace zrt
