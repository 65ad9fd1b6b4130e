#pragma once
// The open and save dialogs of the data files. Tests answer them through a hook instead of a
// real dialog.

#include <QString>

#include <functional>

class QWidget;

struct FileDialogRequest {
    QString filter;        // "Reaction Time Data (*.rtd)"
    QString initialFolder;
    QString dialogTitle;
    bool save = false;
};

// Returns true with the chosen path and its file name; false when cancelled, outputs untouched.
bool ShowFileDialog(QString &path, QString &title, const QString &filter, QWidget *owner,
                    const QString &initialFolder, const QString &dialogTitle, bool save);

// A replacement for the real dialog: gives the chosen path, or an empty string for Cancel.
using FileDialogHook = std::function<QString(const FileDialogRequest &)>;
void SetFileDialogHook(FileDialogHook hook);
