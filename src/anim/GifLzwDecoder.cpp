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
    RowCursor(QImage &strip, int stripX, int height, bool interlaced)
        : m_bits(strip.bits() + stripX), m_stride(strip.bytesPerLine()), m_height(height),
          m_interlaced(interlaced)
    {
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

// Room after the end of the decoded run, so that strings can be copied eight bytes at a time.
constexpr qsizetype kSlack = 16;

// Every string of the code table lies in the output already: a new entry is the string of the
// previous code, written just before, followed by the first byte of the current one, written
// right after it. So a code is decoded by copying from where its string first appeared, and the
// table holds only that place and the length. Everything else (bit buffer, read position, code
// size) stays in locals, in registers.
struct LzwTables {
    std::array<quint32, kMaxCodes> place;
    std::array<quint16, kMaxCodes> length;
};

// Decodes into out (count pixels, in the order the image stores them) and returns how many
// were written, or -1 for an impossible code.
qsizetype RunLzw(int minCodeSize, const uchar *p, const uchar *end, LzwTables &t, uchar *out, qsizetype count)
{
    const int clear = 1 << minCodeSize;
    const int endCode = clear + 1;
    quint32 *const place = t.place.data();
    quint16 *const lengthOf = t.length.data();
    for (int i = 0; i < clear; ++i)
        lengthOf[i] = 1;

    int codeSize = minCodeSize + 1;
    quint32 mask = (1u << codeSize) - 1;
    int next = clear + 2;
    quint64 buffer = 0;
    int bits = 0;
    int previous = -1;
    qsizetype previousAt = 0; // where the previous code's string begins in out
    qsizetype at = 0;

    while (at < count) {
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
                        return at; // the data ended early
                    buffer |= quint64(*p++) << bits;
                    bits += 8;
                }
            }
        }
        const int code = static_cast<int>(buffer & mask);
        buffer >>= codeSize;
        bits -= codeSize;

        if (code == endCode)
            return at;
        if (code == clear) {
            codeSize = minCodeSize + 1;
            mask = (1u << codeSize) - 1;
            next = clear + 2;
            previous = -1;
            continue;
        }
        if (previous < 0) {
            if (code >= clear)
                return -1;
            previous = code;
            previousAt = at;
            out[at++] = static_cast<uchar>(code);
            continue;
        }
        if (code > next || (code == next && next >= kMaxCodes))
            return -1;
        if (next < kMaxCodes) {
            place[next] = static_cast<quint32>(previousAt);
            lengthOf[next] = static_cast<quint16>(lengthOf[previous] + 1);
            ++next;
            if (next == (1 << codeSize) && codeSize < 12) {
                ++codeSize;
                mask = (1u << codeSize) - 1;
            }
        }
        previous = code;
        previousAt = at;
        if (code < clear) {
            out[at++] = static_cast<uchar>(code);
            continue;
        }
        const qsizetype length = std::min<qsizetype>(lengthOf[code], count - at);
        const uchar *from = out + place[code];
        uchar *to = out + at;
        if (to - from >= 8) {
            // Eight bytes at a time may run past the string (into the slack), never past
            // what is being copied from.
            for (qsizetype k = 0; k < length; k += 8)
                std::memcpy(to + k, from + k, 8);
        } else {
            // The string overlaps itself (a code defined by its own use): byte by byte.
            for (qsizetype k = 0; k < length; ++k)
                to[k] = from[k];
        }
        at += length;
    }
    return at;
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
    const qsizetype count = qsizetype(width) * height;
    std::unique_ptr<uchar[]> run(new uchar[static_cast<size_t>(count + kSlack)]());
    auto tables = std::make_unique<LzwTables>();
    const auto *first = reinterpret_cast<const uchar *>(data.constData());
    const qsizetype written = RunLzw(minCodeSize, first, first + data.size(), *tables, run.get(), count);
    if (written < 0) {
        BlankColumns(strip, stripX, width, height);
        return false;
    }
    // Into the strip in the order the rows are stored; a short run leaves the rest as it was.
    RowCursor rows(strip, stripX, height, (packed & 0x40) != 0);
    uchar *row = rows.First();
    for (qsizetype done = 0; row && done < written; done += width, row = rows.NextRow())
        std::memcpy(row, run.get() + done, static_cast<size_t>(std::min<qsizetype>(width, written - done)));
    return true;
}

} // namespace zrt
