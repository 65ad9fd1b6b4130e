#include "dialogs/DialogButton.h"

namespace zrt {

DialogButton::DialogButton(const QString &caption, QWidget *parent) : GlossButton(parent)
{
    setCaption(caption);
    setFocusPolicy(Qt::StrongFocus);
    connect(this, &GlossButton::Click, this, &DialogButton::clicked);
}

void DialogButton::setDefault(bool isDefault)
{
    m_default = isDefault;
    if (isDefault)
        setFocus(Qt::OtherFocusReason);
}

void DialogButton::click()
{
    if (isEnabled() && isVisible())
        Q_EMIT clicked();
}

} // namespace zrt
