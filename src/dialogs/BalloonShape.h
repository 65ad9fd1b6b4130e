#pragma once
// The geometry of the balloon window, in pixels of the window of outer size W x H: the rounded
// face, the shadow band along the lower and right edges, and the pointer triangle whose tip
// touches the spot the balloon talks about. Pure functions, so that the shape can be checked
// without showing a window.

#include <QPoint>
#include <QPolygon>
#include <QRect>
#include <QRegion>
#include <QSize>

#include <array>

namespace zrt::BalloonShape {

// Which corner of the balloon carries the pointer, named after the screen quarter of the tip.
enum PointerStyle : short {
    NoPointer = 0,
    LowerRight = 1, // tip in the right and lower half: pointer at the bottom right
    UpperRight = 2, // right and upper half: pointer at the top right
    LowerLeft = 3,  // left and lower half: pointer at the bottom left
    UpperLeft = 4,  // left and upper half, the middle lines included: pointer at the top left
};

// The free band above the face that holds an upward pointer.
inline constexpr int kPointerRoom = 20;
// How far in from the window's side the tip sits.
inline constexpr int kTipInset = 42;
// Corner ellipse of the face and of the shadow.
inline constexpr int kFaceCorner = 20;
inline constexpr int kShadowCornerX = 45;
inline constexpr int kShadowCornerY = 35;
// Number of 2-pixel strips in the shadow band.
inline constexpr int kShadowStrips = 10;

// The style for a tip on a screen: by the quarter of the screen the tip lies in.
PointerStyle PointerStyleFor(QPoint tip, const QRect &screen);

// The window's top-left corner that puts the pointer's tip of that style on the tip.
QPoint WindowTopLeft(PointerStyle style, QPoint tip, QSize window);

// Where that style's tip lies inside the window.
QPoint TipInWindow(PointerStyle style, QSize window);

// A region like the platform's rounded-rectangle region: right and bottom edges exclusive,
// corners cut by an ellipse of cornerW x cornerH.
QRegion RoundRectRegion(int left, int top, int right, int bottom, int cornerW, int cornerH);

// The face: (0, 20) to (W - 14, H - 32), corners 20 x 20.
QRegion MainRegion(QSize window);
QRect FaceRect(QSize window); // the rectangle the face is painted in, one pixel inside the region

// The shadow: (11, 29) to (W - 5, H - 23), corners 45 x 35; most of it lies behind the face.
QRegion ShadowRegion(QSize window);

// The pointer triangle for a style; empty for NoPointer.
QPolygon PointerPolygon(PointerStyle style, QSize window);
QRegion PointerRegion(PointerStyle style, QSize window);

// True when the window stands wholly on the screen, with the slack the shadow needs.
bool StandsOnScreen(const QRect &window, const QRect &screen);

// One step of the shadow: a row along the bottom and a column along the right edge, each two
// pixels thick, and how much of what lies behind shows through (255 all of it, 0 none).
struct ShadowStrip {
    QRect row;
    QRect column;
    int behindAlpha;
};
std::array<ShadowStrip, kShadowStrips> ShadowStrips(QSize window);

} // namespace zrt::BalloonShape
