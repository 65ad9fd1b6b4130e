#include "dialogs/FormulaView.h"

#include <QFontMetrics>
#include <QPainter>

#include <algorithm>

namespace zrt {

FormulaView::FormulaView(QWidget *parent)
    : QWidget(parent)
{
    setAttribute(Qt::WA_TransparentForMouseEvents);
}

void FormulaView::setText(const QString &text)
{
    m_text = text;
    m_runs = FormulaText::Parse(text);
    updateGeometry();
    update();
}

void FormulaView::setForeColor(const QColor &colour)
{
    m_foreColor = colour;
    update();
}

QFont FormulaView::powerFont() const
{
    QFont small = font();
    if (small.pixelSize() > 0)
        small.setPixelSize(qMax(6, small.pixelSize() * 3 / 4));
    else
        small.setPointSizeF(qMax(5.0, small.pointSizeF() * 0.75));
    return small;
}

QFont FormulaView::pairFont() const
{
    QFont bold = font();
    bold.setBold(true);
    return bold;
}

int FormulaView::rootSignWidth() const
{
    return QFontMetrics(font()).height() / 2 + 3;
}

int FormulaView::lineHeight() const
{
    return QFontMetrics(font()).height() + kRaiseRoom;
}

int FormulaView::measure(const Piece &piece) const
{
    switch (piece.kind) {
    case FormulaRun::Power:
        return QFontMetrics(powerFont()).horizontalAdvance(piece.text);
    case FormulaRun::Root:
        return rootSignWidth() + QFontMetrics(font()).horizontalAdvance(piece.text) + 1;
    case FormulaRun::Pair:
        return QFontMetrics(pairFont()).horizontalAdvance(piece.text) + 2 * kPairGap;
    case FormulaRun::LineBreak:
        return 0;
    case FormulaRun::Plain:
    case FormulaRun::Pi:
        break;
    }
    return QFontMetrics(font()).horizontalAdvance(piece.text);
}

QList<FormulaView::Piece> FormulaView::pieces() const
{
    QList<Piece> out;
    auto add = [&](FormulaRun::Kind kind, const QString &text, bool blank) {
        Piece piece{kind, text, 0, blank};
        piece.width = measure(piece);
        out.append(piece);
    };
    for (const FormulaRun &run : m_runs) {
        if (run.kind != FormulaRun::Plain) {
            add(run.kind, run.text, false);
            continue;
        }
        // Plain text breaks at blanks: words and blanks become pieces of their own.
        QString word;
        for (QChar c : run.text) {
            if (c == u' ') {
                if (!word.isEmpty())
                    add(FormulaRun::Plain, word, false);
                word.clear();
                add(FormulaRun::Plain, QStringLiteral(" "), true);
            } else {
                word += c;
            }
        }
        if (!word.isEmpty())
            add(FormulaRun::Plain, word, false);
    }
    return out;
}

QList<FormulaView::Placed> FormulaView::layout(int width) const
{
    const QList<Piece> all = pieces();
    QList<Placed> placed;
    int x = 0;
    int line = 0;
    qsizetype i = 0;
    while (i < all.size()) {
        if (all[i].kind == FormulaRun::LineBreak) {
            ++line;
            x = 0;
            ++i;
            continue;
        }
        if (all[i].blank) {
            if (x > 0) { // a blank that starts a line is dropped, as a wrapping label does
                placed.append(Placed{all[i], x, line});
                x += all[i].width;
            }
            ++i;
            continue;
        }
        // A word is every piece up to the next blank or line feed: "2" and its pi stay together.
        qsizetype end = i;
        int wordWidth = 0;
        while (end < all.size() && !all[end].blank && all[end].kind != FormulaRun::LineBreak)
            wordWidth += all[end++].width;
        if (x > 0 && x + wordWidth > width) {
            ++line;
            x = 0;
        }
        for (; i < end; ++i) {
            placed.append(Placed{all[i], x, line});
            x += all[i].width;
        }
    }
    return placed;
}

int FormulaView::lineCountForWidth(int width) const
{
    if (m_runs.isEmpty())
        return 0;
    int lines = 1 + static_cast<int>(std::count_if(m_runs.cbegin(), m_runs.cend(),
                                                   [](const FormulaRun &r) { return r.kind == FormulaRun::LineBreak; }));
    for (const Placed &p : layout(width))
        lines = qMax(lines, p.line + 1);
    return lines;
}

int FormulaView::heightForWidth(int width) const
{
    return lineCountForWidth(width) * lineHeight();
}

QSize FormulaView::sizeHint() const
{
    const int w = width() > 0 ? width() : 300;
    return {w, heightForWidth(w)};
}

void FormulaView::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::TextAntialiasing);
    painter.setPen(m_foreColor);
    const int ascent = QFontMetrics(font()).ascent();
    for (const Placed &placed : layout(width())) {
        const int baseline = placed.line * lineHeight() + kRaiseRoom + ascent;
        switch (placed.piece.kind) {
        case FormulaRun::Power:
            drawPower(painter, placed, baseline);
            break;
        case FormulaRun::Root:
            drawRoot(painter, placed, baseline);
            break;
        case FormulaRun::Pair:
            drawPair(painter, placed, baseline);
            break;
        case FormulaRun::Plain:
        case FormulaRun::Pi:
        case FormulaRun::LineBreak:
            drawPlain(painter, placed, baseline);
            break;
        }
    }
}

void FormulaView::drawPlain(QPainter &painter, const Placed &placed, int baseline) const
{
    painter.setFont(font());
    painter.drawText(placed.x, baseline, placed.piece.text);
}

void FormulaView::drawPower(QPainter &painter, const Placed &placed, int baseline) const
{
    painter.setFont(powerFont());
    const int raise = QFontMetrics(font()).ascent() * 2 / 5;
    painter.drawText(placed.x, baseline - raise, placed.piece.text);
}

void FormulaView::drawRoot(QPainter &painter, const Placed &placed, int baseline) const
{
    // The sign: a short stroke down to the baseline and a long one up to the bar, which then
    // runs on over the token.
    const QFontMetrics metrics(font());
    const int top = baseline - metrics.capHeight() - 3; // just clear of digits and capitals
    const int sign = rootSignWidth();
    const int x = placed.x;
    const int right = x + placed.piece.width;
    painter.drawLine(x, baseline - metrics.ascent() / 3, x + sign / 3, baseline);
    painter.drawLine(x + sign / 3, baseline, x + sign - 1, top);
    painter.drawLine(x + sign - 1, top, right, top);
    painter.setFont(font());
    painter.drawText(x + sign, baseline, placed.piece.text);
}

void FormulaView::drawPair(QPainter &painter, const Placed &placed, int baseline) const
{
    painter.setFont(pairFont());
    painter.drawText(placed.x + kPairGap, baseline, placed.piece.text);
}

} // namespace zrt
