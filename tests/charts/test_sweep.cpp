// Every chart over the surface sizes of the window, from its start size to a 1280 x 1024
// window, and over samples of 6 to 2,000 class-like results: no mark leaves its surface and no
// two labels run into each other.

#include "ChartTestSupport.h"

#include "charts/BoxPlots.h"
#include "charts/CorrelationScale.h"
#include "charts/CumulativeFrequency.h"
#include "charts/EstimatedMeanTable.h"
#include "charts/ScatterGraph.h"
#include "charts/StemAndLeaf.h"
#include "charts/TallyChart.h"
#include "stats/Averages.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <functional>
#include <random>

using namespace zrt;
using namespace charttest;

namespace {

// Reaction times as a class produces them, paired, with a slow visual time among 20 or more;
// -n gives n times with one of 1.65 s, the slowest a run can keep, so the classes run to 16.
CollectedLists ClassSample(int n)
{
    const bool slowest = n < 0;
    n = std::abs(n);
    std::mt19937 rng(static_cast<unsigned>(n) * 7919u);
    std::uniform_real_distribution<double> visual(0.15, 0.55), audio(0.18, 0.65);
    CollectedLists l;
    char buf[32];
    for (int i = 0; i < n; ++i) {
        const double slow = slowest ? 1.65 : 0.82;
        std::snprintf(buf, sizeof buf, "%.5f", n >= 20 && i == n / 2 ? slow : visual(rng));
        l.visual.emplace_back(buf);
        std::snprintf(buf, sizeof buf, "%.5f", audio(rng));
        l.audio.emplace_back(buf);
    }
    return l;
}

std::vector<int> Hundredths(const std::vector<std::string> &items)
{
    std::vector<int> out;
    for (const auto &t : items)
        out.push_back(ScaledItem(t, ScaleOfPrecision(0)));
    return out;
}

struct Case {
    CollectedLists lists;
    AnalysisState state;
    int precision = 0;
};

using Draw = std::function<void(PictureBox &, Case &)>;

const std::vector<std::pair<const char *, Draw>> &Charts()
{
    static const std::vector<std::pair<const char *, Draw>> charts = {
        {"box plot",
         [](PictureBox &s, Case &c) {
             DrawBoxPlot(s, c.state.AnalysisData, c.state.results, c.precision, true);
         }},
        {"stem and leaf",
         [](PictureBox &s, Case &c) { DrawStemAndLeaf(s, c.lists.visual, int(c.lists.visual.size()), true); }},
        {"tally",
         [](PictureBox &s, Case &c) {
             auto d = Hundredths(c.lists.visual);
             DrawTally(s, d, true);
         }},
        {"estimated mean",
         [](PictureBox &s, Case &c) {
             auto d = Hundredths(c.lists.visual);
             DrawEstimatedMean(s, d, true);
         }},
        {"CF table",
         [](PictureBox &s, Case &c) {
             auto d = Hundredths(c.lists.visual);
             DrawCFTable(s, d, true);
         }},
        {"CF plot",
         [](PictureBox &s, Case &c) {
             auto d = Hundredths(c.lists.visual);
             DrawCFPlot(s, d, true, true);
         }},
        {"scatter",
         [](PictureBox &s, Case &c) {
             auto v = Hundredths(c.lists.visual), a = Hundredths(c.lists.audio);
             BoxSummary vs, as;
             DrawScatter(s, v, a, true, vs, as);
         }},
        {"compare box plots",
         [](PictureBox &s, Case &c) {
             auto v = Hundredths(c.lists.visual), a = Hundredths(c.lists.audio);
             BoxSummary vs, as;
             DrawCompareBoxPlots(s, v, a, true, vs, as);
         }},
        {"correlation scale", [](PictureBox &s, Case &) { DrawCorrelationScale(s, 1.0); }},
    };
    return charts;
}

// What is wrong with one drawing, or empty.
std::string Faults(const PictureBox &s)
{
    const QRect surface(QPoint(0, 0), s.ClientSize());
    for (const QRect &mark : s.Marks())
        if (!surface.contains(mark))
            return "a mark at " + std::to_string(mark.x()) + "," + std::to_string(mark.y()) + " " +
                   std::to_string(mark.width()) + "x" + std::to_string(mark.height()) + " leaves the surface";
    const auto &inks = s.LabelInks();
    for (size_t i = 0; i < inks.size(); ++i)
        for (size_t j = i + 1; j < inks.size(); ++j)
            if (inks[i].adjusted(-1, 0, 1, 0).intersects(inks[j]))
                return "labels at " + std::to_string(inks[i].x()) + "," + std::to_string(inks[i].y()) + " and " +
                       std::to_string(inks[j].x()) + "," + std::to_string(inks[j].y()) + " overlap";
    // A mark the routine made off the surface would show as ink cut at the edge: the outermost
    // ring of the retained image stays blank.
    const QImage &image = s.Image();
    const int w = image.width(), h = image.height();
    for (int x = 0; x < w; ++x)
        for (int y : {0, h - 1})
            if ((image.pixel(x, y) & 0xFFFFFF) != 0xFFFFFF)
                return "ink at the edge, " + std::to_string(x) + "," + std::to_string(y);
    for (int y = 0; y < h; ++y)
        for (int x : {0, w - 1})
            if ((image.pixel(x, y) & 0xFFFFFF) != 0xFFFFFF)
                return "ink at the edge, " + std::to_string(x) + "," + std::to_string(y);
    return {};
}

} // namespace

TEST(ChartSweep, NoMarkLeavesItsSurfaceAndNoLabelsOverlap)
{
    // 566 x 384 is the start size's surface; a 1280 x 1024 window gives at most about 1060 x 750.
    const QSize sizes[] = {{566, 384}, {690, 384}, {816, 384}, {900, 520}, {1061, 752}};
    for (int n : {6, 20, 200, 2000, -20}) {
        Case c;
        c.lists = ClassSample(n);
        for (int precision : {0, 2}) {
            c.precision = precision;
            Get_Averages(AveragesInput{c.lists, precision, 0, 1}, c.state);
            for (const QSize &size : sizes)
                for (const auto &[name, draw] : Charts()) {
                    if (precision != 0 && std::string(name) != "box plot")
                        continue;
                    PictureBox s;
                    Prepare(s, size.width(), size.height());
                    s.SetRecording(true);
                    draw(s, c);
                    const std::string fault = Faults(s);
                    EXPECT_TRUE(fault.empty()) << name << " at " << size.width() << "x" << size.height() << ", "
                                               << n << " results, precision " << precision << ": " << fault;
                }
        }
    }
}

// One painter kept open while a chart draws gives the very picture that a painter per line,
// circle and label gave, at 30, 1,000 and 10,000 results.
TEST(ChartSweep, OneOpenPainterDrawsWhatAPainterPerCallDrew)
{
    for (int n : {30, 1000, 10000}) {
        Case c;
        c.lists = ClassSample(n);
        Get_Averages(AveragesInput{c.lists, 0, 0, 1}, c.state);
        for (const auto &[name, draw] : Charts()) {
            PictureBox kept, perCall;
            Prepare(kept, 640, 420);
            Prepare(perCall, 640, 420);
            perCall.SetPainterPerCall(true);
            draw(kept, c);
            draw(perCall, c);
            EXPECT_EQ(kept.Image(), perCall.Image()) << name << ", " << n << " results";
            EXPECT_NE(kept.Image(), QImage()) << name;
        }
    }
}
