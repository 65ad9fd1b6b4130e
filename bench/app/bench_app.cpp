// Times what a pupil's reaction depends on: from the stopwatch's start to the risen frame on
// screen, from a mouse press entering the queue to the stopwatch's reading, the cue's stop, and
// the start-up to the main window's first paint against a bare window.

#include "app/MainFrm.h"
#include "app/pages/DeferredPage.h"
#include "app/MainMod1.h"
#include "dialogs/MsgBox.h"
#include "anim/ucGifPlayer.h"
#include "controls/Check.h"
#include "reaction/SoundBas.h"
#include "reaction/mStopWatch.h"
#include "common/RunTimeError.h"
#include "controls/GlossButton.h"
#include "controls/RowList.h"
#include "toolbar/ThemedToolbar.h"

#include <QApplication>
#include <QMouseEvent>
#include <QPainter>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <random>
#include <vector>

#if defined(__unix__)
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>
#endif

namespace {

std::int64_t g_lastRead = 0;
std::int64_t RecordingCounter()
{
    g_lastRead = std::chrono::duration_cast<std::chrono::nanoseconds>(
                     std::chrono::steady_clock::now().time_since_epoch())
                     .count();
    return g_lastRead;
}
std::int64_t Now() { return RecordingCounter(); }

void Report(const char *what, std::vector<double> us)
{
    std::sort(us.begin(), us.end());
    const double median = us[us.size() / 2];
    const double p99 = us[std::min(us.size() - 1, us.size() * 99 / 100)];
    std::printf("%-34s median %8.1f us   p99 %8.1f us   (n = %zu)\n", what, median, p99, us.size());
}

class PaintProbe : public QWidget {
public:
    bool painted = false;

protected:
    void paintEvent(QPaintEvent *) override
    {
        QPainter(this).fillRect(rect(), Qt::white);
        painted = true;
    }
};

double MillisecondsToFirstPaint(const std::function<QWidget *()> &make, const std::function<bool()> &painted)
{
    const auto start = std::chrono::steady_clock::now();
    QWidget *w = make();
    w->show();
    while (!painted())
        QCoreApplication::processEvents();
    const double ms = std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start).count();
    delete w;
    return ms;
}

double ThreadCpuMs()
{
#if defined(__unix__)
    timespec t{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &t);
    return t.tv_sec * 1000.0 + t.tv_nsec / 1e6;
#else
    return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now().time_since_epoch()).count();
#endif
}

// Refresh_Data with every page's analysis and a repaint of every chart, as the pages would
// show them with all answers revealed.
void PagesBenchmark()
{
    for (int n : {30, 1000, 10000}) {
        MainFrm window(nullptr, true);
        window.resize(1000, 700);
        window.show();
        QCoreApplication::processEvents();
        for (auto *page : window.p4) // made on first opening; the measure is of the analysis, not that
            page->ensureBuilt();
        // Reaction times as a class produces them: 0.15 s to 0.65 s, five decimal places, paired.
        // In whole hundredths their ties stay short enough for the Compare page's 16-bit rank sums
        // up to a few thousand results; at 10,000 the page overflows as it always did.
        std::mt19937 rng(20261122);
        std::uniform_real_distribution<double> visual(0.15, 0.55), audio(0.18, 0.65);
        for (int i = 0; i < n; ++i) {
            window.P2->cl2->AddItem(QString::number(visual(rng), 'f', 5));
            window.P2->CL4->AddItem(QString::number(audio(rng), 'f', 5));
        }
        window.P2->SetDataCount();
        // Every chart shown, as a press on each show button does.
        for (auto *b : {window.averages->cmdBP, window.averages->cmdSL, window.groups->cmdTally, window.groups->cmdR,
                        window.groups->cmdCF, window.groups->cmdPlot, window.compare->cmdSG, window.compare->cmdBPc}) {
            try {
                Q_EMIT b->Click();
            } catch (const zrt::RunTimeError &) {
            }
        }
        window.ThemedToolbar1->setBtnValue(7, true);
        window.ThemedToolbar1->setBtnValue(8, true);
        QString failure;
        const std::pair<const char *, std::function<void()>> steps[] = {
            {"Refresh_Data", [&] { window.Refresh_Data(); }},
            {"box plot", [&] { window.averages->DrawBoxPlot(); }},
            {"stem and leaf", [&] { window.averages->DrawStemLeaf(); }},
            {"tally", [&] { window.groups->DrawTally(); }},
            {"estimated mean", [&] { window.groups->DrawEstimatedMean(); }},
            {"CF table", [&] { window.groups->DrawCFTable(); }},
            {"CF plot", [&] { window.groups->DrawCFPlot(); }},
            {"compare page", [&] { window.compare->Get_Compare_Data(); }},
            {"scatter graph", [&] { window.compare->DrawScatterGraph(); }},
            {"comparison box plots", [&] { window.compare->DrawCompareBoxPlots(); }},
            {"correlation scale", [&] { window.compare->DrawCorrelationScale(); }},
        };
        // The whole refresh several times over; the median of its processor time (this thread's)
        // and of its wall time.
        std::vector<double> cpu, wall;
        std::vector<std::vector<double>> stepCpu(std::size(steps));
        for (int run = 0; run < 7; ++run) {
            failure.clear();
            const auto t0 = std::chrono::steady_clock::now();
            const double c0 = ThreadCpuMs();
            for (size_t i = 0; i < std::size(steps); ++i) {
                const auto &[name, step] = steps[i];
                const double s0 = ThreadCpuMs();
                try {
                    step();
                } catch (const zrt::RunTimeError &error) {
                    failure += QStringLiteral(" %1: %2;").arg(QString::fromLatin1(name), QString::fromStdString(error.message()));
                }
                stepCpu[i].push_back(ThreadCpuMs() - s0);
            }
            cpu.push_back(ThreadCpuMs() - c0);
            wall.push_back(std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - t0).count());
        }
        std::sort(cpu.begin(), cpu.end());
        std::sort(wall.begin(), wall.end());
        std::printf("Refresh_Data + every chart at %5d results: %9.1f ms CPU, %9.1f ms wall (median of %zu)%s\n", n,
                    cpu[cpu.size() / 2], wall[wall.size() / 2], cpu.size(), qPrintable(failure));
        std::printf("   of which (median ms CPU):");
        for (size_t i = 0; i < std::size(steps); ++i) {
            std::sort(stepCpu[i].begin(), stepCpu[i].end());
            std::printf(" %s %.2f;", steps[i].first, stepCpu[i][stepCpu[i].size() / 2]);
        }
        std::printf("\n");
    }
}

// The largest file the pages take (32,767 results, the 16-bit item counter's limit): a press on
// the Averages and on the Groups page button with their charts shown, by processor time.
void LargestFileBenchmark()
{
    MainFrm window(nullptr, true);
    window.resize(1000, 700);
    window.show();
    QCoreApplication::processEvents();
    for (auto *page : window.p4)
        page->ensureBuilt();
    std::mt19937 rng(20261123);
    std::uniform_real_distribution<double> visual(0.15, 0.55), audio(0.18, 0.65);
    for (int i = 0; i < 32767; ++i) {
        window.P2->cl2->AddItem(QString::number(visual(rng), 'f', 5));
        window.P2->CL4->AddItem(QString::number(audio(rng), 'f', 5));
    }
    window.P2->SetDataCount();
    const std::pair<const char *, std::function<void()>> pages[] = {
        {"Averages", [&] { window.averages->Get_Averages(); window.averages->DrawBoxPlot(); window.averages->DrawStemLeaf(); }},
        {"Groups",
         [&] {
             window.groups->Get_Grouped_Data();
             window.groups->DrawTally();
             window.groups->DrawEstimatedMean();
             window.groups->DrawCFTable();
             window.groups->DrawCFPlot();
         }},
    };
    for (const auto &[name, page] : pages) {
        std::vector<double> cpu;
        QString failure;
        for (int run = 0; run < 3; ++run) {
            const double c0 = ThreadCpuMs();
            try {
                page();
            } catch (const zrt::RunTimeError &error) {
                failure = QString::fromStdString(error.message());
            }
            cpu.push_back(ThreadCpuMs() - c0);
        }
        std::sort(cpu.begin(), cpu.end());
        std::printf("largest file (32,767 results), %s page with its charts: %9.1f ms CPU (median of 3) %s\n", name,
                    cpu[1], qPrintable(failure));
    }
}

#if defined(__unix__)
struct ProcessTimes {
    double wallMs = 0;
    double cpuMs = 0; // user and system time of the process
    bool ok = false;
};

// Runs a program to the end and takes its wall and processor time.
ProcessTimes RunProcess(const char *path)
{
    ProcessTimes t;
    const auto start = std::chrono::steady_clock::now();
    const pid_t pid = fork();
    if (pid == 0) {
        execl(path, path, static_cast<char *>(nullptr));
        _exit(127);
    }
    if (pid < 0)
        return t;
    int status = 0;
    rusage usage{};
    if (wait4(pid, &status, 0, &usage) != pid)
        return t;
    t.wallMs = std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start).count();
    auto ms = [](const timeval &v) { return v.tv_sec * 1000.0 + v.tv_usec / 1000.0; };
    t.cpuMs = ms(usage.ru_utime) + ms(usage.ru_stime);
    t.ok = WIFEXITED(status) && WEXITSTATUS(status) == 0;
    return t;
}

double Median(std::vector<double> v)
{
    std::sort(v.begin(), v.end());
    return v.empty() ? 0 : v[v.size() / 2];
}

// The start-up as whole processes: the program from its start to its first paint and out,
// against the bare window, taken in turns so that a busy moment hits both alike.
int StartupBenchmark(int runs, const char *programPath, const char *barePath)
{
    setenv("ZRT_EXIT_AFTER_FIRST_PAINT", "1", 1);
    if (!std::getenv("QT_QPA_PLATFORM") && !std::getenv("DISPLAY"))
        setenv("QT_QPA_PLATFORM", "offscreen", 1);
    std::vector<double> programCpu, programWall, bareCpu, bareWall, ratios;
    for (int i = 0; i < runs; ++i) {
        const ProcessTimes bare = RunProcess(barePath);
        const ProcessTimes program = RunProcess(programPath);
        if (!bare.ok || !program.ok) {
            std::printf("start-up run %d failed (bare %d, program %d)\n", i, bare.ok, program.ok);
            return 1;
        }
        bareCpu.push_back(bare.cpuMs);
        bareWall.push_back(bare.wallMs);
        programCpu.push_back(program.cpuMs);
        programWall.push_back(program.wallMs);
        ratios.push_back(program.cpuMs / bare.cpuMs);
    }
    std::printf("start-up, whole process to first paint (median of %d): program %.1f ms CPU / %.1f ms wall, "
                "bare window %.1f ms CPU / %.1f ms wall; CPU ratio %.2f (median of pairs %.2f), wall ratio %.2f\n",
                runs, Median(programCpu), Median(programWall), Median(bareCpu), Median(bareWall),
                Median(programCpu) / Median(bareCpu), Median(ratios), Median(programWall) / Median(bareWall));
    return 0;
}
#endif

} // namespace

int main(int argc, char *argv[])
{
#if defined(__unix__)
    // --startup [runs [program bare-window]]: only the start-up, as processes.
    if (argc > 1 && std::strcmp(argv[1], "--startup") == 0) {
#if defined(ZRT_PROGRAM_PATH) && defined(ZRT_BARE_WINDOW_PATH)
        const char *program = argc > 3 ? argv[3] : ZRT_PROGRAM_PATH;
        const char *bare = argc > 4 ? argv[4] : ZRT_BARE_WINDOW_PATH;
#else
        if (argc < 5)
            return 2;
        const char *program = argv[3];
        const char *bare = argv[4];
#endif
        return StartupBenchmark(argc > 2 ? std::max(1, std::atoi(argv[2])) : 15, program, bare);
    }
#endif
    QApplication app(argc, argv);
    MainMod1::InitColours();
    // The hit sound is on, as a pupil hears it: it is asked for before the stopwatch is read.
    MainMod1::Sounds = SoundBas::LoadSounds(QString(), &MainMod1::BuiltInSound);
    MainMod1::Sounds.SoundDisabled = false;
    SetMsgBoxHook([](const QString &, int, const QString &) { return vbOK; });
    mStopWatch::SwSetCounter(&RecordingCounter, 1'000'000'000);

    const int pops = argc > 1 ? std::atoi(argv[1]) : 1000;
    MainFrm window(nullptr, true);
    window.resize(1000, 700);
    window.show();
    QCoreApplication::processEvents();
    window.P3->Check4->setValue(0);
    window.P2->Check4_Click();

    std::vector<double> stimulus, response;
    for (int i = 0; i < pops; ++i) {
        if (window.P3->run.attemptCount() == 0 || !window.timers().isArmed(TimerVisualPop)) {
            window.P3->run.clearMean(zrt::Sense::Visual);
            window.P3->command1_Click();
        }
        window.chance().script({0.0f});
        window.timers().fire(TimerVisualPop);
        // The pop returns once the risen frame is painted; SwElapsed now is that whole path.
        stimulus.push_back(static_cast<double>(mStopWatch::SwElapsed(window.P3->RunStopwatch)) * 1e6);

        zrt::ucGifPlayer *risen = window.P3->ucGifPlayer1[0];
        for (size_t c = 0; c < window.P3->ucGifPlayer1.size(); ++c)
            if (window.P3->characterState(static_cast<int>(c)) == RecordPage::CharacterState::Risen)
                risen = window.P3->ucGifPlayer1[c];
        const std::int64_t posted = Now();
        QCoreApplication::postEvent(risen, new QMouseEvent(QEvent::MouseButtonPress, QPointF(50, 200),
                                                           risen->mapToGlobal(QPointF(50, 200)), Qt::LeftButton,
                                                           Qt::LeftButton, Qt::NoModifier));
        QCoreApplication::processEvents();
        response.push_back(static_cast<double>(g_lastRead - posted) / 1000.0);
    }
    Report("stimulus (SwStart to painted frame)", stimulus);
    Report("response (press queued to SwElapsed)", response);

    auto &player = SoundBas::SoundPlayer::instance();
    const QByteArray cue = MainMod1::BuiltInSound(2);
    std::vector<double> stops;
    qint64 discarded = 0;
    for (int i = 0; i < 50; ++i) {
        player.PlaySound(cue, SoundBas::SND_ASYNC | SoundBas::SND_MEMORY | SoundBas::SND_LOOP);
        QCoreApplication::processEvents();
        const auto t0 = std::chrono::steady_clock::now();
        player.StopSound();
        stops.push_back(std::chrono::duration<double, std::micro>(std::chrono::steady_clock::now() - t0).count());
        discarded = std::max(discarded, player.lastDiscardedBytes());
    }
    Report("cue stop call", stops);
    std::printf("cue stop: audio output %s, at most %lld bytes discarded (buffer %d ms)\n",
                player.hasOutput() ? "present" : "absent", static_cast<long long>(discarded),
                player.bufferMilliseconds());

    PagesBenchmark();
    LargestFileBenchmark();

    std::vector<double> bare, full;
    for (int i = 0; i < 5; ++i) {
        PaintProbe *probe = nullptr;
        bare.push_back(MillisecondsToFirstPaint([&] { return probe = new PaintProbe; }, [&] { return probe->painted; }));
        bool painted = false;
        full.push_back(MillisecondsToFirstPaint(
            [&] {
                auto *w = new MainFrm(nullptr, true);
                painted = false;
                // The first paint of the window's client area ends the measurement.
                struct Spy : QObject {
                    bool *flag;
                    explicit Spy(bool *f) : flag(f) {}
                    bool eventFilter(QObject *, QEvent *e) override
                    {
                        if (e->type() == QEvent::Paint)
                            *flag = true;
                        return false;
                    }
                };
                w->centralWidget()->installEventFilter(new Spy(&painted));
                return w;
            },
            [&] { return painted; }));
    }
    std::sort(bare.begin(), bare.end());
    std::sort(full.begin(), full.end());
    std::printf("start-up to first paint: main window %.1f ms, bare window %.1f ms, ratio %.1f\n", full[2], bare[2],
                full[2] / bare[2]);
    return 0;
}
