// The Groups and Compare analyses as the window runs them: read the lists, call the
// computations, write the texts and tables back, then draw.

#include "app/MainFrm.h"

#include "app/PlainFailures.h"

#include "charts/PictureBox.h"
#include "controls/Check.h"
#include "controls/GlossButton.h"
#include "controls/ucTableView.h"
#include "stats/GroupedData.h"
#include "stats/Spearman.h"

#include <QLabel>
#include <QTextEdit>

void MainFrm::Get_Grouped_Data()
{
    const zrt::CollectedLists lists = collectedLists();
    zrt::GroupedAnswer answer;
    try {
        answer = zrt::Get_Grouped_Data(zrt::GroupedInput{lists, groups.Check2->Value(), Check5[0]->Value()}, analysis);
    } catch (zrt::RunTimeError &e) {
        zrt::ExplainListFailure(e, lists, zrt::AnalysisKind::Groups, Check5[0]->Value() != 1);
        throw;
    }
    groups.t4->setPlainText(QString::fromStdString(answer.t4).trimmed());
    if (!answer.analysed)
        return;
    DrawTally();
    analysis.GroupedReady = true;
}

void MainFrm::Get_Compare_Data()
{
    const zrt::CollectedLists lists = collectedLists();
    zrt::CompareAnswer answer;
    try {
        answer = zrt::Get_Compare_Data(lists, analysis);
    } catch (zrt::RunTimeError &e) {
        zrt::ExplainListFailure(e, lists, zrt::AnalysisKind::Compare, false);
        throw;
    }
    compare.Text1->setPlainText(QString::fromStdString(answer.text1).trimmed());
    if (!answer.analysed)
        return;
    compare.ld->setText(QString::fromStdString(answer.table.ld));
    compare.lbSR->setText(QString::fromStdString(answer.table.lbSR));
    ucTableView *table = compare.ucTableView1;
    table->Clear();
    QList<QStringList> rows;
    for (const auto &texts : answer.table.rowTexts()) {
        QStringList row;
        for (const auto &text : texts)
            row << QString::fromStdString(text);
        rows << row;
    }
    table->RowsAdd(rows);
    DrawScatterGraph();
    DrawCompareBoxPlots();
    analysis.CompareReady = true;
}

void MainFrm::cmdSR_Click()
{
    compare.lbSR->setVisible(!compare.lbSR->isVisible());
    compare.lbc[0]->setVisible(compare.lbSR->isVisible());
    if (compare.lbSR->isVisible()) {
        DrawCorrelationScale();
    } else {
        compare.pFR[1]->Cls();
        compare.pFR[1]->Refresh();
    }
}
