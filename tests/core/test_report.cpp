#include "Report.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <random>
#include <sstream>

using namespace zrt;
namespace fs = std::filesystem;

namespace {

struct ReportRun {
    int exitCode;
    std::string out;
    std::string err;
};

ReportRun report(const std::string &fileText, std::vector<std::string> args = {})
{
    std::random_device rd;
    const fs::path path = fs::temp_directory_path() / ("zrt-report-" + std::to_string(rd()) + ".rtd");
    {
        std::ofstream f(path, std::ios::binary);
        f << fileText;
    }
    std::vector<std::string> argv{"zorvanes-report", path.string()};
    argv.insert(argv.end(), args.begin(), args.end());
    std::vector<const char *> raw;
    for (auto &a : argv)
        raw.push_back(a.c_str());
    std::ostringstream out, err;
    const int code = ReportMain(static_cast<int>(raw.size()), raw.data(), out, err);
    fs::remove(path);
    return {code, out.str(), err.str()};
}

std::string pairsFile(const std::vector<std::pair<std::string, std::string>> &pairs)
{
    std::string s = "[RTDINFO]\r\nVanes=3\r\nAttempts=4\r\nDataItems=" + std::to_string(pairs.size()) +
                    "\r\nSample=1\r\n[DATA]\r\n";
    for (size_t i = 0; i < pairs.size(); ++i)
        s += "Data" + std::to_string(i + 1) + "=" + pairs[i].first + "," + pairs[i].second + "\r\n";
    return s;
}

} // namespace

TEST(Report, WholeAnswerKeyOfThreePairs)
{
    const ReportRun r = report(pairsFile({{"0.27", "0.35"}, {"0.23", "0.31"}, {"0.31", "0.30"}}));
    EXPECT_EQ(r.exitCode, 0);
    EXPECT_EQ(r.err, "");
    EXPECT_EQ(r.out, "[Averages]\n"
                     "t1\t27, 23, 31, \n"
                     "l8\tSample Size (n) = 3\n"
                     "lowest Value\t23\n"
                     "Highest Value\t31\n"
                     "Range\t8\n"
                     "Mean\t27\n"
                     "Mode\tN/A\n"
                     "Median\t27\n"
                     "lower Quartile Q1\t23\n"
                     "Upper Quartile Q3\t31\n"
                     "Interquartile Range\t8\n"
                     "Lower Outlier Calculation:\t11\n"
                     "Upper Outlier Calculation:\t43\n"
                     "Variance:\t10.66667\n"
                     "Standard Deviation:\t3.26599\n"
                     "[Groups]\n"
                     "t4\t27, 23, 31, \n"
                     "20<t<30\t2\t25\t50\t20<t<30\t2\n"
                     "30<t<40\t1\t35\t35\t20<t<40\t3\n"
                     "Totals\t3\t\t85\n"
                     "Estimated Mean\tEstimated Mean = 28.33 to 2 d.p.\n"
                     "[Compare]\n"
                     "Text1\t(27,35), (23,31), (31,30), \n"
                     "23\t1\t31\t2\t-1\t1\n"
                     "27\t2\t35\t3\t-1\t1\n"
                     "31\t3\t30\t1\t2\t4\n"
                     "ld\t6\n"
                     "lbSR\t= -0.5\n");
}

TEST(Report, OptionsChooseListPrecisionAndOrder)
{
    const std::string file = pairsFile({{"0.27", "0.355"}, {"0.23", "0.3125"}, {"0.31", "0.30"}});
    const ReportRun audio = report(file, {"--audio", "--precision", "2", "--sorted"});
    EXPECT_EQ(audio.exitCode, 0);
    EXPECT_NE(audio.out.find("t1\t3000, 3125, 3550, \n"), std::string::npos) << audio.out;
    EXPECT_NE(audio.out.find("t4\t30, 31, 36, \n"), std::string::npos) << "Groups stay at hundredths";
    EXPECT_NE(audio.out.find("Text1\t(27,36), (23,31), (31,30), \n"), std::string::npos)
        << "Compare ignores the options";
}

TEST(Report, SmallSamplesShowOnlyTheMessages)
{
    const ReportRun r = report(pairsFile({{"0.5", "0.6"}}));
    EXPECT_EQ(r.out, "[Averages]\n"
                     "t1\tYou need at least 3 recorded reation times to do this analysis.\n"
                     "[Groups]\n"
                     "t4\t50, \n"
                     "50<t<60\t1\t55\t55\t50<t<60\t1\n"
                     "Totals\t1\t\t55\n"
                     "Estimated Mean\tEstimated Mean = 55 to 2 d.p.\n"
                     "[Compare]\n");
    EXPECT_EQ(r.err, "Run-time error '6': Overflow\n") << "one pair leaves Spearman dividing 0 by 0";
    EXPECT_EQ(r.exitCode, 3);

    const ReportRun empty = report("not an rtd file at all\n");
    EXPECT_EQ(empty.exitCode, 0);
    EXPECT_EQ(empty.out, "[Averages]\n"
                         "t1\tYou currently have no recorded reaction times to analyse!\n"
                         "[Groups]\n"
                         "t4\tYou currently have no recorded reaction times to analyse!\n"
                         "[Compare]\n"
                         "Text1\tYou currently have no recorded reaction times to analyse!\n");
}

TEST(Report, FailuresEndOnlyTheirSection)
{
    // A Sample 0 file with an empty value: the conversion fails in every section.
    const ReportRun r = report("[RTDINFO]\nSample=0\nDataItems=4\n[DATA]\nData1=0.2\nData2=0.3\nData3=0.4\n");
    EXPECT_EQ(r.exitCode, 3);
    EXPECT_EQ(r.out, "[Averages]\n[Groups]\n[Compare]\n");
    EXPECT_EQ(r.err, "Run-time error '13': Type mismatch\n"
                     "Run-time error '13': Type mismatch\n"
                     "Run-time error '13': Type mismatch\n");
}

TEST(Report, UnreadableFilesAndBadArguments)
{
    std::ostringstream out, err;
    const char *missing[] = {"zorvanes-report", "/nonexistent/folder/x.rtd"};
    EXPECT_EQ(ReportMain(2, missing, out, err), 2);
    EXPECT_EQ(out.str(), "");
    const std::string message = err.str();
    EXPECT_EQ(std::count(message.begin(), message.end(), '\n'), 1);

    const ReportRun vanes = report("[RTDINFO]\nVanes=9\n");
    EXPECT_EQ(vanes.exitCode, 2);
    EXPECT_NE(vanes.err.find("Run-time error '381': Invalid property array index"), std::string::npos);

    const char *badPrecision[] = {"zorvanes-report", "x.rtd", "--precision", "7"};
    EXPECT_EQ(ReportMain(4, badPrecision, out, err), 1);
    const char *noFile[] = {"zorvanes-report"};
    EXPECT_EQ(ReportMain(1, noFile, out, err), 1);
}

TEST(Report, CsvPrintsTheDataAsTheExportWritesIt)
{
    const ReportRun pairs = report(pairsFile({{"0.27", "0.35"}, {"0.23000", "0.31"}}), {"--csv"});
    EXPECT_EQ(pairs.exitCode, 0);
    EXPECT_EQ(pairs.err, "");
    EXPECT_EQ(pairs.out, "visual,audio\n0.27,0.35\n0.23,0.31\n"); // pairs are normalised on reading

    const ReportRun visual = report("[RTDINFO]\r\nDataItems=2\r\nSample=0\r\n[DATA]\r\nData1=0.4\r\nData2=0.25\r\n",
                                    {"--csv", "--precision", "1"});
    EXPECT_EQ(visual.exitCode, 0);
    EXPECT_EQ(visual.out, "visual\n0.4\n0.25\n");

    // A Sample 0 value that is no number can't become CSV: nothing is printed.
    const ReportRun bad = report("[RTDINFO]\r\nDataItems=2\r\nSample=0\r\n[DATA]\r\nData1=0.4\r\nData2=x\r\n", {"--csv"});
    EXPECT_EQ(bad.exitCode, 2);
    EXPECT_EQ(bad.out, "");
    EXPECT_NE(bad.err.find("Result 2 (\"x\") is not a number"), std::string::npos) << bad.err;
}

TEST(Report, JsonHoldsTheSameAnswersAsTheText)
{
    const std::string file = pairsFile({{"0.27", "0.35"}, {"0.23", "0.31"}, {"0.31", "0.30"}, {"0.42", "0.5"}});
    const ReportRun textRun = report(file, {"--precision", "1"});
    const ReportRun explicitText = report(file, {"--precision", "1", "--format", "text"});
    EXPECT_EQ(explicitText.out, textRun.out);
    const ReportRun jsonRun = report(file, {"--format", "json", "--precision", "1"});
    ASSERT_EQ(jsonRun.exitCode, 0);
    EXPECT_EQ(jsonRun.err, "");

    QJsonParseError parseError;
    const QJsonDocument doc = QJsonDocument::fromJson(QByteArray::fromStdString(jsonRun.out), &parseError);
    ASSERT_EQ(parseError.error, QJsonParseError::NoError) << jsonRun.out;
    ASSERT_TRUE(doc.isObject());
    const QJsonObject averages = doc["Averages"].toObject();
    const QJsonObject groups = doc["Groups"].toObject();
    const QJsonObject compare = doc["Compare"].toObject();

    // Every line of the text is in the object under its name.
    std::istringstream lines(textRun.out);
    std::string line, sectionName;
    int classRows = 0, rankRows = 0, checked = 0;
    while (std::getline(lines, line)) {
        if (line.front() == '[') {
            sectionName = line;
            continue;
        }
        const size_t tab = line.find('\t');
        const QString key = QString::fromStdString(line.substr(0, tab));
        const QString rest = QString::fromStdString(line.substr(tab + 1));
        if (sectionName == "[Averages]") {
            const QJsonValue v = averages.contains(key) ? averages[key] : averages["answers"].toObject()[key];
            EXPECT_EQ(v.toString(), rest) << line;
            ++checked;
        } else if (sectionName == "[Groups]") {
            if (key == "t4" || key == "Estimated Mean") {
                EXPECT_EQ(groups[key].toString(), rest);
            } else if (key == "Totals") {
                EXPECT_EQ(rest, QString::number(groups["frequencyTotal"].toInt()) + "\t\t" +
                                    QString::number(groups["productTotal"].toInt()));
            } else {
                const QJsonObject row = groups["classes"].toArray()[classRows++].toObject();
                EXPECT_EQ(key, row["class"].toString());
                EXPECT_EQ(rest, QStringList({QString::number(row["frequency"].toInt()),
                                             QString::number(row["midpoint"].toInt()),
                                             QString::number(row["product"].toInt()), row["cumulativeClass"].toString(),
                                             QString::number(row["cumulative"].toInt())})
                                    .join('\t'));
            }
            ++checked;
        } else if (sectionName == "[Compare]") {
            if (compare.contains(key)) {
                EXPECT_EQ(compare[key].toString(), rest);
            } else {
                QStringList cells;
                for (const QJsonValue &c : compare["ranks"].toArray()[rankRows++].toArray())
                    cells << c.toString();
                EXPECT_EQ(key + '\t' + rest, cells.join('\t'));
            }
            ++checked;
        }
    }
    EXPECT_EQ(classRows, groups["classes"].toArray().size());
    EXPECT_EQ(rankRows, compare["ranks"].toArray().size());
    EXPECT_GT(rankRows, 0);
    EXPECT_EQ(checked, 2 + 13 + 1 + classRows + 2 + 1 + rankRows + 2);
}

TEST(Report, JsonKeepsWhatCameBeforeAFailureAndNamesIt)
{
    const ReportRun r = report(pairsFile({{"0.5", "0.6"}}), {"--format", "json"});
    EXPECT_EQ(r.exitCode, 3);
    EXPECT_EQ(r.err, "Run-time error '6': Overflow\n");
    const QJsonObject doc = QJsonDocument::fromJson(QByteArray::fromStdString(r.out)).object();
    EXPECT_EQ(doc["Compare"].toObject()["error"].toString(), "Run-time error '6': Overflow");
    EXPECT_FALSE(doc["Groups"].toObject().contains("error"));
    EXPECT_EQ(doc["Groups"].toObject()["frequencyTotal"].toInt(), 1);

    std::ostringstream out, err;
    const char *badFormat[] = {"zorvanes-report", "x.rtd", "--format", "xml"};
    EXPECT_EQ(ReportMain(4, badFormat, out, err), 1);
    EXPECT_NE(err.str().find("--format text|json"), std::string::npos);
}
