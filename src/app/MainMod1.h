#pragma once
// Start-up and the application-wide state: the folders, the shared colours, the settings file
// and the sounds.

#include "reaction/SoundBas.h"

#include <QColor>
#include <QString>

#include <functional>

// Registers the compiled-in pictures, animations and sounds once.
void InitResources();

namespace MainMod1 {

// The application-wide variables.
extern QString ProgramFolder;   // the executable's folder, with a trailing separator
extern QString DocumentsFolder; // the user's documents folder, with a trailing separator
extern QString SettingsFile;    // DocumentsFolder + "Zorvanes.ini"
extern QColor PanelColour, DarkGreenColour, GradientLightColour, GradientDarkColour, HeaderColour;
extern SoundBas::SoundBank Sounds;

inline constexpr const char *kSettingsFileName = "Zorvanes.ini";

void InitColours();

// The documents folder; empty when the platform knows none.
QString GetSpecialFolderPath();

// Finds the settings file or creates it empty; false when it can't be made.
bool EnsureSettingsFile(const QString &path);

// The three lines of the message shown when the settings file can't be made.
QString SettingsFailureText(const QString &path);
inline constexpr const char *kSettingsFailureCaption = QT_TRANSLATE_NOOP("MainMod1", "Can't find ini file");

// The built-in sound i (1..4) of the program's resources.
QByteArray BuiltInSound(int i);

// Everything before the main window is shown: folders, colours, settings file, sounds.
// documentsFolder overrides the platform's answer (tests); report shows a failure to the user.
// False when the program must end.
bool Startup(const QString &documentsFolder, const std::function<void(const QString &, const QString &)> &report);

} // namespace MainMod1
