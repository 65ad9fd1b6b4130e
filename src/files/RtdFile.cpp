#include "files/RtdFile.h"

#include "common/NumberText.h"
#include "common/RunTimeError.h"

namespace zrt {
namespace {

int intOf(const IniDocument &doc, const char *section, const char *key)
{
    const auto v = doc.value(section, key);
    return v ? static_cast<int>(LeadingInteger(*v)) : 0;
}

// Setting a list's ListIndex: -1 (none) to count - 1, anything else is a bad property index.
std::optional<int> listIndexFor(int value, int offset, int listCount)
{
    if (value == 0)
        return std::nullopt;
    const long long index = static_cast<long long>(value) - offset;
    if (index < -1 || index >= listCount)
        raise(ErrInvalidPropertyIndex);
    return static_cast<int>(index);
}

} // namespace

IniDocument BuildRtd(const CollectedLists &lists, const RtdSettings &settings)
{
    IniDocument doc;
    doc.set("RTDINFO", "Vanes", settings.vanesTitle);
    doc.set("RTDINFO", "Attempts", settings.attemptsTitle);
    doc.set("RTDINFO", "DataItems", std::to_string(lists.visual.size()));
    doc.set("RTDINFO", "Sample", settings.paired ? "1" : "0");
    for (size_t i = 0; i < lists.visual.size(); ++i) {
        std::string value = lists.visual[i];
        if (settings.paired) {
            if (i >= lists.audio.size())
                raise(ErrInvalidPropertyIndex);
            value += "," + lists.audio[i];
        }
        doc.set("DATA", "Data" + std::to_string(i + 1), value);
    }
    return doc;
}

std::string NormaliseItem(std::string_view value) { return GeneralText(Val(value)); }

RtdContent ReadRtd(const IniDocument &doc, int vanesItems, int attemptsItems)
{
    RtdContent c;
    c.sample = intOf(doc, "RTDINFO", "Sample");
    c.vanesListIndex = listIndexFor(intOf(doc, "RTDINFO", "Vanes"), 1, vanesItems);
    c.attemptsListIndex = listIndexFor(intOf(doc, "RTDINFO", "Attempts"), 4, attemptsItems);
    c.dataItems = toInt16(intOf(doc, "RTDINFO", "DataItems"));

    for (int i = 1; i <= c.dataItems; ++i) {
        // A buffer of 20 characters keeps at most 19 of a value.
        std::string value = doc.value("DATA", "Data" + std::to_string(i)).value_or("").substr(0, 19);
        if (c.sample == 1) {
            const size_t comma = value.find(',');
            if (comma == std::string::npos)
                continue;
            c.lists.visual.push_back(NormaliseItem(std::string_view(value).substr(0, comma)));
            c.lists.audio.push_back(NormaliseItem(std::string_view(value).substr(comma + 1)));
        } else {
            c.lists.visual.push_back(std::move(value));
        }
    }
    return c;
}

FileWrite WriteRtdFile(const std::string &path, const IniDocument &doc)
{
    return doc.save(path);
}

} // namespace zrt
