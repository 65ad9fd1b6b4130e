#include "Report.h"

#include "common/RunTimeError.h"
#include "files/CsvFile.h"
#include "files/RtdFile.h"
#include "stats/Averages.h"
#include "stats/GroupedData.h"
#include "stats/Spearman.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <filesystem>
#include <fstream>
#include <ostream>
#include <sstream>

namespace zrt {
namespace {

std::string withoutLineEnd(std::string text)
{
    while (!text.empty() && (text.back() == '\n' || text.back() == '\r'))
        text.pop_back();
    return text;
}

void averagesSection(const CollectedLists &lists, const ReportOptions &o, AnalysisState &state, std::ostream &out)
{
    const AveragesInput in{lists, o.precision, o.sorted ? 1 : 0, o.audio ? 0 : 1};
    const AveragesAnswer a = Get_Averages(in, state);
    out << "t1\t" << withoutLineEnd(a.dataText) << '\n';
    if (a.outcome != AveragesAnswer::Outcome::Analysed)
        return;
    out << "l8\t" << withoutLineEnd(a.sampleSizeText) << '\n';
    for (size_t i = 0; i < a.summaryAnswers.size(); ++i)
        out << kCmd1Captions[i] << '\t' << a.summaryAnswers[i] << '\n';
    for (size_t i = 0; i < a.spreadAnswers.size(); ++i)
        out << kCmd2Captions[i] << '\t' << a.spreadAnswers[i] << '\n';
}

void groupsSection(const CollectedLists &lists, const ReportOptions &o, AnalysisState &state, std::ostream &out)
{
    const GroupedInput in{lists, o.sorted ? 1 : 0, o.audio ? 0 : 1};
    const GroupedAnswer a = Get_Grouped_Data(in, state);
    out << "t4\t" << withoutLineEnd(a.dataText) << '\n';
    if (!a.analysed)
        return;
    const ClassTable table = BuildClassTable(state.GroupedData);
    for (const ClassRow &row : table.rows)
        out << row.label << '\t' << row.frequency << '\t' << row.midpoint << '\t' << row.product << '\t'
            << row.cumulativeLabel << '\t' << row.cumulative << '\n';
    out << "Totals\t" << table.frequencyTotal << "\t\t" << table.productTotal << '\n';
    out << "Estimated Mean\t" << EstimatedMeanText(table) << '\n';
}

void compareSection(const CollectedLists &lists, AnalysisState &state, std::ostream &out)
{
    const CompareAnswer a = Get_Compare_Data(lists, state);
    out << "Text1\t" << withoutLineEnd(a.pairsText) << '\n';
    if (!a.analysed)
        return;
    for (const auto &row : a.table.rowTexts())
        out << row[0] << '\t' << row[1] << '\t' << row[2] << '\t' << row[3] << '\t' << row[4] << '\t' << row[5]
            << '\n';
    out << "ld\t" << a.table.squaredDifferencesText << '\n';
    out << "lbSR\t" << a.table.coefficientText << '\n';
}

// Runs one section; its lines up to a failure are kept, the rest of it is left out.
template <typename Body>
bool section(const char *title, std::ostream &out, std::ostream &err, Body body)
{
    out << '[' << title << "]\n";
    std::ostringstream lines;
    bool ok = true;
    try {
        body(lines);
    } catch (const RunTimeError &e) {
        err << e.message() << '\n';
        ok = false;
    }
    out << lines.str();
    return ok;
}

// --- the same answers as one JSON object, for teachers' own scripts

QJsonValue text(const std::string &s) { return QString::fromStdString(withoutLineEnd(s)); }

void averagesJson(const CollectedLists &lists, const ReportOptions &o, AnalysisState &state, QJsonObject &out)
{
    const AveragesInput in{lists, o.precision, o.sorted ? 1 : 0, o.audio ? 0 : 1};
    const AveragesAnswer a = Get_Averages(in, state);
    out.insert("t1", text(a.dataText));
    if (a.outcome != AveragesAnswer::Outcome::Analysed)
        return;
    out.insert("l8", text(a.sampleSizeText));
    QJsonObject answers;
    for (size_t i = 0; i < a.summaryAnswers.size(); ++i)
        answers.insert(kCmd1Captions[i], text(a.summaryAnswers[i]));
    for (size_t i = 0; i < a.spreadAnswers.size(); ++i)
        answers.insert(kCmd2Captions[i], text(a.spreadAnswers[i]));
    out.insert("answers", answers);
}

void groupsJson(const CollectedLists &lists, const ReportOptions &o, AnalysisState &state, QJsonObject &out)
{
    const GroupedInput in{lists, o.sorted ? 1 : 0, o.audio ? 0 : 1};
    const GroupedAnswer a = Get_Grouped_Data(in, state);
    out.insert("t4", text(a.dataText));
    if (!a.analysed)
        return;
    const ClassTable table = BuildClassTable(state.GroupedData);
    QJsonArray classes;
    for (const ClassRow &row : table.rows)
        classes.append(QJsonObject{{"class", text(row.label)},
                                   {"frequency", row.frequency},
                                   {"midpoint", row.midpoint},
                                   {"product", row.product},
                                   {"cumulativeClass", text(row.cumulativeLabel)},
                                   {"cumulative", row.cumulative}});
    out.insert("classes", classes);
    out.insert("frequencyTotal", table.frequencyTotal);
    out.insert("productTotal", table.productTotal);
    out.insert("Estimated Mean", text(EstimatedMeanText(table)));
}

void compareJson(const CollectedLists &lists, AnalysisState &state, QJsonObject &out)
{
    const CompareAnswer a = Get_Compare_Data(lists, state);
    out.insert("Text1", text(a.pairsText));
    if (!a.analysed)
        return;
    QJsonArray rows;
    for (const auto &row : a.table.rowTexts()) {
        QJsonArray cells;
        for (const std::string &cell : row)
            cells.append(text(cell));
        rows.append(cells);
    }
    out.insert("ranks", rows);
    out.insert("ld", text(a.table.squaredDifferencesText));
    out.insert("lbSR", text(a.table.coefficientText));
}

// One section of the object; a run-time failure keeps what came before it and adds "error".
template <typename Body>
bool jsonSection(const char *name, QJsonObject &whole, std::ostream &err, Body body)
{
    QJsonObject section;
    bool ok = true;
    try {
        body(section);
    } catch (const RunTimeError &e) {
        err << e.message() << '\n';
        section.insert("error", QString::fromStdString(e.message()));
        ok = false;
    }
    whole.insert(name, section);
    return ok;
}

const char *kUsage =
    "usage: zorvanes-report FILE.rtd [--precision 0|1|2] [--audio] [--sorted] [--format text|json] [--csv]\n";

} // namespace

bool WriteReport(const CollectedLists &lists, const ReportOptions &options, std::ostream &out, std::ostream &err)
{
    AnalysisState state;
    bool ok = section("Averages", out, err, [&](std::ostream &s) { averagesSection(lists, options, state, s); });
    ok &= section("Groups", out, err, [&](std::ostream &s) { groupsSection(lists, options, state, s); });
    ok &= section("Compare", out, err, [&](std::ostream &s) { compareSection(lists, state, s); });
    return ok;
}

bool WriteReportJson(const CollectedLists &lists, const ReportOptions &options, std::ostream &out,
                     std::ostream &err)
{
    AnalysisState state;
    QJsonObject whole;
    bool ok = jsonSection("Averages", whole, err, [&](QJsonObject &o) { averagesJson(lists, options, state, o); });
    ok &= jsonSection("Groups", whole, err, [&](QJsonObject &o) { groupsJson(lists, options, state, o); });
    ok &= jsonSection("Compare", whole, err, [&](QJsonObject &o) { compareJson(lists, state, o); });
    out << QJsonDocument(whole).toJson(QJsonDocument::Indented).toStdString();
    return ok;
}

int ReportMain(int argc, const char *const *argv, std::ostream &out, std::ostream &err)
{
    ReportOptions options;
    std::string file;
    bool csv = false;
    bool json = false;
    for (int i = 1; i < argc; ++i) {
        const std::string arg = argv[i];
        if (arg == "--audio") {
            options.audio = true;
        } else if (arg == "--sorted") {
            options.sorted = true;
        } else if (arg == "--csv") {
            csv = true;
        } else if (arg == "--format" && i + 1 < argc) {
            const std::string v = argv[++i];
            if (v != "text" && v != "json") {
                err << kUsage;
                return 1;
            }
            json = v == "json";
        } else if (arg == "--precision" && i + 1 < argc) {
            const std::string v = argv[++i];
            if (v != "0" && v != "1" && v != "2") {
                err << kUsage;
                return 1;
            }
            options.precision = v[0] - '0';
        } else if (arg.rfind("--", 0) != 0 && file.empty()) {
            file = arg;
        } else {
            err << kUsage;
            return 1;
        }
    }
    if (file.empty()) {
        err << kUsage;
        return 1;
    }

    // The program's own reader: ordinary files only, no larger than a data file can be.
    IniDocument doc;
    const FileRead read = IniDocument::read(file, doc);
    if (!read.ok()) {
        err << "zorvanes-report: cannot read " << file << ": " << read.reason << '\n';
        return 2;
    }
    RtdContent content;
    try {
        content = ReadRtd(doc);
    } catch (const RunTimeError &e) {
        err << "zorvanes-report: cannot open " << file << ": " << e.message() << '\n';
        return 2;
    }
    if (csv) {
        try {
            out << BuildCsv(content.lists, content.paired());
        } catch (const RunTimeError &e) {
            err << "zorvanes-report: cannot write " << file << " as CSV: " << e.message() << '\n';
            return 2;
        }
        return 0;
    }
    if (json)
        return WriteReportJson(content.lists, options, out, err) ? 0 : 3;
    return WriteReport(content.lists, options, out, err) ? 0 : 3;
}

} // namespace zrt
