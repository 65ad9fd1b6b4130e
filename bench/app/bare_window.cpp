// The yardstick of the start-up benchmark: a bare window that shows one line of text and links
// Qt Multimedia, as the program does. With ZRT_EXIT_AFTER_FIRST_PAINT set it ends once its first
// paint is done, so that whole processes can be timed against each other.

#include "app/FirstPaintQuits.h"

#include <QApplication>
#include <QAudioFormat>
#include <QLabel>

int main(int argc, char *argv[])
{
    QApplication app(argc, argv);
    QAudioFormat format; // keeps the multimedia library linked and loaded
    format.setSampleRate(22050);
    QLabel label(QStringLiteral("Reaction times: %1 Hz").arg(format.sampleRate()));
    label.resize(400, 80);
    FirstPaintQuits quitter;
    if (qEnvironmentVariableIsSet("ZRT_EXIT_AFTER_FIRST_PAINT"))
        label.installEventFilter(&quitter);
    label.show();
    return app.exec();
}
