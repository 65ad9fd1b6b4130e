#pragma once
// Turns pictures drawn in full colour (without antialiasing, so few colours) into the
// palette indices of one GIF: index 0 is the see-through colour, the rest in order of use.

#include "anim/GifEncoder.h"

#include <QImage>
#include <vector>

namespace assetmaker {

struct AnimationTiming {
    int DelayCs = 0;
    int Disposal = 2;
    int Loops = 0;
};

// Frames of one size; pixels with alpha below 128 become see-through. At most 255 colours.
QByteArray EncodeAnimation(const std::vector<QImage> &frames, const AnimationTiming &timing);

} // namespace assetmaker
