#pragma once
// A line protocol on standard input and output through which the journey tests ask the running
// program where its controls are and what they show, and fire its test timers. Input still comes
// through the display server and pictures from its screen; the probe only tells where to look.
// It is switched on by the environment variable ZRT_PROBE=1 and does nothing otherwise.

#include <QObject>
#include <QString>

class MainFrm;
class QSocketNotifier;

class TestProbe : public QObject {
    Q_OBJECT
public:
    explicit TestProbe(MainFrm *window);

    static bool requested();
    // Answers one command line; public so that unit tests can speak to it without a pipe.
    QString answer(const QString &line);

private:
    void readInput();

    MainFrm *m_window;
    QSocketNotifier *m_notifier = nullptr;
    QByteArray m_pending;
};
