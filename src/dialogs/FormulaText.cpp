#include "dialogs/FormulaText.h"

#include <algorithm>

namespace zrt::FormulaText {

namespace {

// A power's or a root's token runs to the next blank or line end.
qsizetype TokenEnd(const QString &text, qsizetype from)
{
    qsizetype end = from;
    while (end < text.size() && text[end] != u' ' && text[end] != u'\n' && text[end] != u'\r')
        ++end;
    return end;
}

// " (a,b)": a blank, brackets, and one comma between two non-empty parts.
bool IsPair(const QString &inside)
{
    if (!inside.startsWith(QStringLiteral(" (")) || !inside.endsWith(u')'))
        return false;
    const QString body = inside.mid(2, inside.size() - 3);
    const qsizetype comma = body.indexOf(u',');
    return comma > 0 && comma < body.size() - 1 && body.indexOf(u',', comma + 1) < 0;
}

class Builder {
public:
    void plain(QChar c) { m_plain += c; }
    void run(FormulaRun::Kind kind, const QString &text)
    {
        flush();
        m_runs.append(FormulaRun{kind, text});
    }
    QList<FormulaRun> finish()
    {
        flush();
        return m_runs;
    }

private:
    void flush()
    {
        if (!m_plain.isEmpty())
            m_runs.append(FormulaRun{FormulaRun::Plain, m_plain});
        m_plain.clear();
    }
    QList<FormulaRun> m_runs;
    QString m_plain;
};

} // namespace

bool HasMarks(const QString &text)
{
    const QList<FormulaRun> runs = Parse(text);
    return std::any_of(runs.cbegin(), runs.cend(), [](const FormulaRun &run) {
        return run.kind != FormulaRun::Plain && run.kind != FormulaRun::LineBreak;
    });
}

QList<FormulaRun> Parse(const QString &text)
{
    Builder out;
    qsizetype i = 0;
    while (i < text.size()) {
        if (text.mid(i, kPiMark.size()) == kPiMark) {
            out.run(FormulaRun::Pi, kPiSign);
            i += kPiMark.size();
        } else if (text.mid(i, kRootMark.size()) == kRootMark) {
            const qsizetype end = TokenEnd(text, i + kRootMark.size());
            out.run(FormulaRun::Root, text.mid(i + kRootMark.size(), end - i - kRootMark.size()));
            i = end;
        } else if (text[i] == kPowerMark[0]) {
            const qsizetype end = TokenEnd(text, i + 1);
            out.run(FormulaRun::Power, text.mid(i + 1, end - i - 1));
            i = end;
        } else if (text[i] == kPairOpen) {
            const qsizetype close = text.indexOf(kPairClose, i + 1);
            const QString inside = close < 0 ? QString() : text.mid(i + 1, close - i - 1);
            if (IsPair(inside)) {
                out.run(FormulaRun::Pair, inside.mid(1));
                i = close + 1;
            } else {
                out.plain(text[i]); // a bracket around anything else is only a bracket
                ++i;
            }
        } else if (text[i] == u'\n') {
            out.run(FormulaRun::LineBreak, {});
            ++i;
        } else {
            if (text[i] != u'\r')
                out.plain(text[i]);
            ++i;
        }
    }
    return out.finish();
}

} // namespace zrt::FormulaText
