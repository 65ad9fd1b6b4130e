#include "GifLzwDecoder.h"

#include "GifParser.h"

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
        : m_bits(strip.bits() + stripX), m_stride(strip.bytesPerLine()), m_width(width),
          m_height(height), m_interlaced(interlaced)
    {
        m_row = Row(0);
    }

    bool Done() const { return m_y >= m_height; }
    int Room() const { return m_width - m_x; }
    uchar *At() { return m_row + m_x; }

    void Advance(int count)
    {
        m_x += count;
        if (m_x >= m_width) {
            m_x = 0;
            NextRow();
        }
    }

    void Put(uchar index)
    {
        m_row[m_x] = index;
        Advance(1);
    }

private:
    uchar *Row(int y) { return m_bits + qsizetype(y) * m_stride; }

    void NextRow()
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
        if (m_y < m_height)
            m_row = Row(m_y);
    }

    uchar *m_bits;
    qsizetype m_stride;
    int m_width;
    int m_height;
    bool m_interlaced;
    int m_x = 0;
    int m_y = 0;
    int m_pass = 0;
    int m_rowsDone = 0;
    uchar *m_row = nullptr;
};

class LzwDecoder {
public:
    LzwDecoder(int minCodeSize, const QByteArray &data)
        : m_minCodeSize(minCodeSize), m_clear(1 << minCodeSize), m_data(data)
    {
        for (int i = 0; i < m_clear; ++i) {
            m_prefix[i] = 0;
            m_suffix[i] = static_cast<uchar>(i);
            m_first[i] = static_cast<uchar>(i);
            m_length[i] = 1;
        }
        Reset();
    }

    // Returns false on an impossible code.
    bool Run(RowCursor &out)
    {
        const int end = m_clear + 1;
        int previous = -1;
        while (!out.Done()) {
            const int code = NextCode();
            if (code < 0 || code == end)
                return true;
            if (code == m_clear) {
                Reset();
                previous = -1;
                continue;
            }
            if (previous < 0) {
                if (code >= m_clear)
                    return false;
                out.Put(static_cast<uchar>(code));
                previous = code;
                continue;
            }
            if (code > m_next || (code == m_next && m_next >= kMaxCodes))
                return false;
            const uchar first = code < m_next ? m_first[code] : m_first[previous];
            if (m_next < kMaxCodes)
                AddCode(previous, first);
            Emit(code, out);
            previous = code;
        }
        return true;
    }

private:
    void Reset()
    {
        m_codeSize = m_minCodeSize + 1;
        m_next = m_clear + 2;
    }

    void AddCode(int previous, uchar first)
    {
        m_prefix[m_next] = static_cast<quint16>(previous);
        m_suffix[m_next] = first;
        m_first[m_next] = m_first[previous];
        m_length[m_next] = static_cast<quint16>(m_length[previous] + 1);
        ++m_next;
        if (m_next == (1 << m_codeSize) && m_codeSize < 12)
            ++m_codeSize;
    }

    // Writes the string of code; it usually fits in the current row and is written there
    // back to front, otherwise it goes through a small stack.
    void Emit(int code, RowCursor &out)
    {
        const int length = m_length[code];
        if (length <= out.Room()) {
            uchar *dst = out.At() + length;
            for (int c = code; ; c = m_prefix[c]) {
                *--dst = m_suffix[c];
                if (c < m_clear)
                    break;
            }
            out.Advance(length);
            return;
        }
        int depth = 0;
        for (int c = code; ; c = m_prefix[c]) {
            m_stack[depth++] = m_suffix[c];
            if (c < m_clear)
                break;
        }
        while (depth > 0 && !out.Done())
            out.Put(m_stack[--depth]);
    }

    int NextCode()
    {
        while (m_bitCount < m_codeSize) {
            if (m_pos >= m_data.size())
                return -1;
            m_accumulator |= quint32(static_cast<uchar>(m_data[m_pos++])) << m_bitCount;
            m_bitCount += 8;
        }
        const int code = static_cast<int>(m_accumulator & ((1u << m_codeSize) - 1));
        m_accumulator >>= m_codeSize;
        m_bitCount -= m_codeSize;
        return code;
    }

    int m_minCodeSize;
    int m_clear;
    int m_codeSize = 0;
    int m_next = 0;
    const QByteArray &m_data;
    qsizetype m_pos = 0;
    quint32 m_accumulator = 0;
    int m_bitCount = 0;
    std::array<quint16, kMaxCodes> m_prefix{};
    std::array<uchar, kMaxCodes> m_suffix{};
    std::array<uchar, kMaxCodes> m_first{};
    std::array<quint16, kMaxCodes> m_length{};
    std::array<uchar, kMaxCodes + 1> m_stack{};
};

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
    auto decoder = std::make_unique<LzwDecoder>(minCodeSize, data);
    if (!decoder->Run(out)) {
        BlankColumns(strip, stripX, width, height);
        return false;
    }
    return true;
}

} // namespace zrt
