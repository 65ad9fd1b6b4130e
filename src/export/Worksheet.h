#pragma once
// A worksheet of one analysis page on paper or in a PDF: the page's title, its data text, the
// questions with the answers the pupil has revealed and the chart that shows.
//
// Hidden answers are never printed. With blanksForHidden their questions are printed with a
// line to write the answer on, so the sheet can be handed to pupils; without it they are left
// out. The chart is the surface's drawing painted again (PictureBox::Replay) at the printer's
// resolution, scaled to the width of the text, so it stays sharp on paper.

#include <QRectF>
#include <QString>

#include <functional>
#include <vector>

class QPagedPaintDevice;
class QPainter;
class QPrinter;
class QWidget;

namespace zrt {

class PictureBox;

struct WorksheetAnswer {
    QString question; // the question button's caption, e.g. "Mean"
    QString answer;   // the text the answer label shows when revealed
    bool revealed = false;
};

struct Worksheet {
    QString title;    // e.g. "Averages"
    QString dataText; // the page's data text box, line breaks kept
    std::vector<WorksheetAnswer> answers;
    bool blanksForHidden = false;
    const PictureBox *chart = nullptr; // the chart that shows; none leaves the chart out
};

// Lays the worksheet out on the device's pages, starting on the current one; a new page is
// begun (device.newPage()) when the next line or the chart no longer fits. Returns the number of
// pages used.
int PaintWorksheet(QPainter &painter, QPagedPaintDevice &device, const Worksheet &sheet);

// An A4 PDF at 300 dots per inch. Returns an empty string when written, otherwise the reason;
// the file is replaced as a whole, so a failure leaves an old file as it was.
QString WriteWorksheetPdf(const Worksheet &sheet, const QString &path);

// Qt's print dialog, then the printer. False when the dialog was cancelled or the printer
// failed; the reason of a failure goes to *failure (left empty on a cancel).
bool PrintWorksheet(const Worksheet &sheet, QWidget *parent, QString *failure = nullptr);

// For tests: replaces the print dialog; it sets the printer up and answers whether to print.
// An empty function restores the dialog.
using PrintDialogHook = std::function<bool(QPrinter &printer, QWidget *parent)>;
void SetPrintDialogHook(PrintDialogHook hook);

} // namespace zrt
