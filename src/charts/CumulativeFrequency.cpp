#include "charts/CumulativeFrequency.h"

#include "charts/Drawings.h"
#include "charts/GroupedFrame.h"
#include "common/RunTimeError.h"

#include <QCoreApplication>

#include <algorithm>
#include <cmath>

namespace zrt {

namespace {

constexpr OleColor DisabledGrey = RGB(97, 97, 97);

// --- the two tables

// One table: its class column starts at x, its frame at e.
struct TableColumn {
    int x = 0;
    int e = 0;
    int c = 0; // width of the last class label
};

// The frame of one table, its header fill, the divider and the two headers.
void DrawTableFrame(ChartFrame &f, const ClassTable &t, const TableColumn &col, const QString &valueHeader)
{
    const int bottom = TableBottom(f, t);
    const int e = Drawings::MeasureFont(18, 0, valueHeader);
    const int right = col.c + col.x + 30 + e;
    f.Line(col.e, 15, col.e, bottom);
    f.Line(right, 15, right, bottom);
    f.Line(col.e, 15, right, 15);
    const int header = Pos(f.h() * 0.1);
    f.Line(col.e, header, right, header);
    f.Line(col.e, bottom, right, bottom);
    f.Fill(col.x, Pos(f.h() * 0.07), HeaderFillColour);

    f.Line(col.c + col.x + 5, 15, col.c + col.x + 5, bottom);
    f.Label(Pos(f.w() * 0.01 + col.x), 15, QCoreApplication::translate("CumulativeFrequency", "Time (t)"), 20, 0, 1);
    f.Label(col.c + col.x + 15, 15, valueHeader, 18, 0, 1);
}

void DrawFrequencyTable(ChartFrame &f, const ClassTable &t)
{
    const int g = t.rowHeight;
    TableColumn col{Pos(f.w() * 0.05), Pos(f.w() * 0.02), 0};
    f.ForeColor(DisabledGrey);
    f.DrawWidth(1);
    for (size_t i = 0; i < t.rows.size(); ++i) {
        const double top = RowTop(f, g, static_cast<int>(i));
        DrawClassLabel(f, LabelLeft(col.x, t.rows[i].stem, g), Pos(top), col.x,
                       QString::fromStdString(t.rows[i].label), g, false, 0);
    }
    f.ForeColor(0);
    f.DrawWidth(2);
    col.c = Drawings::MeasureFont(g, 0, LastLabel(t, false));
    DrawTableFrame(f, t, col, QCoreApplication::translate("CumulativeFrequency", " Freq "));
    for (size_t i = 0; i < t.rows.size(); ++i)
        f.Label(col.c + col.x + 30, Pos(RowTop(f, g, static_cast<int>(i))), QString::number(t.rows[i].frequency),
                g, 0, 0, false, false);
}

void DrawCumulativeTable(ChartFrame &f, const ClassTable &t, bool showCF)
{
    const int g = t.rowHeight;
    TableColumn col{Pos(f.w() * 0.58), Pos(f.w() * 0.55), 0};
    f.DrawWidth(1);
    for (size_t i = 0; i < t.rows.size(); ++i)
        DrawClassLabel(f, col.x, Pos(RowTop(f, g, static_cast<int>(i))), col.x,
                       QString::fromStdString(t.rows[i].cumulativeLabel), g, true, 0);
    f.DrawWidth(2);
    col.c = Drawings::MeasureFont(g, 0, LastLabel(t, true));
    DrawTableFrame(f, t, col, QCoreApplication::translate("CumulativeFrequency", "   CF   "));
    if (!showCF)
        return;
    f.ForeColor(AnswerColour);
    for (size_t i = 0; i < t.rows.size(); ++i)
        f.Label(col.c + col.x + 30, Pos(RowTop(f, g, static_cast<int>(i))), QString::number(t.rows[i].cumulative),
                g, AnswerColour);
}

// --- the plot

class CFPlot {
public:
    CFPlot(ChartFrame &f, const ClassTable &t) : m_f(f), m_t(t)
    {
        m_total = t.rows.empty() ? 0 : t.rows.back().cumulative;
        m_xEnd = (t.highestStem + 1) * 10;
        // Whole pixels per unit, as the plot has them; where that truncates to 0 the curve would
        // lie flat on the axis and every reading line would read the axis, so the fraction stays.
        m_v = WholeOrFraction(f.h() - 2 * m, m_total + 1.0);
        m_p = m_xEnd == 0 ? 0 : WholeOrFraction(f.w() - 2 * m, m_xEnd);
    }

    void DrawAxes()
    {
        const int w = m_f.w();
        const int h = m_f.h();
        m_f.MoveTo(m, m);
        m_f.LineTo(m, h - m);
        m_f.LineTo(w - m, h - m);

        const QString cf = QCoreApplication::translate("CumulativeFrequency", "CF");
        const QRect cfInk = Drawings::LabelInk(m - 10, m - 20, 18, 0, false, cf);
        const int time = Drawings::MeasureFont(16, 0, QCoreApplication::translate("CumulativeFrequency", "time(t)"));
        const QRect timeInk = Drawings::LabelInk(w - time - 15, h - 20, 18, 0, false,
                                                 QCoreApplication::translate("CumulativeFrequency", "time(t)"));

        // Frequencies up the side. Ticks closer than the pen is wide, and numbers closer than
        // their digits are tall, would merge into a bar: only every k-th is drawn then. A number
        // wider than the margin is drawn smaller and ends left of the axis, where the search
        // of the reading lines can't mistake it for the curve.
        const int tickEvery = LabelEvery(m_v, m_f.surface().DrawWidth());
        const int labelHeight = FittedLabelHeight(16, m - 4, QString::number(m_total + 1));
        const int digits = Drawings::LabelInk(0, 0, labelHeight, 0, false, QStringLiteral("0123456789")).height();
        const int labelEvery = LabelEvery(m_v, digits);
        for (int k = 0; k <= m_total + 1; ++k) {
            if (k % tickEvery != 0 && k % labelEvery != 0)
                continue;
            const int y = Pos(h - m - m_v * k);
            m_f.Line(m, y, m - 3, y);
            if (k % labelEvery != 0)
                continue;
            const QString text = QString::number(k);
            int x = k < 10 ? m - 10 : m - 20;
            x = std::max(1, std::min(x, m - 3 - Drawings::LabelWidth(labelHeight, 0, text)));
            if (!Drawings::LabelInk(x, y - 6, labelHeight, 0, false, text).intersects(cfInk))
                m_f.Label(x, y - 6, text, labelHeight);
        }
        // Hundredths along the bottom, every k-th where 10 are too narrow for a number, and
        // none where it would run into "time(t)".
        const int widest = Drawings::LabelWidth(16, 0, QString::number(m_xEnd));
        const int xEvery = LabelEvery(m_p * 10, widest);
        for (int k = 10; k <= m_xEnd; k += 10) {
            const int x = Pos(m_p * k + m);
            m_f.Line(x, h - m, x, h - m + 3);
            const QString text = QString::number(k);
            if ((k / 10) % xEvery == 0 &&
                !Drawings::LabelInk(x - 10, h - m + 3, 16, 0, false, text).adjusted(-1, -1, 1, 1).intersects(timeInk))
                m_f.Label(x - 10, h - m + 3, text, 16);
        }
        m_f.Label(m - 10, m - 20, cf, 18);
        m_f.Label(w - time - 15, h - 20, QCoreApplication::translate("CumulativeFrequency", "time(t)"), 18);
    }

    // Circles filled green, joined in order, and the segment from the lowest class's lower bound.
    void DrawCurve()
    {
        m_f.DrawWidth(1);
        QPoint previous;
        for (size_t i = 0; i < m_t.rows.size(); ++i) {
            const QPoint at = PointOf(m_t.rows[i]);
            m_f.surface().Ellipse(at.x() - 3, at.y() - 3, at.x() + 3, at.y() + 3);
            m_f.Fill(at.x(), at.y(), CurvePointColour);
            if (i > 0)
                m_f.Line(at.x(), at.y(), previous.x(), previous.y());
            previous = at;
        }
        if (!m_t.rows.empty()) {
            const QPoint first = PointOf(m_t.rows.front());
            m_f.Line(Pos(m_t.lowestStem * 10 * m_p + m), m_f.h() - m, first.x(), first.y());
        }
    }

    // Median, lower and upper quartile, each found by looking along its row for the curve.
    std::array<int, 3> DrawReadingLines()
    {
        m_f.ForeColor(AnswerColour);
        m_f.surface().SetDrawStyle(2);
        std::array<int, 3> readings{};
        const double targets[] = {m_total / 2.0, m_total / 4.0, m_total * 0.75};
        for (size_t i = 0; i < readings.size(); ++i)
            readings[i] = DrawReadingLine(targets[i]);
        return readings;
    }

private:
    static double WholeOrFraction(int length, double units)
    {
        const double whole = std::trunc(length / units);
        return whole >= 1 ? whole : std::max(0.0, length / units);
    }

    // The largest height up to `height` at which the text is at most `room` pixels wide.
    static int FittedLabelHeight(int height, int room, const QString &text)
    {
        while (height > 8 && Drawings::LabelWidth(height, 0, text) > room)
            --height;
        return height;
    }

    // The point of a class: its upper bound across, its cumulative frequency up.
    QPoint PointOf(const ClassRow &row) const
    {
        const double value = static_cast<double>(mulInt32(row.stem + 1, 10));
        return QPoint(Pos(value * m_p) + m, m_f.h() - m - Pos(row.cumulative * m_v));
    }

    // The reading, or -1 when the row meets no curve.
    int DrawReadingLine(double target)
    {
        const int h = m_f.h();
        const int y = Pos(h - m - target * m_v);
        m_f.MoveTo(m, y);
        int x = m + 3;
        while (x <= m_f.w() && m_f.surface().PixelAt(x, y) != 0)
            ++x;
        if (x > m_f.w())
            return -1;
        m_f.LineTo(x, y);
        m_f.LineTo(x, Pos(m / 2.0 + h - m));
        if (m_p == 0)
            raise(ErrDivisionByZero);
        const int q = Pos(static_cast<double>(x - m) / m_p);
        const QString text = QString::number(q);
        const int top = Pos(h - m * 0.45);
        // Quartiles close to the median would print their readings over each other: a reading
        // that would touch an earlier one stands left of its line, or else right of the other.
        int at = x;
        if (TouchesReading(Drawings::LabelInk(at, top, 16, 0, false, text))) {
            at = x - 2 - Drawings::LabelWidth(16, 0, text);
            for (const QRect &other : m_readings)
                if (TouchesReading(Drawings::LabelInk(at, top, 16, 0, false, text)))
                    at = std::max(at, other.right() + 3);
        }
        m_f.Label(at, top, text, 16, AnswerColour);
        m_readings.push_back(Drawings::LabelInk(at, top, 16, 0, false, text));
        return q;
    }

    bool TouchesReading(const QRect &ink) const
    {
        for (const QRect &other : m_readings)
            if (other.adjusted(-2, 0, 2, 0).intersects(ink))
                return true;
        return false;
    }

    static constexpr int m = CFPlotMargin;
    ChartFrame &m_f;
    const ClassTable &m_t;
    int m_total = 0;  // T, the last cumulative frequency
    double m_v = 0;   // pixels per unit of cumulative frequency
    int m_xEnd = 0;   // the scale's end in hundredths
    double m_p = 0;   // pixels per hundredth
    std::vector<QRect> m_readings; // where the readings below the axis stand
};

} // namespace

void DrawCFTable(PictureBox &pCF, std::vector<int> &groupedData, bool showCF)
{
    ChartFrame f(pCF, 3, false);
    const ClassTable t = BuildClassTable(groupedData);
    f.ForeColor(0);
    DrawFrequencyTable(f, t);
    DrawCumulativeTable(f, t, showCF);
    f.Finish();
}

std::array<int, 3> DrawCFPlot(PictureBox &ppCF, std::vector<int> &groupedData, bool showPlot, bool showQuartiles)
{
    ChartFrame f(ppCF, 3, false);
    const ClassTable t = BuildClassTable(groupedData);
    f.ForeColor(0);
    ppCF.SetDrawStyle(0);
    CFPlot plot(f, t);
    plot.DrawAxes();
    std::array<int, 3> readings{-1, -1, -1};
    if (showPlot) {
        plot.DrawCurve();
        if (showQuartiles)
            readings = plot.DrawReadingLines();
    }
    f.Finish();
    ppCF.Refresh();
    return readings;
}

} // namespace zrt
