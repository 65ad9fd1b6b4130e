#pragma once
// The answer key of a data file, section by section, exactly as the pages would reveal it.

#include "stats/AnalysisState.h"

#include <iosfwd>
#include <string>

namespace zrt {

struct ReportOptions {
    int precision = 0;  // cl3.ListIndex
    bool audio = false; // analyse CL4 (Check5(0) unchecked)
    bool sorted = false; // Check1 and Check2 at 1
};

// Writes the three sections to out; a run-time failure in a section goes to err as
// "Run-time error 'N': text" and ends that section only. Returns true when no section failed.
bool WriteReport(const CollectedLists &lists, const ReportOptions &options, std::ostream &out, std::ostream &err);

// The whole command line: exit 0, 1 for a usage error, 2 for a file that can't be read,
// 3 when a section failed.
int ReportMain(int argc, const char *const *argv, std::ostream &out, std::ostream &err);

} // namespace zrt
