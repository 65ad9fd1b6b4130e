// The window's chart calls: each hands a surface, the page's data and the state of its show
// button to the chart routine; and the explanation boxes that go with the charts.

#include "app/MainFrm.h"

#include "app/PlainFailures.h"

#include "charts/BoxPlots.h"
#include "charts/CorrelationScale.h"
#include "charts/CumulativeFrequency.h"
#include "charts/EstimatedMeanTable.h"
#include "charts/PictureBox.h"
#include "charts/ScatterGraph.h"
#include "charts/StemAndLeaf.h"
#include "charts/TallyChart.h"
#include "controls/Check.h"
#include "controls/GlossButton.h"
#include "controls/RowList.h"
#include "dialogs/MsgBoxes.h"

#include <QLabel>

namespace {

const QString kOutliersText = QStringLiteral(
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

// The explanation boxes all use the information icon and a pale rose ground.
void Explain(const QString &text, const QString &title, QWidget *owner, int formWidth = 0, short shadow = 0)
{
    zrt::MsgBoxArgs args;
    args.Text = text;
    args.Flags = 64;
    args.Title = title;
    args.BackColour = zrt::RGB(227, 207, 207);
    args.FormWidth = formWidth;
    args.Shadow = shadow;
    zrt::msg_Box(args, owner);
}

} // namespace

void MainFrm::DrawBoxPlot()
{
    zrt::DrawBoxPlot(*averages.pBox, analysis.AnalysisData, analysis.results, averages.cl3->ListIndex(),
                     averages.cmdBP->Caption() == QLatin1String("Hide Box Plot"));
}

void MainFrm::DrawStemLeaf()
{
    RowList *source = Check5[0]->Value() == 1 ? cl2 : CL4;
    std::vector<std::string> items;
    for (int i = 0; i < source->ListCount(); ++i)
        items.push_back(source->ItemText(i).toStdString());
    try {
        zrt::DrawStemAndLeaf(*averages.PicSL, items, cl2->ListCount(),
                             averages.cmdSL->Caption() == QLatin1String("Hide Leaves"));
    } catch (zrt::RunTimeError &e) {
        zrt::ExplainListFailure(e, collectedLists(), zrt::AnalysisKind::Averages, source == CL4);
        throw;
    }
}

void MainFrm::DrawTally()
{
    zrt::DrawTally(*groups.ptally, analysis.GroupedData,
                   groups.cmdTally->Caption() == QLatin1String("Hide Tally/Frequency"));
}

void MainFrm::DrawEstimatedMean()
{
    zrt::DrawEstimatedMean(*groups.pEmean, analysis.GroupedData,
                           groups.cmdR->Caption() != QLatin1String("Show Results"));
}

void MainFrm::DrawCFTable()
{
    zrt::DrawCFTable(*groups.pCF, analysis.GroupedData, groups.cmdCF->Caption() == QLatin1String("Hide CF"));
}

void MainFrm::DrawCFPlot()
{
    zrt::DrawCFPlot(*groups.ppCF, analysis.GroupedData, groups.cmdPlot->Caption() == QLatin1String("Hide Plot"),
                    groups.Check3->Value() == 1);
}

void MainFrm::DrawScatterGraph()
{
    zrt::DrawScatter(*compare.pFR[0], analysis.GroupedData, analysis.AnalysisData,
                          compare.cmdSG->Caption() == QLatin1String("Hide Coordinates"), VisualSummary, AudioSummary);
}

void MainFrm::DrawCompareBoxPlots()
{
    const zrt::CompareButtons buttons =
        zrt::DrawCompareBoxPlots(*compare.pFR[2], analysis.GroupedData, analysis.AnalysisData,
                                 compare.cmdBPc->Caption() == QLatin1String("Hide Boxplots"), VisualSummary,
                                 AudioSummary);
    for (auto *button : compare.cmdarr)
        button->resize(buttons.width, button->height());
    compare.cmdarr[0]->move(0, static_cast<int>(buttons.visualTop));
    compare.cmdarr[1]->move(0, static_cast<int>(buttons.audioTop));
    compare.cmdarr[0]->setVisible(buttons.visible);
    compare.cmdarr[1]->setVisible(buttons.visible);
}

void MainFrm::DrawCorrelationScale()
{
    zrt::DrawCorrelationScale(*compare.pFR[1], analysis.results.SpearmanValue);
}

void MainFrm::pFR0_MouseDown(double x, double y)
{
    // Only the red mean point answers a click.
    const double perPixel = compare.pFR[0]->ScaleMode() == zrt::PictureBox::Twips ? zrt::PictureBox::TwipsPerPixel : 1;
    if (!zrt::IsMeanPoint(*compare.pFR[0], static_cast<int>(x / perPixel), static_cast<int>(y / perPixel)))
        return;
    Explain(QString::fromStdString(zrt::MeanPointMessage(VisualSummary, AudioSummary)), QString(), this);
}

void MainFrm::ShowOutliersHelp() { Explain(kOutliersText, QStringLiteral("Outliers"), this, 8055, 60); }

void MainFrm::ShowSummaryDetails(int index)
{
    Explain(QString::fromStdString(zrt::DetailsText(index == 0 ? VisualSummary : AudioSummary)),
            QString::fromLatin1(zrt::DetailsTitle), this);
}
