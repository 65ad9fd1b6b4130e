#pragma once
// Saving and opening the collected sample as a .rtd file, with the questions, the file dialog and
// the messages that go with it. It is handed the lists and settings and hands back what it read;
// the window applies that to its controls.

#include "files/RtdFile.h"
#include "stats/AnalysisState.h"

#include <QString>

#include <functional>
#include <optional>

class QWidget;

namespace zrt {

// Where the dialogs start and where the last folders are remembered.
struct DataFilePlaces {
    QString settingsFile;  // the ini file that remembers LastSavedFolder and LastOpenedFolder
    QString programFolder; // where a dialog starts when no folder is remembered
};

// Lets the window paint between the dialog and the disk work.
using Pump = std::function<void()>;

// Asks for a name and writes the file. True when it was saved; every failure has been told.
bool SaveData(QWidget *owner, const CollectedLists &lists, const RtdSettings &settings, const DataFilePlaces &places,
              const Pump &pump);

// A file read and checked, and where it was.
struct OpenedFile {
    RtdContent content;
    QString path;
};

// Asks (when there are unsaved data), lets the pupil choose a file, reads and checks it all.
// The content to show, or nothing when the pupil stopped or the file could not be used (told).
// vanesItems and attemptsItems: the numbers of choices of the two settings lists.
std::optional<OpenedFile> OpenData(QWidget *owner, bool unsavedData, int vanesItems, int attemptsItems,
                                   const DataFilePlaces &places, const Pump &pump);

// Reads and checks the file at `path` as Open does after its dialog (a file given on the command
// line comes this way). Nothing when it could not be used; the reason has been told.
std::optional<OpenedFile> ReadDataFile(QWidget *owner, const QString &path, int vanesItems, int attemptsItems);

// Remembers the folder of the opened file; a failure to write the settings file is told.
void RememberOpenedFolder(QWidget *owner, const QString &path, const DataFilePlaces &places);

} // namespace zrt
