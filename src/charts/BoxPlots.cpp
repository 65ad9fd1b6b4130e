#include "charts/BoxPlots.h"

#include "charts/ChartFrame.h"
#include "charts/Drawings.h"
#include "common/NumberText.h"
#include "common/RunTimeError.h"
#include "i18n/CoreTexts.h"
#include "stats/Maths.h"

#include <algorithm>
#include <cmath>

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

// The rounding of the range to one figure, with what it means for a pupil when it can't be done.
int RoundedRange(const AnalysisResults &r)
{
    double range = r.RangeValue;
    short figures = 1;
    try {
        return Pos(Maths::RoundToFigures(range, figures));
    } catch (RunTimeError &e) {
        if (r.RangeValue == 0)
            e.explain(AllEqualSentence);
        else if (e.number() == ErrOverflow)
            e.explain(TooWideSentence);
        throw;
    }
}

HundredthsScale ScaleFor(const AnalysisResults &r, int precisionIndex)
{
    HundredthsScale scale;
    const int rounded = RoundedRange(r);
    switch (precisionIndex) {
    case 0: scale.d = 1; scale.length = addInt32(rounded, 10); break;
    case 1: scale.d = 10; scale.length = Pos((rounded + 100.0) / 10.0); break;
    case 2: scale.d = 100; scale.length = Pos((rounded + 1000.0) / 100.0); break;
    default: raise(ErrInvalidPropertyIndex);
    }
    const double lowest = static_cast<double>(r.LowestValue) / scale.d;
    if (lowest > 5) {
        double below = lowest - 5;
        short figures = 1;
        scale.start = Pos(Maths::RoundToFigures(below, figures));
        if (lowest > scale.start + 5)
            scale.start = addInt32(scale.start, 5);
        // Rounding up to one figure can pass the lowest time (995 rounds to 1000): the scale
        // must still begin at or before it.
        if (scale.start > lowest)
            scale.start = static_cast<int>(std::floor(lowest / 5.0)) * 5;
    }
    // The range rounded to one figure can be far shorter than the range itself (145 becomes
    // 100): the scale then reaches at least the highest time, so no whisker leaves it.
    const double highest = static_cast<double>(r.HighestValue) / scale.d;
    if (scale.start + scale.length < highest)
        scale.length = static_cast<int>(std::ceil(highest - scale.start));
    return scale;
}

// How far from its tick a cross or a cap reaches, the pen's width included.
constexpr int MarkReach = 5;

// Pixels per hundredth: as wide as the scale's length allows, but narrow enough that the
// highest time's mark stays on the surface, which the rounding to a whole pixel could break.
int PixelsPerHundredth(int w, const HundredthsScale &scale, double highest)
{
    int p = Pos(w * 0.9 / (scale.length + 1.0));
    const double span = highest - scale.start;
    if (span > 0) {
        const double room = (w - 1 - MarkReach) - static_cast<double>(Pos(w * 0.05));
        p = std::min(p, static_cast<int>(std::floor(room / span)));
    }
    return p;
}

class SingleBoxPlot {
public:
    SingleBoxPlot(ChartFrame &f, const HundredthsScale &scale, int p) : m_f(f), m_scale(scale), m_p(p) {}

    // Ticks every 5 hundredths from x0 to the surface's right edge, labelled from s; returns the
    // last tick's x. Where 5 hundredths are too narrow for a label, only every 2nd, 4th, 10th
    // ... tick is labelled, so the numbers never run together.
    int DrawScale(int labelHeight)
    {
        const int x0 = Pos(m_f.w() * 0.05);
        const int top = Pos(m_f.h() * 0.8);
        const int bottom = Pos(m_f.h() * 0.83);
        const int step = mulInt32(5, m_p);
        RequireStep(step);
        const int right = m_f.w() - 1 - m_f.surface().DrawWidth() / 2;
        const int ticks = right < x0 ? 0 : (right - x0) / step + 1;
        const int widest = Drawings::LabelWidth(labelHeight, 0, QString::number(m_scale.start + 5LL * ticks));
        const int every = LabelEvery(step, widest);
        int last = x0;
        int label = m_scale.start;
        for (int i = 0; i < ticks; ++i) {
            const int x = x0 + i * step;
            m_f.Line(x, top, x, bottom);
            const QString text = QString::number(label);
            if (i % every == 0 && x - 5 + Drawings::LabelWidth(labelHeight, 0, text) < m_f.w() - 1)
                m_f.Label(x - 5, bottom, text, labelHeight);
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
        // The seed 5 pixels right of Q1 lies outside a box narrower than that (an interquartile
        // range of 0), and a fill from there would flood the whole surface and eat into the
        // labels: such a box is filled from its middle, or not at all when it has no inside.
        const int half = m_f.surface().DrawWidth() / 2;
        int seed = Pos(m_f.w() * 0.05 + Offset(r.LowerQuartile) + 5.0);
        if (seed <= q1 + half || seed >= q3 - half)
            seed = (q1 + q3) / 2;
        if (seed > q1 + half && seed < q3 - half)
            m_f.Fill(seed, middle, BoxFillColour);

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
    const int p = PixelsPerHundredth(f.w(), scale, static_cast<double>(r.HighestValue) / scale.d);

    SingleBoxPlot plot(f, scale, p);
    const int last = plot.DrawScale(labelHeight);
    const int x0 = Pos(f.w() * 0.05);
    const int axisY = Pos(f.h() * 0.8);
    f.Line(x0, axisY, last, axisY);
    if (showBox)
        plot.DrawBox(sorted, r);
    f.Label(Pos(f.w() * 0.3), Pos(f.h() * 0.9), CoreTexts::tr(ScaleCaption), 18, 0, 0, true);
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
    // A cap at the scale's start covers a pixel each side of CLng(w x 0.1).
    buttons.width = std::clamp(Pos(f.w() * 0.1) - 1 - f.surface().DrawWidth() / 2 - 1, 1, CompareButtonWidth);
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
