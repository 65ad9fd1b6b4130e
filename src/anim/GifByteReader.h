#pragma once
// Forward reading of a GIF byte buffer with one cursor. Reading past the end of the data
// raises run-time error 53 ("End of File"), which the parser catches to keep what it has.

#include <QByteArray>
#include <algorithm>
#include <cstdint>
#include <iterator>
#include <vector>

namespace zrt {

// One colour table: as many 0x00RRGGBB entries as the file's table holds (2 to 256), so a
// small local table costs a few bytes rather than a full row. Entries beyond it read as 0,
// and going through a row gives all 256 entries, as a full row would.
class GifPaletteRow {
public:
    class const_iterator {
    public:
        using iterator_category = std::forward_iterator_tag;
        using value_type = quint32;
        using difference_type = std::ptrdiff_t;
        using pointer = const quint32 *;
        using reference = quint32;
        const_iterator() = default;
        const_iterator(const GifPaletteRow *row, int at) : m_row(row), m_at(at) {}
        quint32 operator*() const { return (*m_row)[m_at]; }
        const_iterator &operator++() { ++m_at; return *this; }
        const_iterator operator++(int) { const_iterator was = *this; ++m_at; return was; }
        bool operator==(const const_iterator &o) const { return m_at == o.m_at; }
        bool operator!=(const const_iterator &o) const { return m_at != o.m_at; }

    private:
        const GifPaletteRow *m_row = nullptr;
        int m_at = 0;
    };
    using iterator = const_iterator;
    using value_type = quint32;

    static constexpr int kColumns = 256;

    quint32 operator[](int i) const { return i >= 0 && i < Entries() ? m_entries[size_t(i)] : 0u; }
    int Entries() const { return static_cast<int>(m_entries.size()); }
    void Assign(std::vector<quint32> entries) { m_entries = std::move(entries); }
    const_iterator begin() const { return {this, 0}; }
    const_iterator end() const { return {this, kColumns}; }
    bool operator==(const GifPaletteRow &o) const { return std::equal(begin(), end(), o.begin()); }

private:
    std::vector<quint32> m_entries;
};

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
