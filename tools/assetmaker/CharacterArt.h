#pragma once
// The animated characters, drawn in code with plain shapes (no antialiasing, so a GIF palette
// holds them exactly).

#include <QImage>
#include <vector>

namespace assetmaker {

// 3 frames of 110 x 394: below ground, the upper part coming out, the whole character.
// which: 1 the green one-eyed antenna creature, 2 the purple horned one.
std::vector<QImage> CharacterFrames(int which);

// 3 frames of 110 x 394: the listening creature of the audio stage (ears down, a blink,
// ears up).
std::vector<QImage> AudioTargetFrames();

// 16 frames of 179 x 174: a round creature walking to the left, one full stride cycle.
std::vector<QImage> WalkerFrames();

} // namespace assetmaker
