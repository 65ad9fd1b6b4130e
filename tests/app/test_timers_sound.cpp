#include "app/RandomSource.h"
#include "app/TimerService.h"
#include "common/RunTimeError.h"
#include "reaction/SoundBas.h"
#include "reaction/WaveData.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

#include <cmath>

TEST(TimerService, CallbackKillingItselfMakesATimerOneShot)
{
    TimerService timers;
    std::vector<int> fired;
    timers.setCallback([&](int id) {
        timers.KillTimer(id);
        fired.push_back(id);
    });
    timers.SetTimer(20483, 5);
    timers.SetTimer(20482, 1);
    QElapsedTimer clock;
    clock.start();
    while (fired.size() < 2 && clock.elapsed() < 5000)
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 50);
    ASSERT_EQ(fired.size(), 2u);
    EXPECT_FALSE(timers.isArmed(20482));
    EXPECT_FALSE(timers.isArmed(20483));
    QCoreApplication::processEvents();
    EXPECT_EQ(fired.size(), 2u);
}

TEST(TimerService, ManualModeFiresOnlyWhenTold)
{
    TimerService timers;
    timers.setManual(true);
    std::vector<int> fired;
    timers.setCallback([&](int id) {
        timers.KillTimer(id);
        fired.push_back(id);
        if (id == 20484)
            timers.SetTimer(20484, 3000); // re-armed from its own callback
    });
    timers.SetTimer(20484, 7000);
    EXPECT_EQ(timers.interval(20484), 7000);
    QCoreApplication::processEvents();
    EXPECT_TRUE(fired.empty());
    EXPECT_TRUE(timers.fire(20484));
    EXPECT_EQ(fired, std::vector<int>{20484});
    EXPECT_EQ(timers.interval(20484), 3000);
    timers.KillTimer(20484);
    EXPECT_FALSE(timers.fire(20484)) << "a killed timer cannot fire";
    timers.SetTimer(20485, 100);
    timers.SetTimer(20485, 2500);
    EXPECT_EQ(timers.interval(20485), 2500) << "arming again replaces the interval";
}

TEST(RandomSource, WholeNumbersCoverTheirRangeEvenly)
{
    RandomSource chance;
    chance.script({0.0f, 0.1999f, 0.2f, 0.9999f});
    EXPECT_EQ(chance.wholeBetween(5, 1), 1);
    EXPECT_EQ(chance.wholeBetween(5, 1), 1);
    EXPECT_EQ(chance.wholeBetween(5, 1), 2);
    EXPECT_EQ(chance.wholeBetween(5, 1), 5);
    EXPECT_EQ(chance.scriptedLeft(), 0u);
    int seen[14] = {};
    for (int i = 0; i < 20000; ++i) {
        const int s = chance.wholeBetween(10, 4);
        ASSERT_GE(s, 4);
        ASSERT_LE(s, 13);
        ++seen[s];
    }
    for (int s = 4; s <= 13; ++s)
        EXPECT_GT(seen[s], 1500) << s;
}

namespace {

std::vector<float> tone(int n, float frequency, int rate)
{
    std::vector<float> s(static_cast<size_t>(n));
    for (int i = 0; i < n; ++i)
        s[static_cast<size_t>(i)] = 0.5f * std::sin(6.2831853f * frequency * static_cast<float>(i) / rate);
    return s;
}

QByteArray asBytes(const std::vector<std::uint8_t> &v)
{
    return QByteArray(reinterpret_cast<const char *>(v.data()), static_cast<qsizetype>(v.size()));
}

} // namespace

TEST(WaveData, ReadsWhatItWritesAndConverts)
{
    const auto samples = tone(2205, 440, 22050);
    const auto bytes = zrt::MakeWave(samples, 22050);
    EXPECT_EQ(bytes.size(), 44u + 2 * 2205);
    const auto wave = zrt::ParseWave(bytes);
    ASSERT_TRUE(wave);
    EXPECT_EQ(wave->format.sampleRate, 22050);
    EXPECT_EQ(wave->format.channels, 1);
    ASSERT_EQ(wave->frames(), 2205u);
    for (size_t i = 0; i < samples.size(); i += 97)
        EXPECT_NEAR(wave->samples[i], samples[i], 1.0 / 32767);

    // To stereo float at twice the rate: twice the frames, both channels alike.
    const auto out = zrt::ConvertWave(*wave, {44100, 2, zrt::SampleKind::Float});
    ASSERT_EQ(out.size(), 4410u * 2 * 4);
    float left, right;
    std::memcpy(&left, out.data() + 8 * 101, 4);
    std::memcpy(&right, out.data() + 8 * 101 + 4, 4);
    EXPECT_EQ(left, right);
    EXPECT_NEAR(left, wave->samples[50], 1e-6);

    const auto eight = zrt::ParseWave(zrt::MakeWave({0.0f, 1.0f, -1.0f}, 8000, 8));
    ASSERT_TRUE(eight);
    EXPECT_NEAR(eight->samples[1], 127.0 / 128, 1e-6);
}

TEST(WaveData, RejectsWhatIsNoSound)
{
    std::string why;
    EXPECT_FALSE(zrt::ParseWave({}, &why));
    EXPECT_FALSE(zrt::ParseWave({'R', 'I', 'F', 'F', 0, 0, 0, 0, 'W', 'A', 'V', 'E'}, &why));
    EXPECT_EQ(why, "no format chunk");
    auto bytes = zrt::MakeWave(tone(100, 440, 8000), 8000);
    bytes[20] = 2; // a compressed format
    EXPECT_FALSE(zrt::ParseWave(bytes, &why));
    EXPECT_EQ(why, "unsupported sample format");
    // A file cut off inside its data keeps the samples that are there.
    auto cut = zrt::MakeWave(tone(100, 440, 8000), 8000);
    cut.resize(44 + 51);
    const auto partial = zrt::ParseWave(cut);
    ASSERT_TRUE(partial);
    EXPECT_EQ(partial->frames(), 25u);
}

TEST(SoundPlayer, PlaysLoopsAndStops)
{
    SoundBas::SoundPlayer player;
    player.setRecording(true);
    const QByteArray cue = asBytes(zrt::MakeWave(tone(2000, 660, 22050), 22050));
    EXPECT_TRUE(player.PlaySound(cue, SoundBas::SND_ASYNC | SoundBas::SND_MEMORY | SoundBas::SND_LOOP));
    EXPECT_TRUE(player.isLooping());
    EXPECT_TRUE(player.isPlaying());
    player.StopSound();
    EXPECT_FALSE(player.isPlaying());
    EXPECT_FALSE(player.isLooping());
    EXPECT_FALSE(player.PlaySound("not a wave", 5));
    EXPECT_TRUE(player.PlaySound(cue, SoundBas::SND_PURGE));
    EXPECT_EQ(player.history(), (QStringList{"loop:4044", "stop", "stop"}));
}

TEST(SoundBank, SettingsReplaceBuiltInSounds)
{
    QTemporaryDir dir;
    const QString ini = dir.filePath("Zorvanes.ini");
    const QString wave = dir.filePath("my cue.wav");
    QFile w(wave);
    ASSERT_TRUE(w.open(QIODevice::WriteOnly));
    w.write(asBytes(zrt::MakeWave(tone(50, 440, 8000), 8000)));
    w.close();
    QFile f(ini);
    ASSERT_TRUE(f.open(QIODevice::WriteOnly));
    f.write(("[Settings]\r\nSOUND2=" + wave + "\r\nSOUND3=" + dir.filePath("missing.wav") +
             "\r\nDisableSound=1.5\r\n")
                .toUtf8());
    f.close();

    auto builtIn = [](int i) { return QByteArray("built-in ") + QByteArray::number(i); };
    const auto bank = SoundBas::LoadSounds(ini, builtIn);
    EXPECT_EQ(bank.buffers[0], "built-in 1");
    EXPECT_EQ(bank.buffers[1].size(), 44 + 100);
    EXPECT_EQ(bank.buffers[2], "built-in 3") << "a file that is not there falls back";
    EXPECT_TRUE(bank.SoundDisabled);

    for (const char *value : {"0", "0.9", ""}) {
        ASSERT_TRUE(f.open(QIODevice::WriteOnly | QIODevice::Truncate));
        f.write(QByteArray("[Settings]\r\nDisableSound=") + value + "\r\n");
        f.close();
        EXPECT_FALSE(SoundBas::LoadSounds(ini, builtIn).SoundDisabled) << value;
    }
    try {
        SoundBas::LoadSoundFile(dir.path()); // a folder can't be read as a sound
        FAIL();
    } catch (const zrt::RunTimeError &e) {
        EXPECT_EQ(e.number(), 75);
    }
}

TEST(SoundPlayer, EachSoundIsConvertedOnceAndKept)
{
    SoundBas::SoundPlayer player;
    player.setRecording(true);
    const QByteArray hit = asBytes(zrt::MakeWave(tone(800, 880, 22050), 22050));
    const QByteArray cue = asBytes(zrt::MakeWave(tone(2000, 660, 22050), 22050));
    EXPECT_TRUE(player.Prepare(hit));
    EXPECT_TRUE(player.Prepare(hit));
    EXPECT_EQ(player.preparedCount(), 1) << "the same bytes are converted once";
    for (int i = 0; i < 5; ++i)
        EXPECT_TRUE(player.PlaySound(hit, SoundBas::SND_ASYNC | SoundBas::SND_MEMORY));
    EXPECT_TRUE(player.PlaySound(cue, SoundBas::SND_ASYNC | SoundBas::SND_MEMORY | SoundBas::SND_LOOP));
    EXPECT_EQ(player.preparedCount(), 2);
    EXPECT_TRUE(player.isLooping());
    player.StopSound();
    EXPECT_FALSE(player.isPlaying());
    // Bytes that are no sound stay so on every play, and the history is as before.
    const QByteArray noSound("not a wave");
    EXPECT_FALSE(player.Prepare(noSound));
    EXPECT_FALSE(player.PlaySound(noSound, 5));
    EXPECT_EQ(player.history(), (QStringList{"play:1644", "play:1644", "play:1644", "play:1644", "play:1644",
                                             "loop:4044", "stop"}));
    // A copy of the bytes names the same sound; changed bytes are a new one.
    QByteArray changed = hit;
    changed[60] = char(changed[60] + 1);
    EXPECT_TRUE(player.PlaySound(changed, 5));
    EXPECT_EQ(player.preparedCount(), 4);
    // Only a few are kept.
    for (int i = 0; i < 20; ++i)
        player.Prepare(asBytes(zrt::MakeWave(tone(100 + i, 440, 8000), 8000)));
    EXPECT_LE(player.preparedCount(), 8);
}
