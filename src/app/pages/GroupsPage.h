#pragma once
// The Groups page: the data to hundredths, then on its tabs the tally and frequency table, the
// estimated mean, the cumulative frequency table and its plot, each shown by its own button.

#include "app/pages/DeferredPage.h"

#include <array>

class QLabel;
class QTextEdit;
class DataColumn;
struct PageContext;
namespace zrt {
struct AnalysisState;
class Check;
class GlossButton;
class PictureBox;
class ShapedTabs;
} // namespace zrt

class GroupsPage : public DeferredPage {
    Q_OBJECT
public:
    GroupsPage(PageContext &context, zrt::AnalysisState &analysis, DataColumn &column, QWidget *parent,
               const QRect &geometry);

    zrt::ShapedTabs *Tab2 = nullptr;
    std::array<PagePanel *, 4> f2{};
    QLabel *Label8 = nullptr, *lbsort1 = nullptr;
    zrt::Check *Check2 = nullptr, *Check3 = nullptr;
    QTextEdit *t4 = nullptr;
    zrt::PictureBox *ptally = nullptr, *pEmean = nullptr, *pCF = nullptr, *ppCF = nullptr;
    zrt::GlossButton *cmdTally = nullptr, *cmdR = nullptr, *cmdCF = nullptr, *cmdPlot = nullptr;

    // What each tab's button has shown.
    struct Shown {
        bool tally = false, results = false, cumulative = false, plot = false;
    };
    const Shown &shown() const { return m_shown; }

    void open();
    void refresh();
    void Get_Grouped_Data();
    void Tab2_Click(int index);
    void DrawTally();
    void DrawEstimatedMean();
    void DrawCFTable();
    void DrawCFPlot();

Q_SIGNALS:
    void sortChanged();

protected:
    void buildControls() override;

private:
    void build();
    void orderTabs();
    void buildShowButtons();
    void keepChartsOnResize();
    void layoutPage();
    void showTabFrame(int tab);
    void togglePlot();
    // Names the controls whose captions stand beside them, for screen readers.
    void nameForScreenReaders();
    // Writes what each chart shows into its text alternative: the revealed answers only.
    void describeCharts();
    QString chartWords(const zrt::PictureBox *surface) const;

    PageContext &m_context;
    zrt::AnalysisState &m_analysis;
    DataColumn &m_column;
    Shown m_shown;
    // What the plot's reading lines read when it was last drawn; -1 for none.
    std::array<int, 3> m_readings{-1, -1, -1};
};
