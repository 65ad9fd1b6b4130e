#pragma once
// An ini file held in memory with the profile functions' rules: section and key names compare
// without regard to case, blanks around names and values are ignored, the first match wins,
// a key is updated in place, a new key goes at the end of its section and a new section at the
// end of the file. Lines it does not change are kept byte for byte. Written with CR LF.
//
// Read as UTF-8 (a byte order mark is kept) or as UTF-16 with its byte order mark (written
// back as UTF-8); lines may end in CR LF, LF or CR alone. A file is parsed once and looked up
// by key from then on. Files above kMaxFileBytes are refused as too large: the settings file
// and a data file are a few kilobytes, and a class's largest sample well under a megabyte.

#include "files/FileAccess.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace zrt {

class IniDocument {
public:
    static constexpr std::uint64_t kMaxFileBytes = std::uint64_t(4) << 20;

    IniDocument() = default;
    static IniDocument parse(std::string_view bytes);
    // A file that is missing or can't be read gives an empty document.
    static IniDocument load(const std::string &path);
    // Reads and parses the file into doc (empty unless the read succeeds); the status tells
    // why a file was not read, and its bytes are not kept.
    static FileRead read(const std::string &path, IniDocument &doc);

    std::optional<std::string> value(std::string_view section, std::string_view key) const;
    // A line break can't be part of a name or a value: each is cut at its first CR or LF, so
    // a folder name with a break in it can't add keys of its own.
    void set(std::string_view section, std::string_view key, std::string_view value);

    std::string serialize() const;
    // Replaces the file as a whole (ReplaceFile): it is either the old file or the new one.
    FileWrite save(const std::string &path) const;

    size_t lineCount() const { return m_lines.size(); }
    // Bytes the document holds: its text and its line and key tables.
    size_t memoryBytes() const;

private:
    struct Section {
        size_t header; // line index of "[name]"
    };
    // A line is a piece of m_text; a changed line is appended to m_text and pointed at there.
    struct Line {
        std::uint32_t offset = 0;
        std::uint32_t length = 0;
    };
    std::string_view line(size_t i) const { return {m_text.data() + m_lines[i].offset, m_lines[i].length}; }
    Line append(std::string_view text);
    void reindex();
    size_t sectionEnd(size_t sectionOrder) const;
    static std::string fold(std::string_view s);
    static std::string entryKey(std::string_view section, std::string_view key);

    std::string m_text;
    bool m_utf8Mark = false; // the file began with a UTF-8 byte order mark
    std::vector<Line> m_lines;
    std::vector<Section> m_sections;                       // in file order
    std::unordered_map<std::string, size_t> m_sectionIndex; // folded name -> first section
    std::unordered_map<std::string, size_t> m_entryIndex;   // folded section + key -> line
};

} // namespace zrt
