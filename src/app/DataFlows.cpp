#include "app/DataFlows.h"

#include "app/MainMod1.h"
#include "app/pages/AveragesPage.h"
#include "app/pages/ComparePage.h"
#include "app/pages/DataColumn.h"
#include "app/pages/GroupsPage.h"
#include "app/pages/RecordPage.h"
#include "charts/PictureBox.h"
#include "common/RunTimeError.h"
#include "controls/GlossButton.h"
#include "dialogs/MsgBox.h"
#include "export/Worksheet.h"
#include "files/ClassFile.h"
#include "files/CsvFile.h"
#include "files/ShowFileDialog.h"

#include <QLabel>
#include <QTextEdit>

namespace {

// The chart that shows on a page, if any.
const zrt::PictureBox *ShownChart(QWidget *page)
{
    for (auto *surface : page->findChildren<zrt::PictureBox *>())
        if (surface->isVisible())
            return surface;
    return nullptr;
}

template <size_t N>
void AddAnswers(zrt::Worksheet &sheet, const std::array<zrt::GlossButton *, N> &buttons,
                const std::array<QLabel *, N> &labels, const std::array<QString, N> &answers)
{
    for (size_t i = 0; i < N; ++i)
        sheet.answers.push_back({buttons[i]->Caption(), answers[i], !labels[i]->text().isEmpty()});
}

} // namespace

DataFlows::DataFlows(QWidget *owner, const Pages &pages) : QObject(owner), m_owner(owner), m_pages(pages) {}

QString DataFlows::askFile(const QString &filter, const QString &title, bool save) const
{
    QString path, chosenTitle;
    if (!ShowFileDialog(path, chosenTitle, filter, m_owner, MainMod1::DocumentsFolder, title, save))
        return {};
    return path;
}

void DataFlows::exportCsv()
{
    if (m_pages.column->count() == 0) {
        MsgBox(m_owner, tr("You have not collected any reaction times to export!"), vbInformation, tr("No Data"));
        return;
    }
    QString path = askFile(QString::fromLatin1(zrt::kCsvFilter), QString::fromLatin1(zrt::kCsvExportTitle), true);
    if (path.isEmpty())
        return;
    if (!path.endsWith(QLatin1String(".csv"), Qt::CaseInsensitive))
        path += QStringLiteral(".csv");
    const zrt::FileWrite written =
        zrt::WriteCsvFile(path.toStdString(), m_pages.column->collected(), m_pages.record->paired());
    if (!written.ok)
        MsgBox(m_owner, tr("The file %1 could not be written (%2).").arg(path, QString::fromStdString(written.reason)),
               vbExclamation, tr("Not Exported"));
}

void DataFlows::importCsv()
{
    if (m_pages.column->count() > 0 && !m_pages.column->DataSaved) {
        const int answer = MsgBox(m_owner,
                                  tr("You have Collected Data that has not yet been saved!") + "\n" +
                                      tr("Importing a file will remove this data") + "\n\n" +
                                      tr("Do you wish to continue?"),
                                  vbYesNo | vbQuestion, tr("Import a file"));
        if (answer == vbNo)
            return;
    }
    const QString path = askFile(QString::fromLatin1(zrt::kCsvFilter), QString::fromLatin1(zrt::kCsvImportTitle), false);
    if (path.isEmpty())
        return;
    const zrt::CsvImport imported = zrt::ReadCsvFile(path.toStdString());
    if (!imported.ok()) {
        MsgBox(m_owner,
               tr("Nothing was imported from %1:").arg(path) + "\n" + QString::fromStdString(imported.report()),
               vbExclamation, tr("Import a file"));
        return;
    }
    Q_EMIT listsReplaced(imported.lists, imported.paired, false);
}

void DataFlows::addClassFile()
{
    const QString path = askFile(QString::fromLatin1(zrt::kClassFileFilter), QString::fromLatin1(zrt::kClassFileTitle), false);
    if (path.isEmpty())
        return;
    const zrt::AppendOutcome outcome = zrt::AppendSample(m_pages.column->collected(), m_pages.record->paired(),
                                                         zrt::LoadSampleFile(path.toStdString()));
    if (!outcome.ok()) {
        MsgBox(m_owner, QString::fromStdString(outcome.message), vbExclamation, tr("Add a class file"));
        return;
    }
    Q_EMIT listsReplaced(outcome.lists, outcome.paired, false);
}

bool DataFlows::currentWorksheet(zrt::Worksheet &sheet) const
{
    if (m_pages.averages->isVisible()) {
        const AveragesPage &a = *m_pages.averages;
        sheet.title = tr("Averages");
        sheet.dataText = a.t1->toPlainText();
        AddAnswers(sheet, a.cmd1, a.lb1, a.summaryAnswers());
        AddAnswers(sheet, a.cmd2, a.lb2, a.spreadAnswers());
        sheet.chart = ShownChart(m_pages.averages);
        return true;
    }
    if (m_pages.groups->isVisible()) {
        sheet.title = tr("Grouped Data");
        sheet.dataText = m_pages.groups->t4->toPlainText();
        sheet.chart = ShownChart(m_pages.groups);
        return true;
    }
    if (m_pages.compare->isVisible()) {
        sheet.title = tr("Compare visual and audio");
        sheet.dataText = m_pages.compare->Text1->toPlainText();
        sheet.chart = ShownChart(m_pages.compare);
        return true;
    }
    return false;
}

void DataFlows::worksheet(bool pdf)
{
    zrt::Worksheet sheet;
    if (!currentWorksheet(sheet)) {
        MsgBox(m_owner, tr("Open the Averages, Groups or Compare page to print its worksheet."), vbInformation,
               tr("Worksheet"));
        return;
    }
    sheet.blanksForHidden = MsgBox(m_owner, tr("Leave the hidden answers blank, for pupils to fill in?"),
                                   vbYesNo | vbQuestion, tr("Worksheet")) == vbYes;
    if (!pdf) {
        QString failure;
        if (!zrt::PrintWorksheet(sheet, m_owner, &failure) && !failure.isEmpty())
            MsgBox(m_owner, tr("The worksheet was not printed (%1).").arg(failure), vbExclamation, tr("Worksheet"));
        return;
    }
    QString path = askFile(tr("PDF document (*.pdf)"), tr(" Save the worksheet as:"), true);
    if (path.isEmpty())
        return;
    if (!path.endsWith(QLatin1String(".pdf"), Qt::CaseInsensitive))
        path += QStringLiteral(".pdf");
    const QString failure = zrt::WriteWorksheetPdf(sheet, path);
    if (!failure.isEmpty())
        MsgBox(m_owner, tr("The file %1 could not be written (%2).").arg(path, failure), vbExclamation,
               tr("Worksheet"));
}
