#pragma once
// What every page borrows from the window: its timers, chance, the pause of the walker's show,
// the question whether sound can be played, and the guard that turns a run-time failure into a
// message box. The window owns one; tests replace the parts they script.

#include "app/RandomSource.h"
#include "app/TimerService.h"

#include <functional>

// Window timers of the tests; the one that fired is killed first, so each is one-shot.
enum TestTimer : int {
    TimerVisualPop = 20482,
    TimerIdlePeek = 20483,
    TimerAudioCue = 20484,
    TimerAudioIdle = 20485,
    TimerWalker = 20486,
};

// Twips to pixels at the 96 dpi the layout was made for.
constexpr int tw(int twips) { return twips / 15; }

struct PageContext {
    TimerService timers;
    RandomSource chance;
    std::function<void(int ms)> sleep;
    std::function<bool()> hasAudioOutput;
    // Runs a handler; a run-time failure ends it with its message and the program goes on.
    std::function<void(const std::function<void()> &)> guarded;

    void guard(const std::function<void()> &handler) const { guarded(handler); }
    // Lets the window paint and take input while a handler works or waits.
    static void pump();
    void sleepFor(int ms) const
    {
        pump();
        sleep(ms);
    }
};
