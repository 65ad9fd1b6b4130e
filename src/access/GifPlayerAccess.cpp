#include "access/GifPlayerAccess.h"

#include "access/AccessSupport.h"
#include "anim/ucGifPlayer.h"

namespace zrt::access {

GifPlayerAccess::GifPlayerAccess(ucGifPlayer *p) : QAccessibleWidget(p, QAccessible::Animation)
{
    WireOnce(p, [p] {
        QObject::connect(p, &ucGifPlayer::LoopsEnded, p, [p] {
            QAccessible::State changed;
            changed.animated = true;
            NotifyState(p, changed);
        });
    });
}

ucGifPlayer *GifPlayerAccess::player() const { return static_cast<ucGifPlayer *>(widget()); }

QAccessible::Role GifPlayerAccess::role() const
{
    return player()->FrameCount() > 1 ? QAccessible::Animation : QAccessible::Graphic;
}

QAccessible::State GifPlayerAccess::state() const
{
    QAccessible::State s = QAccessibleWidget::state();
    s.animated = player()->FrameCount() > 1 && player()->FrameTimerPending();
    return s;
}

void *GifPlayerAccess::interface_cast(QAccessible::InterfaceType t)
{
    if (t == QAccessible::ImageInterface)
        return static_cast<QAccessibleImageInterface *>(this);
    return QAccessibleWidget::interface_cast(t);
}

QString GifPlayerAccess::imageDescription() const { return text(QAccessible::Description); }

QSize GifPlayerAccess::imageSize() const { return player()->size(); }

QPoint GifPlayerAccess::imagePosition() const { return player()->mapToGlobal(QPoint(0, 0)); }

} // namespace zrt::access
