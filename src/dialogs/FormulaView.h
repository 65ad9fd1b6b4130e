#pragma once
// The surface that prints a balloon's text with its formula signs: raised powers, pi, root
// signs with their bar and pairs set apart. It wraps at blanks like a word-wrapping label, so
// that it can stand in the label's place.

#include "dialogs/FormulaText.h"

#include <QColor>
#include <QFont>
#include <QList>
#include <QWidget>

namespace zrt {

class FormulaView : public QWidget {
    Q_OBJECT
public:
    explicit FormulaView(QWidget *parent = nullptr);

    void setText(const QString &text);
    QString text() const { return m_text; }
    const QList<FormulaRun> &runs() const { return m_runs; }

    void setForeColor(const QColor &colour);

    // Lines the text takes at a width, and the height they need.
    int lineCountForWidth(int width) const;
    bool hasHeightForWidth() const override { return true; }
    int heightForWidth(int width) const override;
    QSize sizeHint() const override;

    // Room above each line for a raised power or a root's bar.
    static constexpr int kRaiseRoom = 6;
    // Gap on each side of a pair set apart.
    static constexpr int kPairGap = 4;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    // One unbreakable piece of the text with its measured width.
    struct Piece {
        FormulaRun::Kind kind;
        QString text;
        int width = 0;
        bool blank = false;
    };
    struct Placed {
        Piece piece;
        int x = 0;
        int line = 0;
    };

    QList<Piece> pieces() const;
    QList<Placed> layout(int width) const;
    int lineHeight() const;
    QFont powerFont() const;
    QFont pairFont() const;
    int rootSignWidth() const;
    int measure(const Piece &piece) const;

    void drawPlain(QPainter &painter, const Placed &placed, int baseline) const;
    void drawPower(QPainter &painter, const Placed &placed, int baseline) const;
    void drawRoot(QPainter &painter, const Placed &placed, int baseline) const;
    void drawPair(QPainter &painter, const Placed &placed, int baseline) const;

    QString m_text;
    QList<FormulaRun> m_runs;
    QColor m_foreColor = Qt::black;
};

} // namespace zrt
