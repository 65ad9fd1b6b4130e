// The main window through its real controls and event loop, with timers fired by hand, chance
// scripted and the stopwatch's counter faked: whole runs, the data lists and the page buttons.

#include "MainWindowFixture.h"

#include "dialogs/msgFrm.h"

using namespace mainwindowtest;

TEST_F(MainWindowTest, StartsWithThreeCharactersFourAttemptsAndPairsOn)
{
    EXPECT_EQ(window->windowTitle(), "Zorvane Reaction Times");
    ASSERT_EQ(window->P3->ucGifPlayer1.size(), 3u);
    for (ucGifPlayer *character : window->P3->ucGifPlayer1) {
        EXPECT_TRUE(character->isVisible());
        EXPECT_EQ(character->FrameCount(), 3) << "the drawings are compiled into the program";
        EXPECT_EQ(character->CurrentFrame(), 1) << "down, below ground";
        EXPECT_EQ(character->size(), QSize(110, 394));
    }
    EXPECT_EQ(window->P3->dd1->Title(), "3");
    EXPECT_EQ(window->P3->DD2->Title(), "4");
    EXPECT_EQ(window->P3->Check4->Value(), 1);
    EXPECT_TRUE(window->ThemedToolbar1->BtnValue(5));
    for (int i : {7, 8, 9})
        EXPECT_FALSE(window->ThemedToolbar1->BtnEnabled(i));
    EXPECT_TRUE(window->timers().isArmed(TimerIdlePeek));
    EXPECT_EQ(window->timers().interval(TimerIdlePeek), 2500);
    EXPECT_FALSE(window->P3->GlossButton1[0]->isVisible());

    // The main area stays centred beside the left column and never grows beyond 12240 twips.
    window->resize(1600, 900);
    QCoreApplication::processEvents();
    EXPECT_EQ(window->P3->width(), 816);
    const int free = window->centralWidget()->width() - window->P2->width();
    EXPECT_NEAR(window->P3->x() - window->P2->width(), (free - 816) / 2, 1);
    EXPECT_GE(window->centralWidget()->minimumWidth(), 785);
    EXPECT_GE(window->centralWidget()->minimumHeight(), 656);
}

TEST_F(MainWindowTest, AVisualRunOfFourAttemptsGivesItsLinesAndMean)
{
    UncheckPairs();
    VisualRun({250, 300, 350, 400});
    EXPECT_EQ(Items(window->P3->cl1), (QStringList{"1)    0.25", "2)    0.3", "3)    0.35", "4)    0.4"}));
    EXPECT_EQ(window->P3->Label3->text(), "Average Reaction time 0.325 seconds");
    EXPECT_TRUE(window->P3->GlossButton1[0]->isVisible());
    EXPECT_TRUE(window->P3->GlossButton1[0]->isEnabled());
    EXPECT_TRUE(window->P3->command1->isEnabled());
    EXPECT_FALSE(window->P3->pSettings->isEnabled());
    EXPECT_FALSE(window->timers().isArmed(TimerVisualPop));

    QTest::mouseClick(window->P3->GlossButton1[0], Qt::LeftButton);
    EXPECT_EQ(Items(window->P2->cl2), QStringList{"0.325"});
    EXPECT_EQ(window->P2->Label5->text(), "Data Collected: (1)");
    EXPECT_FALSE(window->P3->GlossButton1[0]->isVisible());
    EXPECT_FALSE(window->P3->pSettings->isEnabled()) << "settings stay locked while data are collected";
}

TEST_F(MainWindowTest, ASlowRunLeavesOnlyCancelAndASecondStartSumsOntoTheOldMean)
{
    UncheckPairs();
    VisualRun({2000, 2000, 2000, 2000});
    EXPECT_EQ(window->P3->Label3->text(), "Average Reaction time 2 seconds\nFar too slow please try again!");
    EXPECT_FALSE(window->P3->GlossButton1[0]->isEnabled());
    EXPECT_FALSE(window->P3->command1->isEnabled());
    EXPECT_TRUE(window->P3->GlossButton1[1]->isEnabled());

    QTest::mouseClick(window->P3->GlossButton1[1], Qt::LeftButton);
    EXPECT_EQ(window->P2->cl2->ListCount(), 0);
    EXPECT_TRUE(window->P3->pSettings->isEnabled()) << "a Cancel with nothing collected unlocks";

    // Finished, then Start again without Add: the old mean is summed in (0.4 + 4 x 0.4) / 4.
    VisualRun({400, 400, 400, 400});
    VisualRun({400, 400, 400, 400});
    EXPECT_EQ(window->P3->Label3->text(), "Average Reaction time 0.5 seconds");
}

TEST_F(MainWindowTest, OneCharacterFalseStartRestartsTheWait)
{
    UncheckPairs();
    window->P3->List1->setListIndex(0);
    ASSERT_EQ(window->P3->ucGifPlayer1.size(), 1u);
    QTest::mouseClick(window->P3->command1, Qt::LeftButton);
    window->chance().script({0.9f}); // the new delay: whole part of 0.9 * 5 + 1 = 5 s
    QTest::mousePress(window->P3->ucGifPlayer1[0], Qt::LeftButton, Qt::NoModifier, QPoint(50, 200));
    EXPECT_EQ(window->P3->run.attemptCount(), 0);
    EXPECT_EQ(window->timers().interval(TimerVisualPop), 5000);
    EXPECT_EQ(window->P3->cl1->ListCount(), 0);
}

TEST_F(MainWindowTest, APairedRunWithTheWalkerAddsBothMeansAtOneIndex)
{
    window->setSleep([](int) {});
    VisualRun({300, 300, 300, 300});
    ASSERT_TRUE(window->P5->isVisible());
    EXPECT_EQ(window->P5->l9->text(), "Average reaction time \nVisual: 0.3 seconds");
    EXPECT_TRUE(window->timers().isArmed(TimerWalker));
    EXPECT_FALSE(window->timers().isArmed(TimerIdlePeek));

    QTest::mouseClick(window->P5->cmdStartAudio, Qt::LeftButton);
    EXPECT_FALSE(window->P5->cmdStartAudio->isEnabled());

    // The walker sets off; a cue due while it walks is put off without a sound.
    auto &player = SoundBas::SoundPlayer::instance();
    player.setRecording(true);
    player.clearHistory();
    window->timers().fire(TimerWalker);
    window->P5->Timer1->stop();
    window->P5->Timer1_Timer();
    EXPECT_TRUE(window->P5->WalkerBusy);
    window->chance().script({0.0f});
    window->timers().fire(TimerAudioCue);
    EXPECT_EQ(window->timers().interval(TimerAudioCue), 1000);
    EXPECT_FALSE(window->P5->cueSounding());
    int ticks = 0;
    while (window->P5->WalkerBusy && ticks++ < 2000) {
        window->P5->Timer1->stop();
        window->P5->Timer1_Timer();
    }
    EXPECT_FALSE(window->P5->WalkerBusy) << "the walk ends, back off stage";
    EXPECT_EQ(window->P5->ucGifPlayer2->x(), window->P5->width());

    for (int ms : {500, 500, 600, 600}) {
        window->timers().fire(TimerAudioCue);
        ASSERT_TRUE(window->P5->cueSounding());
        g_counter += ms;
        QTest::mousePress(window->P5->ucgif, Qt::LeftButton, Qt::NoModifier, QPoint(50, 200));
    }
    EXPECT_EQ(Items(window->P5->cl5), (QStringList{"1)    0.5", "2)    0.5", "3)    0.6", "4)    0.6"}));
    EXPECT_EQ(window->P5->l9->text(), "Average reaction time \nVisual: 0.3 seconds\nAudio: 0.55 seconds");
    EXPECT_TRUE(window->P5->cmdadd[0]->isEnabled());
    player.setRecording(false);

    QTest::mouseClick(window->P5->cmdadd[0], Qt::LeftButton);
    EXPECT_EQ(Items(window->P2->cl2), QStringList{"0.3"});
    EXPECT_EQ(Items(window->P2->CL4), QStringList{"0.55"});
    EXPECT_FALSE(window->P5->isVisible());
    EXPECT_TRUE(window->timers().isArmed(TimerIdlePeek));
}

TEST_F(MainWindowTest, SixResultsOpenTheAnalysisAndRemoveNeedsASelection)
{
    UncheckPairs();
    for (int run = 0; run < 6; ++run) {
        VisualRun({300 + run * 10, 300, 300, 300});
        QTest::mouseClick(window->P3->GlossButton1[0], Qt::LeftButton);
        const bool open = run >= 5;
        for (int i : {7, 8, 9})
            EXPECT_EQ(window->ThemedToolbar1->BtnEnabled(i), open) << "after result " << run + 1;
    }
    window->P2->cl2->setListIndex(-1);
    QTest::mouseClick(window->P2->cmdRemove, Qt::LeftButton);
    ASSERT_EQ(said.size(), 1u);
    EXPECT_EQ(said[0].text, "Please select an averaged reaction time to remove!");
    EXPECT_EQ(said[0].caption, "No Time Selected");

    window->P2->cl2->setListIndex(0);
    QTest::mouseClick(window->P2->cmdRemove, Qt::LeftButton);
    EXPECT_EQ(window->P2->cl2->ListCount(), 5);
    EXPECT_FALSE(window->ThemedToolbar1->BtnEnabled(7));

    // Clear: nothing asked, one character and 4 attempts, settings open again.
    window->ToolbarButtonClick("Clear");
    EXPECT_EQ(window->P2->cl2->ListCount(), 0);
    EXPECT_EQ(window->P3->ucGifPlayer1.size(), 1u);
    EXPECT_EQ(window->P3->DD2->Title(), "4");
    EXPECT_TRUE(window->P3->pSettings->isEnabled());
}

TEST_F(MainWindowTest, APageButtonStopsTheRunsTimers)
{
    UncheckPairs();
    QTest::mouseClick(window->P3->command1, Qt::LeftButton);
    ASSERT_TRUE(window->timers().isArmed(TimerVisualPop));
    window->ToolbarButtonClick("Averages");
    EXPECT_FALSE(window->timers().isArmed(TimerVisualPop));
    EXPECT_FALSE(window->timers().isArmed(TimerIdlePeek));
    EXPECT_FALSE(window->P3->command1->isEnabled()) << "the run stays unfinished";
}

TEST_F(MainWindowTest, ARisenCharacterIsDrawnWholeAtOnce)
{
    // The pop steps frames synchronously; every frame must already be built to be seen.
    UncheckPairs();
    QTest::mouseClick(window->P3->command1, Qt::LeftButton);
    window->chance().script({0.5f});
    window->timers().fire(TimerVisualPop);
    ucGifPlayer *risen = window->P3->ucGifPlayer1[1];
    ASSERT_EQ(window->P3->characterState(1), RecordPage::CharacterState::Risen);
    EXPECT_EQ(risen->CurrentFrame(), 3);
    // The control alone (on a plain ground) and the page agree only where the drawing covers
    // the page's sky, so many equal pixels above the ground line mean the character is there.
    const QImage alone = risen->grab().toImage();
    const QImage page = window->P3->grab().toImage();
    int drawnPixels = 0;
    for (int y = 0; y < 300; ++y)
        for (int x = 0; x < alone.width(); ++x)
            drawnPixels += alone.pixel(x, y) == page.pixel(risen->x() + x, risen->y() + y) ? 1 : 0;
    EXPECT_GT(drawnPixels, 2000) << "the whole character stands above ground on the page";
}

TEST_F(MainWindowTest, PlayersTakeTheValuesTheWindowStoresForThem)
{
    // The walker: a tenth of a second at least per frame, natural size, built after load and
    // still; a 0 ms frame timer would step it thousands of times a second.
    EXPECT_EQ(window->P5->ucGifPlayer2->MinFrameDelay(), 100);
    EXPECT_EQ(window->P5->ucGifPlayer2->Stretch(), 4);
    EXPECT_EQ(window->P5->ucGifPlayer2->DelayAnimation(), 2);
    EXPECT_EQ(window->P5->ucGifPlayer2->size(), QSize(179, 174));
    for (ucGifPlayer *player : {window->P5->ucgif, window->P3->ucGifPlayer1[0]}) {
        EXPECT_EQ(player->Stretch(), 3);
        EXPECT_EQ(player->DelayAnimation(), 2);
        EXPECT_EQ(player->FrameCount(), 3);
        EXPECT_EQ(player->Loops(), 1) << "one greeting when shown, then rest";
    }
    // After at most one greeting they rest on the first frame, and stay there.
    const auto resting = [this] {
        for (ucGifPlayer *c : window->P3->ucGifPlayer1)
            if (c->CurrentFrame() != 1 || c->Action() != 0)
                return false;
        return true;
    };
    EXPECT_TRUE(QTest::qWaitFor(resting, 1000));
    QTest::qWait(600);
    EXPECT_TRUE(resting());
}

TEST_F(MainWindowTest, AfterOpenOrAddThePageButtonsStandUpAndTheAudioStageFollowsItsPage)
{
    UncheckPairs();
    for (int run = 0; run < 6; ++run) {
        VisualRun({300, 300, 300, 300});
        QTest::mouseClick(window->P3->GlossButton1[0], Qt::LeftButton);
    }
    window->ClickToolbarButton("Averages");
    ASSERT_TRUE(window->p4[0]->isVisible());
    // A change of the count falls back to Record with the page's button up again, so the next
    // press on it opens the page instead of going back.
    window->P2->cl2->setListIndex(0);
    QTest::mouseClick(window->P2->cmdRemove, Qt::LeftButton);
    window->P2->cl2->AddItem("0.4");
    window->P2->SetDataCount();
    EXPECT_TRUE(window->P3->isVisible());
    EXPECT_FALSE(window->ThemedToolbar1->BtnValue(7));
    window->ClickToolbarButton("Averages");
    EXPECT_TRUE(window->p4[0]->isVisible());

    // The audio stage is part of the Record page: it leaves and comes back with it.
    window->ClickToolbarButton("Record");
    window->P3->Check4->setValue(1);
    window->P2->Check4_Click();
    VisualRun({300, 300, 300, 300});
    ASSERT_TRUE(window->P5->isVisible());
    window->ClickToolbarButton("Groups");
    EXPECT_TRUE(window->p4[1]->isVisible());
    EXPECT_FALSE(window->P5->isVisible());
    window->ClickToolbarButton("Record");
    EXPECT_TRUE(window->P5->isVisible());
}

TEST_F(MainWindowTest, WithoutSoundOutputThePairEndsOnTheRecordPage)
{
    audioOutput = false;
    bool told = false;
    zrt::msgFrm::setShownHook([&](zrt::msgFrm &frm) {
        told = frm.lblmsg()->text().contains("no sound output");
        frm.reject();
    });
    VisualRun({300, 300, 300, 300});
    zrt::msgFrm::setShownHook({});
    EXPECT_TRUE(told) << "the pupil is told before any audio test";
    EXPECT_FALSE(window->P5->isVisible());
    EXPECT_FALSE(window->P3->GlossButton1[0]->isEnabled()) << "no half of a pair is added";
    EXPECT_TRUE(window->P3->GlossButton1[1]->isVisible());
    QTest::mouseClick(window->P3->GlossButton1[1], Qt::LeftButton);
    EXPECT_TRUE(window->P3->command1->isEnabled());
    EXPECT_EQ(window->P2->cl2->ListCount(), 0);
}

TEST_F(MainWindowTest, TheTwoListsScrollAsOne)
{
    for (int i = 0; i < 100; ++i) {
        window->P2->cl2->AddItem(QString::number(0.3 + i / 1000.0));
        window->P2->CL4->AddItem(QString::number(0.5 + i / 1000.0));
    }
    window->P2->cl2->setTopIndex(12);
    EXPECT_EQ(window->P2->CL4->TopIndex(), 12);
    window->P2->CL4->setTopIndex(3);
    EXPECT_EQ(window->P2->cl2->TopIndex(), 3);
}

TEST_F(MainWindowTest, TheRecordBandKeepsItsControlsApartAtEveryWidth)
{
    for (int width : {785, 850, 950, 1100, 1400}) {
        window->resize(width, 700);
        QCoreApplication::processEvents();
        std::vector<QWidget *> band = {window->P3->command1, window->P3->Label3, window->P3->GlossButton1[0],
                                       window->P3->GlossButton1[1], window->P3->cl1, window->P3->pSettings};
        for (size_t i = 0; i < band.size(); ++i) {
            EXPECT_TRUE(window->P3->rect().contains(band[i]->geometry())) << width << " control " << i;
            for (size_t j = i + 1; j < band.size(); ++j)
                EXPECT_FALSE(band[i]->geometry().intersects(band[j]->geometry()))
                    << "controls " << i << " and " << j << " at width " << width;
        }
    }
}
