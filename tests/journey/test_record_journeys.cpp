// A pupil's runs on the Record page and the audio stage, played with the mouse on a real X
// display at the window's start size and large, and checked on the server's screen.

#include "JourneyHarness.h"

#include <QFile>
#include <QFileInfo>

#include <QStringList>
#include <QThread>
#include <gtest/gtest.h>

using namespace journey;

namespace {

constexpr int TimerVisualPop = 20482;
constexpr int TimerAudioCue = 20484;

// The controls of the band under the stage, which must all be whole and free to click.
const QStringList kRecordBand = {"command1", "Label3", "GlossButton1_0", "GlossButton1_1", "Label2", "cl1", "pSettings"};
const QStringList kAudioBand = {"cmdStartAudio", "l9", "cmdadd_0", "cmdadd_1", "Label10", "cl5"};

// Every shown control of the list lies inside the page and touches none of the others.
void ExpectWholeAndApart(Program &p, const QString &page, const QStringList &names, const QString &when)
{
    const Control container = p.control(page);
    ASSERT_TRUE(container.visible) << qPrintable(page) << " at " << qPrintable(when);
    std::vector<std::pair<QString, QRect>> shown;
    for (const QString &name : names) {
        const Control c = p.control(name);
        ASSERT_TRUE(c.found) << qPrintable(name);
        if (!c.visible)
            continue;
        EXPECT_TRUE(container.rect.contains(c.rect)) << qPrintable(name) << " leaves " << qPrintable(page) << " at "
                                                     << qPrintable(when);
        for (const auto &[other, rect] : shown)
            EXPECT_FALSE(Overlap(c.rect, rect)) << qPrintable(name) << " overlaps " << qPrintable(other) << " at "
                                                << qPrintable(when);
        shown.emplace_back(name, c.rect);
    }
}

QString RisenCharacter(Program &p)
{
    for (int i = 0; i < 5; ++i) {
        const QString name = QStringLiteral("ucGifPlayer1_%1").arg(i);
        if (p.ask(QStringLiteral("risen ") + name) == QLatin1String("1"))
            return name;
    }
    return {};
}

// One attempt: the pop, then a press on the risen character after `waitMs`.
void PopAndPress(Program &p, int waitMs = 0)
{
    p.ask(QStringLiteral("rnd 0"));
    ASSERT_TRUE(p.fire(TimerVisualPop));
    QString risen;
    ASSERT_TRUE(p.waitUntil([&] { return !(risen = RisenCharacter(p)).isEmpty(); }));
    ASSERT_EQ(p.ask(QStringLiteral("frame ") + risen).section(QLatin1Char(' '), 0, 0), QStringLiteral("3"));
    if (waitMs > 0)
        QThread::msleep(static_cast<unsigned long>(waitMs));
    const int before = p.lines(QStringLiteral("cl1"));
    p.click(p.control(risen).centre());
    ASSERT_TRUE(p.waitUntil([&] { return p.lines(QStringLiteral("cl1")) == before + 1; }));
}

void UntickPairs(Program &p)
{
    p.click(p.control(QStringLiteral("Check4")).rect.topLeft() + QPoint(8, 10));
    ASSERT_TRUE(p.waitUntil([&] { return p.text(QStringLiteral("Check4")).endsWith(QLatin1String("=0")); }));
}

} // namespace

TEST(RecordJourney, VisualRunAtStartSizeEndsWithAdd)
{
    Program p;
    ASSERT_TRUE(p.started()) << qPrintable(p.output());
    p.shot(QStringLiteral("record_start"));
    ExpectWholeAndApart(p, QStringLiteral("P3"), kRecordBand, QStringLiteral("start"));
    UntickPairs(p);
    p.click(QStringLiteral("command1"));
    ASSERT_TRUE(p.waitUntil([&] { return !p.control(QStringLiteral("command1")).enabled; }));
    for (int attempt = 0; attempt < 4; ++attempt) {
        PopAndPress(p);
        if (attempt == 0)
            p.shot(QStringLiteral("record_first_time"));
    }
    ASSERT_TRUE(p.waitUntil([&] { return p.control(QStringLiteral("GlossButton1_0")).visible; }));
    p.shot(QStringLiteral("record_run_finished"));
    ExpectWholeAndApart(p, QStringLiteral("P3"), kRecordBand, QStringLiteral("finished"));
    EXPECT_TRUE(p.text(QStringLiteral("Label3")).startsWith(QLatin1String("Average Reaction time ")));
    p.click(QStringLiteral("GlossButton1_0"));
    ASSERT_TRUE(p.waitUntil([&] { return p.lines(QStringLiteral("cl2")) == 1; }));
    EXPECT_EQ(p.text(QStringLiteral("Label5")), QStringLiteral("Data Collected: (1)"));
    EXPECT_FALSE(p.control(QStringLiteral("GlossButton1_0")).visible);
    EXPECT_TRUE(p.control(QStringLiteral("command1")).enabled);
}

TEST(RecordJourney, TooSlowRunEndsWithCancelAtEverySize)
{
    Program p;
    ASSERT_TRUE(p.started());
    UntickPairs(p);
    p.click(QStringLiteral("command1"));
    for (int attempt = 0; attempt < 4; ++attempt)
        PopAndPress(p, 1800); // slower than the limit every time
    ASSERT_TRUE(p.waitUntil([&] { return p.control(QStringLiteral("GlossButton1_1")).visible; }));
    EXPECT_TRUE(p.text(QStringLiteral("Label3")).contains(QLatin1String("Far too slow please try again!")));
    EXPECT_FALSE(p.control(QStringLiteral("GlossButton1_0")).enabled);
    EXPECT_FALSE(p.control(QStringLiteral("command1")).enabled);
    p.shot(QStringLiteral("record_too_slow_start_size"));
    ExpectWholeAndApart(p, QStringLiteral("P3"), kRecordBand, QStringLiteral("too slow, start size"));
    for (const QSize size : {QSize(900, 700), QSize(1280, 1024)}) {
        p.resizeWindow(size.width(), size.height());
        ExpectWholeAndApart(p, QStringLiteral("P3"), kRecordBand,
                            QStringLiteral("too slow, %1x%2").arg(size.width()).arg(size.height()));
    }
    p.shot(QStringLiteral("record_too_slow_large"));
    // Cancel is the only way on, and it is there to be pressed.
    p.click(QStringLiteral("GlossButton1_1"));
    ASSERT_TRUE(p.waitUntil([&] { return p.control(QStringLiteral("command1")).enabled; }));
    EXPECT_EQ(p.lines(QStringLiteral("cl1")), 0);
    EXPECT_EQ(p.lines(QStringLiteral("cl2")), 0);
}

TEST(RecordJourney, PairedRunPlaysTheCueAndAddsBothTimes)
{
    Options options;
    options.sound = true;
    Program p(options);
    ASSERT_TRUE(p.started());
    p.click(QStringLiteral("command1"));
    for (int attempt = 0; attempt < 4; ++attempt)
        PopAndPress(p);
    // The audio stage takes over at once, with the visual result.
    ASSERT_TRUE(p.waitUntil([&] { return p.control(QStringLiteral("P5")).visible; })) << qPrintable(p.output());
    EXPECT_TRUE(p.text(QStringLiteral("l9")).contains(QLatin1String("Visual: ")));
    p.shot(QStringLiteral("audio_stage_start_size"));
    ExpectWholeAndApart(p, QStringLiteral("P5"), kAudioBand, QStringLiteral("audio stage"));
    // The invitation points at the target, not at the curtain beside it.
    const Control balloon = p.control(QStringLiteral("IMmsg1"));
    const Control target = p.control(QStringLiteral("ucgif"));
    EXPECT_TRUE(balloon.visible);
    EXPECT_GE(balloon.rect.left() + 10, target.rect.left());
    EXPECT_LE(balloon.rect.left() + 10, target.rect.right());

    p.click(QStringLiteral("cmdStartAudio"));
    ASSERT_TRUE(p.waitUntil([&] { return !p.control(QStringLiteral("cmdStartAudio")).enabled; }));
    for (int attempt = 0; attempt < 4; ++attempt) {
        ASSERT_TRUE(p.fire(TimerAudioCue));
        ASSERT_TRUE(p.waitUntil([&] { return p.ask(QStringLiteral("risen ucgif")) == QLatin1String("1"); }));
        if (attempt == 0) {
            EXPECT_GT(p.soundHeard(3000), 300) << "the cue must sound until the press";
        }
        p.click(QStringLiteral("ucgif"));
        ASSERT_TRUE(p.waitUntil([&] { return p.lines(QStringLiteral("cl5")) == attempt + 1; }));
        if (attempt == 0) {
            const int after = p.soundHeard(3000);
            EXPECT_GE(after, 0) << "nothing was recorded";
            EXPECT_LT(after, 100) << "the press must stop the cue";
        }
    }
    ASSERT_TRUE(p.waitUntil([&] { return p.control(QStringLiteral("cmdadd_0")).visible; }));
    p.shot(QStringLiteral("audio_run_finished"));
    ExpectWholeAndApart(p, QStringLiteral("P5"), kAudioBand, QStringLiteral("audio finished"));
    p.click(QStringLiteral("cmdadd_0"));
    ASSERT_TRUE(p.waitUntil([&] { return p.lines(QStringLiteral("CL4")) == 1; }));
    EXPECT_EQ(p.lines(QStringLiteral("cl2")), 1);
    EXPECT_FALSE(p.control(QStringLiteral("P5")).visible);
}

TEST(RecordJourney, NoSoundOutputIsToldAndOnlyCancelRemains)
{
    Program p; // no sound server: the machine has no audio output
    ASSERT_TRUE(p.started());
    p.click(QStringLiteral("command1"));
    for (int attempt = 0; attempt < 4; ++attempt)
        PopAndPress(p);
    QString modal;
    ASSERT_TRUE(p.waitUntil([&] { return (modal = p.ask(QStringLiteral("modal"))) != QLatin1String("none"); }));
    p.shot(QStringLiteral("no_sound_message"));
    p.key("Return");
    ASSERT_TRUE(p.waitUntil([&] { return p.ask(QStringLiteral("modal")) == QLatin1String("none"); }));
    EXPECT_FALSE(p.control(QStringLiteral("P5")).visible);
    EXPECT_FALSE(p.control(QStringLiteral("GlossButton1_0")).enabled);
    p.click(QStringLiteral("GlossButton1_1"));
    ASSERT_TRUE(p.waitUntil([&] { return p.control(QStringLiteral("command1")).enabled; }));
    EXPECT_EQ(p.lines(QStringLiteral("cl2")), 0);
}

TEST(RecordJourney, CharactersRestWhileNoRunGoesOn)
{
    Options options;
    options.manualTimers = true; // no idle peek: nothing may move by itself
    Program p(options);
    ASSERT_TRUE(p.started());
    const QRect stage = p.control(QStringLiteral("P3")).rect.adjusted(0, 0, 0, -170);
    QThread::msleep(1200); // past any greeting
    const QImage first = p.region(stage);
    for (int i = 0; i < 3; ++i) {
        QThread::msleep(700);
        EXPECT_EQ(p.region(stage), first) << "the stage changed by itself, " << i;
    }
    for (int i = 0; i < 3; ++i) {
        const QString frame = p.ask(QStringLiteral("frame ucGifPlayer1_%1").arg(i));
        EXPECT_TRUE(frame.startsWith(QLatin1String("1 "))) << qPrintable(frame);
    }
    p.shot(QStringLiteral("record_resting"));
}

// A pupil who can't use a mouse: the space bar setting, a whole visual run and the save, all by
// keys. The pointer only rests over the window, as keys go to the window under it here.
TEST(RecordJourney, KeyboardOnlyRunAndSave)
{
    Program p;
    ASSERT_TRUE(p.started());
    const Control column = p.control(QStringLiteral("Label4"));
    p.moveTo(column.centre());
    p.focusMainWindow();

    ASSERT_TRUE(p.tabTo(QStringLiteral("Check4"))) << qPrintable(p.ask(QStringLiteral("focus")));
    p.key("space");
    ASSERT_TRUE(p.waitUntil([&] { return p.text(QStringLiteral("Check4")).endsWith(QLatin1String("=0")); }));
    ASSERT_TRUE(p.tabTo(QStringLiteral("CheckSpace")));
    p.key("space");
    ASSERT_TRUE(p.waitUntil([&] { return p.text(QStringLiteral("CheckSpace")).endsWith(QLatin1String("=1")); }));
    p.shot(QStringLiteral("keyboard_space_setting"));

    ASSERT_TRUE(p.tabTo(QStringLiteral("command1")));
    p.key("Return");
    for (int attempt = 0; attempt < 4; ++attempt) {
        p.ask(QStringLiteral("rnd 0"));
        ASSERT_TRUE(p.fire(TimerVisualPop));
        ASSERT_TRUE(p.waitUntil([&] { return !RisenCharacter(p).isEmpty(); }));
        p.key("space");
        ASSERT_TRUE(p.waitUntil([&] { return p.lines(QStringLiteral("cl1")) == attempt + 1; })) << attempt;
    }
    ASSERT_TRUE(p.waitUntil([&] { return p.control(QStringLiteral("GlossButton1_0")).visible; }));
    EXPECT_TRUE(p.text(QStringLiteral("Label3")).contains(QLatin1String("(by space bar)")));
    p.shot(QStringLiteral("keyboard_run_finished"));

    ASSERT_TRUE(p.tabTo(QStringLiteral("GlossButton1_0")));
    p.key("Return");
    ASSERT_TRUE(p.waitUntil([&] { return p.lines(QStringLiteral("cl2")) == 1; }));

    const QString saved = p.documents() + QStringLiteral("/by_keys.rtd");
    p.chord("Control_L", "s");
    ASSERT_TRUE(p.waitUntil([&] { return p.modalShown(); })) << "no save dialog";
    p.type(p.documents() + QStringLiteral("/by_keys"));
    p.key("Return");
    ASSERT_TRUE(p.waitUntil([&] { return QFileInfo::exists(saved); }));
    QFile file(saved);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QByteArray content = file.readAll();
    EXPECT_TRUE(content.contains("DataItems=1\r\n")) << content.constData();
    EXPECT_TRUE(content.contains("Sample=0\r\n")) << content.constData();
    QFile settings(p.documents() + QStringLiteral("/Zorvanes.ini"));
    ASSERT_TRUE(settings.open(QIODevice::ReadOnly));
    EXPECT_TRUE(settings.readAll().contains("SpaceBar=1"));
}
