#pragma once
// ucTableView as a table: the column headings first, then one cell per row and column, named by
// its text; a row is selected as the control has it. The inner list widget, which takes the
// keyboard focus, answers as the same table, so a screen reader that follows the focus meets a
// table there too and never Qt's tree of the inner list.

#include "access/AccessSupport.h"

#include <QAccessibleWidget>

class QTreeWidget;

namespace zrt {
class ucTableView;
}

namespace zrt::access {

class TableViewAccess : public QAccessibleWidget, public QAccessibleTableInterface {
public:
    // host is the control itself or its inner list; the rows and cells are the control's.
    TableViewAccess(QWidget *host, ucTableView *view);

    bool isValid() const override;
    QString text(QAccessible::Text t) const override;
    int childCount() const override;
    QAccessibleInterface *child(int index) const override;
    int indexOfChild(const QAccessibleInterface *child) const override;
    QAccessibleInterface *childAt(int x, int y) const override;
    QAccessibleInterface *focusChild() const override;
    void *interface_cast(QAccessible::InterfaceType t) override;

    // QAccessibleTableInterface
    QAccessibleInterface *caption() const override { return nullptr; }
    QAccessibleInterface *summary() const override { return nullptr; }
    QAccessibleInterface *cellAt(int row, int column) const override;
    int selectedCellCount() const override;
    QList<QAccessibleInterface *> selectedCells() const override;
    QString columnDescription(int column) const override;
    QString rowDescription(int) const override { return {}; }
    int selectedColumnCount() const override { return 0; }
    int selectedRowCount() const override;
    int columnCount() const override;
    int rowCount() const override;
    QList<int> selectedColumns() const override { return {}; }
    QList<int> selectedRows() const override;
    bool isColumnSelected(int) const override { return false; }
    bool isRowSelected(int row) const override;
    bool selectRow(int row) override;
    bool selectColumn(int) override { return false; }
    bool unselectRow(int row) override;
    bool unselectColumn(int) override { return false; }
    // Cells are known by row and column, so a change of the rows leaves nothing to forget.
    void modelChange(QAccessibleTableModelChangeEvent *) override {}

    ucTableView *view() const;
    int headerCount() const;
    QAccessibleInterface *headerAt(int column) const;

private:
    QPointer<ucTableView> m_view;
    PartCache m_headers;
    PartCache m_cells;
};

class TableHeaderAccess : public PartInterface {
public:
    TableHeaderAccess(TableViewAccess *owner, int column) : PartInterface(owner, column), m_owner(owner) {}

    QString text(QAccessible::Text t) const override;
    QRect rect() const override;
    QAccessible::Role role() const override { return QAccessible::ColumnHeader; }
    QAccessible::State state() const override;

protected:
    bool partExists() const override;

private:
    TableViewAccess *m_owner;
};

class TableCellAccess : public PartInterface, public QAccessibleTableCellInterface {
public:
    TableCellAccess(TableViewAccess *owner, int row, int column, int key)
        : PartInterface(owner, key), m_owner(owner), m_row(row), m_column(column)
    {
    }

    QString text(QAccessible::Text t) const override;
    QRect rect() const override;
    QAccessible::Role role() const override { return QAccessible::Cell; }
    QAccessible::State state() const override;
    void *interface_cast(QAccessible::InterfaceType type) override;
    QStringList actionNames() const override;
    void doAction(const QString &action) override;

    // QAccessibleTableCellInterface
    bool isSelected() const override;
    QList<QAccessibleInterface *> columnHeaderCells() const override;
    QList<QAccessibleInterface *> rowHeaderCells() const override { return {}; }
    int columnIndex() const override { return m_column; }
    int rowIndex() const override { return m_row; }
    int columnExtent() const override { return 1; }
    int rowExtent() const override { return 1; }
    QAccessibleInterface *table() const override { return m_owner; }

protected:
    bool partExists() const override;

private:
    TableViewAccess *m_owner;
    int m_row;
    int m_column;
};

} // namespace zrt::access
