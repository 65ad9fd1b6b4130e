#include "access/ShapedTabsAccess.h"

#include "controls/ShapedTabs.h"

namespace zrt::access {

namespace {
int ShownTabs(const ShapedTabs *tabs)
{
    const int count = tabs->NumberOfTabs();
    return count >= 1 && count <= ShapedTabs::MaxTabs ? count : 0;
}
} // namespace

ShapedTabsAccess::ShapedTabsAccess(ShapedTabs *t)
    : QAccessibleWidget(t, QAccessible::PageTabList),
      m_tabs([this](int index) -> QAccessibleInterface * { return new ShapedTabAccess(this, index); })
{
    WireOnce(t, [t] {
        QObject::connect(t, &ShapedTabs::Click, t, [t](int &) {
            const int active = t->ActiveTab();
            QAccessible::State changed;
            changed.selected = true;
            NotifyState(t, changed, active);
            Notify(t, QAccessible::Selection, active);
        });
    });
}

ShapedTabs *ShapedTabsAccess::tabs() const { return static_cast<ShapedTabs *>(widget()); }

int ShapedTabsAccess::childCount() const { return ShownTabs(tabs()); }

QAccessibleInterface *ShapedTabsAccess::child(int index) const
{
    return index >= 0 && index < childCount() ? m_tabs.at(index) : nullptr;
}

int ShapedTabsAccess::indexOfChild(const QAccessibleInterface *child) const
{
    const int index = m_tabs.indexOf(child);
    return index < childCount() ? index : -1;
}

QAccessibleInterface *ShapedTabsAccess::childAt(int x, int y) const
{
    for (int i = 0; i < childCount(); ++i)
        if (QAccessibleInterface *tab = child(i); tab && tab->rect().contains(x, y))
            return tab;
    return nullptr;
}

QAccessibleInterface *ShapedTabsAccess::focusChild() const
{
    return tabs()->hasFocus() ? child(tabs()->ActiveTab()) : nullptr;
}

bool ShapedTabAccess::partExists() const { return m_owner->tabs() && index() < ShownTabs(m_owner->tabs()); }

QString ShapedTabAccess::text(QAccessible::Text t) const
{
    if (t == QAccessible::Name && partExists())
        return SpokenCaption(m_owner->tabs()->TabCaption(index()));
    return {};
}

QRect ShapedTabAccess::rect() const
{
    if (!partExists())
        return {};
    const ShapedTabs *t = m_owner->tabs();
    const int top = index() == t->ActiveTab() ? ShapedTabs::ActiveTop : ShapedTabs::TabTop;
    const QRect local(t->TabLeft(index()), top, t->TabWidth(index()), ShapedTabs::TabBottom - top + 1);
    return QRect(t->mapToGlobal(local.topLeft()), local.size());
}

QAccessible::State ShapedTabAccess::state() const
{
    QAccessible::State s;
    if (!partExists())
        return s;
    const ShapedTabs *t = m_owner->tabs();
    s.selectable = true;
    s.selected = index() == t->ActiveTab();
    if (!t->isEnabled())
        s.disabled = true;
    if (!t->isVisible())
        s.invisible = true;
    return s;
}

void ShapedTabAccess::doAction(const QString &action)
{
    if (action != pressAction() || !partExists())
        return;
    ShapedTabs *t = m_owner->tabs();
    // A click on the active tab does nothing, and neither does this.
    if (t->isEnabled() && index() != t->ActiveTab())
        t->setActiveTab(index());
}

} // namespace zrt::access
