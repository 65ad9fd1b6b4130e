#include "app/pages/AveragesPage.h"

#include "app/MainMod1.h"
#include "app/PlainFailures.h"
#include "app/pages/ChartWords.h"
#include "app/pages/DataColumn.h"
#include "app/pages/PageContext.h"
#include "app/pages/PageWidgets.h"
#include "charts/BoxPlots.h"
#include "charts/ChartPictures.h"
#include "charts/PictureBox.h"
#include "charts/StemAndLeaf.h"
#include "controls/Check.h"
#include "controls/DropPanel.h"
#include "controls/GlossButton.h"
#include "controls/RowList.h"
#include "controls/ShapedTabs.h"
#include "i18n/CoreTexts.h"
#include "stats/Averages.h"

#include <QCoreApplication>
#include <QLabel>
#include <QSignalBlocker>
#include <QTextEdit>

namespace {

const char *const kOutliersText = QT_TRANSLATE_NOOP(
    "AveragesPage",
    "An outlier is an observation in a data set which is far removed in value from the others in the data set. "
    "It is an unusually large or an unusually small value compared to the others.\n\n"
    "An outlier might be the result of an error in measurement, in which case it will distort the "
    "interpretation of the data, having undue influence on many summary statistics, for example, the mean.\n\n"
    "If an outlier is a genuine result, it is important because it might indicate an extreme of behaviour of "
    "the process under study. For this reason, all outliers must be examined carefully before embarking on any "
    "formal analysis. Outliers should not routinely be removed without further justification.\n\n"
    "The lower and Upper outlier calculations determine the lowest value and highest value required before a "
    "data item can be counted as an outlier. The calculation use the formulas:\n\n"
    "Lower Outlier Calculation = Q1 - (1.5 x IQR) and the Upper Outlier Calculation = Q3 + (1.5 x IQR)");

// A question button swaps its answer in and out of the label beside it.
void Toggle(QLabel *answer, const QString &text) { answer->setText(answer->text().isEmpty() ? text : QString()); }

} // namespace

AveragesPage::AveragesPage(PageContext &context, zrt::AnalysisState &analysis, DataColumn &column, QWidget *parent,
                           const QRect &geometry)
    : DeferredPage(parent), m_context(context), m_analysis(analysis), m_column(column)
{
    setGeometry(geometry);
    hide();
}

void AveragesPage::buildControls()
{
    build();
    // The first precision, chosen quietly: opening the page runs the analysis.
    {
        const QSignalBlocker quiet(cl3);
        cl3->setListIndex(0);
    }
    connect(this, &PagePanel::Resize, this, [this] { m_context.guard([this] { layoutPage(); }); });
    layoutPage();
}

void AveragesPage::build()
{
    Label6 = pages::NewLabel(this, tr("Current Data to the nearest "), QRect(10, 12, 170, 20));
    DD3 = new zrt::DropPanel(this);
    DD3->setGeometry(180, 10, 110, 22);
    cl3 = new zrt::RowList(DD3);
    for (const char *item : zrt::kPrecisionItems)
        cl3->AddItem(CoreTexts::tr(item));
    cl3->setBackStyle(1);
    cl3->resize(DD3->width(), 3 * 16 + 4);
    DD3->PlaceInBody(cl3);
    DD3->setTitle(CoreTexts::tr(zrt::kPrecisionItems[0]));
    Label7 = pages::NewLabel(this, tr("of a second"), QRect(298, 12, 100, 20));
    lbsort = pages::NewLabel(this, tr("Sort Data Items:"), QRect(430, 12, 110, 20));
    Check1 = new zrt::Check(this);
    Check1->setGeometry(540, 12, 24, 20);
    t1 = pages::NumbersBox(this, QRect(10, 40, 780, 78));
    l8 = pages::NewLabel(this, QString(), QRect(10, 122, 300, 22));
    Tab1 = pages::NewTabs(m_context, this,
                          {tr("Averages Info"), tr("Distribution"), tr("Box Plot"),
                           tr("Stem & Leaf")},
                          true, [this](int index) { Tab1_Click(index); });
    for (auto &frame : F1) {
        frame = new PagePanel(this);
        frame->setBackColor(MainMod1::PanelColour);
    }
    buildQuestions();
    buildCharts();
    nameForScreenReaders();
    connect(cl3, &zrt::RowList::ListIndexChange, this, [this] { m_context.guard([this] { cl3_Click(); }); });
    connect(Check1, &zrt::Check::Click, this, [this] { m_context.guard([this] { Q_EMIT sortChanged(); }); });
}

void AveragesPage::buildQuestions()
{
    for (int i = 0; i < 9; ++i) {
        const int y = 8 + i * 32;
        cmd1[i] = pages::NewButton(m_context, F1[0], CoreTexts::tr(zrt::kCmd1Captions[i]), QRect(12, y, 180, 28),
                                   [this, i] { Toggle(lb1[i], m_summaryAnswers[i]); });
        lb1[i] = pages::AnswerLabel(F1[0], QRect(200, y + 2, 200, 24));
    }
    cmdshowall = pages::NewButton(m_context, F1[0], tr("Show All"), QRect(430, 8, 110, 28), [this] {
        for (int i = 0; i < 9; ++i)
            lb1[i]->setText(m_summaryAnswers[i]);
    });
    for (int i = 0; i < 4; ++i) {
        const int y = 8 + i * 36;
        cmd2[i] = pages::NewButton(m_context, F1[1], CoreTexts::tr(zrt::kCmd2Captions[i]), QRect(12, y, 210, 30),
                                   [this, i] { Toggle(lb2[i], m_spreadAnswers[i]); });
        lb2[i] = pages::AnswerLabel(F1[1], QRect(232, y + 3, 200, 24));
    }
    cmdSA = pages::NewButton(m_context, F1[1], tr("Show All"), QRect(12, 8 + 4 * 36, 110, 28), [this] {
        for (int i = 0; i < 4; ++i)
            lb2[i]->setText(m_spreadAnswers[i]);
    });
    cmdinfo = pages::NewButton(m_context, F1[1], QStringLiteral("?"), QRect(442, 8, 30, 66),
                               [this] { ShowOutliersHelp(); });
}

void AveragesPage::buildCharts()
{
    pBox = pages::Surface(F1[2]);
    cmdBP = pages::NewButton(m_context, pBox, tr("Show Box Plot"), QRect(0, 6, 120, 28),
                             [this] { toggleBoxPlot(); });
    PicSL = pages::Surface(F1[3]);
    cmdSL = pages::NewButton(m_context, PicSL, tr("Show Leaves"), QRect(0, 6, 110, 28),
                             [this] { toggleLeaves(); });
    // Each chart can be taken out as a picture from its context menu.
    zrt::ChartPictureMenu::Attach(pBox, tr("the box plot"));
    zrt::ChartPictureMenu::Attach(PicSL, tr("the stem and leaf diagram"));
    connect(pBox, &zrt::PictureBox::Resize, this, [this] {
        m_context.guard([this] {
            // The button keeps its corner: 90 twips from the top and the right.
            cmdBP->move(pBox->width() - cmdBP->width() - tw(90), tw(90));
            if (m_analysis.results.SampleSize != 0)
                DrawBoxPlot();
        });
    });
    connect(PicSL, &zrt::PictureBox::Resize, this, [this] {
        m_context.guard([this] {
            cmdSL->move(PicSL->width() - cmdSL->width() - tw(90), tw(90));
            if (m_analysis.results.SampleSize != 0)
                DrawStemLeaf();
        });
    });
}

void AveragesPage::nameForScreenReaders()
{
    Label6->setBuddy(DD3);
    DD3->setAccessibleName(tr("Current data to the nearest"));
    cl3->setAccessibleName(DD3->accessibleName());
    t1->setAccessibleName(tr("Current data"));
    lbsort->setBuddy(Check1);
    Check1->setAccessibleName(tr("Sort data items"));
    Tab1->setAccessibleName(tr("Averages views"));
    cmdinfo->setAccessibleDescription(tr("What an outlier is"));
    pBox->setAccessibleName(tr("Box plot"));
    PicSL->setAccessibleName(tr("Stem and leaf diagram"));
}

void AveragesPage::describeCharts()
{
    const zrt::AnalysisResults &r = m_analysis.results;
    // The answers are emptied whenever the data change and set again only by an analysis that
    // succeeds; without them the results belong to data that are gone.
    if (r.SampleSize == 0 || m_summaryAnswers[0].isEmpty()) {
        pBox->setTextAlternative(QString());
        PicSL->setTextAlternative(QString());
        return;
    }
    const bool audio = m_column.visualChosen() != 1;
    QString box = pages::ChartIntro(tr("Box plot"), audio, r.SampleSize, cl3->ListIndex());
    if (m_boxPlotShown)
        box = pages::Sentences({box, pages::FiveNumbers(r.LowestValue, r.LowerQuartile, r.MedianValue,
                                                        r.UpperQuartile, r.HighestValue) +
                                         QLatin1Char('.')});
    pBox->setTextAlternative(box);

    // The diagram's words ask for every leaf: made only when a screen reader reads them.
    PicSL->setTextAlternativeSource([this, audio] { return stemLeafWords(audio); });
}

QString AveragesPage::stemLeafWords(bool audio) const
{
    // The stem and leaf diagram is always in hundredths, of as many times as the visual list has.
    const zrt::CollectedLists lists = m_column.collected();
    const std::vector<std::string> &items = audio ? lists.audio : lists.visual;
    QStringList stems;
    QStringList leaves;
    try {
        std::vector<int> values(lists.visual.size(), 0);
        const zrt::PrecisionScale hundredths = zrt::ScaleOfPrecision(0);
        for (size_t i = 0; i < items.size() && i < values.size(); ++i)
            values[i] = zrt::ScaledItem(items[i], hundredths);
        for (const zrt::StemRow &row : zrt::StemRows(values)) {
            stems << QString::fromStdString(row.stem);
            const QString rowLeaves = QString::fromStdString(row.leaves).trimmed();
            leaves << tr("stem %1: %2").arg(stems.back(), rowLeaves.isEmpty() ? tr("no leaves") : rowLeaves);
        }
    } catch (const zrt::RunTimeError &) {
        // A list the diagram cannot show; the drawing reports it, the words say only what it is.
        stems.clear();
        leaves.clear();
    }
    QString diagram = pages::ChartIntro(tr("Stem and leaf diagram"), audio, static_cast<int>(lists.visual.size()), 0);
    if (!stems.isEmpty())
        diagram = pages::Sentences({diagram, tr("Stems %1 to %2.").arg(stems.front(), stems.back())});
    if (m_leavesShown && !leaves.isEmpty())
        diagram = pages::Sentences({diagram, leaves.join(QStringLiteral("; ")) + QLatin1Char('.'),
                                    CoreTexts::tr(zrt::StemKeyText)});
    return diagram;
}

void AveragesPage::toggleBoxPlot()
{
    m_boxPlotShown = !m_boxPlotShown;
    cmdBP->setCaption(m_boxPlotShown ? tr("Hide Box Plot") : tr("Show Box Plot"));
    if (m_analysis.results.SampleSize != 0)
        DrawBoxPlot();
}

void AveragesPage::toggleLeaves()
{
    m_leavesShown = !m_leavesShown;
    cmdSL->setCaption(m_leavesShown ? tr("Hide Leaves") : tr("Show Leaves"));
    DrawStemLeaf();
}

void AveragesPage::layoutPage()
{
    const QRect frame = pages::TabFrameRect(this);
    Tab1->resize(width(), pages::kTabHeight);
    t1->resize(width() - 20, t1->height());
    for (auto *f : F1)
        f->setGeometry(frame);
    pBox->setGeometry(0, 0, frame.width(), frame.height());
    PicSL->setGeometry(0, 0, frame.width(), frame.height());
    showTabFrame(Tab1->ActiveTab());
}

void AveragesPage::showTabFrame(int tab) { pages::ShowTabFrame(F1, tab); }

void AveragesPage::open()
{
    ensureBuilt();
    Get_Averages();
    Tab1_Click(0);
}

void AveragesPage::refresh()
{
    if (!isBuilt())
        return;
    Reset_tags();
    Get_Averages();
    if (m_analysis.results.SampleSize == 0)
        return;
    if (F1[2]->isVisible())
        DrawBoxPlot();
    if (F1[3]->isVisible())
        DrawStemLeaf();
}

void AveragesPage::Tab1_Click(int index)
{
    Tab1->setActiveTab(index);
    showTabFrame(index);
    if (m_analysis.results.SampleSize == 0)
        return;
    if (index == 2)
        DrawBoxPlot();
    else if (index == 3)
        DrawStemLeaf();
}

void AveragesPage::Reset_tags()
{
    m_summaryAnswers.fill(QString());
    m_spreadAnswers.fill(QString());
    if (!isBuilt())
        return;
    l8->setText(QString());
    Clear_Displayed_Data();
    describeCharts();
}

void AveragesPage::Clear_Displayed_Data()
{
    for (auto *label : lb1)
        label->setText(QString());
    for (auto *label : lb2)
        label->setText(QString());
}

void AveragesPage::cl3_Click()
{
    if (cl3->ListIndex() >= 0)
        DD3->setTitle(cl3->ItemText(cl3->ListIndex()));
    DD3->Collapse();
    Get_Averages();
    // No stale answer may stand against the new units.
    Clear_Displayed_Data();
}

void AveragesPage::Get_Averages()
{
    const zrt::CollectedLists lists = m_column.collected();
    const zrt::AveragesInput input{lists, cl3->ListIndex(), Check1->Value(), m_column.visualChosen()};
    zrt::AveragesAnswer answer;
    try {
        answer = zrt::Get_Averages(input, m_analysis);
    } catch (zrt::RunTimeError &e) {
        zrt::ExplainListFailure(e, lists, zrt::AnalysisKind::Averages, m_column.visualChosen() != 1);
        throw;
    }
    switch (answer.outcome) {
    case zrt::AveragesAnswer::Outcome::PrecisionReset:
        cl3->setListIndex(0); // its click runs the analysis again
        return;
    case zrt::AveragesAnswer::Outcome::Message:
        Reset_tags();
        t1->setPlainText(CoreTexts::tr(answer.dataText).trimmed());
        return;
    case zrt::AveragesAnswer::Outcome::Analysed:
        break;
    }
    t1->setPlainText(QString::fromStdString(answer.dataText).trimmed());
    for (int i = 0; i < 9; ++i)
        m_summaryAnswers[i] = CoreTexts::tr(answer.summaryAnswers[i]); // the mode may be "N/A"
    for (int i = 0; i < 4; ++i)
        m_spreadAnswers[i] = QString::fromStdString(answer.spreadAnswers[i]);
    l8->setText(CoreTexts::tr(answer.sampleSizeText).trimmed());
    describeCharts();
}

void AveragesPage::DrawBoxPlot()
{
    zrt::DrawBoxPlot(*pBox, m_analysis.AnalysisData, m_analysis.results, cl3->ListIndex(), m_boxPlotShown);
    describeCharts();
}

void AveragesPage::DrawStemLeaf()
{
    const zrt::CollectedLists lists = m_column.collected();
    const bool audio = m_column.visualChosen() != 1;
    try {
        zrt::DrawStemAndLeaf(*PicSL, audio ? lists.audio : lists.visual, static_cast<int>(lists.visual.size()),
                             m_leavesShown);
    } catch (zrt::RunTimeError &e) {
        zrt::ExplainListFailure(e, lists, zrt::AnalysisKind::Averages, audio);
        throw;
    }
    describeCharts();
}

void AveragesPage::ShowOutliersHelp() { pages::Explain(tr(kOutliersText), tr("Outliers"), window(), 8055, 60); }
