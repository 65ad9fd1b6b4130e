#pragma once
// A main window with manual timers, scripted chance, a faked stopwatch counter and answered
// message boxes, shared by the window's test files.

#include "app/MainFrm.h"
#include "app/pages/AudioStage.h"
#include "app/pages/DeferredPage.h"
#include "app/MainMod1.h"
#include "dialogs/MsgBox.h"
#include "app/PagePanel.h"
#include "anim/ucGifPlayer.h"
#include "controls/Check.h"
#include "controls/DropPanel.h"
#include "controls/GlossButton.h"
#include "controls/RowList.h"
#include "reaction/SoundBas.h"
#include "reaction/mStopWatch.h"
#include "toolbar/ThemedToolbar.h"

#include <QLabel>
#include <QTest>
#include <gtest/gtest.h>

#include <cstdint>
#include <memory>

using zrt::Check;
using zrt::DropPanel;
using zrt::GlossButton;
using zrt::RowList;
using zrt::ShapedTabs;
using zrt::ucGifPlayer;

namespace mainwindowtest {

inline std::int64_t g_counter = 0;
inline std::int64_t FakeCounter() { return g_counter; }

struct Said {
    QString text, caption;
    int style = 0;
};

class MainWindowTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        mStopWatch::SwReset();
        mStopWatch::SwSetCounter(&FakeCounter, 1000); // one count is a millisecond
        g_counter = 0;
        said.clear();
        SetMsgBoxHook([this](const QString &text, int style, const QString &caption) {
            said.push_back({text, caption, style});
            return answer;
        });
        MainMod1::Sounds.SoundDisabled = true;
        window = std::make_unique<MainFrm>(nullptr, true);
        // The analysis pages and the audio stage are made when first opened; these tests reach
        // into them at once.
        for (auto *page : window->p4)
            page->ensureBuilt();
        window->P5->ensureBuilt();
        window->setAudioOutputCheck([this] { return audioOutput; });
        window->resize(1000, 700);
        window->show();
        // The players build their frames after load on a 20 ms timer; the game acts only later.
        QTest::qWait(40);
    }
    void TearDown() override
    {
        window.reset();
        SetMsgBoxHook({});
        mStopWatch::SwSetCounter(nullptr);
    }

    // Pairs of results put into the two lists, as Add puts them.
    void Collect(std::initializer_list<std::pair<const char *, const char *>> pairs)
    {
        for (auto [visual, audio] : pairs) {
            window->P2->cl2->AddItem(visual);
            window->P2->CL4->AddItem(audio);
        }
        window->P2->SetDataCount();
    }
    // Six pairs, so that every analysis page opens: 23 25 27 29 31 33 sorted; in classes 20 to
    // under 30: 4, 30 to under 40: 2.
    void Six()
    {
        Collect({{"0.23", "0.31"}, {"0.27", "0.35"}, {"0.31", "0.3"}, {"0.25", "0.29"}, {"0.29", "0.4"},
                 {"0.33", "0.37"}});
    }

    // Pops the character the script chooses and presses it after `ms` milliseconds.
    void PopAndPress(int ms, float choice = 0.0f)
    {
        window->chance().script({choice});
        ASSERT_TRUE(window->timers().fire(TimerVisualPop));
        ucGifPlayer *risen = nullptr;
        for (size_t i = 0; i < window->P3->ucGifPlayer1.size(); ++i)
            if (window->P3->characterState(static_cast<int>(i)) == RecordPage::CharacterState::Risen)
                risen = window->P3->ucGifPlayer1[i];
        ASSERT_NE(risen, nullptr);
        g_counter += ms;
        QTest::mousePress(risen, Qt::LeftButton, Qt::NoModifier, QPoint(50, 200));
    }

    void VisualRun(std::initializer_list<int> times)
    {
        QTest::mouseClick(window->P3->command1, Qt::LeftButton);
        for (int ms : times)
            PopAndPress(ms);
    }

    void UncheckPairs()
    {
        window->P3->Check4->setValue(0);
        window->P2->Check4_Click();
    }

    std::unique_ptr<MainFrm> window;
    std::vector<Said> said;
    int answer = vbOK;
    bool audioOutput = true;
};

inline QStringList Items(RowList *list)
{
    QStringList items;
    for (int i = 0; i < list->ListCount(); ++i)
        items << list->ItemText(i);
    return items;
}

} // namespace mainwindowtest
