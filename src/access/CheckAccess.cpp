#include "access/CheckAccess.h"

#include "access/AccessSupport.h"
#include "controls/Check.h"

namespace zrt::access {

CheckAccess::CheckAccess(Check *c) : QAccessibleWidget(c, QAccessible::CheckBox)
{
    WireOnce(c, [c] {
        QObject::connect(c, &Check::PropertyChanged, c, [c](const QString &name) {
            if (name == QLatin1String("Value")) {
                QAccessible::State changed;
                changed.checked = true;
                changed.checkStateMixed = true;
                NotifyState(c, changed);
            } else if (name == QLatin1String("Caption")) {
                Notify(c, QAccessible::NameChanged);
            }
        });
    });
}

Check *CheckAccess::check() const { return static_cast<Check *>(widget()); }

QString CheckAccess::text(QAccessible::Text t) const
{
    if (t == QAccessible::Name)
        return NameFrom(check()->Caption(), check());
    return QAccessibleWidget::text(t);
}

QAccessible::State CheckAccess::state() const
{
    QAccessible::State s = QAccessibleWidget::state();
    s.checkable = true;
    s.checked = check()->Value() == 1;
    s.checkStateMixed = check()->Value() == 2;
    if (!check()->Enabled())
        s.disabled = true;
    return s;
}

QStringList CheckAccess::actionNames() const
{
    return QStringList{toggleAction()} + QAccessibleWidget::actionNames();
}

void CheckAccess::doAction(const QString &action)
{
    if (action != toggleAction() && action != pressAction()) {
        QAccessibleWidget::doAction(action);
        return;
    }
    Check *c = check();
    c->BoxMouseDown(1, 0, 0, 0);
    c->BoxMouseUp(1, 0, 0, 0);
}

} // namespace zrt::access
