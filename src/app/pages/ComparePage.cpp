#include "app/pages/ComparePage.h"

#include "app/PlainFailures.h"
#include "app/pages/ChartWords.h"
#include "app/pages/DataColumn.h"
#include "app/pages/PageContext.h"
#include "app/pages/PageWidgets.h"
#include "charts/ChartPictures.h"
#include "charts/CorrelationScale.h"
#include "charts/PictureBox.h"
#include "charts/ScatterGraph.h"
#include "controls/GlossButton.h"
#include "controls/ShapedTabs.h"
#include "controls/ucTableView.h"
#include "dialogs/MsgBoxes.h"
#include "i18n/CoreTexts.h"
#include "stats/Spearman.h"

#include <QCoreApplication>
#include <QLabel>
#include <QTextEdit>

#include <algorithm>

ComparePage::ComparePage(PageContext &context, zrt::AnalysisState &analysis, DataColumn &column, QWidget *parent,
                         const QRect &geometry)
    : DeferredPage(parent), m_context(context), m_analysis(analysis), m_column(column)
{
    setGeometry(geometry);
    hide();
}

void ComparePage::buildControls()
{
    build();
    connect(this, &PagePanel::Resize, this, [this] { m_context.guard([this] { layoutPage(); }); });
    layoutPage();
}

void ComparePage::build()
{
    Label9 = pages::NewLabel(this, tr("Data pairs (to 1/100 th of a second)"), QRect(10, 12, 300, 20));
    Text1 = pages::NumbersBox(this, QRect(10, 40, 780, 100));
    ShapedTabs1 = pages::NewTabs(m_context, this,
                                 {tr("Scatter Graph"), tr("Spearman's Rank"),
                                  tr("Boxplots")},
                                 false, [this](int index) { ShapedTabs1_Click(index); });
    for (auto &surface : pFR)
        surface = pages::Surface(this);
    cmdSG = pages::NewButton(m_context, pFR[0], tr("Show Coordinates"), QRect(0, 6, 140, 28), [this] {
        m_coordinatesShown = !m_coordinatesShown;
        cmdSG->setCaption(m_coordinatesShown ? tr("Hide Coordinates") : tr("Show Coordinates"));
        if (m_analysis.CompareReady)
            Get_Compare_Data();
    });
    connect(pFR[0], &zrt::PictureBox::Resize, this, [this] {
        m_context.guard([this] {
            cmdSG->move(pFR[0]->width() - cmdSG->width() - tw(90), tw(90));
            if (m_analysis.CompareReady)
                Get_Compare_Data();
        });
    });
    connect(pFR[0], &zrt::PictureBox::MouseDown, this,
            [this](Qt::MouseButton, Qt::KeyboardModifiers, double x, double y) {
                m_context.guard([=, this] { pFR0_MouseDown(x, y); });
            });
    zrt::ChartPictureMenu::Attach(pFR[0], tr("the scatter graph"));
    zrt::ChartPictureMenu::Attach(pFR[1], tr("the correlation scale"));
    zrt::ChartPictureMenu::Attach(pFR[2], tr("the box plots"));
    buildRankTab();
    buildBoxPlotsTab();
    nameForScreenReaders();
}

void ComparePage::nameForScreenReaders()
{
    Label9->setBuddy(Text1);
    ShapedTabs1->setAccessibleName(tr("Comparison views"));
    pFR[0]->setAccessibleName(tr("Scatter graph"));
    pFR[1]->setAccessibleName(tr("Correlation scale"));
    pFR[2]->setAccessibleName(tr("Box plots"));
    ucTableView1->setAccessibleName(tr("Spearman's rank table"));
    for (int i = 0; i < 2; ++i)
        cmdarr[i]->setAccessibleDescription(i == 0 ? tr("Details of the visual box plot")
                                                    : tr("Details of the audio box plot"));
}

void ComparePage::describeCharts()
{
    if (!m_analysis.CompareReady) {
        for (auto *surface : pFR)
            surface->setTextAlternative(QString());
        return;
    }
    const int pairs = VisualSummary.count;
    QString scatter = tr("Scatter graph of audio against visual reaction times, %n pairs, in hundredths of a second.",
                         nullptr, pairs);
    if (m_coordinatesShown)
        scatter = pages::Sentences({scatter, tr("The points are shown; their mean point is (%1, %2).")
                                                 .arg(pages::Number(VisualSummary.mean),
                                                      pages::Number(AudioSummary.mean))});
    pFR[0]->setTextAlternative(scatter);

    QString scale = tr("Correlation scale from perfect negative correlation, -1, through no correlation, 0, to "
                       "perfect positive correlation, 1.");
    if (!lbSR->isHidden())
        scale = pages::Sentences({scale, tr("The arrow marks Spearman's rank correlation coefficient r %1.")
                                             .arg(lbSR->text())});
    pFR[1]->setTextAlternative(scale);

    QString boxes = tr("Box plots of visual and audio reaction times, %n pairs, in hundredths of a second.", nullptr,
                       pairs);
    if (m_boxPlotsShown) {
        auto five = [](const zrt::BoxSummary &s) {
            return pages::FiveNumbers(s.lowest, s.lowerQuartile, s.median, s.upperQuartile, s.highest);
        };
        boxes = pages::Sentences({boxes, tr("Visual: %1.").arg(five(VisualSummary)),
                                  tr("Audio: %1.").arg(five(AudioSummary))});
    }
    pFR[2]->setTextAlternative(boxes);
}

void ComparePage::buildRankTab()
{
    ucTableView1 = new zrt::ucTableView(pFR[1]);
    ucTableView1->Initialize();
    for (size_t i = 0; i < zrt::kRankColumnCaptions.size(); ++i)
        ucTableView1->ColumnAdd(static_cast<int>(i), CoreTexts::tr(zrt::kRankColumnCaptions[i]),
                                zrt::kRankColumnWidths[i], 0);
    ucTableView1->setRaiseSubItemPrePaint(true);
    ucTableView1->setBackColor(zrt::RGB(241, 241, 217));
    ucTableView1->setBorderStyle(0);
    ucTableView1->setViewMode(1);
    ucTableView1->setCheckBoxes(false);
    ucTableView1->setGridLines(false);
    ucTableView1->setFullRowSelect(true);
    ucTableView1->setHeaderFlat(true);
    ucTableView1->setMultiSelect(false);
    pdsqr = new QLabel(pFR[1]);
    pdsqr->setText(QStringLiteral("<i>r</i> = 1 &minus; 6&Sigma;<i>d</i>&sup2; / <i>n</i>(<i>n</i>&sup2; &minus; 1)"));
    pdsqr->setStyleSheet(QStringLiteral("QLabel { background: white; font-size: 15px; padding: 4px; }"));
    ld = pages::NewLabel(pFR[1], QString(), QRect(0, 0, 160, 22));
    cmdSR = pages::NewButton(m_context, pFR[1], tr("Spearman's Rank"), QRect(0, 0, 140, 28),
                             [this] { cmdSR_Click(); });
    lbSR = pages::NewLabel(pFR[1], QString(), QRect(0, 0, 160, 22));
    lbSR->hide();
    const char *ends[] = {QT_TRANSLATE_NOOP("ComparePage", "Perfect Negative Correlation"),
                          QT_TRANSLATE_NOOP("ComparePage", "No Correlation"),
                          QT_TRANSLATE_NOOP("ComparePage", "Perfect Positive Correlation")};
    for (int i = 0; i < 3; ++i) {
        lbc[i] = pages::NewLabel(pFR[1], tr(ends[i]), QRect(0, 0, 190, 20));
        lbc[i]->setAlignment(i == 0 ? Qt::AlignLeft : i == 1 ? Qt::AlignHCenter : Qt::AlignRight);
    }
    lbc[0]->hide();
    connect(pFR[1], &zrt::PictureBox::Resize, this, [this] { m_context.guard([this] { layoutRankTab(); }); });
}

void ComparePage::buildBoxPlotsTab()
{
    cmdBPc = pages::NewButton(m_context, pFR[2], tr("Show Boxplots"), QRect(0, 6, 120, 28), [this] {
        m_boxPlotsShown = !m_boxPlotsShown;
        cmdBPc->setCaption(m_boxPlotsShown ? tr("Hide Boxplots") : tr("Show Boxplots"));
        if (m_analysis.CompareReady)
            Get_Compare_Data();
    });
    for (int i = 0; i < 2; ++i) {
        cmdarr[i] = pages::NewButton(m_context, pFR[2], i == 0 ? tr("Visual") : tr("Audio"),
                                     QRect(0, 0, 60, 26), [this, i] { ShowSummaryDetails(i); });
        cmdarr[i]->hide();
    }
    connect(pFR[2], &zrt::PictureBox::Resize, this, [this] {
        m_context.guard([this] {
            cmdBPc->move(pFR[2]->width() - cmdBPc->width() - tw(90), tw(90));
            if (m_analysis.CompareReady)
                DrawCompareBoxPlots();
        });
    });
}

void ComparePage::layoutPage()
{
    const QRect frame = pages::TabFrameRect(this);
    ShapedTabs1->resize(width(), pages::kTabHeight);
    Text1->resize(width() - 20, Text1->height());
    for (auto *surface : pFR)
        surface->setGeometry(frame);
    showTabFrame(ShapedTabs1->ActiveTab());
}

void ComparePage::layoutRankTab()
{
    zrt::PictureBox *surface = pFR[1];
    const int w = surface->width();
    const int tableWidth = std::min(w - 20, 520);
    ucTableView1->setGeometry((w - tableWidth) / 2, 10, tableWidth, std::max(60, surface->height() / 2 - 20));
    const int below = ucTableView1->y() + ucTableView1->height() + 8;
    // The formula is never cut: as wide as its text, and moved left where the surface ends.
    const int formulaWidth = std::max(240, pdsqr->sizeHint().width());
    pdsqr->setGeometry(std::max(0, std::min(tw(5900), w - formulaWidth)), below, formulaWidth, 30);
    ld->move(ucTableView1->x(), below);
    cmdSR->move(ucTableView1->x(), below + 30);
    lbSR->move(cmdSR->x() + cmdSR->width() + 10, below + 34);
    const int labelsTop = surface->height() - 90;
    lbc[0]->move(0, labelsTop);
    lbc[1]->move(w / 2 - lbc[1]->width() / 2, labelsTop);
    lbc[2]->move(w - lbc[2]->width(), labelsTop);
    if (lbSR->isVisible())
        DrawCorrelationScale();
}

void ComparePage::showTabFrame(int tab) { pages::ShowTabFrame(pFR, tab); }

void ComparePage::open()
{
    ensureBuilt();
    Get_Compare_Data();
    ShapedTabs1_Click(0);
}

void ComparePage::ShapedTabs1_Click(int index)
{
    ShapedTabs1->setActiveTab(index);
    showTabFrame(index);
    if (index == 1)
        layoutRankTab();
}

void ComparePage::Get_Compare_Data()
{
    const zrt::CollectedLists lists = m_column.collected();
    zrt::CompareAnswer answer;
    try {
        answer = zrt::Get_Compare_Data(lists, m_analysis);
    } catch (zrt::RunTimeError &e) {
        zrt::ExplainListFailure(e, lists, zrt::AnalysisKind::Compare, false);
        throw;
    }
    Text1->setPlainText(CoreTexts::tr(answer.pairsText).trimmed());
    if (!answer.analysed) {
        for (auto *surface : pFR)
            surface->setTextAlternative(QString());
        return;
    }
    ld->setText(QString::fromStdString(answer.table.squaredDifferencesText));
    lbSR->setText(QString::fromStdString(answer.table.coefficientText));
    ucTableView1->Clear();
    QList<QStringList> rows;
    for (const auto &texts : answer.table.rowTexts()) {
        QStringList row;
        for (const auto &text : texts)
            row << QString::fromStdString(text);
        rows << row;
    }
    ucTableView1->RowsAdd(rows);
    DrawScatterGraph();
    DrawCompareBoxPlots();
    m_analysis.CompareReady = true;
    describeCharts();
}

void ComparePage::cmdSR_Click()
{
    lbSR->setVisible(!lbSR->isVisible());
    lbc[0]->setVisible(lbSR->isVisible());
    if (lbSR->isVisible()) {
        DrawCorrelationScale();
    } else {
        pFR[1]->Cls();
        pFR[1]->Refresh();
    }
    describeCharts();
}

void ComparePage::DrawScatterGraph()
{
    zrt::DrawScatter(*pFR[0], m_analysis.GroupedData, m_analysis.AnalysisData, m_coordinatesShown, VisualSummary,
                     AudioSummary);
}

void ComparePage::DrawCompareBoxPlots()
{
    const zrt::CompareButtons buttons = zrt::DrawCompareBoxPlots(*pFR[2], m_analysis.GroupedData,
                                                                 m_analysis.AnalysisData, m_boxPlotsShown,
                                                                 VisualSummary, AudioSummary);
    for (auto *button : cmdarr)
        button->resize(buttons.width, button->height());
    cmdarr[0]->move(0, static_cast<int>(buttons.visualTop));
    cmdarr[1]->move(0, static_cast<int>(buttons.audioTop));
    cmdarr[0]->setVisible(buttons.visible);
    cmdarr[1]->setVisible(buttons.visible);
}

void ComparePage::DrawCorrelationScale() { zrt::DrawCorrelationScale(*pFR[1], m_analysis.results.SpearmanValue); }

void ComparePage::pFR0_MouseDown(double x, double y)
{
    // Only the red mean point answers a click.
    const double perPixel = pFR[0]->ScaleMode() == zrt::PictureBox::Twips ? zrt::PictureBox::TwipsPerPixel : 1;
    if (!zrt::IsMeanPoint(*pFR[0], static_cast<int>(x / perPixel), static_cast<int>(y / perPixel)))
        return;
    pages::Explain(CoreTexts::tr(zrt::MeanPointMessage(VisualSummary, AudioSummary)), QString(), window());
}

void ComparePage::ShowSummaryDetails(int index)
{
    pages::Explain(CoreTexts::tr(zrt::DetailsText(index == 0 ? VisualSummary : AudioSummary)),
                   CoreTexts::tr(zrt::DetailsTitle), window());
}
