// Saving and opening the collected sample as a .rtd file from the main window.

#include "app/MainFrm.h"

#include "app/MainMod1.h"
#include "app/MsgBox.h"
#include "common/NumberText.h"
#include "controls/Check.h"
#include "controls/DropPanel.h"
#include "controls/RowList.h"
#include "files/REGbas1.h"
#include "files/RtdFile.h"
#include "files/ShowFileDialog.h"

#include <QCoreApplication>
#include <QFile>

namespace {

std::string Utf8(const QString &s) { return s.toStdString(); }

QString StartFolder(const char *key)
{
    const QString folder = QString::fromStdString(
        REGbas1::ReadIniString("Settings", key, "", 255, Utf8(MainMod1::SettingsFile)));
    return folder.isEmpty() ? MainMod1::ProgramFolder : folder;
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
        QFile::remove(path);
    }
    zrt::WriteRtdFile(Utf8(path), doc);
    pump();
    REGbas1::WriteIniString("Settings", "LastSavedFolder", REGbas1::GetFolderOfPath(Utf8(path)),
                            Utf8(MainMod1::SettingsFile));
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
    // Everything is read and checked first: a bad value (run-time error 381 or an overflow)
    // ends the open with the collected data as they were.
    const zrt::RtdContent content =
        zrt::ReadRtd(zrt::IniDocument::load(Utf8(path)), List1->ListCount(), List2->ListCount());

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
    REGbas1::WriteIniString("Settings", "LastOpenedFolder", REGbas1::GetFolderOfPath(Utf8(path)),
                            Utf8(MainMod1::SettingsFile));
    DataSaved = true;
    Settings_Enabled(false);
    SetDataCount();
}
