// Laying the toolbar out and painting it, with the main window's nine items and with longer bars.
#include "toolbar/ThemedToolbar.h"

#include <QApplication>
#include <QImage>
#include <QPainter>
#include <benchmark/benchmark.h>

#include <memory>

using namespace zrt;

namespace {

std::unique_ptr<ThemedToolbar> BarWith(int count)
{
    auto bar = std::make_unique<ThemedToolbar>();
    QImage icon(32, 32, QImage::Format_RGB32);
    icon.fill(QColor(0, 255, 0));
    QPainter(&icon).fillRect(6, 6, 20, 20, Qt::darkBlue);
    for (int n = 1; n <= count; ++n) {
        if (n % 4 == 0)
            bar->AddButton(btn::TypeSeparator);
        else
            bar->AddButton(btn::TypeButton, {}, QString::number(n), icon, 32, 0, {}, SystemColor(8), std::nullopt,
                           btn::StyleCheck, 0, true, RGB(0, 255, 0));
    }
    bar->setThemeColor(3);
    bar->resize(bar->FullWidth(), 45);
    bar->setBtnValue(1, true);
    return bar;
}

// A change of the first button's caption lays out every button behind it again.
void BM_LayoutFromFirst(benchmark::State &state)
{
    auto bar = BarWith(static_cast<int>(state.range(0)));
    bool flip = false;
    for (auto _ : state) {
        bar->setBtnIconSize(1, flip ? 32 : 24);
        flip = !flip;
        benchmark::DoNotOptimize(bar->BtnLeft(bar->ButtonCount()));
    }
}
BENCHMARK(BM_LayoutFromFirst)->Arg(9)->Arg(50)->Arg(100);

void BM_PaintBar(benchmark::State &state)
{
    auto bar = BarWith(static_cast<int>(state.range(0)));
    QWidget *surface = bar->PicTB();
    QImage target(surface->size(), QImage::Format_RGB32);
    for (auto _ : state) {
        surface->render(&target);
        benchmark::DoNotOptimize(target.constBits());
    }
}
BENCHMARK(BM_PaintBar)->Arg(9)->Arg(50)->Arg(100);

} // namespace

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
