// Every show button of the analysis pages, pressed with the mouse on the real window: its chart
// must be on the screen at once, without a tab switch, and go again with Hide; a change of the
// analysed list redraws the chart that shows.

#include "JourneyHarness.h"

#include <QFile>
#include <gtest/gtest.h>

using namespace journey;

namespace {

void OpenClass(Program &p)
{
    const QString path = p.documents() + QStringLiteral("/class.rtd");
    ASSERT_TRUE(WriteClass(path));
    ASSERT_TRUE(p.openByKeys(path));
    ASSERT_TRUE(p.waitUntil([&] { return p.text(QStringLiteral("Label5")) == QLatin1String("Data Collected: (20)"); }));
}

// Pixels that differ between two pictures of one place, leaving out the given rectangle.
int Changed(const QImage &a, const QImage &b, const QRect &leaveOut)
{
    int n = 0;
    for (int y = 0; y < std::min(a.height(), b.height()); ++y)
        for (int x = 0; x < std::min(a.width(), b.width()); ++x)
            if (!leaveOut.contains(x, y) && a.pixel(x, y) != b.pixel(x, y))
                ++n;
    return n;
}

struct Show {
    const char *page, *strip;
    int tab;
    const char *button, *surface;
};

const Show kShows[] = {
    {"Averages", "Tab1", 2, "cmdBP", "pBox"},         {"Averages", "Tab1", 3, "cmdSL", "PicSL"},
    {"Groups", "Tab2", 0, "cmdTally", "ptally"},      {"Groups", "Tab2", 1, "cmdR", "pEmean"},
    {"Groups", "Tab2", 2, "cmdCF", "pCF"},            {"Groups", "Tab2", 3, "cmdPlot", "ppCF"},
    {"Compare", "ShapedTabs1", 0, "cmdSG", "pFR_0"},  {"Compare", "ShapedTabs1", 2, "cmdBPc", "pFR_2"},
};

} // namespace

TEST(ChartJourney, EveryShowButtonDrawsAtOnceAndHideClears)
{
    Program p;
    ASSERT_TRUE(p.started());
    OpenClass(p);
    QString shown;
    for (const Show &s : kShows) {
        const QString page = QString::fromLatin1(s.page), button = QString::fromLatin1(s.button);
        if (page != shown) {
            p.click(p.toolbarButton(page));
            ASSERT_TRUE(p.waitUntil([&] { return !p.control(QStringLiteral("P3")).visible; }));
            shown = page;
        }
        p.click(p.tab(QString::fromLatin1(s.strip), s.tab));
        ASSERT_TRUE(p.waitUntil([&] { return p.control(button).visible; })) << s.button;
        const QRect surface = p.control(QString::fromLatin1(s.surface)).rect;
        const Control b = p.control(button);
        const QRect leaveOut = b.rect.translated(-surface.topLeft()).adjusted(-2, -2, 2, 2);
        p.settle(200);
        const QImage before = p.region(surface);
        p.click(b.centre());
        p.settle(300);
        const QImage drawn = p.region(surface);
        EXPECT_GT(Changed(before, drawn, leaveOut), 200) << s.button << " drew nothing on the screen";
        p.click(b.centre());
        p.settle(300);
        const QImage hidden = p.region(surface);
        EXPECT_LT(Changed(before, hidden, leaveOut), 20) << s.button << ": Hide left marks";
    }
}

TEST(ChartJourney, TickingAudioDataRedrawsTheTallyThatShows)
{
    Program p;
    ASSERT_TRUE(p.started());
    OpenClass(p);
    p.click(p.toolbarButton(QStringLiteral("Groups")));
    p.click(p.tab(QStringLiteral("Tab2"), 0));
    p.click(QStringLiteral("cmdTally"));
    const QRect surface = p.control(QStringLiteral("ptally")).rect;
    const QRect leaveOut = p.control(QStringLiteral("cmdTally")).rect.translated(-surface.topLeft());
    p.settle(200);
    const QImage visual = p.region(surface);
    p.click(p.control(QStringLiteral("Check5_1")).rect.topLeft() + QPoint(7, 9));
    ASSERT_TRUE(p.waitUntil([&] { return p.text(QStringLiteral("Check5_1")).endsWith(QLatin1String("=1")); }));
    p.settle(300);
    EXPECT_GT(Changed(visual, p.region(surface), leaveOut), 100) << "the tally still shows the visual times";
    p.shot(QStringLiteral("groups_tally_audio"));
}
