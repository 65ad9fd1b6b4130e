#include "charts/PictureBox.h"

#include "charts/FloodFill.h"
#include "common/RunTimeError.h"

#include <QMouseEvent>
#include <QPaintEngine>
#include <QPainter>
#include <QPen>

#include <algorithm>
#include <cmath>

namespace zrt {

PictureBox::PictureBox(QWidget *parent) : QWidget(parent)
{
    setAttribute(Qt::WA_OpaquePaintEvent);
}

PictureBox::~PictureBox() { EndPainting(); }

QPainter &PictureBox::Painter()
{
    fitCanvas();
    if (!m_painter.isActive())
        m_painter.begin(&m_image);
    return m_painter;
}

void PictureBox::EndPainting() const
{
    if (m_painter.isActive())
        m_painter.end();
}

// --- retained surface

void PictureBox::Cls()
{
    EndPainting();
    fitCanvas();
    m_image.fill(TranslateColor(m_backColor));
    m_current = QPoint(0, 0);
    m_steps.clear();
    m_marks.clear();
    m_labelInks.clear();
    update();
}

void PictureBox::Refresh() { repaint(); }

void PictureBox::Drawn()
{
    EndPainting();
    update();
}

qint32 PictureBox::Point(double x, double y) const
{
    const double perPixel = m_scaleMode == Twips ? TwipsPerPixel : 1.0;
    return PixelAt(static_cast<int>(std::floor(x / perPixel)), static_cast<int>(std::floor(y / perPixel)));
}

qint32 PictureBox::PixelAt(int x, int y) const
{
    fitCanvas();
    if (x < 0 || y < 0 || x >= m_image.width() || y >= m_image.height())
        return -1;
    return static_cast<qint32>(ToOleColor(QColor(m_image.pixel(x, y))));
}

const QImage &PictureBox::Image() const
{
    EndPainting(); // a copy taken now must not change with later drawing
    fitCanvas();
    return m_image;
}

// --- properties

void PictureBox::SetScaleMode(int mode)
{
    if (mode != Twips && mode != Pixels)
        zrt::raise(ErrInvalidPropertyIndex);
    m_scaleMode = mode;
}

double PictureBox::ScaleWidth() const { return toScale(ClientSize().width()); }

double PictureBox::ScaleHeight() const { return toScale(ClientSize().height()); }

void PictureBox::SetDrawWidth(int width)
{
    if (width < 1 || width > 32767)
        zrt::raise(ErrInvalidPropertyIndex);
    m_drawWidth = width;
}

void PictureBox::SetDrawStyle(int style)
{
    if (style < 0 || style > 6)
        zrt::raise(ErrInvalidPropertyIndex);
    m_drawStyle = style;
}

void PictureBox::SetFillStyle(int style)
{
    if (style < 0 || style > 7)
        zrt::raise(ErrInvalidPropertyIndex);
    m_fillStyle = style;
}

void PictureBox::SetBackColor(OleColor colour)
{
    m_backColor = colour;
    Cls();
    update();
}

void PictureBox::SetBorderStyle(int style)
{
    if (style != 0 && style != 1)
        zrt::raise(ErrInvalidPropertyIndex);
    m_borderStyle = style;
    fitCanvas();
    update();
}

QSize PictureBox::ClientSize() const
{
    const int b = borderWidth();
    return QSize(std::max(0, width() - 2 * b), std::max(0, height() - 2 * b));
}

// --- device calls

void PictureBox::MoveToEx(int x, int y) { m_current = QPoint(x, y); }

void PictureBox::LineTo(int x, int y)
{
    fitCanvas();
    if (m_recording) {
        const int half = m_drawWidth / 2;
        RecordMark(QRect(m_current, QPoint(x, y)).normalized().adjusted(-half, -half, half, half));
    }
    auto step = [pen = currentPen(), from = m_current, to = QPoint(x, y)](QPainter &painter) {
        painter.setPen(pen);
        if (from == to)
            painter.drawPoint(from);
        else
            painter.drawLine(from, to);
    };
    step(Painter());
    m_steps.push_back(std::move(step));
    m_current = QPoint(x, y);
    DoneWithPainter();
}

void PictureBox::Ellipse(int left, int top, int right, int bottom)
{
    fitCanvas();
    if (right - left < 2 || bottom - top < 2)
        return;
    const int half = m_drawWidth / 2;
    RecordMark(QRect(QPoint(left, top), QPoint(right - 1, bottom - 1)).adjusted(-half, -half, half, half));
    // An aliased one-pixel outline of a w x h rectangle covers w + 1 pixels: the box's right
    // and bottom edges stay outside.
    auto step = [pen = currentPen(), brush = currentBrush(),
                 box = QRect(left, top, right - left - 1, bottom - top - 1)](QPainter &painter) {
        painter.setPen(pen);
        painter.setBrush(brush);
        painter.drawEllipse(box);
        painter.setBrush(Qt::NoBrush);
    };
    step(Painter());
    m_steps.push_back(std::move(step));
    DoneWithPainter();
}

bool PictureBox::ExtFloodFill(int x, int y, OleColor colour, int fillType)
{
    fitCanvas();
    const FloodKind kind = fillType == FloodFillSurface ? FloodKind::Surface : FloodKind::Border;
    RecordMark(QRect(x, y, 1, 1));
    const QBrush brush = currentBrush();
    // A solid fill writes the pixels straight into the image, beside the open painter; any
    // other brush paints its spans with a painter of its own.
    if (brush.style() != Qt::SolidPattern)
        EndPainting();
    std::vector<QRect> filled;
    if (!FloodFill(m_image, x, y, TranslateColor(colour).rgb(), kind, brush, &filled))
        return false;
    // Painted again, the fill covers the pixels it covered here, not what another device's
    // borders would enclose.
    m_steps.push_back([brush, filled = std::move(filled)](QPainter &painter) {
        for (const QRect &r : filled)
            painter.fillRect(r, brush);
    });
    return true;
}

void PictureBox::DrawText(int x, int y, const QString &text, const QFont &font, const QColor &colour,
                          int escapement, int flags)
{
    auto step = [=](QPainter &painter) {
        painter.setPen(colour);
        const bool raster = painter.paintEngine() != nullptr && painter.paintEngine()->type() == QPaintEngine::Raster;
        QFont shown = font;
        const int stretch = font.stretch();
        if (!raster) {
            // Another device writes the font down by its values: the lightest weight a font file
            // has is 100 (a chart's weight 1 shows as regular on the screen), and text there has
            // no stretch of its own, so the painter widens the letters instead.
            shown.setWeight(static_cast<QFont::Weight>(std::max(100, static_cast<int>(font.weight()))));
            shown.setStretch(100);
        }
        const bool widen = !raster && stretch != 0 && stretch != 100;
        painter.setFont(shown);
        if (escapement == 0 && !widen) {
            painter.drawText(QRect(x, y, 32767, 32767), flags, text);
            return;
        }
        painter.save();
        painter.translate(x, y);
        painter.rotate(-escapement / 10.0);
        if (widen)
            painter.scale(stretch / 100.0, 1.0);
        painter.drawText(QRect(0, 0, 32767, 32767), flags, text);
        painter.restore();
    };
    step(Painter());
    m_steps.push_back(std::move(step));
    DoneWithPainter();
}

void PictureBox::Replay(QPainter &painter) const
{
    const QSize client = ClientSize();
    painter.save();
    painter.setClipRect(QRect(QPoint(0, 0), client), Qt::IntersectClip);
    painter.fillRect(QRect(QPoint(0, 0), client), TranslateColor(m_backColor));
    for (const auto &step : m_steps)
        step(painter);
    painter.restore();
}

QFont PictureBox::SelectFont(const QFont &font)
{
    QFont previous = m_font;
    m_font = font;
    return previous;
}

OleColor PictureBox::SetTextColor(OleColor colour)
{
    const OleColor previous = m_textColor;
    m_textColor = colour;
    return previous;
}

// --- events

void PictureBox::paintEvent(QPaintEvent *)
{
    EndPainting();
    fitCanvas();
    QPainter painter(this);
    const int b = borderWidth();
    painter.drawImage(b, b, m_image);
    if (b > 0)
        paintBorder(painter);
}

void PictureBox::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    fitCanvas();
    Q_EMIT Resize();
}

void PictureBox::mousePressEvent(QMouseEvent *event)
{
    const QPoint at = event->position().toPoint() - QPoint(borderWidth(), borderWidth());
    Q_EMIT MouseDown(event->button(), event->modifiers(), toScale(at.x()), toScale(at.y()));
}

// --- helpers

int PictureBox::borderWidth() const { return m_borderStyle == 1 ? 2 : 0; }

void PictureBox::fitCanvas() const
{
    const QSize client = ClientSize();
    if (m_image.size() == client && m_image.format() == QImage::Format_RGB32)
        return;
    EndPainting();
    QImage grown(client, QImage::Format_RGB32);
    grown.fill(TranslateColor(m_backColor));
    if (!m_image.isNull()) {
        QPainter painter(&grown);
        painter.drawImage(0, 0, m_image);
    }
    m_image = grown;
}

double PictureBox::toScale(int pixels) const
{
    return m_scaleMode == Twips ? static_cast<double>(pixels) * TwipsPerPixel : pixels;
}

QPen PictureBox::currentPen() const
{
    static constexpr Qt::PenStyle styles[] = {Qt::SolidLine,      Qt::DashLine, Qt::DotLine,  Qt::DashDotLine,
                                              Qt::DashDotDotLine, Qt::NoPen,    Qt::SolidLine};
    QPen pen(TranslateColor(m_foreColor));
    pen.setWidth(m_drawWidth);
    pen.setStyle(styles[m_drawStyle]);
    pen.setCapStyle(Qt::RoundCap);
    pen.setJoinStyle(Qt::RoundJoin);
    return pen;
}

QBrush PictureBox::currentBrush() const
{
    static constexpr Qt::BrushStyle styles[] = {Qt::SolidPattern, Qt::NoBrush,       Qt::HorPattern,
                                                Qt::VerPattern,   Qt::FDiagPattern,  Qt::BDiagPattern,
                                                Qt::CrossPattern, Qt::DiagCrossPattern};
    return QBrush(TranslateColor(m_fillColor), styles[m_fillStyle]);
}

void PictureBox::paintBorder(QPainter &painter) const
{
    const QRect r = rect();
    painter.setPen(TranslateColor(SystemColor(16)));
    painter.drawLine(r.left(), r.top(), r.right() - 1, r.top());
    painter.drawLine(r.left(), r.top(), r.left(), r.bottom() - 1);
    painter.setPen(TranslateColor(SystemColor(21)));
    painter.drawLine(r.left() + 1, r.top() + 1, r.right() - 2, r.top() + 1);
    painter.drawLine(r.left() + 1, r.top() + 1, r.left() + 1, r.bottom() - 2);
    painter.setPen(TranslateColor(SystemColor(20)));
    painter.drawLine(r.left(), r.bottom(), r.right(), r.bottom());
    painter.drawLine(r.right(), r.top(), r.right(), r.bottom());
    painter.setPen(TranslateColor(SystemColor(22)));
    painter.drawLine(r.left() + 1, r.bottom() - 1, r.right() - 1, r.bottom() - 1);
    painter.drawLine(r.right() - 1, r.top() + 1, r.right() - 1, r.bottom() - 1);
}

} // namespace zrt
