#include "app/pages/ChartWords.h"

#include "common/NumberText.h"

#include <QCoreApplication>

namespace pages {

QString UnitsOf(int precisionIndex)
{
    switch (precisionIndex) {
    case 1: return QCoreApplication::translate("ChartWords", "thousandths of a second");
    case 2: return QCoreApplication::translate("ChartWords", "ten-thousandths of a second");
    default: return QCoreApplication::translate("ChartWords", "hundredths of a second");
    }
}

QString ChartIntro(const QString &chart, bool audio, int count, int precisionIndex)
{
    const QString times = audio ? QCoreApplication::translate("ChartWords", "audio reaction times")
                                : QCoreApplication::translate("ChartWords", "visual reaction times");
    return QCoreApplication::translate("ChartWords", "%1 of %2, %n values, in %3.", nullptr, count)
        .arg(chart, times, UnitsOf(precisionIndex));
}

QString FiveNumbers(double lowest, double lowerQuartile, double median, double upperQuartile, double highest)
{
    return QCoreApplication::translate(
               "ChartWords", "lowest value %1, lower quartile %2, median %3, upper quartile %4, highest value %5")
        .arg(Number(lowest), Number(lowerQuartile), Number(median), Number(upperQuartile), Number(highest));
}

QString ClassWords(int lowStem, int highStem)
{
    return QCoreApplication::translate("ChartWords", "%1 to under %2").arg(lowStem * 10).arg((highStem + 1) * 10);
}

QString Number(double value) { return QString::fromStdString(zrt::GeneralText(value)); }

QString Sentences(const QStringList &sentences)
{
    QStringList kept;
    for (const QString &s : sentences)
        if (!s.isEmpty())
            kept << s;
    return kept.join(QLatin1Char(' '));
}

} // namespace pages
