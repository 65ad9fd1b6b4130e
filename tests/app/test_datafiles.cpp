// Saving and opening .rtd files from the window: the dialogs' texts, the extension rule, the
// overwrite question, the remembered folders and a bad file that must leave the data alone.

#include "MainWindowFixture.h"

#include "dialogs/msgFrm.h"
#include "files/FileAccess.h"
#include "files/IniDocument.h"
#include "files/REGbas1.h"
#include "files/ShowFileDialog.h"

#include <QDir>
#include <QFile>
#include <QLabel>
#include <QTemporaryDir>

#include <atomic>
#include <cerrno>
#include <chrono>
#include <thread>

#if defined(__unix__)
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#endif

using namespace mainwindowtest;

namespace {

class DataFilesTest : public MainWindowTest {
protected:
    void SetUp() override
    {
        MainWindowTest::SetUp();
        ASSERT_TRUE(folder.isValid());
        MainMod1::SettingsFile = folder.filePath("Zorvanes.ini");
        QFile(MainMod1::SettingsFile).open(QIODevice::WriteOnly);
        SetFileDialogHook([this](const FileDialogRequest &request) {
            requests.push_back(request);
            return chosen;
        });
        // The balloon messages: what they say, then OK.
        zrt::msgFrm::setShownHook([this](zrt::msgFrm &box) {
            balloons.push_back({box.lblmsg()->text(), box.LblTitle()->text(), 0});
            box.done(1);
        });
    }
    void TearDown() override
    {
        zrt::SetWriteFault({});
        zrt::msgFrm::setShownHook({});
        SetFileDialogHook({});
        MainWindowTest::TearDown();
    }

    void AddPairs(std::initializer_list<std::pair<const char *, const char *>> pairs)
    {
        for (auto [visual, audio] : pairs) {
            window->P2->cl2->AddItem(visual);
            window->P2->CL4->AddItem(audio);
        }
        window->P2->SetDataCount();
    }

    static QByteArray Read(const QString &path)
    {
        QFile f(path);
        return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
    }

    std::string Setting(const char *key) const
    {
        return REGbas1::ReadIniString("Settings", key, "", 255, MainMod1::SettingsFile.toStdString());
    }

    QTemporaryDir folder;
    QString chosen;
    std::vector<FileDialogRequest> requests;
    std::vector<Said> balloons;
};

} // namespace

TEST_F(DataFilesTest, SavingWritesEveryKeyAndRemembersTheFolder)
{
    window->Save_Data();
    ASSERT_EQ(said.size(), 1u);
    EXPECT_EQ(said[0].caption, "No Data");
    EXPECT_EQ(said[0].text, "You have not collected any reaction times to save!");
    EXPECT_TRUE(requests.empty());

    AddPairs({{"0.42113", "0.61207"}, {"0.38771", "0.55002"}});
    chosen = folder.filePath("class.RTD"); // the test for ".rtd" is case-sensitive
    window->Save_Data();
    ASSERT_EQ(requests.size(), 1u);
    EXPECT_EQ(requests[0].dialogTitle, " Save the Reation Time Data as:");
    EXPECT_EQ(requests[0].filter, "Reaction Time Data (*.rtd)");
    EXPECT_EQ(requests[0].initialFolder, MainMod1::ProgramFolder) << "nothing remembered yet";
    EXPECT_TRUE(requests[0].save);

    const QString written = folder.filePath("class.RTD.rtd");
    EXPECT_EQ(Read(written), QByteArray("[RTDINFO]\r\nVanes=3\r\nAttempts=4\r\nDataItems=2\r\nSample=1\r\n"
                                        "[DATA]\r\nData1=0.42113,0.61207\r\nData2=0.38771,0.55002\r\n"));
    EXPECT_EQ(Setting("LastSavedFolder"), QDir::cleanPath(folder.path()).toStdString());
    EXPECT_TRUE(window->P2->DataSaved);

    window->Save_Data();
    EXPECT_EQ(requests.back().initialFolder.toStdString(), Setting("LastSavedFolder"));
}

TEST_F(DataFilesTest, AnOverwriteNeedsYesAndNoLeavesTheOldFile)
{
    AddPairs({{"0.31", "0.41"}});
    chosen = folder.filePath("run.rtd");
    window->Save_Data();
    const QByteArray first = Read(chosen);

    window->P2->cl2->AddItem("0.5");
    window->P2->CL4->AddItem("0.6");
    answer = vbNo;
    window->Save_Data();
    ASSERT_FALSE(said.empty());
    EXPECT_EQ(said.back().caption, "File Exist");
    EXPECT_EQ(said.back().text, "This file already exists!\nDo you want to overwrite it?");
    EXPECT_EQ(said.back().style, vbYesNo | vbQuestion);
    EXPECT_EQ(Read(chosen), first);

    answer = vbYes;
    window->Save_Data();
    EXPECT_TRUE(Read(chosen).contains("DataItems=2"));
}

TEST_F(DataFilesTest, OpeningAsksAboutUnsavedDataThenLoadsAndLocks)
{
    QFile file(folder.filePath("old.rtd"));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("[RTDINFO]\r\nVanes=5\r\nAttempts=7\r\nDataItems=3\r\nSample=1\r\n[DATA]\r\n"
               "Data1=0.50000,0.1\r\nData2=0.2\r\nData3=0.3,0.35\r\n");
    file.close();
    AddPairs({{"0.9", "0.9"}});
    chosen = file.fileName();

    answer = vbNo;
    window->Open_Data();
    EXPECT_EQ(said.back().caption, "Open a file");
    EXPECT_EQ(said.back().text, "You have Collected Data that has not yet been saved!\n"
                                "Opening a file will remove this data\n\nDo you wish to continue?");
    EXPECT_TRUE(requests.empty());
    EXPECT_EQ(Items(window->P2->cl2), QStringList{"0.9"});

    answer = vbYes;
    window->Open_Data();
    ASSERT_EQ(requests.size(), 1u);
    EXPECT_EQ(requests[0].dialogTitle, " Select Reation Time Data to open:");
    EXPECT_FALSE(requests[0].save);
    // A pair without a comma is dropped; values pass through a numeric parse.
    EXPECT_EQ(Items(window->P2->cl2), (QStringList{"0.5", "0.3"}));
    EXPECT_EQ(Items(window->P2->CL4), (QStringList{"0.1", "0.35"}));
    EXPECT_EQ(window->P3->ucGifPlayer1.size(), 5u) << "the row follows the file";
    EXPECT_EQ(window->P3->DD2->Title(), "7");
    EXPECT_EQ(window->P3->Check4->Value(), 1);
    EXPECT_TRUE(window->P2->Check5[1]->isVisibleTo(window.get()));
    EXPECT_FALSE(window->P3->pSettings->isEnabled());
    EXPECT_EQ(window->P2->Label5->text(), "Data Collected: (2)");
    EXPECT_EQ(Setting("LastOpenedFolder"), QDir::cleanPath(folder.path()).toStdString());
    EXPECT_TRUE(window->P2->DataSaved);
}

TEST_F(DataFilesTest, ABadFileReportsItsErrorAndKeepsTheData)
{
    QFile file(folder.filePath("bad.rtd"));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("[RTDINFO]\r\nVanes=9\r\nAttempts=4\r\nDataItems=1\r\nSample=0\r\n[DATA]\r\nData1=0.3\r\n");
    file.close();
    AddPairs({{"0.25", "0.35"}});
    window->P2->DataSaved = true;
    chosen = file.fileName();
    window->ClickToolbarButton("Open");
    ASSERT_FALSE(said.empty());
    const QStringList lines = said.back().text.split('\n');
    ASSERT_EQ(lines.size(), 3) << said.back().text.toStdString();
    EXPECT_EQ(lines[0], "Run-time error '381': Invalid property array index");
    EXPECT_EQ(lines[2], "The file " + file.fileName() +
                            " was not opened. It asks for a number of characters or attempts that the program "
                            "does not offer. The collected data are as they were.");
    EXPECT_EQ(Items(window->P2->cl2), QStringList{"0.25"});
    EXPECT_EQ(Items(window->P2->CL4), QStringList{"0.35"});
    EXPECT_EQ(window->P3->ucGifPlayer1.size(), 3u);

    ASSERT_TRUE(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
    file.write("[RTDINFO]\r\nDataItems=40000\r\n");
    file.close();
    window->ClickToolbarButton("Open");
    EXPECT_TRUE(said.back().text.startsWith("Run-time error '6': Overflow\n\nThe file " + file.fileName() +
                                            " was not opened. It gives more data items"))
        << said.back().text.toStdString();
    EXPECT_EQ(Items(window->P2->cl2), QStringList{"0.25"});
}

TEST_F(DataFilesTest, AFileTooLargeOrNoOrdinaryFileIsNotOpenedAndSaysWhy)
{
    QFile big(folder.filePath("big.rtd"));
    ASSERT_TRUE(big.open(QIODevice::WriteOnly));
    big.write(QByteArray(int(zrt::IniDocument::kMaxFileBytes) + 1, '\n'));
    big.close();
    AddPairs({{"0.25", "0.35"}});
    window->P2->DataSaved = true;
    chosen = big.fileName();
    window->Open_Data();
    ASSERT_FALSE(said.empty());
    EXPECT_EQ(said.back().text, "The file " + chosen + " can't be opened: it is larger than 4 MB.\n"
                                "The collected data are as they were.");
    EXPECT_EQ(Items(window->P2->cl2), QStringList{"0.25"});

#if defined(__unix__)
    // A pipe chosen in the dialog: refused at once. Should it block, a watchdog opens its
    // other end after a few seconds so that the test ends, failing.
    const QString pipe = folder.filePath("pipe.rtd");
    ASSERT_EQ(::mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);
    chosen = pipe;
    std::atomic<bool> done{false}, released{false};
    std::thread watchdog([&] {
        for (int i = 0; i < 500 && !done; ++i)
            std::this_thread::sleep_for(std::chrono::milliseconds(10));
        if (!done) {
            released = true;
            const int fd = ::open(QFile::encodeName(pipe).constData(), O_RDWR | O_NONBLOCK);
            std::this_thread::sleep_for(std::chrono::milliseconds(200));
            ::close(fd);
        }
    });
    window->Open_Data();
    done = true;
    watchdog.join();
    EXPECT_FALSE(released) << "opening a pipe blocked";
    EXPECT_EQ(said.back().text, "The file " + pipe + " can't be opened: it is not an ordinary file.\n"
                                "The collected data are as they were.");
    EXPECT_EQ(Items(window->P2->cl2), QStringList{"0.25"});
#endif
}

TEST_F(DataFilesTest, ASaveThatFailsKeepsTheOldFileSaysWhyAndLeavesTheDataUnsaved)
{
    const QString path = folder.filePath("class.rtd");
    QFile old(path);
    ASSERT_TRUE(old.open(QIODevice::WriteOnly));
    const QByteArray oldBytes =
        "[RTDINFO]\r\nDataItems=1\r\nSample=0\r\n[DATA]\r\nData1=0.3\r\n" + QByteArray(11800, ';');
    old.write(oldBytes);
    old.close();
    AddPairs({{"0.42113", "0.61207"}, {"0.38771", "0.55002"}});
    chosen = path;
    answer = vbYes;

    const struct {
        zrt::WriteStep step;
        int error;
    } faults[] = {{zrt::WriteStep::Create, EACCES}, {zrt::WriteStep::Write, ENOSPC}, {zrt::WriteStep::Rename, EXDEV}};
    for (const auto &fault : faults) {
        balloons.clear();
        zrt::SetWriteFault([fault](zrt::WriteStep step) { return step == fault.step ? fault.error : 0; });
        window->Save_Data();
        ASSERT_EQ(balloons.size(), 1u);
        EXPECT_EQ(balloons[0].caption, "File Not Saved");
        EXPECT_EQ(balloons[0].text, "The file " + path + " could not be saved (" +
                                        QString::fromStdString(std::generic_category().message(fault.error)) +
                                        ").\nA file of that name is as it was before, and the collected data are "
                                        "still here: save them somewhere else.");
        EXPECT_EQ(Read(path), oldBytes);
        EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files | QDir::Hidden, QDir::Name | QDir::IgnoreCase),
                  (QStringList{"class.rtd", "Zorvanes.ini"}));
        EXPECT_FALSE(window->P2->DataSaved);
        EXPECT_EQ(Setting("LastSavedFolder"), "") << "only a saved file's folder is remembered";
    }
    zrt::SetWriteFault({});

    // The data are still unsaved, so opening asks first.
    answer = vbNo;
    window->Open_Data();
    EXPECT_EQ(said.back().caption, "Open a file");

    answer = vbYes;
    window->Save_Data();
    EXPECT_TRUE(Read(path).startsWith("[RTDINFO]\r\nVanes=3\r\nAttempts=4\r\nDataItems=2\r\n"));
    EXPECT_TRUE(window->P2->DataSaved);
}

TEST_F(DataFilesTest, ASettingsFileThatCannotBeUpdatedIsReportedButTheSaveStands)
{
    QFile settings(MainMod1::SettingsFile);
    ASSERT_TRUE(settings.open(QIODevice::WriteOnly));
    settings.write("[Settings]\r\n" + QByteArray(int(zrt::IniDocument::kMaxFileBytes), '\n'));
    settings.close();
    const qint64 size = QFileInfo(MainMod1::SettingsFile).size();
    AddPairs({{"0.31", "0.41"}});
    chosen = folder.filePath("run.rtd");
    window->Save_Data();
    EXPECT_TRUE(Read(chosen).contains("Data1=0.31,0.41"));
    EXPECT_TRUE(window->P2->DataSaved);
    ASSERT_EQ(balloons.size(), 1u);
    EXPECT_EQ(balloons[0].caption, "Settings Not Saved");
    EXPECT_TRUE(balloons[0].text.startsWith("The settings file " + MainMod1::SettingsFile +
                                            " could not be updated (it is larger than 4 MB)."))
        << balloons[0].text.toStdString();
    EXPECT_EQ(QFileInfo(MainMod1::SettingsFile).size(), size);
}

TEST_F(DataFilesTest, SaveThenOpenGivesTheSameSampleAndSettings)
{
    window->P3->List1->setListIndex(4);
    window->P3->List2->setListIndex(3);
    AddPairs({{"0.31", "0.41"}, {"0.27", "0.39"}, {"0.33", "0.44"}});
    chosen = folder.filePath("round.rtd");
    window->Save_Data();
    window->ClickToolbarButton("Clear");
    ASSERT_EQ(window->P2->cl2->ListCount(), 0);
    ASSERT_EQ(window->P3->DD2->Title(), "4");

    window->Open_Data();
    EXPECT_TRUE(said.empty()) << "saved data open without a question";
    EXPECT_EQ(Items(window->P2->cl2), (QStringList{"0.31", "0.27", "0.33"}));
    EXPECT_EQ(Items(window->P2->CL4), (QStringList{"0.41", "0.39", "0.44"}));
    EXPECT_EQ(window->P3->dd1->Title(), "5");
    EXPECT_EQ(window->P3->DD2->Title(), "7");
    EXPECT_EQ(window->P3->Check4->Value(), 1);
}

TEST_F(DataFilesTest, TheBoxAtSavingDecidesTheKindAndLongValuesAreCut)
{
    // Pairs collected, then the box cleared: only the visual times are written.
    AddPairs({{"0.31", "0.41"}});
    window->P3->Check4->setValue(0);
    window->P2->Check4_Click();
    chosen = folder.filePath("visual.rtd");
    window->Save_Data();
    EXPECT_TRUE(Read(chosen).contains("Sample=0\r\n"));
    EXPECT_TRUE(Read(chosen).contains("Data1=0.31\r\n"));

    // A Sample 0 value is taken as it stands, cut to 19 characters, comma and all.
    QFile file(folder.filePath("long.rtd"));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("[RTDINFO]\r\nDataItems=2\r\nSample=0\r\n[DATA]\r\nData1=0.123456789012345678901\r\nData2=0.1,0.2\r\n");
    file.close();
    chosen = file.fileName();
    window->P2->DataSaved = true;
    window->Open_Data();
    EXPECT_EQ(Items(window->P2->cl2), (QStringList{"0.12345678901234567", "0.1,0.2"}));
    EXPECT_EQ(window->P3->Check4->Value(), 0);
    EXPECT_FALSE(window->P2->CL4->isVisibleTo(window.get()));
    EXPECT_FALSE(window->P2->Check5[1]->isVisibleTo(window.get()));
}
