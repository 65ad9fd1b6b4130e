#include "files/IniDocument.h"

#include <cctype>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <random>
#include <sstream>

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

IniDocument IniDocument::parse(std::string_view bytes)
{
    IniDocument doc;
    size_t start = 0;
    while (start < bytes.size()) {
        size_t end = bytes.find('\n', start);
        if (end == std::string_view::npos)
            end = bytes.size();
        std::string_view line = bytes.substr(start, end - start);
        if (!line.empty() && line.back() == '\r')
            line.remove_suffix(1);
        doc.m_lines.emplace_back(line);
        start = end + 1;
    }
    doc.reindex();
    return doc;
}

IniDocument IniDocument::load(const std::string &path)
{
    std::ifstream in(std::filesystem::u8path(path), std::ios::binary);
    if (!in)
        return {};
    std::ostringstream buffer;
    buffer << in.rdbuf();
    return parse(buffer.str());
}

void IniDocument::reindex()
{
    m_sections.clear();
    m_sectionIndex.clear();
    m_entryIndex.clear();
    std::string current;
    bool inSection = false;
    for (size_t i = 0; i < m_lines.size(); ++i) {
        if (auto name = sectionName(m_lines[i])) {
            current = fold(*name);
            inSection = true;
            m_sectionIndex.try_emplace(current, m_sections.size());
            m_sections.push_back({i});
            continue;
        }
        if (!inSection)
            continue;
        if (auto e = entryOf(m_lines[i]))
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
    return std::string(entryOf(m_lines[it->second])->value);
}

void IniDocument::set(std::string_view section, std::string_view key, std::string_view value)
{
    const std::string line = std::string(trim(key)) + "=" + std::string(value);
    auto it = m_entryIndex.find(entryKey(section, key));
    if (it != m_entryIndex.end()) {
        m_lines[it->second] = line;
        return;
    }
    auto sec = m_sectionIndex.find(fold(trim(section)));
    if (sec == m_sectionIndex.end()) {
        m_sectionIndex.emplace(fold(trim(section)), m_sections.size());
        m_sections.push_back({m_lines.size()});
        m_lines.push_back("[" + std::string(trim(section)) + "]");
        m_entryIndex.emplace(entryKey(section, key), m_lines.size());
        m_lines.push_back(line);
        return;
    }
    // After the section's last non-blank line.
    size_t at = sectionEnd(sec->second);
    while (at > m_sections[sec->second].header + 1 && trim(m_lines[at - 1]).empty())
        --at;
    const bool atEnd = at == m_lines.size();
    m_lines.insert(m_lines.begin() + static_cast<std::ptrdiff_t>(at), line);
    if (atEnd)
        m_entryIndex.emplace(entryKey(section, key), at);
    else
        reindex();
}

std::string IniDocument::serialize() const
{
    std::string out;
    size_t total = 0;
    for (const auto &l : m_lines)
        total += l.size() + 2;
    out.reserve(total);
    for (const auto &l : m_lines) {
        out += l;
        out += "\r\n";
    }
    return out;
}

bool IniDocument::save(const std::string &path) const
{
    namespace fs = std::filesystem;
    const fs::path target = fs::u8path(path);
    std::random_device rd;
    fs::path temp = target;
    temp += ".tmp" + std::to_string(rd() % 1000000);
    {
        std::ofstream out(temp, std::ios::binary | std::ios::trunc);
        if (!out)
            return false;
        const std::string bytes = serialize();
        out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
        out.flush();
        if (!out) {
            out.close();
            std::error_code ignored;
            fs::remove(temp, ignored);
            return false;
        }
    }
    std::error_code ec;
    fs::rename(temp, target, ec);
    if (ec) {
        std::error_code ignored;
        fs::remove(temp, ignored);
        return false;
    }
    return true;
}

} // namespace zrt
