#include "access/GlossButtonAccess.h"

#include "access/AccessSupport.h"
#include "controls/GlossButton.h"

#include <QCoreApplication>
#include <QMouseEvent>

namespace zrt::access {

GlossButtonAccess::GlossButtonAccess(GlossButton *b) : QAccessibleWidget(b, QAccessible::Button)
{
    WireOnce(b, [b] {
        QObject::connect(b, &GlossButton::PropertyChanged, b, [b](const QString &name) {
            if (name == QLatin1String("Caption")) {
                Notify(b, QAccessible::NameChanged);
            } else if (name == QLatin1String("Checked")) {
                QAccessible::State changed;
                changed.checked = true;
                NotifyState(b, changed);
            }
        });
    });
}

GlossButton *GlossButtonAccess::button() const { return static_cast<GlossButton *>(widget()); }

QString GlossButtonAccess::text(QAccessible::Text t) const
{
    if (t == QAccessible::Name)
        return NameFrom(button()->Caption(), button());
    return QAccessibleWidget::text(t);
}

QAccessible::State GlossButtonAccess::state() const
{
    QAccessible::State s = QAccessibleWidget::state();
    s.pressed = button()->PaintedState() == GlossButton::StateDown;
    // A button shown as checked (a latched choice) reads as such.
    if (button()->Checked()) {
        s.checkable = true;
        s.checked = true;
    }
    return s;
}

QStringList GlossButtonAccess::actionNames() const
{
    return QStringList{pressAction()} + QAccessibleWidget::actionNames();
}

void GlossButtonAccess::doAction(const QString &action)
{
    if (action != pressAction()) {
        QAccessibleWidget::doAction(action);
        return;
    }
    GlossButton *b = button();
    if (!b->isEnabled())
        return;
    // The same press and release a pointer would give, in the middle of the face, so the
    // button's own handlers decide as for any click.
    const QPointF centre(b->width() / 2.0, b->height() / 2.0);
    const QPointF global = b->mapToGlobal(centre);
    QMouseEvent press(QEvent::MouseButtonPress, centre, global, Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(b, &press);
    QMouseEvent release(QEvent::MouseButtonRelease, centre, global, Qt::LeftButton, Qt::NoButton, Qt::NoModifier);
    QCoreApplication::sendEvent(b, &release);
}

QStringList GlossButtonAccess::keyBindingsForAction(const QString &action) const
{
    if (action == pressAction())
        return {QStringLiteral("Return")};
    return QAccessibleWidget::keyBindingsForAction(action);
}

} // namespace zrt::access
