#include "controls/ucTableView.h"

#include "controls/ucTableViewRoles.h"
#include "gfx/MessageEngine.h"

#include <QApplication>
#include <QHeaderView>
#include <QLineEdit>
#include <QPainter>
#include <QStyledItemDelegate>
#include <QTreeWidget>

#include <algorithm>
#include <utility>

namespace zrt {

namespace {

// The list's first style: report-less list view, single selection, selection always shown,
// shared image lists, auto-arrange.
constexpr unsigned kInitialStyle = 0x14F;

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

} // namespace zrt
