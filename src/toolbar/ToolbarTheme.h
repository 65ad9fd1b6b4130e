#pragma once
// The toolbar's colour schemes. The bar never asks the platform for colours: it knows a fixed
// table of schemes, each copying the look of one desktop theme, and only asks which theme is on.

#include "gfx/GraphicsBas1.h"

#include <QString>

#include <array>
#include <functional>

namespace zrt {

// Entries 0 and 1 are the ends of the bar's gradient; 2..16 serve lit and pressed buttons and
// their lines.
using ThemeColors = std::array<OleColor, 17>;

namespace theme {
constexpr int BarFrom = 0, BarTo = 1;
constexpr int HoverFrom = 2, HoverTo = 3;
constexpr int PressedFrom = 4, PressedTo = 5;
constexpr int Line = 6, HoverLine = 7;
constexpr int EndFrom = 8, EndTo = 9;
constexpr int ArrowPressedFrom = 10, ArrowPressedTo = 11;
constexpr int ArrowHoverFrom = 12, ArrowHoverTo = 13;
constexpr int CheckedHot = 14, GlyphHot = 15, GlyphPressed = 16;

// The value of ThemeColor that follows the desktop.
constexpr int FollowDesktop = 5;
} // namespace theme

// The row (0..4) that a desktop colour-scheme name selects: "NormalColor" 0, "HomeStead" 2,
// anything else 1.
int ThemeRowForName(const QString &name);

// The name of the desktop's colour scheme as the bar understands it. Where the toolkit tells
// light from dark, light reads as "NormalColor" and dark as "Metallic"; otherwise "Classic".
QString DesktopThemeName();

// Replaces the desktop query (tests; a host that knows better). An empty function restores it.
void SetDesktopThemeSource(std::function<QString()> source);

// The full table for a ThemeColor value: 0..4 by number, 5 the desktop's, any other row 1.
ThemeColors ThemeColorsFor(int themeColor, bool reverseGradient);

} // namespace zrt
