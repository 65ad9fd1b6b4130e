// The list at the size the collected data may reach: filling it, sorting it, scrolling through it,
// moving the current row and repainting it whole. Run with QT_SCALE_FACTOR=2 for a screen scaled
// to 200 %: the rows are then drawn at a device pixel ratio of 2.

#include "controls/RowList.h"

#include <QApplication>
#include <QImage>
#include <QRandomGenerator>
#include <QScrollBar>

#include <benchmark/benchmark.h>

#include <memory>

namespace {

using zrt::RowList;

std::unique_ptr<RowList> NewList()
{
    auto list = std::make_unique<RowList>();
    list->resize(200, 400);
    list->setSelectModeStyle(3);
    return list;
}

QStringList Times(int count)
{
    QRandomGenerator random(42);
    QStringList texts;
    for (int i = 0; i < count; ++i)
        texts << QString::number(0.15 + random.bounded(1.5), 'g', 5);
    return texts;
}

void BM_AddItems(benchmark::State &state)
{
    const QStringList texts = Times(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        state.PauseTiming();
        auto list = NewList();
        state.ResumeTiming();
        for (const QString &text : texts)
            list->AddItem(text);
        benchmark::DoNotOptimize(list->ListCount());
        state.PauseTiming();
        list.reset();
        state.ResumeTiming();
    }
}

void BM_Order(benchmark::State &state)
{
    const QStringList texts = Times(static_cast<int>(state.range(0)));
    auto list = NewList();
    for (auto _ : state) {
        state.PauseTiming();
        list->Clear();
        for (const QString &text : texts)
            list->AddItem(text);
        state.ResumeTiming();
        list->Order();
    }
}

// Page by page from the top row to the bottom, each page a full redraw of the visible rows.
void BM_ScrollTopToBottom(benchmark::State &state)
{
    auto list = NewList();
    for (const QString &text : Times(static_cast<int>(state.range(0))))
        list->AddItem(text);
    const int pages = list->Bar()->maximum() / list->VisibleRowCount() + 1;
    for (auto _ : state) {
        list->setTopIndex(0);
        for (int top = 0; top <= list->Bar()->maximum(); top += list->VisibleRowCount())
            list->setTopIndex(top);
        list->setTopIndex(list->Bar()->maximum());
    }
    state.counters["pages"] = pages;
}

// One step of the current row: only the two rows concerned are drawn again.
void BM_MoveCurrentRow(benchmark::State &state)
{
    auto list = NewList();
    for (const QString &text : Times(10000))
        list->AddItem(text);
    int index = 0;
    for (auto _ : state) {
        list->setListIndex(index);
        index = (index + 1) % 20;
    }
}

// A full repaint of 1,000 rows: every visible row drawn again, then the whole list shown on a
// back buffer of the screen's pixel ratio.
void BM_FullRepaint(benchmark::State &state)
{
    auto list = NewList();
    for (const QString &text : Times(static_cast<int>(state.range(0))))
        list->AddItem(text);
    list->setListIndex(3);
    const qreal dpr = list->devicePixelRatioF();
    QImage screen(list->size() * dpr, QImage::Format_ARGB32_Premultiplied);
    screen.setDevicePixelRatio(dpr);
    for (auto _ : state) {
        list->Refresh();
        list->render(&screen);
        benchmark::DoNotOptimize(screen.constBits());
    }
    state.counters["dpr"] = dpr;
}

} // namespace

BENCHMARK(BM_AddItems)->Arg(10000)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Order)->Arg(10000)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_ScrollTopToBottom)->Arg(10000)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_MoveCurrentRow)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_FullRepaint)->Arg(1000)->Unit(benchmark::kMicrosecond);

int main(int argc, char **argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
