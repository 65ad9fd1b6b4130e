#include "controls/ucTableView.h"
#include "gfx/EventCodes.h"

#include "gfx/MessageEngine.h"

#include <QApplication>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPainter>
#include <QStyledItemDelegate>
#include <QTreeWidget>

#include <algorithm>
#include <utility>

namespace zrt {

namespace {

constexpr int IconRole = Qt::UserRole + 1;    // icon index per column, -1 for none
constexpr int IndentRole = Qt::UserRole + 2;  // indent of the item, in image widths
constexpr int CheckedRole = Qt::UserRole + 3; // the check state, kept while no boxes show
constexpr int GhostedRole = Qt::UserRole + 4;

// The list's first style: report-less list view, single selection, selection always shown,
// shared image lists, auto-arrange.
constexpr unsigned kInitialStyle = 0x14F;

Qt::Alignment AlignmentOf(int alignment)
{
    switch (alignment & 3) {
    case 1: return Qt::AlignRight | Qt::AlignVCenter;
    case 2: return Qt::AlignHCenter | Qt::AlignVCenter;
    default: return Qt::AlignLeft | Qt::AlignVCenter;
    }
}

// Virtual-key codes for the keys whose Qt code differs; letters and digits agree already.
int VirtualKey(const QKeyEvent *key)
{
    if (const int code = SpecialKeyCode(key->key()))
        return code;
    return key->key() & 0x7FFF;
}

int ButtonOf(int message)
{
    switch (message) {
    case msg::WM_RBUTTONDOWN:
    case msg::WM_RBUTTONUP: return 2;
    case msg::WM_MBUTTONDOWN:
    case msg::WM_MBUTTONUP: return 4;
    default: return 1;
    }
}

int HeldButton(Qt::MouseButtons buttons)
{
    if (buttons & Qt::LeftButton)
        return 1;
    if (buttons & Qt::RightButton)
        return 2;
    if (buttons & Qt::MiddleButton)
        return 4;
    return 0;
}

} // namespace

// Paints each cell with the column's alignment, the item's indent, ghosting, grid lines and the
// container's colours; it also asks the container before and after a label edit.
class ucTableView::Delegate : public QStyledItemDelegate {
public:
    explicit Delegate(ucTableView *owner) : QStyledItemDelegate(owner), m_owner(owner) {}

    void paint(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const override
    {
        QStyleOptionViewItem opt = option;
        initStyleOption(&opt, index);
        const int column = index.column();
        const int row = index.row();
        if (column >= 0 && column < static_cast<int>(m_owner->m_columnAlign.size()))
            opt.displayAlignment = AlignmentOf(column == 0 ? 0 : m_owner->m_columnAlign[column]);
        if (column == 0)
            opt.rect.setLeft(opt.rect.left() + IndentPixels(index));
        if (column > 0 && !m_owner->SubItemImages())
            opt.features &= ~QStyleOptionViewItem::HasDecoration;
        if (column > 0 && !m_owner->FullRowSelect())
            opt.state &= ~QStyle::State_Selected;
        if (m_owner->HideSelection() && !m_owner->m_hList->hasFocus())
            opt.state &= ~QStyle::State_Selected;
        if (index.data(GhostedRole).toBool())
            opt.palette.setColor(QPalette::Text, opt.palette.color(QPalette::Disabled, QPalette::Text));
        if (m_owner->UnderlineHot() && (opt.state & QStyle::State_MouseOver))
            opt.font.setUnderline(true);

        const CellLook look = m_owner->SubItemLook(row, column);
        if (look.custom) {
            opt.palette.setColor(QPalette::Text, look.fore);
            opt.backgroundBrush = look.back;
            opt.font.setBold(look.bold);
        }
        const QWidget *widget = opt.widget;
        QStyle *style = widget ? widget->style() : QApplication::style();
        style->drawControl(QStyle::CE_ItemViewItem, &opt, painter, widget);

        if (m_owner->GridLines()) {
            painter->save();
            painter->setPen(opt.palette.color(QPalette::Mid));
            const QRect cell = option.rect;
            painter->drawLine(cell.bottomLeft(), cell.bottomRight());
            painter->drawLine(cell.topRight(), cell.bottomRight());
            painter->restore();
        }
    }

    QWidget *createEditor(QWidget *parent, const QStyleOptionViewItem &option,
                          const QModelIndex &index) const override
    {
        int cancel = 0;
        Q_EMIT m_owner->BeforeLabelEdit(cancel);
        if (cancel)
            return nullptr;
        return QStyledItemDelegate::createEditor(parent, option, index);
    }

    void setModelData(QWidget *editor, QAbstractItemModel *model, const QModelIndex &index) const override
    {
        auto *line = qobject_cast<QLineEdit *>(editor);
        QString text = line ? line->text() : index.data().toString();
        int cancel = 0;
        Q_EMIT m_owner->AfterLabelEdit(cancel, text);
        if (!cancel)
            model->setData(index, text, Qt::EditRole);
    }

private:
    int IndentPixels(const QModelIndex &index) const
    {
        const int width = m_owner->m_small.exists ? m_owner->m_small.size.width() : 16;
        return std::max(0, index.data(IndentRole).toInt()) * width;
    }

    ucTableView *m_owner;
};

ucTableView::ucTableView(QWidget *parent) : QWidget(parent) {}

ucTableView::~ucTableView()
{
    if (m_engine)
        m_engine->unsubclassAll();
}

bool ucTableView::Initialize()
{
    if (m_hList)
        return false;
    m_hList = new QTreeWidget(this);
    m_hList->setGeometry(rect());
    m_hList->setRootIsDecorated(false);
    m_hList->setItemsExpandable(false);
    m_hList->setUniformRowHeights(true);
    m_hList->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_hList->setColumnCount(0);
    m_hList->setHeaderLabels({});
    m_delegate = new Delegate(this);
    m_hList->setItemDelegate(m_delegate);
    m_hList->header()->setContextMenuPolicy(Qt::CustomContextMenu);
    m_hList->header()->setStretchLastSection(false);
    m_style = kInitialStyle;
    m_exStyle = 0;
    setFocusProxy(m_hList);
    ApplyStyles();
    m_hList->show();

    connect(m_hList, &QTreeWidget::itemSelectionChanged, this, &ucTableView::OnSelectionChanged);
    connect(m_hList, &QTreeWidget::itemChanged, this, &ucTableView::OnItemChanged);
    connect(m_hList, &QTreeWidget::itemEntered, this, &ucTableView::OnHovered);
    connect(m_hList->header(), &QHeaderView::sectionClicked, this, [this](int column) {
        Q_EMIT ColumnClick(column);
    });
    connect(m_hList->header(), &QHeaderView::customContextMenuRequested, this,
            &ucTableView::OnHeaderRightClick);

    m_engine = std::make_unique<MessageEngine>(QStringLiteral("ucTableView"), MessageEngine::Form::Growing,
                                               [this](Message &m) { OnMessage(m); });
    QWidget *surface = m_hList->viewport();
    m_engine->subclass(surface);
    m_engine->subclass(m_hList);
    for (int message : {msg::WM_MOUSEMOVE, msg::WM_LBUTTONDOWN, msg::WM_LBUTTONUP, msg::WM_RBUTTONDOWN,
                        msg::WM_RBUTTONUP, msg::WM_MBUTTONDOWN, msg::WM_MBUTTONUP, msg::WM_LBUTTONDBLCLK,
                        msg::WM_RBUTTONDBLCLK, msg::WM_MOUSELEAVE})
        m_engine->watch(surface, message, MsgWhen::Before);
    for (int message : {msg::WM_KEYDOWN, msg::WM_KEYUP})
        m_engine->watch(m_hList, message, MsgWhen::Before);
    return true;
}

// ---- image lists -------------------------------------------------------------------------

bool ucTableView::MakeImageList(ImageList &list, int width, int height)
{
    if (!m_hList || width <= 0 || height <= 0)
        return false;
    list = ImageList{true, QSize(width, height), {}};
    return true;
}

bool ucTableView::InitializeImageListSmall(int width, int height)
{
    if (!MakeImageList(m_small, width, height))
        return false;
    m_hList->setIconSize(m_small.size);
    return true;
}

bool ucTableView::InitializeImageListLarge(int width, int height) { return MakeImageList(m_large, width, height); }

bool ucTableView::InitializeImageListHeader(int width, int height) { return MakeImageList(m_header, width, height); }

bool ucTableView::AddImage(ImageList &list, QPixmap image)
{
    if (!m_hList || !list.exists || image.isNull())
        return false;
    list.images.push_back(image.scaled(list.size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation));
    return true;
}

static QPixmap Masked(const QPixmap &bitmap, std::optional<OleColor> mask)
{
    if (!mask)
        return bitmap;
    QPixmap copy = bitmap;
    copy.setMask(bitmap.createMaskFromColor(TranslateColor(*mask), Qt::MaskInColor));
    return copy;
}

bool ucTableView::ImageListSmall_AddBitmap(const QPixmap &bitmap, std::optional<OleColor> mask)
{
    return AddImage(m_small, Masked(bitmap, mask));
}
bool ucTableView::ImageListLarge_AddBitmap(const QPixmap &bitmap, std::optional<OleColor> mask)
{
    return AddImage(m_large, Masked(bitmap, mask));
}
bool ucTableView::ImageListHeader_AddBitmap(const QPixmap &bitmap, std::optional<OleColor> mask)
{
    return AddImage(m_header, Masked(bitmap, mask));
}
bool ucTableView::ImageListSmall_AddIcon(const QIcon &icon) { return AddImage(m_small, icon.pixmap(m_small.size)); }
bool ucTableView::ImageListLarge_AddIcon(const QIcon &icon) { return AddImage(m_large, icon.pixmap(m_large.size)); }
bool ucTableView::ImageListHeader_AddIcon(const QIcon &icon) { return AddImage(m_header, icon.pixmap(m_header.size)); }

QPixmap ucTableView::SmallImage(int icon) const
{
    if (icon < 0 || icon >= static_cast<int>(m_small.images.size()))
        return {};
    return m_small.images[static_cast<std::size_t>(icon)];
}

QPixmap ucTableView::HeaderImage(int icon) const
{
    if (icon < 0 || icon >= static_cast<int>(m_header.images.size()))
        return {};
    return m_header.images[static_cast<std::size_t>(icon)];
}

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

// ---- events ------------------------------------------------------------------------------

double ucTableView::ToScale(double pixels, bool) const
{
    switch (m_ScaleMode) {
    case 1: return pixels * 15.0;
    case 2: return pixels * 0.75;
    case 5: return pixels / 96.0;
    case 6: return pixels * 25.4 / 96.0;
    case 7: return pixels * 2.54 / 96.0;
    default: return pixels;
    }
}

double ucTableView::FromScale(double value, bool) const
{
    switch (m_ScaleMode) {
    case 1: return value / 15.0;
    case 2: return value / 0.75;
    case 5: return value * 96.0;
    case 6: return value * 96.0 / 25.4;
    case 7: return value * 96.0 / 2.54;
    default: return value;
    }
}

int ucTableView::ShiftMask() const
{
    const Qt::KeyboardModifiers mods = QApplication::keyboardModifiers();
    return ((mods & Qt::ShiftModifier) ? 1 : 0) | ((mods & Qt::ControlModifier) ? 2 : 0) |
           ((mods & Qt::AltModifier) ? 4 : 0);
}

void ucTableView::OnMessage(Message &message)
{
    if (message.window == m_hList)
        OnKeyMessage(message);
    else
        OnMouseMessage(message);
}

void ucTableView::OnMouseMessage(Message &message)
{
    if (message.message == msg::WM_MOUSELEAVE) {
        MouseOverList = false;
        Q_EMIT MouseLeave();
        LastMouseX = LastMouseY = -1.0f;
        return;
    }
    const auto *mouse = static_cast<const QMouseEvent *>(message.event);
    const QPoint inControl = m_hList->viewport()->mapTo(this, mouse->position().toPoint());
    const float x = static_cast<float>(ToScale(inControl.x(), false));
    const float y = static_cast<float>(ToScale(inControl.y(), true));
    const int shift = ShiftMask();
    switch (message.message) {
    case msg::WM_MOUSEMOVE:
        if (!MouseOverList) {
            MouseOverList = true;
            Q_EMIT MouseEnter();
        }
        if (x == LastMouseX && y == LastMouseY)
            return;
        LastMouseX = x;
        LastMouseY = y;
        Q_EMIT MouseMove(HeldButton(mouse->buttons()), shift, x, y);
        return;
    case msg::WM_LBUTTONDOWN:
    case msg::WM_RBUTTONDOWN:
    case msg::WM_MBUTTONDOWN: {
        Q_EMIT MouseDown(ButtonOf(message.message), shift, x, y);
        // A press on an item that is already selected or focused changes no state, so it is
        // reported here; a press on another item is reported by the selection change.
        const int item = ItemHitTest(ToScale(inControl.x(), false), ToScale(inControl.y(), true));
        if (item >= 0 && (ItemSelected(item) || ItemFocused(item)))
            Q_EMIT ItemClick(item);
        return;
    }
    case msg::WM_LBUTTONUP:
    case msg::WM_RBUTTONUP:
    case msg::WM_MBUTTONUP:
        Q_EMIT MouseUp(ButtonOf(message.message), shift, x, y);
        Q_EMIT Click();
        return;
    case msg::WM_LBUTTONDBLCLK:
    case msg::WM_RBUTTONDBLCLK:
        Q_EMIT DblClick();
        return;
    default: return;
    }
}

void ucTableView::OnKeyMessage(Message &message)
{
    const auto *key = static_cast<const QKeyEvent *>(message.event);
    const int code = VirtualKey(key) & 0x7FFF;
    if (message.message == msg::WM_KEYUP) {
        Q_EMIT KeyUp(code, ShiftMask());
        return;
    }
    Q_EMIT KeyDown(code, ShiftMask());
    const QString text = key->text();
    if (text.isEmpty())
        return;
    const int ascii = text.at(0).unicode() & 0x7FFF;
    Q_EMIT KeyPress(ascii);
    if (ascii == 32) {
        const int item = ItemFindState(-1, StateFocused | StateSelected);
        if (item >= 0)
            Q_EMIT ItemClick(item);
    }
}

void ucTableView::OnSelectionChanged()
{
    std::vector<int> selected;
    for (int i = 0; i < m_hList->topLevelItemCount(); ++i)
        if (m_hList->topLevelItem(i)->isSelected())
            selected.push_back(i);
    const std::vector<int> before = std::exchange(m_selectedBefore, selected);
    if (SuppressItemClick)
        return;
    for (int item : selected)
        if (std::find(before.begin(), before.end(), item) == before.end())
            Q_EMIT ItemClick(item);
}

void ucTableView::OnItemChanged(QTreeWidgetItem *item, int column)
{
    if (m_updatingChecks || column != 0 || !CheckBoxes() || !item->data(0, Qt::CheckStateRole).isValid())
        return;
    const bool checked = item->checkState(0) == Qt::Checked;
    if (item->data(0, CheckedRole).toBool() == checked)
        return;
    item->setData(0, CheckedRole, checked);
    Q_EMIT ItemCheck(m_hList->indexOfTopLevelItem(item));
}

void ucTableView::OnHeaderRightClick(const QPoint &pos)
{
    const int column = m_hList->header()->logicalIndexAt(pos);
    if (column >= 0)
        Q_EMIT ColumnRightClick(column);
}

void ucTableView::OnHovered(QTreeWidgetItem *item)
{
    if (TrackSelect() && item)
        m_hList->setCurrentItem(item);
}

void ucTableView::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    if (m_hList)
        m_hList->setGeometry(rect());
    Q_EMIT Resize();
}

} // namespace zrt
