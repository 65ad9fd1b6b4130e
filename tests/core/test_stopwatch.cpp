#include "reaction/mStopWatch.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>

using namespace mStopWatch;

namespace {

// A counter that moves on by a fixed step on each read.
std::int64_t g_now = 0;
std::int64_t g_step = 0;
std::int64_t fakeCounter()
{
    g_now += g_step;
    return g_now;
}

class StopWatch : public ::testing::Test {
protected:
    void SetUp() override
    {
        SwReset();
        g_now = 1'000'000;
        g_step = 40;
        SwSetCounter(&fakeCounter, 1'000'000'000);
    }
    void TearDown() override
    {
        SwSetCounter(nullptr);
        SwReset();
    }
};

} // namespace

TEST_F(StopWatch, SlotsAreNumberedFromOneAndChecked)
{
    std::int32_t none = 0, first = SwNew(), second = SwNew(), beyond = 3;
    EXPECT_EQ(first, 1);
    EXPECT_EQ(second, 2);
    EXPECT_EQ(SwStart(none), 0);
    EXPECT_EQ(SwStart(beyond), 0);
    EXPECT_EQ(SwElapsed(none), -1.0f);
    EXPECT_EQ(SwElapsed(beyond), -1.0f);
    EXPECT_EQ(SwElapsed(second), 0.0f) << "not started yet";
}

TEST_F(StopWatch, TheCostOfOneReadIsTakenOut)
{
    std::int32_t slot = SwNew();
    ASSERT_EQ(SwStart(slot), 1);
    EXPECT_EQ(SwOverhead(), 40);
    // The next read comes 40 ns later; minus the 40 ns overhead the reading is exactly 0.
    EXPECT_EQ(SwElapsed(slot), 0.0f);
    g_now += 250'000'000 - 40; // a quarter of a second passes before the next read
    EXPECT_FLOAT_EQ(SwElapsed(slot), 0.25f);
    const float later = SwElapsed(slot);
    EXPECT_GT(later, 0.25f) << "readings keep running from the same start";
}

TEST_F(StopWatch, ReadingRightAfterTheStartMayBeNegative)
{
    std::int32_t slot = SwNew();
    SwStart(slot);
    g_step = 10; // a read that is cheaper than the measured overhead
    EXPECT_LT(SwElapsed(slot), 0.0f);
}

TEST(StopWatchSteady, RealCounterIncreases)
{
    SwReset();
    std::int32_t slot = SwNew();
    ASSERT_EQ(SwStart(slot), 1);
    const float a = SwElapsed(slot);
    volatile double sink = 0;
    for (int i = 0; i < 100000; ++i)
        sink = sink + i;
    const float b = SwElapsed(slot);
    EXPECT_GE(b, a);
    SwReset();
}

namespace {

// A counter that gives the stopwatch the reads it is told: the three of a start, then one reading.
std::int64_t g_scripted[4];
int g_read = 0;
std::int64_t scriptedCounter() { return g_scripted[g_read++ % 4]; }

float ElapsedAfter(std::int32_t &slot, std::int64_t span)
{
    g_scripted[0] = g_scripted[1] = g_scripted[2] = 5'000'000; // no cost of a read to take out
    g_scripted[3] = 5'000'000 + span;
    g_read = 0;
    SwStart(slot);
    return SwElapsed(slot);
}

} // namespace

TEST(StopWatchSeconds, EveryReadingIsTheSameFloatAsTheExactDivisionGives)
{
    std::mt19937_64 rng(20261123);
    for (const std::int64_t frequency : {std::int64_t(1'000'000'000), std::int64_t(1000), std::int64_t(3'579'545),
                                         std::int64_t(10'000'000), (std::int64_t(1) << 25) + 3,
                                         std::int64_t(1) << 30}) {
        SwReset();
        SwSetCounter(&scriptedCounter, frequency);
        std::int32_t slot = SwNew();
        int compared = 0;
        auto check = [&](std::int64_t span) {
            const float expected = static_cast<float>(static_cast<double>(span) / static_cast<double>(frequency));
            const float got = ElapsedAfter(slot, span);
            ASSERT_EQ(got, expected) << "span " << span << " at " << frequency << " counts a second";
            ++compared;
        };
        // Spans from one count to a day, spread over every size.
        std::uniform_real_distribution<double> magnitude(0.0, std::log(86400.0 * double(frequency)));
        for (int i = 0; i < 20000; ++i) {
            const auto span = static_cast<std::int64_t>(std::exp(magnitude(rng)));
            check(span);
            check(-span);
        }
        // Spans right beside the points where the rounding to a float turns, short and long.
        std::uniform_real_distribution<float> seconds(1e-6f, 80000.0f);
        for (int i = 0; i < 20000; ++i) {
            const float low = seconds(rng);
            const double turn = (double(low) + double(std::nextafter(low, 1e30f))) / 2;
            const auto centre = static_cast<std::int64_t>(std::llround(turn * double(frequency)));
            for (std::int64_t d = -2; d <= 2; ++d)
                check(centre + d);
        }
        EXPECT_EQ(compared, 2 * 20000 + 5 * 20000);
    }
    SwSetCounter(nullptr);
    SwReset();
}
