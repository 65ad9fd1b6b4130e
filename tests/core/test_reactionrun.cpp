// The rules of a run without a window: attempts, the mean, the too-slow verdicts and the sum
// that a second Start carries over.

#include "common/RunTimeError.h"
#include "reaction/ReactionRun.h"

#include <gtest/gtest.h>

#include <limits>

using zrt::ReactionRun;
using zrt::Sense;

namespace {

float PlayRun(ReactionRun &run, Sense sense, std::initializer_list<float> times)
{
    run.begin(sense, static_cast<int>(times.size()));
    for (float t : times)
        run.record(sense, t);
    return run.finish(sense);
}

} // namespace

TEST(ReactionRun, MeansAndVerdictsOfEachSense)
{
    struct Row {
        Sense sense;
        std::initializer_list<float> times;
        float mean;
        bool tooSlow;
    };
    const Row rows[] = {
        {Sense::Visual, {0.2f, 0.3f, 0.4f, 0.5f}, 0.35f, false},
        {Sense::Visual, {1.7f, 1.7f, 1.7f, 1.7f}, 1.7f, false}, // the limit itself is not too slow
        {Sense::Visual, {1.6f, 1.8f, 1.9f, 1.8f}, 1.775f, true},
        {Sense::Audio, {1.3f, 1.3f, 1.3f, 1.3f}, 1.3f, false},
        {Sense::Audio, {1.2f, 1.4f, 1.4f, 1.4f}, 1.35f, true},
        {Sense::Audio, {0.5f, 0.5f, 0.5f, 0.5f, 0.5f, 0.5f, 0.5f, 0.5f, 0.5f, 0.5f}, 0.5f, false},
    };
    for (const Row &row : rows) {
        ReactionRun run;
        EXPECT_FLOAT_EQ(PlayRun(run, row.sense, row.times), row.mean);
        EXPECT_EQ(run.tooSlow(row.sense), row.tooSlow) << row.mean;
        EXPECT_EQ(run.attemptCount(), static_cast<int>(row.times.size()));
        // The other sense is untouched.
        const Sense other = row.sense == Sense::Visual ? Sense::Audio : Sense::Visual;
        EXPECT_EQ(run.mean(other), 0.0f);
    }
}

TEST(ReactionRun, AttemptsAreCountedFromOneAndWantedUntilTheLast)
{
    ReactionRun run;
    run.begin(Sense::Visual, 4);
    EXPECT_TRUE(run.moreWanted(4));
    EXPECT_EQ(run.record(Sense::Visual, 0.25f), 1);
    EXPECT_EQ(run.record(Sense::Visual, 0.5f), 2);
    EXPECT_EQ(run.times(Sense::Visual)[1], 0.25f);
    EXPECT_EQ(run.times(Sense::Visual)[2], 0.5f);
    run.record(Sense::Visual, 0.5f);
    EXPECT_TRUE(run.moreWanted(4));
    run.record(Sense::Visual, 0.5f);
    EXPECT_FALSE(run.moreWanted(4));
    // One count for both senses: the audio Start begins it again from nought.
    run.begin(Sense::Audio, 4);
    EXPECT_EQ(run.attemptCount(), 0);
    EXPECT_TRUE(run.moreWanted(4));
    EXPECT_EQ(run.times(Sense::Visual).size(), 5u) << "the visual times stay for the pair";
}

TEST(ReactionRun, TheSumCarriesOverUntilAddOrCancel)
{
    ReactionRun run;
    EXPECT_FLOAT_EQ(PlayRun(run, Sense::Visual, {0.4f, 0.4f, 0.4f, 0.4f}), 0.4f);
    // A second Start without Add or Cancel: (0.4 + 4 x 0.2) / 4.
    EXPECT_FLOAT_EQ(PlayRun(run, Sense::Visual, {0.2f, 0.2f, 0.2f, 0.2f}), 0.3f);
    run.clearMean(Sense::Visual);
    EXPECT_FLOAT_EQ(PlayRun(run, Sense::Visual, {0.2f, 0.2f, 0.2f, 0.2f}), 0.2f);
    // A carried-over sum can make a quick run far too slow.
    ReactionRun audio;
    PlayRun(audio, Sense::Audio, {1.2f, 1.2f, 1.2f, 1.2f});
    PlayRun(audio, Sense::Audio, {1.2f, 1.2f, 1.2f, 1.2f});
    EXPECT_TRUE(audio.tooSlow(Sense::Audio));
}

TEST(ReactionRun, AHitBeyondTheDimensionedTimesIsASubscriptFailure)
{
    ReactionRun never;
    // Never begun: the times hold only the unused slot 0.
    try {
        never.record(Sense::Visual, 0.3f);
        FAIL() << "no failure";
    } catch (const zrt::RunTimeError &e) {
        EXPECT_EQ(e.number(), zrt::ErrSubscript);
    }
    ReactionRun run;
    run.begin(Sense::Audio, 4);
    for (int i = 0; i < 4; ++i)
        run.record(Sense::Audio, 0.3f);
    EXPECT_THROW(run.record(Sense::Audio, 0.3f), zrt::RunTimeError);
    // The failing hit was counted, as the count is raised before the time is stored.
    EXPECT_EQ(run.attemptCount(), 5);
}
