#pragma once
// Reaction time data files (.rtd): an ini file with the sections "RTDINFO" and "DATA".

#include "files/IniDocument.h"
#include "stats/AnalysisState.h"

#include <optional>
#include <string>
#include <string_view>

namespace zrt {

inline constexpr const char *kRtdFilter = "Reaction Time Data (*.rtd)";
inline constexpr const char *kRtdSaveTitle = " Save the Reation Time Data as:";
inline constexpr const char *kRtdOpenTitle = " Select Reation Time Data to open:";

struct RtdSettings {
    std::string vanesTitle;    // the number of characters as its list shows it, e.g. "3"
    std::string attemptsTitle; // the number of attempts, e.g. "4"
    bool paired = true;        // pairs of visual and audio times
};

// The document that saving writes, keys in their order. When paired every item is written as
// "visual,audio"; an audio list shorter than the visual one is a bad index (run-time error 381).
IniDocument BuildRtd(const CollectedLists &lists, const RtdSettings &settings);

// What opening a file sets. Everything is read and checked before the window changes, so that
// a bad value leaves the collected data as it was.
struct RtdContent {
    int sample = 0;                      // "Sample"; 1 means pairs
    std::optional<int> vanesListIndex;   // index in the list of character counts to set; none when "Vanes" is 0
    std::optional<int> attemptsListIndex;
    short dataItems = 0;
    CollectedLists lists;
    bool paired() const { return sample == 1; }
};

// What reading does to a value of a pairs file, and to every imported value: the numeric parse
// and back to the general text form, so "0.50000" becomes "0.5".
std::string NormaliseItem(std::string_view value);

// vanesItems and attemptsItems are the numbers of choices in the character list (5) and the attempts list (7): an index outside
// them is run-time error 381; a "DataItems" beyond 16 bits is an overflow (6).
RtdContent ReadRtd(const IniDocument &doc, int vanesItems = 5, int attemptsItems = 7);

// The document is the whole file, so no old key survives; the file is replaced in one step,
// and on failure the old one stays as it was.
FileWrite WriteRtdFile(const std::string &path, const IniDocument &doc);

} // namespace zrt
