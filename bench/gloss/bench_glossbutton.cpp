// One full repaint of the push button (face, caption, region check) for each style and size.
#include "controls/GlossButton.h"

#include <QApplication>
#include <benchmark/benchmark.h>

namespace {

void BM_PaintButton(benchmark::State &state)
{
    zrt::GlossButton button;
    button.resize(static_cast<int>(state.range(1)), static_cast<int>(state.range(2)));
    button.setStyle(static_cast<int>(state.range(0)));
    button.setCaption("&Add Result");
    // Alternate two states so that nothing can be reused between repaints.
    bool hover = false;
    for (auto _ : state) {
        button.PaintButton(hover ? zrt::GlossButton::StateHover : zrt::GlossButton::StateNormal);
        hover = !hover;
        benchmark::DoNotOptimize(button.Surface().constBits());
    }
    state.SetLabel("style " + std::to_string(state.range(0)));
}

void Sizes(benchmark::internal::Benchmark *b)
{
    for (int style = 0; style <= 7; ++style)
        for (auto [w, h] : {std::pair{100, 30}, {120, 40}, {400, 120}})
            b->Args({style, w, h});
    b->Unit(benchmark::kMicrosecond);
}

} // namespace

BENCHMARK(BM_PaintButton)->Apply(Sizes);

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
