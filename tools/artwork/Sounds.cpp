#include "Artwork.h"

#include "reaction/WaveData.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace Artwork {
namespace {

constexpr int kRate = 11025;
constexpr float kTau = 6.2831853f;

// A note with a soft attack and an exponential fade.
void addNote(std::vector<float> &out, float startSeconds, float seconds, float frequency, float volume,
             float decay)
{
    const int first = static_cast<int>(startSeconds * kRate);
    const int count = static_cast<int>(seconds * kRate);
    if (out.size() < static_cast<size_t>(first + count))
        out.resize(static_cast<size_t>(first + count));
    for (int i = 0; i < count; ++i) {
        const float t = static_cast<float>(i) / kRate;
        const float attack = std::min(1.0f, t / 0.004f);
        const float envelope = attack * std::exp(-decay * t);
        const float tone = std::sin(kTau * frequency * t) + 0.3f * std::sin(kTau * 2 * frequency * t);
        out[static_cast<size_t>(first + i)] += volume * envelope * tone / 1.3f;
    }
}

QByteArray wave(const std::vector<float> &samples)
{
    const auto bytes = zrt::MakeWave(samples, kRate, 8);
    return QByteArray(reinterpret_cast<const char *>(bytes.data()), static_cast<qsizetype>(bytes.size()));
}

// Two bright bells, rising: the welcome chime.
std::vector<float> chime()
{
    std::vector<float> s;
    addNote(s, 0.0f, 0.22f, 880.0f, 0.5f, 9.0f);
    addNote(s, 0.14f, 0.32f, 1318.5f, 0.5f, 7.0f);
    s.resize(5066);
    return s;
}

// A short two-tone beep with soft edges, so that it joins up without a click when it repeats.
std::vector<float> cue()
{
    const int n = 2546;
    std::vector<float> s(static_cast<size_t>(n));
    float phase = 0;
    for (int i = 0; i < n; ++i) {
        const float t = static_cast<float>(i) / kRate;
        const float f = i < n / 2 ? 1000.0f : 1500.0f;
        phase += kTau * f / kRate; // continuous phase across the change of pitch
        const float edge = std::min({1.0f, t / 0.005f, (static_cast<float>(n - i) / kRate) / 0.005f});
        s[static_cast<size_t>(i)] = 0.45f * edge * std::sin(phase);
    }
    return s;
}

// A quick woody "tock": the hit.
std::vector<float> hit()
{
    std::vector<float> s(1874);
    for (size_t i = 0; i < s.size(); ++i) {
        const float t = static_cast<float>(i) / kRate;
        const float f = 700.0f - 1800.0f * t; // a falling pitch
        s[i] = 0.6f * std::exp(-28.0f * t) * std::sin(kTau * f * t);
    }
    return s;
}

// Three hopping notes: the walker's entrance.
std::vector<float> entrance()
{
    std::vector<float> s;
    addNote(s, 0.00f, 0.14f, 523.3f, 0.45f, 14.0f);
    addNote(s, 0.13f, 0.14f, 659.3f, 0.45f, 14.0f);
    addNote(s, 0.26f, 0.19f, 784.0f, 0.45f, 10.0f);
    s.resize(4898);
    return s;
}

} // namespace

QByteArray Sound(int number)
{
    switch (number) {
    case 1: return wave(chime());
    case 2: return wave(cue());
    case 3: return wave(hit());
    case 4: return wave(entrance());
    default: return {};
    }
}

} // namespace Artwork
