#include "reaction/ReactionRun.h"

#include "common/RunTimeError.h"

namespace zrt {

void ReactionRun::begin(Sense sense, int attemptsWanted)
{
    m_attemptCount = 0;
    timesOf(sense).assign(static_cast<size_t>(attemptsWanted < 0 ? 0 : attemptsWanted) + 1, 0.0f);
}

int ReactionRun::record(Sense sense, float seconds)
{
    m_attemptCount = addInt16(m_attemptCount, 1);
    std::vector<float> &list = timesOf(sense);
    if (m_attemptCount >= static_cast<int>(list.size()))
        raise(ErrSubscript);
    list[static_cast<size_t>(m_attemptCount)] = seconds;
    return m_attemptCount;
}

float ReactionRun::finish(Sense sense)
{
    const std::vector<float> &list = timesOf(sense);
    float &sum = meanOf(sense);
    const size_t upper = list.size() - 1;
    for (size_t k = 1; k <= upper; ++k)
        sum += list[k];
    sum /= static_cast<float>(upper);
    return sum;
}

bool ReactionRun::tooSlow(Sense sense) const
{
    return mean(sense) > (sense == Sense::Visual ? VisualLimit : AudioLimit);
}

} // namespace zrt
