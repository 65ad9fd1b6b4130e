#pragma once
// For the start-up benchmark: watching a widget, it ends the application once that widget has
// painted for the first time, so that whole processes can be timed against each other. The
// program and the bare window it is measured against use the same one.

#include <QCoreApplication>
#include <QEvent>
#include <QObject>

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
