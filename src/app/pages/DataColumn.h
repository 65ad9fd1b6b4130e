#pragma once
// The left column: the collected means, visual in cl2 and audio in CL4 on the same line, the
// count above them, the button that removes a result, and the pair of boxes that choose which
// list the analysis pages read.

#include "app/PagePanel.h"
#include "stats/AnalysisState.h"

#include <array>
#include <functional>

class QLabel;
struct PageContext;
namespace zrt {
class Check;
class GlossButton;
class RowList;
struct RtdContent;
} // namespace zrt

class DataColumn : public PagePanel {
    Q_OBJECT
public:
    DataColumn(PageContext &context, QWidget *parent, const QRect &geometry);

    QLabel *Label4 = nullptr, *Label5 = nullptr;
    zrt::GlossButton *cmdRemove = nullptr;
    PagePanel *piclbl = nullptr;
    zrt::RowList *cl2 = nullptr, *CL4 = nullptr;
    std::array<zrt::Check *, 2> Check5{};

    // Whether the collected data have been saved since they last changed.
    bool DataSaved = false;

    // Whether results are collected in pairs; the Record page's setting answers it.
    void setPairedQuestion(std::function<bool()> paired) { m_paired = std::move(paired); }

    int count() const;
    // 1 while the visual times are the ones analysed, else 0 (the audio times).
    int visualChosen() const;
    zrt::CollectedLists collected() const;

    // A run's result: one mean, or a pair of means on one line.
    void addResult(float visualMean);
    void addPair(float visualMean, float audioMean);
    void Clear();
    // The lists of an opened file; the choice goes back to the visual times.
    void showOpened(const zrt::RtdContent &content);

    void arange_data_lists();
    void Check4_Click(); // the paired setting changed: the audio list shows or goes
    void SetDataCount();
    void cmdRemove_Click();
    void Check5_Click(int index);

Q_SIGNALS:
    // The count in the heading changed.
    void countChanged();
    // The other list was chosen for the analysis.
    void choiceChanged();

private:
    void build();
    // Names the controls whose captions stand beside them, for screen readers.
    void nameForScreenReaders();
    void orderTabs();
    void keepListsInStep();
    bool paired() const { return m_paired ? m_paired() : true; }

    PageContext &m_context;
    std::function<bool()> m_paired;
};
