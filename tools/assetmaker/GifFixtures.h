#pragma once
// Small GIF files that exercise the decoder: interlacing, local tables only, transparency,
// mixed disposals, odd sizes, one frame, a cut-off file, a stray byte and table resets.

#include <QString>

namespace assetmaker {

// Writes the fixture files into folder; returns the number written.
int WriteGifFixtures(const QString &folder);

} // namespace assetmaker
