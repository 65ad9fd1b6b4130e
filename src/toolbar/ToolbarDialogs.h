#pragma once
// The common dialogs the toolbar offers its clients: colour, file to open and font. Each runs
// through a replaceable runner so that a test can answer the dialog instead of a person.

#include "gfx/GraphicsBas1.h"

#include <QFont>
#include <QString>

#include <functional>
#include <optional>

class QDialog;
class QWidget;

namespace zrt::ToolbarDialogs {

// Runs a prepared dialog and gives its result code (QDialog::Accepted or Rejected). The default
// runs it modally.
using Runner = std::function<int(QDialog &)>;
void SetRunner(Runner runner);

inline const QString kOpenFilter = QStringLiteral("All Files (*.*)");

// The chosen colour, or none when the dialog was cancelled.
std::optional<OleColor> ShowColor(QWidget *parent, OleColor initial);
// The chosen file, or an empty text when cancelled.
QString ShowOpen(QWidget *parent, const QString &title, const QString &folder);
// Writes the chosen font into font; false (and font unchanged) when cancelled.
bool ShowFont(QWidget *parent, QFont &font);

} // namespace zrt::ToolbarDialogs
