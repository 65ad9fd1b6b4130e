#include "files/ShowFileDialog.h"

#include <QFileDialog>
#include <QFileInfo>

namespace {
FileDialogHook &Hook()
{
    static FileDialogHook hook;
    return hook;
}
} // namespace

void SetFileDialogHook(FileDialogHook hook) { Hook() = std::move(hook); }

bool ShowFileDialog(QString &path, QString &title, const QString &filter, QWidget *owner,
                    const QString &initialFolder, const QString &dialogTitle, bool save)
{
    QString chosen;
    if (Hook()) {
        chosen = Hook()(FileDialogRequest{filter, initialFolder, dialogTitle, save});
    } else {
        // The extension is the program's own business (a case-sensitive test adds it), so the
        // dialog must not add one of its own.
        const auto options = QFileDialog::DontConfirmOverwrite;
        chosen = save ? QFileDialog::getSaveFileName(owner, dialogTitle, initialFolder, filter, nullptr, options)
                      : QFileDialog::getOpenFileName(owner, dialogTitle, initialFolder, filter);
    }
    if (chosen.isEmpty())
        return false;
    path = chosen;
    title = QFileInfo(chosen).fileName();
    return true;
}
