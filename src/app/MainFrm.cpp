// The main window: load, layout and resize rules, the toolbar's page buttons, the timers.

#include "app/MainFrm.h"

#include "app/MainMod1.h"
#include "dialogs/MsgBox.h"
#include "app/PagePanel.h"
#include "anim/ucGifPlayer.h"
#include "common/RunTimeError.h"
#include "controls/Check.h"
#include "controls/DropPanel.h"
#include "controls/GlossButton.h"
#include "controls/RowList.h"
#include "reaction/SoundBas.h"
#include "reaction/mStopWatch.h"
#include "toolbar/ThemedToolbar.h"
#include "dialogs/AboutFrm.h"

#include <QCloseEvent>
#include <QCoreApplication>
#include <QFile>
#include <QLabel>
#include <QPainter>
#include <QThread>

#include <algorithm>

namespace {

// Design sizes of the main area, in twips.
constexpr int kPageHeightTw = 8400;
constexpr int kPageHeight = kPageHeightTw / 15;

// The band under the stage, in pixels: the list of times on the left, the run's buttons and
// verdict in the middle, the settings on the right.
constexpr int kRunTop = 400;
constexpr int kVerdictTop = 432;
constexpr int kListLeft = 8;
constexpr int kListTop = 420;
constexpr int kListWidth = 130;
constexpr int kStartWidth = 110;
constexpr int kResultButtonWidth = 104;
constexpr int kButtonHeight = 30;
constexpr int kVerdictWidth = 300;
constexpr int kAudioVerdictWidth = 380;
constexpr int kGap = 8;
constexpr int kSettingsTop = 398;
constexpr int kSettingsMargin = 4;
constexpr int kSettingsRowHeight = 24;
constexpr int kSettingsListWidth = 60;
constexpr int kPageWidthCapTw = 12240;
constexpr int kLeftColumnWidthTw = 2595;

QImage ResourceImage(const QString &name) { return QImage(QStringLiteral(":/images/") + name); }

QLabel *NewLabel(QWidget *parent, const QString &text, const QRect &geometry)
{
    auto *label = new QLabel(text, parent);
    label->setGeometry(geometry);
    label->setWordWrap(true);
    return label;
}

} // namespace

QVariantMap CharacterProperties(const QByteArray &gif)
{
    return {{QStringLiteral("GIF"), gif}, {QStringLiteral("Stretch"), 3}, {QStringLiteral("DelayLoad"), 2}};
}

QByteArray ResourceBytes(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QString Tag(const QObject *control) { return control ? control->property("Tag").toString() : QString(); }

void SetTag(QObject *control, const QString &tag)
{
    if (control)
        control->setProperty("Tag", tag);
}

MainFrm::MainFrm(QWidget *parent, bool manualTimers) : QMainWindow(parent)
{
    InitResources();
    m_timers.setManual(manualTimers);
    setWindowTitle(QStringLiteral("Zorvane Reaction Times"));
    m_client = new QWidget(this);
    m_client->installEventFilter(this);
    setCentralWidget(m_client);
    m_timers.setCallback([this](int id) { guarded([this, id] { TestTimerProc(id); }); });
    m_sleep = [](int ms) { QThread::msleep(static_cast<unsigned long>(ms)); };
    m_hasAudioOutput = [] { return SoundBas::SoundPlayer::instance().hasOutput(); };
    m_character1 = ResourceBytes(QStringLiteral(":/gif/character1.gif"));
    m_character2 = ResourceBytes(QStringLiteral(":/gif/character2.gif"));
    Form_Load();
}

MainFrm::~MainFrm() { Stop_All_Timers(); }

void MainFrm::guarded(const std::function<void()> &handler)
{
    try {
        handler();
    } catch (const zrt::RunTimeError &error) {
        MsgBox(this, QString::fromStdString(error.message()), vbCritical, windowTitle());
    }
}

// ---------------------------------------------------------------- load

void MainFrm::Form_Load()
{
    // The window can't be made smaller than the layout needs; its largest size is the screen's.
    m_client->setMinimumSize(785, 656);
    RunStopwatch = mStopWatch::SwNew();

    buildToolbarStrip();
    buildLeftColumn();
    buildRecordPage();
    buildAudioStage();
    buildAnalysisPages();

    averages.cl3->setListIndex(0);
    // The two settings lists: 1..5 characters, 4..10 attempts.
    List1->setListIndex(2);
    List2->setListIndex(0);

    buildToolbar();
    Ptoolbar->setFixedHeight(ThemedToolbar1->height());
    for (auto *page : p4)
        page->setBackColor(MainMod1::PanelColour);
    cl1->setBackStyle(1);
    cl5->setBackStyle(1);
    arange_data_lists();
    cmdRemove->raise();
    P2->setBackColor(MainMod1::PanelColour);
    // The headings of the two lists of times in the dark green of the program's texts: the light
    // strip colour they once had could hardly be read on the stage's pale ground.
    for (QLabel *heading : {Label2, Label10}) {
        QPalette palette = heading->palette();
        palette.setColor(QPalette::WindowText, MainMod1::DarkGreenColour);
        heading->setPalette(palette);
    }
    // The window opens at its design size: the toolbar strip's width and the column's foot.
    resize(tw(11775), tw(690 + 8565));
    Form_Resize();
    nameControls();
    m_timers.SetTimer(TimerIdlePeek, 2500);
}

void MainFrm::buildToolbarStrip()
{
    Ptoolbar = new PagePanel(m_client);
    Ptoolbar->setGeometry(0, 0, tw(11775), tw(690));
    // The strip's gradient runs from its top edge to its bottom edge.
    Ptoolbar->setGradient(MainMod1::GradientLightColour, MainMod1::GradientDarkColour,
                          zrt::GradientDirection::TopToBottom);
}

void MainFrm::buildToolbar()
{
    ThemedToolbar1 = new ThemedToolbar(Ptoolbar);
    const QImage strip = ResourceImage(QStringLiteral("toolbar.png"));
    struct Item {
        const char *key, *tip;
        int cell;
        int kind; // 0 push, 1 check, 2 separator
    };
    static const Item items[] = {
        {"Open", "Open Data File.", 1, 0},
        {"Clear", "New Data File (clear data)", 2, 0},
        {"Save", "Save Data File", 3, 0},
        {"", "", 0, 2},
        {"Record", "Record Zorvane reaction times", 4, 1},
        {"", "", 0, 2},
        {"Averages", "Averages and Ranges", 5, 1},
        {"Groups", "Grouped Data", 6, 1},
        {"Compare", "Compare visual and audio", 7, 1},
    };
    for (const Item &item : items) {
        if (item.kind == 2) {
            ThemedToolbar1->AddButton(zrt::btn::TypeSeparator);
            continue;
        }
        ThemedToolbar1->AddButton(zrt::btn::TypeButton, QString(), QString::fromLatin1(item.key),
                                  strip.isNull() ? QImage() : ThemedToolbar::IconFromStrip(strip, item.cell), 32, 0,
                                  QString::fromLatin1(item.tip), zrt::SystemColor(8), std::nullopt,
                                  item.kind == 1 ? zrt::btn::StyleCheck : zrt::btn::StylePush, 0, true,
                                  zrt::RGB(0, 255, 0));
    }
    ThemedToolbar1->setcMenuItemTitle(QStringLiteral("Information"));
    ThemedToolbar1->setcMenuItem(1, QStringLiteral("About"));
    ThemedToolbar1->setBtnValue(5, true);
    ThemedToolbar1->setThemeColor(3);
    ThemedToolbar1->setVisible(true);
    ThemedToolbar1->setFixedHeight(32);
    ThemedToolbar1->SizeToButtons();
    for (int i : {7, 8, 9})
        ThemedToolbar1->setBtnEnabled(i, false);
    ThemedToolbar1->move(0, 0);
    connect(ThemedToolbar1, &ThemedToolbar::ButtonClick, this,
            [this](int, const QString &key, const QString &) { guarded([this, key] { ToolbarButtonClick(key); }); });
    connect(ThemedToolbar1, &ThemedToolbar::MenuClick, this, [this](int item) {
        if (item == 1)
            zrt::AboutFrm::ShowAbout(QStringLiteral(ZRT_VERSION), this);
    });
}

void MainFrm::buildLeftColumn()
{
    P2 = new PagePanel(m_client);
    P2->setGeometry(0, tw(690), tw(kLeftColumnWidthTw), tw(8565));
    Label4 = NewLabel(P2, QStringLiteral("Averaged Reation times"), QRect(6, 6, 166, 18));
    Label4->setWordWrap(false);
    QFont bold = Label4->font();
    bold.setBold(true);
    Label4->setFont(bold);
    Label5 = NewLabel(P2, QStringLiteral("Data Collected:"), QRect(8, 26, 160, 18));
    cmdRemove = new GlossButton(P2);
    cmdRemove->setCaption(QStringLiteral("Remove Selected Result"));
    cmdRemove->setGeometry(6, 48, 160, 28);
    connect(cmdRemove, &GlossButton::Click, this, [this] { guarded([this] { cmdRemove_Click(); }); });

    piclbl = new PagePanel(P2);
    piclbl->setGeometry(0, 84, P2->width(), 24);
    piclbl->setBackColor(MainMod1::HeaderColour);
    cl2 = new RowList(P2);
    CL4 = new RowList(P2);
    cl2->move(0, piclbl->y() + piclbl->height());
    CL4->move(CL4->x(), cl2->y());
    for (int i = 0; i < 2; ++i) {
        Check5[i] = new Check(piclbl);
        Check5[i]->setCaption(i == 0 ? QStringLiteral("Visual Data") : QStringLiteral("Audio Data"));
        Check5[i]->setBackColor(zrt::ToOleColor(MainMod1::HeaderColour));
        Check5[i]->setForeColor(zrt::RGB(255, 255, 255));
        // A size smaller than the column's text, so each caption fits its half of the strip.
        QFont small = Check5[i]->font();
        small.setPointSizeF(small.pointSizeF() * 0.9);
        Check5[i]->setFont(small);
        Check5[i]->resize(P2->width() / 2 - 2, 18);
        connect(Check5[i], &Check::Click, this, [this, i] { guarded([this, i] { Check5_Click(i); }); });
    }
    Check5[0]->move(1, (piclbl->height() - Check5[0]->height()) / 2);
    Check5[0]->setValue(1);
    Check5[1]->move(CL4->x() + 1, Check5[0]->y());

    // Selection in step: a press or release in one list selects the same row in the other.
    auto follow = [this](RowList *from, RowList *to, bool onlyWhenVisible) {
        if (onlyWhenVisible && !to->isVisible())
            return;
        to->setListIndex(from->ListIndex());
    };
    connect(cl2, &RowList::MouseDown, this, [=, this] { follow(cl2, CL4, true); });
    connect(cl2, &RowList::MouseUp, this, [=, this] { follow(cl2, CL4, true); });
    connect(CL4, &RowList::MouseDown, this, [=, this] { follow(CL4, cl2, false); });
    connect(CL4, &RowList::MouseUp, this, [=, this] { follow(CL4, cl2, false); });
    // Scrolled in step as well: a visual time and its audio partner always share a line.
    connect(cl2, &RowList::TopIndexChange, this, [this] {
        if (CL4->isVisible() && CL4->TopIndex() != cl2->TopIndex())
            CL4->setTopIndex(cl2->TopIndex());
    });
    connect(CL4, &RowList::TopIndexChange, this, [this] {
        if (cl2->TopIndex() != CL4->TopIndex())
            cl2->setTopIndex(CL4->TopIndex());
    });
    connect(P2, &PagePanel::Resize, this, [this] { guarded([this] { arange_data_lists(); }); });
}

void MainFrm::buildRecordPage()
{
    P3 = new PagePanel(m_client);
    P3->setGeometry(tw(2835), tw(1020), tw(kPageWidthCapTw), tw(kPageHeightTw));
    P3->setBackColor(QColor(236, 240, 226));
    P3->setPicture(ResourceImage(QStringLiteral("record_stage.png")));

    IMmsg = new QLabel(P3);
    IMmsg->setPixmap(QPixmap::fromImage(ResourceImage(QStringLiteral("start_invitation.png"))));
    IMmsg->resize(225, 178);

    command1 = new GlossButton(P3);
    command1->setCaption(QStringLiteral("Start"));
    command1->setGeometry(0, kRunTop, kStartWidth, kButtonHeight);
    connect(command1, &GlossButton::Click, this, [this] { guarded([this] { command1_Click(); }); });
    Label3 = NewLabel(P3, QStringLiteral("Average Reaction time"), QRect(0, kVerdictTop, kVerdictWidth, 0));
    Label3->setAlignment(Qt::AlignCenter);
    Label3->hide();
    for (int i = 0; i < 2; ++i) {
        GlossButton1[i] = new GlossButton(P3);
        GlossButton1[i]->setCaption(i == 0 ? QStringLiteral("Add Result") : QStringLiteral("Cancel"));
        GlossButton1[i]->setGeometry(0, 0, kResultButtonWidth, kButtonHeight);
        GlossButton1[i]->hide();
        connect(GlossButton1[i], &GlossButton::Click, this,
                [this, i] { guarded([this, i] { GlossButton1_Click(i); }); });
    }
    Label2 = NewLabel(P3, QStringLiteral("Reaction Times:"), QRect(kListLeft, kRunTop, kListWidth, 18));
    cl1 = new RowList(P3);
    cl1->setGeometry(kListLeft, kListTop, kListWidth, tw(1710));
    // Lines of the verdict: the mean may wrap, and the too-slow warning adds one.
    Label3->resize(Label3->width(), Label3->fontMetrics().lineSpacing() * 3 + 4);
    buildSettingsPanel();
    connect(P3, &PagePanel::Resize, this, [this] { guarded([this] { P3_Resize(); }); });
}

void MainFrm::buildSettingsPanel()
{
    // A compact panel in the page's lower right corner: each caption with its list beside it, the
    // check box below. It fills the band under the stage to the page's foot, so that the longer
    // list drops down inside it, and leaves the middle free for Start and the result.
    pSettings = new PagePanel(P3);
    pSettings->setBackColor(QColor(236, 240, 226));
    Label1[0] = NewLabel(pSettings, QStringLiteral("Number of Zorvanes:"), QRect());
    Label1[1] = NewLabel(pSettings, QStringLiteral("Number of attempts:"), QRect());
    int captionWidth = 0;
    for (QLabel *label : Label1) {
        label->setWordWrap(false);
        QFont small = label->font();
        small.setPointSizeF(small.pointSizeF() * 0.9);
        label->setFont(small);
        captionWidth = std::max(captionWidth, label->fontMetrics().horizontalAdvance(label->text()) + 4);
    }
    const int listLeft = kSettingsMargin + captionWidth + kSettingsMargin;

    dd1 = new DropPanel(pSettings);
    dd1->setGeometry(listLeft, 0, kSettingsListWidth, 22);
    List1 = new RowList(dd1);
    for (int i = 1; i <= 5; ++i)
        List1->AddItem(QString::number(i));
    DD2 = new DropPanel(pSettings);
    DD2->setGeometry(listLeft, kSettingsRowHeight, kSettingsListWidth, 22);
    List2 = new RowList(DD2);
    for (int i = 4; i <= 10; ++i)
        List2->AddItem(QString::number(i));
    for (auto [panel, list] : {std::pair{dd1, List1}, std::pair{DD2, List2}}) {
        list->setBackStyle(1);
        list->resize(panel->width(), list->ListCount() * 16 + 4);
        panel->PlaceInBody(list);
    }
    for (int i = 0; i < 2; ++i)
        Label1[i]->setGeometry(kSettingsMargin, i * kSettingsRowHeight + 3, captionWidth, 18);
    connect(List1, &RowList::ListIndexChange, this, [this] { guarded([this] { List1_Click(); }); });
    connect(List2, &RowList::ListIndexChange, this, [this] { guarded([this] { List2_Click(); }); });

    Check4 = new Check(pSettings);
    Check4->setCaption(QStringLiteral("Compare visual && audio"));
    const int checkWidth = Check4->fontMetrics().horizontalAdvance(QStringLiteral("Compare visual & audio")) + 28;
    Check4->setGeometry(kSettingsMargin, 2 * kSettingsRowHeight + 4, checkWidth, 20);
    Check4->setValue(1);
    Check4->setBackColor(zrt::ToOleColor(pSettings->backColor()));
    connect(Check4, &Check::Click, this, [this] { guarded([this] { Check4_Click(); }); });
    const int width = std::max(listLeft + kSettingsListWidth, kSettingsMargin + checkWidth) + kSettingsMargin;
    pSettings->setGeometry(0, kSettingsTop, width, kPageHeight - kSettingsTop);
}

void MainFrm::buildAudioStage()
{
    // Laid over the Record page as its child: it goes and comes back with that page, so it can
    // never stand over an analysis page.
    P5 = new PagePanel(P3);
    P5->setGeometry(P3->rect());
    P5->setBackColor(QColor(236, 240, 226));
    P5->setPictureFile(QStringLiteral(":/images/audio_stage.png")); // read when the stage first shows
    P5->hide();

    // The players take the values the window stores for them: the target as the characters; the
    // walker at its natural size, a tenth of a second at least per frame, built after load and
    // not playing by itself.
    ucgif = new ucGifPlayer(P5);
    ucgif->resize(110, 394);
    ucgif->ReadProperties(CharacterProperties(ResourceBytes(QStringLiteral(":/gif/audio_target.gif"))));
    connect(ucgif, &ucGifPlayer::MouseDown, this, [this] { guarded([this] { ucgif_MouseDown(); }); });
    ucGifPlayer2 = new ucGifPlayer(P5);
    ucGifPlayer2->ReadProperties({{QStringLiteral("GIF"), ResourceBytes(QStringLiteral(":/gif/walker.gif"))},
                                  {QStringLiteral("Delay"), 100},
                                  {QStringLiteral("Stretch"), 4},
                                  {QStringLiteral("DelayLoad"), 2}});
    ucGifPlayer2->setGeometry(P5->width(), 220, 179, 174);

    IMmsg1 = new QLabel(P5);
    SetPixmapWhenShown(IMmsg1, QStringLiteral(":/images/audio_invitation.png"));
    IMmsg1->resize(218, 183);

    cmdStartAudio = new GlossButton(P5);
    cmdStartAudio->setCaption(QStringLiteral("Start"));
    cmdStartAudio->setGeometry(0, kRunTop, kStartWidth, kButtonHeight);
    connect(cmdStartAudio, &GlossButton::Click, this, [this] { guarded([this] { cmdStartAudio_Click(); }); });
    l9 = NewLabel(P5, QString(), QRect(0, kVerdictTop, kAudioVerdictWidth, 0));
    l9->setAlignment(Qt::AlignCenter);
    // Four lines: the heading, both means (which may wrap) and the too-slow warning.
    l9->resize(l9->width(), l9->fontMetrics().lineSpacing() * 4 + 4);
    l9->hide();
    for (int i = 0; i < 2; ++i) {
        cmdadd[i] = new GlossButton(P5);
        cmdadd[i]->setCaption(i == 0 ? QStringLiteral("Add Result") : QStringLiteral("Cancel"));
        cmdadd[i]->setGeometry(0, l9->y() + l9->height() + 4, kStartWidth, kButtonHeight);
        cmdadd[i]->hide();
        connect(cmdadd[i], &GlossButton::Click, this, [this, i] { guarded([this, i] { cmdadd_Click(i); }); });
    }
    Label10 = NewLabel(P5, QStringLiteral("Reaction Times:"), QRect(kListLeft, kRunTop, kListWidth, 18));
    cl5 = new RowList(P5);
    cl5->setGeometry(kListLeft, kListTop, kListWidth, tw(1710));

    Timer1 = new QTimer(this);
    // The walker asks for the fastest tick; the classic desktop answered a 1 ms request about
    // every 16 ms, and the walk is paced for that (a twenty-fifth of its width per tick).
    Timer1->setInterval(16);
    connect(Timer1, &QTimer::timeout, this, [this] { guarded([this] { Timer1_Timer(); }); });
    connect(P5, &PagePanel::Resize, this, [this] { guarded([this] { P5_Resize(); }); });
}

// ---------------------------------------------------------------- resize rules

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
    {
        PagePanel *page = P3;
        const int top = Ptoolbar->height() + (innerHeight - page->height() - Ptoolbar->height()) / 2;
        const int w = innerWidth - P2->width() - tw(690);
        const int width = std::max(0, std::min(w, tw(kPageWidthCapTw)));
        const int left = P2->width() + (innerWidth - width - P2->width()) / 2;
        page->setGeometry(left, top, width, page->height());
    }
    // The audio stage covers the Record page exactly.
    P5->setGeometry(P3->rect());
    for (auto *page : p4)
        if (page)
            page->setGeometry(P3->geometry());
}

void MainFrm::P3_Resize()
{
    const int inner = P3->width();
    pSettings->move(inner - pSettings->width() - Label2->x(), pSettings->y());
    layoutRunColumn(inner);
    BuildCharacterRow();
}

// Start, the verdict and the two result buttons stand in the middle of the page (Add under
// Start, Cancel beside it) while that leaves them clear of the list on the left and the settings
// on the right; on a narrower page they keep their order, centred in the room between the two.
void MainFrm::layoutRunColumn(int inner)
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

void MainFrm::placeListenBalloon() { IMmsg1->move(ucgif->x() + ucgif->width() / 2, 0); }

void MainFrm::P5_Resize()
{
    const int width = P5->width();
    ucgif->move((width - ucgif->width()) / 2, ucgif->y());
    // The balloon's own flag, not whether it is on screen: the stage is hidden when it is laid out.
    if (!IMmsg1->isHidden())
        placeListenBalloon();
    ucGifPlayer2->move(width, ucGifPlayer2->y());
    cmdStartAudio->move((width - cmdStartAudio->width()) / 2, cmdStartAudio->y());
    // The result text may not run over the list of times on the left.
    const int room = width - 2 * (cl5->x() + cl5->width() + kGap);
    l9->resize(std::min(kAudioVerdictWidth, std::max(kStartWidth, room)), l9->height());
    l9->move((width - l9->width()) / 2, l9->y());
    cmdadd[0]->move((width - cmdadd[0]->width()) / 2, cmdadd[0]->y());
    cmdadd[1]->move(width - cmdadd[1]->width() - tw(60), cmdadd[1]->y());
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

bool MainFrm::pageButton(int index) const { return ThemedToolbar1->BtnValue(index); }

void MainFrm::ToolbarButtonClick(const QString &key)
{
    if (key == QLatin1String("Open")) {
        Open_Data();
        Refresh_Data();
    } else if (key == QLatin1String("Clear")) {
        Reset_tags();
        Clear_Data();
        Refresh_Data();
    } else if (key == QLatin1String("Save")) {
        Save_Data();
    } else if (key == QLatin1String("Record")) {
        m_timers.SetTimer(TimerIdlePeek, 2500);
        ThemedToolbar1->setBtnValue(5, true);
        P3->show();
        for (auto *page : p4)
            page->hide();
        for (int i : {7, 8, 9})
            ThemedToolbar1->setBtnValue(i, false);
    } else {
        static const QStringList pages = {QStringLiteral("Averages"), QStringLiteral("Groups"),
                                          QStringLiteral("Compare")};
        const int page = static_cast<int>(pages.indexOf(key));
        if (page < 0)
            return;
        Stop_All_Timers();
        const int button = 7 + page;
        if (ThemedToolbar1->BtnValue(button)) {
            ShowAnalysisPage(page);
            for (int i : {5, 7, 8, 9})
                if (i != button)
                    ThemedToolbar1->setBtnValue(i, false);
            P3->hide();
            for (int i = 0; i < 3; ++i)
                p4[i]->setVisible(i == page);
        } else {
            // A second press on the page's own button goes back to Record, without the idle play.
            for (auto *p : p4)
                p->hide();
            P3->show();
            ThemedToolbar1->setBtnValue(5, true);
        }
    }
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
    if (Timer1)
        Timer1->stop();
    for (int id : {TimerVisualPop, TimerIdlePeek, TimerAudioCue, TimerAudioIdle, TimerWalker})
        m_timers.KillTimer(id);
}

void MainFrm::SetDataCount()
{
    const QString text = QStringLiteral("Data Collected: (") + QString::number(cl2->ListCount()) + ")";
    if (Label5->text() != text) {
        Label5->setText(text);
        Label5_Change();
    }
}

void MainFrm::Label5_Change()
{
    const bool enough = cl2->ListCount() > 5;
    for (int i : {7, 8, 9})
        ThemedToolbar1->setBtnEnabled(i, enough);
    for (auto *page : p4)
        page->hide();
    P3->show();
    ThemedToolbar1->setBtnValue(5, true);
    // The bar shows the Record page as the one chosen; a page button left down would take the
    // next press on it for a second press and go back to Record instead of opening the page.
    for (int i : {7, 8, 9})
        ThemedToolbar1->setBtnValue(i, false);
}

void MainFrm::Refresh_Data()
{
    if (pageButton(7)) {
        Reset_tags();
        RefreshAveragesPage();
    }
    if (pageButton(8))
        RefreshGroupsPage();
}

void MainFrm::TestTimerProc(int timerId)
{
    // Every test timer is one-shot: the one that fired is killed before anything else.
    m_timers.KillTimer(timerId);
    switch (timerId) {
    case TimerVisualPop: VisualPop(); break;
    case TimerIdlePeek: IdlePeek(); break;
    case TimerAudioCue: AudioCue(); break;
    case TimerAudioIdle: AudioIdle(); break;
    case TimerWalker: Timer1->start(); break;
    default: break;
    }
}

void MainFrm::closeEvent(QCloseEvent *event)
{
    // Closing asks nothing: unsaved data are lost without a word.
    for (int id : {TimerVisualPop, TimerIdlePeek, TimerAudioIdle, TimerWalker, TimerAudioCue})
        m_timers.KillTimer(id);
    Timer1->stop();
    SoundBas::SoundPlayer::instance().StopSound();
    event->accept();
}

void MainFrm::pump() { QCoreApplication::processEvents(); }

void MainFrm::sleepFor(int ms)
{
    pump();
    m_sleep(ms);
}
