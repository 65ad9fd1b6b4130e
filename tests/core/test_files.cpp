#include "common/RunTimeError.h"
#include "files/IniDocument.h"
#include "files/REGbas1.h"
#include "files/RtdFile.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <future>
#include <random>
#include <sstream>
#include <thread>

#if defined(__unix__)
#include <csignal>
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>
#endif

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
    EXPECT_TRUE(c.paired());
    EXPECT_EQ(c.vanesListIndex, 2);
    EXPECT_EQ(c.attemptsListIndex, 0);
    EXPECT_EQ(c.lists.visual, (std::vector<std::string>{"0.42113", "0.38771"}));
    EXPECT_EQ(c.lists.audio, (std::vector<std::string>{"0.61207", "0.55002"}));
}

TEST(RtdFile, ReaderRulesForValues)
{
    // Sample 1: values are normalised, a line without a comma is dropped, 19 characters survive.
    const auto pairs = ReadRtd(IniDocument::parse("[RTDINFO]\nSample=1\nDataItems=4\n[DATA]\n"
                                                  "Data1=0.50000,0.1\nData2=0.7\nData3= 1 ,x\n"
                                                  "Data4=0.123456789,0.987654321\n"));
    EXPECT_EQ(pairs.lists.visual, (std::vector<std::string>{"0.5", "1", "0.123456789"}));
    EXPECT_EQ(pairs.lists.audio, (std::vector<std::string>{"0.1", "0", "0.98765"}));

    // Sample 0: values go as they stand, comma and emptiness included; DataItems is trusted.
    const auto single = ReadRtd(IniDocument::parse("[RTDINFO]\r\nSample=0\r\nDataItems=4\r\n[DATA]\r\n"
                                                   "Data1=0.1,0.2\r\nData2=0.30000\r\nData3=\r\n"));
    EXPECT_EQ(single.lists.visual, (std::vector<std::string>{"0.1,0.2", "0.30000", "", ""}));
    EXPECT_TRUE(single.lists.audio.empty());
    EXPECT_FALSE(single.paired());

    const auto fewer = ReadRtd(IniDocument::parse("[RTDINFO]\nSample=1\nDataItems=1\n[DATA]\n"
                                                  "Data1=0.1,0.2\nData2=0.3,0.4\n"));
    EXPECT_EQ(fewer.lists.visual.size(), 1u);
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
    EXPECT_EQ(read("DataItems=-4").lists.visual.size(), 0u);
    EXPECT_EQ(read("DataItems=abc").lists.visual.size(), 0u);
}

TEST(RtdFile, AnyFileOfAnotherKindIsAnEmptySample)
{
    std::string junk(50u << 20, '\0');
    std::mt19937 rng(11);
    for (auto &c : junk)
        c = static_cast<char>(rng() & 0xff);
    const auto c = ReadRtd(IniDocument::parse(junk));
    EXPECT_TRUE(c.lists.visual.empty());
    EXPECT_EQ(c.dataItems, 0);

    // Many keys over few lines is a long sample of empty items, found quickly.
    const auto big = ReadRtd(IniDocument::parse("[RTDINFO]\nDataItems=32000\n[DATA]\nData1=0.2\n"));
    EXPECT_EQ(big.lists.visual.size(), 32000u);
    EXPECT_EQ(big.lists.visual[0], "0.2");
}

// ---- reading what the settings file may really hold -----------------------------------------

TEST(IniDocument, ReadsUtf8Utf16AndEveryLineEnd)
{
    auto utf16 = [](const std::u16string &text, bool big) {
        std::string out = big ? "\xFE\xFF" : "\xFF\xFE";
        for (char16_t c : text) {
            const char hi = static_cast<char>(c >> 8), lo = static_cast<char>(c & 0xFF);
            out += big ? hi : lo;
            out += big ? lo : hi;
        }
        return out;
    };
    const std::u16string text = u"[Settings]\r\nLastSavedFolder=/home/p\u00e9\U0001F600\r\nDisableSound=1\r\n";
    for (bool big : {false, true}) {
        const auto doc = IniDocument::parse(utf16(text, big));
        EXPECT_EQ(doc.value("Settings", "LastSavedFolder"), "/home/p\xC3\xA9\xF0\x9F\x98\x80") << big;
        EXPECT_EQ(doc.value("Settings", "DisableSound"), "1") << big;
        // Written back as UTF-8 with CR LF.
        EXPECT_EQ(doc.serialize(),
                  "[Settings]\r\nLastSavedFolder=/home/p\xC3\xA9\xF0\x9F\x98\x80\r\nDisableSound=1\r\n");
    }
    const auto marked = IniDocument::parse("\xEF\xBB\xBF[Settings]\nDisableSound=2\n");
    EXPECT_EQ(marked.value("Settings", "DisableSound"), "2");
    EXPECT_EQ(marked.serialize(), "\xEF\xBB\xBF[Settings]\r\nDisableSound=2\r\n") << "the mark is kept";

    const auto crOnly = IniDocument::parse("[Settings]\rSOUND1=/a.wav\rDisableSound=1\r");
    EXPECT_EQ(crOnly.value("Settings", "SOUND1"), "/a.wav");
    EXPECT_EQ(crOnly.value("Settings", "DisableSound"), "1");
    EXPECT_EQ(crOnly.lineCount(), 3u);
    const auto mixed = IniDocument::parse("[A]\r\nx=1\ny=2\rz=3\r\n\r\nw=4");
    EXPECT_EQ(mixed.value("A", "z"), "3");
    EXPECT_EQ(mixed.value("A", "w"), "4");
    EXPECT_EQ(mixed.lineCount(), 6u);
}

TEST(IniDocument, ALineBreakInAValueCannotAddKeys)
{
    auto doc = IniDocument::parse("[Settings]\r\nDisableSound=0\r\n");
    doc.set("Settings", "LastSavedFolder", "/home/pupil/odd\r\nDisableSound=1\r\n[RTDINFO]\rVanes=9");
    doc.set("Settings\n[X]", "Key\r\nInjected=1", "v");
    const auto back = IniDocument::parse(doc.serialize());
    EXPECT_EQ(back.value("Settings", "LastSavedFolder"), "/home/pupil/odd");
    EXPECT_EQ(back.value("Settings", "DisableSound"), "0");
    EXPECT_EQ(back.value("Settings", "Key"), "v");
    EXPECT_EQ(back.value("Settings", "Injected"), std::nullopt);
    EXPECT_EQ(back.value("RTDINFO", "Vanes"), std::nullopt);
    EXPECT_EQ(back.value("X", "Key"), std::nullopt);
}

TEST(IniDocument, AFileTooLargeOrNoOrdinaryFileIsRefusedAndLeftAlone)
{
    TempDir dir;
    const std::string big = dir.file("Zorvanes.ini");
    writeBytes(big, "[Settings]\r\n" + std::string(IniDocument::kMaxFileBytes, '\n'));
    IniDocument doc;
    const FileRead read = IniDocument::read(big, doc);
    EXPECT_EQ(read.status, ReadStatus::TooLarge);
    EXPECT_NE(read.reason.find("larger than 4 MB"), std::string::npos) << read.reason;
    EXPECT_EQ(doc.lineCount(), 0u);
    // A write would otherwise replace it by a file holding one key.
    const auto size = fs::file_size(big);
    EXPECT_EQ(REGbas1::WriteIniString("Settings", "LastSavedFolder", "/x", big), "0");
    EXPECT_EQ(fs::file_size(big), size);
    EXPECT_EQ(REGbas1::ReadIniString("Settings", "LastSavedFolder", "none", 255, big), "none");

    EXPECT_EQ(IniDocument::read(dir.path().string(), doc).status, ReadStatus::NotAFile);
    EXPECT_EQ(IniDocument::read(dir.file("missing.ini"), doc).status, ReadStatus::Missing);
#if defined(__unix__)
    EXPECT_EQ(IniDocument::read("/dev/zero", doc).status, ReadStatus::NotAFile);
    const std::string fifo = dir.file("pipe.ini");
    ASSERT_EQ(::mkfifo(fifo.c_str(), 0600), 0);
    // A pipe with no writer must not hold the reader: if it does, release it and fail.
    auto pending = std::async(std::launch::async, [&] {
        IniDocument d;
        return IniDocument::read(fifo, d).status;
    });
    if (pending.wait_for(std::chrono::seconds(5)) != std::future_status::ready) {
        const int release = ::open(fifo.c_str(), O_RDWR | O_NONBLOCK);
        pending.wait();
        ::close(release);
        FAIL() << "reading a pipe blocked";
    }
    EXPECT_EQ(pending.get(), ReadStatus::NotAFile);
    EXPECT_EQ(REGbas1::WriteIniString("Settings", "k", "v", fifo), "0");
    EXPECT_TRUE(fs::is_fifo(fifo));
#endif
}

#if defined(__unix__)
TEST(IniDocument, ASymlinkedSettingsFileIsWrittenThroughTheLinkKeepingItsMode)
{
    TempDir dir;
    fs::create_directories(dir.path() / "real");
    const std::string real = dir.file("real/Zorvanes.ini");
    writeBytes(real, "[Settings]\r\nDisableSound=1\r\n");
    fs::permissions(real, fs::perms::owner_read | fs::perms::owner_write | fs::perms::group_read);
    const std::string link = dir.file("Zorvanes.ini");
    fs::create_symlink("real/Zorvanes.ini", link);

    EXPECT_EQ(REGbas1::WriteIniString("Settings", "LastSavedFolder", "/class", link), "1");
    EXPECT_TRUE(fs::is_symlink(link));
    EXPECT_EQ(readBytes(real), "[Settings]\r\nDisableSound=1\r\nLastSavedFolder=/class\r\n");
    EXPECT_EQ(fs::status(real).permissions() & fs::perms::mask,
              fs::perms::owner_read | fs::perms::owner_write | fs::perms::group_read);
    EXPECT_EQ(std::distance(fs::directory_iterator(dir.path() / "real"), fs::directory_iterator{}), 1);
}
#endif

// ---- replacing a file: every fault leaves the old file whole ---------------------------------

namespace {

const std::string kOld = "[RTDINFO]\r\nDataItems=1\r\n[DATA]\r\nData1=0.5\r\n";

// Everything in the folder but the target: temporary files left behind.
std::vector<std::string> Leftovers(const fs::path &folder, const std::string &target)
{
    std::vector<std::string> names;
    for (const auto &e : fs::directory_iterator(folder))
        if (e.path().filename() != target)
            names.push_back(e.path().filename().string());
    std::sort(names.begin(), names.end());
    return names;
}

struct FaultGuard {
    ~FaultGuard() { SetWriteFault({}); }
};

#if defined(__unix__)
// A small file system of its own, where the test may mount one (as root); otherwise none.
class SmallMount {
public:
    SmallMount(const fs::path &at, const std::string &options) : m_at(at)
    {
        fs::create_directories(at);
        const std::string command = "mount -t tmpfs -o " + options + " zrt-test " + at.string() + " 2>/dev/null";
        m_mounted = ::geteuid() == 0 && std::system(command.c_str()) == 0;
    }
    ~SmallMount()
    {
        if (m_mounted)
            std::system(("umount " + m_at.string()).c_str());
    }
    bool mounted() const { return m_mounted; }
    void remountReadOnly() { std::system(("mount -o remount,ro " + m_at.string()).c_str()); }

private:
    fs::path m_at;
    bool m_mounted = false;
};
#endif

} // namespace

TEST(ReplaceFile, EachFailingStepKeepsTheOldFileAndLeavesNoTemporaryFile)
{
    TempDir dir;
    const std::string path = dir.file("class.rtd");
    FaultGuard guard;
    for (WriteStep failing : {WriteStep::Create, WriteStep::Write, WriteStep::Sync, WriteStep::Rename}) {
        writeBytes(path, kOld);
        SetWriteFault([failing](WriteStep step) { return step == failing ? ENOSPC : 0; });
        const FileWrite w = ReplaceFile(path, std::string(20000, 'x'));
        EXPECT_FALSE(w.ok);
        EXPECT_EQ(w.reason, std::generic_category().message(ENOSPC));
        EXPECT_EQ(readBytes(path), kOld) << int(failing);
        EXPECT_TRUE(Leftovers(dir.path(), "class.rtd").empty()) << int(failing);
    }
    SetWriteFault({});
    EXPECT_TRUE(ReplaceFile(path, "new"));
    EXPECT_EQ(readBytes(path), "new");
}

#if defined(__unix__)
TEST(ReplaceFile, ARealRenameFailureKeepsTheOldFile)
{
    TempDir dir;
    // A folder in the file's place: the rename of the written file onto it fails.
    fs::create_directories(dir.path() / "class.rtd" / "inside");
    const FileWrite w = ReplaceFile(dir.file("class.rtd"), kOld);
    EXPECT_FALSE(w.ok);
    EXPECT_FALSE(w.reason.empty());
    EXPECT_TRUE(fs::is_directory(dir.path() / "class.rtd" / "inside"));
    EXPECT_TRUE(Leftovers(dir.path(), "class.rtd").empty());
}

TEST(ReplaceFile, AReadOnlyFolderAndAFullDiskKeepTheOldFile)
{
    TempDir dir;
    // Read-only: a real one where permissions bind (not as root), else a read-only mount,
    // else the system's answer injected.
    {
        const fs::path folder = dir.path() / "ro";
        SmallMount mount(folder, "size=1m");
        const std::string path = (folder / "class.rtd").string();
        writeBytes(path, kOld);
        FaultGuard guard;
        if (::geteuid() != 0)
            fs::permissions(folder, fs::perms::owner_read | fs::perms::owner_exec);
        else if (mount.mounted())
            mount.remountReadOnly();
        else
            SetWriteFault([](WriteStep step) { return step == WriteStep::Create ? EROFS : 0; });
        const FileWrite w = ReplaceFile(path, "[RTDINFO]\r\nDataItems=0\r\n");
        EXPECT_FALSE(w.ok);
        EXPECT_FALSE(w.reason.empty());
        EXPECT_EQ(readBytes(path), kOld);
        EXPECT_TRUE(Leftovers(folder, "class.rtd").empty());
        std::error_code ignored;
        fs::permissions(folder, fs::perms::owner_all, ignored);
    }
    // Full: a file system of 64 KB holding an old file of about 12 KB, and a new one too big.
    {
        const fs::path folder = dir.path() / "full";
        SmallMount mount(folder, "size=64k");
        const std::string path = (folder / "class.rtd").string();
        const std::string old = kOld + std::string(11800, ';');
        writeBytes(path, old);
        FaultGuard guard;
        if (!mount.mounted())
            SetWriteFault([](WriteStep step) { return step == WriteStep::Write ? ENOSPC : 0; });
        const FileWrite w = ReplaceFile(path, std::string(200000, 'x'));
        EXPECT_FALSE(w.ok);
        EXPECT_EQ(w.reason, std::generic_category().message(ENOSPC));
        EXPECT_EQ(readBytes(path), old);
        EXPECT_TRUE(Leftovers(folder, "class.rtd").empty());
    }
}

TEST(ReplaceFile, KilledWhileSavingLeavesTheOldOrTheNewFileWhole)
{
    TempDir dir;
    const std::string path = dir.file("class.rtd");
    // Two samples of about 12 KB, saved in turn with the program's own writer.
    CollectedLists a, b;
    for (int i = 0; i < 400; ++i) {
        a.visual.push_back("0.3" + std::to_string(i));
        a.audio.push_back("0.4" + std::to_string(i));
        b.visual.push_back("0.5" + std::to_string(i));
        b.audio.push_back("0.6" + std::to_string(i));
    }
    const IniDocument docA = BuildRtd(a, {"3", "4", true}), docB = BuildRtd(b, {"5", "10", true});
    const std::string bytesA = docA.serialize(), bytesB = docB.serialize();
    ASSERT_TRUE(WriteRtdFile(path, docA));

    // With the unnamed temporary file where the system has one, then with the named one.
    for (bool named : {false, true}) {
        SCOPED_TRACE(named ? "named temporary file" : "unnamed temporary file");
        FaultGuard guard;
        if (named)
            SetWriteFault([](WriteStep step) { return step == WriteStep::Unnamed ? EOPNOTSUPP : 0; });
        std::mt19937 rng(13);
        int sawTemporary = 0;
        for (int kill = 0; kill < 100; ++kill) {
            const pid_t child = ::fork();
            ASSERT_GE(child, 0);
            if (child == 0) {
                for (unsigned n = 0;; ++n)
                    WriteRtdFile(path, n % 2 ? docA : docB);
            }
            std::this_thread::sleep_for(std::chrono::microseconds(500 + rng() % 4000));
            ::kill(child, SIGKILL);
            int status = 0;
            ::waitpid(child, &status, 0);
            const std::string now = readBytes(path);
            ASSERT_TRUE(now == bytesA || now == bytesB) << "kill " << kill << ": " << now.size() << " bytes";
            sawTemporary += !Leftovers(dir.path(), "class.rtd").empty();
        }
        // Whatever a kill left between naming and renaming goes with the next save.
        ASSERT_TRUE(WriteRtdFile(path, docA));
        EXPECT_TRUE(Leftovers(dir.path(), "class.rtd").empty());
        RecordProperty(named ? "kills_leaving_a_named_temporary_file" : "kills_leaving_an_unnamed_temporary_file",
                       sawTemporary);
    }
}
#endif

TEST(ReplaceFile, OnlyItsOwnTemporaryNamesAreTakenForLeftovers)
{
    EXPECT_TRUE(IsReplaceTemporaryName(".class.rtd.zrt-1234.tmp"));
    EXPECT_FALSE(IsReplaceTemporaryName("class.rtd.tmp1234"));
    EXPECT_FALSE(IsReplaceTemporaryName(".class.rtd.zrt-12a4.tmp"));
    EXPECT_FALSE(IsReplaceTemporaryName(".zrt-1.tmp"));
    TempDir dir;
    const std::string path = dir.file("class.rtd");
    writeBytes(dir.file(".class.rtd.zrt-999999999.tmp"), "left by a process that is gone");
    writeBytes(dir.file(".other.rtd.zrt-999999999.tmp"), "another file's");
    writeBytes(dir.file("notes.tmp"), "the user's");
    ASSERT_TRUE(ReplaceFile(path, kOld));
    EXPECT_EQ(Leftovers(dir.path(), "class.rtd"),
              std::vector<std::string>({".other.rtd.zrt-999999999.tmp", "notes.tmp"}));
}
