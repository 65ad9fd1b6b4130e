// The documentation's pictures, taken from the X server after real clicks: every analysis tab
// with a sample of twenty pairs and its show button pressed, at the window's start size and at
// 1280x1024. In the test run they go to the build's journey folder; scripts/screenshots.sh sends
// them to docs/screenshots.

#include "JourneyHarness.h"

#include <QFile>
#include <QThread>
#include <gtest/gtest.h>

using namespace journey;

namespace {

struct Scene {
    const char *page, *strip;
    int tab;
    const char *button; // pressed once the tab shows; empty for none
    const char *name;
};

const Scene kScenes[] = {
    {"Averages", "Tab1", 0, "cmdshowall", "averages_1_info"},
    {"Averages", "Tab1", 1, "cmdSA", "averages_2_distribution"},
    {"Averages", "Tab1", 2, "cmdBP", "averages_3_box_plot"},
    {"Averages", "Tab1", 3, "cmdSL", "averages_4_stem_leaf"},
    {"Groups", "Tab2", 0, "cmdTally", "groups_1_tally"},
    {"Groups", "Tab2", 1, "cmdR", "groups_2_estimated_mean"},
    {"Groups", "Tab2", 2, "cmdCF", "groups_3_cumulative"},
    {"Groups", "Tab2", 3, "cmdPlot", "groups_4_cf_plot"},
    {"Compare", "ShapedTabs1", 0, "cmdSG", "compare_1_scatter"},
    {"Compare", "ShapedTabs1", 1, "cmdSR", "compare_2_spearman"},
    {"Compare", "ShapedTabs1", 2, "cmdBPc", "compare_3_boxplots"},
};

void TakeEveryTab(Program &p, const QString &suffix, bool firstPass)
{
    QString shown;
    for (const Scene &s : kScenes) {
        const QString page = QString::fromLatin1(s.page);
        if (shown != page) {
            p.click(p.toolbarButton(page));
            ASSERT_TRUE(p.waitUntil([&] { return !p.control(QStringLiteral("P3")).visible; })) << s.page;
            shown = page;
        }
        p.click(p.tab(QString::fromLatin1(s.strip), s.tab));
        const Control button = p.control(QString::fromLatin1(s.button));
        ASSERT_TRUE(p.waitUntil([&] { return p.control(QString::fromLatin1(s.button)).visible; })) << s.name;
        // Once shown, a drawing stays; a second pass presses only what is not shown yet.
        if (firstPass || p.text(QString::fromLatin1(s.button)).startsWith(QLatin1String("Show")))
            p.click(button.centre());
        // A question may open a balloon; the picture is of the page.
        if (p.modalShown()) {
            p.key("Return");
            p.waitUntil([&] { return !p.modalShown(); });
        }
        p.settle(300);
        p.shot(QString::fromLatin1(s.name) + suffix);
    }
}

} // namespace

TEST(Screens, RecordPageAndAudioStage)
{
    Options options;
    options.sound = true;
    Program p(options);
    ASSERT_TRUE(p.started());
    p.shot(QStringLiteral("record_start"));
    p.click(QStringLiteral("command1"));
    for (int attempt = 0; attempt < 4; ++attempt) {
        p.ask(QStringLiteral("rnd 0.5"));
        ASSERT_TRUE(p.fire(20482));
        ASSERT_TRUE(p.waitUntil([&] { return p.ask(QStringLiteral("risen ucGifPlayer1_1")) == QLatin1String("1"); }));
        if (attempt == 0)
            p.shot(QStringLiteral("character_risen"));
        p.click(QStringLiteral("ucGifPlayer1_1"));
        p.settle(200);
    }
    ASSERT_TRUE(p.waitUntil([&] { return p.control(QStringLiteral("P5")).visible; }));
    // The walker crosses the stage once its timer lets it.
    ASSERT_TRUE(p.fire(20486));
    QThread::msleep(900);
    p.shot(QStringLiteral("audio_stage_walker"));
    ASSERT_TRUE(p.waitUntil([&] { return p.ask(QStringLiteral("state")).endsWith(QLatin1String("walker=0")); }, 20000));
    p.click(QStringLiteral("cmdStartAudio"));
    for (int attempt = 0; attempt < 4; ++attempt) {
        ASSERT_TRUE(p.fire(20484));
        ASSERT_TRUE(p.waitUntil([&] { return p.ask(QStringLiteral("risen ucgif")) == QLatin1String("1"); }));
        p.click(QStringLiteral("ucgif"));
        p.settle(200);
    }
    ASSERT_TRUE(p.waitUntil([&] { return p.control(QStringLiteral("cmdadd_0")).visible; }));
    p.shot(QStringLiteral("run_finished"));
    p.resizeWindow(1280, 1024);
    p.shot(QStringLiteral("run_finished_large"));
}

TEST(Screens, EveryAnalysisTabAtStartSizeAndLarge)
{
    Program p;
    ASSERT_TRUE(p.started());
    const QString path = p.documents() + QStringLiteral("/class.rtd");
    ASSERT_TRUE(WriteClass(path));
    ASSERT_TRUE(p.openByKeys(path));
    ASSERT_TRUE(p.waitUntil([&] { return p.text(QStringLiteral("Label5")) == QLatin1String("Data Collected: (20)"); }));
    TakeEveryTab(p, QString(), true);
    p.click(p.toolbarButton(QStringLiteral("Record")));
    p.resizeWindow(1280, 1024);
    TakeEveryTab(p, QStringLiteral("_large"), false);
}
