#pragma once
// The audio test on its own stage, laid over the Record page as its child: after a random wait a
// cue loops until the pupil presses on the target; now and then a walker crosses the stage, and
// no cue starts while it does. It opens after a visual run that wants a pair, and its Add or
// Cancel ends the pair.

#include "app/pages/DeferredPage.h"

#include <array>

class QLabel;
class QTimer;
class DataColumn;
class RecordPage;
struct PageContext;
namespace zrt {
class GlossButton;
class RowList;
class ucGifPlayer;
} // namespace zrt

class AudioStage : public DeferredPage {
    Q_OBJECT
public:
    // The target's idle nod: off until Start, then up and down in turn.
    enum class IdleNod { Off, Up, Down };

    AudioStage(PageContext &context, DataColumn &column, RecordPage &record);

    zrt::ucGifPlayer *ucgif = nullptr, *ucGifPlayer2 = nullptr;
    QLabel *IMmsg1 = nullptr, *l9 = nullptr, *Label10 = nullptr;
    zrt::GlossButton *cmdStartAudio = nullptr;
    std::array<zrt::GlossButton *, 2> cmdadd{};
    zrt::RowList *cl5 = nullptr;
    QTimer *Timer1 = nullptr; // the walker's step

    // The walker's progress.
    int WalkStepCount = 0;
    int WalkFrameCount = 0;
    bool WalkReturning = false;
    bool WalkerBusy = false;

    bool cueSounding() const { return m_cueSounding; }
    // From Start until the last answer of the audio test.
    bool audioRunning() const { return m_audioRunning; }
    IdleNod idleNod() const { return m_idleNod; }

    // Shown for the second half of a pair, with the visual mean in the verdict.
    void open(const QString &visualMean);
    void TellNoSoundOutput();

    void cmdStartAudio_Click();
    void StartAudioDelay();
    void AudioCue();
    void AudioIdle();
    void ucgif_MouseDown();
    void cmdadd_Click(int index);
    void Timer1_Timer();
    void stopWalk();

protected:
    void buildControls() override;

private:
    void makePlayers();
    void build();
    // Names the controls whose captions stand beside them, for screen readers.
    void nameForScreenReaders();
    void orderTabs();
    void P5_Resize();
    void placeListenBalloon();
    void showVerdict(const QString &mean);
    void walkerFrameStep();
    void walkerShow();

    PageContext &m_context;
    DataColumn &m_column;
    RecordPage &m_record;
    bool m_cueSounding = false;
    bool m_audioRunning = false;
    IdleNod m_idleNod = IdleNod::Off;
};
