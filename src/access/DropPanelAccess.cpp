#include "access/DropPanelAccess.h"

#include "access/AccessSupport.h"
#include "controls/DropPanel.h"

#include <QLabel>

namespace zrt::access {

namespace {
QList<QWidget *> Body(const DropPanel *panel) { return ChildWidgets(panel, {panel->LblTitle()}); }

void NotifyFold(DropPanel *panel)
{
    QAccessible::State changed;
    changed.expanded = true;
    changed.collapsed = true;
    NotifyState(panel, changed);
}
} // namespace

DropPanelAccess::DropPanelAccess(DropPanel *p) : QAccessibleWidget(p, QAccessible::ComboBox)
{
    WireOnce(p, [p] {
        // The panel says it opens before it has; the notice waits until it is open.
        QObject::connect(p, &DropPanel::OnExpand, p, [p] { NotifyFold(p); }, Qt::QueuedConnection);
        QObject::connect(p, &DropPanel::OnCollapse, p, [p] { NotifyFold(p); });
    });
}

DropPanel *DropPanelAccess::panel() const { return static_cast<DropPanel *>(widget()); }

QString DropPanelAccess::text(QAccessible::Text t) const
{
    if (t == QAccessible::Value)
        return SpokenCaption(panel()->Title());
    if (t == QAccessible::Name && panel()->accessibleName().isEmpty())
        return SpokenCaption(panel()->Title());
    return QAccessibleWidget::text(t);
}

QAccessible::State DropPanelAccess::state() const
{
    QAccessible::State s = QAccessibleWidget::state();
    s.expandable = true;
    s.expanded = panel()->Expanded();
    s.collapsed = panel()->Collapsed();
    s.hasPopup = true;
    return s;
}

int DropPanelAccess::childCount() const { return static_cast<int>(Body(panel()).size()); }

QAccessibleInterface *DropPanelAccess::child(int index) const
{
    const QList<QWidget *> body = Body(panel());
    return index >= 0 && index < body.size() ? QAccessible::queryAccessibleInterface(body[index]) : nullptr;
}

int DropPanelAccess::indexOfChild(const QAccessibleInterface *child) const
{
    if (!child || !child->object())
        return -1;
    return static_cast<int>(Body(panel()).indexOf(qobject_cast<QWidget *>(child->object())));
}

QStringList DropPanelAccess::actionNames() const
{
    return QStringList{pressAction(), showMenuAction()} + QAccessibleWidget::actionNames();
}

void DropPanelAccess::doAction(const QString &action)
{
    DropPanel *p = panel();
    if (action == pressAction()) {
        if (p->Collapsed())
            p->Expand();
        else
            p->Collapse();
    } else if (action == showMenuAction()) {
        if (p->Collapsed())
            p->Expand();
    } else {
        QAccessibleWidget::doAction(action);
    }
}

} // namespace zrt::access
