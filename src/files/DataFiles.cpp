// Saving and opening the collected sample as a .rtd file from the main window.

#include "app/MainFrm.h"

#include "app/MainMod1.h"
#include "dialogs/MsgBox.h"
#include "common/NumberText.h"
#include "controls/Check.h"
#include "controls/DropPanel.h"
#include "controls/RowList.h"
#include "common/RunTimeError.h"
#include "dialogs/MsgBoxes.h"
#include "files/REGbas1.h"
#include "files/RtdFile.h"
#include "files/ShowFileDialog.h"

#include <QCoreApplication>

namespace {

std::string Utf8(const QString &s) { return s.toStdString(); }

QString StartFolder(const char *key)
{
    const QString folder = QString::fromStdString(
        REGbas1::ReadIniString("Settings", key, "", 255, Utf8(MainMod1::SettingsFile)));
    return folder.isEmpty() ? MainMod1::ProgramFolder : folder;
}

QString Reason(const std::string &reason)
{
    return QString::fromStdString(reason);
}

// A file that could not be written: the balloon names it and says why.
void ReportFileFailure(QWidget *owner, const QString &title, const QString &text)
{
    zrt::msg_Box(text, vbOKOnly | vbExclamation, title, owner);
}

void ReportSettingsFailure(QWidget *owner, const zrt::FileWrite &written)
{
    if (written.ok)
        return;
    ReportFileFailure(owner, QStringLiteral("Settings Not Saved"),
                      QStringLiteral("The settings file ") + MainMod1::SettingsFile +
                          QStringLiteral(" could not be updated (") + Reason(written.reason) +
                          QStringLiteral(").\nIt is as it was; only the folder to start from next time is "
                                         "not remembered."));
}

// The plain sentence under a run-time error that opening a data file ended in.
QString OpenErrorSentence(const QString &path, int number)
{
    QString why;
    if (number == zrt::ErrInvalidPropertyIndex)
        why = QStringLiteral("It asks for a number of characters or attempts that the program does not offer.");
    else if (number == zrt::ErrOverflow)
        why = QStringLiteral("It gives more data items than the program can hold.");
    else
        why = QStringLiteral("A value in it can't be used.");
    return QStringLiteral("The file ") + path + QStringLiteral(" was not opened. ") + why +
           QStringLiteral(" The collected data are as they were.");
}

} // namespace

void MainFrm::Save_Data()
{
    if (cl2->ListCount() == 0) {
        MsgBox(this, QStringLiteral("You have not collected any reaction times to save!"), vbInformation,
               QStringLiteral("No Data"));
        return;
    }
    QString path, title;
    if (!ShowFileDialog(path, title, QString::fromLatin1(zrt::kRtdFilter), this, StartFolder("LastSavedFolder"),
                        QString::fromLatin1(zrt::kRtdSaveTitle), true))
        return;
    pump();
    // A case-sensitive test, so "x.RTD" becomes "x.RTD.rtd".
    if (!path.endsWith(QLatin1String(".rtd"), Qt::CaseSensitive))
        path += QStringLiteral(".rtd");
    // Built before anything on disk changes, so a bad list leaves an old file alone.
    const zrt::IniDocument doc = zrt::BuildRtd(
        collectedLists(), zrt::RtdSettings{Utf8(dd1->Title()), Utf8(DD2->Title()), Check4->Value() == 1});
    if (REGbas1::FileExists(Utf8(path))) {
        const int answer = MsgBox(this,
                                  QStringLiteral("This file already exists!") + "\n" +
                                      QStringLiteral("Do you want to overwrite it?"),
                                  vbYesNo | vbQuestion, QStringLiteral("File Exist"));
        if (answer != vbYes)
            return;
    }
    // The old file stays until the new one is wholly on the disk and renamed over it.
    const zrt::FileWrite written = zrt::WriteRtdFile(Utf8(path), doc);
    pump();
    if (!written.ok) {
        ReportFileFailure(this, QStringLiteral("File Not Saved"),
                          QStringLiteral("The file ") + path + QStringLiteral(" could not be saved (") +
                              Reason(written.reason) +
                              QStringLiteral(").\nA file of that name is as it was before, and the collected "
                                             "data are still here: save them somewhere else."));
        return;
    }
    ReportSettingsFailure(this, REGbas1::WriteIniValue("Settings", "LastSavedFolder",
                                                       REGbas1::GetFolderOfPath(Utf8(path)),
                                                       Utf8(MainMod1::SettingsFile)));
    DataSaved = true;
}

void MainFrm::Open_Data()
{
    if (cl2->ListCount() > 0 && !DataSaved) {
        const int answer = MsgBox(this,
                                  QStringLiteral("You have Collected Data that has not yet been saved!") + "\n" +
                                      QStringLiteral("Opening a file will remove this data") + "\n\n" +
                                      QStringLiteral("Do you wish to continue?"),
                                  vbYesNo | vbQuestion, QStringLiteral("Open a file"));
        if (answer == vbNo)
            return;
    }
    QString path, title;
    if (!ShowFileDialog(path, title, QString::fromLatin1(zrt::kRtdFilter), this, StartFolder("LastOpenedFolder"),
                        QString::fromLatin1(zrt::kRtdOpenTitle), false))
        return;
    pump();
    if (!REGbas1::FileExists(Utf8(path)))
        return;
    // Everything is read and checked first: a file that can't be read, or a bad value
    // (run-time error 381 or an overflow), ends the open with the collected data as they were.
    zrt::IniDocument doc;
    const zrt::FileRead file = zrt::IniDocument::read(Utf8(path), doc);
    if (!file.ok()) {
        MsgBox(this,
               QStringLiteral("The file ") + path + QStringLiteral(" can't be opened: ") + Reason(file.reason) +
                   QStringLiteral(".\nThe collected data are as they were."),
               vbExclamation, QStringLiteral("Open a file"));
        return;
    }
    zrt::RtdContent content;
    try {
        content = zrt::ReadRtd(doc, List1->ListCount(), List2->ListCount());
    } catch (const zrt::RunTimeError &error) {
        MsgBox(this,
               QString::fromStdString(error.message()) + QStringLiteral("\n\n") +
                   OpenErrorSentence(path, error.number()),
               vbCritical, windowTitle());
        return;
    }

    cl2->Clear();
    CL4->Clear();
    Check4->setValue(content.check4() ? 1 : 0);
    if (content.vanesListIndex)
        List1->setListIndex(*content.vanesListIndex);
    if (content.attemptsListIndex)
        List2->setListIndex(*content.attemptsListIndex);
    arange_data_lists();
    Check5[1]->setVisible(content.sample == 1);
    Check5[0]->setValue(1);
    for (const std::string &item : content.lists.cl2)
        cl2->AddItem(QString::fromStdString(item));
    for (const std::string &item : content.lists.CL4)
        CL4->AddItem(QString::fromStdString(item));
    ReportSettingsFailure(this, REGbas1::WriteIniValue("Settings", "LastOpenedFolder",
                                                       REGbas1::GetFolderOfPath(Utf8(path)),
                                                       Utf8(MainMod1::SettingsFile)));
    DataSaved = true;
    Settings_Enabled(false);
    SetDataCount();
}
