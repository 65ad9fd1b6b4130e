#pragma once
// The one document window: the toolbar strip, the left column of collected data, the Record
// page with its stage and the audio stage laid over it, and the three analysis pages. Its
// routines live in the folder of the subsystem they belong to: the tests in reaction/, the
// data lists here, the files in files/, the analysis in stats/ and charts/.

#include "app/AnalysisPages.h"
#include "app/RandomSource.h"
#include "app/TimerService.h"
#include "charts/BoxPlots.h"
#include "stats/AnalysisState.h"

#include <QMainWindow>
#include <QPointer>
#include <QString>
#include <QTimer>
#include <QVariantMap>

#include <array>
#include <cstdint>
#include <functional>
#include <vector>

class QLabel;
class PagePanel;
namespace zrt {
class GlossButton;
class RowList;
class Check;
class DropPanel;
class ShapedTabs;
class ThemedToolbar;
class ucGifPlayer;
class ucTableView;
} // namespace zrt
using zrt::Check;
using zrt::DropPanel;
using zrt::GlossButton;
using zrt::RowList;
using zrt::ShapedTabs;
using zrt::ThemedToolbar;
using zrt::ucGifPlayer;
using zrt::ucTableView;

// Window timers of the tests; TestTimerProc kills the one that fired, so each is one-shot.
enum TestTimer : int {
    TimerVisualPop = 20482,
    TimerIdlePeek = 20483,
    TimerAudioCue = 20484,
    TimerAudioIdle = 20485,
    TimerWalker = 20486,
};

// Twips to pixels at the 96 dpi the layout was made for.
constexpr int tw(int twips) { return twips / 15; }

class MainFrm : public QMainWindow {
    Q_OBJECT
public:
    // With manual timers nothing fires by itself: tests fire each timer when they choose.
    explicit MainFrm(QWidget *parent = nullptr, bool manualTimers = false);
    ~MainFrm() override;

    // ---- Session state of the window ----
    std::vector<float> VisualTimes{0.0f}; // indexed from 1; [0] unused
    std::vector<float> AudioTimes{0.0f};
    float VisualAverage = 0.0f;
    float AudioAverage = 0.0f;
    bool DataSaved = false;
    int WalkStepCount = 0;
    int WalkFrameCount = 0;
    bool WalkReturning = false;
    bool WalkerBusy = false;
    short AttemptCount = 0;
    std::int32_t RunStopwatch = 0;
    zrt::AnalysisState analysis; // AnalysisData, GroupedData and the module-wide results
    zrt::CollectedLists collectedLists() const;

    // Injected chance and timers; tests script the one and fire the other by hand.
    RandomSource &chance() { return m_chance; }
    TimerService &timers() { return m_timers; }
    // The blocking pause of the walker's show; tests replace it.
    void setSleep(std::function<void(int ms)> sleep) { m_sleep = std::move(sleep); }
    // Whether the machine can play sound; tests give their own answer.
    void setAudioOutputCheck(std::function<bool()> check) { m_hasAudioOutput = std::move(check); }
    bool hasAudioOutput() const { return m_hasAudioOutput(); }

    // ---- Controls, by their names on the window ----
    PagePanel *Ptoolbar = nullptr;
    ThemedToolbar *ThemedToolbar1 = nullptr;
    PagePanel *P2 = nullptr, *P3 = nullptr, *P5 = nullptr, *piclbl = nullptr, *pSettings = nullptr;
    std::array<PagePanel *, 3> p4{};
    QLabel *Label4 = nullptr, *Label5 = nullptr, *Label2 = nullptr, *Label3 = nullptr;
    QLabel *Label10 = nullptr, *l9 = nullptr, *IMmsg = nullptr, *IMmsg1 = nullptr;
    std::array<QLabel *, 2> Label1{};
    GlossButton *cmdRemove = nullptr, *command1 = nullptr, *cmdStartAudio = nullptr;
    std::array<GlossButton *, 2> GlossButton1{}, cmdadd{};
    RowList *cl1 = nullptr, *cl2 = nullptr, *CL4 = nullptr, *cl5 = nullptr, *List1 = nullptr, *List2 = nullptr;
    std::array<Check *, 2> Check5{};
    Check *Check4 = nullptr;
    DropPanel *dd1 = nullptr, *DD2 = nullptr;
    std::vector<ucGifPlayer *> ucGifPlayer1;
    ucGifPlayer *ucgif = nullptr, *ucGifPlayer2 = nullptr;
    QTimer *Timer1 = nullptr;

    // ---- Toolbar and pages ----
    void ToolbarButtonClick(const QString &key);
    void ClickToolbarButton(const QString &key); // a press on the bar's button of that key
    void Stop_All_Timers();
    void Label5_Change();
    void Refresh_Data();
    void Reset_tags();
    void TestTimerProc(int timerId);
    bool pageButton(int index) const;
    void ShowAnalysisPage(int page);
    void RefreshAveragesPage();
    void RefreshGroupsPage();

    // ---- Analysis pages ----
    AveragesPage averages;
    GroupsPage groups;
    ComparePage compare;
    zrt::BoxSummary VisualSummary, AudioSummary; // filled by the comparison charts
    void Get_Averages();
    void Get_Grouped_Data();
    void Get_Compare_Data();
    void cl3_Click();
    void Tab1_Click(int index);
    void Tab2_Click(int index);
    void ShapedTabs1_Click(int index);
    void cmdSR_Click();
    void pFR0_MouseDown(double x, double y);
    void ShowOutliersHelp();
    void ShowSummaryDetails(int index);
    // The charts, each painted wholly on its surface.
    void DrawBoxPlot();
    void DrawStemLeaf();
    void DrawTally();
    void DrawEstimatedMean();
    void DrawCFTable();
    void DrawCFPlot();
    void DrawScatterGraph();
    void DrawCompareBoxPlots();
    void DrawCorrelationScale();

    // ---- Data files ----
    void Open_Data();
    void Save_Data();

    // ---- Collected data (the left column) ----
    void GlossButton1_Click(int index);
    void cmdadd_Click(int index);
    void cmdRemove_Click();
    void arange_data_lists();
    void Clear_Data();
    void Clear_Displayed_Data();
    void Check4_Click();
    void Check5_Click(int index);
    void SetDataCount();

    // ---- Visual test ----
    void List1_Click();
    void List2_Click();
    void command1_Click();
    void StartVisualDelay();
    void VisualPop();
    void IdlePeek();
    void ucGifPlayer1_MouseDown(int index);
    void Settings_Enabled(bool enabled);
    int AttemptsWanted() const;   // the number in DD2's title

    // ---- Audio test ----
    void cmdStartAudio_Click();
    void TellNoSoundOutput();
    void StartAudioDelay();
    void AudioCue();
    void AudioIdle();
    void ucgif_MouseDown();
    void Timer1_Timer();

protected:
    void resizeEvent(QResizeEvent *event) override;
    void closeEvent(QCloseEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void Form_Load();
    void nameControls();
    void buildToolbarStrip();
    void buildLeftColumn();
    void buildRecordPage();
    void buildSettingsPanel();
    void buildAudioStage();
    void buildAnalysisPages();
    void buildAveragesPage();
    void buildGroupsPage();
    void buildComparePage();
    void layoutAnalysisPage(int index);
    void layoutRankTab();
    void showTabFrame(int page, int tab);
    void SwapCaption(GlossButton *button, const QString &first, const QString &second);
    GlossButton *newButton(QWidget *parent, const QString &caption, const QRect &geometry,
                           std::function<void()> onClick);
    ShapedTabs *newTabs(QWidget *page, const QStringList &captions, std::function<void(int)> onClick);
    void buildToolbar();
    void Form_Resize();
    void P3_Resize();
    void layoutRunColumn(int inner);
    void placeListenBalloon();
    void P5_Resize();
    void BuildCharacterRow();
    ucGifPlayer *newCharacter(const QByteArray &gif);
    void paintClientGradient(QPainter &painter);
    void walkerFrameStep();
    void walkerShow();
    void pump();
    void sleepFor(int ms);

    // Runs a handler; a run-time failure ends it with its message and the program goes on.
    void guarded(const std::function<void()> &handler);

    QWidget *m_client = nullptr;
    RandomSource m_chance;
    TimerService m_timers;
    std::function<void(int)> m_sleep;
    std::function<bool()> m_hasAudioOutput;
    QByteArray m_character1, m_character2;
};

// What the window stores for a character player: its picture, scaled down only, built after load.
QVariantMap CharacterProperties(const QByteArray &gif);

// The free text every control carries.
QString Tag(const QObject *control);
void SetTag(QObject *control, const QString &tag);
