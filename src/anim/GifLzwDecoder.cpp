#include "GifLzwDecoder.h"

#include "GifParser.h"

#include <QtEndian>

#include <array>
#include <memory>
#include <cstring>

namespace zrt {

namespace {

constexpr int kMaxCodes = 4096;

// Gathers the data sub-blocks into one run so the bit reader needs no block logic.
QByteArray GatherSubBlocks(const uchar *p, const uchar *end)
{
    QByteArray data;
    data.reserve(end - p);
    while (p < end && *p != 0) {
        const int count = *p++;
        const qsizetype take = std::min<qsizetype>(count, end - p);
        data.append(reinterpret_cast<const char *>(p), take);
        p += take;
    }
    return data;
}

// Hands out the strip's rows in the order the image stores them.
class RowCursor {
public:
    RowCursor(QImage &strip, int stripX, int width, int height, bool interlaced)
        : m_bits(strip.bits() + stripX), m_stride(strip.bytesPerLine()), m_height(height),
          m_interlaced(interlaced)
    {
        (void)width;
    }

    uchar *First() { return m_height > 0 ? Row(0) : nullptr; }

    // The next row to fill, or null when the image is complete.
    uchar *NextRow()
    {
        if (!m_interlaced) {
            ++m_y;
        } else {
            static constexpr int kStep[4] = {8, 8, 4, 2};
            static constexpr int kStart[4] = {0, 4, 2, 1};
            m_y += kStep[m_pass];
            while (m_y >= m_height && m_pass < 3) {
                ++m_pass;
                m_y = kStart[m_pass];
            }
            ++m_rowsDone;
            if (m_rowsDone >= m_height)
                m_y = m_height;
        }
        return m_y < m_height ? Row(m_y) : nullptr;
    }

private:
    uchar *Row(int y) { return m_bits + qsizetype(y) * m_stride; }

    uchar *m_bits;
    qsizetype m_stride;
    int m_height;
    bool m_interlaced;
    int m_y = 0;
    int m_pass = 0;
    int m_rowsDone = 0;
};

// The code tables. The decoding loop keeps everything else (bit buffer, read position, code
// size, the place in the row) in locals, so that the stores of pixels, which may alias any
// memory, do not force it back to memory after every byte.
struct LzwTables {
    std::array<quint16, kMaxCodes> prefix;
    std::array<uchar, kMaxCodes> suffix;
    std::array<uchar, kMaxCodes> first;
    std::array<quint16, kMaxCodes> length;
    std::array<uchar, kMaxCodes + 1> stack;
};

// Returns false on an impossible code.
bool RunLzw(int minCodeSize, const uchar *p, const uchar *end, LzwTables &t, RowCursor &cursor, int width)
{
    const int clear = 1 << minCodeSize;
    const int endCode = clear + 1;
    quint16 *const prefix = t.prefix.data();
    uchar *const suffix = t.suffix.data();
    uchar *const firstOf = t.first.data();
    quint16 *const lengthOf = t.length.data();
    for (int i = 0; i < clear; ++i) {
        prefix[i] = 0;
        suffix[i] = static_cast<uchar>(i);
        firstOf[i] = static_cast<uchar>(i);
        lengthOf[i] = 1;
    }

    int codeSize = minCodeSize + 1;
    quint32 mask = (1u << codeSize) - 1;
    int next = clear + 2;
    quint64 buffer = 0;
    int bits = 0;
    int previous = -1;

    uchar *row = cursor.First();
    if (!row)
        return true;
    int x = 0;

    for (;;) {
        if (bits < codeSize) {
            if (end - p >= 8) {
                quint64 word;
                std::memcpy(&word, p, 8);
                buffer |= qFromLittleEndian(word) << bits;
                p += (63 - bits) >> 3;
                bits |= 56;
            } else {
                while (bits < codeSize) {
                    if (p >= end)
                        return true; // the data ended early
                    buffer |= quint64(*p++) << bits;
                    bits += 8;
                }
            }
        }
        const int code = static_cast<int>(buffer & mask);
        buffer >>= codeSize;
        bits -= codeSize;

        if (code == endCode)
            return true;
        if (code == clear) {
            codeSize = minCodeSize + 1;
            mask = (1u << codeSize) - 1;
            next = clear + 2;
            previous = -1;
            continue;
        }
        if (previous < 0) {
            if (code >= clear)
                return false;
            row[x] = static_cast<uchar>(code);
            previous = code;
            if (++x == width) {
                x = 0;
                if (!(row = cursor.NextRow()))
                    return true;
            }
            continue;
        }
        if (code > next || (code == next && next >= kMaxCodes))
            return false;
        if (next < kMaxCodes) {
            const uchar first = code < next ? firstOf[code] : firstOf[previous];
            prefix[next] = static_cast<quint16>(previous);
            suffix[next] = first;
            firstOf[next] = firstOf[previous];
            lengthOf[next] = static_cast<quint16>(lengthOf[previous] + 1);
            ++next;
            if (next == (1 << codeSize) && codeSize < 12) {
                ++codeSize;
                mask = (1u << codeSize) - 1;
            }
        }
        previous = code;

        // The string of code, written back to front where it fits in the row, otherwise
        // through the stack across rows.
        const int length = lengthOf[code];
        if (length <= width - x) {
            uchar *dst = row + x + length;
            int c = code;
            while (c >= clear) {
                *--dst = suffix[c];
                c = prefix[c];
            }
            *--dst = suffix[c];
            x += length;
            if (x == width) {
                x = 0;
                if (!(row = cursor.NextRow()))
                    return true;
            }
            continue;
        }
        uchar *const stack = t.stack.data();
        int depth = 0;
        for (int c = code;; c = prefix[c]) {
            stack[depth++] = suffix[c];
            if (c < clear)
                break;
        }
        while (depth > 0) {
            row[x] = stack[--depth];
            if (++x == width) {
                x = 0;
                if (!(row = cursor.NextRow()))
                    return true;
            }
        }
    }
}

void BlankColumns(QImage &strip, int stripX, int width, int height)
{
    for (int y = 0; y < height; ++y)
        std::memset(strip.scanLine(y) + stripX, 0, width);
}

} // namespace

bool DecodeGifImage(const QByteArray &bytes, const GifImageBlock &block, QImage &strip, int stripX)
{
    const auto *base = reinterpret_cast<const uchar *>(bytes.constData());
    const qsizetype start = block.Start;
    const qsizetype end = std::min<qsizetype>(bytes.size(), start + qsizetype(block.Size));
    if (start < 0 || start + 11 > end)
        return false;
    const uchar *d = base + start;
    const int width = d[5] | (d[6] << 8);
    const int height = d[7] | (d[8] << 8);
    const uchar packed = d[9];
    if (width <= 0 || height <= 0)
        return true;
    if (stripX < 0 || stripX + width > strip.width() || height > strip.height()
        || strip.format() != QImage::Format_Indexed8)
        return false;

    qsizetype pos = start + 10;
    if (packed & 0x80)
        pos += 3 * (qsizetype(1) << ((packed & 7) + 1));
    if (pos >= end) {
        BlankColumns(strip, stripX, width, height);
        return false;
    }
    const int minCodeSize = base[pos++];
    if (minCodeSize < 1 || minCodeSize > 8) {
        BlankColumns(strip, stripX, width, height);
        return false;
    }
    const QByteArray data = GatherSubBlocks(base + pos, base + end);
    RowCursor out(strip, stripX, width, height, (packed & 0x40) != 0);
    auto tables = std::make_unique<LzwTables>();
    const auto *first = reinterpret_cast<const uchar *>(data.constData());
    if (!RunLzw(minCodeSize, first, first + data.size(), *tables, out, width)) {
        BlankColumns(strip, stripX, width, height);
        return false;
    }
    return true;
}

} // namespace zrt
