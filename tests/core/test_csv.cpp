#include "common/NumberText.h"
#include "common/RunTimeError.h"
#include "files/ClassFile.h"
#include "files/CsvFile.h"
#include "files/IniDocument.h"
#include "files/RtdFile.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <random>
#include <sstream>

using namespace zrt;
namespace fs = std::filesystem;

namespace {

class Folder {
public:
    Folder()
    {
        std::random_device rd;
        m_path = fs::temp_directory_path() / ("zrt-csv-" + std::to_string(rd()));
        fs::create_directories(m_path);
    }
    ~Folder() { fs::remove_all(m_path); }
    std::string write(const std::string &name, const std::string &bytes) const
    {
        const std::string path = (m_path / name).string();
        std::ofstream(path, std::ios::binary) << bytes;
        return path;
    }
    std::string file(const std::string &name) const { return (m_path / name).string(); }

private:
    fs::path m_path;
};

std::string readBytes(const std::string &path)
{
    std::ifstream in(path, std::ios::binary);
    std::ostringstream s;
    s << in.rdbuf();
    return s.str();
}

std::string manyRows(int rows)
{
    std::string s = "visual\n";
    for (int i = 0; i < rows; ++i)
        s += "0." + std::to_string(10000 + i % 89999) + "\n";
    return s;
}

} // namespace

TEST(CsvExport, HeaderAndOneResultPerRow)
{
    CollectedLists lists{{"0.42113", "0.38771", "1.5E-05"}, {"0.61207", "0.55002", "0.5"}};
    EXPECT_EQ(BuildCsv(lists, false), "visual\n0.42113\n0.38771\n1.5E-05\n");
    EXPECT_EQ(BuildCsv(lists, true), "visual,audio\n0.42113,0.61207\n0.38771,0.55002\n1.5E-05,0.5\n");
    EXPECT_EQ(BuildCsv({}, false), "visual\n");

    // A pairs export with a short audio list is a bad index, as saving a data file is.
    CollectedLists shortAudio{{"0.4", "0.5"}, {"0.6"}};
    try {
        BuildCsv(shortAudio, true);
        FAIL() << "no failure";
    } catch (const RunTimeError &e) {
        EXPECT_EQ(e.number(), ErrInvalidPropertyIndex);
    }
    // An item that is no number (a Sample 0 file keeps its values as they stand) is named.
    try {
        BuildCsv(CollectedLists{{"0.4", "abc"}, {}}, false);
        FAIL() << "no failure";
    } catch (const RunTimeError &e) {
        EXPECT_EQ(e.number(), ErrTypeMismatch);
        EXPECT_EQ(e.plain(), "Result 2 (\"abc\") is not a number, so the results can't be exported.");
    }
}

TEST(CsvImport, ReadsEveryLayoutATeacherIsLikelyToHave)
{
    struct Case {
        const char *name;
        std::string text;
        std::vector<std::string> visual;
        std::vector<std::string> audio;
        bool paired;
    };
    const std::vector<Case> cases = {
        {"our own export", "visual,audio\n0.42113,0.61207\n0.38771,0.55002\n", {"0.42113", "0.38771"},
         {"0.61207", "0.55002"}, true},
        {"one column, no header", "0.4\n0.25\n", {"0.4", "0.25"}, {}, false},
        {"semicolon with decimal comma", "Visual;Audio\r\n0,42;0,61\r\n0,5;0.3\r\n", {"0.42", "0.5"}, {"0.61", "0.3"},
         true},
        {"TAB with decimal comma, CR line ends", "0,42\t0,61\r0,38\t0,55", {"0.42", "0.38"}, {"0.61", "0.55"}, true},
        {"normalised as a data file's values", "0.50000\n+.25\n2.5e-1\n", {"0.5", "0.25", "0.25"}, {}, false},
        {"byte order mark, blanks and blank lines", "\xEF\xBB\xBFvisual\n\n  0.3  \n\n , \n0.4\n\n", {"0.3", "0.4"},
         {}, false},
        {"quoted fields", "\"visual\",\"audio\"\n\"0.3\", \"0.4\"\n", {"0.3"}, {"0.4"}, true},
        {"quoted decimal comma in a semicolon file", "\"0,3\";\"0,4\"\n", {"0.3"}, {"0.4"}, true},
    };
    for (const Case &c : cases) {
        SCOPED_TRACE(c.name);
        const CsvImport r = ParseCsv(c.text);
        EXPECT_EQ(r.report(), "");
        EXPECT_EQ(r.lists.visual, c.visual);
        EXPECT_EQ(r.lists.audio, c.audio);
        EXPECT_EQ(r.paired, c.paired);
    }
}

TEST(CsvImport, HostileFilesImportNothingAndNameEachBadLine)
{
    struct Case {
        const char *name;
        std::string text;
        std::vector<CsvProblem> problems;
    };
    const std::vector<Case> cases = {
        {"empty file", "", {{0, "The file holds no results."}}},
        {"header only, with a byte order mark", "\xEF\xBB\xBFvisual,audio\r\n\r\n", {{0, "The file holds no results."}}},
        {"UTF-16", std::string("\xFF\xFE" "0\0.\0" "4\0", 8), {{0, "The file is UTF-16 text; save it as UTF-8 CSV."}}},
        {"1e308", "visual\n0.4\n1e308\n",
         {{3, "\"1e308\" in the visual column is out of range for a reaction time (above 0, at most 10 seconds)"}}},
        {"beyond a double", "0.4\n1e999\n",
         {{2, "\"1e999\" in the visual column is out of range for a reaction time (above 0, at most 10 seconds)"}}},
        {"NaN and infinity", "NaN\ninf\n0.3\n",
         {{1, "\"NaN\" in the visual column is not a number"}, {2, "\"inf\" in the visual column is not a number"}}},
        {"negative and zero", "0.3,-0.2\n0,0.3\n",
         {{1, "\"-0.2\" in the audio column is negative; a reaction time is above 0 seconds"},
          {2, "\"0\" in the visual column is 0; a reaction time is above 0 seconds"}}},
        {"decimal comma in a comma file", "visual\n\"0,3\"\n",
         {{2, "\"0,3\" in the visual column has a decimal comma; in a file separated by commas use a full stop"}}},
        {"unclosed quote and text after a quote", "0.3\n\"0.4\n\"0.5\"x\n",
         {{2, "a quoted field is not closed"}, {3, "text follows a quoted field"}}},
        {"wrong column counts", "visual,audio\n0.3,0.4\n0.5\n0.5,0.6,0.7\n0.5,\n",
         {{3, "1 value where the first row has 2"},
          {4, "3 values where the first row has 2"},
          {5, "no value in the audio column"}}},
        {"three columns", "a,b,c\n0.1,0.2,0.3\n",
         {{1, "3 columns; a file holds one column (visual times) or two (visual and audio times)"}}},
        {"words in the data", "visual\n0.3\nabsent\n0.34s\n",
         {{3, "\"absent\" in the visual column is not a number"}, {4, "\"0.34s\" in the visual column is not a number"}}},
        {"a long bad field is cut", "0.3\n12345678901234567890123x\n",
         {{2, "\"12345678901234567...\" in the visual column is not a number"}}},
    };
    for (const Case &c : cases) {
        SCOPED_TRACE(c.name);
        const CsvImport r = ParseCsv(c.text);
        EXPECT_EQ(r.problems, c.problems);
        EXPECT_FALSE(r.ok());
        EXPECT_TRUE(r.lists.visual.empty());
        EXPECT_TRUE(r.lists.audio.empty());
    }
}

TEST(CsvImport, SizeLimitsAndTheProblemList)
{
    // The largest sample a data file can count is taken whole; one more is refused.
    const CsvImport largest = ParseCsv(manyRows(kMaxSampleItems));
    EXPECT_TRUE(largest.ok()) << largest.report();
    EXPECT_EQ(largest.lists.visual.size(), static_cast<size_t>(kMaxSampleItems));

    const CsvImport huge = ParseCsv(manyRows(100000));
    ASSERT_EQ(huge.problems.size(), 1u);
    EXPECT_EQ(huge.problems[0], (CsvProblem{0, "The file has 100000 results; a sample holds at most 32767."}));
    EXPECT_TRUE(huge.lists.visual.empty());

    // Many bad lines: the first ones listed, the rest counted, all in the report.
    std::string bad = "0.3\n";
    for (int i = 0; i < 25; ++i)
        bad += "x\n";
    const CsvImport many = ParseCsv(bad);
    EXPECT_EQ(many.problems.size(), kMaxListedProblems);
    EXPECT_EQ(many.unlistedProblems, 25 - kMaxListedProblems);
    EXPECT_EQ(many.problems.front().line, 2);
    const std::string report = many.report();
    EXPECT_EQ(report.rfind("Line 2: \"x\" in the visual column is not a number\nLine 3: ", 0), 0u);
    EXPECT_NE(report.find("... and 5 more lines with problems.\n"), std::string::npos);
}

TEST(CsvImport, FilesOnDisk)
{
    Folder dir;
    const CsvImport good = ReadCsvFile(dir.write("class.csv", "0.3;0,4\n"));
    EXPECT_TRUE(good.ok());
    EXPECT_EQ(good.lists.audio, std::vector<std::string>{"0.4"});

    const CsvImport missing = ReadCsvFile(dir.file("none.csv"));
    ASSERT_EQ(missing.problems.size(), 1u);
    EXPECT_EQ(missing.problems[0].line, 0);
    EXPECT_EQ(missing.problems[0].message.rfind("The file can't be read: ", 0), 0u);

    const CsvImport folder = ReadCsvFile(dir.file(""));
    EXPECT_FALSE(folder.ok());

    const CollectedLists lists{{"0.42113", "0.38771"}, {"0.61207", "0.55002"}};
    ASSERT_TRUE(WriteCsvFile(dir.file("out.csv"), lists, true));
    EXPECT_EQ(readBytes(dir.file("out.csv")), BuildCsv(lists, true));
}

TEST(CsvRoundTrip, ListsToCsvAndBack)
{
    // Item texts as the Add buttons make them: RoundToPlaces(x, 5) in general form.
    std::mt19937 random(16);
    std::uniform_int_distribution<int> hundredThousandths(1, 170000);
    CollectedLists lists;
    for (int i = 0; i < 500; ++i) {
        lists.visual.push_back(GeneralText(hundredThousandths(random) / 100000.0));
        lists.audio.push_back(GeneralText(hundredThousandths(random) / 100000.0));
    }
    lists.visual.push_back("1.5E-05"); // the general form turns scientific below 1E-04
    lists.audio.push_back("1.7");

    const CsvImport pairs = ParseCsv(BuildCsv(lists, true));
    ASSERT_TRUE(pairs.ok()) << pairs.report();
    EXPECT_TRUE(pairs.paired);
    EXPECT_EQ(pairs.lists.visual, lists.visual);
    EXPECT_EQ(pairs.lists.audio, lists.audio);

    const CsvImport visual = ParseCsv(BuildCsv(lists, false));
    ASSERT_TRUE(visual.ok()) << visual.report();
    EXPECT_FALSE(visual.paired);
    EXPECT_EQ(visual.lists.visual, lists.visual);
    EXPECT_TRUE(visual.lists.audio.empty());
}

TEST(CsvRoundTrip, DataFileToCsvToDataFileIsByteEqual)
{
    const std::string pairsFile = "[RTDINFO]\r\nVanes=3\r\nAttempts=4\r\nDataItems=3\r\nSample=1\r\n[DATA]\r\n"
                                  "Data1=0.42113,0.61207\r\nData2=0.38771,0.55002\r\nData3=1.2,0.9\r\n";
    const std::string visualFile = "[RTDINFO]\r\nVanes=5\r\nAttempts=10\r\nDataItems=2\r\nSample=0\r\n[DATA]\r\n"
                                   "Data1=0.42113\r\nData2=0.38771\r\n";
    for (const std::string &file : {pairsFile, visualFile}) {
        const RtdContent read = ReadRtd(IniDocument::parse(file));
        const CsvImport back = ParseCsv(BuildCsv(read.lists, read.paired()));
        ASSERT_TRUE(back.ok()) << back.report();
        EXPECT_EQ(back.paired, read.paired());
        const RtdSettings settings{file.find("Vanes=3") != std::string::npos ? "3" : "5",
                                   file.find("Attempts=4") != std::string::npos ? "4" : "10", back.paired};
        EXPECT_EQ(BuildRtd(back.lists, settings).serialize(), file);
    }
}

TEST(ClassFile, AppendsAnotherPupilsFileOfTheSameKind)
{
    Folder dir;
    const std::string pupilPairs = dir.write(
        "pupil.rtd", "[RTDINFO]\r\nVanes=3\r\nAttempts=4\r\nDataItems=2\r\nSample=1\r\n[DATA]\r\n"
                     "Data1=0.40000,0.6\r\nData2=0.38,0.55\r\n");
    const std::string pupilVisual =
        dir.write("other.RTD", "[RTDINFO]\r\nDataItems=1\r\nSample=0\r\n[DATA]\r\nData1=0.31\r\n");
    const std::string pupilCsv = dir.write("third.csv", "visual;audio\n0,29;0,41\n");

    const CollectedLists pairs{{"0.3"}, {"0.5"}};
    const AppendOutcome joined = AppendSample(pairs, true, LoadSampleFile(pupilPairs));
    ASSERT_TRUE(joined.ok()) << joined.message;
    EXPECT_TRUE(joined.paired);
    EXPECT_EQ(joined.lists.visual, (std::vector<std::string>{"0.3", "0.4", "0.38"}));
    EXPECT_EQ(joined.lists.audio, (std::vector<std::string>{"0.5", "0.6", "0.55"}));

    const AppendOutcome withCsv = AppendSample(joined.lists, true, LoadSampleFile(pupilCsv));
    ASSERT_TRUE(withCsv.ok()) << withCsv.message;
    EXPECT_EQ(withCsv.lists.visual.back(), "0.29");
    EXPECT_EQ(withCsv.lists.audio.back(), "0.41");

    const AppendOutcome visual = AppendSample({{"0.3"}, {}}, false, LoadSampleFile(pupilVisual));
    ASSERT_TRUE(visual.ok()) << visual.message;
    EXPECT_EQ(visual.lists.visual, (std::vector<std::string>{"0.3", "0.31"}));
    EXPECT_TRUE(visual.lists.audio.empty());

    // An empty sample takes the first file's kind.
    const AppendOutcome first = AppendSample({}, false, LoadSampleFile(pupilPairs));
    ASSERT_TRUE(first.ok());
    EXPECT_TRUE(first.paired);
    EXPECT_EQ(first.lists.audio.size(), 2u);
}

TEST(ClassFile, RefusesAFileOfTheOtherKindOrOneThatCannotBeRead)
{
    Folder dir;
    const LoadedSample pairs = LoadSampleFile(dir.write(
        "pairs.rtd", "[RTDINFO]\r\nDataItems=1\r\nSample=1\r\n[DATA]\r\nData1=0.4,0.6\r\n"));
    const LoadedSample visual =
        LoadSampleFile(dir.write("visual.rtd", "[RTDINFO]\r\nDataItems=1\r\nSample=0\r\n[DATA]\r\nData1=0.4\r\n"));
    const CollectedLists current{{"0.3", "0.35"}, {"0.5", "0.55"}};

    const AppendOutcome pairsOnVisual = AppendSample({current.visual, {}}, false, pairs);
    EXPECT_EQ(pairsOnVisual.message, "This file holds pairs of visual and audio times, but the collected sample "
                                     "holds visual times only. Only a file of visual times can be added to it.");
    EXPECT_EQ(pairsOnVisual.lists.visual, current.visual);
    EXPECT_TRUE(pairsOnVisual.lists.audio.empty());
    EXPECT_FALSE(pairsOnVisual.paired);

    const AppendOutcome visualOnPairs = AppendSample(current, true, visual);
    EXPECT_EQ(visualOnPairs.message, "This file holds visual times only, but the collected sample holds pairs of "
                                     "visual and audio times. Only a file of pairs can be added to it.");
    EXPECT_EQ(visualOnPairs.lists.visual, current.visual);
    EXPECT_EQ(visualOnPairs.lists.audio, current.audio);

    const AppendOutcome badCsv = AppendSample(current, true, LoadSampleFile(dir.write("bad.csv", "0.3,0.4\n-1,2\n")));
    EXPECT_EQ(badCsv.message, "Line 2: \"-1\" in the visual column is negative; a reaction time is above 0 seconds");
    EXPECT_EQ(badCsv.lists.visual, current.visual);

    EXPECT_EQ(AppendSample(current, true, LoadSampleFile(dir.write("empty.rtd", "junk"))).message,
              "The file holds no results.");
    EXPECT_EQ(AppendSample(current, true, LoadSampleFile(dir.write("vanes.rtd", "[RTDINFO]\r\nVanes=9\r\n"))).message,
              RunTimeError(ErrInvalidPropertyIndex).message());
    EXPECT_FALSE(LoadSampleFile(dir.file("missing.rtd")).ok());

    // Two samples that would be too large together.
    LoadedSample big;
    big.lists.visual.assign(kMaxSampleItems, "0.3");
    EXPECT_EQ(AppendSample({{"0.3"}, {}}, false, big).message,
              "Together the samples would hold 32768 results; a sample holds at most 32767.");
}

// Whatever the bytes, the import either gives a whole sample of valid times or nothing and at
// least one problem; lines named are lines of the file.
TEST(CsvImport, ArbitraryBytesGiveAWholeSampleOrNothing)
{
    std::mt19937 random(1616);
    const std::string alphabet = "0123456789.,;\t\"\r\n -+eE xNa\xEF\xBB\xBF";
    std::uniform_int_distribution<size_t> pick(0, alphabet.size() - 1), length(0, 80);
    std::uniform_int_distribution<int> byte(0, 255), coin(0, 3);
    int wholeSamples = 0;
    for (int round = 0; round < 3000; ++round) {
        std::string text;
        const size_t n = length(random);
        for (size_t i = 0; i < n; ++i)
            text.push_back(coin(random) == 0 ? static_cast<char>(byte(random)) : alphabet[pick(random)]);
        if (round % 3 == 0)
            text = "visual,audio\n0.3,0.4\n" + text; // a good start, so that some files are whole
        const CsvImport r = ParseCsv(text);
        const int lines = static_cast<int>(std::count(text.begin(), text.end(), '\n') +
                                           std::count(text.begin(), text.end(), '\r')) + 1;
        if (r.ok()) {
            ++wholeSamples;
            ASSERT_FALSE(r.lists.visual.empty()) << text;
            if (r.paired)
                ASSERT_EQ(r.lists.audio.size(), r.lists.visual.size()) << text;
            else
                ASSERT_TRUE(r.lists.audio.empty()) << text;
            for (const auto *list : {&r.lists.visual, &r.lists.audio})
                for (const std::string &item : *list) {
                    const double v = CDbl(item);
                    ASSERT_GT(v, 0) << text;
                    ASSERT_LE(v, kMaxImportSeconds) << text;
                    ASSERT_EQ(NormaliseItem(item), item) << text;
                }
        } else {
            ASSERT_TRUE(r.lists.visual.empty() && r.lists.audio.empty()) << text;
            for (const CsvProblem &p : r.problems) {
                ASSERT_GE(p.line, 0);
                ASSERT_LE(p.line, lines) << text;
                ASSERT_FALSE(p.message.empty());
            }
        }
    }
    EXPECT_GT(wholeSamples, 15); // the property was checked on whole samples too
}
