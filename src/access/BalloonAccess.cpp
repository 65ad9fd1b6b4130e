#include "access/BalloonAccess.h"

#include "dialogs/FormulaText.h"
#include "dialogs/msgFrm.h"

#include <QLabel>

namespace zrt::access {

QString SpokenFormula(const QString &text)
{
    if (!FormulaText::HasMarks(text))
        return text;
    QString spoken;
    for (const FormulaRun &run : FormulaText::Parse(text)) {
        switch (run.kind) {
        case FormulaRun::Plain: spoken += run.text; break;
        case FormulaRun::Power: spoken += QStringLiteral(" to the power ") + run.text + u' '; break;
        case FormulaRun::Pi: spoken += QStringLiteral(" pi"); break;
        case FormulaRun::Root: spoken += QStringLiteral("the square root of ") + run.text + u' '; break;
        case FormulaRun::Pair: spoken += run.text; break;
        case FormulaRun::LineBreak: spoken += u'\n'; break;
        }
    }
    return spoken.simplified();
}

BalloonAccess::BalloonAccess(msgFrm *b) : QAccessibleWidget(b, QAccessible::Dialog) {}

msgFrm *BalloonAccess::balloon() const { return static_cast<msgFrm *>(widget()); }

QString BalloonAccess::text(QAccessible::Text t) const
{
    const msgFrm *b = balloon();
    const QLabel *title = nullptr;
    const QLabel *message = nullptr;
    switch (b->ShownPanel()) {
    case msgFrm::MessagePanel: title = b->LblTitle(); message = b->lblmsg(); break;
    case msgFrm::TimedPanel: title = b->aTitle(); message = b->aMsg(); break;
    case msgFrm::InputPanel: title = b->iTitle(); message = b->iMsg(); break;
    case msgFrm::LinkPanel: title = b->Label3(); break;
    }
    if (t == QAccessible::Name) {
        if (title && !title->text().trimmed().isEmpty())
            return title->text().trimmed();
        if (!b->accessibleName().isEmpty())
            return b->accessibleName();
        return b->windowTitle();
    }
    if (t == QAccessible::Description && message && b->accessibleDescription().isEmpty())
        return SpokenFormula(message->text());
    return QAccessibleWidget::text(t);
}

} // namespace zrt::access
