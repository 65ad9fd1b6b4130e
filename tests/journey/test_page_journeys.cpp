// Moving between the pages with the toolbar: what comes to the front, what rests, and what a
// press on a page button opens after a file was opened.

#include "JourneyHarness.h"

#include <QFile>
#include <QThread>
#include <gtest/gtest.h>

using namespace journey;

namespace {

constexpr int TimerVisualPop = 20482;

// The stage above the band: no pixel of it may change while nothing is asked of it.
void ExpectStageAtRest(Program &p, const char *when)
{
    const QRect stage = p.control(QStringLiteral("P3")).rect.adjusted(0, 0, 0, -170);
    QThread::msleep(1000); // past the greeting of a page that appears
    const QImage first = p.region(stage);
    for (int i = 0; i < 3; ++i) {
        QThread::msleep(600);
        EXPECT_EQ(p.region(stage), first) << "the stage moved by itself " << when;
    }
    for (int i = 0; i < 3; ++i)
        EXPECT_TRUE(p.ask(QStringLiteral("frame ucGifPlayer1_%1").arg(i)).startsWith(QLatin1String("1 "))) << when;
}

} // namespace

TEST(PageJourney, CharactersRestAfterEveryReturnToRecord)
{
    Program p;
    ASSERT_TRUE(p.started());
    ASSERT_TRUE(WriteSample(p.documents() + QStringLiteral("/twenty.rtd"), 20, 300, 7, 500, 5));
    ASSERT_TRUE(p.openByKeys(p.documents() + QStringLiteral("/twenty.rtd")));
    ASSERT_TRUE(p.waitUntil([&] { return p.lines(QStringLiteral("cl2")) == 20; }));
    for (const char *page : {"Averages", "Groups", "Compare"}) {
        p.click(p.toolbarButton(QString::fromLatin1(page)));
        ASSERT_TRUE(p.waitUntil([&] { return !p.control(QStringLiteral("P3")).visible; })) << page;
        p.click(p.toolbarButton(QStringLiteral("Record")));
        ASSERT_TRUE(p.waitUntil([&] { return p.control(QStringLiteral("P3")).visible; })) << page;
        ExpectStageAtRest(p, page);
    }
    p.shot(QStringLiteral("record_after_pages"));
}

TEST(PageJourney, AfterOpenThePageButtonOpensItsPage)
{
    Program p;
    ASSERT_TRUE(p.started());
    ASSERT_TRUE(WriteSample(p.documents() + QStringLiteral("/twenty.rtd"), 20, 300, 7, 500, 5));
    ASSERT_TRUE(WriteSample(p.documents() + QStringLiteral("/more.rtd"), 24, 300, 7, 500, 5));
    ASSERT_TRUE(p.openByKeys(p.documents() + QStringLiteral("/twenty.rtd")));
    p.click(p.toolbarButton(QStringLiteral("Averages")));
    ASSERT_TRUE(p.waitUntil([&] { return p.control(QStringLiteral("p4_0")).visible; }));
    // Opening another sample falls back to Record; the next press on Averages opens Averages.
    ASSERT_TRUE(p.openByKeys(p.documents() + QStringLiteral("/more.rtd")));
    ASSERT_TRUE(p.waitUntil([&] { return p.lines(QStringLiteral("cl2")) == 24; }));
    ASSERT_TRUE(p.waitUntil([&] { return p.control(QStringLiteral("P3")).visible; }));
    p.click(p.toolbarButton(QStringLiteral("Averages")));
    ASSERT_TRUE(p.waitUntil([&] { return p.control(QStringLiteral("p4_0")).visible; }))
        << "the first press went back to Record";
    EXPECT_FALSE(p.control(QStringLiteral("P3")).visible);
    p.shot(QStringLiteral("averages_after_open"));
}

TEST(PageJourney, AudioStageNeverStandsOverAnAnalysisPage)
{
    Options options;
    options.sound = true;
    Program p(options);
    ASSERT_TRUE(p.started());
    ASSERT_TRUE(WriteSample(p.documents() + QStringLiteral("/twenty.rtd"), 20, 300, 7, 500, 5));
    ASSERT_TRUE(p.openByKeys(p.documents() + QStringLiteral("/twenty.rtd")));
    ASSERT_TRUE(p.waitUntil([&] { return p.lines(QStringLiteral("cl2")) == 20; }));
    // A visual run hands over to the audio stage, which is left mid-way for a page.
    p.click(QStringLiteral("command1"));
    for (int attempt = 0; attempt < 4; ++attempt) {
        p.ask(QStringLiteral("rnd 0"));
        ASSERT_TRUE(p.fire(TimerVisualPop));
        ASSERT_TRUE(p.waitUntil([&] { return p.ask(QStringLiteral("risen ucGifPlayer1_0")) == QLatin1String("1"); }));
        p.click(QStringLiteral("ucGifPlayer1_0"));
        ASSERT_TRUE(p.waitUntil([&] { return p.lines(QStringLiteral("cl1")) == attempt + 1; }));
    }
    ASSERT_TRUE(p.waitUntil([&] { return p.control(QStringLiteral("P5")).visible; }));
    for (const char *page : {"Averages", "Compare"}) {
        p.click(p.toolbarButton(QString::fromLatin1(page)));
        ASSERT_TRUE(p.waitUntil([&] { return !p.control(QStringLiteral("P3")).visible; })) << page;
        EXPECT_FALSE(p.control(QStringLiteral("P5")).visible) << page;
        // Not a pixel of the stage's curtain over the page.
        const QImage shown = p.region(p.control(QStringLiteral("P3")).rect);
        EXPECT_LT(CountNear(shown, qRgb(200, 30, 40), 40), 1000) << page; // the curtain alone is tens of thousands
    }
    p.shot(QStringLiteral("compare_over_audio_stage"));
    p.click(p.toolbarButton(QStringLiteral("Record")));
    ASSERT_TRUE(p.waitUntil([&] { return p.control(QStringLiteral("P3")).visible; }));
    EXPECT_TRUE(p.control(QStringLiteral("P5")).visible) << "the stage comes back with its page";
}
