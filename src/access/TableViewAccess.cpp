#include "access/TableViewAccess.h"

#include "controls/ucTableView.h"

#include <QHeaderView>
#include <QTreeWidget>

namespace zrt::access {

namespace {
// Cells are cached under one number made of their row and column.
constexpr int kColumnsPerKey = 4096;

int CellKey(int row, int column) { return row * kColumnsPerKey + column; }

QRect GlobalRect(const QWidget *widget, const QRect &local)
{
    return local.isValid() ? QRect(widget->mapToGlobal(local.topLeft()), local.size()) : QRect();
}
} // namespace

TableViewAccess::TableViewAccess(QWidget *host, ucTableView *v)
    : QAccessibleWidget(host, QAccessible::Table),
      m_view(v),
      m_headers([this](int column) -> QAccessibleInterface * { return new TableHeaderAccess(this, column); }),
      m_cells([this](int key) -> QAccessibleInterface * {
          return new TableCellAccess(this, key / kColumnsPerKey, key % kColumnsPerKey, key);
      })
{
    WireOnce(v, [v] {
        QObject::connect(v, &ucTableView::ItemClick, v, [v](int) { Notify(v, QAccessible::SelectionWithin); });
    });
}

ucTableView *TableViewAccess::view() const { return m_view; }

bool TableViewAccess::isValid() const { return m_view && QAccessibleWidget::isValid(); }

QString TableViewAccess::text(QAccessible::Text t) const
{
    // The inner list has no name of its own; it is the control.
    if (t == QAccessible::Name && widget() != m_view && m_view)
        return m_view->accessibleName();
    return QAccessibleWidget::text(t);
}

int TableViewAccess::columnCount() const { return m_view ? std::min(m_view->ColumnCount(), kColumnsPerKey) : 0; }

int TableViewAccess::rowCount() const { return m_view ? m_view->Count() : 0; }

int TableViewAccess::headerCount() const { return m_view && !m_view->HeaderHide() ? columnCount() : 0; }

QAccessibleInterface *TableViewAccess::headerAt(int column) const
{
    return column >= 0 && column < columnCount() ? m_headers.at(column) : nullptr;
}

int TableViewAccess::childCount() const { return headerCount() + rowCount() * columnCount(); }

QAccessibleInterface *TableViewAccess::child(int index) const
{
    if (index < 0 || index >= childCount())
        return nullptr;
    if (index < headerCount())
        return headerAt(index);
    const int cell = index - headerCount();
    return cellAt(cell / columnCount(), cell % columnCount());
}

int TableViewAccess::indexOfChild(const QAccessibleInterface *child) const
{
    if (const int column = m_headers.indexOf(child); column >= 0)
        return column < headerCount() ? column : -1;
    const int key = m_cells.indexOf(child);
    if (key < 0)
        return -1;
    const int row = key / kColumnsPerKey, column = key % kColumnsPerKey;
    if (row >= rowCount() || column >= columnCount())
        return -1;
    return headerCount() + row * columnCount() + column;
}

QAccessibleInterface *TableViewAccess::childAt(int x, int y) const
{
    const QTreeWidget *list = m_view ? m_view->List() : nullptr;
    if (!list)
        return nullptr;
    const QPoint at = list->viewport()->mapFromGlobal(QPoint(x, y));
    const QModelIndex index = list->indexAt(at);
    if (!index.isValid())
        return nullptr;
    return cellAt(index.row(), index.column());
}

QAccessibleInterface *TableViewAccess::focusChild() const
{
    const QTreeWidget *list = m_view ? m_view->List() : nullptr;
    if (!list || !list->hasFocus() || !list->currentIndex().isValid())
        return nullptr;
    return cellAt(list->currentIndex().row(), list->currentIndex().column());
}

void *TableViewAccess::interface_cast(QAccessible::InterfaceType t)
{
    if (t == QAccessible::TableInterface)
        return static_cast<QAccessibleTableInterface *>(this);
    return QAccessibleWidget::interface_cast(t);
}

QAccessibleInterface *TableViewAccess::cellAt(int row, int column) const
{
    if (row < 0 || row >= rowCount() || column < 0 || column >= columnCount())
        return nullptr;
    return m_cells.at(CellKey(row, column));
}

QList<int> TableViewAccess::selectedRows() const
{
    QList<int> rows;
    for (int row = 0; row < rowCount(); ++row)
        if (view()->ItemSelected(row))
            rows.append(row);
    return rows;
}

int TableViewAccess::selectedRowCount() const { return static_cast<int>(selectedRows().size()); }

int TableViewAccess::selectedCellCount() const { return selectedRowCount() * columnCount(); }

QList<QAccessibleInterface *> TableViewAccess::selectedCells() const
{
    QList<QAccessibleInterface *> cells;
    for (int row : selectedRows())
        for (int column = 0; column < columnCount(); ++column)
            cells.append(cellAt(row, column));
    return cells;
}

QString TableViewAccess::columnDescription(int column) const { return m_view ? m_view->ColumnText(column) : QString(); }

bool TableViewAccess::isRowSelected(int row) const { return row >= 0 && row < rowCount() && m_view->ItemSelected(row); }

bool TableViewAccess::selectRow(int row)
{
    if (row < 0 || row >= rowCount() || !view()->isEnabled())
        return false;
    view()->setItemSelected(row, true);
    return view()->ItemSelected(row);
}

bool TableViewAccess::unselectRow(int row)
{
    if (row < 0 || row >= rowCount())
        return false;
    view()->setItemSelected(row, false);
    return !view()->ItemSelected(row);
}

bool TableHeaderAccess::partExists() const { return m_owner->view() && index() < m_owner->headerCount(); }

QString TableHeaderAccess::text(QAccessible::Text t) const
{
    return t == QAccessible::Name && partExists() ? m_owner->view()->ColumnText(index()) : QString();
}

QRect TableHeaderAccess::rect() const
{
    const QTreeWidget *list = partExists() ? m_owner->view()->List() : nullptr;
    if (!list)
        return {};
    const QHeaderView *header = list->header();
    return GlobalRect(header->viewport(),
                      QRect(header->sectionViewportPosition(index()), 0, header->sectionSize(index()), header->height()));
}

QAccessible::State TableHeaderAccess::state() const
{
    QAccessible::State s;
    if (partExists() && !m_owner->view()->isVisible())
        s.invisible = true;
    return s;
}

bool TableCellAccess::partExists() const
{
    return m_owner->view() && m_row < m_owner->rowCount() && m_column < m_owner->columnCount();
}

QString TableCellAccess::text(QAccessible::Text t) const
{
    return t == QAccessible::Name && partExists() ? m_owner->view()->SubItemText(m_row, m_column) : QString();
}

QRect TableCellAccess::rect() const
{
    const QTreeWidget *list = partExists() ? m_owner->view()->List() : nullptr;
    if (!list)
        return {};
    const QTreeWidgetItem *item = list->topLevelItem(m_row);
    return GlobalRect(list->viewport(), list->visualRect(list->indexFromItem(item, m_column)));
}

QAccessible::State TableCellAccess::state() const
{
    QAccessible::State s;
    if (!partExists())
        return s;
    const ucTableView *v = m_owner->view();
    s.selectable = true;
    s.selected = v->ItemSelected(m_row);
    s.focused = v->ItemFocused(m_row) && v->List() && v->List()->hasFocus();
    if (v->MultiSelect())
        s.multiSelectable = true;
    if (!v->isVisible())
        s.invisible = true;
    else if (rect().isEmpty())
        s.offscreen = true;
    return s;
}

void *TableCellAccess::interface_cast(QAccessible::InterfaceType type)
{
    if (type == QAccessible::TableCellInterface)
        return static_cast<QAccessibleTableCellInterface *>(this);
    return PartInterface::interface_cast(type);
}

QStringList TableCellAccess::actionNames() const { return partExists() ? QStringList{pressAction()} : QStringList(); }

void TableCellAccess::doAction(const QString &action)
{
    // Pressing a cell chooses its row, as a click on it does.
    if (action == pressAction() && partExists())
        m_owner->selectRow(m_row);
}

bool TableCellAccess::isSelected() const { return partExists() && m_owner->view()->ItemSelected(m_row); }

QList<QAccessibleInterface *> TableCellAccess::columnHeaderCells() const
{
    QAccessibleInterface *header = m_owner->headerAt(m_column);
    return header ? QList<QAccessibleInterface *>{header} : QList<QAccessibleInterface *>();
}

} // namespace zrt::access
