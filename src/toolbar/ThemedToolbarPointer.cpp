// ThemedToolbar: the pointer over the buttons, the overflow pop-up, the menu and dialogs.
#include "toolbar/ThemedToolbar.h"

#include "common/RunTimeError.h"
#include "gfx/EventCodes.h"
#include "toolbar/ToolbarDialogs.h"
#include "toolbar/ToolbarMenu.h"
#include "toolbar/ToolbarPainting.h"
#include "toolbar/ToolbarSurface.h"

#include <QMouseEvent>

#include <algorithm>
#include <climits>

namespace zrt {

// --- Pointer ---

int ThemedToolbar::HitTest(Surface surface, const QPoint &pos) const
{
    EnsureLayout();
    const bool onBar = surface == Surface::Bar;
    for (std::size_t n = 0; n < m_buttons.size(); ++n) {
        if (m_places[n].onBar == onBar && !m_buttons[n].isSeparator() && m_places[n].rect.contains(pos))
            return static_cast<int>(n);
    }
    return -1;
}

void ThemedToolbar::TrackHot(Surface surface, const QPoint &pos)
{
    int hit = HitTest(surface, pos);
    if (hit >= 0 && (!isEnabled() || LookOf(m_buttons[static_cast<std::size_t>(hit)], true, false, false) ==
                                         ButtonLook::Disabled))
        hit = -1;
    if (hit == m_hot && surface == m_hotSurface)
        return;
    m_hot = hit;
    m_hotSurface = hit >= 0 ? surface : Surface::None;
    QWidget *w = surface == Surface::Bar ? static_cast<QWidget *>(m_picTB) : m_picChevron;
    w->setToolTip(hit >= 0 ? m_buttons[static_cast<std::size_t>(hit)].toolTipText : QString());
    w->update();
}

void ThemedToolbar::ClearHot()
{
    m_hot = -1;
    m_hotSurface = Surface::None;
    m_picTB->setToolTip({});
    RedrawAll();
}

void ThemedToolbar::PressAt(Surface surface, QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton)
        return;
    TrackHot(surface, event->position().toPoint());
    m_pressed = m_hot;
    m_pressSurface = m_pressed >= 0 ? surface : Surface::None;
    RedrawAll();
}

void ThemedToolbar::ReleaseAt(Surface surface, QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton)
        return;
    const int pressed = m_pressed;
    const bool same = m_pressSurface == surface;
    m_pressed = -1;
    m_pressSurface = Surface::None;
    RedrawAll();
    const QPoint pos = event->position().toPoint();
    if (pressed >= 0 && same && HitTest(surface, pos) == pressed) {
        if (surface == Surface::Popup)
            HideChevron();
        ClickButton(pressed, pos - m_places[static_cast<std::size_t>(pressed)].rect.topLeft());
    }
}

void ThemedToolbar::ClickButton(int n, const QPoint &pos)
{
    ToolbarButton &b = m_buttons[static_cast<std::size_t>(n)];
    if (!isEnabled() || !b.enabled || b.state == btn::StateDisabled)
        return;
    if (b.style == btn::StyleDropDown && pos.x() >= b.width - btn::DropDownExtra) {
        Q_EMIT ButtonDropDown(n + 1, b.key);
        return;
    }
    if (b.style == btn::StyleCheck)
        SetValue(b, !b.value);
    RedrawAll();
    // Copies: a handler may delete or move buttons.
    const QString key = b.key, caption = b.caption;
    Q_EMIT ButtonClick(n + 1, key, caption);
}

void ThemedToolbar::EndAreaPressed(QMouseEvent *event)
{
    const bool overflow = std::any_of(m_places.begin(), m_places.end(), [](const ButtonPlace &pl) { return !pl.onBar; });
    if (overflow && event->position().y() < m_picRight->height() / 2) {
        if (m_picChevron->isVisible())
            HideChevron();
        else
            ShowChevron();
        return;
    }
    ShowMenu(m_picRight->mapToGlobal(QPoint(0, m_picRight->height())));
}

void ThemedToolbar::EmitPassThrough(QWidget *surface, QMouseEvent *event, int kind)
{
    const QPoint p = surface->mapTo(this, event->position().toPoint());
    const int button = ButtonsCode(kind == 1 ? event->buttons() : Qt::MouseButtons(event->button()));
    const int shift = ShiftCode(event->modifiers());
    if (kind == 0)
        Q_EMIT MouseDown(button, shift, p.x(), p.y());
    else if (kind == 1)
        Q_EMIT MouseMove(button, shift, p.x(), p.y());
    else
        Q_EMIT MouseUp(button, shift, p.x(), p.y());
}

// --- The overflow pop-up ---

void ThemedToolbar::ShowChevron()
{
    const QSize size = PlaceInPopup(m_buttons, m_places, PopupRowWidth);
    if (size.isEmpty()) {
        HideChevron();
        return;
    }
    m_picChevron->resize(size);
    const QPoint corner = m_picRight->mapToGlobal(QPoint(m_picRight->width(), m_picRight->height()));
    m_picChevron->move(corner.x() - size.width(), corner.y());
    m_picChevron->show();
    m_picChevron->raise();
    m_picChevron->update();
}

void ThemedToolbar::HideChevron()
{
    if (!m_picChevron)
        return;
    if (m_hotSurface == Surface::Popup)
        ClearHot();
    m_picChevron->hide();
}

// --- Menu and dialogs ---

void ThemedToolbar::RefreshMenu()
{
    // Rebuilt when next looked at or opened: setting up a bar sets many menu properties in a row.
    m_menuStale = true;
}

ToolbarMenu *ThemedToolbar::Menu() const
{
    if (m_menuStale) {
        m_menuStale = false;
        m_menu->Rebuild(m_menuTitle, m_menuItems, m_menuLanguage, m_showMenuColor, m_themeColor);
    }
    return m_menu;
}

void ThemedToolbar::setMenuLanguage(int v)
{
    m_menuLanguage = v;
    RefreshMenu();
}

void ThemedToolbar::setShowMenuColor(bool v)
{
    m_showMenuColor = v;
    RefreshMenu();
}

QString ThemedToolbar::cMenuItem(int n) const
{
    if (n < 1 || n > ToolbarMenu::ItemCount)
        zrt::raise(ErrInvalidPropertyIndex);
    return m_menuItems[static_cast<std::size_t>(n - 1)];
}

void ThemedToolbar::setcMenuItem(int n, const QString &text)
{
    if (n < 1 || n > ToolbarMenu::ItemCount)
        zrt::raise(ErrInvalidPropertyIndex);
    m_menuItems[static_cast<std::size_t>(n - 1)] = text;
    RefreshMenu();
}

void ThemedToolbar::setcMenuGroupTitle(int n, const QString &text)
{
    m_menu->setGroupTitle(n, text);
}

void ThemedToolbar::setClientMenuGroup(const QString &title, const QList<QAction *> &actions)
{
    m_menu->setClientGroup(title, actions);
    RefreshMenu();
}

void ThemedToolbar::setcMenuItemTitle(const QString &text)
{
    m_menuTitle = text;
    RefreshMenu();
}

void ThemedToolbar::ShowMenu(const QPoint &globalPos)
{
    if (!Menu()->isEmpty())
        m_menu->popup(globalPos);
}

std::optional<OleColor> ThemedToolbar::ShowColor(OleColor initial)
{
    return ToolbarDialogs::ShowColor(this, initial);
}

QString ThemedToolbar::ShowOpen(const QString &title, const QString &folder)
{
    return ToolbarDialogs::ShowOpen(this, title, folder);
}

bool ThemedToolbar::ShowFont(QFont &font) { return ToolbarDialogs::ShowFont(this, font); }

} // namespace zrt
