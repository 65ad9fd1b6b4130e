#include "files/IniDocument.h"

#include <algorithm>
#include <cctype>

namespace zrt {
namespace {

std::string_view trim(std::string_view s)
{
    auto blank = [](char c) { return c == ' ' || c == '\t' || c == '\r'; };
    while (!s.empty() && blank(s.front()))
        s.remove_prefix(1);
    while (!s.empty() && blank(s.back()))
        s.remove_suffix(1);
    return s;
}

// "[name]" -> name; nullopt for any other line.
std::optional<std::string_view> sectionName(std::string_view line)
{
    line = trim(line);
    if (line.empty() || line.front() != '[')
        return std::nullopt;
    line.remove_prefix(1);
    const size_t close = line.find(']');
    return trim(close == std::string_view::npos ? line : line.substr(0, close));
}

struct Entry {
    std::string_view key;
    std::string_view value;
};

std::optional<Entry> entryOf(std::string_view line)
{
    const std::string_view t = trim(line);
    if (t.empty() || t.front() == ';')
        return std::nullopt;
    const size_t eq = line.find('=');
    if (eq == std::string_view::npos)
        return std::nullopt;
    return Entry{trim(line.substr(0, eq)), trim(line.substr(eq + 1))};
}

} // namespace

std::string IniDocument::fold(std::string_view s)
{
    std::string out(s);
    for (char &c : out)
        c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    return out;
}

std::string IniDocument::entryKey(std::string_view section, std::string_view key)
{
    return fold(trim(section)) + '\n' + fold(trim(key));
}

namespace {

void AppendUtf8(std::string &out, std::uint32_t c)
{
    if (c < 0x80) {
        out += static_cast<char>(c);
    } else if (c < 0x800) {
        out += static_cast<char>(0xC0 | (c >> 6));
        out += static_cast<char>(0x80 | (c & 0x3F));
    } else if (c < 0x10000) {
        out += static_cast<char>(0xE0 | (c >> 12));
        out += static_cast<char>(0x80 | ((c >> 6) & 0x3F));
        out += static_cast<char>(0x80 | (c & 0x3F));
    } else {
        out += static_cast<char>(0xF0 | (c >> 18));
        out += static_cast<char>(0x80 | ((c >> 12) & 0x3F));
        out += static_cast<char>(0x80 | ((c >> 6) & 0x3F));
        out += static_cast<char>(0x80 | (c & 0x3F));
    }
}

// UTF-16 after its byte order mark, to UTF-8; a lone surrogate becomes U+FFFD.
std::string FromUtf16(std::string_view bytes, bool bigEndian)
{
    std::string out;
    out.reserve(bytes.size() / 2 + bytes.size() / 4);
    auto unit = [&](size_t i) {
        const auto a = static_cast<unsigned char>(bytes[i]);
        const auto b = static_cast<unsigned char>(bytes[i + 1]);
        return static_cast<std::uint32_t>(bigEndian ? (a << 8) | b : (b << 8) | a);
    };
    for (size_t i = 0; i + 1 < bytes.size(); i += 2) {
        std::uint32_t c = unit(i);
        if (c >= 0xD800 && c < 0xDC00 && i + 3 < bytes.size()) {
            const std::uint32_t low = unit(i + 2);
            if (low >= 0xDC00 && low < 0xE000) {
                c = 0x10000 + ((c - 0xD800) << 10) + (low - 0xDC00);
                i += 2;
            } else {
                c = 0xFFFD;
            }
        } else if (c >= 0xD800 && c < 0xE000) {
            c = 0xFFFD;
        }
        AppendUtf8(out, c);
    }
    return out;
}

std::string_view CutAtLineBreak(std::string_view s)
{
    return s.substr(0, std::min(s.find('\r'), s.find('\n')));
}

} // namespace

IniDocument::Line IniDocument::append(std::string_view text)
{
    const Line l{static_cast<std::uint32_t>(m_text.size()), static_cast<std::uint32_t>(text.size())};
    m_text.append(text);
    return l;
}

IniDocument IniDocument::parse(std::string_view bytes)
{
    IniDocument doc;
    auto starts = [&](std::string_view mark) { return bytes.substr(0, mark.size()) == mark; };
    if (starts("\xEF\xBB\xBF")) {
        doc.m_utf8Mark = true;
        doc.m_text.assign(bytes.substr(3));
    } else if (starts("\xFF\xFE") || starts("\xFE\xFF")) {
        doc.m_text = FromUtf16(bytes.substr(2), bytes[0] == '\xFE');
        // A second mark would read as the first one once written as UTF-8.
        if (std::string_view(doc.m_text).substr(0, 3) == "\xEF\xBB\xBF") {
            doc.m_utf8Mark = true;
            doc.m_text.erase(0, 3);
        }
    } else {
        doc.m_text.assign(bytes);
    }
    // Lines end in CR LF, LF or CR; a break at the very end starts no further line.
    const std::string_view text = doc.m_text;
    size_t start = 0;
    while (start < text.size()) {
        size_t end = text.find_first_of("\r\n", start);
        if (end == std::string_view::npos)
            end = text.size();
        doc.m_lines.push_back({static_cast<std::uint32_t>(start), static_cast<std::uint32_t>(end - start)});
        start = end + 1;
        if (end + 1 < text.size() && text[end] == '\r' && text[end + 1] == '\n')
            ++start;
    }
    doc.m_lines.shrink_to_fit();
    doc.reindex();
    return doc;
}

IniDocument IniDocument::load(const std::string &path)
{
    IniDocument doc;
    read(path, doc);
    return doc;
}

FileRead IniDocument::read(const std::string &path, IniDocument &doc)
{
    FileRead file = ReadWholeFile(path, kMaxFileBytes);
    doc = file.ok() ? parse(file.bytes) : IniDocument{};
    file.bytes = std::string();
    return file;
}

size_t IniDocument::memoryBytes() const
{
    size_t keys = 0;
    for (const auto &e : m_entryIndex)
        keys += sizeof(e) + e.first.capacity() + 2 * sizeof(void *);
    return m_text.capacity() + m_lines.capacity() * sizeof(Line) + m_sections.capacity() * sizeof(Section) + keys;
}

void IniDocument::reindex()
{
    m_sections.clear();
    m_sectionIndex.clear();
    m_entryIndex.clear();
    std::string current;
    bool inSection = false;
    for (size_t i = 0; i < m_lines.size(); ++i) {
        if (auto name = sectionName(line(i))) {
            current = fold(*name);
            inSection = true;
            m_sectionIndex.try_emplace(current, m_sections.size());
            m_sections.push_back({i});
            continue;
        }
        if (!inSection)
            continue;
        if (auto e = entryOf(line(i)))
            m_entryIndex.try_emplace(current + '\n' + fold(e->key), i);
    }
}

size_t IniDocument::sectionEnd(size_t sectionOrder) const
{
    return sectionOrder + 1 < m_sections.size() ? m_sections[sectionOrder + 1].header : m_lines.size();
}

std::optional<std::string> IniDocument::value(std::string_view section, std::string_view key) const
{
    auto it = m_entryIndex.find(entryKey(section, key));
    if (it == m_entryIndex.end())
        return std::nullopt;
    return std::string(entryOf(line(it->second))->value);
}

void IniDocument::set(std::string_view section, std::string_view key, std::string_view value)
{
    section = CutAtLineBreak(section);
    key = CutAtLineBreak(key);
    value = CutAtLineBreak(value);
    const std::string text = std::string(trim(key)) + "=" + std::string(value);
    auto it = m_entryIndex.find(entryKey(section, key));
    if (it != m_entryIndex.end()) {
        m_lines[it->second] = append(text);
        return;
    }
    auto sec = m_sectionIndex.find(fold(trim(section)));
    if (sec == m_sectionIndex.end()) {
        m_sectionIndex.emplace(fold(trim(section)), m_sections.size());
        m_sections.push_back({m_lines.size()});
        m_lines.push_back(append("[" + std::string(trim(section)) + "]"));
        m_entryIndex.emplace(entryKey(section, key), m_lines.size());
        m_lines.push_back(append(text));
        return;
    }
    // After the section's last non-blank line.
    size_t at = sectionEnd(sec->second);
    while (at > m_sections[sec->second].header + 1 && trim(line(at - 1)).empty())
        --at;
    const bool atEnd = at == m_lines.size();
    m_lines.insert(m_lines.begin() + static_cast<std::ptrdiff_t>(at), append(text));
    if (atEnd)
        m_entryIndex.emplace(entryKey(section, key), at);
    else
        reindex();
}

std::string IniDocument::serialize() const
{
    std::string out;
    size_t total = m_utf8Mark ? 3 : 0;
    for (const Line &l : m_lines)
        total += l.length + 2;
    out.reserve(total);
    if (m_utf8Mark)
        out += "\xEF\xBB\xBF";
    for (size_t i = 0; i < m_lines.size(); ++i) {
        out += line(i);
        out += "\r\n";
    }
    return out;
}

FileWrite IniDocument::save(const std::string &path) const
{
    return ReplaceFile(path, serialize());
}

} // namespace zrt
