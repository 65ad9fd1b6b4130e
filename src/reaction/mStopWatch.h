#pragma once
// The stopwatch of the reaction tests: numbered slots over a steady nanosecond counter.
// The cost of one counter read, measured at each start, is taken out of every reading.

#include <cstdint>

namespace mStopWatch {

using Counter = std::int64_t (*)();

// Adds a slot and returns its number (slots begin at 1).
std::int32_t SwNew();
// 1 on success, 0 for a slot that does not exist.
std::int32_t SwStart(std::int32_t &slot);
// Seconds since the slot's start; -1.0 for a bad slot, 0.0 before the first start.
float SwElapsed(std::int32_t &slot);

// Tests put a counter of their own here; nullptr puts the steady clock back.
void SwSetCounter(Counter counter, std::int64_t frequency = 1'000'000'000);
std::int64_t SwOverhead();
// Forgets every slot (the program never does; tests start clean with it).
void SwReset();

} // namespace mStopWatch
