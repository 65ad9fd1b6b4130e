// Drives the main window through the scenes a pupil sees and saves each as a picture:
//   zrt_screenshots <folder>
// Timers are fired by hand and chance is scripted, so every picture is the same on each run.

#include "app/MainFrm.h"
#include "app/MainMod1.h"
#include "app/MsgBox.h"
#include "app/PagePanel.h"
#include "anim/ucGifPlayer.h"
#include "controls/Check.h"
#include "controls/GlossButton.h"
#include "controls/RowList.h"
#include "reaction/mStopWatch.h"
#include "dialogs/MsgBoxes.h"
#include "dialogs/msgFrm.h"

#include <QApplication>
#include <QDir>
#include <QTemporaryDir>
#include <QTest>

#include <cstdio>
#include <functional>

namespace {

std::int64_t g_counter = 0;
std::int64_t FakeCounter() { return g_counter; }

QString g_folder;

void Settle()
{
    for (int i = 0; i < 5; ++i) {
        QCoreApplication::processEvents();
        QTest::qWait(20);
    }
}

void Save(MainFrm &window, const QString &name)
{
    Settle();
    const QString path = QDir(g_folder).filePath(name + QStringLiteral(".png"));
    if (!window.grab().save(path))
        std::fprintf(stderr, "could not write %s\n", qPrintable(path));
    else
        std::printf("%s\n", qPrintable(path));
}

ucGifPlayer *Pop(MainFrm &window)
{
    window.chance().script({0.4f});
    window.timers().fire(TimerVisualPop);
    for (auto *c : window.ucGifPlayer1)
        if (Tag(c) == QLatin1String("1"))
            return c;
    return nullptr;
}

void VisualRun(MainFrm &window, std::initializer_list<int> ms)
{
    QTest::mouseClick(window.command1, Qt::LeftButton);
    for (int t : ms) {
        ucGifPlayer *risen = Pop(window);
        g_counter += t;
        if (risen)
            QTest::mousePress(risen, Qt::LeftButton, Qt::NoModifier, QPoint(55, 250));
    }
}

void SampleOfTwenty(MainFrm &window)
{
    static const char *visual[] = {"0.31", "0.28", "0.35", "0.42", "0.27", "0.33", "0.39", "0.3",  "0.45", "0.36",
                                   "0.29", "0.41", "0.34", "0.38", "0.26", "0.32", "0.47", "0.37", "0.33", "0.4"};
    static const char *audio[] = {"0.22", "0.25", "0.27", "0.31", "0.21", "0.26", "0.3",  "0.24", "0.36", "0.28",
                                  "0.2",  "0.33", "0.27", "0.29", "0.23", "0.25", "0.38", "0.3",  "0.26", "0.32"};
    for (int i = 0; i < 20; ++i) {
        window.cl2->AddItem(QString::fromLatin1(visual[i]));
        window.CL4->AddItem(QString::fromLatin1(audio[i]));
    }
    window.SetDataCount();
}

} // namespace

int main(int argc, char *argv[])
{
    QApplication app(argc, argv);
    g_folder = argc > 1 ? QString::fromLocal8Bit(argv[1]) : QStringLiteral("docs/screenshots");
    QDir().mkpath(g_folder);
    QTemporaryDir documents;
    MainMod1::Startup(documents.path(), [](const QString &, const QString &) {});
    MainMod1::Sounds.SoundDisabled = true;
    SetMsgBoxHook([](const QString &, int, const QString &) { return vbOK; });
    mStopWatch::SwSetCounter(&FakeCounter, 1000);

    MainFrm window(nullptr, true);
    window.setSleep([](int) {});
    window.resize(1100, 720);
    window.show();
    Save(window, QStringLiteral("record_start"));

    window.Check4->setValue(0);
    window.Check4_Click();
    QTest::mouseClick(window.command1, Qt::LeftButton);
    Pop(window);
    Save(window, QStringLiteral("character_risen"));
    window.GlossButton1_Click(1);
    VisualRun(window, {312, 287, 345, 298});
    Save(window, QStringLiteral("run_finished"));
    window.GlossButton1_Click(1);

    window.Check4->setValue(1);
    window.Check4_Click();
    VisualRun(window, {305, 290, 333, 281});
    window.timers().fire(TimerWalker);
    for (int i = 0; i < 40; ++i) {
        window.Timer1->stop();
        window.Timer1_Timer();
    }
    Save(window, QStringLiteral("audio_stage_walker"));
    while (window.WalkerBusy) {
        window.Timer1->stop();
        window.Timer1_Timer();
    }
    window.cmdadd_Click(1);

    SampleOfTwenty(window);
    auto press = [&](const char *key) { window.ClickToolbarButton(QString::fromLatin1(key)); };
    // Each analysis tab: open it, press its show button, take the picture.
    struct Tab {
        std::function<void()> open;
        GlossButton *show;
        const char *name;
    };
    auto &a = window.averages;
    auto &g = window.groups;
    auto &c = window.compare;
    const Tab tabs[] = {
        {[&] { press("Averages"); }, a.cmdshowall, "averages_1_info"},
        {[&] { window.Tab1_Click(1); }, a.cmdSA, "averages_2_distribution"},
        {[&] { window.Tab1_Click(2); }, a.cmdBP, "averages_3_box_plot"},
        {[&] { window.Tab1_Click(3); }, a.cmdSL, "averages_4_stem_leaf"},
        {[&] { press("Groups"); }, g.cmdTally, "groups_1_tally"},
        {[&] { window.Tab2_Click(1); }, g.cmdR, "groups_2_estimated_mean"},
        {[&] { window.Tab2_Click(2); }, g.cmdCF, "groups_3_cumulative"},
        {[&] { window.Tab2_Click(3); }, g.cmdPlot, "groups_4_cf_plot"},
        {[&] { press("Compare"); }, c.cmdSG, "compare_1_scatter"},
        {[&] { window.ShapedTabs1_Click(1); }, c.cmdSR, "compare_2_spearman"},
        {[&] { window.ShapedTabs1_Click(2); }, c.cmdBPc, "compare_3_boxplots"},
    };
    for (const Tab &tab : tabs) {
        tab.open();
        QTest::mouseClick(tab.show, Qt::LeftButton);
        if (tab.show == g.cmdPlot) {
            // The plot with its quartile reading lines.
            g.Check3->setValue(1);
            window.DrawCFPlot();
        }
        Save(window, QString::fromLatin1(tab.name));
    }

    // The balloon dialogs: the outliers help and a question with Yes and No.
    auto balloon = [](const QString &name) {
        zrt::msgFrm::setShownHook([name](zrt::msgFrm &box) {
            Settle();
            const QString path = QDir(g_folder).filePath(name + QStringLiteral(".png"));
            box.grab().save(path);
            std::printf("%s\n", qPrintable(path));
            box.done(1);
        });
    };
    balloon(QStringLiteral("balloon_outliers"));
    window.ShowOutliersHelp();
    balloon(QStringLiteral("balloon_yes_no"));
    zrt::msg_Box(QStringLiteral("Do you want to keep these results for the next lesson?"), 4 | 32,
                 QStringLiteral("Keep the results"), &window);
    zrt::msgFrm::setShownHook({});
    return 0;
}
