#include "toolbar/ToolbarDialogs.h"

#include <QColorDialog>
#include <QFileDialog>
#include <QFontDialog>

namespace zrt::ToolbarDialogs {

namespace {

Runner &CurrentRunner()
{
    static Runner runner;
    return runner;
}

int Run(QDialog &dialog)
{
    if (CurrentRunner())
        return CurrentRunner()(dialog);
    return dialog.exec();
}

} // namespace

void SetRunner(Runner runner) { CurrentRunner() = std::move(runner); }

std::optional<OleColor> ShowColor(QWidget *parent, OleColor initial)
{
    QColorDialog dialog(TranslateColor(initial), parent);
    if (Run(dialog) != QDialog::Accepted)
        return std::nullopt;
    return ToOleColor(dialog.currentColor());
}

QString ShowOpen(QWidget *parent, const QString &title, const QString &folder)
{
    QFileDialog dialog(parent, title, folder, kOpenFilter);
    dialog.setFileMode(QFileDialog::ExistingFile);
    dialog.setAcceptMode(QFileDialog::AcceptOpen);
    if (Run(dialog) != QDialog::Accepted)
        return {};
    const QStringList files = dialog.selectedFiles();
    return files.isEmpty() ? QString() : files.first();
}

bool ShowFont(QWidget *parent, QFont &font)
{
    QFontDialog dialog(font, parent);
    if (Run(dialog) != QDialog::Accepted)
        return false;
    font = dialog.currentFont();
    return true;
}

} // namespace zrt::ToolbarDialogs
