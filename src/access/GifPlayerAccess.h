#pragma once
// ucGifPlayer as an animation (a still graphic when it has one frame): named by the program,
// animated while its frames play.

#include <QAccessibleWidget>

namespace zrt {
class ucGifPlayer;
}

namespace zrt::access {

class GifPlayerAccess : public QAccessibleWidget, public QAccessibleImageInterface {
public:
    explicit GifPlayerAccess(ucGifPlayer *player);

    QAccessible::Role role() const override;
    QAccessible::State state() const override;
    void *interface_cast(QAccessible::InterfaceType t) override;

    QString imageDescription() const override;
    QSize imageSize() const override;
    QPoint imagePosition() const override;

private:
    ucGifPlayer *player() const;
};

} // namespace zrt::access
