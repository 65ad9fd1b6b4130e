#pragma once
// The Averages page: the data to a chosen precision, the nine summary questions and the four on
// spread (each hides its answer until pressed), the box plot and the stem and leaf diagram.

#include "app/pages/DeferredPage.h"

#include <QString>

#include <array>

class QLabel;
class QTextEdit;
class DataColumn;
struct PageContext;
namespace zrt {
struct AnalysisState;
class Check;
class DropPanel;
class GlossButton;
class PictureBox;
class RowList;
class ShapedTabs;
} // namespace zrt

class AveragesPage : public DeferredPage {
    Q_OBJECT
public:
    AveragesPage(PageContext &context, zrt::AnalysisState &analysis, DataColumn &column, QWidget *parent,
                 const QRect &geometry);

    zrt::ShapedTabs *Tab1 = nullptr;
    std::array<PagePanel *, 4> F1{};
    QLabel *Label6 = nullptr, *Label7 = nullptr, *lbsort = nullptr, *l8 = nullptr;
    zrt::DropPanel *DD3 = nullptr;
    zrt::RowList *cl3 = nullptr;
    zrt::Check *Check1 = nullptr;
    QTextEdit *t1 = nullptr;
    std::array<zrt::GlossButton *, 9> cmd1{};
    std::array<QLabel *, 9> lb1{};
    std::array<zrt::GlossButton *, 4> cmd2{};
    std::array<QLabel *, 4> lb2{};
    zrt::GlossButton *cmdshowall = nullptr, *cmdSA = nullptr, *cmdinfo = nullptr;
    zrt::PictureBox *pBox = nullptr, *PicSL = nullptr;
    zrt::GlossButton *cmdBP = nullptr, *cmdSL = nullptr;

    // The answers behind the question buttons; empty until the data are analysed.
    const std::array<QString, 9> &summaryAnswers() const { return m_summaryAnswers; }
    const std::array<QString, 4> &spreadAnswers() const { return m_spreadAnswers; }
    bool boxPlotShown() const { return m_boxPlotShown; }
    bool leavesShown() const { return m_leavesShown; }

    // Opened by its toolbar button: analysed, on its first tab.
    void open();
    // The data changed while the page is open: analysed again, the shown chart redrawn.
    void refresh();
    void Get_Averages();
    void Tab1_Click(int index);
    void cl3_Click();
    void Reset_tags();
    void Clear_Displayed_Data();
    void DrawBoxPlot();
    void DrawStemLeaf();
    void ShowOutliersHelp();

Q_SIGNALS:
    // The sort box was changed: the data are refreshed.
    void sortChanged();

protected:
    void buildControls() override;

private:
    void build();
    void buildQuestions();
    void buildCharts();
    // Names the controls whose captions stand beside them, for screen readers.
    void nameForScreenReaders();
    QString stemLeafWords(bool audio) const;
    // Writes what each chart shows into its text alternative: the revealed answers only.
    void describeCharts();
    void layoutPage();
    void showTabFrame(int tab);
    void toggleBoxPlot();
    void toggleLeaves();

    PageContext &m_context;
    zrt::AnalysisState &m_analysis;
    DataColumn &m_column;
    std::array<QString, 9> m_summaryAnswers;
    std::array<QString, 4> m_spreadAnswers;
    bool m_boxPlotShown = false;
    bool m_leavesShown = false;
};
