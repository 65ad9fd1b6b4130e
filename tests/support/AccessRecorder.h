#pragma once
// For the accessibility tests: the program's interfaces installed, and every state-change event
// the controls send kept for reading (without a screen reader Qt itself drops them).

#include "access/Accessibility.h"

#include <QAccessible>

#include <vector>

namespace zrt::test {

class AccessRecorder {
public:
    struct Seen {
        QObject *object = nullptr;
        QAccessible::Event type = QAccessible::InvalidEvent;
        int child = -1;
        QAccessible::State changed;
    };

    AccessRecorder()
    {
        installAccessibility();
        events().clear();
        m_previous = access::SetEventObserver(&Record);
    }
    ~AccessRecorder()
    {
        access::SetEventObserver(m_previous);
        events().clear();
    }
    AccessRecorder(const AccessRecorder &) = delete;
    AccessRecorder &operator=(const AccessRecorder &) = delete;

    static std::vector<Seen> &events()
    {
        static std::vector<Seen> seen;
        return seen;
    }
    static void clear() { events().clear(); }

    // How many events of the type came from the object (and, when child >= -1, for that child).
    static int count(const QObject *object, QAccessible::Event type, int child = -2)
    {
        int n = 0;
        for (const Seen &seen : events())
            if (seen.object == object && seen.type == type && (child < -1 || seen.child == child))
                ++n;
        return n;
    }
    // The states a state change of the object (or its child) said had changed, merged.
    static QAccessible::State changed(const QObject *object, int child = -1)
    {
        QAccessible::State all;
        for (const Seen &seen : events())
            if (seen.object == object && seen.type == QAccessible::StateChanged && seen.child == child)
                all = Merge(all, seen.changed);
        return all;
    }

private:
    static QAccessible::State Merge(QAccessible::State a, const QAccessible::State &b)
    {
        a.checked |= b.checked;
        a.checkStateMixed |= b.checkStateMixed;
        a.selected |= b.selected;
        a.expanded |= b.expanded;
        a.collapsed |= b.collapsed;
        a.disabled |= b.disabled;
        a.animated |= b.animated;
        return a;
    }
    static void Record(QAccessibleEvent *event)
    {
        Seen seen{event->object(), event->type(), event->child(), {}};
        if (event->type() == QAccessible::StateChanged)
            seen.changed = static_cast<QAccessibleStateChangeEvent *>(event)->changedStates();
        events().push_back(seen);
    }

    access::EventObserver m_previous = nullptr;
};

} // namespace zrt::test
