#pragma once
// The "Stem & Leaf" tab: stems, a divider and, on request, leaves with the key.

#include "charts/PictureBox.h"

#include <string>
#include <vector>

namespace zrt {

inline constexpr const char *StemKeyText = "Key: 7|3 = 0.73 seconds";

// Draws on PicSL from the list texts, always at hundredths. items: the list under analysis
// (the visual or the audio times); visualCount: the number of visual times, which sizes the
// array as it does everywhere (0: the surface stays cleared). showLeaves: the leaves are shown.
// A list longer than the visual one is a subscript failure (RunTimeError 9).
void DrawStemAndLeaf(PictureBox &PicSL, const std::vector<std::string> &items, int visualCount, bool showLeaves);

// The stem and leaves rows as the chart gathers them: row i is stem a + i, leaves " 3 7".
struct StemRow {
    std::string stem;
    std::string leaves;
};
std::vector<StemRow> StemRows(std::vector<int> &hundredths); // sorts the array

} // namespace zrt
