#include "controls/RowList.h"

#include "common/RunTimeError.h"

#include <QApplication>
#include <QBitmap>
#include <QElapsedTimer>
#include <QLineEdit>
#include <QPainter>
#include <QPointer>
#include <QScrollBar>
#include <QThread>

#include <algorithm>
#include <cmath>

namespace zrt {

namespace {

constexpr int MaxItems = 32767; // the counters are 16-bit

std::uint32_t SystemTicks()
{
    static QElapsedTimer clock;
    if (!clock.isValid())
        clock.start();
    return static_cast<std::uint32_t>(clock.elapsed());
}

// The icon in the engraved look of a disabled control: its shape in the light colour one pixel
// down and right, then in the shadow colour on top.
QPixmap EmbossedIcon(const QPixmap &icon)
{
    if (icon.isNull())
        return icon;
    const QBitmap shape = icon.createMaskFromColor(Qt::transparent, Qt::MaskInColor);
    QPixmap result(icon.size());
    result.fill(Qt::transparent);
    QPainter painter(&result);
    const QPalette palette = QApplication::palette();
    painter.setPen(palette.color(QPalette::Light));
    painter.drawPixmap(1, 1, shape);
    painter.setPen(palette.color(QPalette::Dark));
    painter.drawPixmap(0, 0, shape);
    return result;
}

} // namespace

RowList::RowList(QWidget *parent)
    : QWidget(parent)
    , m_Tick(SystemTicks)
{
    m_iScr = new QWidget(this);
    m_iScr->setObjectName(QStringLiteral("iScr"));
    m_iScr->setAttribute(Qt::WA_OpaquePaintEvent);
    m_iScr->setMouseTracking(true);
    m_iScr->setFocusPolicy(Qt::StrongFocus);
    m_iScr->installEventFilter(this);
    setFocusProxy(m_iScr);

    m_Bar = new QScrollBar(Qt::Vertical, this);
    m_Bar->setObjectName(QStringLiteral("Bar"));
    m_Bar->setFocusPolicy(Qt::NoFocus);
    m_Bar->setRange(0, 0);
    m_Bar->hide();
    connect(m_Bar, &QScrollBar::valueChanged, this, &RowList::BarChange);
    connect(m_Bar, &QScrollBar::sliderMoved, this, &RowList::BarScroll);

    // The pump lets the release through; a release that went to another window (the button
    // is up although we never saw it) also ends the drag, so the loop cannot hang.
    QPointer<RowList> self(this);
    m_Pump = [self] {
        QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
        if (self && QGuiApplication::mouseButtons() == Qt::NoButton)
            self->FinishDrag();
        QThread::msleep(1);
    };

    UpdateItemHeightFromFont();
    ResolveColors();
    Relayout();
}

RowList::~RowList()
{
    m_Dragging = false;
    m_iScr->removeEventFilter(this);
    if (m_txtEdit)
        m_txtEdit->removeEventFilter(this);
}

// ---- run-time members -----------------------------------------------------------------------

QWidget *RowList::hWnd() const { return m_iScr; }

void RowList::Refresh()
{
    EnsureLayout();
    ClearSurface();
    DrawAllRows();
}

short RowList::SelectedCount() const
{
    return static_cast<short>(std::count(m_Selected.begin(), m_Selected.end(), true));
}

void RowList::CheckIndex(int index) const
{
    if (index < 0 || index >= m_ListCount)
        zrt::raise(ErrInvalidPropertyIndex);
}

void RowList::setListIndex(int value)
{
    if (value > m_ListCount - 1 || value < -1)
        zrt::raise(ErrInvalidPropertyIndex);
    EnsureLayout();
    if (IsEditing())
        CloseEdit();
    if (value < 0 || m_ListCount == 0) {
        value = -1;
        m_LastY = -1.0f;
    }
    const int previous = m_ListIndex;
    if (m_SelectMode == 0) {
        if (previous >= 0 && previous < m_ListCount)
            m_Selected[static_cast<size_t>(previous)] = false;
        if (value >= 0)
            m_Selected[static_cast<size_t>(value)] = true;
    }
    m_ListIndex = static_cast<short>(value);
    if (previous >= 0 && previous < m_ListCount)
        DrawItem(previous);
    m_LastListIndex = static_cast<short>(previous);
    if (value >= 0)
        DrawItem(value);
    DrawFocus();

    if (m_EnsureVisibleFlag) {
        const int top = TopIndex();
        if (value >= 0 && value < top)
            m_Bar->setValue(value);
        else if (value >= 0 && value > top + m_VisibleRowCount - 1)
            m_Bar->setValue(value - m_VisibleRowCount + 1);
    } else {
        m_EnsureVisibleFlag = true;
    }
    Q_EMIT ListIndexChange();
}

// The top row of the last redraw: while the thumb is dragged it leads the bar's value.
short RowList::TopIndex() const { return m_LastTopIndex; }

void RowList::setTopIndex(int value)
{
    EnsureLayout();
    m_Bar->setValue(std::clamp(value, 0, m_Bar->maximum()));
}

QString RowList::ItemText(int index) const
{
    CheckIndex(index);
    return m_Items[static_cast<size_t>(index)].Text;
}

void RowList::setItemText(int index, const QString &text)
{
    CheckIndex(index);
    m_Items[static_cast<size_t>(index)].Text = text;
    DrawItem(index);
    DrawFocus();
}

short RowList::ItemIcon(int index) const
{
    CheckIndex(index);
    return m_Items[static_cast<size_t>(index)].Icon;
}

void RowList::setItemIcon(int index, short icon)
{
    CheckIndex(index);
    m_Items[static_cast<size_t>(index)].Icon = icon;
    DrawItem(index);
    DrawFocus();
}

short RowList::ItemIconSelected(int index) const
{
    CheckIndex(index);
    return m_Items[static_cast<size_t>(index)].IconSelected;
}

void RowList::setItemIconSelected(int index, short icon)
{
    CheckIndex(index);
    m_Items[static_cast<size_t>(index)].IconSelected = icon;
    DrawItem(index);
    DrawFocus();
}

bool RowList::ItemSelected(int index) const
{
    CheckIndex(index);
    return m_Selected[static_cast<size_t>(index)];
}

void RowList::setItemSelected(int index, bool selected)
{
    CheckIndex(index);
    m_Selected[static_cast<size_t>(index)] = selected;
    DrawItem(index);
    DrawFocus();
}

// ---- operations -----------------------------------------------------------------------------

void RowList::SetImageList(const QImage &picture, std::optional<int> iconEdge, std::optional<OleColor> maskColor)
{
    m_Images.clear();
    m_DisabledImages.clear();
    // A picture that cannot be cut leaves the control without icons, silently.
    if (picture.isNull())
        return Refresh();
    const int edge = iconEdge.value_or(picture.height());
    if (edge <= 0)
        return Refresh();
    QImage strip = picture.convertToFormat(QImage::Format_ARGB32);
    const QRgb mask = maskColor ? (TranslateColor(*maskColor).rgb() & 0xFFFFFF) : (strip.pixel(0, 0) & 0xFFFFFF);
    for (int y = 0; y < strip.height(); ++y) {
        auto *line = reinterpret_cast<QRgb *>(strip.scanLine(y));
        for (int x = 0; x < strip.width(); ++x)
            if ((line[x] & 0xFFFFFF) == mask)
                line[x] = 0;
    }
    for (int x = 0; x + edge <= strip.width(); x += edge) {
        QImage cell(edge, edge, QImage::Format_ARGB32);
        cell.fill(Qt::transparent);
        QPainter(&cell).drawImage(0, 0, strip, x, 0, edge, std::min(edge, strip.height()));
        m_Images.push_back(QPixmap::fromImage(cell));
        m_DisabledImages.push_back(EmbossedIcon(m_Images.back()));
    }
    Refresh();
}

void RowList::AddItem(const QString &text, short icon, short iconSelected)
{
    EnsureLayout();
    if (m_ListCount >= MaxItems)
        zrt::raise(ErrOverflow);
    m_Items.push_back(ItemRecord{text, icon, iconSelected});
    m_Selected.push_back(false);
    ++m_ListCount;
    UpdateScrollRange();
    DrawItem(m_ListCount - 1);
}

void RowList::InsertItem(int index, const QString &text, short icon, short iconSelected)
{
    EnsureLayout();
    // An empty list takes no insertion, not even at 0: AddItem starts a list.
    if (m_ListCount == 0 || index < 0 || index > m_ListCount)
        zrt::raise(ErrInvalidPropertyIndex);
    if (m_ListCount >= MaxItems)
        zrt::raise(ErrOverflow);
    m_Items.insert(m_Items.begin() + index, ItemRecord{text, icon, iconSelected});
    m_Selected.insert(m_Selected.begin() + index, false);
    ++m_ListCount;
    UpdateScrollRange();
    if (m_ListIndex >= index) {
        // The current item moved down one place; it stays current and the view stays put.
        m_EnsureVisibleFlag = false;
        setListIndex(m_ListIndex + 1);
    }
    Refresh();
}

void RowList::ModifyItem(int index, const std::optional<QString> &text, short icon, short iconSelected)
{
    CheckIndex(index);
    ItemRecord &item = m_Items[static_cast<size_t>(index)];
    if (text)
        item.Text = *text;
    if (icon > -1)
        item.Icon = icon;
    if (iconSelected > -1)
        item.IconSelected = iconSelected;
    DrawItem(index);
    DrawFocus();
}

void RowList::RemoveItem(int index)
{
    if (m_ListCount == 0 || index < 0 || index >= m_ListCount)
        zrt::raise(ErrInvalidPropertyIndex);
    if (IsEditing())
        CloseEdit();
    m_Items.erase(m_Items.begin() + index);
    m_Selected.erase(m_Selected.begin() + index);
    --m_ListCount;

    // A removed current item leaves no current item, as a list box does; one above it moves
    // the current number up with its item.
    const int old = m_ListIndex;
    if (old == index) {
        m_ListIndex = -1;
        m_LastY = -1.0f;
    } else if (old > index) {
        m_ListIndex = static_cast<short>(old - 1);
    }
    m_LastListIndex = -1;
    EnsureLayout();
    UpdateScrollRange();
    Refresh();
    if (old >= index)
        Q_EMIT ListIndexChange();
}

short RowList::FindFirst(const QString &text, int startIndex, bool exact) const
{
    if (m_ListCount == 0 || startIndex < 0)
        zrt::raise(ErrInvalidPropertyIndex);
    const QString wanted = text.toLower();
    for (int i = startIndex; i < m_ListCount; ++i) {
        const qsizetype at = m_Items[static_cast<size_t>(i)].Text.toLower().indexOf(wanted);
        // Without exact the text must occur after the first character: a find text at the
        // very start is no match then, which callers rely on.
        if (exact ? at == 0 : at >= 1)
            return static_cast<short>(i);
    }
    return -1;
}

void RowList::Clear()
{
    EnsureLayout();
    if (IsEditing())
        CloseEdit();
    m_Items.clear();
    m_Selected.clear();
    m_ListCount = 0;
    m_ListIndex = -1;
    m_LastListIndex = -1;
    m_LastY = -1.0f;
    UpdateScrollRange();
    Refresh();
}

void RowList::Order()
{
    const int count = m_ListCount;
    if (count < 2)
        return;
    if (m_SelectMode == 0 && m_ListIndex >= 0)
        m_Selected[static_cast<size_t>(m_ListIndex)] = false;

    // Shell sort with Knuth's gaps on the plain character codes. OrderType 1 turns the test
    // round without making it strict, so equal texts pass each other in descending order.
    const bool descending = m_OrderType == 1;
    int gap = 1;
    while (gap <= count)
        gap = 3 * gap + 1;
    do {
        gap /= 3;
        for (int i = gap; i < count; ++i) {
            ItemRecord copy = m_Items[static_cast<size_t>(i)];
            int j = i;
            while (j >= gap && (QString::compare(m_Items[static_cast<size_t>(j - gap)].Text, copy.Text,
                                                 Qt::CaseSensitive) > 0) != descending) {
                m_Items[static_cast<size_t>(j)] = std::move(m_Items[static_cast<size_t>(j - gap)]);
                j -= gap;
            }
            m_Items[static_cast<size_t>(j)] = std::move(copy);
        }
    } while (gap != 1);

    std::fill(m_Selected.begin(), m_Selected.end(), false);
    m_ListIndex = -1;
    m_LastListIndex = -1;
    m_LastY = -1.0f;
    m_Bar->setValue(0);
    Refresh();
    Q_EMIT ListIndexChange();
}

// ---- in-place editing -----------------------------------------------------------------------

bool RowList::IsEditing() const { return m_txtEdit && !m_txtEdit->isHidden(); }

QLineEdit *RowList::Editor()
{
    // Made at the first edit: most lists are never edited, and each editor costs a text layout.
    if (!m_txtEdit) {
        m_txtEdit = new QLineEdit(m_iScr);
        m_txtEdit->setObjectName(QStringLiteral("txtEdit"));
        m_txtEdit->setFrame(false);
        m_txtEdit->hide();
        m_txtEdit->installEventFilter(this);
    }
    return m_txtEdit;
}

void RowList::StartEdit()
{
    EnsureLayout();
    if (m_ListIndex < 0 || m_ListIndex >= m_ListCount)
        return;
    if (!IsRowVisible(m_ListIndex))
        m_Bar->setValue(std::min<int>(m_ListIndex, m_Bar->maximum()));
    QLineEdit *editor = Editor();
    editor->setGeometry(TextRect(m_ListIndex - TopIndex()));
    editor->setFont(font());
    editor->setText(m_Items[static_cast<size_t>(m_ListIndex)].Text);
    editor->show();
    editor->setFocus(Qt::OtherFocusReason);
    editor->selectAll();
}

void RowList::EndEdit(bool save)
{
    if (save)
        EditKeyPress(13);
    else
        CloseEdit();
}

void RowList::EditKeyPress(int keyAscii)
{
    if (!IsEditing())
        return;
    if (keyAscii == 27)
        CloseEdit();
    else if (keyAscii == 13 || (keyAscii == 10 && !m_WordWrap))
        CommitEdit();
}

void RowList::CommitEdit()
{
    if (IsEditing() && m_ListIndex >= 0 && m_ListIndex < m_ListCount) {
        m_Items[static_cast<size_t>(m_ListIndex)].Text = m_txtEdit->text();
        DrawItem(m_ListIndex);
    }
    CloseEdit();
}

void RowList::CloseEdit()
{
    if (!IsEditing())
        return;
    const bool hadFocus = m_txtEdit->hasFocus();
    m_txtEdit->hide();
    if (hadFocus)
        m_iScr->setFocus(Qt::OtherFocusReason);
    DrawFocus();
}

void RowList::setTickSource(TickSource source) { m_Tick = source ? std::move(source) : TickSource(SystemTicks); }

void RowList::setEventPump(EventPump pump)
{
    if (pump)
        m_Pump = std::move(pump);
}

} // namespace zrt
