// Every show button of the analysis pages, pressed with the mouse on the real window: its chart
// must be on the screen at once, without a tab switch, and go again with Hide; a change of the
// analysed list redraws the chart that shows.

#include "JourneyHarness.h"

#include <QFile>
#include <gtest/gtest.h>

using namespace journey;

namespace {

QPoint ToolbarButton(Program &p, const QString &key)
{
    const QStringList parts = p.ask(QStringLiteral("button ") + key).split(QLatin1Char(' '));
    return parts.size() < 4 ? QPoint() : QRect(parts[0].toInt(), parts[1].toInt(), parts[2].toInt(), parts[3].toInt()).center();
}

QPoint Tab(Program &p, const QString &strip, int index)
{
    const QStringList parts = p.ask(QStringLiteral("tab %1 %2").arg(strip).arg(index)).split(QLatin1Char(' '));
    return parts.size() < 2 ? QPoint() : QPoint(parts[0].toInt(), parts[1].toInt());
}

bool ModalShown(Program &p) { return p.ask(QStringLiteral("modal")) != QLatin1String("none"); }

void OpenClass(Program &p)
{
    static const char *pairs[] = {"0.31,0.27", "0.42,0.35", "0.38,0.41", "0.29,0.25", "0.51,0.44",
                                  "0.36,0.33", "0.45,0.47", "0.33,0.29", "0.4,0.38",  "0.62,0.51",
                                  "0.35,0.31", "0.47,0.39", "0.3,0.28",  "0.39,0.36", "0.55,0.48",
                                  "0.34,0.3",  "0.43,0.4",  "0.37,0.32", "0.49,0.45", "0.41,0.34"};
    QFile f(p.documents() + QStringLiteral("/class.rtd"));
    ASSERT_TRUE(f.open(QIODevice::WriteOnly));
    QByteArray text = "[RTDINFO]\r\nVanes=3\r\nAttempts=4\r\nDataItems=20\r\nSample=1\r\n[DATA]\r\n";
    for (int i = 0; i < 20; ++i)
        text += "Data" + QByteArray::number(i + 1) + "=" + pairs[i] + "\r\n";
    f.write(text);
    f.close();
    p.click(ToolbarButton(p, QStringLiteral("Open")));
    ASSERT_TRUE(p.waitUntil([&] { return ModalShown(p); }));
    p.type(p.documents() + QStringLiteral("/class.rtd"));
    p.key("Return");
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
            p.click(ToolbarButton(p, page));
            ASSERT_TRUE(p.waitUntil([&] { return !p.control(QStringLiteral("P3")).visible; }));
            shown = page;
        }
        p.click(Tab(p, QString::fromLatin1(s.strip), s.tab));
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
    p.click(ToolbarButton(p, QStringLiteral("Groups")));
    p.click(Tab(p, QStringLiteral("Tab2"), 0));
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
