#pragma once
// ThemedToolbar as a tool bar whose buttons are its children: each a push button named by its
// caption (else its tool tip), checkable when it toggles, with a press that clicks it and, for
// a drop-down button, a menu action that opens its arrow.

#include "access/AccessSupport.h"

#include <QAccessibleWidget>

namespace zrt {
class ThemedToolbar;
}

namespace zrt::access {

class ToolbarAccess : public QAccessibleWidget {
public:
    explicit ToolbarAccess(ThemedToolbar *bar);

    int childCount() const override;
    QAccessibleInterface *child(int index) const override;
    int indexOfChild(const QAccessibleInterface *child) const override;
    QAccessibleInterface *childAt(int x, int y) const override;

    ThemedToolbar *bar() const;

private:
    PartCache m_buttons;
};

class ToolbarButtonAccess : public PartInterface {
public:
    // index is the child's place, 0-based; the toolbar numbers its buttons from 1.
    ToolbarButtonAccess(ToolbarAccess *owner, int index) : PartInterface(owner, index), m_owner(owner) {}

    QString text(QAccessible::Text t) const override;
    QRect rect() const override;
    QAccessible::Role role() const override;
    QAccessible::State state() const override;
    QStringList actionNames() const override;
    void doAction(const QString &action) override;

protected:
    bool partExists() const override;

private:
    int button() const { return index() + 1; }
    ToolbarAccess *m_owner;
};

} // namespace zrt::access
