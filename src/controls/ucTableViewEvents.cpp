// ucTableView: scale conversions and the list's mouse, key and change events.
#include "controls/ucTableView.h"

#include "controls/ucTableViewRoles.h"
#include "gfx/EventCodes.h"
#include "gfx/MessageEngine.h"

#include <QApplication>
#include <QHeaderView>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QTreeWidget>

#include <algorithm>
#include <utility>

namespace zrt {

namespace {

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
