#pragma once
// Window timers known by number. A timer repeats until it is killed; the program's callback
// kills each timer first, which makes every timer one-shot. Tests switch the service to manual
// and fire the armed timers themselves, so that no test waits for a real delay.

#include <QObject>

#include <functional>
#include <map>

class TimerService : public QObject {
    Q_OBJECT
public:
    using Callback = std::function<void(int id)>;

    explicit TimerService(QObject *parent = nullptr);

    void setCallback(Callback callback) { m_callback = std::move(callback); }

    // Arms (or re-arms) timer id with the interval in milliseconds.
    void SetTimer(int id, int milliseconds);
    void KillTimer(int id);

    bool isArmed(int id) const { return m_timers.count(id) != 0; }
    int interval(int id) const;

    // Manual mode: armed timers never fire by themselves; fire() runs one as the loop would.
    void setManual(bool manual);
    bool fire(int id);

protected:
    void timerEvent(QTimerEvent *event) override;

private:
    struct Armed {
        int interval;
        int qtTimer; // 0 in manual mode
    };
    std::map<int, Armed> m_timers;
    Callback m_callback;
    bool m_manual = false;
};
