// The window worked from the keyboard: the toolbar's keys, the space bar as the answer to the
// tests (and kept in the settings file), check boxes worked by the space bar, and a file given on
// the command line.

#include "MainWindowFixture.h"

#include "files/REGbas1.h"

#include <QFile>
#include <QTemporaryDir>

using namespace mainwindowtest;

namespace {

class KeyboardTest : public MainWindowTest {
protected:
    void SetUp() override
    {
        ASSERT_TRUE(folder.isValid());
        MainMod1::SettingsFile = folder.filePath("Zorvanes.ini");
        QFile(MainMod1::SettingsFile).open(QIODevice::WriteOnly);
        MainWindowTest::SetUp();
        window->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(window.get()));
    }

    void Key(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        QTest::keyClick(QApplication::focusWidget() ? QApplication::focusWidget() : window.get(),
                        static_cast<Qt::Key>(key), modifiers);
    }

    // One attempt answered by the space bar `ms` after the character rose.
    void PopAndSpace(int ms)
    {
        window->chance().script({0.0f});
        ASSERT_TRUE(window->timers().fire(TimerVisualPop));
        g_counter += ms;
        Key(Qt::Key_Space);
    }

    QString Setting(const char *key) const
    {
        return QString::fromStdString(
            REGbas1::ReadIniString("Settings", key, "", 255, MainMod1::SettingsFile.toStdString()));
    }

    QTemporaryDir folder;
};

} // namespace

TEST_F(KeyboardTest, TheSpaceBarAnswersARunOnlyWhenChosenAndTheResultSaysSo)
{
    UncheckPairs();
    // Off (the default): the space bar does nothing to a run.
    QTest::mouseClick(window->P3->command1, Qt::LeftButton);
    PopAndSpace(300);
    EXPECT_EQ(window->P3->cl1->ListCount(), 0);
    EXPECT_EQ(window->P3->characterState(0), RecordPage::CharacterState::Risen);

    // Chosen by Tab and the space bar on its box: kept in the settings file.
    window->P3->GlossButton1[1]->show();
    QTest::mouseClick(window->P3->GlossButton1[1], Qt::LeftButton); // Cancel the run
    window->P3->CheckSpace->setFocus(Qt::TabFocusReason);
    Key(Qt::Key_Space);
    ASSERT_TRUE(window->P3->respondsWithSpace());
    EXPECT_EQ(Setting("SpaceBar"), "1");

    QTest::mouseClick(window->P3->command1, Qt::LeftButton);
    for (int ms : {200, 300, 400, 300})
        PopAndSpace(ms);
    EXPECT_EQ(Items(window->P3->cl1), (QStringList{"1)    0.2", "2)    0.3", "3)    0.4", "4)    0.3"}));
    EXPECT_EQ(window->P3->Label3->text(), "Average Reaction time 0.3 seconds\n(by space bar)");
    // Between runs the space bar is the focused control's again.
    window->P3->GlossButton1[0]->setFocus();
    Key(Qt::Key_Space);
    EXPECT_EQ(window->P3->cl1->ListCount(), 4);

    // A new window starts with the kept choice.
    window = std::make_unique<MainFrm>(nullptr, true);
    EXPECT_TRUE(window->P3->respondsWithSpace());
}

TEST_F(KeyboardTest, ASpaceBeforeTheCharacterRisesIsAFalseStart)
{
    UncheckPairs();
    window->P3->setRespondWithSpace(true);
    window->P3->List1->setListIndex(0); // one character: a false start restarts the wait
    window->chance().script({0.0f});
    QTest::mouseClick(window->P3->command1, Qt::LeftButton);
    ASSERT_TRUE(window->timers().isArmed(TimerVisualPop));
    window->chance().script({0.9f});
    Key(Qt::Key_Space);
    EXPECT_EQ(window->P3->cl1->ListCount(), 0);
    EXPECT_EQ(window->timers().interval(TimerVisualPop), 5000) << "the wait was drawn anew";
}

TEST_F(KeyboardTest, ToolbarKeysOpenThePagesAndFiles)
{
    // Without six results the pages stay shut, by key as by mouse.
    Key(Qt::Key_2, Qt::ControlModifier);
    EXPECT_FALSE(window->averages->isVisible());
    for (int i = 0; i < 6; ++i) {
        window->P2->cl2->AddItem(QString::number(0.3 + i / 100.0));
        window->P2->CL4->AddItem(QString::number(0.4 - i / 100.0));
    }
    window->P2->SetDataCount();
    Key(Qt::Key_2, Qt::ControlModifier);
    EXPECT_TRUE(window->averages->isVisible());
    Key(Qt::Key_2, Qt::ControlModifier);
    EXPECT_TRUE(window->averages->isVisible()) << "the page's key again leaves it shown";
    Key(Qt::Key_4, Qt::ControlModifier);
    EXPECT_TRUE(window->compare->isVisible());
    EXPECT_FALSE(window->averages->isVisible());
    Key(Qt::Key_1, Qt::ControlModifier);
    EXPECT_TRUE(window->P3->isVisible());
    EXPECT_TRUE(window->pageChosen(Page::Record));
    Key(Qt::Key_N, Qt::ControlModifier);
    EXPECT_EQ(window->P2->count(), 0);
    said.clear();
    Key(Qt::Key_S, Qt::ControlModifier);
    ASSERT_EQ(said.size(), 1u);
    EXPECT_EQ(said[0].caption, "No Data");
}

TEST_F(KeyboardTest, AFileOnTheCommandLineOpensAndABadOneLeavesTheDataAlone)
{
    const QString good = folder.filePath("class.rtd");
    QFile file(good);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("[RTDINFO]\r\nVanes=2\r\nAttempts=5\r\nDataItems=2\r\nSample=1\r\n[DATA]\r\n"
               "Data1=0.31,0.27\r\nData2=0.42,0.35\r\n");
    file.close();
    window->openFile(good);
    EXPECT_EQ(Items(window->P2->cl2), (QStringList{"0.31", "0.42"}));
    EXPECT_EQ(Items(window->P2->CL4), (QStringList{"0.27", "0.35"}));
    EXPECT_EQ(window->P3->DD2->Title(), "5");
    EXPECT_TRUE(window->P2->DataSaved);

    said.clear();
    window->openFile(folder.filePath("missing.rtd"));
    ASSERT_EQ(said.size(), 1u);
    EXPECT_TRUE(said[0].text.contains("missing.rtd")) << said[0].text.toStdString();
    EXPECT_EQ(window->P2->count(), 2);
}
