// Saving and opening .rtd files from the window: the dialogs' texts, the extension rule, the
// overwrite question, the remembered folders and a bad file that must leave the data alone.

#include "MainWindowFixture.h"

#include "files/REGbas1.h"
#include "files/ShowFileDialog.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

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
    }
    void TearDown() override
    {
        SetFileDialogHook({});
        MainWindowTest::TearDown();
    }

    void AddPairs(std::initializer_list<std::pair<const char *, const char *>> pairs)
    {
        for (auto [visual, audio] : pairs) {
            window->cl2->AddItem(visual);
            window->CL4->AddItem(audio);
        }
        window->SetDataCount();
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
    EXPECT_TRUE(window->DataSaved);

    window->Save_Data();
    EXPECT_EQ(requests.back().initialFolder.toStdString(), Setting("LastSavedFolder"));
}

TEST_F(DataFilesTest, AnOverwriteNeedsYesAndNoLeavesTheOldFile)
{
    AddPairs({{"0.31", "0.41"}});
    chosen = folder.filePath("run.rtd");
    window->Save_Data();
    const QByteArray first = Read(chosen);

    window->cl2->AddItem("0.5");
    window->CL4->AddItem("0.6");
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
    EXPECT_EQ(Items(window->cl2), QStringList{"0.9"});

    answer = vbYes;
    window->Open_Data();
    ASSERT_EQ(requests.size(), 1u);
    EXPECT_EQ(requests[0].dialogTitle, " Select Reation Time Data to open:");
    EXPECT_FALSE(requests[0].save);
    // A pair without a comma is dropped; values pass through a numeric parse.
    EXPECT_EQ(Items(window->cl2), (QStringList{"0.5", "0.3"}));
    EXPECT_EQ(Items(window->CL4), (QStringList{"0.1", "0.35"}));
    EXPECT_EQ(window->ucGifPlayer1.size(), 5u) << "the row follows the file";
    EXPECT_EQ(window->DD2->Title(), "7");
    EXPECT_EQ(window->Check4->Value(), 1);
    EXPECT_TRUE(window->Check5[1]->isVisibleTo(window.get()));
    EXPECT_FALSE(window->pSettings->isEnabled());
    EXPECT_EQ(window->Label5->text(), "Data Collected: (2)");
    EXPECT_EQ(Setting("LastOpenedFolder"), QDir::cleanPath(folder.path()).toStdString());
    EXPECT_TRUE(window->DataSaved);
}

TEST_F(DataFilesTest, ABadFileReportsItsErrorAndKeepsTheData)
{
    QFile file(folder.filePath("bad.rtd"));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("[RTDINFO]\r\nVanes=9\r\nAttempts=4\r\nDataItems=1\r\nSample=0\r\n[DATA]\r\nData1=0.3\r\n");
    file.close();
    AddPairs({{"0.25", "0.35"}});
    window->DataSaved = true;
    chosen = file.fileName();
    window->ClickToolbarButton("Open");
    ASSERT_FALSE(said.empty());
    EXPECT_EQ(said.back().text, "Run-time error '381': Invalid property array index");
    EXPECT_EQ(Items(window->cl2), QStringList{"0.25"});
    EXPECT_EQ(Items(window->CL4), QStringList{"0.35"});
    EXPECT_EQ(window->ucGifPlayer1.size(), 3u);
}

TEST_F(DataFilesTest, SaveThenOpenGivesTheSameSampleAndSettings)
{
    window->List1->setListIndex(4);
    window->List2->setListIndex(3);
    AddPairs({{"0.31", "0.41"}, {"0.27", "0.39"}, {"0.33", "0.44"}});
    chosen = folder.filePath("round.rtd");
    window->Save_Data();
    window->ClickToolbarButton("Clear");
    ASSERT_EQ(window->cl2->ListCount(), 0);
    ASSERT_EQ(window->DD2->Title(), "4");

    window->Open_Data();
    EXPECT_TRUE(said.empty()) << "saved data open without a question";
    EXPECT_EQ(Items(window->cl2), (QStringList{"0.31", "0.27", "0.33"}));
    EXPECT_EQ(Items(window->CL4), (QStringList{"0.41", "0.39", "0.44"}));
    EXPECT_EQ(window->dd1->Title(), "5");
    EXPECT_EQ(window->DD2->Title(), "7");
    EXPECT_EQ(window->Check4->Value(), 1);
}

TEST_F(DataFilesTest, TheBoxAtSavingDecidesTheKindAndLongValuesAreCut)
{
    // Pairs collected, then the box cleared: only the visual times are written.
    AddPairs({{"0.31", "0.41"}});
    window->Check4->setValue(0);
    window->Check4_Click();
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
    window->DataSaved = true;
    window->Open_Data();
    EXPECT_EQ(Items(window->cl2), (QStringList{"0.12345678901234567", "0.1,0.2"}));
    EXPECT_EQ(window->Check4->Value(), 0);
    EXPECT_FALSE(window->CL4->isVisibleTo(window.get()));
    EXPECT_FALSE(window->Check5[1]->isVisibleTo(window.get()));
}
