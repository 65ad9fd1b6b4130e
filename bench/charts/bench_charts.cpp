// A repaint of each chart, and of all of them in a row, at 30, 1,000 and 10,000 results, on
// surfaces of a typical page size. The sorts inside the charts are quadratic, as the pages'
// own analysis is, so the larger samples show where the time goes.

#include "charts/BoxPlots.h"
#include "charts/CorrelationScale.h"
#include "charts/CumulativeFrequency.h"
#include "charts/EstimatedMeanTable.h"
#include "charts/PictureBox.h"
#include "charts/ScatterGraph.h"
#include "charts/StemAndLeaf.h"
#include "charts/TallyChart.h"
#include "common/RunTimeError.h"
#include "stats/Averages.h"
#include "stats/GroupedData.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <benchmark/benchmark.h>

#include <cstdio>
#include <functional>
#include <memory>
#include <random>

namespace {

// Reaction times as a class produces them: 0.15 s to 0.65 s, five decimal places, paired.
zrt::CollectedLists Sample(int n)
{
    std::mt19937 rng(20261122);
    std::uniform_real_distribution<double> visual(0.15, 0.55), audio(0.18, 0.65);
    zrt::CollectedLists l;
    char buf[32];
    for (int i = 0; i < n; ++i) {
        std::snprintf(buf, sizeof buf, "%.5f", visual(rng));
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
        out.push_back(zrt::ScaledItem(t, zrt::ScaleOfPrecision(0)));
    return out;
}

// Everything one repaint needs: the analysed sample and a surface.
struct Page {
    explicit Page(int n) : lists(Sample(n))
    {
        zrt::Get_Averages(zrt::AveragesInput{lists, 0, 0, 1}, state);
        visual = Hundredths(lists.visual);
        audio = Hundredths(lists.audio);
        surface.resize(640, 420);
    }
    zrt::CollectedLists lists;
    zrt::AnalysisState state;
    std::vector<int> visual, audio;
    zrt::PictureBox surface;
    zrt::BoxSummary visualSummary, audioSummary;
};

using Chart = std::function<void(Page &)>;

const std::vector<std::pair<const char *, Chart>> &Charts()
{
    static const std::vector<std::pair<const char *, Chart>> charts = {
        {"BoxPlot", [](Page &p) { zrt::DrawBoxPlot(p.surface, p.state.AnalysisData, p.state.results, 0, true); }},
        {"StemAndLeaf", [](Page &p) { zrt::DrawStemAndLeaf(p.surface, p.lists.visual, int(p.lists.visual.size()), true); }},
        {"Tally", [](Page &p) { auto d = p.visual; zrt::DrawTally(p.surface, d, true); }},
        {"EstimatedMean", [](Page &p) { auto d = p.visual; zrt::DrawEstimatedMean(p.surface, d, true); }},
        {"CFTable", [](Page &p) { auto d = p.visual; zrt::DrawCFTable(p.surface, d, true); }},
        {"CFPlot", [](Page &p) { auto d = p.visual; zrt::DrawCFPlot(p.surface, d, true, true); }},
        {"Scatter",
         [](Page &p) {
             auto v = p.visual, a = p.audio;
             zrt::DrawScatter(p.surface, v, a, true, p.visualSummary, p.audioSummary);
         }},
        {"CompareBoxPlots",
         [](Page &p) {
             auto v = p.visual, a = p.audio;
             zrt::DrawCompareBoxPlots(p.surface, v, a, true, p.visualSummary, p.audioSummary);
         }},
        {"CorrelationScale", [](Page &p) { zrt::DrawCorrelationScale(p.surface, 0.42); }},
    };
    return charts;
}

void BM_Chart(benchmark::State &state, const Chart &chart)
{
    Page page(static_cast<int>(state.range(0)));
    for (auto _ : state)
        chart(page);
}

// Each chart has its own surface on the window, so a pen one chart leaves behind (the dotted
// style of the plot) never reaches another; one page per chart keeps it so here.
void BM_EveryChart(benchmark::State &state)
{
    std::vector<std::unique_ptr<Page>> pages;
    for (size_t i = 0; i < Charts().size(); ++i)
        pages.push_back(std::make_unique<Page>(static_cast<int>(state.range(0))));
    for (auto _ : state)
        for (size_t i = 0; i < Charts().size(); ++i)
            Charts()[i].second(*pages[i]);
}

// Writes every chart at 30, 1,000 and 10,000 results as PNG files into folder, so that two
// builds can be compared pixel for pixel.
int DumpImages(const QString &folder)
{
    QDir().mkpath(folder);
    for (int n : {30, 1000, 10000})
        for (const auto &[name, chart] : Charts()) {
            Page page(n);
            QString failure;
            try {
                chart(page);
            } catch (const zrt::RunTimeError &error) {
                failure = QString::fromStdString(error.message()); // the picture as the failure left it
            }
            const QString file = QStringLiteral("%1/%2_%3").arg(folder, QString::fromLatin1(name)).arg(n);
            if (!page.surface.Image().save(file + QStringLiteral(".png")))
                return 1;
            if (!failure.isEmpty()) {
                QFile text(file + QStringLiteral(".error"));
                if (!text.open(QIODevice::WriteOnly) || text.write(failure.toUtf8()) < 0)
                    return 1;
            }
        }
    return 0;
}

} // namespace

int main(int argc, char **argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    // --dump-images=FOLDER: the charts' pictures instead of timings.
    for (int i = 1; i < argc; ++i)
        if (QString::fromLocal8Bit(argv[i]).startsWith(QLatin1String("--dump-images=")))
            return DumpImages(QString::fromLocal8Bit(argv[i]).section(QLatin1Char('='), 1));
    for (const auto &[name, chart] : Charts())
        benchmark::RegisterBenchmark((std::string("BM_") + name).c_str(), BM_Chart, chart)
            ->Arg(30)->Arg(1000)->Arg(10000)->Unit(benchmark::kMillisecond);
    benchmark::RegisterBenchmark("BM_EveryChart", BM_EveryChart)
        ->Arg(30)->Arg(1000)->Arg(10000)->Unit(benchmark::kMillisecond);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
