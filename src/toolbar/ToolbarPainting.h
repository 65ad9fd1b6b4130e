#pragma once
// The drawing routines of the themed toolbar: the bar's ground, the grip, separators, buttons in
// each of their looks, and the end area with its overflow and menu marks.

#include "toolbar/ToolbarButton.h"
#include "toolbar/ToolbarTheme.h"

class QPainter;

namespace zrt {

// How a button is drawn at this moment: its kept state together with the pointer.
enum class ButtonLook { Normal, Hover, Pressed, Checked, CheckedHot, Disabled };

ButtonLook LookOf(const ToolbarButton &button, bool barEnabled, bool hot, bool pressed);

void DrawBarGround(QPainter &p, const QRect &rect, const ThemeColors &colors);
void DrawGrip(QPainter &p, const QRect &rect, const ThemeColors &colors);
void DrawSeparator(QPainter &p, const QRect &rect, const ThemeColors &colors);
// Draws a button (not a separator) into rect: the lit area on the bar or its place in the pop-up.
void DrawButton(QPainter &p, const ToolbarButton &button, const QRect &rect, ButtonLook look,
                const ThemeColors &colors);
// The end area: lit while the pointer is over it; the overflow mark in its upper half when some
// buttons do not fit, the menu mark below.
void DrawEndArea(QPainter &p, const QRect &rect, const ThemeColors &colors, bool lit, bool overflow);

// The icon as it looks on a disabled button: grey, with the mask colour left out.
QImage DisabledIcon(const QImage &icon, bool useMask, const QColor &mask);

} // namespace zrt
