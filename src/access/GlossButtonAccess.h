#pragma once
// GlossButton (and the dialogs' buttons built on it) as a push button: its caption is its
// name, a press through the interface is a click with the left button.

#include <QAccessibleWidget>

namespace zrt {
class GlossButton;
}

namespace zrt::access {

class GlossButtonAccess : public QAccessibleWidget {
public:
    explicit GlossButtonAccess(GlossButton *button);

    QString text(QAccessible::Text t) const override;
    QAccessible::State state() const override;
    QStringList actionNames() const override;
    void doAction(const QString &action) override;
    QStringList keyBindingsForAction(const QString &action) const override;

private:
    GlossButton *button() const;
};

} // namespace zrt::access
