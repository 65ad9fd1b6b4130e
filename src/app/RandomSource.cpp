#include "app/RandomSource.h"

#include <chrono>
#include <cmath>

RandomSource::RandomSource() { Randomize(); }

void RandomSource::Randomize()
{
    m_engine.seed(static_cast<std::mt19937::result_type>(
        std::chrono::steady_clock::now().time_since_epoch().count()));
}

float RandomSource::Rnd()
{
    if (!m_script.empty()) {
        const float v = m_script.front();
        m_script.pop_front();
        return v;
    }
    const float v = std::uniform_real_distribution<float>(0.0f, 1.0f)(m_engine);
    return v < 1.0f ? v : std::nextafter(1.0f, 0.0f); // the distribution may round up to 1
}

int RandomSource::wholeBetween(int span, int low)
{
    return static_cast<int>(std::floor(Rnd() * static_cast<float>(span) + static_cast<float>(low)));
}
