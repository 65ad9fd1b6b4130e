#pragma once
// Check as a check box: ticked is checked, greyed is the mixed state; toggling through the
// interface is a press and release on the box, so the value moves and Click comes as for the
// mouse.

#include <QAccessibleWidget>

namespace zrt {
class Check;
}

namespace zrt::access {

class CheckAccess : public QAccessibleWidget {
public:
    explicit CheckAccess(Check *check);

    QString text(QAccessible::Text t) const override;
    QAccessible::State state() const override;
    // The box picture and the caption strip are the control's own drawing, not children.
    int childCount() const override { return 0; }
    QAccessibleInterface *child(int) const override { return nullptr; }
    int indexOfChild(const QAccessibleInterface *) const override { return -1; }
    QAccessibleInterface *childAt(int, int) const override { return nullptr; }
    QStringList actionNames() const override;
    void doAction(const QString &action) override;

private:
    Check *check() const;
};

} // namespace zrt::access
