// ucTableView: columns, rows and sub-items.
#include "controls/ucTableView.h"

#include "controls/ucTableViewRoles.h"

#include <QHeaderView>
#include <QTreeWidget>

#include <algorithm>
#include <utility>

namespace zrt {

// ---- table operations --------------------------------------------------------------------

void ucTableView::Refresh()
{
    update();
    if (m_hList)
        m_hList->viewport()->update();
}

bool ucTableView::Clear()
{
    if (!m_hList)
        return false;
    m_hList->clear();
    m_selectedBefore.clear();
    return true;
}

bool ucTableView::Sort(int, int, int) { return false; }

bool ucTableView::BackgroundPictureSet(const QString &fileName)
{
    if (!m_hList)
        return false;
    const QPixmap picture(fileName);
    if (picture.isNull())
        return false;
    QPalette palette = m_hList->palette();
    palette.setBrush(QPalette::Base, QBrush(picture));
    m_hList->setPalette(palette);
    return true;
}

QTreeWidgetItem *ucTableView::Item(int index) const
{
    if (!m_hList || index < 0 || index >= m_hList->topLevelItemCount())
        return nullptr;
    return m_hList->topLevelItem(index);
}

bool ucTableView::ColumnValid(int column) const
{
    return m_hList && column >= 0 && column < m_hList->columnCount();
}

void ucTableView::CopyColumn(int from, int to)
{
    QTreeWidgetItem *header = m_hList->headerItem();
    header->setText(to, header->text(from));
    header->setIcon(to, header->icon(from));
    header->setData(to, IconRole, header->data(from, IconRole));
    m_hList->setColumnWidth(to, m_hList->columnWidth(from));
    for (int i = 0; i < m_hList->topLevelItemCount(); ++i) {
        QTreeWidgetItem *item = m_hList->topLevelItem(i);
        item->setText(to, item->text(from));
        item->setData(to, IconRole, item->data(from, IconRole));
        ApplyItemIcon(item, to);
    }
}

bool ucTableView::ColumnAdd(int index, const QString &text, int width, int alignment, int icon)
{
    if (!m_hList)
        return false;
    const int count = m_hList->columnCount();
    const int at = index < 0 || index > count ? count : index;
    m_hList->setColumnCount(count + 1);
    m_columnAlign.insert(m_columnAlign.begin() + at, 0);
    for (int c = count; c > at; --c)
        CopyColumn(c - 1, c);
    QTreeWidgetItem *header = m_hList->headerItem();
    header->setText(at, text);
    for (int i = 0; i < m_hList->topLevelItemCount(); ++i) {
        m_hList->topLevelItem(i)->setText(at, QString());
        m_hList->topLevelItem(i)->setData(at, IconRole, -1);
        ApplyItemIcon(m_hList->topLevelItem(i), at);
    }
    m_hList->setColumnWidth(at, std::max(0, width));
    // The first column always reads from the left.
    if (at > 0)
        setColumnAlign(at, alignment);
    else
        header->setTextAlignment(0, AlignmentOf(0));
    setColumnIcon(at, icon);
    return true;
}

bool ucTableView::ColumnRemove(int index)
{
    if (!ColumnValid(index))
        return false;
    const int count = m_hList->columnCount();
    for (int c = index; c + 1 < count; ++c)
        CopyColumn(c + 1, c);
    m_columnAlign.erase(m_columnAlign.begin() + index);
    m_hList->setColumnCount(count - 1);
    return true;
}

bool ucTableView::ColumnAutosize(int index, int mode)
{
    if (!ColumnValid(index))
        return false;
    int width = mode;
    if (mode == -1 || mode == -2) {
        width = static_cast<QAbstractItemView *>(m_hList)->sizeHintForColumn(index);
        if (mode == -2)
            width = std::max(width, m_hList->header()->sectionSizeHint(index));
    }
    m_hList->setColumnWidth(index, std::max(0, width));
    return true;
}

bool ucTableView::ItemAdd(int index, const QString &text, int indent, int icon)
{
    if (!m_hList)
        return false;
    const int count = m_hList->topLevelItemCount();
    const int at = index < 0 || index > count ? count : index;
    auto *item = new QTreeWidgetItem;
    item->setText(0, text);
    item->setData(0, IndentRole, indent);
    item->setData(0, CheckedRole, false);
    for (int c = 0; c < std::max(1, m_hList->columnCount()); ++c)
        item->setData(c, IconRole, c == 0 ? icon : -1);
    ApplyItemIcon(item, 0);
    item->setFlags(Qt::ItemIsSelectable | Qt::ItemIsEnabled | (LabelEdit() ? Qt::ItemIsEditable : Qt::NoItemFlags));
    m_updatingChecks = true;
    m_hList->insertTopLevelItem(at, item);
    if (CheckBoxes())
        item->setCheckState(0, Qt::Unchecked);
    m_updatingChecks = false;
    // The first item of an empty table takes the focus without counting as a click.
    if (m_hList->topLevelItemCount() == 1) {
        SuppressItemClick = true;
        setItemFocused(0, true);
    } else {
        SuppressItemClick = false;
    }
    return true;
}

bool ucTableView::RowsAdd(const QList<QStringList> &rows)
{
    if (!m_hList)
        return false;
    if (rows.isEmpty())
        return true;
    const bool wasEmpty = m_hList->topLevelItemCount() == 0;
    const int columns = std::max(1, m_hList->columnCount());
    const Qt::ItemFlags flags =
        Qt::ItemIsSelectable | Qt::ItemIsEnabled | (LabelEdit() ? Qt::ItemIsEditable : Qt::NoItemFlags);
    // Filled before they join the tree, so that no cell reports a change of its own.
    QList<QTreeWidgetItem *> items;
    items.reserve(rows.size());
    for (const QStringList &texts : rows) {
        auto *item = new QTreeWidgetItem;
        item->setText(0, texts.value(0));
        item->setData(0, IndentRole, 0);
        item->setData(0, CheckedRole, false);
        for (int c = 0; c < columns; ++c)
            item->setData(c, IconRole, -1);
        ApplyItemIcon(item, 0);
        item->setFlags(flags);
        for (int c = 1; c < texts.size(); ++c) {
            if (!ColumnValid(c))
                continue;
            item->setText(c, texts[c]);
            ApplyItemIcon(item, c);
        }
        items.append(item);
    }
    m_updatingChecks = true;
    m_hList->addTopLevelItems(items);
    if (CheckBoxes())
        for (QTreeWidgetItem *item : items)
            item->setCheckState(0, Qt::Unchecked);
    m_updatingChecks = false;
    if (wasEmpty)
        setItemFocused(0, true);
    SuppressItemClick = wasEmpty && rows.size() == 1;
    return true;
}

bool ucTableView::ItemRemove(int index)
{
    QTreeWidgetItem *item = Item(index);
    if (!item)
        return false;
    delete item;
    return true;
}

bool ucTableView::ItemEnsureVisible(int index, bool partial)
{
    QTreeWidgetItem *item = Item(index);
    if (!item)
        return false;
    if (partial && m_hList->viewport()->rect().intersects(m_hList->visualItemRect(item)))
        return true;
    m_hList->scrollToItem(item, QAbstractItemView::EnsureVisible);
    return true;
}

int ucTableView::ItemFindText(const QString &text, int start, int flags)
{
    if (!m_hList)
        return -1;
    const int count = m_hList->topLevelItemCount();
    const bool partial = (flags & FindPartial) != 0;
    auto matches = [&](int i) {
        const QString label = m_hList->topLevelItem(i)->text(0);
        return partial ? label.startsWith(text, Qt::CaseInsensitive)
                       : label.compare(text, Qt::CaseInsensitive) == 0;
    };
    const int from = std::max(-1, start) + 1;
    for (int i = from; i < count; ++i)
        if (matches(i))
            return i;
    if (flags & FindWrap)
        for (int i = 0; i < std::min(from, count); ++i)
            if (matches(i))
                return i;
    return -1;
}

int ucTableView::ItemFindState(int start, int flags)
{
    if (!m_hList)
        return -1;
    for (int i = std::max(-1, start) + 1; i < m_hList->topLevelItemCount(); ++i) {
        if ((flags & StateFocused) && !ItemFocused(i))
            continue;
        if ((flags & StateSelected) && !ItemSelected(i))
            continue;
        if ((flags & StateGhosted) && !ItemGhosted(i))
            continue;
        return i;
    }
    return -1;
}

int ucTableView::ItemHitTest(double x, double y) const
{
    if (!m_hList)
        return -1;
    const QPoint inControl(qRound(FromScale(x, false)), qRound(FromScale(y, true)));
    const QPoint inView = m_hList->viewport()->mapFrom(this, inControl);
    if (!m_hList->viewport()->rect().contains(inView))
        return -1;
    QTreeWidgetItem *item = m_hList->itemAt(inView);
    return item ? m_hList->indexOfTopLevelItem(item) : -1;
}

bool ucTableView::SubItemSet(int index, int subItem, const QString &text, int icon)
{
    QTreeWidgetItem *item = Item(index);
    if (!item || !ColumnValid(subItem))
        return false;
    item->setText(subItem, text);
    item->setData(subItem, IconRole, icon);
    ApplyItemIcon(item, subItem);
    return true;
}

void ucTableView::ApplyItemIcon(QTreeWidgetItem *item, int column)
{
    const QPixmap image = SmallImage(item->data(column, IconRole).toInt());
    item->setIcon(column, image.isNull() ? QIcon() : QIcon(image));
}

} // namespace zrt
