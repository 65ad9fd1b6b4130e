#pragma once
// A chart surface as a graphic: its name is the one the page gives it, its description the
// text alternative that says in words what the chart shows.

#include <QAccessibleWidget>

namespace zrt {
class PictureBox;
}

namespace zrt::access {

class PictureBoxAccess : public QAccessibleWidget, public QAccessibleImageInterface {
public:
    explicit PictureBoxAccess(PictureBox *box);

    QString text(QAccessible::Text t) const override;
    void *interface_cast(QAccessible::InterfaceType t) override;

    QString imageDescription() const override;
    QSize imageSize() const override;
    QPoint imagePosition() const override;

private:
    PictureBox *box() const;
};

} // namespace zrt::access
