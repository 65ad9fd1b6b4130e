#include "reaction/mStopWatch.h"

#include <chrono>
#include <cstdint>
#include <ctime>
#include <vector>

namespace mStopWatch {
namespace {

// The steady clock in nanoseconds. Where the steady clock is the monotonic clock, that clock is
// read directly, one call fewer than through the library.
inline std::int64_t steadyNanoseconds()
{
#if defined(__linux__)
    timespec now;
    clock_gettime(CLOCK_MONOTONIC, &now);
    return std::int64_t(now.tv_sec) * 1'000'000'000 + now.tv_nsec;
#else
    return std::chrono::duration_cast<std::chrono::nanoseconds>(
               std::chrono::steady_clock::now().time_since_epoch())
        .count();
#endif
}

// A test's counter; null for the steady clock, which is then read inline, not through a call.
Counter g_counter = nullptr;
std::int64_t g_counterFrequency = 1'000'000'000;

inline std::int64_t readCounter()
{
    if (g_counter) [[unlikely]]
        return g_counter();
    return steadyNanoseconds();
}

// Counts to seconds as a multiplication by the frequency's reciprocal, which is several times
// quicker than the division. Within the limit the two give the same float, always: with the
// frequency's odd part below 2^25, the exact quotient of a count by the frequency never comes
// nearer than 2^-50 of itself to a point where the rounding to a float turns, while the product
// and the quotient both lie within 2^-52 of it. Beyond the limit (about nine hours at nanoseconds) such a point
// can be hit exactly, so longer spans are divided.
struct Reciprocal {
    double factor = 1e-9;
    std::int64_t limit = 0; // spans of this many counts or more are divided
};

Reciprocal reciprocalOf(std::int64_t frequency)
{
    if (frequency <= 0)
        return {0.0, 0};
    int twos = 0;
    std::int64_t odd = frequency;
    while (odd % 2 == 0) {
        odd /= 2;
        ++twos;
    }
    if (odd >= (std::int64_t(1) << 25) || twos >= 24)
        return {1.0 / double(frequency), 0};
    // Below 2^(24 - twos) seconds no turning point of the rounding is a whole count.
    const std::int64_t seconds = std::int64_t(1) << (24 - twos);
    const bool fits = frequency <= INT64_MAX / seconds;
    return {1.0 / double(frequency), fits ? seconds * frequency : INT64_MAX};
}

Reciprocal g_reciprocal = reciprocalOf(1'000'000'000);

// Module state, indexed 0..SwSlotCount as the slots are numbered from 1.
std::vector<std::int64_t> SwStartCount(1);
std::vector<std::int64_t> SwStopCount(1);
std::vector<std::int16_t> SwRunning(1);
std::int64_t SwFrequency = 0;
std::int64_t SwOverheadCount = 0;
std::int32_t SwSlotCount = 0;

bool valid(std::int32_t slot) { return slot >= 1 && slot <= SwSlotCount; }

} // namespace

std::int32_t SwNew()
{
    ++SwSlotCount;
    const auto size = static_cast<size_t>(SwSlotCount) + 1;
    SwStartCount.resize(size);
    SwStopCount.resize(size);
    SwRunning.resize(size);
    return SwSlotCount;
}

std::int32_t SwStart(std::int32_t &slot)
{
    if (!valid(slot))
        return 0;
    const auto s = static_cast<size_t>(slot);
    SwRunning[s] = -1;
    if (SwFrequency != g_counterFrequency) {
        SwFrequency = g_counterFrequency;
        g_reciprocal = reciprocalOf(SwFrequency);
    }
    SwStartCount[s] = readCounter();
    SwStopCount[s] = readCounter();
    SwOverheadCount = SwStopCount[s] - SwStartCount[s];
    SwStartCount[s] = readCounter(); // the start of the measured span
    return 1;
}

float SwElapsed(std::int32_t &slot)
{
    if (!valid(slot))
        return -1.0f;
    const auto s = static_cast<size_t>(slot);
    if (SwRunning[s] == 0)
        return 0.0f;
    SwStopCount[s] = readCounter();
    const std::int64_t span = (SwStopCount[s] - SwStartCount[s]) - SwOverheadCount;
    if (span < g_reciprocal.limit && span > -g_reciprocal.limit) [[likely]]
        return static_cast<float>(static_cast<double>(span) * g_reciprocal.factor);
    return static_cast<float>(static_cast<double>(span) / static_cast<double>(SwFrequency));
}

void SwSetCounter(Counter counter, std::int64_t frequency)
{
    g_counter = counter;
    g_counterFrequency = counter ? frequency : 1'000'000'000;
}

std::int64_t SwOverhead() { return SwOverheadCount; }

void SwReset()
{
    SwStartCount.assign(1, 0);
    SwStopCount.assign(1, 0);
    SwRunning.assign(1, 0);
    SwSlotCount = 0;
    SwOverheadCount = 0;
}

} // namespace mStopWatch
