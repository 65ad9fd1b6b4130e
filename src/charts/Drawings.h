#pragma once
// The text routines every chart shares: a label with the access-key prefix and the embossed
// disabled look, and the two measurements that columns are fitted with.
//
// Fonts are made from the values a logical font carries: a positive height is the character
// cell, so the face's ascent plus descent fills it; the face "Ariel" resolves to the installed
// Arial-metric family.

#include "gfx/GraphicsBas1.h"

#include <QFont>
#include <QRect>
#include <QString>

namespace zrt {
class PictureBox;
}

namespace Drawings {

// The family that stands in for the face "Ariel": Arial where installed, else a metric twin.
QString LabelFamily();

// The font a logical font with these values selects.
QFont LabelFont(int height, int width, int weight, bool italic, bool underline, int escapement);

// Draws text at (x, y), its top-left corner, in pixels. "&" underlines the next character and
// "&&" stands for "&". Disabled text is embossed in the 3D highlight and shadow colours and
// ignores the colour. A null device draws nothing and returns 0; otherwise returns 1.
int DrawLabel(zrt::PictureBox *device, int x, int y, const QString &text, bool enabled, zrt::OleColor colour,
              int weight, int italic, int underline, int height, int width = 0, int escapement = 0);

// Width in pixels plus 1 of the text, "&" taken literally, in the device's selected font.
int MeasureLabel(const zrt::PictureBox &device, const QString &text);

// Advance width of the text in the font DrawLabel uses for this height and weight (nothing
// added): where a label drawn at x ends, for placing and spacing labels.
int LabelWidth(int height, int weight, const QString &text);
// The same unrounded: where the letters of a long label stand.
double LabelAdvance(int height, int weight, const QString &text);

// The pixels the letters of a label drawn at (x, y) cover: where two labels would run together.
QRect LabelInk(int x, int y, int height, int weight, bool italic, const QString &text);

// Width plus 1 of the text in the measuring font (face "Ariel", weight 1) of this height and
// width; every fitted column is measured this way, whatever surface it goes on.
int MeasureFont(int height, int width, const QString &text);

} // namespace Drawings
