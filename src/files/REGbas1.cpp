#include "files/REGbas1.h"

#include "common/NumberText.h"
#include "files/IniDocument.h"

#include <filesystem>
#include <fstream>

namespace REGbas1 {

bool FileExists(const std::string &path)
{
    if (path.empty())
        return false;
    std::error_code ec;
    const auto st = std::filesystem::status(std::filesystem::u8path(path), ec);
    if (st.type() == std::filesystem::file_type::not_found)
        return false;
    return !(ec && (ec == std::errc::no_such_file_or_directory || ec == std::errc::not_a_directory));
}

std::string GetFolderOfPath(const std::string &path)
{
    const size_t at = path.find_last_of("\\/");
    return at == std::string::npos ? std::string() : path.substr(0, at);
}

int ReadIniInt(const std::string &section, const std::string &key, const std::string &file)
{
    const auto value = zrt::IniDocument::load(file).value(section, key);
    return value ? static_cast<int>(zrt::LeadingInteger(*value)) : 0;
}

std::string ReadIniString(const std::string &section, const std::string &key, const std::string &defaultValue,
                          short size, const std::string &file)
{
    if (size <= 0)
        return {};
    const auto value = zrt::IniDocument::load(file).value(section, key);
    const std::string &text = value ? *value : defaultValue;
    return text.substr(0, static_cast<size_t>(size - 1));
}

zrt::FileWrite WriteIniValue(const std::string &section, const std::string &key, const std::string &value,
                             const std::string &file)
{
    zrt::IniDocument doc;
    const zrt::FileRead read = zrt::IniDocument::read(file, doc);
    if (!read.ok() && read.status != zrt::ReadStatus::Missing)
        return {false, read.reason};
    doc.set(section, key, value);
    return doc.save(file);
}

std::string WriteIniString(const std::string &section, const std::string &key, const std::string &value,
                           const std::string &file)
{
    return WriteIniValue(section, key, value, file) ? "1" : "0";
}

bool CreateEmptyFile(const std::string &path)
{
    std::ofstream out(std::filesystem::u8path(path), std::ios::binary | std::ios::trunc);
    return static_cast<bool>(out);
}

} // namespace REGbas1
