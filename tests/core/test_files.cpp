#include "common/RunTimeError.h"
#include "files/IniDocument.h"
#include "files/REGbas1.h"
#include "files/RtdFile.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <random>
#include <sstream>

using namespace zrt;
namespace fs = std::filesystem;

namespace {

class TempDir {
public:
    TempDir()
    {
        std::random_device rd;
        m_path = fs::temp_directory_path() / ("zrt-test-" + std::to_string(rd()));
        fs::create_directories(m_path);
    }
    ~TempDir() { fs::remove_all(m_path); }
    std::string file(const std::string &name) const { return (m_path / name).string(); }
    const fs::path &path() const { return m_path; }

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

void writeBytes(const std::string &path, const std::string &bytes)
{
    std::ofstream out(path, std::ios::binary);
    out << bytes;
}

int errorOf(const std::function<void()> &f)
{
    try {
        f();
    } catch (const RunTimeError &e) {
        return e.number();
    }
    return 0;
}

const char *kExample = "[RTDINFO]\r\nVanes=3\r\nAttempts=4\r\nDataItems=2\r\nSample=1\r\n"
                       "[DATA]\r\nData1=0.42113,0.61207\r\nData2=0.38771,0.55002\r\n";

} // namespace

TEST(IniDocument, LooksUpWithoutRegardToCaseOrBlanks)
{
    const auto doc = IniDocument::parse("[Settings]\n  LastSavedFolder =  /home/pupil  \r\nEmpty=\n"
                                        "; comment=1\n[other]\nkey=2\n[SETTINGS]\nlate=3\n");
    EXPECT_EQ(doc.value("settings", "lastsavedfolder"), "/home/pupil");
    EXPECT_EQ(doc.value("Settings", "Empty"), "");
    EXPECT_EQ(doc.value("Settings", "Missing"), std::nullopt);
    EXPECT_EQ(doc.value("Settings", "; comment"), std::nullopt);
    EXPECT_EQ(doc.value("OTHER", "KEY"), "2");
    EXPECT_EQ(doc.value("Nowhere", "key"), std::nullopt);
}

TEST(IniDocument, UpdatesInPlaceAndAppendsWhereTheProfileFunctionsDo)
{
    auto doc = IniDocument::parse("; kept as it is\r\n[A]\r\nx=1\r\ny = 2\r\n\r\n[B]\r\nz=3\r\n");
    doc.set("a", "Y", "20");  // in place
    doc.set("A", "w", "4");   // end of its section, before the blank line
    doc.set("C", "v", "5");   // new section at the end
    doc.set("B", "u", "6");   // end of B, which is no longer last
    EXPECT_EQ(doc.serialize(),
              "; kept as it is\r\n[A]\r\nx=1\r\nY=20\r\nw=4\r\n\r\n[B]\r\nz=3\r\nu=6\r\n[C]\r\nv=5\r\n");
    EXPECT_EQ(doc.value("A", "w"), "4");
    EXPECT_EQ(doc.value("c", "V"), "5");
}

TEST(IniDocument, ReadsJunkWithoutFailing)
{
    std::string junk;
    std::mt19937 rng(7);
    for (int i = 0; i < 200000; ++i)
        junk.push_back(static_cast<char>(rng()));
    junk += "\n[RTDINFO]\nDataItems=\xff\xfe";
    const auto doc = IniDocument::parse(junk);
    EXPECT_EQ(doc.value("RTDINFO", "DataItems"), "\xff\xfe");
    EXPECT_EQ(IniDocument::parse("").lineCount(), 0u);
    EXPECT_EQ(IniDocument::parse("[").value("", "x"), std::nullopt);
}

TEST(REGbas1, ProfileRoutinesOnARealFile)
{
    TempDir dir;
    const std::string ini = dir.file("Zorvanes.ini");
    EXPECT_FALSE(REGbas1::FileExists(ini));
    EXPECT_FALSE(REGbas1::FileExists(""));
    ASSERT_TRUE(REGbas1::CreateEmptyFile(ini));
    EXPECT_TRUE(REGbas1::FileExists(ini));
    EXPECT_TRUE(REGbas1::FileExists(dir.path().string())) << "anything that is there counts";

    EXPECT_EQ(REGbas1::ReadIniString("Settings", "LastSavedFolder", "", 255, ini), "");
    EXPECT_EQ(REGbas1::ReadIniString("Settings", "Missing", "fallback", 5, ini), "fall");
    EXPECT_EQ(REGbas1::WriteIniString("Settings", "LastSavedFolder", "/tmp/class 7b", ini), "1");
    EXPECT_EQ(REGbas1::WriteIniString("Settings", "DisableSound", "1.5", ini), "1");
    EXPECT_EQ(REGbas1::ReadIniString("settings", "lastsavedfolder", "", 255, ini), "/tmp/class 7b");
    EXPECT_EQ(REGbas1::ReadIniString("Settings", "LastSavedFolder", "", 5, ini), "/tmp");
    EXPECT_EQ(REGbas1::ReadIniInt("Settings", "DisableSound", ini), 1);
    EXPECT_EQ(REGbas1::ReadIniInt("Settings", "LastSavedFolder", ini), 0);
    EXPECT_EQ(REGbas1::ReadIniInt("Settings", "Missing", ini), 0);
    EXPECT_EQ(readBytes(ini), "[Settings]\r\nLastSavedFolder=/tmp/class 7b\r\nDisableSound=1.5\r\n");

    // No temporary file is left beside the target.
    int files = 0;
    for ([[maybe_unused]] const auto &e : fs::directory_iterator(dir.path()))
        ++files;
    EXPECT_EQ(files, 1);

    EXPECT_EQ(REGbas1::WriteIniString("S", "k", "v", dir.file("missing-folder/x.ini")), "0");
    EXPECT_EQ(REGbas1::GetFolderOfPath("C:\\Data\\run.rtd"), "C:\\Data");
    EXPECT_EQ(REGbas1::GetFolderOfPath("/home/pupil/run.rtd"), "/home/pupil");
    EXPECT_EQ(REGbas1::GetFolderOfPath("run.rtd"), "");
}

TEST(RtdFile, WritesTheExampleByteForByte)
{
    TempDir dir;
    const std::string path = dir.file("sample.rtd");
    writeBytes(path, "[OLD]\r\nstale=1\r\n");
    CollectedLists lists{{"0.42113", "0.38771"}, {"0.61207", "0.55002"}};
    ASSERT_TRUE(WriteRtdFile(path, BuildRtd(lists, {"3", "4", true})));
    EXPECT_EQ(readBytes(path), kExample);

    const auto visualOnly = BuildRtd(lists, {"1", "10", false}).serialize();
    EXPECT_NE(visualOnly.find("Sample=0\r\n[DATA]\r\nData1=0.42113\r\nData2=0.38771\r\n"), std::string::npos);

    CollectedLists unpaired{{"0.4", "0.5"}, {"0.6"}};
    EXPECT_EQ(errorOf([&] { BuildRtd(unpaired, {"3", "4", true}); }), ErrInvalidPropertyIndex);
}

TEST(RtdFile, ReadsBackWhatWasWritten)
{
    const auto c = ReadRtd(IniDocument::parse(kExample));
    EXPECT_TRUE(c.check4());
    EXPECT_EQ(c.vanesListIndex, 2);
    EXPECT_EQ(c.attemptsListIndex, 0);
    EXPECT_EQ(c.lists.cl2, (std::vector<std::string>{"0.42113", "0.38771"}));
    EXPECT_EQ(c.lists.CL4, (std::vector<std::string>{"0.61207", "0.55002"}));
}

TEST(RtdFile, ReaderRulesForValues)
{
    // Sample 1: values are normalised, a line without a comma is dropped, 19 characters survive.
    const auto pairs = ReadRtd(IniDocument::parse("[RTDINFO]\nSample=1\nDataItems=4\n[DATA]\n"
                                                  "Data1=0.50000,0.1\nData2=0.7\nData3= 1 ,x\n"
                                                  "Data4=0.123456789,0.987654321\n"));
    EXPECT_EQ(pairs.lists.cl2, (std::vector<std::string>{"0.5", "1", "0.123456789"}));
    EXPECT_EQ(pairs.lists.CL4, (std::vector<std::string>{"0.1", "0", "0.98765"}));

    // Sample 0: values go as they stand, comma and emptiness included; DataItems is trusted.
    const auto single = ReadRtd(IniDocument::parse("[RTDINFO]\r\nSample=0\r\nDataItems=4\r\n[DATA]\r\n"
                                                   "Data1=0.1,0.2\r\nData2=0.30000\r\nData3=\r\n"));
    EXPECT_EQ(single.lists.cl2, (std::vector<std::string>{"0.1,0.2", "0.30000", "", ""}));
    EXPECT_TRUE(single.lists.CL4.empty());
    EXPECT_FALSE(single.check4());

    const auto fewer = ReadRtd(IniDocument::parse("[RTDINFO]\nSample=1\nDataItems=1\n[DATA]\n"
                                                  "Data1=0.1,0.2\nData2=0.3,0.4\n"));
    EXPECT_EQ(fewer.lists.cl2.size(), 1u);
}

TEST(RtdFile, SettingsAndTheirFailures)
{
    auto read = [](const std::string &info) { return ReadRtd(IniDocument::parse("[RTDINFO]\n" + info)); };
    EXPECT_EQ(read("Vanes=0\nAttempts=0").vanesListIndex, std::nullopt);
    EXPECT_EQ(read("Attempts=0").attemptsListIndex, std::nullopt);
    EXPECT_EQ(read("Vanes=5\nAttempts=10").vanesListIndex, 4);
    EXPECT_EQ(read("Vanes=5\nAttempts=10").attemptsListIndex, 6);
    EXPECT_EQ(read("Attempts=3").attemptsListIndex, -1) << "-1 is a valid 'nothing selected'";
    EXPECT_EQ(errorOf([&] { read("Vanes=9"); }), ErrInvalidPropertyIndex);
    EXPECT_EQ(errorOf([&] { read("Vanes=-2"); }), ErrInvalidPropertyIndex);
    EXPECT_EQ(errorOf([&] { read("Attempts=11"); }), ErrInvalidPropertyIndex);
    EXPECT_EQ(errorOf([&] { read("DataItems=99999"); }), ErrOverflow);
    EXPECT_EQ(read("DataItems=-4").lists.cl2.size(), 0u);
    EXPECT_EQ(read("DataItems=abc").lists.cl2.size(), 0u);
}

TEST(RtdFile, AnyFileOfAnotherKindIsAnEmptySample)
{
    std::string junk(50u << 20, '\0');
    std::mt19937 rng(11);
    for (auto &c : junk)
        c = static_cast<char>(rng() & 0xff);
    const auto c = ReadRtd(IniDocument::parse(junk));
    EXPECT_TRUE(c.lists.cl2.empty());
    EXPECT_EQ(c.dataItems, 0);

    // Many keys over few lines is a long sample of empty items, found quickly.
    const auto big = ReadRtd(IniDocument::parse("[RTDINFO]\nDataItems=32000\n[DATA]\nData1=0.2\n"));
    EXPECT_EQ(big.lists.cl2.size(), 32000u);
    EXPECT_EQ(big.lists.cl2[0], "0.2");
}
