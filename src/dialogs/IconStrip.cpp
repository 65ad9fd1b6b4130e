#include "dialogs/IconStrip.h"

#include "gfx/DeviceImage.h"

#include <QGuiApplication>
#include <QPainter>
#include <QPainterPath>

namespace zrt::IconStrip {

namespace {

constexpr int S = kCellSize;

void DrawMark(QPainter &p, const QRect &cell, const QString &mark, const QColor &colour, int pixelSize)
{
    QFont font = p.font();
    font.setBold(true);
    font.setPixelSize(pixelSize);
    p.setFont(font);
    p.setPen(colour);
    p.drawText(cell, Qt::AlignCenter, mark);
}

void DrawDisc(QPainter &p, const QRect &cell, const QColor &light, const QColor &dark)
{
    QRadialGradient shade(cell.center() - QPoint(S / 6, S / 6), S * 0.6);
    shade.setColorAt(0, light);
    shade.setColorAt(1, dark);
    p.setPen(QPen(dark.darker(130), 1));
    p.setBrush(shade);
    p.drawEllipse(cell.adjusted(2, 2, -3, -3));
}

void DrawStop(QPainter &p, const QRect &cell)
{
    DrawDisc(p, cell, QColor(255, 120, 110), QColor(190, 20, 20));
    p.setPen(QPen(Qt::white, 3.5, Qt::SolidLine, Qt::RoundCap));
    const QRect inner = cell.adjusted(11, 11, -12, -12);
    p.drawLine(inner.topLeft(), inner.bottomRight());
    p.drawLine(inner.topRight(), inner.bottomLeft());
}

void DrawQuestion(QPainter &p, const QRect &cell)
{
    DrawDisc(p, cell, QColor(140, 180, 255), QColor(20, 70, 190));
    DrawMark(p, cell.adjusted(0, 0, -1, -1), QStringLiteral("?"), Qt::white, 20);
}

void DrawWarning(QPainter &p, const QRect &cell)
{
    QPainterPath triangle;
    triangle.moveTo(cell.left() + S / 2.0, cell.top() + 2);
    triangle.lineTo(cell.left() + S - 2, cell.top() + S - 4);
    triangle.lineTo(cell.left() + 2, cell.top() + S - 4);
    triangle.closeSubpath();
    QLinearGradient shade(cell.topLeft(), cell.bottomLeft());
    shade.setColorAt(0, QColor(255, 240, 120));
    shade.setColorAt(1, QColor(235, 180, 0));
    p.setPen(QPen(QColor(150, 110, 0), 1.2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    p.setBrush(shade);
    p.drawPath(triangle);
    DrawMark(p, cell.adjusted(0, 6, 0, -2), QStringLiteral("!"), Qt::black, 18);
}

void DrawInformation(QPainter &p, const QRect &cell)
{
    DrawDisc(p, cell, QColor(150, 190, 255), QColor(30, 90, 200));
    QFont font = p.font();
    font.setFamily(QStringLiteral("serif"));
    p.setFont(font);
    DrawMark(p, cell.adjusted(0, 0, -1, -1), QStringLiteral("i"), Qt::white, 22);
}

void DrawTick(QPainter &p, const QRect &cell)
{
    DrawDisc(p, cell, QColor(140, 230, 140), QColor(20, 140, 40));
    p.setPen(QPen(Qt::white, 3.5, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    p.setBrush(Qt::NoBrush);
    const QPoint o = cell.topLeft();
    p.drawPolyline(QPolygon({o + QPoint(9, 16), o + QPoint(14, 21), o + QPoint(23, 10)}));
}

void DrawIdea(QPainter &p, const QRect &cell)
{
    // A light bulb: glass, a glow inside and the screw cap.
    const QPoint o = cell.topLeft();
    QRadialGradient glow(o + QPoint(S / 2 - 2, 10), 12);
    glow.setColorAt(0, QColor(255, 255, 220));
    glow.setColorAt(1, QColor(255, 215, 40));
    p.setPen(QPen(QColor(160, 120, 0), 1));
    p.setBrush(glow);
    p.drawEllipse(QRect(o + QPoint(7, 2), QSize(18, 18)));
    p.drawRect(QRect(o + QPoint(11, 18), QSize(10, 4)));
    p.setBrush(QColor(150, 150, 150));
    p.setPen(QPen(QColor(80, 80, 80), 1));
    p.drawRect(QRect(o + QPoint(11, 22), QSize(10, 6)));
    p.drawLine(o + QPoint(11, 25), o + QPoint(21, 25));
    p.drawLine(o + QPoint(14, 28), o + QPoint(18, 28));
}

QPixmap MakeStrip()
{
    // At the finest pixel ratio of the screens, so the icons are sharp wherever the box shows.
    const qreal dpr = qGuiApp ? qGuiApp->devicePixelRatio() : 1.0;
    QImage image = DeviceImage(QSize(S * kCells, S), dpr, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter p(&image);
    p.setRenderHint(QPainter::Antialiasing);
    using Draw = void (*)(QPainter &, const QRect &);
    const Draw draws[kCells] = {DrawStop, DrawQuestion, DrawWarning, DrawInformation, DrawTick, DrawIdea};
    for (int i = 0; i < kCells; ++i) {
        p.save();
        draws[i](p, QRect(i * S, 0, S, S));
        p.restore();
    }
    p.end();
    return QPixmap::fromImage(image);
}

} // namespace

const QPixmap &Strip()
{
    static const QPixmap strip = MakeStrip();
    return strip;
}

int CellForFlags(qint32 flags)
{
    switch (flags & 112) {
    case 16:
        return 0;
    case 32:
        return 1;
    case 48:
        return 2;
    case 64:
        return 3;
    case 80:
        return 4;
    case 96:
        return 5;
    default:
        return -1;
    }
}

QPixmap Cell(const QPixmap &strip, int index)
{
    const int side = strip.height();
    if (index < 0 || side <= 0 || (index + 1) * side > strip.width())
        return {};
    QPixmap cell = strip.copy(index * side, 0, side, side);
    cell.setDevicePixelRatio(strip.devicePixelRatio());
    return cell;
}

} // namespace zrt::IconStrip
