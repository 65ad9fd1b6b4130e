#pragma once
// The one document window, a shell: the toolbar strip, the column of collected data and the four
// pages it switches between (Record, with the audio stage on it, Averages, Groups and Compare),
// the frame's resize rule, the test timers and the file flows. Each page is a class of its own
// in app/pages that owns its controls and tells the window what happened by signals.

#include "app/pages/AudioStage.h"
#include "app/pages/AveragesPage.h"
#include "app/pages/ComparePage.h"
#include "app/pages/DataColumn.h"
#include "app/pages/GroupsPage.h"
#include "app/pages/PageContext.h"
#include "app/pages/RecordPage.h"
#include "files/DataFiles.h"
#include "stats/AnalysisState.h"

#include <QMainWindow>
#include <QString>

#include <array>
#include <functional>

class PagePanel;
class DeferredPage;
namespace zrt {
class ThemedToolbar;
} // namespace zrt
using zrt::ThemedToolbar;

// The pages the toolbar chooses between.
enum class Page { Record, Averages, Groups, Compare };

class MainFrm : public QMainWindow {
    Q_OBJECT
public:
    // With manual timers nothing fires by itself: tests fire each timer when they choose.
    explicit MainFrm(QWidget *parent = nullptr, bool manualTimers = false);
    ~MainFrm() override;

    zrt::AnalysisState analysis; // AnalysisData, GroupedData and the module-wide results

    // Injected chance and timers; tests script the one and fire the other by hand.
    RandomSource &chance() { return m_context.chance; }
    TimerService &timers() { return m_context.timers; }
    // The blocking pause of the walker's show; tests replace it.
    void setSleep(std::function<void(int ms)> sleep) { m_context.sleep = std::move(sleep); }
    // Whether the machine can play sound; tests give their own answer.
    void setAudioOutputCheck(std::function<bool()> check) { m_context.hasAudioOutput = std::move(check); }
    bool hasAudioOutput() const { return m_context.hasAudioOutput(); }

    // ---- The strip, the column and the pages, by their names on the window ----
    PagePanel *Ptoolbar = nullptr;
    ThemedToolbar *ThemedToolbar1 = nullptr;
    DataColumn *P2 = nullptr;
    RecordPage *P3 = nullptr;
    AudioStage *P5 = nullptr; // on the Record page
    AveragesPage *averages = nullptr;
    GroupsPage *groups = nullptr;
    ComparePage *compare = nullptr;
    std::array<DeferredPage *, 3> p4{}; // the three analysis pages

    // ---- Toolbar and pages ----
    void ToolbarButtonClick(const QString &key);
    void ClickToolbarButton(const QString &key); // a press on the bar's button of that key
    bool pageChosen(Page page) const;
    // The class's data in and out: CSV, class files, worksheets.
    class DataFlows *flows() const { return m_flows; }
    // The page's key (Ctrl+1..4): as a press on its button, unless the page is shown already.
    void choosePage(Page page);
    void Stop_All_Timers();
    void Label5_Change();
    void Refresh_Data();
    void TestTimerProc(int timerId);

    // ---- Data files and the collected data ----
    void Open_Data();
    void Save_Data();
    // A file given on the command line: opened as Open opens the chosen file.
    void openFile(const QString &path);
    void Clear_Data();

protected:
    void resizeEvent(QResizeEvent *event) override;
    void closeEvent(QCloseEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void Form_Load();
    void nameControls();
    void namePageControls(Page page);
    void nameAudioStageControls();
    void nameAveragesControls();
    void nameGroupsControls();
    void nameCompareControls();
    void buildToolbarStrip();
    void buildToolbar();
    void buildLanguageChoice();
    void chooseLanguage(const QString &code);
    void tickNextLanguage();
    void buildShortcuts();
    void buildPages();
    void showOpenedFile(const zrt::OpenedFile &opened);
    void showCollected(const zrt::CollectedLists &lists, bool paired, bool saved);
    void menuClick(int item);
    void Form_Resize();
    void showRecordPage();
    void showAnalysisPage(Page page);
    void paintClientGradient(QPainter &painter);
    zrt::DataFilePlaces dataFilePlaces() const;
    // Runs a handler; a run-time failure ends it with its message and the program goes on.
    void guarded(const std::function<void()> &handler);

    QWidget *m_client = nullptr;
    PageContext m_context;
    class DataFlows *m_flows = nullptr;
    class QActionGroup *m_languageGroup = nullptr; // the Language group of the toolbar menu
};
