#pragma once
// The language of the window's texts. The English texts in the sources are the originals; a
// translation, when one is chosen, comes from the resources as :/i18n/zorvanes_<code>.qm.
// The choice is the key "Language" in the [Settings] section of Zorvanes.ini ("en" or "de");
// without it the system's locale decides.

#include <QString>
#include <QStringList>

class QCoreApplication;

namespace Language {

// The codes the program offers; the first is the one of the source texts.
QStringList available();

// The language's own name for itself ("English", "Deutsch"), as a language menu shows it.
QString nativeName(const QString &code);

// The code a locale name ("de_AT", "en-GB", "C") maps to: one of available(), else "en".
QString fromLocaleName(const QString &localeName);

// The code stored in the settings file, empty when none or one the program does not offer.
QString stored(const QString &settingsFile);

// The language to use: the stored choice, else the system locale's.
QString chosen(const QString &settingsFile);

// Installs the translator for the code (replacing one installed before; "en" installs none)
// and returns whether the texts are now in that language. A live window gets a
// QEvent::LanguageChange.
bool load(const QString &code);

// The code whose translation is installed, "en" when none is.
QString current();

// Loads the chosen language into the application (which must exist: translators are its own)
// before the window is built. settingsFile empty: the Zorvanes.ini of the documents folder.
void installLanguage(QCoreApplication &app, const QString &settingsFile = QString());

// Stores the choice for the next start; the window built now keeps its language (its texts
// are set once, when it is built). False when the code is not offered or the settings file
// could not be written.
bool setLanguage(const QString &code, const QString &settingsFile = QString());

} // namespace Language
