#include "dialogs/MsgBox.h"

#include <QCoreApplication>
#include <QMessageBox>
#include <QPushButton>

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
    // The buttons carry the program's own texts (Qt's English ones as the source), so that they
    // follow the window's language also where Qt's own translations are not installed.
    if ((style & 0x7) == vbYesNo) {
        box.setStandardButtons(QMessageBox::Yes | QMessageBox::No);
        box.button(QMessageBox::Yes)->setText(QCoreApplication::translate("MsgBox", "&Yes"));
        box.button(QMessageBox::No)->setText(QCoreApplication::translate("MsgBox", "&No"));
        return box.exec() == QMessageBox::Yes ? vbYes : vbNo;
    }
    box.setStandardButtons(QMessageBox::Ok);
    box.button(QMessageBox::Ok)->setText(QCoreApplication::translate("MsgBox", "OK"));
    box.exec();
    return vbOK;
}
