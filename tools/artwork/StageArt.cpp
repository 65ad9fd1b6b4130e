#include "Artwork.h"

#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>
#include <QRadialGradient>

#include <cmath>

namespace Artwork {
namespace {

void sky(QPainter &p, const QRect &r, QColor top, QColor bottom)
{
    QLinearGradient g(r.topLeft(), r.bottomLeft());
    g.setColorAt(0, top);
    g.setColorAt(1, bottom);
    p.fillRect(r, g);
}

void sun(QPainter &p, QPointF centre, qreal radius)
{
    QRadialGradient glow(centre, radius * 2.2);
    glow.setColorAt(0, QColor(255, 244, 170, 200));
    glow.setColorAt(1, QColor(255, 244, 170, 0));
    p.setPen(Qt::NoPen);
    p.setBrush(glow);
    p.drawEllipse(centre, radius * 2.2, radius * 2.2);
    p.setBrush(QColor(255, 221, 87));
    p.drawEllipse(centre, radius, radius);
}

void cloud(QPainter &p, QPointF at, qreal size)
{
    p.setPen(Qt::NoPen);
    p.setBrush(QColor(255, 255, 255, 230));
    p.drawEllipse(at, size, size * 0.6);
    p.drawEllipse(at + QPointF(size * 0.8, size * 0.1), size * 0.7, size * 0.5);
    p.drawEllipse(at + QPointF(-size * 0.8, size * 0.15), size * 0.6, size * 0.42);
    p.drawEllipse(at + QPointF(size * 0.2, -size * 0.35), size * 0.6, size * 0.5);
}

// Rolling hills from a few sine waves, filled down to the bottom edge.
void hills(QPainter &p, int width, int height, qreal base, qreal amplitude, qreal phase, QColor colour)
{
    QPainterPath path(QPointF(0, height));
    for (int x = 0; x <= width; x += 4) {
        const qreal y = base - amplitude * (0.6 * std::sin(x / 97.0 + phase) + 0.4 * std::sin(x / 41.0 + phase * 2));
        path.lineTo(x, y);
    }
    path.lineTo(width, height);
    path.closeSubpath();
    p.setPen(Qt::NoPen);
    p.setBrush(colour);
    p.drawPath(path);
}

void grassTufts(QPainter &p, int width, int groundY)
{
    p.setPen(QPen(QColor(64, 130, 48), 2));
    for (int x = 6; x < width; x += 23) {
        const int h = 6 + (x * 7) % 9;
        p.drawLine(x, groundY + 30, x - 3, groundY + 30 - h);
        p.drawLine(x, groundY + 30, x + 2, groundY + 30 - h - 2);
        p.drawLine(x, groundY + 30, x + 5, groundY + 30 - h + 1);
    }
    for (int x = 40; x < width; x += 131) { // little flowers
        p.setPen(Qt::NoPen);
        p.setBrush(QColor(255, 120 + (x % 100), 160));
        const QPointF c(x, groundY + 48 + (x % 17));
        for (int k = 0; k < 5; ++k)
            p.drawEllipse(c + QPointF(4 * std::cos(k * 1.2566), 4 * std::sin(k * 1.2566)), 3, 3);
        p.setBrush(QColor(255, 230, 80));
        p.drawEllipse(c, 2.5, 2.5);
    }
}

void roundedSign(QPainter &p, const QRectF &r, QColor fill, QColor border)
{
    p.setPen(QPen(border, 3));
    p.setBrush(fill);
    p.drawRoundedRect(r.adjusted(1.5, 1.5, -1.5, -1.5), 18, 18);
}

void textIn(QPainter &p, const QRectF &r, const QString &text, int pixelSize, QColor colour, bool bold = true)
{
    QFont f(QStringLiteral("Liberation Sans"));
    f.setPixelSize(pixelSize);
    f.setBold(bold);
    p.setFont(f);
    p.setPen(colour);
    p.drawText(r, Qt::AlignCenter | Qt::TextWordWrap, text);
}

// A small arrow pointing down-left, towards where the characters stand.
void arrow(QPainter &p, QPointF tip, QColor colour)
{
    QPainterPath a;
    a.moveTo(tip);
    a.lineTo(tip + QPointF(4, -22));
    a.lineTo(tip + QPointF(12, -15));
    a.closeSubpath();
    p.setPen(Qt::NoPen);
    p.setBrush(colour);
    p.drawPath(a);
    p.setPen(QPen(colour, 5, Qt::SolidLine, Qt::RoundCap));
    p.drawLine(tip + QPointF(8, -18), tip + QPointF(30, -44));
}

} // namespace

QImage RecordStage()
{
    QImage img(817, 390, QImage::Format_RGB32);
    QPainter p(&img);
    p.setRenderHint(QPainter::Antialiasing);
    sky(p, img.rect(), QColor(120, 190, 245), QColor(214, 238, 252));
    sun(p, QPointF(720, 64), 30);
    cloud(p, QPointF(140, 70), 34);
    cloud(p, QPointF(430, 45), 26);
    cloud(p, QPointF(600, 120), 22);
    hills(p, 817, 390, 250, 22, 0.3, QColor(150, 205, 120));
    hills(p, 817, 390, 290, 14, 1.7, QColor(112, 180, 86));
    QLinearGradient ground(0, 300, 0, 390);
    ground.setColorAt(0, QColor(96, 168, 70));
    ground.setColorAt(1, QColor(70, 135, 52));
    p.fillRect(QRect(0, 300, 817, 90), ground);
    grassTufts(p, 817, 300);
    return img;
}

QImage AudioStage()
{
    QImage img(817, 390, QImage::Format_RGB32);
    QPainter p(&img);
    p.setRenderHint(QPainter::Antialiasing);
    sky(p, img.rect(), QColor(58, 40, 92), QColor(132, 92, 150));
    // Stage boards.
    QLinearGradient boards(0, 300, 0, 390);
    boards.setColorAt(0, QColor(176, 122, 70));
    boards.setColorAt(1, QColor(120, 78, 42));
    p.fillRect(QRect(0, 300, 817, 90), boards);
    p.setPen(QPen(QColor(95, 60, 32), 1));
    for (int y = 312; y < 390; y += 14)
        p.drawLine(0, y, 817, y);
    // A spotlight in the middle, where the target stands.
    QRadialGradient spot(QPointF(408, 300), 260);
    spot.setColorAt(0, QColor(255, 246, 200, 150));
    spot.setColorAt(1, QColor(255, 246, 200, 0));
    p.setPen(Qt::NoPen);
    p.setBrush(spot);
    p.drawEllipse(QPointF(408, 300), 260, 120);
    // Curtains on both sides with a pelmet.
    for (int side = 0; side < 2; ++side) {
        for (int k = 0; k < 5; ++k) {
            const qreal x = side == 0 ? k * 22.0 : 817 - (k + 1) * 22.0;
            QLinearGradient fold(x, 0, x + 22, 0);
            fold.setColorAt(0, QColor(150, 20, 40));
            fold.setColorAt(0.5, QColor(205, 40, 60));
            fold.setColorAt(1, QColor(150, 20, 40));
            p.setBrush(fold);
            p.drawRect(QRectF(x, 0, 22, 390));
        }
    }
    QLinearGradient pelmet(0, 0, 0, 34);
    pelmet.setColorAt(0, QColor(205, 40, 60));
    pelmet.setColorAt(1, QColor(140, 18, 36));
    p.setBrush(pelmet);
    p.drawRect(QRect(0, 0, 817, 30));
    p.setBrush(QColor(240, 196, 70));
    for (int x = 10; x < 817; x += 30)
        p.drawEllipse(QPointF(x, 32), 5, 5);
    return img;
}

QImage StartInvitation(const QString &title, const QString &text)
{
    QImage img(225, 178, QImage::Format_ARGB32_Premultiplied);
    img.fill(Qt::transparent);
    QPainter p(&img);
    p.setRenderHint(QPainter::Antialiasing);
    roundedSign(p, QRectF(0, 0, 225, 150), QColor(255, 250, 214), QColor(214, 150, 40));
    textIn(p, QRectF(12, 10, 201, 60), title, 26, QColor(200, 90, 20));
    textIn(p, QRectF(12, 62, 201, 80), text, 15, QColor(70, 60, 40), false);
    arrow(p, QPointF(8, 176), QColor(214, 150, 40));
    return img;
}

QImage AudioInvitation(const QString &title, const QString &text)
{
    QImage img(218, 183, QImage::Format_ARGB32_Premultiplied);
    img.fill(Qt::transparent);
    QPainter p(&img);
    p.setRenderHint(QPainter::Antialiasing);
    roundedSign(p, QRectF(0, 0, 218, 155), QColor(236, 246, 255), QColor(70, 120, 200));
    textIn(p, QRectF(10, 8, 198, 56), title, 26, QColor(40, 90, 180));
    textIn(p, QRectF(10, 58, 198, 92), text, 15, QColor(40, 50, 70), false);
    arrow(p, QPointF(8, 181), QColor(70, 120, 200));
    return img;
}

} // namespace Artwork
