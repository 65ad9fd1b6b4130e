#pragma once
// The Record page and the visual test on it: a row of characters on the stage, one rises after
// a random wait and the pupil presses a mouse button on it. Under the stage the list of this
// run's times, Start, the verdict with Add and Cancel, and the settings. The audio stage lies
// over the page as its child and takes over for the second half of a pair.

#include "app/PagePanel.h"
#include "reaction/ReactionRun.h"

#include <QByteArray>

#include <array>
#include <cstdint>
#include <utility>
#include <vector>

class QLabel;
class QShortcut;
class AudioStage;
class DataColumn;
struct PageContext;
namespace zrt {
class Check;
class DropPanel;
class GlossButton;
class RowList;
class ucGifPlayer;
} // namespace zrt

class RecordPage : public PagePanel {
    Q_OBJECT
public:
    // Where a character stands in the game.
    enum class CharacterState { Resting, Risen, Peeking };

    RecordPage(PageContext &context, DataColumn &column, QWidget *parent, const QRect &geometry);

    QLabel *IMmsg = nullptr, *Label2 = nullptr, *Label3 = nullptr;
    std::array<QLabel *, 2> Label1{};
    zrt::GlossButton *command1 = nullptr;
    std::array<zrt::GlossButton *, 2> GlossButton1{};
    zrt::RowList *cl1 = nullptr, *List1 = nullptr, *List2 = nullptr;
    PagePanel *pSettings = nullptr;
    zrt::DropPanel *dd1 = nullptr, *DD2 = nullptr;
    zrt::Check *Check4 = nullptr;
    zrt::Check *CheckSpace = nullptr; // "Respond with the space bar"
    std::vector<zrt::ucGifPlayer *> ucGifPlayer1;
    AudioStage *P5 = nullptr;

    // The run shared with the audio stage, and the stopwatch that times both.
    zrt::ReactionRun run;
    std::int32_t RunStopwatch = 0;

    CharacterState characterState(int index) const { return m_states.at(static_cast<size_t>(index)); }
    bool paired() const;
    // Whether a press of the space bar answers the tests (for a pupil who can't use a mouse).
    bool respondsWithSpace() const;
    void setRespondWithSpace(bool on);
    // The space bar is armed only while a test waits for an answer, so everywhere else it works
    // the focused control as usual.
    void updateSpaceKey();
    // The space bar pressed during a test: as a press on the risen character or the target.
    void spaceResponse();
    int AttemptsWanted() const; // the number in DD2's title

    // ---- The visual test ----
    void command1_Click();
    void StartVisualDelay();
    void VisualPop();
    void IdlePeek();
    void ucGifPlayer1_MouseDown(int index);
    void GlossButton1_Click(int index);
    // After the audio stage's Add or Cancel: the page is as before the pair.
    void endPair();

    // ---- Settings ----
    void List1_Click();
    void List2_Click();
    void Settings_Enabled(bool enabled);
    // A cleared session starts from one character and 4 attempts, unlike a fresh start.
    void resetSettings();
    void BuildCharacterRow();

Q_SIGNALS:
    // The pupil changed the space bar setting.
    void spaceSettingChanged(bool on);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void build();
    // Names the controls whose captions stand beside them, for screen readers.
    void nameForScreenReaders();
    void orderTabs();
    void buildSettingsPanel();
    void P3_Resize();
    void layoutRunColumn(int inner);
    void sizeVerdict();
    void spaceSettingShown();
    void showVerdict(const QString &mean, bool tooSlow);
    void openAudioStage(const QString &mean);
    zrt::ucGifPlayer *newCharacter(const QByteArray &gif);
    int chooseCharacter();

    PageContext &m_context;
    DataColumn &m_column;
    std::vector<CharacterState> m_states;
    bool m_visualRunning = false;
    QShortcut *m_spaceKey = nullptr;
    QByteArray m_character1, m_character2;
    // The band's controls with the focus policy each has while the audio stage is not over them.
    std::vector<std::pair<QWidget *, Qt::FocusPolicy>> m_bandFocus;
};
