#include "dialogs/MsgBox.h"

#include <QMessageBox>

namespace {
MsgBoxHook &Hook()
{
    static MsgBoxHook hook;
    return hook;
}
} // namespace

void SetMsgBoxHook(MsgBoxHook hook) { Hook() = std::move(hook); }

int MsgBox(QWidget *owner, const QString &text, int style, const QString &caption)
{
    if (Hook())
        return Hook()(text, style, caption);
    QMessageBox box(owner);
    box.setWindowTitle(caption);
    box.setText(text);
    switch (style & 0x70) {
    case vbCritical: box.setIcon(QMessageBox::Critical); break;
    case vbQuestion: box.setIcon(QMessageBox::Question); break;
    case vbExclamation: box.setIcon(QMessageBox::Warning); break;
    case vbInformation: box.setIcon(QMessageBox::Information); break;
    default: break;
    }
    if ((style & 0x7) == vbYesNo) {
        box.setStandardButtons(QMessageBox::Yes | QMessageBox::No);
        return box.exec() == QMessageBox::Yes ? vbYes : vbNo;
    }
    box.setStandardButtons(QMessageBox::Ok);
    box.exec();
    return vbOK;
}
