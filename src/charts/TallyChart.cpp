#include "charts/TallyChart.h"

#include "charts/Drawings.h"
#include "charts/GroupedFrame.h"

#include <QCoreApplication>

#include <algorithm>

namespace zrt {

std::string TallyText(int frequency)
{
    std::string text;
    for (int k = 0; k < frequency / 5; ++k)
        text += "llll ";
    text.append(static_cast<size_t>(frequency % 5), 'l');
    return text;
}

namespace {

// One row's marks: the tally text, then a stroke across each group of four. A stroke starts
// where its group is drawn: a step of the measured width (one pixel more than a group's
// advance) drifted a pixel per group and reached the next group from about 30 on.
// A tally longer than its column stops at the last whole group that fits, and an ellipsis says
// that it goes on; the frequency beside it gives the count.
void DrawMarks(ChartFrame &f, double left, double top, int g, int frequency, int columnEnd)
{
    const QString group = QStringLiteral("llll ");
    const double advance = Drawings::LabelAdvance(g, 0, group);
    QString text = QString::fromStdString(TallyText(frequency));
    int gates = frequency / 5;
    if (Pos(left) + Drawings::LabelAdvance(g, 0, text) > columnEnd) {
        const QString more = QString(QChar(0x2026));
        const double room = columnEnd - Pos(left) - Drawings::LabelAdvance(g, 0, more);
        gates = std::clamp(static_cast<int>(room / advance), 0, gates);
        text = group.repeated(gates) + more;
    }
    f.Label(Pos(left), Pos(top), text, g, AnswerColour);
    if (gates <= 0)
        return;
    const int u = Drawings::MeasureFont(g, 0, group);
    for (int k = 1; k <= gates; ++k) {
        const double x = Pos(left) + (k - 1) * advance;
        f.Line(Pos(x), Pos(top + g * 0.8), Pos(x + u * 0.6), Pos(top + g * 0.1));
    }
}

} // namespace

void DrawTally(PictureBox &ptally, std::vector<int> &groupedData, bool showTally)
{
    ChartFrame f(ptally, 3, false);
    const ClassTable t = BuildClassTable(groupedData);
    f.ForeColor(0);
    const int w = f.w();
    const int g = t.rowHeight;
    const int bottom = TableBottom(f, t);
    DrawClassColumnAndFrame(f, t);
    f.Label(Pos(w * 0.06), 15, QCoreApplication::translate("TallyChart", "Time (t)"), 20, 0, 1);

    const int c = Drawings::MeasureFont(g, 0, LastLabel(t, false));
    const int tallyDivider = Pos(w * 0.05 + c + 5.0);
    f.Line(tallyDivider, 15, tallyDivider, bottom);
    const double tallyLeft = w * 0.05 + c + 15.0;
    f.Label(Pos(tallyLeft), 15, QCoreApplication::translate("TallyChart", "Tally"), 20, 0, 1);

    const int e = Drawings::MeasureFont(20, 0, QCoreApplication::translate("TallyChart", "Frequency"));
    f.Label(Pos(w - w * 0.04 - e), 15, QCoreApplication::translate("TallyChart", "Frequency"), 20, 0, 0);
    const int frequencyDivider = Pos(w - w * 0.04 - e - 15.0);
    f.Line(frequencyDivider, 15, frequencyDivider, bottom);

    if (showTally) {
        f.ForeColor(AnswerColour);
        for (size_t i = 0; i < t.rows.size(); ++i)
            f.Label(Pos(w - w * 0.04 - e + 15.0), Pos(RowTop(f, g, static_cast<int>(i))),
                    QString::number(t.rows[i].frequency), g, AnswerColour);
        for (size_t i = 0; i < t.rows.size(); ++i)
            DrawMarks(f, tallyLeft, RowTop(f, g, static_cast<int>(i)), g, t.rows[i].frequency,
                      frequencyDivider - 3);
    }
    f.Finish();
}

} // namespace zrt
