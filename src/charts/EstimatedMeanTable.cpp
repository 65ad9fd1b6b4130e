#include "charts/EstimatedMeanTable.h"

#include "charts/Drawings.h"
#include "charts/GroupedFrame.h"
#include "i18n/CoreTexts.h"

#include <QCoreApplication>

namespace zrt {

namespace {

// The x positions of the four columns' contents and dividers.
struct Columns {
    int frequencyDivider = 0;
    double frequency = 0; // values and the frequency total
    int mid = 0;          // x2: divider of "Mid (t)"
    int product = 0;      // x3: divider of "f x Mid(t)"
};

Columns DrawHeaders(ChartFrame &f, const ClassTable &t)
{
    const int w = f.w();
    const int bottom = TableBottom(f, t);
    Columns c;
    f.Label(Pos(w * 0.06), 15, QCoreApplication::translate("EstimatedMeanTable", "Time (t)"), 20, 0, 1);

    const int labelWidth = Drawings::MeasureFont(t.rowHeight, 0, LastLabel(t, false));
    c.frequencyDivider = Pos(w * 0.05 + labelWidth + 5.0);
    f.Line(c.frequencyDivider, 15, c.frequencyDivider, bottom);
    f.Label(Pos(w * 0.05 + labelWidth + 15.0), 15, QCoreApplication::translate("EstimatedMeanTable", "Frequency"), 20,
            0, 1);
    c.frequency = w * 0.05 + labelWidth + 30.0;

    const int e = Drawings::MeasureFont(20, 0, QCoreApplication::translate("EstimatedMeanTable", "Frequency"));
    c.mid = Pos(w * 0.05 + labelWidth + 30.0 + e);
    f.Line(c.mid, 15, c.mid, bottom);
    f.Label(c.mid + 15, 15, QCoreApplication::translate("EstimatedMeanTable", "Mid (t)"), 20, 0, 1);

    const int m = Drawings::MeasureFont(20, 0, QCoreApplication::translate("EstimatedMeanTable", "Mid (t)"));
    c.product = c.mid + m + 30;
    f.Line(c.product, 15, c.product, bottom);
    f.Label(c.product + 15, 15, QCoreApplication::translate("EstimatedMeanTable", "f x Mid(t)"), 20, 0, 1);
    return c;
}

void DrawResults(ChartFrame &f, const ClassTable &t, const Columns &c)
{
    const int g = t.rowHeight;
    f.ForeColor(AnswerColour);
    for (size_t i = 0; i < t.rows.size(); ++i) {
        const int y = Pos(RowTop(f, g, static_cast<int>(i)));
        f.Label(Pos(c.frequency), y, QString::number(t.rows[i].frequency), g, AnswerColour);
        f.Label(c.mid + 15, y, QString::number(t.rows[i].midpoint), g, AnswerColour);
        f.Label(c.product + 15, y, QString::number(t.rows[i].product), g, AnswerColour);
    }
    // The totals stand on the row below the last class, outside the frame.
    const int totals = Pos(f.h() * 0.1 + static_cast<double>(g) * t.rowCount);
    f.Label(c.product + 15, totals, QString::number(t.productTotal), 20);
    f.Label(Pos(c.frequency), totals, QString::number(t.frequencyTotal), 20);

    const QString mean = CoreTexts::tr(EstimatedMeanText(t));
    const int width = Drawings::MeasureFont(24, 0, mean);
    f.Label(f.w() - width - 15, f.h() - 24, mean, 24, EstimatedMeanColour);
}

} // namespace

void DrawEstimatedMean(PictureBox &pEmean, std::vector<int> &groupedData, bool showResults)
{
    ChartFrame f(pEmean, 3, false);
    const ClassTable t = BuildClassTable(groupedData);
    f.ForeColor(0);
    DrawClassColumnAndFrame(f, t);
    const Columns columns = DrawHeaders(f, t);
    if (showResults)
        DrawResults(f, t, columns);
    f.Finish();
}

} // namespace zrt
