#include "app/pages/RecordPage.h"

#include "anim/ucGifPlayer.h"
#include "gfx/BakedPicture.h"
#include "app/MainMod1.h"
#include "app/pages/AudioStage.h"
#include "app/pages/DataColumn.h"
#include "app/pages/PageContext.h"
#include "app/pages/PageWidgets.h"
#include "common/NumberText.h"
#include "controls/Check.h"
#include "controls/DropPanel.h"
#include "controls/GlossButton.h"
#include "controls/RowList.h"
#include "reaction/SoundBas.h"
#include "reaction/mStopWatch.h"

#include <QApplication>
#include <QCoreApplication>
#include <QEvent>
#include <QLabel>
#include <QShortcut>

#include <algorithm>
#include <initializer_list>

namespace {

using namespace pages;

// Design height of the page, in pixels.
constexpr int kPageHeight = 8400 / 15;

// The band under the stage also holds the settings on the right.
constexpr int kResultButtonWidth = 104;
constexpr int kVerdictWidth = 300;
constexpr int kSettingsTop = 398;
constexpr int kSettingsMargin = 4;
constexpr int kSettingsRowHeight = 24;
constexpr int kSettingsListWidth = 60;


} // namespace

RecordPage::RecordPage(PageContext &context, DataColumn &column, QWidget *parent, const QRect &geometry)
    : PagePanel(parent), m_context(context), m_column(column)
{
    setGeometry(geometry);
    m_character1 = ResourceBytes(QStringLiteral(":/gif/character1.gif"));
    m_character2 = ResourceBytes(QStringLiteral(":/gif/character2.gif"));
    RunStopwatch = mStopWatch::SwNew();
    build();
}

void RecordPage::build()
{
    setBackColor(QColor(236, 240, 226));
    setPicture(zrt::StartupPicture(QStringLiteral(":/images/record_stage.png")));

    IMmsg = new QLabel(this);
    const QString invitation = PictureInLanguage(QStringLiteral(":/images/start_invitation.png"));
    IMmsg->setPixmap(QPixmap::fromImage(zrt::StartupPicture(invitation)));
    IMmsg->resize(225, 178);

    command1 = pages::NewButton(m_context, this, tr("Start"), QRect(0, kRunTop, kStartWidth, kButtonHeight),
                                [this] { command1_Click(); });
    Label3 = pages::NewLabel(this, tr("Average Reaction time"), QRect(0, kVerdictTop, kVerdictWidth, 0),
                             true);
    Label3->setAlignment(Qt::AlignCenter);
    Label3->hide();
    for (int i = 0; i < 2; ++i) {
        GlossButton1[i] = pages::NewButton(m_context, this,
                                           i == 0 ? tr("Add Result") : tr("Cancel"),
                                           QRect(0, 0, kResultButtonWidth, kButtonHeight),
                                           [this, i] { GlossButton1_Click(i); });
        GlossButton1[i]->hide();
    }
    Label2 = pages::NewLabel(this, tr("Reaction Times:"), QRect(kListLeft, kRunTop, kListWidth, 18), true);
    cl1 = new zrt::RowList(this);
    cl1->setGeometry(kListLeft, kListTop, kListWidth, tw(1710));
    buildSettingsPanel();
    nameForScreenReaders();
    sizeVerdict();
    connect(this, &PagePanel::Resize, this, [this] { m_context.guard([this] { P3_Resize(); }); });

    P5 = new AudioStage(m_context, m_column, *this);
    orderTabs();
}

// Tab goes through the band as it reads: the list of times, the run's buttons, the settings.
void RecordPage::orderTabs()
{
    const std::initializer_list<QWidget *> band = {cl1, command1, GlossButton1[0], GlossButton1[1],
                                                   List1, List2, Check4, CheckSpace};
    pages::TabOrder(band);
    // While the audio stage lies over the page, Tab must not reach the band hidden under it.
    for (QWidget *control : band) {
        QWidget *target = control->focusProxy() ? control->focusProxy() : control;
        m_bandFocus.emplace_back(target, target->focusPolicy());
    }
    P5->installEventFilter(this);
}

bool RecordPage::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == P5 && (event->type() == QEvent::Show || event->type() == QEvent::Hide)) {
        const bool covered = event->type() == QEvent::Show;
        for (const auto &[control, policy] : m_bandFocus)
            control->setFocusPolicy(covered ? Qt::NoFocus : policy);
        QWidget *focused = QApplication::focusWidget();
        if (covered && focused && isAncestorOf(focused) && !P5->isAncestorOf(focused) && P5->isBuilt() &&
            P5->cmdStartAudio->isVisible())
            P5->cmdStartAudio->setFocus(Qt::OtherFocusReason);
    }
    return PagePanel::eventFilter(watched, event);
}

void RecordPage::buildSettingsPanel()
{
    // A compact panel in the page's lower right corner: each caption with its list beside it, the
    // check box below. It fills the band under the stage to the page's foot, so that the longer
    // list drops down inside it, and leaves the middle free for Start and the result.
    pSettings = new PagePanel(this);
    pSettings->setBackColor(QColor(236, 240, 226));
    Label1[0] = pages::NewLabel(pSettings, tr("Number of Zorvanes:"), QRect());
    Label1[1] = pages::NewLabel(pSettings, tr("Number of attempts:"), QRect());
    int captionWidth = 0;
    for (QLabel *label : Label1) {
        QFont small = label->font();
        small.setPointSizeF(small.pointSizeF() * 0.9);
        label->setFont(small);
        captionWidth = std::max(captionWidth, label->fontMetrics().horizontalAdvance(label->text()) + 4);
    }
    const int listLeft = kSettingsMargin + captionWidth + kSettingsMargin;

    dd1 = new zrt::DropPanel(pSettings);
    dd1->setGeometry(listLeft, 0, kSettingsListWidth, 22);
    List1 = new zrt::RowList(dd1);
    for (int i = 1; i <= 5; ++i)
        List1->AddItem(QString::number(i));
    DD2 = new zrt::DropPanel(pSettings);
    DD2->setGeometry(listLeft, kSettingsRowHeight, kSettingsListWidth, 22);
    List2 = new zrt::RowList(DD2);
    for (int i = 4; i <= 10; ++i)
        List2->AddItem(QString::number(i));
    for (auto [panel, list] : {std::pair{dd1, List1}, std::pair{DD2, List2}}) {
        list->setBackStyle(1);
        list->resize(panel->width(), list->ListCount() * 16 + 4);
        panel->PlaceInBody(list);
    }
    for (int i = 0; i < 2; ++i)
        Label1[i]->setGeometry(kSettingsMargin, i * kSettingsRowHeight + 3, captionWidth, 18);
    connect(List1, &zrt::RowList::ListIndexChange, this, [this] { m_context.guard([this] { List1_Click(); }); });
    connect(List2, &zrt::RowList::ListIndexChange, this, [this] { m_context.guard([this] { List2_Click(); }); });

    Check4 = new zrt::Check(pSettings);
    Check4->setCaption(tr("Compare visual && audio"));
    const int checkWidth = Check4->fontMetrics().horizontalAdvance(tr("Compare visual & audio")) + 28;
    Check4->setGeometry(kSettingsMargin, 2 * kSettingsRowHeight + 4, checkWidth, 20);
    Check4->setValue(1);
    Check4->setBackColor(zrt::ToOleColor(pSettings->backColor()));
    connect(Check4, &zrt::Check::Click, this, [this] { m_context.guard([this] { m_column.Check4_Click(); }); });
    CheckSpace = new zrt::Check(pSettings);
    CheckSpace->setCaption(tr("Respond with the space bar"));
    QFont small = CheckSpace->font();
    small.setPointSizeF(small.pointSizeF() * 0.9);
    CheckSpace->setFont(small);
    const int spaceWidth = CheckSpace->fontMetrics().horizontalAdvance(CheckSpace->Caption()) + 28;
    CheckSpace->setGeometry(kSettingsMargin, 3 * kSettingsRowHeight + 2, spaceWidth, 20);
    CheckSpace->setValue(0);
    CheckSpace->setBackColor(zrt::ToOleColor(pSettings->backColor()));
    connect(CheckSpace, &zrt::Check::Click, this, [this] {
        spaceSettingShown();
        Q_EMIT spaceSettingChanged(respondsWithSpace());
    });
    // The lists drop down over the check boxes below them.
    dd1->raise();
    DD2->raise();
    m_spaceKey = new QShortcut(QKeySequence(Qt::Key_Space), this);
    m_spaceKey->setContext(Qt::WindowShortcut);
    m_spaceKey->setEnabled(false);
    connect(m_spaceKey, &QShortcut::activated, this, [this] { m_context.guard([this] { spaceResponse(); }); });
    const int width = std::max({listLeft + kSettingsListWidth, kSettingsMargin + checkWidth, kSettingsMargin + spaceWidth}) +
                      kSettingsMargin;
    pSettings->setGeometry(0, kSettingsTop, width, kPageHeight - kSettingsTop);
}

void RecordPage::nameForScreenReaders()
{
    // The invitation is a picture with words in it.
    IMmsg->setAccessibleName(tr("Ready? Press Start, then click a Zorvane as soon as it pops up!"));
    Label2->setBuddy(cl1);
    cl1->setAccessibleName(tr("Reaction times of this run"));
    Label1[0]->setBuddy(dd1);
    dd1->setAccessibleName(tr("Number of Zorvanes"));
    List1->setAccessibleName(dd1->accessibleName());
    Label1[1]->setBuddy(DD2);
    DD2->setAccessibleName(tr("Number of attempts"));
    List2->setAccessibleName(DD2->accessibleName());
    for (size_t i = 0; i < ucGifPlayer1.size(); ++i)
        ucGifPlayer1[i]->setAccessibleName(tr("Zorvane %1").arg(i + 1));
}

// ---------------------------------------------------------------- layout

void RecordPage::P3_Resize()
{
    const int inner = width();
    pSettings->move(inner - pSettings->width() - Label2->x(), pSettings->y());
    layoutRunColumn(inner);
    BuildCharacterRow();
}

// Start, the verdict and the two result buttons stand in the middle of the page (Add under
// Start, Cancel beside it) while that leaves them clear of the list on the left and the settings
// on the right; on a narrower page they keep their order, centred in the room between the two.
void RecordPage::sizeVerdict()
{
    // Lines of the verdict: the mean may wrap, the too-slow warning adds one, and so does the
    // note of an answer by the space bar.
    const int lines = respondsWithSpace() ? 4 : 3;
    Label3->resize(Label3->width(), Label3->fontMetrics().lineSpacing() * lines + 4);
}

void RecordPage::layoutRunColumn(int inner)
{
    const int roomLeft = cl1->x() + cl1->width() + kGap;
    const int roomRight = pSettings->x() - kGap;
    const int pairWidth = 2 * kResultButtonWidth + tw(30);
    const int verdictWidth = std::min(kVerdictWidth, roomRight - roomLeft);
    Label3->resize(verdictWidth, Label3->height());

    int start = (inner - command1->width()) / 2;
    int verdict = (inner - verdictWidth) / 2;
    int add = start;
    const bool centredFits = add >= roomLeft && add + pairWidth <= roomRight && verdict >= roomLeft &&
                             verdict + verdictWidth <= roomRight;
    if (!centredFits) {
        const int middle = (roomLeft + roomRight) / 2;
        start = middle - command1->width() / 2;
        verdict = middle - verdictWidth / 2;
        add = middle - pairWidth / 2;
    }
    command1->move(start, kRunTop);
    Label3->move(verdict, kVerdictTop);
    const int buttonsTop = Label3->y() + Label3->height() + 2;
    GlossButton1[0]->move(add, buttonsTop);
    GlossButton1[1]->move(add + kResultButtonWidth + tw(30), buttonsTop);
}

// ---------------------------------------------------------------- settings

bool RecordPage::paired() const { return Check4->Value() == 1; }

bool RecordPage::respondsWithSpace() const { return CheckSpace->Value() == 1; }

void RecordPage::setRespondWithSpace(bool on)
{
    CheckSpace->setValue(on ? 1 : 0);
    spaceSettingShown();
}

void RecordPage::spaceSettingShown()
{
    sizeVerdict();
    layoutRunColumn(width());
    updateSpaceKey();
}

void RecordPage::updateSpaceKey()
{
    m_spaceKey->setEnabled(respondsWithSpace() && (m_visualRunning || P5->audioRunning()));
}

void RecordPage::spaceResponse()
{
    if (P5->audioRunning()) {
        P5->ucgif_MouseDown();
        return;
    }
    if (!m_visualRunning)
        return;
    // The risen character if there is one; else a press on the first, which is a false start.
    int index = 0;
    for (size_t i = 0; i < m_states.size(); ++i)
        if (m_states[i] == CharacterState::Risen)
            index = static_cast<int>(i);
    ucGifPlayer1_MouseDown(index);
}

int RecordPage::AttemptsWanted() const { return static_cast<int>(zrt::Val(DD2->Title().toStdString())); }

void RecordPage::Settings_Enabled(bool enabled)
{
    pSettings->setEnabled(enabled);
    const zrt::OleColor title = enabled ? zrt::RGB(255, 255, 255) : zrt::ToOleColor(MainMod1::PanelColour);
    dd1->setTitleBackColor(title);
    DD2->setTitleBackColor(title);
}

void RecordPage::resetSettings()
{
    List1->setListIndex(0);
    List2->setListIndex(0);
    Settings_Enabled(true);
}

void RecordPage::List1_Click() { BuildCharacterRow(); }

void RecordPage::List2_Click()
{
    if (List2->ListIndex() >= 0)
        DD2->setTitle(List2->ItemText(List2->ListIndex()));
}

zrt::ucGifPlayer *RecordPage::newCharacter(const QByteArray &gif)
{
    auto *character = new zrt::ucGifPlayer(this);
    // As the window keeps its characters: scaled down only, the rest of the frames built on the
    // player's build timer, no play of its own after the build. It rests on its first frame.
    character->ReadProperties(CharacterProperties(gif));
    return character;
}

void RecordPage::BuildCharacterRow()
{
    if (List1->ListIndex() < 0)
        return;
    const int n = List1->ListIndex() + 1;
    dd1->setTitle(List1->ItemText(List1->ListIndex()));
    setUpdatesEnabled(false);
    if (ucGifPlayer1.empty()) {
        ucGifPlayer1.push_back(newCharacter(m_character1));
        m_states.push_back(CharacterState::Resting);
        ucGifPlayer1[0]->setGeometry(0, 0, 110, 394);
        ucGifPlayer1[0]->lower();
    }
    while (static_cast<int>(ucGifPlayer1.size()) < n) {
        m_context.chance.Randomize();
        const int r = m_context.chance.wholeBetween(2, 1);
        auto *character = newCharacter(r == 2 ? m_character2 : m_character1);
        character->setGeometry(0, ucGifPlayer1[0]->y(), ucGifPlayer1[0]->width(), ucGifPlayer1[0]->height());
        character->stackUnder(IMmsg);
        character->show();
        ucGifPlayer1.push_back(character);
        m_states.push_back(CharacterState::Resting);
    }
    while (static_cast<int>(ucGifPlayer1.size()) > n) {
        delete ucGifPlayer1.back();
        ucGifPlayer1.pop_back();
        m_states.pop_back();
    }
    for (int i = 0; i < n; ++i) {
        zrt::ucGifPlayer *character = ucGifPlayer1[i];
        character->setObjectName(QStringLiteral("ucGifPlayer1_") + QString::number(i));
        disconnect(character, &zrt::ucGifPlayer::MouseDown, this, nullptr);
        connect(character, &zrt::ucGifPlayer::MouseDown, this,
                [this, i] { m_context.guard([this, i] { ucGifPlayer1_MouseDown(i); }); });
    }
    nameForScreenReaders();
    const int width = ucGifPlayer1[0]->width();
    const int offset = (this->width() - n * width) / 2;
    for (int i = 0; i < n; ++i)
        ucGifPlayer1[i]->move(i * width + offset, ucGifPlayer1[i]->y());
    // The picture's own flag: the page may be hidden while its row is rebuilt.
    if (!IMmsg->isHidden())
        IMmsg->move(ucGifPlayer1[0]->x() + width / 2, 0);
    IMmsg->raise();
    // The audio stage stays in front of everything on the Record page.
    if (P5)
        P5->raise();
    setUpdatesEnabled(true);
}

// ---------------------------------------------------------------- the visual test

void RecordPage::command1_Click()
{
    cl1->Clear();
    IMmsg->hide();
    Settings_Enabled(false);
    run.begin(zrt::Sense::Visual, AttemptsWanted());
    StartVisualDelay();
    command1->setEnabled(false);
    m_visualRunning = true;
    updateSpaceKey();
}

void RecordPage::StartVisualDelay()
{
    m_context.chance.Randomize();
    const int seconds = m_context.chance.wholeBetween(5, 1);
    m_context.timers.SetTimer(TimerVisualPop, seconds * 1000);
}

int RecordPage::chooseCharacter()
{
    m_context.chance.Randomize();
    return static_cast<int>(static_cast<float>(ucGifPlayer1.size()) * m_context.chance.Rnd() + 1.0f) - 1;
}

void RecordPage::VisualPop()
{
    // The stopwatch starts before the character rises: drawing the frame counts into the time.
    if (mStopWatch::SwStart(RunStopwatch) != 1)
        return;
    const size_t i = static_cast<size_t>(chooseCharacter());
    zrt::ucGifPlayer *character = ucGifPlayer1.at(i);
    character->setAction(4);
    m_states.at(i) = CharacterState::Risen;
    character->setAction(3);
    character->setAction(3);
}

void RecordPage::IdlePeek()
{
    const size_t i = static_cast<size_t>(chooseCharacter());
    zrt::ucGifPlayer *character = ucGifPlayer1.at(i);
    CharacterState &state = m_states.at(i);
    if (state == CharacterState::Peeking) {
        state = CharacterState::Resting;
        character->setAction(0);
    } else if (state == CharacterState::Resting) {
        state = CharacterState::Peeking;
        character->setAction(3);
    }
    m_context.timers.SetTimer(TimerIdlePeek, 2500);
}

void RecordPage::ucGifPlayer1_MouseDown(int index)
{
    zrt::ucGifPlayer *character = ucGifPlayer1.at(static_cast<size_t>(index));
    CharacterState &state = m_states.at(static_cast<size_t>(index));
    if (state != CharacterState::Risen) {
        // A false start restarts the wait; it is only noticed with a single character.
        if (ucGifPlayer1.size() == 1 && run.moreWanted(AttemptsWanted())) {
            m_context.timers.KillTimer(TimerVisualPop);
            StartVisualDelay();
        }
        return;
    }
    // The hit sound is asked for before the reading: its cost counts into the time. It plays
    // whatever the settings file says of sound.
    SoundBas::SoundPlayer::instance().PlaySound(MainMod1::Sounds.buffers[2], 5);
    const int attempt = run.record(zrt::Sense::Visual, mStopWatch::SwElapsed(RunStopwatch));
    cl1->AddItem(AttemptLine(attempt, run.times(zrt::Sense::Visual)[static_cast<size_t>(attempt)]));
    character->setAction(3);
    state = CharacterState::Resting;
    if (run.moreWanted(AttemptsWanted())) {
        StartVisualDelay();
        return;
    }
    m_visualRunning = false;
    updateSpaceKey();
    const QString mean = QString::fromStdString(zrt::GeneralText(run.finish(zrt::Sense::Visual)));
    showVerdict(mean, run.tooSlow(zrt::Sense::Visual));
    if (paired() && GlossButton1[0]->isEnabled()) {
        if (!m_context.hasAudioOutput()) {
            // No pair can be made without sound: the visual result can only be cancelled.
            GlossButton1[0]->setEnabled(false);
            P5->TellNoSoundOutput();
            return;
        }
        openAudioStage(mean);
    }
}

void RecordPage::showVerdict(const QString &mean, bool tooSlow)
{
    QString verdict = tr("Average Reaction time ") + mean + tr(" seconds");
    if (tooSlow)
        verdict += "\n" + tr("Far too slow please try again!");
    // Times answered by key are told apart from those answered by mouse.
    if (respondsWithSpace())
        verdict += "\n" + tr("(by space bar)");
    Label3->setText(verdict);
    command1->setEnabled(!tooSlow);
    GlossButton1[0]->setEnabled(!tooSlow);
    Label3->show();
    GlossButton1[0]->show();
    GlossButton1[1]->show();
}

void RecordPage::openAudioStage(const QString &mean)
{
    // The audio stage takes over for the second half of the pair.
    m_context.timers.KillTimer(TimerIdlePeek);
    P5->open(mean);
}

void RecordPage::GlossButton1_Click(int index)
{
    if (index == 0)
        m_column.addResult(run.mean(zrt::Sense::Visual));
    run.clearMean(zrt::Sense::Visual);
    Label3->hide();
    if (m_column.count() == 0)
        Settings_Enabled(true);
    GlossButton1[0]->hide();
    GlossButton1[1]->hide();
    cl1->Clear();
    IMmsg->show();
    command1->setEnabled(true);
}

void RecordPage::endPair()
{
    Label3->hide();
    if (m_column.count() == 0)
        Settings_Enabled(true);
    GlossButton1[0]->hide();
    GlossButton1[1]->hide();
    cl1->Clear();
    command1->setEnabled(true);
    IMmsg->show();
    show();
    raise();
}
