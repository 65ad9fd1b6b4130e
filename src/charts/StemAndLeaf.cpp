#include "charts/StemAndLeaf.h"

#include "charts/ChartFrame.h"
#include "charts/Drawings.h"
#include "common/RunTimeError.h"
#include "stats/Averages.h"
#include "stats/Maths.h"

#include <algorithm>

namespace zrt {

namespace {

constexpr OleColor LeafColour = RGB(128, 0, 0);

int RowHeightOf(int rows)
{
    if (rows < 9)
        return 34;
    if (rows <= 11)
        return 26;
    return 18;
}

int LeadingDigits(int value, size_t count) { return std::stoi(std::to_string(value).substr(0, count)); }

// Times as whole hundredths, in an array sized by cl2's count.
std::vector<int> HundredthsOf(const std::vector<std::string> &items, int visualCount)
{
    std::vector<int> values(static_cast<size_t>(visualCount), 0);
    const PrecisionScale hundredths = ScaleOfPrecision(0);
    for (size_t i = 0; i < items.size(); ++i) {
        const int v = ScaledItem(items[i], hundredths);
        if (i >= values.size())
            raise(ErrSubscript);
        values[i] = v;
    }
    return values;
}

// The leaf row with the longest text; the first one wins a tie.
size_t LongestRow(const std::vector<StemRow> &rows)
{
    size_t longest = 0;
    for (size_t i = 1; i < rows.size(); ++i)
        if (rows[i].leaves.size() > rows[longest].leaves.size())
            longest = i;
    return longest;
}

// The largest height from g down to 12 at which the longest leaves fit beside the divider.
// Letters only widen with the height, so leaves too long at 12 are too long at every height
// tried: that case, the usual one for a long list, needs one measurement instead of one per height.
int FittedHeight(int g, int w, const QString &longest)
{
    auto fits = [&](int f) { return w - (w * 0.1 + f * 0.75 + 5.0) >= Drawings::MeasureFont(f, 0, longest); };
    if (g >= 12 && !fits(12))
        return 12;
    int f = g + 1;
    for (;;) {
        --f;
        if (f < 12)
            return 12;
        if (fits(f))
            return f;
    }
}

// Leaves wider than the room left of the surface's edge end with the last whole leaf that
// fits and an ellipsis, so a long row is seen to go on instead of running off the surface.
QString FittedLeaves(const QString &leaves, int height, int room)
{
    if (Drawings::LabelAdvance(height, 0, leaves) <= room)
        return leaves;
    const QString more = QString(QChar(0x2026));
    QString shown = leaves;
    const double limit = room - Drawings::LabelAdvance(height, 0, QStringLiteral(" ") + more);
    // The advance grows with the text, so the cut is found by halving, among no more characters
    // than could fit at a pixel each.
    qsizetype low = 0, high = std::min<qsizetype>(leaves.size(), std::max(0, room) + 1);
    while (low < high) {
        const qsizetype mid = (low + high + 1) / 2;
        if (Drawings::LabelAdvance(height, 0, leaves.left(mid)) <= limit)
            low = mid;
        else
            high = mid - 1;
    }
    shown = leaves.left(low);
    const qsizetype lastBlank = shown.lastIndexOf(QLatin1Char(' '));
    if (low < leaves.size() && leaves[low] != QLatin1Char(' ') && lastBlank >= 0)
        shown.truncate(lastBlank); // no leaf is cut in two
    return shown + QStringLiteral(" ") + more;
}

} // namespace

std::vector<StemRow> StemRows(std::vector<int> &values)
{
    Maths::BubbleSort(values);
    const int first = Maths::At(values, 0);
    const int last = values.back();
    // The low stem is always one character; the high one two when the value has three digits.
    const int a = first < 0 ? 0 : LeadingDigits(first, 1);
    const int b = last < 0 ? 0 : LeadingDigits(last, last > 99 ? 2 : 1);
    if (b < a)
        raise(ErrSubscript); // no rows to size the table with
    std::vector<std::string> texts;
    texts.reserve(values.size());
    for (int v : values)
        texts.push_back(std::to_string(v));

    std::vector<StemRow> rows;
    for (int stem = a; stem <= b; ++stem) {
        StemRow row{std::to_string(stem), {}};
        for (const std::string &text : texts)
            if (text.compare(0, row.stem.size(), row.stem) == 0) {
                row.leaves += ' ';
                row.leaves.append(text, row.stem.size());
            }
        rows.push_back(std::move(row));
    }
    return rows;
}

void DrawStemAndLeaf(PictureBox &PicSL, const std::vector<std::string> &items, int visualCount, bool showLeaves)
{
    ChartFrame f(PicSL, 3, true);
    if (visualCount < 1) {
        f.Finish();
        return;
    }
    std::vector<int> values = HundredthsOf(items, visualCount);
    const std::vector<StemRow> rows = StemRows(values);
    const int w = f.w();
    const int h = f.h();
    const int r = static_cast<int>(rows.size());
    const int g = RowHeightOf(r);

    for (int i = 0; i < r; ++i) {
        const QString stem = QString::fromStdString(rows[static_cast<size_t>(i)].stem);
        const int x = stem.size() == 1 ? Pos(w * 0.1) : Pos(w * 0.1 - g / 2.0);
        f.Label(x, Pos(h * 0.1 + g * i), stem, g);
    }
    const int divider = Pos(w * 0.1 + g * 0.75);
    f.Line(divider, Pos(h * 0.1), divider, Pos(h * 0.1 + r * g));

    if (showLeaves) {
        f.ForeColor(LeafColour);
        const QString longest = QString::fromStdString(rows[LongestRow(rows)].leaves);
        const int height = FittedHeight(g, w, longest);
        const int leafX = Pos(w * 0.1 + g * 0.75 + 5.0);
        for (int i = 0; i < r; ++i)
            f.Label(leafX, Pos(h * 0.1 + g * i),
                    FittedLeaves(QString::fromStdString(rows[static_cast<size_t>(i)].leaves), height, w - 2 - leafX),
                    height, LeafColour);
        const QString key = QString::fromLatin1(StemKeyText);
        const int width = Drawings::MeasureFont(24, 0, key);
        f.Label(w - width - 30, Pos(h * 0.9), key, 24, LeafColour);
    }
    f.Finish();
    PicSL.Refresh();
}

} // namespace zrt
