#include "GifEncoder.h"

#include <array>
#include <cstring>

namespace zrt {

namespace {

constexpr int kHashSize = 5003;
constexpr int kHashShift = 4;   // 5003 doubled up to 65536 takes 4 steps: 2^(8 - 4)
constexpr int kClearCode = 256;
constexpr int kEndCode = 257;
constexpr int kMaxCodes = 4096;

// Packs codes low bit first and cuts them into 254-byte sub-blocks.
class CodePacker {
public:
    explicit CodePacker(QByteArray &out) : m_out(out) {}

    void Emit(int code, int width)
    {
        m_accumulator |= quint32(code) << m_bitCount;
        m_bitCount += width;
        while (m_bitCount >= 8) {
            PutByte(static_cast<uchar>(m_accumulator & 0xFF));
            m_accumulator >>= 8;
            m_bitCount -= 8;
        }
    }

    // The final sub-block takes one byte more than its data: the byte after it in the block
    // buffer, left over from the sub-block before. Decoders stop at the end code before it.
    void Finish()
    {
        if (m_bitCount > 0)
            PutByte(static_cast<uchar>(m_accumulator & 0xFF));
        m_accumulator = 0;
        m_bitCount = 0;
        const int count = m_fill + 1;
        m_out.append(static_cast<char>(count));
        m_out.append(reinterpret_cast<const char *>(m_block.data()), count);
        m_out.append('\0');
    }

private:
    void PutByte(uchar byte)
    {
        m_block[m_fill++] = byte;
        if (m_fill == 254) {
            m_out.append(static_cast<char>(254));
            m_out.append(reinterpret_cast<const char *>(m_block.data()), 254);
            m_fill = 0;
        }
    }

    QByteArray &m_out;
    std::array<uchar, 255> m_block{};
    int m_fill = 0;
    quint32 m_accumulator = 0;
    int m_bitCount = 0;
};

void AppendWord(QByteArray &out, int value)
{
    out.append(static_cast<char>(value & 0xFF));
    out.append(static_cast<char>((value >> 8) & 0xFF));
}

void AppendTable(QByteArray &out, const QList<QRgb> &table, int entries)
{
    for (int i = 0; i < entries; ++i) {
        const QRgb c = i < table.size() ? table[i] : 0;
        out.append(static_cast<char>(qRed(c)));
        out.append(static_cast<char>(qGreen(c)));
        out.append(static_cast<char>(qBlue(c)));
    }
}

int TableBits(qsizetype entries)
{
    int bits = 1;
    while ((1 << bits) < entries && bits < 8)
        ++bits;
    return bits;
}

void AppendControl(QByteArray &out, int disposal, int delayCs, int transparentIndex)
{
    out.append("\x21\xF9\x04", 3);
    const int flags = ((disposal & 7) << 2) | (transparentIndex >= 0 ? 1 : 0);
    out.append(static_cast<char>(flags));
    AppendWord(out, delayCs);
    out.append(static_cast<char>(transparentIndex >= 0 ? transparentIndex : 0));
    out.append('\0');
}

std::vector<uchar> RowsInOrder(const QImage &indices, bool interlaced)
{
    const int w = indices.width();
    const int h = indices.height();
    std::vector<uchar> pixels;
    pixels.reserve(size_t(w) * size_t(h));
    auto appendRow = [&](int y) {
        const uchar *row = indices.constScanLine(y);
        pixels.insert(pixels.end(), row, row + w);
    };
    if (!interlaced) {
        for (int y = 0; y < h; ++y)
            appendRow(y);
    } else {
        static constexpr int kStart[4] = {0, 4, 2, 1};
        static constexpr int kStep[4] = {8, 8, 4, 2};
        for (int pass = 0; pass < 4; ++pass)
            for (int y = kStart[pass]; y < h; y += kStep[pass])
                appendRow(y);
    }
    return pixels;
}

} // namespace

QByteArray EncodeGifLzw(const std::vector<uchar> &pixels)
{
    QByteArray out;
    out.reserve(qsizetype(pixels.size()) + 64);
    CodePacker packer(out);
    std::vector<qint32> keys(kHashSize, -1);
    std::vector<qint32> codes(kHashSize, 0);
    int width = 9;
    int maxCode = (1 << width) - 1;
    int nextFree = kClearCode + 2;

    packer.Emit(kClearCode, width);
    if (pixels.empty()) {
        packer.Emit(kEndCode, width);
        packer.Finish();
        return out;
    }
    int prefix = pixels[0];
    for (size_t i = 1; i < pixels.size(); ++i) {
        const int c = pixels[i];
        const qint32 key = (qint32(c) << 12) + prefix;
        int slot = (c << kHashShift) ^ prefix;
        if (slot >= kHashSize)
            slot = 0;
        bool hit = keys[slot] == key;
        if (!hit && keys[slot] > -1) {
            const int step = slot == 0 ? 1 : kHashSize - slot;
            for (;;) {
                slot -= step;
                if (slot < 0)
                    slot += kHashSize;
                if (keys[slot] == key) {
                    hit = true;
                    break;
                }
                if (keys[slot] <= 0)
                    break;
            }
        }
        if (hit) {
            prefix = codes[slot];
            continue;
        }
        packer.Emit(prefix, width);
        prefix = c;
        codes[slot] = nextFree;
        keys[slot] = key;
        if (nextFree > maxCode) {
            if (nextFree == kMaxCodes) {
                packer.Emit(kClearCode, width);
                std::fill(keys.begin(), keys.end(), -1);
                nextFree = kEndCode;
                width = 9;
            } else {
                ++width;
            }
            maxCode = (1 << width) - 1;
        }
        ++nextFree;
    }
    packer.Emit(prefix, width);
    packer.Emit(kEndCode, width);
    packer.Finish();
    return out;
}

QByteArray FrameToGif(const GifImage &gif, const QImage &strip, int frameNo)
{
    const GifFrame &f = gif.Frame(frameNo);
    QByteArray out;
    out.reserve(qsizetype(f.Width) * f.Height + 800);
    out.append("GIF89a", 6);
    AppendWord(out, f.Width);
    AppendWord(out, f.Height);
    out.append("\x87\0\0", 3);
    for (quint32 entry : gif.GifPalettes.at(f.PaletteIndex)) {
        out.append(static_cast<char>((entry >> 16) & 0xFF));
        out.append(static_cast<char>((entry >> 8) & 0xFF));
        out.append(static_cast<char>(entry & 0xFF));
    }
    if (f.TransparentFlag == 1)
        AppendControl(out, 0, 0, f.TransparentIndex);
    out.append(',');
    AppendWord(out, 0);
    AppendWord(out, 0);
    AppendWord(out, f.Width);
    AppendWord(out, f.Height);
    out.append('\0');
    out.append('\x08');

    std::vector<uchar> pixels;
    if (f.Width > 0 && f.Height > 0) {
        pixels.reserve(size_t(f.Width) * size_t(f.Height));
        // The first pixel comes from the row the bottom-up strip would call the frame's
        // first; for a frame shorter than the image that is a lower row, and it is kept so.
        const int firstRow = gif.ActualHeight - f.Height;
        pixels.push_back(strip.constScanLine(firstRow)[f.StripOffset]);
        for (int y = 0; y < f.Height; ++y) {
            const uchar *row = strip.constScanLine(y) + f.StripOffset;
            pixels.insert(pixels.end(), row + (y == 0 ? 1 : 0), row + f.Width);
        }
    }
    out.append(EncodeGifLzw(pixels));
    out.append(';');
    return out;
}

QByteArray WriteAnimatedGif(const GifWriterInput &input)
{
    QByteArray out;
    out.append(input.Gif87a ? "GIF87a" : "GIF89a", 6);
    AppendWord(out, input.Screen.width());
    AppendWord(out, input.Screen.height());
    if (input.GlobalTable) {
        const int bits = TableBits(input.GlobalTable->size());
        out.append(static_cast<char>(0x80 | 0x70 | (bits - 1)));
        out.append("\0\0", 2);
        AppendTable(out, *input.GlobalTable, 1 << bits);
    } else {
        out.append("\0\0\0", 3);
    }
    if (input.Loops >= 0) {
        out.append("\x21\xFF\x0BNETSCAPE2.0\x03\x01", 16);
        AppendWord(out, input.Loops);
        out.append('\0');
    }
    for (const GifWriterFrame &frame : input.Frames) {
        if (frame.WriteControl)
            AppendControl(out, frame.Disposal, frame.DelayCs, frame.TransparentIndex);
        out.append(',');
        AppendWord(out, frame.Left);
        AppendWord(out, frame.Top);
        AppendWord(out, frame.Indices.width());
        AppendWord(out, frame.Indices.height());
        int packed = frame.Interlaced ? 0x40 : 0;
        int bits = 0;
        if (frame.LocalTable) {
            bits = TableBits(frame.LocalTable->size());
            packed |= 0x80 | (bits - 1);
        }
        out.append(static_cast<char>(packed));
        if (frame.LocalTable)
            AppendTable(out, *frame.LocalTable, 1 << bits);
        out.append('\x08');
        out.append(EncodeGifLzw(RowsInOrder(frame.Indices, frame.Interlaced)));
    }
    out.append(';');
    return out;
}

} // namespace zrt
