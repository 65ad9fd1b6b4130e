#include "controls/RowList.h"
#include "gfx/EventCodes.h"

#include "common/RunTimeError.h"

#include <QApplication>
#include <QBitmap>
#include <QElapsedTimer>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPaintEvent>
#include <QPainter>
#include <QPointer>
#include <QScrollBar>
#include <QThread>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>

namespace zrt {

namespace {

constexpr int MaxItems = 32767; // the counters are 16-bit

// Key codes as the control's events report them (letters and digits keep their codes).
int KeyCodeOf(const QKeyEvent *event)
{
    const int key = event->key();
    if ((key >= Qt::Key_0 && key <= Qt::Key_9) || (key >= Qt::Key_A && key <= Qt::Key_Z) || key == Qt::Key_Space)
        return key;
    return SpecialKeyCode(key);
}

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

Qt::CursorShape CursorOf(short pointer)
{
    switch (pointer) {
    case 2: return Qt::CrossCursor;
    case 3: return Qt::IBeamCursor;
    case 5:
    case 15: return Qt::SizeAllCursor;
    case 6: return Qt::SizeBDiagCursor;
    case 7: return Qt::SizeVerCursor;
    case 8: return Qt::SizeFDiagCursor;
    case 9: return Qt::SizeHorCursor;
    case 10: return Qt::UpArrowCursor;
    case 11: return Qt::WaitCursor;
    case 12: return Qt::ForbiddenCursor;
    case 13: return Qt::BusyCursor;
    case 14: return Qt::WhatsThisCursor;
    default: return Qt::ArrowCursor;
    }
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

    m_txtEdit = new QLineEdit(m_iScr);
    m_txtEdit->setObjectName(QStringLiteral("txtEdit"));
    m_txtEdit->setFrame(false);
    m_txtEdit->hide();
    m_txtEdit->installEventFilter(this);

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
    m_txtEdit->removeEventFilter(this);
}

// ---- properties -----------------------------------------------------------------------------

void RowList::PropertyChange(const QString &name)
{
    ResolveColors();
    Relayout();
    Q_EMIT PropertyChanged(name);
}

void RowList::setTTipText(const QString &text)
{
    m_TTipText = text;
    m_iScr->setToolTip(text);
    Q_EMIT PropertyChanged(QStringLiteral("TTipText"));
}

void RowList::setAppearance(short value)
{
    m_Appearance = value;
    update();
    PropertyChange(QStringLiteral("Appearance"));
}

void RowList::setBorderStyle(short value)
{
    m_BorderStyle = value;
    update();
    PropertyChange(QStringLiteral("BorderStyle"));
}

void RowList::setScrollBarWidth(short value)
{
    const int half = static_cast<int>(std::nearbyint(width() / 2.0));
    int result = value;
    if (result > half)
        result = half;
    if (result < 9)
        result = 9;
    m_ScrollBarWidth = static_cast<short>(result);
    PropertyChange(QStringLiteral("ScrollBarWidth"));
}

void RowList::setFontNormal(OleColor color)
{
    m_FontNormal = color;
    PropertyChange(QStringLiteral("FontNormal"));
}

void RowList::setFontSelected(OleColor color)
{
    m_FontSelected = color;
    PropertyChange(QStringLiteral("FontSelected"));
}

void RowList::setBackNormal(OleColor color)
{
    m_BackNormal = color;
    PropertyChange(QStringLiteral("BackNormal"));
}

void RowList::setBackSelected(OleColor color)
{
    m_BackSelected = color;
    PropertyChange(QStringLiteral("BackSelected"));
}

void RowList::setBackSelectedG1(OleColor color)
{
    m_BackSelectedG1 = color;
    PropertyChange(QStringLiteral("BackSelectedG1"));
}

void RowList::setBackSelectedG2(OleColor color)
{
    m_BackSelectedG2 = color;
    PropertyChange(QStringLiteral("BackSelectedG2"));
}

void RowList::setBoxBorder(OleColor color)
{
    m_BoxBorder = color;
    PropertyChange(QStringLiteral("BoxBorder"));
}

void RowList::setBoxOffset(short value)
{
    m_BoxOffset = value;
    PropertyChange(QStringLiteral("BoxOffset"));
}

void RowList::setBoxRadius(short value)
{
    m_BoxRadius = value;
    PropertyChange(QStringLiteral("BoxRadius"));
}

void RowList::setBackStyle(short value)
{
    m_BackStyle = value;
    PropertyChange(QStringLiteral("BackStyle"));
}

void RowList::setAlignment(int value)
{
    m_Alignment = value;
    PropertyChange(QStringLiteral("Alignment"));
}

void RowList::setFocus(bool value)
{
    m_Focus = value;
    PropertyChange(QStringLiteral("Focus"));
}

void RowList::setHoverSelection(bool value)
{
    m_HoverSelection = value;
    PropertyChange(QStringLiteral("HoverSelection"));
}

void RowList::setWordWrap(bool value)
{
    m_WordWrap = value;
    PropertyChange(QStringLiteral("WordWrap"));
}

void RowList::setItemHeight(short value)
{
    m_ItemHeight = value;
    PropertyChange(QStringLiteral("ItemHeight"));
}

void RowList::setItemHeightAuto(bool value)
{
    m_ItemHeightAuto = value;
    UpdateItemHeightFromFont();
    PropertyChange(QStringLiteral("ItemHeightAuto"));
}

void RowList::setItemOffset(short value)
{
    m_ItemOffset = value;
    PropertyChange(QStringLiteral("ItemOffset"));
}

void RowList::setItemTextLeft(short value)
{
    m_ItemTextLeft = value;
    PropertyChange(QStringLiteral("ItemTextLeft"));
}

void RowList::setOrderType(short value)
{
    m_OrderType = value;
    Q_EMIT PropertyChanged(QStringLiteral("OrderType"));
}

void RowList::setSelectionPicture(const QImage &picture)
{
    m_SelectionPicture = picture;
    PropertyChange(QStringLiteral("SelectionPicture"));
}

void RowList::setSelectMode(short value)
{
    m_SelectMode = value;
    PropertyChange(QStringLiteral("SelectMode"));
}

void RowList::setSelectModeStyle(short value)
{
    m_SelectModeStyle = value;
    PropertyChange(QStringLiteral("SelectModeStyle"));
}

void RowList::setMousePointer(short value)
{
    m_MousePointer = value;
    ApplyMousePointer();
    Q_EMIT PropertyChanged(QStringLiteral("MousePointer"));
}

void RowList::setMouseIcon(const QImage &icon)
{
    m_MouseIcon = icon;
    ApplyMousePointer();
    Q_EMIT PropertyChanged(QStringLiteral("MouseIcon"));
}

void RowList::setDisabledIcons(bool value)
{
    m_DisabledIcons = value;
    Refresh();
}

void RowList::setSingleIcon(bool value)
{
    m_SingleIcon = value;
    Refresh();
}

void RowList::ApplyMousePointer()
{
    if (m_MousePointer == 0)
        m_iScr->unsetCursor();
    else if (m_MousePointer == 99 && !m_MouseIcon.isNull())
        m_iScr->setCursor(QCursor(QPixmap::fromImage(m_MouseIcon)));
    else
        m_iScr->setCursor(CursorOf(m_MousePointer));
}

void RowList::ResolveColors()
{
    m_cBackNormal = TranslateColor(m_BackNormal);
    m_cBackSelected = TranslateColor(m_BackSelected);
    m_cBoxBorder = TranslateColor(m_BoxBorder);
    m_cFontNormal = TranslateColor(m_FontNormal);
    m_cFontSelected = TranslateColor(m_FontSelected);
    m_cGradient1 = TranslateColor(m_BackSelectedG1);
    m_cGradient2 = TranslateColor(m_BackSelectedG2);
}

void RowList::UpdateItemHeightFromFont()
{
    if (m_ItemHeightAuto)
        m_ItemHeight = static_cast<short>(QFontMetrics(font()).height());
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

bool RowList::IsEditing() const { return !m_txtEdit->isHidden(); }

void RowList::StartEdit()
{
    EnsureLayout();
    if (m_ListIndex < 0 || m_ListIndex >= m_ListCount)
        return;
    if (!IsRowVisible(m_ListIndex))
        m_Bar->setValue(std::min<int>(m_ListIndex, m_Bar->maximum()));
    m_txtEdit->setGeometry(TextRect(m_ListIndex - TopIndex()));
    m_txtEdit->setFont(font());
    m_txtEdit->setText(m_Items[static_cast<size_t>(m_ListIndex)].Text);
    m_txtEdit->show();
    m_txtEdit->setFocus(Qt::OtherFocusReason);
    m_txtEdit->selectAll();
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
    if (m_ListIndex >= 0 && m_ListIndex < m_ListCount) {
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

// ---- geometry and scrolling -----------------------------------------------------------------

int RowList::RowHeight() const { return std::max<int>(1, m_ItemHeight); }

int RowList::RowAt(float y) const
{
    return TopIndex() + static_cast<int>(std::floor(y / static_cast<float>(RowHeight())));
}

bool RowList::IsRowVisible(int index) const
{
    // Whole rows plus the part-row that the surface shows below them.
    const int rowsShown = (m_Canvas.height() + RowHeight() - 1) / RowHeight();
    const int row = index - TopIndex();
    return index >= 0 && index < m_ListCount && row >= 0 && row < rowsShown;
}

QRect RowList::ItemRect(int visibleRow) const
{
    const int h = RowHeight();
    return QRect(0, h * visibleRow, m_Canvas.width(), h);
}

QRect RowList::TextRect(int visibleRow) const
{
    const int h = RowHeight();
    return QRect(QPoint(m_ItemTextLeft + m_ItemOffset, h * visibleRow + m_ItemOffset),
                 QPoint(m_Canvas.width() - m_ItemOffset - 1, h * (visibleRow + 1) - m_ItemOffset - 1));
}

int RowList::BorderWidth() const
{
    if (m_BorderStyle != 1)
        return 0;
    return m_Appearance == 1 ? 2 : 1;
}

// A hidden widget gets its resize event only when shown, and the main window fills its lists
// before that: every entry point that depends on the rows' geometry checks it first.
void RowList::EnsureLayout()
{
    if (size() != m_LayoutSize)
        Relayout();
}

short RowList::VisibleRowCount() const
{
    const int border = BorderWidth();
    return static_cast<short>(std::max(0, height() - 2 * border) / RowHeight());
}

void RowList::Relayout()
{
    m_LayoutSize = size();
    const int border = BorderWidth();
    const QRect inner = rect().adjusted(border, border, -border, -border);
    const int height = std::max(0, inner.height());
    m_VisibleRowCount = static_cast<unsigned short>(height / RowHeight());

    const bool needBar = m_ListCount > m_VisibleRowCount;
    const int barWidth = needBar ? std::min<int>(m_ScrollBarWidth, std::max(0, inner.width())) : 0;
    const int surfaceWidth = std::max(0, inner.width() - barWidth);
    m_iScr->setGeometry(inner.x(), inner.y(), surfaceWidth, height);
    m_Bar->setGeometry(inner.x() + surfaceWidth, inner.y(), barWidth, height);
    if (needBar) {
        m_Bar->setPageStep(std::max<int>(1, m_VisibleRowCount));
        m_Bar->setMaximum(m_ListCount - m_VisibleRowCount);
        m_Bar->show();
    } else {
        m_Bar->setValue(0);
        m_Bar->setMaximum(0);
        m_Bar->hide();
    }
    if (m_Canvas.size() != QSize(surfaceWidth, height))
        m_Canvas = QImage(surfaceWidth, height, QImage::Format_RGB32);
    Refresh();
}

void RowList::UpdateScrollRange()
{
    const bool needBar = m_ListCount > m_VisibleRowCount;
    if (needBar == m_Bar->isHidden()) {
        Relayout(); // the surface changes width
        return;
    }
    if (needBar)
        m_Bar->setMaximum(m_ListCount - m_VisibleRowCount);
}

void RowList::BarChange(int value)
{
    if (value == m_LastTopIndex)
        return;
    m_LastTopIndex = static_cast<short>(value);
    m_LastY = -1.0f;
    if (IsEditing())
        CloseEdit();
    Refresh();
    Q_EMIT Scroll();
    Q_EMIT TopIndexChange();
}

void RowList::BarScroll(int position)
{
    // The thumb is dragged: the view follows at once and Scroll is told once more.
    BarChange(position);
    Q_EMIT Scroll();
}

// ---- mouse, keyboard and the auto-scroll loop -----------------------------------------------

void RowList::setTickSource(TickSource source) { m_Tick = source ? std::move(source) : TickSource(SystemTicks); }

void RowList::setEventPump(EventPump pump)
{
    if (pump)
        m_Pump = std::move(pump);
}

void RowList::SurfaceMouseDown(int button, int shift, float x, float y)
{
    EnsureLayout();
    m_PressButton = button;
    if (button != 2) {
        const int row = RowAt(y);
        if (row >= 0 && row < m_ListCount) {
            auto flag = m_Selected.begin() + row;
            if (m_SelectMode == 0) {
                *flag = true;
            } else {
                *flag = !*flag;
                m_DragValue = *flag;
            }
            m_LastY = y;
            setListIndex(row);
            m_Dragging = true;
        }
    }
    Q_EMIT MouseDown(button, shift, x, y);
}

void RowList::SurfaceMouseMove(int button, int shift, float x, float y)
{
    EnsureLayout();
    // Every move counts for a running auto-scroll loop, which watches PointerY to leave.
    m_PointerY = static_cast<int>(std::lround(y));
    const float h = static_cast<float>(RowHeight());
    if (y < 0.0f) {
        ScrollUpwards(y);
    } else if (y >= static_cast<float>(m_Canvas.height())) {
        ScrollDownwards(y);
    } else if (std::floor(y / h) != std::floor(m_LastY / h) && (m_HoverSelection || button != 0)) {
        const int row = RowAt(y);
        if (row >= 0 && row < m_ListCount) {
            m_Selected[static_cast<size_t>(row)] = m_DragValue;
            setListIndex(row);
            m_LastY = y;
        }
    }
    Q_EMIT MouseMove(button, shift, x, y);
}

void RowList::SurfaceMouseUp(int button, int shift, float x, float y)
{
    FinishDrag();
    Q_EMIT MouseUp(button, shift, x, y);
}

void RowList::FinishDrag()
{
    m_Dragging = false;
    m_DragValue = true;
}

void RowList::ScrollUpwards(float y)
{
    m_PointerY = static_cast<int>(std::lround(y));
    if (!m_AutoScrolling && m_Dragging)
        AutoScroll(true);
}

void RowList::ScrollDownwards(float y)
{
    m_PointerY = static_cast<int>(std::lround(y));
    if (!m_AutoScrolling && m_Dragging)
        AutoScroll(false);
}

void RowList::AutoScroll(bool upwards)
{
    // Moves of the pointer arrive through the pump and only update PointerY; the loop ends as
    // soon as the button is up (Dragging falls) or the pointer is back over the surface.
    QPointer<RowList> self(this);
    m_AutoScrolling = true;
    std::uint32_t last = m_Tick();
    const auto outside = [this, upwards] {
        return upwards ? m_PointerY < 0 : m_PointerY >= m_Canvas.height();
    };
    while (self && m_Dragging && outside()) {
        const int height = m_Canvas.height();
        const int interval = std::max(40, upwards ? 500 + 20 * m_PointerY : 500 - (m_PointerY - height - 1) * 20);
        const std::uint32_t now = m_Tick();
        if (now - last >= static_cast<std::uint32_t>(interval)) {
            last = now;
            StepAutoScroll(upwards);
        }
        if (self)
            m_Pump();
    }
    if (self)
        m_AutoScrolling = false;
}

void RowList::StepAutoScroll(bool upwards)
{
    const int target = upwards ? m_ListIndex - 1 : m_ListIndex + 1;
    if (target < 0 || target >= m_ListCount)
        return;
    if (m_SelectMode == 1)
        m_Selected[static_cast<size_t>(target)] = m_DragValue;
    setListIndex(target);
}

void RowList::SurfaceKeyDown(int keyCode, int shift)
{
    EnsureLayout();
    if (m_ListCount > 0) {
        const int count = m_ListCount;
        const int rows = m_VisibleRowCount;
        switch (keyCode) {
        case 32:
            if (m_SelectMode != 0 && m_ListIndex >= 0) {
                m_Selected[static_cast<size_t>(m_ListIndex)] = !m_Selected[static_cast<size_t>(m_ListIndex)];
                DrawItem(m_ListIndex);
                DrawFocus();
            }
            Q_EMIT Click();
            break;
        case 33: setListIndex(m_ListIndex <= rows ? 0 : m_ListIndex - rows); break;
        case 34: setListIndex(m_ListIndex >= count - rows - 1 ? count - 1 : m_ListIndex + rows); break;
        case 35: setListIndex(count - 1); break;
        case 36: setListIndex(0); break;
        case 38:
            if (m_ListIndex > 0)
                setListIndex(m_ListIndex - 1);
            break;
        case 40:
            if (m_ListIndex < count - 1)
                setListIndex(m_ListIndex + 1);
            break;
        default: break;
        }
    }
    Q_EMIT KeyDown(keyCode, shift);
}

// ---- drawing --------------------------------------------------------------------------------

QColor RowList::SurfaceColor() const
{
    // BackStyle 0 lets the ground of the container show through.
    if (m_BackStyle == 0 && parentWidget())
        return parentWidget()->palette().color(parentWidget()->backgroundRole());
    return m_cBackNormal;
}

void RowList::ClearSurface()
{
    if (!m_Canvas.isNull())
        m_Canvas.fill(SurfaceColor());
    m_iScr->update();
}

void RowList::DrawAllRows()
{
    const int top = TopIndex();
    for (int index = top; IsRowVisible(index); ++index)
        DrawItem(index);
    DrawFocus();
}

void RowList::DrawItem(int index)
{
    if (m_Canvas.isNull() || !IsRowVisible(index))
        return;
    const int row = index - TopIndex();
    const QRect itemRect = ItemRect(row);
    const ItemRecord &item = m_Items[static_cast<size_t>(index)];
    const bool selected = m_Selected[static_cast<size_t>(index)];

    QPainter painter(&m_Canvas);
    painter.setClipRect(itemRect);
    QFont rowFont = font();
    rowFont.setBold(false);
    painter.setFont(rowFont);
    DrawRowBackground(painter, itemRect, selected);
    DrawItemIcon(painter, item, itemRect, selected);
    painter.setPen(selected ? m_cFontSelected : m_cFontNormal);
    DrawItemText(painter, item.Text, TextRect(row));
    m_iScr->update(itemRect);
}

void RowList::DrawRowBackground(QPainter &painter, const QRect &rect, bool selected)
{
    if (selected)
        DrawSelectedBackground(painter, rect);
    else
        DrawNormalBackground(painter, rect);
}

void RowList::DrawSelectedBackground(QPainter &painter, const QRect &rect)
{
    switch (m_SelectModeStyle) {
    case 1: painter.fillRect(rect, m_cBackNormal); break;
    case 2: DrawGradient(painter, rect, m_cGradient1, m_cGradient2, GradientDirection::TopToBottom); break;
    case 3: DrawGradient(painter, rect, m_cGradient1, m_cGradient2, GradientDirection::LeftToRight); break;
    case 4: {
        painter.fillRect(rect, m_cBackNormal);
        const QRect box = rect.adjusted(m_BoxOffset, m_BoxOffset, -m_BoxOffset - 1, -m_BoxOffset - 1);
        painter.setPen(m_cBoxBorder);
        painter.setBrush(m_cBackSelected);
        painter.drawRoundedRect(box, m_BoxRadius / 2.0, m_BoxRadius / 2.0);
        painter.setBrush(Qt::NoBrush);
        break;
    }
    case 5: {
        painter.fillRect(rect, m_cBackNormal);
        QFont bold = painter.font();
        bold.setBold(true);
        painter.setFont(bold);
        break;
    }
    case 6:
        if (m_SelectionPicture.isNull())
            painter.fillRect(rect, m_cBackSelected);
        else
            painter.drawImage(rect, m_SelectionPicture);
        break;
    default: painter.fillRect(rect, m_cBackSelected); break;
    }
}

void RowList::DrawNormalBackground(QPainter &painter, const QRect &rect)
{
    // 0 the container's ground, 1 plain BackNormal, 2 BackNormal shading slightly darker down
    // the row.
    if (m_BackStyle == 2)
        DrawGradient(painter, rect, m_cBackNormal, BlendColor(m_cBackNormal, -12), GradientDirection::TopToBottom);
    else
        painter.fillRect(rect, SurfaceColor());
}

void RowList::DrawItemIcon(QPainter &painter, const ItemRecord &item, const QRect &rect, bool selected)
{
    if (m_Images.empty())
        return;
    int icon = item.Icon;
    if (icon <= -1 && !m_SingleIcon)
        return;
    if (m_SingleIcon)
        icon = 0;
    else if (selected && item.IconSelected > -1)
        icon = item.IconSelected;
    if (icon < 0 || icon >= ImageCount())
        return; // a bad icon index draws nothing
    const auto at = static_cast<size_t>(icon);
    const QPixmap &pixmap = (!isEnabled() && m_DisabledIcons) ? m_DisabledImages[at] : m_Images[at];
    const int y = rect.top() + static_cast<int>(std::lround((rect.height() - pixmap.height()) / 2.0));
    painter.drawPixmap(m_ItemOffset, y, pixmap);
}

void RowList::DrawItemText(QPainter &painter, const QString &text, const QRect &rect)
{
    if (!m_WordWrap) {
        // Alignment has no say on a single line.
        painter.drawText(rect, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, text);
        return;
    }
    int flags = Qt::AlignTop | Qt::TextWordWrap;
    switch (m_Alignment & 3) {
    case 1: flags |= Qt::AlignHCenter; break;
    case 2: flags |= Qt::AlignRight; break;
    default: flags |= Qt::AlignLeft; break;
    }
    painter.drawText(rect, flags, text);
}

void RowList::DrawFocus()
{
    if (!m_Focus || !m_iScr->hasFocus() || !IsRowVisible(m_ListIndex))
        return;
    const QRect rect = ItemRect(m_ListIndex - TopIndex()).adjusted(0, 0, -1, -1);
    QPainter painter(&m_Canvas);
    painter.setPen(QPen(m_cFontNormal, 1, Qt::DotLine));
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(rect);
    m_iScr->update(rect.adjusted(0, 0, 1, 1));
}

void RowList::PaintBorder(QPainter &painter)
{
    const QRect r = rect().adjusted(0, 0, -1, -1);
    if (BorderWidth() == 1) {
        painter.setPen(TranslateColor(SystemColor(6)));
        painter.drawRect(r);
        return;
    }
    // A sunken edge: shadow above and left, highlight below and right, twice.
    const auto edge = [&painter](const QRect &box, const QColor &topLeft, const QColor &bottomRight) {
        painter.setPen(topLeft);
        painter.drawLine(box.topLeft(), box.topRight());
        painter.drawLine(box.topLeft(), box.bottomLeft());
        painter.setPen(bottomRight);
        painter.drawLine(box.bottomLeft(), box.bottomRight());
        painter.drawLine(box.topRight(), box.bottomRight());
    };
    edge(r, TranslateColor(SystemColor(16)), TranslateColor(SystemColor(20)));
    edge(r.adjusted(1, 1, -1, -1), TranslateColor(SystemColor(21)), TranslateColor(SystemColor(22)));
}

void RowList::PaintSurface(QPaintEvent *event)
{
    QPainter painter(m_iScr);
    painter.drawImage(event->rect(), m_Canvas, event->rect());
}

// ---- persistence ----------------------------------------------------------------------------

void RowList::WriteProperties(QVariantMap &bag) const
{
    const auto put = [&bag](const char *key, const QVariant &value, const QVariant &fallback) {
        if (value != fallback)
            bag.insert(QString::fromLatin1(key), value);
    };
    put("TTipText", m_TTipText, QString());
    put("Appearance", m_Appearance, short(1));
    // Written against 1 but read against 0: a stored list without the key comes back borderless.
    put("BorderStyle", m_BorderStyle, short(1));
    put("Enabled", isEnabled(), true);
    put("ScrollBarWidth", m_ScrollBarWidth, short(13));
    const QFont ambient = parentWidget() ? parentWidget()->font() : QApplication::font();
    if (font() != ambient)
        bag.insert(QStringLiteral("Font"), font().toString());
    put("FontNormal", m_FontNormal, SystemColor(8));
    put("FontSelected", m_FontSelected, SystemColor(14));
    put("BackNormal", m_BackNormal, SystemColor(5));
    put("BackSelected", m_BackSelected, SystemColor(13));
    put("BackSelectedG1", m_BackSelectedG1, SystemColor(13));
    put("BackSelectedG2", m_BackSelectedG2, SystemColor(13));
    put("BoxBorder", m_BoxBorder, SystemColor(14));
    put("BoxOffset", m_BoxOffset, short(1));
    put("BoxRadius", m_BoxRadius, short(0));
    put("BackStyle", m_BackStyle, short(1));
    put("Alignment", m_Alignment, 0);
    put("Focus", m_Focus, true);
    put("HoverSelection", m_HoverSelection, false);
    put("WordWrap", m_WordWrap, true);
    if (!m_ItemHeightAuto) // otherwise the font decides
        put("ItemHeight", m_ItemHeight, short(0));
    put("ItemHeightAuto", m_ItemHeightAuto, true);
    put("ItemOffset", m_ItemOffset, short(0));
    put("ItemTextLeft", m_ItemTextLeft, short(2));
    put("OrderType", m_OrderType, short(0));
    if (!m_SelectionPicture.isNull())
        bag.insert(QStringLiteral("SelectionPicture"), m_SelectionPicture);
    put("SelectMode", m_SelectMode, short(0));
    put("SelectModeStyle", m_SelectModeStyle, short(0));
    put("MousePointer", m_MousePointer, short(0));
    if (!m_MouseIcon.isNull())
        bag.insert(QStringLiteral("MouseIcon"), m_MouseIcon);
}

void RowList::ReadProperties(const QVariantMap &bag)
{
    const auto get = [&bag](const char *key, const QVariant &fallback) {
        return bag.value(QString::fromLatin1(key), fallback);
    };
    const auto getShort = [&get](const char *key, short fallback) {
        return static_cast<short>(get(key, fallback).toInt());
    };
    m_TTipText = get("TTipText", QString()).toString();
    m_iScr->setToolTip(m_TTipText);
    m_Appearance = getShort("Appearance", 1);
    m_BorderStyle = getShort("BorderStyle", 0);
    m_ScrollBarWidth = getShort("ScrollBarWidth", 13);
    m_FontNormal = get("FontNormal", SystemColor(8)).toUInt();
    m_FontSelected = get("FontSelected", SystemColor(14)).toUInt();
    m_BackNormal = get("BackNormal", SystemColor(5)).toUInt();
    m_BackSelected = get("BackSelected", SystemColor(13)).toUInt();
    m_BackSelectedG1 = get("BackSelectedG1", SystemColor(13)).toUInt();
    m_BackSelectedG2 = get("BackSelectedG2", SystemColor(13)).toUInt();
    m_BoxBorder = get("BoxBorder", SystemColor(14)).toUInt();
    m_BoxOffset = getShort("BoxOffset", 1);
    m_BoxRadius = getShort("BoxRadius", 0);
    m_BackStyle = getShort("BackStyle", 1);
    m_Alignment = get("Alignment", 0).toInt();
    m_Focus = get("Focus", true).toBool();
    m_HoverSelection = get("HoverSelection", false).toBool();
    m_WordWrap = get("WordWrap", true).toBool();
    m_ItemHeightAuto = get("ItemHeightAuto", true).toBool();
    m_ItemHeight = getShort("ItemHeight", 0);
    m_ItemOffset = getShort("ItemOffset", 0);
    m_ItemTextLeft = getShort("ItemTextLeft", 2);
    m_OrderType = getShort("OrderType", 0);
    m_SelectionPicture = get("SelectionPicture", QImage()).value<QImage>();
    m_SelectMode = getShort("SelectMode", 0);
    m_SelectModeStyle = getShort("SelectModeStyle", 0);
    m_MousePointer = getShort("MousePointer", 0);
    m_MouseIcon = get("MouseIcon", QImage()).value<QImage>();
    ApplyMousePointer();
    const QString fontText = get("Font", QString()).toString();
    QFont stored;
    if (!fontText.isEmpty() && stored.fromString(fontText))
        QWidget::setFont(stored); // re-measures the rows through the font change
    setEnabled(get("Enabled", true).toBool());
    UpdateItemHeightFromFont();
    ResolveColors();
    update();
    Relayout();
}

// ---- Qt plumbing ----------------------------------------------------------------------------

void RowList::paintEvent(QPaintEvent *)
{
    if (BorderWidth() == 0)
        return;
    QPainter painter(this);
    PaintBorder(painter);
}

void RowList::resizeEvent(QResizeEvent *) { Relayout(); }

void RowList::changeEvent(QEvent *event)
{
    switch (event->type()) {
    case QEvent::FontChange:
        UpdateItemHeightFromFont();
        PropertyChange(QStringLiteral("Font"));
        break;
    case QEvent::EnabledChange:
        if (!isEnabled())
            FinishDrag();
        Refresh();
        Q_EMIT PropertyChanged(QStringLiteral("Enabled"));
        break;
    case QEvent::PaletteChange:
        ResolveColors();
        Refresh();
        break;
    default: break;
    }
    QWidget::changeEvent(event);
}

bool RowList::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == m_iScr)
        return SurfaceEvent(event);
    if (watched == m_txtEdit)
        return EditorEvent(event);
    return QWidget::eventFilter(watched, event);
}

bool RowList::SurfaceEvent(QEvent *event)
{
    switch (event->type()) {
    case QEvent::Paint:
        PaintSurface(static_cast<QPaintEvent *>(event));
        return true;
    case QEvent::MouseButtonPress: {
        const auto *e = static_cast<QMouseEvent *>(event);
        SurfaceMouseDown(ButtonCode(e->button()), ShiftCode(e->modifiers()), static_cast<float>(e->position().x()),
                         static_cast<float>(e->position().y()));
        return true;
    }
    case QEvent::MouseButtonDblClick:
        Q_EMIT DblClick();
        return true;
    case QEvent::MouseMove: {
        const auto *e = static_cast<QMouseEvent *>(event);
        SurfaceMouseMove(ButtonsCode(e->buttons()), ShiftCode(e->modifiers()), static_cast<float>(e->position().x()),
                         static_cast<float>(e->position().y()));
        return true;
    }
    case QEvent::MouseButtonRelease: {
        const auto *e = static_cast<QMouseEvent *>(event);
        const int button = ButtonCode(e->button());
        const bool clicked = button == 1 && m_PressButton == 1 && m_iScr->rect().contains(e->position().toPoint());
        m_PressButton = 0;
        SurfaceMouseUp(button, ShiftCode(e->modifiers()), static_cast<float>(e->position().x()),
                       static_cast<float>(e->position().y()));
        if (clicked)
            Q_EMIT Click();
        return true;
    }
    case QEvent::Wheel:
        if (!m_Bar->isHidden())
            QCoreApplication::sendEvent(m_Bar, event);
        return true;
    case QEvent::KeyPress: {
        const auto *e = static_cast<QKeyEvent *>(event);
        if (e->key() == Qt::Key_Tab || e->key() == Qt::Key_Backtab)
            return false;
        SurfaceKeyDown(KeyCodeOf(e), ShiftCode(e->modifiers()));
        if (!e->text().isEmpty())
            Q_EMIT KeyPress(e->text().at(0).unicode());
        return true;
    }
    case QEvent::KeyRelease: {
        const auto *e = static_cast<QKeyEvent *>(event);
        Q_EMIT KeyUp(KeyCodeOf(e), ShiftCode(e->modifiers()));
        return true;
    }
    case QEvent::FocusIn:
    case QEvent::FocusOut:
        if (event->type() == QEvent::FocusOut && m_Dragging && !IsEditing())
            FinishDrag(); // another window took the pointer; its release will not come here
        if (m_ListIndex >= 0)
            DrawItem(m_ListIndex);
        DrawFocus();
        return false;
    case QEvent::Hide:
        FinishDrag();
        return false;
    default: return false;
    }
}

bool RowList::EditorEvent(QEvent *event)
{
    if (event->type() == QEvent::KeyPress) {
        const auto *e = static_cast<QKeyEvent *>(event);
        int code = 0;
        if (e->key() == Qt::Key_Return || e->key() == Qt::Key_Enter)
            code = (e->modifiers() & Qt::ControlModifier) ? 10 : 13;
        else if (e->key() == Qt::Key_Escape)
            code = 27;
        if (code != 0) {
            EditKeyPress(code);
            return true;
        }
    } else if (event->type() == QEvent::FocusOut) {
        if (IsEditing() && !m_txtEdit->isHidden() && static_cast<QFocusEvent *>(event)->reason() != Qt::PopupFocusReason)
            CloseEdit();
    }
    return false;
}

} // namespace zrt
