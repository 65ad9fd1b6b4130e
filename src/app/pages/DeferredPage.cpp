#include "app/pages/DeferredPage.h"

void DeferredPage::ensureBuilt()
{
    if (m_built)
        return;
    m_built = true;
    buildControls();
    Q_EMIT built();
}

void DeferredPage::setVisible(bool visible)
{
    // Made before the page shows, so that the new controls show with it.
    if (visible)
        ensureBuilt();
    PagePanel::setVisible(visible);
}
