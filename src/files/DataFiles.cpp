#include "files/DataFiles.h"

#include "common/RunTimeError.h"
#include "dialogs/MsgBox.h"
#include "dialogs/MsgBoxes.h"
#include "files/REGbas1.h"
#include "files/ShowFileDialog.h"

#include <QWidget>

namespace {

std::string Utf8(const QString &s) { return s.toStdString(); }

QString StartFolder(const char *key, const zrt::DataFilePlaces &places)
{
    const QString folder = QString::fromStdString(
        REGbas1::ReadIniString("Settings", key, "", 255, Utf8(places.settingsFile)));
    return folder.isEmpty() ? places.programFolder : folder;
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

void ReportSettingsFailure(QWidget *owner, const zrt::FileWrite &written, const QString &settingsFile)
{
    if (written.ok)
        return;
    ReportFileFailure(owner, QStringLiteral("Settings Not Saved"),
                      QStringLiteral("The settings file ") + settingsFile +
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

namespace zrt {

bool SaveData(QWidget *owner, const CollectedLists &lists, const RtdSettings &settings, const DataFilePlaces &places,
              const Pump &pump)
{
    if (lists.visual.empty()) {
        MsgBox(owner, QStringLiteral("You have not collected any reaction times to save!"), vbInformation,
               QStringLiteral("No Data"));
        return false;
    }
    QString path, title;
    if (!ShowFileDialog(path, title, QString::fromLatin1(kRtdFilter), owner, StartFolder("LastSavedFolder", places),
                        QString::fromLatin1(kRtdSaveTitle), true))
        return false;
    pump();
    // A case-sensitive test, so "x.RTD" becomes "x.RTD.rtd".
    if (!path.endsWith(QLatin1String(".rtd"), Qt::CaseSensitive))
        path += QStringLiteral(".rtd");
    // Built before anything on disk changes, so a bad list leaves an old file alone.
    const IniDocument doc = BuildRtd(lists, settings);
    if (REGbas1::FileExists(Utf8(path))) {
        const int answer = MsgBox(owner,
                                  QStringLiteral("This file already exists!") + "\n" +
                                      QStringLiteral("Do you want to overwrite it?"),
                                  vbYesNo | vbQuestion, QStringLiteral("File Exist"));
        if (answer != vbYes)
            return false;
    }
    // The old file stays until the new one is wholly on the disk and renamed over it.
    const FileWrite written = WriteRtdFile(Utf8(path), doc);
    pump();
    if (!written.ok) {
        ReportFileFailure(owner, QStringLiteral("File Not Saved"),
                          QStringLiteral("The file ") + path + QStringLiteral(" could not be saved (") +
                              Reason(written.reason) +
                              QStringLiteral(").\nA file of that name is as it was before, and the collected "
                                             "data are still here: save them somewhere else."));
        return false;
    }
    ReportSettingsFailure(owner,
                          REGbas1::WriteIniValue("Settings", "LastSavedFolder", REGbas1::GetFolderOfPath(Utf8(path)),
                                                 Utf8(places.settingsFile)),
                          places.settingsFile);
    return true;
}

std::optional<OpenedFile> OpenData(QWidget *owner, bool unsavedData, int vanesItems, int attemptsItems,
                                   const DataFilePlaces &places, const Pump &pump)
{
    if (unsavedData) {
        const int answer = MsgBox(owner,
                                  QStringLiteral("You have Collected Data that has not yet been saved!") + "\n" +
                                      QStringLiteral("Opening a file will remove this data") + "\n\n" +
                                      QStringLiteral("Do you wish to continue?"),
                                  vbYesNo | vbQuestion, QStringLiteral("Open a file"));
        if (answer == vbNo)
            return std::nullopt;
    }
    QString path, title;
    if (!ShowFileDialog(path, title, QString::fromLatin1(kRtdFilter), owner, StartFolder("LastOpenedFolder", places),
                        QString::fromLatin1(kRtdOpenTitle), false))
        return std::nullopt;
    pump();
    if (!REGbas1::FileExists(Utf8(path)))
        return std::nullopt;
    return ReadDataFile(owner, path, vanesItems, attemptsItems);
}

std::optional<OpenedFile> ReadDataFile(QWidget *owner, const QString &path, int vanesItems, int attemptsItems)
{
    // Everything is read and checked first: a file that can't be read, or a bad value
    // (run-time error 381 or an overflow), ends the open with the collected data as they were.
    IniDocument doc;
    const FileRead file = IniDocument::read(Utf8(path), doc);
    if (!file.ok()) {
        MsgBox(owner,
               QStringLiteral("The file ") + path + QStringLiteral(" can't be opened: ") + Reason(file.reason) +
                   QStringLiteral(".\nThe collected data are as they were."),
               vbExclamation, QStringLiteral("Open a file"));
        return std::nullopt;
    }
    try {
        return OpenedFile{ReadRtd(doc, vanesItems, attemptsItems), path};
    } catch (const RunTimeError &error) {
        MsgBox(owner,
               QString::fromStdString(error.message()) + QStringLiteral("\n\n") +
                   OpenErrorSentence(path, error.number()),
               vbCritical, owner ? owner->window()->windowTitle() : QString());
        return std::nullopt;
    }
}

void RememberOpenedFolder(QWidget *owner, const QString &path, const DataFilePlaces &places)
{
    ReportSettingsFailure(owner,
                          REGbas1::WriteIniValue("Settings", "LastOpenedFolder", REGbas1::GetFolderOfPath(Utf8(path)),
                                                 Utf8(places.settingsFile)),
                          places.settingsFile);
}

} // namespace zrt
