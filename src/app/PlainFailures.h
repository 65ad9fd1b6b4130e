#pragma once
// The plain sentence that goes with a failed analysis whose cause the collected lists show, so
// the message box says what happened in a pupil's words beside the error's number and name.

#include "common/RunTimeError.h"
#include "stats/AnalysisState.h"

#include <string>

namespace zrt {

enum class AnalysisKind { Averages, Groups, Compare };

inline constexpr const char *NotANumberSentence = "One of the collected times is empty or is not a number.";
inline constexpr const char *NoAudioSentence = "This sample has no audio times to compare.";
inline constexpr const char *FewerAudioSentence =
    "This sample has fewer audio times than visual times, so some times have no partner to compare.";
inline constexpr const char *MoreAudioSentence =
    "The audio list holds more times than the visual list, so the two lists don't match.";
inline constexpr const char *TooLargeSentence =
    "The times are too large, or too many, to add up at this precision; a coarser one may help.";
inline constexpr const char *TooFewPairsSentence = "Spearman's rank needs at least two pairs of times.";

// Attaches the sentence for a known cause; a failure that already has one, or whose cause the
// lists don't show, is left as it is. audioSource: the audio list is the one analysed.
inline void ExplainListFailure(RunTimeError &e, const CollectedLists &lists, AnalysisKind kind, bool audioSource)
{
    if (!e.plain().empty())
        return;
    const size_t visual = lists.visual.size();
    const size_t audio = lists.audio.size();
    switch (e.number()) {
    case ErrTypeMismatch: e.explain(NotANumberSentence); break;
    case ErrSubscript:
        if (kind == AnalysisKind::Compare && audio == 0)
            e.explain(NoAudioSentence);
        else if (kind == AnalysisKind::Compare && audio < visual)
            e.explain(FewerAudioSentence);
        else if (audioSource && audio > visual)
            e.explain(MoreAudioSentence);
        break;
    case ErrOverflow:
        if (kind == AnalysisKind::Averages)
            e.explain(TooLargeSentence);
        break;
    case ErrDivisionByZero:
        if (kind == AnalysisKind::Compare && visual < 2)
            e.explain(TooFewPairsSentence);
        break;
    default: break;
    }
}

} // namespace zrt
