#pragma once
// The rules of a reaction run, shared by the visual and the audio test: how many attempts, the
// times indexed from 1, the mean and the too-slow limits. No widgets: the pages drive it.

#include <vector>

namespace zrt {

enum class Sense { Visual, Audio };

class ReactionRun {
public:
    // Means above these are far too slow; they compare as singles.
    static constexpr float VisualLimit = 1.7f;
    static constexpr float AudioLimit = 1.3f;

    // Start pressed: room for `attemptsWanted` times, counting from nought again. The count is
    // one for both senses, as the stage shows one list of attempts at a time.
    void begin(Sense sense, int attemptsWanted);

    // A hit: counts it and keeps its time. Returns the attempt's number. A run begun by a
    // false start was never dimensioned: its first hit is a subscript failure (RunTimeError 9),
    // as is a count past 32,767 (RunTimeError 6).
    int record(Sense sense, float seconds);

    // Whether a press that was no hit starts the wait anew: only while attempts are wanted.
    bool moreWanted(int attemptsWanted) const { return attemptsWanted > m_attemptCount; }

    // The run's end: the times are summed onto what the mean holds, then divided by their
    // number. A second Start without Add or Cancel sums onto the first run's mean.
    float finish(Sense sense);
    bool tooSlow(Sense sense) const;

    // Add or Cancel: the mean starts from nought again.
    void clearMean(Sense sense) { meanOf(sense) = 0.0f; }

    short attemptCount() const { return m_attemptCount; }
    float mean(Sense sense) const { return sense == Sense::Visual ? m_visualMean : m_audioMean; }
    const std::vector<float> &times(Sense sense) const { return sense == Sense::Visual ? m_visual : m_audio; }

private:
    float &meanOf(Sense sense) { return sense == Sense::Visual ? m_visualMean : m_audioMean; }
    std::vector<float> &timesOf(Sense sense) { return sense == Sense::Visual ? m_visual : m_audio; }

    std::vector<float> m_visual{0.0f}; // indexed from 1; [0] unused
    std::vector<float> m_audio{0.0f};
    float m_visualMean = 0.0f;
    float m_audioMean = 0.0f;
    short m_attemptCount = 0;
};

} // namespace zrt
