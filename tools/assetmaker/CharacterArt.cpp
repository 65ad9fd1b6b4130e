#include "CharacterArt.h"

#include <QPainter>
#include <QPainterPath>
#include <cmath>
#include <numbers>

namespace assetmaker {

namespace {

constexpr int kCharWidth = 110;
constexpr int kCharHeight = 394;
constexpr int kGroundY = 376;   // the line where a character meets the hole
constexpr int kRiseOffset = 150; // how far down the character sits while coming out

const QColor kOutline(40, 30, 50);
const QColor kEyeWhite(255, 255, 255);
const QColor kPupil(30, 30, 60);
const QColor kMouth(150, 30, 40);
const QColor kTongue(240, 120, 140);
const QColor kCheek(250, 150, 160);

QImage BlankFrame(int w, int h)
{
    QImage image(w, h, QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    return image;
}

void Shape(QPainter &p, const QColor &fill, int outline = 2)
{
    p.setBrush(fill);
    p.setPen(outline > 0 ? QPen(kOutline, outline) : QPen(Qt::NoPen));
}

void DrawEye(QPainter &p, QPoint centre, int radius, QPoint look, bool closed = false)
{
    if (closed) {
        p.setPen(QPen(kOutline, 3));
        p.drawLine(centre.x() - radius, centre.y(), centre.x() + radius, centre.y());
        return;
    }
    Shape(p, kEyeWhite);
    p.drawEllipse(centre, radius, radius);
    Shape(p, kPupil, 0);
    const int pupil = radius / 2;
    p.drawEllipse(centre + look, pupil, pupil);
    Shape(p, kEyeWhite, 0);
    p.drawEllipse(centre + look + QPoint(-pupil / 3, -pupil / 3), std::max(2, pupil / 3), std::max(2, pupil / 3));
}

void DrawSmile(QPainter &p, QRect box, bool teeth)
{
    QPainterPath mouth;
    mouth.moveTo(box.left(), box.top());
    mouth.quadTo(box.center().x(), box.bottom() + box.height(), box.right(), box.top());
    mouth.closeSubpath();
    Shape(p, kMouth);
    p.drawPath(mouth);
    Shape(p, kTongue, 0);
    p.drawEllipse(QPoint(box.center().x(), box.top() + box.height() * 2 / 3), box.width() / 5, box.height() / 4);
    if (teeth) {
        Shape(p, kEyeWhite, 1);
        p.drawRect(box.center().x() - 9, box.top() + 1, 7, 7);
        p.drawRect(box.center().x() + 2, box.top() + 1, 7, 7);
    }
}

// The green one: a pear of a body, one big eye, two antennae with yellow bobbles.
void DrawGreenCreature(QPainter &p, int dy)
{
    p.translate(0, dy);
    p.setPen(QPen(kOutline, 3));
    p.drawLine(42, 95, 26, 48);
    p.drawLine(68, 95, 84, 48);
    Shape(p, QColor(250, 220, 60));
    p.drawEllipse(QPoint(26, 46), 8, 8);
    p.drawEllipse(QPoint(84, 46), 8, 8);

    Shape(p, QColor(70, 170, 70));
    p.drawEllipse(QRect(4, 215, 24, 60));   // arms
    p.drawEllipse(QRect(82, 215, 24, 60));
    Shape(p, QColor(100, 200, 90));
    p.drawRoundedRect(QRect(16, 84, 78, 290), 39, 45);
    Shape(p, QColor(190, 235, 150), 0);
    p.drawEllipse(QRect(32, 215, 46, 120));  // belly
    Shape(p, QColor(70, 170, 70));
    p.drawEllipse(QRect(20, 352, 30, 24));  // feet
    p.drawEllipse(QRect(60, 352, 30, 24));

    DrawEye(p, QPoint(55, 140), 22, QPoint(2, 3));
    Shape(p, kCheek, 0);
    p.drawEllipse(QPoint(27, 182), 7, 5);
    p.drawEllipse(QPoint(83, 182), 7, 5);
    DrawSmile(p, QRect(35, 178, 40, 16), false);
    p.translate(0, -dy);
}

// The purple one: horns, two eyes, a toothy grin and lighter spots.
void DrawPurpleCreature(QPainter &p, int dy)
{
    p.translate(0, dy);
    Shape(p, QColor(250, 160, 60));
    p.drawPolygon(QPolygon({QPoint(22, 100), QPoint(14, 52), QPoint(42, 86)}));
    p.drawPolygon(QPolygon({QPoint(88, 100), QPoint(96, 52), QPoint(68, 86)}));

    Shape(p, QColor(130, 70, 180));
    p.drawEllipse(QRect(2, 200, 22, 66));   // arms
    p.drawEllipse(QRect(86, 200, 22, 66));
    Shape(p, QColor(160, 100, 210));
    p.drawRoundedRect(QRect(12, 78, 86, 296), 43, 50);
    Shape(p, QColor(200, 160, 240), 0);
    p.drawEllipse(QPoint(30, 250), 8, 8);
    p.drawEllipse(QPoint(76, 290), 10, 10);
    p.drawEllipse(QPoint(44, 320), 6, 6);
    p.drawEllipse(QPoint(80, 225), 6, 6);
    Shape(p, QColor(130, 70, 180));
    p.drawEllipse(QRect(18, 352, 32, 24));  // feet
    p.drawEllipse(QRect(60, 352, 32, 24));

    DrawEye(p, QPoint(38, 132), 15, QPoint(1, 2));
    DrawEye(p, QPoint(72, 132), 15, QPoint(1, 2));
    Shape(p, kCheek, 0);
    p.drawEllipse(QPoint(24, 168), 6, 4);
    p.drawEllipse(QPoint(86, 168), 6, 4);
    DrawSmile(p, QRect(30, 166, 50, 18), true);
    p.translate(0, -dy);
}

void DrawHoleBack(QPainter &p)
{
    Shape(p, QColor(110, 70, 40), 0);
    p.drawEllipse(QRect(0, kGroundY - 14, kCharWidth, 34));
    Shape(p, QColor(50, 30, 20), 0);
    p.drawEllipse(QRect(10, kGroundY - 8, kCharWidth - 20, 18));
}

void DrawHoleFront(QPainter &p)
{
    Shape(p, QColor(140, 95, 55), 0);
    QPainterPath rim;
    rim.moveTo(0, kGroundY + 2);
    rim.quadTo(kCharWidth / 2.0, kGroundY + 22, kCharWidth, kGroundY + 2);
    rim.lineTo(kCharWidth, kCharHeight - 4);
    rim.quadTo(kCharWidth / 2.0, kCharHeight + 4, 0, kCharHeight - 4);
    rim.closeSubpath();
    p.drawPath(rim);
    Shape(p, QColor(60, 160, 60), 0);
    for (int x : {6, 30, 74, 98})
        p.drawPolygon(QPolygon({QPoint(x, kGroundY + 8), QPoint(x + 4, kGroundY - 4), QPoint(x + 8, kGroundY + 8)}));
}

QImage CharacterFrame(int which, int rise)
{
    QImage image = BlankFrame(kCharWidth, kCharHeight);
    QPainter p(&image);
    DrawHoleBack(p);
    if (rise >= 0) {
        p.setClipRect(QRect(0, 0, kCharWidth, kGroundY + 2));
        if (which == 1)
            DrawGreenCreature(p, rise);
        else
            DrawPurpleCreature(p, rise);
        p.setClipping(false);
    }
    DrawHoleFront(p);
    return image;
}

// The audio stage's listener: orange, big round ears, standing on a little rug.
QImage ListenerFrame(int pose)
{
    QImage image = BlankFrame(kCharWidth, kCharHeight);
    QPainter p(&image);
    Shape(p, QColor(200, 60, 60));
    p.drawEllipse(QRect(2, 362, 106, 28));
    const int earLift = pose == 2 ? 40 : 0;
    Shape(p, QColor(240, 140, 50));
    p.drawEllipse(QRect(0, 70 - earLift, 40, 70));
    p.drawEllipse(QRect(70, 70 - earLift, 40, 70));
    Shape(p, QColor(255, 200, 150), 0);
    p.drawEllipse(QRect(9, 82 - earLift, 22, 46));
    p.drawEllipse(QRect(79, 82 - earLift, 22, 46));
    Shape(p, QColor(240, 140, 50));
    p.drawEllipse(QRect(8, 330, 36, 40));  // feet
    p.drawEllipse(QRect(66, 330, 36, 40));
    p.drawRoundedRect(QRect(14, 100, 82, 250), 41, 50);
    Shape(p, QColor(255, 215, 170), 0);
    p.drawEllipse(QRect(30, 210, 50, 110));
    Shape(p, QColor(220, 110, 30));
    const int hand = pose == 2 ? 150 : 220;
    p.drawEllipse(QRect(2, hand, 24, 50));
    p.drawEllipse(QRect(84, hand, 24, 50));
    DrawEye(p, QPoint(38, 160), 14, QPoint(0, 2), pose == 1);
    DrawEye(p, QPoint(72, 160), 14, QPoint(0, 2), pose == 1);
    Shape(p, kPupil, 0);
    p.drawEllipse(QPoint(55, 182), 6, 4);  // nose
    Shape(p, kCheek, 0);
    p.drawEllipse(QPoint(26, 190), 6, 4);
    p.drawEllipse(QPoint(84, 190), 6, 4);
    DrawSmile(p, QRect(40, 194, 30, pose == 2 ? 14 : 9), false);
    return image;
}

constexpr int kWalkWidth = 179;
constexpr int kWalkHeight = 174;

void DrawLeg(QPainter &p, QPointF hip, double angle, const QColor &colour)
{
    const double length = 42;
    const QPointF foot = hip + QPointF(-std::sin(angle) * length, std::cos(angle) * length);
    p.setPen(QPen(kOutline, 14, Qt::SolidLine, Qt::RoundCap));
    p.drawLine(hip, foot);
    p.setPen(QPen(colour, 10, Qt::SolidLine, Qt::RoundCap));
    p.drawLine(hip, foot);
    Shape(p, colour);
    p.drawEllipse(QRectF(foot.x() - 16, foot.y() - 6, 24, 13));
}

void DrawArm(QPainter &p, QPointF shoulder, double angle, const QColor &colour)
{
    const QPointF hand = shoulder + QPointF(-std::sin(angle) * 30, std::cos(angle) * 30);
    p.setPen(QPen(kOutline, 10, Qt::SolidLine, Qt::RoundCap));
    p.drawLine(shoulder, hand);
    p.setPen(QPen(colour, 6, Qt::SolidLine, Qt::RoundCap));
    p.drawLine(shoulder, hand);
}

// One step of the stride: phase 0..1. The far leg and arm are a shade darker.
QImage WalkerFrame(double phase)
{
    QImage image = BlankFrame(kWalkWidth, kWalkHeight);
    QPainter p(&image);
    const double swing = std::sin(2 * std::numbers::pi * phase) * 0.55;
    const double bob = -std::abs(std::cos(2 * std::numbers::pi * phase)) * 5;
    const QColor near(70, 150, 230);
    const QColor far(45, 110, 190);
    const QPointF hipFar(98, 112 + bob);
    const QPointF hipNear(82, 112 + bob);

    DrawLeg(p, hipFar, -swing, far);
    DrawArm(p, QPointF(138, 78 + bob), swing, far);
    Shape(p, near);
    p.drawEllipse(QRectF(40, 18 + bob, 104, 104));   // round body
    Shape(p, QColor(170, 215, 250), 0);
    p.drawEllipse(QRectF(56, 62 + bob, 56, 50));     // tummy
    Shape(p, QColor(250, 200, 60));
    p.drawEllipse(QRectF(90, 6 + bob, 18, 18));      // tuft
    p.drawEllipse(QRectF(102, 12 + bob, 14, 14));
    DrawEye(p, QPoint(68, int(52 + bob)), 12, QPoint(-4, 0));
    DrawEye(p, QPoint(94, int(52 + bob)), 12, QPoint(-4, 0));
    DrawSmile(p, QRect(58, int(76 + bob), 28, 10), false);
    DrawLeg(p, hipNear, swing, near);
    DrawArm(p, QPointF(46, 78 + bob), -swing, near);
    return image;
}

} // namespace

std::vector<QImage> CharacterFrames(int which)
{
    return {CharacterFrame(which, -1), CharacterFrame(which, kRiseOffset), CharacterFrame(which, 0)};
}

std::vector<QImage> AudioTargetFrames()
{
    return {ListenerFrame(0), ListenerFrame(1), ListenerFrame(2)};
}

std::vector<QImage> WalkerFrames()
{
    std::vector<QImage> frames;
    for (int i = 0; i < 16; ++i)
        frames.push_back(WalkerFrame(i / 16.0));
    return frames;
}

} // namespace assetmaker
