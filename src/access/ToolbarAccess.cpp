#include "access/ToolbarAccess.h"

#include "toolbar/ThemedToolbar.h"

namespace zrt::access {

ToolbarAccess::ToolbarAccess(ThemedToolbar *b)
    : QAccessibleWidget(b, QAccessible::ToolBar),
      m_buttons([this](int index) -> QAccessibleInterface * { return new ToolbarButtonAccess(this, index); })
{
    WireOnce(b, [b] {
        QObject::connect(b, &ThemedToolbar::ButtonClick, b, [b](int index, const QString &, const QString &) {
            if (index < 1 || index > b->ButtonCount())
                return;
            if (b->BtnStyle(index) == btn::StyleCheck) {
                QAccessible::State changed;
                changed.checked = true;
                NotifyState(b, changed, index - 1);
            }
        });
    });
}

ThemedToolbar *ToolbarAccess::bar() const { return static_cast<ThemedToolbar *>(widget()); }

int ToolbarAccess::childCount() const { return bar()->ButtonCount(); }

QAccessibleInterface *ToolbarAccess::child(int index) const
{
    return index >= 0 && index < childCount() ? m_buttons.at(index) : nullptr;
}

int ToolbarAccess::indexOfChild(const QAccessibleInterface *child) const
{
    const int index = m_buttons.indexOf(child);
    return index < childCount() ? index : -1;
}

QAccessibleInterface *ToolbarAccess::childAt(int x, int y) const
{
    for (int i = 0; i < childCount(); ++i)
        if (QAccessibleInterface *button = child(i); button && button->rect().contains(x, y))
            return button;
    return nullptr;
}

bool ToolbarButtonAccess::partExists() const
{
    return m_owner->bar() && button() <= m_owner->bar()->ButtonCount();
}

QAccessible::Role ToolbarButtonAccess::role() const
{
    if (partExists() && m_owner->bar()->BtnType(button()) != btn::TypeButton)
        return QAccessible::Separator;
    if (partExists() && m_owner->bar()->BtnStyle(button()) == btn::StyleDropDown)
        return QAccessible::ButtonDropDown;
    return QAccessible::Button;
}

QString ToolbarButtonAccess::text(QAccessible::Text t) const
{
    if (!partExists())
        return {};
    const ThemedToolbar *b = m_owner->bar();
    switch (t) {
    case QAccessible::Name: {
        const QString caption = SpokenCaption(b->BtnCaption(button()));
        return caption.isEmpty() ? b->BtnToolTipText(button()) : caption;
    }
    case QAccessible::Description:
        return SpokenCaption(b->BtnCaption(button())).isEmpty() ? QString() : b->BtnToolTipText(button());
    default:
        return {};
    }
}

QRect ToolbarButtonAccess::rect() const
{
    if (!partExists())
        return {};
    const ThemedToolbar *b = m_owner->bar();
    const QWidget *surface = b->BtnOnBar(button()) ? b->PicTB() : b->picChevron();
    const QRect local = b->BtnDisplayRect(button());
    return QRect(surface->mapToGlobal(local.topLeft()), local.size());
}

QAccessible::State ToolbarButtonAccess::state() const
{
    QAccessible::State s;
    if (!partExists())
        return s;
    const ThemedToolbar *b = m_owner->bar();
    const int i = button();
    s.disabled = !b->isEnabled() || !b->BtnEnabled(i) || b->btnState(i) == btn::StateDisabled;
    if (b->BtnStyle(i) == btn::StyleCheck) {
        s.checkable = true;
        s.checked = b->BtnValue(i);
    }
    if (b->BtnStyle(i) == btn::StyleDropDown)
        s.hasPopup = true;
    if (!b->isVisible())
        s.invisible = true;
    else if (!b->BtnOnBar(i) && !b->picChevron()->isVisible())
        s.offscreen = true; // waiting in the closed overflow pop-up
    return s;
}

QStringList ToolbarButtonAccess::actionNames() const
{
    if (!partExists() || m_owner->bar()->BtnType(button()) != btn::TypeButton)
        return {};
    QStringList names{pressAction()};
    if (m_owner->bar()->BtnStyle(button()) == btn::StyleCheck)
        names << toggleAction();
    if (m_owner->bar()->BtnStyle(button()) == btn::StyleDropDown)
        names << showMenuAction();
    return names;
}

void ToolbarButtonAccess::doAction(const QString &action)
{
    if (!actionNames().contains(action))
        return;
    m_owner->bar()->PressButton(button(), action == showMenuAction());
}

} // namespace zrt::access
