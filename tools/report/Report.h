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

// The same answers as one JSON object: "Averages", "Groups" and "Compare", each with the keys
// the text names its lines by; a section that failed holds what came before the failure and
// "error" with the message, which also goes to err.
bool WriteReportJson(const CollectedLists &lists, const ReportOptions &options, std::ostream &out,
                     std::ostream &err);

// The whole command line: exit 0, 1 for a usage error, 2 for a file that can't be read (or,
// with --csv, can't be written as CSV), 3 when a section failed. --csv prints the data as the
// CSV export writes it; --format json prints WriteReportJson.
int ReportMain(int argc, const char *const *argv, std::ostream &out, std::ostream &err);

} // namespace zrt
