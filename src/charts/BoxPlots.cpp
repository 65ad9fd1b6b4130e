#include "charts/BoxPlots.h"

#include "charts/ChartFrame.h"
#include "common/NumberText.h"
#include "common/RunTimeError.h"
#include "stats/Maths.h"

#include <algorithm>

namespace zrt {

namespace {

// --- single box plot

// The scale in hundredths: its start s, its length L and the divisor d that brings the
// statistics of the chosen precision back to hundredths.
struct HundredthsScale {
    int d = 1;
    int length = 0;
    int start = 0;
};

HundredthsScale ScaleFor(const AnalysisResults &r, int precisionIndex)
{
    HundredthsScale scale;
    double range = r.RangeValue;
    short figures = 1;
    const int rounded = Pos(Maths::RoundToFigures(range, figures));
    switch (precisionIndex) {
    case 0: scale.d = 1; scale.length = addInt32(rounded, 10); break;
    case 1: scale.d = 10; scale.length = Pos((rounded + 100.0) / 10.0); break;
    case 2: scale.d = 100; scale.length = Pos((rounded + 1000.0) / 100.0); break;
    default: raise(ErrInvalidPropertyIndex);
    }
    const double lowest = static_cast<double>(r.LowestValue) / scale.d;
    if (lowest > 5) {
        double below = lowest - 5;
        scale.start = Pos(Maths::RoundToFigures(below, figures));
        if (lowest > scale.start + 5)
            scale.start = addInt32(scale.start, 5);
    }
    return scale;
}

class SingleBoxPlot {
public:
    SingleBoxPlot(ChartFrame &f, const HundredthsScale &scale, int p) : m_f(f), m_scale(scale), m_p(p) {}

    // Ticks every 5 hundredths from x0 to the surface's width, labelled from s; returns the last tick's x.
    int DrawScale(int labelHeight)
    {
        const int x0 = Pos(m_f.w() * 0.05);
        const int top = Pos(m_f.h() * 0.8);
        const int bottom = Pos(m_f.h() * 0.83);
        const int step = mulInt32(5, m_p);
        RequireStep(step);
        int last = x0;
        int label = m_scale.start;
        for (long long t = x0; t <= m_f.w(); t += step) {
            const int x = static_cast<int>(t);
            m_f.Line(x, top, x, bottom);
            m_f.Label(x - 5, bottom, QString::number(label), labelHeight);
            last = x;
            label = addInt32(label, 5);
        }
        return last;
    }

    void DrawBox(const std::vector<int> &sorted, const AnalysisResults &r)
    {
        const int h = m_f.h();
        const int middle = Pos(h * 0.5);
        long long i = 0;
        while (Maths::At(sorted, i) < r.LowerOutlierLimit)
            Cross(XOf(sorted[static_cast<size_t>(i++)]), middle);
        const int lowEnd = XOf(sorted[static_cast<size_t>(i)]);
        const int q1 = XOf(r.LowerQuartile);
        const int q3 = XOf(r.UpperQuartile);
        m_f.Line(lowEnd, Pos(h * 0.4), lowEnd, Pos(h * 0.6));
        m_f.Line(lowEnd, middle, q1, middle);

        const int top = Pos(h * 0.3);
        const int bottom = Pos(h * 0.7);
        m_f.Line(q1, top, q1, bottom);
        m_f.Line(q1, top, q3, top);
        m_f.Line(q1, bottom, q3, bottom);
        m_f.Line(q3, bottom, q3, top);
        m_f.Fill(Pos(m_f.w() * 0.05 + Offset(r.LowerQuartile) + 5.0), middle, BoxFillColour);

        const int median = XOf(r.MedianValue);
        m_f.Line(median, top, median, bottom);

        long long j = static_cast<long long>(sorted.size()) - 1;
        while (Maths::At(sorted, j) > r.UpperOutlierLimit)
            Cross(XOf(sorted[static_cast<size_t>(j--)]), middle);
        const int highEnd = XOf(sorted[static_cast<size_t>(j)]);
        m_f.Line(q3, middle, highEnd, middle);
        m_f.Line(highEnd, Pos(h * 0.4), highEnd, Pos(h * 0.6));
    }

private:
    // X(v): the offset from x0 of a value in the units of the analysis.
    int Offset(double v) const { return Pos((v / m_scale.d - m_scale.start) * m_p); }
    int XOf(double v) const { return Pos(m_f.w() * 0.05 + Offset(v)); }

    void Cross(int x, int y)
    {
        m_f.Line(x - 4, y - 4, x + 4, y + 4);
        m_f.Line(x - 4, y + 4, x + 4, y - 4);
    }

    ChartFrame &m_f;
    HundredthsScale m_scale;
    int m_p;
};

// --- comparison box plots

void Summarise(std::vector<int> &values, BoxSummary &summary)
{
    Maths::BubbleSort(values);
    summary.count = toInt32(static_cast<long long>(values.size()));
    summary.lowest = Maths::At(values, 0);
    summary.highest = Maths::At(values, summary.count - 1);
    summary.median = Maths::MedianOf(values);
    summary.lowerQuartile = Maths::LowerQuartileOf(values);
    summary.upperQuartile = Maths::UpperQuartileOf(values);
}

class CompareScale {
public:
    CompareScale(ChartFrame &f, int start, int length) : m_f(f), m_start(start), m_length(length)
    {
        if (length == 0)
            raise(ErrDivisionByZero);
        m_q = f.w() * 0.8 / length;
    }

    void DrawAxis()
    {
        const int y = Pos(m_f.h() * 0.8);
        m_f.Line(Pos(m_f.w() * 0.1), y, Pos(m_f.w() * 0.9), y);
        for (int k = 0; k <= m_length; k += 10) {
            const int x = Pos(m_q * k + m_f.w() * 0.1);
            m_f.Line(x, y, x, y + 5);
            m_f.Label(x - 5, y + 5, QString::number(m_start + k), 16);
        }
    }

    // Whisker, box and median of one list around the line Y.
    void DrawShape(const BoxSummary &s, int y)
    {
        const int low = XOf(s.lowest);
        const int q1 = XOf(s.lowerQuartile);
        const int q3 = XOf(s.upperQuartile);
        const int high = XOf(s.highest);
        const int median = XOf(s.median);
        m_f.Line(low, y - 10, low, y + 10);
        m_f.MoveTo(low, y);
        for (const QPoint &to : {QPoint(q1, y), QPoint(q1, y - 20), QPoint(q3, y - 20), QPoint(q3, y + 20),
                                 QPoint(q1, y + 20), QPoint(q1, y)})
            m_f.LineTo(to.x(), to.y());
        m_f.Fill(median, y, BoxFillColour);
        m_f.Line(q3, y, high, y);
        m_f.LineTo(high, y - 10);
        m_f.LineTo(high, y + 10);
        m_f.Line(median, y - 20, median, y + 20);
    }

private:
    int XOf(double v) const { return Pos((v - m_start) * m_q + m_f.w() * 0.1); }

    ChartFrame &m_f;
    int m_start;
    int m_length;
    double m_q = 0;
};

} // namespace

void DrawBoxPlot(PictureBox &pBox, const std::vector<int> &sorted, const AnalysisResults &r, int precisionIndex,
                 bool showBox)
{
    ChartFrame f(pBox, 3, false);
    const int a = Pos(f.h() * 0.02);
    const int labelHeight = Pos(a * 2.5);
    const HundredthsScale scale = ScaleFor(r, precisionIndex);
    const int p = Pos(f.w() * 0.9 / (scale.length + 1.0));

    SingleBoxPlot plot(f, scale, p);
    const int last = plot.DrawScale(labelHeight);
    const int x0 = Pos(f.w() * 0.05);
    const int axisY = Pos(f.h() * 0.8);
    f.Line(x0, axisY, last, axisY);
    if (showBox)
        plot.DrawBox(sorted, r);
    f.Label(Pos(f.w() * 0.3), Pos(f.h() * 0.9), QString::fromLatin1(ScaleCaption), 18, 0, 0, true);
    pBox.Refresh();
    f.Finish();
}

CompareButtons DrawCompareBoxPlots(PictureBox &pFR2, std::vector<int> &visual, std::vector<int> &audio,
                                   bool showBoxes, BoxSummary &visualSummary, BoxSummary &audioSummary)
{
    ChartFrame f(pFR2, 2, true);
    Summarise(visual, visualSummary);
    Summarise(audio, audioSummary);

    const int start = ScaleStartOf(static_cast<float>(std::min(visualSummary.lowest, audioSummary.lowest)));
    const int end = ScaleEndOf(static_cast<float>(std::max(visualSummary.highest, audioSummary.highest)));
    CompareScale scale(f, start, subInt32(end, start));
    scale.DrawAxis();

    CompareButtons buttons;
    if (showBoxes) {
        scale.DrawShape(visualSummary, Pos(f.h() * 0.6));
        scale.DrawShape(audioSummary, Pos(f.h() * 0.3));
        buttons.visible = true;
        buttons.visualTop = f.h() * 0.57;
        buttons.audioTop = f.h() * 0.27;
    }
    f.Finish();
    return buttons;
}

std::string DetailsText(const BoxSummary &s)
{
    return "Lowest value = " + std::to_string(s.lowest) + "\nLower Quartile = " + GeneralText(s.lowerQuartile) +
           "\nMedian = " + GeneralText(s.median) + "\nUpper Quartile = " + GeneralText(s.upperQuartile) +
           "\nHighest value = " + std::to_string(s.highest);
}

} // namespace zrt
