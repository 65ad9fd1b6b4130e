#pragma once
// The marks a balloon's text may carry to show a formula: "^" raises the token after it as a
// power, " (Pi)" becomes the Greek pi, "/¯" puts a root sign with its bar over the token after
// it, and "[ (a,b)]" sets a pair of numbers apart. A text is cut into runs that say how each
// piece is printed; the marks themselves never print.

#include <QList>
#include <QString>

namespace zrt {

struct FormulaRun {
    enum Kind { Plain, Power, Pi, Root, Pair, LineBreak };
    Kind kind = Plain;
    QString text;

    bool operator==(const FormulaRun &other) const = default;
};

namespace FormulaText {

inline const QString kPowerMark = QStringLiteral("^");
inline const QString kPiMark = QStringLiteral(" (Pi)");
inline const QString kRootMark = QStringLiteral("/\u00AF");
inline const QChar kPairOpen = u'[';
inline const QChar kPairClose = u']';
inline const QString kPiSign = QStringLiteral("\u03C0");

// True when the text holds a mark that prints differently, so that it must be drawn rather
// than shown as it stands. A bracket around anything but a pair is no mark.
bool HasMarks(const QString &text);

// The runs of the text in order. Neighbouring plain characters make one run; a line feed is a
// run of its own; a carriage return is dropped.
QList<FormulaRun> Parse(const QString &text);

} // namespace FormulaText
} // namespace zrt
