#include "charts/ScatterGraph.h"

#include "charts/ChartFrame.h"
#include "common/NumberText.h"
#include "common/RunTimeError.h"
#include "stats/Maths.h"

#include <QCoreApplication>

namespace zrt {

namespace {

// One axis: its start in hundredths, its length c and pixels per hundredth, kept in single
// precision as the graph always has.
struct Axis {
    float start = 0;
    int length = 0;
    float scale = 0;
};

Axis AxisOf(const std::vector<int> &sorted, double pixels)
{
    Axis a;
    a.start = static_cast<float>(ScaleStartOf(static_cast<float>(Maths::At(sorted, 0))));
    const float end = static_cast<float>(ScaleEndOf(static_cast<float>(sorted.back())));
    a.length = Pos(end - a.start);
    if (a.length == 0)
        raise(ErrDivisionByZero);
    a.scale = static_cast<float>(pixels / a.length);
    return a;
}

class Scatter {
public:
    Scatter(ChartFrame &f, const Axis &x, const Axis &y) : m_f(f), m_x(x), m_y(y) {}

    void DrawHorizontalAxis()
    {
        const int w = m_f.w();
        const int base = Pos(m_f.h() * 0.9);
        m_f.Line(Pos(w * 0.2), base, Pos(w * 0.9), base);
        for (int k = 0; k <= m_x.length; k += 10) {
            const int x = Pos(static_cast<float>(m_x.scale * k) + w * 0.2);
            m_f.Line(x, base, x, base + 5);
            m_f.Label(x - 5, base + 5, QString::number(static_cast<double>(m_x.start) + k), 16);
        }
    }

    void DrawVerticalAxis()
    {
        const int left = Pos(m_f.w() * 0.1);
        m_f.Line(left, Pos(m_f.h() * 0.1), left, Pos(m_f.h() * 0.8));
        for (int k = 0; k <= m_y.length; k += 10) {
            const int y = Pos(m_f.h() * 0.8 - static_cast<float>(m_y.scale * k));
            m_f.Line(left, y, left - 5, y);
            m_f.Label(left - 20, y - 10, QString::number(static_cast<double>(m_y.start) + k), 16);
        }
    }

    // A pair's point: the offsets are single precision, the rest double.
    QPoint PairAt(int vx, int vy) const
    {
        const float dx = (static_cast<float>(vx) - m_x.start) * m_x.scale;
        const float dy = (static_cast<float>(vy) - m_y.start) * m_y.scale;
        return QPoint(Pos(dx + m_f.w() * 0.2), Pos(m_f.h() * 0.8 - dy));
    }

    QPoint MeanAt(double mx, double my) const
    {
        return QPoint(Pos((mx - m_x.start) * m_x.scale + m_f.w() * 0.2),
                      Pos(m_f.h() * 0.8 - (my - m_y.start) * m_y.scale));
    }

    void DrawPoint(const QPoint &at, int radius, OleColor colour)
    {
        m_f.surface().Ellipse(at.x() - radius, at.y() - radius, at.x() + radius, at.y() + radius);
        m_f.Fill(at.x(), at.y(), colour);
    }

    // The zigzags on both axes near the corner: the scales do not start at zero.
    void DrawAxisBreak()
    {
        const int w = m_f.w();
        const int h = m_f.h();
        const int x = Pos(w * 0.1);
        const int base = Pos(h * 0.9);
        m_f.MoveTo(x, Pos(h * 0.8));
        for (const QPoint &to :
             {QPoint(x, Pos(h * 0.83)), QPoint(x - 6, Pos(h * 0.84)), QPoint(x + 6, Pos(h * 0.86)),
              QPoint(x, Pos(h * 0.87)), QPoint(x, base), QPoint(Pos(w * 0.13), base),
              QPoint(Pos(w * 0.13 + 5.0), Pos(h * 0.9 + 6.0)), QPoint(Pos(w * 0.13 + 10.0), Pos(h * 0.9 - 6.0)),
              QPoint(Pos(w * 0.13 + 15.0), base), QPoint(Pos(w * 0.2), base)})
            m_f.LineTo(to.x(), to.y());
    }

private:
    ChartFrame &m_f;
    Axis m_x;
    Axis m_y;
};

void Summarise(const std::vector<int> &sorted, int sum, BoxSummary &s)
{
    s.count = toInt32(static_cast<long long>(sorted.size()));
    s.lowest = Maths::At(sorted, 0);
    s.highest = sorted.back();
    s.mean = Maths::RoundToPlaces(static_cast<double>(sum) / s.count, 0);
}

} // namespace

void DrawScatter(PictureBox &pFR0, std::vector<int> &visual, std::vector<int> &audio, bool showCoordinates,
                 BoxSummary &visualSummary, BoxSummary &audioSummary)
{
    ChartFrame f(pFR0, 2, true);
    std::vector<QPoint> pairs(visual.size());
    int visualSum = 0;
    int audioSum = 0;
    for (size_t i = 0; i < visual.size(); ++i) {
        pairs[i] = QPoint(visual[i], Maths::At(audio, static_cast<long long>(i)));
        visualSum = addInt32(visualSum, pairs[i].x());
        audioSum = addInt32(audioSum, pairs[i].y());
    }
    Maths::BubbleSort(visual);
    Maths::BubbleSort(audio);

    Scatter graph(f, AxisOf(visual, f.w() * 0.7), AxisOf(audio, f.h() * 0.7));
    graph.DrawHorizontalAxis();
    graph.DrawVerticalAxis();
    if (showCoordinates) {
        f.DrawWidth(1);
        for (const QPoint &pair : pairs)
            graph.DrawPoint(graph.PairAt(pair.x(), pair.y()), 3, PairPointColour);
    }
    f.DrawWidth(2);
    graph.DrawAxisBreak();
    if (showCoordinates) {
        Summarise(visual, visualSum, visualSummary);
        Summarise(audio, audioSum, audioSummary);
        f.DrawWidth(1);
        graph.DrawPoint(graph.MeanAt(visualSummary.mean, audioSummary.mean), 4, MeanPointColour);
    }
    f.Label(Pos(f.w() * 0.1) - 20, Pos(f.h() * 0.1) - 25, QCoreApplication::translate("ScatterGraph", "Audio"), 16);
    f.Label(Pos(f.w() * 0.9) - 20, Pos(f.h() * 0.91) - 25, QCoreApplication::translate("ScatterGraph", "Visual"), 16);
    f.Finish();
}

bool IsMeanPoint(const PictureBox &pFR0, int x, int y)
{
    return pFR0.PixelAt(x, y) == static_cast<qint32>(MeanPointColour);
}

std::string MeanPointMessage(const BoxSummary &visualSummary, const BoxSummary &audioSummary)
{
    return "Mean Data Point : (" + GeneralText(visualSummary.mean) + "," + GeneralText(audioSummary.mean) + ")";
}

} // namespace zrt
