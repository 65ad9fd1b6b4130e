// RowList: drawing the rows, their icons and the border.
#include "controls/RowList.h"

#include "gfx/DeviceImage.h"

#include <QPaintEvent>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace zrt {

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
    const StrokeOnPixels onPixels(painter);
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
    // On a screen of another pixel ratio the rows are drawn again at that ratio.
    if (!m_Canvas.isNull() && m_Canvas.devicePixelRatio() != m_iScr->devicePixelRatioF()) {
        m_Canvas = DeviceImage(m_CanvasSize, m_iScr->devicePixelRatioF(), QImage::Format_RGB32);
        Refresh();
    }
    QPainter painter(m_iScr);
    DrawSurfacePart(painter, event->rect().topLeft(), m_Canvas, event->rect());
    if (m_iScr->hasFocus() && !(m_Focus && IsRowVisible(m_ListIndex))) {
        // The keyboard is here but no row carries its mark (none chosen, or the list draws no
        // focus rectangle): a dotted frame round the surface shows it, painted over the rows only.
        painter.setPen(QPen(m_cFontNormal, 1, Qt::DotLine));
        painter.setBrush(Qt::NoBrush);
        const StrokeOnPixels onPixels(painter);
        painter.drawRect(m_iScr->rect().adjusted(1, 1, -2, -2));
    }
}

} // namespace zrt
