#include "reaction/mStopWatch.h"

#include <gtest/gtest.h>

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
