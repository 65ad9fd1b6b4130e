#pragma once
// The dialogs' push button: the program's own GlossButton, with the few calls a dialog makes
// of a button (its text, a default flag, a click from code and a clicked notice).

#include "controls/GlossButton.h"

namespace zrt {

class DialogButton : public GlossButton {
    Q_OBJECT
public:
    DialogButton(const QString &caption, QWidget *parent = nullptr);

    void setText(const QString &text) { setCaption(text); }
    QString text() const { return Caption(); }
    // The default button takes Enter: it is the one that holds the focus.
    void setDefault(bool isDefault);
    bool isDefault() const { return m_default; }
    void setAutoDefault(bool) {}
    // As a press and release of the left button would, when the button is enabled.
    void click();

Q_SIGNALS:
    void clicked();

private:
    bool m_default = false;
};

} // namespace zrt
