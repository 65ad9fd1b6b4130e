#include "access/PictureBoxAccess.h"

#include "access/AccessSupport.h"
#include "charts/PictureBox.h"

namespace zrt::access {

PictureBoxAccess::PictureBoxAccess(PictureBox *b) : QAccessibleWidget(b, QAccessible::Graphic)
{
    WireOnce(b, [b] {
        QObject::connect(b, &PictureBox::TextAlternativeChanged, b,
                         [b] { Notify(b, QAccessible::DescriptionChanged); });
    });
}

PictureBox *PictureBoxAccess::box() const { return static_cast<PictureBox *>(widget()); }

QString PictureBoxAccess::text(QAccessible::Text t) const
{
    if (t == QAccessible::Description && !box()->TextAlternative().isEmpty())
        return box()->TextAlternative();
    return QAccessibleWidget::text(t);
}

void *PictureBoxAccess::interface_cast(QAccessible::InterfaceType t)
{
    if (t == QAccessible::ImageInterface)
        return static_cast<QAccessibleImageInterface *>(this);
    return QAccessibleWidget::interface_cast(t);
}

QString PictureBoxAccess::imageDescription() const { return text(QAccessible::Description); }

QSize PictureBoxAccess::imageSize() const { return box()->ClientSize(); }

QPoint PictureBoxAccess::imagePosition() const { return box()->mapToGlobal(QPoint(0, 0)); }

} // namespace zrt::access
