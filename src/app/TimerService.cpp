#include "app/TimerService.h"

#include <QTimerEvent>

TimerService::TimerService(QObject *parent) : QObject(parent) {}

void TimerService::SetTimer(int id, int milliseconds)
{
    KillTimer(id);
    const int qtTimer = m_manual ? 0 : startTimer(milliseconds, Qt::PreciseTimer);
    m_timers[id] = {milliseconds, qtTimer};
}

void TimerService::KillTimer(int id)
{
    auto it = m_timers.find(id);
    if (it == m_timers.end())
        return;
    if (it->second.qtTimer)
        killTimer(it->second.qtTimer);
    m_timers.erase(it);
}

int TimerService::interval(int id) const
{
    auto it = m_timers.find(id);
    return it == m_timers.end() ? 0 : it->second.interval;
}

void TimerService::setManual(bool manual)
{
    m_manual = manual;
    for (auto &[id, armed] : m_timers) {
        if (manual && armed.qtTimer) {
            killTimer(armed.qtTimer);
            armed.qtTimer = 0;
        } else if (!manual && !armed.qtTimer) {
            armed.qtTimer = startTimer(armed.interval, Qt::PreciseTimer);
        }
    }
}

bool TimerService::fire(int id)
{
    if (!isArmed(id))
        return false;
    if (m_callback)
        m_callback(id);
    return true;
}

void TimerService::timerEvent(QTimerEvent *event)
{
    for (const auto &[id, armed] : m_timers) {
        if (armed.qtTimer == event->timerId()) {
            const int fired = id; // the callback may kill or re-arm it
            if (m_callback)
                m_callback(fired);
            return;
        }
    }
}
