#include "files/CsvFile.h"

#include "common/NumberText.h"
#include "common/RunTimeError.h"
#include "files/RtdFile.h"

#include <charconv>
#include <cmath>
#include <optional>
#include <system_error>

namespace zrt {
namespace {

bool isBlank(char c) { return c == ' ' || c == '\t'; }

std::string_view trimmed(std::string_view s, char separator)
{
    // A TAB separates fields in a TAB file, so there it is not a blank.
    auto blank = [separator](char c) { return c == ' ' || (c == '\t' && separator != '\t'); };
    while (!s.empty() && blank(s.front()))
        s.remove_prefix(1);
    while (!s.empty() && blank(s.back()))
        s.remove_suffix(1);
    return s;
}

// A field as a message shows it: quoted, and cut when long.
std::string shown(std::string_view field)
{
    if (field.size() > 20)
        return "\"" + std::string(field.substr(0, 17)) + "...\"";
    return "\"" + std::string(field) + "\"";
}

const char *columnName(size_t column) { return column == 0 ? "visual" : "audio"; }

struct Row {
    std::vector<std::string> fields;
    std::string problem; // empty when the line splits cleanly
};

// Splits one line at the separator; a field that starts with a double quote runs to the
// closing one, and "" inside it is a quote character.
Row splitLine(std::string_view line, char separator)
{
    Row row;
    size_t i = 0;
    while (true) {
        while (i < line.size() && line[i] != separator && isBlank(line[i]))
            ++i;
        std::string field;
        if (i < line.size() && line[i] == '"') {
            ++i;
            bool closed = false;
            while (i < line.size()) {
                if (line[i] == '"') {
                    if (i + 1 < line.size() && line[i + 1] == '"') {
                        field.push_back('"');
                        i += 2;
                        continue;
                    }
                    closed = true;
                    ++i;
                    break;
                }
                field.push_back(line[i++]);
            }
            if (!closed) {
                row.problem = "a quoted field is not closed";
                return row;
            }
            while (i < line.size() && line[i] != separator && isBlank(line[i]))
                ++i;
            if (i < line.size() && line[i] != separator) {
                row.problem = "text follows a quoted field";
                return row;
            }
        } else {
            const size_t end = line.find(separator, i);
            field = std::string(trimmed(line.substr(i, end == std::string_view::npos ? end : end - i), separator));
            i = end == std::string_view::npos ? line.size() : end;
        }
        row.fields.push_back(std::move(field));
        if (i >= line.size())
            break;
        ++i; // the separator
    }
    return row;
}

// True when the text is laid out as a number: [sign] digits [mark digits] [e [sign] digits],
// with at least one digit before the exponent. The mark is a full stop, or a comma if allowed.
bool looksNumeric(std::string_view s, bool commaMark)
{
    size_t i = 0;
    if (i < s.size() && (s[i] == '+' || s[i] == '-'))
        ++i;
    size_t digits = 0;
    while (i < s.size() && s[i] >= '0' && s[i] <= '9')
        ++i, ++digits;
    if (i < s.size() && (s[i] == '.' || (commaMark && s[i] == ','))) {
        ++i;
        while (i < s.size() && s[i] >= '0' && s[i] <= '9')
            ++i, ++digits;
    }
    if (digits == 0)
        return false;
    if (i < s.size() && (s[i] == 'e' || s[i] == 'E')) {
        ++i;
        if (i < s.size() && (s[i] == '+' || s[i] == '-'))
            ++i;
        size_t expDigits = 0;
        while (i < s.size() && s[i] >= '0' && s[i] <= '9')
            ++i, ++expDigits;
        if (expDigits == 0)
            return false;
    }
    return i == s.size();
}

// A field that could be meant as a value rather than a column title.
bool valueLike(std::string_view s)
{
    if (s.empty())
        return false;
    if ((s[0] >= '0' && s[0] <= '9') || s[0] == '+' || s[0] == '-' || s[0] == '.' || s[0] == ',')
        return true;
    // What a program writes for a value that is not a number.
    std::string lower;
    for (char c : s)
        lower.push_back(static_cast<char>(c >= 'A' && c <= 'Z' ? c - 'A' + 'a' : c));
    return lower == "nan" || lower == "inf" || lower == "infinity";
}

// The item text of one value, or the problem with it.
std::optional<std::string> readValue(std::string_view field, char separator, size_t column, std::string &problem)
{
    // Only a bad value pays for its message.
    auto where = [column] { return std::string(" in the ") + columnName(column) + " column"; };
    if (field.empty()) {
        problem = "no value" + where();
        return std::nullopt;
    }
    const bool commaMark = separator != ',';
    if (!looksNumeric(field, commaMark)) {
        if (!commaMark && looksNumeric(field, true))
            problem = shown(field) + where() + " has a decimal comma; in a file separated by commas use a full stop";
        else
            problem = shown(field) + where() + " is not a number";
        return std::nullopt;
    }
    std::string text(field);
    for (char &c : text)
        if (c == ',')
            c = '.';
    std::string_view digits = text;
    if (!digits.empty() && digits.front() == '+')
        digits.remove_prefix(1);
    double value = 0;
    const auto res = std::from_chars(digits.data(), digits.data() + digits.size(), value);
    if (res.ec == std::errc() && value < 0) {
        problem = shown(field) + where() + " is negative; a reaction time is above 0 seconds";
        return std::nullopt;
    }
    if (res.ec == std::errc() && value == 0) {
        problem = shown(field) + where() + " is 0; a reaction time is above 0 seconds";
        return std::nullopt;
    }
    if (res.ec != std::errc() || !std::isfinite(value) || value > kMaxImportSeconds) {
        problem = shown(field) + where() + " is out of range for a reaction time (above 0, at most " +
                  GeneralText(kMaxImportSeconds) + " seconds)";
        return std::nullopt;
    }
    return NormaliseItem(text);
}

char separatorOf(std::string_view text)
{
    if (text.find('\t') != std::string_view::npos)
        return '\t';
    if (text.find(';') != std::string_view::npos)
        return ';';
    return ',';
}

bool blankRow(std::string_view line, char separator)
{
    for (char c : line)
        if (!isBlank(c) && c != separator)
            return false;
    return true;
}

} // namespace

std::string BuildCsv(const CollectedLists &lists, bool paired)
{
    std::string out = paired ? "visual,audio\n" : "visual\n";
    out.reserve(out.size() + lists.visual.size() * (paired ? 16 : 8));
    auto checked = [](const std::string &item, size_t index) -> const std::string & {
        try {
            (void)CDbl(item);
        } catch (RunTimeError &e) {
            throw e.explain("Result " + std::to_string(index + 1) + " (" + shown(item) +
                            ") is not a number, so the results can't be exported.");
        }
        return item;
    };
    for (size_t i = 0; i < lists.visual.size(); ++i) {
        out += checked(lists.visual[i], i);
        if (paired) {
            if (i >= lists.audio.size())
                raise(ErrInvalidPropertyIndex);
            out += ',';
            out += checked(lists.audio[i], i);
        }
        out += '\n';
    }
    return out;
}

FileWrite WriteCsvFile(const std::string &path, const CollectedLists &lists, bool paired)
{
    return ReplaceFile(path, BuildCsv(lists, paired));
}

std::string CsvImport::report() const
{
    std::string out;
    for (const CsvProblem &p : problems) {
        if (p.line > 0)
            out += "Line " + std::to_string(p.line) + ": ";
        out += p.message + "\n";
    }
    if (unlistedProblems > 0)
        out += "... and " + std::to_string(unlistedProblems) + " more lines with problems.\n";
    return out;
}

CsvImport ParseCsv(std::string_view text)
{
    CsvImport result;
    auto problem = [&result](int line, std::string message) {
        if (result.problems.size() < kMaxListedProblems)
            result.problems.push_back({line, std::move(message)});
        else
            ++result.unlistedProblems;
    };

    if (text.substr(0, 2) == "\xFF\xFE" || text.substr(0, 2) == "\xFE\xFF") {
        problem(0, "The file is UTF-16 text; save it as UTF-8 CSV.");
        return result;
    }
    if (text.substr(0, 3) == "\xEF\xBB\xBF")
        text.remove_prefix(3);

    const char separator = separatorOf(text);
    size_t columns = 0; // set by the first row that is not blank
    bool first = true;
    size_t rows = 0;
    int lineNumber = 0;
    size_t pos = 0;
    while (pos < text.size()) {
        size_t end = text.find_first_of("\r\n", pos);
        if (end == std::string_view::npos)
            end = text.size();
        const std::string_view line = text.substr(pos, end - pos);
        pos = end;
        if (end < text.size()) {
            pos = end + 1;
            if (text[end] == '\r' && pos < text.size() && text[pos] == '\n')
                ++pos;
        }
        ++lineNumber;

        if (blankRow(line, separator))
            continue;
        const Row row = splitLine(line, separator);
        if (!row.problem.empty()) {
            problem(lineNumber, row.problem);
            first = false;
            continue;
        }
        if (first) {
            first = false;
            columns = row.fields.size();
            if (columns > 2) {
                problem(lineNumber, std::to_string(columns) +
                                        " columns; a file holds one column (visual times) or two (visual and "
                                        "audio times)");
                break; // every later row would only repeat it
            }
            bool header = true;
            for (const std::string &f : row.fields)
                header = header && !valueLike(f);
            if (header)
                continue;
        }
        if (row.fields.size() != columns) {
            problem(lineNumber, std::to_string(row.fields.size()) + (row.fields.size() == 1 ? " value" : " values") +
                                    " where the first row has " + std::to_string(columns));
            continue;
        }
        ++rows;
        std::string message;
        bool good = true;
        std::string values[2];
        for (size_t c = 0; c < columns && good; ++c) {
            const auto v = readValue(row.fields[c], separator, c, message);
            if (v)
                values[c] = *v;
            else
                good = false;
        }
        if (!good) {
            problem(lineNumber, message);
            continue;
        }
        if (result.ok() && rows <= static_cast<size_t>(kMaxSampleItems)) {
            result.lists.visual.push_back(std::move(values[0]));
            if (columns == 2)
                result.lists.audio.push_back(std::move(values[1]));
        }
    }

    if (result.ok() && rows == 0)
        problem(0, "The file holds no results.");
    if (rows > static_cast<size_t>(kMaxSampleItems))
        problem(0, "The file has " + std::to_string(rows) + " results; a sample holds at most " +
                       std::to_string(kMaxSampleItems) + ".");
    result.paired = columns == 2;
    if (!result.ok())
        result.lists = {};
    return result;
}

CsvImport ReadCsvFile(const std::string &path)
{
    const FileRead read = ReadWholeFile(path, kMaxCsvBytes);
    if (!read.ok()) {
        CsvImport result;
        result.problems.push_back({0, "The file can't be read: " + read.reason + "."});
        return result;
    }
    return ParseCsv(read.bytes);
}

} // namespace zrt
