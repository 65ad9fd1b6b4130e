// The analysis pages as a pupil uses them: question buttons, Show All, the precision list,
// the list choice, the charts drawn on tab changes, and failures that end only the operation.

#include "MainWindowFixture.h"

#include "charts/PictureBox.h"
#include "controls/ShapedTabs.h"
#include "controls/ucTableView.h"
#include "common/RunTimeError.h"
#include "dialogs/msgFrm.h"

#include <QTextEdit>

using namespace mainwindowtest;

namespace {

class PagesTest : public MainWindowTest {
protected:
    // Counts pixels of a colour on a surface.
    static int Count(zrt::PictureBox *surface, QRgb colour)
    {
        const QImage &image = surface->Image();
        int n = 0;
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x)
                n += (image.pixel(x, y) & 0xFFFFFF) == (colour & 0xFFFFFF) ? 1 : 0;
        return n;
    }
};

} // namespace

TEST_F(PagesTest, QuestionButtonsRevealAndHideTheirAnswers)
{
    Six();
    window->ClickToolbarButton("Averages");
    ASSERT_TRUE(window->p4[0]->isVisible());
    EXPECT_FALSE(window->P3->isVisible());
    auto &a = *window->averages;
    // 23 25 27 29 31 33 at hundredths.
    EXPECT_EQ(a.t1->toPlainText(), "23, 27, 31, 25, 29, 33,");
    EXPECT_EQ(a.l8->text(), "Sample Size (n) = 6");
    EXPECT_TRUE(a.lb1[3]->text().isEmpty()) << "answers stay hidden until asked";
    QTest::mouseClick(a.cmd1[3], Qt::LeftButton);
    EXPECT_EQ(a.lb1[3]->text(), "28");
    QTest::mouseClick(a.cmd1[3], Qt::LeftButton);
    EXPECT_TRUE(a.lb1[3]->text().isEmpty());

    QTest::mouseClick(a.cmdshowall, Qt::LeftButton);
    EXPECT_EQ(a.lb1[0]->text(), "23");
    EXPECT_EQ(a.lb1[1]->text(), "33");
    EXPECT_EQ(a.lb1[4]->text(), "N/A");
    EXPECT_TRUE(a.lb2[0]->text().isEmpty()) << "Show All reveals only its own group";
    QTest::mouseClick(a.cmdSA, Qt::LeftButton);
    EXPECT_FALSE(a.lb2[2]->text().isEmpty());

    // A finer precision turns 0.23 into 230 and clears what was shown.
    a.cl3->setListIndex(1);
    EXPECT_EQ(a.DD3->Title(), "1/1000 th");
    EXPECT_TRUE(a.t1->toPlainText().startsWith("230, 270,"));
    EXPECT_TRUE(a.lb1[0]->text().isEmpty());
    QTest::mouseClick(a.cmd1[0], Qt::LeftButton);
    EXPECT_EQ(a.lb1[0]->text(), "230");

    // The audio list is analysed once its box is ticked; the pair acts as radio buttons.
    window->P2->Check5[1]->setValue(1);
    window->P2->Check5_Click(1);
    EXPECT_EQ(window->P2->Check5[0]->Value(), 0);
    EXPECT_TRUE(a.t1->toPlainText().startsWith("310, 350,"));

    // The Record button takes the page away again.
    window->ClickToolbarButton("Record");
    EXPECT_TRUE(window->P3->isVisible());
    EXPECT_FALSE(window->p4[0]->isVisible());
}

TEST_F(PagesTest, TabsAndShowButtonsDrawTheirCharts)
{
    Six();
    window->ClickToolbarButton("Averages");
    auto &a = *window->averages;
    window->averages->Tab1_Click(2);
    EXPECT_TRUE(a.F1[2]->isVisible());
    EXPECT_EQ(Count(a.pBox, qRgb(225, 215, 210)), 0) << "the box waits for its button";
    QTest::mouseClick(a.cmdBP, Qt::LeftButton);
    EXPECT_EQ(a.cmdBP->Caption(), "Hide Box Plot");
    EXPECT_GT(Count(a.pBox, qRgb(225, 215, 210)), 100);

    // Refresh_Data keeps the visible tab drawn.
    window->Refresh_Data();
    EXPECT_GT(Count(a.pBox, qRgb(225, 215, 210)), 100);

    window->ClickToolbarButton("Groups");
    auto &g = *window->groups;
    EXPECT_TRUE(window->analysis.GroupedReady);
    QTest::mouseClick(g.cmdTally, Qt::LeftButton);
    EXPECT_EQ(g.cmdTally->Caption(), "Hide Tally/Frequency");
    window->groups->Tab2_Click(3);
    QTest::mouseClick(g.cmdPlot, Qt::LeftButton);
    EXPECT_TRUE(g.Check3->isVisibleTo(window.get()));
    EXPECT_GT(Count(g.ppCF, qRgb(0, 255, 0)), 0) << "the curve's points";
    QTest::mouseClick(g.cmdPlot, Qt::LeftButton);
    EXPECT_FALSE(g.Check3->isVisibleTo(window.get()));
    EXPECT_EQ(g.Check3->Value(), 0);

    window->ClickToolbarButton("Compare");
    auto &c = *window->compare;
    EXPECT_TRUE(window->analysis.CompareReady);
    EXPECT_EQ(c.Text1->toPlainText(), "(23,31), (27,35), (31,30), (25,29), (29,40), (33,37),");
    EXPECT_EQ(c.ucTableView1->Count(), 6);
    QTest::mouseClick(c.cmdSG, Qt::LeftButton);
    EXPECT_GT(Count(c.pFR[0], qRgb(255, 0, 0)), 0) << "the mean point";
}

TEST_F(PagesTest, TheRedMeanPointAnswersAClick)
{
    Six();
    window->ClickToolbarButton("Compare");
    auto &c = *window->compare;
    QTest::mouseClick(c.cmdSG, Qt::LeftButton);
    const QImage &image = c.pFR[0]->Image();
    QPoint red(-1, -1);
    for (int y = 0; y < image.height() && red.x() < 0; ++y)
        for (int x = 0; x < image.width(); ++x)
            if ((image.pixel(x, y) & 0xFFFFFF) == 0xFF0000) {
                red = QPoint(x, y);
                break;
            }
    ASSERT_GE(red.x(), 0);
    bool shown = false;
    zrt::msgFrm::setShownHook([&](zrt::msgFrm &box) {
        shown = true;
        box.done(1);
    });
    QTest::mouseClick(c.pFR[0], Qt::LeftButton, Qt::NoModifier, red);
    EXPECT_TRUE(shown);
    shown = false;
    QTest::mouseClick(c.pFR[0], Qt::LeftButton, Qt::NoModifier, QPoint(2, 2));
    EXPECT_FALSE(shown) << "elsewhere the graph says nothing";
    zrt::msgFrm::setShownHook({});
}

TEST_F(PagesTest, FailuresEndTheOperationAndTheWindowGoesOn)
{
    // Equal times make a range of 0: the box plot's scale has no leading figure.
    Collect({{"0.3", "0.3"}, {"0.3", "0.3"}, {"0.3", "0.3"}, {"0.3", "0.3"}, {"0.3", "0.3"}, {"0.3", "0.3"}});
    window->ClickToolbarButton("Averages");
    window->averages->Tab1->setActiveTab(2); // as a press on the tab does
    QTest::mouseClick(window->averages->cmdBP, Qt::LeftButton);
    ASSERT_FALSE(said.empty());
    EXPECT_TRUE(said.back().text.startsWith("Run-time error '5'"));
    EXPECT_EQ(window->P2->cl2->ListCount(), 6);

    // One pair is too few for Spearman's rank: a division by zero.
    window->ToolbarButtonClick("Clear");
    Collect({{"0.3", "0.4"}});
    EXPECT_THROW(window->compare->Get_Compare_Data(), zrt::RunTimeError);
    EXPECT_EQ(window->P2->cl2->ListCount(), 1);
}

TEST_F(PagesTest, AnalysisPagesAreMadeWhenFirstOpenedAndWorkAsIfMadeAtStart)
{
    // A window as the program makes it: the analysis pages have no controls yet.
    window = std::make_unique<MainFrm>(nullptr, true);
    window->resize(1100, 760);
    window->show();
    for (auto *page : window->p4)
        EXPECT_FALSE(page->isBuilt());
    EXPECT_EQ(window->averages->cmd1[0], nullptr);
    EXPECT_EQ(window->findChild<QWidget *>("cmd1_0"), nullptr);
    EXPECT_EQ(window->P5->ucgif, nullptr) << "the audio stage's players wait for its first opening";

    // Clear and a data change reach the pages that do not exist yet without harm.
    window->ClickToolbarButton("Clear");
    Six();
    window->resize(1200, 800); // the page is made in the size of its day, not of the start
    QCoreApplication::processEvents();
    said.clear();

    window->ClickToolbarButton("Averages");
    auto &a = *window->averages;
    ASSERT_TRUE(a.isBuilt());
    EXPECT_FALSE(window->groups->isBuilt()) << "only the page opened is made";
    EXPECT_TRUE(a.isVisible());
    EXPECT_EQ(window->findChild<QWidget *>("cmd1_0"), a.cmd1[0]) << "its controls carry their names";
    EXPECT_TRUE(a.cmd1[0]->isVisible());
    EXPECT_EQ(a.Tab1->width(), a.width());
    EXPECT_EQ(a.DD3->Title(), "1/100 th");
    EXPECT_EQ(a.cl3->ListIndex(), 0);
    EXPECT_EQ(a.t1->toPlainText(), "23, 27, 31, 25, 29, 33,");
    QTest::mouseClick(a.cmd1[3], Qt::LeftButton);
    EXPECT_EQ(a.lb1[3]->text(), "28");
    EXPECT_TRUE(said.empty()) << "opening a page made late says nothing the early one did not";

    // The keys for the pages open the others the same way.
    window->choosePage(Page::Compare);
    EXPECT_TRUE(window->compare->isBuilt());
    EXPECT_TRUE(window->compare->isVisible());
    EXPECT_EQ(window->findChild<QWidget *>("cmdSG"), window->compare->cmdSG);
}

TEST_F(PagesTest, TheAudioStageIsMadeWhenItFirstOpensWithItsPlayersBehindItsControls)
{
    window = std::make_unique<MainFrm>(nullptr, true);
    window->resize(1100, 760);
    window->show();
    AudioStage &stage = *window->P5;
    ASSERT_FALSE(stage.isBuilt());
    ASSERT_EQ(stage.ucgif, nullptr);
    ASSERT_EQ(stage.cl5, nullptr);
    window->Stop_All_Timers(); // the walker's stop reaches a stage with no controls yet
    window->resize(1200, 800);
    QCoreApplication::processEvents();

    stage.open("0.3");
    ASSERT_TRUE(stage.isBuilt());
    ASSERT_NE(stage.ucgif, nullptr);
    EXPECT_TRUE(stage.ucgif->isVisible());
    EXPECT_TRUE(stage.cl5->isVisible());
    EXPECT_EQ(stage.l9->text(), "Average reaction time \nVisual: 0.3 seconds");
    EXPECT_EQ(window->findChild<QWidget *>("ucgif"), stage.ucgif);
    EXPECT_EQ(window->findChild<QWidget *>("cmdStartAudio"), stage.cmdStartAudio);
    EXPECT_EQ(window->findChild<QWidget *>("ucGifPlayer2"), stage.ucGifPlayer2);
    // Centred in the stage's present width; the walker waits beyond its right edge.
    EXPECT_EQ(stage.ucgif->x(), (stage.width() - stage.ucgif->width()) / 2);
    EXPECT_EQ(stage.ucGifPlayer2->x(), stage.width());
    // Beneath the balloon, the buttons and the list, as when they were made first.
    const QObjectList order = stage.children();
    for (QWidget *control : {static_cast<QWidget *>(stage.IMmsg1), static_cast<QWidget *>(stage.cl5),
                             static_cast<QWidget *>(stage.cmdStartAudio), static_cast<QWidget *>(stage.l9)}) {
        EXPECT_LT(order.indexOf(stage.ucgif), order.indexOf(control));
        EXPECT_LT(order.indexOf(stage.ucGifPlayer2), order.indexOf(control));
    }
    ucGifPlayer *target = stage.ucgif;
    stage.open("0.3");
    EXPECT_EQ(stage.ucgif, target) << "made once";
}
