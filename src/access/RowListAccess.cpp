#include "access/RowListAccess.h"

#include "controls/RowList.h"

namespace zrt::access {

namespace {
// The row's place among the rows shown, -1 when it is scrolled out of sight.
int VisibleRow(const RowList *list, int index)
{
    const int row = index - list->TopIndex();
    return row >= 0 && row < list->VisibleRowCount() ? row : -1;
}
} // namespace

RowListAccess::RowListAccess(RowList *l)
    : QAccessibleWidget(l, QAccessible::List),
      m_rows([this](int index) -> QAccessibleInterface * { return new RowListItemAccess(this, index); })
{
    WireOnce(l, [l] {
        QObject::connect(l, &RowList::ListIndexChange, l, [l] {
            const int index = l->ListIndex();
            if (index < 0)
                return;
            if (l->hasFocus())
                Notify(l, QAccessible::Focus, index);
            Notify(l, l->SelectMode() == 0 ? QAccessible::Selection : QAccessible::SelectionWithin, index);
        });
        // A click or the space bar may toggle a row in the multiple mode.
        QObject::connect(l, &RowList::Click, l, [l] { Notify(l, QAccessible::SelectionWithin); });
    });
}

RowList *RowListAccess::list() const { return static_cast<RowList *>(widget()); }

QString RowListAccess::text(QAccessible::Text t) const
{
    if (t == QAccessible::Name && list()->accessibleName().isEmpty())
        return list()->TTipText();
    return QAccessibleWidget::text(t);
}

QAccessible::State RowListAccess::state() const
{
    QAccessible::State s = QAccessibleWidget::state();
    if (list()->SelectMode() != 0)
        s.multiSelectable = true;
    return s;
}

int RowListAccess::childCount() const { return list()->ListCount(); }

QAccessibleInterface *RowListAccess::child(int index) const
{
    return index >= 0 && index < childCount() ? m_rows.at(index) : nullptr;
}

int RowListAccess::indexOfChild(const QAccessibleInterface *child) const
{
    const int index = m_rows.indexOf(child);
    return index < childCount() ? index : -1;
}

QAccessibleInterface *RowListAccess::childAt(int x, int y) const
{
    const RowList *l = list();
    const QPoint at = l->iScr()->mapFromGlobal(QPoint(x, y));
    for (int row = 0; row < l->VisibleRowCount(); ++row) {
        const int index = l->TopIndex() + row;
        if (index < l->ListCount() && l->ItemRect(row).contains(at))
            return child(index);
    }
    return nullptr;
}

QAccessibleInterface *RowListAccess::focusChild() const
{
    if (list()->hasFocus() || list()->iScr()->hasFocus())
        return child(list()->ListIndex());
    return nullptr;
}

bool RowListItemAccess::partExists() const
{
    return m_owner->list() && index() < m_owner->list()->ListCount();
}

QString RowListItemAccess::text(QAccessible::Text t) const
{
    if (t == QAccessible::Name && partExists())
        return m_owner->list()->ItemText(index());
    return {};
}

QRect RowListItemAccess::rect() const
{
    const RowList *l = m_owner->list();
    const int row = partExists() ? VisibleRow(l, index()) : -1;
    if (row < 0)
        return {};
    const QRect local = l->ItemRect(row);
    return QRect(l->iScr()->mapToGlobal(local.topLeft()), local.size());
}

QAccessible::State RowListItemAccess::state() const
{
    QAccessible::State s;
    if (!partExists())
        return s;
    const RowList *l = m_owner->list();
    s.selectable = true;
    s.focusable = true;
    s.selected = l->ItemSelected(index());
    s.focused = index() == l->ListIndex() && (l->hasFocus() || l->iScr()->hasFocus());
    s.active = index() == l->ListIndex();
    if (VisibleRow(l, index()) < 0)
        s.offscreen = true;
    if (!l->isEnabled())
        s.disabled = true;
    if (!l->isVisible())
        s.invisible = true;
    return s;
}

QStringList RowListItemAccess::actionNames() const
{
    if (m_owner->list()->SelectMode() != 0)
        return {toggleAction(), pressAction()};
    return {pressAction()};
}

void RowListItemAccess::doAction(const QString &action)
{
    if ((action != pressAction() && action != toggleAction()) || !partExists())
        return;
    RowList *l = m_owner->list();
    if (!l->isEnabled())
        return;
    // As the keyboard does it: move to the row, then the space bar, which toggles the row in the
    // multiple mode and gives the list its Click.
    l->setListIndex(index());
    l->SurfaceKeyDown(32, 0);
}

} // namespace zrt::access
