#include "GifByteReader.h"

#include "common/RunTimeError.h"

namespace zrt {

void GifByteReader::EndOfFile()
{
    throw RunTimeError(kEndOfFile, "End of File");
}

quint8 GifByteReader::ReadGifByte()
{
    if (m_pos < 0 || m_pos >= m_bytes.size())
        EndOfFile();
    return static_cast<quint8>(m_bytes[m_pos++]);
}

quint16 GifByteReader::ReadGifWord()
{
    if (m_pos < 0 || m_pos + 1 >= m_bytes.size())
        EndOfFile();
    const auto lo = static_cast<quint8>(m_bytes[m_pos]);
    const auto hi = static_cast<quint8>(m_bytes[m_pos + 1]);
    m_pos += 2;
    return static_cast<quint16>(lo | (hi << 8));
}

QByteArray GifByteReader::ReadGifBytes(qsizetype count)
{
    if (count <= 0 || m_pos < 0 || m_pos + count > m_bytes.size())
        return {};
    QByteArray out = m_bytes.mid(m_pos, count);
    m_pos += count;
    return out;
}

void GifByteReader::ReadGifPalette(GifPaletteRow &row, int bits)
{
    const int entries = 1 << bits;
    if (m_pos < 0 || m_pos + 3 * qsizetype(entries) > m_bytes.size())
        EndOfFile();
    const auto *p = reinterpret_cast<const quint8 *>(m_bytes.constData()) + m_pos;
    std::vector<quint32> table(static_cast<size_t>(entries));
    for (int k = 0; k < entries; ++k, p += 3)
        table[size_t(k)] = (quint32(p[0]) << 16) | (quint32(p[1]) << 8) | p[2];
    row.Assign(std::move(table));
    m_pos += 3 * qsizetype(entries);
}

void GifByteReader::SkipGifSubBlocks()
{
    const qsizetype size = m_bytes.size();
    while (m_pos >= 0 && m_pos < size && m_bytes[m_pos] != 0)
        m_pos += static_cast<quint8>(m_bytes[m_pos]) + 1;
    m_pos += 1;
}

} // namespace zrt
