// The main window: load, the frame's resize rule, the toolbar's page buttons, the timers and the
// file flows. The pages do the rest.

#include "app/MainFrm.h"

#include "app/DataFlows.h"
#include "app/Language.h"
#include "app/MainMod1.h"
#include "app/PagePanel.h"
#include "charts/ChartPictures.h"
#include "charts/PictureBox.h"
#include "common/RunTimeError.h"
#include "controls/Check.h"
#include "controls/DropPanel.h"
#include "controls/RowList.h"
#include "dialogs/AboutFrm.h"
#include "dialogs/MsgBox.h"
#include "files/REGbas1.h"
#include "gfx/BakedPicture.h"
#include "i18n/CoreTexts.h"
#include "reaction/SoundBas.h"
#include "toolbar/ThemedToolbar.h"
#include "toolbar/ToolbarMenu.h"

#include <QActionGroup>
#include <QCloseEvent>
#include <QCoreApplication>
#include <QLabel>
#include <QPainter>
#include <QShortcut>
#include <QThread>
#include <QTimer>

#include <algorithm>

namespace {

// Design sizes of the main area, in twips.
constexpr int kPageHeightTw = 8400;
constexpr int kPageWidthCapTw = 12240;
constexpr int kLeftColumnWidthTw = 2595;

// The toolbar's check buttons of the pages, by their place on the bar.
constexpr int kRecordButton = 5;
constexpr int ButtonOf(Page page) { return page == Page::Record ? kRecordButton : 6 + static_cast<int>(page); }
// The menu's items: About, then the "Data" group.
constexpr int kMenuExport = 2, kMenuImport = 3, kMenuAddClass = 4, kMenuPrint = 5, kMenuPdf = 6;

// The settings file's key of the space bar setting.
constexpr const char *kSpaceBarKey = "SpaceBar";

constexpr std::array<Page, 3> kAnalysisPages = {Page::Averages, Page::Groups, Page::Compare};

} // namespace

MainFrm::MainFrm(QWidget *parent, bool manualTimers) : QMainWindow(parent)
{
    InitResources();
    m_context.timers.setManual(manualTimers);
    setWindowTitle(QStringLiteral("Zorvane Reaction Times"));
    m_client = new QWidget(this);
    m_client->installEventFilter(this);
    setCentralWidget(m_client);
    m_context.timers.setCallback([this](int id) { guarded([this, id] { TestTimerProc(id); }); });
    m_context.sleep = [](int ms) { QThread::msleep(static_cast<unsigned long>(ms)); };
    m_context.hasAudioOutput = [] { return SoundBas::SoundPlayer::instance().hasOutput(); };
    m_context.guarded = [this](const std::function<void()> &handler) { guarded(handler); };
    Form_Load();
}

MainFrm::~MainFrm() { Stop_All_Timers(); }

void MainFrm::guarded(const std::function<void()> &handler)
{
    try {
        handler();
    } catch (const zrt::RunTimeError &error) {
        MsgBox(this, CoreTexts::tr(error.message()), vbCritical, windowTitle());
    }
}

// ---------------------------------------------------------------- load

void MainFrm::Form_Load()
{
    // The window can't be made smaller than the layout needs; its largest size is the screen's.
    m_client->setMinimumSize(785, 656);
    buildToolbarStrip();
    buildPages();

    // The two settings lists: 1..5 characters, 4..10 attempts.
    P3->List1->setListIndex(2);
    P3->List2->setListIndex(0);

    buildToolbar();
    buildShortcuts();
    Ptoolbar->setFixedHeight(ThemedToolbar1->height());
    for (auto *page : p4)
        page->setBackColor(MainMod1::PanelColour);
    P3->cl1->setBackStyle(1);
    P2->arange_data_lists();
    P2->cmdRemove->raise();
    P2->setBackColor(MainMod1::PanelColour);
    // The headings of the two lists of times in the dark green of the program's texts: the light
    // strip colour they once had could hardly be read on the stage's pale ground.
    QPalette palette = P3->Label2->palette();
    palette.setColor(QPalette::WindowText, MainMod1::DarkGreenColour);
    P3->Label2->setPalette(palette);
    // The window opens at its design size: the toolbar strip's width and the column's foot.
    resize(tw(11775), tw(690 + 8565));
    Form_Resize();
    nameControls();
    m_context.timers.SetTimer(TimerIdlePeek, 2500);
}

void MainFrm::buildToolbarStrip()
{
    Ptoolbar = new PagePanel(m_client);
    Ptoolbar->setGeometry(0, 0, tw(11775), tw(690));
    // The strip's gradient runs from its top edge to its bottom edge.
    Ptoolbar->setGradient(MainMod1::GradientLightColour, MainMod1::GradientDarkColour,
                          zrt::GradientDirection::TopToBottom);
}

void MainFrm::buildPages()
{
    P2 = new DataColumn(m_context, m_client, QRect(0, tw(690), tw(kLeftColumnWidthTw), tw(8565)));
    const QRect page(tw(2835), tw(1020), tw(kPageWidthCapTw), tw(kPageHeightTw));
    P3 = new RecordPage(m_context, *P2, m_client, page);
    P5 = P3->P5;
    connect(P5, &DeferredPage::built, this, [this] { nameAudioStageControls(); });
    P2->setPairedQuestion([this] { return P3->paired(); });
    averages = new AveragesPage(m_context, analysis, *P2, m_client, page);
    groups = new GroupsPage(m_context, analysis, *P2, m_client, page);
    compare = new ComparePage(m_context, analysis, *P2, m_client, page);
    p4 = {averages, groups, compare};
    for (size_t i = 0; i < p4.size(); ++i)
        connect(p4[i], &DeferredPage::built, this, [this, i] { namePageControls(kAnalysisPages[i]); });
    m_flows = new DataFlows(this, {P2, P3, averages, groups, compare});
    connect(m_flows, &DataFlows::listsReplaced, this,
            [this](const zrt::CollectedLists &lists, bool paired, bool saved) { showCollected(lists, paired, saved); });

    // The space bar setting is the pupil's own and is kept in the settings file.
    P3->setRespondWithSpace(REGbas1::ReadIniString("Settings", kSpaceBarKey, "0", 255,
                                                   MainMod1::SettingsFile.toStdString()) == "1");
    connect(P3, &RecordPage::spaceSettingChanged, this, [this](bool on) {
        const zrt::FileWrite written = REGbas1::WriteIniValue("Settings", kSpaceBarKey, on ? "1" : "0",
                                                              MainMod1::SettingsFile.toStdString());
        if (!written.ok)
            MsgBox(this,
                   tr("The setting could not be kept in %1 (%2).\nIt holds until the program ends.")
                       .arg(MainMod1::SettingsFile, QString::fromStdString(written.reason)),
                   vbExclamation, tr("Settings Not Saved"));
    });
    connect(P2, &DataColumn::countChanged, this, [this] { Label5_Change(); });
    connect(P2, &DataColumn::choiceChanged, this, [this] { Refresh_Data(); });
    connect(averages, &AveragesPage::sortChanged, this, [this] { Refresh_Data(); });
    connect(groups, &GroupsPage::sortChanged, this, [this] { Refresh_Data(); });
}

void MainFrm::buildToolbar()
{
    ThemedToolbar1 = new ThemedToolbar(Ptoolbar);
    const QImage strip = zrt::StartupPicture(QStringLiteral(":/images/toolbar.png"));
    struct Item {
        const char *key, *tip;
        int cell;
        int kind; // 0 push, 1 check, 2 separator
    };
    static const Item items[] = {
        {"Open", QT_TRANSLATE_NOOP("MainFrm", "Open Data File."), 1, 0},
        {"Clear", QT_TRANSLATE_NOOP("MainFrm", "New Data File (clear data)"), 2, 0},
        {"Save", QT_TRANSLATE_NOOP("MainFrm", "Save Data File"), 3, 0},
        {"", "", 0, 2},
        {"Record", QT_TRANSLATE_NOOP("MainFrm", "Record Zorvane reaction times"), 4, 1},
        {"", "", 0, 2},
        {"Averages", QT_TRANSLATE_NOOP("MainFrm", "Averages and Ranges"), 5, 1},
        {"Groups", QT_TRANSLATE_NOOP("MainFrm", "Grouped Data"), 6, 1},
        {"Compare", QT_TRANSLATE_NOOP("MainFrm", "Compare visual and audio"), 7, 1},
    };
    for (const Item &item : items) {
        if (item.kind == 2) {
            ThemedToolbar1->AddButton(zrt::btn::TypeSeparator);
            continue;
        }
        ThemedToolbar1->AddButton(zrt::btn::TypeButton, QString(), QString::fromLatin1(item.key),
                                  strip.isNull() ? QImage() : ThemedToolbar::IconFromStrip(strip, item.cell), 32, 0,
                                  tr(item.tip), zrt::SystemColor(8), std::nullopt,
                                  item.kind == 1 ? zrt::btn::StyleCheck : zrt::btn::StylePush, 0, true,
                                  zrt::RGB(0, 255, 0));
    }
    // The menu's own colour-scheme texts in the language the window speaks.
    ThemedToolbar1->setMenuLanguage(Language::current() == QLatin1String("de") ? zrt::ToolbarMenu::German
                                                                              : zrt::ToolbarMenu::English);
    ThemedToolbar1->setcMenuItemTitle(tr("Information"));
    ThemedToolbar1->setcMenuItem(1, tr("About"));
    // The class's data in and out of the window.
    ThemedToolbar1->setcMenuGroupTitle(kMenuExport, tr("Data"));
    ThemedToolbar1->setcMenuItem(kMenuExport, tr("Export to CSV...\tCtrl+E"));
    ThemedToolbar1->setcMenuItem(kMenuImport, tr("Import from CSV..."));
    ThemedToolbar1->setcMenuItem(kMenuAddClass, tr("Add a Class File..."));
    ThemedToolbar1->setcMenuItem(kMenuPrint, tr("Print Worksheet...\tCtrl+P"));
    ThemedToolbar1->setcMenuItem(kMenuPdf, tr("Save Worksheet as PDF..."));
    buildLanguageChoice();
    ThemedToolbar1->setBtnValue(kRecordButton, true);
    ThemedToolbar1->setThemeColor(3);
    ThemedToolbar1->setVisible(true);
    ThemedToolbar1->setFixedHeight(32);
    ThemedToolbar1->SizeToButtons();
    for (Page page : kAnalysisPages)
        ThemedToolbar1->setBtnEnabled(ButtonOf(page), false);
    ThemedToolbar1->move(0, 0);
    connect(ThemedToolbar1, &ThemedToolbar::ButtonClick, this,
            [this](int, const QString &key, const QString &) { guarded([this, key] { ToolbarButtonClick(key); }); });
    connect(ThemedToolbar1, &ThemedToolbar::MenuClick, this, [this](int item) { guarded([this, item] { menuClick(item); }); });
}

void MainFrm::buildShortcuts()
{
    // The toolbar's buttons by key, as a press on them would do; a page key on the page already
    // shown leaves it shown.
    const std::pair<QKeySequence, QString> keys[] = {
        {QKeySequence(Qt::CTRL | Qt::Key_O), QStringLiteral("Open")},
        {QKeySequence(Qt::CTRL | Qt::Key_S), QStringLiteral("Save")},
        {QKeySequence(Qt::CTRL | Qt::Key_N), QStringLiteral("Clear")},
    };
    for (const auto &[sequence, key] : keys) {
        auto *shortcut = new QShortcut(sequence, this);
        connect(shortcut, &QShortcut::activated, this, [this, key] { ClickToolbarButton(key); });
    }
    const std::pair<Qt::Key, Page> pageKeys[] = {
        {Qt::Key_1, Page::Record}, {Qt::Key_2, Page::Averages}, {Qt::Key_3, Page::Groups}, {Qt::Key_4, Page::Compare}};
    for (const auto &[digit, page] : pageKeys) {
        auto *shortcut = new QShortcut(QKeySequence(Qt::CTRL | digit), this);
        connect(shortcut, &QShortcut::activated, this, [this, page] { choosePage(page); });
    }
    // The chart that shows, to the clipboard.
    auto *copyChart = new QShortcut(QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_C), this);
    connect(copyChart, &QShortcut::activated, this, [this] {
        for (auto *page : p4) {
            if (!page->isVisible())
                continue;
            for (auto *surface : page->findChildren<zrt::PictureBox *>())
                if (surface->isVisible())
                    if (auto *menu = zrt::ChartPictureMenu::Of(surface))
                        menu->Run(zrt::ChartPictureMenu::Copy);
        }
    });
    const std::pair<QKeySequence, int> menuKeys[] = {{QKeySequence(Qt::CTRL | Qt::Key_E), kMenuExport},
                                                     {QKeySequence(Qt::CTRL | Qt::Key_P), kMenuPrint}};
    for (const auto &[sequence, item] : menuKeys) {
        auto *shortcut = new QShortcut(sequence, this);
        connect(shortcut, &QShortcut::activated, this, [this, item = item] { guarded([this, item] { menuClick(item); }); });
    }
    auto *about = new QShortcut(QKeySequence(Qt::Key_F1), this);
    connect(about, &QShortcut::activated, this, [this] { zrt::AboutFrm::ShowAbout(QStringLiteral(ZRT_VERSION), this); });
}

void MainFrm::choosePage(Page page)
{
    if (pageChosen(page) && (page != Page::Record || P3->isVisible()))
        return;
    static const char *const keys[] = {"Record", "Averages", "Groups", "Compare"};
    ClickToolbarButton(QString::fromLatin1(keys[static_cast<int>(page)]));
}

void MainFrm::menuClick(int item)
{
    switch (item) {
    case 1: zrt::AboutFrm::ShowAbout(QStringLiteral(ZRT_VERSION), this); break;
    case kMenuExport: m_flows->exportCsv(); break;
    case kMenuImport: m_flows->importCsv(); break;
    case kMenuAddClass: m_flows->addClassFile(); break;
    case kMenuPrint: m_flows->worksheet(false); break;
    case kMenuPdf: m_flows->worksheet(true); break;
    default: break;
    }
}

void MainFrm::showCollected(const zrt::CollectedLists &lists, bool paired, bool saved)
{
    // As an opened file is shown: the lists, the pair setting, the count, then the analysis.
    zrt::RtdContent content;
    content.sample = paired ? 1 : 0;
    content.lists = lists;
    P2->Clear();
    P3->Check4->setValue(paired ? 1 : 0);
    P2->showOpened(content);
    P2->DataSaved = saved;
    P3->Settings_Enabled(false);
    P2->SetDataCount();
    Refresh_Data();
}

// ---------------------------------------------------------------- resize rule

void MainFrm::resizeEvent(QResizeEvent *event)
{
    QMainWindow::resizeEvent(event);
    if (!isMinimized() && P3)
        guarded([this] { Form_Resize(); });
}

void MainFrm::Form_Resize()
{
    const int innerWidth = m_client->width();
    const int innerHeight = m_client->height();
    Ptoolbar->setGeometry(0, 0, innerWidth, Ptoolbar->height());
    P2->setGeometry(0, Ptoolbar->height(), P2->width(), innerHeight - Ptoolbar->height());
    const int top = Ptoolbar->height() + (innerHeight - P3->height() - Ptoolbar->height()) / 2;
    const int w = innerWidth - P2->width() - tw(690);
    const int width = std::max(0, std::min(w, tw(kPageWidthCapTw)));
    const int left = P2->width() + (innerWidth - width - P2->width()) / 2;
    P3->setGeometry(left, top, width, P3->height());
    // The audio stage covers the Record page exactly; the analysis pages stand where it stands.
    P5->setGeometry(P3->rect());
    for (auto *page : p4)
        page->setGeometry(P3->geometry());
}

bool MainFrm::eventFilter(QObject *watched, QEvent *event)
{
    // The client area's ground: a gradient from white down to a dark grey.
    if (watched == m_client && event->type() == QEvent::Paint) {
        QPainter painter(m_client);
        paintClientGradient(painter);
        return true;
    }
    return QMainWindow::eventFilter(watched, event);
}

void MainFrm::paintClientGradient(QPainter &painter)
{
    zrt::DrawGradient(painter, m_client->rect(), QColor(Qt::white), QColor(50, 50, 50),
                      zrt::GradientDirection::TopToBottom);
}

// ---------------------------------------------------------------- toolbar and pages

bool MainFrm::pageChosen(Page page) const { return ThemedToolbar1->BtnValue(ButtonOf(page)); }

void MainFrm::buildLanguageChoice()
{
    // Each language under its own name, so that a pupil finds his or hers whatever the window
    // speaks now.
    m_languageGroup = new QActionGroup(this);
    QList<QAction *> actions;
    for (const QString &code : Language::available()) {
        auto *action = new QAction(Language::nativeName(code), m_languageGroup);
        action->setCheckable(true);
        action->setData(code);
        connect(action, &QAction::triggered, this, [this, code] { guarded([this, code] { chooseLanguage(code); }); });
        actions.append(action);
    }
    tickNextLanguage();
    ThemedToolbar1->setClientMenuGroup(tr("Language"), actions);
}

// The language ticked is the one the next start will speak.
void MainFrm::tickNextLanguage()
{
    const QString stored = Language::stored(MainMod1::SettingsFile);
    const QString next = stored.isEmpty() ? Language::current() : stored;
    for (QAction *action : m_languageGroup->actions())
        action->setChecked(action->data().toString() == next);
}

void MainFrm::chooseLanguage(const QString &code)
{
    if (!Language::setLanguage(code, MainMod1::SettingsFile)) {
        tickNextLanguage();
        MsgBox(this, tr("The choice could not be kept in %1.").arg(MainMod1::SettingsFile), vbExclamation,
               tr("Language"));
        return;
    }
    // The window's texts are set when it is built, so the new language waits for the next start.
    if (code != Language::current())
        MsgBox(this, tr("The program speaks %1 from its next start.").arg(Language::nativeName(code)),
               vbInformation, tr("Language"));
}

void MainFrm::ToolbarButtonClick(const QString &key)
{
    if (key == QLatin1String("Open")) {
        Open_Data();
        Refresh_Data();
    } else if (key == QLatin1String("Clear")) {
        averages->Reset_tags();
        Clear_Data();
        Refresh_Data();
    } else if (key == QLatin1String("Save")) {
        Save_Data();
    } else if (key == QLatin1String("Record")) {
        m_context.timers.SetTimer(TimerIdlePeek, 2500);
        showRecordPage();
    } else if (key == QLatin1String("Averages")) {
        showAnalysisPage(Page::Averages);
    } else if (key == QLatin1String("Groups")) {
        showAnalysisPage(Page::Groups);
    } else if (key == QLatin1String("Compare")) {
        showAnalysisPage(Page::Compare);
    }
}

void MainFrm::showRecordPage()
{
    ThemedToolbar1->setBtnValue(kRecordButton, true);
    P3->show();
    for (auto *page : p4)
        page->hide();
    for (Page page : kAnalysisPages)
        ThemedToolbar1->setBtnValue(ButtonOf(page), false);
}

void MainFrm::showAnalysisPage(Page page)
{
    Stop_All_Timers();
    if (!pageChosen(page)) {
        // A second press on the page's own button goes back to Record, without the idle play.
        for (auto *p : p4)
            p->hide();
        P3->show();
        ThemedToolbar1->setBtnValue(kRecordButton, true);
        return;
    }
    if (page == Page::Averages)
        averages->open();
    else if (page == Page::Groups)
        groups->open();
    else
        compare->open();
    for (Page other : {Page::Record, Page::Averages, Page::Groups, Page::Compare})
        if (other != page)
            ThemedToolbar1->setBtnValue(ButtonOf(other), false);
    P3->hide();
    for (size_t i = 0; i < kAnalysisPages.size(); ++i)
        p4[i]->setVisible(kAnalysisPages[i] == page);
}

void MainFrm::ClickToolbarButton(const QString &key)
{
    // As a press on the bar does it: a check button flips its value before the click is told.
    for (int i = 1; i <= ThemedToolbar1->ButtonCount(); ++i) {
        if (ThemedToolbar1->BtnKey(i) != key || !ThemedToolbar1->BtnEnabled(i))
            continue;
        if (ThemedToolbar1->BtnStyle(i) == zrt::btn::StyleCheck)
            ThemedToolbar1->setBtnValue(i, !ThemedToolbar1->BtnValue(i));
        guarded([this, key] { ToolbarButtonClick(key); });
        return;
    }
}

void MainFrm::Stop_All_Timers()
{
    if (P5)
        P5->stopWalk();
    for (int id : {TimerVisualPop, TimerIdlePeek, TimerAudioCue, TimerAudioIdle, TimerWalker})
        m_context.timers.KillTimer(id);
}

void MainFrm::Label5_Change()
{
    const bool enough = P2->count() > 5;
    for (Page page : kAnalysisPages)
        ThemedToolbar1->setBtnEnabled(ButtonOf(page), enough);
    for (auto *page : p4)
        page->hide();
    P3->show();
    ThemedToolbar1->setBtnValue(kRecordButton, true);
    // The bar shows the Record page as the one chosen; a page button left down would take the
    // next press on it for a second press and go back to Record instead of opening the page.
    for (Page page : kAnalysisPages)
        ThemedToolbar1->setBtnValue(ButtonOf(page), false);
}

void MainFrm::Refresh_Data()
{
    if (pageChosen(Page::Averages))
        averages->refresh();
    if (pageChosen(Page::Groups))
        groups->refresh();
}

void MainFrm::TestTimerProc(int timerId)
{
    // Every test timer is one-shot: the one that fired is killed before anything else.
    m_context.timers.KillTimer(timerId);
    switch (timerId) {
    case TimerVisualPop: P3->VisualPop(); break;
    case TimerIdlePeek: P3->IdlePeek(); break;
    case TimerAudioCue: P5->AudioCue(); break;
    case TimerAudioIdle: P5->AudioIdle(); break;
    case TimerWalker:
        if (P5->Timer1)
            P5->Timer1->start();
        break;
    default: break;
    }
}

void MainFrm::closeEvent(QCloseEvent *event)
{
    // Closing asks nothing: unsaved data are lost without a word.
    Stop_All_Timers();
    SoundBas::SoundPlayer::instance().StopSound();
    event->accept();
}

// ---------------------------------------------------------------- files and the collected data

zrt::DataFilePlaces MainFrm::dataFilePlaces() const { return {MainMod1::SettingsFile, MainMod1::ProgramFolder}; }

void MainFrm::Save_Data()
{
    const zrt::RtdSettings settings{P3->dd1->Title().toStdString(), P3->DD2->Title().toStdString(), P3->paired()};
    if (zrt::SaveData(this, P2->collected(), settings, dataFilePlaces(), &PageContext::pump))
        P2->DataSaved = true;
}

void MainFrm::Open_Data()
{
    const std::optional<zrt::OpenedFile> opened =
        zrt::OpenData(this, P2->count() > 0 && !P2->DataSaved, P3->List1->ListCount(), P3->List2->ListCount(),
                      dataFilePlaces(), &PageContext::pump);
    if (opened)
        showOpenedFile(*opened);
}

void MainFrm::openFile(const QString &path)
{
    guarded([this, &path] {
        const std::optional<zrt::OpenedFile> opened =
            zrt::ReadDataFile(this, path, P3->List1->ListCount(), P3->List2->ListCount());
        if (!opened)
            return;
        showOpenedFile(*opened);
        Refresh_Data();
    });
}

void MainFrm::showOpenedFile(const zrt::OpenedFile &opened)
{
    const zrt::RtdContent &content = opened.content;
    P2->Clear();
    P3->Check4->setValue(content.paired() ? 1 : 0);
    if (content.vanesListIndex)
        P3->List1->setListIndex(*content.vanesListIndex);
    if (content.attemptsListIndex)
        P3->List2->setListIndex(*content.attemptsListIndex);
    P2->showOpened(content);
    zrt::RememberOpenedFolder(this, opened.path, dataFilePlaces());
    P2->DataSaved = true;
    P3->Settings_Enabled(false);
    P2->SetDataCount();
}

void MainFrm::Clear_Data()
{
    P2->Clear();
    P3->resetSettings();
    analysis.results.SampleSize = 0;
}
