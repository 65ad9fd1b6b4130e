#pragma once
// ShapedTabs as a page tab list: one page tab per shown tab, named by its caption, the active
// one selected; pressing a tab through the interface makes it the active one, as a click does.

#include "access/AccessSupport.h"

#include <QAccessibleWidget>

namespace zrt {
class ShapedTabs;
}

namespace zrt::access {

class ShapedTabsAccess : public QAccessibleWidget {
public:
    explicit ShapedTabsAccess(ShapedTabs *tabs);

    int childCount() const override;
    QAccessibleInterface *child(int index) const override;
    int indexOfChild(const QAccessibleInterface *child) const override;
    QAccessibleInterface *childAt(int x, int y) const override;
    QAccessibleInterface *focusChild() const override;

    ShapedTabs *tabs() const;

private:
    PartCache m_tabs;
};

class ShapedTabAccess : public PartInterface {
public:
    ShapedTabAccess(ShapedTabsAccess *owner, int tab) : PartInterface(owner, tab), m_owner(owner) {}

    QString text(QAccessible::Text t) const override;
    QRect rect() const override;
    QAccessible::Role role() const override { return QAccessible::PageTab; }
    QAccessible::State state() const override;
    QStringList actionNames() const override { return {pressAction()}; }
    void doAction(const QString &action) override;

protected:
    bool partExists() const override;

private:
    ShapedTabsAccess *m_owner;
};

} // namespace zrt::access
