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
    QStringList actionNames() const override;
    void doAction(const QString &action) override;

private:
    Check *check() const;
};

} // namespace zrt::access
