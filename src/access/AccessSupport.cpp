#include "access/AccessSupport.h"

#include "access/Accessibility.h"

#include <QVariant>

#include <utility>

namespace zrt::access {

namespace {
EventObserver g_observer = nullptr;

void Send(QAccessibleEvent &event)
{
    if (g_observer)
        g_observer(&event);
    QAccessible::updateAccessibility(&event);
}
} // namespace

EventObserver SetEventObserver(EventObserver observer) { return std::exchange(g_observer, observer); }

QString SpokenCaption(const QString &caption)
{
    QString spoken;
    spoken.reserve(caption.size());
    for (qsizetype i = 0; i < caption.size(); ++i) {
        if (caption[i] != u'&') {
            spoken += caption[i];
        } else if (i + 1 < caption.size() && caption[i + 1] == u'&') {
            spoken += u'&';
            ++i;
        }
    }
    return spoken.trimmed();
}

QString NameFrom(const QString &caption, const QWidget *widget)
{
    const QString spoken = SpokenCaption(caption);
    if (!spoken.isEmpty() || !widget)
        return spoken;
    return widget->accessibleName();
}

QList<QWidget *> ChildWidgets(const QWidget *widget, const QList<const QWidget *> &leftOut)
{
    QList<QWidget *> children;
    if (!widget)
        return children;
    for (QObject *object : widget->children()) {
        auto *child = qobject_cast<QWidget *>(object);
        if (child && !child->isWindow() && !leftOut.contains(child))
            children.append(child);
    }
    return children;
}

void WireOnce(QWidget *widget, const std::function<void()> &wire)
{
    static const char *const kWired = "zrtAccessWired";
    if (!widget || widget->property(kWired).toBool())
        return;
    widget->setProperty(kWired, true);
    wire();
}

void NotifyState(QObject *object, const QAccessible::State &changed, int child)
{
    QAccessibleStateChangeEvent event(object, changed);
    if (child >= 0)
        event.setChild(child);
    Send(event);
}

void Notify(QObject *object, QAccessible::Event type, int child)
{
    QAccessibleEvent event(object, type);
    if (child >= 0)
        event.setChild(child);
    Send(event);
}

bool PartInterface::isValid() const { return m_owner && m_owner->isValid() && partExists(); }

void *PartInterface::interface_cast(QAccessible::InterfaceType type)
{
    if (type == QAccessible::ActionInterface)
        return static_cast<QAccessibleActionInterface *>(this);
    return nullptr;
}

PartCache::~PartCache()
{
    for (const auto &[index, id] : m_ids)
        QAccessible::deleteAccessibleInterface(id);
}

QAccessibleInterface *PartCache::at(int index) const
{
    if (index < 0)
        return nullptr;
    if (const auto found = m_ids.find(index); found != m_ids.end()) {
        if (QAccessibleInterface *part = QAccessible::accessibleInterface(found->second))
            return part;
        m_ids.erase(found);
    }
    QAccessibleInterface *part = m_make(index);
    if (!part)
        return nullptr;
    m_ids[index] = QAccessible::registerAccessibleInterface(part);
    return part;
}

int PartCache::indexOf(const QAccessibleInterface *part) const
{
    if (!part)
        return -1;
    for (const auto &[index, id] : m_ids)
        if (QAccessible::accessibleInterface(id) == part)
            return index;
    return -1;
}

} // namespace zrt::access
