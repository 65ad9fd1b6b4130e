// The class's data in and out through the window: CSV export and import, another pupil's file
// added to the sample, and the worksheet of the page that shows.

#include "MainWindowFixture.h"

#include "app/DataFlows.h"
#include "export/Worksheet.h"
#include "files/ShowFileDialog.h"

#include <QFile>
#include <QTemporaryDir>
#include <QTextEdit>

using namespace mainwindowtest;

namespace {

class DataFlowsTest : public MainWindowTest {
protected:
    void SetUp() override
    {
        MainWindowTest::SetUp();
        ASSERT_TRUE(folder.isValid());
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
    void AddPairs(int n)
    {
        for (int i = 0; i < n; ++i) {
            window->P2->cl2->AddItem(QString::number(0.3 + i / 100.0));
            window->P2->CL4->AddItem(QString::number(0.4 + i / 100.0));
        }
        window->P2->SetDataCount();
    }
    void Write(const QString &name, const QByteArray &bytes)
    {
        QFile file(folder.filePath(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
    }

    QTemporaryDir folder;
    QString chosen;
    std::vector<FileDialogRequest> requests;
};

} // namespace

TEST_F(DataFlowsTest, ExportedResultsImportBackAsTheyWere)
{
    AddPairs(7);
    const QStringList visual = Items(window->P2->cl2), audio = Items(window->P2->CL4);
    chosen = folder.filePath("class");
    window->flows()->exportCsv();
    QFile file(folder.filePath("class.csv"));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly)) << "the extension is added";
    EXPECT_TRUE(file.readAll().startsWith("visual,audio\n0.3,0.4\n"));

    window->ClickToolbarButton("Clear");
    window->P3->Check4->setValue(0);
    answer = vbYes;
    chosen = folder.filePath("class.csv");
    window->flows()->importCsv();
    EXPECT_EQ(Items(window->P2->cl2), visual);
    EXPECT_EQ(Items(window->P2->CL4), audio);
    EXPECT_EQ(window->P3->Check4->Value(), 1) << "two columns are pairs";
    EXPECT_EQ(window->P2->Label5->text(), "Data Collected: (7)");
    EXPECT_FALSE(window->P2->DataSaved) << "imported data are not yet saved as a data file";
}

TEST_F(DataFlowsTest, ABadCsvImportsNothingAndSaysWhichLine)
{
    AddPairs(2);
    window->P2->DataSaved = true;
    Write("bad.csv", "visual,audio\n0.3,0.4\n0.5,abc\n");
    chosen = folder.filePath("bad.csv");
    said.clear();
    window->flows()->importCsv();
    ASSERT_EQ(said.size(), 1u);
    EXPECT_TRUE(said[0].text.contains("Line 3")) << said[0].text.toStdString();
    EXPECT_EQ(window->P2->count(), 2);

    // Unsaved data are asked about first, as Open does; No keeps them.
    window->P2->DataSaved = false;
    Write("good.csv", "0.5\n0.6\n");
    chosen = folder.filePath("good.csv");
    answer = vbNo;
    said.clear();
    window->flows()->importCsv();
    ASSERT_EQ(said.size(), 1u);
    EXPECT_EQ(said[0].caption, "Import a file");
    EXPECT_EQ(window->P2->count(), 2);
}

TEST_F(DataFlowsTest, AClassFileIsAddedOnlyWhenItsKindMatches)
{
    AddPairs(2);
    Write("visual.csv", "visual\n0.5\n0.6\n");
    chosen = folder.filePath("visual.csv");
    said.clear();
    window->flows()->addClassFile();
    ASSERT_EQ(said.size(), 1u) << "visual times can't join a sample of pairs";
    EXPECT_EQ(window->P2->count(), 2);

    Write("pairs.rtd", "[RTDINFO]\r\nVanes=1\r\nAttempts=4\r\nDataItems=1\r\nSample=1\r\n[DATA]\r\nData1=0.61,0.72\r\n");
    chosen = folder.filePath("pairs.rtd");
    window->P2->DataSaved = true;
    window->flows()->addClassFile();
    EXPECT_EQ(Items(window->P2->cl2), (QStringList{"0.3", "0.31", "0.61"}));
    EXPECT_EQ(Items(window->P2->CL4), (QStringList{"0.4", "0.41", "0.72"}));
    EXPECT_FALSE(window->P2->DataSaved);
}

TEST_F(DataFlowsTest, TheWorksheetHoldsThePageTheRevealedAnswersAndTheChart)
{
    said.clear();
    window->flows()->worksheet(true);
    ASSERT_EQ(said.size(), 1u) << "the Record page has no worksheet";

    AddPairs(8);
    window->ClickToolbarButton("Averages");
    ASSERT_TRUE(window->averages->isVisible());
    QTest::mouseClick(window->averages->cmd1[3], Qt::LeftButton); // the mean, revealed
    window->averages->Tab1_Click(2);
    zrt::Worksheet sheet;
    ASSERT_TRUE(window->flows()->currentWorksheet(sheet));
    EXPECT_EQ(sheet.title, "Averages");
    EXPECT_EQ(sheet.dataText, window->averages->t1->toPlainText());
    ASSERT_EQ(sheet.answers.size(), 13u);
    EXPECT_EQ(sheet.answers[3].question, "Mean");
    EXPECT_TRUE(sheet.answers[3].revealed);
    EXPECT_FALSE(sheet.answers[0].revealed);
    EXPECT_EQ(sheet.answers[3].answer, window->averages->lb1[3]->text());
    EXPECT_EQ(sheet.chart, window->averages->pBox);

    chosen = folder.filePath("sheet");
    answer = vbNo;
    window->flows()->worksheet(true);
    QFile pdf(folder.filePath("sheet.pdf"));
    ASSERT_TRUE(pdf.open(QIODevice::ReadOnly));
    EXPECT_TRUE(pdf.read(5) == "%PDF-");
}
