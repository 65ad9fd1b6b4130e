// RowList: mouse, keyboard, the auto-scroll loop and the surface's event routing.
#include "controls/RowList.h"

#include "gfx/EventCodes.h"

#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPaintEvent>
#include <QPainter>
#include <QPointer>
#include <QScrollBar>

#include <algorithm>
#include <cmath>

namespace zrt {

namespace {

// Key codes as the control's events report them (letters and digits keep their codes).
int KeyCodeOf(const QKeyEvent *event)
{
    const int key = event->key();
    if ((key >= Qt::Key_0 && key <= Qt::Key_9) || (key >= Qt::Key_A && key <= Qt::Key_Z) || key == Qt::Key_Space)
        return key;
    return SpecialKeyCode(key);
}

} // namespace

// ---- mouse, keyboard and the auto-scroll loop -----------------------------------------------

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
    } else if (y >= static_cast<float>(m_CanvasSize.height())) {
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
        return upwards ? m_PointerY < 0 : m_PointerY >= m_CanvasSize.height();
    };
    while (self && m_Dragging && outside()) {
        const int height = m_CanvasSize.height();
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
        m_iScr->update(); // the frame that marks a focused list without a marked row
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
