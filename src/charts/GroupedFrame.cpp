#include "charts/GroupedFrame.h"

namespace zrt {

double RowTop(const ChartFrame &f, int g, int i) { return f.h() * 0.1 + static_cast<double>(g) * i; }

int TableBottom(const ChartFrame &f, const ClassTable &t)
{
    return Pos(f.h() * 0.1 + static_cast<double>(t.rowCount) * t.rowHeight);
}

int LabelLeft(double left, int stem, int g)
{
    return std::to_string(stem).size() > 1 ? Pos(left - g / 2.0) : Pos(left);
}

QString LastLabel(const ClassTable &t, bool cumulative)
{
    if (t.rows.empty())
        return {};
    return QString::fromStdString(cumulative ? t.rows.back().cumulativeLabel : t.rows.back().label);
}

void DrawClassColumnAndFrame(ChartFrame &f, const ClassTable &t)
{
    const int w = f.w();
    const int g = t.rowHeight;
    f.DrawWidth(1);
    for (size_t i = 0; i < t.rows.size(); ++i) {
        const int x = LabelLeft(w * 0.05, t.rows[i].stem, g);
        const int y = Pos(RowTop(f, g, static_cast<int>(i)));
        DrawClassLabel(f, x, y, x, QString::fromStdString(t.rows[i].label), g, true, 0);
    }

    f.DrawWidth(2);
    const int left = Pos(w * 0.02);
    const int right = Pos(w - w * 0.02);
    const int bottom = TableBottom(f, t);
    f.MoveTo(left, 15);
    f.LineTo(left, bottom);
    f.LineTo(right, bottom);
    f.LineTo(right, 15);
    f.LineTo(left, 15);
    const int header = Pos(f.h() * 0.1);
    f.Line(left, header, right, header);
    f.Fill(Pos(w * 0.05), Pos(f.h() * 0.07), HeaderFillColour);
}

} // namespace zrt
