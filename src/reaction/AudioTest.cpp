// The audio test on its own stage: after a random wait a cue loops until the pupil presses on
// the target; now and then a walker crosses the stage, and no cue starts while it does.

#include "app/MainFrm.h"

#include "app/MainMod1.h"
#include "app/PagePanel.h"
#include "anim/ucGifPlayer.h"
#include "common/NumberText.h"
#include "common/RunTimeError.h"
#include "controls/GlossButton.h"
#include "controls/RowList.h"
#include "dialogs/MsgBox.h"
#include "dialogs/MsgBoxes.h"
#include "reaction/SoundBas.h"
#include "reaction/mStopWatch.h"

#include <QLabel>

namespace {

constexpr float kAudioLimit = 1.3f;

// Every sound plays, whatever the settings file says of sound.
void Play(int buffer, int flags)
{
    SoundBas::SoundPlayer::instance().PlaySound(MainMod1::Sounds.buffers[static_cast<size_t>(buffer - 1)], flags);
}

} // namespace

void MainFrm::StartAudioDelay()
{
    chance().Randomize();
    const int seconds = chance().wholeBetween(7, 1);
    timers().SetTimer(TimerAudioCue, seconds * 1000);
}

void MainFrm::TellNoSoundOutput()
{
    zrt::msg_Box(QStringLiteral("This computer has no sound output, so the audio test can't be run.") + "\n" +
                     QStringLiteral("Connect speakers or headphones and start again, or press Cancel."),
                 vbExclamation, QStringLiteral("No Sound"), this);
}

void MainFrm::cmdStartAudio_Click()
{
    if (!hasAudioOutput()) {
        // The sound went away since the stage opened: say so, and leave the way out open.
        TellNoSoundOutput();
        cmdadd[0]->setEnabled(false);
        cmdadd[1]->show();
        return;
    }
    cl1->Clear();
    IMmsg1->hide();
    AttemptCount = 0;
    AudioTimes.assign(static_cast<size_t>(AttemptsWanted()) + 1, 0.0f);
    ucgif->setAction(3);
    SetTag(P5, QStringLiteral("1"));
    timers().SetTimer(TimerAudioIdle, 2500);
    StartAudioDelay();
    cmdStartAudio->setEnabled(false);
}

void MainFrm::AudioCue()
{
    // Never a cue while the walker is on stage: wait anew instead.
    if (WalkerBusy) {
        StartAudioDelay();
        return;
    }
    timers().KillTimer(TimerWalker);
    SetTag(ucgif, QStringLiteral("1"));
    pump();
    // The stopwatch starts before the sound; the sound's own start counts into the time.
    if (mStopWatch::SwStart(RunStopwatch) == 1) {
        Play(2, SoundBas::SND_ASYNC | SoundBas::SND_MEMORY | SoundBas::SND_LOOP);
        pump();
    }
}

void MainFrm::AudioIdle()
{
    if (Tag(P5) == QLatin1String("1")) {
        ucgif->setAction(3);
        SetTag(P5, QStringLiteral("2"));
    } else if (Tag(P5) == QLatin1String("2")) {
        ucgif->setAction(0);
        ucgif->setAction(3);
        SetTag(P5, QStringLiteral("1"));
    }
    timers().SetTimer(TimerAudioIdle, 2500);
}

void MainFrm::ucgif_MouseDown()
{
    if (Tag(ucgif) != QLatin1String("1")) {
        if (AttemptsWanted() > AttemptCount) {
            timers().KillTimer(TimerAudioCue);
            StartAudioDelay();
        }
        return;
    }
    AttemptCount = zrt::addInt16(AttemptCount, 1);
    if (AttemptCount >= static_cast<int>(AudioTimes.size()))
        zrt::raise(zrt::ErrSubscript);
    AudioTimes[static_cast<size_t>(AttemptCount)] = mStopWatch::SwElapsed(RunStopwatch);
    SoundBas::SoundPlayer::instance().StopSound();
    SetTag(ucgif, QString());
    cl5->AddItem(QString::number(AttemptCount) + QStringLiteral(")    ") +
                 QString::fromStdString(zrt::GeneralText(AudioTimes[static_cast<size_t>(AttemptCount)])));
    if (AttemptsWanted() > AttemptCount) {
        StartAudioDelay();
        chance().Randomize();
        timers().SetTimer(TimerWalker, chance().wholeBetween(6, 4) * 1000);
        return;
    }
    const size_t upper = AudioTimes.size() - 1;
    for (size_t k = 1; k <= upper; ++k)
        AudioAverage += AudioTimes[k];
    AudioAverage /= static_cast<float>(upper);
    const QString mean = QString::fromStdString(zrt::GeneralText(AudioAverage));
    const QString old = l9->text();
    if (AudioAverage > kAudioLimit) {
        l9->setText(old.left(std::max<qsizetype>(0, old.size() - 8)) + QStringLiteral(" Audio: ") + mean + "\n" +
                    QStringLiteral("Far too slow! please try again."));
        cmdadd[0]->setEnabled(false);
    } else {
        l9->setText(old + "\n" + QStringLiteral("Audio: ") + mean + QStringLiteral(" seconds"));
        cmdadd[0]->setEnabled(true);
    }
    cmdadd[0]->show();
    cmdadd[1]->show();
    timers().KillTimer(TimerAudioIdle);
    timers().KillTimer(TimerAudioCue);
    // The walk must end before the run does; it runs on this thread, so let it. A walk whose
    // tick is not armed (stopped by a page button, or this press came inside a tick) cannot go
    // on while we wait, so it holds nothing up.
    while (WalkerBusy && Timer1->isActive())
        pump();
    WalkerBusy = false;
    timers().KillTimer(TimerWalker);
    ucgif->setAction(3);
}

void MainFrm::walkerFrameStep()
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
        pump();
    }
}

void MainFrm::walkerShow()
{
    ucGifPlayer2->setAction(4);
    for (int i = 0; i < 8; ++i) {
        ucGifPlayer2->setAction(3);
        pump();
    }
    for (int pause : {50, 100, 2000, 100}) {
        sleepFor(pause);
        ucGifPlayer2->setAction(3);
    }
    ucGifPlayer2->setAction(3);
    WalkReturning = true;
}

void MainFrm::Timer1_Timer()
{
    Timer1->stop();
    WalkerBusy = true;
    if (Tag(ucgif) == QLatin1String("1")) {
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
        pump();
        if (ucGifPlayer2->x() <= -width) {
            WalkReturning = false;
            ucGifPlayer2->move(P5->width(), ucGifPlayer2->y());
            WalkStepCount = 0;
            WalkFrameCount = 0;
            ucGifPlayer2->setAction(0);
            ucGifPlayer2->setAction(4);
            pump();
            chance().Randomize();
            timers().SetTimer(TimerWalker, chance().wholeBetween(6, 4) * 1000);
            WalkerBusy = false;
        } else {
            Timer1->start();
        }
    } else if (target <= left) {
        if (WalkFrameCount == 0) {
            ucGifPlayer2->setAction(4);
            pump();
        }
        walkerFrameStep();
        if (left == P5->width())
            Play(4, SoundBas::SND_ASYNC | SoundBas::SND_MEMORY);
        ucGifPlayer2->move(left - width / 25, ucGifPlayer2->y());
        Timer1->start();
    } else {
        walkerShow();
        Timer1->start();
    }
}
