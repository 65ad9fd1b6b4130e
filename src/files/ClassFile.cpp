#include "files/ClassFile.h"

#include "common/RunTimeError.h"
#include "files/CsvFile.h"
#include "files/IniDocument.h"
#include "files/RtdFile.h"

#include <algorithm>
#include <cctype>

namespace zrt {
namespace {

bool endsWithRtd(const std::string &path)
{
    if (path.size() < 4)
        return false;
    std::string tail = path.substr(path.size() - 4);
    std::transform(tail.begin(), tail.end(), tail.begin(), [](unsigned char c) { return std::tolower(c); });
    return tail == ".rtd";
}

} // namespace

LoadedSample LoadSampleFile(const std::string &path)
{
    LoadedSample sample;
    if (!endsWithRtd(path)) {
        CsvImport csv = ReadCsvFile(path);
        if (!csv.ok()) {
            sample.problem = csv.report();
            if (!sample.problem.empty() && sample.problem.back() == '\n')
                sample.problem.pop_back();
            return sample;
        }
        sample.lists = std::move(csv.lists);
        sample.paired = csv.paired;
        return sample;
    }
    IniDocument doc;
    const FileRead read = IniDocument::read(path, doc);
    if (!read.ok()) {
        sample.problem = "The file can't be read: " + read.reason + ".";
        return sample;
    }
    try {
        RtdContent content = ReadRtd(doc);
        sample.lists = std::move(content.lists);
        sample.paired = content.paired();
    } catch (const RunTimeError &e) {
        sample.problem = e.message();
        return sample;
    }
    if (sample.lists.visual.empty())
        sample.problem = "The file holds no results.";
    return sample;
}

AppendOutcome AppendSample(const CollectedLists &current, bool currentPaired, const LoadedSample &added)
{
    AppendOutcome out;
    out.lists = current;
    out.paired = currentPaired;
    if (!added.ok()) {
        out.message = added.problem;
        return out;
    }
    if (added.lists.visual.empty()) {
        out.message = "The file holds no results.";
        return out;
    }
    if (!current.visual.empty() && currentPaired != added.paired) {
        out.message = added.paired
                          ? "This file holds pairs of visual and audio times, but the collected sample holds "
                            "visual times only. Only a file of visual times can be added to it."
                          : "This file holds visual times only, but the collected sample holds pairs of visual "
                            "and audio times. Only a file of pairs can be added to it.";
        return out;
    }
    const size_t total = current.visual.size() + added.lists.visual.size();
    if (total > static_cast<size_t>(kMaxSampleItems)) {
        out.message = "Together the samples would hold " + std::to_string(total) +
                      " results; a sample holds at most " + std::to_string(kMaxSampleItems) + ".";
        return out;
    }
    out.paired = current.visual.empty() ? added.paired : currentPaired;
    out.lists.visual.insert(out.lists.visual.end(), added.lists.visual.begin(), added.lists.visual.end());
    if (out.paired)
        out.lists.audio.insert(out.lists.audio.end(), added.lists.audio.begin(), added.lists.audio.end());
    return out;
}

} // namespace zrt
