// Loading large or hostile inputs: the ini reader on a file of blank lines, the settings reads
// of start-up on an oversized settings file, and the GIF block walk on files of many tiny
// frames, each with its own colour table, and the sound loading of start-up when the settings
// name a device, a pipe and a 300 MB file. "heap_bytes" is what the result holds on the heap
// (glibc's count of allocated and mapped bytes, before and after), so memory shows beside time.

#include "anim/GifParser.h"
#include "files/IniDocument.h"
#include "files/REGbas1.h"
#include "reaction/SoundBas.h"

#include <benchmark/benchmark.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <string>

#if defined(__GLIBC__)
#include <malloc.h>
#endif
#if defined(__unix__)
#include <sys/stat.h>
#include <unistd.h>
#endif

namespace {

double HeapInUse()
{
#if defined(__GLIBC__) && (__GLIBC__ > 2 || (__GLIBC__ == 2 && __GLIBC_MINOR__ >= 33))
    const auto m = mallinfo2();
    return static_cast<double>(m.uordblks + m.hblkhd);
#else
    return 0;
#endif
}

void BM_IniParseBlankLines(benchmark::State &state)
{
    const std::string bytes(static_cast<size_t>(state.range(0)) << 20, '\n');
    double held = 0;
    for (auto _ : state) {
        const double before = HeapInUse();
        auto doc = zrt::IniDocument::parse(bytes);
        held = HeapInUse() - before;
        benchmark::DoNotOptimize(doc);
    }
    state.counters["heap_bytes"] = held;
    state.SetLabel(std::to_string(state.range(0)) + " MB of newlines");
}
BENCHMARK(BM_IniParseBlankLines)->Arg(1)->Arg(4)->Unit(benchmark::kMillisecond);

// The five settings reads of start-up (SOUND1..4, DisableSound) on a 10 MB settings file.
void BM_StartupReadsOfHugeSettings(benchmark::State &state)
{
    const auto path = std::filesystem::temp_directory_path() / "zrt-bench-huge.ini";
    {
        std::ofstream out(path, std::ios::binary);
        out << "[Settings]\r\n" << std::string(10u << 20, '\n');
    }
    for (auto _ : state) {
        for (int i = 1; i <= 4; ++i)
            benchmark::DoNotOptimize(
                REGbas1::ReadIniString("Settings", "SOUND" + std::to_string(i), "", 255, path.string()));
        benchmark::DoNotOptimize(REGbas1::ReadIniString("Settings", "DisableSound", "0", 50, path.string()));
    }
    std::filesystem::remove(path);
}
BENCHMARK(BM_StartupReadsOfHugeSettings)->Unit(benchmark::kMillisecond)->Iterations(1);

// n frames of 1 x 1 pixel, each with a local table of two colours.
QByteArray TinyFrames(int n)
{
    QByteArray gif("GIF89a\x01\x00\x01\x00\x00\x00\x00", 13);
    const QByteArray frame("\x2C\0\0\0\0\x01\0\x01\0\x80\x10\x20\x30\x40\x50\x60\x02\x02\x44\x01\x00", 21);
    gif.reserve(13 + qsizetype(n) * frame.size() + 1);
    for (int i = 0; i < n; ++i)
        gif.append(frame);
    gif.append('\x3B');
    return gif;
}

void BM_ParseGifTinyFrames(benchmark::State &state)
{
    const QByteArray bytes = TinyFrames(static_cast<int>(state.range(0)));
    double held = 0;
    for (auto _ : state) {
        zrt::GifImage gif;
        const double before = HeapInUse();
        benchmark::DoNotOptimize(zrt::ParseGif(bytes, gif));
        held = HeapInUse() - before;
    }
    state.counters["heap_bytes"] = held;
    state.counters["file_bytes"] = static_cast<double>(bytes.size());
}
BENCHMARK(BM_ParseGifTinyFrames)->Arg(20000)->Arg(200000)->Unit(benchmark::kMillisecond);

#if defined(__unix__)
// SOUND1 /dev/zero, SOUND2 a pipe with no writer, SOUND3 a sparse 300 MB file, SOUND4 missing.
void BM_LoadSoundsHostile(benchmark::State &state)
{
    namespace fs = std::filesystem;
    const fs::path dir = fs::temp_directory_path() / "zrt-bench-sounds";
    fs::create_directories(dir);
    const fs::path pipe = dir / "cue.wav", huge = dir / "huge.wav", ini = dir / "Zorvanes.ini";
    fs::remove(pipe);
    ::mkfifo(pipe.c_str(), 0600);
    {
        std::ofstream out(huge, std::ios::binary);
    }
    fs::resize_file(huge, 300u << 20);
    {
        std::ofstream out(ini, std::ios::binary);
        out << "[Settings]\r\nSOUND1=/dev/zero\r\nSOUND2=" << pipe.string() << "\r\nSOUND3=" << huge.string()
            << "\r\nSOUND4=" << (dir / "missing.wav").string() << "\r\n";
    }
    const QString settings = QString::fromStdString(ini.string());
    auto builtIn = [](int) { return QByteArray(64, 'w'); };
    double held = 0;
    for (auto _ : state) {
        const double before = HeapInUse();
        const SoundBas::SoundBank bank = SoundBas::LoadSounds(settings, builtIn);
        held = HeapInUse() - before;
        benchmark::DoNotOptimize(bank);
    }
    state.counters["heap_bytes"] = held;
    fs::remove_all(dir);
}
BENCHMARK(BM_LoadSoundsHostile)->Unit(benchmark::kMicrosecond);
#endif

} // namespace

BENCHMARK_MAIN();
