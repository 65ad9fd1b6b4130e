#include "app/Language.h"

#include "app/MainMod1.h"
#include "files/REGbas1.h"

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>

#include <memory>

namespace Language {

namespace {

std::unique_ptr<QTranslator> g_translator;
std::unique_ptr<QTranslator> g_qtTranslator; // Qt's own texts (file dialogs), where installed
QString g_current = QStringLiteral("en");

QString settingsPath(const QString &settingsFile)
{
    if (!settingsFile.isEmpty())
        return settingsFile;
    QString folder = MainMod1::GetSpecialFolderPath();
    if (!folder.endsWith(QLatin1Char('/')))
        folder += QLatin1Char('/');
    return folder + QLatin1String(MainMod1::kSettingsFileName);
}

} // namespace

QStringList available() { return {QStringLiteral("en"), QStringLiteral("de")}; }

QString nativeName(const QString &code)
{
    if (code == QLatin1String("de"))
        return QStringLiteral("Deutsch");
    if (code == QLatin1String("en"))
        return QStringLiteral("English");
    return code;
}

QString fromLocaleName(const QString &localeName)
{
    // "de", "de_DE", "de-CH", "de_AT.UTF-8": the language is the part before the first separator.
    const QString language = localeName.section(QLatin1Char('_'), 0, 0).section(QLatin1Char('-'), 0, 0)
                                 .section(QLatin1Char('.'), 0, 0).toLower();
    return available().contains(language) ? language : QStringLiteral("en");
}

QString stored(const QString &settingsFile)
{
    const std::string path = settingsFile.toStdString();
    if (!REGbas1::FileExists(path))
        return QString();
    const QString code =
        QString::fromStdString(REGbas1::ReadIniString("Settings", "Language", "", 16, path)).trimmed().toLower();
    return available().contains(code) ? code : QString();
}

QString chosen(const QString &settingsFile)
{
    const QString code = stored(settingsFile);
    return code.isEmpty() ? fromLocaleName(QLocale::system().name()) : code;
}

bool load(const QString &code)
{
    InitResources();
    for (auto *slot : {&g_translator, &g_qtTranslator}) {
        if (*slot) {
            QCoreApplication::removeTranslator(slot->get());
            slot->reset();
        }
    }
    g_current = QStringLiteral("en");
    if (code == QLatin1String("en") || !available().contains(code))
        return code == QLatin1String("en");
    auto translator = std::make_unique<QTranslator>();
    if (!translator->load(QStringLiteral(":/i18n/zorvanes_") + code + QStringLiteral(".qm")))
        return false;
    auto qt = std::make_unique<QTranslator>();
    if (qt->load(QStringLiteral("qtbase_") + code, QLibraryInfo::path(QLibraryInfo::TranslationsPath))) {
        QCoreApplication::installTranslator(qt.get());
        g_qtTranslator = std::move(qt);
    }
    // Installed last, so that the program's own texts win over Qt's.
    QCoreApplication::installTranslator(translator.get());
    g_translator = std::move(translator);
    g_current = code;
    return true;
}

QString current() { return g_current; }

void installLanguage(QCoreApplication &, const QString &settingsFile)
{
    load(chosen(settingsPath(settingsFile)));
}

bool setLanguage(const QString &code, const QString &settingsFile)
{
    if (!available().contains(code))
        return false;
    const zrt::FileWrite written =
        REGbas1::WriteIniValue("Settings", "Language", code.toStdString(), settingsPath(settingsFile).toStdString());
    return written.ok;
}

} // namespace Language
