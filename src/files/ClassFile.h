#pragma once
// A class sample built from each pupil's file: another data file (.rtd) or CSV file is added
// to the end of the collected lists. A file of pairs only joins a sample of pairs, and a file of
// visual times only a sample of visual times, since the lists must stay in step.

#include "stats/AnalysisState.h"

#include <string>

namespace zrt {

struct LoadedSample {
    CollectedLists lists;
    bool paired = false;  // Sample 1, or two CSV columns
    std::string problem;  // why nothing was loaded; empty when ok
    bool ok() const { return problem.empty(); }
};

// A name ending in ".rtd" (any case) is read as a data file, as Open reads it; anything else
// as CSV (ReadCsvFile).
LoadedSample LoadSampleFile(const std::string &path);

struct AppendOutcome {
    CollectedLists lists; // the current lists followed by the added ones; the current ones if refused
    bool paired = false;  // what Check4 is to show
    std::string message;  // why the file was refused; empty when ok
    bool ok() const { return message.empty(); }
};

// An empty current sample takes the added file's kind.
AppendOutcome AppendSample(const CollectedLists &current, bool currentPaired, const LoadedSample &added);

} // namespace zrt
