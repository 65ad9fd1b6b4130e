#pragma once
// The Compare page: the pairs of times, the scatter graph with its mean point, Spearman's rank
// with its table and scale, and the two box plots side by side.

#include "app/pages/DeferredPage.h"
#include "charts/BoxPlots.h"

#include <array>

class QLabel;
class QTextEdit;
class DataColumn;
struct PageContext;
namespace zrt {
struct AnalysisState;
class GlossButton;
class PictureBox;
class ShapedTabs;
class ucTableView;
} // namespace zrt

class ComparePage : public DeferredPage {
    Q_OBJECT
public:
    ComparePage(PageContext &context, zrt::AnalysisState &analysis, DataColumn &column, QWidget *parent,
                const QRect &geometry);

    zrt::ShapedTabs *ShapedTabs1 = nullptr;
    std::array<zrt::PictureBox *, 3> pFR{};
    QLabel *Label9 = nullptr, *ld = nullptr, *lbSR = nullptr, *pdsqr = nullptr;
    std::array<QLabel *, 3> lbc{};
    QTextEdit *Text1 = nullptr;
    std::array<zrt::GlossButton *, 2> cmdarr{};
    zrt::GlossButton *cmdSG = nullptr, *cmdSR = nullptr, *cmdBPc = nullptr;
    zrt::ucTableView *ucTableView1 = nullptr;

    // The five-number summaries the comparison charts worked out.
    zrt::BoxSummary VisualSummary, AudioSummary;
    bool coordinatesShown() const { return m_coordinatesShown; }
    bool boxPlotsShown() const { return m_boxPlotsShown; }

    void open();
    void Get_Compare_Data();
    void ShapedTabs1_Click(int index);
    void cmdSR_Click();
    void pFR0_MouseDown(double x, double y);
    void ShowSummaryDetails(int index);
    void DrawScatterGraph();
    void DrawCompareBoxPlots();
    void DrawCorrelationScale();

protected:
    void buildControls() override;

private:
    void build();
    void buildRankTab();
    void buildBoxPlotsTab();
    void layoutPage();
    void layoutRankTab();
    void showTabFrame(int tab);
    // Names the controls whose captions stand beside them, for screen readers.
    void nameForScreenReaders();
    // Writes what each chart shows into its text alternative: the revealed answers only.
    void describeCharts();

    PageContext &m_context;
    zrt::AnalysisState &m_analysis;
    DataColumn &m_column;
    bool m_coordinatesShown = false;
    bool m_boxPlotsShown = false;
};
