#pragma once
// The balloon dialog (msgFrm) as a dialog: the shown panel's title is its name and its message
// its description, with a formula's marks read out in words; its buttons and fields are its
// children as Qt finds them.

#include <QAccessibleWidget>

namespace zrt {
class msgFrm;
}

namespace zrt::access {

// The text of a balloon as a screen reader should say it: powers, roots and pi in words.
QString SpokenFormula(const QString &text);

class BalloonAccess : public QAccessibleWidget {
public:
    explicit BalloonAccess(msgFrm *balloon);

    QString text(QAccessible::Text t) const override;

private:
    msgFrm *balloon() const;
};

} // namespace zrt::access
