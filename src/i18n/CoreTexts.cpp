#include "i18n/CoreTexts.h"

#include <QCoreApplication>
#include <QHash>

#include <algorithm>
#include <vector>

namespace CoreTexts {

namespace {

// The core's texts and the parts of its composed texts, as the core spells them.
const char *const kPhrases[] = {
    // Averages
    QT_TRANSLATE_NOOP("CoreTexts", "You currently have no recorded reaction times to analyse!"),
    QT_TRANSLATE_NOOP("CoreTexts", "You need at least 3 recorded reation times to do this analysis."),
    QT_TRANSLATE_NOOP("CoreTexts", "lowest Value"),
    QT_TRANSLATE_NOOP("CoreTexts", "Highest Value"),
    QT_TRANSLATE_NOOP("CoreTexts", "Range"),
    QT_TRANSLATE_NOOP("CoreTexts", "Mean"),
    QT_TRANSLATE_NOOP("CoreTexts", "Mode"),
    QT_TRANSLATE_NOOP("CoreTexts", "Median"),
    QT_TRANSLATE_NOOP("CoreTexts", "lower Quartile Q1"),
    QT_TRANSLATE_NOOP("CoreTexts", "Upper Quartile Q3"),
    QT_TRANSLATE_NOOP("CoreTexts", "Interquartile Range"),
    QT_TRANSLATE_NOOP("CoreTexts", "Lower Outlier Calculation:"),
    QT_TRANSLATE_NOOP("CoreTexts", "Upper Outlier Calculation:"),
    QT_TRANSLATE_NOOP("CoreTexts", "Variance:"),
    QT_TRANSLATE_NOOP("CoreTexts", "Standard Deviation:"),
    QT_TRANSLATE_NOOP("CoreTexts", "1/100 th"),
    QT_TRANSLATE_NOOP("CoreTexts", "1/1000 th"),
    QT_TRANSLATE_NOOP("CoreTexts", "1/10000 th"),
    QT_TRANSLATE_NOOP("CoreTexts", "Sample Size (n) = "),
    QT_TRANSLATE_NOOP("CoreTexts", "N/A"),
    // Grouped data
    QT_TRANSLATE_NOOP("CoreTexts", "Estimated Mean = "),
    QT_TRANSLATE_NOOP("CoreTexts", " to 2 d.p."),
    // Spearman's rank
    QT_TRANSLATE_NOOP("CoreTexts", "Visual(x)"),
    QT_TRANSLATE_NOOP("CoreTexts", "Rank (Rx)"),
    QT_TRANSLATE_NOOP("CoreTexts", "Audio(y)"),
    QT_TRANSLATE_NOOP("CoreTexts", "Rank (Ry)"),
    QT_TRANSLATE_NOOP("CoreTexts", "d (Rx-Ry)"),
    QT_TRANSLATE_NOOP("CoreTexts", "d^2"),
    // Box plots and the scatter graph
    QT_TRANSLATE_NOOP("CoreTexts", "Lowest value = "),
    QT_TRANSLATE_NOOP("CoreTexts", "Lower Quartile = "),
    QT_TRANSLATE_NOOP("CoreTexts", "Median = "),
    QT_TRANSLATE_NOOP("CoreTexts", "Upper Quartile = "),
    QT_TRANSLATE_NOOP("CoreTexts", "Highest value = "),
    QT_TRANSLATE_NOOP("CoreTexts", "Details:"),
    QT_TRANSLATE_NOOP("CoreTexts", "Mean Data Point : ("),
    QT_TRANSLATE_NOOP("CoreTexts", "Scale represents 1/100 ths of a second"),
    QT_TRANSLATE_NOOP("CoreTexts", "All the times are equal, so there is no box to draw."),
    QT_TRANSLATE_NOOP("CoreTexts",
                      "The times are spread too widely to draw at this precision; choose a coarser one, such as "
                      "1/100 th."),
    QT_TRANSLATE_NOOP("CoreTexts", "Key: 7|3 = 0.73 seconds"),
    // Run-time errors
    QT_TRANSLATE_NOOP("CoreTexts", "Run-time error '"),
    QT_TRANSLATE_NOOP("CoreTexts", "Invalid procedure call or argument"),
    QT_TRANSLATE_NOOP("CoreTexts", "Overflow"),
    QT_TRANSLATE_NOOP("CoreTexts", "Subscript out of range"),
    QT_TRANSLATE_NOOP("CoreTexts", "Division by zero"),
    QT_TRANSLATE_NOOP("CoreTexts", "Type mismatch"),
    QT_TRANSLATE_NOOP("CoreTexts", "Invalid property array index"),
    QT_TRANSLATE_NOOP("CoreTexts", "Application-defined or object-defined error"),
    QT_TRANSLATE_NOOP("CoreTexts", "no significant figure in "),
    QT_TRANSLATE_NOOP("CoreTexts", "the scale's step is 0: the surface is too small"),
    QT_TRANSLATE_NOOP("CoreTexts", "Path/File access error"),
    // The plain sentences under a failed analysis
    QT_TRANSLATE_NOOP("CoreTexts", "One of the collected times is empty or is not a number."),
    QT_TRANSLATE_NOOP("CoreTexts", "This sample has no audio times to compare."),
    QT_TRANSLATE_NOOP("CoreTexts",
                      "This sample has fewer audio times than visual times, so some times have no partner to "
                      "compare."),
    QT_TRANSLATE_NOOP("CoreTexts",
                      "The audio list holds more times than the visual list, so the two lists don't match."),
    QT_TRANSLATE_NOOP("CoreTexts",
                      "The times are too large, or too many, to add up at this precision; a coarser one may help."),
    QT_TRANSLATE_NOOP("CoreTexts", "Spearman's rank needs at least two pairs of times."),
    // Why a file could not be read
    QT_TRANSLATE_NOOP("CoreTexts", "it is larger than "),
    QT_TRANSLATE_NOOP("CoreTexts", "the file is not there"),
    QT_TRANSLATE_NOOP("CoreTexts", "it is a folder"),
    QT_TRANSLATE_NOOP("CoreTexts", "it is not an ordinary file"),
    QT_TRANSLATE_NOOP("CoreTexts", "the file can't be opened"),
    QT_TRANSLATE_NOOP("CoreTexts", "the file can't be read"),
    QT_TRANSLATE_NOOP("CoreTexts", "it holds no wave sound the program can play"),
    // Data files
    QT_TRANSLATE_NOOP("CoreTexts", "Reaction Time Data (*.rtd)"),
    QT_TRANSLATE_NOOP("CoreTexts", " Save the Reation Time Data as:"),
    QT_TRANSLATE_NOOP("CoreTexts", " Select Reation Time Data to open:"),
};

bool isLetter(QChar c) { return c.isLetter(); }

// The phrases longest first, so that "Interquartile Range" is taken before "Range".
const std::vector<QString> &byLength()
{
    static const std::vector<QString> sorted = [] {
        std::vector<QString> phrases;
        for (const char *p : kPhrases)
            phrases.push_back(QString::fromUtf8(p));
        std::stable_sort(phrases.begin(), phrases.end(),
                         [](const QString &a, const QString &b) { return a.size() > b.size(); });
        return phrases;
    }();
    return sorted;
}

// The phrases by their first character, each group longest first as above: at a position only
// the phrases that can start there are tried, so a long text of figures goes by quickly.
const QHash<char16_t, std::vector<const QString *>> &byFirstCharacter()
{
    static const QHash<char16_t, std::vector<const QString *>> groups = [] {
        QHash<char16_t, std::vector<const QString *>> byFirst;
        for (const QString &phrase : byLength())
            if (!phrase.isEmpty())
                byFirst[phrase.front().unicode()].push_back(&phrase);
        return byFirst;
    }();
    return groups;
}

QString translated(const QString &phrase)
{
    return QCoreApplication::translate("CoreTexts", phrase.toUtf8().constData());
}

} // namespace

QString tr(const std::string &text)
{
    const QString source = QString::fromStdString(text);
    if (source.isEmpty())
        return source;
    const QString whole = translated(source);
    if (whole != source)
        return whole;
    // One pass from left to right: a replaced phrase is never looked at again, and a phrase
    // that starts or ends with a letter is only taken as a whole word.
    const auto &groups = byFirstCharacter();
    QString out;
    out.reserve(source.size());
    qsizetype copied = 0; // the text before this has gone to out
    qsizetype i = 0;
    while (i < source.size()) {
        bool found = false;
        const auto group = groups.constFind(source[i].unicode());
        if (group != groups.cend()) {
            for (const QString *phrase : *group) {
                if (!QStringView(source).mid(i).startsWith(*phrase))
                    continue;
                const qsizetype end = i + phrase->size();
                if ((isLetter(phrase->front()) && i > 0 && isLetter(source[i - 1])) ||
                    (isLetter(phrase->back()) && end < source.size() && isLetter(source[end])))
                    continue;
                out += QStringView(source).mid(copied, i - copied);
                out += translated(*phrase);
                i = copied = end;
                found = true;
                break;
            }
        }
        if (!found)
            ++i;
    }
    out += QStringView(source).mid(copied);
    return out;
}

QString tr(const char *text) { return tr(std::string(text ? text : "")); }

int phraseCount() { return static_cast<int>(std::size(kPhrases)); }

const char *phrase(int index) { return kPhrases[index]; }

} // namespace CoreTexts
