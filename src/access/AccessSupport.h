#pragma once
// What the controls' accessibility interfaces share: spoken names from captions, the children
// of a control that are drawn parts rather than widgets (list rows, tabs, toolbar buttons,
// table cells), and the events that tell a screen reader a state has changed.

#include <QAccessible>
#include <QAccessibleWidget>
#include <QList>
#include <QPointer>
#include <QString>
#include <QWidget>

#include <functional>
#include <map>

namespace zrt::access {

// A caption as it is spoken: "&" marks the access key and is dropped, "&&" is one "&".
QString SpokenCaption(const QString &caption);

// The name a control answers: its caption when it has one, else the name the program gave it.
QString NameFrom(const QString &caption, const QWidget *widget);

// The control's direct child widgets that a screen reader sees (not windows, not the ones
// left out), in the order the widget holds them.
QList<QWidget *> ChildWidgets(const QWidget *widget, const QList<const QWidget *> &leftOut = {});

// Runs `wire` once per widget: the state-change notices are connected when the first interface
// for the widget is made, which only happens while a screen reader (or a test) asks.
void WireOnce(QWidget *widget, const std::function<void()> &wire);

// Sends a state change for the control or, with child >= 0, for one of its drawn parts. Only
// controls whose interface exists send them, so without a screen reader nothing is sent.
void NotifyState(QObject *object, const QAccessible::State &changed, int child = -1);
void Notify(QObject *object, QAccessible::Event type, int child = -1);

// A drawn part of a control: no widget of its own; its owner's interface makes, registers and
// deletes it. Subclasses give its role, texts, state, place and actions.
class PartInterface : public QAccessibleInterface, public QAccessibleActionInterface {
public:
    PartInterface(QAccessibleInterface *owner, int index) : m_owner(owner), m_index(index) {}

    bool isValid() const override;
    QObject *object() const override { return nullptr; }
    QWindow *window() const override { return m_owner->window(); }
    QAccessibleInterface *childAt(int, int) const override { return nullptr; }
    QAccessibleInterface *parent() const override { return m_owner; }
    QAccessibleInterface *child(int) const override { return nullptr; }
    int childCount() const override { return 0; }
    int indexOfChild(const QAccessibleInterface *) const override { return -1; }
    void setText(QAccessible::Text, const QString &) override {}
    void *interface_cast(QAccessible::InterfaceType type) override;

    QStringList actionNames() const override { return {}; }
    void doAction(const QString &) override {}
    QStringList keyBindingsForAction(const QString &) const override { return {}; }

    int index() const { return m_index; }

protected:
    // Whether the part still exists in its control (an item may have been removed).
    virtual bool partExists() const = 0;
    QWidget *ownerWidget() const { return qobject_cast<QWidget *>(m_owner->object()); }

private:
    QAccessibleInterface *m_owner;
    int m_index;
};

// The parts an owner interface has handed out, by index; each is registered with Qt's cache so
// that it has a stable id, and deleted with the owner.
class PartCache {
public:
    using Make = std::function<QAccessibleInterface *(int index)>;
    explicit PartCache(Make make) : m_make(std::move(make)) {}
    ~PartCache();
    PartCache(const PartCache &) = delete;
    PartCache &operator=(const PartCache &) = delete;

    QAccessibleInterface *at(int index) const;
    // The index of a part this cache made, -1 for any other interface.
    int indexOf(const QAccessibleInterface *part) const;

private:
    Make m_make;
    mutable std::map<int, QAccessible::Id> m_ids;
};

} // namespace zrt::access
