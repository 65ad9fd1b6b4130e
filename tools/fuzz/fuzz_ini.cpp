// One input through the ini reader as the program uses it: parsed as a data file (with the
// checks opening does), written back, read again, and a value stored into it. Besides "no
// crash", two rules hold: writing is stable (what was written reads back to the same bytes),
// and a stored value reads back as stored, cut at its first line break.

#include "common/RunTimeError.h"
#include "files/IniDocument.h"
#include "files/RtdFile.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

namespace {

std::string_view Trimmed(std::string_view s)
{
    auto blank = [](char c) { return c == ' ' || c == '\t'; };
    while (!s.empty() && blank(s.front()))
        s.remove_prefix(1);
    while (!s.empty() && blank(s.back()))
        s.remove_suffix(1);
    return s;
}

void Check(bool rule)
{
    if (!rule)
        std::abort();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const std::string_view bytes(reinterpret_cast<const char *>(data), size);
    zrt::IniDocument doc = zrt::IniDocument::parse(bytes);
    try {
        const zrt::RtdContent content = zrt::ReadRtd(doc);
        Check(content.lists.visual.size() <= static_cast<size_t>(content.dataItems < 0 ? 0 : content.dataItems));
    } catch (const zrt::RunTimeError &) {
        // a bad value: opening ends with its message
    }

    const std::string once = doc.serialize();
    Check(zrt::IniDocument::parse(once).serialize() == once);

    // The tail of the input as a folder name remembered in the settings.
    const std::string_view value = bytes.substr(bytes.size() / 2);
    doc.set("Settings", "LastSavedFolder", value);
    const std::string_view cut = value.substr(0, value.find_first_of("\r\n"));
    const auto back = doc.value("Settings", "LastSavedFolder");
    Check(back && *back == Trimmed(cut));
    const std::string twice = doc.serialize();
    Check(zrt::IniDocument::parse(twice).value("Settings", "LastSavedFolder") == back);
    return 0;
}
