// The three analysis pages: their controls, tabs and the question buttons that reveal answers.

#include "app/AnalysisPages.h"
#include "app/MainFrm.h"

#include "app/MainMod1.h"
#include "app/PagePanel.h"
#include "app/PlainFailures.h"
#include "charts/PictureBox.h"
#include "controls/Check.h"
#include "controls/DropPanel.h"
#include "controls/GlossButton.h"
#include "controls/RowList.h"
#include "controls/ShapedTabs.h"
#include "controls/ucTableView.h"
#include "stats/Averages.h"
#include "stats/Spearman.h"

#include <QLabel>
#include <QTextEdit>

namespace {

constexpr int kTabTop = 150;
constexpr int kTabHeight = 26;

QLabel *Label(QWidget *parent, const QString &text, const QRect &geometry)
{
    auto *label = new QLabel(text, parent);
    label->setGeometry(geometry);
    return label;
}

QLabel *AnswerLabel(QWidget *parent, const QRect &geometry)
{
    QLabel *label = Label(parent, QString(), geometry);
    label->setStyleSheet(QStringLiteral("QLabel { background: white; border: 1px solid #9a9a80; padding-left: 4px; }"));
    return label;
}

QTextEdit *NumbersBox(QWidget *parent, const QRect &geometry)
{
    auto *box = new QTextEdit(parent);
    box->setReadOnly(true);
    box->setGeometry(geometry);
    return box;
}

zrt::PictureBox *Surface(QWidget *parent)
{
    auto *surface = new zrt::PictureBox(parent);
    surface->SetBackColor(zrt::RGB(255, 255, 255));
    return surface;
}

// Question buttons swap their answer in and out of the label beside them.
void Toggle(QLabel *answer, const QObject *button)
{
    answer->setText(answer->text().isEmpty() ? Tag(button) : QString());
}

} // namespace

GlossButton *MainFrm::newButton(QWidget *parent, const QString &caption, const QRect &geometry,
                                std::function<void()> onClick)
{
    auto *button = new GlossButton(parent);
    button->setCaption(caption);
    button->setGeometry(geometry);
    connect(button, &GlossButton::Click, this, [this, onClick] { guarded(onClick); });
    return button;
}

ShapedTabs *MainFrm::newTabs(QWidget *page, const QStringList &captions, std::function<void(int)> onClick)
{
    auto *tabs = new ShapedTabs(page);
    QStringList fields = captions;
    while (fields.size() < 10)
        fields << QStringLiteral("Tab%1").arg(fields.size() + 1);
    tabs->setCaption(fields.join(QLatin1Char('|')) + QLatin1Char('|'));
    tabs->setNumberOfTabs(static_cast<int>(captions.size()));
    tabs->setGeometry(0, kTabTop, page->width(), kTabHeight);
    tabs->setDisabledTabColor(page == p4[0] ? zrt::RGB(192, 192, 192) : zrt::RGB(224, 224, 224));
    tabs->setBorderDarkColor(zrt::RGB(64, 64, 0));
    tabs->setBorderLightColor(zrt::RGB(128, 128, 0));
    tabs->setInactiveTabTextColor(zrt::RGB(128, 128, 128));
    // Round corners leave a few pixels of the strip's own back colour outside their outline:
    // they take the colour of the page around it, or they show as white specks.
    tabs->setControlBackcolor(zrt::ToOleColor(MainMod1::PanelColour));
    connect(tabs, &ShapedTabs::Click, this, [this, onClick](int &index) {
        const int tab = index;
        guarded([=] { onClick(tab); });
    });
    return tabs;
}

void MainFrm::buildAnalysisPages()
{
    for (int i = 0; i < 3; ++i) {
        p4[i] = new PagePanel(m_client);
        p4[i]->setGeometry(P3->geometry());
        p4[i]->hide();
        connect(p4[i], &PagePanel::Resize, this, [this, i] { guarded([this, i] { layoutAnalysisPage(i); }); });
    }
    buildAveragesPage();
    buildGroupsPage();
    buildComparePage();
}

void MainFrm::buildAveragesPage()
{
    AveragesPage &a = averages;
    QWidget *page = p4[0];
    a.Label6 = Label(page, QStringLiteral("Current Data to the nearest "), QRect(10, 12, 170, 20));
    a.DD3 = new DropPanel(page);
    a.DD3->setGeometry(180, 10, 110, 22);
    a.cl3 = new RowList(a.DD3);
    for (const char *item : zrt::kPrecisionItems)
        a.cl3->AddItem(QString::fromLatin1(item));
    a.cl3->setBackStyle(1);
    a.cl3->resize(a.DD3->width(), 3 * 16 + 4);
    a.DD3->PlaceInBody(a.cl3);
    a.DD3->setTitle(QString::fromLatin1(zrt::kPrecisionItems[0]));
    a.Label7 = Label(page, QStringLiteral("of a second"), QRect(298, 12, 100, 20));
    a.lbsort = Label(page, QStringLiteral("Sort Data Items:"), QRect(430, 12, 110, 20));
    a.Check1 = new Check(page);
    a.Check1->setGeometry(540, 12, 24, 20);
    a.t1 = NumbersBox(page, QRect(10, 40, 780, 78));
    a.l8 = Label(page, QString(), QRect(10, 122, 300, 22));
    a.Tab1 = newTabs(page, {QStringLiteral("Averages Info"), QStringLiteral("Distribution"), QStringLiteral("Box Plot"),
                            QStringLiteral("Stem & Leaf")},
                     [this](int index) { Tab1_Click(index); });
    for (auto &frame : a.F1) {
        frame = new PagePanel(page);
        frame->setBackColor(MainMod1::PanelColour);
    }
    for (int i = 0; i < 9; ++i) {
        const int y = 8 + i * 32;
        a.cmd1[i] = newButton(a.F1[0], QString::fromLatin1(zrt::kCmd1Captions[i]), QRect(12, y, 180, 28),
                              [this, i] { Toggle(averages.lb1[i], averages.cmd1[i]); });
        a.lb1[i] = AnswerLabel(a.F1[0], QRect(200, y + 2, 200, 24));
    }
    a.cmdshowall = newButton(a.F1[0], QStringLiteral("Show All"), QRect(430, 8, 110, 28), [this] {
        for (int i = 0; i < 9; ++i)
            averages.lb1[i]->setText(Tag(averages.cmd1[i]));
    });
    for (int i = 0; i < 4; ++i) {
        const int y = 8 + i * 36;
        a.cmd2[i] = newButton(a.F1[1], QString::fromLatin1(zrt::kCmd2Captions[i]), QRect(12, y, 210, 30),
                              [this, i] { Toggle(averages.lb2[i], averages.cmd2[i]); });
        a.lb2[i] = AnswerLabel(a.F1[1], QRect(232, y + 3, 200, 24));
    }
    a.cmdSA = newButton(a.F1[1], QStringLiteral("Show All"), QRect(12, 8 + 4 * 36, 110, 28), [this] {
        for (int i = 0; i < 4; ++i)
            averages.lb2[i]->setText(Tag(averages.cmd2[i]));
    });
    a.cmdinfo = newButton(a.F1[1], QStringLiteral("?"), QRect(442, 8, 30, 66), [this] { ShowOutliersHelp(); });
    a.pBox = Surface(a.F1[2]);
    a.cmdBP = newButton(a.pBox, QStringLiteral("Show Box Plot"), QRect(0, 6, 120, 28), [this] {
        SwapCaption(averages.cmdBP, QStringLiteral("Show Box Plot"), QStringLiteral("Hide Box Plot"));
        if (analysis.results.SampleSize != 0)
            DrawBoxPlot();
    });
    a.PicSL = Surface(a.F1[3]);
    a.cmdSL = newButton(a.PicSL, QStringLiteral("Show Leaves"), QRect(0, 6, 110, 28), [this] {
        SwapCaption(averages.cmdSL, QStringLiteral("Show Leaves"), QStringLiteral("Hide Leaves"));
        DrawStemLeaf();
    });
    connect(a.pBox, &zrt::PictureBox::Resize, this, [this] {
        guarded([this] {
            // The button keeps its corner: 90 twips from the top and the right.
            averages.cmdBP->move(averages.pBox->width() - averages.cmdBP->width() - tw(90), tw(90));
            if (analysis.results.SampleSize != 0)
                DrawBoxPlot();
        });
    });
    connect(a.PicSL, &zrt::PictureBox::Resize, this, [this] {
        guarded([this] {
            averages.cmdSL->move(averages.PicSL->width() - averages.cmdSL->width() - tw(90), tw(90));
            if (analysis.results.SampleSize != 0)
                DrawStemLeaf();
        });
    });
    connect(a.cl3, &RowList::ListIndexChange, this, [this] { guarded([this] { cl3_Click(); }); });
    connect(a.Check1, &Check::Click, this, [this] { guarded([this] { Refresh_Data(); }); });
}

void MainFrm::buildGroupsPage()
{
    GroupsPage &g = groups;
    QWidget *page = p4[1];
    g.Label8 = Label(page, QStringLiteral("Current Data to 1/100 th of a second:"), QRect(10, 12, 260, 20));
    g.lbsort1 = Label(page, QStringLiteral("Sort Data:"), QRect(430, 12, 80, 20));
    g.Check2 = new Check(page);
    g.Check2->setGeometry(510, 12, 24, 20);
    g.t4 = NumbersBox(page, QRect(10, 40, 780, 100));
    g.Tab2 = newTabs(page, {QStringLiteral("Grouped Data"), QStringLiteral("Estimated Mean"),
                            QStringLiteral("Cumulative Frequency (CF)"), QStringLiteral("CF Plot")},
                     [this](int index) { Tab2_Click(index); });
    for (auto &frame : g.f2) {
        frame = new PagePanel(page);
        frame->setBackColor(MainMod1::PanelColour);
    }
    g.ptally = Surface(g.f2[0]);
    g.pEmean = Surface(g.f2[1]);
    g.pCF = Surface(g.f2[2]);
    g.ppCF = Surface(g.f2[3]);
    g.cmdTally = newButton(g.ptally, QStringLiteral("Show Tally/Frequency"), QRect(0, 0, 170, 28), [this] {
        SwapCaption(groups.cmdTally, QStringLiteral("Show Tally/Frequency"), QStringLiteral("Hide Tally/Frequency"));
        Get_Grouped_Data();
    });
    g.cmdR = newButton(g.pEmean, QStringLiteral("Show Results"), QRect(0, 0, 120, 28), [this] {
        SwapCaption(groups.cmdR, QStringLiteral("Show Results"), QStringLiteral("Hide Results"));
        Get_Grouped_Data();
        DrawEstimatedMean();
    });
    g.cmdCF = newButton(g.pCF, QStringLiteral("Show CF"), QRect(0, 0, 100, 28), [this] {
        SwapCaption(groups.cmdCF, QStringLiteral("Show CF"), QStringLiteral("Hide CF"));
        if (analysis.GroupedReady)
            DrawCFTable();
    });
    g.cmdPlot = newButton(g.ppCF, QStringLiteral("Show Plot"), QRect(0, 6, 100, 28), [this] {
        if (groups.cmdPlot->Caption() == QLatin1String("Show Plot")) {
            groups.cmdPlot->setCaption(QStringLiteral("Hide Plot"));
            groups.Check3->setVisible(true);
        } else {
            groups.cmdPlot->setCaption(QStringLiteral("Show Plot"));
            groups.Check3->setVisible(false);
            groups.Check3->setValue(0);
        }
        if (analysis.GroupedReady)
            DrawCFPlot();
    });
    g.Check3 = new Check(g.ppCF);
    g.Check3->setCaption(QStringLiteral("Show Quartiles"));
    g.Check3->setGeometry(0, 40, 130, 20);
    g.Check3->setVisible(false);
    connect(g.Check3, &Check::Click, this, [this] {
        guarded([this] {
            if (analysis.GroupedReady)
                DrawCFPlot();
        });
    });
    connect(g.Check2, &Check::Click, this, [this] { guarded([this] { Refresh_Data(); }); });
    auto keep = [this](zrt::PictureBox *surface, std::function<void()> place, std::function<void()> draw) {
        connect(surface, &zrt::PictureBox::Resize, this, [this, place, draw] {
            guarded([=, this] {
                if (analysis.GroupedReady)
                    draw();
                place();
            });
        });
    };
    keep(g.ptally, [this] {
        groups.cmdTally->move(groups.ptally->width() - groups.cmdTally->width() - tw(60),
                              groups.ptally->height() - groups.cmdTally->height() - tw(30));
    }, [this] { DrawTally(); });
    keep(g.pEmean, [this] {
        groups.cmdR->move(tw(60), groups.pEmean->height() - groups.cmdR->height());
    }, [this] { DrawEstimatedMean(); });
    keep(g.pCF, [this] {
        groups.cmdCF->move(groups.pCF->width() - groups.cmdCF->width() - tw(180),
                           groups.pCF->height() - groups.cmdCF->height() - tw(90));
    }, [this] { DrawCFTable(); });
    keep(g.ppCF, [this] {
        // Both stay in the band above the plot's top margin, the box left of the button: below
        // it they covered the top of the curve, where its last point (the total) stands.
        groups.cmdPlot->move(groups.ppCF->width() - groups.cmdPlot->width() - tw(90), 0);
        groups.Check3->move(groups.cmdPlot->x() - groups.Check3->width() - 8, 4);
    }, [this] { DrawCFPlot(); });
}

void MainFrm::buildComparePage()
{
    ComparePage &c = compare;
    QWidget *page = p4[2];
    c.Label9 = Label(page, QStringLiteral("Data pairs (to 1/100 th of a second)"), QRect(10, 12, 300, 20));
    c.Text1 = NumbersBox(page, QRect(10, 40, 780, 100));
    c.ShapedTabs1 = newTabs(page, {QStringLiteral("Scatter Graph"), QStringLiteral("Spearman's Rank"),
                                   QStringLiteral("Boxplots")},
                            [this](int index) { ShapedTabs1_Click(index); });
    for (auto &surface : c.pFR)
        surface = Surface(page);
    c.cmdSG = newButton(c.pFR[0], QStringLiteral("Show Coordinates"), QRect(0, 6, 140, 28), [this] {
        SwapCaption(compare.cmdSG, QStringLiteral("Show Coordinates"), QStringLiteral("Hide Coordinates"));
        if (analysis.CompareReady)
            Get_Compare_Data();
    });
    c.ucTableView1 = new ucTableView(c.pFR[1]);
    c.ucTableView1->Initialize();
    for (size_t i = 0; i < zrt::kRankColumnCaptions.size(); ++i)
        c.ucTableView1->ColumnAdd(static_cast<int>(i), QString::fromLatin1(zrt::kRankColumnCaptions[i]),
                                  zrt::kRankColumnWidths[i], 0);
    c.ucTableView1->setRaiseSubItemPrePaint(true);
    c.ucTableView1->setBackColor(zrt::RGB(241, 241, 217));
    c.ucTableView1->setBorderStyle(0);
    c.ucTableView1->setViewMode(1);
    c.ucTableView1->setCheckBoxes(false);
    c.ucTableView1->setGridLines(false);
    c.ucTableView1->setFullRowSelect(true);
    c.ucTableView1->setHeaderFlat(true);
    c.ucTableView1->setMultiSelect(false);
    c.pdsqr = new QLabel(c.pFR[1]);
    c.pdsqr->setText(QStringLiteral("<i>r</i> = 1 &minus; 6&Sigma;<i>d</i>&sup2; / <i>n</i>(<i>n</i>&sup2; &minus; 1)"));
    c.pdsqr->setStyleSheet(QStringLiteral("QLabel { background: white; font-size: 15px; padding: 4px; }"));
    c.ld = Label(c.pFR[1], QString(), QRect(0, 0, 160, 22));
    c.cmdSR = newButton(c.pFR[1], QStringLiteral("Spearman's Rank"), QRect(0, 0, 140, 28), [this] { cmdSR_Click(); });
    c.lbSR = Label(c.pFR[1], QString(), QRect(0, 0, 160, 22));
    c.lbSR->hide();
    const char *ends[] = {"Perfect Negative Correlation", "No Correlation", "Perfect Positive Correlation"};
    for (int i = 0; i < 3; ++i) {
        c.lbc[i] = Label(c.pFR[1], QString::fromLatin1(ends[i]), QRect(0, 0, 190, 20));
        c.lbc[i]->setAlignment(i == 0 ? Qt::AlignLeft : i == 1 ? Qt::AlignHCenter : Qt::AlignRight);
    }
    c.lbc[0]->hide();
    c.cmdBPc = newButton(c.pFR[2], QStringLiteral("Show Boxplots"), QRect(0, 6, 120, 28), [this] {
        SwapCaption(compare.cmdBPc, QStringLiteral("Show Boxplots"), QStringLiteral("Hide Boxplots"));
        if (analysis.CompareReady)
            Get_Compare_Data();
    });
    for (int i = 0; i < 2; ++i) {
        c.cmdarr[i] = newButton(c.pFR[2], i == 0 ? QStringLiteral("Visual") : QStringLiteral("Audio"),
                                QRect(0, 0, 60, 26), [this, i] { ShowSummaryDetails(i); });
        c.cmdarr[i]->hide();
    }
    connect(c.pFR[0], &zrt::PictureBox::Resize, this, [this] {
        guarded([this] {
            compare.cmdSG->move(compare.pFR[0]->width() - compare.cmdSG->width() - tw(90), tw(90));
            if (analysis.CompareReady)
                Get_Compare_Data();
        });
    });
    connect(c.pFR[0], &zrt::PictureBox::MouseDown, this,
            [this](Qt::MouseButton, Qt::KeyboardModifiers, double x, double y) {
                guarded([=, this] { pFR0_MouseDown(x, y); });
            });
    connect(c.pFR[1], &zrt::PictureBox::Resize, this, [this] { guarded([this] { layoutRankTab(); }); });
    connect(c.pFR[2], &zrt::PictureBox::Resize, this, [this] {
        guarded([this] {
            compare.cmdBPc->move(compare.pFR[2]->width() - compare.cmdBPc->width() - tw(90), tw(90));
            if (analysis.CompareReady)
                DrawCompareBoxPlots();
        });
    });
}

// ---------------------------------------------------------------- layout

void MainFrm::layoutAnalysisPage(int index)
{
    QWidget *page = p4[index];
    const QRect frame(0, kTabTop + kTabHeight, page->width(), page->height() - kTabTop - kTabHeight);
    const int textWidth = page->width() - 20;
    if (index == 0) {
        averages.Tab1->resize(page->width(), kTabHeight);
        averages.t1->resize(textWidth, averages.t1->height());
        for (auto *f : averages.F1)
            f->setGeometry(frame);
        averages.pBox->setGeometry(0, 0, frame.width(), frame.height());
        averages.PicSL->setGeometry(0, 0, frame.width(), frame.height());
        showTabFrame(0, averages.Tab1->ActiveTab());
    } else if (index == 1) {
        groups.Tab2->resize(page->width(), kTabHeight);
        groups.t4->resize(textWidth, groups.t4->height());
        for (auto *f : groups.f2)
            f->setGeometry(frame);
        for (auto *surface : {groups.ptally, groups.pEmean, groups.pCF, groups.ppCF})
            surface->setGeometry(0, 0, frame.width(), frame.height());
        showTabFrame(1, groups.Tab2->ActiveTab());
    } else {
        compare.ShapedTabs1->resize(page->width(), kTabHeight);
        compare.Text1->resize(textWidth, compare.Text1->height());
        for (auto *surface : compare.pFR)
            surface->setGeometry(frame);
        showTabFrame(2, compare.ShapedTabs1->ActiveTab());
    }
}

void MainFrm::layoutRankTab()
{
    zrt::PictureBox *surface = compare.pFR[1];
    const int w = surface->width();
    const int tableWidth = std::min(w - 20, 520);
    compare.ucTableView1->setGeometry((w - tableWidth) / 2, 10, tableWidth, std::max(60, surface->height() / 2 - 20));
    const int below = compare.ucTableView1->y() + compare.ucTableView1->height() + 8;
    // The formula is never cut: as wide as its text, and moved left where the surface ends.
    const int formulaWidth = std::max(240, compare.pdsqr->sizeHint().width());
    compare.pdsqr->setGeometry(std::max(0, std::min(tw(5900), w - formulaWidth)), below, formulaWidth, 30);
    compare.ld->move(compare.ucTableView1->x(), below);
    compare.cmdSR->move(compare.ucTableView1->x(), below + 30);
    compare.lbSR->move(compare.cmdSR->x() + compare.cmdSR->width() + 10, below + 34);
    const int labelsTop = surface->height() - 90;
    compare.lbc[0]->move(0, labelsTop);
    compare.lbc[1]->move(w / 2 - compare.lbc[1]->width() / 2, labelsTop);
    compare.lbc[2]->move(w - compare.lbc[2]->width(), labelsTop);
    if (compare.lbSR->isVisible())
        DrawCorrelationScale();
}

void MainFrm::showTabFrame(int page, int tab)
{
    if (page == 0)
        for (int i = 0; i < 4; ++i)
            averages.F1[i]->setVisible(i == tab);
    else if (page == 1)
        for (int i = 0; i < 4; ++i)
            groups.f2[i]->setVisible(i == tab);
    else
        for (int i = 0; i < 3; ++i)
            compare.pFR[i]->setVisible(i == tab);
}

void MainFrm::SwapCaption(GlossButton *button, const QString &first, const QString &second)
{
    button->setCaption(button->Caption() == first ? second : first);
}

// ---------------------------------------------------------------- tab changes

void MainFrm::Tab1_Click(int index)
{
    averages.Tab1->setActiveTab(index);
    showTabFrame(0, index);
    if (analysis.results.SampleSize == 0)
        return;
    if (index == 2)
        DrawBoxPlot();
    else if (index == 3)
        DrawStemLeaf();
}

void MainFrm::Tab2_Click(int index)
{
    groups.Tab2->setActiveTab(index);
    showTabFrame(1, index);
    if (!analysis.GroupedReady)
        return;
    switch (index) {
    case 0: DrawTally(); break;
    case 1: DrawEstimatedMean(); break;
    case 2: DrawCFTable(); break;
    case 3: DrawCFPlot(); break;
    default: break;
    }
}

void MainFrm::ShapedTabs1_Click(int index)
{
    compare.ShapedTabs1->setActiveTab(index);
    showTabFrame(2, index);
    if (index == 1)
        layoutRankTab();
}

// ---------------------------------------------------------------- analysis on the pages

void MainFrm::ShowAnalysisPage(int page)
{
    if (page == 0) {
        Get_Averages();
        Tab1_Click(0);
    } else if (page == 1) {
        Get_Grouped_Data();
        Tab2_Click(0);
    } else {
        Get_Compare_Data();
        ShapedTabs1_Click(0);
    }
}

void MainFrm::RefreshAveragesPage()
{
    Get_Averages();
    if (analysis.results.SampleSize == 0)
        return;
    if (averages.F1[2]->isVisible())
        DrawBoxPlot();
    if (averages.F1[3]->isVisible())
        DrawStemLeaf();
}

void MainFrm::RefreshGroupsPage()
{
    Get_Grouped_Data();
    if (!analysis.GroupedReady)
        return;
    const int tab = groups.Tab2->ActiveTab();
    if (tab == 1)
        DrawEstimatedMean();
    else if (tab == 2)
        DrawCFTable();
    else if (tab == 3)
        DrawCFPlot();
}

void MainFrm::Reset_tags()
{
    averages.l8->setText(QString());
    for (int i = 0; i < 9; ++i) {
        SetTag(averages.cmd1[i], QString());
        averages.lb1[i]->setText(QString());
    }
    for (int i = 0; i < 4; ++i) {
        SetTag(averages.cmd2[i], QString());
        averages.lb2[i]->setText(QString());
    }
}

void MainFrm::Clear_Displayed_Data()
{
    for (auto *label : averages.lb1)
        label->setText(QString());
    for (auto *label : averages.lb2)
        label->setText(QString());
}

void MainFrm::cl3_Click()
{
    if (averages.cl3->ListIndex() >= 0)
        averages.DD3->setTitle(averages.cl3->ItemText(averages.cl3->ListIndex()));
    averages.DD3->Collapse();
    Get_Averages();
    // No stale answer may stand against the new units.
    Clear_Displayed_Data();
}

void MainFrm::Get_Averages()
{
    const zrt::CollectedLists lists = collectedLists();
    const zrt::AveragesInput input{lists, averages.cl3->ListIndex(), averages.Check1->Value(), Check5[0]->Value()};
    zrt::AveragesAnswer answer;
    try {
        answer = zrt::Get_Averages(input, analysis);
    } catch (zrt::RunTimeError &e) {
        zrt::ExplainListFailure(e, lists, zrt::AnalysisKind::Averages, Check5[0]->Value() != 1);
        throw;
    }
    switch (answer.outcome) {
    case zrt::AveragesAnswer::Outcome::PrecisionReset:
        averages.cl3->setListIndex(0); // its click runs the analysis again
        return;
    case zrt::AveragesAnswer::Outcome::Message:
        Reset_tags();
        averages.t1->setPlainText(QString::fromStdString(answer.t1).trimmed());
        return;
    case zrt::AveragesAnswer::Outcome::Analysed:
        break;
    }
    averages.t1->setPlainText(QString::fromStdString(answer.t1).trimmed());
    for (int i = 0; i < 9; ++i)
        SetTag(averages.cmd1[i], QString::fromStdString(answer.cmd1Tags[i]));
    for (int i = 0; i < 4; ++i)
        SetTag(averages.cmd2[i], QString::fromStdString(answer.cmd2Tags[i]));
    averages.l8->setText(QString::fromStdString(answer.l8).trimmed());
}
