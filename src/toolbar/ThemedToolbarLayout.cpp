// ThemedToolbar: laying out the bar, its colours and painting its surfaces.
#include "toolbar/ThemedToolbar.h"

#include "toolbar/ToolbarPainting.h"
#include "toolbar/ToolbarSurface.h"

#include <QEvent>
#include <QPainter>

#include <algorithm>
#include <climits>

namespace zrt {

// --- Layout ---

void ThemedToolbar::ArrangeSurfaces()
{
    const int grip = m_noMoveBar ? 0 : GripWidth;
    m_picLeft->setVisible(!m_noMoveBar);
    m_picLeft->setGeometry(0, 0, grip, height());
    m_picRight->setGeometry(width() - EndAreaWidth, 0, EndAreaWidth, height());
    m_picTB->setGeometry(grip, 0, std::max(0, width() - grip - EndAreaWidth), height());
}

void ThemedToolbar::Relayout(std::size_t from)
{
    if (m_inLayout)
        return;
    m_inLayout = true;
    const int laidOutHeight = height();
    LayoutButtons(m_buttons, from, laidOutHeight);
    // The bar is never lower than its tallest button needs.
    const int need = BarHeightFor(m_buttons);
    setMinimumHeight(need);
    if (height() < need)
        resize(width(), need);
    if (height() != laidOutHeight)
        LayoutButtons(m_buttons, 0, height()); // the lit areas follow the new height
    m_laidOutSize = size();
    ArrangeSurfaces();
    PlaceOnBar(m_buttons, m_places, m_picTB->width());
    m_inLayout = false;
    if (m_picChevron->isVisible())
        ShowChevron();
    RedrawAll();
}

int ThemedToolbar::FullWidth() const
{
    EnsureLayout();
    const int grip = m_noMoveBar ? 0 : GripWidth;
    const int buttons = m_buttons.empty() ? btn::Gap : m_buttons.back().left + m_buttons.back().width + btn::Gap;
    return buttons + grip + EndAreaWidth;
}

void ThemedToolbar::SizeToButtons() { resize(FullWidth(), height()); }

void ThemedToolbar::resizeEvent(QResizeEvent *)
{
    if (m_inLayout) {
        ArrangeSurfaces();
        return;
    }
    Relayout(0);
}

void ThemedToolbar::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::EnabledChange)
        RedrawAll();
    QWidget::changeEvent(event);
}

void ThemedToolbar::hideEvent(QHideEvent *event)
{
    HideChevron();
    QWidget::hideEvent(event);
}

bool ThemedToolbar::eventFilter(QObject *watched, QEvent *event)
{
    if (m_isStrech && watched == parentWidget() && event->type() == QEvent::Resize)
        resize(parentWidget()->width(), height());
    return QWidget::eventFilter(watched, event);
}

// --- The bar's properties ---

void ThemedToolbar::setBackColor(OleColor v)
{
    m_backColor = v;
    setAutoFillBackground(true);
    QPalette pal = palette();
    pal.setColor(QPalette::Window, TranslateColor(v));
    setPalette(pal);
    RefreshColors();
}

void ThemedToolbar::setThemeColor(int v)
{
    m_themeColor = v;
    RefreshColors();
    RefreshMenu();
}

void ThemedToolbar::setReverseGradient(bool v)
{
    m_reverseGradient = v;
    RefreshColors();
}

void ThemedToolbar::setIsStrech(bool v)
{
    m_isStrech = v;
    if (QWidget *container = parentWidget()) {
        container->removeEventFilter(this);
        if (v) {
            container->installEventFilter(this);
            resize(container->width(), height());
        }
    }
}

void ThemedToolbar::setNoMoveBar(bool v)
{
    m_noMoveBar = v;
    Relayout(0);
}

void ThemedToolbar::RefreshColors()
{
    m_colors = ThemeColorsFor(m_themeColor, m_reverseGradient);
    RedrawAll();
}

void ThemedToolbar::RedrawAll()
{
    m_picLeft->update();
    m_picTB->update();
    m_picRight->update();
    if (m_picChevron->isVisible())
        m_picChevron->update();
}

QWidget *ThemedToolbar::PicLeft() const { return m_picLeft; }
QWidget *ThemedToolbar::PicTB() const { return m_picTB; }
QWidget *ThemedToolbar::PicRight() const { return m_picRight; }
QWidget *ThemedToolbar::picChevron() const { return m_picChevron; }

// --- Painting ---

void ThemedToolbar::PaintBar(QPainter &p)
{
    EnsureLayout();
    DrawBarGround(p, m_picTB->rect(), m_colors);
    PaintButtons(p, Surface::Bar);
}

void ThemedToolbar::PaintPopup(QPainter &p)
{
    DrawBarGround(p, m_picChevron->rect(), m_colors);
    PaintButtons(p, Surface::Popup);
    p.setPen(TranslateColor(m_colors[theme::Line]));
    p.setBrush(Qt::NoBrush);
    p.drawRect(m_picChevron->rect().adjusted(0, 0, -1, -1));
}

void ThemedToolbar::PaintButtons(QPainter &p, Surface surface)
{
    const bool onBar = surface == Surface::Bar;
    for (std::size_t n = 0; n < m_buttons.size(); ++n) {
        const ButtonPlace &place = m_places[n];
        if (place.onBar != onBar || place.rect.isNull())
            continue;
        const ToolbarButton &b = m_buttons[n];
        if (b.isSeparator()) {
            DrawSeparator(p, place.rect, m_colors);
            continue;
        }
        const bool hot = m_hotSurface == surface && m_hot == static_cast<int>(n);
        const bool pressed = m_pressSurface == surface && m_pressed == static_cast<int>(n);
        DrawButton(p, b, place.rect, LookOf(b, isEnabled(), hot, pressed), m_colors);
    }
}

void ThemedToolbar::PaintGrip(QPainter &p)
{
    DrawBarGround(p, m_picLeft->rect(), m_colors);
    DrawGrip(p, m_picLeft->rect(), m_colors);
}

void ThemedToolbar::PaintEndArea(QPainter &p)
{
    const bool overflow = std::any_of(m_places.begin(), m_places.end(), [](const ButtonPlace &pl) { return !pl.onBar; });
    DrawEndArea(p, m_picRight->rect(), m_colors, m_endAreaState == 1, overflow);
}

} // namespace zrt
