// The visual test on the Record page: a row of characters, one pops up after a random wait,
// the pupil presses a mouse button on it.

#include "app/MainFrm.h"

#include "app/MainMod1.h"
#include "app/PagePanel.h"
#include "anim/ucGifPlayer.h"
#include "common/NumberText.h"
#include "common/RunTimeError.h"
#include "controls/DropPanel.h"
#include "controls/GlossButton.h"
#include "controls/RowList.h"
#include "controls/Check.h"
#include "reaction/SoundBas.h"
#include "reaction/mStopWatch.h"

#include <QLabel>

namespace {

// "3)    0.3441872": the count, a bracket, four blanks and the time as a single.
QString AttemptLine(int count, float seconds)
{
    return QString::number(count) + QStringLiteral(")    ") + QString::fromStdString(zrt::GeneralText(seconds));
}

// The too-slow limits compare as singles.
constexpr float kVisualLimit = 1.7f;

} // namespace

int MainFrm::AttemptsWanted() const { return static_cast<int>(zrt::Val(DD2->Title().toStdString())); }

void MainFrm::Settings_Enabled(bool enabled)
{
    pSettings->setEnabled(enabled);
    const zrt::OleColor title = enabled ? zrt::RGB(255, 255, 255) : zrt::ToOleColor(MainMod1::PanelColour);
    dd1->setTitleBackColor(title);
    DD2->setTitleBackColor(title);
}

void MainFrm::List1_Click()
{
    BuildCharacterRow();
}

void MainFrm::List2_Click()
{
    if (List2->ListIndex() >= 0)
        DD2->setTitle(List2->ItemText(List2->ListIndex()));
}

ucGifPlayer *MainFrm::newCharacter(const QByteArray &gif)
{
    auto *character = new ucGifPlayer(P3);
    // As the window keeps its characters: scaled down only, the rest of the frames built on the
    // player's build timer, no play of its own after the build. It rests on its first frame.
    character->ReadProperties(CharacterProperties(gif));
    return character;
}

void MainFrm::BuildCharacterRow()
{
    if (List1->ListIndex() < 0)
        return;
    const int n = List1->ListIndex() + 1;
    dd1->setTitle(List1->ItemText(List1->ListIndex()));
    P3->setUpdatesEnabled(false);
    if (ucGifPlayer1.empty()) {
        ucGifPlayer1.push_back(newCharacter(m_character1));
        ucGifPlayer1[0]->setGeometry(0, 0, 110, 394);
        ucGifPlayer1[0]->lower();
    }
    while (static_cast<int>(ucGifPlayer1.size()) < n) {
        chance().Randomize();
        const int r = chance().wholeBetween(2, 1);
        auto *character = newCharacter(r == 2 ? m_character2 : m_character1);
        character->setGeometry(0, ucGifPlayer1[0]->y(), ucGifPlayer1[0]->width(), ucGifPlayer1[0]->height());
        character->stackUnder(IMmsg);
        character->show();
        ucGifPlayer1.push_back(character);
    }
    while (static_cast<int>(ucGifPlayer1.size()) > n) {
        delete ucGifPlayer1.back();
        ucGifPlayer1.pop_back();
    }
    for (int i = 0; i < n; ++i) {
        ucGifPlayer *character = ucGifPlayer1[i];
        character->setObjectName(QStringLiteral("ucGifPlayer1_") + QString::number(i));
        disconnect(character, &ucGifPlayer::MouseDown, this, nullptr);
        connect(character, &ucGifPlayer::MouseDown, this,
                [this, i] { guarded([this, i] { ucGifPlayer1_MouseDown(i); }); });
    }
    const int width = ucGifPlayer1[0]->width();
    const int offset = (P3->width() - n * width) / 2;
    for (int i = 0; i < n; ++i)
        ucGifPlayer1[i]->move(i * width + offset, ucGifPlayer1[i]->y());
    // The picture's own flag: the page may be hidden while its row is rebuilt.
    if (!IMmsg->isHidden())
        IMmsg->move(ucGifPlayer1[0]->x() + width / 2, 0);
    IMmsg->raise();
    // The audio stage stays in front of everything on the Record page.
    if (P5)
        P5->raise();
    P3->setUpdatesEnabled(true);
}

void MainFrm::command1_Click()
{
    cl1->Clear();
    IMmsg->hide();
    AttemptCount = 0;
    Settings_Enabled(false);
    VisualTimes.assign(static_cast<size_t>(AttemptsWanted()) + 1, 0.0f);
    StartVisualDelay();
    command1->setEnabled(false);
}

void MainFrm::StartVisualDelay()
{
    chance().Randomize();
    const int seconds = chance().wholeBetween(5, 1);
    timers().SetTimer(TimerVisualPop, seconds * 1000);
}

void MainFrm::VisualPop()
{
    // The stopwatch starts before the character rises: drawing the frame counts into the time.
    if (mStopWatch::SwStart(RunStopwatch) != 1)
        return;
    chance().Randomize();
    const int i = static_cast<int>(static_cast<float>(ucGifPlayer1.size()) * chance().Rnd() + 1.0f) - 1;
    ucGifPlayer *character = ucGifPlayer1.at(static_cast<size_t>(i));
    character->setAction(4);
    SetTag(character, QStringLiteral("1"));
    character->setAction(3);
    character->setAction(3);
}

void MainFrm::IdlePeek()
{
    chance().Randomize();
    const int i = static_cast<int>(static_cast<float>(ucGifPlayer1.size()) * chance().Rnd() + 1.0f) - 1;
    ucGifPlayer *character = ucGifPlayer1.at(static_cast<size_t>(i));
    const QString tag = Tag(character);
    if (tag == QLatin1String("2")) {
        SetTag(character, QString());
        character->setAction(0);
    } else if (tag != QLatin1String("1")) {
        SetTag(character, QStringLiteral("2"));
        character->setAction(3);
    }
    timers().SetTimer(TimerIdlePeek, 2500);
}

void MainFrm::ucGifPlayer1_MouseDown(int index)
{
    ucGifPlayer *character = ucGifPlayer1.at(static_cast<size_t>(index));
    if (Tag(character) != QLatin1String("1")) {
        // A false start restarts the wait; it is only noticed with a single character.
        if (ucGifPlayer1.size() == 1 && AttemptsWanted() > AttemptCount) {
            timers().KillTimer(TimerVisualPop);
            StartVisualDelay();
        }
        return;
    }
    // The hit sound is asked for before the reading: its cost counts into the time. It plays
    // whatever the settings file says of sound.
    SoundBas::SoundPlayer::instance().PlaySound(MainMod1::Sounds.buffers[2], 5);
    AttemptCount = zrt::addInt16(AttemptCount, 1);
    // Times are indexed from 1; a run begun by a false start was never dimensioned.
    if (AttemptCount >= static_cast<int>(VisualTimes.size()))
        zrt::raise(zrt::ErrSubscript);
    VisualTimes[static_cast<size_t>(AttemptCount)] = mStopWatch::SwElapsed(RunStopwatch);
    cl1->AddItem(AttemptLine(AttemptCount, VisualTimes[static_cast<size_t>(AttemptCount)]));
    character->setAction(3);
    SetTag(character, QString());
    if (AttemptsWanted() > AttemptCount) {
        StartVisualDelay();
        return;
    }
    // The sum starts from what VisualAverage holds: a second Start without Add or Cancel
    // sums onto the mean of the first run.
    const size_t upper = VisualTimes.size() - 1;
    for (size_t k = 1; k <= upper; ++k)
        VisualAverage += VisualTimes[k];
    VisualAverage /= static_cast<float>(upper);
    const QString mean = QString::fromStdString(zrt::GeneralText(VisualAverage));
    const bool tooSlow = VisualAverage > kVisualLimit;
    if (tooSlow) {
        Label3->setText(QStringLiteral("Average Reaction time ") + mean + QStringLiteral(" seconds") + "\n" +
                        QStringLiteral("Far too slow please try again!"));
    } else {
        Label3->setText(QStringLiteral("Average Reaction time ") + mean + QStringLiteral(" seconds"));
    }
    command1->setEnabled(!tooSlow);
    GlossButton1[0]->setEnabled(!tooSlow);
    Label3->show();
    GlossButton1[0]->show();
    GlossButton1[1]->show();
    if (Check4->Value() == 1 && GlossButton1[0]->isEnabled()) {
        if (!hasAudioOutput()) {
            // No pair can be made without sound: the visual result can only be cancelled.
            GlossButton1[0]->setEnabled(false);
            TellNoSoundOutput();
            return;
        }
        // The audio stage takes over for the second half of the pair.
        timers().KillTimer(TimerIdlePeek);
        l9->setText(QStringLiteral("Average reaction time ") + "\n" + QStringLiteral("Visual: ") + mean +
                    QStringLiteral(" seconds"));
        l9->show();
        P5->show();
        P5->raise();
        chance().Randomize();
        const int seconds = chance().wholeBetween(10, 4);
        timers().SetTimer(TimerWalker, seconds * 1000);
    }
}
