#pragma once
// The collected results as comma-separated text, for spreadsheets and teachers' own scripts.
//
// Written: UTF-8, a header row "visual,audio" (pairs) or "visual", then one result per row in
// seconds with a full stop, each item's text as the lists hold it, lines ending in LF.
//
// Read: one column (visual) or two (visual, audio), with or without a header row; the
// separator is a TAB when the file has one, else a semicolon when it has one, else a comma.
// Where the separator is not a comma a decimal comma is taken as well as a full stop. Fields
// may be quoted. A byte order mark, blanks around fields, blank lines and CR LF, LF or CR line
// ends are all accepted. Each value must be a number above 0 and at most kMaxImportSeconds;
// it is then normalised as a value of a pairs data file is (NormaliseItem). A file with any
// bad row gives no results at all, only the list of problems with their line numbers.

#include "files/FileAccess.h"
#include "stats/AnalysisState.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace zrt {

inline constexpr const char *kCsvFilter = "Comma-separated values (*.csv)";
inline constexpr const char *kCsvExportTitle = " Export the Reaction Times as:";
inline constexpr const char *kCsvImportTitle = " Select Reaction Times to import:";
inline constexpr const char *kClassFileTitle = " Select a pupil's file to add to the class:";
inline constexpr const char *kClassFileFilter = "Reaction Time Data or CSV (*.rtd *.csv)";
// A data file counts its results in 16 bits, so a sample larger than this could not be saved.
inline constexpr int kMaxSampleItems = 32767;
// Longer than any reaction: a run fails above 1.7 seconds.
inline constexpr double kMaxImportSeconds = 10.0;
inline constexpr std::uint64_t kMaxCsvBytes = std::uint64_t(4) << 20;
// Problems listed one by one; the rest are only counted.
inline constexpr size_t kMaxListedProblems = 20;

// The text the export writes. With paired an audio list shorter than the visual one is a bad
// index (run-time error 381); an item that is not a number is a type mismatch (13), which
// names the result, since a spreadsheet could not read it back.
std::string BuildCsv(const CollectedLists &lists, bool paired);
// Replaces the file as a whole: it is either the old file or the new one.
FileWrite WriteCsvFile(const std::string &path, const CollectedLists &lists, bool paired);

struct CsvProblem {
    int line = 0; // 1-based; 0 for the file as a whole
    std::string message;
    bool operator==(const CsvProblem &) const = default;
};

struct CsvImport {
    CollectedLists lists; // empty unless ok()
    bool paired = false;  // two columns: the audio times in step with the visual ones
    std::vector<CsvProblem> problems;
    size_t unlistedProblems = 0; // bad lines beyond kMaxListedProblems
    bool ok() const { return problems.empty(); }
    // The problems one per line, "Line 4: ...", for a message box.
    std::string report() const;
};

CsvImport ParseCsv(std::string_view bytes);
// An ordinary file of at most kMaxCsvBytes; anything else is a problem of line 0.
CsvImport ReadCsvFile(const std::string &path);

} // namespace zrt
