#pragma once
// DropPanel as a drop-down: its title is the value it shows, and its name too unless the program
// gave it one (the label beside it, say); expanded or collapsed. Pressing it through the
// interface opens a folded panel and folds an open one, showing its menu opens it.

#include <QAccessibleWidget>

namespace zrt {
class DropPanel;
}

namespace zrt::access {

class DropPanelAccess : public QAccessibleWidget {
public:
    explicit DropPanelAccess(DropPanel *panel);

    QString text(QAccessible::Text t) const override;
    QAccessible::State state() const override;
    // The title strip is the panel's name, not a child of its own.
    int childCount() const override;
    QAccessibleInterface *child(int index) const override;
    int indexOfChild(const QAccessibleInterface *child) const override;
    QStringList actionNames() const override;
    void doAction(const QString &action) override;

private:
    DropPanel *panel() const;
};

} // namespace zrt::access
