#include "app/pages/GroupsPage.h"

#include "app/MainMod1.h"
#include "app/PlainFailures.h"
#include "app/pages/ChartWords.h"
#include "app/pages/DataColumn.h"
#include "app/pages/PageContext.h"
#include "app/pages/PageWidgets.h"
#include "charts/ChartPictures.h"
#include "charts/CumulativeFrequency.h"
#include "charts/EstimatedMeanTable.h"
#include "charts/PictureBox.h"
#include "charts/TallyChart.h"
#include "controls/Check.h"
#include "controls/GlossButton.h"
#include "controls/ShapedTabs.h"
#include "i18n/CoreTexts.h"
#include "stats/GroupedData.h"

#include <QCoreApplication>
#include <QLabel>
#include <QTextEdit>

namespace {

// What the four show buttons show.
const char *const kTally = QT_TRANSLATE_NOOP("GroupsPage", "Tally/Frequency");
const char *const kResults = QT_TRANSLATE_NOOP("GroupsPage", "Results");
const char *const kCF = QT_TRANSLATE_NOOP("GroupsPage", "CF");
const char *const kPlot = QT_TRANSLATE_NOOP("GroupsPage", "Plot");

// A show button's caption for its state.
QString Caption(bool shown, const char *what)
{
    // Whole phrases, so that a language may put the verb after the object.
    const QString object = QCoreApplication::translate("GroupsPage", what);
    return shown ? QCoreApplication::translate("GroupsPage", "Hide %1").arg(object)
                 : QCoreApplication::translate("GroupsPage", "Show %1").arg(object);
}

} // namespace

GroupsPage::GroupsPage(PageContext &context, zrt::AnalysisState &analysis, DataColumn &column, QWidget *parent,
                       const QRect &geometry)
    : DeferredPage(parent), m_context(context), m_analysis(analysis), m_column(column)
{
    setGeometry(geometry);
    hide();
}

void GroupsPage::buildControls()
{
    build();
    connect(this, &PagePanel::Resize, this, [this] { m_context.guard([this] { layoutPage(); }); });
    layoutPage();
}

void GroupsPage::build()
{
    Label8 = pages::NewLabel(this, tr("Current Data to 1/100 th of a second:"), QRect(10, 12, 260, 20));
    lbsort1 = pages::NewLabel(this, tr("Sort Data:"), QRect(430, 12, 80, 20));
    Check2 = new zrt::Check(this);
    Check2->setGeometry(510, 12, 24, 20);
    t4 = pages::NumbersBox(this, QRect(10, 40, 780, 100));
    Tab2 = pages::NewTabs(m_context, this,
                          {tr("Grouped Data"), tr("Estimated Mean"),
                           tr("Cumulative Frequency (CF)"), tr("CF Plot")},
                          false, [this](int index) { Tab2_Click(index); });
    for (auto &frame : f2) {
        frame = new PagePanel(this);
        frame->setBackColor(MainMod1::PanelColour);
    }
    ptally = pages::Surface(f2[0]);
    pEmean = pages::Surface(f2[1]);
    pCF = pages::Surface(f2[2]);
    ppCF = pages::Surface(f2[3]);
    zrt::ChartPictureMenu::Attach(ptally, tr("the tally and frequency table"));
    zrt::ChartPictureMenu::Attach(pEmean, tr("the estimated mean table"));
    zrt::ChartPictureMenu::Attach(pCF, tr("the cumulative frequency table"));
    zrt::ChartPictureMenu::Attach(ppCF, tr("the cumulative frequency plot"));
    buildShowButtons();
    keepChartsOnResize();
    nameForScreenReaders();
    connect(Check2, &zrt::Check::Click, this, [this] { m_context.guard([this] { Q_EMIT sortChanged(); }); });
    orderTabs();
}

// The plot's tab holds the quartiles' box left of the show button: Tab takes it first.
void GroupsPage::orderTabs() { pages::TabOrder({Check3, cmdPlot}); }

void GroupsPage::buildShowButtons()
{
    cmdTally = pages::NewButton(m_context, ptally, Caption(false, kTally), QRect(0, 0, 170, 28), [this] {
        m_shown.tally = !m_shown.tally;
        cmdTally->setCaption(Caption(m_shown.tally, kTally));
        Get_Grouped_Data();
    });
    cmdR = pages::NewButton(m_context, pEmean, Caption(false, kResults), QRect(0, 0, 120, 28), [this] {
        m_shown.results = !m_shown.results;
        cmdR->setCaption(Caption(m_shown.results, kResults));
        Get_Grouped_Data();
        DrawEstimatedMean();
    });
    cmdCF = pages::NewButton(m_context, pCF, Caption(false, kCF), QRect(0, 0, 100, 28), [this] {
        m_shown.cumulative = !m_shown.cumulative;
        cmdCF->setCaption(Caption(m_shown.cumulative, kCF));
        if (m_analysis.GroupedReady)
            DrawCFTable();
    });
    cmdPlot = pages::NewButton(m_context, ppCF, Caption(false, kPlot), QRect(0, 6, 100, 28), [this] { togglePlot(); });
    Check3 = new zrt::Check(ppCF);
    Check3->setCaption(tr("Show Quartiles"));
    Check3->setGeometry(0, 40, 130, 20);
    Check3->setVisible(false);
    connect(Check3, &zrt::Check::Click, this, [this] {
        m_context.guard([this] {
            if (m_analysis.GroupedReady)
                DrawCFPlot();
        });
    });
}

void GroupsPage::nameForScreenReaders()
{
    Label8->setBuddy(t4);
    lbsort1->setBuddy(Check2);
    Check2->setAccessibleName(tr("Sort data"));
    Tab2->setAccessibleName(tr("Grouped data views"));
    ptally->setAccessibleName(tr("Tally and frequency table"));
    pEmean->setAccessibleName(tr("Estimated mean table"));
    pCF->setAccessibleName(tr("Cumulative frequency table"));
    ppCF->setAccessibleName(tr("Cumulative frequency plot"));
}

void GroupsPage::describeCharts()
{
    if (!m_analysis.GroupedReady) {
        for (auto *surface : {ptally, pEmean, pCF, ppCF})
            surface->setTextAlternative(QString());
        return;
    }
    // The words name every class and are asked for far less often than the charts are drawn:
    // each chart's are made when a screen reader first reads them.
    for (zrt::PictureBox *surface : {ptally, pEmean, pCF, ppCF})
        surface->setTextAlternativeSource([this, surface] {
            try {
                return chartWords(surface);
            } catch (const zrt::RunTimeError &) {
                return QString(); // data the charts could not show either
            }
        });
}

QString GroupsPage::chartWords(const zrt::PictureBox *surface) const
{
    std::vector<int> data = m_analysis.GroupedData;
    const zrt::ClassTable t = zrt::BuildClassTable(data);
    const bool audio = m_column.visualChosen() != 1;
    const int count = static_cast<int>(data.size());
    QString classes;
    QStringList frequencies, products, cumulative, points;
    if (!t.rows.empty()) {
        classes = tr("%n classes from %1 to %2.", nullptr, static_cast<int>(t.rows.size()))
                      .arg(t.lowestStem * 10)
                      .arg((t.highestStem + 1) * 10);
        for (const zrt::ClassRow &row : t.rows) {
            frequencies << tr("%1: %2").arg(pages::ClassWords(row.stem, row.stem)).arg(row.frequency);
            products << tr("%1: midpoint %2 times frequency %3 is %4")
                            .arg(pages::ClassWords(row.stem, row.stem))
                            .arg(row.midpoint)
                            .arg(row.frequency)
                            .arg(row.product);
            cumulative << tr("%1: %2").arg(pages::ClassWords(t.lowestStem, row.stem)).arg(row.cumulative);
            points << tr("(%1, %2)").arg((row.stem + 1) * 10).arg(row.cumulative);
        }
    }
    const QString frequencyWords = tr("Frequencies: %1.").arg(frequencies.join(QStringLiteral("; ")));

    QString tally = pages::Sentences({pages::ChartIntro(tr("Tally and frequency table"), audio, count, 0), classes});
    if (m_shown.tally && !t.rows.empty())
        tally = pages::Sentences({tally, frequencyWords});
    if (surface == ptally)
        return tally;

    QString mean = pages::Sentences({pages::ChartIntro(tr("Estimated mean table"), audio, count, 0), classes});
    if (m_shown.results && t.frequencyTotal > 0)
        mean = pages::Sentences({mean, products.join(QStringLiteral("; ")) + QLatin1Char('.'),
                                 tr("Total frequency %1, total of the products %2.")
                                     .arg(t.frequencyTotal)
                                     .arg(t.productTotal),
                                 CoreTexts::tr(zrt::EstimatedMeanText(t))});
    if (surface == pEmean)
        return mean;

    // The frequencies stand in this table before its button is pressed; the button adds the
    // cumulative ones.
    QString table = pages::Sentences({pages::ChartIntro(tr("Cumulative frequency table"), audio, count, 0), classes,
                                      t.rows.empty() ? QString() : frequencyWords});
    if (m_shown.cumulative && !t.rows.empty())
        table = pages::Sentences(
            {table, tr("Cumulative frequencies: %1.").arg(cumulative.join(QStringLiteral("; ")))});
    if (surface == pCF)
        return table;

    QString plot = pages::ChartIntro(tr("Cumulative frequency plot"), audio, count, 0);
    if (m_shown.plot && !t.rows.empty()) {
        plot = pages::Sentences({plot, tr("Points of the curve, time and cumulative frequency: %1.")
                                           .arg(points.join(QStringLiteral(", ")))});
        const QString names[] = {tr("median"), tr("lower quartile"), tr("upper quartile")};
        QStringList readings;
        for (size_t i = 0; i < m_readings.size(); ++i)
            if (m_readings[i] >= 0)
                readings << tr("%1 %2").arg(names[i]).arg(m_readings[i]);
        if (Check3->Value() == 1 && !readings.isEmpty())
            plot = pages::Sentences({plot, tr("Read from the curve: %1.").arg(readings.join(QStringLiteral(", ")))});
    }
    return plot;
}

void GroupsPage::togglePlot()
{
    m_shown.plot = !m_shown.plot;
    cmdPlot->setCaption(Caption(m_shown.plot, kPlot));
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
    const QRect frame = pages::TabFrameRect(this);
    Tab2->resize(width(), pages::kTabHeight);
    t4->resize(width() - 20, t4->height());
    for (auto *f : f2)
        f->setGeometry(frame);
    for (auto *surface : {ptally, pEmean, pCF, ppCF})
        surface->setGeometry(0, 0, frame.width(), frame.height());
    showTabFrame(Tab2->ActiveTab());
}

void GroupsPage::showTabFrame(int tab) { pages::ShowTabFrame(f2, tab); }

void GroupsPage::open()
{
    ensureBuilt();
    Get_Grouped_Data();
    Tab2_Click(0);
}

void GroupsPage::refresh()
{
    if (!isBuilt())
        return;
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
    t4->setPlainText(CoreTexts::tr(answer.dataText).trimmed());
    // What the plot read belongs to the data it was drawn from.
    m_readings = {-1, -1, -1};
    if (!answer.analysed) {
        for (auto *surface : {ptally, pEmean, pCF, ppCF})
            surface->setTextAlternative(QString());
        return;
    }
    DrawTally();
    m_analysis.GroupedReady = true;
    describeCharts();
}

void GroupsPage::DrawTally()
{
    zrt::DrawTally(*ptally, m_analysis.GroupedData, m_shown.tally);
    describeCharts();
}

void GroupsPage::DrawEstimatedMean()
{
    zrt::DrawEstimatedMean(*pEmean, m_analysis.GroupedData, m_shown.results);
    describeCharts();
}

void GroupsPage::DrawCFTable()
{
    zrt::DrawCFTable(*pCF, m_analysis.GroupedData, m_shown.cumulative);
    describeCharts();
}

void GroupsPage::DrawCFPlot()
{
    m_readings = zrt::DrawCFPlot(*ppCF, m_analysis.GroupedData, m_shown.plot, Check3->Value() == 1);
    describeCharts();
}
