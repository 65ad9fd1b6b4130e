#pragma once
// An ini file held in memory with the profile functions' rules: section and key names compare
// without regard to case, blanks around names and values are ignored, the first match wins,
// a key is updated in place, a new key goes at the end of its section and a new section at the
// end of the file. Lines it does not change are kept byte for byte. Written with CR LF.

#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace zrt {

class IniDocument {
public:
    IniDocument() = default;
    static IniDocument parse(std::string_view bytes);
    // A file that is missing or can't be read gives an empty document.
    static IniDocument load(const std::string &path);

    std::optional<std::string> value(std::string_view section, std::string_view key) const;
    void set(std::string_view section, std::string_view key, std::string_view value);

    std::string serialize() const;
    // Writes a temporary file beside the target and renames it over, so that a reader never
    // sees half a file. Returns false when the file can't be written.
    bool save(const std::string &path) const;

    size_t lineCount() const { return m_lines.size(); }

private:
    struct Section {
        size_t header; // line index of "[name]"
    };
    void reindex();
    size_t sectionEnd(size_t sectionOrder) const;
    static std::string fold(std::string_view s);
    static std::string entryKey(std::string_view section, std::string_view key);

    std::vector<std::string> m_lines;
    std::vector<Section> m_sections;                       // in file order
    std::unordered_map<std::string, size_t> m_sectionIndex; // folded name -> first section
    std::unordered_map<std::string, size_t> m_entryIndex;   // folded section + key -> line
};

} // namespace zrt
