// RowList: row geometry, the visible window of rows and the scroll bar.
#include "controls/RowList.h"

#include <QScrollBar>

#include <algorithm>
#include <cmath>

namespace zrt {

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

} // namespace zrt
