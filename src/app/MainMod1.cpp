#include "app/MainMod1.h"

#include "files/IniDocument.h"
#include "files/REGbas1.h"
#include "i18n/CoreTexts.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QStandardPaths>
#include <QTimer>

// The program's pictures and sounds live in a static library; naming them here keeps the
// linker from dropping them.
void InitResources()
{
    static const bool done = [] {
        Q_INIT_RESOURCE(resources);
        return true;
    }();
    (void)done;
}

namespace MainMod1 {

namespace {
constexpr int kPrepareSoundsAfterMs = 300;
} // namespace

QString ProgramFolder;
QString DocumentsFolder;
QString SettingsFile;
QColor PanelColour, DarkGreenColour, GradientLightColour, GradientDarkColour, HeaderColour;
SoundBas::SoundBank Sounds;

namespace {

QString withSeparator(QString folder)
{
    if (!folder.endsWith(QLatin1Char('/')))
        folder += QLatin1Char('/');
    return folder;
}

} // namespace

void InitColours()
{
    PanelColour = QColor(210, 210, 192);
    DarkGreenColour = QColor(85, 100, 69);
    GradientLightColour = QColor(248, 248, 242);
    GradientDarkColour = QColor(196, 196, 174);
    HeaderColour = QColor(145, 145, 115);
}

QString GetSpecialFolderPath()
{
    // A new account on some desktops has no documents folder yet; the platform names it all
    // the same, and the program makes it, as the desktop itself would on first use.
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    if (!folder.isEmpty())
        QDir().mkpath(folder);
    return folder;
}

bool EnsureSettingsFile(const QString &path)
{
    const std::string file = path.toStdString();
    if (REGbas1::FileExists(file))
        return true;
    REGbas1::CreateEmptyFile(file);
    QCoreApplication::processEvents();
    return REGbas1::FileExists(file);
}

QString SettingsFailureText(const QString &path)
{
    return QCoreApplication::translate("MainMod1", "This software failed to create the file ") + path +
        QLatin1Char('\n') +
        QCoreApplication::translate("MainMod1", "This file is required by the program for saving settings") +
        QLatin1Char('\n') +
        QCoreApplication::translate("MainMod1", "Please create an empty text file and save it as ") +
        QLatin1String(kSettingsFileName) +
        QCoreApplication::translate("MainMod1", " in the My Documents folder then restart the program.");
}

QByteArray BuiltInSound(int i)
{
    InitResources();
    QFile f(QStringLiteral(":/sounds/sound%1.wav").arg(i));
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
}

bool Startup(const QString &documentsFolder, const std::function<void(const QString &, const QString &)> &report)
{
    ProgramFolder = withSeparator(QCoreApplication::applicationDirPath());
    InitColours();
    // A platform that knows no documents folder gives "/" as the original gave "\".
    DocumentsFolder = withSeparator(documentsFolder);
    SettingsFile = DocumentsFolder + QLatin1String(kSettingsFileName);
    if (!EnsureSettingsFile(SettingsFile)) {
        report(QCoreApplication::translate("MainMod1", kSettingsFailureCaption), SettingsFailureText(SettingsFile));
        return false;
    }
    // A settings file that can't be read (too large, a device, a pipe) is reported and left
    // alone; the program starts with the defaults.
    zrt::IniDocument settings;
    const zrt::FileRead read = zrt::IniDocument::read(SettingsFile.toStdString(), settings);
    if (!read.ok() && read.status != zrt::ReadStatus::Missing)
        report(QStringLiteral("Zorvane Reaction Times"),
               QCoreApplication::translate("MainMod1", "The settings file ") + SettingsFile +
                   QCoreApplication::translate("MainMod1", " can't be read: ") +
                   CoreTexts::tr(read.reason) +
                   QCoreApplication::translate("MainMod1", ".\nThe program starts with its own settings and sounds and "
                                                           "does not change that file."));
    Sounds = SoundBas::LoadSounds(SettingsFile, &BuiltInSound);
    if (!Sounds.LoadProblems.isEmpty())
        report(QStringLiteral("Zorvane Reaction Times"),
               CoreTexts::tr(Sounds.LoadProblems.join(QStringLiteral("\n\n")).toStdString()));
    // The sounds are converted for the output once, soon after the window is up (looking the
    // output up can take a while, and the first paint should not wait for it), so that a press
    // later only hands kept samples to the sink.
    QTimer::singleShot(kPrepareSoundsAfterMs, QCoreApplication::instance(), [] {
        for (const QByteArray &sound : Sounds.buffers)
            SoundBas::SoundPlayer::instance().Prepare(sound);
    });
    return true;
}

} // namespace MainMod1
