#include "app/pages/AudioStage.h"

#include "anim/ucGifPlayer.h"
#include "app/MainMod1.h"
#include "app/pages/DataColumn.h"
#include "app/pages/PageContext.h"
#include "app/pages/PageWidgets.h"
#include "app/pages/RecordPage.h"
#include "common/NumberText.h"
#include "controls/GlossButton.h"
#include "controls/RowList.h"
#include "dialogs/MsgBox.h"
#include "dialogs/MsgBoxes.h"
#include "reaction/SoundBas.h"
#include "reaction/mStopWatch.h"

#include <QCoreApplication>
#include <QLabel>
#include <QTimer>

#include <algorithm>

namespace {

using namespace pages;

// The verdict holds both means and may run wider than the visual one.
constexpr int kVerdictWidth = 380;

// Every sound plays, whatever the settings file says of sound.
void Play(int buffer, int flags)
{
    SoundBas::SoundPlayer::instance().PlaySound(MainMod1::Sounds.buffers[static_cast<size_t>(buffer - 1)], flags);
}

} // namespace

AudioStage::AudioStage(PageContext &context, DataColumn &column, RecordPage &record)
    : DeferredPage(&record), m_context(context), m_column(column), m_record(record)
{
    // A child of the Record page: it goes and comes back with that page, so it can never stand
    // over an analysis page. Its controls are made when it first opens: a pupil who never takes
    // the audio test never pays for them, and the walker's frames are the largest picture of all.
    setGeometry(record.rect());
    setBackColor(QColor(236, 240, 226));
    setPictureFile(QStringLiteral(":/images/audio_stage.png")); // read when the stage first shows
    hide();
}

void AudioStage::buildControls()
{
    makePlayers(); // first, so that everything else on the stage stands in front of them
    build();
    P5_Resize();
}

void AudioStage::build()
{
    IMmsg1 = new QLabel(this);
    SetPixmapWhenShown(IMmsg1, PictureInLanguage(QStringLiteral(":/images/audio_invitation.png")));
    IMmsg1->resize(218, 183);

    cmdStartAudio = pages::NewButton(m_context, this, tr("Start"),
                                     QRect(0, kRunTop, kStartWidth, kButtonHeight), [this] { cmdStartAudio_Click(); });
    l9 = pages::NewLabel(this, QString(), QRect(0, kVerdictTop, kVerdictWidth, 0), true);
    l9->setAlignment(Qt::AlignCenter);
    // Four lines: the heading, both means (which may wrap) and the too-slow warning.
    l9->resize(l9->width(), l9->fontMetrics().lineSpacing() * 4 + 4);
    l9->hide();
    for (int i = 0; i < 2; ++i) {
        cmdadd[i] = pages::NewButton(m_context, this, i == 0 ? tr("Add Result") : tr("Cancel"),
                                     QRect(0, l9->y() + l9->height() + 4, kStartWidth, kButtonHeight),
                                     [this, i] { cmdadd_Click(i); });
        cmdadd[i]->hide();
    }
    Label10 = pages::NewLabel(this, tr("Reaction Times:"), QRect(kListLeft, kRunTop, kListWidth, 18), true);
    cl5 = new zrt::RowList(this);
    cl5->setGeometry(kListLeft, kListTop, kListWidth, tw(1710));
    cl5->setBackStyle(1);
    // The heading in the dark green of the program's texts, as on the Record page.
    QPalette palette = Label10->palette();
    palette.setColor(QPalette::WindowText, MainMod1::DarkGreenColour);
    Label10->setPalette(palette);
    nameForScreenReaders();

    Timer1 = new QTimer(this);
    // The walker asks for the fastest tick; the classic desktop answered a 1 ms request about
    // every 16 ms, and the walk is paced for that (a twenty-fifth of its width per tick).
    Timer1->setInterval(16);
    connect(Timer1, &QTimer::timeout, this, [this] { m_context.guard([this] { Timer1_Timer(); }); });
    connect(this, &PagePanel::Resize, this, [this] { m_context.guard([this] { P5_Resize(); }); });
    orderTabs();
}

void AudioStage::makePlayers()
{
    // The players take the values the window stores for them: the target as the characters; the
    // walker at its natural size, a tenth of a second at least per frame, built after load and
    // not playing by itself.
    ucgif = new zrt::ucGifPlayer(this);
    ucgif->resize(110, 394);
    ucgif->ReadProperties(CharacterProperties(ResourceBytes(QStringLiteral(":/gif/audio_target.gif"))));
    connect(ucgif, &zrt::ucGifPlayer::MouseDown, this, [this] { m_context.guard([this] { ucgif_MouseDown(); }); });
    ucGifPlayer2 = new zrt::ucGifPlayer(this);
    ucGifPlayer2->ReadProperties({{QStringLiteral("GIF"), ResourceBytes(QStringLiteral(":/gif/walker.gif"))},
                                  {QStringLiteral("Delay"), 100},
                                  {QStringLiteral("Stretch"), 4},
                                  {QStringLiteral("DelayLoad"), 2}});
    ucGifPlayer2->setGeometry(width(), 220, 179, 174);
    ucgif->setAccessibleName(tr("Zorvane to click when you hear the sound"));
    ucGifPlayer2->setAccessibleName(tr("Walking Zorvane"));
}

void AudioStage::nameForScreenReaders()
{
    // The invitation is a picture with words in it.
    IMmsg1->setAccessibleName(tr("Listen! Press Start, then click the Zorvane the moment you hear the sound."));
    Label10->setBuddy(cl5);
    cl5->setAccessibleName(tr("Audio reaction times of this run"));
}

// As on the Record page: the list of times, then Start, Add and Cancel.
void AudioStage::orderTabs() { pages::TabOrder({cl5, cmdStartAudio, cmdadd[0], cmdadd[1]}); }

void AudioStage::placeListenBalloon() { IMmsg1->move(ucgif->x() + ucgif->width() / 2, 0); }

void AudioStage::P5_Resize()
{
    const int width = this->width();
    ucgif->move((width - ucgif->width()) / 2, ucgif->y());
    // The balloon's own flag, not whether it is on screen: the stage is hidden when it is laid out.
    if (!IMmsg1->isHidden())
        placeListenBalloon();
    ucGifPlayer2->move(width, ucGifPlayer2->y());
    cmdStartAudio->move((width - cmdStartAudio->width()) / 2, cmdStartAudio->y());
    // The result text may not run over the list of times on the left.
    const int room = width - 2 * (cl5->x() + cl5->width() + kGap);
    l9->resize(std::min(kVerdictWidth, std::max(kStartWidth, room)), l9->height());
    l9->move((width - l9->width()) / 2, l9->y());
    cmdadd[0]->move((width - cmdadd[0]->width()) / 2, cmdadd[0]->y());
    cmdadd[1]->move(width - cmdadd[1]->width() - tw(60), cmdadd[1]->y());
}

void AudioStage::open(const QString &visualMean)
{
    ensureBuilt();
    // Times answered by key are told apart from those answered by mouse, in the heading, so the
    // verdict's lines below keep their form.
    const QString heading = m_record.respondsWithSpace() ? tr("Average reaction time ") + tr("(by space bar)")
                                                         : tr("Average reaction time ");
    l9->setText(heading + "\n" + tr("Visual: ") + visualMean + tr(" seconds"));
    l9->show();
    show();
    raise();
    m_context.chance.Randomize();
    const int seconds = m_context.chance.wholeBetween(10, 4);
    m_context.timers.SetTimer(TimerWalker, seconds * 1000);
}

void AudioStage::TellNoSoundOutput()
{
    zrt::msg_Box(tr("This computer has no sound output, so the audio test can't be run.") + "\n" +
                     tr("Connect speakers or headphones and start again, or press Cancel."),
                 vbExclamation, tr("No Sound"), window());
}

void AudioStage::StartAudioDelay()
{
    m_context.chance.Randomize();
    const int seconds = m_context.chance.wholeBetween(7, 1);
    m_context.timers.SetTimer(TimerAudioCue, seconds * 1000);
}

void AudioStage::cmdStartAudio_Click()
{
    if (!m_context.hasAudioOutput()) {
        // The sound went away since the stage opened: say so, and leave the way out open.
        TellNoSoundOutput();
        cmdadd[0]->setEnabled(false);
        cmdadd[1]->show();
        return;
    }
    // The visual list is emptied too, as it always was.
    m_record.cl1->Clear();
    IMmsg1->hide();
    m_record.run.begin(zrt::Sense::Audio, m_record.AttemptsWanted());
    ucgif->setAction(3);
    m_idleNod = IdleNod::Up;
    m_context.timers.SetTimer(TimerAudioIdle, 2500);
    StartAudioDelay();
    cmdStartAudio->setEnabled(false);
    m_audioRunning = true;
    m_record.updateSpaceKey();
}

void AudioStage::AudioCue()
{
    // Never a cue while the walker is on stage: wait anew instead.
    if (WalkerBusy) {
        StartAudioDelay();
        return;
    }
    m_context.timers.KillTimer(TimerWalker);
    m_cueSounding = true;
    PageContext::pump();
    // The stopwatch starts before the sound; the sound's own start counts into the time.
    if (mStopWatch::SwStart(m_record.RunStopwatch) == 1) {
        Play(2, SoundBas::SND_ASYNC | SoundBas::SND_MEMORY | SoundBas::SND_LOOP);
        PageContext::pump();
    }
}

void AudioStage::AudioIdle()
{
    if (m_idleNod == IdleNod::Up) {
        ucgif->setAction(3);
        m_idleNod = IdleNod::Down;
    } else if (m_idleNod == IdleNod::Down) {
        ucgif->setAction(0);
        ucgif->setAction(3);
        m_idleNod = IdleNod::Up;
    }
    m_context.timers.SetTimer(TimerAudioIdle, 2500);
}

void AudioStage::ucgif_MouseDown()
{
    zrt::ReactionRun &run = m_record.run;
    if (!m_cueSounding) {
        if (run.moreWanted(m_record.AttemptsWanted())) {
            m_context.timers.KillTimer(TimerAudioCue);
            StartAudioDelay();
        }
        return;
    }
    const int attempt = run.record(zrt::Sense::Audio, mStopWatch::SwElapsed(m_record.RunStopwatch));
    SoundBas::SoundPlayer::instance().StopSound();
    m_cueSounding = false;
    cl5->AddItem(AttemptLine(attempt, run.times(zrt::Sense::Audio)[static_cast<size_t>(attempt)]));
    if (run.moreWanted(m_record.AttemptsWanted())) {
        StartAudioDelay();
        m_context.chance.Randomize();
        m_context.timers.SetTimer(TimerWalker, m_context.chance.wholeBetween(6, 4) * 1000);
        return;
    }
    m_audioRunning = false;
    m_record.updateSpaceKey();
    run.finish(zrt::Sense::Audio);
    showVerdict(QString::fromStdString(zrt::GeneralText(run.mean(zrt::Sense::Audio))));
    m_context.timers.KillTimer(TimerAudioIdle);
    m_context.timers.KillTimer(TimerAudioCue);
    // The walk must end before the run does; it runs on this thread, so let it. A walk whose
    // tick is not armed (stopped by a page button, or this press came inside a tick) cannot go
    // on while we wait, so it holds nothing up.
    while (WalkerBusy && Timer1->isActive())
        PageContext::pump();
    WalkerBusy = false;
    m_context.timers.KillTimer(TimerWalker);
    ucgif->setAction(3);
}

void AudioStage::showVerdict(const QString &mean)
{
    const QString old = l9->text();
    if (m_record.run.tooSlow(zrt::Sense::Audio)) {
        // The heading's " seconds" gives way to the audio mean.
        const qsizetype seconds = tr(" seconds").size();
        l9->setText(old.left(std::max<qsizetype>(0, old.size() - seconds)) + tr(" Audio: ") + mean + "\n" +
                    tr("Far too slow! please try again."));
        cmdadd[0]->setEnabled(false);
    } else {
        l9->setText(old + "\n" + tr("Audio: ") + mean + tr(" seconds"));
        cmdadd[0]->setEnabled(true);
    }
    cmdadd[0]->show();
    cmdadd[1]->show();
}

void AudioStage::cmdadd_Click(int index)
{
    zrt::ReactionRun &run = m_record.run;
    if (index == 0)
        m_column.addPair(run.mean(zrt::Sense::Visual), run.mean(zrt::Sense::Audio));
    run.clearMean(zrt::Sense::Visual);
    run.clearMean(zrt::Sense::Audio);
    hide();
    cmdadd[0]->hide();
    cmdadd[1]->hide();
    cl5->Clear();
    cmdStartAudio->setEnabled(true);
    IMmsg1->show();
    m_record.endPair();
    Timer1->stop();
    m_context.timers.SetTimer(TimerIdlePeek, 2500);
}

void AudioStage::stopWalk()
{
    if (Timer1)
        Timer1->stop();
}

// ---------------------------------------------------------------- the walker

void AudioStage::walkerFrameStep()
{
    ++WalkStepCount;
    if (WalkStepCount % 3 == 0) {
        if (WalkFrameCount < 4) {
            ++WalkFrameCount;
            ucGifPlayer2->setAction(3);
        } else {
            ucGifPlayer2->setAction(4);
            WalkFrameCount = 0;
        }
        PageContext::pump();
    }
}

void AudioStage::walkerShow()
{
    ucGifPlayer2->setAction(4);
    for (int i = 0; i < 8; ++i) {
        ucGifPlayer2->setAction(3);
        PageContext::pump();
    }
    for (int pause : {50, 100, 2000, 100}) {
        m_context.sleepFor(pause);
        ucGifPlayer2->setAction(3);
    }
    ucGifPlayer2->setAction(3);
    WalkReturning = true;
}

void AudioStage::Timer1_Timer()
{
    Timer1->stop();
    WalkerBusy = true;
    if (m_cueSounding) {
        // The walk pauses while the cue sounds.
        WalkerBusy = false;
        return;
    }
    const int left = ucGifPlayer2->x();
    const int width = ucGifPlayer2->width();
    const int target = ucgif->x() - width;
    if (WalkReturning) {
        walkerFrameStep();
        ucGifPlayer2->move(left - width / 25, ucGifPlayer2->y());
        PageContext::pump();
        if (ucGifPlayer2->x() <= -width) {
            WalkReturning = false;
            ucGifPlayer2->move(this->width(), ucGifPlayer2->y());
            WalkStepCount = 0;
            WalkFrameCount = 0;
            ucGifPlayer2->setAction(0);
            ucGifPlayer2->setAction(4);
            PageContext::pump();
            m_context.chance.Randomize();
            m_context.timers.SetTimer(TimerWalker, m_context.chance.wholeBetween(6, 4) * 1000);
            WalkerBusy = false;
        } else {
            Timer1->start();
        }
    } else if (target <= left) {
        if (WalkFrameCount == 0) {
            ucGifPlayer2->setAction(4);
            PageContext::pump();
        }
        walkerFrameStep();
        if (left == this->width())
            Play(4, SoundBas::SND_ASYNC | SoundBas::SND_MEMORY);
        ucGifPlayer2->move(left - width / 25, ucGifPlayer2->y());
        Timer1->start();
    } else {
        walkerShow();
        Timer1->start();
    }
}
