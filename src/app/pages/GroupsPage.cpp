#include "app/pages/GroupsPage.h"

#include "app/MainMod1.h"
#include "app/PlainFailures.h"
#include "app/pages/DataColumn.h"
#include "app/pages/PageContext.h"
#include "app/pages/PageWidgets.h"
#include "charts/CumulativeFrequency.h"
#include "charts/EstimatedMeanTable.h"
#include "charts/PictureBox.h"
#include "charts/TallyChart.h"
#include "controls/Check.h"
#include "controls/GlossButton.h"
#include "controls/ShapedTabs.h"
#include "stats/GroupedData.h"

#include <QLabel>
#include <QTextEdit>

namespace {

// A show button's caption for its state.
QString Caption(bool shown, const char *what)
{
    return (shown ? QStringLiteral("Hide ") : QStringLiteral("Show ")) + QString::fromLatin1(what);
}

} // namespace

GroupsPage::GroupsPage(PageContext &context, zrt::AnalysisState &analysis, DataColumn &column, QWidget *parent,
                       const QRect &geometry)
    : PagePanel(parent), m_context(context), m_analysis(analysis), m_column(column)
{
    setGeometry(geometry);
    hide();
    build();
    connect(this, &PagePanel::Resize, this, [this] { m_context.guard([this] { layoutPage(); }); });
}

void GroupsPage::build()
{
    Label8 = pages::NewLabel(this, QStringLiteral("Current Data to 1/100 th of a second:"), QRect(10, 12, 260, 20));
    lbsort1 = pages::NewLabel(this, QStringLiteral("Sort Data:"), QRect(430, 12, 80, 20));
    Check2 = new zrt::Check(this);
    Check2->setGeometry(510, 12, 24, 20);
    t4 = pages::NumbersBox(this, QRect(10, 40, 780, 100));
    Tab2 = pages::NewTabs(m_context, this,
                          {QStringLiteral("Grouped Data"), QStringLiteral("Estimated Mean"),
                           QStringLiteral("Cumulative Frequency (CF)"), QStringLiteral("CF Plot")},
                          false, [this](int index) { Tab2_Click(index); });
    for (auto &frame : f2) {
        frame = new PagePanel(this);
        frame->setBackColor(MainMod1::PanelColour);
    }
    ptally = pages::Surface(f2[0]);
    pEmean = pages::Surface(f2[1]);
    pCF = pages::Surface(f2[2]);
    ppCF = pages::Surface(f2[3]);
    buildShowButtons();
    keepChartsOnResize();
    connect(Check2, &zrt::Check::Click, this, [this] { m_context.guard([this] { Q_EMIT sortChanged(); }); });
}

void GroupsPage::buildShowButtons()
{
    cmdTally = pages::NewButton(m_context, ptally, Caption(false, "Tally/Frequency"), QRect(0, 0, 170, 28), [this] {
        m_shown.tally = !m_shown.tally;
        cmdTally->setCaption(Caption(m_shown.tally, "Tally/Frequency"));
        Get_Grouped_Data();
    });
    cmdR = pages::NewButton(m_context, pEmean, Caption(false, "Results"), QRect(0, 0, 120, 28), [this] {
        m_shown.results = !m_shown.results;
        cmdR->setCaption(Caption(m_shown.results, "Results"));
        Get_Grouped_Data();
        DrawEstimatedMean();
    });
    cmdCF = pages::NewButton(m_context, pCF, Caption(false, "CF"), QRect(0, 0, 100, 28), [this] {
        m_shown.cumulative = !m_shown.cumulative;
        cmdCF->setCaption(Caption(m_shown.cumulative, "CF"));
        if (m_analysis.GroupedReady)
            DrawCFTable();
    });
    cmdPlot = pages::NewButton(m_context, ppCF, Caption(false, "Plot"), QRect(0, 6, 100, 28), [this] { togglePlot(); });
    Check3 = new zrt::Check(ppCF);
    Check3->setCaption(QStringLiteral("Show Quartiles"));
    Check3->setGeometry(0, 40, 130, 20);
    Check3->setVisible(false);
    connect(Check3, &zrt::Check::Click, this, [this] {
        m_context.guard([this] {
            if (m_analysis.GroupedReady)
                DrawCFPlot();
        });
    });
}

void GroupsPage::togglePlot()
{
    m_shown.plot = !m_shown.plot;
    cmdPlot->setCaption(Caption(m_shown.plot, "Plot"));
    // The quartiles can only be asked for on a shown plot; hiding it forgets the choice.
    Check3->setVisible(m_shown.plot);
    if (!m_shown.plot)
        Check3->setValue(0);
    if (m_analysis.GroupedReady)
        DrawCFPlot();
}

void GroupsPage::keepChartsOnResize()
{
    auto keep = [this](zrt::PictureBox *surface, std::function<void()> place, std::function<void()> draw) {
        connect(surface, &zrt::PictureBox::Resize, this, [this, place, draw] {
            m_context.guard([=, this] {
                if (m_analysis.GroupedReady)
                    draw();
                place();
            });
        });
    };
    keep(ptally, [this] {
        cmdTally->move(ptally->width() - cmdTally->width() - tw(60), ptally->height() - cmdTally->height() - tw(30));
    }, [this] { DrawTally(); });
    keep(pEmean, [this] { cmdR->move(tw(60), pEmean->height() - cmdR->height()); }, [this] { DrawEstimatedMean(); });
    keep(pCF, [this] {
        cmdCF->move(pCF->width() - cmdCF->width() - tw(180), pCF->height() - cmdCF->height() - tw(90));
    }, [this] { DrawCFTable(); });
    keep(ppCF, [this] {
        // Both stay in the band above the plot's top margin, the box left of the button: below
        // it they covered the top of the curve, where its last point (the total) stands.
        cmdPlot->move(ppCF->width() - cmdPlot->width() - tw(90), 0);
        Check3->move(cmdPlot->x() - Check3->width() - 8, 4);
    }, [this] { DrawCFPlot(); });
}

void GroupsPage::layoutPage()
{
    const QRect frame(0, pages::kTabTop + pages::kTabHeight, width(), height() - pages::kTabTop - pages::kTabHeight);
    Tab2->resize(width(), pages::kTabHeight);
    t4->resize(width() - 20, t4->height());
    for (auto *f : f2)
        f->setGeometry(frame);
    for (auto *surface : {ptally, pEmean, pCF, ppCF})
        surface->setGeometry(0, 0, frame.width(), frame.height());
    showTabFrame(Tab2->ActiveTab());
}

void GroupsPage::showTabFrame(int tab)
{
    for (int i = 0; i < 4; ++i)
        f2[i]->setVisible(i == tab);
}

void GroupsPage::open()
{
    Get_Grouped_Data();
    Tab2_Click(0);
}

void GroupsPage::refresh()
{
    Get_Grouped_Data();
    if (!m_analysis.GroupedReady)
        return;
    const int tab = Tab2->ActiveTab();
    if (tab == 1)
        DrawEstimatedMean();
    else if (tab == 2)
        DrawCFTable();
    else if (tab == 3)
        DrawCFPlot();
}

void GroupsPage::Tab2_Click(int index)
{
    Tab2->setActiveTab(index);
    showTabFrame(index);
    if (!m_analysis.GroupedReady)
        return;
    switch (index) {
    case 0: DrawTally(); break;
    case 1: DrawEstimatedMean(); break;
    case 2: DrawCFTable(); break;
    case 3: DrawCFPlot(); break;
    default: break;
    }
}

void GroupsPage::Get_Grouped_Data()
{
    const zrt::CollectedLists lists = m_column.collected();
    zrt::GroupedAnswer answer;
    try {
        answer = zrt::Get_Grouped_Data(zrt::GroupedInput{lists, Check2->Value(), m_column.visualChosen()}, m_analysis);
    } catch (zrt::RunTimeError &e) {
        zrt::ExplainListFailure(e, lists, zrt::AnalysisKind::Groups, m_column.visualChosen() != 1);
        throw;
    }
    t4->setPlainText(QString::fromStdString(answer.dataText).trimmed());
    if (!answer.analysed)
        return;
    DrawTally();
    m_analysis.GroupedReady = true;
}

void GroupsPage::DrawTally() { zrt::DrawTally(*ptally, m_analysis.GroupedData, m_shown.tally); }

void GroupsPage::DrawEstimatedMean() { zrt::DrawEstimatedMean(*pEmean, m_analysis.GroupedData, m_shown.results); }

void GroupsPage::DrawCFTable() { zrt::DrawCFTable(*pCF, m_analysis.GroupedData, m_shown.cumulative); }

void GroupsPage::DrawCFPlot()
{
    zrt::DrawCFPlot(*ppCF, m_analysis.GroupedData, m_shown.plot, Check3->Value() == 1);
}
