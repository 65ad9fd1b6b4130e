#include "Artwork.h"

#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>
#include <QRadialGradient>

#include <cmath>
#include <functional>

namespace Artwork {
namespace {

using CellPainter = std::function<void(QPainter &)>;

// Folder, open.
void drawOpen(QPainter &p)
{
    p.setPen(QPen(QColor(150, 100, 20), 1.2));
    p.setBrush(QColor(235, 185, 70));
    p.drawRoundedRect(QRectF(3, 7, 24, 19), 2, 2);
    p.setBrush(QColor(235, 185, 70));
    p.drawRoundedRect(QRectF(3, 4, 10, 6), 2, 2);
    p.setBrush(QColor(255, 255, 255));
    p.drawRect(QRectF(7, 9, 18, 12));
    QPainterPath front;
    front.moveTo(2, 27);
    front.lineTo(8, 14);
    front.lineTo(30, 14);
    front.lineTo(25, 27);
    front.closeSubpath();
    QLinearGradient g(0, 14, 0, 27);
    g.setColorAt(0, QColor(255, 215, 110));
    g.setColorAt(1, QColor(230, 170, 50));
    p.setBrush(g);
    p.drawPath(front);
}

// A fresh sheet with a sparkle: a new, empty collection.
void drawClear(QPainter &p)
{
    p.setPen(QPen(QColor(110, 110, 120), 1.2));
    p.setBrush(Qt::white);
    QPainterPath sheet;
    sheet.moveTo(7, 3);
    sheet.lineTo(20, 3);
    sheet.lineTo(26, 9);
    sheet.lineTo(26, 29);
    sheet.lineTo(7, 29);
    sheet.closeSubpath();
    p.drawPath(sheet);
    p.drawLine(QPointF(20, 3), QPointF(20, 9));
    p.drawLine(QPointF(20, 9), QPointF(26, 9));
    p.setPen(QPen(QColor(240, 180, 20), 2, Qt::SolidLine, Qt::RoundCap));
    const QPointF c(14, 17);
    for (int k = 0; k < 4; ++k) {
        const qreal a = k * 3.14159 / 4;
        p.drawLine(c + QPointF(5 * std::cos(a), 5 * std::sin(a)), c - QPointF(5 * std::cos(a), 5 * std::sin(a)));
    }
}

// A disk.
void drawSave(QPainter &p)
{
    p.setPen(QPen(QColor(30, 50, 110), 1.2));
    p.setBrush(QColor(60, 100, 190));
    p.drawRoundedRect(QRectF(4, 4, 24, 24), 3, 3);
    p.setBrush(QColor(235, 240, 250));
    p.drawRect(QRectF(8, 4, 16, 10));
    p.setBrush(QColor(60, 100, 190));
    p.drawRect(QRectF(19, 6, 3, 6));
    p.setBrush(QColor(200, 210, 230));
    p.drawRect(QRectF(9, 18, 14, 10));
}

// A stopwatch.
void drawRecord(QPainter &p)
{
    p.setPen(QPen(QColor(60, 60, 60), 1.5));
    p.setBrush(QColor(200, 200, 205));
    p.drawRect(QRectF(13, 2, 6, 4));
    QRadialGradient face(QPointF(14, 15), 14);
    face.setColorAt(0, Qt::white);
    face.setColorAt(1, QColor(215, 225, 235));
    p.setBrush(face);
    p.setPen(QPen(QColor(200, 50, 40), 2.5));
    p.drawEllipse(QPointF(16, 18), 11.5, 11.5);
    p.setPen(QPen(QColor(40, 40, 40), 1.2));
    for (int k = 0; k < 12; ++k) {
        const qreal a = k * 3.14159 / 6;
        p.drawLine(QPointF(16 + 8.5 * std::cos(a), 18 + 8.5 * std::sin(a)),
                   QPointF(16 + 10 * std::cos(a), 18 + 10 * std::sin(a)));
    }
    p.setPen(QPen(QColor(200, 50, 40), 2, Qt::SolidLine, Qt::RoundCap));
    p.drawLine(QPointF(16, 18), QPointF(21, 12));
}

// Bars with their mean line.
void drawAverages(QPainter &p)
{
    p.setPen(QPen(QColor(40, 90, 40), 1));
    const int heights[] = {12, 20, 16, 24};
    for (int i = 0; i < 4; ++i) {
        QLinearGradient g(0, 28 - heights[i], 0, 28);
        g.setColorAt(0, QColor(130, 210, 110));
        g.setColorAt(1, QColor(70, 150, 60));
        p.setBrush(g);
        p.drawRect(QRectF(4 + i * 6.5, 28 - heights[i], 5, heights[i]));
    }
    p.setPen(QPen(QColor(210, 40, 40), 2, Qt::DashLine));
    p.drawLine(QPointF(2, 10), QPointF(30, 10));
}

// A histogram of grouped data.
void drawGroups(QPainter &p)
{
    p.setPen(QPen(QColor(30, 60, 120), 1));
    const int heights[] = {8, 16, 24, 14, 6};
    for (int i = 0; i < 5; ++i) {
        p.setBrush(QColor(90 + i * 20, 140, 220));
        p.drawRect(QRectF(3 + i * 5.2, 28 - heights[i], 5.2, heights[i]));
    }
    p.setPen(QPen(QColor(60, 60, 60), 1.5));
    p.drawLine(QPointF(2, 28.5), QPointF(30, 28.5));
}

// A scatter of points.
void drawCompare(QPainter &p)
{
    p.setPen(QPen(QColor(60, 60, 60), 1.5));
    p.drawLine(QPointF(4, 3), QPointF(4, 28));
    p.drawLine(QPointF(4, 28), QPointF(30, 28));
    const QPointF points[] = {{9, 23}, {12, 19}, {15, 20}, {18, 14}, {21, 13}, {24, 8}, {27, 6}};
    p.setPen(QPen(QColor(20, 110, 20), 1));
    p.setBrush(QColor(60, 200, 60));
    for (const auto &pt : points)
        p.drawEllipse(pt, 2.3, 2.3);
    p.setPen(Qt::NoPen);
    p.setBrush(QColor(230, 30, 30));
    p.drawEllipse(QPointF(18, 15), 2.8, 2.8);
}

// Draws a cell smoothly on transparency, then sets it on the mask colour: pixels that are
// mostly see-through become the mask, the rest are laid over a light ground and made solid.
void paintCell(QImage &strip, int cell, const CellPainter &draw)
{
    QImage art(32, 32, QImage::Format_ARGB32);
    art.fill(Qt::transparent);
    {
        QPainter p(&art);
        p.setRenderHint(QPainter::Antialiasing);
        draw(p);
    }
    const QColor ground(236, 236, 228);
    for (int y = 0; y < 32; ++y)
        for (int x = 0; x < 32; ++x) {
            const QColor c = QColor::fromRgba(art.pixel(x, y));
            if (c.alpha() < 110)
                continue;
            const qreal a = c.alphaF();
            const QColor solid(qRound(c.red() * a + ground.red() * (1 - a)),
                               qRound(c.green() * a + ground.green() * (1 - a)),
                               qRound(c.blue() * a + ground.blue() * (1 - a)));
            // Never the mask colour itself.
            strip.setPixel(cell * 32 + x, y, solid.rgb() == kToolbarMask ? qRgb(0, 254, 0) : solid.rgb());
        }
}

} // namespace

QImage ToolbarStrip()
{
    QImage strip(7 * 32, 32, QImage::Format_RGB32);
    strip.fill(kToolbarMask);
    const CellPainter cells[] = {drawOpen, drawClear, drawSave, drawRecord, drawAverages, drawGroups, drawCompare};
    for (int i = 0; i < 7; ++i)
        paintCell(strip, i, cells[i]);
    return strip;
}

QImage ProgramIcon(int size)
{
    QImage img(size, size, QImage::Format_ARGB32_Premultiplied);
    img.fill(Qt::transparent);
    QPainter p(&img);
    p.setRenderHint(QPainter::Antialiasing);
    p.scale(size / 256.0, size / 256.0);
    // A round, friendly face peeking over a stopwatch rim.
    QRadialGradient body(QPointF(110, 100), 150);
    body.setColorAt(0, QColor(150, 220, 120));
    body.setColorAt(1, QColor(60, 150, 70));
    p.setPen(QPen(QColor(30, 90, 40), 6));
    p.setBrush(body);
    p.drawEllipse(QPointF(128, 136), 108, 108);
    p.setPen(Qt::NoPen);
    p.setBrush(Qt::white);
    p.drawEllipse(QPointF(92, 118), 28, 32);
    p.drawEllipse(QPointF(164, 118), 28, 32);
    p.setBrush(QColor(30, 30, 50));
    p.drawEllipse(QPointF(98, 124), 13, 15);
    p.drawEllipse(QPointF(170, 124), 13, 15);
    p.setBrush(Qt::white);
    p.drawEllipse(QPointF(103, 118), 4, 4);
    p.drawEllipse(QPointF(175, 118), 4, 4);
    p.setPen(QPen(QColor(30, 70, 30), 8, Qt::SolidLine, Qt::RoundCap));
    p.setBrush(Qt::NoBrush);
    p.drawArc(QRectF(84, 130, 88, 64), 200 * 16, 140 * 16);
    // Antennae.
    p.setPen(QPen(QColor(30, 90, 40), 7, Qt::SolidLine, Qt::RoundCap));
    p.drawLine(QPointF(96, 40), QPointF(80, 8));
    p.drawLine(QPointF(160, 40), QPointF(176, 8));
    p.setPen(Qt::NoPen);
    p.setBrush(QColor(255, 200, 40));
    p.drawEllipse(QPointF(80, 10), 12, 12);
    p.drawEllipse(QPointF(176, 10), 12, 12);
    return img;
}

} // namespace Artwork
