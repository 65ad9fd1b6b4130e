#pragma once
// The words a chart surface says to a screen reader (its text alternative): what the chart is,
// over which times, and the values it shows. The pages choose which values may be said: only
// those the pupil has revealed.

#include <QString>
#include <QStringList>

namespace pages {

// "hundredths of a second", "thousandths of a second" or "ten-thousandths of a second" for the
// precision index 0, 1 or 2.
QString UnitsOf(int precisionIndex);
// What a chart is and what it is drawn from: "Box plot of visual reaction times, 20 values, in
// hundredths of a second."
QString ChartIntro(const QString &chart, bool audio, int count, int precisionIndex);
// "lowest value 21, lower quartile 25, median 30, upper quartile 33, highest value 41"
QString FiveNumbers(double lowest, double lowerQuartile, double median, double upperQuartile, double highest);
// A class of the grouped tables in words: "20 to under 30".
QString ClassWords(int lowStem, int highStem);
// A number as the charts print it: its shortest decimal text.
QString Number(double value);
// Sentences joined by a blank, the empty ones left out.
QString Sentences(const QStringList &sentences);

} // namespace pages
