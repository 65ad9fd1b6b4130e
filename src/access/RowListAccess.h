#pragma once
// RowList as a list whose rows are its children: each row is a list item named by its text,
// selected as the list has it, and pressed as the keyboard would (moved to, then the space bar).

#include "access/AccessSupport.h"

#include <QAccessibleWidget>

namespace zrt {
class RowList;
}

namespace zrt::access {

class RowListAccess : public QAccessibleWidget {
public:
    explicit RowListAccess(RowList *list);

    QString text(QAccessible::Text t) const override;
    QAccessible::State state() const override;
    int childCount() const override;
    QAccessibleInterface *child(int index) const override;
    int indexOfChild(const QAccessibleInterface *child) const override;
    QAccessibleInterface *childAt(int x, int y) const override;
    QAccessibleInterface *focusChild() const override;

    RowList *list() const;

private:
    PartCache m_rows;
};

class RowListItemAccess : public PartInterface {
public:
    RowListItemAccess(RowListAccess *owner, int row) : PartInterface(owner, row), m_owner(owner) {}

    QString text(QAccessible::Text t) const override;
    QRect rect() const override;
    QAccessible::Role role() const override { return QAccessible::ListItem; }
    QAccessible::State state() const override;
    QStringList actionNames() const override;
    void doAction(const QString &action) override;

protected:
    bool partExists() const override;

private:
    RowListAccess *m_owner;
};

} // namespace zrt::access
