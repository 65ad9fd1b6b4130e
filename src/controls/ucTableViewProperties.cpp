// ucTableView: indexed and scalar properties, styles and sub-item colours.
#include "controls/ucTableView.h"

#include "controls/ucTableViewRoles.h"

#include <QHeaderView>
#include <QTreeWidget>

#include <algorithm>
#include <utility>

namespace zrt {

// ---- indexed properties ------------------------------------------------------------------

QString ucTableView::ColumnText(int column) const
{
    return ColumnValid(column) ? m_hList->headerItem()->text(column) : QString();
}

void ucTableView::setColumnText(int column, const QString &text)
{
    if (ColumnValid(column))
        m_hList->headerItem()->setText(column, text);
}

int ucTableView::ColumnWidth(int column) const { return ColumnValid(column) ? m_hList->columnWidth(column) : 0; }

void ucTableView::setColumnWidth(int column, int width)
{
    if (ColumnValid(column))
        m_hList->setColumnWidth(column, std::max(0, width));
}

int ucTableView::ColumnAlign(int column) const
{
    return ColumnValid(column) ? m_columnAlign[static_cast<std::size_t>(column)] : 0;
}

void ucTableView::setColumnAlign(int column, int alignment)
{
    if (!ColumnValid(column))
        return;
    m_columnAlign[static_cast<std::size_t>(column)] = alignment & 3;
    m_hList->headerItem()->setTextAlignment(column, AlignmentOf(alignment));
    Refresh();
}

int ucTableView::ColumnIcon(int column) const
{
    if (!ColumnValid(column))
        return 0;
    const QVariant icon = m_hList->headerItem()->data(column, IconRole);
    return icon.isValid() ? icon.toInt() : -1;
}

void ucTableView::setColumnIcon(int column, int icon)
{
    if (!ColumnValid(column))
        return;
    QTreeWidgetItem *header = m_hList->headerItem();
    header->setData(column, IconRole, icon < 0 ? -1 : icon);
    const QPixmap image = HeaderImage(icon);
    header->setIcon(column, image.isNull() ? QIcon() : QIcon(image));
}

QString ucTableView::ItemText(int index) const
{
    const QTreeWidgetItem *item = Item(index);
    return item ? item->text(0) : QString();
}

void ucTableView::setItemText(int index, const QString &text)
{
    if (QTreeWidgetItem *item = Item(index))
        item->setText(0, text);
}

int ucTableView::ItemIcon(int index) const { return SubItemIcon(index, 0); }

void ucTableView::setItemIcon(int index, int icon) { setSubItemIcon(index, 0, icon); }

int ucTableView::ItemIndent(int index) const
{
    const QTreeWidgetItem *item = Item(index);
    return item ? item->data(0, IndentRole).toInt() : 0;
}

void ucTableView::setItemIndent(int index, int indent)
{
    if (QTreeWidgetItem *item = Item(index))
        item->setData(0, IndentRole, indent);
}

bool ucTableView::ItemSelected(int index) const
{
    const QTreeWidgetItem *item = Item(index);
    return item && item->isSelected();
}

void ucTableView::setItemSelected(int index, bool value)
{
    QTreeWidgetItem *item = Item(index);
    if (!item)
        return;
    // A single-selection list lets one item go when another is chosen.
    const auto command = value ? (MultiSelect() ? QItemSelectionModel::Select : QItemSelectionModel::ClearAndSelect)
                               : QItemSelectionModel::Deselect;
    m_hList->selectionModel()->select(m_hList->indexFromItem(item), command | QItemSelectionModel::Rows);
}

bool ucTableView::ItemFocused(int index) const
{
    const QTreeWidgetItem *item = Item(index);
    return item && m_hList->currentItem() == item;
}

void ucTableView::setItemFocused(int index, bool value)
{
    QTreeWidgetItem *item = Item(index);
    if (!item)
        return;
    auto *selection = m_hList->selectionModel();
    if (value)
        selection->setCurrentIndex(m_hList->indexFromItem(item), QItemSelectionModel::NoUpdate);
    else if (m_hList->currentItem() == item)
        selection->setCurrentIndex(QModelIndex(), QItemSelectionModel::NoUpdate);
}

bool ucTableView::ItemChecked(int index) const
{
    const QTreeWidgetItem *item = Item(index);
    return item && item->data(0, CheckedRole).toBool();
}

void ucTableView::setItemChecked(int index, bool value)
{
    QTreeWidgetItem *item = Item(index);
    if (!item || item->data(0, CheckedRole).toBool() == value)
        return;
    m_updatingChecks = true;
    item->setData(0, CheckedRole, value);
    if (CheckBoxes())
        item->setCheckState(0, value ? Qt::Checked : Qt::Unchecked);
    m_updatingChecks = false;
    Q_EMIT ItemCheck(index);
}

bool ucTableView::ItemGhosted(int index) const
{
    const QTreeWidgetItem *item = Item(index);
    return item && item->data(0, GhostedRole).toBool();
}

void ucTableView::setItemGhosted(int index, bool value)
{
    QTreeWidgetItem *item = Item(index);
    if (!item)
        return;
    for (int c = 0; c < std::max(1, m_hList->columnCount()); ++c)
        item->setData(c, GhostedRole, value);
}

QString ucTableView::SubItemText(int index, int subItem) const
{
    const QTreeWidgetItem *item = Item(index);
    return item && ColumnValid(subItem) ? item->text(subItem) : QString();
}

void ucTableView::setSubItemText(int index, int subItem, const QString &text)
{
    QTreeWidgetItem *item = Item(index);
    if (item && ColumnValid(subItem))
        item->setText(subItem, text);
}

int ucTableView::SubItemIcon(int index, int subItem) const
{
    const QTreeWidgetItem *item = Item(index);
    if (!item || subItem < 0 || (subItem > 0 && !ColumnValid(subItem)))
        return 0;
    const QVariant icon = item->data(subItem, IconRole);
    return icon.isValid() ? icon.toInt() : -1;
}

void ucTableView::setSubItemIcon(int index, int subItem, int icon)
{
    QTreeWidgetItem *item = Item(index);
    if (!item || subItem < 0 || (subItem > 0 && !ColumnValid(subItem)))
        return;
    item->setData(subItem, IconRole, icon);
    ApplyItemIcon(item, subItem);
}

// ---- scalar properties -------------------------------------------------------------------

OleColor ucTableView::BackColor() const { return m_hList ? m_BackColor : 0; }

void ucTableView::setBackColor(OleColor color)
{
    if (!m_hList)
        return;
    m_BackColor = color;
    ApplyStyles();
}

OleColor ucTableView::ForeColor() const { return m_hList ? m_ForeColor : 0; }

void ucTableView::setForeColor(OleColor color)
{
    if (!m_hList)
        return;
    m_ForeColor = color;
    ApplyStyles();
}

int ucTableView::BorderStyle() const { return m_hList ? m_BorderStyle : 0; }

void ucTableView::setBorderStyle(int style)
{
    if (!m_hList)
        return;
    m_BorderStyle = style == 0 ? 0 : 1;
    ApplyStyles();
}

int ucTableView::Count() const { return m_hList ? m_hList->topLevelItemCount() : 0; }

int ucTableView::ColumnCount() const { return m_hList ? m_hList->columnCount() : 0; }

int ucTableView::SelectedCount() const { return m_hList ? static_cast<int>(m_hList->selectedItems().size()) : 0; }

int ucTableView::ViewMode() const { return m_hList ? static_cast<int>(m_style & StyleViewMask) : 0; }

void ucTableView::setViewMode(int mode)
{
    if (!m_hList)
        return;
    // The table shows as a report whatever the mode; the value is kept for those who read it.
    m_style = (m_style & ~StyleViewMask) | (static_cast<unsigned>(mode) & StyleViewMask);
}

bool ucTableView::HeaderFlat() const { return m_hList && m_HeaderFlat; }

void ucTableView::setHeaderFlat(bool on)
{
    if (!m_hList)
        return;
    m_HeaderFlat = on;
    ApplyStyles();
}

void ucTableView::setHeaderFixedWidth(bool on)
{
    m_HeaderFixedWidth = on;
    if (m_hList)
        ApplyStyles();
}

void ucTableView::setRaiseSubItemPrePaint(bool on)
{
    m_RaiseSubItemPrePaint = on;
    Refresh();
}

void ucTableView::setExStyle(unsigned bit, bool on)
{
    if (!m_hList)
        return;
    m_exStyle = on ? (m_exStyle | bit) : (m_exStyle & ~bit);
    ApplyStyles();
}

void ucTableView::setStyle(unsigned bit, bool on)
{
    if (!m_hList)
        return;
    m_style = on ? (m_style | bit) : (m_style & ~bit);
    ApplyStyles();
}

void ucTableView::ApplyStyles()
{
    QPalette palette = m_hList->palette();
    palette.setColor(QPalette::Base, TranslateColor(m_BackColor));
    palette.setColor(QPalette::Text, TranslateColor(m_ForeColor));
    m_hList->setPalette(palette);
    m_hList->setFrameShape(m_BorderStyle ? QFrame::StyledPanel : QFrame::NoFrame);

    QHeaderView *header = m_hList->header();
    // A flat header has no buttons: its sections do not press.
    header->setSectionsClickable(!m_HeaderFlat);
    header->setSectionsMovable(HeaderDragDrop());
    header->setSectionResizeMode(m_HeaderFixedWidth ? QHeaderView::Fixed : QHeaderView::Interactive);
    m_hList->setHeaderHidden(HeaderHide());

    m_hList->setSelectionMode(MultiSelect() ? QAbstractItemView::ExtendedSelection
                                            : QAbstractItemView::SingleSelection);
    m_hList->setAllColumnsShowFocus(FullRowSelect());
    m_hList->setEditTriggers(LabelEdit() ? QAbstractItemView::SelectedClicked | QAbstractItemView::EditKeyPressed
                                         : QAbstractItemView::NoEditTriggers);
    m_updatingChecks = true;
    for (int i = 0; i < m_hList->topLevelItemCount(); ++i) {
        QTreeWidgetItem *item = m_hList->topLevelItem(i);
        item->setFlags(LabelEdit() ? item->flags() | Qt::ItemIsEditable : item->flags() & ~Qt::ItemIsEditable);
    }
    m_updatingChecks = false;
    m_hList->setMouseTracking(true);
    ApplyCheckBoxes();
    Refresh();
}

void ucTableView::ApplyCheckBoxes()
{
    m_updatingChecks = true;
    for (int i = 0; i < m_hList->topLevelItemCount(); ++i) {
        QTreeWidgetItem *item = m_hList->topLevelItem(i);
        if (CheckBoxes()) {
            item->setFlags(item->flags() | Qt::ItemIsUserCheckable);
            item->setCheckState(0, item->data(0, CheckedRole).toBool() ? Qt::Checked : Qt::Unchecked);
        } else {
            item->setFlags(item->flags() & ~Qt::ItemIsUserCheckable);
            item->setData(0, Qt::CheckStateRole, QVariant());
        }
    }
    m_updatingChecks = false;
}

// ---- sub-item colours --------------------------------------------------------------------

ucTableView::CellLook ucTableView::SubItemLook(int item, int subItem)
{
    CellLook look;
    if (!m_RaiseSubItemPrePaint || !m_hList)
        return look;
    OleColor fore = m_ForeColor;
    OleColor back = m_BackColor;
    bool bold = false;
    Q_EMIT OnSubItemPrePaint(item, subItem, fore, back, bold);
    look.fore = TranslateColor(fore);
    look.back = TranslateColor(back);
    look.bold = bold;
    look.custom = true;
    return look;
}

} // namespace zrt
