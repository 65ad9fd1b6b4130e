// The yardstick of the start-up benchmark: a bare window that shows one line of text and links
// Qt Multimedia, as the program does. With ZRT_EXIT_AFTER_FIRST_PAINT set it ends once its first
// paint is done, so that whole processes can be timed against each other.

#include <QApplication>
#include <QAudioFormat>
#include <QLabel>

namespace {

class FirstPaintQuits : public QObject {
protected:
    bool eventFilter(QObject *, QEvent *event) override
    {
        if (event->type() == QEvent::Paint && !m_done) {
            m_done = true;
            QMetaObject::invokeMethod(qApp, &QCoreApplication::quit, Qt::QueuedConnection);
        }
        return false;
    }

private:
    bool m_done = false;
};

} // namespace

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
