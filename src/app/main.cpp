#include "access/Accessibility.h"
#include "app/FirstPaintQuits.h"
#include "app/Language.h"
#include "app/MainFrm.h"
#include "app/MainMod1.h"
#include "app/TestProbe.h"
#include "gfx/BakedPicture.h"

#include <QApplication>
#include <QIcon>
#include <QMessageBox>
#include <QPixmap>

namespace {

// The sizes a title bar, a task bar and a window switcher ask for. The large icon of the desktop
// entry comes with the package; decoding it here would only slow the start.
QIcon ProgramIcon()
{
    QIcon icon;
    for (const int size : {16, 24, 32, 48, 64, 128})
        icon.addPixmap(QPixmap::fromImage(zrt::StartupPicture(QStringLiteral(":/images/icon-%1.png").arg(size))));
    return icon;
}

} // namespace

int main(int argc, char *argv[])
{
    QApplication app(argc, argv);
    // Screen readers find every custom control through its own interface.
    zrt::installAccessibility();
    QApplication::setApplicationName(QStringLiteral("Zorvane Reaction Times"));
    QApplication::setApplicationVersion(QStringLiteral(ZRT_VERSION));
    InitResources();
    QApplication::setWindowIcon(ProgramIcon());
    Language::installLanguage(app);

    const bool ready = MainMod1::Startup(MainMod1::GetSpecialFolderPath(), [](const QString &caption,
                                                                              const QString &text) {
        QMessageBox::warning(nullptr, caption, text);
    });
    if (!ready)
        return 1;

    // The journey tests fire the test timers themselves, so that no test waits on chance.
    const bool probe = TestProbe::requested();
    MainFrm window(nullptr, probe && qEnvironmentVariable("ZRT_MANUAL_TIMERS") == QLatin1String("1"));
    if (probe)
        new TestProbe(&window);
    FirstPaintQuits quitter;
    if (qEnvironmentVariableIsSet("ZRT_EXIT_AFTER_FIRST_PAINT"))
        window.centralWidget()->installEventFilter(&quitter);
    window.show();
    // A file given on the command line (a double-click on a .rtd file) opens as Open would.
    const QStringList arguments = QApplication::arguments();
    for (qsizetype i = 1; i < arguments.size(); ++i) {
        if (!arguments[i].startsWith(QLatin1Char('-'))) {
            window.openFile(arguments[i]);
            break;
        }
    }
    return app.exec();
}
