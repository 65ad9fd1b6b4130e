#pragma once
// Forward reading of a GIF byte buffer with one cursor. Reading past the end of the data
// raises run-time error 53 ("End of File"), which the parser catches to keep what it has.

#include <QByteArray>
#include <array>
#include <cstdint>

namespace zrt {

using GifPaletteRow = std::array<quint32, 256>; // 0x00RRGGBB entries

class GifByteReader {
public:
    static constexpr int kEndOfFile = 53;

    explicit GifByteReader(const QByteArray &bytes) : m_bytes(bytes) {}

    qsizetype GifPos() const { return m_pos; }
    void Seek(qsizetype pos) { m_pos = pos; }
    void Skip(qsizetype count) { m_pos += count; }
    qsizetype Size() const { return m_bytes.size(); }
    bool AtEnd() const { return m_pos >= m_bytes.size(); }

    quint8 ReadGifByte();
    quint16 ReadGifWord();
    // n bytes from the cursor; past the end nothing is read and the cursor stays.
    QByteArray ReadGifBytes(qsizetype count);
    // 2^bits colour triples into row; raises before reading when the table would not fit.
    void ReadGifPalette(GifPaletteRow &row, int bits);
    // Steps over a chain of sub-blocks and its terminator; never raises.
    void SkipGifSubBlocks();

private:
    [[noreturn]] static void EndOfFile();

    const QByteArray &m_bytes;
    qsizetype m_pos = 0;
};

} // namespace zrt
