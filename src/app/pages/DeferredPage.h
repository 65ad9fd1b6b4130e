#pragma once
// A page that makes its controls when it is first shown or first asked for: the window's first
// picture does not wait on pages that are hidden at the start, and a pupil who never opens one
// never pays for it.

#include "app/PagePanel.h"

class DeferredPage : public PagePanel {
    Q_OBJECT
public:
    using PagePanel::PagePanel;

    bool isBuilt() const { return m_built; }
    // Makes the controls now if they are not made yet; every caller that reaches into the page's
    // controls from outside asks for this first.
    void ensureBuilt();
    void setVisible(bool visible) override;

Q_SIGNALS:
    // The controls exist from now on (names, accessible texts and the like can be given).
    void built();

protected:
    // Makes the controls and lays them out in the page's present size.
    virtual void buildControls() = 0;

private:
    bool m_built = false;
};
